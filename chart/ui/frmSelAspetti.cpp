#include "chart/ui/frmSelAspetti.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <cstdio>

#include "core/NumeroDigitato.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/qt/Schermo.h"
#include "core/ui/Controlli.h"

namespace vesmo {

frmSelAspetti::frmSelAspetti(Sessione& sessione, Messaggi& messaggi, QWidget* genitore)
    : QWidget(genitore), s_(sessione), propri_(messaggi, this), messaggi_(propri_) {
    setObjectName("frmSelAspetti");
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(QStringLiteral("Lyx - Selezione  Aspetti"));
    ChiudiConEsc(this);

    barraMenu = new QMenuBar(this);
    mnuE = Nome(barraMenu->addAction(QStringLiteral("&Esci ")), "mnuE");
    mnuA = Nome(barraMenu->addAction(QStringLiteral("&?")), "mnuA");
    CreaGriglia();
    CreaInterruttori();
    CreaOrbita();
    Disponi();
    Collega();
    Carica();
}

void frmSelAspetti::CreaGriglia() {
    // The grid: two rows a point, the heads dark.
    MSFlexGrid1 = Nome(new QTableWidget(30, 15, this), "MSFlexGrid1");
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->setStyleSheet(
        QStringLiteral("QHeaderView::section { background-color: #505050; color: white; "
                       "padding: 2px; border: 1px solid #303030; }"));
    MSFlexGrid1->horizontalHeader()->setDefaultSectionSize(128);
    MSFlexGrid1->verticalHeader()->setDefaultSectionSize(20);
    MSFlexGrid1->verticalHeader()->setMinimumWidth(80);

    // The legend of the dark heads: the inner chart's points down the side, the outer's across.
    Label2 = Nome(new QLabel(QStringLiteral("Pianeti  INTERNI   sulla COLONNA  scura") +
                                 QString(52, QLatin1Char(' ')) +
                                 QStringLiteral("Pianeti  ESTERNI  sulla  RIGA  scura"),
                             this),
                  "Label2");
    Label2->setTextFormat(Qt::PlainText);
}

void frmSelAspetti::CreaInterruttori() {
    // The switches of the wheels' aspects.
    Frame2 = Riquadro(this, "Frame2", "Asp. sulla Ruota");
    Option1 = Nome(new QRadioButton(QStringLiteral("MAGGIORI"), Frame2), "Option1");
    Option2 = Nome(new QRadioButton(QStringLiteral("TUTTI"), Frame2), "Option2");
    Label3 = Etichetta(Frame2, " Selezione >>>", "Label3");
    auto* lf = new QHBoxLayout(Frame2);
    lf->addWidget(Option1);
    lf->addWidget(Option2);
    lf->addStretch(1);
    lf->addWidget(Label3);
    List1 = Nome(new QListWidget(this), "List1");
    List1->setSelectionMode(QAbstractItemView::MultiSelection);
    for (int k = 0; k < NumeroAspetti; ++k) {
        const auto i = static_cast<std::size_t>(k);
        List1->addItem(
            QS(std::string("  ") + NomiAspetti[i] + TestoNumero(AngoliAspetti[i]) + "°"));
    }
    List1->setFixedHeight(List1->sizeHintForRow(0) * 6 + 2 * List1->frameWidth());
    List1->viewport()->installEventFilter(this);
}

void frmSelAspetti::CreaOrbita() {
    Label1 = Etichetta(this, "Orbita degli Aspetti", "Label1");
    Text1 = Casella(this, "Text1", 80);
    // What is wrong with the orb typed, said quietly while the user is still typing.
    lblOrbita = Etichetta(this, "", "lblOrbita");
    lblOrbita->setTextFormat(Qt::PlainText);
    lblOrbita->setStyleSheet(QStringLiteral("color: #b00000;"));
    Command1 = Pulsante(this, "Command1", "&Esci ");
}

void frmSelAspetti::Disponi() {
    auto* orbita = new QVBoxLayout;
    orbita->addWidget(Label1);
    orbita->addWidget(Text1);
    orbita->addWidget(lblOrbita);
    orbita->addStretch(1);
    auto* lista = new QVBoxLayout;
    lista->addWidget(Frame2);
    lista->addWidget(List1);
    auto* piede = new QHBoxLayout;
    piede->addLayout(lista, 2);
    piede->addSpacing(16);
    piede->addLayout(orbita);
    piede->addStretch(1);
    piede->addWidget(Command1, 0, Qt::AlignBottom);
    auto* tutto = new QVBoxLayout(this);
    tutto->setMenuBar(barraMenu);
    tutto->addWidget(Label2);
    tutto->addWidget(MSFlexGrid1, 1);
    tutto->addLayout(piede);
    resize(1000, 700);
}

void frmSelAspetti::Collega() {
    connect(mnuE, &QAction::triggered, this, &frmSelAspetti::Command1_Click);
    connect(mnuA, &QAction::triggered, this, &frmSelAspetti::mnuA_Click);
    connect(Command1, &QPushButton::clicked, this, &frmSelAspetti::Command1_Click);
    connect(Option1, &QRadioButton::clicked, this, &frmSelAspetti::Option1_Click);
    connect(Option2, &QRadioButton::clicked, this, &frmSelAspetti::Option2_Click);
    connect(Text1, &QLineEdit::textChanged, this, &frmSelAspetti::Text1_Change);
}

void frmSelAspetti::Carica() {
    // The list from the switches, the heads' legend when two charts are compared, and
    // the orb, whose change builds the grid.
    for (int k = 0; k < NumeroAspetti; ++k)
        List1->item(k)->setSelected(s_.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)] != 0);
    Label2->setVisible(s_.Ruote.AspettiComparati != 0);
    Text1->setText(QS(TestoSingolo(s_.Aspetti.Orbita)));
}

void frmSelAspetti::CostruisciGriglia() {
    const GrigliaAspetti g = vesmo::CostruisciGriglia(
        s_.PosX, s_.PosY, s_.Ruote.AspettiComparati != 0, s_.Aspetti.Orbita, s_.Aspetti.ArcoSolare);
    MSFlexGrid1->clear();
    QStringList colonne, righe;
    for (std::size_t j = 1; j < 16; ++j)
        colonne << QS(g.celle[0][j]);
    for (std::size_t i = 1; i < 31; ++i)
        righe << QS(g.celle[i][0]);
    MSFlexGrid1->setHorizontalHeaderLabels(colonne);
    MSFlexGrid1->setVerticalHeaderLabels(righe);
    for (std::size_t i = 1; i < 31; ++i)
        for (std::size_t j = 1; j < 16; ++j)
            if (!g.celle[i][j].empty())
                MSFlexGrid1->setItem(static_cast<int>(i) - 1, static_cast<int>(j) - 1,
                                     new QTableWidgetItem(QS(g.celle[i][j])));
}

void frmSelAspetti::Text1_Change() {
    const QString t = Text1->text();
    if (t.isEmpty()) {
        Text1->setText(QStringLiteral("0")); // the change runs again with "0"
        return;
    }
    if (NumeroIniziato(SS(t.trimmed()))) return; // a sign or a comma alone: still being typed
    const std::optional<double> v = NumeroDigitato(SS(t));
    if (!v) {
        // No box per keystroke: the box reddens, the line below it says why, and the orb and
        // the grid stay as they were until the text is a number again.
        Text1->setStyleSheet(QStringLiteral("background-color: #ffc8c8;"));
        lblOrbita->setText(QStringLiteral("L'Orbita degli Aspetti deve essere un numero: ") + t +
                           QStringLiteral("\nIl separatore decimale è la VIRGOLA."));
        return;
    }
    Text1->setStyleSheet(QString());
    lblOrbita->clear();
    s_.Aspetti.Orbita = static_cast<float>(*v);
    ListaInAspetti();
    CostruisciGriglia();
}

void frmSelAspetti::ListaInAspetti() {
    for (int k = 0; k < NumeroAspetti; ++k)
        s_.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)] =
            List1->item(k)->isSelected() ? std::int16_t{-1} : std::int16_t{0};
}

void frmSelAspetti::SelezionaDa(int ultimo) {
    for (int k = 0; k < NumeroAspetti; ++k) {
        const bool acceso = k <= ultimo;
        List1->item(k)->setSelected(acceso);
        s_.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)] = acceso ? -1 : 0;
    }
    List1->scrollToTop();
}

void frmSelAspetti::Option1_Click() {
    SelezionaDa(4);
}

void frmSelAspetti::Option2_Click() {
    SelezionaDa(NumeroAspetti - 1);
}

void frmSelAspetti::PulisciOpzioni() {
    for (QRadioButton* o : {Option1, Option2}) {
        o->setAutoExclusive(false);
        o->setChecked(false);
        o->setAutoExclusive(true);
    }
}

void frmSelAspetti::List1_MouseUp() {
    ListaInAspetti();
    PulisciOpzioni();
}

bool frmSelAspetti::eventFilter(QObject* o, QEvent* e) {
    if (o == List1->viewport() && e->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton)
        List1_MouseUp();
    return QWidget::eventFilter(o, e);
}

void frmSelAspetti::Command1_Click() {
    ListaInAspetti();
    close();
}

void frmSelAspetti::mnuA_Click() {
    QDialog d(this);
    d.setObjectName("frmHelp");
    d.setWindowTitle(QS(TitoloAiutoAspetti));
    auto* l = new QVBoxLayout(&d);
    auto* testo = new QLabel(QS(TestoAiutoAspetti()).replace(QStringLiteral("\r\n"), "\n"), &d);
    testo->setObjectName("lbHelpFuso");
    testo->setTextFormat(Qt::PlainText);
    l->addWidget(testo);
    auto* ok = new QPushButton(QStringLiteral("&Ok"), &d);
    l->addWidget(ok, 0, Qt::AlignRight);
    connect(ok, &QPushButton::clicked, &d, &QDialog::accept);
    d.exec();
}

void frmSelAspetti::closeEvent(QCloseEvent* e) {
    // The wheel of the form that opened the selection is drawn again with the new switches.
    if (s_.Ruote.SelezioneDaPosizioni && s_.Ruote.DisegnaAspetti) {
        s_.Ruote.SelezioneDaPosizioni = 0;
        if (AggiornaPosizioni) AggiornaPosizioni();
    }
    if (s_.Ruote.SelezioneDaStampe && s_.Ruote.DisegnaAspetti) {
        s_.Ruote.SelezioneDaStampe = 0;
        if (AggiornaStampe) AggiornaStampe();
    }
    s_.Ruote.AspettiComparati = 0;
    Label2->hide();
    e->accept();
}

} // namespace vesmo
