// Work on several charts of an archive at once, chosen in a list: deleting them or moving them
// to another archive after one question that says how many; and renaming an archive.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo {

// The questions: "Eliminare i 3 temi selezionati dall'Archivio Clienti?" and "Trasferire i 3
// temi selezionati\ndall' Archivio   Clienti\nall' Archivio     Amici ?".
std::string TestoEliminaTemi(std::size_t quanti, const std::string& archivio);
std::string TestoTrasferireTemi(std::size_t quanti, const std::string& sorgente,
                                const std::string& destinazione);

// Deletes the rows of `archivio` in one transaction. Returns how many went.
std::int64_t EliminaTemi(Database& db, const std::string& archivio,
                         const std::vector<Segnalibro>& righe);
// Appends the rows to `destinazione`, the ten fields by value, then deletes them from
// `sorgente`, all in one transaction: nothing is lost or doubled when it fails.
std::int64_t TrasferisciTemi(Database& db, const std::string& sorgente,
                             const std::string& destinazione, const std::vector<Segnalibro>& righe);

// Renames the archive `vecchio` to the name typed, under the rules of a new archive's name
// (NomeNuovoArchivio against the other archives, then the one rule of ErroreNomeArchivio, whose
// reason is told in a message). The new name, or nothing when refused or given up.
std::optional<std::string> RinominaArchivio(const std::string& fileDB, const std::string& vecchio,
                                            const std::string& testo, Messaggi& messaggi);

} // namespace vesmo
