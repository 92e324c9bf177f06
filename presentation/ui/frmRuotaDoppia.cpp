#include "presentation/ui/frmRuotaDoppia.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <optional>

#include "chart/ui/frmSelAspetti.h"
#include "core/NumeroDigitato.h"
#include "core/ui/Controlli.h"
#include "presentation/ui/WidgetMappa.h"
#include "presentation/ui/frmOutDati.h"

namespace vesmo {

namespace {

const char* const TitoloOrbita = "Lyx - Orbita Aspetti";
const char* const NessunTipo = "Bisogna impostare  1  tipo di Aspetti tra quelli possibili ";
const char* const TroppiTipi = "Impostare NON PIU' di  1  tipo di Aspetti tra quelli possibili ";

bool Acceso(std::int16_t flag) {
    return flag != 0;
}

void Inverti(std::int16_t& flag) {
    flag = flag ? 0 : -1;
}

QListWidget* ListaComparati(const char* nome, QWidget* genitore) {
    auto* l = new QListWidget(genitore);
    l->setObjectName(nome);
    l->setSelectionMode(QAbstractItemView::MultiSelection);
    for (const char* riga : RigheComparati)
        l->addItem(QString::fromUtf8(riga));
    l->item(0)->setSelected(true);
    return l;
}

// The entries of the double zodiac, by house 1 to 12.
const std::array<std::pair<const char*, const char*>, 12> Zodiacali{{
    {"MnuRCoinAsc", "A&scendenti"},
    {"mnFilZCasaII", "Casa II"},
    {"mnFilZCasaIII", "Casa III"},
    {"mnFilZCasaIV", "Casa IV"},
    {"mnFilZCasaV", "Casa V"},
    {"mnFilZCasaVI", "Casa VI"},
    {"mnFilZCasaVII", "Casa VII"},
    {"mnFilZCasaVIII", "CasaVIII"},
    {"mnFilZCasaIX", "Casa IX"},
    {"mnFilZMC", "MC"},
    {"mnFilZCasaXI", "Casa XI"},
    {"mnFilZCasaXII", "Casa XII"},
}};

// The transit's time steps on the toolbar.
struct Passo {
    QAction* frmRuotaDoppia::*azione;
    const char* chiave;
    const char* faccia;
    const char* suggerimento;
    UnitaTempo unita;
};
const Passo PassiTransito[] = {
    {&frmRuotaDoppia::UnSec, "UnSec", "Sec", " Secondi ", UnitaTempo::Secondi},
    {&frmRuotaDoppia::UnMin, "UnMin", "Min", " Minuti ", UnitaTempo::Minuti},
    {&frmRuotaDoppia::UnOra, "UnOra", "Ore", " Ore ", UnitaTempo::Ore},
    {&frmRuotaDoppia::UnDay, "UnDay", "Gg", " Days ", UnitaTempo::Giorni},
    {&frmRuotaDoppia::UnMese, "UnMese", "Mesi", " Mesi ", UnitaTempo::Mesi},
    {&frmRuotaDoppia::UnYear, "UnYear", "Anni", " Years ", UnitaTempo::Anni},
};

SelezioneComparati LeggiLista(const QListWidget* l) {
    SelezioneComparati sel{};
    for (int i = 0; i < l->count() && i < static_cast<int>(sel.size()); ++i)
        sel[static_cast<std::size_t>(i)] = l->item(i)->isSelected();
    return sel;
}

} // namespace

QString DidascaliaDoppia(Esterno esterno) {
    switch (esterno) {
    case Esterno::Transito:
        return QStringLiteral(": Interno [Tema Natale],  Esterno [Transito]");
    case Esterno::Rivoluzione:
        return QStringLiteral(": Interno [Tema Natale],  Esterno [Rivoluzione]");
    case Esterno::Direzione:
        return QStringLiteral(": Interno [Tema Natale],  Esterno [Direzione]");
    case Esterno::Natale:
        break;
    }
    return {};
}

frmRuotaDoppia::frmRuotaDoppia(Sessione& sessione, Messaggi& messaggi, Esterno esterno,
                               QWidget* genitore)
    : QMainWindow(genitore), s_(sessione), propri_(messaggi, this), messaggi_(propri_),
      esterno_(esterno) {
    setObjectName("frmRuotaDoppia");
    setWindowTitle(QStringLiteral("Lyx - Ruota Doppia") + DidascaliaDoppia(esterno));
    CaseEsterne = esterno != Esterno::Transito;

    CreaMenu();
    CreaBarra();
    CreaCentro();
    Collega();

    Interruttori();
    MostraQuando();
    resize(1000, 720);
    Ridisegna();
}

void frmRuotaDoppia::CreaMenu() {
    mnuAsp = Nome(menuBar()->addMenu(QStringLiteral("&File")), "mnuAsp");
    mnuRasc = Sottomenu(mnuAsp, "mnuRasc", "RuotAscensionale");
    mnuRascAR = Interruttore(Voce(mnuRasc, "mnuRascAR", "A. Rette  ON / OFF"));
    mnuRascAO = Interruttore(Voce(mnuRasc, "mnuRascAO", "A. Oblique  ON / OFF"));
    mnuAspSelezione = Voce(mnuAsp, "mnuAspSelezione", "&Selezione  Aspetti e Orbita");
    mnuAspDisegna = Sottomenu(mnuAsp, "mnuAspDisegna", "&Disegna / Cancella aspetti");
    mnuAspDisegnaInt = Interruttore(Voce(mnuAspDisegna, "mnuAspDisegnaInt", "&Interni"));
    mnuAspDisegnaEst = Interruttore(Voce(mnuAspDisegna, "mnuAspDisegnaEst", "&Esterni"));
    mnuAspDisegnaCmp = Interruttore(Voce(mnuAspDisegna, "mnuAspDisegnaCmp", "&Comparati"));
    mnuAspMirate = Voce(mnuAsp, "mnuAspMirate", "Rivoluzioni &Rilocate On / Off");
    mnuAsp->addSeparator();
    mnuAspEsci = Voce(mnuAsp, "mnuAspEsci", "&Esci");

    mnuRot = Nome(menuBar()->addMenu(QStringLiteral("&Rotazioni")), "mnuRot");
    mnuRotArieteSx = Voce(mnuRot, "mnuRotArieteSx", "Arie&te  a sinistra");
    mnuRotAscSx = Sottomenu(mnuRot, "mnuRotAscSx", "&Ascendente a sinistra");
    mnuRotAscSxINT = Voce(mnuRotAscSx, "mnuRotAscSxINT", "tema  &Interno");
    mnuRotAscSxEST = Interruttore(Voce(mnuRotAscSx, "mnuRotAscSxEST", "tema  &Esterno"));
    mnuRotQualsiasi = Voce(mnuRot, "mnuRotQualsiasi", "Angolo  &Qualsiasi  (tema interno)");
    mnuArco = Voce(mnuRot, "mnuArco", "Arco &Solare");
    mnFilZodiacali = Sottomenu(mnuRot, "mnFilZodiacali", "Zodiacali");
    for (std::size_t casa = 1; casa <= 12; ++casa) {
        const auto& [nome, testo] = Zodiacali[casa - 1];
        mnFilZ[casa] = Voce(mnFilZodiacali, nome, testo);
    }
}

void frmRuotaDoppia::CreaBarra() {
    Toolbar1 = Nome(addToolBar(QStringLiteral("Toolbar1")), "Toolbar1");
    Toolbar1->setMovable(false);
    Ripristina = Tasto(Toolbar1, "Ripristina", "\u2692", " Aggiorna e Ripristina ");
    Ripristina->setStatusTip(QStringLiteral("Ripristina i Temi scelti"));
    Toolbar1->addSeparator();
    Interni = Interruttore(Tasto(Toolbar1, "Interni", "\u25cf", " Aspetti Interni "));
    Esterni = Interruttore(Tasto(Toolbar1, "Esterni", "\u25cb", " Aspetti Esterni "));
    Comparati = Interruttore(Tasto(Toolbar1, "Comparati", "\u263d", " Aspetti Comparati "));
    CaseTra = UnSec = UnMin = UnOra = UnDay = UnMese = UnYear = nullptr;
    txtTempi = nullptr;
    UpDown1 = nullptr;
    UpDown1Su = UpDown1Giu = nullptr;
    lbQuando = Etichetta(Toolbar1, "", "lbQuando");
    if (esterno_ == Esterno::Transito || esterno_ == Esterno::Rivoluzione) CreaPassi();

    // The date and time of the outer chart closes the toolbar; on a revolution wheel the
    // coordinates of the outer chart follow.
    Toolbar1->addSeparator();
    Toolbar1->addWidget(lbQuando);
    lbCoord = Etichetta(this, "", "lbCoord");
    if (esterno_ == Esterno::Rivoluzione) {
        Toolbar1->addSeparator();
        Toolbar1->addWidget(lbCoord);
    } else {
        lbCoord->hide();
    }
    lbNeoIndici = Etichetta(this, "Costruzione Nuovi Indici. Attendere...", "lbNeoIndici");
    lbNeoIndici->hide();
    statusBar()->addWidget(lbNeoIndici);
}

void frmRuotaDoppia::CreaPassi() {
    const bool transito = esterno_ == Esterno::Transito;
    Toolbar1->addSeparator();
    if (transito) {
        CaseTra = Tasto(Toolbar1, "CaseTra", "Cancella / Disegna  Case Transito",
                        "Disegna o Cancella le Case del Transito!");
    } else {
        // On a revolution wheel the button chooses the unit of the step.
        CaseTra =
            Tasto(Toolbar1, "CaseTra", "Gradi", "Gradi o Primi. Variazione Coordinate Geografiche");
        CaseTra->setProperty("Tag", QStringLiteral("UnG"));
    }
    Toolbar1->addSeparator();
    txtTempi = Casella(Toolbar1, "txtTempi", 0, "Selezionare e premere uno dei pulsanti a dx ");
    txtTempi->setText(QStringLiteral("1"));
    txtTempi->setFixedWidth(48);
    txtTempi->setAlignment(Qt::AlignRight);
    UpDown1 = Nome(new QWidget(Toolbar1), "UpDown1");
    UpDown1Su = Nome(new QToolButton(UpDown1), "UpDown1Su");
    UpDown1Su->setArrowType(Qt::UpArrow);
    UpDown1Giu = Nome(new QToolButton(UpDown1), "UpDown1Giu");
    UpDown1Giu->setArrowType(Qt::DownArrow);
    auto* lu = new QVBoxLayout(UpDown1);
    lu->setContentsMargins(0, 0, 0, 0);
    lu->setSpacing(0);
    for (QToolButton* b : {UpDown1Su, UpDown1Giu}) {
        b->setFixedSize(18, 11);
        lu->addWidget(b);
    }
    Toolbar1->addWidget(txtTempi);
    Toolbar1->addWidget(UpDown1);
    if (transito) {
        for (const Passo& p : PassiTransito)
            this->*p.azione = Tasto(Toolbar1, p.chiave, p.faccia, p.suggerimento);
    } else {
        UnSec = Tasto(Toolbar1, "UnSec", "Est/Ovest", "Positivi: Ovest     Negativi: Est");
        UnMin = Tasto(Toolbar1, "UnMin", "Nord/Sud", "Positivi: Nord     Negativi: Sud");
    }
}

void frmRuotaDoppia::CreaCentro() {
    // The wheel, and the filters of the lines between the charts at its right.
    auto* centro = new QWidget(this);
    auto* h = new QHBoxLayout(centro);
    h->setContentsMargins(0, 0, 3, 0);
    // The map of the time zones and the nearest towns, beside the wheel while relocating.
    auto* colonnaMappa = new QVBoxLayout;
    picFusi = Nome(new WidgetMappa(centro), "picFusi");
    cmdMirateOFF = Pulsante(centro, "cmdMirateOFF", "Rilocate OFF");
    lstCityVicine = Nome(new QListWidget(centro), "lstCityVicine");
    lstCityVicine->setFixedWidth(LarghezzaMappaPixel);
    colonnaMappa->addWidget(picFusi);
    colonnaMappa->addWidget(cmdMirateOFF, 0, Qt::AlignLeft);
    colonnaMappa->addWidget(lstCityVicine, 1);
    h->addLayout(colonnaMappa);
    MostraMappa(false);
    Ruota = Nome(new WidgetRuota(centro), "Ruota");
    h->addWidget(Ruota, 1);
    Frame1 = Riquadro(centro, "Frame1", " Comparati ");
    auto* v = new QVBoxLayout(Frame1);
    Label1 = Etichetta(Frame1, "Pianeti Interni", "Label1");
    List1 = ListaComparati("List1", Frame1);
    Label2 = Etichetta(Frame1, "Pianeti Esterni", "Label2");
    List2 = ListaComparati("List2", Frame1);
    List2->setProperty("Tag", QString::number(static_cast<int>(esterno_)));
    for (QListWidget* l : {List1, List2}) {
        l->setFixedWidth(110);
        l->viewport()->installEventFilter(this);
    }
    v->addWidget(Label1);
    v->addWidget(List1, 1);
    v->addWidget(Label2);
    v->addWidget(List2, 1);
    h->addWidget(Frame1, 0, Qt::AlignTop);
    setCentralWidget(centro);
}

void frmRuotaDoppia::Collega() {
    for (std::size_t casa = 1; casa <= 12; ++casa)
        connect(mnFilZ[casa], &QAction::triggered, this,
                [this, casa] { DisegnaDoppioZodiaco(static_cast<int>(casa)); });
    if (esterno_ == Esterno::Transito) {
        for (const Passo& p : PassiTransito)
            connect(this->*p.azione, &QAction::triggered, this,
                    [this, unita = p.unita] { Toolbar1_ButtonClick(unita); });
    } else if (esterno_ == Esterno::Rivoluzione) {
        connect(UnSec, &QAction::triggered, this,
                [this] { Rilocazione(AsseRilocazione::EstOvest); });
        connect(UnMin, &QAction::triggered, this,
                [this] { Rilocazione(AsseRilocazione::NordSud); });
    }
    if (CaseTra) {
        connect(CaseTra, &QAction::triggered, this, &frmRuotaDoppia::CaseTra_Click);
        connect(UpDown1Su, &QToolButton::clicked, this, [this] { UpDown1_Change(1); });
        connect(UpDown1Giu, &QToolButton::clicked, this, [this] { UpDown1_Change(-1); });
    }
    connect(mnuAspSelezione, &QAction::triggered, this, &frmRuotaDoppia::mnuAspSelezione_Click);
    connect(mnuAspDisegnaInt, &QAction::triggered, this, &frmRuotaDoppia::mnuAspDisegnaInt_Click);
    connect(mnuAspDisegnaEst, &QAction::triggered, this, &frmRuotaDoppia::mnuAspDisegnaEst_Click);
    connect(mnuAspDisegnaCmp, &QAction::triggered, this, &frmRuotaDoppia::mnuAspDisegnaCmp_Click);
    connect(Interni, &QAction::triggered, this, &frmRuotaDoppia::mnuAspDisegnaInt_Click);
    connect(Esterni, &QAction::triggered, this, &frmRuotaDoppia::mnuAspDisegnaEst_Click);
    connect(Comparati, &QAction::triggered, this, &frmRuotaDoppia::mnuAspDisegnaCmp_Click);
    connect(mnuAspEsci, &QAction::triggered, this, &QWidget::close);
    connect(mnuRotArieteSx, &QAction::triggered, this, &frmRuotaDoppia::mnuRotArieteSx_Click);
    connect(mnuRotAscSxINT, &QAction::triggered, this, &frmRuotaDoppia::mnuRotAscSxINT_Click);
    connect(mnuRotAscSxEST, &QAction::triggered, this, &frmRuotaDoppia::mnuRotAscSxEST_Click);
    connect(mnuRotQualsiasi, &QAction::triggered, this, &frmRuotaDoppia::mnuRotQualsiasi_Click);
    connect(Ripristina, &QAction::triggered, this, &frmRuotaDoppia::Ripristina_Click);
    connect(mnuRascAR, &QAction::triggered, this, &frmRuotaDoppia::mnuRascAR_Click);
    connect(mnuRascAO, &QAction::triggered, this, &frmRuotaDoppia::mnuRascAO_Click);
    connect(mnuArco, &QAction::triggered, this, &frmRuotaDoppia::mnuArco_Click);
    connect(mnuAspMirate, &QAction::triggered, this, &frmRuotaDoppia::mnuAspMirate_Click);
    connect(cmdMirateOFF, &QPushButton::clicked, this, &frmRuotaDoppia::cmdMirateOFF_Click);
}

SelezioneComparati frmRuotaDoppia::Selezione1() const {
    return LeggiLista(List1);
}

SelezioneComparati frmRuotaDoppia::Selezione2() const {
    return LeggiLista(List2);
}

void frmRuotaDoppia::Interruttori() {
    const bool in = Acceso(s_.Ruote.DisegnaAspetti), est = Acceso(s_.Ruote.DisegnaAspettiEst),
               cmp = Acceso(s_.Ruote.DisegnaAspettiCmp);
    mnuAspDisegnaInt->setChecked(in);
    mnuAspDisegnaEst->setChecked(est);
    mnuAspDisegnaCmp->setChecked(cmp);
    Interni->setChecked(in);
    Esterni->setChecked(est);
    Comparati->setChecked(cmp);
    Frame1->setVisible(cmp);
}

OpzioniDoppia frmRuotaDoppia::Opzioni() const {
    OpzioniDoppia o;
    o.AngoloRuota = AngoloRuota;
    o.CaseEsterne = CaseEsterne;
    o.Transito = esterno_ == Esterno::Transito;
    o.DisegnaAspetti = Acceso(s_.Ruote.DisegnaAspetti);
    o.DisegnaAspettiEst = Acceso(s_.Ruote.DisegnaAspettiEst);
    o.DisegnaAspettiCmp = Acceso(s_.Ruote.DisegnaAspettiCmp);
    o.Aspetti = s_.Aspetti;
    o.LunaNeraVera = s_.LunaNeraVera;
    o.List1 = Selezione1();
    o.List2 = Selezione2();
    o.MappaVisibile = MappaVisibile();
    return o;
}

void frmRuotaDoppia::Ridisegna() {
    if (!CasaCoincidente) {
        if (mnuRascAR->isChecked() || mnuRascAO->isChecked())
            DisegnaDoppiaAscensionale();
        else
            DisegnaDoppia();
        return;
    }
    // The double zodiac has no room for the map.
    MostraMappa(false);
    Ruota->MostraDoppia(s_.TemaX, s_.PosX, s_.TemaZ, s_.PosZ, Opzioni(), CasaCoincidente);
    AngoloRuota = static_cast<float>(Ruota->UltimaDoppia().AngoloRuota);
    AngoloEsterno = static_cast<float>(Ruota->UltimaDoppia().AngoloEsterno);
}

void frmRuotaDoppia::DisegnaDoppia() {
    // The smaller geometry while the map stands beside the wheel.
    Ruota->MostraDoppia(s_.TemaX, s_.PosX, s_.TemaZ, s_.PosZ, Opzioni(), 0);
}

void frmRuotaDoppia::DisegnaDoppiaAscensionale() {
    OpzioniAscensionale o;
    o.ModoAscens = ModoAscens;
    o.AngoloRuota = AngoloRuota;
    o.AngoloAscens = AngoloAscens;
    o.DisegnaAspetti = Acceso(s_.Ruote.DisegnaAspetti);
    o.Aspetti = s_.Aspetti;
    o.LunaNeraVera = s_.LunaNeraVera;
    Ruota->MostraDoppiaAscensionale(s_.TemaX, s_.PosX, s_.TemaZ, s_.PosZ, o);
}

bool frmRuotaDoppia::MappaVisibile() const {
    return picFusi->isVisibleTo(this);
}

void frmRuotaDoppia::MostraMappa(bool visibile) {
    if (visibile && !picFusi->HaImmagine()) picFusi->CaricaImmagine(FileMappaAccanto(FileDB));
    picFusi->setVisible(visibile);
    cmdMirateOFF->setVisible(visibile);
    lstCityVicine->setVisible(visibile);
}

// The switches draw their wheel at once, even over a double zodiac.
void frmRuotaDoppia::mnuRascAR_Click(bool acceso) {
    ModoAscens = acceso ? 1 : 0;
    if (acceso) mnuRascAO->setChecked(false);
    if (acceso)
        DisegnaDoppiaAscensionale();
    else
        DisegnaDoppia();
}

void frmRuotaDoppia::mnuRascAO_Click(bool acceso) {
    ModoAscens = acceso ? 2 : 0;
    if (acceso) mnuRascAR->setChecked(false);
    if (acceso)
        DisegnaDoppiaAscensionale();
    else
        DisegnaDoppia();
}

void frmRuotaDoppia::mnuArco_Click() {
    const std::string titolo = "Lyx - Arco Solare";
    std::string predefinito = TestoSingolo(s_.Aspetti.ArcoSolare);
    if (predefinito.empty()) predefinito = "0";
    std::string testo =
        messaggi_
            .Chiedi(titolo,
                    "La progressione Arco Solare considera \n"
                    "1 grado = 1 anno.\n\n"
                    "Quindi ruota il Tema Esterno, rispetto a quello Interno, di tanti gradi "
                    "quanti sono gli anni di input utente.\n"
                    "Rotazione nel verso AntiOrario.\n\n"
                    "E' preferibile usare questa funzione dopo aver caricato 2 temi eguali, uno "
                    "come Tema Natale ed un altro come Rivoluzione.\n\n"
                    "Non inserire espressioni.\n"
                    "Il separatore decimale è la  Virgola.\n\n"
                    "Input  ANNI.",
                    predefinito)
            .value_or("");
    if (testo.empty()) testo = "0";
    const std::optional<double> anni = NumeroDigitato(testo);
    if (!anni) {
        messaggi_.Mostra(titolo,
                         "Gli anni devono essere un numero: " + testo +
                             "\nIl separatore decimale è la VIRGOLA.\n" + std::string(30, '-') +
                             "\nThe years must be a number.\n",
                         Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    // Years are degrees: the whole outer chart turns, nothing is cast again.
    s_.Aspetti.ArcoSolare = static_cast<float>(*anni);
    Ridisegna();
}

void frmRuotaDoppia::mnuAspMirate_Click() {
    if (mnuRascAR->isChecked() || mnuRascAO->isChecked()) {
        messaggi_.Mostra("", "Deseleziona Ruota Ascensionale!");
        return;
    }
    if (esterno_ == Esterno::Rivoluzione) {
        if (MappaVisibile()) {
            cmdMirateOFF_Click();
        } else {
            // The chart cast again at its present place, and the map shown.
            txtTempi->setText(QStringLiteral("0"));
            Rilocazione(AsseRilocazione::EstOvest);
        }
        return;
    }
    if (s_.JDRivoluzione == -1.0)
        messaggi_.Mostra("Vesmo - Info Rilocate", "Necessaria Rivoluzione!", Pulsanti::Ok,
                         Icona::Informazione);
}

void frmRuotaDoppia::cmdMirateOFF_Click() {
    MostraMappa(false);
    DisegnaDoppia();
}

void frmRuotaDoppia::Rilocazione(AsseRilocazione asse) {
    if (esterno_ != Esterno::Rivoluzione || !txtTempi) return;
    const std::string digitato = txtTempi->text().toStdString();
    const std::optional<double> valore = NumeroDigitato(digitato);
    if (!valore) {
        messaggi_.Mostra("Lyx - Info Rivoluzioni",
                         "Il passo deve essere un numero: " + digitato +
                             "\nIl separatore decimale è la VIRGOLA.\n" + std::string(30, '-') +
                             "\nThe step must be a number.\n",
                         Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    const bool primi = CaseTra->property("Tag").toString() == QLatin1String("UnP");
    const EsitoRilocazione esito =
        vesmo::Rilocazione(s_, asse, PassoRilocazione(*valore, primi), messaggi_);
    if (esito == EsitoRilocazione::FuoriLongitudine || esito == EsitoRilocazione::FuoriLatitudine)
        return;
    lbCoord->setText(QString::fromStdString(TestoCoordinateRilocate(s_.TemaZ)));
    if (esito != EsitoRilocazione::Rilocata) return;
    MostraQuando();
    picFusi->SegnaMappa(s_.TemaZ.Lon, s_.TemaZ.Lat);
    CercaVicine();
    if (lstCityVicine->count() > 0) lstCityVicine->setCurrentRow(0);
    if (!MappaVisibile()) MostraMappa(true);
    if (mnuRotAscSxEST->isChecked()) AngoloRuota = static_cast<float>(360 - s_.PosZ.Asce.Lo);
    DisegnaDoppia();
    if (AggiornaRivoluzione) AggiornaRivoluzione();
}

void frmRuotaDoppia::CercaVicine() {
    lstCityVicine->clear();
    if (!CittaVicine) return;
    std::optional<Clessidra> clessidra;
    try {
        const std::vector<std::string> righe =
            CittaVicine(FileDB, s_.TemaZ.Lon, s_.TemaZ.Lat, [this, &clessidra](bool inizio) {
                // The index is built inside the event: the label and the busy pointer are the
                // only sign of it.
                lbNeoIndici->setVisible(inizio);
                if (inizio)
                    clessidra.emplace(messaggi_);
                else
                    clessidra.reset();
                if (inizio) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            });
        for (const std::string& r : righe)
            lstCityVicine->addItem(QString::fromStdString(r));
    } catch (const std::exception& e) {
        lbNeoIndici->hide();
        clessidra.reset();
        messaggi_.Mostra("Lyx - frmRuotaDoppia.Rilocazione", e.what(), Pulsanti::Ok,
                         Icona::Critico);
    }
}

void frmRuotaDoppia::DisegnaDoppioZodiaco(int casa) {
    CasaCoincidente = casa;
    Ridisegna();
}

void frmRuotaDoppia::mnuRotArieteSx_Click() {
    CasaCoincidente = 0;
    mnuRotAscSxEST->setChecked(false);
    AngoloRuota = 0;
    AngoloAscens = 0;
    Ridisegna();
}

void frmRuotaDoppia::mnuRotAscSxINT_Click() {
    CasaCoincidente = 0;
    mnuRotAscSxEST->setChecked(false);
    AngoloRuota = static_cast<float>(360 - s_.PosX.Asce.Lo);
    AngoloAscens = static_cast<float>(360 - 15 * s_.PosX.Asce.AR.Numero());
    Ridisegna();
}

void frmRuotaDoppia::mnuRotAscSxEST_Click() {
    CasaCoincidente = 0;
    mnuRotAscSxEST->setChecked(true);
    AngoloRuota = static_cast<float>(360 - s_.PosZ.Asce.Lo);
    AngoloAscens = static_cast<float>(360 - 15 * s_.PosZ.Asce.AR.Numero());
    Ridisegna();
}

void frmRuotaDoppia::mnuRotQualsiasi_Click() {
    CasaCoincidente = 0;
    mnuRotAscSxEST->setChecked(false);
    const std::optional<double> angolo =
        ChiediAngolo(messaggi_, "Lyx - Angolo di rotazione della Ruota Doppia",
                     "Inserire l'angolo di rotazione voluto.\n"
                     "Riferito al tema INTERNO.\n"
                     "Calcolato dalla posizione Asc a Sx.\n\n"
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

void frmRuotaDoppia::mnuAspDisegnaInt_Click() {
    Inverti(s_.Ruote.DisegnaAspetti);
    Interruttori();
    Ridisegna();
}

void frmRuotaDoppia::mnuAspDisegnaEst_Click() {
    Inverti(s_.Ruote.DisegnaAspettiEst);
    Interruttori();
    Ridisegna();
}

void frmRuotaDoppia::mnuAspDisegnaCmp_Click() {
    Inverti(s_.Ruote.DisegnaAspettiCmp);
    Interruttori();
    Ridisegna();
}

void frmRuotaDoppia::mnuAspSelezione_Click() {
    const int accesi = (Acceso(s_.Ruote.DisegnaAspetti) ? 1 : 0) +
                       (Acceso(s_.Ruote.DisegnaAspettiEst) ? 1 : 0) +
                       (Acceso(s_.Ruote.DisegnaAspettiCmp) ? 1 : 0);
    if (accesi != 1) {
        messaggi_.Mostra(TitoloOrbita, accesi == 0 ? NessunTipo : TroppiTipi, Pulsanti::Ok,
                         Icona::Esclamativo);
        return;
    }
    if (Acceso(s_.Ruote.DisegnaAspetti)) {
        s_.TemaX = s_.TemaY = s_.TemaNat;
        s_.PosX = s_.PosY = s_.PosNat;
    } else if (Acceso(s_.Ruote.DisegnaAspettiEst)) {
        s_.TemaX = s_.TemaY = s_.TemaZ;
        s_.PosX = s_.PosY = s_.PosZ;
    } else {
        s_.TemaX = s_.TemaNat;
        s_.PosX = s_.PosNat;
        s_.TemaY = s_.TemaZ;
        s_.PosY = s_.PosZ;
        s_.Ruote.AspettiComparati = -1;
    }
    if (Selezione) {
        Selezione->close();
        Selezione->deleteLater();
    }
    QWidget* genitore = parentWidget() ? parentWidget() : this;
    Selezione = new frmSelAspetti(s_, messaggi_, genitore);
    if (RegistraSecondaria) RegistraSecondaria(Selezione);
    Selezione->show();
}

void frmRuotaDoppia::Ripristina_Click() {
    s_.TemaX = s_.TemaNat;
    s_.PosX = s_.PosNat;
    switch (esterno_) {
    case Esterno::Natale:
        s_.TemaZ = s_.TemaNat;
        s_.PosZ = s_.PosNat;
        break;
    case Esterno::Transito:
        s_.TemaZ = s_.TemaTra;
        s_.PosZ = s_.PosTra;
        break;
    case Esterno::Rivoluzione:
        s_.TemaZ = s_.TemaRiv;
        s_.PosZ = s_.PosRiv;
        break;
    case Esterno::Direzione:
        s_.TemaZ = s_.TemaDir;
        s_.PosZ = s_.PosDir;
        break;
    }
    CasaCoincidente = 0;
    MostraQuando();
    Ridisegna();
}

void frmRuotaDoppia::CaseTra_Click() {
    if (esterno_ == Esterno::Rivoluzione) {
        // The unit of the step: degrees or minutes of arc.
        const bool gradi = CaseTra->property("Tag").toString() == QLatin1String("UnG");
        CaseTra->setProperty("Tag", gradi ? QStringLiteral("UnP") : QStringLiteral("UnG"));
        CaseTra->setText(gradi ? QStringLiteral("Primi") : QStringLiteral("Gradi"));
        return;
    }
    if (esterno_ != Esterno::Transito) return;
    CaseEsterne = !CaseEsterne;
    Ridisegna();
}

void frmRuotaDoppia::Toolbar1_ButtonClick(UnitaTempo unita) {
    if (esterno_ != Esterno::Transito || !txtTempi) return;
    const std::optional<double> quanti = PassoDigitato(txtTempi->text().toStdString(), messaggi_);
    if (!quanti) return;
    PassoTempo(s_.TemaZ, unita, *quanti);
    s_.PosZ = RifaiTransito(s_, s_.TemaZ, messaggi_);
    if (mnuRotAscSxEST->isChecked()) {
        AngoloRuota = static_cast<float>(360 - s_.PosZ.Asce.Lo);
        AngoloAscens = static_cast<float>(360 - 15 * s_.PosZ.Asce.AR.Numero());
    }
    Ridisegna();
    MostraQuando();
    if (AggiornaTransito) AggiornaTransito();
}

void frmRuotaDoppia::UpDown1_Change(int passo) {
    if (!txtTempi) return;
    txtTempi->setText(QString::number(PassoConFrecce(txtTempi->text().toStdString(), passo)));
}

void frmRuotaDoppia::MostraQuando() {
    // A relocated chart keeps the Greenwich date of its revolution, so its clock may read
    // before 0 h or past 24 h: it is shown on its own day.
    Tema t = s_.TemaZ;
    if (std::isfinite(t.OraL) && std::fabs(t.OraL) < 1e6) {
        const double giorni = std::floor(t.OraL / 24);
        t.OraL -= 24 * giorni;
        t.Day += giorni;
    }
    // A date the calendar cannot show leaves the text as it was.
    if (std::optional<Quando> q = QuandoDelTema(t)) lbQuando->setText(TestoQuando(*q));
}

void frmRuotaDoppia::Rilascio(QListWidget* lista) {
    SelezioneComparati sel = LeggiLista(lista);
    RilascioComparati(sel);
    for (int i = 0; i < lista->count(); ++i)
        lista->item(i)->setSelected(sel[static_cast<std::size_t>(i)]);
    Ridisegna();
}

bool frmRuotaDoppia::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton) {
        if (o == List1->viewport()) Rilascio(List1);
        if (o == List2->viewport()) Rilascio(List2);
    }
    return QMainWindow::eventFilter(o, e);
}

} // namespace vesmo
