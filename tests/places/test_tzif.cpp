// Zone files: the TZif format and the footer rules, checked against the C library.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "places/Tzif.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

using test::ScriviTzif;
using test::Utc;

const TipoOra Cet{3600, false, "CET"};
const TipoOra Cest{7200, true, "CEST"};

TEST(Tzif, MergesChangesThatKeepTheSameTime) {
    // A change of name only (RMT to CET at the same offset) is no change of the clock.
    const TipoOra rmt{3600, false, "RMT"};
    const ZonaTzif z = LeggiTzif(ScriviTzif({rmt, Cet}, {{Utc(1893, 11, 1), 1}}, "CET-1"), 2030);
    ASSERT_EQ(z.periodi.size(), 1u);
    EXPECT_EQ(z.periodi[0].tipo.abbr, "RMT");
}

TEST(Tzif, RefusesVersionOneAndCutFiles) {
    EXPECT_THROW(LeggiTzif(ScriviTzif({Cet}, {}, "CET-1", '1'), 2030), ErroreTzif);
    const std::string intero = ScriviTzif({Cet, Cest}, {{Utc(2000, 3, 26, 1), 1}}, "CET-1");
    EXPECT_THROW(LeggiTzif(intero.substr(0, intero.size() - 20), 2030), ErroreTzif);
    EXPECT_THROW(LeggiTzif("TZxx", 2030), ErroreTzif);
    EXPECT_THROW(LeggiFileTzif("/nessuna/zona", 2030), ErroreTzif);
}

TEST(Tzif, ReadsTheSystemFileOfRome) {
    // Rome's mean time from 12/12/1866, CET from October 1893, summer time from 3 June 1916.
    const ZonaTzif z = LeggiFileTzif("/usr/share/zoneinfo/Europe/Rome", 2030);
    ASSERT_GT(z.periodi.size(), 100u);
    const auto& p = z.periodi;
    EXPECT_EQ(std::tuple(p[0].tipo.abbr, p[1].tipo.abbr, p[1].tipo.utoff, p[2].tipo.utoff,
                         p[3].tipo.isdst, z.regola),
              std::tuple("LMT", "RMT", 2996, 3600, true, "CET-1CEST,M3.5.0,M10.5.0/3"));
    EXPECT_EQ(
        std::tuple(p[1].inizio, p[2].inizio, p[3].inizio),
        std::tuple(Utc(1866, 12, 11, 23, 10) + 4, Utc(1893, 10, 31, 23), Utc(1916, 6, 3, 23)));
    // Beyond the changes written in the file, the footer's rule.
    const ZonaTzif lunga = LeggiFileTzif("/usr/share/zoneinfo/Europe/Rome", 2040);
    EXPECT_EQ(lunga.periodi.back().inizio, Utc(2040, 10, 28, 1));
}

// The seconds of a year where the C library's offset for the rule changes.
std::vector<std::int64_t> CambiSecondoLibreriaC(const std::string& regola, int anno) {
    setenv("TZ", regola.c_str(), 1);
    tzset();
    std::vector<std::int64_t> cambi;
    auto offset = [](std::int64_t t) {
        std::time_t tt = static_cast<std::time_t>(t);
        std::tm tm{};
        localtime_r(&tt, &tm);
        return tm.tm_gmtoff;
    };
    const std::int64_t fine = Utc(anno + 1, 1, 1);
    for (std::int64_t ora = Utc(anno, 1, 1); ora < fine; ora += 3600) {
        if (offset(ora) == offset(ora + 3600)) continue;
        // Narrow down to the second.
        std::int64_t a = ora, b = ora + 3600;
        while (b - a > 1) {
            const std::int64_t m = (a + b) / 2;
            (offset(m) == offset(a) ? a : b) = m;
        }
        cambi.push_back(b);
    }
    return cambi;
}

TEST(RegolaPosix, ChangesAgreeWithTheCLibrary) {
    const char* regole[] = {
        "CET-1CEST,M3.5.0,M10.5.0/3",       // Europe
        "EST5EDT,M3.2.0,M11.1.0",           // North America
        "AEST-10AEDT,M10.1.0,M4.1.0/3",     // southern hemisphere: the end comes first
        "<-03>3<-02>,M3.5.0/-2,M10.5.0/-1", // negative times of day
        "NZST-12NZDT,M9.5.0,M4.1.0/3",
        "IST-2IDT,M3.4.4/26,M10.5.0",           // a time beyond the day
        "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0", // half-hour summer time
        "XXX3YYY,J60/1,J300/1",                 // Julian days without 29 February
        "XXX3YYY,59/1,299/1",                   // days counted from 0 with 29 February
    };
    for (const char* r : regole)
        for (int anno : {2023, 2024, 2037}) {
            std::vector<std::int64_t> nostri;
            for (const Periodo& p : CambiDellAnno(LeggiRegolaPosix(r), anno))
                nostri.push_back(p.inizio);
            EXPECT_EQ(nostri, CambiSecondoLibreriaC(r, anno)) << r << " " << anno;
        }
    unsetenv("TZ");
    tzset();
}

TEST(RegolaPosix, ReadsNamesOffsetsAndDefaults) {
    const RegolaPosix r = LeggiRegolaPosix("<+0530>-5:30");
    EXPECT_EQ(r.normale.utoff, 19800);
    EXPECT_EQ(r.normale.abbr, "+0530");
    EXPECT_FALSE(r.conEstiva);
    const RegolaPosix e = LeggiRegolaPosix("EST5EDT");
    ASSERT_TRUE(e.conEstiva);
    EXPECT_EQ(e.estiva.utoff, -4 * 3600); // one hour ahead of standard by default
    EXPECT_EQ(e.inizio.mese, 3);
    EXPECT_THROW(LeggiRegolaPosix("C1"), ErroreTzif);
    EXPECT_THROW(LeggiRegolaPosix("CET-1CEST,M13.1.0,M10.5.0"), ErroreTzif);
}

} // namespace
} // namespace vesmo
