#include "calculators/ui/Calcolatrici.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"
#include "ephemeris/DeltaT.h"
#include "ephemeris/TestoDatiTema.h"

namespace vesmo {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}
std::string S(const QString& s) {
    return s.toStdString();
}

// The calculators' buttons: Enter presses only the one made the default.
QPushButton* PulsanteNonPredefinito(QWidget* padre, const char* nome, const char* testo) {
    auto* b = Pulsante(padre, nome, testo);
    b->setAutoDefault(false);
    return b;
}

// A box whose text is not a number counts as 0 and shows "0".
double NumeroORiscritto(QLineEdit* e) {
    std::optional<double> v = NumeroDiCasella(S(e->text()));
    if (!v) {
        e->setText(QStringLiteral("0"));
        return 0;
    }
    return *v;
}

void Prepara(QDialog* d, const char* nome, const char* titolo) {
    d->setObjectName(nome);
    d->setWindowTitle(QString::fromUtf8(titolo));
}

} // namespace

// ---- frmElaJD ----

frmElaJD::frmElaJD(Sessione& sessione, Messaggi& messaggi, QWidget* genitore)
    : QDialog(genitore), s_(sessione), messaggi_(messaggi) {
    Prepara(this, "frmElaJD", "Lyx - Elaborazioni di Giorni Giuliani (JD)");
    Nuovo = s_.TemaVuoto;

    auto* griglia = new QGridLayout(this);
    griglia->addWidget(CreaData(), 0, 0);
    griglia->addLayout(CreaCarica(), 0, 1);
    griglia->addWidget(CreaSomme(), 1, 0, 1, 2);
    Collega();

    // The form opens on the natal chart.
    CaricaTema(s_.TemaNat);
}

QGroupBox* frmElaJD::CreaData() {
    auto* data = Riquadro(this, "FrameData", "[Data di  (JD)]");
    Text1 = Casella(data, "Text1", 40);
    Text2 = Casella(data, "Text2", 40);
    Text3 = Casella(data, "Text3", 60);
    Text4 = Casella(data, "Text4", 40);
    Text5 = Casella(data, "Text5", 40);
    Text11 = Casella(data, "Text11", 50);
    const QString orologio = QStringLiteral("Tempo Locale - quello segnato dall'orologio");
    for (QLineEdit* e : {Text4, Text5, Text11})
        e->setToolTip(orologio);
    List1 = Lista(data, "List1", {"0", "1", "2"});
    List1->setToolTip(QStringLiteral("anche detta ORA LEGALE"));
    Text6 = Casella(data, "Text6", 50);
    Text6->setToolTip(
        QStringLiteral("99  per eliminare il fuso sostituendolo con la Longitudine. "));
    List2 = Lista(data, "List2", {" EST ", " OVEST"});
    Text7 = Casella(data, "Text7", 160);
    Command12 = PulsanteNonPredefinito(data, "Command12", "&Aggiorna  (JD) ");
    Command13 = PulsanteNonPredefinito(data, "Command13", "A&ggiorna [Data di  (JD)]");
    auto* gd = new QGridLayout(data);
    gd->addWidget(Etichetta(data, "GG / MM / Anno"), 0, 0);
    auto* riga = new QHBoxLayout;
    for (QLineEdit* e : {Text1, Text2, Text3})
        riga->addWidget(e);
    gd->addLayout(riga, 0, 1);
    gd->addWidget(Etichetta(data, "Ora   Min  Sec"), 1, 0);
    riga = new QHBoxLayout;
    for (QLineEdit* e : {Text4, Text5, Text11})
        riga->addWidget(e);
    gd->addLayout(riga, 1, 1);
    gd->addWidget(Etichetta(data, "ora Estiva"), 2, 0);
    gd->addWidget(List1, 2, 1, Qt::AlignLeft);
    gd->addWidget(Etichetta(data, "  Fuso  Orario"), 3, 0);
    riga = new QHBoxLayout;
    riga->addWidget(Text6);
    riga->addWidget(List2);
    riga->addStretch(1);
    gd->addLayout(riga, 3, 1);
    gd->addWidget(Etichetta(data, "Fusi da Greenwich. 99 antecedenti  cfr. Aiuto Fusi"), 4, 0, 1,
                  2);
    gd->addWidget(Etichetta(data, "            (JD)"), 5, 0);
    gd->addWidget(Text7, 5, 1);
    riga = new QHBoxLayout;
    riga->addWidget(Command12);
    riga->addWidget(Command13);
    gd->addLayout(riga, 6, 0, 1, 2);
    return data;
}

QVBoxLayout* frmElaJD::CreaCarica() {
    Command1 = PulsanteNonPredefinito(this, "Command1", "Tema &Natale");
    Command2 = PulsanteNonPredefinito(this, "Command2", "&Transito");
    Command3 = PulsanteNonPredefinito(this, "Command3", "&Rivoluzione");
    Command4 = PulsanteNonPredefinito(this, "Command4", "&Direzione");
    Command9 = PulsanteNonPredefinito(this, "Command9", "N&uovo - vuoto");
    Command15 = PulsanteNonPredefinito(this, "Command15", "&Memorizza (JD) su Nuovo");
    Command11 = PulsanteNonPredefinito(this, "Command11", "Es&ci");
    auto* carica = new QVBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3, Command4, Command9, Command15})
        carica->addWidget(b);
    carica->addStretch(1);
    carica->addWidget(Command11);
    return carica;
}

QGroupBox* frmElaJD::CreaSomme() {
    auto* somme = Riquadro(this, "FrameSomme", "Somme Algebriche");
    Text8 = Casella(somme, "Text8", 30);
    Text9 = Casella(somme, "Text9", 160);
    Text10 = Casella(somme, "Text10", 160);
    Text10->setReadOnly(true);
    Text10->setText(QStringLiteral("0"));
    Command5 = PulsanteNonPredefinito(somme, "Command5", "T&ema Natale");
    Command6 = PulsanteNonPredefinito(somme, "Command6", "Tran&sito");
    Command7 = PulsanteNonPredefinito(somme, "Command7", "R&ivoluzione");
    Command8 = PulsanteNonPredefinito(somme, "Command8", "Dire&zione");
    Command10 = PulsanteNonPredefinito(somme, "Command10", "Nuo&vo");
    Label10 = Etichetta(somme, "", "Label10");
    Label11 = Etichetta(somme, "", "Label11");
    auto* gs = new QGridLayout(somme);
    gs->addWidget(Text8, 0, 0);
    gs->addWidget(Text9, 0, 1);
    auto* riga = new QHBoxLayout;
    for (QPushButton* b : {Command5, Command6, Command7, Command8, Command10}) {
        b->setEnabled(false);
        riga->addWidget(b);
    }
    gs->addLayout(riga, 1, 0, 1, 3);
    gs->addWidget(Etichetta(somme, "JD  Risultato"), 2, 0);
    gs->addWidget(Text10, 2, 1);
    gs->addWidget(Etichetta(somme, "   il                             alle         Estiva          "
                                   "Fuso"),
                  3, 0, 1, 3);
    riga = new QHBoxLayout;
    riga->addWidget(Label10);
    riga->addSpacing(20);
    riga->addWidget(Label11);
    riga->addStretch(1);
    gs->addLayout(riga, 4, 0, 1, 3);
    return somme;
}

void frmElaJD::Collega() {
    connect(Command12, &QPushButton::clicked, this, &frmElaJD::Command12_Click);
    connect(Command13, &QPushButton::clicked, this, &frmElaJD::Command13_Click);
    connect(Command1, &QPushButton::clicked, this, [this] { CaricaTema(s_.TemaNat); });
    connect(Command2, &QPushButton::clicked, this, [this] { CaricaTema(s_.TemaTra); });
    connect(Command3, &QPushButton::clicked, this, [this] { CaricaTema(s_.TemaRiv); });
    connect(Command4, &QPushButton::clicked, this, [this] { CaricaTema(s_.TemaDir); });
    connect(Command9, &QPushButton::clicked, this, [this] { CaricaTema(Nuovo); });
    connect(Command15, &QPushButton::clicked, this, &frmElaJD::Command15_Click);
    connect(Command11, &QPushButton::clicked, this, &QDialog::close);
    connect(Text8, &QLineEdit::textChanged, this, [this](const QString& t) {
        const bool segno = t.trimmed() == "+" || t.trimmed() == "-";
        for (QPushButton* b : {Command5, Command6, Command7, Command8, Command10})
            b->setEnabled(segno);
        Somma();
    });
    auto operando = [this](const Tema& t) { Text9->setText(Q(TestoNumero(t.JD()))); };
    connect(Command5, &QPushButton::clicked, this, [this, operando] { operando(s_.TemaNat); });
    connect(Command6, &QPushButton::clicked, this, [this, operando] { operando(s_.TemaTra); });
    connect(Command7, &QPushButton::clicked, this, [this, operando] { operando(s_.TemaRiv); });
    connect(Command8, &QPushButton::clicked, this, [this, operando] { operando(s_.TemaDir); });
    connect(Command10, &QPushButton::clicked, this, [this, operando] { operando(Nuovo); });
    connect(Text9, &QLineEdit::textChanged, this, &frmElaJD::Somma);
}

CorniceJD frmElaJD::Cornice() const {
    CorniceJD c;
    c.Giorno = S(Text1->text());
    c.Mese = S(Text2->text());
    c.Anno = S(Text3->text());
    c.Ore = S(Text4->text());
    c.Minuti = S(Text5->text());
    c.Secondi = S(Text11->text());
    c.Estiva = List1->currentIndex() < 0 ? 0 : List1->currentIndex();
    c.Fuso = S(Text6->text());
    c.Est = List2->currentIndex() == 0;
    c.JD = S(Text7->text());
    return c;
}

void frmElaJD::MostraCornice(const CorniceJD& c) {
    Text1->setText(Q(c.Giorno));
    Text2->setText(Q(c.Mese));
    Text3->setText(Q(c.Anno));
    Text4->setText(Q(c.Ore));
    Text5->setText(Q(c.Minuti));
    Text11->setText(Q(c.Secondi));
    List1->setCurrentIndex(std::clamp(c.Estiva, 0, 2));
    Text6->setText(Q(c.Fuso));
    List2->setCurrentIndex(c.Est ? 0 : 1);
    Text7->setText(Q(c.JD));
}

void frmElaJD::ErroreDiTipo(const char* routine, const ErroreTipo& e) {
    messaggi_.Mostra(std::string("Lyx - frmElaJD.") + routine, e.what(), Pulsanti::Ok,
                     Icona::Critico);
}

void frmElaJD::Command12_Click() {
    try {
        const CorniceJD c = Cornice();
        s_.TemaX.Estiva = c.Estiva;
        s_.TemaX.Fuso = FusoDellaCornice(c, s_.TemaX.Lon);
        Text7->setText(Q(TestoNumero(JDDellaCornice(c, s_.TemaX.Lon))));
    } catch (const ErroreTipo& e) {
        ErroreDiTipo("Command12_Click", e);
    }
}

void frmElaJD::Command13_Click() {
    try {
        CorniceJD c = Cornice();
        CorniceDaJD(c, s_.TemaX.Lon);
        MostraCornice(c);
    } catch (const ErroreTipo& e) {
        ErroreDiTipo("Command13_Click", e);
    }
}

void frmElaJD::CaricaTema(const Tema& t) {
    s_.TemaX = t;
    MostraCornice(CorniceDelTema(t));
}

void frmElaJD::Command15_Click() {
    try {
        Nuovo = NuovoDallaCornice(Cornice(), s_.TemaX);
    } catch (const ErroreTipo& e) {
        ErroreDiTipo("Command15_Click", e);
    }
}

void frmElaJD::Somma() {
    std::optional<double> r;
    try {
        r = SommaJD(S(Text7->text()), S(Text8->text()), S(Text9->text()));
    } catch (const ErroreTipo&) {
        // A box still being typed: the result waits for a number.
    }
    if (!r) {
        Text10->setText(QStringLiteral("0"));
        Label10->clear();
        Label11->clear();
        return;
    }
    Text10->setText(Q(TestoNumero(*r)));
    s_.TemaY = TemaAlJD(s_.TemaX, *r);
    std::string t1, t2, t3, t4;
    TestoDatiTema(s_.TemaY, t1, t2, t3, t4);
    Label10->setText(Q(t1));
    Label11->setText(Q(t4));
}

// ---- frmTE_TU_Lyx ----

frmTE_TU_Lyx::frmTE_TU_Lyx(QWidget* genitore) : QDialog(genitore) {
    Prepara(this, "frmTE_TU_Lyx", "Lyx - Tempo delle Effemeridi, Tempo Universale");
    Text3 = Casella(this, "Text3", 40);
    Text4 = Casella(this, "Text4", 40);
    Text5 = Casella(this, "Text5", 60);
    CommandOK = PulsanteNonPredefinito(this, "CommandOK", " &Ok  >>");
    CommandOK->setDefault(true);
    Command2 = PulsanteNonPredefinito(this, "Command2", "&Esci");
    Label1 = Etichetta(this, "", "Label1");
    lbAiuto = Etichetta(this, "", "lbAiuto");
    lbAiuto->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lbAiuto->setText(Q(AiutoDeltaT()));
    auto* v = new QVBoxLayout(this);
    v->addWidget(lbAiuto);
    auto* riga = new QHBoxLayout;
    riga->addWidget(Etichetta(this, "   Day   Mese   Anno"));
    for (QLineEdit* e : {Text3, Text4, Text5})
        riga->addWidget(e);
    riga->addWidget(CommandOK);
    riga->addStretch(1);
    v->addLayout(riga);
    v->addWidget(Etichetta(this, "TE = TU + DeltaT"));
    v->addWidget(Etichetta(this, "TU = TE - DeltaT"));
    v->addWidget(Label1);
    v->addWidget(Command2, 0, Qt::AlignRight);
    connect(CommandOK, &QPushButton::clicked, this, &frmTE_TU_Lyx::CommandOK_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::close);
}

void frmTE_TU_Lyx::CommandOK_Click() {
    const double giorno = NumeroORiscritto(Text3);
    const double mese = NumeroORiscritto(Text4);
    const double anno = NumeroORiscritto(Text5);
    Label1->setText(Q(TestoDeltaT(DeltaT(anno, anno, mese, giorno))));
}

// ---- frmEqT_Lyx ----

frmEqT_Lyx::frmEqT_Lyx(QWidget* genitore) : QDialog(genitore) {
    Prepara(this, "frmEqT_Lyx", "Lyx - Equazione del Tempo");
    QGroupBox* frame = Riquadro(this, "Frame1", "Data del Calcolo (TU)");
    Text3 = Casella(frame, "Text3", 40);
    Text4 = Casella(frame, "Text4", 40);
    Text5 = Casella(frame, "Text5", 60);
    Text6 = Casella(frame, "Text6", 40);
    Text7 = Casella(frame, "Text7", 40);
    for (QLineEdit* e : {Text6, Text7})
        e->setToolTip(QStringLiteral("Tempo Locale - quello dell'orologio "));
    auto* g = new QGridLayout(frame);
    g->addWidget(Etichetta(frame, "   Day   Mese   Anno"), 0, 0);
    auto* riga = new QHBoxLayout;
    for (QLineEdit* e : {Text3, Text4, Text5})
        riga->addWidget(e);
    g->addLayout(riga, 0, 1);
    g->addWidget(Etichetta(frame, "Ora  Min"), 1, 0);
    riga = new QHBoxLayout;
    for (QLineEdit* e : {Text6, Text7})
        riga->addWidget(e);
    riga->addStretch(1);
    g->addLayout(riga, 1, 1);
    CommandOK = PulsanteNonPredefinito(this, "CommandOK", " &Ok  >>");
    CommandOK->setDefault(true);
    Command2 = PulsanteNonPredefinito(this, "Command2", "&Esci");
    Label1 = Etichetta(this, "Eqt = ", "Label1");
    auto* v = new QVBoxLayout(this);
    v->addWidget(frame);
    v->addWidget(CommandOK, 0, Qt::AlignLeft);
    v->addWidget(Label1);
    v->addWidget(Etichetta(this, "Opzione Formati Numerici per trasformare i Radianti"));
    v->addWidget(Command2, 0, Qt::AlignRight);
    connect(CommandOK, &QPushButton::clicked, this, &frmEqT_Lyx::CommandOK_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::close);
}

void frmEqT_Lyx::CommandOK_Click() {
    const double giorno = NumeroORiscritto(Text3);
    const double mese = NumeroORiscritto(Text4);
    const double anno = NumeroORiscritto(Text5);
    const double ore = NumeroORiscritto(Text6);
    const double minuti = NumeroORiscritto(Text7);
    const double jd = GiornoGiuliano(anno, mese, giorno) + GradiDecimali(ore, minuti, 0) / 24;
    Label1->setText(Q(TestoEqT(EquazioneDelTempo(jd))));
}

// ---- frmEclEqu_Lyx ----

frmEclEqu_Lyx::frmEclEqu_Lyx(Messaggi& messaggi, QWidget* genitore)
    : QDialog(genitore), messaggi_(messaggi) {
    Prepara(this, "frmEclEqu_Lyx", "Lyx -  Eclittiche <---> Equatoriali");
    QGroupBox* data = RiquadroData();
    QGroupBox* ecl = RiquadroEclittiche();
    QGroupBox* equ = RiquadroEquatoriali();
    cmdEsci = PulsanteNonPredefinito(this, "cmdEsci", "&Esci");
    auto* v = new QVBoxLayout(this);
    v->addWidget(data);
    v->addWidget(ecl);
    v->addWidget(equ);
    v->addWidget(cmdEsci, 0, Qt::AlignRight);
    connect(cmdCal_Equ, &QPushButton::clicked, this, &frmEclEqu_Lyx::cmdCal_Equ_Click);
    connect(cmdCal_Ecl, &QPushButton::clicked, this, &frmEclEqu_Lyx::cmdCal_Ecl_Click);
    connect(cmdEsci, &QPushButton::clicked, this, &QDialog::close);
}

QGroupBox* frmEclEqu_Lyx::RiquadroData() {
    QGroupBox* data = Riquadro(this, "Frame3", "Data per il Calcolo");
    txDay = Casella(data, "txDay", 40);
    txMese = Casella(data, "txMese", 40);
    txYear = Casella(data, "txYear", 60);
    txH = Casella(data, "txH", 40);
    txMn = Casella(data, "txMn", 40);
    for (QLineEdit* e : {txH, txMn})
        e->setToolTip(QStringLiteral("Tempo Locale - quello dell'orologio"));
    auto* gd = new QGridLayout(data);
    gd->addWidget(Etichetta(data, " Day   Mese   Anno"), 0, 0);
    auto* riga = new QHBoxLayout;
    for (QLineEdit* e : {txDay, txMese, txYear})
        riga->addWidget(e);
    gd->addLayout(riga, 0, 1);
    gd->addWidget(Etichetta(data, "Ora  Min"), 1, 0);
    riga = new QHBoxLayout;
    for (QLineEdit* e : {txH, txMn})
        riga->addWidget(e);
    riga->addStretch(1);
    gd->addLayout(riga, 1, 1);
    return data;
}

QGroupBox* frmEclEqu_Lyx::RiquadroEclittiche() {
    QGroupBox* ecl = Riquadro(this, "Frame1", "Eclittiche ---> Equatoriali ");
    cbSegni = Lista(ecl, "cbSegni");
    for (const char* s : SegniCalcolatrice)
        cbSegni->addItem(QString::fromUtf8(s));
    cbSegni->setCurrentIndex(0);
    txLon_Gradi = Casella(ecl, "txLon_Gradi", 50);
    txLon_Primi = Casella(ecl, "txLon_Primi", 50);
    txLon_Sec = Casella(ecl, "txLon_Sec", 60);
    txLat_Gradi = Casella(ecl, "txLat_Gradi", 50);
    txLat_Primi = Casella(ecl, "txLat_Primi", 50);
    cmdCal_Equ = PulsanteNonPredefinito(ecl, "cmdCal_Equ", "---> Eq&uatoriali");
    auto* ge = new QGridLayout(ecl);
    ge->addWidget(Etichetta(ecl,
                            "Longitudine                            Gradi     Primi    Secondi",
                            "lbLon_txt"),
                  0, 0, 1, 4);
    ge->addWidget(cbSegni, 1, 0);
    ge->addWidget(txLon_Gradi, 1, 1);
    ge->addWidget(txLon_Primi, 1, 2);
    ge->addWidget(txLon_Sec, 1, 3);
    ge->addWidget(Etichetta(ecl, "     Latitudine               Gradi      Primi ", "lbLat_txt"), 2,
                  0, 1, 4);
    ge->addWidget(txLat_Gradi, 3, 1);
    ge->addWidget(txLat_Primi, 3, 2);
    ge->addWidget(cmdCal_Equ, 4, 0, 1, 4, Qt::AlignRight);
    return ecl;
}

QGroupBox* frmEclEqu_Lyx::RiquadroEquatoriali() {
    QGroupBox* equ = Riquadro(this, "Frame2", "Equatoriali ---> Eclittiche ");
    txAR_h = Casella(equ, "txAR_h", 50);
    txAR_m = Casella(equ, "txAR_m", 50);
    txAR_s = Casella(equ, "txAR_s", 60);
    txDec_Gradi = Casella(equ, "txDec_Gradi", 50);
    txDec_Primi = Casella(equ, "txDec_Primi", 50);
    cmdCal_Ecl = PulsanteNonPredefinito(equ, "cmdCal_Ecl", "---> E&clittiche");
    auto* gq = new QGridLayout(equ);
    gq->addWidget(
        Etichetta(equ, "Ascensione Retta  AR            Ore       Minuti  Secondi", "lbAR"), 0, 0,
        1, 4);
    gq->addWidget(txAR_h, 1, 1);
    gq->addWidget(txAR_m, 1, 2);
    gq->addWidget(txAR_s, 1, 3);
    gq->addWidget(Etichetta(equ, "      Declinazione          Gradi      Primi ", "lbDec"), 2, 0, 1,
                  4);
    gq->addWidget(txDec_Gradi, 3, 1);
    gq->addWidget(txDec_Primi, 3, 2);
    gq->addWidget(cmdCal_Ecl, 4, 0, 1, 4, Qt::AlignRight);
    return equ;
}

std::optional<double> frmEclEqu_Lyx::JDDelFrame() {
    auto vuota = [](QLineEdit* e) { return e->text().trimmed().isEmpty(); };
    if (vuota(txDay) || vuota(txMese) || vuota(txYear)) {
        messaggi_.Mostra("cmdCal_Equ_Click", "Necessaria Data!", Pulsanti::Ok, Icona::Informazione);
        return std::nullopt;
    }
    if (vuota(txH)) {
        messaggi_.Mostra("cmdCal_Equ_Click", "Necessaria Ora!", Pulsanti::Ok, Icona::Informazione);
        return std::nullopt;
    }
    return JDDelCalcolo(NumeroOErrore(S(txDay->text())), NumeroOErrore(S(txMese->text())),
                        NumeroOErrore(S(txYear->text())), NumeroOErrore(S(txH->text())),
                        NumeroOErrore(S(txMn->text())));
}

void frmEclEqu_Lyx::cmdCal_Equ_Click() {
    try {
        std::optional<double> jd = JDDelFrame();
        if (!jd) return;
        Eclittiche e;
        e.Segno = std::max(0, cbSegni->currentIndex());
        e.Lon_Gradi = NumeroOErrore(S(txLon_Gradi->text()));
        e.Lon_Primi = NumeroOErrore(S(txLon_Primi->text()));
        e.Lon_Sec = NumeroOErrore(S(txLon_Sec->text()));
        e.Lat_Gradi = NumeroOErrore(S(txLat_Gradi->text()));
        e.Lat_Primi = NumeroOErrore(S(txLat_Primi->text()));
        const Equatoriali q = EclitticheAEquatoriali(*jd, e);
        txAR_h->setText(Q(TestoNumero(q.AR_h)));
        txAR_m->setText(Q(TestoNumero(q.AR_m)));
        txAR_s->setText(Q(FormatoNumero(q.AR_s, "#0.0#")));
        txDec_Gradi->setText(Q(TestoNumero(q.Dec_Gradi)));
        txDec_Primi->setText(Q(TestoNumero(q.Dec_Primi)));
    } catch (const ErroreTipo& e) {
        messaggi_.Mostra("Lyx - frmEclEqu_Lyx.cmdCal_Equ_Click", e.what(), Pulsanti::Ok,
                         Icona::Critico);
    }
}

void frmEclEqu_Lyx::cmdCal_Ecl_Click() {
    try {
        std::optional<double> jd = JDDelFrame();
        if (!jd) return;
        Equatoriali q;
        q.AR_h = NumeroOErrore(S(txAR_h->text()));
        q.AR_m = NumeroOErrore(S(txAR_m->text()));
        q.AR_s = NumeroOErrore(S(txAR_s->text()));
        q.Dec_Gradi = NumeroOErrore(S(txDec_Gradi->text()));
        q.Dec_Primi = NumeroOErrore(S(txDec_Primi->text()));
        const Eclittiche e = EquatorialiAEclittiche(*jd, q);
        cbSegni->setCurrentIndex(e.Segno);
        txLon_Gradi->setText(Q(TestoNumero(e.Lon_Gradi)));
        txLon_Primi->setText(Q(TestoNumero(e.Lon_Primi)));
        txLon_Sec->setText(Q(FormatoNumero(e.Lon_Sec, "#0.0#")));
        txLat_Gradi->setText(Q(TestoNumero(e.Lat_Gradi)));
        txLat_Primi->setText(Q(TestoNumero(e.Lat_Primi)));
    } catch (const ErroreTipo& e) {
        messaggi_.Mostra("Lyx - frmEclEqu_Lyx.cmdCal_Ecl_Click", e.what(), Pulsanti::Ok,
                         Icona::Critico);
    }
}

// ---- frmFormatiNum ----

frmFormatiNum::frmFormatiNum(QWidget* genitore) : QDialog(genitore) {
    Prepara(this, "frmFormatiNum", "Lyx - Formati Numerici Coordinate");
    static const char* const nomi[9] = {"Text1", "Text2", "Text3", "Text4", "Text5",
                                        "Text6", "Text7", "Text8", "Text9"};
    struct Gruppo {
        const char* nome;
        const char* titolo;
        int primo, quanti;
    };
    static const Gruppo gruppi[5] = {{"Frame1", "Gradi Sessagesimali", 0, 3},
                                     {"Frame2", "Ore Sessagesimali", 3, 3},
                                     {"Frame3", "Gradi Decimali", 6, 1},
                                     {"Frame4", "Ore Decimali", 7, 1},
                                     {"Frame5", "Radianti", 8, 1}};
    auto* v = new QVBoxLayout(this);
    for (const Gruppo& g : gruppi) {
        QGroupBox* f = Riquadro(this, g.nome, g.titolo);
        auto* riga = new QHBoxLayout(f);
        for (int i = g.primo; i < g.primo + g.quanti; ++i) {
            QLineEdit* e = Casella(f, nomi[i], g.quanti == 3 ? 70 : 200);
            Testi[static_cast<std::size_t>(i)] = e;
            riga->addWidget(e);
            connect(e, &QLineEdit::textChanged, this, [this, i](const QString& t) {
                if (Stato.Riscrivi) return;
                Stato.Testo[static_cast<std::size_t>(i)] = S(t);
                Stato.Cambia(i);
            });
        }
        riga->addStretch(1);
        v->addWidget(f);
    }
    CommandOK = PulsanteNonPredefinito(this, "CommandOK", "&OK");
    CommandOK->setDefault(true);
    Command2 = PulsanteNonPredefinito(this, "Command2", "&Esci");
    auto* riga = new QHBoxLayout;
    riga->addWidget(CommandOK);
    riga->addStretch(1);
    riga->addWidget(Command2);
    v->addLayout(riga);
    connect(CommandOK, &QPushButton::clicked, this, &frmFormatiNum::CommandOK_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::close);
}

void frmFormatiNum::CommandOK_Click() {
    for (std::size_t i = 0; i < 9; ++i)
        Stato.Testo[i] = S(Testi[i]->text());
    Stato.CommandOK();
    // The boxes are written with the switch on, so that they do not count as typed.
    Stato.Riscrivi = true;
    for (std::size_t i = 0; i < 9; ++i)
        if (Testi[i]->text() != Q(Stato.Testo[i])) Testi[i]->setText(Q(Stato.Testo[i]));
    Stato.Riscrivi = false;
}

// ---- frmColoriRuota, frmLunaImg ----

frmColoriRuota::frmColoriRuota(StatoRuote& stato, QWidget* genitore)
    : QDialog(genitore), stato_(stato) {
    Prepara(this, "frmColoriRuota", "Lyx - Colori della Ruota.");
    Label1 = Etichetta(
        this,
        "La Ruota Zodiacale viene disegnata supponendo un' impostazione\r\n"
        " dello schermo di 800 x 600 pixel e 16,8 milioni di colori (Default 24 bit).\r\n"
        "\r\n"
        "Disegno con 256 colori: Click sul pulsante apposito di questo form.\r\n"
        "\r\n"
        "Scegliere 256 colori se lo schermo non supporta i 24 bit.\r\n"
        "\r\n"
        "Per cambiare l' impostazione di colori dello schermo:\r\n"
        "uscire da Lyx e da Vesmo, fare click con il pulsante destro del mouse sul dektop,\r\n"
        "scegliere Proprietà e poi  Impostazioni.\r\n"
        "Una volta settate le Impostazioni fare click su Applica e riavviare il computer.\r\n"
        "\r\n"
        "Invio tramite Internet: \r\n"
        "Click su File, Stampa, cheStampa, Prepara 2 immagini *.bmp\r\n"
        "Dopo che le immagini sono state salvate in formato bitmap, comprimerle in file .zip,\r\n"
        "prima di inviarle. Nel formato .zip occupano circa 30 Kb.",
        "Label1");
    Frame1 = Riquadro(this, "Frame1", "Ruota per Video ");
    Command2 = PulsanteNonPredefinito(Frame1, "Command2", "16,8 Milioni di Colori");
    Command2->setDefault(true);
    Command1 = PulsanteNonPredefinito(Frame1, "Command1", "256 Colori");
    auto* riga = new QHBoxLayout(Frame1);
    riga->addWidget(Command2);
    riga->addWidget(Command1);
    auto* v = new QVBoxLayout(this);
    v->addWidget(Label1);
    v->addWidget(Frame1);
    connect(Command2, &QPushButton::clicked, this, [this] {
        stato_.ColoriRidotti = 0;
        close();
    });
    connect(Command1, &QPushButton::clicked, this, [this] {
        stato_.ColoriRidotti = 1;
        close();
    });
}

frmLunaImg::frmLunaImg(QWidget* genitore) : QDialog(genitore) {
    Prepara(this, "frmLunaImg", "Lyx - Deposito Immagine Luna");
    Picture1 = Etichetta(this, "", "Picture1");
    auto* v = new QVBoxLayout(this);
    v->addWidget(Picture1);
}

// ---- the menu's entries ----

FinestreCalcolatrici::FinestreCalcolatrici(QWidget* menu) : QObject(menu), menu_(menu) {
    setObjectName("FinestreCalcolatrici");
}

QDialog* FinestreCalcolatrici::Mostra(Calcolatrice quale, Sessione& sessione, Messaggi& messaggi) {
    QPointer<QDialog>& f = aperte_[quale];
    if (!f) {
        f = Crea(quale, sessione, messaggi);
        f->setAttribute(Qt::WA_DeleteOnClose);
        f->setWindowIcon(menu_->windowIcon());
    }
    f->show();
    f->raise();
    f->activateWindow();
    return f;
}

QDialog* FinestreCalcolatrici::Crea(Calcolatrice quale, Sessione& sessione, Messaggi& messaggi) {
    switch (quale) {
    case Calcolatrice::EclEqu:
        return new frmEclEqu_Lyx(messaggi, menu_);
    case Calcolatrice::EqT:
        return new frmEqT_Lyx(menu_);
    case Calcolatrice::JD:
        return new frmElaJD(sessione, messaggi, menu_);
    case Calcolatrice::Formati:
        return new frmFormatiNum(menu_);
    case Calcolatrice::TETU:
        break;
    }
    return new frmTE_TU_Lyx(menu_);
}

QDialog* MostraCalcolatrice(Calcolatrice quale, Sessione& sessione, Messaggi& messaggi,
                            QWidget* menu) {
    auto* finestre = menu->findChild<FinestreCalcolatrici*>(QString(), Qt::FindDirectChildrenOnly);
    if (!finestre) finestre = new FinestreCalcolatrici(menu);
    return finestre->Mostra(quale, sessione, messaggi);
}

void MostraColoriRuota(StatoRuote& stato, QWidget* menu) {
    frmColoriRuota f(stato, menu);
    if (menu != nullptr) f.setWindowIcon(menu->windowIcon());
    f.exec();
}

} // namespace vesmo
