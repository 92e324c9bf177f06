// Helper of the places tests of vesmo-cli: a command line run on a given places database.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/Comandi.h"

namespace vesmo::test {

// Runs `parole` with --db `db`: the exit status, and what was written in `out` and `err`.
inline int EseguiSuDatabase(std::vector<std::string> parole, const std::filesystem::path& db,
                            std::string& out, std::string& err) {
    parole.push_back("--db");
    parole.push_back(db.string());
    std::ostringstream o, e;
    const int stato = cli::Esegui(parole, o, e);
    out = o.str();
    err = e.str();
    return stato;
}

} // namespace vesmo::test
