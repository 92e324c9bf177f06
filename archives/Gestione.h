// Work on whole archives and on the charts inside them: deleting an archive, copying all its
// charts into another, taking a table of birthdays from a side database, the wider search on
// names, deleting or moving the chart under a cursor, and putting a picked chart into a slot.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo {

// The question before an archive is deleted (title "Lyx - Gestione Archivi").
std::string TestoEliminaArchivio(const std::string& nome);
// Drops the table of exactly that name; nothing when there is none or when the name is a places
// table's (not an archive). True when one was dropped.
bool EliminaArchivio(const std::string& fileDB, const std::string& nome);

// Appends every chart of `sorgente`, in index order, to `destinazione`, the ten fields by value,
// with no comparison of names. The rows are read before the first is appended, so that an
// archive copied into itself doubles and the copy ends. Returns the charts copied.
std::int64_t TrasportaArchivio(const std::string& fileDB, const std::string& sorgente,
                               const std::string& destinazione);

// 0 when no table of the database has the name `rName` (upper case compared); else the user is
// asked "La tabella esiste già. Eliminarla?": Yes drops that table and gives 0, No gives -1. Any
// failure, also of the drop, gives 0.
std::int32_t DupeTableName(Database& gdbCurrentDB, const std::string& rName, Messaggi& messaggi);

// The side database of the birthdays and its table.
inline constexpr const char* FileCompleanni = "AstDbTmp.mdb";
inline constexpr const char* TabellaCompleanni = "Compleanni";

struct EsitoCompleanni {
    std::string tabella;    // the name of the new archive
    std::int64_t importati; // the rows copied
};
// Copies the table "Compleanni" of `fileSorgente` into the database as a new table: named
// "Compleanni" when DupeTableName allows it, else "Compleanni1", "Compleanni2"... The indexes of
// the source table are made again on the copy.
EsitoCompleanni ImportaCompleanni(const std::string& fileDB,
                                  const std::filesystem::path& fileSorgente, Messaggi& messaggi);
// The caption of the import button after an import: "12  Importati".
std::string DidascaliaImportati(std::int64_t n);

// The names of `archivio` that hold `testo` anywhere (case ignored), in index order. The text is
// bound to the statement, so that an apostrophe or a percent sign is only a character.
std::vector<std::string> RicercaEstesa(Database& db, const std::string& archivio,
                                       const std::string& testo);

// The question before a chart is deleted (title "Lyx - Elimina Temi" or "Vesmo - Elimina Temi").
std::string TestoEliminaTema(const std::string& nome);
// Deletes the current row and moves to the one before; from the first row it goes to the new
// first row, when rows are left.
void EliminaTemaCorrente(Cursore& rs);

// The texts of the move of a chart to another archive.
std::string TestoArchiviUguali(const std::string& sorgente, const std::string& destinazione);
std::string TestoTrasferire(const std::string& nome, const std::string& city,
                            const std::string& sorgente, const std::string& destinazione);
std::string TestoTrasferito(const std::string& nome, const std::string& sorgente,
                            const std::string& destinazione);
// Appends the current row of `sorgente` to the archive `destinazione` of the same database, the
// ten fields by value in the order of the schema. The source row is not touched.
void CopiaTemaIn(Database& db, Cursore& sorgente, const std::string& destinazione);

// Slot 0..3 (Natale, Transito, Rivoluzione, Direzione) takes TemaX and PosX; slots 1 to 3 are
// marked computed, and the revolution's instant is that of the chart loaded.
void ImportaInSlot(Sessione& s, int slot);

} // namespace vesmo
