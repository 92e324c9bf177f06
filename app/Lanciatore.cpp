#include "app/Lanciatore.h"

#include <filesystem>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "archives/Sicurezza.h"
#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmImpTVesmo.h"
#include "archives/ui/frmQuery.h"
#include "astrolog/Astrolog.h"
#include "astrolog/qt/AvviaProgramma.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "places/CompletaLuogo.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmMainVesmo.h"

namespace vesmo {

RiquadroAstrolog::RiquadroAstrolog(Sessione& sessione, PercorsiVesmo& percorsi, Messaggi& messaggi,
                                   PannelloDati& dati, QWidget* genitore)
    : QGroupBox(QStringLiteral("Astrolog"), genitore), sessione_(sessione), percorsi_(percorsi),
      messaggi_(messaggi), dati_(dati) {
    setObjectName("FrameAstrolog");
    CreaControlli();
    Collega();
}

void RiquadroAstrolog::CreaControlli() {
    Combo1 = Lista(this, "Combo1");
    for (const char* v : VociCombo1)
        Combo1->addItem(QString::fromUtf8(v));
    Text17 = Casella(this, "Text17", 60);
    Text17->hide();
    Combo2 = Lista(this, "Combo2");
    for (const char* v : VociCombo2)
        Combo2->addItem(QString::fromUtf8(v));
    ChkGEO = Spunta(this, "ChkGEO", DidascaliaChkGEO(false).c_str());
    Command1 = Pulsante(this, "Command1", "A&vvia  Astrolog");
    Command6 = Pulsante(this, "Command6", "&Salva Info");
    auto* h = new QHBoxLayout(this);
    h->addWidget(Combo1);
    h->addWidget(Text17);
    h->addWidget(Combo2);
    h->addWidget(ChkGEO);
    h->addStretch(1);
    h->addWidget(Command1);
    h->addWidget(Command6);
}

void RiquadroAstrolog::Collega() {
    connect(Combo1, &QComboBox::activated, this, [this](int i) {
        EffettoCombo1 e = Combo1_Click(i);
        Text17->setVisible(e.Text17Visibile);
        dati_.Pannello2->setText(QS(e.Pannello2));
    });
    // The box of the user's sidereal value follows the list whoever moves it (the load puts
    // it back on index 0).
    connect(Combo1, &QComboBox::currentIndexChanged, this,
            [this](int i) { Text17->setVisible(Combo1_Click(i).Text17Visibile); });
    connect(ChkGEO, &QCheckBox::toggled, this,
            [this](bool v) { ChkGEO->setText(QS(DidascaliaChkGEO(v))); });
    connect(Command1, &QPushButton::clicked, this, &RiquadroAstrolog::Command1_Click);
    connect(Command6, &QPushButton::clicked, this, &RiquadroAstrolog::Command6_Click);
}

void RiquadroAstrolog::Azzera() {
    Combo1->setCurrentIndex(0);
    Combo2->setCurrentIndex(0);
}

SceltaAstrolog RiquadroAstrolog::Scelta() const {
    return SceltaAstrolog{Combo1->currentIndex(), SS(Text17->text()), Combo2->currentIndex(),
                          ChkGEO->isChecked()};
}

void RiquadroAstrolog::Command1_Click() {
    if (!dati_.LeggiTema(sessione_.TemaCorrente)) return;
    std::string pannello;
    Avvia(sessione_.TemaCorrente, Scelta(), percorsi_, messaggi_, AvviaDistaccato, pannello);
    dati_.Pannello2->setText(QS(pannello));
}

void RiquadroAstrolog::Command6_Click() {
    if (!dati_.LeggiTema(sessione_.TemaCorrente)) return;
    TestiInfo testi{SS(dati_.Text3->text()), SS(dati_.Text4->text()), SS(dati_.Text5->text()),
                    SS(dati_.Text6->text()), SS(dati_.Text7->text()), SS(dati_.Text22->text()),
                    SS(dati_.Text23->text())};
    std::string pannello;
    SalvaInfo(
        sessione_.TemaCorrente, testi, Scelta(), messaggi_,
        [this] { return ScegliFileInfo(this, percorsi_.DirAstrolog); }, pannello);
    dati_.Pannello2->setText(QS(pannello));
}

namespace {

void CollegaArchivi(frmMainVesmo& f, Sessione& s, PercorsiVesmo& percorsi, Messaggi& m) {
    QObject::connect(f.mnuFilGes, &QAction::triggered, &f, [&f, &s, &percorsi, &m] {
        frmGesArchivi g(s, percorsi.FileDB, m, &f,
                        std::filesystem::path(percorsi.FileIni).parent_path().string());
        g.completaLuogo = [file = percorsi.FileDB](Tema& t) { CompletaTemaDaLuoghi(file, t); };
        g.exec();
    });
    QObject::connect(f.mnuFilImp, &QAction::triggered, &f, [&f, &s, &percorsi, &m] {
        frmImpTVesmo i(s, percorsi.FileDB, m, &f);
        i.exec();
        f.Dati->MostraTema();
    });
    QObject::connect(f.mnuFilSalva, &QAction::triggered, &f, [&f, &s, &percorsi, &m] {
        if (!f.Dati->LeggiTema(s.TemaCorrente)) return;
        frmGesArchivi g(s, percorsi.FileDB, m, &f);
        g.ModoSalvo();
        g.exec();
    });
    QObject::connect(f.MnuQ, &QAction::triggered, &f, [&f, &s, &percorsi, &m] {
        frmQuery q(s, percorsi.FileDB, m, &f);
        q.exec();
    });
    f.PrimaDiEliminare = [&s, &percorsi, &m] {
        return CopiaPrimaDiEliminare(percorsi.FileDB, s.CartellaCopie, m, "frmPulizia.Command1");
    };
}

} // namespace

RiquadroAstrolog* ComponiLanciatore(frmMainVesmo& f, Sessione& sessione, PercorsiVesmo& percorsi,
                                    Messaggi& messaggi) {
    auto* astro = new RiquadroAstrolog(sessione, percorsi, messaggi, *f.Dati);
    f.MettiInCima(astro);
    QObject::connect(&f, &frmMainVesmo::Caricamento, astro, &RiquadroAstrolog::Azzera);
    QObject::connect(f.mnuFilAvvia, &QAction::triggered, astro, &RiquadroAstrolog::Command1_Click);
    QObject::connect(f.mnuFilSI, &QAction::triggered, astro, &RiquadroAstrolog::Command6_Click);
    CollegaArchivi(f, sessione, percorsi, messaggi);
    return astro;
}

} // namespace vesmo
