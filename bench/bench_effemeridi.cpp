// Speed of the ephemeris: all the positions of one instant, with and without the search of the
// true Black Moon, and the Moon and one perturbed planet alone.
#include <benchmark/benchmark.h>

#include "core/Messaggi.h"
#include "ephemeris/Effemeridi.h"
#include "ephemeris/Lilith.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Pianeti.h"

namespace {

void BM_TutteLePosizioni(benchmark::State& state) {
    vesmo::MessaggiRegistrati msg;
    const bool conLilithVera = state.range(0) != 0;
    double jd = 2446895.3;
    for (auto _ : state) {
        vesmo::Effemeridi e = vesmo::CalcolaEffemeridi(jd, conLilithVera, msg);
        benchmark::DoNotOptimize(e);
        jd += 0.731;
    }
}
BENCHMARK(BM_TutteLePosizioni)->Arg(0)->Arg(1)->ArgName("conLilithVera");

void BM_PosizioneLuna(benchmark::State& state) {
    double jd = 2446895.3, l, b, p;
    for (auto _ : state) {
        vesmo::PosizioneLuna(jd, l, b, p);
        benchmark::DoNotOptimize(l);
        jd += 0.731;
    }
}
BENCHMARK(BM_PosizioneLuna);

void BM_Saturno(benchmark::State& state) {
    double jd = 2446895.3;
    for (auto _ : state) {
        vesmo::Elementi el;
        double m;
        vesmo::PosEliocentrica h;
        vesmo::ElementiPianeta(jd, 6, 1, el, m);
        vesmo::PianetaEliocentrico(jd, 6, 1, el, m, h);
        benchmark::DoNotOptimize(h);
        jd += 0.731;
    }
}
BENCHMARK(BM_Saturno);

} // namespace

BENCHMARK_MAIN();
