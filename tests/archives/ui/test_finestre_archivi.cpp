// frmGesArchivi and frmSalvoLyx driven by their controls, dialogs and file choosers included.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <fstream>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/Sicurezza.h"
#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmSalvoLyx.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;
using vesmo::test::TemaDiProva;

namespace {

class FinestreArchivi : public vesmo::test::ConArchivi {
protected:
    using V = std::vector<std::string>;
    Sessione sessione;
};

} // namespace

TEST_F(FinestreArchivi, GestioneCreaArchivi) {
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - Gestione Archivi Temi Natali");
    EXPECT_FALSE(f.cmdSalva->isVisible());
    EXPECT_EQ(f.Combo1->currentText(), "AllCity");
    f.Text1->setText("  Famiglia ");
    f.cmdCrea->click();
    f.Text1->setText("Amici");
    f.cmdCrea->click();
    EXPECT_EQ(f.lstArchivi->currentRow(), 0);
    // A duplicate asks for another name, which the list shows.
    messaggi.input = {"Colleghi"};
    f.Text1->setText("FAMIGLIA");
    f.cmdCrea->click();
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Colleghi", "Famiglia"}));
}

// The birthdays' frame only beside the side database; the transport's list on demand; helps.
TEST_F(FinestreArchivi, TrasportaCompleanniEAiuti) {
    {
        frmGesArchivi f(sessione, fileDB, messaggi, nullptr, cartella.Percorso().string());
        f.show();
        EXPECT_FALSE(f.Frame4->isVisible());
    }
    test::CreaCompleanni(cartella / "AstDbTmp.mdb", {"Ugo", "Ada"});
    Riempi("Amici", {"Bruno", "Anna"});
    frmGesArchivi f(sessione, fileDB, messaggi, nullptr, cartella.Percorso().string());
    f.show();
    EXPECT_EQ(f.Frame4->title(), "Importa Compleanni  da AstDbTmp.mdb");
    f.Command2->click();
    EXPECT_EQ(f.Command2->text(), "2  Importati");
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Compleanni"}));

    EXPECT_EQ(f.Frame3->title(), "Trasporta  Archivi");
    f.cmdTrasporta->click();
    EXPECT_EQ(f.cmdOkTrasporta->text(), "Ok   --->");
    f.lstArchivi->setCurrentRow(0);
    f.List1->setCurrentRow(1);
    f.cmdOkTrasporta->click();
    EXPECT_FALSE(f.List1->isVisible());
    EXPECT_EQ(Nomi("Compleanni"), (V{"Ada", "Anna", "Bruno", "Ugo"}));
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_FALSE(messaggi.occupato);

    struct Aiuto {
        QPushButton* pulsante;
        const char* titolo;
        const char* testo;
    };
    f.cmdTrasporta->click();
    const Aiuto aiuti[] = {
        {f.Command1, "Help - Trasporta Temi",
         "Trasporta tutti i Temi Natali contenuti nell'Archivio\n"
         "selezionato in Archivi Disponibili\n"
         "dentro l'Archivio selezionato in Trasporta Archivi\n"
         "-----------------------------------------------------------\n"
         "Copy FROM  Archivi Disponibili   TO   Trasporta Archivi"},
        {f.Command3, "Help - Importa Compleanni",
         "AstDbTmp.mdb  DEVE  essere presente\nnella stessa cartella di Vesmo.exe"},
    };
    for (const Aiuto& a : aiuti) {
        a.pulsante->click();
        ASSERT_NE(f.Aiuto(), nullptr);
        EXPECT_EQ(f.Aiuto()->windowTitle().toStdString(), a.titolo);
        EXPECT_EQ(f.Aiuto()->findChild<QLabel*>("lbHelpFuso")->text().toStdString(), a.testo);
    }
}

TEST_F(FinestreArchivi, RinominaArchivioConLeRegoleDelNome) {
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

TEST_F(FinestreArchivi, ImportaAafDalDialogoEdEsportaCsv) {
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

TEST_F(FinestreArchivi, CopiaDiSicurezzaCopiaAutomaticaERipristino) {
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

// Saving: no archive asks for one, else into the chosen one, remembered; a double click too.
TEST_F(FinestreArchivi, ModoSalvo) {
    sessione.TemaCorrente = TemaDiProva("Anna Bianchi");
    {
        frmGesArchivi f(sessione, fileDB, messaggi);
        f.ModoSalvo();
        f.show();
        f.cmdSalva->click();
        ASSERT_TRUE(test::Box(messaggi, 1, 0, "Vesmo - Gestione Archivi ",
                              "Crea un Archivio. File -> Gestione Archivi "));
        EXPECT_EQ(messaggi.registro[0].icona, Icona::Esclamativo);
        EXPECT_TRUE(f.isVisible());
    }
    CreaArchivio(fileDB, "Amici");
    CreaArchivio(fileDB, "Famiglia");
    messaggi.registro.clear();
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.ModoSalvo();
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - Salvo");
    f.lstArchivi->setCurrentRow(1);
    f.cmdSalva->click();
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(std::tuple(sessione.ArchivioIndice, sessione.ArchivioCorrente),
              std::tuple(1, "Famiglia"));
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{sessione.TemaCorrente});
    EXPECT_TRUE(messaggi.registro.empty());

    frmGesArchivi g(sessione, fileDB, messaggi);
    g.show();
    emit g.lstArchivi->itemDoubleClicked(g.lstArchivi->item(0));
    EXPECT_FALSE(g.isVisible());
    EXPECT_EQ(Temi("Amici"), std::vector<Tema>{sessione.TemaCorrente});
}

TEST_F(FinestreArchivi, SalvoLyxRicordaLArchivioESegnaIlSalvataggio) {
    for (const char* a : {"Amici", "Clienti", "Famiglia"})
        CreaArchivio(fileDB, a);
    sessione.ArchivioIndice = 2;
    sessione.TemaSalva = TemaDiProva("Anna Bianchi");
    {
        frmSalvoLyx f(sessione, fileDB, messaggi);
        f.show();
        EXPECT_EQ(f.windowTitle(), "Lyx - Salvo");
        EXPECT_EQ(f.lstArchivi->currentRow(), 2);
        EXPECT_EQ(sessione.ArchivioCorrente, "Famiglia");
        f.lstArchivi->setCurrentRow(1);
        f.cmdSalva->click();
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_EQ(std::tuple(sessione.SalvatoOk, sessione.ArchivioIndice, sessione.ArchivioCorrente),
              std::tuple(-1, 1, "Clienti"));
    EXPECT_EQ(Temi("Clienti"), std::vector<Tema>{sessione.TemaSalva});

    // Cancel leaves the mark as it was; the list remembers the archive.
    sessione.SalvatoOk = 0;
    messaggi.risposte = {Risposta::Annulla};
    {
        frmSalvoLyx f(sessione, fileDB, messaggi);
        f.show();
        emit f.lstArchivi->itemDoubleClicked(f.lstArchivi->currentItem());
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_EQ(std::tuple(sessione.SalvatoOk, Temi("Clienti").size()), std::tuple(0, 1u));

    // A remembered index beyond the list falls back to the first archive.
    sessione.ArchivioIndice = 9;
    frmSalvoLyx g(sessione, fileDB, messaggi);
    EXPECT_EQ(g.lstArchivi->currentRow(), 0);
    EXPECT_EQ(sessione.ArchivioCorrente, "Amici");
}
