// A zone's history turned into the rows of the two dated lists of the places database: `Fusi`
// (the standard offset, one row for each change, in force from midnight of its day) and `Estive`
// (summer time, one row for each start and end, at the local clock time of the change).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "places/Tzif.h"

namespace vesmo {

// One period split into its standard offset and summer-time amount, in seconds, east positive
// (utoff = standard + summer). `lmt` marks the local mean time that precedes standard time.
struct PeriodoDiviso {
    std::int64_t inizio = Periodo::Sempre;
    std::int32_t standard = 0;
    std::int32_t estiva = 0;
    bool lmt = false;
};

// Splits each period: summer time is measured from the standard time next to it. A "summer"
// period that would be behind its standard time (Ireland's winter, Morocco's Ramadan) is taken
// as the standard time, and its neighbours become the summer time above it.
std::vector<PeriodoDiviso> DividiPeriodi(const std::vector<Periodo>& periodi);

struct RigaFusi {
    std::int32_t cFusi = 0;
    int Day = 1, Mese = 1, Anno = 1900;
    std::string fH_h; // hours of the zone, west positive; "-" alone for a zone less than one
    std::string fH_m; // hour east of Greenwich; minutes as two digits
    bool operator==(const RigaFusi&) const = default;
};

struct RigaEstive {
    std::int32_t cEst = 0;
    int Day = 1, Mese = 1, Anno = 1900;
    int h = 0, min = 0;     // local clock time of the change, as read just before it
    int HE_h = 0, HE_m = 0; // summer time in force from that moment
    bool operator==(const RigaEstive&) const = default;
};

struct StoriaZona {
    std::vector<RigaFusi> fusi;
    std::vector<RigaEstive> estive;
};

// The texts of a zone row for a zone in minutes, west positive: -60 gives "-1" "00", -20 gives
// "-" "20", 210 gives "3" "30".
void TestiFuso(int minutiOvest, std::string& fH_h, std::string& fH_m);

// The rows of one zone's lists, both with code `codice`. The lists begin when the zone leaves
// local mean time (a named mean time such as Rome's "RMT" of 1866 is a zone like any other);
// before that the place's own longitude holds. A zone that never leaves local mean time has
// its lists from 1 January 1900. Offsets are rounded to the minute. A
// zone change falls on the midnight nearest to it.
StoriaZona StoriaDaPeriodi(const std::vector<Periodo>& periodi, std::int32_t codice);

} // namespace vesmo
