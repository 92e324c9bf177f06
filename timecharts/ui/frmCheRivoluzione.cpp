#include "timecharts/ui/frmCheRivoluzione.h"

#include <QCheckBox>
#include <QEvent>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "timecharts/ui/MenuTempo.h"

namespace vesmo {

namespace {

const char* const Label4Solare =
    "Il ritorno del SOLE può essere calcolato in qualsiasi punto della Eclittica. Selezionare "
    "un elemento della lista (es. Sole) o scrivere il grado desiderato (es. 237,4176)";
const char* const Label2SinFasi = "180  Luna Piena\n270  Primo Quarto\n  0  Luna Nuova\n"
                                  " 90  Ultimo Quarto";

} // namespace

frmCheRivoluzione::frmCheRivoluzione(Sessione& sessione, Messaggi& messaggi, TipoRivoluzione tipo,
                                     InputHook inputDati, QWidget* genitore)
    : QDialog(genitore), s_(sessione), messaggi_(messaggi), tipo_(tipo),
      inputDati_(std::move(inputDati)), testi_(TestiDellaRivoluzione(tipo)) {
    setObjectName("frmCheRivoluzione");
    setWindowTitle(QS(testi_.didascalia));

    CreaControlli();
    Disponi();
    MostraTipo();
    Collega();
    resize(640, 560);
}

void frmCheRivoluzione::CreaControlli() {
    Picture1 = Etichetta(this, tipo_ == TipoRivoluzione::Solare ? "\u2609" : "\u263D", "Picture1");
    QFont grande = Picture1->font();
    grande.setPointSize(48);
    Picture1->setFont(grande);
    Picture1->setAlignment(Qt::AlignCenter);
    Label6 = Etichetta(this, "Lunare  ", "Label6");
    QFont grassetto = Label6->font();
    grassetto.setBold(true);
    Label6->setFont(grassetto);

    Label7 = Etichetta(this, CaptionLabel7Riv, "Label7");
    List1 = Nome(new QListWidget(this), "List1");
    for (const char* riga : RigheRitorno)
        List1->addItem(QString::fromUtf8(riga));
    List1->setMinimumHeight(260);
    Label3 = Etichetta(this, CaptionLabel3Riv, "Label3");
    Text1 = Casella(this, "Text1", 120, TipText1Riv);

    Frame2Sin = Riquadro(this, "Frame2Sin", CaptionFrame2Sin);
    Check1Sin = Spunta(Frame2Sin, "Check1Sin", CaptionCheck1Sin);
    Check1Sin->setChecked(true);
    Label1Sin = Etichetta(Frame2Sin, CaptionLabelAngoloSin, "Label1Sin");
    Text3Sin = Casella(Frame2Sin, "Text3Sin", 120, TipText1Riv);
    Label2Sin = Etichetta(Frame2Sin, Label2SinFasi, "Label2Sin");
    {
        auto* g = new QGridLayout(Frame2Sin);
        g->addWidget(Check1Sin, 0, 0, 1, 2);
        g->addWidget(Label1Sin, 1, 0);
        g->addWidget(Text3Sin, 1, 1);
        g->addWidget(Label2Sin, 2, 0, 1, 2);
    }
    Label38 = Etichetta(this, s_.DidascaliaLunaGeo().c_str(), "Label38");

    Label4 = Etichetta(this, Label4Solare, "Label4");
    Label4->setWordWrap(true);
    Text2 = Casella(this, "Text2", 200);
    Text2->setReadOnly(true);
    Label5 = Etichetta(this, Label5Trovato, "Label5");
    Label5->setWordWrap(true);
    Command4 = Pulsante(this, "Command4", "&Calcola >>");
    Command5 = Pulsante(this, "Command5", "");
    Command2 = Pulsante(this, "Command2", "&Input Dati >>");
    Command2->setDefault(true);
    Command3 = Pulsante(this, "Command3", "&?");
    Command1 = Pulsante(this, "Command1", "&Annulla");
}

void frmCheRivoluzione::Disponi() {
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(Picture1);
    sinistra->addWidget(Label6, 0, Qt::AlignHCenter);
    sinistra->addWidget(Label4);
    sinistra->addStretch(1);
    auto* centro = new QVBoxLayout;
    centro->addWidget(Label7);
    centro->addWidget(List1, 1);
    auto* grado = new QHBoxLayout;
    grado->addWidget(Label3);
    grado->addWidget(Text1);
    grado->addStretch(1);
    centro->addLayout(grado);
    centro->addWidget(Frame2Sin);
    centro->addWidget(Label38);
    auto* alto = new QHBoxLayout;
    alto->addLayout(sinistra, 2);
    alto->addLayout(centro, 3);
    auto* esito = new QHBoxLayout;
    esito->addWidget(Text2);
    esito->addWidget(Label5, 1);
    auto* scelte = new QHBoxLayout;
    scelte->addStretch(1);
    scelte->addWidget(Command4);
    scelte->addWidget(Command5);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(Command3);
    pulsanti->addStretch(1);
    pulsanti->addWidget(Command2);
    pulsanti->addWidget(Command1);
    auto* tutto = new QVBoxLayout(this);
    tutto->addLayout(alto, 1);
    tutto->addLayout(esito);
    tutto->addLayout(scelte);
    tutto->addLayout(pulsanti);
}

void frmCheRivoluzione::MostraTipo() {
    // The kind decides what shows.
    Label6->setText(QS(testi_.label6));
    Label6->setVisible(tipo_ != TipoRivoluzione::Solare);
    if (!testi_.label4.empty()) Label4->setText(QS(testi_.label4));
    const bool sinodica = tipo_ == TipoRivoluzione::LunareSinodica;
    for (QWidget* w : std::initializer_list<QWidget*>{List1, Label7, Label3, Text1})
        w->setVisible(!sinodica);
    Label4->setVisible(!sinodica);
    Frame2Sin->setVisible(sinodica);
    Label38->setVisible(sinodica);
    Text2->hide();
    Label5->hide();
    Command4->hide();
    Command5->hide();
    List1->setCurrentRow(testi_.rigaIniziale);
    List1_Click();
}

void frmCheRivoluzione::Collega() {
    Text1->installEventFilter(this);
    Text3Sin->installEventFilter(this);
    connect(List1, &QListWidget::currentRowChanged, this, &frmCheRivoluzione::List1_Click);
    connect(Check1Sin, &QCheckBox::clicked, this, &frmCheRivoluzione::Check1Sin_Click);
    connect(Command1, &QPushButton::clicked, this, &QDialog::reject);
    connect(Command2, &QPushButton::clicked, this, &frmCheRivoluzione::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &frmCheRivoluzione::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &frmCheRivoluzione::Command4_Click);
    connect(Command5, &QPushButton::clicked, this, &frmCheRivoluzione::Command5_Click);
}

void frmCheRivoluzione::List1_Click() {
    const bool qualsiasi = List1->currentRow() == RigaGradoQualsiasi;
    Text1->setEnabled(qualsiasi);
    Label3->setEnabled(qualsiasi);
}

void frmCheRivoluzione::Check1Sin_Click() {
    if (Check1Sin->isChecked()) Text3Sin->clear();
}

bool frmCheRivoluzione::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == Text1 || oggetto == Text3Sin) {
        auto* t = static_cast<QLineEdit*>(oggetto);
        if (evento->type() == QEvent::FocusOut && t->text().isEmpty()) t->setText("0");
        if (evento->type() == QEvent::FocusIn && t == Text3Sin) Check1Sin->setChecked(false);
    }
    return QDialog::eventFilter(oggetto, evento);
}

void frmCheRivoluzione::Command2_Click() {
    // A new search: what an earlier one found can no longer be accepted.
    Label5->hide();
    Command4->hide();
    Command5->hide();
    esito_ = {};

    const bool sinodica = tipo_ == TipoRivoluzione::LunareSinodica;
    const int riga = List1->currentRow() < 0 ? 0 : List1->currentRow();
    double bersaglio = 0;
    if (sinodica)
        bersaglio = AngoloSinodico(Check1Sin->isChecked(), s_.PosNat, SS(Text3Sin->text()));
    else
        bersaglio = GradoRitorno(riga, s_.PosNat, SS(Text1->text()));

    s_.TemaX = PreparaTemaRivoluzione(s_.TemaNat, tipo_, s_.LunaGeo);
    s_.PosX = s_.PosVuoto;
    RichiestaInputDati richiesta(QS(testi_.tagInput));
    richiesta.didascalia = QS(DidascaliaInputRivoluzione(tipo_, riga, bersaglio, s_.LunaGeo,
                                                         Check1Sin->isChecked(), bersaglio));
    richiesta.frame2 = QS(testi_.frame2Input);
    for (const std::string& n : testi_.disabilitatiInput)
        richiesta.disabilitati << QS(n);
    s_.DatiOk = 0;
    EsitoInputDati input;
    if (inputDati_) input = inputDati_(richiesta);
    if (!input.ok || !s_.DatiOk) {
        s_.TemaX = s_.TemaVuoto;
        s_.DatiOk = 0;
        return;
    }

    DatiRivoluzione dati;
    dati.tipo = tipo_;
    dati.bersaglio = bersaglio;
    dati.AnnoRiv = input.AnnoRiv;
    dati.MeseRiv = input.MeseRiv;
    dati.GiornoRiv = input.GiornoRiv;
    if (tipo_ != TipoRivoluzione::Solare) Text2->show();
    auto avanzamento = [this](const char* controllo, double valore) {
        if (QLatin1String(controllo) == QLatin1String("Text2"))
            Text2->setText(QS(TestoNumero(valore)));
    };
    {
        Clessidra clessidra(messaggi_);
        esito_ = CercaRivoluzione(s_, dati, messaggi_, avanzamento);
    }
    if (!esito_.trovato) return;
    Text2->setText(QS(TestoNumero(esito_.jd)));
    Label5->setText(QS(esito_.label5));
    Command4->setText(QS(esito_.command4));
    Label5->show();
    Command4->show();
    if (!esito_.command5.empty()) {
        Command5->setText(QS(esito_.command5));
        Command5->show();
    }
}

void frmCheRivoluzione::Accetta(bool primo) {
    if (!esito_.trovato) return;
    AccettaRivoluzione(s_, esito_, primo);
    accept();
}

void frmCheRivoluzione::Command4_Click() {
    Accetta(true);
}

void frmCheRivoluzione::Command5_Click() {
    Accetta(false);
}

void frmCheRivoluzione::Command3_Click() {
    MostraAiuto(this, QS(testi_.titoloAiuto), QS(testi_.testoAiuto));
}

} // namespace vesmo
