#include "presentation/ui/frmOutDati.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QDate>
#include <QFontMetrics>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QTime>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "chart/ui/frmDomicili.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "core/NumeroDigitato.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/qt/Schermo.h"
#include "core/ui/Controlli.h"
#include "presentation/Ruota.h"
#include "presentation/TabellaPosizioni.h"
#include "presentation/ui/WidgetRuota.h"

namespace vesmo {

namespace {

const char* const RigheNodi[28] = {" NESSUN Nodo Planetario",
                                   " TUTTI  i  Nodi Planetari",
                                   "    TUTTI  i  NodiNord",
                                   "    TUTTI  i  NodiSud",
                                   " Mercurio",
                                   "    Mercurio  NodoNord",
                                   "    Mercurio  NodoSud",
                                   " Venere",
                                   "    Venere  NodoNord",
                                   "    Venere  NodoSud",
                                   " Marte",
                                   "    Marte  NodoNord",
                                   "    Marte  NodoSud",
                                   " Giove",
                                   "    Giove  NodoNord",
                                   "    Giove  NodoSud",
                                   " Saturno",
                                   "    Saturno  NodoNord",
                                   "    Saturno  NodoSud",
                                   " Urano",
                                   "    Urano  NodoNord",
                                   "    Urano  NodoSud",
                                   " Nettuno",
                                   "    Nettuno  NodoNord",
                                   "    Nettuno  NodoSud",
                                   " Plutone",
                                   "    Plutone  NodoNord",
                                   "    Plutone  NodoSud"};

// The transit's time steps on the toolbar.
struct Passo {
    QAction* frmOutDati::*azione;
    const char* chiave;
    const char* faccia;
    const char* suggerimento;
    UnitaTempo unita;
};
const Passo Passi[] = {
    {&frmOutDati::UnSec, "UnSec", "Sec", "Secondi", UnitaTempo::Secondi},
    {&frmOutDati::UnMin, "UnMin", "Min", "Minuti", UnitaTempo::Minuti},
    {&frmOutDati::UnOra, "UnOra", "Ore", "Ore", UnitaTempo::Ore},
    {&frmOutDati::UnDay, "UnDay", "Giorni", "Days", UnitaTempo::Giorni},
    {&frmOutDati::UnMese, "UnMese", "Mesi", "Mesi", UnitaTempo::Mesi},
    {&frmOutDati::UnYear, "UnYear", "Anni", "Years", UnitaTempo::Anni},
};

// The position of a table row: 1..12 the cusps, 13..25 the bodies and both Black Moons.
const Posizione& PosizioneDellaRiga(const Case& c, const Posizioni& p, int riga) {
    if (riga <= 12) return c[riga];
    const Posizione* corpi[13] = {&p.Sole,     &p.Luna,        &p.Mercurio,  &p.Venere,  &p.Marte,
                                  &p.Giove,    &p.Saturno,     &p.Urano,     &p.Nettuno, &p.Plutone,
                                  &p.NodoLuna, &p.LilithMedia, &p.LilithVera};
    return *corpi[riga - 13];
}

} // namespace

QString TestoQuando(const Quando& q) {
    const QLocale it(QLocale::Italian, QLocale::Italy);
    QString formato = it.dateFormat(QLocale::ShortFormat);
    if (!formato.contains(QStringLiteral("yyyy"))) formato.replace(QStringLiteral("yy"), "yyyy");
    return it.toString(QDate(q.anno, q.mese, q.giorno), formato) + QLatin1Char(' ') +
           it.toString(QTime(q.ore, q.minuti, q.secondi), QStringLiteral("HH:mm:ss"));
}

frmOutDati::frmOutDati(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                       QWidget* genitore)
    : QMainWindow(genitore), s_(sessione), fileDB_(fileDB), propri_(messaggi, this),
      messaggi_(propri_), tema_(sessione.TemaX), pos_(sessione.PosX) {
    setObjectName("frmOutDati");
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(QStringLiteral("Lyx - Posizioni, Domicili, Aspetti"));

    CreaMenu();
    CreaBarra();
    CreaTabella();
    CreaRuota();
    Disponi();
    Collega();
    Form_Load();
}

void frmOutDati::CreaMenu() {
    mnFile = Nome(menuBar()->addMenu(QStringLiteral("&File")), "mnFile");
    mnuAsc = Nome(mnFile->addMenu(QStringLiteral("RuotAscensionale")), "mnuAsc");
    mnuAR = Interruttore(Voce(mnuAsc, "mnuAR", "A. Rette ON / OFF "));
    mnuAO = Interruttore(Voce(mnuAsc, "mnuAO", "A. Oblique ON / OFF"));
    mnuAspS = Voce(mnFile, "mnuAspS", "&Selezione  Aspetti e Orbita");
    mnuAspDC = Interruttore(Voce(mnFile, "mnuAspDC", "&Disegna/Cancella  Aspetti"));
    mnuDom = Voce(mnFile, "mnuDom", "D&omiciliazioni");
    mnFilCarica = Nome(mnFile->addMenu(QStringLiteral("Carica Tema da Archivio")), "mnFilCarica");
    mnFilCPrecedente = Voce(mnFilCarica, "mnFilCPrecedente", "Tema Precedente");
    mnFilCSuccessivo = Voce(mnFilCarica, "mnFilCSuccessivo", "Tema Successivo");
    mnuAspE = Voce(mnFile, "mnuAspE", "&Esci  ");
    mnuRot = Nome(menuBar()->addMenu(QStringLiteral("&Rotazioni")), "mnuRot");
    mnuRotAri = Voce(mnuRot, "mnuRotAri", "Arie&te a Sinistra");
    mnuRotAsc = Voce(mnuRot, "mnuRotAsc", "&Ascendente a Sinistra");
    mnuRotQ = Voce(mnuRot, "mnuRotQ", "Angolo &Qualsiasi");
}

void frmOutDati::CreaBarra() {
    // The toolbar of the transit: the step, its spin buttons, six time units and the archive.
    Toolbar1 = Nome(addToolBar(QStringLiteral("Toolbar1")), "Toolbar1");
    Toolbar1->setMovable(false);
    txtTempi = Casella(Toolbar1, "txtTempi", 0, "Selezionare e premere uno dei pulsanti a dx ");
    txtTempi->setText(QStringLiteral("1"));
    txtTempi->setFixedWidth(48);
    txtTempi->setAlignment(Qt::AlignRight);
    UpDown1 = Nome(new QWidget(Toolbar1), "UpDown1");
    UpDown1->setToolTip(QStringLiteral("Selezionare e premere uno dei pulsanti a dx"));
    UpDown1Su = Nome(new QToolButton(UpDown1), "UpDown1Su");
    UpDown1Su->setArrowType(Qt::UpArrow);
    UpDown1Giu = Nome(new QToolButton(UpDown1), "UpDown1Giu");
    UpDown1Giu->setArrowType(Qt::DownArrow);
    for (QToolButton* b : {UpDown1Su, UpDown1Giu}) {
        b->setFixedSize(18, 12);
        b->setAutoRepeat(true);
    }
    auto* lu = new QVBoxLayout(UpDown1);
    lu->setContentsMargins(0, 0, 0, 0);
    lu->setSpacing(0);
    lu->addWidget(UpDown1Su);
    lu->addWidget(UpDown1Giu);
    Toolbar1->addWidget(txtTempi);
    Toolbar1->addWidget(UpDown1);
    Toolbar1->addSeparator();
    for (const Passo& p : Passi)
        this->*p.azione = Tasto(Toolbar1, p.chiave, p.faccia, p.suggerimento);
    Toolbar1->addSeparator();
    DbPvs = Tasto(Toolbar1, "DbPvs", "\u25C0 Tema", "Tema Precedente - Previous");
    DbNext = Tasto(Toolbar1, "DbNext", "Tema \u25B6", "Tema Successivo - Next");
}

void frmOutDati::CreaTabella() {
    // The table and the result of a click in it.
    MSFlexGrid1 = Nome(new QTableWidget(25, 10, this), "MSFlexGrid1");
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->verticalHeader()->setSectionsClickable(true);
    MSFlexGrid1->verticalHeader()->setDefaultSectionSize(20);
    MSFlexGrid1->setStyleSheet(QStringLiteral("QHeaderView::section { padding: 1px 4px; }"));
    // The table asks for the width of all its columns; the wheel takes what is left.
    MSFlexGrid1->horizontalHeader()->setDefaultAlignment(
        Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
    MSFlexGrid1->horizontalHeader()->setTextElideMode(Qt::ElideNone);
    MSFlexGrid1->horizontalHeader()->setFixedHeight(
        MSFlexGrid1->horizontalHeader()->fontMetrics().lineSpacing() * 2 + 8);
    MSFlexGrid1->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    MSFlexGrid1->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    Label2 = Etichetta(this, "archi di longitudine, Diff.Declinazione, Asp.Sferici", "Label2");
    Label1 = Etichetta(this, "", "Label1");
    Label1->setTextFormat(Qt::PlainText);
    Label1->setFrameShape(QFrame::Panel);
    Label1->setFrameShadow(QFrame::Sunken);
    Label1->setMinimumHeight(Label1->fontMetrics().lineSpacing() * 2 + 8);
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void frmOutDati::CreaRuota() {
    // The wheel's place, with its date and time, the node list and the buttons.
    txtQuando = Casella(this, "txtQuando");
    txtQuando->setReadOnly(true);
    QFont serif(QStringLiteral("DejaVu Serif"));
    txtQuando->setFont(serif);
    txtQuando->setFixedWidth(txtQuando->fontMetrics().horizontalAdvance("00/00/0000 00:00:00") +
                             16);
    Ruota = Nome(new WidgetRuota(this), "Ruota");
    Ruota->setFrameShape(QFrame::StyledPanel);
    Ruota->setFrameShadow(QFrame::Sunken);
    Ruota->setMinimumSize(320, 320);
    comboNodi = Lista(this, "comboNodi");
    comboNodi->setToolTip(
        QStringLiteral(" Scegli i Pianeti dei quali visualizzare sulla Ruota i Nodi Nord e Sud "));
    for (const char* r : RigheNodi)
        comboNodi->addItem(QString::fromLatin1(r));
    comboNodi->setMaxVisibleItems(28);
    Command1 = Pulsante(this, "Command1", "\u21BB", "Ruota in senso Orario");
    Command2 = Pulsante(this, "Command2", "\u21BA", "Ruota in senso AntiOrario");
    for (QPushButton* b : {Command1, Command2})
        b->setFixedWidth(36);
    Command4 = Pulsante(this, "Command4", "Aggiorna ", " Aggiorna gli Aspetti della Ruota ");
    Command3 = Pulsante(this, "Command3", "&Esci ");
    Timer1 = Nome(new QTimer(this), "Timer1");
    Timer2 = Nome(new QTimer(this), "Timer2");
    for (QTimer* t : {Timer1, Timer2})
        t->setInterval(500);
}

void frmOutDati::Disponi() {
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(MSFlexGrid1, 1);
    sinistra->addWidget(Label2);
    sinistra->addWidget(Label1);
    auto* sopraRuota = new QHBoxLayout;
    sopraRuota->addStretch(1);
    sopraRuota->addWidget(txtQuando);
    auto* sottoRuota = new QHBoxLayout;
    sottoRuota->addWidget(Command1);
    sottoRuota->addWidget(Command2);
    sottoRuota->addWidget(comboNodi, 1);
    sottoRuota->addWidget(Command4);
    sottoRuota->addWidget(Command3);
    auto* destra = new QVBoxLayout;
    destra->addLayout(sopraRuota);
    destra->addWidget(Ruota, 1);
    destra->addLayout(sottoRuota);
    auto* centro = new QWidget(this);
    auto* tutto = new QHBoxLayout(centro);
    tutto->addLayout(sinistra, 0);
    tutto->addLayout(destra, 1);
    setCentralWidget(centro);
    // The whole table and a large wheel where the screen allows it; on a smaller screen the
    // table scrolls and the wheel keeps its place.
    resize(DimensioneVoluta(this, {1560, 900}));
}

void frmOutDati::Collega() {
    connect(mnuAR, &QAction::triggered, this, &frmOutDati::mnuAR_Click);
    connect(mnuAO, &QAction::triggered, this, &frmOutDati::mnuAO_Click);
    connect(mnuAspS, &QAction::triggered, this, &frmOutDati::mnuAspS_Click);
    connect(mnuAspDC, &QAction::triggered, this, &frmOutDati::mnuAspDC_Click);
    connect(mnuDom, &QAction::triggered, this, &frmOutDati::mnuDom_Click);
    connect(mnFilCPrecedente, &QAction::triggered, this, &frmOutDati::mnFilCPrecedente_Click);
    connect(mnFilCSuccessivo, &QAction::triggered, this, &frmOutDati::mnFilCSuccessivo_Click);
    connect(mnuAspE, &QAction::triggered, this, &QWidget::close);
    connect(mnuRotAri, &QAction::triggered, this, &frmOutDati::mnuRotAri_Click);
    connect(mnuRotAsc, &QAction::triggered, this, &frmOutDati::mnuRotAsc_Click);
    connect(mnuRotQ, &QAction::triggered, this, &frmOutDati::mnuRotQ_Click);
    for (const Passo& p : Passi)
        connect(this->*p.azione, &QAction::triggered, this,
                [this, unita = p.unita] { Toolbar1_ButtonClick(unita); });
    connect(DbPvs, &QAction::triggered, this, &frmOutDati::mnFilCPrecedente_Click);
    connect(DbNext, &QAction::triggered, this, &frmOutDati::mnFilCSuccessivo_Click);
    connect(UpDown1Su, &QToolButton::clicked, this, [this] { UpDown1_Change(1); });
    connect(UpDown1Giu, &QToolButton::clicked, this, [this] { UpDown1_Change(-1); });
    connect(MSFlexGrid1->verticalHeader(), &QHeaderView::sectionClicked, this,
            [this](int sezione) { MostraArchi(sezione + 1); });
    connect(comboNodi, &QComboBox::activated, this, &frmOutDati::comboNodi_Click);
    connect(Command1, &QPushButton::pressed, this, &frmOutDati::Command1_MouseDown);
    connect(Command2, &QPushButton::pressed, this, &frmOutDati::Command2_MouseDown);
    connect(Command1, &QPushButton::released, Timer1, &QTimer::stop);
    connect(Command2, &QPushButton::released, Timer2, &QTimer::stop);
    connect(Timer1, &QTimer::timeout, this, [this] {
        AngoloRuota -= static_cast<float>(50 * TempoTimer.restart() / 1000.0);
        Ridisegna();
    });
    connect(Timer2, &QTimer::timeout, this, [this] {
        AngoloRuota += static_cast<float>(50 * TempoTimer.restart() / 1000.0);
        Ridisegna();
    });
    connect(Command3, &QPushButton::clicked, this, &QWidget::close);
    connect(Command4, &QPushButton::clicked, this, &frmOutDati::Command4_Click);
}

void frmOutDati::Form_Load() {
    transito_ = s_.Ruote.TransitoPosizioni != 0;
    Toolbar1->setVisible(transito_);
    ModoAscens = 0;
    Didascalia();
    mnuAspDC->setChecked(s_.Ruote.DisegnaAspetti != 0);
    comboNodi->setCurrentIndex(s_.Ruote.NodiScelti >= 0 && s_.Ruote.NodiScelti < 25
                                   ? static_cast<int>(s_.Ruote.NodiScelti)
                                   : 0);
    RiempiTabella();
    Ridisegna();
    RigaPrecedente = 13;
    Label1->setText(QStringLiteral(" Fare Click su un Pianeta o su una Casa\n della Tabella"));
    MostraQuando();
}

void frmOutDati::Didascalia() {
    setWindowTitle(QStringLiteral("Lyx - Posizioni di ") + QS(tema_.Nome.str()));
}

void frmOutDati::RiempiTabella() {
    cuspidi_ = CaseDellaRuota(tema_, pos_);
    const TabellaPosizioni t = vesmo::RiempiTabella(cuspidi_, pos_);
    QStringList colonne, righe;
    for (std::size_t j = 1; j < 11; ++j) {
        QString testa = QS(t.celle[0][j]);
        // A head may begin with its column's alignment: "<" left, "^" centre, ">" right.
        if (testa.startsWith('<') || testa.startsWith('^') || testa.startsWith('>'))
            testa.remove(0, 1);
        colonne << testa;
    }
    for (std::size_t i = 1; i < 26; ++i)
        righe << QS(t.celle[i][0]);
    MSFlexGrid1->setHorizontalHeaderLabels(colonne);
    MSFlexGrid1->setVerticalHeaderLabels(righe);
    for (std::size_t i = 1; i < 26; ++i) {
        for (std::size_t j = 1; j < 11; ++j) {
            auto* v = new QTableWidgetItem(QS(t.celle[i][j]));
            v->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
            MSFlexGrid1->setItem(static_cast<int>(i) - 1, static_cast<int>(j) - 1, v);
        }
    }
    // Each column as wide as its cells and the longest word of its head: a head of several
    // words goes on two lines, so that the whole table leaves room for the wheel.
    const QFontMetrics testa(MSFlexGrid1->horizontalHeader()->font());
    const QFontMetrics cella(MSFlexGrid1->font());
    for (int j = 0; j < MSFlexGrid1->columnCount(); ++j) {
        // The narrowest cut of the head into two lines at a blank.
        const QString t = colonne[j].trimmed();
        int larga = testa.horizontalAdvance(t);
        for (int k = t.indexOf(' '); k >= 0; k = t.indexOf(' ', k + 1))
            larga = std::min(larga, std::max(testa.horizontalAdvance(t.left(k).trimmed()),
                                             testa.horizontalAdvance(t.mid(k + 1).trimmed())));
        larga += 12;
        for (int i = 0; i < MSFlexGrid1->rowCount(); ++i)
            larga = std::max(larga, cella.horizontalAdvance(MSFlexGrid1->item(i, j)->text()) + 12);
        MSFlexGrid1->setColumnWidth(j, larga);
    }
    MSFlexGrid1->setCurrentCell(0, 0);
}

void frmOutDati::MostraQuando() {
    if (std::optional<Quando> q = QuandoDelTema(tema_)) txtQuando->setText(TestoQuando(*q));
}

void frmOutDati::Ridisegna() {
    // The wheel takes the rotation, the nodes and the aspect switch as they stand; its place
    // paints it again at its own size. A checked ascensional entry draws the ascensional wheel.
    if (mnuAR->isChecked() || mnuAO->isChecked()) {
        DisegnaRuotaAscensionale();
        return;
    }
    OpzioniRuota o;
    o.AngoloRuota = AngoloRuota;
    o.NodiScelti = static_cast<int>(s_.Ruote.NodiScelti);
    o.DisegnaAspetti = s_.Ruote.DisegnaAspetti != 0;
    o.ColoriRidotti = s_.Ruote.ColoriRidotti != 0;
    o.Aspetti = s_.Aspetti;
    o.LunaNeraVera = s_.LunaNeraVera;
    Ruota->MostraRuota(tema_, pos_, o);
}

void frmOutDati::DisegnaRuotaAscensionale() {
    OpzioniAscensionale o;
    o.ModoAscens = ModoAscens;
    o.AngoloRuota = AngoloRuota;
    o.AngoloAscens = AngoloAscens;
    o.DisegnaAspetti = s_.Ruote.DisegnaAspetti != 0;
    o.Aspetti = s_.Aspetti;
    o.LunaNeraVera = s_.LunaNeraVera;
    Ruota->MostraAscensionale(tema_, pos_, o);
}

void frmOutDati::MostraArchi(int riga) {
    if (riga < 1 || riga > 25) return;
    const Posizione& a = PosizioneDellaRiga(cuspidi_, pos_, RigaPrecedente);
    const Posizione& b = PosizioneDellaRiga(cuspidi_, pos_, riga);
    const QString da = MSFlexGrid1->verticalHeaderItem(RigaPrecedente - 1)->text();
    const QString a_ = MSFlexGrid1->verticalHeaderItem(riga - 1)->text();
    const double declinazioni = std::fabs(std::fabs(Gradi(b.De)) - std::fabs(Gradi(a.De)));
    const double sfera =
        Gradi(DistanzaAngolare(Radianti(a.Lo), Radianti(a.LaEc), Radianti(b.Lo), Radianti(b.LaEc)));
    const QString testo = " " + da + " --> " + a_ + "   " +
                          QS(FormatoNumero(Norma360(b.Lo - a.Lo, 1), "##0.0##°")) + "     " +
                          QS(FormatoNumero(declinazioni, "#0.0#°")) + "     " +
                          QS(FormatoNumero(sfera, "##0.0#°")) + "\n  " + a_ + " --> " + da + "   " +
                          QS(FormatoNumero(Norma360(a.Lo - b.Lo, 1), "##0.0##°"));
    Label1->setText(testo);
    RigaPrecedente = riga;
}

void frmOutDati::Toolbar1_ButtonClick(UnitaTempo unita) {
    if (!transito_) return;
    const std::optional<double> quanti = PassoDigitato(SS(txtTempi->text()), messaggi_);
    if (!quanti) return;
    s_.TemaX = tema_;
    PassoTempo(s_.TemaX, unita, *quanti);
    s_.PosX = RifaiTransito(s_, s_.TemaX, messaggi_);
    tema_ = s_.TemaX;
    pos_ = s_.PosX;
    RiempiTabella();
    Ridisegna();
    RigaPrecedente = 13;
    MostraQuando();
    if (AggiornaTransito) AggiornaTransito();
}

void frmOutDati::UpDown1_Change(int passo) {
    txtTempi->setText(QString::number(PassoConFrecce(SS(txtTempi->text()), passo)));
}

void frmOutDati::Scorri(bool avanti) {
    s_.TemaX = tema_;
    s_.PosX = pos_;
    if (!ScorriArchivioCorrente ||
        !ScorriArchivioCorrente(s_, fileDB_, SegnaRecord, avanti, messaggi_))
        return;
    tema_ = s_.TemaX;
    pos_ = s_.PosX;
    Didascalia();
    RiempiTabella();
    // A chart from the archive shows with its Ascendant on the left.
    AngoloRuota = static_cast<float>(360 - pos_.Asce.Lo);
    AngoloAscens = static_cast<float>(360 - 15 * pos_.Asce.AR.Numero());
    Ridisegna();
    RigaPrecedente = 13;
    MostraQuando();
}

void frmOutDati::mnFilCPrecedente_Click() {
    Scorri(false);
}

void frmOutDati::mnFilCSuccessivo_Click() {
    Scorri(true);
}

void frmOutDati::mnuRotAri_Click() {
    AngoloRuota = 0;
    AngoloAscens = 0;
    Ridisegna();
}

void frmOutDati::mnuRotAsc_Click() {
    AngoloRuota = static_cast<float>(360 - pos_.Asce.Lo);
    AngoloAscens = static_cast<float>(360 - 15 * pos_.Asce.AR.Numero());
    Ridisegna();
}

void frmOutDati::mnuRotQ_Click() {
    const std::optional<double> angolo =
        ChiediAngolo(messaggi_, "Lyx - Angolo di rotazione della Ruota",
                     "Inserire l'angolo di rotazione voluto.\n\n"
                     "angoli  Negativi  ==> verso di rotazione  ORARIO\n"
                     "angoli   Positivi   ==> verso di rotazione  ANTIORARIO. \n\n"
                     "Il TextBox NON accetta espressioni.\n"
                     "Il separatore decimale é la VIRGOLA ",
                     AngoloRuota);
    if (!angolo) return;
    AngoloRuota = static_cast<float>(*angolo);
    AngoloAscens = AngoloRuota;
    Ridisegna();
}

void frmOutDati::mnuAR_Click(bool acceso) {
    ModoAscens = acceso ? 1 : 0;
    if (acceso) mnuAO->setChecked(false);
    Command1->setVisible(!acceso);
    Command2->setVisible(!acceso);
    Ridisegna();
}

void frmOutDati::mnuAO_Click(bool acceso) {
    ModoAscens = acceso ? 2 : 0;
    if (acceso) mnuAR->setChecked(false);
    Command1->setVisible(!acceso);
    Command2->setVisible(!acceso);
    Ridisegna();
}

void frmOutDati::mnuAspDC_Click(bool acceso) {
    s_.Ruote.DisegnaAspetti = acceso ? -1 : 0;
    Ridisegna();
}

void frmOutDati::Command4_Click() {
    if (s_.Ruote.DisegnaAspetti) Ridisegna();
}

void frmOutDati::AggiornAspetti() {
    Command4_Click();
}

void frmOutDati::mnuAspS_Click() {
    s_.TemaX = tema_;
    s_.PosX = pos_;
    s_.TemaY = tema_;
    s_.PosY = pos_;
    if (Selezione) {
        Selezione->close();
        Selezione->deleteLater();
    }
    QWidget* genitore = parentWidget() ? parentWidget() : this;
    Selezione = new frmSelAspetti(s_, messaggi_, genitore);
    QPointer<frmOutDati> io(this);
    Selezione->AggiornaPosizioni = [io] {
        if (io) io->AggiornAspetti();
    };
    if (RegistraSecondaria) RegistraSecondaria(Selezione);
    Selezione->show();
    s_.Ruote.SelezioneDaPosizioni = -1;
}

void frmOutDati::mnuDom_Click() {
    s_.PosDomi = pos_;
    if (Domicili) {
        Domicili->close();
        Domicili->deleteLater();
    }
    QWidget* genitore = parentWidget() ? parentWidget() : this;
    Domicili = new frmDomicili(s_, messaggi_, genitore);
    Domicili->setWindowTitle(Domicili->windowTitle() + QS(tema_.Nome.str()));
    if (RegistraSecondaria) RegistraSecondaria(Domicili);
    Domicili->show();
}

void frmOutDati::comboNodi_Click(int indice) {
    if (indice >= 25) {
        messaggi_.Mostra("Lyx - Info Nodi", "Calcolo dei Nodi di Plutone inattivo", Pulsanti::Ok,
                         Icona::Informazione);
        comboNodi->setCurrentIndex(static_cast<int>(s_.Ruote.NodiScelti));
        return;
    }
    s_.Ruote.NodiScelti = indice;
    Ridisegna();
}

void frmOutDati::Gira(QTimer* timer, float verso) {
    AngoloRuota += verso;
    Ridisegna();
    TempoTimer.start();
    timer->start();
}

void frmOutDati::Command1_MouseDown() {
    Gira(Timer1, -1);
}

void frmOutDati::Command2_MouseDown() {
    Gira(Timer2, 1);
}

void frmOutDati::closeEvent(QCloseEvent* e) {
    Timer1->stop();
    Timer2->stop();
    if (transito_) s_.Ruote.TransitoPosizioni = 0;
    e->accept();
}

} // namespace vesmo
