// Charts per second: a full casting (houses, then every body, the true Black Moon included),
// one without the apogee search, and the Swiss Ephemeris computing the same 13 points and
// 12 cusps from its analytic ephemeris.
#include <benchmark/benchmark.h>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"

#ifdef VESMO_CON_SWE
#include <swephexp.h>
#endif

using namespace vesmo;

namespace {

Tema TemaDiProva(int i) {
    Tema t;
    t.Day = GiornoGiuliano(1950 + i % 80, 1 + i % 12, 1 + i % 28);
    t.OraL = (i * 7) % 24 + 0.25;
    t.Lon = -0.79;
    t.Lat = 45.4;
    t.Fuso = -1;
    return t;
}

void Casta(benchmark::State& state, bool conLilithVera) {
    MessaggiRegistrati m;
    int i = 0;
    for (auto _ : state) {
        Tema t = TemaDiProva(i++);
        Case c;
        Posizioni p;
        CastaTema(t, c, p, 1, m, conLilithVera);
        benchmark::DoNotOptimize(p);
    }
    state.counters["temi/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

} // namespace

static void BM_TemaCompleto(benchmark::State& state) {
    Casta(state, true);
}
BENCHMARK(BM_TemaCompleto);

static void BM_TemaSenzaLilithVera(benchmark::State& state) {
    Casta(state, false);
}
BENCHMARK(BM_TemaSenzaLilithVera);

#ifdef VESMO_CON_SWE
static void BM_SwissEphemerisStessiPunti(benchmark::State& state) {
    const int corpi[] = {SE_SUN,       SE_MOON,      SE_MERCURY,  SE_VENUS,   SE_MARS,
                         SE_JUPITER,   SE_SATURN,    SE_URANUS,   SE_NEPTUNE, SE_PLUTO,
                         SE_MEAN_NODE, SE_MEAN_APOG, SE_OSCU_APOG};
    int i = 0;
    char err[256];
    for (auto _ : state) {
        Tema t = TemaDiProva(i++);
        double jd = t.JD();
        double xx[6], cuspidi[13], ascmc[10];
        for (int corpo : corpi) {
            swe_calc_ut(jd, corpo, SEFLG_MOSEPH | SEFLG_SPEED, xx, err);
            benchmark::DoNotOptimize(xx);
        }
        swe_houses(jd, t.Lat, -t.Lon * 15, 'P', cuspidi, ascmc);
        benchmark::DoNotOptimize(cuspidi);
    }
    state.counters["temi/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_SwissEphemerisStessiPunti);
#endif

BENCHMARK_MAIN();
