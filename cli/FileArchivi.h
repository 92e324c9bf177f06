// The files of the import, export and query commands of vesmo-cli: the database file and the
// folder where the workstation puts the files it writes beside itself.
#pragma once

#include <string>

#include "cli/Argomenti.h"

namespace vesmo::cli {

// The database of FileDatabase (--db FILE or the usual one); a missing file is told in one line
// (status 1).
std::string DatabaseArchivi(const Argomenti& a);

// The workstation's folder for the files it writes beside itself: build/<dir>/app beside this
// program in a build tree; the user's data folder for an installed program; else the current
// folder.
std::string CartellaProgramma();

} // namespace vesmo::cli
