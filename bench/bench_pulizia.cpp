// The cleaning of the places database on the built file: the scan of Fusi and Estive for codes
// no place uses (with the work index made each time, as a fresh cleaning does), the delete pass
// over Estive, and the compaction of the whole file with the swap.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

#include "core/Messaggi.h"
#include "places/PuliziaLuoghi.h"

namespace {

namespace fs = std::filesystem;

const fs::path Sorgente = fs::path(VESMO_RADICE) / "data/Vesmodat.Mdb";

// A copy of the built database in a folder of its own, removed at the end.
class Copia {
public:
    Copia() {
        cartella_ = fs::temp_directory_path() / ("vesmo_bench_pulizia_" + std::to_string(getpid()));
        fs::create_directories(cartella_);
        Rinnova();
    }
    ~Copia() {
        std::error_code ec;
        fs::remove_all(cartella_, ec);
    }
    void Rinnova() { fs::copy_file(Sorgente, File(), fs::copy_options::overwrite_existing); }
    fs::path File() const { return cartella_ / "Vesmodat.Mdb"; }

private:
    fs::path cartella_;
};

void Scansione(benchmark::State& state, vesmo::ListaPulizia lista) {
    if (!fs::exists(Sorgente)) return state.SkipWithError("data/Vesmodat.Mdb is missing");
    Copia copia;
    std::int64_t righe = 0;
    for (auto _ : state) {
        state.PauseTiming();
        vesmo::EliminaIndiceLavoro(copia.File(), lista);
        state.ResumeTiming();
        const auto esito = vesmo::ScansionePulizia(copia.File(), lista);
        righe = esito.esaminate;
        benchmark::DoNotOptimize(esito.codici.data());
    }
    state.counters["righe"] = static_cast<double>(righe);
}

void BM_ScansioneFusi(benchmark::State& state) {
    Scansione(state, vesmo::ListaPulizia::Fusi);
}
void BM_ScansioneEstive(benchmark::State& state) {
    Scansione(state, vesmo::ListaPulizia::Estive);
}

// The delete pass walks every row of Estive; the codes below 100 are deleted.
void BM_EliminaEstive(benchmark::State& state) {
    if (!fs::exists(Sorgente)) return state.SkipWithError("data/Vesmodat.Mdb is missing");
    Copia copia;
    std::vector<std::int32_t> codici;
    for (std::int32_t c = 1; c < 100; ++c)
        codici.push_back(c);
    std::int64_t eliminate = 0;
    for (auto _ : state) {
        state.PauseTiming();
        copia.Rinnova();
        state.ResumeTiming();
        eliminate = vesmo::EliminaRighe(copia.File(), vesmo::ListaPulizia::Estive, codici);
    }
    state.counters["eliminate"] = static_cast<double>(eliminate);
}

void BM_Compattazione(benchmark::State& state) {
    if (!fs::exists(Sorgente)) return state.SkipWithError("data/Vesmodat.Mdb is missing");
    Copia copia;
    vesmo::MessaggiRegistrati messaggi;
    for (auto _ : state) {
        state.PauseTiming();
        copia.Rinnova();
        state.ResumeTiming();
        if (!vesmo::CompattaDatabase(copia.File(), messaggi))
            state.SkipWithError("the compaction failed");
    }
    state.counters["byte"] = static_cast<double>(fs::file_size(Sorgente));
}

BENCHMARK(BM_ScansioneFusi)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScansioneEstive)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EliminaEstive)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Compattazione)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
