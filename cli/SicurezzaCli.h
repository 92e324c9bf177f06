// vesmo-cli db sicurezza FILE and db ripristina FILE [ARCHIVIO]: the copy of the whole database
// and an archive brought back from a copy; and the automatic copy of the archives that the
// commands which delete make first.
#pragma once

#include <ostream>

#include "cli/Argomenti.h"

namespace vesmo::cli {

int SicurezzaDb(const Argomenti& a, std::ostream& out);
int RipristinaDb(const Argomenti& a, std::ostream& out);
// The archives of the database of --db copied into the folder of the automatic copies (the
// last seven kept) before a command deletes anything.
void CopiaPrimaDiEliminare(const Argomenti& a);

} // namespace vesmo::cli
