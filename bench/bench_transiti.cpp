// Speed of the transit calendar: a year of the slow bodies to the 14 points of the wheel and the
// five major aspects; the same with Sole, Luna, Mercurio, Venere and Marte added; a century of
// the slow bodies.
#include <benchmark/benchmark.h>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "timecharts/CalendarioTransiti.h"

namespace {

vesmo::RichiestaTransiti Richiesta(double anni, bool conVeloci) {
    vesmo::Tema t;
    t.Day = vesmo::GiornoGiuliano(1987, 4, 10);
    t.OraL = 19.5;
    t.Fuso = -1;
    t.Estiva = 1;
    t.Lon = -11.8833 / 15;
    t.Lat = 45.4;
    vesmo::Case c;
    vesmo::Posizioni p;
    vesmo::MessaggiRegistrati m;
    vesmo::CastaTema(t, c, p, 1, m);
    vesmo::RichiestaTransiti r;
    r.jdDa = vesmo::GiornoGiuliano(2026, 1, 1);
    r.jdA = r.jdDa + 365.25 * anni;
    r.corpi = conVeloci ? std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}
                        : vesmo::CorpiTransitoPredefiniti();
    r.punti = vesmo::PuntiNataliPredefiniti(p, 1);
    r.aspetti = {0, 1, 2, 3, 4};
    r.orbita = 2.5;
    return r;
}

void Cerca(benchmark::State& state, double anni, bool conVeloci) {
    const auto r = Richiesta(anni, conVeloci);
    std::size_t n = 0;
    for (auto _ : state) {
        auto v = vesmo::CercaTransiti(r);
        n = v.size();
        benchmark::DoNotOptimize(v);
    }
    state.counters["transiti"] = static_cast<double>(n);
}

void BM_AnnoLenti(benchmark::State& state) {
    Cerca(state, 1, false);
}
BENCHMARK(BM_AnnoLenti)->Unit(benchmark::kMillisecond);

void BM_AnnoConSoleLunaMercurioVenereMarte(benchmark::State& state) {
    Cerca(state, 1, true);
}
BENCHMARK(BM_AnnoConSoleLunaMercurioVenereMarte)->Unit(benchmark::kMillisecond);

void BM_SecoloLenti(benchmark::State& state) {
    Cerca(state, 100, false);
}
BENCHMARK(BM_SecoloLenti)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
