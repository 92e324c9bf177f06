// Sun, nutation, sidereal time and Kepler's equation: Meeus' examples.
#include <gtest/gtest.h>

#include <cmath>

#include "core/Aritmetica.h"
#include "ephemeris/Sole.h"
#include "tests/ephemeris/Riferimenti.h"

using namespace vesmo;
using vesmo::test::Esempio;
using vesmo::test::Scarto;

TEST(Sole, SoleVeroERaggioEApparente) {
    double lon, r, ar, de;
    PosizioneSole(Esempio("sole_1978_jd"), 0, lon, r, ar, de);
    // The book's longitude leaves out the small perturbations of the Sun (0.0012 degrees that
    // day); the radius vector keeps them.
    EXPECT_NEAR(Scarto(lon, Esempio("sole_1978_longitudine")), 0, 0.002);
    EXPECT_NEAR(r, Esempio("sole_1978_raggio"), 0.00001); // AU
    // With the flag the longitude moves by -0.00569 - 0.00479 sin(Omega), and the equator is
    // the true one: the right ascension follows the longitude.
    double jd = 2451545.0;
    double l0, r0, ar0, de0, l1, r1, ar1, de1;
    PosizioneSole(jd, 0, l0, r0, ar0, de0);
    PosizioneSole(jd, 1, l1, r1, ar1, de1);
    double omega = Radianti(Norma360(NodoMedio(jd), 1));
    EXPECT_NEAR(Scarto(l1, l0), -0.00569 - 0.00479 * std::sin(omega), 1e-9);
    EXPECT_DOUBLE_EQ(r0, r1);
    EXPECT_NEAR(Scarto(ar1, ar0), Scarto(l1, l0) * 1.09, 0.002); // dRA/dl near the solstice
    EXPECT_LT(NodoMedio(2415020.0 + 36525), -1600); // the node is left unreduced, for the caller
}

TEST(Sole, NutazioneEsempio1987) {
    // The book's figures come from the full theory; 13 and 9 terms come within 0.1".
    double dPsi, dEps;
    Nutazione(Esempio("nutazione_1987_jd"), dPsi, dEps);
    EXPECT_NEAR(dPsi, Esempio("nutazione_1987_dpsi"), 0.1);
    EXPECT_NEAR(dEps, Esempio("nutazione_1987_deps"), 0.1);
}

TEST(TempoSiderale, EsempiMeeus1987) {
    // Allowance 0.1 s of time: the 1982 definition of the book against the older polynomial.
    const double secondo = 1.0 / 3600;
    double day = Esempio("siderale_1987_day");
    EXPECT_NEAR(TempoSiderale(day, 0, 0), Esempio("siderale_1987_media_0h"), 0.1 * secondo);
    EXPECT_NEAR(TempoSiderale(day, 0, 1), Esempio("siderale_1987_apparente_0h"), 0.1 * secondo);
    // The equation of the equinoxes itself, -0.2317 s that day, to a hundredth of a second.
    EXPECT_NEAR((TempoSiderale(day, 0, 1) - TempoSiderale(day, 0, 0)) * 3600, -0.2317, 0.01);
    // 19h21m later: the value is left above 24 for the caller to reduce.
    double s = TempoSiderale(day, 19 + 21.0 / 60, 0);
    EXPECT_GT(s, 24);
    EXPECT_NEAR(s - 24, Esempio("siderale_1987_media_19h21"), 0.1 * secondo);
}

TEST(TempoSiderale, PrimaDel1900ELocale) {
    // From about a hundred days before 1900 January 0.5 on, the reduced value is negative; the
    // caller's step of +24 brings it back, and the day after still gains 3m56.555s.
    double prima = TempoSiderale(2414000.5, 0, 0);
    EXPECT_TRUE(prima < 0 && prima > -24) << prima;
    double locale = TempoSideraleLocale(0, 0, 2414000.5, 0, 0);
    EXPECT_DOUBLE_EQ(locale, prima + 24);
    double dopo = TempoSideraleLocale(0, 0, 2414001.5, 0, 0);
    EXPECT_NEAR(std::remainder(dopo - locale, 24.0) * 3600, 3 * 60 + 56.555, 0.001);
    // 11E53 (east negative, hours) adds 47.5 minutes; 75W subtracts 5 hours, once round.
    double greenwich = TempoSideraleLocale(10, 0, 2446895.5, 1, 0);
    double est = TempoSideraleLocale(6, 4, 2446895.5, 1, -(11 + 53.0 / 60) / 15);
    EXPECT_NEAR(est - greenwich, (11 + 53.0 / 60) / 15, 1e-12);
    EXPECT_NEAR(TempoSideraleLocale(10, 0, 2446895.5, 1, 5 + greenwich), 19, 1e-9);
}

TEST(Keplero, EsempiEdEccentricitaEstreme) {
    double E = Keplero(Esempio("keplero_e"), Radianti(Esempio("keplero_M")));
    EXPECT_NEAR(Gradi(E), Esempio("keplero_E"), 0.000001);
    EXPECT_EQ(Keplero(0, 2.5), 2.5);
    // e = 0.99, M = 2 degrees: Newton's steps still converge, and the true anomaly runs far
    // ahead of the eccentric one.
    E = Keplero(Esempio("keplero2_e"), Radianti(Esempio("keplero2_M")));
    EXPECT_NEAR(Gradi(E), Esempio("keplero2_E"), 0.000001);
    double v = AnomaliaVera(0.99, E);
    double atteso = 2 * std::atan(std::sqrt(1.99 / 0.01) * std::tan(E / 2));
    EXPECT_NEAR(v, Gradi(atteso), 1e-9);
}
