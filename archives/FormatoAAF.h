// The AAF exchange format of astrological data: a text of records, each beginning with a line
// "#A93:" (name, first name, kind, date D.M.Y, clock time, place, country abbreviation) and
// followed by other chunks, of which these are read: "#B93:" (Julian day of the instant,
// latitude "45n24", longitude "11e53", zone "1he00", summer time), "#ZNAM:" (the zone's name,
// "LMT" for local mean time), "#COM:" (a comment, which may go on over the lines that follow)
// and "#VESMO:", this workstation's own chunk with the exact values of a chart, which other
// programs pass over. "*" stands for an unknown field; "#:" lines are remarks.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/Scambio.h"

namespace vesmo {

// The records of an AAF text (already UTF-8). A record without "#B93" (or with unknown
// coordinates, or neither zone nor Julian day) is completed through `completa`; when it is
// empty, or cannot find the place, the record is refused. With "#B93" its Julian day and
// coordinates hold: a clock time that does not give that day within a second is set from it.
std::vector<VoceScambio> LeggiAAF(std::string_view testo, const CompletaLuogo& completa);

// The chunks of one chart, each line ending in "\n".
std::string RecordAAF(const Tema& tema);

// The pieces of the chunks, for the tests: a latitude or longitude text into degrees (north and
// east positive), a zone text into hours east positive; nothing when not readable.
std::optional<double> GradiAAF(std::string_view testo, char positivo, char negativo);
std::optional<double> ZonaAAF(std::string_view testo);

} // namespace vesmo
