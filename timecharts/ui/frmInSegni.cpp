#include "timecharts/ui/frmInSegni.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "timecharts/Istanti.h"
#include "timecharts/ui/MenuTempo.h"

namespace vesmo {

namespace {

// The boxes of the form are at least 150 pixels wide.
QLineEdit* CasellaLarga(QWidget* g, const char* nome, bool soloLettura) {
    auto* t = Casella(g, nome);
    t->setReadOnly(soloLettura);
    t->setMinimumWidth(150);
    return t;
}

} // namespace

frmInSegni::frmInSegni(Sessione& sessione, Messaggi& messaggi, StatoMenuTempo& stato,
                       QWidget* genitore)
    : QDialog(genitore), s_(sessione), messaggi_(messaggi), stato_(stato) {
    setObjectName("frmInSegni");
    setWindowTitle(QString::fromUtf8(DidascaliaInSegni));

    auto* barra = new QMenuBar(this);
    CreaControlli(barra);
    auto* corpo = new QHBoxLayout;
    corpo->addLayout(Ingressi(), 1);
    corpo->addLayout(Uscite(), 1);
    auto* risultato = new QHBoxLayout;
    risultato->addStretch(1);
    risultato->addWidget(Label12);
    risultato->addWidget(Command4);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(Command3);
    pulsanti->addStretch(1);
    pulsanti->addWidget(Command1);
    pulsanti->addWidget(Command2);
    auto* tutto = new QVBoxLayout(this);
    tutto->setMenuBar(barra);
    tutto->addLayout(corpo, 1);
    tutto->addWidget(Label7);
    tutto->addWidget(Label8);
    tutto->addLayout(risultato);
    tutto->addLayout(pulsanti);

    for (QWidget* w : std::initializer_list<QWidget*>{Text6, Text7, Text8, Label9, Label7, Label8,
                                                      Label12, Command4})
        w->hide();
    Text1->setText(stato_.ultimoBersaglio);
    txtPartenza->setText(stato_.ultimoRisultato);
    Text1->installEventFilter(this);
    txtPartenza->installEventFilter(this);

    Collega();
    resize(720, 460);
}

void frmInSegni::CreaControlli(QMenuBar* barra) {
    mnuGuida = Nome(barra->addAction(QStringLiteral("&Guida")), "mnuGuida");

    List1 = Nome(new QListWidget(this), "List1");
    for (const char* voce : VociPianetiIngresso)
        List1->addItem(QString::fromUtf8(voce));
    Text1 = CasellaLarga(this, "Text1", false);
    Text1->setToolTip(QStringLiteral("Separatore decimale:  virgola"));
    txtPartenza = CasellaLarga(this, "txtPartenza", false);
    txtPartenza->setToolTip(QStringLiteral("separatore decimale:  virgola"));
    cmdTN = Pulsante(this, "cmdTN", "TN");
    cmdT = Pulsante(this, "cmdT", " Transito ");
    cmdR = Pulsante(this, "cmdR", " Rivoluzione ");
    cmdD = Pulsante(this, "cmdD", " Direzione ");
    Command1 = Pulsante(this, "Command1", "&Avvio ricerca");
    Command1->setDefault(true);
    Command2 = Pulsante(this, "Command2", "A&nnulla");
    Command3 = Pulsante(this, "Command3", "&?");
    Command4 = Pulsante(this, "Command4", "&Calcola ");
    Text3 = CasellaLarga(this, "Text3", true);
    Text4 = CasellaLarga(this, "Text4", true);
    Text5 = CasellaLarga(this, "Text5", true);
    Text6 = CasellaLarga(this, "Text6", true);
    Text7 = CasellaLarga(this, "Text7", true);
    Text8 = CasellaLarga(this, "Text8", true);
    Label7 = Etichetta(this, Label7Stazione, "Label7");
    Label8 = Etichetta(this, Label8Stazione, "Label8");
    Label9 = Etichetta(this, "Giul ", "Label9");
    Label10 = Etichetta(this, "Inputs", "Label10");
    Label11 = Etichetta(this, "Outputs", "Label11");
    Label12 = Etichetta(this, Label12Risultato, "Label12");
    QFont grassetto = Label10->font();
    grassetto.setBold(true);
    Label10->setFont(grassetto);
    Label11->setFont(grassetto);
}

QGridLayout* frmInSegni::Ingressi() {
    auto* ingressi = new QGridLayout;
    ingressi->addWidget(Label10, 0, 0, 1, 2);
    ingressi->addWidget(Etichetta(this, "Pianeta", "Label1"), 1, 0, Qt::AlignTop);
    ingressi->addWidget(List1, 1, 1);
    ingressi->addWidget(Etichetta(this, "Grado Bersaglio", "Label2"), 2, 0);
    ingressi->addWidget(Text1, 2, 1);
    ingressi->addWidget(Etichetta(this, "JD Partenza ", "Label3"), 3, 0);
    ingressi->addWidget(txtPartenza, 3, 1);
    auto* slot = new QHBoxLayout;
    for (QPushButton* b : {cmdTN, cmdT, cmdR, cmdD})
        slot->addWidget(b);
    ingressi->addLayout(slot, 4, 0, 1, 2);
    return ingressi;
}

QGridLayout* frmInSegni::Uscite() {
    auto* uscite = new QGridLayout;
    uscite->addWidget(Label11, 0, 0, 1, 2);
    uscite->addWidget(Etichetta(this, "Giul Zero", "Label4"), 1, 0);
    uscite->addWidget(Text3, 1, 1);
    uscite->addWidget(Etichetta(this, "Longitudine Giul Bersaglio", "Label5"), 2, 0);
    uscite->addWidget(Text4, 2, 1);
    uscite->addWidget(Etichetta(this, "Giul Bersaglio", "Label6"), 3, 0);
    uscite->addWidget(Text5, 3, 1);
    uscite->addWidget(Label9, 4, 0);
    auto* dic = new QHBoxLayout;
    dic->addWidget(Text6);
    dic->addWidget(Text7);
    dic->addWidget(Text8);
    Text7->setMinimumWidth(40);
    Text8->setMinimumWidth(40);
    uscite->addLayout(dic, 4, 1);
    uscite->setRowStretch(5, 1);
    return uscite;
}

void frmInSegni::Collega() {
    connect(mnuGuida, &QAction::triggered, this, &frmInSegni::Command3_Click);
    connect(Command1, &QPushButton::clicked, this, &frmInSegni::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(Command3, &QPushButton::clicked, this, &frmInSegni::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &frmInSegni::Command4_Click);
    connect(cmdTN, &QPushButton::clicked, this, [this] { cmdSlot_Click(0); });
    connect(cmdT, &QPushButton::clicked, this, [this] { cmdSlot_Click(1); });
    connect(cmdR, &QPushButton::clicked, this, [this] { cmdSlot_Click(2); });
    connect(cmdD, &QPushButton::clicked, this, [this] { cmdSlot_Click(3); });
}

bool frmInSegni::eventFilter(QObject* oggetto, QEvent* evento) {
    if ((oggetto == Text1 || oggetto == txtPartenza) && evento->type() == QEvent::FocusOut) {
        auto* t = static_cast<QLineEdit*>(oggetto);
        if (t->text().trimmed().isEmpty()) t->setText("0");
    }
    return QDialog::eventFilter(oggetto, evento);
}

void frmInSegni::cmdSlot_Click(int slot) {
    const Tema* t[] = {&s_.TemaNat, &s_.TemaTra, &s_.TemaRiv, &s_.TemaDir};
    txtPartenza->setText(QS(TestoNumero(t[slot]->JD())));
}

void frmInSegni::Avanzamento(const char* controllo, double valore) {
    auto* t = findChild<QLineEdit*>(QString::fromLatin1(controllo));
    if (!t) return;
    t->setText(QS(TestoNumero(valore)));
    if (t == Text6 || t == Text7 || t == Text8) {
        Text6->show();
        Text7->show();
        Text8->show();
        Label9->show();
    }
    t->repaint();
}

void frmInSegni::Command1_Click() {
    // A blank box counts as 0, as it does when the focus leaves it.
    auto numero = [](const QLineEdit* t) {
        QString testo = t->text().trimmed();
        return NumeroConVirgola(SS(testo.isEmpty() ? QStringLiteral("0") : testo));
    };
    auto bersaglio = numero(Text1);
    auto partenza = numero(txtPartenza);
    if (!bersaglio || !partenza) {
        QLineEdit* errata = bersaglio ? txtPartenza : Text1;
        messaggi_.Mostra(DidascaliaInSegni,
                         std::string(bersaglio ? "JD Partenza" : "Grado Bersaglio") +
                             " non valido: \"" + SS(errata->text()) +
                             "\"\r\nScrivere un numero, con la virgola come separatore "
                             "decimale.",
                         Pulsanti::Ok, Icona::Esclamativo);
        errata->setFocus();
        errata->selectAll();
        return;
    }
    for (QWidget* w : std::initializer_list<QWidget*>{Label7, Label8, Label12, Command4})
        w->hide();
    esito_ = {};
    DatiIngresso dati;
    dati.pianeta = PianetaDellaLista(List1->currentRow());
    dati.bersaglio = *bersaglio;
    dati.partenza = *partenza;
    dati.cartella = stato_.cartellaIngressi;
    {
        Clessidra clessidra(messaggi_);
        esito_ = IngressiPinS(s_, dati, messaggi_,
                              [this](const char* c, double v) { Avanzamento(c, v); });
    }
    if (esito_.stazione) {
        Label7->setText(QS(esito_.stazione->label7()));
        Label8->setText(QS(esito_.stazione->label8()));
        Label7->show();
        Label8->show();
    }
    if (!esito_.trovato) return;
    Text5->setText(QS(TestoNumero(esito_.jd)));
    Text4->setText(QS(TestoNumero(esito_.longitudine)));
    stato_.ultimoBersaglio = Text1->text();
    stato_.ultimoRisultato = QS(TestoNumero(esito_.jd));
    Label12->show();
    Command4->show();
}

void frmInSegni::Command3_Click() {
    MostraAiuto(this, QString::fromUtf8(TitoloAiutoInSegni), QS(TestoAiutoInSegni()));
}

void frmInSegni::Command4_Click() {
    if (!esito_.trovato) return;
    s_.DatiOk = -1;
    accept();
}

} // namespace vesmo
