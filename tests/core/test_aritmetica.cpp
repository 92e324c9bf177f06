// Calendar and angle arithmetic, and the coordinate texts the user reads.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>

#include "core/Aritmetica.h"

using namespace vesmo;

namespace {

constexpr double TolleranzaGiorni = 1e-6;    // days
constexpr double TolleranzaGradi = 1e-9;     // degrees
constexpr double TolleranzaRadianti = 1e-12; // radians
constexpr double TolleranzaSecondi = 1e-9;   // seconds of arc
constexpr double TolleranzaPixel = 1e-12;    // pixels

std::tuple<double, double, double> Gps(double x) {
    double d, m, s;
    GradiPrimiSecondi(x, d, m, s);
    return {d, m, s};
}

} // namespace

TEST(Calendario, GiorniGiulianiDiRiferimento) {
    std::ifstream in(std::string(VESMO_DATI_TEST) + "/core/giorni_giuliani.tsv");
    int righe = 0;
    for (std::string linea; std::getline(in, linea);) {
        if (linea.empty() || linea[0] == '#') continue;
        double anno, mese, giorno, jd;
        std::istringstream(linea) >> anno >> mese >> giorno >> jd;
        ++righe;
        SCOPED_TRACE(linea);
        EXPECT_NEAR(GiornoGiuliano(anno, mese, giorno), jd, TolleranzaGiorni);
        if (giorno < 1) continue; // "January 0" comes back as December 31
        float a, m, g;
        DataDaGiuliano(jd, a, m, g);
        EXPECT_EQ(std::make_tuple(a, m), std::make_tuple(float(anno), float(mese)));
        EXPECT_NEAR(g, giorno, 1e-5); // a float's precision of the day's fraction
    }
    EXPECT_GE(righe, 20);
    // The ten days dropped by the reform fall in the Julian branch.
    for (int d = 5; d <= 14; ++d)
        EXPECT_EQ(GiornoGiuliano(1582, 10, d), 2299155.5 + d) << d;
}

TEST(Angoli, Norma360) {
    const std::pair<double, double> gradi[] = {
        {-0.25, 359.75},
        {720.5, 0.5},
        {360.0, 0.0},
        {-720.0, 0.0},
        {-1e-20, 360.0}, // a tiny negative angle rounds to 360.0 and is left so
        // 32-bit whole degrees: the largest still fits
        {2147483647.5, 127.5},
        {-2147483648.0, 360.0 - 128.0}};
    for (auto [a, atteso] : gradi)
        EXPECT_EQ(Norma360(a, 1), atteso) << a;
    EXPECT_DOUBLE_EQ(Norma360(-PI / 2, 0), 270.0);
    // The fraction of a large polynomial argument is kept.
    EXPECT_NEAR(Norma360(481267.8831 * 12.345678, 1), std::fmod(481267.8831 * 12.345678, 360.0),
                TolleranzaGradi);
    for (double fuori : {2147483648.0, -3e9, std::nan("")})
        EXPECT_THROW(Norma360(fuori, 1), ErroreAritmetico) << fuori;
}

TEST(Angoli, SessagesimaliSegnoERiporti) {
    // The sign is taken from the first field that is not zero.
    struct Decimali {
        double g, m, s, atteso;
    };
    for (Decimali c :
         {Decimali{-12, 30, 0, -12.5}, Decimali{-12, -30, 0, -12.5}, Decimali{0, -30, 0, -0.5},
          Decimali{0, 0, -36, -0.01}, Decimali{0, 30, -36, 0.51}})
        EXPECT_DOUBLE_EQ(GradiDecimali(c.g, c.m, c.s), c.atteso) << c.g << " " << c.m;

    // Seconds within 1e-11 of 60 carry into the minutes, and 60 minutes into the degrees; below
    // one degree the sign goes to minutes and seconds, above it to the degrees alone.
    struct Parti {
        double x, d, m, s;
    };
    for (Parti c : {Parti{0.9999999999999999, 1, 0, 0}, Parti{10.999999999999999, 11, 0, 0},
                    Parti{-0.5, 0, -30, 0}, Parti{-12.5, -12, 30, 0}, Parti{-0.01, 0, 0, -36}}) {
        auto [d, m, s] = Gps(c.x);
        EXPECT_EQ(std::make_tuple(d, m), std::make_tuple(c.d, c.m)) << c.x;
        EXPECT_NEAR(s, c.s, TolleranzaSecondi) << c.x;
    }
    auto [d, m, s] = Gps(29.9999999999999); // outside the carry window
    EXPECT_EQ(std::make_tuple(d, m), std::make_tuple(29.0, 59.0));
    EXPECT_TRUE(s > 59.9999 && s < 59.99999999999) << s;

    // From radians: 59.99995 seconds lie inside the carry window of a float 60.0001.
    RadGradiPrimiSecondi(GPSaRadianti(10, 59, 59.99995), d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(11.0, 0.0, 0.0));
    RadGradiPrimiSecondi(-Radianti(0.5), d, m, s);
    EXPECT_EQ(std::make_tuple(d, m), std::make_tuple(0.0, -30.0));
    EXPECT_DOUBLE_EQ(GPSaRadianti(-10, 30, 0), -Radianti(10.5));
    EXPECT_DOUBLE_EQ(GPSaRadianti(0, -30, 0), -Radianti(0.5));

    // Rounding to the hundredth of a second carries up to the degrees.
    for (auto [dentro, fuori] :
         {std::pair{std::make_tuple(10.0, 59.0, 59.995), std::make_tuple(11.0, 0.0, 0.0)},
          std::pair{std::make_tuple(10.0, 20.0, 30.005), std::make_tuple(10.0, 20.0, 30.0)},
          std::pair{std::make_tuple(10.0, 20.0, 30.5), std::make_tuple(10.0, 20.0, 30.5)}}) {
        std::tie(d, m, s) = dentro;
        ArrotondaGPS(d, m, s);
        EXPECT_EQ(std::make_tuple(d, m, s), fuori);
    }
}

TEST(Angoli, SegnoGradi) {
    struct Caso {
        double lon;
        int arrotonda;
        const char* segno;
        double g, m;
    };
    const Caso casi[] = {
        {45.5, 0, "Toro", 15, 30},
        {60.001, 1, "Gemell", 0, 0},
        // Rounding to the minute: up to 30 seconds go down, above 30 go up.
        {100 + 30.0 / 60 + 29.9 / 3600, 1, "Cancro", 10, 30},
        {100 + 30.0 / 60 + 30.1 / 3600, 1, "Cancro", 10, 31},
        // A carry into a whole sign shows 0°00' of the next sign; without rounding nothing moves.
        {29.9999, 1, "Toro", 0, 0},
        {359.9999, 1, "Ariete", 0, 0},
        {29.9999, 0, "Ariete", 29, 59},
    };
    for (const Caso& c : casi) {
        std::string segno;
        double g, m, s, dec;
        SegnoGradi(c.lon, segno, g, m, s, dec, c.arrotonda);
        EXPECT_EQ(std::make_tuple(segno, g, m), std::make_tuple(std::string(c.segno), c.g, c.m))
            << c.lon;
        EXPECT_TRUE(!c.arrotonda || s == 0.0) << c.lon;
        // The decimal degrees within the sign ignore the rounding.
        EXPECT_NEAR(dec, std::fmod(c.lon, 30.0), TolleranzaGradi) << c.lon;
    }
    std::string segno = "x";
    double g, m, s, dec;
    SegnoGradi(361, segno, g, m, s, dec, 0);
    EXPECT_EQ(segno, ""); // outside 0..360 no name is given
}

TEST(Trigonometria, InverseConGuardia) {
    // Outside -1..1 both give 0; only the arc cosine marks the Placidus houses undefined.
    PlacidoNonDefinito = 0;
    EXPECT_EQ(ArcoSeno(1.0000001), 0.0);
    EXPECT_EQ(PlacidoNonDefinito, 0);
    EXPECT_EQ(ArcoCoseno(-1.5), 0.0);
    EXPECT_EQ(PlacidoNonDefinito, -1);
    PlacidoNonDefinito = 0;
    EXPECT_EQ(ArcoSeno(-1), -PI / 2);
    EXPECT_EQ(ArcoCoseno(-1), PI);
    EXPECT_EQ(ArcoCoseno(5e-12), PI / 2);
    EXPECT_DOUBLE_EQ(ArcoCoseno(-0.5), 2 * PI / 3);
    EXPECT_EQ(PlacidoNonDefinito, 0);

    EXPECT_DOUBLE_EQ(QuadranteAtn(1, -1, std::atan(-1.0)), 3 * PI / 4);
    EXPECT_DOUBLE_EQ(QuadranteAtn(-1, -1, std::atan(1.0)), 5 * PI / 4);
    EXPECT_DOUBLE_EQ(QuadranteAtn(-1, 1, std::atan(-1.0)), -PI / 4);
    EXPECT_EQ(QuadranteAtn(0, 1, 0.3), 0.0);
    EXPECT_EQ(QuadranteAtn(1, 0, 0.3), 0.0);
}

TEST(Trigonometria, EclitticaEquatoreEDistanza) {
    // Meeus, Astronomical Algorithms, example 13.a (Pollux), taken the other way round.
    double ar, de;
    EclitticaEquatore(Radianti(113.215630), Radianti(6.684170), Radianti(23.4392911), ar, de);
    EXPECT_NEAR(ar, 116.328942, 1e-5);
    EXPECT_NEAR(Gradi(de), 28.026183, 1e-5);
    // The whole sky is compared with the Swiss Ephemeris through the calculators; here the right
    // ascension of each quadrant stays within 0..360.
    for (double l : {10.0, 100.0, 190.0, 280.0}) {
        EclitticaEquatore(Radianti(l), Radianti(-80), Radianti(23.44), ar, de);
        EXPECT_TRUE(ar >= 0 && ar < 360) << ar;
    }
    EXPECT_NEAR(DistanzaAngolare(0.1, 0.2, 0.1 + PI, -0.2), PI, 1e-7);
    // Close pairs use the small-angle form.
    EXPECT_NEAR(DistanzaAngolare(1.0, 0.5, 1.0 + 1e-4, 0.5), 1e-4 * std::cos(0.5),
                TolleranzaRadianti);
    EXPECT_NEAR(DistanzaAngolare(1.0, 0.5, 1.0, 0.5 + 3e-4), 3e-4, TolleranzaRadianti);
    EXPECT_EQ(DistanzaAngolare(2.0, 0.3, 2.0, 0.3), 0.0);
}

TEST(TestiCoordinate, ScritteELette) {
    const double padovaLon = -(11 + 53.0 / 60) / 15; // hours, east negative
    const std::pair<std::string, std::string> scritte[] = {
        {TestoCoordinata(padovaLon, 1, 0, true), "11E53 0,0"},
        {TestoCoordinata(-33.8675, 0, 1, true), "33S52 3,0"},
        {TestoCoordinata(5.05, 0, 0, false), "5W03"},
        // Seconds a hair below 60 carry into the minutes and the degrees.
        {TestoCoordinata(10 + 59.0 / 60 + 59.9995 / 3600, 0, 1, true), "11N00 0,0"},
        {TestoCoordinata(12 + 20.0 / 60 + 15.25 / 3600, 0, 0, true), "12W20 15,3"},
        {TestoCoordSF(-12.5 / 15, 45 + 26.0 / 60), "012E30 45N26"},
        {TestoCoordSF(74.0 / 15, -(3 + 5.0 / 60 + 31.0 / 3600)), "074W00 03S06"},
        // Up to 30 seconds do not round the minutes up; above 30 they do.
        {TestoCoordSF((5 + 10.0 / 60 + 29.9 / 3600) / 15, 1), "005W10 01N00"},
        {TestoCoordSF((5 + 10.0 / 60 + 30.1 / 3600) / 15, 1), "005W11 01N00"},
    };
    for (const auto& [testo, atteso] : scritte)
        EXPECT_EQ(testo, atteso);
    // Read back: the letter in either case, optional seconds, a correction of a minute either
    // way (7 is no correction), and no letter at all reads as 0.
    const std::pair<double, double> lette[] = {
        {LonDaTesto("11e53'30", 0), -GradiDecimali(11, 53, 30) / 15},
        {LonDaTesto("0W30", 1), GradiDecimali(0, 31, 0) / 15},
        {LonDaTesto("0W30", -1), GradiDecimali(0, 29, 0) / 15},
        {LonDaTesto("0W30", 7), GradiDecimali(0, 30, 0) / 15},
        {LatDaTesto("33S52 15", 0), -GradiDecimali(33, 52, 15)},
        {LonDaTesto("1153", 0), 0.0},
    };
    for (auto [letta, attesa] : lette)
        EXPECT_DOUBLE_EQ(letta, attesa);
    // The texts the program writes read back to the same minute.
    for (double lat = -89.5; lat < 90; lat += 7.25)
        EXPECT_NEAR(LatDaTesto(TestoCoordinata(lat, 0, 1, false), 0), lat, 1.0 / 120) << lat;
}

TEST(Schermo, PolariEMedioArco) {
    // Angle 0 lies on the left (the Ascendant's side), angles grow counter-clockwise, y grows down.
    EXPECT_DOUBLE_EQ(PolareX(100, 10, 0), 90);
    EXPECT_NEAR(PolareX(100, 10, PI / 2), 100, TolleranzaPixel);
    EXPECT_DOUBLE_EQ(PolareY(100, 10, PI / 2), 110);
    EXPECT_EQ(MedioArco(350, 10, 1), 360);
    EXPECT_EQ(MedioArco(300, 20, 2), 340);
    EXPECT_EQ(MedioArco(10, 50, 5), 15);
    EXPECT_EQ(MedioArco(350, 10, 5), 715);
}
