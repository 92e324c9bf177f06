// The grids of the places editor on the built database: filling the grid of places (every
// row's place, in the order of IcCityCity) and reading the cells of one screenful of rows.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/store/Cursore.h"
#include "places/ui/ModelloGriglia.h"

namespace {

const std::filesystem::path FileDB = std::filesystem::path(VESMO_RADICE) / "data/Vesmodat.Mdb";

void BM_GrigliaCity(benchmark::State& state) {
    if (!std::filesystem::exists(FileDB))
        return state.SkipWithError("data/Vesmodat.Mdb is missing");
    vesmo::Database db(FileDB);
    vesmo::Cursore c(db, "AllCity");
    c.Index("IcCityCity");
    vesmo::ModelloGriglia g({"cCity", "City", "Lon", "Lat", "cFusi", "cEst"});
    for (auto _ : state)
        g.CaricaSuRichiesta(c, db);
    state.counters["righe"] = g.rowCount();
}

// 40 rows shown somewhere else each time, read for the first time (200 screenfuls, far apart).
void BM_GrigliaSchermata(benchmark::State& state) {
    if (!std::filesystem::exists(FileDB))
        return state.SkipWithError("data/Vesmodat.Mdb is missing");
    vesmo::Database db(FileDB);
    vesmo::Cursore c(db, "AllCity");
    c.Index("IcCityCity");
    vesmo::ModelloGriglia g({"cCity", "City", "Lon", "Lat", "cFusi", "cEst"});
    g.CaricaSuRichiesta(c, db);
    int inizio = 0;
    for (auto _ : state) {
        inizio = (inizio + 7919) % (g.rowCount() - 40);
        for (int r = inizio; r < inizio + 40; ++r)
            for (int k = 0; k < 6; ++k)
                benchmark::DoNotOptimize(g.data(g.index(r, k), Qt::DisplayRole));
    }
}

BENCHMARK(BM_GrigliaCity)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GrigliaSchermata)->Unit(benchmark::kMillisecond)->Iterations(200);

} // namespace

BENCHMARK_MAIN();
