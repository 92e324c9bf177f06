// An archive of 100,000 charts: the import of a Solar Fire text file, then the query with each
// kind of test, reported as the time per chart; beside them, the whole casting of each chart on
// one thread and the Swiss Ephemeris (Moshier) casting the same 13 points and 12 cusps, so that
// the query's speed can be read against both.
#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

#include "archives/Archivi.h"
#include "archives/ImportaEsporta.h"
#include "archives/Query.h"
#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/store/Cursore.h"

#ifdef VESMO_CON_SWE
#include <swephexp.h>
#endif

using namespace vesmo;

namespace {

constexpr int NumeroTemi = 100000;

const char* const Mesi[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string Due(int n) {
    return (n < 10 ? "0" : "") + std::to_string(n);
}

// The text file, the database with the imported archive, and the charts as read back.
struct Dati {
    std::filesystem::path cartella, file, db;
    std::vector<Tema> temi;
    int importazioni = 0, query = 0;
    Dati() {
        cartella = std::filesystem::temp_directory_path() /
                   ("vesmo_bench_archivi_" + std::to_string(::getpid()));
        std::filesystem::create_directories(cartella);
        file = cartella / "centomila.txt";
        db = cartella / "Vesmodat.Mdb";
        Database d;
        d.Crea(db);
        std::mt19937 g(1960);
        std::ofstream out(file);
        for (int i = 0; i < NumeroTemi; ++i) {
            const int anno = 1900 + static_cast<int>(g() % 130);
            const int fuso = static_cast<int>(g() % 25) - 12;
            out << "\"Persona " << i << "\",\"" << 1 + g() % 28 << ' ' << Mesi[g() % 12] << ' '
                << anno << "\",\"" << Due(static_cast<int>(g() % 12) + 1) << ':'
                << Due(static_cast<int>(g() % 60)) << "\",\"" << (g() % 2 ? "PM" : "AM")
                << "\",\"Zona\",\"" << (fuso < 0 ? "-" : "") << Due(std::abs(fuso))
                << ":00\",\"Luogo\",\"Nazione\",\"" << g() % 60 << (g() % 2 ? 'N' : 'S')
                << Due(static_cast<int>(g() % 60)) << "\",\"" << g() % 180 << (g() % 2 ? 'E' : 'W')
                << Due(static_cast<int>(g() % 60)) << "\"\n";
        }
    }
    ~Dati() {
        std::error_code ec;
        std::filesystem::remove_all(cartella, ec);
    }
    // The archive "Temi", imported once.
    void Prepara() {
        if (!temi.empty()) return;
        ImportaSF(db.string(), "Temi", file.string(), (cartella / "Temi.log").string());
        Database d(db);
        Cursore rs(d, "Temi");
        rs.Index(IndiceArchivio);
        for (; !rs.Eof(); rs.MoveNext())
            LeggiRecordTema(rs, temi.emplace_back());
    }
};

Dati& D() {
    static Dati d;
    return d;
}

using Orologio = std::chrono::steady_clock;

// Processor time of the whole process, every thread included, in microseconds.
double TempoProcessore() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

struct Inizio {
    Orologio::time_point parete = Orologio::now();
    double processore = TempoProcessore();
};

// Microseconds per chart since `inizio`: of wall time, and of processor time summed over all the
// threads (the figure that does not depend on how busy the machine is).
void PerTema(benchmark::State& state, std::int64_t temi, const Inizio& inizio) {
    const double us =
        std::chrono::duration<double, std::micro>(Orologio::now() - inizio.parete).count();
    const double cpu = TempoProcessore() - inizio.processore;
    state.counters["us/tema"] = temi > 0 ? us / static_cast<double>(temi) : 0;
    state.counters["cpu_us/tema"] = temi > 0 ? cpu / static_cast<double>(temi) : 0;
}

} // namespace

static void BM_Importa100000(benchmark::State& state) {
    Dati& d = D();
    std::int64_t importati = 0;
    const Inizio inizio;
    for (auto _ : state) {
        const std::string nome = "Imp" + std::to_string(d.importazioni++);
        importati +=
            ImportaSF(d.db.string(), nome, d.file.string(), (d.cartella / (nome + ".log")).string())
                .Importati;
    }
    PerTema(state, importati, inizio);
    state.counters["importati"] = static_cast<double>(importati / state.iterations());
}
BENCHMARK(BM_Importa100000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

static void Query(benchmark::State& state, std::vector<CondizioneQuery> condizioni,
                  unsigned fili = 0) {
    Dati& d = D();
    d.Prepara();
    MessaggiRegistrati m;
    std::int64_t esaminati = 0, trovati = 0;
    const Inizio inizio;
    for (auto _ : state) {
        EsitoQuery e = EseguiQuery(d.db.string(), "Temi", "Q_" + std::to_string(d.query++),
                                   condizioni, 1, m, {}, fili);
        esaminati += e.Esaminati;
        trovati += e.Trovati;
    }
    PerTema(state, esaminati, inizio);
    state.counters["trovati"] = static_cast<double>(trovati / state.iterations());
}

// Venus in Taurus: one planet.
BENCHMARK_CAPTURE(Query, LuogoSegno, {{OpzioneQuery::Luogo, 3, 1, 0, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// The Sun in the tenth house: the houses too.
BENCHMARK_CAPTURE(Query, LuogoCasa, {{OpzioneQuery::Luogo, 0, 22, 0, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// The Moon conjunct the first degree of Aries.
BENCHMARK_CAPTURE(Query, AngoloSegnoLuna, {{OpzioneQuery::Angolo, 1, 0, 0, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// Mars square the Ascendant's cusp.
BENCHMARK_CAPTURE(Query, AngoloCasa, {{OpzioneQuery::Angolo, 4, 13, 2, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// The Sun conjunct Mercury.
BENCHMARK_CAPTURE(Query, AngoloCorpo, {{OpzioneQuery::Angolo, 0, 28, 0, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// Mercury retrograde: the day after is cast too.
BENCHMARK_CAPTURE(Query, Verso, {{OpzioneQuery::Verso, 2, 0, 0, 2.5f, 1}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// The true Black Moon: the Moon and the apogee search.
BENCHMARK_CAPTURE(Query, LuogoLilithVera, {{OpzioneQuery::Luogo, 12, 0, 0, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// The help's two conditions in one pass.
BENCHMARK_CAPTURE(Query, DueCondizioni,
                  {{OpzioneQuery::Angolo, 0, 28, 0, 2.5f, 0},
                   {OpzioneQuery::Luogo, 3, 1, 0, 2.5f, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
// One thread, for the share of the second core.
BENCHMARK_CAPTURE(Query, AngoloCorpoUnFilo, {{OpzioneQuery::Angolo, 0, 28, 0, 2.5f, 0}}, 1u)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

// The whole chart of every chart, houses and all 13 points, on one thread: what each record of a
// query would cost without the choice of points.
static void BM_TemaInteroPerTema(benchmark::State& state) {
    Dati& d = D();
    d.Prepara();
    MessaggiRegistrati m;
    std::int64_t n = 0;
    const Inizio inizio;
    for (auto _ : state) {
        for (const Tema& t : d.temi) {
            Case c;
            Posizioni p;
            CastaTema(t, c, p, 1, m);
            benchmark::DoNotOptimize(p);
            ++n;
        }
    }
    PerTema(state, n, inizio);
}
BENCHMARK(BM_TemaInteroPerTema)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

#ifdef VESMO_CON_SWE
// The same 100,000 charts cast by the Swiss Ephemeris from its analytic ephemeris: 13 points and
// the 12 Placidus cusps each.
static void BM_SwissEphemeris100000(benchmark::State& state) {
    Dati& d = D();
    d.Prepara();
    const int corpi[] = {SE_SUN,       SE_MOON,      SE_MERCURY,  SE_VENUS,   SE_MARS,
                         SE_JUPITER,   SE_SATURN,    SE_URANUS,   SE_NEPTUNE, SE_PLUTO,
                         SE_MEAN_NODE, SE_MEAN_APOG, SE_OSCU_APOG};
    char err[256];
    std::int64_t n = 0;
    const Inizio inizio;
    for (auto _ : state) {
        for (const Tema& t : d.temi) {
            const double jd = t.JD();
            double xx[6], cuspidi[13], ascmc[10];
            for (int corpo : corpi) {
                swe_calc_ut(jd, corpo, SEFLG_MOSEPH | SEFLG_SPEED, xx, err);
                benchmark::DoNotOptimize(xx);
            }
            swe_houses(jd, t.Lat, -t.Lon * 15, 'P', cuspidi, ascmc);
            benchmark::DoNotOptimize(cuspidi);
            ++n;
        }
    }
    PerTema(state, n, inizio);
}
BENCHMARK(BM_SwissEphemeris100000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
#endif

BENCHMARK_MAIN();
