// The chart menu's printing entry: where it stands in the File menu, the slot chosen in
// frmCheStampe opening the printing form on that slot, and the form that unloads itself when no
// slot is chosen, which the menu passes over in silence.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>

#include "Modale.h"
#include "core/Aritmetica.h"
#include "presentation/ui/frmStampe.h"
#include "timecharts/ui/MenuStampe.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;

namespace {

Tema Padova(const char* nome, int anno) {
    Tema t;
    t.Nome = nome;
    t.City = "Padova";
    t.Day = GiornoGiuliano(anno, 4, 10);
    t.OraL = 19.5;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = 45.4;
    t.Fuso = -1;
    t.Estiva = 1;
    return t;
}

class MenuStampe : public ::testing::Test {
protected:
    void SetUp() override {
        s.TemaX = Padova("Mario Rossi", 1987);
        aspetti.EntraInLyx();
        percorsi.FileDB = "/non/esiste/Vesmodat.Mdb";
        f = std::make_unique<frmMenu>(s, percorsi, m);
        f->Form_Load();
        s.TemaX = Padova("Rivoluzione", 2024);
        f->InstallaTema(2);
        s.FlagDelSlot(2) = -1;
    }
    void TearDown() override {
        f.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QList<frmStampe*> Aperte() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return f->findChildren<frmStampe*>();
    }
    Sessione s;
    TabellaAspetti& aspetti = s.Aspetti;
    ConfigIni cfg;
    PercorsiVesmo percorsi;
    MessaggiRegistrati m;
    std::unique_ptr<frmMenu> f;
};

} // namespace

TEST_F(MenuStampe, VoceTraSalvoEdEsci) {
    QStringList nomi;
    for (QAction* a : f->mnuFile->actions())
        nomi << (a->isSeparator() ? QStringLiteral("-") : a->objectName());
    int i = static_cast<int>(nomi.indexOf("mnuFileStampe"));
    ASSERT_GT(i, 0);
    EXPECT_EQ(nomi.mid(i), (QStringList{"mnuFileStampe", "-", "mnuFileEsci"}));
    EXPECT_EQ(f->findChild<QAction*>("mnuFileStampe")->text(), "&Stampe");
}

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
