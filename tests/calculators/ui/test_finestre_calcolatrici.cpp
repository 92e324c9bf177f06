// The calculators opened from the chart menu's entries and driven by their boxes; the wheel's
// colours chosen from the File menu.
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
    // The calculator the menu entry `voce` opens, named `finestra`, shown and not modal.
    template <class F> F* Apri(const char* voce, const char* finestra) {
        QAction* a = f->findChild<QAction*>(voce);
        EXPECT_NE(a, nullptr) << voce;
        if (!a) return nullptr;
        a->trigger();
        auto* w = qobject_cast<F*>(f->findChild<QDialog*>(finestra));
        EXPECT_TRUE(w && w->isVisible() && !w->isModal()) << finestra;
        return w;
    }
};

} // namespace

TEST_F(Calcolatrici, OgniVoceApreLaSuaFinestraUnaVolta) {
    const std::array<const char*, 3> voci[] = {
        {"mnuVarEclEqu", "frmEclEqu_Lyx", "Lyx -  Eclittiche <---> Equatoriali"},
        {"mnuVarEqT", "frmEqT_Lyx", "Lyx - Equazione del Tempo"},
        {"mnuVarJD", "frmElaJD", "Lyx - Elaborazioni di Giorni Giuliani (JD)"},
        {"mnuVarConv", "frmFormatiNum", "Lyx - Formati Numerici Coordinate"},
        {"mnuVarET", "frmTE_TU_Lyx", "Lyx - Tempo delle Effemeridi, Tempo Universale"},
    };
    for (auto [voce, finestra, titolo] : voci) {
        QDialog* w = Apri<QDialog>(voce, finestra);
        ASSERT_NE(w, nullptr);
        EXPECT_EQ(w->windowTitle(), QString::fromUtf8(titolo));
        // A second choice brings the same window forward.
        f->findChild<QAction*>(voce)->trigger();
        EXPECT_EQ(f->findChildren<QDialog*>(finestra).size(), 1) << finestra;
    }
}

TEST_F(Calcolatrici, GiorniGiulianiDalTemaNataleEIndietro) {
    auto* w = Apri<frmElaJD>("mnuVarJD", "frmElaJD");
    ASSERT_NE(w, nullptr);
    // The form opens on the natal chart: 10/4/1987 19:30, summer time 1, one hour east.
    test::Testi(w, {{"Text1", "10"}, {"List2", " EST "}, {"Text7", "2446896,22916667"}});
    // Two days later, then back to the date.
    w->Text7->setText("2446898,22916667");
    w->Command13->click();
    test::Testi(w, {{"Text1", "12"}, {"Text4", "19"}});
    // Typed in the boxes with the comma, then to the Julian day; the sum follows its boxes.
    test::Scrivi(w, {{"Text1", "1"},
                     {"Text2", "1"},
                     {"Text3", "2000"},
                     {"Text4", "13"},
                     {"Text5", "0"},
                     {"Text11", "0,0"}});
    w->List1->setCurrentIndex(0);
    w->Command12->click();
    EXPECT_EQ(w->Text7->text(), "2451545");
    test::Scrivi(w, {{"Text9", "1,5"}, {"Text8", "+"}});
    EXPECT_EQ(w->Text10->text(), "2451546,5");
    // A box that is not a number is told, with the routine, and nothing else changes.
    w->Text2->setText("gennaio");
    w->Command12->click();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - frmElaJD.Command12_Click");
    EXPECT_EQ(w->Text7->text(), "2451545");
}

TEST_F(Calcolatrici, DeltaTEquazioneDelTempoECoordinate) {
    auto* te = Apri<frmTE_TU_Lyx>("mnuVarET", "frmTE_TU_Lyx");
    ASSERT_NE(te, nullptr);
    // A month that is not a number counts as 0 and shows "0".
    test::Scrivi(te, {{"Text3", "1"}, {"Text5", "1993"}});
    te->Text4->setText("giugno");
    te->CommandOK->click();
    test::Testi(te, {{"Text4", "0"}, {"Label1", "DeltaT = 59,12s  = 0,9853m  = 0,0164h"}});

    auto* eqt = Apri<frmEqT_Lyx>("mnuVarEqT", "frmEqT_Lyx");
    ASSERT_NE(eqt, nullptr);
    test::Scrivi(eqt, {{"Text3", "13"}, {"Text4", "10"}, {"Text5", "1992"}});
    eqt->CommandOK->click();
    EXPECT_TRUE(eqt->Label1->text().startsWith("EqT = 0,0598"))
        << eqt->Label1->text().toStdString();

    auto* ee = Apri<frmEclEqu_Lyx>("mnuVarEclEqu", "frmEclEqu_Lyx");
    ASSERT_NE(ee, nullptr);
    ee->cmdCal_Equ->click();
    test::Scrivi(ee, {{"txDay", "1"}, {"txMese", "1"}, {"txYear", "2000"}});
    ee->cmdCal_Ecl->click();
    ASSERT_TRUE(test::Box(m, 2, 0, "cmdCal_Equ_Click", "Necessaria Data!"));
    EXPECT_EQ(m.registro[0].icona, Icona::Informazione);
    EXPECT_EQ(m.registro[1].testo, "Necessaria Ora!");
    // 6h of right ascension at +23d26' declination is the summer solstice: 0 Cancro.
    test::Scrivi(ee, {{"txH", "12"},
                      {"txMn", "0"},
                      {"txAR_h", "6"},
                      {"txAR_m", "0"},
                      {"txAR_s", "0"},
                      {"txDec_Gradi", "23"},
                      {"txDec_Primi", "26"}});
    ee->cmdCal_Ecl->click();
    test::Testi(ee, {{"cbSegni", "Cancro"}, {"txLat_Gradi", "0"}});
}

TEST_F(Calcolatrici, FormatiNumericiDallaFinestra) {
    auto* w = Apri<frmFormatiNum>("mnuVarConv", "frmFormatiNum");
    ASSERT_NE(w, nullptr);
    w->Testi[0]->setText("10");
    w->Testi[6]->setText("15");
    // Pressing again with nothing typed changes nothing: the boxes the conversion wrote are not
    // taken as typed.
    for (int volta = 0; volta < 2; ++volta) {
        w->CommandOK->click();
        QStringList testi;
        for (QLineEdit* e : w->Testi)
            testi << e->text();
        EXPECT_EQ(testi, QStringList({"15", "0", "0,0", "1", "0", "0,0", "15", "1,0", "0,2618"}))
            << volta;
    }
}

TEST_F(Calcolatrici, ColoriDellaRuota) {
    EXPECT_EQ(f->stato.ColoriRidotti, 0);
    AlModale("frmColoriRuota", [](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Lyx - Colori della Ruota.");
        EXPECT_TRUE(Figlio<QLabel>(w, "Label1")
                        ->text()
                        .startsWith("La Ruota Zodiacale viene disegnata supponendo un' "
                                    "impostazione\r\n dello schermo di 800 x 600 pixel"));
        Figlio<QPushButton>(w, "Command1")->click(); // "256 Colori"
    });
    f->findChild<QAction*>("mnuFileColori")->trigger();
    EXPECT_EQ(f->stato.ColoriRidotti, 1);
    AlModale("frmColoriRuota", [](QWidget* w) { Figlio<QPushButton>(w, "Command2")->click(); });
    f->findChild<QAction*>("mnuFileColori")->trigger();
    EXPECT_EQ(f->stato.ColoriRidotti, 0);
}
