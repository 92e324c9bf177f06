// The chart menu the window tests drive: loaded on a natal chart at Padova, with the session,
// the aspect table and the settings it works on, and the other slots filled on request.
#pragma once

#include <QAction>
#include <QCoreApplication>
#include <memory>

#include "tests/timecharts/ui/Modale.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo::test {

// A chart at Padova on the given day and local hour, zone one hour east.
inline Tema TemaPadova(const char* nome, int anno, int mese, int giorno, double ora,
                       int estiva = 0) {
    Tema t = NataleDiProva();
    t.Nome = nome;
    t.Day = GiornoGiuliano(anno, mese, static_cast<float>(giorno));
    t.OraL = ora;
    t.Estiva = estiva;
    return t;
}

template <class M = MessaggiRegistrati> class BancoMenu : public ::testing::Test {
protected:
    void SetUp() override { Carica(NataleDiProva()); }
    void TearDown() override {
        f.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // The menu opened on `natale` in a fresh session, as the launcher opens it.
    void Carica(const Tema& natale) {
        f.reset();
        s = Sessione{};
        s.TemaX = natale;
        s.Aspetti.EntraInLyx();
        if (percorsi.FileDB.empty()) percorsi.FileDB = "/non/esiste/Vesmodat.Mdb";
        f = std::make_unique<frmMenu>(s, percorsi, m);
        f->Form_Load();
    }
    // `t` installed in `slot` as a computed chart.
    void Installa(int slot, const Tema& t) {
        s.TemaX = t;
        f->InstallaTema(slot);
        s.FlagDelSlot(slot) = -1;
    }
    // The action `nome` of the menu, or of window `w`.
    QAction* Voce(const char* nome) { return Voce(f.get(), nome); }
    static QAction* Voce(QWidget* w, const char* nome) {
        auto* a = w->findChild<QAction*>(nome);
        EXPECT_NE(a, nullptr) << nome;
        return a;
    }
    Sessione s;
    TabellaAspetti& aspetti = s.Aspetti;
    PercorsiVesmo percorsi;
    M m;
    std::unique_ptr<frmMenu> f;
};

} // namespace vesmo::test
