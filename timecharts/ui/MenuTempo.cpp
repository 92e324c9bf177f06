#include "timecharts/ui/MenuTempo.h"

#include <QAction>
#include <QBoxLayout>
#include <QDialog>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/qt/MessaggiQt.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "timecharts/Direzioni.h"
#include "timecharts/ui/frmCheRivoluzione.h"
#include "timecharts/ui/frmDirezioni.h"
#include "timecharts/ui/frmInSegni.h"

namespace vesmo {

namespace {

// The background of a box the user may not touch.
const char* const Grigio = "background-color: palette(window);";

QAction* Voce(QMenu* menu, QAction* prima, const char* nome, const char* testo) {
    auto* a = new QAction(QString::fromUtf8(testo), menu);
    a->setObjectName(nome);
    menu->insertAction(prima, a);
    return a;
}

QAction* PrimaVoce(QMenu* menu) {
    return menu->actions().isEmpty() ? nullptr : menu->actions().first();
}

QAction* VoceDiNome(QMenu* menu, const char* nome) {
    for (QAction* a : menu->actions())
        if (a->objectName() == QLatin1String(nome)) return a;
    return nullptr;
}

void Rivoluzione(frmMenu& menu, Sessione& s, Messaggi& m, TipoRivoluzione tipo) {
    s.DatiOk = 0;
    {
        frmCheRivoluzione f(s, m, tipo, menu.InputDati, &menu);
        f.exec();
    }
    InstallaDopoForm(menu, s, 2);
}

void DirezioniSecondarie(frmMenu& menu, Sessione& s, Messaggi& m) {
    s.DatiOk = 0;
    {
        frmDirezioni f(s, m, menu.InputDati, &menu);
        f.exec();
    }
    InstallaDopoForm(menu, s, 3);
}

void FrazioneDiAnno(frmMenu& menu, Sessione& s, Messaggi& m) {
    s.DatiOk = 0;
    if (!ChiediFrazioneAnno(m)) return;
    RichiestaInputDati r;
    r.aggiuntaDidascalia = QString::fromUtf8(DidascaliaInputFrazione);
    r.disabilitati = {"Text2", "Text19", "Text22", "Text23", "Frame3", "Frame4", "Frame5"};
    r.grigi = {"List2", "List3",  "List4",  "List5",  "Text9",  "Text10", "Text11",
               "Text8", "Text13", "Text14", "Text15", "Text16", "DBGrid1"};
    EsitoInputDati input;
    if (menu.InputDati) input = menu.InputDati(r);
    const bool ok = input.ok && s.DatiOk;
    DirezioneFrazioneAnno(s, ok, m);
    if (!ok) {
        s.DatiOk = 0;
        return;
    }
    s.DatiOk = -1;
    InstallaDopoForm(menu, s, 3);
}

void IngressiNeiSegni(frmMenu& menu, Sessione& s, Messaggi& m) {
    StatoMenuTempo* stato = StatoTempo(menu);
    s.DatiOk = 0;
    {
        frmInSegni f(s, m, *stato, &menu);
        f.exec();
    }
    InstallaDopoForm(menu, s, 1, true);
}

} // namespace

StatoMenuTempo* StatoTempo(frmMenu& menu) {
    auto* stato = menu.findChild<StatoMenuTempo*>("StatoMenuTempo", Qt::FindDirectChildrenOnly);
    if (!stato) {
        stato = new StatoMenuTempo(&menu);
        stato->setObjectName("StatoMenuTempo");
    }
    return stato;
}

void CollegaMenuTempo(frmMenu& menu, Sessione& s, Messaggi& m) {
    StatoTempo(menu);
    frmMenu* f = &menu;
    Sessione* ps = &s;
    Messaggi* pm = &m;

    QAction* primaRiv = PrimaVoce(menu.mnuRiv);
    QAction* sol = Voce(menu.mnuRiv, primaRiv, "mnuRivSol", "&Solari");
    auto* lun = new QMenu(QStringLiteral("&Lunari"), menu.mnuRiv);
    lun->setObjectName("mnuRivLun");
    menu.mnuRiv->insertMenu(primaRiv, lun);
    QAction* lunT = Voce(lun, nullptr, "mnuRivLunT", "&Tropiche");
    QAction* lunS = Voce(lun, nullptr, "mnuRivLunS", "S&inodiche");
    QObject::connect(sol, &QAction::triggered, f,
                     [f, ps, pm] { Rivoluzione(*f, *ps, *pm, TipoRivoluzione::Solare); });
    QObject::connect(lunT, &QAction::triggered, f,
                     [f, ps, pm] { Rivoluzione(*f, *ps, *pm, TipoRivoluzione::LunareTropica); });
    QObject::connect(lunS, &QAction::triggered, f,
                     [f, ps, pm] { Rivoluzione(*f, *ps, *pm, TipoRivoluzione::LunareSinodica); });

    QAction* primaDir = PrimaVoce(menu.mnuDir);
    QAction* sec = Voce(menu.mnuDir, primaDir, "mnuDirSec", "&Secondarie");
    QAction* fra = Voce(menu.mnuDir, primaDir, "mnuDirFra", "&Frazione di anno (secondarie)");
    QObject::connect(sec, &QAction::triggered, f,
                     [f, ps, pm] { DirezioniSecondarie(*f, *ps, *pm); });
    QObject::connect(fra, &QAction::triggered, f, [f, ps, pm] { FrazioneDiAnno(*f, *ps, *pm); });

    // After the transit's positions and houses, before its comment.
    QAction* memo = VoceDiNome(menu.mnuTransiti, "mnuTransitiMemo");
    QAction* ing = Voce(menu.mnuTransiti, memo, "mnuTransitiI", "Ingressi nei &Segni");
    QObject::connect(ing, &QAction::triggered, f, [f, ps, pm] { IngressiNeiSegni(*f, *ps, *pm); });
}

void InstallaDopoForm(frmMenu& menu, Sessione& s, int slot, bool tieniSalvo) {
    if (!s.DatiOk || slot < 0 || slot > 3) return;
    menu.ChiudiSecondarie();
    if (slot > 0) {
        s.FlagDelSlot(slot) = -1;
        menu.riquadri[static_cast<std::size_t>(slot)].astrolog->show();
    }
    if (!tieniSalvo) menu.mnuFileSalvo[static_cast<std::size_t>(slot)]->setChecked(false);
    menu.InstallaTema(slot);
}

void PreparaInputDati(frmInDatiLyx& form, const RichiestaInputDati& r) {
    if (!r.didascalia.isEmpty()) form.setWindowTitle(r.didascalia);
    if (!r.aggiuntaDidascalia.isEmpty())
        form.setWindowTitle(form.windowTitle() + r.aggiuntaDidascalia);
    form.TagCommand4 = r.TagCommand4;
    PannelloDati* d = form.Dati;
    d->TagCommand4 = r.TagCommand4;
    // The coordinate frames have no name of their own: they hold the degree boxes.
    auto trova = [d](const QString& nome) -> QWidget* {
        if (nome == QLatin1String("Frame3")) return d->Text9->parentWidget();
        if (nome == QLatin1String("Frame4")) return d->Text13->parentWidget();
        if (nome == QLatin1String("Frame5")) return d->Frame5;
        return d->findChild<QWidget*>(nome);
    };
    for (const QString& n : r.disabilitati)
        if (QWidget* w = trova(n)) {
            w->setEnabled(false);
            w->setStyleSheet(QString::fromUtf8(Grigio));
        }
    for (const QString& n : r.grigi)
        if (QWidget* w = trova(n)) w->setStyleSheet(QString::fromUtf8(Grigio));
    if (!r.frame2.isEmpty()) {
        auto* l = new QLabel(r.frame2, &form);
        l->setObjectName("Frame2");
        QFont f = l->font();
        f.setBold(true);
        l->setFont(f);
        if (auto* box = qobject_cast<QBoxLayout*>(form.layout())) box->insertWidget(0, l);
    }
}

void MostraAiuto(QWidget* genitore, const QString& titolo, const QString& testo) {
    QDialog d(genitore);
    d.setObjectName("frmHelp");
    d.setWindowTitle(titolo);
    auto* l = new QVBoxLayout(&d);
    auto* lb = new QLabel(QString(testo).replace("\r\n", "\n"), &d);
    lb->setObjectName("lbHelpFuso");
    lb->setWordWrap(true);
    lb->setMinimumWidth(480);
    l->addWidget(lb);
    auto* ok = new QPushButton(QStringLiteral("&Ok"), &d);
    l->addWidget(ok, 0, Qt::AlignRight);
    QObject::connect(ok, &QPushButton::clicked, &d, &QDialog::accept);
    d.exec();
}

} // namespace vesmo
