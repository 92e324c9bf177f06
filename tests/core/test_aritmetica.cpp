// Calendar and angle arithmetic, and the coordinate texts the user reads.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "core/Aritmetica.h"

using namespace vesmo;

namespace {

struct RigaGiuliano {
    double anno, mese, giorno, jd;
};

std::vector<RigaGiuliano> LeggiGiuliani() {
    std::ifstream in(std::string(VESMO_DATI_TEST) + "/core/giorni_giuliani.tsv");
    std::vector<RigaGiuliano> righe;
    std::string linea;
    while (std::getline(in, linea)) {
        if (linea.empty() || linea[0] == '#') continue;
        std::istringstream s(linea);
        RigaGiuliano r{};
        s >> r.anno >> r.mese >> r.giorno >> r.jd;
        righe.push_back(r);
    }
    return righe;
}

// The shorter way round the circle, in degrees.
double DifferenzaAngolare(double a, double b) {
    double d = std::fmod(std::fabs(a - b), 360.0);
    return d > 180 ? 360 - d : d;
}

} // namespace

TEST(Calendario, GiorniGiulianiDiRiferimento) {
    auto righe = LeggiGiuliani();
    ASSERT_GE(righe.size(), 20u);
    for (const auto& r : righe) {
        SCOPED_TRACE(std::to_string(r.anno) + "-" + std::to_string(r.mese) + "-" +
                     std::to_string(r.giorno));
        EXPECT_NEAR(GiornoGiuliano(r.anno, r.mese, r.giorno), r.jd, 1e-6);
        if (r.giorno < 1) continue; // "January 0" comes back as December 31
        float a, m, g;
        DataDaGiuliano(r.jd, a, m, g);
        EXPECT_EQ(a, static_cast<float>(r.anno));
        EXPECT_EQ(m, static_cast<float>(r.mese));
        EXPECT_NEAR(g, r.giorno, 1e-5);
    }
}

TEST(Calendario, RiformaGregorianaGiornoPerGiorno) {
    // 4 and 15 October 1582 are consecutive; the ten days between fall in the Julian branch.
    EXPECT_EQ(GiornoGiuliano(1582, 10, 4), 2299159.5);
    EXPECT_EQ(GiornoGiuliano(1582, 10, 15), 2299160.5);
    for (int d = 5; d <= 14; ++d)
        EXPECT_EQ(GiornoGiuliano(1582, 10, d), 2299155.5 + d) << d;
    float a, m, g;
    DataDaGiuliano(2299160.5, a, m, g);
    EXPECT_EQ(std::make_tuple(a, m, g), std::make_tuple(1582.f, 10.f, 15.f));
    DataDaGiuliano(2299159.5, a, m, g);
    EXPECT_EQ(std::make_tuple(a, m, g), std::make_tuple(1582.f, 10.f, 4.f));
    DataDaGiuliano(2299161.5, a, m, g);
    EXPECT_EQ(std::make_tuple(a, m, g), std::make_tuple(1582.f, 10.f, 16.f));
}

TEST(Calendario, OgniGiornoDaMenoQuattromilaAQuattromila) {
    // Every day from -4712 to 2406: its date gives it back and follows the previous by one day.
    float pa = 0, pm = 0, pg = 0;
    int errori = 0;
    for (double jd = 0.5; jd < 2600000.5 && errori < 5; jd += 1) {
        float a, m, g;
        DataDaGiuliano(jd, a, m, g);
        if (GiornoGiuliano(a, m, g) != jd) {
            ADD_FAILURE() << "JD " << jd << " -> " << a << "/" << m << "/" << g;
            ++errori;
        }
        if (jd > 0.5) {
            bool stessoMese = a == pa && m == pm && g == pg + 1;
            bool nuovoMese =
                g == 1 && ((a == pa && m == pm + 1) || (a == pa + 1 && m == 1 && pm == 12));
            bool riforma = jd == 2299160.5 && g == 15;
            if (!(stessoMese || nuovoMese || riforma)) {
                ADD_FAILURE() << "salto dopo " << pa << "/" << pm << "/" << pg;
                ++errori;
            }
        }
        pa = a, pm = m, pg = g;
    }
    EXPECT_EQ(pa, 2406.f); // the walk reached the year 2406
}

TEST(Calendario, DataDaGiulianoInSingolaPrecisione) {
    // The day's fraction carries only a float's precision.
    float a, m, g;
    DataDaGiuliano(2436116.31, a, m, g);
    EXPECT_EQ(std::make_tuple(a, m), std::make_tuple(1957.f, 10.f));
    EXPECT_FLOAT_EQ(g, 4.81f);
}

TEST(Angoli, Norma360) {
    const std::pair<double, double> gradi[] = {
        {-0.25, 359.75},
        {720.5, 0.5},
        {360.0, 0.0},
        {360.25, 0.25},
        {-360.25, 359.75},
        {-720.0, 0.0},
        {-10.5, 349.5},
        {-1e-20, 360.0}, // a tiny negative angle rounds to 360.0 and is left so
        // 32-bit whole degrees: the largest still fits
        {2147483647.5, 127.5},
        {-2147483648.0, 360.0 - 128.0}};
    for (auto [a, atteso] : gradi)
        EXPECT_EQ(Norma360(a, 1), atteso) << a;
    EXPECT_DOUBLE_EQ(Norma360(-PI / 2, 0), 270.0);
    EXPECT_DOUBLE_EQ(Norma360(5 * PI, 0), 180.0);
    // The fraction of a large polynomial argument is kept.
    EXPECT_NEAR(Norma360(481267.8831 * 12.345678, 1), std::fmod(481267.8831 * 12.345678, 360.0),
                1e-9);
    for (double fuori : {2147483648.0, -3e9, std::nan("")})
        EXPECT_THROW(Norma360(fuori, 1), ErroreAritmetico) << fuori;
}

TEST(Angoli, GradiDecimaliSegnoDalPrimoNonNullo) {
    struct Caso {
        double g, m, s, atteso;
    };
    for (Caso c : {Caso{12, 30, 0, 12.5}, Caso{-12, 30, 0, -12.5}, Caso{-12, -30, 0, -12.5},
                   Caso{0, -30, 0, -0.5}, Caso{0, 0, -36, -0.01}, Caso{0, 30, -36, 0.51}})
        EXPECT_DOUBLE_EQ(GradiDecimali(c.g, c.m, c.s), c.atteso) << c.g << " " << c.m << " " << c.s;
    EXPECT_NEAR(GradiDecimali(23, 26, 21.448), 23.439291111, 1e-9); // degrees: J2000's obliquity
}

TEST(Angoli, GradiPrimiSecondiERiporti) {
    double d, m, s;
    GradiPrimiSecondi(12.25, d, m, s);
    EXPECT_EQ(std::make_tuple(d, m), std::make_tuple(12.0, 15.0));
    EXPECT_NEAR(s, 0, 1e-9);
    // Seconds within 1e-11 of 60 carry into the minutes, and 60 minutes into the degrees.
    GradiPrimiSecondi(0.9999999999999999, d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(1.0, 0.0, 0.0));
    GradiPrimiSecondi(10.999999999999999, d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(11.0, 0.0, 0.0));
    GradiPrimiSecondi(29.9999999999999, d, m, s);
    EXPECT_EQ(std::make_tuple(d, m), std::make_tuple(29.0, 59.0));
    EXPECT_GT(s, 59.9999);
    EXPECT_LT(s, 59.99999999999);
    // Below one degree the sign goes to minutes and seconds; above, to the degrees alone.
    GradiPrimiSecondi(-0.5, d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(0.0, -30.0, 0.0));
    GradiPrimiSecondi(-12.5, d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(-12.0, 30.0, 0.0));
    GradiPrimiSecondi(-0.01, d, m, s);
    EXPECT_EQ(d, 0.0);
    EXPECT_EQ(m, 0.0);
    EXPECT_NEAR(s, -36.0, 1e-9);
}

TEST(Angoli, RadiantiSessagesimali) {
    double d, m, s;
    RadGradiPrimiSecondi(Radianti(12.5), d, m, s);
    EXPECT_EQ(d, 12.0);
    EXPECT_EQ(m, 30.0);
    EXPECT_NEAR(s, 0, 1e-6);
    RadGradiPrimiSecondi(-Radianti(0.5), d, m, s);
    EXPECT_EQ(d, 0.0);
    EXPECT_EQ(m, -30.0);
    // 59.99995 seconds lie inside the carry window of a float 60.0001.
    RadGradiPrimiSecondi(GPSaRadianti(10, 59, 59.99995), d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(11.0, 0.0, 0.0));
    EXPECT_DOUBLE_EQ(GPSaRadianti(180, 0, 0), PI);
    EXPECT_DOUBLE_EQ(GPSaRadianti(-10, 30, 0), -Radianti(10.5));
    EXPECT_DOUBLE_EQ(GPSaRadianti(0, -30, 0), -Radianti(0.5));
}

TEST(Angoli, ArrotondaGPS) {
    double d = 10, m = 59, s = 59.995;
    ArrotondaGPS(d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(11.0, 0.0, 0.0));
    d = 10, m = 20, s = 30.005;
    ArrotondaGPS(d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(10.0, 20.0, 30.0));
    d = 10, m = 20, s = 30.5;
    ArrotondaGPS(d, m, s);
    EXPECT_EQ(std::make_tuple(d, m, s), std::make_tuple(10.0, 20.0, 30.5));
}

TEST(Angoli, SegnoGradi) {
    std::string segno;
    double g, m, s, dec;
    SegnoGradi(45.5, segno, g, m, s, dec, 0);
    EXPECT_EQ(segno, "Toro");
    EXPECT_EQ(std::make_tuple(g, m), std::make_tuple(15.0, 30.0));
    EXPECT_NEAR(s, 0, 1e-9);
    EXPECT_DOUBLE_EQ(dec, 15.5);
    for (int i = 0; i < 12; ++i) {
        SegnoGradi(i * 30 + 0.001, segno, g, m, s, dec, 1);
        EXPECT_EQ(segno, NomiSegni[i]);
    }
    EXPECT_EQ(std::string(NomiSegni[2]), "Gemell");
    EXPECT_EQ(std::string(NomiSegni[11]), "Pesci");
    // Rounding to the minute: up to 30 seconds go down, above 30 go up.
    SegnoGradi(100 + 30.0 / 60 + 29.9 / 3600, segno, g, m, s, dec, 1);
    EXPECT_EQ(std::make_tuple(segno, g, m, s),
              std::make_tuple(std::string("Cancro"), 10.0, 30.0, 0.0));
    SegnoGradi(100 + 30.0 / 60 + 30.1 / 3600, segno, g, m, s, dec, 1);
    EXPECT_EQ(std::make_tuple(g, m, s), std::make_tuple(10.0, 31.0, 0.0));
    // The decimal degrees ignore the rounding.
    EXPECT_NEAR(dec, 10 + 30.0 / 60 + 30.1 / 3600, 1e-9);
    // A carry into a whole sign shows 0°00' of the next sign.
    SegnoGradi(29.9999, segno, g, m, s, dec, 1);
    EXPECT_EQ(std::make_tuple(segno, g, m), std::make_tuple(std::string("Toro"), 0.0, 0.0));
    SegnoGradi(359.9999, segno, g, m, s, dec, 1);
    EXPECT_EQ(std::make_tuple(segno, g, m), std::make_tuple(std::string("Ariete"), 0.0, 0.0));
    // Without rounding nothing moves.
    SegnoGradi(29.9999, segno, g, m, s, dec, 0);
    EXPECT_EQ(std::make_tuple(segno, g, m), std::make_tuple(std::string("Ariete"), 29.0, 59.0));
    // Outside 0..360 no name is given.
    SegnoGradi(361, segno, g, m, s, dec, 0);
    EXPECT_EQ(segno, "");
}

TEST(Trigonometria, InverseConGuardia) {
    PlacidoNonDefinito = 0;
    EXPECT_EQ(ArcoSeno(1.0000001), 0.0);
    EXPECT_EQ(PlacidoNonDefinito, 0);
    EXPECT_EQ(ArcoCoseno(1.0000001), 0.0);
    EXPECT_EQ(PlacidoNonDefinito, -1);
    PlacidoNonDefinito = 0;
    EXPECT_EQ(ArcoCoseno(-1.5), 0.0);
    EXPECT_EQ(PlacidoNonDefinito, -1);
    PlacidoNonDefinito = 0;

    EXPECT_EQ(ArcoSeno(1), PI / 2);
    EXPECT_EQ(ArcoSeno(-1), -PI / 2);
    EXPECT_EQ(ArcoSeno(0), 0.0);
    EXPECT_DOUBLE_EQ(ArcoSeno(0.5), PI / 6);
    EXPECT_DOUBLE_EQ(ArcoSeno(-0.5), -PI / 6);
    EXPECT_EQ(ArcoCoseno(1), 0.0);
    EXPECT_EQ(ArcoCoseno(-1), PI);
    EXPECT_EQ(ArcoCoseno(std::cos(PI / 2)), PI / 2);
    EXPECT_EQ(ArcoCoseno(5e-12), PI / 2);
    EXPECT_DOUBLE_EQ(ArcoCoseno(0.5), PI / 3);
    EXPECT_DOUBLE_EQ(ArcoCoseno(-0.5), 2 * PI / 3);
    EXPECT_EQ(PlacidoNonDefinito, 0);

    EXPECT_DOUBLE_EQ(QuadranteAtn(1, -1, std::atan(-1.0)), 3 * PI / 4);
    EXPECT_DOUBLE_EQ(QuadranteAtn(-1, -1, std::atan(1.0)), 5 * PI / 4);
    EXPECT_DOUBLE_EQ(QuadranteAtn(-1, 1, std::atan(-1.0)), -PI / 4);
    EXPECT_EQ(QuadranteAtn(0, 1, 0.3), 0.0);
    EXPECT_EQ(QuadranteAtn(1, 0, 0.3), 0.0);
}

TEST(Trigonometria, EclitticaEquatore) {
    // Meeus, Astronomical Algorithms, example 13.a (Pollux), taken the other way round.
    double ar, de;
    EclitticaEquatore(Radianti(113.215630), Radianti(6.684170), Radianti(23.4392911), ar, de);
    EXPECT_NEAR(ar, 116.328942, 1e-5);
    EXPECT_NEAR(Gradi(de), 28.026183, 1e-5);

    // Round trips through the inverse transformation over the whole sky.
    const double e = Radianti(23.44);
    for (double l = 0.5; l < 360; l += 14.5) {
        for (double b = -80; b <= 80; b += 20) {
            EclitticaEquatore(Radianti(l), Radianti(b), e, ar, de);
            double a = Radianti(ar);
            double sinB = std::sin(de) * std::cos(e) - std::cos(de) * std::sin(e) * std::sin(a);
            double lon = Gradi(
                std::atan2(std::sin(a) * std::cos(e) + std::tan(de) * std::sin(e), std::cos(a)));
            EXPECT_NEAR(Gradi(std::asin(sinB)), b, 1e-9) << l << " " << b;
            EXPECT_NEAR(DifferenzaAngolare(lon, l), 0, 1e-9) << l << " " << b;
            EXPECT_GE(ar, 0);
            EXPECT_LT(ar, 360);
        }
    }
    // On the ecliptic the solstice points have the obliquity as declination.
    EclitticaEquatore(Radianti(90), 0, e, ar, de);
    EXPECT_NEAR(ar, 90, 1e-9);
    EXPECT_NEAR(de, e, 1e-12);
    EclitticaEquatore(Radianti(270), 0, e, ar, de);
    EXPECT_NEAR(ar, 270, 1e-9);
    EXPECT_NEAR(de, -e, 1e-12);
}

TEST(Trigonometria, DistanzaAngolare) {
    EXPECT_DOUBLE_EQ(DistanzaAngolare(0, 0, PI / 2, 0), PI / 2);
    EXPECT_NEAR(DistanzaAngolare(0.1, 0.2, 0.1 + PI, -0.2), PI, 1e-7);
    // Close pairs use the small-angle form.
    EXPECT_NEAR(DistanzaAngolare(1.0, 0.5, 1.0 + 1e-4, 0.5), 1e-4 * std::cos(0.5), 1e-12);
    EXPECT_NEAR(DistanzaAngolare(1.0, 0.5, 1.0, 0.5 + 3e-4), 3e-4, 1e-12);
    EXPECT_EQ(DistanzaAngolare(2.0, 0.3, 2.0, 0.3), 0.0);
}

TEST(TestiCoordinate, ScritteELette) {
    const double padovaLon = -(11 + 53.0 / 60) / 15; // hours, east negative
    EXPECT_EQ(TestoCoordinata(padovaLon, 1, 0, false), "11E53");
    EXPECT_EQ(TestoCoordinata(padovaLon, 1, 0, true), "11E53 0,0");
    EXPECT_EQ(TestoCoordinata(45.4, 0, 1, false), "45N24");
    EXPECT_EQ(TestoCoordinata(-33.8675, 0, 1, true), "33S52 3,0");
    EXPECT_EQ(TestoCoordinata(5.05, 0, 0, false), "5W03");
    EXPECT_EQ(TestoCoordinata(0, 0, 0, false), "0W00");
    // Seconds a hair below 60 carry into the minutes and the degrees.
    EXPECT_EQ(TestoCoordinata(10 + 59.0 / 60 + 59.9995 / 3600, 0, 1, true), "11N00 0,0");
    EXPECT_EQ(TestoCoordinata(12 + 20.0 / 60 + 15.25 / 3600, 0, 0, true), "12W20 15,3");
    EXPECT_EQ(TestoCoordSF(-12.5 / 15, 45 + 26.0 / 60), "012E30 45N26");
    EXPECT_EQ(TestoCoordSF(74.0 / 15, -(3 + 5.0 / 60 + 31.0 / 3600)), "074W00 03S06");
    // Up to 30 seconds do not round the minutes up; above 30 they do.
    EXPECT_EQ(TestoCoordSF((5 + 10.0 / 60 + 29.9 / 3600) / 15, 1), "005W10 01N00");
    EXPECT_EQ(TestoCoordSF((5 + 10.0 / 60 + 30.1 / 3600) / 15, 1), "005W11 01N00");
    EXPECT_DOUBLE_EQ(LonDaTesto("11E53", 0), -GradiDecimali(11, 53, 0) / 15);
    EXPECT_DOUBLE_EQ(LonDaTesto("11e53", 0), -GradiDecimali(11, 53, 0) / 15);
    EXPECT_DOUBLE_EQ(LonDaTesto("11E53'30", 0), -GradiDecimali(11, 53, 30) / 15);
    EXPECT_DOUBLE_EQ(LonDaTesto("74W00", 0), 74.0 / 15);
    EXPECT_DOUBLE_EQ(LonDaTesto("0W30", 1), GradiDecimali(0, 31, 0) / 15);
    EXPECT_DOUBLE_EQ(LonDaTesto("0W30", -1), GradiDecimali(0, 29, 0) / 15);
    EXPECT_DOUBLE_EQ(LonDaTesto("0W30", 7), GradiDecimali(0, 30, 0) / 15);
    EXPECT_DOUBLE_EQ(LatDaTesto("45N24", 0), 45.4);
    EXPECT_DOUBLE_EQ(LatDaTesto("33S52", -1), -GradiDecimali(33, 51, 0));
    EXPECT_DOUBLE_EQ(LatDaTesto("33S52 15", 0), -GradiDecimali(33, 52, 15));
    // The texts the program writes read back to the same minute.
    for (double lat = -89.5; lat < 90; lat += 7.25) {
        EXPECT_NEAR(LatDaTesto(TestoCoordinata(lat, 0, 1, false), 0), lat, 1.0 / 120) << lat;
    }
    // A text without its letter reads as 0.
    EXPECT_EQ(LonDaTesto("1153", 0), 0.0);
}

TEST(Schermo, PolariEMedioArco) {
    // Angle 0 lies on the left (the Ascendant's side), angles grow counter-clockwise, y grows down.
    EXPECT_DOUBLE_EQ(PolareX(100, 10, 0), 90);
    EXPECT_NEAR(PolareY(100, 10, 0), 100, 1e-12);
    EXPECT_NEAR(PolareX(100, 10, PI / 2), 100, 1e-12);
    EXPECT_DOUBLE_EQ(PolareY(100, 10, PI / 2), 110);

    EXPECT_EQ(MedioArco(10, 50, 0), 30);
    EXPECT_EQ(MedioArco(10, 50, 2), 30);
    EXPECT_EQ(MedioArco(350, 10, 1), 360);
    EXPECT_EQ(MedioArco(300, 20, 2), 340);
    EXPECT_EQ(MedioArco(10, 50, 5), 15);
    EXPECT_EQ(MedioArco(350, 10, 5), 715);
}
