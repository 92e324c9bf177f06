// What the archive commands of vesmo-cli share: the database file and the folder where the
// workstation puts the files it writes beside itself.
#pragma once

#include <string>

#include "cli/Argomenti.h"

namespace vesmo::cli {

// --db FILE; else data/Vesmodat.Mdb of the source tree the program was built in; else
// ./data/Vesmodat.Mdb. A file that does not exist is a bad argument.
std::string DatabaseArchivi(const Argomenti& a);

// The workstation's folder beside this program (build/<dir>/app), else the current folder.
std::string CartellaProgramma();

} // namespace vesmo::cli
