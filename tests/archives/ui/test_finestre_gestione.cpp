// The management form driven by its controls: the birthdays import, the transport and the help
// forms.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/ui/frmGesArchivi.h"
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

// The birthdays' frame shows only beside the side database and its button imports and counts;
// the transport shows its list on demand and copies into another archive, then into itself; each
// half has its help.
TEST_F(Gestione, TrasportaCompleanniEAiuti) {
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
    EXPECT_EQ(Nomi("Compleanni"), (V{"Ada", "Ugo"}));

    EXPECT_EQ(f.Frame3->title(), "Trasporta  Archivi");
    EXPECT_FALSE(f.List1->isVisible());
    for (int verso : {1, 0}) {
        f.cmdTrasporta->click();
        EXPECT_EQ(f.cmdOkTrasporta->text(), "Ok   --->");
        f.lstArchivi->setCurrentRow(0);
        f.List1->setCurrentRow(verso);
        f.cmdOkTrasporta->click();
        EXPECT_FALSE(f.List1->isVisible());
    }
    EXPECT_EQ(Nomi("Compleanni"), (V{"Ada", "Anna", "Bruno", "Ugo"}));
    EXPECT_EQ(Nomi("Amici"), (V{"Anna", "Anna", "Bruno", "Bruno"}));
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
