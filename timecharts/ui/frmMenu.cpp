#include "timecharts/ui/frmMenu.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/ScorriArchivio.h"
#include "archives/ui/frmSalvoLyx.h"
#include "astrolog/Astrolog.h"
#include "astrolog/qt/AvviaProgramma.h"
#include "calculators/ui/Calcolatrici.h"
#include "chart/CalcolaTema.h"
#include "chart/Case.h"
#include "chart/ui/frmDomicili.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "core/qt/Schermo.h"
#include "core/ui/Controlli.h"
#include "ephemeris/TestoDatiTema.h"
#include "presentation/ui/frmOutDati.h"
#include "timecharts/Direzioni.h"
#include "timecharts/ui/MenuImporta.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/MenuStampe.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmCalTransiti.h"

namespace vesmo {

const char* const AiutoDecimali = "Nelle caselle di testo il separatore decimale è la VIRGOLA,\r\n"
                                  "salvo dove è indicato diversamente.\r\n";
const char* const AiutoRivoluzioniMirate =
    "L'ora di una rivoluzione rilocata dalla ruota doppia non è l'ora locale:\r\n"
    "in quel luogo fuso orario e ora estiva non sono noti.\r\n\r\n"
    "Per avere l'ora locale ricalcolare la rivoluzione nel modo consueto,\r\n"
    "scegliendo quel luogo.\r\n\r\n"
    "A parità di coordinate le posizioni sono le stesse.\r\n";

namespace {

const char* const Titoli[4] = {"Natale", "Transito", "Rivoluzione", "Direzione"};
const char* const Teste[3] = {"   il                             alle         Estiva",
                              "  longitudine        latitudine          fuso",
                              "  TSL                             JD"};
const char* const NomiFrame[4] = {"Frame1", "Frame2", "Frame3", "Frame4"};
// The labels of each frame, numbered as the slots' labels are: name, town, date, coordinates,
// sidereal time and JD, zone, and the three heads.
const int NumeriEtichette[4][9] = {{1, 2, 3, 4, 5, 10, 6, 7, 8},
                                   {9, 12, 13, 14, 16, 15, 29, 32, 35},
                                   {17, 18, 19, 20, 22, 21, 30, 33, 36},
                                   {23, 24, 25, 26, 28, 27, 31, 34, 37}};
const char* const PulsantiAstrolog[4] = {nullptr, "cmdAA_Tra", "cmdAA_Riv", "cmdAA_Dir"};
const std::pair<const char*, const char*> VociSalvo[4] = {{"mnuFileSalvoTN", "&Tema Natale"},
                                                          {"mnuFileSalvoT", "T&ransito"},
                                                          {"mnuFileSalvoR", "&Rivoluzione"},
                                                          {"mnuFileSalvoD", "&Direzione"}};
struct VoceCalcolatrice {
    const char* nome;
    const char* testo;
    Calcolatrice quale;
};
const VoceCalcolatrice VociCalcolatrici[] = {
    {"mnuVarEclEqu", "Eclittiche <---> E&quatoriali", Calcolatrice::EclEqu},
    {"mnuVarEqT", "&Equazione del Tempo", Calcolatrice::EqT},
    {"mnuVarJD", "&Giorni Giuliani  (JD)", Calcolatrice::JD},
    {"mnuVarConv", "&Formati Numerici Coordinate", Calcolatrice::Formati},
    {"mnuVarET", "&TE, TU", Calcolatrice::TETU}};
const char* const ParoleMemo[4] = {"Tema N.", "Transito", "Rivoluzione", "Direzione"};
const char* const DidascalieMemo[4] = {"[Tema Natale] - ", "[Transito] - ", "[Rivoluzione] - ",
                                       "[Direzione] - "};

// An open window comes to the front, restored if it was minimised; false when there is none
// (a window closed and not yet deleted counts as none).
bool Aperta(const QPointer<QWidget>& w) {
    return w && w->isVisible();
}
bool PortaDavanti(QWidget* w) {
    if (!Aperta(w)) return false;
    if (w->isMinimized()) w->showNormal();
    w->show();
    w->raise();
    w->activateWindow();
    return true;
}

QLabel* EtichettaFissa(QWidget* g, const QString& nome, const QFont& f) {
    auto* l = new QLabel(g);
    l->setObjectName(nome);
    l->setFont(f);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

} // namespace

frmMenu::frmMenu(Sessione& sessione, const PercorsiVesmo& percorsi, Messaggi& messaggi,
                 QWidget* genitore)
    : QMainWindow(genitore), stato(sessione.Ruote), s_(sessione), percorsi_(percorsi),
      messaggi_(messaggi) {
    setObjectName("frmMenu");
    setWindowTitle(
        QStringLiteral("Lyx - Menu. Tema, Transito, Rivoluzione, Direzione Secondaria."));

    CreaCentro();
    CreaMenuFile();
    CreaMenuTemi();
    CreaMenuUtility();
    Collega();
    resize(1000, 560);
    CollegaMenuTempo(*this, s_, messaggi_);
    CollegaMenuRuote(*this, s_, messaggi_);
    CollegaMenuImporta(*this, s_, percorsi_.FileDB, messaggi_);
    CollegaMenuStampe(*this, s_, messaggi_);
    CollegaMenuCalTransiti(*this, s_, messaggi_);
}

void frmMenu::CreaCentro() {
    auto* centro = new QWidget(this);
    auto* griglia = new QGridLayout(centro);
    for (int i = 0; i < 4; ++i) {
        CreaRiquadro(i, centro);
        griglia->addWidget(riquadri[static_cast<std::size_t>(i)].frame, i / 2, i % 2);
    }
    Label11 = Etichetta(centro, "", "Label11");
    Label38 = Etichetta(centro, "", "Label38");
    Label39 = Etichetta(centro, "", "Label39");
    Command1 = Pulsante(centro, "Command1", "Ve&smo");
    Command2 = Pulsante(centro, "Command2", "A&ggiorna");
    auto* lato = new QVBoxLayout;
    lato->addWidget(Label11);
    lato->addWidget(Label38);
    lato->addWidget(Label39);
    lato->addStretch(1);
    lato->addWidget(Command2);
    lato->addWidget(Command1);
    griglia->addLayout(lato, 0, 2, 2, 1);
    setCentralWidget(centro);
}

void frmMenu::CreaRiquadro(int i, QWidget* centro) {
    const auto slot = static_cast<std::size_t>(i);
    const QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    Riquadro& r = riquadri[slot];
    r.titolo = QString::fromUtf8(Titoli[slot]);
    r.frame = vesmo::Riquadro(centro, NomiFrame[slot], Titoli[slot]);
    auto lab = [&](std::size_t k) {
        return EtichettaFissa(r.frame, QStringLiteral("Label%1").arg(NumeriEtichette[slot][k]),
                              fisso);
    };
    r.nome = lab(0);
    r.city = lab(1);
    r.data = lab(2);
    r.coordinate = lab(3);
    r.tslJd = lab(4);
    r.fuso = lab(5);
    for (std::size_t k = 0; k < 3; ++k) {
        r.teste[k] = lab(6 + k);
        r.teste[k]->setText(QString::fromUtf8(Teste[k]));
        r.teste[k]->setStyleSheet("color: #555;");
    }
    auto* v = new QVBoxLayout(r.frame);
    auto* testa = new QHBoxLayout;
    testa->addWidget(r.nome, 1);
    testa->addWidget(r.city, 1);
    v->addLayout(testa);
    v->addWidget(r.teste[0]);
    v->addWidget(r.data);
    v->addWidget(r.teste[1]);
    auto* coord = new QHBoxLayout;
    coord->addWidget(r.coordinate);
    coord->addWidget(r.fuso);
    coord->addStretch(1);
    v->addLayout(coord);
    v->addWidget(r.teste[2]);
    v->addWidget(r.tslJd);
    r.astrolog = nullptr;
    if (PulsantiAstrolog[slot]) {
        r.astrolog = Pulsante(r.frame, PulsantiAstrolog[slot], "A&vvia  Astrolog");
        r.astrolog->hide();
        v->addWidget(r.astrolog, 0, Qt::AlignRight);
    }
}

void frmMenu::CreaMenuFile() {
    mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    QMenu* luna = mnuFile->addMenu(QStringLiteral("&Luna"));
    mnuFileLunaGeo = Voce(luna, "mnuFileLunaGeo", "&Geocentrica");
    mnuFileLunaTopo = Voce(luna, "mnuFileLunaTopo", "&Topocentrica ");
    QMenu* lunaNera = mnuFile->addMenu(QStringLiteral("Luna Nera"));
    mnuFileLunaNMedia = Voce(lunaNera, "mnuFileLunaNMedia", "Media ");
    mnuFileLunaNVera = Voce(lunaNera, "mnuFileLunaNVera", "Vera");
    connect(Voce(mnuFile, "mnuFileColori", "Im&posta Colori Ruota"), &QAction::triggered, this,
            [this] { MostraColoriRuota(stato, this); });
    QMenu* salvo = mnuFile->addMenu(QStringLiteral("S&alvo"));
    for (std::size_t i = 0; i < 4; ++i) {
        mnuFileSalvo[i] = Voce(salvo, VociSalvo[i].first, VociSalvo[i].second);
        mnuFileSalvo[i]->setCheckable(true);
    }
    mnuFile->addSeparator();
    mnuFileEsci = Voce(mnuFile, "mnuFileEsci", "&Esci. Ritorna ad Vesmo");
}

void frmMenu::CreaMenuTemi() {
    mnUnCielo = menuBar()->addMenu(QStringLiteral("&Tema Natale"));
    mnUnCieloNuovo = Voce(mnUnCielo, "mnUnCieloNuovo", "Calcolo &Tema Nuovo");
    connect(Voce(mnUnCielo, "mnUnCieloPosizione", "&Posizioni"), &QAction::triggered, this,
            [this] { ApriPosizioni(0); });
    connect(Voce(mnUnCielo, "mnUnCieloDomi", "&Domiciliazioni"), &QAction::triggered, this,
            [this] { ApriDomicili(0); });
    connect(Voce(mnUnCielo, "mnUnCieloAO", "&Selezione Aspetti e Orbita"), &QAction::triggered,
            this, &frmMenu::ApriSelezioneAspetti);
    connect(Voce(mnUnCielo, "mnUnCieloMemo", "C&mto"), &QAction::triggered, this,
            [this] { ApriMemo(0); });
    mnuTransiti = menuBar()->addMenu(QStringLiteral("Tr&ansiti"));
    mnuTransitInput = Voce(mnuTransiti, "mnuTransitInput", "Calcolo Trans&ito Nuovo");
    VociSlot(mnuTransiti, 1, "mnuTransitiP", "&Posizioni ", "mnuTransitiD", "mnuTransitiMemo");
    mnuRiv = menuBar()->addMenu(QStringLiteral("&Rivoluzioni"));
    VociSlot(mnuRiv, 2, "mnuRivPos", "&Posizioni", "mnuRivDom", "mnuRivMemo");
    mnuDir = menuBar()->addMenu(QStringLiteral("&Direzioni"));
    VociSlot(mnuDir, 3, "mnuDirPos", "&Posizioni ", "mnuDirDom", "mnuDirMemo");
}

void frmMenu::VociSlot(QMenu* menu, int slot, const char* posizioni, const char* testoPosizioni,
                       const char* domicili, const char* memo) {
    connect(Voce(menu, posizioni, testoPosizioni), &QAction::triggered, this,
            [this, slot] { ApriPosizioni(slot); });
    connect(Voce(menu, domicili, "&Domiciliazioni"), &QAction::triggered, this,
            [this, slot] { ApriDomicili(slot); });
    connect(Voce(menu, memo, "C&mto"), &QAction::triggered, this, [this, slot] { ApriMemo(slot); });
}

void frmMenu::CreaMenuUtility() {
    mnuVar = menuBar()->addMenu(QStringLiteral("&Utility"));
    for (const VoceCalcolatrice& v : VociCalcolatrici) {
        const Calcolatrice quale = v.quale;
        connect(Voce(mnuVar, v.nome, v.testo), &QAction::triggered, this,
                [this, quale] { MostraCalcolatrice(quale, s_, messaggi_, this); });
    }
    munVarSca = Voce(mnuVar, "munVarSca", "&Pulizia form");
    mnuHefrMenu = menuBar()->addMenu(QStringLiteral("&?"));
    connect(Voce(mnuHefrMenu, "mnuHeDecimali", "&Decimali"), &QAction::triggered, this, [this] {
        Aiuto(QStringLiteral("Lyx - Aiuto Lyx "), QString::fromUtf8(AiutoDecimali));
    });
    connect(Voce(mnuHefrMenu, "mnuHeMirate", "Rivoluzioni &Mirate"), &QAction::triggered, this,
            [this] {
                Aiuto(QStringLiteral("Lyx - Aiuto Rivoluzioni Rilocate"),
                      QString::fromUtf8(AiutoRivoluzioniMirate));
            });
    connect(Voce(mnuHefrMenu, "mnuHeDirFrAnno", "Dir. &Frazione d' anno"), &QAction::triggered,
            this,
            [this] { Aiuto(QString::fromUtf8(TitoloAiutoFrazione), QS(TestoAiutoFrazione())); });
}

void frmMenu::Collega() {
    for (int i = 1; i < 4; ++i)
        connect(riquadri[static_cast<std::size_t>(i)].astrolog, &QPushButton::clicked, this,
                [this, i] {
                    s_.TemaSalva = s_.TemaDelSlot(i);
                    AvviaAstrolog(s_.TemaSalva, percorsi_, messaggi_, AvviaDistaccato);
                });
    for (int i = 0; i < 4; ++i) {
        // The entry's mark tells whether the slot was saved: a click does not toggle it.
        connect(mnuFileSalvo[static_cast<std::size_t>(i)], &QAction::triggered, this,
                [this, i](bool segnata) {
                    mnuFileSalvo[static_cast<std::size_t>(i)]->setChecked(!segnata);
                    Salvo(i);
                });
    }
    connect(mnuFileLunaGeo, &QAction::triggered, this, [this] { CambiaLuna(1); });
    connect(mnuFileLunaTopo, &QAction::triggered, this, [this] { CambiaLuna(0); });
    connect(mnuFileLunaNMedia, &QAction::triggered, this, [this] { CambiaLunaNera(0); });
    connect(mnuFileLunaNVera, &QAction::triggered, this, [this] { CambiaLunaNera(1); });
    connect(mnuFileEsci, &QAction::triggered, this, &frmMenu::Command1_Click);
    connect(Command1, &QPushButton::clicked, this, &frmMenu::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmMenu::Command2_Click);
    connect(mnUnCieloNuovo, &QAction::triggered, this, &frmMenu::mnUnCieloNuovo_Click);
    connect(mnuTransitInput, &QAction::triggered, this, &frmMenu::mnuTransitInput_Click);
    connect(munVarSca, &QAction::triggered, this, &frmMenu::PulisciSlot);
}

frmMenu::~frmMenu() {
    uscendo_ = true;
    ChiudiSecondarie();
}

void frmMenu::MostraEtichette(int slot, bool visibili) {
    Riquadro& r = riquadri[static_cast<std::size_t>(slot)];
    for (QLabel* l : {r.nome, r.city, r.data, r.coordinate, r.tslJd, r.fuso, r.teste[0], r.teste[1],
                      r.teste[2]})
        l->setVisible(visibili);
}

void frmMenu::Form_Load() {
    for (int i = 1; i <= 3; ++i) {
        MostraEtichette(i, false);
        riquadri[static_cast<std::size_t>(i)].frame->setEnabled(false);
    }
    Label11->setText(QString(16, ' ') + "\nAltri Pianeti GeoCentrici\n\nZodiaco Tropico\n\n"
                                        "Case di Placido\n");
    Label38->setText(QS(s_.DidascaliaLunaGeo()));
    Label39->setText(QS(s_.LunaNeraVera == 0 ? "Luna Nera Media" : "Luna Nera Vera"));
    riquadri[0].nome->setText(QStringLiteral("Vuoto"));
    riquadri[0].city->setText(QStringLiteral("Vuoto"));
    riquadri[0].frame->setTitle(QStringLiteral(" Natale"));
    show();
    if (!s_.MenuPronto) {
        InstallaTema(0);
        s_.MenuPronto = -1;
    }
}

void frmMenu::InstallaTema(int cheFrame) {
    s_.DatiOk = 0;
    if (cheFrame < 0 || cheFrame > 3) return;
    s_.TemaDelSlot(cheFrame) = s_.TemaX;
    if (cheFrame >= 2) s_.PosDelSlot(cheFrame) = s_.PosVuoto;
    riquadri[static_cast<std::size_t>(cheFrame)].tag = QStringLiteral("oK");
    Command2_Click();
    Case cuspidi;
    try {
        CastaTema(s_.TemaDelSlot(cheFrame), cuspidi, s_.PosDelSlot(cheFrame), s_.LunaGeo,
                  messaggi_);
    } catch (const ErroreLoopCase&) {
        // The houses never converged: the message has been shown; the slot keeps its record.
    } catch (const std::exception& e) {
        messaggi_.Mostra("Lyx - Errore", std::string(e.what()) + "\n\n(frmMenu.InstallaTema)",
                         Pulsanti::Ok, Icona::Critico);
    }
}

void frmMenu::Didascalia(int slot, bool dopoSalvo) {
    Riquadro& r = riquadri[static_cast<std::size_t>(slot)];
    const Tema& t = s_.TemaDelSlot(slot);
    if (t.Cmto.empty())
        r.frame->setTitle(r.titolo);
    else if (slot == 0 && !dopoSalvo)
        r.frame->setTitle(QStringLiteral("Natale  (Cmto)"));
    else
        r.frame->setTitle(r.titolo + QStringLiteral(" (Cmto)"));
}

void frmMenu::Rinfresca(int slot) {
    Riquadro& r = riquadri[static_cast<std::size_t>(slot)];
    const Tema& t = s_.TemaDelSlot(slot);
    std::string t1, t2, t3, t4;
    TestoDatiTema(t, t1, t2, t3, t4);
    if (slot > 0) {
        r.frame->setEnabled(true);
        MostraEtichette(slot, true);
    }
    r.nome->setText(QS(t.Nome.str()));
    r.city->setText(QS(t.City.str()));
    r.data->setText(QS(t1));
    r.coordinate->setText(QS(t2));
    r.tslJd->setText(QS(t3));
    r.fuso->setText(QS(t4));
    Didascalia(slot, false);
}

void frmMenu::Command2_Click() {
    for (int i = 0; i < 4; ++i) {
        if (riquadri[static_cast<std::size_t>(i)].tag == QLatin1String("oK")) {
            Rinfresca(i);
            break;
        }
    }
    for (auto& r : riquadri)
        r.tag.clear();
    // The secondary windows that read the slots at their load are closed.
    if (memo_) memo_->close();
    for (auto& w : secondarie_)
        if (w && (w->objectName() == "frmDomicili" || w->objectName() == "frmSelAspetti"))
            w->close();
}

void frmMenu::AggiornaFrames(int cheFrame) {
    if (cheFrame == 0) {
        Command2_Click();
        return;
    }
    if (cheFrame != 2 && cheFrame != 3) return;
    int slot = cheFrame - 1;
    Riquadro& r = riquadri[static_cast<std::size_t>(slot)];
    if (r.tag != QLatin1String("oK")) return;
    Rinfresca(slot);
    r.tag.clear();
}

void frmMenu::PulisciSlot() {
    for (int i = 1; i <= 3; ++i) {
        s_.TemaDelSlot(i) = s_.TemaVuoto;
        s_.PosDelSlot(i) = s_.PosVuoto;
        s_.FlagDelSlot(i) = 0;
        Riquadro& r = riquadri[static_cast<std::size_t>(i)];
        r.astrolog->hide();
        MostraEtichette(i, false);
        r.frame->setEnabled(false);
        r.tag.clear();
    }
    s_.JDRivoluzione = -1.0;
    s_.JDPrimoRitorno = -1.0;
}

void frmMenu::RegistraSecondaria(QWidget* w) {
    secondarie_.removeAll(nullptr);
    secondarie_.append(w);
}

void frmMenu::ChiudiSecondarie() {
    const char* ordine[] = {"frmDomicili", "frmMemo", "frmOutDati", "frmSelAspetti"};
    if (memo_) memo_->close();
    for (const char* nome : ordine)
        for (auto& w : secondarie_)
            if (w && w->objectName() == QLatin1String(nome)) w->close();
    for (auto& w : secondarie_)
        if (w) w->close();
    secondarie_.clear();
}

void frmMenu::DopoInput(int slot) {
    if (!s_.DatiOk) return;
    ChiudiSecondarie();
    if (slot > 0) {
        s_.FlagDelSlot(slot) = -1;
        riquadri[static_cast<std::size_t>(slot)].astrolog->show();
    }
    mnuFileSalvo[static_cast<std::size_t>(slot)]->setChecked(false);
    InstallaTema(slot);
}

void frmMenu::mnUnCieloNuovo_Click() {
    s_.TemaX = s_.TemaNat;
    s_.PosX = s_.PosVuoto;
    s_.DatiOk = 0;
    if (InputDati) InputDati(QString());
    DopoInput(0);
}

void frmMenu::mnuTransitInput_Click() {
    s_.TemaX = s_.TemaTra;
    s_.PosX = s_.PosVuoto;
    if (!s_.TransitoCalcolato) {
        s_.TemaX = s_.TemaNat;
        // " Tra" over the four characters from the 25th of the name; the last two stay.
        const std::string nome = TagliaOAllunga(s_.TemaX.Nome.str(), 30);
        const std::string coda = nome.substr(PrimiCaratteri(nome, 28).size());
        s_.TemaX.Nome = PrimiCaratteri(nome, 24) + " Tra" + coda;
        QDateTime ora = QDateTime::currentDateTime();
        s_.TemaX.Day = GiornoGiuliano(static_cast<float>(ora.date().year()),
                                      static_cast<float>(ora.date().month()),
                                      static_cast<float>(ora.date().day()));
        s_.TemaX.OraL = GradiDecimali(ora.time().hour(), ora.time().minute(), ora.time().second());
    }
    s_.DatiOk = 0;
    if (InputDati) InputDati(QString());
    DopoInput(1);
}

void frmMenu::ApriMemo(int slot) {
    if (memo_) memo_->close();
    memo_ = new frmMemo(s_, *this, messaggi_, slot);
    memo_->setAttribute(Qt::WA_DeleteOnClose);
    memo_->show();
}

void frmMenu::ApriPosizioni(int slot) {
    if (PortaDavanti(posizioni_[static_cast<std::size_t>(slot)])) return;
    s_.TemaX = s_.TemaDelSlot(slot);
    s_.PosX = s_.PosDelSlot(slot);
    // Only the transit's window takes the time-stepping toolbar.
    stato.TransitoPosizioni = slot == 1 ? -1 : 0;
    auto* f = new frmOutDati(s_, percorsi_.FileDB, messaggi_);
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->RegistraSecondaria = [this](QWidget* w) { RegistraSecondaria(w); };
    f->ScorriArchivioCorrente = ScorriArchivio;
    f->AggiornaTransito = [this] {
        // The transit moved in the positions window: its slot is shown again.
        mnuFileSalvo[1]->setChecked(false);
        riquadri[1].tag = QStringLiteral("oK");
        AggiornaFrames(2);
    };
    RegistraSecondaria(f);
    posizioni_[static_cast<std::size_t>(slot)] = f;
    // The flag stays true while the transit's window is open, whichever window came last.
    stato.TransitoPosizioni = Aperta(posizioni_[1]) ? -1 : 0;
    f->show();
}

void frmMenu::ApriDomicili(int slot) {
    static const char* const etichette[4] = {"[tema natale] ", "[transito] ", "[Rivoluzione] ",
                                             "[Direzione] "};
    if (PortaDavanti(domicili_[static_cast<std::size_t>(slot)])) return;
    s_.PosDomi = s_.PosDelSlot(slot);
    auto* f = new frmDomicili(s_, messaggi_);
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->setWindowTitle(f->windowTitle() + QString::fromUtf8(etichette[slot]) +
                      QS(s_.TemaDelSlot(slot).Nome.str()));
    RegistraSecondaria(f);
    domicili_[static_cast<std::size_t>(slot)] = f;
    f->show();
}

void frmMenu::ApriSelezioneAspetti() {
    if (PortaDavanti(selezione_)) return;
    s_.TemaX = s_.TemaNat;
    s_.PosX = s_.PosNat;
    s_.TemaY = s_.TemaNat;
    s_.PosY = s_.PosNat;
    auto* f = new frmSelAspetti(s_, messaggi_);
    f->setAttribute(Qt::WA_DeleteOnClose);
    RegistraSecondaria(f);
    selezione_ = f;
    f->show();
}

void frmMenu::Salvo(int slot) {
    QAction* voce = mnuFileSalvo[static_cast<std::size_t>(slot)];
    s_.TemaSalva = s_.TemaDelSlot(slot);
    frmSalvoLyx f(s_, percorsi_.FileDB, messaggi_, this);
    f.exec();
    if (s_.SalvatoOk) {
        voce->setChecked(true);
        if (!s_.TemaDelSlot(slot).Cmto.empty()) Didascalia(slot, true);
    }
    s_.SalvatoOk = 0;
}

void frmMenu::CambiaLuna(std::int16_t geo) {
    s_.LunaGeo = geo;
    Label38->setText(QS(s_.DidascaliaLunaGeo()));
    s_.TemaX = s_.TemaNat;
    InstallaTema(0);
    PulisciSlot();
}

void frmMenu::CambiaLunaNera(std::int32_t vera) {
    s_.LunaNeraVera = vera;
    Label39->setText(QS(s_.DidascaliaLunaNera()));
}

void frmMenu::Aiuto(const QString& titolo, const QString& testo) {
    QDialog d(this);
    d.setObjectName("frmHelp");
    d.setWindowTitle(titolo);
    auto* l = new QVBoxLayout(&d);
    auto* lb = new QLabel(QString(testo).replace("\r\n", "\n"), &d);
    lb->setObjectName("lbHelpFuso");
    l->addWidget(lb);
    auto* ok = new QPushButton(QStringLiteral("&Ok"), &d);
    l->addWidget(ok, 0, Qt::AlignRight);
    connect(ok, &QPushButton::clicked, &d, &QDialog::accept);
    d.exec();
}

void frmMenu::Command1_Click() {
    for (int i = 1; i <= 3; ++i) {
        s_.TemaDelSlot(i) = s_.TemaVuoto;
        s_.PosDelSlot(i) = s_.PosVuoto;
        s_.FlagDelSlot(i) = 0;
        riquadri[static_cast<std::size_t>(i)].astrolog->hide();
    }
    s_.JDRivoluzione = -1.0;
    s_.JDPrimoRitorno = -1.0;
    ChiudiSecondarie();
    uscendo_ = true;
    close();
    if (TornaAVesmo) TornaAVesmo();
}

void frmMenu::closeEvent(QCloseEvent* e) {
    // The window's own close button is refused: the way out is the menu.
    if (!uscendo_) {
        e->ignore();
        messaggi_.Mostra("Lyx - ControlBox", "Menu  File + Esci ", Pulsanti::Ok,
                         Icona::Informazione);
        return;
    }
    e->accept();
}

frmMemo::frmMemo(Sessione& sessione, frmMenu& menu, Messaggi& messaggi, int slot, QWidget* genitore)
    : QWidget(genitore, Qt::Window), s_(sessione), menu_(menu), messaggi_(messaggi) {
    setObjectName("frmMemo");
    setWindowTitle(QStringLiteral("Lyx - Commenti  su   ") +
                   QString::fromUtf8(DidascalieMemo[slot]) + QS(s_.TemaDelSlot(slot).Nome.str()));
    ChiudiConEsc(this);
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName("Text1");
    Text1->setPlainText(QS(s_.TemaDelSlot(slot).Cmto));
    Label1 = new QLabel(QString::fromUtf8(ParoleMemo[slot]), this);
    Label1->setObjectName("Label1");
    Command1 = new QPushButton(QStringLiteral("&Salva"), this);
    Command1->setObjectName("Command1");
    Command2 = new QPushButton(QStringLiteral("&Annulla"), this);
    Command2->setObjectName("Command2");
    auto* l = new QVBoxLayout(this);
    l->addWidget(Label1);
    l->addWidget(Text1, 1);
    auto* h = new QHBoxLayout;
    h->addStretch(1);
    h->addWidget(Command1);
    h->addWidget(Command2);
    l->addLayout(h);
    connect(Command1, &QPushButton::clicked, this, &frmMemo::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QWidget::close);
    resize(520, 360);
}

void frmMemo::Command1_Click() {
    const QString parola = Label1->text();
    for (int i = 0; i < 4; ++i) {
        if (!parola.contains(QString::fromUtf8(ParoleMemo[i]))) continue;
        s_.TemaDelSlot(i).Cmto = SS(Text1->toPlainText());
        auto& r = menu_.riquadri[static_cast<std::size_t>(i)];
        r.frame->setTitle(r.titolo + QStringLiteral(" (salva Cmto)"));
    }
    std::string chiave = SS(parola);
    messaggi_.Mostra("Lyx - Salvo Cmto",
                     "Ok! Salvato Cmto su  " + chiave +
                         "\n\nPer avere una registrazione "
                         "PERMANENTE \nbisogna anche salvare " +
                         chiave + "  sul disco\n",
                     Pulsanti::Ok, Icona::Informazione);
    close();
}

} // namespace vesmo
