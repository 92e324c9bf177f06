// The system's time-zone database: one zone file (TZif, version 2 or later, 64-bit data) read
// into the list of periods of its local time, with the rule of its footer carried on to a given
// year. Times are seconds from 1970-01-01 00:00 UTC.
#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vesmo {

// A zone file that cannot be read or is not a TZif file of version 2 or later.
class ErroreTzif : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One local time type: offset from UTC in seconds (east positive), summer flag, abbreviation.
struct TipoOra {
    std::int32_t utoff = 0;
    bool isdst = false;
    std::string abbr;
    bool operator==(const TipoOra&) const = default;
};

// A stretch of time with one local time type, from `inizio` up to the next period.
struct Periodo {
    static constexpr std::int64_t Sempre = std::numeric_limits<std::int64_t>::min();
    std::int64_t inizio = Sempre; // the first period of a zone reaches back for ever
    TipoOra tipo;
};

// A zone's history: its periods in time order, the first one open to the past.
struct ZonaTzif {
    std::vector<Periodo> periodi;
    std::string regola; // the footer: the POSIX TZ rule after the last transition ("" if none)
};

// A POSIX TZ rule such as "CET-1CEST,M3.5.0,M10.5.0/3" or "<+0530>-5:30".
struct RegolaPosix {
    TipoOra normale;
    bool conEstiva = false;
    TipoOra estiva;
    // Each date as the rule writes it: 'J' (Jn), 'N' (n) or 'M' (Mm.w.d), and the local time
    // of the change in seconds (it may be negative or beyond a day).
    struct Data {
        char tipo = 'M';
        int n = 0, mese = 0, settimana = 0, giornoSett = 0;
        std::int32_t ora = 7200;
    } inizio, fine;
};

RegolaPosix LeggiRegolaPosix(std::string_view testo);

// The changes of a rule in one year, UTC seconds with the type that begins there, in time order.
std::vector<Periodo> CambiDellAnno(const RegolaPosix& regola, int anno);

// Reads a zone file from bytes or from a path. The footer rule is carried on up to the end of
// `annoFine`; periods that repeat the type before them are merged.
ZonaTzif LeggiTzif(std::string_view byte, int annoFine);
ZonaTzif LeggiFileTzif(const std::string& percorso, int annoFine);

// Days from 1970-01-01 of a date of the proleptic Gregorian calendar, and back.
std::int64_t GiorniDaCivile(std::int64_t anno, int mese, int giorno);
void CivileDaGiorni(std::int64_t giorni, std::int64_t& anno, int& mese, int& giorno);

} // namespace vesmo
