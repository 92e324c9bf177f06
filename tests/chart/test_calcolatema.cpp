// Casting a whole chart: houses, motion flags and coordinates of every body, LunaGeo, selector.
#include <gtest/gtest.h>

#include <swephexp.h>

#include <cmath>
#include <tuple>

#include "chart/CalcolaTema.h"
#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "tests/core/Padova.h"

using namespace vesmo;

namespace {

// Right ascension and declination from the rounded obliquity 23.44, degrees.
constexpr double ScartoEquatorialeGradi = 0.05;

double Scarto(double a, double b) {
    double d = std::fmod(std::fabs(a - b), 360.0);
    return d > 180 ? 360 - d : d;
}

Tema Padova(double anno, double mese, double giorno, double ora) {
    return test::NatoAPadova("Prova", anno, mese, giorno, ora);
}

// The houses, then the bodies from `scelto` (0 every one) as CalcolaTema takes it.
Posizioni Calcola(const Tema& t, std::int16_t scelto = 0) {
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    CalcoloCase(t, c, p, 1, m);
    CalcolaTema(t, c, p, 1, scelto, m, false);
    return p;
}

} // namespace

TEST(CalcolaTema, OgniCorpoHaCasaECoordinate) {
    Tema t = Padova(1987, 4, 10, 19.5);
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    CastaTema(t, c, p, 1, m);
    EXPECT_TRUE(m.registro.empty());
    const double e = Radianti(23.44);
    for (const auto& v : CorpiInOrdine) {
        const Posizione& q = p.*v.campo;
        SCOPED_TRACE(v.nome);
        EXPECT_TRUE(q.Lo >= 0 && q.Lo < 360) << q.Lo;
        EXPECT_EQ(q.Ca, CasaDi(q.Lo, c));
        EXPECT_TRUE(q.Ca >= 1 && q.Ca <= 12) << q.Ca;
        // Right ascension and declination belong to the longitude and latitude.
        double ar, de;
        EclitticaEquatore(Radianti(q.Lo), Radianti(q.LaEc), e, ar, de);
        EXPECT_LT(Scarto(ar, q.AR.Numero() * 15), ScartoEquatorialeGradi);
        EXPECT_NEAR(Gradi(de), Gradi(q.De), ScartoEquatorialeGradi);
        Variante aob;
        AscensioneObliqua(aob, q.AR, q.De, Radianti(t.Lat));
        EXPECT_EQ(aob, q.AOb);
    }
    // No latitude for the Sun and the node, no motion flag for the lights, the mean node
    // backwards; no nodes for Pluto.
    EXPECT_EQ(std::make_tuple(p.Sole.LaEc, p.NodoLuna.LaEc, p.Sole.Mv, p.Luna.Mv, p.NodoLuna.Mv),
              std::make_tuple(0.0, 0.0, 0, 0, -1));
    EXPECT_EQ(p.Plutone.LNd, 0.0);
    EXPECT_NE(p.Marte.LNd, 0.0);
    EXPECT_EQ(p.LilithMedia.Ca, CasaDi(p.LilithMedia.Lo, c));
}

TEST(CalcolaTema, MotoRetrogradoComeLeEffemeridi) {
    // Over ten years, each planet's motion flag agrees with the sign of its speed in the Swiss
    // Ephemeris, except within a day of a station.
    const int swe[] = {SE_MERCURY, SE_VENUS,  SE_MARS,    SE_JUPITER,
                       SE_SATURN,  SE_URANUS, SE_NEPTUNE, SE_PLUTO};
    const Posizione Posizioni::*campi[] = {
        &Posizioni::Mercurio, &Posizioni::Venere, &Posizioni::Marte,   &Posizioni::Giove,
        &Posizioni::Saturno,  &Posizioni::Urano,  &Posizioni::Nettuno, &Posizioni::Plutone};
    int retrogradi = 0;
    for (double jd = 2447000.5; jd < 2450650; jd += 9.7) {
        Tema t = Padova(2000, 1, 1, 0);
        t.Day = std::floor(jd) + 0.5;
        t.OraL = 13;
        const Posizioni p = Calcola(t);
        for (int k = 0; k < 8; ++k) {
            double xx[6], xx1[6];
            char err[256];
            swe_calc(t.JD() - 0.5, swe[k], SEFLG_MOSEPH | SEFLG_SPEED, xx, err);
            swe_calc(t.JD() + 1.5, swe[k], SEFLG_MOSEPH | SEFLG_SPEED, xx1, err);
            if ((xx[3] < 0) != (xx1[3] < 0)) continue; // a station nearby
            const Posizione& q = p.*campi[k];
            EXPECT_EQ(q.Mv, xx[3] < 0 ? -1 : 0) << "pianeta " << k << " jd " << t.JD();
            retrogradi += q.Mv != 0;
        }
    }
    EXPECT_GT(retrogradi, 100);
}

TEST(CalcolaTema, LunaGeocentricaOTopocentrica) {
    Tema t = Padova(1999, 8, 11, 12.5);
    Case c;
    Posizioni geo, topo;
    MessaggiRegistrati m;
    CastaTema(t, c, geo, 1, m);
    CastaTema(t, c, topo, 0, m);
    // The parallax moves the Moon by up to about a degree; the Sun does not move.
    double d = Scarto(geo.Luna.Lo, topo.Luna.Lo);
    EXPECT_TRUE(d > 0.01 && d < 1.1) << d;
    EXPECT_NE(geo.Luna.LaEc, topo.Luna.LaEc);
    EXPECT_NE(geo.Luna.De, topo.Luna.De);
    EXPECT_EQ(geo.Sole.Lo, topo.Sole.Lo);
    // Any other value leaves the Moon as it was.
    topo.Luna.Lo = 77;
    CalcolaTema(t, c, topo, 5, 0, m, false);
    EXPECT_EQ(topo.Luna.Lo, 77);
}

TEST(CalcolaTema, SelettoreRiempieSoloIlPianetaScelto) {
    Tema t = Padova(2010, 5, 5, 10);
    Case c;
    Posizioni tutto;
    MessaggiRegistrati m;
    CastaTema(t, c, tutto, 1, m, false);
    // The Sun and the Moon are left as they were, the other planets emptied.
    Posizioni p = tutto;
    CalcolaTema(t, c, p, 1, NumMarte, m, false);
    EXPECT_TRUE(p.Marte == tutto.Marte && p.Sole == tutto.Sole && p.Luna == tutto.Luna);
    EXPECT_TRUE(p.Giove == Posizione{} && p.Mercurio == Posizione{});
    p = tutto;
    CalcolaTema(t, c, p, 1, NumNodoLuna, m, false);
    EXPECT_TRUE(p.NodoLuna == tutto.NodoLuna && p.Venere == Posizione{});
}

TEST(CalcolaTema, MotoAttraversoZeroGradi) {
    // Days on which Mercury, Venus or Mars pass 0° Aries: forward they stay direct, and a body
    // going back across 0° is retrograde.
    int avanti = 0, indietro = 0;
    const std::pair<std::int16_t, const Posizione Posizioni::*> corpi[] = {
        {NumMercurio, &Posizioni::Mercurio},
        {NumVenere, &Posizioni::Venere},
        {NumMarte, &Posizioni::Marte}};
    for (double jd = 2440000.5; jd < 2455000.5 && (avanti < 3 || indietro < 1); jd += 1) {
        for (const auto& [n, campo] : corpi) {
            Tema t = Padova(2000, 1, 1, 1); // 0h at Greenwich
            t.Day = jd;
            const Posizioni p = Calcola(t, n);
            t.Day += 1;
            const double l0 = (p.*campo).Lo, l1 = (Calcola(t, n).*campo).Lo;
            const bool va = l0 >= 358 && l1 <= 2, torna = l0 <= 2 && l1 >= 358;
            if (va || torna) {
                EXPECT_EQ((p.*campo).Mv, va ? 0 : -1) << "jd " << jd << " n " << n;
            }
            avanti += va;
            indietro += torna;
        }
    }
    EXPECT_GE(avanti, 3);
    EXPECT_GE(indietro, 1);
}
