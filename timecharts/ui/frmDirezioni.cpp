#include "timecharts/ui/frmDirezioni.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "timecharts/Direzioni.h"
#include "timecharts/Istanti.h"

namespace vesmo {

frmDirezioni::frmDirezioni(Sessione& sessione, Messaggi& messaggi, InputHook inputDati,
                           QWidget* genitore)
    : QDialog(genitore), s_(sessione), messaggi_(messaggi), inputDati_(std::move(inputDati)) {
    setObjectName("frmDirezioni");
    setWindowTitle(QString::fromUtf8(DidascaliaDirezioni));
    Option1 = Nome(new QRadioButton(QString::fromUtf8(CaptionOption1Dir), this), "Option1");
    Option2 = Nome(new QRadioButton(QString::fromUtf8(CaptionOption2Dir), this), "Option2");
    Text1 = Casella(this, "Text1", 100, "Separatore decimale:  virgola");
    Text1->setText(QStringLiteral("0"));
    Check1 = Spunta(this, "Check1", CaptionCheck1Dir);
    Command1 = Pulsante(this, "Command1", CaptionInputDir);
    Command1->setDefault(true);
    Command2 = Pulsante(this, "Command2", "&Annulla");

    auto* scelta = Riquadro(this, "");
    auto* g = new QVBoxLayout(scelta);
    auto* anni = new QHBoxLayout;
    anni->addWidget(Option1);
    anni->addWidget(Text1);
    anni->addStretch(1);
    g->addLayout(anni);
    g->addWidget(Option2);
    g->addWidget(Check1);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(Command1);
    pulsanti->addWidget(Command2);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(scelta);
    tutto->addLayout(pulsanti);

    // Neither way is chosen at first; the button then takes the date way.
    Text1->hide();
    Check1->hide();
    Text1->installEventFilter(this);
    connect(Option1, &QRadioButton::clicked, this, &frmDirezioni::Option1_Click);
    connect(Option2, &QRadioButton::clicked, this, &frmDirezioni::Option2_Click);
    connect(Command1, &QPushButton::clicked, this, &frmDirezioni::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    resize(380, 180);
}

void frmDirezioni::Option1_Click() {
    Text1->show();
    Check1->hide();
    Command1->setText(QString::fromUtf8(CaptionCalcolaDir));
}

void frmDirezioni::Option2_Click() {
    Check1->show();
    Text1->hide();
    Command1->setText(QString::fromUtf8(CaptionInputDir));
}

bool frmDirezioni::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == Text1 && evento->type() == QEvent::FocusOut && Text1->text().isEmpty())
        Text1->setText("0");
    return QDialog::eventFilter(oggetto, evento);
}

void frmDirezioni::Command1_Click() {
    if (Option1->isChecked()) {
        auto anni = NumeroConVirgola(SS(Text1->text()));
        if (!anni) {
            // Nothing changes: the user mends the number.
            messaggi_.Mostra(DidascaliaDirezioni,
                             "Anni di progressione non validi: \"" + SS(Text1->text()) +
                                 "\"\r\nScrivere un numero, con la virgola come separatore "
                                 "decimale (es. 30,57).",
                             Pulsanti::Ok, Icona::Esclamativo);
            Text1->setFocus();
            Text1->selectAll();
            return;
        }
        s_.TemaX = DirezionePerAnni(s_.TemaNat, static_cast<float>(*anni));
        s_.PosX = s_.PosVuoto;
        s_.DatiOk = -1;
        accept();
        return;
    }
    s_.TemaX = s_.TemaNat;
    s_.PosX = s_.PosVuoto;
    RichiestaInputDati r;
    r.didascalia = QString::fromUtf8(DidascaliaInputDirezione) + QS(s_.TemaX.Nome.str());
    r.disabilitati = {"Text6", "Text7"};
    s_.DatiOk = 0;
    EsitoInputDati input;
    if (inputDati_) input = inputDati_(r);
    if (input.ok && s_.DatiOk) {
        float api = 0;
        s_.TemaX = DirezionePerData(s_.TemaNat, s_.TemaX, Check1->isChecked(), api);
        s_.DatiOk = -1;
    } else {
        s_.DatiOk = 0;
    }
    accept();
}

} // namespace vesmo
