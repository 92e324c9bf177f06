#include "archives/ui/frmImpTnLyx.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/Selezione.h"
#include "archives/ui/ModelloArchivio.h"
#include "archives/ui/WidgetAnteprima.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"

namespace vesmo {

frmImpTnLyx::frmImpTnLyx(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                         QWidget* genitore)
    : FinestraImporta(sessione, fileDB, messaggi, "Lyx - ", genitore) {
    setObjectName("frmImpTnLyx");
    setWindowTitle(QStringLiteral("Lyx - Importa Temi da Archivio"));

    CreaRiquadri();
    CreaControlli();
    Disponi();
    Connetti();
    Carica();
}

void frmImpTnLyx::CreaRiquadri() {
    Frame1 = Riquadro(this, "Frame1", "Archivi  Disponibili");
    auto* l1 = new QVBoxLayout(Frame1);
    l1->addWidget(lstArchivi);

    Frame2 = Riquadro(this, "Frame2", "Options ");
    auto* l2 = new QVBoxLayout(Frame2);
    const char* nomi[4] = {"Option1", "Option2", "Option3", "Option4"};
    const char* testi[4] = {"Tema Natale", "Transito", "Rivoluzione", "Direzione"};
    QRadioButton** opzioni[4] = {&Option1, &Option2, &Option3, &Option4};
    for (int i = 0; i < 4; ++i) {
        *opzioni[i] = Nome(new QRadioButton(QString::fromUtf8(testi[i]), Frame2), nomi[i]);
        (*opzioni[i])->installEventFilter(this);
        l2->addWidget(*opzioni[i]);
    }
}

void frmImpTnLyx::CreaControlli() {
    Label1 = Etichetta(this, "Cerca >>", "Label1");
    cdAvanzata = Pulsante(this, "cdAvanzata", "Es&tesa");
    cbEstesa = Lista(this, "cbEstesa");
    cbEstesa->setMinimumContentsLength(24);
    cmdCambiaA = Pulsante(this, "cmdCambiaA", "S&posta Tema");
    cmbCambiaA = Lista(this, "cmbCambiaA");
    txtCmto = Nome(new QPlainTextEdit(this), "txtCmto");
    txtCmto->setMaximumHeight(90);
    Anteprima = Nome(new WidgetAnteprima(this), "Anteprima");
}

void frmImpTnLyx::Disponi() {
    // Left: the archives, the options and the buttons; middle: the grid and the searches;
    // right: the preview and the comment.
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(Frame1, 1);
    sinistra->addWidget(Frame2);
    sinistra->addWidget(cmdImporta);
    sinistra->addWidget(cmdElimina);
    sinistra->addWidget(Command3);

    auto* cerca = new QHBoxLayout;
    cerca->addWidget(Label1);
    cerca->addWidget(Text1, 1);
    auto* estesa = new QHBoxLayout;
    estesa->addWidget(cdAvanzata);
    estesa->addWidget(cbEstesa, 1);
    auto* sposta = new QHBoxLayout;
    sposta->addWidget(cmdCambiaA);
    sposta->addWidget(cmbCambiaA, 1);
    auto* centro = new QVBoxLayout;
    centro->addWidget(DidascaliaGriglia);
    centro->addWidget(DBGrid1, 1);
    centro->addLayout(cerca);
    centro->addWidget(BarraCerca);
    centro->addLayout(estesa);
    centro->addLayout(sposta);
    centro->addWidget(Command1);

    auto* destra = new QVBoxLayout;
    destra->addWidget(Anteprima, 1);
    destra->addWidget(txtCmto);

    auto* tutto = new QHBoxLayout(this);
    tutto->addLayout(sinistra);
    tutto->addLayout(centro, 3);
    tutto->addLayout(destra, 2);
    resize(1180, 560);
}

void frmImpTnLyx::Connetti() {
    connect(cdAvanzata, &QPushButton::clicked, this, &frmImpTnLyx::cdAvanzata_Click);
    connect(cbEstesa, &QComboBox::activated, this, &frmImpTnLyx::cbEstesa_Click);
    connect(cmdImporta, &QPushButton::clicked, this, &frmImpTnLyx::cmdImporta_Click);
    connect(cmdCambiaA, &QPushButton::clicked, this, &frmImpTnLyx::cmdCambiaA_Click);
    connect(DBGrid1, &QTableView::doubleClicked, this, &frmImpTnLyx::DBGrid1_DblClick);
}

void frmImpTnLyx::ArchiviElencati(const std::vector<std::string>& archivi) {
    for (const std::string& a : archivi)
        cmbCambiaA->addItem(QS(a));
    if (cmbCambiaA->count() > 0) cmbCambiaA->setCurrentIndex(0);
}

void frmImpTnLyx::Posiziona() {
    // The grid opens on the natal slot's chart, or where it would stand.
    if (data1_) {
        try {
            data1_->Seek(">=", s_.TemaNat.Nome.str());
            DopoSeek();
        } catch (const ErroreDB& e) {
            AvvisoErroreDB(messaggi_, "frmImpTnLyx.Form_Load", e);
        }
    }
    Allinea();
}

void frmImpTnLyx::RecordCambiato() {
    bool letto = false;
    if (data1_ && !data1_->BOF() && !data1_->Eof()) {
        try {
            CaricaTemaX(*data1_, s_, messaggi_);
            letto = true;
        } catch (const ErroreDB& e) {
            if (e.Numero() != ErroreDB::NessunRecordCorrente) throw;
        }
    }
    if (!letto) {
        s_.TemaX = s_.TemaVuoto;
        s_.PosX = s_.PosVuoto;
        Anteprima->Svuota();
        txtCmto->setPlainText(QString());
        return;
    }
    Anteprima->Mostra(s_.TemaX, s_.PosX);
    txtCmto->setPlainText(QS(s_.TemaX.Cmto));
}

void frmImpTnLyx::cdAvanzata_Click() {
    if (!data1_) return; // no archive to search
    Clessidra clessidra(messaggi_);
    cbEstesa->clear();
    std::vector<std::string> nomi;
    try {
        nomi = RicercaEstesa(db_, archivio_, SS(Text1->text()));
    } catch (const std::exception& e) {
        clessidra.Spegni();
        AvvisoErroreDB(messaggi_, "frmImpTnLyx.cdAvanzata", e);
        return;
    }
    if (nomi.empty()) return;
    {
        const QSignalBlocker blocco(cbEstesa);
        for (const std::string& n : nomi)
            cbEstesa->addItem(QS(n));
        cbEstesa->setCurrentIndex(0);
    }
    clessidra.Spegni();
    cbEstesa_Click(0);
}

void frmImpTnLyx::cbEstesa_Click(int indice) {
    if (indice < 0 || indice >= cbEstesa->count()) return;
    Text1->setText(cbEstesa->itemText(indice));
}

int frmImpTnLyx::OpzioneScelta() const {
    const QRadioButton* opzioni[4] = {Option1, Option2, Option3, Option4};
    for (int i = 0; i < 4; ++i)
        if (opzioni[i]->isChecked()) return i;
    return -1;
}

void frmImpTnLyx::cmdImporta_Click() {
    const int slot = OpzioneScelta();
    if (slot < 0) {
        messaggi_.Mostra("Lyx - Avviso Importa Tema", "Selezionare Option", Pulsanti::Ok,
                         Icona::Informazione);
        return;
    }
    if (!CiSonoTemi("")) return;
    ImportaInSlot(s_, slot);
    if (ImportaNelMenu) ImportaNelMenu(slot);
    Command3_Click();
}

void frmImpTnLyx::DBGrid1_DblClick() {
    if (OpzioneScelta() < 0) {
        messaggi_.Mostra("Lyx - Avviso Importa Tema", "Selezionare Option", Pulsanti::Ok,
                         Icona::Informazione);
        return;
    }
    cmdImporta_Click();
}

bool frmImpTnLyx::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::MouseButtonDblClick &&
        (o == Option1 || o == Option2 || o == Option3 || o == Option4)) {
        static_cast<QRadioButton*>(o)->setChecked(true);
        cmdImporta_Click();
        return true;
    }
    return FinestraImporta::eventFilter(o, e);
}

void frmImpTnLyx::cmdCambiaA_Click() {
    if (!data1_ || cmbCambiaA->currentIndex() < 0) return;
    const std::string destinazione = SS(cmbCambiaA->currentText());
    if (destinazione == archivio_) {
        messaggi_.Mostra("Lyx - Operazione Abortita", TestoArchiviUguali(archivio_, destinazione),
                         Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    const std::vector<Segnalibro> scelti = Selezionati();
    if (scelti.size() > 1) {
        // Several charts: one question that says how many, then all in one transaction.
        if (messaggi_.Mostra("Lyx - Trasferimenti Tn",
                             TestoTrasferireTemi(scelti.size(), archivio_, destinazione),
                             Pulsanti::SiNo, Icona::Domanda) != Risposta::Si)
            return;
        try {
            const std::int64_t n = TrasferisciTemi(db_, archivio_, destinazione, scelti);
            messaggi_.Mostra("Lyx - Info Trasferimenti",
                             std::to_string(n) + " temi   Trasferiti\n\ndall' Archivio   " +
                                 archivio_ + "\nall' Archivio     " + destinazione,
                             Pulsanti::Ok, Icona::Informazione);
        } catch (const std::exception& e) {
            AvvisoErroreDB(messaggi_, "frmImpTnLyx.cmdCambiaA", e);
        }
        modello_->Ricarica();
        DBGrid1->clearSelection();
        CursoreVisibile();
        Allinea();
        return;
    }
    try {
        if (!CiSonoTemi("")) return;
        const std::string nome = data1_->Campo("Nome").Testo();
        const std::string city = data1_->Campo("City").Testo();
        if (messaggi_.Mostra("Lyx - Trasferimenti Tn",
                             TestoTrasferire(nome, city, archivio_, destinazione), Pulsanti::SiNo,
                             Icona::Domanda) != Risposta::Si)
            return;
        CopiaTemaIn(db_, *data1_, destinazione);
        messaggi_.Mostra("Lyx - Info Trasferimenti", TestoTrasferito(nome, archivio_, destinazione),
                         Pulsanti::Ok, Icona::Informazione);
        // The source row goes only once the copy stands.
        EliminaTemaCorrente(*data1_);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmImpTnLyx.cmdCambiaA", e);
    }
    modello_->Ricarica();
    Allinea();
}

} // namespace vesmo
