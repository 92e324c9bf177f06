// Where the program keeps its settings and its database. Run from a build tree, everything stays
// in the program's own folder. An installed program (<prefix>/bin/vesmo beside
// <prefix>/share/vesmo/, or a folder it cannot write) keeps Vesmodat.ini in the user's
// configuration folder and a copy of the delivered database in the user's data folder, by the
// freedesktop rule: $XDG_CONFIG_HOME or ~/.config, $XDG_DATA_HOME or ~/.local/share, then "vesmo".
#pragma once

#include <filesystem>
#include <string>

namespace vesmo {

inline constexpr const char* NomeFileDB = "Vesmodat.Mdb";

// The database delivered with an installed program whose executable stands in
// `cartellaProgramma` (<prefix>/share/vesmo/Vesmodat.Mdb), or empty when there is none.
std::filesystem::path DatabaseConsegnato(const std::filesystem::path& cartellaProgramma);

// True when the program in `cartellaProgramma` runs installed: its database was delivered
// beside it, or it cannot write its own folder.
bool ProgrammaInstallato(const std::filesystem::path& cartellaProgramma);

// The user's folders for Vesmo (not created).
std::filesystem::path CartellaConfigUtente();
std::filesystem::path CartellaDatiUtente();

// The folder of Vesmodat.ini: the program's own, or the user's configuration folder.
std::filesystem::path CartellaImpostazioni(const std::filesystem::path& cartellaProgramma);

// The user's copy of the delivered database, made on the first call (the folder included) and
// never overwritten afterwards, since it holds the user's archives. Empty when the program is
// not installed or nothing was delivered; `errore` tells why a copy could not be made.
std::filesystem::path CopiaUtenteDatabase(const std::filesystem::path& cartellaProgramma,
                                          std::string* errore = nullptr);

} // namespace vesmo
