// The archive lists as people read them and the work on many charts, driven through the real
// forms: the grid's cells, sorting, search and writing, several charts deleted or moved after one
// question, the rename, the AAF import dialog and the CSV export, the backup, the deletion of an
// archive with the automatic copy before it, and the restore from that copy.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <fstream>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/Sicurezza.h"
#include "archives/ui/ModelloArchivio.h"
#include "archives/ui/ScambioSicurezza.h"
#include "archives/ui/frmGesArchivi.h"
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

class Scambio : public vesmo::test::ConArchivi {
protected:
    // Three charts: born in different years and places.
    void TreTemi() {
        CreaArchivio(fileDB, "Clienti");
        Tema a = TemaDiProva("Anna Rossi"), b = TemaDiProva("Bruno Neri"),
             c = TemaDiProva("Carla Bianchi");
        b.Day = GiornoGiuliano(1960, 3, 12);
        b.City = "Roma";
        b.OraL = 7.25;
        c.Day = GiornoGiuliano(2001, 12, 31);
        c.City = "Forlì";
        c.Cmto = "cliente dal 2010";
        for (const Tema& t : {a, b, c})
            ASSERT_EQ(SalvaTema(fileDB, "Clienti", t, messaggi, "prova"),
                      EsitoSalvataggio::Aggiunto);
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

TEST_F(Scambio, GrigliaLeggibileOrdinataECercata) {
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

TEST_F(Scambio, PiuTemiEliminatiOSpostatiConUnaDomanda) {
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

TEST_F(Scambio, RinominaArchivioConLeRegoleDelNome) {
    Riempi("Amici", {"Anna"});
    Riempi("Famiglia", {});
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.show();
    f.lstArchivi->setCurrentRow(0);
    messaggi.input = {std::string("Fusi")};
    f.cmdRinomina->click();
    EXPECT_EQ(messaggi.registro.back().testo, *ErroreNomeArchivio("Fusi")); // the rule's reason
    // A name of another archive is asked again; the new one is taken.
    messaggi.input = {std::string("famiglia"), std::string("Clienti 2026")};
    f.cmdRinomina->click();
    EXPECT_EQ(ElencoArchivi(fileDB), (V{"Clienti 2026", "Famiglia"}));
    EXPECT_EQ(Nomi("Clienti 2026"), (V{"Anna"}));
    Database db(fileDB);
    EXPECT_TRUE(db.EsisteIndice("Clienti 2026", IndiceArchivio));
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Clienti 2026", "Famiglia"}));
}

TEST_F(Scambio, ImportaAafDalDialogoEdEsportaCsv) {
    Riempi("Clienti", {});
    const std::string aaf = (cartella / "clienti.aaf").string();
    std::ofstream(aaf) << "#A93:Rossi,Mario,m,10.4.1987,19:30,Padova,I\n"
                          "#A93:Ferber,Tobias,m,27.9.1970,11:04,Kandel/Pfalz,D\n"
                          "#B93:*,49n05,8e11,1he,0\n"
                          "#A93:Bad,Date,m,31.2.1970,11:04,X,D\n";
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.cartellaFile = QS(cartella.Percorso().string());
    f.sceltaApri = [&](QWidget*, const QString& titolo, const QString&, const QString& filtri) {
        EXPECT_EQ(titolo, "Importa Archivio AAF");
        EXPECT_TRUE(filtri.startsWith("File AAF (*.aaf *.AAF)"));
        return QS(aaf);
    };
    f.completaLuogo = [](Tema& t) {
        t.Lon = -GradiDecimali(11, 52, 0) / 15;
        t.Lat = GradiDecimali(45, 25, 0);
        t.Fuso = -1;
        t.Estiva = 1;
    };
    f.show();
    test::AlModale("frmImportaScambio", [](QWidget* d) {
        EXPECT_EQ(d->windowTitle(), "Vesmo - Importa Temi");
        auto* archivio = d->findChild<QComboBox*>("cmbArchivio");
        EXPECT_EQ(archivio->currentText(), "clienti");
        archivio->setCurrentText("Clienti");
        EXPECT_FALSE(d->findChild<QCheckBox*>("chkDoppi")->isChecked());
        d->findChild<QPushButton*>("cmdImporta")->click();
    });
    f.mnFileImpAAF->trigger();
    const std::string log = (cartella / "Clienti.log").string();
    ASSERT_FALSE(messaggi.registro.empty());
    EXPECT_EQ(messaggi.registro.back().titolo, "Vesmo - Importa Temi");
    EXPECT_EQ(messaggi.registro.back().testo,
              "Archivio  Clienti\n\nImportati: 2\nCompletati dal database dei luoghi: 1\n"
              "Già presenti, non importati: 0\nScartati: 1\n\nEsamina il file di log\n" +
                  log);
    EXPECT_EQ(Nomi("Clienti"), (V{"Ferber, Tobias", "Rossi, Mario"}));
    EXPECT_TRUE(std::filesystem::exists(log));

    // The export into the file chosen in the save dialog.
    const std::string csv = (cartella / "uscita.csv").string();
    f.sceltaSalva = [&](QWidget*, const QString&, const QString& proposta, const QString&) {
        EXPECT_TRUE(proposta.endsWith("/Clienti.csv"));
        return QS(csv);
    };
    f.lstArchivi->setCurrentRow(0);
    f.mnFileExpCSV->trigger();
    EXPECT_EQ(messaggi.registro.back().testo,
              "Tabella  Clienti\n\nScritta nel File  \n" + csv + "\nNumero di Records: 2");
    EXPECT_EQ(vesmo::test::ConArchivi::Leggi(csv).substr(0, 5), "Nome,");
}

TEST_F(Scambio, CopiaDiSicurezzaCopiaAutomaticaERipristino) {
    Riempi("Amici", {"Anna", "Bruno"});
    Riempi("Famiglia", {"Carla"});
    sessione.CartellaCopie = (cartella / "copie").string();
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.show();
    const std::string copia = (cartella / "sicura.Mdb").string();
    f.sceltaSalva = [&](QWidget*, const QString& titolo, const QString&, const QString&) {
        EXPECT_EQ(titolo, "Copia di sicurezza");
        return QS(copia);
    };
    f.mnFileSicurezza->trigger();
    EXPECT_EQ(messaggi.registro.back().testo,
              "Copia di sicurezza del database scritta in\n" + copia);
    EXPECT_EQ(ElencoArchivi(copia), (V{"Amici", "Famiglia"}));

    // Deleting an archive asks first: No keeps it, yet the remembered archive goes back to the
    // first; Yes keeps a copy, then deletes.
    sessione.ArchivioIndice = 1;
    f.lstArchivi->setCurrentRow(1);
    messaggi.registro.clear();
    messaggi.risposte = {Risposta::No};
    f.cmdElimina->click();
    ASSERT_TRUE(
        test::Box(messaggi, 1, 0, "Lyx - Gestione Archivi", TestoEliminaArchivio("Famiglia")));
    EXPECT_EQ(messaggi.registro[0].pulsanti, Pulsanti::SiNo);
    EXPECT_EQ(std::tuple(sessione.ArchivioCorrente, f.lstArchivi->currentRow()),
              std::tuple("Amici", 0));
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Famiglia"}));
    EXPECT_TRUE(CopieAutomatiche(sessione.CartellaCopie).empty());
    messaggi.risposte = {Risposta::Si};
    f.cmdElimina->click();
    EXPECT_EQ(ElencoArchivi(fileDB), (V{"Famiglia"}));
    const auto copie = CopieAutomatiche(sessione.CartellaCopie);
    ASSERT_EQ(copie.size(), 1u);

    // "Ripristina..." brings it back from there.
    f.sceltaApri = [&](QWidget*, const QString&, const QString& inizio, const QString&) {
        EXPECT_EQ(inizio, QS(sessione.CartellaCopie));
        return QS(copie[0].string());
    };
    test::AlModale("frmRipristina", [](QWidget* d) {
        EXPECT_EQ(d->windowTitle(), "Vesmo - Ripristina Archivi");
        auto* l = d->findChild<QListWidget*>("lstCopia");
        ASSERT_EQ(l->count(), 2);
        l->item(0)->setSelected(true); // Amici
        d->findChild<QPushButton*>("cmdRipristina")->click();
    });
    f.mnFileRipristina->trigger();
    EXPECT_EQ(messaggi.registro.back().testo, "Amici  ripristinato come  Amici\n");
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Bruno"}));
    EXPECT_EQ(f.lstArchivi->count(), 2);
}
