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
#include <vector>

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

// The worst error of one quantity over the grid, printed beside its goal, in its own unit.
struct Peggiore {
    std::string nome;
    double obiettivo, valore = 0, jd = 0;
    void Aggiungi(double jd_, double scarto) {
        if (std::fabs(scarto) <= valore) return;
        valore = std::fabs(scarto);
        jd = jd_;
    }
    void Verifica() const {
        std::printf("  %-26s %10.5f at JD %.1f  goal %.3f\n", nome.c_str(), valore, jd, obiettivo);
        EXPECT_LE(valore, obiettivo) << nome;
    }
};

std::array<double, 3> Swe(double jd, int corpo, int flag) {
    double x[6];
    char errore[256];
    EXPECT_GE(swe_calc(jd, corpo, SEFLG_MOSEPH | flag, x, errore), 0) << errore;
    return {x[0], x[1], x[2]};
}

} // namespace

TEST(Confronto, PosizioniDal1900Al2050) {
    struct Corpo {
        const char* nome;
        int swe, flag;
        double obiettivo; // degrees
    };
    const Corpo corpi[] = {
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
    };
    std::vector<Peggiore> lon, lat, r;
    for (const Corpo& c : corpi) {
        lon.push_back({c.nome + std::string(" lon"), c.obiettivo});
        lat.push_back({c.nome + std::string(" lat"), c.obiettivo});
        r.push_back({c.nome + std::string(" R (relativo)"), 0.001}); // a thousandth of R
    }
    Peggiore nodo{"NodoLuna", 0.01}, media{"LilithMedia", 0.5};
    // Ours interpolates the Moon's place at the two apogees around the instant: degrees apart.
    Peggiore vera{"LilithVera", 3};
    // The 1900 polynomial drifts a second of time from today's at the range's ends.
    Peggiore siderale{"tempo siderale (s)", 1.5}, obliquita{"obliquita media (\")", 1.0};
    MessaggiRegistrati msg;
    for (double jd = Inizio; jd <= Fine; jd += Passo) {
        Effemeridi e = CalcolaEffemeridi(jd, true, msg);
        for (std::size_t i = 0; i < std::size(corpi); ++i) {
            auto s = Swe(jd, corpi[i].swe, corpi[i].flag);
            const CorpoEffemeride& c = e.corpi[i];
            lon[i].Aggiungi(jd, Scarto(c.Lo, s[0]));
            lat[i].Aggiungi(jd, c.LaEc - s[1]);
            if (i != 1) r[i].Aggiungi(jd, (c.R - s[2]) / s[2]); // the Moon has no distance
        }
        nodo.Aggiungi(jd, Scarto(e.NodoLuna, Swe(jd, SE_MEAN_NODE, SEFLG_NONUT)[0]));
        media.Aggiungi(jd, Scarto(e.LilithMedia, Swe(jd, SE_MEAN_APOG, SEFLG_NONUT)[0]));
        vera.Aggiungi(jd, Scarto(e.LilithVeraLo, Swe(jd, SE_INTP_APOG, SEFLG_NONUT)[0]));
        siderale.Aggiungi(jd, std::remainder(e.TSL0 - swe_sidtime(jd), 24.0) * 3600);
        // SE_ECL_NUT gives true obliquity, mean obliquity, dPsi, dEps.
        obliquita.Aggiungi(jd, (e.Obliquita - Swe(jd, SE_ECL_NUT, 0)[1]) * 3600);
    }
    std::printf("Worst errors against the Swiss Ephemeris 1900-2050 (lon, lat: degrees):\n");
    for (const auto* gruppo : {&lon, &lat, &r})
        for (const Peggiore& p : *gruppo)
            p.Verifica();
    for (const Peggiore* p : {&nodo, &media, &vera, &siderale, &obliquita})
        p->Verifica();
    EXPECT_TRUE(msg.registro.empty()) << "LilithVera showed " << msg.registro.size() << " boxes";
}

TEST(Confronto, NutazioneEObliquitaVera) {
    // 13 and 9 terms of the series leave out terms of a few hundredths of a second.
    Peggiore psi{"dPsi (\")", 0.5}, eps{"dEps (\")", 0.5};
    for (double jd = Inizio; jd <= Fine; jd += Passo) {
        double dPsi, dEps;
        Nutazione(jd, dPsi, dEps);
        double x[6];
        char errore[256];
        swe_calc(jd, SE_ECL_NUT, SEFLG_MOSEPH, x, errore);
        psi.Aggiungi(jd, dPsi - x[2] * 3600);
        eps.Aggiungi(jd, dEps - x[3] * 3600);
    }
    psi.Verifica();
    eps.Verifica();
}

TEST(Confronto, LunaTopocentrica) {
    // Rome, 12E30 41N54, sea level: the reference's topocentric Moon on the mean equinox.
    const double lonEst = 12.5, latRoma = 41.9;
    swe_set_topo(lonEst, latRoma, 0);
    Peggiore lon{"Luna topocentrica lon", 0.03}, lat{"Luna topocentrica lat", 0.03};
    for (double jd = Inizio; jd <= Fine; jd += Passo / 3) {
        double day = Int(jd - 0.5) + 0.5;
        double l, b, p, lt, bt;
        PosizioneLuna(jd, l, b, p);
        LunaTopocentrica(day, (jd - day) * 24, -lonEst / 15, latRoma, l, b, 0, p, lt, bt);
        auto s = Swe(jd, SE_MOON, SEFLG_NONUT | SEFLG_TOPOCTR);
        lon.Aggiungi(jd, Scarto(lt, s[0]));
        lat.Aggiungi(jd, Gradi(bt) - s[1]);
    }
    lon.Verifica();
    lat.Verifica();
}
