// Charts as a spreadsheet's file (CSV): a header row with the fields' names, then one chart a
// row. Written with the columns Nome, Data (GG/MM/AAAA), Ora (HH:MM:SS), City, Nazione, Lon,
// Lat, Fuso, Estiva (the archive's units: hours west, degrees north, hours west, hours), Day,
// OraL (the archive's exact values) and Cmto, comma separated, texts in double quotes where
// they hold a comma, a quote or a line end. Read with the columns in any order and case,
// separated by commas, semicolons or tabs (as the header row shows); with semicolons or tabs a
// decimal comma is read too. Day and OraL, when there, give the date and time; else Data and
// Ora. Lon and Lat may be texts such as "11E53" and "45N24". A row without Lon, Lat or Fuso is
// completed from the places database.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "archives/Scambio.h"

namespace vesmo {

std::vector<VoceScambio> LeggiCSV(std::string_view testo, const CompletaLuogo& completa);

// The header row and a chart's row, each ending in "\r\n".
std::string TestataCSV();
std::string RigaCSV(const Tema& tema);

} // namespace vesmo
