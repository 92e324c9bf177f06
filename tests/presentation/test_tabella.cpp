// The positions table: heads, each kind of row, and the texts of cells without a value.
#include <gtest/gtest.h>

#include <tuple>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "presentation/TabellaPosizioni.h"

using namespace vesmo;

namespace {

struct Calcolato {
    Case c;
    Posizioni p;
};

Calcolato Casta(double lat) {
    Tema t;
    t.Day = GiornoGiuliano(1987, 4, 10);
    t.OraL = 19.5;
    t.Fuso = -1;
    t.Estiva = 1;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = lat;
    Calcolato r;
    MessaggiRegistrati m;
    CastaTema(t, r.c, r.p, 1, m);
    return r;
}

} // namespace

TEST(TabellaPosizioni, TestateERighe) {
    Calcolato k = Casta(45.4);
    TabellaPosizioni t = RiempiTabella(k.c, k.p);
    const std::tuple<std::size_t, std::size_t, const char*> testate[] = {
        {0, 1, "Segno "}, {0, 5, "<Declinazione   "}, {0, 10, " A.R. (Dec.)"}, {1, 0, "Asce."},
        {4, 0, "FC"},     {7, 0, "Disce."},           {13, 0, "Sole"},         {25, 0, "Lil.Vera"}};
    for (const auto& [riga, colonna, testo] : testate)
        EXPECT_EQ(t.celle[riga][colonna], testo) << riga << " " << colonna;
    // Cusps: no motion, no house, no right ascension in decimals.
    for (int i = 1; i <= 12; ++i) {
        EXPECT_EQ(t.celle[static_cast<std::size_t>(i)][3], "***");
        EXPECT_EQ(t.celle[static_cast<std::size_t>(i)][4], "******");
        EXPECT_EQ(t.celle[static_cast<std::size_t>(i)][10], "");
    }
    // The Sun on 10 April 1987 at 20°18'49" of Aries, with seconds; no latitude.
    EXPECT_EQ(t.celle[13][1], "Ariete");
    EXPECT_EQ(t.celle[13][2], " 20°  18' 49''");
    EXPECT_EQ(t.celle[13][3], "***");
    EXPECT_EQ(t.celle[13][9], "******");
    EXPECT_EQ(t.celle[13][4], " " + std::to_string(k.p.Sole.Ca));
    // Saturn was retrograde that day, Jupiter direct.
    EXPECT_EQ(t.celle[19][3], "R");
    EXPECT_EQ(t.celle[18][3], "");
    // Mean Lilith has no declination or ascensions to show.
    for (std::size_t colonna : {5, 6, 7, 9})
        EXPECT_EQ(t.celle[24][colonna], "******") << colonna;
    EXPECT_EQ(t.celle[24][3], "**");
    EXPECT_EQ(t.celle[25][3], "**");
    // Decimal longitude with six decimals and the comma.
    EXPECT_NE(t.celle[13][8].find(','), std::string::npos);
    EXPECT_EQ(t.celle[13][8].size() - t.celle[13][8].find(','), 7u);
}

// A declination within a degree of the equator: no degrees to carry the sign, so the minutes and
// the seconds carry it.
TEST(TabellaPosizioni, DeclinazioneSottoUnGradoETesti) {
    Calcolato k = Casta(45.4);
    struct Caso {
        double gradi;
        const char* testo;
    };
    const Caso casi[] = {{-(30.0 / 60 + 15.0 / 3600), " 0° -30' -15''"},
                         {30.0 / 60 + 15.0 / 3600, " 0°  30' 15''"},
                         {-(1 + 30.0 / 60 + 15.0 / 3600), "-1°  30' 15''"}};
    for (const Caso& c : casi) {
        k.p.Sole.De = Radianti(c.gradi);
        EXPECT_EQ(RiempiTabella(k.c, k.p).celle[13][5], c.testo) << c.gradi;
    }
    // At a polar latitude the Ascendant's ascensions are texts, shown as they stand.
    k.c[1].AR = NonDefinita;
    k.c[1].AOb = Indefinita;
    const TabellaPosizioni t = RiempiTabella(k.c, k.p);
    EXPECT_EQ(t.celle[1][6] + " " + t.celle[1][7], "NonDefinita Indefinita");
    // Numbers carry a blank where a minus sign would stand.
    EXPECT_EQ(Str(5) + Str(-5) + Str(0) + Str(12.5), " 5-5 0 12.5");
}
