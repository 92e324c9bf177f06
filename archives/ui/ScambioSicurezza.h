// The entries of the archive management form that exchange charts with other programs (AAF and
// spreadsheet files, in and out) and keep them safe (the copy of the whole database, an archive
// brought back from a copy). The file dialogs can be replaced by tests.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <string>

#include "archives/Scambio.h"
#include "core/Messaggi.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace vesmo {

// A file dialog: title, folder, filters; the file chosen, or an empty text when cancelled.
using SceltaFile = std::function<QString(QWidget* genitore, const QString& titolo,
                                         const QString& cartella, const QString& filtri)>;
QString DialogoApriFile(QWidget* genitore, const QString& titolo, const QString& cartella,
                        const QString& filtri);
QString DialogoSalvaFile(QWidget* genitore, const QString& titolo, const QString& cartella,
                         const QString& filtri);

// The import dialog, caption "Vesmo - Importa Temi": the file and its format, the archive
// (one of those listed or a new name, the file's name without extension at first), the choice to
// import again the charts already in the archive.
class frmImportaScambio : public QDialog {
    Q_OBJECT
public:
    frmImportaScambio(const QString& file, FormatoScambio formato, const QStringList& archivi,
                      QWidget* genitore = nullptr);
    QLabel *lbFile, *lbFormato;
    QComboBox* cmbArchivio;
    QCheckBox* chkDoppi;
    QPushButton *cmdImporta, *cmdAnnulla;
};

// The import entry: the file dialog, the import dialog, the import (records without place
// data completed through `completa`), the log beside the program, the closing message. The
// archive imported into, or an empty text.
QString ImportaScambioUtente(QWidget* genitore, QListWidget* lstArchivi, const std::string& fileDB,
                             FormatoScambio formato, Messaggi& messaggi, const QString& cartella,
                             const CompletaLuogo& completa, const SceltaFile& scelta);

// The text of the closing message of an import.
std::string TestoEsitoImport(const EsitoImportScambio& e, const std::string& log);

// The export entry: the archive selected in `lstArchivi` into the file chosen.
void EsportaScambioUtente(QWidget* genitore, QListWidget* lstArchivi, const std::string& fileDB,
                          FormatoScambio formato, Messaggi& messaggi, const QString& cartella,
                          const SceltaFile& scelta);

// "Copia di sicurezza...": the whole database into the file chosen.
void CopiaDiSicurezzaUtente(QWidget* genitore, const std::string& fileDB, Messaggi& messaggi,
                            const QString& cartella, const SceltaFile& scelta);

// The dialog of "Ripristina...", caption "Vesmo - Ripristina Archivi": the archives of a copy,
// several may be chosen.
class frmRipristina : public QDialog {
    Q_OBJECT
public:
    frmRipristina(const QString& copia, const QStringList& archivi, QWidget* genitore = nullptr);
    QListWidget* lstCopia;
    QPushButton *cmdRipristina, *cmdAnnulla;
};

// "Ripristina...": a copy chosen (the folder of the automatic copies at first), its archives
// shown, the ones chosen brought back (a name that stands gets "_1"...). The names they have.
QStringList RipristinaUtente(QWidget* genitore, const std::string& fileDB, Messaggi& messaggi,
                             const QString& cartellaCopie, const SceltaFile& scelta);

} // namespace vesmo
