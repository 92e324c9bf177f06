#include "archives/ui/FinestraImporta.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <algorithm>

#include "archives/Archivi.h"
#include "archives/Elenchi.h"
#include "archives/Gestione.h"
#include "archives/Selezione.h"
#include "archives/Sicurezza.h"
#include "archives/ui/ModelloArchivio.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"

namespace vesmo {

namespace {

constexpr int Pixel(int twips) {
    return twips / 15;
}

} // namespace

FinestraImporta::FinestraImporta(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                                 const char* prefisso, QWidget* genitore)
    : QDialog(genitore), s_(sessione), fileDB_(fileDB), messaggi_(messaggi), prefisso_(prefisso) {
    setModal(true);
    lstArchivi = Nome(new QListWidget(this), "lstArchivi");
    CreaGriglia();
    Text1 = Casella(this, "Text1");
    Command1 = Pulsante(this, "Command1", GrigliaOffIniziale);
    cmdImporta = Pulsante(this, "cmdImporta", "&Importa");
    cmdImporta->setDefault(true);
    cmdElimina = Pulsante(this, "cmdElimina", "&Elimina Tema");
    Command3 = Pulsante(this, "Command3", "E&sci");
    CreaBarraCerca();
    ConnettiComuni();
}

void FinestraImporta::CreaGriglia() {
    DBGrid1 = Nome(new QTableView(this), "DBGrid1");
    DBGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    // Several rows may be chosen, to delete or move them at once.
    DBGrid1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    DBGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    DBGrid1->verticalHeader()->setDefaultSectionSize(DBGrid1->fontMetrics().height() + 4);
    DBGrid1->verticalHeader()->hide();
    modello_ = new ModelloArchivio(this);
    DBGrid1->setModel(modello_);
    // A click on a header sorts by that column; at first the rows stand in the index's order.
    DBGrid1->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    DBGrid1->setSortingEnabled(true);
    DBGrid1->horizontalHeader()->setStretchLastSection(true);
    DidascaliaGriglia = Etichetta(this, "", "DidascaliaGriglia");
    DidascaliaGriglia->setAlignment(Qt::AlignCenter);
    DidascaliaGriglia->setFrameShape(QFrame::Panel);
}

void FinestraImporta::CreaBarraCerca() {
    BarraCerca = Nome(new QWidget(this), "BarraCerca");
    auto* etichetta = Etichetta(BarraCerca, "Cerca per campi:");
    txtCerca = Casella(BarraCerca, "txtCerca");
    txtCerca->setPlaceholderText(
        QStringLiteral("nome  dal:GG/MM/AAAA  al:GG/MM/AAAA  luogo:...  commento:..."));
    txtCerca->setClearButtonEnabled(true);
    lbCerca = Etichetta(BarraCerca, "", "lbCerca");
    auto* lc = new QHBoxLayout(BarraCerca);
    lc->setContentsMargins(0, 0, 0, 0);
    lc->addWidget(etichetta);
    lc->addWidget(txtCerca, 1);
    lc->addWidget(lbCerca);
}

void FinestraImporta::ConnettiComuni() {
    connect(txtCerca, &QLineEdit::textChanged, this, &FinestraImporta::txtCerca_Change);
    connect(lstArchivi, &QListWidget::itemClicked, this, &FinestraImporta::lstArchivi_Click);
    connect(Text1, &QLineEdit::textChanged, this, &FinestraImporta::Text1_Change);
    connect(Command1, &QPushButton::clicked, this, &FinestraImporta::Command1_Click);
    connect(cmdElimina, &QPushButton::clicked, this, &FinestraImporta::cmdElimina_Click);
    connect(Command3, &QPushButton::clicked, this, &FinestraImporta::Command3_Click);
    connect(DBGrid1->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& i) { RigaGriglia(i.row()); });
    modello_->Errore = [this](const std::exception& e) {
        AvvisoErroreDB(messaggi_, objectName().toStdString() + ".DBGrid1", e);
    };
    modello_->RigaCambiata = [this](const Segnalibro& s) {
        // A cell written: the cursor reads its row again, where the row stands now.
        try {
            data1_->Refresh();
            data1_->VaiA(s);
        } catch (const ErroreDB&) {
        }
        Allinea();
    };
}

FinestraImporta::~FinestraImporta() {
    modello_->Chiudi();
    data1_.reset();
}

void FinestraImporta::Carica() {
    std::vector<std::string> archivi;
    try {
        db_.Apri(fileDB_);
        archivi = ElencoArchivi(db_);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, objectName().toStdString() + ".Form_Load", e);
    }
    for (const std::string& a : archivi)
        lstArchivi->addItem(QS(a));
    ArchiviElencati(archivi);
    if (lstArchivi->count() > 0) {
        int indice = s_.ArchivioIndice;
        if (indice < 0 || indice >= lstArchivi->count()) indice = 0;
        lstArchivi->setCurrentRow(indice);
        s_.ArchivioCorrente = SS(lstArchivi->currentItem()->text());
        Collega(s_.ArchivioCorrente);
        Posiziona();
    } else {
        RecordCambiato();
    }
    Command1->setText(QString::fromUtf8(GrigliaOffIniziale));
    caricato_ = true;
}

void FinestraImporta::Collega(const std::string& nome) {
    // The grid's updating stays as Command1 last set it.
    archivio_ = nome;
    modello_->Chiudi();
    data1_.reset();
    try {
        data1_ = std::make_unique<Cursore>(db_, nome);
        data1_->Index(IndiceArchivio);
        modello_->Apri(db_, nome, IndiceArchivio);
    } catch (const std::exception& e) {
        data1_.reset();
        AvvisoErroreDB(messaggi_, objectName().toStdString() + ".Data1", e);
    }
    DBGrid1->setColumnWidth(0, Pixel(2200));
    DBGrid1->setColumnWidth(1, Pixel(2100));
    // Date, time, coordinates, zone and summer time are short texts: the comment comes into view.
    const int larghezze[] = {Pixel(1300), Pixel(800), Pixel(900),
                             Pixel(900),  Pixel(700), Pixel(700)};
    for (int i = 0; i < 6 && i + 3 < modello_->columnCount(); ++i)
        DBGrid1->setColumnWidth(i + 3, larghezze[i]);
    DidascaliaGriglia->setText(QS(nome) + "  " + QString::number(modello_->rowCount()));
}

void FinestraImporta::Posiziona() {
    Allinea();
}

void FinestraImporta::Allinea() {
    int riga = -1;
    if (data1_ && !data1_->BOF() && !data1_->Eof()) {
        try {
            riga = modello_->RigaDi(data1_->Bookmark());
        } catch (const ErroreDB&) {
        }
    }
    allineando_ = true;
    if (riga >= 0) {
        DBGrid1->setCurrentIndex(modello_->index(riga, 0));
        DBGrid1->scrollTo(modello_->index(riga, 0), QAbstractItemView::PositionAtCenter);
    } else {
        DBGrid1->setCurrentIndex({});
    }
    allineando_ = false;
    DidascaliaGriglia->setText(QS(archivio_) + "  " + QString::number(modello_->rowCount()));
    RecordCambiato();
}

void FinestraImporta::RigaGriglia(int riga) {
    if (allineando_ || !data1_ || riga < 0) return;
    try {
        data1_->VaiA(modello_->SegnalibroDi(riga));
    } catch (const ErroreDB&) {
        // The row went meanwhile: the order is read again.
        modello_->Ricarica();
        if (data1_->RecordCount() > 0) data1_->MoveFirst();
        Allinea();
        return;
    }
    RecordCambiato();
}

void FinestraImporta::DopoSeek() {
    if (data1_->NoMatch() && data1_->RecordCount() > 0) data1_->MoveLast();
}

void FinestraImporta::lstArchivi_Click() {
    if (!caricato_ || !lstArchivi->currentItem()) return;
    Collega(SS(lstArchivi->currentItem()->text()));
    Allinea();
    s_.ArchivioIndice = lstArchivi->currentRow();
    s_.ArchivioCorrente = archivio_;
}

void FinestraImporta::Text1_Change() {
    if (!data1_) return;
    try {
        data1_->Seek(">=", SS(Text1->text()));
        DopoSeek();
    } catch (const ErroreDB& e) {
        AvvisoErroreDB(messaggi_, objectName().toStdString() + ".Text1_Change", e);
    }
    Allinea();
}

void FinestraImporta::Command1_Click() {
    if (Command1->text().contains(QStringLiteral("OFF"))) {
        modello_->Modificabile(true);
        DBGrid1->setEditTriggers(QAbstractItemView::EditKeyPressed |
                                 QAbstractItemView::AnyKeyPressed |
                                 QAbstractItemView::SelectedClicked);
        Command1->setText(QString::fromUtf8(GrigliaOn));
    } else {
        modello_->Modificabile(false);
        DBGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
        Command1->setText(QString::fromUtf8(GrigliaOff));
    }
}

bool FinestraImporta::CiSonoTemi(const char* punto) {
    try {
        if (!data1_) throw ErroreDB(ErroreDB::NessunRecordCorrente, "Nessun record corrente");
        data1_->Campo("Nome");
        return true;
    } catch (const ErroreDB& e) {
        if (e.Numero() != ErroreDB::NessunRecordCorrente) throw;
        messaggi_.Mostra(prefisso_ + "Info Archivi", std::string("Archivio vuoto") + punto,
                         Pulsanti::Ok, Icona::Informazione);
        return false;
    }
}

std::vector<Segnalibro> FinestraImporta::Selezionati() const {
    std::vector<int> righe;
    for (const QModelIndex& i : DBGrid1->selectionModel()->selectedRows())
        righe.push_back(i.row());
    std::sort(righe.begin(), righe.end());
    std::vector<Segnalibro> r;
    for (int riga : righe)
        r.push_back(modello_->SegnalibroDi(riga));
    return r;
}

void FinestraImporta::CursoreVisibile() {
    if (!data1_) return;
    bool visibile = false;
    try {
        visibile = !data1_->BOF() && !data1_->Eof() && modello_->RigaDi(data1_->Bookmark()) >= 0;
    } catch (const ErroreDB&) {
    }
    try {
        if (!visibile && modello_->rowCount() > 0) data1_->VaiA(modello_->SegnalibroDi(0));
    } catch (const ErroreDB&) {
    }
}

void FinestraImporta::txtCerca_Change() {
    std::string errore;
    const auto criteri = LeggiCriteri(SS(txtCerca->text()), errore);
    if (!criteri) {
        // Told beside the box while the user types: no message box.
        lbCerca->setText(QS(errore));
        return;
    }
    modello_->Filtra(*criteri);
    lbCerca->setText(criteri->Vuoti()
                         ? QString()
                         : QString::number(modello_->rowCount()) + QStringLiteral(" trovati"));
    CursoreVisibile();
    Allinea();
}

void FinestraImporta::cmdElimina_Click() {
    const std::vector<Segnalibro> scelti = Selezionati();
    if (scelti.size() > 1) {
        // Several charts: one question that says how many, the copy, then all at once.
        if (messaggi_.Mostra(prefisso_ + "Elimina Temi", TestoEliminaTemi(scelti.size(), archivio_),
                             Pulsanti::OkAnnulla, Icona::Domanda) != Risposta::Ok)
            return;
        if (!CopiaPrimaDiEliminare(fileDB_, s_.CartellaCopie, messaggi_,
                                   objectName().toStdString() + ".cmdElimina"))
            return;
        try {
            EliminaTemi(db_, archivio_, scelti);
        } catch (const std::exception& e) {
            AvvisoErroreDB(messaggi_, objectName().toStdString() + ".cmdElimina", e);
        }
        modello_->Ricarica();
        DBGrid1->clearSelection();
        CursoreVisibile();
        Allinea();
        return;
    }
    try {
        if (!CiSonoTemi(".")) return;
        const std::string nome = data1_->Campo("Nome").Testo();
        if (messaggi_.Mostra(prefisso_ + "Elimina Temi", TestoEliminaTema(nome),
                             Pulsanti::OkAnnulla, Icona::Informazione) != Risposta::Ok)
            return;
        if (!CopiaPrimaDiEliminare(fileDB_, s_.CartellaCopie, messaggi_,
                                   objectName().toStdString() + ".cmdElimina"))
            return;
        EliminaTemaCorrente(*data1_);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, objectName().toStdString() + ".cmdElimina", e);
    }
    modello_->Ricarica();
    Allinea();
}

void FinestraImporta::Command3_Click() {
    accept();
}

} // namespace vesmo
