#include "timecharts/ui/MenuRuote.h"

#include <QAction>
#include <QMenu>

#include "places/CittaVicine.h"

namespace vesmo {

namespace {

// The entry closes its menu, after the comment entry.
void Voce(frmMenu& menu, QMenu* sotto, const char* nome, const char* testo,
          std::function<void()> azione) {
    QAction* a = sotto->addAction(QString::fromUtf8(testo));
    a->setObjectName(nome);
    QObject::connect(a, &QAction::triggered, &menu, std::move(azione));
}

} // namespace

StatoMenuRuote* StatoRuoteDelMenu(frmMenu& menu) {
    return menu.findChild<StatoMenuRuote*>("StatoMenuRuote", Qt::FindDirectChildrenOnly);
}

frmRuotaDoppia* ApriRuotaDoppia(frmMenu& menu, Sessione& s, Messaggi& m, Esterno esterno) {
    StatoMenuRuote* stato = StatoRuoteDelMenu(menu);
    if (stato->doppia) stato->doppia->close();
    const int slot = static_cast<int>(esterno);
    s.TemaX = s.TemaDelSlot(0);
    s.PosX = s.PosDelSlot(0);
    s.TemaZ = s.TemaDelSlot(slot);
    s.PosZ = s.PosDelSlot(slot);
    auto* f = new frmRuotaDoppia(s, m, esterno, &menu);
    f->setWindowFlag(Qt::Window);
    f->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<frmMenu> io(&menu);
    f->RegistraSecondaria = [io](QWidget* w) {
        if (io) io->RegistraSecondaria(w);
    };
    f->AggiornaTransito = [io] {
        if (!io) return;
        if (QAction* salvo = io->mnuFileSalvo[1]) salvo->setChecked(false);
        io->riquadri[1].tag = QStringLiteral("oK");
        io->AggiornaFrames(2);
    };
    f->AggiornaRivoluzione = [io] {
        if (!io) return;
        if (QAction* salvo = io->mnuFileSalvo[2]) salvo->setChecked(false);
        io->riquadri[2].tag = QStringLiteral("oK");
        io->AggiornaFrames(3);
    };
    f->FileDB = menu.Percorsi().FileDB;
    f->CittaVicine = [](const std::string& fileDB, double lon, double lat,
                        const std::function<void(bool)>& costruzione) {
        std::vector<std::string> righe;
        for (const CittaVicina& r : CercaCittaVicine(fileDB, lon, lat, costruzione))
            righe.push_back(r.Testo());
        return righe;
    };
    stato->doppia = f;
    menu.RegistraSecondaria(f);
    f->show();
    return f;
}

void CollegaMenuRuote(frmMenu& menu, Sessione& s, Messaggi& m) {
    auto* stato = new StatoMenuRuote(s.Ruote, &menu);
    stato->setObjectName("StatoMenuRuote");
    frmMenu* f = &menu;
    auto apri = [f, &s, &m](Esterno e) { return [f, &s, &m, e] { ApriRuotaDoppia(*f, s, m, e); }; };
    Voce(menu, menu.mnuTransiti, "mnuTransitiR", "&Ruota doppia", apri(Esterno::Transito));
    Voce(menu, menu.mnuRiv, "mnuRivR", "&Ruota Doppia", apri(Esterno::Rivoluzione));
    Voce(menu, menu.mnuDir, "mnuDirRuotaDoppia", "&Ruota Doppia", apri(Esterno::Direzione));
}

} // namespace vesmo
