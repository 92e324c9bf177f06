#include "places/ui/frmMainVesmo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/qt/MessaggiQt.h"
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
    Dati = new PannelloDati(sessione_.TemaCorrente, messaggi_, FormIngresso::MainVesmo, this);
    setCentralWidget(Dati);

    mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFile->setObjectName("mnuFile");
    auto azione = [this](QMenu* m, const char* nome, const char* testo) {
        QAction* a = m->addAction(QString::fromUtf8(testo));
        a->setObjectName(nome);
        return a;
    };
    mnuFilAvvLyx = azione(mnuFile, "mnuFilAvvLyx", "Avvia &Lyx");
    mnuFile->addSeparator();
    mnuFilePath = azione(mnuFile, "mnuFilePath", "&Default  Vesmo");
    QMenu* ordine = mnuFile->addMenu(QStringLiteral("&Ordinamento"));
    mnuFilOrdC = azione(ordine, "mnuFilOrdC", "&City");
    mnuFilOrdN = azione(ordine, "mnuFilOrdN", "&Nazioni");
    mnuFilOrdC->setCheckable(true);
    mnuFilOrdN->setCheckable(true);
    mnuFile->addSeparator();
    mnuFilEsci = azione(mnuFile, "mnuFilEsci", "&Esci");
    QMenu* aiuto = menuBar()->addMenu(QStringLiteral("&?"));
    mnuAbout = azione(aiuto, "mnuAbout", "&About");

    connect(mnuFilAvvLyx, &QAction::triggered, this, [this] {
        if (AvviaLyx) AvviaLyx();
    });
    connect(mnuFilePath, &QAction::triggered, this, &frmMainVesmo::mnuFilePath_Click);
    connect(mnuFilOrdC, &QAction::triggered, this, &frmMainVesmo::mnuFilOrdC_Click);
    connect(mnuFilOrdN, &QAction::triggered, this, &frmMainVesmo::mnuFilOrdN_Click);
    connect(mnuFilEsci, &QAction::triggered, this, &frmMainVesmo::mnuFilEsci_Click);
    connect(mnuAbout, &QAction::triggered, this, &frmMainVesmo::mnuAbout_Click);
    resize(1100, 680);
}

void frmMainVesmo::Form_Load() {
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
    frmInputIni f(percorsi_, messaggi_, this);
    f.MostraConfig(cfg_);
    f.exec();
    // New defaults take effect at the next start.
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
                       "(licenza CC BY 4.0), fusi orari dal database IANA.\n\n"
                       "Distribuito secondo la GNU General Public License, versione 3 o "
                       "successiva,\nsenza alcuna garanzia."),
        this);
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
