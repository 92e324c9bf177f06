// The picking forms frmImpTnLyx and frmImpTVesmo driven by their controls.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "archives/Archivi.h"
#include "archives/Sicurezza.h"
#include "archives/ui/ModelloArchivio.h"
#include "archives/ui/WidgetAnteprima.h"
#include "archives/ui/frmImpTVesmo.h"
#include "archives/ui/frmImpTnLyx.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;
using vesmo::test::TemaDiProva;

namespace {

class Importa : public vesmo::test::ConArchivi {
protected:
    // Three charts: born in different years and places.
    void TreTemi() {
        Tema a = TemaDiProva("Anna Rossi"), b = TemaDiProva("Bruno Neri"),
             c = TemaDiProva("Carla Bianchi");
        b.Day = GiornoGiuliano(1960, 3, 12);
        b.City = "Roma";
        b.OraL = 7.25;
        c.Day = GiornoGiuliano(2001, 12, 31);
        c.City = "Forlì";
        c.Cmto = "cliente dal 2010";
        RiempiTemi("Clienti", {a, b, c});
    }
    // The name in the grid's current row.
    static std::string Corrente(FinestraImporta& f) {
        QModelIndex i = f.DBGrid1->currentIndex();
        if (!i.isValid()) return "(nessuno)";
        return SenzaSpaziDestra(SS(f.DBGrid1->model()->index(i.row(), 0).data().toString()));
    }
    static std::vector<std::string> Colonna(QTableView* g, int colonna) {
        std::vector<std::string> r;
        for (int i = 0; i < g->model()->rowCount(); ++i)
            r.push_back(SS(g->model()->index(i, colonna).data().toString()));
        return r;
    }
    static void ClicTestata(QTableView* g, int colonna) {
        QHeaderView* h = g->horizontalHeader();
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {},
                          QPoint(h->sectionViewportPosition(colonna) + 4, h->height() / 2));
    }
    static void Seleziona(QTableView* g, std::initializer_list<int> righe) {
        g->clearSelection();
        for (int r : righe)
            g->selectionModel()->select(g->model()->index(r, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    using V = std::vector<std::string>;
    Sessione sessione;
};

} // namespace

TEST_F(Importa, ApreSulNomeDelNataleOppureDopo) {
    Riempi("Amici", {"Carla", "Anna", "Bruno"});
    struct Caso {
        std::string natale, atteso;
    };
    const Caso casi[] = {
        {"Bruno", "Bruno"}, // found
        {"Bea", "Bruno"},   // the next name in index order
        {"", "Anna"},
        {"Zeno", "Carla"}, // behind the last name: the last record
    };
    for (const Caso& c : casi) {
        sessione.TemaNat.Nome = c.natale;
        frmImpTnLyx f(sessione, fileDB, messaggi);
        // The record under the cursor is read and cast, and shown.
        EXPECT_EQ(std::tuple(Corrente(f), SenzaSpaziDestra(sessione.TemaX.Nome.str()),
                             SS(f.txtCmto->toPlainText()), SS(f.DidascaliaGriglia->text()),
                             SS(f.windowTitle())),
                  std::tuple(c.atteso, c.atteso, "nota " + c.atteso, "Amici  3",
                             "Lyx - Importa Temi da Archivio"));
        EXPECT_FALSE(f.Anteprima->Vuota());
    }
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(Importa, SenzaOpzioneNienteImporta) {
    Riempi("Amici", {"Anna"});
    sessione.TemaNat = TemaDiProva("Natale");
    frmImpTnLyx f(sessione, fileDB, messaggi);
    f.show();
    f.cmdImporta->click();
    const QModelIndex riga = f.DBGrid1->model()->index(0, 0);
    emit f.DBGrid1->doubleClicked(riga);
    ASSERT_TRUE(test::Box(messaggi, 2, 1, "Lyx - Avviso Importa Tema", "Selezionare Option"));
    EXPECT_EQ(messaggi.registro[1].icona, Icona::Informazione);
    EXPECT_EQ(sessione.TemaNat, TemaDiProva("Natale"));

    // With an option, the double click imports and closes.
    int preso = -1;
    f.ImportaNelMenu = [&](int slot) { preso = slot; };
    f.Option4->setChecked(true);
    emit f.DBGrid1->doubleClicked(riga);
    EXPECT_EQ(std::tuple(preso, SenzaSpaziDestra(sessione.TemaDir.Nome.str())),
              std::tuple(3, "Anna"));
    EXPECT_FALSE(f.isVisible());
}

TEST_F(Importa, SpostaInUnAltroArchivioEdElimina) {
    Riempi("Amici", {"Anna", "Bruno"});
    Riempi("Famiglia", {"Bruno"});
    sessione.TemaNat.Nome = "Bruno";
    frmImpTnLyx f(sessione, fileDB, messaggi);
    EXPECT_EQ(f.cmbCambiaA->currentText(), "Amici");

    // The same archive is refused; No moves nothing; Yes moves the row with the same fields.
    f.cmdCambiaA->click();
    f.cmbCambiaA->setCurrentIndex(1);
    messaggi.risposte = {Risposta::No};
    f.cmdCambiaA->click();
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Bruno"}));
    messaggi.risposte = {Risposta::Si};
    f.cmdCambiaA->click();
    V titoli;
    for (const auto& v : messaggi.registro)
        titoli.push_back(v.titolo);
    EXPECT_EQ(titoli, (V{"Lyx - Operazione Abortita", "Lyx - Trasferimenti Tn",
                         "Lyx - Trasferimenti Tn", "Lyx - Info Trasferimenti"}));
    EXPECT_EQ(messaggi.registro[0].icona, Icona::Esclamativo);
    EXPECT_EQ(Nomi("Amici"), V{"Anna"});
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{TemaDiProva("Bruno"), TemaDiProva("Bruno")}));
    EXPECT_EQ(Corrente(f), "Anna");
    // The last chart deleted leaves an empty grid and an empty preview.
    messaggi.risposte = {Risposta::Ok};
    f.cmdElimina->click();
    EXPECT_EQ(std::tuple(messaggi.registro.back().titolo, Nomi("Amici").size(), Corrente(f)),
              std::tuple("Lyx - Elimina Temi", 0u, "(nessuno)"));
    EXPECT_TRUE(f.Anteprima->Vuota());
}

// The grid's updating stays on when another archive is clicked, which the next opening shows.
TEST_F(Importa, GrigliaEditabileECambioArchivio) {
    Riempi("Amici", {"Anna"});
    Riempi("Famiglia", {"Bruno", "Carla"});
    frmImpTnLyx f(sessione, fileDB, messaggi);
    f.show();
    const auto editabile = [&] {
        return (f.DBGrid1->model()->flags(f.DBGrid1->model()->index(0, 0)) & Qt::ItemIsEditable) !=
               0;
    };
    const std::pair<const char*, bool> passi[] = {
        {"Griglia Editabile         Grids       Updatable  OFF", false},
        {"Griglia Editabile        Grids       Updatable    ON", true},
        {"Griglia Editabile      Grids       Updatable  OFF", false},
        {"Griglia Editabile        Grids       Updatable    ON", true},
    };
    for (const auto& [didascalia, acceso] : passi) {
        if (didascalia != passi[0].first) f.Command1->click();
        EXPECT_EQ(std::tuple(f.Command1->text().toStdString(), editabile()),
                  std::tuple(didascalia, acceso));
    }
    // A cell written goes to the row, padded as a saved name is.
    ASSERT_TRUE(f.DBGrid1->model()->setData(f.DBGrid1->model()->index(0, 0), "Annina"));
    EXPECT_EQ(Temi("Amici").at(0).Nome.str(), "Annina                        ");
    EXPECT_EQ(Corrente(f), "Annina");

    QTest::mouseClick(f.lstArchivi->viewport(), Qt::LeftButton, {},
                      f.lstArchivi->visualItemRect(f.lstArchivi->item(1)).center());
    EXPECT_EQ(std::tuple(f.DidascaliaGriglia->text().toStdString(), Corrente(f),
                         sessione.ArchivioCorrente),
              std::tuple("Famiglia  2", "Bruno", "Famiglia"));
    EXPECT_TRUE(editabile());
    frmImpTnLyx g(sessione, fileDB, messaggi);
    EXPECT_EQ(g.DidascaliaGriglia->text(), "Famiglia  2");
}

// No archive: the buttons do nothing; an empty one is told under each half's title.
TEST_F(Importa, NessunArchivioOArchivioVuoto) {
    {
        frmImpTnLyx f(sessione, fileDB, messaggi);
        f.show();
        f.Text1->setText("x");
        for (QPushButton* b : {f.cdAvanzata, f.cmdCambiaA, f.Command1})
            b->click();
        EXPECT_TRUE(messaggi.registro.empty());
    }
    CreaArchivio(fileDB, "Vuoto");
    sessione.TemaCorrente = TemaDiProva("Prima");
    {
        frmImpTVesmo f(sessione, fileDB, messaggi);
        f.show();
        f.cmdImporta->click();
        f.cmdElimina->click();
        EXPECT_EQ(messaggi.Testi(), (V{"Archivio vuoto", "Archivio vuoto."}));
        EXPECT_EQ(messaggi.registro[1].titolo, "Vesmo - Info Archivi");
        EXPECT_EQ(sessione.TemaCorrente, TemaDiProva("Prima"));
    }
    messaggi.registro.clear();
    sessione.TemaDir = TemaDiProva("Direzione");
    frmImpTnLyx f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_EQ(f.DidascaliaGriglia->text(), "Vuoto  0");
    f.Option4->setChecked(true);
    f.cmdImporta->click();
    f.cmdElimina->click();
    f.Text1->setText("x");
    f.cdAvanzata->click();
    EXPECT_EQ(messaggi.Testi(), (V{"Archivio vuoto", "Archivio vuoto."}));
    EXPECT_EQ(messaggi.registro[0].titolo, "Lyx - Info Archivi");
    EXPECT_EQ(std::tuple(sessione.TemaDir, sessione.DirezioneCalcolata),
              std::tuple(TemaDiProva("Direzione"), 0));
}

TEST_F(Importa, VesmoImportaNelTemaCorrente) {
    Riempi("Amici", {"Bruno", "Anna"});
    sessione.TemaNat.Nome = "Bruno"; // not looked at here
    frmImpTVesmo f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - Importa Temi da Archivio");
    EXPECT_EQ(f.findChild<QWidget*>("Frame3")->property("title").toString(), "Cerca >>");
    EXPECT_EQ(Corrente(f), "Anna"); // the first record
    QTest::keyClicks(f.Text1, "B");
    f.cmdImporta->click();
    EXPECT_EQ(sessione.TemaCorrente, TemaDiProva("Bruno"));
    EXPECT_FALSE(f.isVisible());
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(Importa, GrigliaLeggibileOrdinataECercata) {
    TreTemi();
    frmImpTVesmo f(sessione, fileDB, messaggi);
    f.show();
    QTableView* g = f.DBGrid1;
    QStringList titoli;
    for (int i = 0; i < g->model()->columnCount(); ++i)
        titoli << g->model()->headerData(i, Qt::Horizontal).toString();
    EXPECT_EQ(titoli, (QStringList{"Nome", "City", "Nazione", "Data", "Ora", "Lon", "Lat", "Fuso",
                                   "Estiva", "Commento"}));
    EXPECT_EQ(Colonna(g, 0), (V{"Anna Rossi", "Bruno Neri", "Carla Bianchi"}));
    EXPECT_EQ(Colonna(g, 3), (V{"10/04/1987", "12/03/1960", "31/12/2001"}));
    EXPECT_EQ(Colonna(g, 4), (V{"19:30", "07:15", "19:30"}));
    EXPECT_EQ(std::tuple(Colonna(g, 5)[0], Colonna(g, 6)[0], Colonna(g, 9)[2]),
              std::tuple("11E53", "45N24", "cliente dal 2010"));

    // A click on "Data" sorts by date, a second click the other way; on "City" by place.
    ClicTestata(g, 3);
    EXPECT_EQ(Colonna(g, 0), (V{"Bruno Neri", "Anna Rossi", "Carla Bianchi"}));
    ClicTestata(g, 3);
    EXPECT_EQ(Colonna(g, 0), (V{"Carla Bianchi", "Anna Rossi", "Bruno Neri"}));
    ClicTestata(g, 1);
    EXPECT_EQ(Colonna(g, 1), (V{"Forlì", "Padova", "Roma"}));

    // The search: words of the name, dates, place and comment together; accents ignored.
    struct Caso {
        const char* testo;
        V nomi;
        const char* etichetta;
    } casi[] = {
        {"rossi", {"Padova"}, "1 trovati"},
        {"dal:1980", {"Forlì", "Padova"}, "2 trovati"},
        {"dal:1980 al:31/12/2000", {"Padova"}, "1 trovati"},
        {"luogo:forli commento:CLIENTE", {"Forlì"}, "1 trovati"},
        {"luogo:italy", {"Forlì", "Padova", "Roma"}, "3 trovati"},
        {"", {"Forlì", "Padova", "Roma"}, ""},
    };
    for (const Caso& c : casi) {
        f.txtCerca->setText(QString::fromUtf8(c.testo));
        EXPECT_EQ(Colonna(g, 1), c.nomi) << c.testo;
        EXPECT_EQ(f.lbCerca->text(), QString::fromUtf8(c.etichetta)) << c.testo;
    }
    // A fault is told beside the box while typing, never by a message box.
    f.txtCerca->setText("dal:1980 al:31/02");
    EXPECT_EQ(f.lbCerca->text(), "data non valida: 31/02");
    f.txtCerca->setText("peso:3");
    EXPECT_EQ(f.lbCerca->text(), "campo sconosciuto (nome, dal, al, luogo, commento): peso");
    EXPECT_TRUE(messaggi.registro.empty());

    // A date and a time written into the updatable grid; a date that is not one is refused.
    f.txtCerca->clear();
    f.Command1->click();
    QAbstractItemModel* m = f.DBGrid1->model();
    const QModelIndex anna =
        m->index(m->match(m->index(0, 0), Qt::DisplayRole, "Anna Rossi")[0].row(), 3);
    ASSERT_TRUE(m->setData(anna, "11/04/1987"));
    ASSERT_TRUE(m->setData(anna.siblingAtColumn(4), "20:45"));
    EXPECT_FALSE(m->setData(anna, "31/02/1987"));
    EXPECT_EQ(std::tuple(Temi("Clienti")[0].Day, Temi("Clienti")[0].OraL),
              std::tuple(GiornoGiuliano(1987, 4, 11), 20.75));
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_NE(messaggi.registro[0].testo.find("Valore non valido per Data: 31/02/1987"),
              std::string::npos);
}

TEST_F(Importa, PiuTemiEliminatiOSpostatiConUnaDomanda) {
    TreTemi();
    Riempi("Amici", {});
    sessione.CartellaCopie = (cartella / "copie").string();
    sessione.ArchivioIndice = 1; // Amici, Clienti
    {
        frmImpTVesmo f(sessione, fileDB, messaggi);
        f.show();
        Seleziona(f.DBGrid1, {0, 2});
        messaggi.risposte = {Risposta::Annulla};
        f.cmdElimina->click();
        ASSERT_EQ(messaggi.registro.size(), 1u);
        EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Elimina Temi");
        EXPECT_EQ(Nomi("Clienti").size(), 3u);
        messaggi.risposte = {Risposta::Ok};
        f.cmdElimina->click();
        EXPECT_EQ(Nomi("Clienti"), (V{"Bruno Neri"}));
        EXPECT_EQ(Colonna(f.DBGrid1, 0), (V{"Bruno Neri"}));
        // The copy made before keeps the three.
        const auto copie = CopieAutomatiche(sessione.CartellaCopie);
        ASSERT_EQ(copie.size(), 1u);
        EXPECT_EQ(vesmo::test::TemiArchivio(copie[0].string(), "Clienti").size(), 3u);
    }
    Riempi("Altri", {"Dario", "Elsa", "Franco"});
    sessione.ArchivioIndice = 0; // Altri, Amici, Clienti
    messaggi.registro.clear();
    frmImpTnLyx f(sessione, fileDB, messaggi);
    f.show();
    Seleziona(f.DBGrid1, {0, 1});
    f.cmbCambiaA->setCurrentText("Amici");
    messaggi.risposte = {Risposta::Si, Risposta::Ok};
    f.cmdCambiaA->click();
    ASSERT_EQ(messaggi.registro.size(), 2u);
    EXPECT_EQ(messaggi.registro[1].testo,
              "2 temi   Trasferiti\n\ndall' Archivio   Altri\nall' Archivio     Amici");
    EXPECT_EQ(Nomi("Altri"), (V{"Franco"}));
    EXPECT_EQ(Nomi("Amici"), (V{"Dario", "Elsa"}));
}
