#include "places/ui/frmInDatiLyx.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "places/ModelloLuoghi.h"
#include "places/ui/PannelloDati.h"

namespace vesmo {

frmInDatiLyx::frmInDatiLyx(Sessione& sessione, const std::string& fileDB, char ordinamento,
                           Messaggi& messaggi, QWidget* genitore)
    : QDialog(genitore), s_(sessione), fileDB_(fileDB), ordinamento_(ordinamento),
      messaggi_(messaggi) {
    setObjectName("frmInDatiLyx");
    setWindowTitle(QStringLiteral("Lyx - Input Dati"));
    Dati = new PannelloDati(s_.TemaX, messaggi_, FormIngresso::InDatiLyx, this);
    cmdCalcola = Pulsante(this, "cmdCalcola", "Ca&lcola");
    cmdCalcola->setDefault(true);
    Command2 = Pulsante(this, "Command2", "&Annulla");
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdCalcola);
    pulsanti->addWidget(Command2);
    auto* l = new QVBoxLayout(this);
    l->addWidget(Dati, 1);
    l->addLayout(pulsanti);
    connect(cmdCalcola, &QPushButton::clicked, this, &frmInDatiLyx::cmdCalcola_Click);
    connect(Command2, &QPushButton::clicked, this, &frmInDatiLyx::Command2_Click);
    resize(1100, 680);
}

void frmInDatiLyx::Form_Load() {
    Dati->TagCommand4 = TagCommand4;
    Dati->Carica(fileDB_, ordinamento_);
}

void frmInDatiLyx::cmdCalcola_Click() {
    // The record is read into a blank chart. Any box the user must mend (no number where one
    // is wanted, no city) is told, and TemaX and the form stay as they are, so the user can
    // mend it.
    Tema nuovo = s_.TemaVuoto;
    if (!Dati->LeggiTema(nuovo)) return;
    s_.TemaX = nuovo;
    s_.DatiOk = -1;
    if (TagCommand4 == QLatin1String("daRivSol")) {
        AnnoRiv = static_cast<float>(ValoreTesto(SS(Dati->Text5->text())));
    } else if (TagCommand4 == QLatin1String("daRivLun")) {
        AnnoRiv = static_cast<float>(ValoreTesto(SS(Dati->Text5->text())));
        MeseRiv = static_cast<float>(ValoreTesto(SS(Dati->Text4->text())));
        GiornoRiv = static_cast<float>(ValoreTesto(SS(Dati->Text3->text())));
    }
    Command2_Click();
}

void frmInDatiLyx::Command2_Click() {
    Dati->Chiudi();
    TagCommand4.clear();
    accept();
}

} // namespace vesmo
