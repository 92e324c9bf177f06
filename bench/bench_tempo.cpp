// Searches per second: a solar return found from 1 January of a year, a lunar month's tropical
// return, a synodic phase, and the ingress search of the help's Mercury example with its
// survey table in a temporary file.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/Aritmetica.h"
#include "timecharts/Ingressi.h"
#include "timecharts/Rivoluzioni.h"

using namespace vesmo;

namespace {

void RivoluzioneSolare(benchmark::State& state) {
    MessaggiRegistrati m;
    int i = 0;
    for (auto _ : state) {
        auto jd = IstanteSolare(19.75 + (i % 7), 1950 + i % 80, m);
        ++i;
        benchmark::DoNotOptimize(jd);
    }
    state.counters["ricerche/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(RivoluzioneSolare);

void RivoluzioneLunare(benchmark::State& state) {
    MessaggiRegistrati m;
    Tema t;
    int i = 0;
    for (auto _ : state) {
        auto jd = IstanteLunareTropico(100 + i % 50, GiornoGiuliano(2000 + i % 20, 1 + i % 12, 1),
                                       t, 1, m);
        ++i;
        benchmark::DoNotOptimize(jd);
    }
}
BENCHMARK(RivoluzioneLunare);

void RivoluzioneSinodica(benchmark::State& state) {
    MessaggiRegistrati m;
    Tema t;
    int i = 0;
    for (auto _ : state) {
        auto jd = IstanteSinodico(180, GiornoGiuliano(2000 + i % 20, 1 + i % 12, 1), t, 1, m);
        ++i;
        benchmark::DoNotOptimize(jd);
    }
}
BENCHMARK(RivoluzioneSinodica);

// The whole search as the form runs it: a new temporary file, the secant, the result chart.
void IngressoMercurio(benchmark::State& state) {
    Sessione s;
    s.TemaNat.Day = GiornoGiuliano(1960, 1, 10);
    s.TemaNat.OraL = 12;
    s.TemaNat.Fuso = -1;
    MessaggiRegistrati m;
    DatiIngresso d;
    d.pianeta = NumMercurio;
    d.bersaglio = 240;
    d.partenza = 2451113;
    d.cartella = std::filesystem::temp_directory_path() / "vesmo_bench_tempo";
    for (auto _ : state) {
        EsitoIngresso e = IngressiPinS(s, d, m);
        benchmark::DoNotOptimize(e);
    }
    std::filesystem::remove_all(d.cartella);
}
BENCHMARK(IngressoMercurio)->Unit(benchmark::kMillisecond);

// A station: survey, table walks and the dicotomic search.
void IngressoStazione(benchmark::State& state) {
    Sessione s;
    MessaggiRegistrati m;
    DatiIngresso d;
    d.pianeta = NumMercurio;
    d.bersaglio = 349.17;
    d.partenza = 2451590;
    d.cartella = std::filesystem::temp_directory_path() / "vesmo_bench_tempo";
    for (auto _ : state) {
        EsitoIngresso e = IngressiPinS(s, d, m);
        benchmark::DoNotOptimize(e);
    }
    std::filesystem::remove_all(d.cartella);
}
BENCHMARK(IngressoStazione)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
