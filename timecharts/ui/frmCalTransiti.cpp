#include "timecharts/ui/frmCalTransiti.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <cmath>
#include <cstdio>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "presentation/PaginaStampa.h"
#include "presentation/qt/StampaPagina.h"
#include "timecharts/Istanti.h"
#include "timecharts/OrologioLuogo.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo {

const std::array<const char*, 15> PuntiCalTransiti{
    "Sole",    "Luna",    "Mercurio", "Venere",      "Marte",      "Giove", "Saturno", "Urano",
    "Nettuno", "Plutone", "NodoLuna", "LilithMedia", "LilithVera", "Asce",  "MC"};

namespace {

const char* const DidascaliePunti[15] = {"Sole",        "Luna",       "Mercurio",  "Venere",
                                         "Marte",       "Giove",      "Saturno",   "Urano",
                                         "Nettuno",     "Plutone",    "Nodo Luna", "Lilith Media",
                                         "Lilith Vera", "Ascendente", "MC"};
const char* const DidascalieCorpi[NumeroCorpiTransito] = {
    "Sole",    "Luna",  "Mercurio", "Venere",  "Marte",    "Giove",
    "Saturno", "Urano", "Nettuno",  "Plutone", "Nodo Luna"};

constexpr double AnniMassimi = 200;

std::string Taglia(const std::string& s) {
    const auto a = s.find_first_not_of(' ');
    if (a == std::string::npos) return "";
    return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

// GG/MM/AAAA, a day that exists, years 1 to 9999: the Julian day of its 0h.
bool LeggiData(const QString& testo, double& jd) {
    const QStringList parti = testo.trimmed().split('/');
    if (parti.size() != 3) return false;
    bool ok1, ok2, ok3;
    const int g = parti[0].toInt(&ok1), m = parti[1].toInt(&ok2), a = parti[2].toInt(&ok3);
    if (!ok1 || !ok2 || !ok3 || a < 1 || a > 9999 || m < 1 || m > 12 || g < 1 || g > 31)
        return false;
    jd = GiornoGiuliano(a, m, g);
    float anno, mese, giorno;
    DataDaGiuliano(jd + 0.25, anno, mese, giorno);
    return static_cast<int>(anno) == a && static_cast<int>(mese) == m &&
           static_cast<int>(giorno) == g;
}

std::string Orbita(double o) {
    char s[32];
    std::snprintf(s, sizeof s, "%.2f", o);
    std::string t = s;
    for (char& c : t)
        if (c == '.') c = ',';
    return t;
}

} // namespace

frmCalTransiti::frmCalTransiti(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                               QWidget* genitore)
    : QWidget(genitore), s_(sessione), fileDB_(fileDB), messaggi_(messaggi) {
    setObjectName("frmCalTransiti");
    setWindowFlag(Qt::Window);
    setWindowTitle(QString::fromUtf8(DidascaliaCalTransiti));
    Oggi = DataOdierna;
    DialoghiPredefiniti();

    auto* l = new QVBoxLayout(this);
    CreaPeriodo(l);
    CreaScelte(l);
    CreaPulsanti(l);
    CreaTabella(l);
    Collega();
    Mostra();
    resize(900, 640);
}

void frmCalTransiti::DialoghiPredefiniti() {
    ScegliStampante = [this](QPrinter& stampante) {
        QPrintDialog d(&stampante, this);
        return d.exec() == QDialog::Accepted;
    };
    auto nomeFile = [this](const QString& estensione) {
        QString nome = QS(SenzaSpazi(s_.TemaNat.Nome.str()));
        if (nome.isEmpty()) nome = QStringLiteral("Vesmo");
        return QDir::home().filePath(nome + QStringLiteral("_transiti.") + estensione);
    };
    ScegliFilePdf = [this, nomeFile] {
        return QFileDialog::getSaveFileName(this, QStringLiteral("Lyx - Salva PDF"),
                                            nomeFile(QStringLiteral("pdf")),
                                            QStringLiteral("PDF (*.pdf)"));
    };
    ScegliFileTesto = [this, nomeFile] {
        return QFileDialog::getSaveFileName(this, QStringLiteral("Lyx - Salva Testo / CSV"),
                                            nomeFile(QStringLiteral("csv")),
                                            QStringLiteral("CSV (*.csv);;Testo (*.txt)"));
    };
}

void frmCalTransiti::CreaPeriodo(QVBoxLayout* l) {
    lblTema = Etichetta(this, "", "lblTema");
    lblLuogo = Etichetta(this, "", "lblLuogo");
    l->addWidget(lblTema);
    l->addWidget(lblLuogo);

    // The period and the orb.
    auto* riga = new QHBoxLayout;
    const int anno = QDate::currentDate().year();
    txtDa = Casella(this, "txtDa", 110);
    txtDa->setText(QStringLiteral("01/01/%1").arg(anno));
    txtA = Casella(this, "txtA", 110);
    txtA->setText(QStringLiteral("31/12/%1").arg(anno));
    txtOrbita = Casella(this, "txtOrbita", 60, "Separatore decimale:  virgola");
    txtOrbita->setText(QS(Orbita(s_.Aspetti.Orbita)));
    riga->addWidget(Etichetta(this, "Dal"));
    riga->addWidget(txtDa);
    riga->addWidget(Etichetta(this, "al"));
    riga->addWidget(txtA);
    riga->addSpacing(20);
    riga->addWidget(Etichetta(this, "Orbita"));
    riga->addWidget(txtOrbita);
    riga->addStretch(1);
    l->addLayout(riga);
}

void frmCalTransiti::CreaScelte(QVBoxLayout* l) {
    // The transiting bodies and the natal points.
    auto* scelte = new QHBoxLayout;
    auto* grpPianeti = Riquadro(this, "grpPianeti", "Pianeti in transito");
    auto* gp = new QGridLayout(grpPianeti);
    const auto predefiniti = CorpiTransitoPredefiniti();
    for (int c = 0; c < NumeroCorpiTransito; ++c) {
        auto* k =
            Spunta(grpPianeti, ("chkPianeta" + std::to_string(c)).c_str(), DidascalieCorpi[c]);
        k->setChecked(std::find(predefiniti.begin(), predefiniti.end(), c) != predefiniti.end());
        gp->addWidget(k, c % 6, c / 6);
        chkPianeta[static_cast<std::size_t>(c)] = k;
    }
    auto* grpPunti = Riquadro(this, "grpPunti", "Punti natali");
    auto* gq = new QGridLayout(grpPunti);
    const char* luneNere[2] = {"LilithMedia", "LilithVera"};
    for (std::size_t p = 0; p < PuntiCalTransiti.size(); ++p) {
        const std::string nome = PuntiCalTransiti[p];
        auto* k = Spunta(grpPunti, ("chkPunto" + nome).c_str(), DidascaliePunti[p]);
        // The 14 points of the wheel: one Black Moon, the session's.
        const bool lunaNera = nome == luneNere[0] || nome == luneNere[1];
        k->setChecked(!lunaNera || nome == luneNere[s_.LunaNeraVera == 0 ? 0 : 1]);
        gq->addWidget(k, static_cast<int>(p % 5), static_cast<int>(p / 5));
        chkPunto[p] = k;
    }
    scelte->addWidget(grpPianeti);
    scelte->addWidget(grpPunti, 1);
    l->addLayout(scelte);

    lblAspetti = Etichetta(this, "", "lblAspetti");
    lblAspetti->setWordWrap(true);
    l->addWidget(lblAspetti);
}

void frmCalTransiti::CreaPulsanti(QVBoxLayout* l) {
    cmdCerca = Pulsante(this, "cmdCerca", "&Cerca");
    cmdFerma = Pulsante(this, "cmdFerma", "&Ferma");
    cmdStampa = Pulsante(this, "cmdStampa", "Stam&pa ...");
    cmdPdf = Pulsante(this, "cmdPdf", "Salva P&DF ...");
    cmdTesto = Pulsante(this, "cmdTesto", "Salva &Testo / CSV ...");
    cmdEsci = Pulsante(this, "cmdEsci", "&Esci");
    cmdFerma->setEnabled(false);
    auto* pulsanti = new QHBoxLayout;
    for (QPushButton* b : {cmdCerca, cmdFerma, cmdStampa, cmdPdf, cmdTesto})
        pulsanti->addWidget(b);
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdEsci);
    l->addLayout(pulsanti);

    barAvanzamento = Nome(new QProgressBar(this), "barAvanzamento");
    barAvanzamento->setRange(0, 1000);
    barAvanzamento->setValue(0);
    barAvanzamento->setTextVisible(false);
    barAvanzamento->setMaximumHeight(10);
    l->addWidget(barAvanzamento);
}

void frmCalTransiti::CreaTabella(QVBoxLayout* l) {
    grdTransiti = Nome(new QTableWidget(0, static_cast<int>(TesteColonneTransiti.size()), this),
                       "grdTransiti");
    QStringList teste;
    for (const std::string& t : TesteColonneTransiti)
        teste << QS(t);
    grdTransiti->setHorizontalHeaderLabels(teste);
    grdTransiti->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdTransiti->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdTransiti->setSelectionMode(QAbstractItemView::SingleSelection);
    grdTransiti->verticalHeader()->setDefaultSectionSize(20);
    grdTransiti->horizontalHeader()->setStretchLastSection(true);
    grdTransiti->setToolTip(QStringLiteral("Doppio clic: il momento nello slot Transito"));
    l->addWidget(grdTransiti, 1);

    lblEsito = Etichetta(this, "", "lblEsito");
    l->addWidget(lblEsito);
}

void frmCalTransiti::Collega() {
    connect(cmdCerca, &QPushButton::clicked, this, &frmCalTransiti::cmdCerca_Click);
    connect(cmdFerma, &QPushButton::clicked, this, &frmCalTransiti::cmdFerma_Click);
    connect(cmdStampa, &QPushButton::clicked, this, &frmCalTransiti::cmdStampa_Click);
    connect(cmdPdf, &QPushButton::clicked, this, &frmCalTransiti::cmdPdf_Click);
    connect(cmdTesto, &QPushButton::clicked, this, &frmCalTransiti::cmdTesto_Click);
    connect(cmdEsci, &QPushButton::clicked, this, &QWidget::close);
    connect(grdTransiti, &QTableWidget::cellDoubleClicked, this,
            [this](int r, int) { grdTransiti_DblClick(r); });
}

const Tema& frmCalTransiti::TemaDelLuogo() const {
    return s_.TransitoCalcolato ? s_.TemaTra : s_.TemaNat;
}

// The chart, the place and the aspects as they stand now, and the buttons for the list.
void frmCalTransiti::Mostra() {
    lblTema->setText(QStringLiteral("Tema natale:  ") +
                     QS(SenzaSpaziDestra(s_.TemaNat.Nome.str())));
    lblLuogo->setText(QStringLiteral("Ora locale di  ") +
                      QS(SenzaSpaziDestra(TemaDelLuogo().City.str())));
    std::string nomi;
    for (int k = 0; k < NumeroAspetti; ++k)
        if (s_.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)])
            nomi += (nomi.empty() ? "" : ", ") + Taglia(NomiAspetti[static_cast<std::size_t>(k)]);
    lblAspetti->setText(QStringLiteral("Aspetti attivi:  ") +
                        (nomi.empty() ? QStringLiteral("nessuno") : QS(nomi)));
    const bool lista = !righe_.empty() && !inRicerca_;
    cmdStampa->setEnabled(lista);
    cmdPdf->setEnabled(lista);
    cmdTesto->setEnabled(lista);
}

bool frmCalTransiti::Errore(const std::string& testo) {
    messaggi_.Mostra(DidascaliaCalTransiti, testo, Pulsanti::Ok, Icona::Esclamativo);
    return false;
}

void frmCalTransiti::cmdCerca_Click() {
    if (inRicerca_) return;
    Mostra();
    double giornoDa = 0, giornoA = 0;
    if (!LeggiData(txtDa->text(), giornoDa))
        return void(Errore("Data iniziale non valida: " + txtDa->text().toStdString() +
                           "\r\n(GG/MM/AAAA)"));
    if (!LeggiData(txtA->text(), giornoA))
        return void(
            Errore("Data finale non valida: " + txtA->text().toStdString() + "\r\n(GG/MM/AAAA)"));
    if (giornoA < giornoDa) return void(Errore("La data finale viene prima di quella iniziale."));
    if (giornoA - giornoDa > AnniMassimi * 365.25)
        return void(Errore("Periodo di oltre 200 anni: dividere la ricerca."));
    const auto orbita = NumeroConVirgola(txtOrbita->text().toStdString());
    if (!orbita || *orbita < 0 || *orbita > 30)
        return void(Errore("Orbita non valida: " + txtOrbita->text().toStdString() +
                           "\r\n(da 0 a 30 gradi, con la virgola)"));
    RichiestaTransiti r;
    for (int c = 0; c < NumeroCorpiTransito; ++c)
        if (chkPianeta[static_cast<std::size_t>(c)]->isChecked()) r.corpi.push_back(c);
    for (std::size_t p = 0; p < PuntiCalTransiti.size(); ++p) {
        PuntoNatale punto;
        if (chkPunto[p]->isChecked() && PuntoDelTema(s_.PosNat, PuntiCalTransiti[p], punto))
            r.punti.push_back(punto);
    }
    for (int k = 0; k < NumeroAspetti; ++k)
        if (s_.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)]) r.aspetti.push_back(k);
    if (r.corpi.empty()) return void(Errore("Scegliere almeno un pianeta in transito."));
    if (r.punti.empty()) return void(Errore("Scegliere almeno un punto natale."));
    if (r.aspetti.empty())
        return void(Errore("Nessun aspetto attivo: sceglierli in Selezione Aspetti e Orbita."));
    r.orbita = *orbita;
    // The Moon as the Transito slot will cast it: from its place when topocentric.
    r.lunaGeo = s_.LunaGeo;
    r.lonLuogo = TemaDelLuogo().Lon;
    r.latLuogo = TemaDelLuogo().Lat;

    inRicerca_ = true;
    fermato_ = false;
    cmdCerca->setEnabled(false);
    cmdFerma->setEnabled(true);
    righe_.clear();
    grdTransiti->setRowCount(0);
    lblEsito->setText(QStringLiteral("Ricerca in corso ..."));
    Mostra();
    Clessidra clessidra(messaggi_);

    OrologioLuogo orologio(fileDB_, TemaDelLuogo());
    // From the midnight that opens the first day to the one that closes the last, by the clock
    // of each.
    const MomentoLocale inizio = orologio.Locale(giornoDa);
    const MomentoLocale fine = orologio.Locale(giornoA + 1);
    r.jdDa = giornoDa + (inizio.fuso - inizio.estiva) / 24;
    r.jdA = giornoA + 1 + (fine.fuso - fine.estiva) / 24;
    QPointer<frmCalTransiti> io(this);
    const auto transiti = CercaTransiti(r, [this, io](double quota) {
        barAvanzamento->setValue(static_cast<int>(quota * 1000));
        QCoreApplication::processEvents();
        return io && !fermato_;
    });
    clessidra.Spegni();
    if (!io) return;
    richiesta_ = r;
    righe_ = RigheTransiti(transiti, r, orologio);
    periodo_ = MomentoConFuso(giornoDa, 0, 0).Data() + " - " + MomentoConFuso(giornoA, 0, 0).Data();
    inRicerca_ = false;

    grdTransiti->setRowCount(static_cast<int>(righe_.size()));
    for (std::size_t i = 0; i < righe_.size(); ++i) {
        const auto celle = CelleTransito(righe_[i]);
        for (std::size_t c = 0; c < celle.size(); ++c)
            grdTransiti->setItem(static_cast<int>(i), static_cast<int>(c),
                                 new QTableWidgetItem(QS(celle[c])));
    }
    grdTransiti->resizeColumnsToContents();
    barAvanzamento->setValue(fermato_ ? barAvanzamento->value() : 1000);
    lblEsito->setText(
        (fermato_ ? QStringLiteral("Ricerca interrotta.  ") : QString()) +
        QStringLiteral("Transiti trovati: %1").arg(righe_.size()) +
        (orologio.DalDatabase()
             ? QString()
             : QStringLiteral("   (ora locale con il fuso e l'ora estiva del tema)")));
    cmdCerca->setEnabled(true);
    cmdFerma->setEnabled(false);
    Mostra();
    if (chiudiDopo_) close();
}

void frmCalTransiti::cmdFerma_Click() {
    fermato_ = true;
}

DatiPaginaTransiti frmCalTransiti::DatiPagina() const {
    DatiPaginaTransiti d;
    d.tema = s_.TemaNat;
    d.dataStampa = Oggi ? Oggi() : std::string();
    auto elenco = [](const std::vector<std::string>& v) {
        std::string t;
        for (const auto& x : v)
            t += (t.empty() ? "" : ", ") + x;
        return t;
    };
    std::vector<std::string> corpi, punti, aspetti;
    for (int c : richiesta_.corpi)
        corpi.push_back(NomiCorpiTransito[static_cast<std::size_t>(c)]);
    for (const auto& p : richiesta_.punti)
        punti.push_back(p.nome);
    for (int k : richiesta_.aspetti)
        aspetti.push_back(Taglia(NomiAspetti[static_cast<std::size_t>(k)]));
    d.descrizione = {
        "Periodo  " + periodo_,
        "Pianeti  " + elenco(corpi),
        "Punti  " + elenco(std::vector<std::string>(
                        punti.begin(), punti.begin() + std::min<std::size_t>(punti.size(), 7))),
        punti.size() > 7 ? "    " + elenco(std::vector<std::string>(punti.begin() + 7, punti.end()))
                         : std::string(),
        "Aspetti  " + elenco(aspetti),
        "Orbita  " + Orbita(richiesta_.orbita) + "°",
        "Ora locale di  " + SenzaSpaziDestra(TemaDelLuogo().City.str()),
        "Transiti trovati: " + std::to_string(righe_.size())};
    return d;
}

void frmCalTransiti::Disegna(QPrinter& stampante) {
    QPainter pittore;
    if (!pittore.begin(&stampante)) {
        Errore("Stampante non disponibile.");
        return;
    }
    const DatiPaginaTransiti dati = DatiPagina();
    const QRectF foglio = stampante.paperRect(QPrinter::DevicePixel);
    const int pagine = PagineTransiti(righe_.size());
    for (int p = 0; p < pagine; ++p) {
        if (p > 0) stampante.newPage();
        DisegnaSuPittore(pittore, QRectF(0, 0, foglio.width(), foglio.height()), AreaPagina(),
                         [&](Superficie& sup) { DisegnaPaginaTransiti(sup, dati, righe_, p); });
    }
    pittore.end();
}

void frmCalTransiti::cmdStampa_Click() {
    if (righe_.empty() || inRicerca_ || !ScegliStampante) return;
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    stampante.setFullPage(true);
    stampante.setDocName(QS("Vesmo - " + std::string(TitoloPaginaTransiti)));
    if (!ScegliStampante(stampante)) return;
    Disegna(stampante);
}

void frmCalTransiti::cmdPdf_Click() {
    if (righe_.empty() || inRicerca_ || !ScegliFilePdf) return;
    QString file = ScegliFilePdf();
    if (file.isEmpty()) return;
    if (!file.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) file += QStringLiteral(".pdf");
    QPdfWriter pdf(file);
    pdf.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    pdf.setResolution(1440);
    pdf.setTitle(QS(std::string(TitoloPaginaTransiti)));
    pdf.setCreator(QStringLiteral("Vesmo"));
    QPainter pittore;
    if (!pittore.begin(&pdf)) {
        Errore("Impossibile scrivere il file " + file.toStdString());
        return;
    }
    const DatiPaginaTransiti dati = DatiPagina();
    const int pagine = PagineTransiti(righe_.size());
    for (int p = 0; p < pagine; ++p) {
        if (p > 0) pdf.newPage();
        DisegnaSuPittore(pittore, QRectF(0, 0, pdf.width(), pdf.height()), AreaPagina(),
                         [&](Superficie& sup) { DisegnaPaginaTransiti(sup, dati, righe_, p); });
    }
    if (!pittore.end()) Errore("Impossibile scrivere il file " + file.toStdString());
}

void frmCalTransiti::cmdTesto_Click() {
    if (righe_.empty() || inRicerca_ || !ScegliFileTesto) return;
    const QString file = ScegliFileTesto();
    if (file.isEmpty()) return;
    const bool testo = file.endsWith(QStringLiteral(".txt"), Qt::CaseInsensitive);
    const std::string contenuto = testo ? TestoTransiti(righe_) : CsvTransiti(righe_);
    QFile f(file);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        f.write(contenuto.data(), static_cast<qint64>(contenuto.size())) !=
            static_cast<qint64>(contenuto.size()))
        Errore("Impossibile scrivere il file " + file.toStdString());
}

void frmCalTransiti::grdTransiti_DblClick(int riga) {
    if (riga < 0 || riga >= static_cast<int>(righe_.size()) || inRicerca_) return;
    const RigaTransito& r = righe_[static_cast<std::size_t>(riga)];
    // As a new transit starts: from the last transit, or the first from the natal chart.
    if (s_.TransitoCalcolato) {
        s_.TemaX = s_.TemaTra;
    } else {
        s_.TemaX = s_.TemaNat;
        ScriviMarca(s_.TemaX.Nome, 25, " Tra");
    }
    s_.TemaX.Fuso = r.quando.fuso;
    s_.TemaX.Estiva = r.quando.estiva;
    ImpostaIstante(s_.TemaX, r.jd);
    s_.DatiOk = -1;
    if (InstallaTransito) InstallaTransito();
}

void frmCalTransiti::closeEvent(QCloseEvent* e) {
    if (inRicerca_) {
        // The search ends first; the window closes after it.
        fermato_ = true;
        chiudiDopo_ = true;
        e->ignore();
        return;
    }
    QWidget::closeEvent(e);
}

frmCalTransiti* ApriCalTransiti(frmMenu& menu, Sessione& s, Messaggi& m) {
    for (frmCalTransiti* aperto : menu.findChildren<frmCalTransiti*>(Qt::FindDirectChildrenOnly)) {
        if (!aperto->isVisible()) continue;
        aperto->raise();
        aperto->activateWindow();
        return aperto;
    }
    auto* f = new frmCalTransiti(s, menu.Percorsi().FileDB, m, &menu);
    f->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<frmMenu> io(&menu);
    Sessione* ps = &s;
    Messaggi* pm = &m;
    f->InstallaTransito = [io, ps, pm] {
        if (!io || !ps->DatiOk) return;
        ps->FlagDelSlot(1) = -1;
        io->riquadri[1].astrolog->show();
        io->mnuFileSalvo[1]->setChecked(false);
        io->InstallaTema(1);
        // An open double wheel shows the new transit outside.
        StatoMenuRuote* stato = StatoRuoteDelMenu(*io);
        if (stato && stato->doppia) ApriRuotaDoppia(*io, *ps, *pm, Esterno::Transito);
    };
    f->show();
    return f;
}

void CollegaMenuCalTransiti(frmMenu& menu, Sessione& s, Messaggi& m) {
    // After the ingress search, before the transit's comment.
    QAction* prima = nullptr;
    for (QAction* a : menu.mnuTransiti->actions())
        if (a->objectName() == QLatin1String("mnuTransitiMemo")) prima = a;
    auto* a = new QAction(QStringLiteral("Calendario &Transiti..."), menu.mnuTransiti);
    a->setObjectName("mnuTransitiC");
    menu.mnuTransiti->insertAction(prima, a);
    frmMenu* f = &menu;
    QObject::connect(a, &QAction::triggered, &menu, [f, &s, &m] { ApriCalTransiti(*f, s, m); });
}

} // namespace vesmo
