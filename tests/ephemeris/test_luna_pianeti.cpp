// The Moon, the topocentric correction, the planets and Pluto: Meeus' examples and the series.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "core/Aritmetica.h"
#include "core/Tema.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Pianeti.h"
#include "ephemeris/Plutone.h"
#include "tests/ephemeris/Riferimenti.h"

using namespace vesmo;
using vesmo::test::Esempio;
using vesmo::test::Scarto;

TEST(Luna, EsempioMeeus1979EParallassiDelSole) {
    double lon, lat, par;
    PosizioneLuna(Esempio("luna_1979_jd"), lon, lat, par);
    EXPECT_NEAR(lon, Esempio("luna_1979_longitudine"), 0.0001);
    EXPECT_NEAR(par, Esempio("luna_1979_parallasse"), 0.000001);
    EXPECT_DOUBLE_EQ(ParallasseLuna(Esempio("luna_1979_jd")), par);
    EXPECT_NEAR(lat, -0.055, 0.005); // the latitude comes out in radians
    // The topocentric correction of another body: 8.794 means the Sun's parallax in seconds of
    // arc, 0 derives it from the distance. Both move a body by a few seconds at most.
    double lt, bt;
    LunaTopocentrica(2446895.5, 12, 0, 45, 20, 0, 1, 8.794, lt, bt);
    EXPECT_LT(std::fabs(Scarto(lt, 20)) * 3600, 10);
    LunaTopocentrica(2446895.5, 12, 0, 45, 20, 0, 0.5, 0, lt, bt);
    EXPECT_LT(std::fabs(Scarto(lt, 20)) * 3600, 20);
    EXPECT_GT(std::fabs(Scarto(lt, 20)) * 3600 + std::fabs(Gradi(bt)) * 3600, 0.5);
}

TEST(Pianeti, EsempioMeeusMercurio1978) {
    double jd = Esempio("sole_1978_jd");
    Elementi el;
    double M;
    ElementiPianeta(jd, NumMercurio, 1, el, M); // Mercury has no corrections
    EXPECT_NEAR(el.L, Esempio("mercurio_1978_L"), 0.0001);
    EXPECT_NEAR(el.e, Esempio("mercurio_1978_e"), 1e-8);
    EXPECT_NEAR(el.i, Esempio("mercurio_1978_i"), 0.000001);
    EXPECT_NEAR(el.O, Esempio("mercurio_1978_O"), 0.000001);
    EXPECT_NEAR(M, Esempio("mercurio_1978_M"), 0.0001);

    PosEliocentrica h;
    PianetaEliocentrico(jd, NumMercurio, 1, el, M, h);
    EXPECT_NEAR(h.lon, Esempio("mercurio_1978_l"), 0.0001);
    EXPECT_NEAR(Gradi(h.lat), Esempio("mercurio_1978_b"), 0.0001);
    EXPECT_NEAR(h.dist, Esempio("mercurio_1978_r"), 0.00001);

    // Through our own true Sun (0.0012 degrees from the book's) the geocentric place follows.
    PosGeocentrica g;
    double elong;
    PianetaGeocentrico(jd, NumMercurio, 0, h, g, elong);
    EXPECT_NEAR(g.lon, Esempio("mercurio_1978_lambda"), 0.002);
    EXPECT_NEAR(Gradi(g.lat), Esempio("mercurio_1978_beta"), 0.001);
    EXPECT_NEAR(g.dist, Esempio("mercurio_1978_delta"), 0.00002);
    EXPECT_NEAR(Gradi(elong), 22.17, 0.01); // the book's elongation
    // The Earth has no elements of its own: zeros, and no anomaly given.
    M = 99;
    ElementiPianeta(jd, NumTerra, 1, el, M);
    EXPECT_EQ(std::make_tuple(el.L, el.a, el.e, el.i, el.w, el.O, M),
              std::make_tuple(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 99.0));
}

TEST(Pianeti, SommeDellePerturbazioniDiUranoENettuno) {
    // The sums of the longitude at two instants pin the terms and the scale of Neptune's five
    // numbers (hundredths of a degree: +0.0166 and -0.0030 here, of the size of Uranus' sums).
    struct Caso {
        int n;
        double jd, dl;
    } casi[] = {{NumUrano, 2451545.0, -0.05},
                {NumUrano, 2433282.5, 0.02},
                {NumNettuno, 2451545.0, 0.0166},
                {NumNettuno, 2433282.5, -0.0030}};
    for (const Caso& c : casi) {
        double dl = 0, db = 0, dr = 0;
        PerturbazioniPianeta(c.jd, c.n, dl, db, dr);
        EXPECT_NEAR(dl, c.dl, c.n == NumUrano ? 0.005 : 0.00005) << c.n << " " << c.jd;
        // The latitude sums, hundredths of a degree at most, arrive in radians.
        EXPECT_LT(std::fabs(db), Radianti(0.01));
    }
}

TEST(Plutone, NonNormalizzata) {
    // In 2100 (T = 2) the longitude has passed 360 without being reduced; the geocentric
    // reduction brings it back.
    PosEliocentrica q;
    Plutone(2488070.0, q);
    EXPECT_GT(q.lon, 360);
    PosGeocentrica g;
    double elong;
    PianetaGeocentrico(2488070.0, NumPlutone, 1, q, g, elong);
    EXPECT_TRUE(g.lon >= 0 && g.lon < 360) << g.lon;
    EXPECT_NEAR(Scarto(g.lon, q.lon), 0, 2.5); // seen from 1 AU at 40 AU
}
