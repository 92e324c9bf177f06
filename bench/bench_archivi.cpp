// The picking form of the chart half on an archive of 100,000 charts: the time to open it (the
// archives listed, the grid bound to the archive, the seek on the natal slot's name, the first
// chart read, cast and previewed) and the cost of one step down the grid, with the chart under
// the cursor read and cast again, the preview wheel and the grid repainted; a click on a column
// header that sorts the whole archive, and a search by several fields.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "archives/Archivi.h"
#include "archives/Elenchi.h"
#include "archives/ui/ModelloArchivio.h"
#include "archives/ui/WidgetAnteprima.h"
#include "archives/ui/frmImpTVesmo.h"
#include "archives/ui/frmImpTnLyx.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "core/Testo.h"
#include "presentation/qt/AnteprimaQt.h"

using namespace vesmo;

namespace {

constexpr int Temi = 100000;

// A database with one archive of Temi charts, made once for the whole run.
class Archivio {
public:
    Archivio() {
        cartella_ = std::filesystem::temp_directory_path() /
                    ("vesmo_bench_archivi_" + std::to_string(::getpid()));
        std::filesystem::create_directories(cartella_);
        file_ = (cartella_ / "Vesmodat.Mdb").string();
        {
            Database db;
            db.Crea(file_);
        }
        CreaArchivio(file_, "Clienti");
        Database db(file_);
        Cursore rs(db, "Clienti");
        db.IniziaTransazione();
        for (int i = 0; i < Temi; ++i) {
            Tema t;
            // Names in a scattered order, so that the index order is not the order of entry.
            t.Nome = "Cliente " + std::to_string((i * 7919) % Temi);
            static const char* const citta[] = {"Padova", "Roma", "Forlì",       "São Paulo",
                                                "Zürich", "Ulm",  "Buenos Aires"};
            t.City = citta[(i * 31) % 7];
            t.Stato = "Italy";
            t.Day = GiornoGiuliano(1900 + i % 120, 1 + i % 12, 1 + i % 28);
            t.OraL = (i % 96) / 4.0;
            t.Lon = -GradiDecimali(11, 53, 0) / 15;
            t.Lat = 45.4;
            t.Fuso = -1;
            t.Estiva = i % 2;
            std::int16_t aggiungi = -1, modifica = 0;
            ScriviTema(rs, t, aggiungi, modifica);
        }
        db.ConfermaTransazione();
    }
    ~Archivio() { std::filesystem::remove_all(cartella_); }
    const std::string& File() const { return file_; }

private:
    std::filesystem::path cartella_;
    std::string file_;
};

const Archivio& ArchivioProva() {
    static const Archivio a;
    return a;
}

void AperturaImpTnLyx(benchmark::State& state) {
    const Archivio& a = ArchivioProva();
    Sessione s;
    s.TemaNat.Nome = "Cliente 50000";
    MessaggiRegistrati m;
    for (auto _ : state) {
        frmImpTnLyx f(s, a.File(), m);
        f.Anteprima->Disegno = DisegnaAnteprimaQt;
        f.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(f.DBGrid1->model()->rowCount());
    }
    state.counters["temi"] = Temi;
}
BENCHMARK(AperturaImpTnLyx)->Unit(benchmark::kMillisecond);

void PassoNellaGriglia(benchmark::State& state) {
    const Archivio& a = ArchivioProva();
    Sessione s;
    s.TemaNat.Nome = "Cliente 10000";
    MessaggiRegistrati m;
    frmImpTnLyx f(s, a.File(), m);
    f.Anteprima->Disegno = DisegnaAnteprimaQt;
    f.show();
    QApplication::processEvents();
    int riga = f.DBGrid1->currentIndex().row();
    const int righe = f.DBGrid1->model()->rowCount();
    const bool conGriglia = state.range(0) != 0;
    for (auto _ : state) {
        riga = riga + 1 < righe ? riga + 1 : 0;
        f.DBGrid1->setCurrentIndex(f.DBGrid1->model()->index(riga, 0));
        f.Anteprima->repaint();
        if (conGriglia) f.DBGrid1->viewport()->repaint();
    }
}
// 0: the preview alone repainted; 1: the grid too.
BENCHMARK(PassoNellaGriglia)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// A click on a header: the whole archive sorted by that column (3 Data, 1 City, 0 Nome the
// other way), the grid repainted. The direction changes at each step, as a second click does.
void OrdinaGriglia(benchmark::State& state) {
    const Archivio& a = ArchivioProva();
    Sessione s;
    MessaggiRegistrati m;
    frmImpTVesmo f(s, a.File(), m);
    f.show();
    QApplication::processEvents();
    const int colonna = static_cast<int>(state.range(0));
    bool discendente = colonna == 0;
    for (auto _ : state) {
        f.DBGrid1->sortByColumn(colonna, discendente ? Qt::DescendingOrder : Qt::AscendingOrder);
        f.DBGrid1->viewport()->repaint();
        discendente = !discendente;
    }
    state.counters["temi"] = f.DBGrid1->model()->rowCount();
}
BENCHMARK(OrdinaGriglia)->Arg(3)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

// The grid's model sorted, without a view.
void OrdinaModello(benchmark::State& state) {
    const Archivio& a = ArchivioProva();
    Database db(a.File());
    ModelloArchivio m;
    m.Apri(db, "Clienti", IndiceArchivio);
    bool discendente = false;
    for (auto _ : state) {
        m.sort(static_cast<int>(state.range(0)),
               discendente ? Qt::DescendingOrder : Qt::AscendingOrder);
        discendente = !discendente;
    }
}
BENCHMARK(OrdinaModello)->Arg(3)->Arg(1)->Unit(benchmark::kMillisecond);

// The order alone, as the store gives it: the bookmarks of the whole archive sorted by a field.
void OrdineSql(benchmark::State& state) {
    const Archivio& a = ArchivioProva();
    Database db(a.File());
    Cursore rs(db, "Clienti");
    const char* const campi[] = {"Nome", "City", "Nazione", "Day"};
    const std::string ordine = OrdineCampo(campi[state.range(0)], false);
    for (auto _ : state)
        benchmark::DoNotOptimize(rs.Segnalibri("", ordine, {}).size());
}
BENCHMARK(OrdineSql)->Arg(0)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond);

// A search typed into the picking form: part of the name, a range of dates and a place.
void CercaNellaGriglia(benchmark::State& state) {
    const Archivio& a = ArchivioProva();
    Sessione s;
    MessaggiRegistrati m;
    frmImpTVesmo f(s, a.File(), m);
    f.show();
    QApplication::processEvents();
    const QString testi[] = {QStringLiteral("cliente 12 dal:1950 al:1960 luogo:padova"),
                             QStringLiteral("luogo:zurich")};
    int k = 0;
    for (auto _ : state) {
        f.txtCerca->setText(testi[k++ % 2]);
        f.DBGrid1->viewport()->repaint();
    }
}
BENCHMARK(CercaNellaGriglia)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    // Windows need the widget application; no screen is used.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
