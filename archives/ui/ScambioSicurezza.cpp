#include "archives/ui/ScambioSicurezza.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "archives/Archivi.h"
#include "archives/ImportaEsporta.h"
#include "archives/Sicurezza.h"
#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"

namespace vesmo {

namespace {

QString Filtri(FormatoScambio f) {
    return f == FormatoScambio::AAF
               ? QStringLiteral("File AAF (*.aaf *.AAF);;File di Testo (*.txt);;Tutti i file (*)")
               : QStringLiteral("File CSV (*.csv *.CSV);;File di Testo (*.txt);;Tutti i file (*)");
}

QString NomeFormatoUtente(FormatoScambio f) {
    return f == FormatoScambio::AAF ? QStringLiteral("AAF (#A93, #B93)")
                                    : QStringLiteral("CSV (foglio di calcolo)");
}

} // namespace

QString DialogoApriFile(QWidget* genitore, const QString& titolo, const QString& cartella,
                        const QString& filtri) {
    return QFileDialog::getOpenFileName(genitore, titolo, cartella, filtri);
}

QString DialogoSalvaFile(QWidget* genitore, const QString& titolo, const QString& cartella,
                         const QString& filtri) {
    return QFileDialog::getSaveFileName(genitore, titolo, cartella, filtri);
}

frmImportaScambio::frmImportaScambio(const QString& file, FormatoScambio formato,
                                     const QStringList& archivi, QWidget* genitore)
    : QDialog(genitore) {
    setObjectName("frmImportaScambio");
    setWindowTitle(QStringLiteral("Vesmo - Importa Temi"));
    setModal(true);
    lbFile = new QLabel(file, this);
    lbFile->setObjectName("lbFile");
    lbFormato = new QLabel(NomeFormatoUtente(formato), this);
    lbFormato->setObjectName("lbFormato");
    cmbArchivio = new QComboBox(this);
    cmbArchivio->setObjectName("cmbArchivio");
    cmbArchivio->setEditable(true);
    cmbArchivio->addItems(archivi);
    // The file's name without its extension.
    cmbArchivio->setCurrentText(QFileInfo(file).completeBaseName());
    chkDoppi = new QCheckBox(
        QStringLiteral("Importa anche i temi già presenti (stesso nome, data, ora e luogo)"), this);
    chkDoppi->setObjectName("chkDoppi");
    auto* nota = new QLabel(
        QStringLiteral("I temi senza coordinate o fuso sono completati dal database dei luoghi.\n"
                       "Ogni tema scartato o completato è annotato nel file di log."),
        this);
    cmdImporta = new QPushButton(QStringLiteral("&Importa"), this);
    cmdImporta->setObjectName("cmdImporta");
    cmdImporta->setDefault(true);
    cmdAnnulla = new QPushButton(QStringLiteral("&Annulla"), this);
    cmdAnnulla->setObjectName("cmdAnnulla");
    auto* campi = new QFormLayout;
    campi->addRow(QStringLiteral("File:"), lbFile);
    campi->addRow(QStringLiteral("Formato:"), lbFormato);
    campi->addRow(QStringLiteral("Nell'Archivio:"), cmbArchivio);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdImporta);
    pulsanti->addWidget(cmdAnnulla);
    auto* tutto = new QVBoxLayout(this);
    tutto->addLayout(campi);
    tutto->addWidget(chkDoppi);
    tutto->addWidget(nota);
    tutto->addLayout(pulsanti);
    connect(cmdImporta, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdAnnulla, &QPushButton::clicked, this, &QDialog::reject);
}

std::string TestoEsitoImport(const EsitoImportScambio& e, const std::string& log) {
    std::string t = "Archivio  " + e.Archivio + (e.Creato ? "  (nuovo)" : "") +
                    "\n\nImportati: " + std::to_string(e.Importati) +
                    "\nCompletati dal database dei luoghi: " + std::to_string(e.Completati) +
                    "\nGià presenti, non importati: " + std::to_string(e.Doppi) +
                    "\nScartati: " + std::to_string(e.Scartati);
    if (!log.empty()) t += "\n\nEsamina il file di log\n" + log;
    return t;
}

QString ImportaScambioUtente(QWidget* genitore, QListWidget* lstArchivi, const std::string& fileDB,
                             FormatoScambio formato, Messaggi& messaggi, const QString& cartella,
                             const CompletaLuogo& completa, const SceltaFile& scelta) {
    const QString file =
        scelta(genitore,
               formato == FormatoScambio::AAF ? QStringLiteral("Importa Archivio AAF")
                                              : QStringLiteral("Importa Archivio CSV"),
               cartella, Filtri(formato));
    if (file.isEmpty()) return {};
    QStringList archivi;
    for (int i = 0; i < lstArchivi->count(); ++i)
        archivi << lstArchivi->item(i)->text();
    frmImportaScambio d(file, formato, archivi, genitore);
    if (d.exec() != QDialog::Accepted) return {};
    const std::string nome = SenzaSpazi(SS(d.cmbArchivio->currentText()));
    if (auto errore = ErroreNomeArchivio(nome)) {
        messaggi.Mostra("Vesmo - Importa Temi", *errore, Pulsanti::Ok, Icona::Esclamativo);
        return {};
    }
    OpzioniImportScambio opzioni;
    opzioni.doppi = d.chkDoppi->isChecked();
    opzioni.completa = completa;
    EsitoImportScambio e;
    std::string log;
    Clessidra clessidra(messaggi);
    try {
        e = ImportaScambio(fileDB, nome, SS(file), formato, opzioni);
        const std::string percorso = FileDiArchivio(SS(cartella), e.Archivio, ".log");
        if (ScriviLogScambio(percorso, e.Log)) log = percorso;
    } catch (const std::exception& ex) {
        clessidra.Spegni();
        AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileImpScambio", ex);
        return {};
    }
    clessidra.Spegni();
    if (e.Creato) lstArchivi->addItem(QS(e.Archivio));
    messaggi.Mostra("Vesmo - Importa Temi", TestoEsitoImport(e, log), Pulsanti::Ok,
                    e.Scartati ? Icona::Esclamativo : Icona::Informazione);
    return QS(e.Archivio);
}

void EsportaScambioUtente(QWidget* genitore, QListWidget* lstArchivi, const std::string& fileDB,
                          FormatoScambio formato, Messaggi& messaggi, const QString& cartella,
                          const SceltaFile& scelta) {
    QListWidgetItem* voce = lstArchivi->currentItem();
    if (!voce) {
        messaggi.Mostra("Vesmo - Export Archivi", "Selezionare un Archivio da esportare",
                        Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    const QString proposta =
        cartella + "/" + voce->text() + (formato == FormatoScambio::AAF ? ".aaf" : ".csv");
    const QString file =
        scelta(genitore, QStringLiteral("Esporta Archivio"), proposta, Filtri(formato));
    if (file.isEmpty()) return;
    try {
        const std::int64_t n = EsportaScambio(fileDB, SS(voce->text()), SS(file), formato);
        messaggi.Mostra("Vesmo - Info File GesArchivi",
                        "Tabella  " + SS(voce->text()) + "\n\nScritta nel File  \n" + SS(file) +
                            "\nNumero di Records: " + std::to_string(n),
                        Pulsanti::Ok, Icona::Informazione);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileExpScambio", e);
    }
}

void CopiaDiSicurezzaUtente(QWidget* genitore, const std::string& fileDB, Messaggi& messaggi,
                            const QString& cartella, const SceltaFile& scelta) {
    const QString file = scelta(genitore, QStringLiteral("Copia di sicurezza"),
                                cartella + QStringLiteral("/Vesmodat-copia.Mdb"),
                                QStringLiteral("Database (*.Mdb *.mdb);;Tutti i file (*)"));
    if (file.isEmpty()) return;
    std::error_code ec;
    if (std::filesystem::equivalent(SS(file), fileDB, ec)) {
        messaggi.Mostra("Vesmo - Copia di sicurezza",
                        "La copia non può sostituire il database in uso.", Pulsanti::Ok,
                        Icona::Esclamativo);
        return;
    }
    Clessidra clessidra(messaggi);
    try {
        CopiaDiSicurezza(fileDB, SS(file));
    } catch (const std::exception& e) {
        clessidra.Spegni();
        AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileSicurezza", e);
        return;
    }
    clessidra.Spegni();
    messaggi.Mostra("Vesmo - Copia di sicurezza",
                    "Copia di sicurezza del database scritta in\n" + SS(file), Pulsanti::Ok,
                    Icona::Informazione);
}

frmRipristina::frmRipristina(const QString& copia, const QStringList& archivi, QWidget* genitore)
    : QDialog(genitore) {
    setObjectName("frmRipristina");
    setWindowTitle(QStringLiteral("Vesmo - Ripristina Archivi"));
    setModal(true);
    auto* testo = new QLabel(QStringLiteral("Archivi della copia\n") + copia, this);
    lstCopia = new QListWidget(this);
    lstCopia->setObjectName("lstCopia");
    lstCopia->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstCopia->addItems(archivi);
    cmdRipristina = new QPushButton(QStringLiteral("&Ripristina"), this);
    cmdRipristina->setObjectName("cmdRipristina");
    cmdAnnulla = new QPushButton(QStringLiteral("&Annulla"), this);
    cmdAnnulla->setObjectName("cmdAnnulla");
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdRipristina);
    pulsanti->addWidget(cmdAnnulla);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(testo);
    tutto->addWidget(lstCopia, 1);
    tutto->addLayout(pulsanti);
    connect(cmdRipristina, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdAnnulla, &QPushButton::clicked, this, &QDialog::reject);
}

QStringList RipristinaUtente(QWidget* genitore, const std::string& fileDB, Messaggi& messaggi,
                             const QString& cartellaCopie, const SceltaFile& scelta) {
    const QString copia = scelta(genitore, QStringLiteral("Ripristina da una copia"), cartellaCopie,
                                 QStringLiteral("Database (*.Mdb *.mdb);;Tutti i file (*)"));
    if (copia.isEmpty()) return {};
    QStringList archivi;
    try {
        for (const std::string& a : ArchiviDellaCopia(SS(copia)))
            archivi << QS(a);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileRipristina", e);
        return {};
    }
    if (archivi.isEmpty()) {
        messaggi.Mostra("Vesmo - Ripristina Archivi", "Nessun archivio nella copia\n" + SS(copia),
                        Pulsanti::Ok, Icona::Esclamativo);
        return {};
    }
    frmRipristina d(copia, archivi, genitore);
    if (d.exec() != QDialog::Accepted) return {};
    QStringList fatti;
    std::string testo;
    for (QListWidgetItem* v : d.lstCopia->selectedItems()) {
        try {
            const std::string nome = RipristinaArchivio(fileDB, SS(copia), SS(v->text()));
            fatti << QS(nome);
            testo += SS(v->text()) + "  ripristinato come  " + nome + "\n";
        } catch (const std::exception& e) {
            AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileRipristina", e);
        }
    }
    if (!fatti.isEmpty())
        messaggi.Mostra("Vesmo - Ripristina Archivi", testo, Pulsanti::Ok, Icona::Informazione);
    return fatti;
}

} // namespace vesmo
