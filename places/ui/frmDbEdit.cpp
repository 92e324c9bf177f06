#include "places/ui/frmDbEdit.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <tuple>

#include "core/qt/MessaggiQt.h"
#include "core/qt/Schermo.h"
#include "core/ui/Controlli.h"
#include "places/ui/ModelloGriglia.h"

namespace vesmo {

namespace {

const char* const DidascaliaOff = "Griglie Modificabili   Grids       Updatable  OFF";
const char* const DidascaliaOn = "Griglie Modificabili   Grids       Updatable    ON";

QFont Monospazio() {
    QFont f(QStringLiteral("DejaVu Sans Mono"));
    f.setStyleHint(QFont::Monospace);
    return f;
}

} // namespace

struct frmDbEdit::Legame {
    QWidget* w;
    std::string CampiDbEdit::*testo = nullptr;
    ListaTesti CampiDbEdit::*lista = nullptr;
    int CampiDbEdit::*indice = nullptr;
    bool CampiDbEdit::*spunta = nullptr;
};

frmDbEdit::frmDbEdit(const std::string& fileDB, Messaggi& messaggi, QWidget* genitore)
    : QWidget(genitore, Qt::Window), fileDB_(fileDB), messaggi_(messaggi) {
    setObjectName("frmDbEdit");
    setWindowTitle(QStringLiteral("Vesmo - DB Edita"));
    Costruisci();
    resize(DimensioneVoluta(this, {1400, 820}));
}

frmDbEdit::~frmDbEdit() {
    Chiudi();
}

void frmDbEdit::Chiudi() {
    for (QTableView* v : {DBGrid1, DBGrid2, DBGrid3, DBGrid4, DBGrid5, DBGrid6})
        if (v) v->setModel(nullptr);
    for (auto*& g : griglie_) {
        delete g;
        g = nullptr;
    }
    m_.reset();
    db_.Chiudi();
}

// --- building the window ---

namespace {

// A frame of coordinates: degrees, minutes, seconds and the decimal box on a row, the two lists
// (side of the meridian or the equator, notation) below.
QGroupBox* RiquadroCoordinate(QWidget* p, const char* titolo, QLineEdit* const (&caselle)[4],
                              QComboBox* lato, QComboBox* notazione) {
    auto* r = new QGroupBox(QString::fromUtf8(titolo), p);
    auto* h = new QGridLayout(r);
    for (int k = 0; k < 4; ++k)
        h->addWidget(caselle[k], 0, k);
    h->addWidget(lato, 1, 0, 1, 2);
    h->addWidget(notazione, 1, 2, 1, 2);
    return r;
}

QTableView* Griglia(QWidget* p, const char* nome) {
    auto* v = Nome(new QTableView(p), nome);
    v->setSelectionBehavior(QAbstractItemView::SelectRows);
    v->setSelectionMode(QAbstractItemView::SingleSelection);
    v->setEditTriggers(QAbstractItemView::NoEditTriggers);
    v->verticalHeader()->setDefaultSectionSize(20);
    v->verticalHeader()->hide();
    v->horizontalHeader()->setStretchLastSection(true);
    return v;
}

} // namespace

void frmDbEdit::Costruisci() {
    SSTabDB = Nome(new QTabWidget(this), "SSTabDB");
    SSTabDB->addTab(TabCity(), QStringLiteral("City / Nazione"));
    SSTabDB->addTab(TabElimCity(), QStringLiteral("Delete City"));
    SSTabDB->addTab(TabFusoEstive(), QStringLiteral("Fuso / Estive"));
    SSTabDB->addTab(TabElimFE(), QStringLiteral("Delete Fuso / Estive"));
    SSTabDB->addTab(TabCopia(), QStringLiteral("Copia Fusi / Estive"));
    SSTabDB->addTab(TabZone(), QStringLiteral("Zone Orarie"));

    DBGrid1 = Griglia(this, "DBGrid1");
    DBGrid2 = Griglia(this, "DBGrid2");
    DBGrid3 = Griglia(this, "DBGrid3");
    DBGrid4 = Griglia(this, "DBGrid4");
    Command1 = Pulsante(this, "Command1", DidascaliaOff);
    CmdEsci = Pulsante(this, "CmdEsci", "&Esci");

    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(Etichetta(this, "Nazioni"));
    sinistra->addWidget(DBGrid2, 1);
    sinistra->addWidget(Etichetta(this, "City"));
    sinistra->addWidget(DBGrid1, 2);
    auto* destra = new QVBoxLayout;
    destra->addWidget(Etichetta(this, "Fusi"));
    destra->addWidget(DBGrid3, 1);
    destra->addWidget(Etichetta(this, "Estive"));
    destra->addWidget(DBGrid4, 1);
    auto* corpo = new QHBoxLayout;
    corpo->addLayout(sinistra, 2);
    corpo->addWidget(SSTabDB, 5);
    corpo->addLayout(destra, 2);
    auto* piede = new QHBoxLayout;
    piede->addWidget(Command1);
    piede->addStretch(1);
    piede->addWidget(CmdEsci);
    auto* tutto = new QVBoxLayout(this);
    tutto->addLayout(corpo, 1);
    tutto->addLayout(piede);

    connect(Command1, &QPushButton::clicked, this, &frmDbEdit::Command1_Click);
    connect(CmdEsci, &QPushButton::clicked, this, &QWidget::close);
    auto riga = [this](QTableView* v, int n) {
        connect(v, &QTableView::clicked, this, [this, n](const QModelIndex& i) {
            if (aggiornando_ || !m_ || !griglie_[n]) return;
            Esegui(n == 0 ? "DBGrid1_RowColChange" : "DBGrid2_RowColChange", [&] {
                const Segnalibro s = griglie_[n]->SegnalibroDi(i.row());
                if (n == 0) {
                    m_->Data1.VaiA(s);
                    m_->DBGrid1_RowColChange();
                } else {
                    m_->Data2.VaiA(s);
                    m_->DBGrid2_RowColChange();
                }
            });
        });
    };
    riga(DBGrid1, 0);
    riga(DBGrid2, 1);
}

// A line edit bound to a text of the model; a change runs `cambio` when given.
#define CASELLA(p, nome, cambio)                                                                   \
    [&] {                                                                                          \
        auto* t = Nome(new QLineEdit(p), #nome);                                                   \
        legami_.push_back({t, &CampiDbEdit::nome});                                                \
        if (cambio)                                                                                \
            connect(t, &QLineEdit::textEdited, this, [this, f = cambio] {                          \
                Esegui(#nome "_Change", [this, f] { (m_.get()->*f)(); }, {});                      \
            });                                                                                    \
        return t;                                                                                  \
    }()

QPushButton* frmDbEdit::PulsanteModello(QWidget* p, const char* nome, const char* testo,
                                        const char* routine, void (ModelloDbEdit::*azione)(),
                                        std::vector<int> daRicaricare) {
    auto* b = Pulsante(p, nome, testo);
    connect(b, &QPushButton::clicked, this, [this, routine, azione, daRicaricare] {
        Esegui(
            routine, [this, azione] { (m_.get()->*azione)(); }, daRicaricare);
    });
    return b;
}

QWidget* frmDbEdit::TabCity() {
    auto* p = new QWidget;
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text19 = CASELLA(p, Text19, F(&ModelloDbEdit::Text19_Change));
    auto* Text2 = CASELLA(p, Text2, F(&ModelloDbEdit::Text2_Change));
    auto* Text21 = CASELLA(p, Text21, nulla);
    auto* Text18 = CASELLA(p, Text18, nulla);
    auto* Text20 = CASELLA(p, Text20, nulla);
    auto* Text25 = CASELLA(p, Text25, nulla);
    auto* ChkNewNaz = Nome(new QCheckBox(QStringLiteral(" New  City"), p), "ChkNewNaz");
    legami_.push_back({ChkNewNaz, nullptr, nullptr, nullptr, &CampiDbEdit::ChkNewNaz});
    connect(ChkNewNaz, &QCheckBox::clicked, this,
            [this] { Esegui("ChkNewNaz_Click", [this] { m_->ChkNewNaz_Click(); }); });

    auto* CmdAddNewCity =
        PulsanteModello(p, "CmdAddNewCity", "&Aggiungi City / Add City", "CmdAddNewCity",
                        &ModelloDbEdit::CmdAddNewCity_Click, {0, 1});
    auto* cmdHelpCod = PulsanteModello(p, "cmdHelpCod", "help Codici", "cmdHelpCod",
                                       &ModelloDbEdit::cmdHelpCod_Click);
    auto* g = new QGridLayout(p);
    int r = 0;
    g->addWidget(Etichetta(p, "Nazione"), r, 0);
    g->addWidget(Text19, r, 1, 1, 2);
    g->addWidget(ChkNewNaz, r++, 3);
    g->addWidget(Etichetta(p, "City"), r, 0);
    g->addWidget(Text2, r++, 1, 1, 3);
    g->addWidget(Etichetta(p, "Codice di Nazione"), r, 0);
    g->addWidget(Text21, r, 1);
    g->addWidget(Etichetta(p, "cFusi"), r, 2);
    g->addWidget(Text18, r++, 3);
    g->addWidget(Etichetta(p, "cEst"), r, 2);
    g->addWidget(Text20, r++, 3);
    g->addWidget(Etichetta(p, "Spec (Specifiche)"), r, 0);
    g->addWidget(Text25, r++, 1, 1, 3);
    auto [gLon, gLat] = CoordinateCity(p);
    g->addWidget(gLon, r, 0, 1, 2);
    g->addWidget(gLat, r++, 2, 1, 2);
    g->addWidget(Etichetta(p, "Il separatore decimale è la VIRGOLA"), r++, 0, 1, 4);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(CmdAddNewCity);
        h->addWidget(cmdHelpCod);
        h->addStretch(1);
        g->addLayout(h, r++, 0, 1, 4);
    }
    ZoomCity(p, g, r);
    return p;
}

std::pair<QGroupBox*, QGroupBox*> frmDbEdit::CoordinateCity(QWidget* p) {
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    QLineEdit* lon[4];
    QLineEdit* lat[4];
    lon[0] = CASELLA(p, Text9, nulla);
    lon[1] = CASELLA(p, Text10, nulla);
    lon[2] = CASELLA(p, Text11, nulla);
    lon[3] = CASELLA(p, Text12, nulla);
    lat[0] = CASELLA(p, Text13, nulla);
    lat[1] = CASELLA(p, Text14, nulla);
    lat[2] = CASELLA(p, Text15, nulla);
    lat[3] = CASELLA(p, Text16, nulla);
    for (int k = 0; k < 4; ++k) {
        lon[k]->setMaximumWidth(70);
        lat[k]->setMaximumWidth(70);
    }
    lon[3]->hide();
    lat[3]->hide();
    auto* Combo1 = Lista(p, "Combo1", {VociCombo1DbEdit[0], VociCombo1DbEdit[1]});
    auto* Combo2 =
        Lista(p, "Combo2",
              {VociCombo2DbEdit[0], VociCombo2DbEdit[1], VociCombo2DbEdit[2], VociCombo2DbEdit[3]});
    auto* Combo3 = Lista(p, "Combo3", {VociCombo3DbEdit[0], VociCombo3DbEdit[1]});
    auto* Combo4 = Lista(p, "Combo4", {VociCombo4DbEdit[0], VociCombo4DbEdit[1]});
    legami_.push_back({Combo1, nullptr, nullptr, &CampiDbEdit::Combo1});
    legami_.push_back({Combo2, nullptr, nullptr, &CampiDbEdit::Combo2});
    legami_.push_back({Combo3, nullptr, nullptr, &CampiDbEdit::Combo3});
    legami_.push_back({Combo4, nullptr, nullptr, &CampiDbEdit::Combo4});
    connect(Combo2, &QComboBox::activated, this, &frmDbEdit::Combo2_Click);
    connect(Combo4, &QComboBox::activated, this, &frmDbEdit::Combo4_Click);

    return {RiquadroCoordinate(p, "Longitudine", lon, Combo1, Combo2),
            RiquadroCoordinate(p, "Latitudine", lat, Combo3, Combo4)};
}

void frmDbEdit::ZoomCity(QWidget* p, QGridLayout* g, int r) {
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text1 = CASELLA(p, Text1, nulla);
    Text1->setReadOnly(true);
    auto* Combo6 = Lista(p, "Combo6");
    auto* Combo7 = Lista(p, "Combo7");
    legami_.push_back({Combo6, nullptr, &CampiDbEdit::Combo6});
    legami_.push_back({Combo7, nullptr, &CampiDbEdit::Combo7});
    auto* lstZoom = Nome(new QListWidget(p), "lstZoom");
    lstZoom->setFont(Monospazio());
    legami_.push_back({lstZoom, nullptr, &CampiDbEdit::lstZoom});
    auto* cmbMaxMin = Lista(p, "cmbMaxMin");
    cmbMaxMin->setFont(Monospazio());
    legami_.push_back({cmbMaxMin, nullptr, &CampiDbEdit::cmbMaxMin});
    auto* Label22 = Etichetta(p, "City                          cFusi  cEst", "Label22");
    Label22->setFont(Monospazio());
    auto* cmdZoomF = PulsanteModello(p, "cmdZoomF", "<< Zoom c&Fusi", "cmdZoomF",
                                     &ModelloDbEdit::cmdZoomF_Click);
    auto* cmdZoomE =
        PulsanteModello(p, "cmdZoomE", "Zoom cEs&t >>", "cmdZoomE", &ModelloDbEdit::cmdZoomE_Click);

    {
        auto* h = new QHBoxLayout;
        h->addWidget(Etichetta(p, "cNaz"));
        h->addWidget(Text1);
        h->addWidget(Combo6);
        h->addWidget(cmdZoomF);
        h->addWidget(cmdZoomE);
        h->addWidget(Combo7);
        g->addLayout(h, r++, 0, 1, 4);
    }
    g->addWidget(Label22, r++, 0, 1, 4);
    g->addWidget(lstZoom, r++, 0, 1, 4);
    g->addWidget(cmbMaxMin, r++, 0, 1, 4);
    g->setRowStretch(r - 2, 1);
}

QWidget* frmDbEdit::TabElimCity() {
    auto* p = new QWidget;
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text29 = CASELLA(p, Text29, F(&ModelloDbEdit::Text29_Change));
    auto* Text30 = CASELLA(p, Text30, F(&ModelloDbEdit::Text30_Change));
    auto* Text24 = CASELLA(p, Text24, nulla);
    Text24->setReadOnly(true);
    auto* CmdElimCity = PulsanteModello(p, "CmdElimCity", "&Elimina City / Delete City",
                                        "CmdElimCity", &ModelloDbEdit::CmdElimCity_Click, {0, 1});
    auto* g = new QGridLayout(p);
    g->addWidget(Etichetta(p, "Nazione"), 0, 0);
    g->addWidget(Text29, 0, 1);
    g->addWidget(Etichetta(p, "City"), 1, 0);
    g->addWidget(Text30, 1, 1);
    g->addWidget(Etichetta(p, "Righe / Rows"), 2, 0);
    g->addWidget(Text24, 2, 1);
    g->addWidget(CmdElimCity, 3, 1);
    g->setRowStretch(4, 1);
    return p;
}

QWidget* frmDbEdit::TabFusoEstive() {
    auto* p = new QWidget;
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text31 = CASELLA(p, Text31, F(&ModelloDbEdit::Text31_Change));
    auto* Option1 = Nome(new QRadioButton(QStringLiteral("New Fuso"), p), "Option1");
    auto* Option2 = Nome(new QRadioButton(QStringLiteral("New Estive"), p), "Option2");
    Option1->setChecked(true);
    auto* Text33 = CASELLA(p, Text33, nulla);
    auto* Text34 = CASELLA(p, Text34, nulla);
    auto* Combo8 = Lista(p, "Combo8");
    auto* Combo9 = Lista(p, "Combo9");
    legami_.push_back({Combo8, nullptr, &CampiDbEdit::Combo8});
    legami_.push_back({Combo9, nullptr, &CampiDbEdit::Combo9});
    // Option5 and Option6 are a group of their own, apart from Option1 and Option2.
    auto* gruppo = new QWidget(p);
    auto* Option5 = Nome(new QRadioButton(QStringLiteral(" 1 Codice"), gruppo), "Option5");
    auto* Option6 = Nome(
        new QRadioButton(QStringLiteral("TUTTI     i      Codici < 10000"), gruppo), "Option6");
    Option5->setChecked(true);
    legami_.push_back({Option5, nullptr, nullptr, nullptr, &CampiDbEdit::Option5});
    {
        auto* h = new QHBoxLayout(gruppo);
        h->setContentsMargins(0, 0, 0, 0);
        h->addWidget(Option5);
        h->addWidget(Option6);
    }
    auto* cmdHpCodFE = PulsanteModello(p, "cmdHpCodFE", "help Codici", "cmdHpCodFE",
                                       &ModelloDbEdit::cmdHpCodFE_Click);
    auto* cmdZfFE =
        PulsanteModello(p, "cmdZfFE", "<< Zoom &FUSI", "cmdZfFE", &ModelloDbEdit::cmdZfFE_Click);
    auto* cmdZeFE =
        PulsanteModello(p, "cmdZeFE", "Zoom &ESTIVE >>", "cmdZeFE", &ModelloDbEdit::cmdZeFE_Click);
    auto* g = new QGridLayout(p);
    int r = 0;
    g->addWidget(Etichetta(p, "Nazione"), r, 0);
    g->addWidget(Text31, r, 1, 1, 2);
    g->addWidget(cmdHpCodFE, r++, 3);
    g->addWidget(Option1, r, 0);
    g->addWidget(Option2, r++, 1);
    g->addWidget(Etichetta(p, "cFusi"), r, 0);
    g->addWidget(Text33, r, 1);
    g->addWidget(Combo8, r, 2);
    g->addWidget(cmdZfFE, r++, 3);
    g->addWidget(Etichetta(p, "cEst"), r, 0);
    g->addWidget(Text34, r, 1);
    g->addWidget(Combo9, r, 2);
    g->addWidget(cmdZeFE, r++, 3);
    g->addWidget(gruppo, r++, 0, 1, 4);
    r = RigaFusoEstive(p, g, r);
    ZoomFusoEstive(p, g, r);

    connect(Option1, &QRadioButton::clicked, this,
            [this] { Esegui("Option1_Click", [this] { m_->Option1_Click(); }); });
    connect(Option2, &QRadioButton::clicked, this,
            [this] { Esegui("Option2_Click", [this] { m_->Option2_Click(); }); });
    connect(Option6, &QRadioButton::clicked, this, [this] { DaControlli(); });
    return p;
}

int frmDbEdit::RigaFusoEstive(QWidget* p, QGridLayout* g, int r) {
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text17 = CASELLA(p, Text17, nulla);
    auto* Text8 = CASELLA(p, Text8, nulla);
    auto* Text5 = CASELLA(p, Text5, nulla);
    auto* Text6 = CASELLA(p, Text6, nulla);
    auto* Text7 = CASELLA(p, Text7, nulla);
    auto* Text22 = CASELLA(p, Text22, nulla);
    auto* Text23 = CASELLA(p, Text23, nulla);
    for (auto* t : {Text17, Text8, Text6, Text7, Text22, Text23})
        t->setMaximumWidth(50);
    Text5->setMaximumWidth(70);
    auto* Combo5 = Lista(p, "Combo5", {"EST", "OVEST"});
    legami_.push_back({Combo5, nullptr, nullptr, &CampiDbEdit::Combo5});
    auto* Label2 = Etichetta(p, "Fusi", "Label2");
    auto* Label4 = Etichetta(p, "h : m", "Label4");
    auto* Label6 = Etichetta(p, "Alle", "Label6");
    auto* Command7 = PulsanteModello(p, "Command7", "Aggiungo &Riga / Add row", "Command7",
                                     &ModelloDbEdit::Command7_Click, {2, 3});
    g->addWidget(Etichetta(p, "Day Mese   Anno"), r, 0);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(Text17);
        h->addWidget(Text8);
        h->addWidget(Text5);
        h->addWidget(Label6);
        h->addWidget(Text6);
        h->addWidget(Text7);
        h->addWidget(Label4);
        h->addStretch(1);
        g->addLayout(h, r++, 1, 1, 3);
    }
    g->addWidget(Label2, r, 0);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(Text22);
        h->addWidget(Text23);
        h->addWidget(Combo5);
        h->addStretch(1);
        h->addWidget(Command7);
        g->addLayout(h, r++, 1, 1, 3);
    }
    return r;
}

void frmDbEdit::ZoomFusoEstive(QWidget* p, QGridLayout* g, int r) {
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text36 = CASELLA(p, Text36, nulla);
    Text36->setReadOnly(true);
    Text36->setFont(Monospazio());
    auto* lstZmFE = Nome(new QListWidget(p), "lstZmFE");
    lstZmFE->setFont(Monospazio());
    legami_.push_back({lstZmFE, nullptr, &CampiDbEdit::lstZmFE});
    auto* cmbZoneOrarie = Lista(p, "cmbZoneOrarie");
    cmbZoneOrarie->setFont(Monospazio());
    legami_.push_back({cmbZoneOrarie, nullptr, &CampiDbEdit::cmbZoneOrarie});

    g->addWidget(Text36, r++, 0, 1, 4);
    g->addWidget(lstZmFE, r++, 0, 1, 4);
    g->addWidget(cmbZoneOrarie, r++, 0, 1, 4);
    g->setRowStretch(r - 2, 1);
}

QWidget* frmDbEdit::TabElimFE() {
    auto* p = new QWidget;
    using F = void (ModelloDbEdit::*)();
    auto* Text32 = CASELLA(p, Text32, F(&ModelloDbEdit::Text32_Change));
    auto* Text35 = CASELLA(p, Text35, F(&ModelloDbEdit::Text35_Change));
    auto* Text47 = CASELLA(p, Text47, F(&ModelloDbEdit::Text47_Change));
    auto* Command2 = PulsanteModello(p, "Command2", "Delete Fuso (Solo 1 riga / Only 1 row)",
                                     "Command2", &ModelloDbEdit::Command2_Click, {2});
    auto* Command4 = PulsanteModello(p, "Command4", "Delete Estive (Solo 1 riga / Only 1 row)",
                                     "Command4", &ModelloDbEdit::Command4_Click, {3});
    auto* Command8 = PulsanteModello(p, "Command8", "Delete cod TTN  (Solo 1 riga / Only 1 row)",
                                     "Command8", &ModelloDbEdit::Command8_Click, {5});
    // One frame a deletion: its key and its button.
    auto* v = new QVBoxLayout(p);
    for (auto [nome, t, b] :
         {std::tuple{"Frame32", Text32, Command2}, std::tuple{"Frame35", Text35, Command4},
          std::tuple{"Frame47", Text47, Command8}}) {
        auto* h = new QHBoxLayout(Riquadro(p, nome));
        h->addWidget(t);
        h->addWidget(b);
        v->addWidget(h->parentWidget());
    }
    v->addStretch(1);
    return p;
}

QWidget* frmDbEdit::TabCopia() {
    auto* p = new QWidget;
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Option3 = Nome(new QRadioButton(QStringLiteral("Copia Fusi"), p), "Option3");
    auto* Option4 = Nome(new QRadioButton(QStringLiteral("Copia Estive"), p), "Option4");
    Option3->setChecked(true);
    auto* Text3 = CASELLA(p, Text3, F(&ModelloDbEdit::Text3_Change));
    auto* Text4 = CASELLA(p, Text4, F(&ModelloDbEdit::Text4_Change));
    auto* Text26 = CASELLA(p, Text26, nulla);
    auto* Command3 = Pulsante(p, "Command3", "Copio");
    auto* Label1 = Etichetta(p, "", "Label1");
    auto* Label3 = Etichetta(p, "", "Label3");
    auto* Frame3 = Nome(new QGroupBox(p), "Frame3");
    auto* Frame4 = Nome(new QGroupBox(p), "Frame4");
    auto* Frame10 = Nome(new QGroupBox(QStringLiteral("cFusi (nuova Copia)"), p), "Frame10");
    (new QHBoxLayout(Frame3))->addWidget(Text3);
    (new QHBoxLayout(Frame4))->addWidget(Text4);
    (new QHBoxLayout(Frame10))->addWidget(Text26);
    auto* v = new QVBoxLayout(p);
    auto* h = new QHBoxLayout;
    h->addWidget(Option3);
    h->addWidget(Option4);
    h->addStretch(1);
    v->addLayout(h);
    v->addWidget(Label1);
    v->addWidget(Frame3);
    v->addWidget(Frame4);
    v->addWidget(Label3);
    v->addWidget(Frame10);
    v->addWidget(Command3, 0, Qt::AlignLeft);
    v->addStretch(1);
    auto testi = [=](bool fusi) {
        const QString c = fusi ? QStringLiteral("cFusi") : QStringLiteral("cEst");
        Label1->setText(QStringLiteral("Aggiunge alla tabella una Copia di tutte le righe  ") + c +
                        QStringLiteral(" (from)\nAdd to table a copy of all rows   ") + c +
                        QStringLiteral(" (from)"));
        Label3->setText(QStringLiteral("sostituendovi   ") + c +
                        QStringLiteral(" (nuova Copia)\nwith your new    ") + c +
                        QStringLiteral(" (new Copy)"));
        Frame10->setTitle(c + QStringLiteral(" (nuova Copia)"));
        Frame3->setEnabled(fusi);
        Frame4->setEnabled(!fusi);
    };
    testi(true);
    connect(Option3, &QRadioButton::clicked, this, [this, testi] {
        testi(true);
        Esegui("Option3_Click", [this] { m_->Option3_Click(); });
    });
    connect(Option4, &QRadioButton::clicked, this, [this, testi] {
        testi(false);
        Esegui("Option4_Click", [this] { m_->Option4_Click(); });
    });
    connect(Command3, &QPushButton::clicked, this, [this] {
        Esegui("Command3", [this] { m_->Command3_Click(); }, {2, 3});
    });
    return p;
}

QWidget* frmDbEdit::TabZone() {
    auto* p = new QWidget;
    using F = void (ModelloDbEdit::*)();
    F nulla = nullptr;
    auto* Text44 = CASELLA(p, Text44, nulla);
    auto* Text45 = CASELLA(p, Text45, nulla);
    auto* Text46 = CASELLA(p, Text46, nulla);
    auto* Text39 = CASELLA(p, Text39, nulla);
    auto* Text40 = CASELLA(p, Text40, nulla);
    auto* Text41 = CASELLA(p, Text41, nulla);
    auto* Text42 = CASELLA(p, Text42, nulla);
    auto* Text43 = CASELLA(p, Text43, nulla);
    auto* Text37 = CASELLA(p, Text37, nulla);
    auto* Text38 = CASELLA(p, Text38, nulla);
    Text38->setReadOnly(true);
    Text38->setFont(Monospazio());
    auto* List1 = Nome(new QListWidget(p), "List1");
    List1->setFont(Monospazio());
    legami_.push_back({List1, nullptr, &CampiDbEdit::List1});
    auto* Command5 = Pulsante(p, "Command5", "Aggiungo al DB");
    Command5->setToolTip(
        QStringLiteral("( Nuova riga Tabella FusiEstiveUniti ) ( Add new time zone )"));
    auto* Command6 = Pulsante(p, "Command6", " &Zoom Cod     ( cFusi = cEst >10000)");
    DBGrid5 = Griglia(p, "DBGrid5");
    DBGrid6 = Griglia(p, "DBGrid6");
    for (auto* t : {Text39, Text40, Text42, Text43})
        t->setMaximumWidth(50);
    auto* g = new QGridLayout(p);
    int r = 0;
    g->addWidget(Etichetta(p, "TTN"), r, 0);
    g->addWidget(Text44, r, 1);
    g->addWidget(Etichetta(p, "ExtraCod"), r, 2);
    g->addWidget(Text45, r, 3);
    g->addWidget(Etichetta(p, "ZZo"), r, 4);
    g->addWidget(Text46, r++, 5);
    g->addWidget(Etichetta(p, "Day Mese   Anno   h : m"), r, 0);
    {
        auto* h = new QHBoxLayout;
        for (auto* t : {Text39, Text40, Text41, Text42, Text43})
            h->addWidget(t);
        h->addStretch(1);
        h->addWidget(Command5);
        g->addLayout(h, r++, 1, 1, 5);
    }
    g->addWidget(Etichetta(p, " (cFusi > 10000)  =  (cEst > 10000)"), r++, 0, 1, 6);
    g->addWidget(Etichetta(p, "Cod"), r, 0);
    g->addWidget(Text37, r, 1);
    g->addWidget(Command6, r++, 2, 1, 4);
    g->addWidget(Text38, r++, 0, 1, 6);
    g->addWidget(List1, r++, 0, 1, 6);
    g->addWidget(Etichetta(p, "ZoneOrarie (PlusMin = - PlusMin)"), r, 0, 1, 3);
    g->addWidget(Etichetta(p, "Codici TTN"), r++, 3, 1, 3);
    g->addWidget(DBGrid5, r, 0, 1, 3);
    g->addWidget(DBGrid6, r++, 3, 1, 3);
    g->setRowStretch(r - 1, 1);
    g->setRowStretch(r - 3, 1);
    connect(Command5, &QPushButton::clicked, this,
            [this] { Esegui("Command5", [this] { m_->Command5_Click(); }, {5}); });
    connect(Command6, &QPushButton::clicked, this,
            [this] { Esegui("Command6", [this] { m_->Command6_Click(); }); });
    return p;
}

#undef CASELLA

// --- load and the round trip between controls and model ---

bool frmDbEdit::Form_Load() {
    try {
        db_.Apri(fileDB_);
        m_ = std::make_unique<ModelloDbEdit>(db_, messaggi_, fileDB_);
    } catch (const std::exception& e) {
        messaggi_.Mostra("Vesmo - Errore [frmDbEdit.Form_Load]", e.what(), Pulsanti::Ok,
                         Icona::Critico);
        m_.reset();
        db_.Chiudi();
        return false;
    }
    m_->Avanzamento = [this] {
        findChild<QLineEdit*>("Text24")->setText(QS(m_->campi.Text24));
        QApplication::processEvents();
    };
    const QStringList colonne[6] = {
        {"cCity", "City", "Lon", "Lat", "cFusi", "cEst"},
        {"Nazione", "cNaz", "Spec"},
        {"cFusi", "Day", "Mese", "Anno", "fH_h", "fH_m"},
        {"cEst", "Day", "Mese", "Anno", "h", "min", "HE_h", "HE_m"},
        {"ZZonenNummer", "ZZonenCode", "ZZonenText", "ZUnterschied", "plusmin"},
        {"TTN", "TTV", "wdata", "ZZo"}};
    QTableView* viste[6] = {DBGrid1, DBGrid2, DBGrid3, DBGrid4, DBGrid5, DBGrid6};
    Cursore* cursori[6] = {&m_->Data1, &m_->Data2, &m_->Data3, &m_->Data4, &m_->Data6, &m_->Data7};
    for (int k = 0; k < 6; ++k) {
        griglie_[k] = new ModelloGriglia(colonne[k], this);
        griglie_[k]->CaricaSuRichiesta(*cursori[k], db_);
        griglie_[k]->Errore = [this](const std::exception& e) {
            messaggi_.Mostra("Vesmo - Errore [frmDbEdit.DBGrid]", e.what(), Pulsanti::Ok,
                             Icona::Critico);
        };
        viste[k]->setModel(griglie_[k]);
    }
    AControlli();
    return true;
}

void frmDbEdit::DaControlli() {
    CampiDbEdit& c = m_->campi;
    for (const Legame& l : legami_) {
        if (l.testo) {
            c.*l.testo = SS(static_cast<QLineEdit*>(l.w)->text());
        } else if (l.indice) {
            c.*l.indice = static_cast<QComboBox*>(l.w)->currentIndex();
        } else if (l.spunta) {
            c.*l.spunta = static_cast<QAbstractButton*>(l.w)->isChecked();
        } else if (l.lista) {
            if (auto* cb = qobject_cast<QComboBox*>(l.w))
                (c.*l.lista).indice = cb->currentIndex();
            else
                (c.*l.lista).indice = static_cast<QListWidget*>(l.w)->currentRow();
        }
    }
    c.Option1 = findChild<QRadioButton*>("Option1")->isChecked();
    c.Option3 = findChild<QRadioButton*>("Option3")->isChecked();
}

void frmDbEdit::AControlli() {
    if (!m_) return;
    CampiDbEdit& c = m_->campi;
    for (const Legame& l : legami_) {
        QSignalBlocker blocco(l.w);
        if (l.testo) {
            auto* t = static_cast<QLineEdit*>(l.w);
            if (t->text() != QS(c.*l.testo)) t->setText(QS(c.*l.testo));
        } else if (l.indice) {
            static_cast<QComboBox*>(l.w)->setCurrentIndex(c.*l.indice);
        } else if (l.spunta) {
            static_cast<QAbstractButton*>(l.w)->setChecked(c.*l.spunta);
        } else if (l.lista) {
            const ListaTesti& lt = c.*l.lista;
            QStringList voci;
            for (const auto& v : lt.voci)
                voci << QS(v);
            if (auto* cb = qobject_cast<QComboBox*>(l.w)) {
                cb->clear();
                cb->addItems(voci);
                cb->setCurrentIndex(lt.indice);
            } else {
                auto* lw = static_cast<QListWidget*>(l.w);
                lw->clear();
                lw->addItems(voci);
                lw->setCurrentRow(lt.indice);
            }
        }
    }
    if (!c.Option5) findChild<QRadioButton*>("Option6")->setChecked(true);
    auto vedi = [this](std::initializer_list<const char*> nomi, bool v) {
        for (const char* n : nomi)
            if (auto* w = findChild<QWidget*>(n)) w->setVisible(v);
    };
    vedi({"Text1", "Combo6", "Combo7", "cmdZoomF", "cmdZoomE", "lstZoom", "cmbMaxMin", "Label22"},
         c.ZoomVisibili);
    findChild<QLabel*>("Label22")->setText(
        QS(c.TestaZoom.empty() ? "City                          cFusi  cEst" : c.TestaZoom));
    vedi({"Combo8", "Combo9"}, c.ListeVisibili);
    vedi({"Option5", "Option6"}, c.OpzioniVisibili);
    vedi({"Label4", "Label6", "Text6", "Text7"}, c.OraVisibile);
    vedi({"Combo5"}, !c.OraVisibile);
    findChild<QLabel*>("Label2")->setText(QS(c.Label2));
    findChild<QGroupBox*>("Frame32")->setTitle(QS(c.Frame32));
    findChild<QGroupBox*>("Frame35")->setTitle(QS(c.Frame35));
    findChild<QGroupBox*>("Frame47")->setTitle(QS(c.Frame47));
    findChild<QGroupBox*>("Frame3")->setTitle(QS(c.Frame3));
    findChild<QGroupBox*>("Frame4")->setTitle(QS(c.Frame4));
    Seleziona(DBGrid1, griglie_[0], m_->Data1);
    Seleziona(DBGrid2, griglie_[1], m_->Data2);
    Seleziona(DBGrid3, griglie_[2], m_->Data3);
    Seleziona(DBGrid4, griglie_[3], m_->Data4);
    Seleziona(DBGrid6, griglie_[5], m_->Data7);
}

void frmDbEdit::Seleziona(QTableView* v, ModelloGriglia* g, Cursore& c) {
    if (!g || c.BOF() || c.Eof()) return;
    int riga = -1;
    try {
        riga = g->RigaDi(c.Bookmark());
    } catch (const ErroreDB&) {
        return;
    }
    if (riga < 0) return;
    aggiornando_ = true;
    const QModelIndex i = g->index(riga, 0);
    v->selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
    v->scrollTo(i);
    aggiornando_ = false;
}

void frmDbEdit::Esegui(const char* routine, const std::function<void()>& azione,
                       const std::vector<int>& daRicaricare) {
    if (!m_) return;
    DaControlli();
    Clessidra clessidra(messaggi_);
    try {
        azione();
    } catch (const std::exception& e) {
        clessidra.Spegni();
        messaggi_.Mostra(std::string("Vesmo - Errore [frmDbEdit.") + routine + "]", e.what(),
                         Pulsanti::Ok, Icona::Critico);
    }
    Cursore* cursori[6] = {&m_->Data1, &m_->Data2, &m_->Data3, &m_->Data4, &m_->Data6, &m_->Data7};
    for (int k : daRicaricare)
        griglie_[k]->CaricaSuRichiesta(*cursori[k], db_);
    clessidra.Spegni();
    AControlli();
}

void frmDbEdit::Command1_Click() {
    const bool acceso = Command1->text() == QString::fromUtf8(DidascaliaOff);
    Command1->setText(QString::fromUtf8(acceso ? DidascaliaOn : DidascaliaOff));
    Cursore* cursori[5] = {&m_->Data1, &m_->Data2, &m_->Data3, &m_->Data4, &m_->Data6};
    QTableView* viste[5] = {DBGrid1, DBGrid2, DBGrid3, DBGrid4, DBGrid5};
    for (int k = 0; k < 5; ++k) {
        if (m_) griglie_[k]->Modificabile(cursori[k], acceso);
        viste[k]->setEditTriggers(acceso ? QAbstractItemView::DoubleClicked |
                                               QAbstractItemView::EditKeyPressed |
                                               QAbstractItemView::AnyKeyPressed
                                         : QAbstractItemView::NoEditTriggers);
    }
}

void frmDbEdit::Combo2_Click() {
    const int i = findChild<QComboBox*>("Combo2")->currentIndex();
    for (const char* n : {"Text9", "Text10", "Text11"})
        findChild<QLineEdit*>(n)->setVisible(i <= 1);
    findChild<QLineEdit*>("Text12")->setVisible(i >= 2);
}

void frmDbEdit::Combo4_Click() {
    const int i = findChild<QComboBox*>("Combo4")->currentIndex();
    for (const char* n : {"Text13", "Text14", "Text15"})
        findChild<QLineEdit*>(n)->setVisible(i == 0);
    findChild<QLineEdit*>("Text16")->setVisible(i == 1);
}

} // namespace vesmo
