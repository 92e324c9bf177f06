// The calculators opened from the chart menu's entries and driven by their boxes; the wheel's
// colours chosen from the File menu and honoured by the positions window's next drawing.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "calculators/ui/Calcolatrici.h"
#include "core/Aritmetica.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;

namespace {

class Calcolatrici : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        BancoMenu::SetUp();
        menu = f.get();
    }
    QDialog* Apri(const char* voce, const char* finestra) {
        QAction* a = menu->findChild<QAction*>(voce);
        EXPECT_NE(a, nullptr) << voce;
        if (!a) return nullptr;
        a->trigger();
        auto* f = menu->findChild<QDialog*>(finestra);
        EXPECT_NE(f, nullptr) << finestra;
        if (f) {
            EXPECT_TRUE(f->isVisible()) << finestra;
        }
        return f;
    }
    frmMenu* menu = nullptr; // the tests' own `f` is the calculator
};

} // namespace

TEST_F(Calcolatrici, OgniVoceApreLaSuaFinestraUnaVolta) {
    struct Voce {
        const char* voce;
        const char* finestra;
        const char* titolo;
    };
    const Voce voci[] = {
        {"mnuVarEclEqu", "frmEclEqu_Lyx", "Lyx -  Eclittiche <---> Equatoriali"},
        {"mnuVarEqT", "frmEqT_Lyx", "Lyx - Equazione del Tempo"},
        {"mnuVarJD", "frmElaJD", "Lyx - Elaborazioni di Giorni Giuliani (JD)"},
        {"mnuVarConv", "frmFormatiNum", "Lyx - Formati Numerici Coordinate"},
        {"mnuVarET", "frmTE_TU_Lyx", "Lyx - Tempo delle Effemeridi, Tempo Universale"},
    };
    for (const Voce& v : voci) {
        QDialog* f = Apri(v.voce, v.finestra);
        ASSERT_NE(f, nullptr);
        EXPECT_EQ(f->windowTitle(), QString::fromUtf8(v.titolo));
        EXPECT_FALSE(f->isModal());
        // A second choice brings the same window forward.
        menu->findChild<QAction*>(v.voce)->trigger();
        EXPECT_EQ(menu->findChildren<QDialog*>(v.finestra).size(), 1) << v.finestra;
    }
    // The entries stand in the Utility menu before "&Pulizia form".
    QStringList nomi;
    for (QAction* a : menu->mnuVar->actions())
        nomi << a->objectName();
    EXPECT_EQ(nomi.mid(0, 6), QStringList({"mnuVarEclEqu", "mnuVarEqT", "mnuVarJD", "mnuVarConv",
                                           "mnuVarET", "munVarSca"}));
}

TEST_F(Calcolatrici, GiorniGiulianiDalTemaNataleEIndietro) {
    auto* f = qobject_cast<frmElaJD*>(Apri("mnuVarJD", "frmElaJD"));
    ASSERT_NE(f, nullptr);
    // The form opens on the natal chart: 10/4/1987 19:30, summer time 1, one hour east.
    EXPECT_EQ(f->Text1->text() + "/" + f->Text2->text() + "/" + f->Text3->text(), "10/4/1987");
    EXPECT_EQ(f->Text4->text() + ":" + f->Text5->text(), "19:30");
    EXPECT_EQ(f->List1->currentIndex(), 1);
    EXPECT_EQ(f->Text6->text(), "1");
    EXPECT_EQ(f->List2->currentText(), " EST ");
    // 17:30 TU of 10 April 1987: 2446895.5 + 17.5 / 24.
    EXPECT_EQ(f->Text7->text(), "2446896,22916667");

    // Two days later, then back to the date.
    f->Text7->setText("2446898,22916667");
    f->Command13->click();
    EXPECT_EQ(f->Text1->text() + "/" + f->Text2->text() + "/" + f->Text3->text(), "12/4/1987");
    EXPECT_EQ(f->Text4->text() + ":" + f->Text5->text() + ":" + f->Text11->text(), "19:30:0,0");

    // Typed in the boxes with the comma, then to the Julian day.
    f->Text1->setText("1");
    f->Text2->setText("1");
    f->Text3->setText("2000");
    f->Text4->setText("13");
    f->Text5->setText("0");
    f->Text11->setText("0,0");
    f->List1->setCurrentIndex(0);
    f->Command12->click();
    EXPECT_EQ(f->Text7->text(), "2451545");

    // The sum waits for its sign; each chart button then gives the second operand.
    EXPECT_FALSE(f->Command5->isEnabled());
    f->Text9->setText("1,5");
    EXPECT_EQ(f->Text10->text(), "0");
    f->Text8->setText("+");
    EXPECT_TRUE(f->Command5->isEnabled());
    EXPECT_EQ(f->Text10->text(), "2451546,5");
    EXPECT_TRUE(f->Label10->text().startsWith("3/1/2000")) << f->Label10->text().toStdString();

    // A box that is not a number is told, with the routine, and nothing else changes.
    f->Text2->setText("gennaio");
    f->Command12->click();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - frmElaJD.Command12_Click");
    EXPECT_EQ(f->Text7->text(), "2451545");
}

TEST_F(Calcolatrici, DeltaTEquazioneDelTempoECoordinate) {
    auto* te = qobject_cast<frmTE_TU_Lyx*>(Apri("mnuVarET", "frmTE_TU_Lyx"));
    ASSERT_NE(te, nullptr);
    EXPECT_TRUE(te->lbAiuto->text().contains("1996   E +1,033"));
    te->Text3->setText("1");
    te->Text4->setText("giugno"); // not a number: counts as 0 and shows "0"
    te->Text5->setText("1993");
    te->CommandOK->click();
    EXPECT_EQ(te->Text4->text(), "0");
    EXPECT_EQ(te->Label1->text(), "DeltaT = 59,12s  = 0,9853m  = 0,0164h");

    auto* eqt = qobject_cast<frmEqT_Lyx*>(Apri("mnuVarEqT", "frmEqT_Lyx"));
    ASSERT_NE(eqt, nullptr);
    EXPECT_EQ(eqt->Label1->text(), "Eqt = ");
    eqt->Text3->setText("13");
    eqt->Text4->setText("10");
    eqt->Text5->setText("1992");
    eqt->CommandOK->click();
    // About +13m 42.7s: 0.0598 radians.
    EXPECT_TRUE(eqt->Label1->text().startsWith("EqT = 0,0598"))
        << eqt->Label1->text().toStdString();
    EXPECT_TRUE(eqt->Label1->text().endsWith(" radianti"));

    auto* ee = qobject_cast<frmEclEqu_Lyx*>(Apri("mnuVarEclEqu", "frmEclEqu_Lyx"));
    ASSERT_NE(ee, nullptr);
    ee->cmdCal_Equ->click();
    ee->txDay->setText("1");
    ee->txMese->setText("1");
    ee->txYear->setText("2000");
    ee->cmdCal_Ecl->click();
    ASSERT_TRUE(test::Box(m, 2, 0, "cmdCal_Equ_Click", "Necessaria Data!"));
    EXPECT_EQ(m.registro[0].icona, Icona::Informazione);
    EXPECT_EQ(m.registro[1].testo, "Necessaria Ora!");
    // 0 Aries on the ecliptic is 0h right ascension and 0 declination.
    ee->txH->setText("12");
    ee->txMn->setText("0");
    EXPECT_EQ(ee->cbSegni->currentText(), "Ariete");
    // The list names every sign in full, as the calculator shows them.
    QStringList segni;
    for (int i = 0; i < ee->cbSegni->count(); ++i)
        segni << ee->cbSegni->itemText(i);
    EXPECT_EQ(segni,
              QStringList({"Ariete", "Toro", "Gemelli", "Cancro", "Leone", "Vergine", "Bilancia",
                           "Scorpione", "Sagittario", "Capricorno", "Acquario", "Pesci"}));
    ee->txLon_Gradi->setText("0");
    ee->cmdCal_Equ->click();
    EXPECT_EQ(ee->txAR_h->text() + " " + ee->txAR_m->text() + " " + ee->txAR_s->text(), "0 0 0,0");
    EXPECT_EQ(ee->txDec_Gradi->text() + " " + ee->txDec_Primi->text(), "0 0");
    // 6h of right ascension at +23d26' declination is the summer solstice: 0 Cancro.
    ee->txAR_h->setText("6");
    ee->txAR_m->setText("0");
    ee->txAR_s->setText("0");
    ee->txDec_Gradi->setText("23");
    ee->txDec_Primi->setText("26");
    ee->cmdCal_Ecl->click();
    EXPECT_EQ(ee->cbSegni->currentText(), "Cancro");
    EXPECT_EQ(ee->txLat_Gradi->text(), "0");
}

TEST_F(Calcolatrici, FormatiNumericiDallaFinestra) {
    auto* f = qobject_cast<frmFormatiNum*>(Apri("mnuVarConv", "frmFormatiNum"));
    ASSERT_NE(f, nullptr);
    f->Testi[0]->setText("10");
    f->Testi[6]->setText("15");
    f->CommandOK->click();
    QStringList testi;
    for (QLineEdit* e : f->Testi)
        testi << e->text();
    EXPECT_EQ(testi, QStringList({"15", "0", "0,0", "1", "0", "0,0", "15", "1,0", "0,2618"}));
    // Pressing again with nothing typed changes nothing.
    f->CommandOK->click();
    QStringList ancora;
    for (QLineEdit* e : f->Testi)
        ancora << e->text();
    EXPECT_EQ(ancora, testi);
}

TEST_F(Calcolatrici, ColoriDellaRuota) {
    EXPECT_EQ(menu->stato.ColoriRidotti, 0);
    AlModale("frmColoriRuota", [](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Lyx - Colori della Ruota.");
        auto* l = Figlio<QLabel>(w, "Label1");
        EXPECT_TRUE(l->text().startsWith("La Ruota Zodiacale viene disegnata supponendo un' "
                                         "impostazione\r\n dello schermo di 800 x 600 pixel"));
        Figlio<QPushButton>(w, "Command1")->click(); // "256 Colori"
    });
    menu->findChild<QAction*>("mnuFileColori")->trigger();
    EXPECT_EQ(menu->stato.ColoriRidotti, 1);
    AlModale("frmColoriRuota", [](QWidget* w) {
        EXPECT_EQ(Figlio<QPushButton>(w, "Command2")->text(), "16,8 Milioni di Colori");
        Figlio<QPushButton>(w, "Command2")->click();
    });
    menu->findChild<QAction*>("mnuFileColori")->trigger();
    EXPECT_EQ(menu->stato.ColoriRidotti, 0);
}
