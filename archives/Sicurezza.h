// Copies that keep the archives safe: the copy of the whole database file to a file the user
// chooses, the automatic copy of the archives into the user's data folder before any action
// that deletes (the last seven kept), and an archive brought back from either copy.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/Messaggi.h"

namespace vesmo {

// The whole database into `fileCopia` (replaced when it stands: the user chose it), through the
// engine's online backup, safe while the program or another one writes to the file. The copy is
// made beside the target under a name of its own and then put in its place.
void CopiaDiSicurezza(const std::string& fileDB, const std::string& fileCopia);

// How many automatic copies are kept.
inline constexpr int CopieTenute = 7;
// The folder of the automatic copies inside the user's data folder.
inline constexpr const char* CartellaCopie = "Copie archivi";

// Copies every archive of `fileDB` into a new file of `cartella` (made when missing), named
// "Archivi-NNNNNN.Mdb" with NNNNNN one more than the highest there, then deletes the oldest
// copies beyond the last seven. Returns the path of the new copy.
std::filesystem::path CopiaAutomaticaArchivi(const std::string& fileDB,
                                             const std::filesystem::path& cartella);
// The automatic copy before an action that deletes, made when `cartella` is not empty. A copy
// that fails is told (title "Vesmo - Copia automatica", naming `routine`) and false returned:
// the caller then deletes nothing.
bool CopiaPrimaDiEliminare(const std::string& fileDB, const std::string& cartella,
                           Messaggi& messaggi, const std::string& routine);
// The automatic copies of `cartella`, oldest first.
std::vector<std::filesystem::path> CopieAutomatiche(const std::filesystem::path& cartella);

// The archives kept in a copy (either kind), in the file's order of tables.
std::vector<std::string> ArchiviDellaCopia(const std::string& fileCopia);

// Brings the archive `archivio` of the copy `fileCopia` back into `fileDB`, with its index:
// under its own name when no archive has it, else under the first free name "Nome_1",
// "Nome_2"... so that nothing standing is touched. Returns the name it has now; ErroreDB 3078
// when the copy has no such archive.
std::string RipristinaArchivio(const std::string& fileDB, const std::string& fileCopia,
                               const std::string& archivio);

} // namespace vesmo
