// The double wheel opened from the chart menu's three entries, with the natal chart inside and
// the slot's chart outside: captions, the toolbar of each kind of wheel, the aspect switches and
// the refusals of the aspect selection, the filters between the charts, the double zodiac, and
// the transit moved through time with the menu's frame refreshed.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <cmath>

#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmRuotaDoppia.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;

namespace {

class MenuRuote : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        Carica(vesmo::test::TemaPadova("Mario Rossi", 1987, 4, 10, 19.5));
        const char* nomi[] = {"", "Transito", "Rivoluzione", "Direzione"};
        const int anni[] = {0, 2024, 2023, 1988};
        for (int slot = 1; slot <= 3; ++slot)
            Installa(slot, vesmo::test::TemaPadova(nomi[slot], anni[slot], 6, 1, 12));
    }
    frmRuotaDoppia* Apri(const char* voce) {
        QAction* a = Voce(voce);
        if (!a) return nullptr;
        a->trigger();
        return StatoRuoteDelMenu(*f)->doppia;
    }
    QAction* Voce(const char* nome) { return BancoMenu::Voce(nome); }
    QAction* Voce(QWidget* w, const char* nome) {
        auto* a = w->findChild<QAction*>(nome);
        EXPECT_NE(a, nullptr) << nome;
        return a;
    }
};

// A left click on a row of a list, as the user makes it.
void Clic(QListWidget* l, int riga) {
    QRect r = l->visualItemRect(l->item(riga));
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, r.center());
}

std::vector<int> Scelte(QListWidget* l) {
    std::vector<int> v;
    for (int i = 0; i < l->count(); ++i)
        if (l->item(i)->isSelected()) v.push_back(i);
    return v;
}

} // namespace

TEST_F(MenuRuote, OgniVoceApreLaSuaRuota) {
    struct Caso {
        const char* voce;
        const char* didascalia;
        const char* tag;
        int slot;
        bool transito;
    } casi[] = {
        {"mnuTransitiR", ": Interno [Tema Natale],  Esterno [Transito]", "1", 1, true},
        {"mnuRivR", ": Interno [Tema Natale],  Esterno [Rivoluzione]", "2", 2, false},
        {"mnuDirRuotaDoppia", ": Interno [Tema Natale],  Esterno [Direzione]", "3", 3, false},
    };
    QPointer<frmRuotaDoppia> prima;
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.voce);
        frmRuotaDoppia* w = Apri(c.voce);
        ASSERT_NE(w, nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // A new opening loads the window afresh.
        EXPECT_TRUE(prima.isNull());
        prima = w;
        EXPECT_TRUE(w->windowTitle().endsWith(QString::fromUtf8(c.didascalia)))
            << w->windowTitle().toStdString();
        EXPECT_TRUE(w->isVisible());
        EXPECT_EQ(w->List2->property("Tag").toString(), c.tag);
        EXPECT_EQ(s.TemaZ.Day, s.TemaDelSlot(c.slot).Day);
        // The transit starts without its houses and with the time buttons; the revolution
        // with the buttons that move its place; the direction with neither.
        const bool rivoluzione = c.slot == 2;
        EXPECT_EQ(w->Ruota->OpzioniDellaDoppia().CaseEsterne, !c.transito);
        for (const char* chiave : {"CaseTra", "UnSec", "UnMin"})
            EXPECT_EQ(w->findChild<QAction*>(chiave) != nullptr, c.transito || rivoluzione)
                << chiave;
        for (const char* chiave : {"UnOra", "UnDay", "UnMese", "UnYear"})
            EXPECT_EQ(w->findChild<QAction*>(chiave) != nullptr, c.transito) << chiave;
        EXPECT_EQ(w->findChild<QLineEdit*>("txtTempi") != nullptr, c.transito || rivoluzione);
        // Every wheel tells when its outer chart stands.
        const std::optional<Quando> q = QuandoDelTema(s.TemaZ);
        ASSERT_TRUE(q);
        EXPECT_EQ(w->lbQuando->text(), TestoQuando(*q));
    }
}

TEST_F(MenuRuote, SelezioneAspettiVuoleUnSoloTipo) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    EXPECT_FALSE(w->Frame1->isVisible());

    Voce(w, "mnuAspSelezione")->trigger();
    ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Orbita Aspetti",
                          "Bisogna impostare  1  tipo di Aspetti tra quelli possibili "));
    EXPECT_EQ(w->Selezione, nullptr);

    // The toolbar button and the menu entry are the same switch.
    Voce(w, "Interni")->trigger();
    EXPECT_TRUE(Voce(w, "mnuAspDisegnaInt")->isChecked());
    Voce(w, "mnuAspDisegnaEst")->trigger();
    EXPECT_TRUE(Voce(w, "Esterni")->isChecked());
    Voce(w, "mnuAspSelezione")->trigger();
    ASSERT_EQ(m.registro.size(), 2u);
    EXPECT_EQ(m.registro[1].testo,
              "Impostare NON PIU' di  1  tipo di Aspetti tra quelli possibili ");
    EXPECT_EQ(w->Selezione, nullptr);

    // Only the lines between the charts: natal in the rows, transit in the columns.
    Voce(w, "Interni")->trigger();
    Voce(w, "Esterni")->trigger();
    Voce(w, "Comparati")->trigger();
    EXPECT_TRUE(w->Frame1->isVisible());
    EXPECT_EQ(StatoRuoteDelMenu(*f)->stato.DisegnaAspettiCmp, -1);
    Voce(w, "mnuAspSelezione")->trigger();
    EXPECT_EQ(m.registro.size(), 2u);
    ASSERT_NE(w->Selezione, nullptr);
    EXPECT_EQ(s.TemaY.Day, s.TemaDelSlot(1).Day);
    w->Selezione->close();
}

TEST_F(MenuRuote, TuttiTogliLeAltreRighe) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    Voce(w, "Comparati")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(Scelte(w->List1), (std::vector<int>{0}));
    Clic(w->List1, 0);
    Clic(w->List1, 3);
    EXPECT_EQ(Scelte(w->List1), (std::vector<int>{3}));
    EXPECT_EQ(w->Ruota->OpzioniDellaDoppia().List1[3], true);
    Clic(w->List1, 0);
    EXPECT_EQ(Scelte(w->List1), (std::vector<int>{0}));
    // The other list is not touched.
    EXPECT_EQ(Scelte(w->List2), (std::vector<int>{0}));
}

TEST_F(MenuRuote, ZodiacoDoppioFinoAUnaRotazione) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    Voce(w, "mnFilZCasaV")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    EXPECT_NEAR(w->AngoloRuota, 360 - s.PosNat.Asce.Lo, 1e-3);
    const Case ci = CaseDellaRuota(s.TemaX, s.PosX), ce = CaseDellaRuota(s.TemaZ, s.PosZ);
    EXPECT_NEAR(w->AngoloEsterno, (ci[5].Lo - s.PosX.Asce.Lo) + (360 - ce[5].Lo), 1e-3);
    // A redraw keeps it: here, the transit's houses switched on.
    Voce(w, "CaseTra")->trigger();
    EXPECT_TRUE(w->CaseEsterne);
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    Voce(w, "mnuRotArieteSx")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 0);
    EXPECT_EQ(w->AngoloRuota, 0);
    Voce(w, "mnuRotAscSxEST")->trigger();
    EXPECT_NEAR(w->AngoloRuota, 360 - s.PosZ.Asce.Lo, 1e-3);
    EXPECT_TRUE(Voce(w, "mnuRotAscSxEST")->isChecked());
    Voce(w, "mnuRotAscSxINT")->trigger();
    EXPECT_FALSE(Voce(w, "mnuRotAscSxEST")->isChecked());
    EXPECT_NEAR(w->Ruota->OpzioniDellaDoppia().AngoloRuota, 360 - s.PosX.Asce.Lo, 1e-3);

    m.input.push_back("-12,5");
    Voce(w, "mnuRotQualsiasi")->trigger();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Angolo di rotazione della Ruota Doppia");
    EXPECT_NE(m.registro[0].testo.find("Riferito al tema INTERNO."), std::string::npos);
    EXPECT_FLOAT_EQ(w->AngoloRuota, -12.5f);
}

TEST_F(MenuRuote, IlTransitoAvanzaEIlRiquadroSiAggiorna) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    const QString quando = w->lbQuando->text();
    const QString data = f->riquadri[1].data->text();
    EXPECT_TRUE(quando.contains("2024")) << quando.toStdString();
    const double sole = s.PosZ.Sole.Lo, ora = s.TemaZ.OraL;
    f->mnuFileSalvo[1]->setCheckable(true);
    f->mnuFileSalvo[1]->setChecked(true);

    w->txtTempi->setText("3");
    Voce(w, "UnDay")->trigger();
    EXPECT_EQ(s.TemaZ.Day, GiornoGiuliano(2024, 6, 4));
    EXPECT_EQ(s.TemaDelSlot(1).Day, s.TemaZ.Day);
    // Three days of the Sun: about three degrees.
    EXPECT_NEAR(s.PosZ.Sole.Lo - sole, 2.9, 0.1);
    EXPECT_EQ(s.PosTra.Sole.Lo, s.PosZ.Sole.Lo);
    EXPECT_NE(w->lbQuando->text(), quando);
    EXPECT_NE(f->riquadri[1].data->text(), data);
    EXPECT_FALSE(f->mnuFileSalvo[1]->isChecked());

    // Ripristina brings back the natal chart inside and the slot outside.
    s.TemaX = s.TemaZ;
    Voce(w, "Ripristina")->trigger();
    EXPECT_EQ(s.TemaX.Day, s.TemaDelSlot(0).Day);
    EXPECT_EQ(s.TemaZ.Day, GiornoGiuliano(2024, 6, 4));

    w->txtTempi->setText("mezzo");
    Voce(w, "UnOra")->trigger();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Passo del Transito");
    EXPECT_EQ(s.TemaZ.OraL, ora);
}
