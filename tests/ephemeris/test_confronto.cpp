// The ephemeris against Debian's Swiss Ephemeris (built-in Moshier, about 1") from 1900 to 2050,
// asked at the same Julian day as dynamical time since the chart takes TU as uniform time. The
// Sun and planets are apparent, the Moon and lunar points on the mean equinox of date; light time
// left out moves the worst errors by under 0.01 degrees. Each run prints the worst errors.
#include <gtest/gtest.h>

#include <swephexp.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "ephemeris/Effemeridi.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Sole.h"
#include "tests/ephemeris/Riferimenti.h"

using namespace vesmo;
using vesmo::test::Scarto;

namespace {

constexpr double Inizio = 2415020.5; // 1900 January 1
constexpr double Fine = 2470171.5;   // 2050 December 31
constexpr double Passo = 37.3;       // days: every phase of the Moon and of the apogee

struct Scarti {
    double lon = 0, lat = 0, r = 0; // worst absolute errors: degrees, degrees, AU / AU
    double jdLon = 0;

    void Aggiungi(double jd, double dLon, double dLat, double dR) {
        if (std::fabs(dLon) > lon) {
            lon = std::fabs(dLon);
            jdLon = jd;
        }
        lat = std::max(lat, std::fabs(dLat));
        r = std::max(r, std::fabs(dR));
    }
};

struct Riferimento {
    double lon, lat, r;
};

Riferimento Swe(double jd, int corpo, int flag) {
    double x[6];
    char errore[256];
    int rc = swe_calc(jd, corpo, SEFLG_MOSEPH | flag, x, errore);
    EXPECT_GE(rc, 0) << errore;
    return {x[0], x[1], x[2]};
}

void Riga(const char* nome, const Scarti& s, double obiettivo) {
    std::printf("  %-12s lon %9.5f  lat %9.5f  R(rel) %9.6f   at JD %.1f   goal %.2f\n", nome,
                s.lon, s.lat, s.r, s.jdLon, obiettivo);
}

} // namespace

TEST(Confronto, PosizioniDal1900Al2050) {
    struct Corpo {
        const char* nome;
        int swe;
        int flag;
        double obiettivo; // degrees
    };
    const std::array<Corpo, 10> corpi{{
        {"Sole", SE_SUN, 0, 0.01},
        {"Luna", SE_MOON, SEFLG_NONUT, 0.03},
        {"Mercurio", SE_MERCURY, 0, 0.05},
        {"Venere", SE_VENUS, 0, 0.05},
        // Mars' long-period term as the series give it: up to 0.12° off near opposition.
        {"Marte", SE_MARS, 0, 0.13},
        {"Giove", SE_JUPITER, 0, 0.05},
        {"Saturno", SE_SATURN, 0, 0.05},
        {"Urano", SE_URANUS, 0, 0.1},
        {"Nettuno", SE_NEPTUNE, 0, 0.1},
        // Pluto's series stay on the equinox of 1950.0: 0.7° early in 1900, 1.4° late in 2050.
        {"Plutone", SE_PLUTO, 0, 1.5},
    }};
    std::array<Scarti, 10> scarti{};
    Scarti nodo, media, vera, siderale, obliquita;
    MessaggiRegistrati msg;
    int istanti = 0;
    for (double jd = Inizio; jd <= Fine; jd += Passo) {
        ++istanti;
        Effemeridi e = CalcolaEffemeridi(jd, true, msg);
        for (std::size_t i = 0; i < corpi.size(); ++i) {
            Riferimento s = Swe(jd, corpi[i].swe, corpi[i].flag);
            const CorpoEffemeride& c = e.corpi[i];
            double dR = i == 1 ? 0 : (c.R - s.r) / s.r;
            scarti[i].Aggiungi(jd, Scarto(c.Lo, s.lon), c.LaEc - s.lat, dR);
        }
        nodo.Aggiungi(jd, Scarto(e.NodoLuna, Swe(jd, SE_MEAN_NODE, SEFLG_NONUT).lon), 0, 0);
        media.Aggiungi(jd, Scarto(e.LilithMedia, Swe(jd, SE_MEAN_APOG, SEFLG_NONUT).lon), 0, 0);
        vera.Aggiungi(jd, Scarto(e.LilithVeraLo, Swe(jd, SE_INTP_APOG, SEFLG_NONUT).lon), 0, 0);
        // Sidereal time in seconds of time, obliquity in seconds of arc.
        siderale.Aggiungi(jd, std::remainder(e.TSL0 - swe_sidtime(jd), 24.0) * 3600, 0, 0);
        Riferimento eps = Swe(jd, SE_ECL_NUT, 0); // true obliquity, mean obliquity, dPsi, dEps
        obliquita.Aggiungi(jd, (e.Obliquita - eps.lat) * 3600, 0, 0);
    }

    std::printf("Worst errors against the Swiss Ephemeris, %d instants 1900-2050 (degrees):\n",
                istanti);
    for (std::size_t i = 0; i < corpi.size(); ++i)
        Riga(corpi[i].nome, scarti[i], corpi[i].obiettivo);
    Riga("NodoLuna", nodo, 0.01);
    Riga("LilithMedia", media, 0.5);
    Riga("LilithVera", vera, 3);
    std::printf("  sidereal time %.3f s of time (at JD %.1f), mean obliquity %.3f\"\n",
                siderale.lon, siderale.jdLon, obliquita.lon);

    for (std::size_t i = 0; i < corpi.size(); ++i) {
        EXPECT_LE(scarti[i].lon, corpi[i].obiettivo) << corpi[i].nome;
        EXPECT_LE(scarti[i].lat, corpi[i].obiettivo) << corpi[i].nome;
        if (i != 1) {
            EXPECT_LE(scarti[i].r, 0.001) << corpi[i].nome; // a thousandth of R
        }
    }
    EXPECT_LE(nodo.lon, 0.01);
    EXPECT_LE(media.lon, 0.5);
    // Ours interpolates the Moon's place at the two apogees around the instant: degrees apart.
    EXPECT_LE(vera.lon, 3);
    EXPECT_TRUE(msg.registro.empty()) << "LilithVera showed " << msg.registro.size() << " boxes";
    // Seconds of time: the 1900 polynomial drifts a second from today's at the range's ends.
    EXPECT_LE(siderale.lon, 1.5);
    EXPECT_LE(obliquita.lon, 1.0); // seconds of arc
}

TEST(Confronto, NutazioneEObliquitaVera) {
    double peggiorePsi = 0, peggioreEps = 0;
    for (double jd = Inizio; jd <= Fine; jd += Passo) {
        double dPsi, dEps;
        Nutazione(jd, dPsi, dEps);
        double x[6];
        char errore[256];
        swe_calc(jd, SE_ECL_NUT, SEFLG_MOSEPH, x, errore);
        peggiorePsi = std::max(peggiorePsi, std::fabs(dPsi - x[2] * 3600));
        peggioreEps = std::max(peggioreEps, std::fabs(dEps - x[3] * 3600));
    }
    std::printf("Nutation: worst dPsi %.3f\", worst dEps %.3f\"\n", peggiorePsi, peggioreEps);
    // 13 and 9 terms of the series leave out terms of a few hundredths of a second.
    EXPECT_LE(peggiorePsi, 0.5);
    EXPECT_LE(peggioreEps, 0.5);
}

TEST(Confronto, LunaTopocentrica) {
    // Rome, 12E30 41N54, sea level: the reference's topocentric Moon on the mean equinox.
    const double lonEst = 12.5, lat = 41.9;
    swe_set_topo(lonEst, lat, 0);
    double peggiore = 0, peggioreLat = 0;
    for (double jd = Inizio; jd <= Fine; jd += Passo / 3) {
        double day = Int(jd - 0.5) + 0.5;
        double tu = (jd - day) * 24;
        double l, b, p;
        PosizioneLuna(jd, l, b, p);
        double lt, bt;
        LunaTopocentrica(day, tu, -lonEst / 15, lat, l, b, 0, p, lt, bt);
        Riferimento s = Swe(jd, SE_MOON, SEFLG_NONUT | SEFLG_TOPOCTR);
        peggiore = std::max(peggiore, std::fabs(Scarto(lt, s.lon)));
        peggioreLat = std::max(peggioreLat, std::fabs(Gradi(bt) - s.lat));
    }
    std::printf("Topocentric Moon at Rome: worst longitude %.5f, latitude %.5f degrees\n", peggiore,
                peggioreLat);
    EXPECT_LE(peggiore, 0.03);
    EXPECT_LE(peggioreLat, 0.03);
}
