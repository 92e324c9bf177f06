// The grids of the places editor on the built database: filling the grid of places (every
// row's place, in the order of IcCityCity) and reading the cells of one screenful of rows.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/store/Cursore.h"
#include "places/ui/ModelloGriglia.h"

namespace {

const std::filesystem::path FileDB = std::filesystem::path(VESMO_RADICE) / "data/Vesmodat.Mdb";

// The database, the places cursor in the order of the editor and a grid of its six fields.
struct Griglia {
    vesmo::Database db{FileDB};
    vesmo::Cursore c{db, "AllCity"};
    vesmo::ModelloGriglia g{{"cCity", "City", "Lon", "Lat", "cFusi", "cEst"}};
    Griglia() { c.Index("IcCityCity"); }
};

void BM_GrigliaCity(benchmark::State& state) {
    if (!std::filesystem::exists(FileDB))
        return state.SkipWithError("data/Vesmodat.Mdb is missing");
    Griglia x;
    for (auto _ : state)
        x.g.CaricaSuRichiesta(x.c, x.db);
    state.counters["righe"] = x.g.rowCount();
}

// 40 rows shown somewhere else each time, read for the first time (200 screenfuls, far apart).
void BM_GrigliaSchermata(benchmark::State& state) {
    if (!std::filesystem::exists(FileDB))
        return state.SkipWithError("data/Vesmodat.Mdb is missing");
    Griglia x;
    x.g.CaricaSuRichiesta(x.c, x.db);
    int inizio = 0;
    for (auto _ : state) {
        inizio = (inizio + 7919) % (x.g.rowCount() - 40);
        for (int r = inizio; r < inizio + 40; ++r)
            for (int k = 0; k < 6; ++k)
                benchmark::DoNotOptimize(x.g.data(x.g.index(r, k), Qt::DisplayRole));
    }
}

BENCHMARK(BM_GrigliaCity)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GrigliaSchermata)->Unit(benchmark::kMillisecond)->Iterations(200);

} // namespace

BENCHMARK_MAIN();
