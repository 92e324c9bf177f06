// A cast chart written out: the positions table as text, or the JSON object of vesmo-cli tema.
#pragma once

#include <string>

#include "core/Tema.h"

namespace vesmo::cli {

// {"Tema": {...}, "TU", "JD", "Posizioni": {...}, "Case": [...], "Aspetti": [...]}
std::string TemaInJson(const Tema& t, const Case& c, const Posizioni& p);
// The chart's four descriptive lines and the positions table.
std::string TemaInTabella(const Tema& t, const Case& c, const Posizioni& p);

} // namespace vesmo::cli
