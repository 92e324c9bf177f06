// Speed of the calendar routines that every chart calls many times.
#include <benchmark/benchmark.h>

#include "core/Aritmetica.h"

static void BM_GiornoGiuliano(benchmark::State& state) {
    double giorno = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(vesmo::GiornoGiuliano(1987, 4, giorno));
        giorno = giorno < 28 ? giorno + 1 : 1;
    }
}
BENCHMARK(BM_GiornoGiuliano);

static void BM_DataDaGiuliano(benchmark::State& state) {
    double jd = 2446895.5;
    float a, m, g;
    for (auto _ : state) {
        vesmo::DataDaGiuliano(jd, a, m, g);
        benchmark::DoNotOptimize(g);
        jd += 0.37;
    }
}
BENCHMARK(BM_DataDaGiuliano);

static void BM_Norma360(benchmark::State& state) {
    double x = -12345.678;
    for (auto _ : state) {
        benchmark::DoNotOptimize(vesmo::Norma360(x, 1));
        x += 17.3;
    }
}
BENCHMARK(BM_Norma360);

BENCHMARK_MAIN();
