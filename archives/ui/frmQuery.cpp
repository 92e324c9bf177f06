#include "archives/ui/frmQuery.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "archives/Archivi.h"
#include "archives/Query.h"
#include "chart/Aspetti.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"

namespace vesmo {

namespace {

QListWidget* Elenco(QWidget* genitore, const char* nome, const auto& righe) {
    auto* l = new QListWidget(genitore);
    l->setObjectName(nome);
    for (const char* r : righe)
        l->addItem(QString::fromUtf8(r));
    l->setCurrentRow(0);
    return l;
}

QRadioButton* Opzione(QWidget* genitore, const char* nome, const char* testo) {
    auto* o = new QRadioButton(QString::fromUtf8(testo), genitore);
    o->setObjectName(nome);
    return o;
}

} // namespace

frmQuery::frmQuery(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                   QWidget* genitore)
    : QDialog(genitore), s_(sessione), fileDB_(fileDB), messaggi_(messaggi) {
    setObjectName("frmQuery");
    setWindowTitle(QStringLiteral("Vesmo - Query Astrologiche"));

    CreaOpzioni();
    CreaArchivi();
    CmdAvvio = Pulsante(this, "CmdAvvio", "&Avvio Query");
    cmdFerma = Pulsante(this, "cmdFerma", "&Ferma");
    cmdFerma->setEnabled(false);
    cmdEsci = Pulsante(this, "cmdEsci", "&Esci");
    CmdHelp = Pulsante(this, "CmdHelp", "&?");
    PBarFrom = Nome(new QProgressBar(this), "PBarFrom");
    PBarFrom->setRange(0, 100);
    PBarFrom->setValue(0);
    lbNewTb = Etichetta(this, "", "lbNewTb");
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(CmdAvvio);
    pulsanti->addWidget(cmdFerma);
    pulsanti->addStretch(1);
    pulsanti->addWidget(CmdHelp);
    pulsanti->addWidget(cmdEsci);

    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(Frame1, 1);
    tutto->addWidget(Frame2);
    tutto->addWidget(PBarFrom);
    tutto->addWidget(lbNewTb);
    tutto->addLayout(pulsanti);
    resize(760, 560);

    Collega();

    OpLuogo->setChecked(true);
    OpLuogo_Click();
    OpGeo->setChecked(true);
    CmbAspetti->setCurrentIndex(0);
    RiempiTabelle();
    CmbTbTo->setCurrentText(QString());
}

void frmQuery::CreaOpzioni() {
    Frame1 = Riquadro(this, "Frame1", ">>     Query Options   >> ");
    LstFrom = Elenco(Frame1, "LstFrom", RigheFrom);
    LstTo = Elenco(Frame1, "LstTo", RigheTo);
    LstVerso = Elenco(Frame1, "LstVerso", RigheVerso);
    OpLuogo = Opzione(Frame1, "OpLuogo", "Luogo                           (Segno, Casa)");
    OpAngolo = Opzione(Frame1, "OpAngolo",
                       "Angolo                          (Aspetti,                     Orbita)");
    OpVerso = Opzione(Frame1, "OpVerso", "Verso");
    CmbAspetti = Lista(Frame1, "CmbAspetti");
    for (int k = 0; k < NumeroAspetti; ++k)
        CmbAspetti->addItem(QS(RigaAspetto(k)));
    TxOrbita = Casella(Frame1, "TxOrbita", 70);
    TxOrbita->setText(QString::fromUtf8(OrbitaPredefinita));
    FrLuna = Riquadro(Frame1, "FrLuna", "Calcolo della Luna ");
    OpGeo = Opzione(FrLuna, "OpGeo", "Luna Geocentrica");
    OpTopo = Opzione(FrLuna, "OpTopo", "Luna Topocentrica");
    auto* luna = new QVBoxLayout(FrLuna);
    luna->addWidget(OpGeo);
    luna->addWidget(OpTopo);

    auto* etichettaFrom = Etichetta(Frame1, "Lista From");
    auto* etichettaTo = Etichetta(Frame1, "Lista TO");
    auto* opzioni = new QVBoxLayout;
    opzioni->addWidget(OpLuogo);
    opzioni->addWidget(OpAngolo);
    auto* aspetti = new QHBoxLayout;
    aspetti->addWidget(CmbAspetti, 1);
    aspetti->addWidget(TxOrbita);
    opzioni->addLayout(aspetti);
    opzioni->addWidget(OpVerso);
    opzioni->addWidget(LstVerso);
    LstVerso->setMaximumHeight(60);
    opzioni->addStretch(1);
    opzioni->addWidget(FrLuna);
    auto* g1 = new QGridLayout(Frame1);
    g1->addWidget(etichettaFrom, 0, 0);
    g1->addWidget(etichettaTo, 0, 2);
    g1->addWidget(LstFrom, 1, 0);
    g1->addLayout(opzioni, 1, 1);
    g1->addWidget(LstTo, 1, 2);
    g1->setColumnStretch(0, 1);
    g1->setColumnStretch(1, 2);
    g1->setColumnStretch(2, 1);
}

void frmQuery::CreaArchivi() {
    Frame2 = Riquadro(this, "Frame2", "Archivi DataBase");
    CmbTbFrom = Lista(Frame2, "CmbTbFrom");
    CmbTbTo = Lista(Frame2, "CmbTbTo");
    CmbTbTo->setEditable(true);
    CmbTbTo->setInsertPolicy(QComboBox::NoInsert);
    auto* g2 = new QGridLayout(Frame2);
    g2->addWidget(Etichetta(Frame2, "Archivio Query   From"), 0, 0);
    g2->addWidget(CmbTbFrom, 0, 1);
    g2->addWidget(Etichetta(Frame2, "(new)  Archivio Query   TO"), 1, 0);
    g2->addWidget(CmbTbTo, 1, 1);
    g2->setColumnStretch(1, 1);
}

void frmQuery::Collega() {
    connect(CmdAvvio, &QPushButton::clicked, this, &frmQuery::CmdAvvio_Click);
    connect(cmdEsci, &QPushButton::clicked, this, &frmQuery::cmdEsci_Click);
    connect(CmdHelp, &QPushButton::clicked, this, &frmQuery::CmdHelp_Click);
    connect(cmdFerma, &QPushButton::clicked, this, &frmQuery::cmdFerma_Click);
    connect(OpLuogo, &QRadioButton::clicked, this, &frmQuery::OpLuogo_Click);
    connect(OpAngolo, &QRadioButton::clicked, this, &frmQuery::OpAngolo_Click);
    connect(OpVerso, &QRadioButton::clicked, this, &frmQuery::OpVerso_Click);
}

void frmQuery::RiempiTabelle() {
    const QString scritto = CmbTbTo->currentText();
    CmbTbFrom->clear();
    CmbTbTo->clear();
    try {
        for (const std::string& a : ElencoArchivi(fileDB_)) {
            CmbTbFrom->addItem(QS(a));
            if (a.rfind(PrefissoQuery, 0) == 0) CmbTbTo->addItem(QS(a));
        }
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmQuery.Riempi", e);
    }
    if (CmbTbFrom->count() > 0) CmbTbFrom->setCurrentIndex(0);
    CmbTbTo->setCurrentText(scritto);
}

void frmQuery::OpLuogo_Click() {
    LstTo->setVisible(true);
    LstVerso->setVisible(false);
}

void frmQuery::OpAngolo_Click() {
    LstTo->setVisible(true);
    LstVerso->setVisible(false);
    CmbAspetti->setCurrentIndex(0);
}

void frmQuery::OpVerso_Click() {
    LstTo->setVisible(false);
    LstVerso->setVisible(true);
    LstVerso->setCurrentRow(0);
}

void frmQuery::CmdAvvio_Click() {
    if (inCorso_) return;
    s_.LunaGeo = OpGeo->isChecked() ? 1 : 0;
    CondizioneQuery q;
    q.opzione = OpAngolo->isChecked()  ? OpzioneQuery::Angolo
                : OpVerso->isChecked() ? OpzioneQuery::Verso
                                       : OpzioneQuery::Luogo;
    q.lf = LstFrom->currentRow();
    q.lt = LstTo->currentRow();
    q.aspetto = CmbAspetti->currentIndex();
    q.verso = LstVerso->currentRow();
    if (q.opzione == OpzioneQuery::Angolo) {
        // The orb is read by conversion, with the workstation's decimal comma.
        bool ok = false;
        const double orbita = QLocale(QLocale::Italian).toDouble(TxOrbita->text().trimmed(), &ok);
        if (!ok) {
            messaggi_.Mostra("Vesmo - frmQuery.CmdAvvio",
                             "Errore 13\nTipo non corrispondente: " + SS(TxOrbita->text()) +
                                 "\n------------------------------\nType mismatch.",
                             Pulsanti::Ok, Icona::Critico);
            return;
        }
        q.orbita = static_cast<float>(orbita);
    }

    inCorso_ = true;
    ferma_ = false;
    CmdAvvio->setEnabled(false);
    cmdEsci->setEnabled(false);
    cmdFerma->setEnabled(true);
    Frame1->setEnabled(false);
    Frame2->setEnabled(false);
    lbNewTb->clear();
    PBarFrom->setValue(0);
    QElapsedTimer orologio;
    orologio.start();
    auto avanzamento = [&](std::int64_t fatti, std::int64_t totale) {
        PBarFrom->setValue(totale > 0 ? static_cast<int>(fatti * 100 / totale) : 0);
        PBarFrom->setFormat(QStringLiteral("%p%   (%1 / %2)").arg(fatti).arg(totale));
        QApplication::processEvents();
        return !ferma_;
    };
    auto nuova = [&](const std::string& nome) {
        CmbTbTo->setCurrentText(QS(nome));
        lbNewTb->setText(QS("New Tabella " + nome));
        QApplication::processEvents();
    };
    std::optional<EsitoQuery> esito;
    try {
        esito = AvvioQuery(fileDB_, SS(CmbTbFrom->currentText()), SS(CmbTbTo->currentText()), {q},
                           s_.LunaGeo, messaggi_, avanzamento, nuova);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmQuery.CmdAvvio", e);
    }
    inCorso_ = false;
    CmdAvvio->setEnabled(true);
    cmdEsci->setEnabled(true);
    cmdFerma->setEnabled(false);
    Frame1->setEnabled(true);
    Frame2->setEnabled(true);
    if (esito) {
        CmbTbTo->setCurrentText(QS(esito->Tabella));
        RiempiTabelle();
        PBarFrom->setValue(0);
        PBarFrom->setFormat(QStringLiteral("%p%"));
        if (esito->Fermata)
            lbNewTb->setText(QS("Query fermata: " + std::to_string(esito->Esaminati) +
                                " temi esaminati, " + std::to_string(esito->Trovati) +
                                " trovati in " + esito->Tabella));
        else
            lbNewTb->setText(QStringLiteral("Ok! Terminato con successo"));
    }
    if (chiudiDopo_) {
        chiudiDopo_ = false;
        cmdEsci_Click();
    }
}

void frmQuery::cmdFerma_Click() {
    ferma_ = true;
}

void frmQuery::cmdEsci_Click() {
    if (inCorso_) return;
    accept();
}

void frmQuery::closeEvent(QCloseEvent* e) {
    if (inCorso_) {
        // Closing while a run goes on stops it; the window closes when the run has ended.
        ferma_ = true;
        chiudiDopo_ = true;
        e->ignore();
        return;
    }
    QDialog::closeEvent(e);
}

void frmQuery::reject() {
    if (inCorso_) {
        ferma_ = true;
        chiudiDopo_ = true;
        return;
    }
    QDialog::reject();
}

void frmQuery::CmdHelp_Click() {
    QDialog aiuto(this);
    aiuto.setObjectName("frmHelpQuery");
    aiuto.setWindowTitle(QString::fromUtf8(TitoloAiutoQuery));
    auto* testo = new QPlainTextEdit(QS(TestoAiutoQuery()), &aiuto);
    testo->setReadOnly(true);
    auto* ok = new QDialogButtonBox(QDialogButtonBox::Ok, &aiuto);
    connect(ok, &QDialogButtonBox::accepted, &aiuto, &QDialog::accept);
    auto* l = new QVBoxLayout(&aiuto);
    l->addWidget(testo);
    l->addWidget(ok);
    aiuto.resize(560, 360);
    aiuto.exec();
}

} // namespace vesmo
