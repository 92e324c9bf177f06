// Speed of the store on a place table of the size the workstation ships: ~140,000 places.
// The type-ahead seek should stay well under a millisecond.
#include <benchmark/benchmark.h>

#include "core/store/Cursore.h"
#include "places/Schema.h"

#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int NumeroLuoghi = 140000;

// Names made of syllables, some accented, so that folding has work to do.
std::string Nome(std::mt19937& g) {
    static const char* sillabe[] = {"ca",  "sa", "ro",   "mi", "lè",  "na",   "tò", "ber", "gù",
                                    "vil", "la", "fran", "co", "mün", "ster", "ò",  "del", "pi"};
    std::uniform_int_distribution<int> quante(2, 5), quale(0, std::size(sillabe) - 1);
    std::string n;
    for (int i = quante(g); i > 0; --i)
        n += sillabe[quale(g)];
    n[0] = static_cast<char>(n[0] - 'a' + 'A');
    return n;
}

struct Archivio {
    std::filesystem::path cartella;
    std::vector<std::string> nomi;
    Archivio() {
        cartella = std::filesystem::temp_directory_path() /
                   ("vesmo_bench_store_" + std::to_string(::getpid()));
        std::filesystem::create_directories(cartella);
        vesmo::Database db;
        db.Crea(cartella / "Vesmodat.Mdb");
        vesmo::CreaSchemaLuoghi(db);
        std::mt19937 g(42);
        db.IniziaTransazione();
        vesmo::Cursore c(db, "AllCity");
        for (int i = 0; i < NumeroLuoghi; ++i) {
            std::string n = Nome(g);
            c.AddNew();
            c.Imposta("cCity", 1 + i % 240);
            c.Imposta("City", n);
            c.Imposta("Lon", (i % 3600) / 150.0 - 12);
            c.Imposta("Lat", (i % 1800) / 10.0 - 90);
            c.Imposta("cFusi", i % 400);
            c.Imposta("cEst", i % 400);
            c.Update();
            if (i % 97 == 0) nomi.push_back(n);
        }
        vesmo::Cursore f(db, "Fusi");
        for (int codice = 0; codice < 400; ++codice)
            for (int anno = 1900; anno < 2030; anno += 3) {
                f.AddNew();
                f.Imposta("cFusi", codice);
                f.Imposta("Anno", anno);
                f.Imposta("Mese", 1 + anno % 12);
                f.Imposta("Day", 1);
                f.Imposta("fH_h", "-1");
                f.Imposta("fH_m", "00");
                f.Update();
            }
        db.ConfermaTransazione();
    }
    ~Archivio() { std::filesystem::remove_all(cartella); }
};

Archivio& Dati() {
    static Archivio a;
    return a;
}

// Typing a name: a seek for each longer beginning, as a type-ahead box does.
void BM_SeekTypeAhead(benchmark::State& state) {
    vesmo::Database db(Dati().cartella / "Vesmodat.Mdb");
    vesmo::Cursore c(db, "AllCity");
    c.Index("indCity");
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string& nome = Dati().nomi[i++ % Dati().nomi.size()];
        c.Seek(">=", nome.substr(0, 1 + i % 6));
        benchmark::DoNotOptimize(c.Campo("City").Testo());
    }
}
BENCHMARK(BM_SeekTypeAhead)->Unit(benchmark::kMicrosecond);

// A seek that fills a grid page: the row found and the next twenty.
void BM_SeekAndPage(benchmark::State& state) {
    vesmo::Database db(Dati().cartella / "Vesmodat.Mdb");
    vesmo::Cursore c(db, "AllCity");
    c.Index("IcCityCity");
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string& nome = Dati().nomi[i++ % Dati().nomi.size()];
        c.Seek(">=", static_cast<int>(1 + i % 240), nome.substr(0, 3));
        for (int k = 0; k < 20 && !c.Eof(); ++k) {
            benchmark::DoNotOptimize(c.Campo("City").Testo());
            c.MoveNext();
        }
    }
}
BENCHMARK(BM_SeekAndPage)->Unit(benchmark::kMicrosecond);

// The zone lookup: "<=" on three keys of a four-field index, then a step back.
void BM_SeekFuso(benchmark::State& state) {
    vesmo::Database db(Dati().cartella / "Vesmodat.Mdb");
    vesmo::Cursore c(db, "Fusi");
    c.Index("iFusi");
    int i = 0;
    for (auto _ : state) {
        ++i;
        c.Seek("<=", 1 + i % 399, 1900 + i % 130, 1 + i % 12);
        benchmark::DoNotOptimize(c.Campo("fH_h").Testo());
        c.MovePrevious();
    }
}
BENCHMARK(BM_SeekFuso)->Unit(benchmark::kMicrosecond);

// Walking the whole place table in index order.
void BM_WalkAll(benchmark::State& state) {
    vesmo::Database db(Dati().cartella / "Vesmodat.Mdb");
    vesmo::Cursore c(db, "AllCity");
    c.Index("indCity");
    for (auto _ : state) {
        std::int64_t n = 0;
        for (c.MoveFirst(); !c.Eof(); c.MoveNext())
            ++n;
        benchmark::DoNotOptimize(n);
    }
}
BENCHMARK(BM_WalkAll)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace

BENCHMARK_MAIN();
