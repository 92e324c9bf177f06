// The menu's "&Importa" driven as a user would: a chart of an archive picked into each of the four
// slots through the picking form, the frame shown, the slot's button, the saved marks removed,
// and the revolution's instant that makes the slot behave as a computed revolution.
#include <gtest/gtest.h>

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "archives/Archivi.h"
#include "core/Aritmetica.h"
#include "places/Schema.h"
#include "tests/core/store/Cartella.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;

namespace {

Tema Carta(const std::string& nome, int giorno) {
    return vesmo::test::TemaPadova(nome.c_str(), 1987, 4, giorno, 19.5, 1);
}

class MenuImporta : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        percorsi.FileDB = (cartella / "Vesmodat.Mdb").string();
        {
            Database db;
            db.Crea(percorsi.FileDB);
            CreaSchemaLuoghi(db);
        }
        CreaArchivio(percorsi.FileDB, "Amici");
        for (int i = 0; i < 4; ++i)
            ASSERT_EQ(SalvaTema(percorsi.FileDB, "Amici", Carta(nomi[i], 10 + i), m, "prova"),
                      EsitoSalvataggio::Aggiunto);
        Carica(Carta("Natale di prova", 1));
    }
    const char* nomi[4] = {"Anna", "Bruno", "Carla", "Dario"};
    vesmo::test::Cartella cartella;
};

} // namespace

TEST_F(MenuImporta, UnTemaInOgniSlot) {
    QAction* voce = Voce("mnuFileImporta");
    ASSERT_NE(voce, nullptr);

    const char* opzioni[4] = {"Option1", "Option2", "Option3", "Option4"};
    const char* pulsanti[4] = {nullptr, "cmdAA_Tra", "cmdAA_Riv", "cmdAA_Dir"};
    for (int slot = 0; slot < 4; ++slot) {
        for (QAction* a : f->mnuFileSalvo)
            a->setChecked(true);
        const std::string nome = nomi[slot];
        AlModale("frmImpTnLyx", [&](QWidget* w) {
            Figlio<QLineEdit>(w, "Text1")->setText(QString::fromStdString(nome));
            Figlio<QRadioButton>(w, opzioni[slot])->setChecked(true);
            Figlio<QPushButton>(w, "cmdImporta")->click();
        });
        voce->trigger();
        EXPECT_EQ(s.TemaDelSlot(slot), Carta(nome, 10 + slot)) << slot;
        // The positions came with the chart: the Sun near 20-24 degrees of Aries.
        EXPECT_NEAR(s.PosDelSlot(slot).Sole.Lo, 22, 3);
        auto& r = f->riquadri[static_cast<std::size_t>(slot)];
        EXPECT_EQ(r.nome->text().trimmed().toStdString(), nome);
        EXPECT_TRUE(r.frame->isEnabled());
        if (pulsanti[slot]) {
            EXPECT_FALSE(Figlio<QPushButton>(f.get(), pulsanti[slot])->isHidden()) << slot;
        }
        for (QAction* a : f->mnuFileSalvo)
            EXPECT_FALSE(a->isChecked());
    }
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
    // Carla, 12 April 1987 (JD 2446897.5 at 0h), 19:30 with summer time 1 and zone -1: 17:30 TU.
    EXPECT_NEAR(s.JDRivoluzione, 2446897.5 + 17.5 / 24, 1e-9);
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(MenuImporta, DoppioClicSullOpzioneEdEsciSenzaScelta) {
    QAction* voce = Voce("mnuFileImporta");
    ASSERT_NE(voce, nullptr);
    // Leaving without a choice changes no slot.
    AlModale("frmImpTnLyx", [](QWidget* w) { Figlio<QPushButton>(w, "Command3")->click(); });
    voce->trigger();
    EXPECT_EQ(s.TemaNat, Carta("Natale di prova", 1));
    EXPECT_EQ(s.TransitoCalcolato, 0);

    // A double click on an option imports at once.
    AlModale("frmImpTnLyx", [](QWidget* w) {
        Figlio<QLineEdit>(w, "Text1")->setText("Dario");
        QTest::mouseDClick(Figlio<QRadioButton>(w, "Option2"), Qt::LeftButton);
    });
    voce->trigger();
    EXPECT_EQ(s.TemaTra, Carta("Dario", 13));
    EXPECT_EQ(s.TransitoCalcolato, -1);
    EXPECT_EQ(f->riquadri[1].nome->text().trimmed(), "Dario");
}
