// The birth data of a chart given on the command line: --data, --ora, --lon, --lat, --fuso,
// --estiva, --nome, --luna.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/Argomenti.h"
#include "core/Tema.h"

namespace vesmo::cli {

// A place of the places database with the zone and summer time in force there at a local date
// and time (--db FILE chooses the database).
struct LuogoRisolto {
    Tema tema;             // City, Stato, cNaz, Lon, Lat, Fuso, Estiva, cFusi, cEst, Day, OraL
    std::string messaggio; // the question or status text the entry form would show
    bool lmt = false;      // local mean time was set
    std::int64_t cFusi = 0, cEst = 0;
    std::string testoData;
    std::string nomeAlt; // the other name of the place that found it ("Parigi"), else ""
};
LuogoRisolto RisolviLuogo(const Argomenti& a, const std::string& city,
                          const std::optional<std::string>& nazione, const Data& d, const Ora& o);

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
