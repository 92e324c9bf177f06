// The chart menu's printing entry: the slot chosen in
// frmCheStampe opening the printing form on that slot, and the form that unloads itself when no
// slot is chosen, which the menu passes over in silence.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QPushButton>

#include "core/Aritmetica.h"
#include "presentation/ui/frmStampe.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/MenuStampe.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;

namespace {

class MenuStampe : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        BancoMenu::SetUp();
        Installa(2, vesmo::test::TemaPadova("Rivoluzione", 2024, 4, 10, 19.5, 1));
    }
    QList<frmStampe*> Aperte() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return f->findChildren<frmStampe*>();
    }
};

} // namespace

TEST_F(MenuStampe, LoSlotSceltoVaInStampa) {
    AlModale("frmCheStampe", [](QWidget* w) { Figlio<QPushButton>(w, "cmdR")->click(); });
    f->findChild<QAction*>("mnuFileStampe")->trigger();
    auto aperte = Aperte();
    ASSERT_EQ(aperte.size(), 1);
    frmStampe* st = aperte[0];
    EXPECT_TRUE(st->isVisible());
    EXPECT_FALSE(st->isModal());
    EXPECT_TRUE(st->mnuFileStampeChe[2]->isChecked());
    EXPECT_EQ(st->OpzioniDellaPagina().CheStampa, 3);
    EXPECT_EQ(s.TemaX.Nome, s.TemaRiv.Nome);
    EXPECT_TRUE(m.registro.empty());

    // Open already: the entry brings it forward, without asking the slot again.
    st->mnuFileStampeChe[0]->trigger();
    f->findChild<QAction*>("mnuFileStampe")->trigger();
    ASSERT_EQ(Aperte().size(), 1);
    EXPECT_EQ(Aperte()[0], st);
    EXPECT_EQ(st->OpzioniDellaPagina().CheStampa, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(MenuStampe, SenzaSceltaNessunErrore) {
    AlModale("frmCheStampe", [](QWidget* w) { w->close(); });
    f->findChild<QAction*>("mnuFileStampe")->trigger();
    EXPECT_TRUE(Aperte().isEmpty());
    EXPECT_TRUE(m.registro.empty()) << m.registro.front().testo;
    // The menu goes on: a second opening works.
    AlModale("frmCheStampe", [](QWidget* w) { Figlio<QPushButton>(w, "cmdTN")->click(); });
    f->findChild<QAction*>("mnuFileStampe")->trigger();
    EXPECT_EQ(Aperte().size(), 1);
}
