// A chart's place completed from the places database, for the charts that come from other
// programs without coordinates or zone: the place of that name (in its nation when given), its
// coordinates, and the zone and summer time in force there at the chart's clock date and time.
#pragma once

#include <string>

#include "core/Tema.h"

namespace vesmo {

// Fills Lon, Lat, Fuso, Estiva and Stato of `tema` from City, Stato, Day and OraL; throws
// std::runtime_error ("luogo sconosciuto: ...", "nazione sconosciuta: ...", "luogo ambiguo:
// ...") when the place cannot be told.
void CompletaTemaDaLuoghi(const std::string& fileDB, Tema& tema);

} // namespace vesmo
