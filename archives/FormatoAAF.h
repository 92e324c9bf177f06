// The AAF exchange format of astrological data: a text of records, each beginning with a line
// "#A93:" (name, first name, kind, date D.M.Y, clock time, place, country abbreviation) and
// followed by other chunks, of which these are read: "#B93:" (Julian day of the instant,
// latitude "45n24", longitude "11e53", zone "1he00", summer time), "#ZNAM:" (the zone's name,
// "LMT" for local mean time), "#COM:" (a comment, which may go on over the lines that follow)
// and "#VESMO:", this workstation's own chunk with the exact values of a chart, which other
// programs pass over. "*" stands for an unknown field; "#:" lines are remarks.
#pragma once

#include <cstdint>
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

// One record as the reader gathered it: the fields of its chunks, split at the commas and
// trimmed, and its comment.
struct BloccoAAF {
    std::int64_t riga = 0; // the line of its "#A93", from 1
    std::vector<std::string> a93, b93, vesmo;
    bool lmt = false; // "#ZNAM:" named local mean time
    bool conB93 = false, conVesmo = false;
    std::string commento;
};

// What "#B93" says, each value only when given.
struct DatiB93 {
    std::optional<double> jd, lat, lon, zona, estiva; // lat/lon in degrees north/east
    bool lmt = false;                                 // local mean time ("#ZNAM:" or "L"/"M")
};

// The steps of reading one record into an entry. Each step that can refuse the record returns
// the reason ("" when it does not) and leaves the chart as far as it got.
// - LeggiA93: name (surname, first name), comment, place, country, date and clock time.
// - LeggiProprio: the own chunk's exact values, taken (true) only when all are readable and
//   belong to the chart's date and, within a minute, its clock time; else the chart is untouched.
// - LeggiB93: reads "#B93" into `d` checking each field and the Julian day against `day`;
//   touches no chart. Without "#B93" only the local mean time of "#ZNAM:" is set.
// - CompletaDaLuoghi: when the coordinates or the zone are missing, fills them through
//   `completa` and writes the note; does nothing otherwise.
// - ApplicaB93: puts coordinates, zone and summer time into the chart; with a Julian day, finds
//   the zone from it or corrects the clock time to it (with a note); refuses a zone over 24 h.
// VoceAAF runs them in this order, stopping at the first refusal.
std::string LeggiA93(const BloccoAAF& r, Tema& t);
bool LeggiProprio(const BloccoAAF& r, Tema& t);
std::string LeggiB93(const BloccoAAF& r, double day, DatiB93& d);
std::string CompletaDaLuoghi(const DatiB93& d, const CompletaLuogo& completa, VoceScambio& v);
std::string ApplicaB93(const BloccoAAF& r, const DatiB93& d, VoceScambio& v);
VoceScambio VoceAAF(const BloccoAAF& r, const CompletaLuogo& completa);

// The pieces of the chunks, for the tests: a latitude or longitude text into degrees (north and
// east positive), a zone text into hours east positive; nothing when not readable.
std::optional<double> GradiAAF(std::string_view testo, char positivo, char negativo);
std::optional<double> ZonaAAF(std::string_view testo);

} // namespace vesmo
