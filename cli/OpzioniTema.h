// The birth data of a chart given on the command line: --data, --ora, --lon, --lat, --fuso,
// --estiva, --nome, --luna.
#pragma once

#include <string>
#include <vector>

#include "cli/Argomenti.h"
#include "core/Tema.h"

namespace vesmo::cli {

// The options that describe a chart, for Argomenti::Consenti.
std::vector<std::string> OpzioniDelTema();

// Reads the chart; a missing or malformed option throws ErroreArgomenti.
Tema LeggiTema(const Argomenti& a);
// 1 geocentric (the default), 0 topocentric.
std::int16_t LeggiLuna(const Argomenti& a);

// A longitude as "11E53", "11E53'30" or decimal degrees with a letter ("11.8818E", "0.5W"),
// in hours west positive; a latitude as "45N24" or "45.4152N", in degrees north positive.
double LeggiLongitudine(const std::string& testo);
double LeggiLatitudine(const std::string& testo);

} // namespace vesmo::cli
