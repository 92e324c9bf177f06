#include "archives/ui/ImportaEsporta.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <filesystem>

#include "archives/ImportaEsporta.h"
#include "core/Cartelle.h"
#include "core/qt/MessaggiQt.h"

namespace vesmo {

QString CartellaProgrammaQt() {
    const QString programma = QCoreApplication::applicationDirPath();
    if (!ProgrammaInstallato(SS(programma))) return programma;
    const std::filesystem::path dati = CartellaDatiUtente();
    std::error_code ec;
    std::filesystem::create_directories(dati, ec);
    return QS(dati.string());
}

QString DialogoImportSF(QWidget* genitore, const QString& cartella) {
    QFileDialog d(genitore, QStringLiteral("Import Archivio Solar Fire"), cartella);
    d.setNameFilters({QStringLiteral("File di Testo (*.txt)"),
                      QStringLiteral("File Documento (*.doc)"),
                      QStringLiteral("Tutti i file (*)")});
    d.selectNameFilter(QStringLiteral("File di Testo (*.txt)"));
    d.setFileMode(QFileDialog::ExistingFile);
    d.setAcceptMode(QFileDialog::AcceptOpen);
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty()) return {};
    return d.selectedFiles().front();
}

void mnFileImpSFtxt_Click(QWidget* genitore, QListWidget* lstArchivi, const std::string& fileDB,
                          Messaggi& messaggi, const QString& cartella,
                          const SceltaFileImport& scelta) {
    const QString file = scelta(genitore, cartella);
    if (file.isEmpty()) return;
    std::vector<std::string> elenco;
    for (int i = 0; i < lstArchivi->count(); ++i)
        elenco.push_back(SS(lstArchivi->item(i)->text()));
    if (auto esito = ImportaArchivioSF(fileDB, SS(file), elenco, SS(cartella), messaggi))
        lstArchivi->addItem(QS(esito->Archivio));
}

void mnFileTT_Click(QListWidget* lstArchivi, const std::string& fileDB, Messaggi& messaggi,
                    const QString& cartella) {
    QListWidgetItem* voce = lstArchivi->currentItem();
    if (!voce) {
        messaggi.Mostra("Vesmo - Export Archivi", "Selezionare un Archivio da esportare",
                        Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    EsportaArchivio(fileDB, SS(voce->text()), SS(cartella), messaggi);
}

} // namespace vesmo
