// The management form driven by its controls: deleting an archive (answered and refused), the
// transport twice, the birthdays import twice, the help forms, and the File menu whose entries
// the text import and export connect.
#include <gtest/gtest.h>

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/ui/frmGesArchivi.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;
using vesmo::test::TemaDiProva;

namespace {

class Gestione : public vesmo::test::ConArchivi {
protected:
    using V = std::vector<std::string>;
    Sessione sessione;
};

} // namespace

TEST_F(Gestione, EliminaArchivioSiENo) {
    Riempi("Amici", {"Anna"});
    Riempi("Famiglia", {});
    sessione.ArchivioIndice = 1;
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_TRUE(f.cmdElimina->isVisible());
    EXPECT_EQ(f.cmdElimina->text(), "&Elimina Archivio Selezionato");
    f.lstArchivi->setCurrentRow(1);

    // No: nothing deleted, yet the remembered archive goes back to the first.
    messaggi.risposte = {Risposta::No};
    f.cmdElimina->click();
    ASSERT_TRUE(
        test::Box(messaggi, 1, 0, "Lyx - Gestione Archivi",
                  "L' Archivio  Famiglia\n\nSarà eliminato senza possibilità di recupero.\n\n"
                  "Continuo?\n"));
    EXPECT_EQ(messaggi.registro[0].pulsanti, Pulsanti::SiNo);
    EXPECT_EQ(sessione.ArchivioCorrente, "Amici");
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Famiglia"}));
    EXPECT_EQ(f.lstArchivi->currentRow(), 0);

    // Yes on the first.
    messaggi.risposte = {Risposta::Si};
    f.cmdElimina->click();
    EXPECT_EQ(test::Voci(f.lstArchivi), QStringList{"Famiglia"});
    EXPECT_EQ(ElencoArchivi(fileDB), V{"Famiglia"});
}

TEST_F(Gestione, TrasportaDueVolte) {
    Riempi("Amici", {"Bruno", "Anna"});
    Riempi("Famiglia", {"Anna"});
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_EQ(f.Frame3->title(), "Trasporta  Archivi");
    EXPECT_FALSE(f.List1->isVisible());
    EXPECT_FALSE(f.cmdOkTrasporta->isVisible());
    EXPECT_FALSE(f.Command1->isVisible());

    for (int volta = 0; volta < 2; ++volta) {
        f.cmdTrasporta->click();
        EXPECT_TRUE(f.cmdOkTrasporta->isVisible());
        EXPECT_EQ(f.cmdOkTrasporta->text(), "Ok   --->");
        EXPECT_EQ(test::Voci(f.List1), (QStringList{"Amici", "Famiglia"}));
        f.lstArchivi->setCurrentRow(0);
        f.List1->setCurrentRow(1);
        f.cmdOkTrasporta->click();
        EXPECT_FALSE(f.List1->isVisible());
    }
    EXPECT_EQ(Nomi("Famiglia"), (V{"Anna", "Anna", "Anna", "Bruno", "Bruno"}));
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Bruno"}));

    // Into itself, the copy ends with the charts doubled.
    f.cmdTrasporta->click();
    f.lstArchivi->setCurrentRow(0);
    f.List1->setCurrentRow(0);
    f.cmdOkTrasporta->click();
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Anna", "Bruno", "Bruno"}));
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_FALSE(messaggi.occupato);
}

TEST_F(Gestione, CompleanniDueVolte) {
    // Without the side database the frame stays hidden.
    {
        frmGesArchivi f(sessione, fileDB, messaggi, nullptr, cartella.Percorso().string());
        f.show();
        EXPECT_FALSE(f.Frame4->isVisible());
    }
    const auto laterale = cartella / "AstDbTmp.mdb";
    {
        Database d;
        d.Crea(laterale);
        d.CreaTabella("Compleanni", CampiArchivio(),
                      {DefIndice{IndiceArchivio, {"Nome"}, false, false}});
    }
    for (const char* n : {"Ugo", "Ada"})
        ASSERT_EQ(SalvaTema(laterale.string(), "Compleanni", TemaDiProva(n), messaggi, "prova"),
                  EsitoSalvataggio::Aggiunto);

    frmGesArchivi f(sessione, fileDB, messaggi, nullptr, cartella.Percorso().string());
    f.show();
    EXPECT_TRUE(f.Frame4->isVisible());
    EXPECT_EQ(f.Frame4->title(), "Importa Compleanni  da AstDbTmp.mdb");
    EXPECT_EQ(f.Command2->text(), "Importa");
    f.Command2->click();
    EXPECT_EQ(f.Command2->text(), "2  Importati");
    EXPECT_EQ(test::Voci(f.lstArchivi), QStringList{"Compleanni"});
    EXPECT_TRUE(messaggi.registro.empty());

    // Again, No to the deletion: "Compleanni1", and no further question.
    messaggi.risposte = {Risposta::No};
    f.Command2->click();
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].testo, "La tabella esiste già. Eliminarla?");
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Compleanni", "Compleanni1"}));
    EXPECT_EQ(Nomi("Compleanni1"), (V{"Ada", "Ugo"}));
    EXPECT_FALSE(messaggi.occupato);
}

// The File menu's captions are read where the query window tests the text import.
TEST_F(Gestione, Aiuti) {
    frmGesArchivi f(sessione, fileDB, messaggi, nullptr, cartella.Percorso().string());
    f.show();
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
