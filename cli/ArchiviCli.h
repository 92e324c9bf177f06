// What the archive commands of vesmo-cli share: the database opened from --db, an archive
// found by its name, and a chart row as a table line or a JSON object.
#pragma once

#include <optional>
#include <string>

#include "cli/Argomenti.h"
#include "core/Tema.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo::cli {

// The database of --db (or the one the set-up prepared); a missing file is an error (status 1).
Database ApriArchivi(const Argomenti& a);
// The archive of that name: the exact name, else the one equal to it ignoring case.
std::optional<std::string> TrovaArchivio(const Database& db, const std::string& nome);
// A chart as JSON, the archive's field names.
std::string JsonTemaArchivio(const Tema& t);
// A chart as one line of a table.
std::string RigaTemaArchivio(const Tema& t);
// The head of that table.
std::string TestataTemi();

} // namespace vesmo::cli
