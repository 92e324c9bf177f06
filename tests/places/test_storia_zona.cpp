// A zone's history as Fusi and Estive rows: standard and summer time, days and clock times.
#include <gtest/gtest.h>

#include "places/StoriaZona.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

using test::Utc;

TipoOra T(std::int32_t utoff, bool dst, const char* abbr) {
    return {utoff, dst, abbr};
}

TEST(StoriaZona, ZoneTexts) {
    struct Caso {
        int minuti;
        const char *h, *m;
    } casi[] = {{-60, "-1", "00"},  {-20, "-", "20"}, {210, "3", "30"},    {0, "0", "00"},
                {-330, "-5", "30"}, {45, "0", "45"},  {-765, "-12", "45"}, {600, "10", "00"}};
    for (const Caso& c : casi) {
        std::string h, m;
        TestiFuso(c.minuti, h, m);
        EXPECT_EQ(std::tuple(h, m), std::tuple(c.h, c.m)) << c.minuti;
    }
}

TEST(StoriaZona, SummerTimeIsMeasuredFromTheStandardTimeBeside) {
    // Lisbon 1992-96: summer time measured from the standard time that follows, not 0.
    const std::vector<Periodo> p{{Periodo::Sempre, T(0, false, "WET")},
                                 {Utc(1992, 3, 29, 1), T(3600, true, "WEST")},
                                 {Utc(1992, 9, 27, 1), T(3600, false, "CET")},
                                 {Utc(1996, 3, 31, 1), T(3600, true, "WEST")},
                                 {Utc(1996, 10, 27, 1), T(0, false, "WET")}};
    const auto d = DividiPeriodi(p);
    // The third: not 3600 - 3600 = 0 of summer.
    for (auto [i, standard, estiva] : {std::tuple{1u, 0, 3600}, {2u, 3600, 0}, {3u, 0, 3600}})
        EXPECT_EQ(std::tuple(d[i].standard, d[i].estiva), std::tuple(standard, estiva)) << i;
}

TEST(StoriaZona, WinterTimeBehindStandardBecomesTheStandardTime) {
    // Ireland from 1968: a "summer" flag on the winter time, behind the standard time.
    const std::vector<Periodo> p{{Periodo::Sempre, T(-1521, false, "LMT")},
                                 {Utc(1968, 10, 27), T(3600, false, "IST")},
                                 {Utc(1971, 10, 31, 2), T(0, true, "GMT")},
                                 {Utc(1972, 3, 19, 2), T(3600, false, "IST")},
                                 {Utc(1972, 10, 29, 2), T(0, true, "GMT")}};
    const auto d = DividiPeriodi(p);
    EXPECT_TRUE(d[0].lmt);
    for (auto [i, estiva] : {std::pair{1u, 3600}, {2u, 0}, {3u, 3600}, {4u, 0}})
        EXPECT_EQ(std::tuple(d[i].standard, d[i].estiva), std::tuple(0, estiva)) << i;
}

TEST(StoriaZona, ListsBeginWhenLocalMeanTimeEnds) {
    const std::vector<Periodo> p{{Periodo::Sempre, T(2996, false, "LMT")},
                                 {Utc(1893, 10, 31, 23, 10), T(3600, false, "CET")},
                                 {Utc(1916, 6, 3, 23), T(7200, true, "CEST")},
                                 {Utc(1916, 9, 30, 23), T(3600, false, "CET")}};
    const StoriaZona s = StoriaDaPeriodi(p, 7);
    // Summer time starts at midnight by the standard clock, ends at 01:00 by the summer one.
    EXPECT_EQ(s.fusi, (std::vector<RigaFusi>{{7, 1, 11, 1893, "-1", "00"}}));
    EXPECT_EQ(s.estive, (std::vector<RigaEstive>{{7, 1, 11, 1893, 0, 0, 0, 0},
                                                 {7, 4, 6, 1916, 0, 0, 1, 0},
                                                 {7, 1, 10, 1916, 1, 0, 0, 0}}));
}

TEST(StoriaZona, LocalMeanTimeAfter1900StaysThePlacesOwn) {
    // Mean time (+0:17:30) until 1920: the lists begin then; before, each place's own.
    const std::vector<Periodo> p{{Periodo::Sempre, T(1050, false, "LMT")},
                                 {Utc(1920, 4, 30, 23, 42) + 30, T(0, false, "GMT")}};
    const StoriaZona s = StoriaDaPeriodi(p, 3);
    EXPECT_EQ(s.fusi, (std::vector<RigaFusi>{{3, 1, 5, 1920, "0", "00"}}));
    EXPECT_EQ(s.estive.size(), 1u);
}

TEST(StoriaZona, ACapitalsMeanTimeIsAZoneOfItsOwn) {
    // Rome's mean time for all Italy from 12/12/1866 (+0:49:56, 50 minutes), then CET.
    const std::vector<Periodo> p{{Periodo::Sempre, T(2996, false, "LMT")},
                                 {Utc(1866, 12, 11, 23, 10) + 4, T(2996, false, "RMT")},
                                 {Utc(1893, 10, 31, 23, 10) + 4, T(3600, false, "CET")}};
    const StoriaZona s = StoriaDaPeriodi(p, 5);
    EXPECT_EQ(s.fusi,
              (std::vector<RigaFusi>{{5, 12, 12, 1866, "-", "50"}, {5, 1, 11, 1893, "-1", "00"}}));
}

TEST(StoriaZona, AZoneChangeFallsOnTheNearestMidnight) {
    // Changes at 23:00 and at 05:00 local time after the change.
    const std::vector<Periodo> p{{Periodo::Sempre, T(0, false, "A")},
                                 {Utc(1950, 3, 10, 20), T(3 * 3600, false, "B")},
                                 {Utc(1960, 3, 10, 1), T(4 * 3600, false, "C")},
                                 {Utc(1960, 3, 10, 10), T(5 * 3600, false, "D")}};
    const StoriaZona s = StoriaDaPeriodi(p, 1);
    // 10 March 1960, 05:00 and 15:00 local: the later from the next midnight.
    EXPECT_EQ(s.fusi, (std::vector<RigaFusi>{{1, 1, 1, 1800, "0", "00"},
                                             {1, 11, 3, 1950, "-3", "00"},
                                             {1, 10, 3, 1960, "-4", "00"},
                                             {1, 11, 3, 1960, "-5", "00"}}));
}

TEST(StoriaZona, TwoChangesOnOneDayKeepTheLater) {
    const std::vector<Periodo> p{{Periodo::Sempre, T(0, false, "A")},
                                 {Utc(1950, 3, 10, 1), T(3600, false, "B")},
                                 {Utc(1950, 3, 10, 3), T(7200, false, "C")},
                                 {Utc(1951, 3, 10, 1), T(3600, false, "B")},
                                 {Utc(1951, 3, 10, 3), T(0, false, "A")}};
    const StoriaZona s = StoriaDaPeriodi(p, 1);
    // 1950: only the +2 stands on 10 March; 1951: back to 0, with +1 lasting two hours, gone.
    ASSERT_EQ(s.fusi.size(), 3u);
    EXPECT_EQ(std::tuple(s.fusi[1].fH_h, s.fusi[2].fH_h, s.fusi[2].Anno),
              std::tuple("-2", "0", 1951));
}

TEST(StoriaZona, HalfHourSummerTimeAndAZoneWithoutMeanTime) {
    const std::vector<Periodo> p{{Periodo::Sempre, T(37800, false, "+1030")},
                                 {Utc(1981, 10, 24, 15, 30), T(39600, true, "+11")},
                                 {Utc(1982, 3, 6, 13), T(37800, false, "+1030")}};
    const StoriaZona s = StoriaDaPeriodi(p, 2);
    EXPECT_EQ(s.fusi[0], (RigaFusi{2, 1, 1, 1800, "-10", "30"}));
    ASSERT_EQ(s.estive.size(), 3u);
    EXPECT_EQ(s.estive[1], (RigaEstive{2, 25, 10, 1981, 2, 0, 0, 30}));
    EXPECT_EQ(s.estive[2], (RigaEstive{2, 7, 3, 1982, 0, 0, 0, 0}));
}

} // namespace
} // namespace vesmo
