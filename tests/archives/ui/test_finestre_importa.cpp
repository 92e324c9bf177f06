// The picking forms driven by their controls: where frmImpTnLyx opens, the search box and the
// wider search, the option, deleting, moving a chart to another archive, the editable grid, and
// frmImpTVesmo's import into the entry chart; no archive or an empty one.
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
        EXPECT_EQ(Corrente(f), c.atteso) << c.natale;
        // The record under the cursor is read and cast, and shown.
        EXPECT_EQ(SenzaSpaziDestra(sessione.TemaX.Nome.str()), c.atteso);
        EXPECT_EQ(f.txtCmto->toPlainText().toStdString(), "nota " + c.atteso);
        EXPECT_FALSE(f.Anteprima->Vuota());
    }
    frmImpTnLyx f(sessione, fileDB, messaggi);
    EXPECT_EQ(f.windowTitle(), "Lyx - Importa Temi da Archivio");
    EXPECT_EQ(f.DidascaliaGriglia->text(), "Amici  3");
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(Importa, CercaMentreSiScriveEConLaRicercaEstesa) {
    Riempi("Amici", {"Gabriele D'Annunzio", "Anna d'Arco", "Bruno", "Carla"});
    frmImpTnLyx f(sessione, fileDB, messaggi);
    QTest::keyClicks(f.Text1, "Br");
    EXPECT_EQ(SenzaSpaziDestra(sessione.TemaX.Nome.str()), "Bruno");
    f.Text1->setText("Zz");
    EXPECT_EQ(Corrente(f), "Gabriele D'Annunzio"); // past the end: the last record

    // The wider search fills its list; the first name goes into the search box, the grid follows.
    f.Text1->setText("d'a");
    f.cdAvanzata->click();
    ASSERT_EQ(f.cbEstesa->count(), 2);
    EXPECT_EQ(SenzaSpaziDestra(SS(f.Text1->text())), "Anna d'Arco");
    EXPECT_EQ(Corrente(f), "Anna d'Arco");
    f.cbEstesa->setCurrentIndex(1);
    emit f.cbEstesa->activated(1);
    EXPECT_EQ(Corrente(f), "Gabriele D'Annunzio");
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
    EXPECT_EQ(preso, 3);
    EXPECT_EQ(sessione.DirezioneCalcolata, -1);
    EXPECT_EQ(SenzaSpaziDestra(sessione.TemaDir.Nome.str()), "Anna");
    EXPECT_FALSE(f.isVisible());
}

TEST_F(Importa, EliminaIlPrimoEPoiLUnico) {
    Riempi("Amici", {"Anna", "Bruno"});
    sessione.TemaNat.Nome = "Anna";
    frmImpTnLyx f(sessione, fileDB, messaggi);
    EXPECT_EQ(Corrente(f), "Anna");

    // Cancel: nothing goes.
    messaggi.risposte = {Risposta::Annulla};
    f.cmdElimina->click();
    ASSERT_TRUE(test::Box(messaggi, 1, 0, "Lyx - Elimina Temi",
                          "Anna                          \n\n"
                          "Sarà Eliminato senza possibilità di recupero\n\n"));
    EXPECT_EQ(messaggi.registro[0].pulsanti, Pulsanti::OkAnnulla);
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Bruno"}));

    // The first of two: the preview stays on the new first. The only one: an empty preview.
    f.cmdElimina->click();
    EXPECT_EQ(std::tuple(Corrente(f), SenzaSpaziDestra(sessione.TemaX.Nome.str())),
              std::tuple("Bruno", "Bruno"));
    f.cmdElimina->click();
    EXPECT_EQ(std::tuple(Nomi("Amici").size(), Corrente(f)), std::tuple(0u, "(nessuno)"));
    EXPECT_TRUE(f.Anteprima->Vuota());
}

TEST_F(Importa, SpostaInUnAltroArchivio) {
    Riempi("Amici", {"Anna", "Bruno"});
    Riempi("Famiglia", {"Bruno"});
    sessione.TemaNat.Nome = "Bruno";
    frmImpTnLyx f(sessione, fileDB, messaggi);
    EXPECT_EQ(f.cmbCambiaA->currentText(), "Amici");

    // The same archive is refused.
    f.cmdCambiaA->click();
    ASSERT_TRUE(test::Box(messaggi, 1, 0, "Lyx - Operazione Abortita",
                          "Archivio sorgente  Amici\nUGUALE \nArchivio destinazione  Amici\n\n"
                          "Selezionare un altro Archivio sulla lista a scomparsa"));

    // No: nothing moves.
    f.cmbCambiaA->setCurrentIndex(1);
    messaggi.risposte = {Risposta::No};
    f.cmdCambiaA->click();
    ASSERT_TRUE(test::Box(messaggi, 2, 1, "Lyx - Trasferimenti Tn",
                          "Bruno                         \nPadova                        \n\n"
                          "Trasferire da  Amici  a  Famiglia ?\n"));
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Bruno"}));

    // Yes: a second Bruno in the target, with the same fields, gone from the source.
    messaggi.risposte = {Risposta::Si};
    f.cmdCambiaA->click();
    ASSERT_TRUE(
        test::Box(messaggi, 4, 3, "Lyx - Info Trasferimenti",
                  "Bruno   Trasferito\n\ndall' Archivio   Amici\nall' Archivio     Famiglia"));
    EXPECT_EQ(Nomi("Amici"), V{"Anna"});
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{TemaDiProva("Bruno"), TemaDiProva("Bruno")}));
    EXPECT_EQ(Corrente(f), "Anna");
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
