// Delta T in and out of its table, and the four lines that describe a chart in the chart menu.
#include <gtest/gtest.h>

#include <string>

#include "core/Aritmetica.h"
#include "core/Tema.h"
#include "ephemeris/DeltaT.h"
#include "ephemeris/TestoDatiTema.h"

using namespace vesmo;

TEST(DeltaT, TabellaEFormulaFuori) {
    const std::pair<double, double> tabella[] = {
        {1710, -0.2},       // first row
        {1720, -0.15},      // halfway to 1730
        {1900, -0.0375},    // between 1895 and 1903
        {1990, 56.86 / 60}, // a row the calculator's help leaves out
        {1998, 64.0 / 60},  // last row
    };
    for (auto [anno, minuti] : tabella)
        EXPECT_DOUBLE_EQ(DeltaT(anno, anno, 6, 1), minuti) << anno;
    EXPECT_NEAR(DeltaT(1997.5, 1997, 7, 1), 63.5 / 60, 1e-12);
    // Only the year enters: month and day change nothing inside the table.
    EXPECT_EQ(DeltaT(1950, 1950, 1, 1), DeltaT(1950, 1950, 12, 31));
    // 1999 January 1: T = 0.99, 0.41 + 1.2053 T + 0.4992 T^2 = 2.09 minutes, a jump of a
    // minute from the 1.07 of 1998; outside the table the date counts, inside the year.
    EXPECT_NEAR(DeltaT(1999, 1999, 1, 1), 2.09, 0.005);
    EXPECT_LT(DeltaT(1999, 1999, 1, 1), DeltaT(1999, 1999, 12, 31));
    // Before 1710 too: 1700 January 1 gives T = -2.0, about 0 minutes.
    EXPECT_NEAR(DeltaT(1700, 1700, 1, 1), 0.41 - 2 * 1.2053 + 4 * 0.4992, 0.002);
}

namespace {

struct Testi {
    std::string t1, t2, t3, t4;
};

Testi DatiTema(double oraL, double estiva, double fuso, double lon, double lat) {
    Tema t;
    t.Day = GiornoGiuliano(1987, 4, 10); // 2446895.5
    t.OraL = oraL;
    t.Estiva = estiva;
    t.Fuso = fuso;
    t.Lon = lon;
    t.Lat = lat;
    Testi r;
    TestoDatiTema(t, r.t1, r.t2, r.t3, r.t4);
    return r;
}

} // namespace

TEST(TestoDatiTema, QuattroTesti) {
    // Clock 21h21m, summer time 1, zone one hour east: TU 19h21m, the instant of Meeus' example
    // 12.b, where apparent sidereal time is 8h34m56.8s.
    Testi r = DatiTema(21.35, 1, -1, 0, 0);
    EXPECT_EQ(r.t1, "10/4/1987       21:21:0        1");
    EXPECT_EQ(r.t2, "0 0 0      0 0 0");
    EXPECT_EQ(r.t3, "8:34:56          2.446.896,31");
    EXPECT_EQ(r.t4, "E1   ");
    // Milan, 11E53 45N24: the local sidereal time is 47m32s ahead of Greenwich's; the west
    // letter of these lines is the Italian "O".
    r = DatiTema(21.35, 0, 5.5, -(11 + 53.0 / 60) / 15, 45.4);
    EXPECT_EQ(r.t2, "11E53 0      45N24 0");
    EXPECT_EQ(r.t4, "O5,5 ");
    // TU is now 26h51m, the next day's 2h51m.
    EXPECT_EQ(r.t3.substr(r.t3.size() - 12), "2.446.896,62");
    Testi o = DatiTema(10, 0, 0, 5, -33.5);
    EXPECT_EQ(o.t2, "75O0 0      33S30 0");
    EXPECT_EQ(o.t4, "0    ");
    EXPECT_EQ(DatiTema(10, 0, -10.75, 0, 0).t4, "E10,7"); // cut to five characters
    EXPECT_EQ(DatiTema(-0.5, 0, 0, 0, 0).t1, "9/4/1987       23:30:0        0");
    EXPECT_EQ(DatiTema(24.5, 0, 0, 0, 0).t1, "11/4/1987       0:30:0        0");
    // The Julian day is that of the instant as it stands.
    std::string t3 = DatiTema(-0.5, 0, 0, 0, 0).t3;
    EXPECT_EQ(t3.substr(t3.size() - 22), std::string(10, ' ') + "2.446.895,48");
}
