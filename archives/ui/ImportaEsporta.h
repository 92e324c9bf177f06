// The two entries of the archive management menu that move charts through text files: the
// Solar Fire import with its file dialog, and the text export of the selected archive.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/Messaggi.h"

class QListWidget;
class QWidget;

namespace vesmo {

// The program's own folder, or the user's data folder when the program runs installed.
QString CartellaProgrammaQt();

// The import's file dialog: title "Import Archivio Solar Fire", the three filters, the first in
// force, on the program's folder. An empty text when cancelled. Tests replace it.
using SceltaFileImport = std::function<QString(QWidget* genitore, const QString& cartella)>;
QString DialogoImportSF(QWidget* genitore, const QString& cartella);

// The import entry (mnFileImpSFtxt): the dialog, the name checked against `lstArchivi`, the import,
// the new name added to the list, the log's message.
void mnFileImpSFtxt_Click(QWidget* genitore, QListWidget* lstArchivi, const std::string& fileDB,
                          Messaggi& messaggi, const QString& cartella = CartellaProgrammaQt(),
                          const SceltaFileImport& scelta = DialogoImportSF);

// The export entry (mnFileTT): the export of the archive selected in `lstArchivi` into the
// program's folder.
void mnFileTT_Click(QListWidget* lstArchivi, const std::string& fileDB, Messaggi& messaggi,
                    const QString& cartella = CartellaProgrammaQt());

} // namespace vesmo
