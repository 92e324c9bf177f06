#include "presentation/ui/frmStampe.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include "chart/ui/frmSelAspetti.h"
#include "core/Testo.h"
#include "core/qt/Schermo.h"
#include "core/ui/Controlli.h"

namespace vesmo {

namespace {

// The entries of "&Che Stampa", by slot.
const std::pair<const char*, const char*> VociChe[4] = {{"mnuFileStampeCheTN", "&Tema Natale"},
                                                        {"mnuFileStampeCheT", "Tra&nstito"},
                                                        {"mnuFileStampeCheR", "&Rivoluzione"},
                                                        {"mnuFileStampeCheD", "Dire&zione"}};

QString QS(const std::string& s) {
    return QString::fromStdString(s);
}
std::string SS(const QString& s) {
    return s.toStdString();
}

} // namespace

frmCheStampe::frmCheStampe(QWidget* genitore) : QDialog(genitore) {
    setObjectName("frmCheStampe");
    setWindowTitle(QStringLiteral("Lyx - Che Stampa"));
    setModal(true);
    auto* l = new QVBoxLayout(this);
    const char* nomi[4] = {"cmdTN", "cmdT", "cmdR", "cmdD"};
    const char* testi[4] = {"&Tema Natale", "Tra&nsito", "&Rivoluzione", "Dire&zione"};
    QPushButton** pulsanti[4] = {&cmdTN, &cmdT, &cmdR, &cmdD};
    for (int i = 0; i < 4; ++i) {
        auto* b = new QPushButton(QString::fromUtf8(testi[i]), this);
        b->setObjectName(nomi[i]);
        b->setAutoDefault(false);
        b->setDefault(i == 0);
        l->addWidget(b);
        *pulsanti[i] = b;
        connect(b, &QPushButton::clicked, this, [this, i] {
            CheStampa = i + 1;
            accept();
        });
    }
}

WidgetPagina::WidgetPagina(QWidget* genitore) : QWidget(genitore) {
    setObjectName("pagina");
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WidgetPagina::Mostra(const Rettangolo& area, DisegnoPagina disegno) {
    area_ = area;
    disegno_ = std::move(disegno);
    update();
}

void WidgetPagina::Pulisci() {
    disegno_ = nullptr;
    update();
}

void WidgetPagina::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    if (disegno_) DisegnaSuPittore(p, QRectF(rect()), area_, disegno_);
}

frmStampe::frmStampe(Sessione& sessione, Messaggi& messaggi, QWidget* genitore)
    : QMainWindow(genitore), s_(sessione), messaggi_(messaggi) {
    setObjectName("frmStampe");
    setWindowFlag(Qt::Window);
    setWindowTitle(QStringLiteral("Lyx - Stampe"));
    CartellaTemp = QDir::tempPath();
    DialoghiPredefiniti();
    CreaPagina();
    CreaMenu();
    Collega();
    resize(DimensioneVoluta(this, {640, 940}));
}

void frmStampe::DialoghiPredefiniti() {
    ScegliStampante = [this](QPrinter& stampante) {
        QPrintDialog d(&stampante, this);
        return d.exec() == QDialog::Accepted;
    };
    ScegliFilePdf = [this] {
        // The chart's name as the file's, in the user's home.
        QString nome = QS(SenzaSpazi(tema_.Nome.str()));
        if (nome.isEmpty()) nome = QStringLiteral("Vesmo");
        return QFileDialog::getSaveFileName(this, QStringLiteral("Lyx - Salva PDF"),
                                            QDir::home().filePath(nome + QStringLiteral(".pdf")),
                                            QStringLiteral("PDF (*.pdf)"));
    };
    ScegliSlot = [this] {
        frmCheStampe f(this);
        f.exec();
        return f.CheStampa;
    };
}

void frmStampe::CreaPagina() {
    auto* centro = new QWidget(this);
    auto* l = new QVBoxLayout(centro);
    l->setContentsMargins(4, 4, 4, 4);
    lbInCorso = Etichetta(centro, "Disegno in corso ...", "lbInCorso");
    lbInCorso->hide();
    pagina = new WidgetPagina(centro);
    l->addWidget(lbInCorso);
    l->addWidget(pagina, 1);
    setCentralWidget(centro);
}

void frmStampe::CreaMenu() {
    QMenu* opzioni = menuBar()->addMenu(QStringLiteral("&Opzioni"));
    mnuFileStampeOpzioni = Nome(opzioni->menuAction(), "mnuFileStampeOpzioni");
    QMenu* che = opzioni->addMenu(QStringLiteral("&Che Stampa"));
    Nome(che->menuAction(), "mnuFileStampeChe");
    for (std::size_t i = 0; i < 4; ++i) {
        mnuFileStampeChe[i] = Voce(che, VociChe[i].first, VociChe[i].second);
        mnuFileStampeChe[i]->setCheckable(true);
    }
    mnuFileStampeSelAspetti =
        Voce(opzioni, "mnuFileStampeSelAspetti", "&Selezione Aspetti e Orbita");
    mnuFileStampeDisegna = Voce(opzioni, "mnuFileStampeDisegna", "&Disegna / Cancella Aspetti");
    QMenu* colori = opzioni->addMenu(QStringLiteral("Sta&mpa Colori / BN"));
    Nome(colori->menuAction(), "mnuFileStampeColBN");
    mnuFileStampeColBN_Col = Voce(colori, "mnuFileStampeColBN_Col", "C&olori");
    mnuFileStampeColBN_BN = Voce(colori, "mnuFileStampeColBN_BN", "&Bianco e Nero");
    mnuFileStampeColBN_BN->setCheckable(true);
    opzioni->addSeparator();
    mnuFuleStampeStampo = Voce(opzioni, "mnuFuleStampeStampo", "Stam&po ...");
    mnuFileStampeBmp = Voce(opzioni, "mnuFileStampeBmp", "Prepara 2 file *.bmp");
    mnuFileStampePdf = Voce(opzioni, "mnuFileStampePdf", "Salva PDF...");
    opzioni->addSeparator();
    nmuFileStampEsci = Voce(opzioni, "nmuFileStampEsci", "&Esci");
}

void frmStampe::Collega() {
    for (int i = 0; i < 4; ++i)
        connect(mnuFileStampeChe[static_cast<std::size_t>(i)], &QAction::triggered, this,
                [this, i] { Componi(i + 1); });
    connect(mnuFileStampeSelAspetti, &QAction::triggered, this,
            &frmStampe::mnuFileStampeSelAspetti_Click);
    connect(mnuFileStampeDisegna, &QAction::triggered, this,
            &frmStampe::mnuFileStampeDisegna_Click);
    connect(mnuFileStampeColBN_Col, &QAction::triggered, this,
            &frmStampe::mnuFileStampeColBN_Col_Click);
    // Black and white is the only mode: the mark stays.
    connect(mnuFileStampeColBN_BN, &QAction::triggered, this,
            [this] { mnuFileStampeColBN_BN->setChecked(true); });
    connect(mnuFuleStampeStampo, &QAction::triggered, this, &frmStampe::mnuFuleStampeStampo_Click);
    connect(mnuFileStampeBmp, &QAction::triggered, this, &frmStampe::mnuFileStampeBmp_Click);
    connect(mnuFileStampePdf, &QAction::triggered, this, &frmStampe::mnuFileStampePdf_Click);
    connect(nmuFileStampEsci, &QAction::triggered, this, &QWidget::close);
}

frmStampe::~frmStampe() = default;

OpzioniPagina frmStampe::Opzioni(bool sulModulo) const {
    OpzioniPagina o;
    o.CheStampa = CheStampa;
    o.DataStampa = Oggi ? Oggi() : std::string();
    o.DisegnaAspetti = s_.Ruote.DisegnaAspetti != 0;
    o.Aspetti = s_.Aspetti;
    o.LunaGeo = s_.LunaGeo;
    o.LunaNeraVera = s_.LunaNeraVera;
    o.SpessoreGlifi = SpessoreGlifi;
    o.SulModulo = sulModulo;
    return o;
}

void frmStampe::Form_Load() {
    SpessoreGlifi = 2;
    show();
    mnuFileStampeColBN_BN->setChecked(true);
    CheStampa = ScegliSlot ? ScegliSlot() : 0;
    if (CheStampa < 1 || CheStampa > 4) {
        CheStampa = 0;
        close();
        throw ErroreModulo(364, "Oggetto scaricato");
    }
    mnuFileStampeChe[static_cast<std::size_t>(CheStampa - 1)]->trigger();
}

void frmStampe::Componi(int che) {
    if (che < 1 || che > 4) return;
    CheStampa = che;
    for (int i = 0; i < 4; ++i)
        mnuFileStampeChe[static_cast<std::size_t>(i)]->setChecked(i + 1 == che);
    s_.TemaX = s_.TemaDelSlot(SlotScelto());
    s_.PosX = s_.PosDelSlot(SlotScelto());

    // The form is cleared and an earlier page that was not sent is dropped.
    pagina->Pulisci();
    inAttesa_ = false;
    lbInCorso->show();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);

    tema_ = s_.TemaX;
    pos_ = s_.PosX;
    opzioni_ = Opzioni(false);
    OpzioniPagina sulModulo = Opzioni(true);
    Tema t = tema_;
    Posizioni p = pos_;
    pagina->Mostra(AreaPagina(),
                   [t, p, sulModulo](Superficie& sup) { ComponiPagina(sup, t, p, sulModulo); });
    inAttesa_ = true;
    lbInCorso->hide();
}

void frmStampe::AggiornAspetti() {
    Componi(CheStampa);
}

void frmStampe::mnuFileStampeSelAspetti_Click() {
    s_.TemaY = s_.TemaX;
    s_.PosY = s_.PosX;
    if (Selezione) Selezione->close();
    Selezione = new frmSelAspetti(s_, messaggi_, this);
    Selezione->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<frmStampe> io(this);
    Selezione->AggiornaStampe = [io] {
        if (io) io->AggiornAspetti();
    };
    if (RegistraSecondaria) RegistraSecondaria(Selezione);
    Selezione->show();
    s_.Ruote.SelezioneDaStampe = -1;
}

void frmStampe::mnuFileStampeDisegna_Click() {
    s_.Ruote.DisegnaAspetti = s_.Ruote.DisegnaAspetti ? 0 : -1;
    Componi(CheStampa);
}

void frmStampe::mnuFileStampeColBN_Col_Click() {
    messaggi_.Mostra("Lyx - Stampa a Colori", "INATTIVA", Pulsanti::Ok, Icona::Informazione);
}

void frmStampe::mnuFuleStampeStampo_Click() {
    if (CheStampa == 0) return;
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    stampante.setFullPage(true);
    stampante.setDocName(QS("Vesmo - " + SenzaSpaziDestra(tema_.Nome.str())));
    if (!ScegliStampante || !ScegliStampante(stampante)) return;
    QPainter pittore;
    if (!pittore.begin(&stampante)) {
        ErroreDiEsecuzione("mnuFuleStampeStampo", "Stampante non disponibile");
        return;
    }
    Tema t = tema_;
    Posizioni p = pos_;
    OpzioniPagina o = opzioni_;
    QRectF foglio = stampante.paperRect(QPrinter::DevicePixel);
    DisegnaSuPittore(pittore, QRectF(0, 0, foglio.width(), foglio.height()), AreaPagina(),
                     [&](Superficie& sup) { ComponiPagina(sup, t, p, o); });
    pittore.end();
    inAttesa_ = false;
}

void frmStampe::mnuFileStampePdf_Click() {
    if (CheStampa == 0 || !ScegliFilePdf) return;
    QString file = ScegliFilePdf();
    if (file.isEmpty()) return;
    if (!file.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) file += QStringLiteral(".pdf");
    Tema t = tema_;
    Posizioni p = pos_;
    OpzioniPagina o = opzioni_;
    std::string errore =
        SalvaPaginaPdf(SS(file), [&](Superficie& sup) { ComponiPagina(sup, t, p, o); });
    if (!errore.empty()) ErroreDiEsecuzione("mnuFileStampePdf", errore);
}

void frmStampe::mnuFileStampeBmp_Click() {
    if (CheStampa == 0) return;
    QString cartella = QDir::cleanPath(CartellaTemp);
    if (!cartella.endsWith('/')) cartella += '/';
    const std::string c = SS(cartella);
    const std::string testo = "L' immagine della pagina stampata viene divisa in due parti \n"
                              "e salvata in due file in formato bitmap. \n" +
                              c + "(InputUtente)_1.bmp   " + c +
                              "(InputUtente)_2.bmp \n"
                              "Digitare un valido (InputUtente). Solo caratteri alfanumerici. \n"
                              "Correggere quelli errati di default. ";
    auto risposta = messaggi_.Chiedi("Lyx - Salva in 2 file per invio in Internet", testo,
                                     SenzaSpaziDestra(s_.TemaDelSlot(SlotScelto()).Nome.str()));
    if (!risposta) return;
    const std::string nome = SenzaSpazi(*risposta);
    const std::string primo = c + nome + "_1.bmp", secondo = c + nome + "_2.bmp";

    // The slot of the checked entry, under the name typed.
    s_.TemaX = s_.TemaDelSlot(SlotScelto());
    s_.PosX = s_.PosDelSlot(SlotScelto());
    s_.TemaX.Nome = nome;
    const Tema t = s_.TemaX;
    const Posizioni p = s_.PosX;
    const OpzioniPagina o = Opzioni(true);

    // The wheel, the header and the box on the form, and into the first file.
    DisegnoPagina alta = [t, p, o](Superficie& sup) { DisegnaParteAlta(sup, t, p, o); };
    pagina->Mostra(AreaParteAlta(), alta);
    std::string errore =
        SalvaAreaImmagine(primo, "BMP", AreaParteAlta(), TwipsPerPixelBitmap, alta);
    if (!errore.empty()) {
        ErroreDiEsecuzione("mnuFileStampeBmp", errore);
        return;
    }
    messaggi_.Mostra("Lyx - info servizio", "Primo file salvato", Pulsanti::Ok,
                     Icona::Informazione);

    // The table block from the corner, with the footer, into the second.
    DisegnoPagina bassa = [t, p, o](Superficie& sup) { DisegnaParteBassa(sup, t, p, o, 0, 0); };
    pagina->Mostra(AreaParteBassa(), bassa);
    errore = SalvaAreaImmagine(secondo, "BMP", AreaParteBassa(), TwipsPerPixelBitmap, bassa);
    if (!errore.empty()) {
        ErroreDiEsecuzione("mnuFileStampeBmp", errore);
        return;
    }
    messaggi_.Mostra(
        "Lyx - info servizio",
        "Salvataggio dell' immagine della pagina stampata effuttuato. \nFile: " + primo + "   " +
            secondo + "\nPrima dell'invio in Internet, uscire da Lyx, recuperare i file ",
        Pulsanti::Ok, Icona::Informazione);
    pagina->Pulisci();
}

void frmStampe::ErroreDiEsecuzione(const std::string& routine, const std::string& testo) {
    messaggi_.Mostra("Lyx - Errore", testo + "\n\n(frmStampe." + routine + ")", Pulsanti::Ok,
                     Icona::Critico);
}

void frmStampe::closeEvent(QCloseEvent* e) {
    // A page that was not sent is lost with the form.
    inAttesa_ = false;
    e->accept();
}

} // namespace vesmo
