// The database a vesmo-cli command works on: --db FILE, or the usual one of the program.
#pragma once

#include <filesystem>

#include "cli/Argomenti.h"
#include "core/store/Database.h"

namespace vesmo::cli {

// --db FILE; else data/Vesmodat.Mdb of the source tree the program was built in (the program
// stands in build/<dir>/cli/); else, installed, the workstation's database (its settings' choice
// or the user's copy of the delivered one); else ./data/Vesmodat.Mdb.
std::filesystem::path FileDatabase(const Argomenti& a);

// Opens FileDatabase(a); a missing file is told in one line (status 1).
Database ApriDatabase(const Argomenti& a);

} // namespace vesmo::cli
