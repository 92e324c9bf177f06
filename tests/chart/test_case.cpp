// Placidus houses against an independent ephemeris from 59 south to 59 north, and at extreme
// latitudes.
#include <gtest/gtest.h>

#include <swephexp.h>

#include <cmath>
#include <cstdio>

#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "ephemeris/Sole.h"

using namespace vesmo;

namespace {

constexpr double TolleranzaGradi = 1e-9;        // degrees: rounding only
constexpr double TolleranzaOreRadianti = 1e-12; // hours of ascension, radians of declination
constexpr double ScartoCuspidiGradi = 0.02;     // against the Swiss Ephemeris, degrees

double Scarto(double a, double b) {
    double d = std::fmod(std::fabs(a - b), 360.0);
    return d > 180 ? 360 - d : d;
}

Tema TemaDi(double anno, double mese, double giorno, double ora, double lonGradiEst, double lat) {
    Tema t;
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = -lonGradiEst / 15;
    t.Lat = lat;
    return t;
}

} // namespace

TEST(Case, CuspidiControEffemeridiIndipendenti) {
    // Charts from 1900 to 2050 at latitudes within 60°, against the Swiss Ephemeris' Placidus
    // houses for the same universal time (no Delta T enters either side's sidereal time).
    double peggiore = 0;
    int casi = 0;
    const int indici[] = {1, 2, 3, 10, 11, 12};
    for (int anno = 1900; anno <= 2050; anno += 7) {
        for (double lat = -59; lat <= 59; lat += 11.8) {
            double ora = std::fmod(anno * 1.37 + lat * 0.21 + 30, 24.0);
            double lon = std::fmod(anno * 13.1 + lat * 3.3, 360.0) - 180;
            Tema t = TemaDi(anno, 1 + anno % 12, 1 + anno % 28, ora, lon, lat);
            Case c;
            Posizioni p;
            MessaggiRegistrati m;
            CalcoloCase(t, c, p, 1, m);
            ASSERT_TRUE(m.registro.empty()) << anno << " " << lat;
            double cusps[13], ascmc[10];
            swe_houses(t.JD(), lat, lon, 'P', cusps, ascmc);
            for (int i : indici) {
                double d = Scarto(c[i].Lo, cusps[i]);
                peggiore = std::max(peggiore, d);
                EXPECT_LT(d, ScartoCuspidiGradi)
                    << "cuspide " << i << " anno " << anno << " lat " << lat;
            }
            ++casi;
        }
    }
    std::printf("[ case ] %d temi, scarto massimo delle cuspidi %.5f°\n", casi, peggiore);
}

TEST(Case, CuspidiOpposteEAssi) {
    Tema t = TemaDi(1975, 6, 14, 15.5, 11.88, 45.4);
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    CalcoloCase(t, c, p, 1, m);
    for (int i = 4; i <= 9; ++i) {
        int o = i < 7 ? i + 6 : i - 6;
        EXPECT_NEAR(Scarto(c[i].Lo, c[o].Lo), 180, TolleranzaGradi) << i;
        EXPECT_NEAR(c[i].De, -c[o].De, TolleranzaOreRadianti) << i;
    }
    EXPECT_TRUE(p.Asce == c[1] && p.MC == c[10] && p.CasaXII == c[12]);
    EXPECT_EQ(p.CaseNonDefinite, 0);
    // The Ascendant agrees with the direct formula.
    double tsl = c[10].AR.Numero();
    double lon, angolo;
    LonAsce(Radianti(Obliquita(t.JD())), Radianti(t.Lat), Radianti(tsl * 15), lon, angolo);
    EXPECT_NEAR(lon, p.Asce.Lo, 1e-6);
}

TEST(Case, LatitudineEstremaSenzaSemiarco) {
    // At 70° north with the Midheaven's right ascension at 90°, the Ascendant's semi-arc does
    // not exist: the cusps fall back and the user is told once.
    Tema t = TemaDi(2001, 12, 21, 12, 0, 70);
    t.Lon = TempoSiderale(t.Day, t.TU(), 1) - 6; // local sidereal time 6h
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    PlacidoNonDefinito = 0;
    CalcoloCase(t, c, p, 1, m);
    EXPECT_EQ(p.CaseNonDefinite, -1);
    EXPECT_EQ(PlacidoNonDefinito, 0);
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo + " | " + m.registro[0].testo,
              "Lyx - Info Case | Latitudine estrema. Case di Placido non definite");
    EXPECT_EQ(m.registro[0].icona, Icona::Informazione);
    EXPECT_EQ(p.Asce.AR.Testo() + " " + p.Asce.AOb.Testo(), "NonDefinita Indefinita");
    for (const Posizione* q : {&p.CasaII, &p.CasaIII, &p.CasaXI, &p.CasaXII})
        EXPECT_TRUE(q->Lo == p.MC.Lo && q->AR.Numero() == p.MC.AR.Numero());
    // The Ascendant still comes from the direct formula.
    double lon, angolo;
    LonAsce(Radianti(Obliquita(t.JD())), Radianti(70), Radianti(90), lon, angolo);
    EXPECT_NEAR(p.Asce.Lo, lon, TolleranzaGradi);

    // A second casting at an ordinary place is clean again.
    CalcoloCase(TemaDi(2001, 12, 21, 12, 11.88, 45.4), c, p, 1, m);
    EXPECT_EQ(p.CaseNonDefinite, 0);
    EXPECT_EQ(m.registro.size(), 1u);
    EXPECT_FALSE(p.Asce.AR.ETesto());
}

TEST(Case, CasaDiAlleCuspidi) {
    Case c;
    const double cuspidi[] = {0, 200, 230, 260, 290, 320, 350, 20, 50, 80, 110, 140, 170};
    for (int i = 1; i <= 12; ++i)
        c[i].Lo = cuspidi[i];
    // A longitude on a cusp is in the house that begins there.
    for (int i = 1; i <= 12; ++i)
        EXPECT_EQ(CasaDi(cuspidi[i], c), i) << i;
    // House 6 begins at the greatest cusp and wraps through 0°.
    for (auto [lo, casa] : {std::pair{215.0, 1},
                            {169.999, 11},
                            {199.999, 12},
                            {359.9, 6},
                            {0.0, 6},
                            {19.99, 6},
                            {20.0, 7}})
        EXPECT_EQ(CasaDi(lo, c), casa) << lo;
    // With the Ascendant at 0° the wrap falls on cusp 12.
    const double altre[] = {0, 0, 30, 60, 90, 120, 150, 180, 210, 240, 270, 300, 330};
    for (int i = 1; i <= 12; ++i)
        c[i].Lo = altre[i];
    for (auto [lo, casa] : {std::pair{0.0, 1}, {345.0, 12}, {329.9, 11}})
        EXPECT_EQ(CasaDi(lo, c), casa) << lo;
}

TEST(Case, AscensioneObliquaEConversioni) {
    Variante aob;
    AscensioneObliqua(aob, Variante(6.0), Radianti(20), Radianti(45));
    EXPECT_NEAR(aob.Numero(), 6 - Gradi(std::asin(std::tan(Radianti(20)))) / 15,
                TolleranzaOreRadianti);
    AscensioneObliqua(aob, Variante(23.9), Radianti(-20), Radianti(45));
    EXPECT_GT(aob.Numero(), 24); // not reduced
    AscensioneObliqua(aob, Variante(6.0), Radianti(23), Radianti(70));
    EXPECT_EQ(aob.Testo(), "Indefinita");
    AscensioneObliqua(aob, Variante(NonDefinita), 0.1, 0.1);
    EXPECT_EQ(aob.Testo(), "Indefinita");

    // Ecliptic to equator and back.
    const double e = Radianti(23.44);
    for (double l = 5; l < 360; l += 23) {
        for (double b : {-5.0, 0.0, 3.0}) {
            double ar, de, lon, lat;
            EclitticaEquatore(Radianti(l), Radianti(b), e, ar, de);
            EquatoreEclittica(Radianti(ar), de, lon, lat, e);
            EXPECT_NEAR(Scarto(lon, l), 0, TolleranzaGradi) << l << " " << b;
            EXPECT_NEAR(Gradi(lat), b, TolleranzaGradi);
        }
    }
    // The ecliptic-point form with no declination, back through the direct transformation.
    double lon, lat, ar, de;
    EquatoreEclittica(Radianti(200), DeclinazioneEclittica, lon, lat, e);
    EXPECT_EQ(lat, 0);
    EclitticaEquatore(Radianti(lon), 0, e, ar, de);
    EXPECT_NEAR(ar, 200, TolleranzaGradi);
}
