// The picking forms driven by their controls: where frmImpTnLyx opens, the option, moving a chart
// to another archive, the editable grid, and frmImpTVesmo's import into the entry chart; no
// archive or an empty one.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "archives/Archivi.h"
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
    // The name in the grid's current row.
    static std::string Corrente(FinestraImporta& f) {
        QModelIndex i = f.DBGrid1->currentIndex();
        if (!i.isValid()) return "(nessuno)";
        return SenzaSpaziDestra(SS(f.DBGrid1->model()->index(i.row(), 0).data().toString()));
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

// The grid's updating switched by its button; it stays on when another archive is clicked, and
// the next opening starts on the archive last used.
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

// No archive at all: the buttons do nothing. Nothing to import or delete: told under each half's
// title, and the charts stay.
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
