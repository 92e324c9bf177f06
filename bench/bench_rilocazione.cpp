// One step of the relocated revolution, as a press of the toolbar makes it: the chart moved and
// cast again, the nearest towns searched on the built places database, the double wheel with
// the map beside it redrawn on an image of the window's size; and each part alone.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <filesystem>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "places/CittaVicine.h"
#include "presentation/Rilocazione.h"
#include "presentation/RuotaDoppia.h"
#include "presentation/qt/SuperficieQt.h"

namespace {

const std::filesystem::path FileDB = std::filesystem::path(VESMO_RADICE) / "data/Vesmodat.Mdb";

vesmo::Tema Padova(int anno, double ora) {
    vesmo::Tema t;
    t.Day = vesmo::GiornoGiuliano(anno, 4, 10);
    t.OraL = ora;
    t.Lon = -vesmo::GradiDecimali(11, 53, 0) / 15;
    t.Lat = 45.4;
    t.Fuso = -1;
    return t;
}

// The natal chart inside, a revolution outside, its instant known.
vesmo::Sessione ConRivoluzione() {
    vesmo::Sessione s;
    vesmo::MessaggiRegistrati m;
    vesmo::Case c;
    s.TemaNat = s.TemaX = Padova(1987, 19.5);
    vesmo::CastaTema(s.TemaX, c, s.PosX, 1, m);
    s.PosNat = s.PosX;
    s.TemaRiv = s.TemaZ = Padova(2026, 6.3);
    vesmo::CastaTema(s.TemaRiv, c, s.PosRiv, 1, m);
    s.PosZ = s.PosRiv;
    s.JDRivoluzione = s.TemaRiv.JD();
    return s;
}

bool DatabasePronto(benchmark::State& state) {
    if (std::filesystem::exists(FileDB)) return true;
    state.SkipWithError("manca data/Vesmodat.Mdb (scripts/prepara-dati)");
    return false;
}

void Ridisegna(QImage& img, const vesmo::Sessione& s) {
    QPainter p(&img);
    vesmo::OpzioniDoppia o;
    o.MappaVisibile = true;
    vesmo::SuperficieQt sup(p, vesmo::AreaDoppia(true), QRectF(0, 0, img.width(), img.height()));
    vesmo::DisegnaDoppia(sup, s.TemaX, s.PosX, s.TemaZ, s.PosZ, o);
}

// Half a degree west, then back east: the chart stays near its place.
double Passo(std::int64_t i) {
    return i % 2 ? -0.5 : 0.5;
}

void PassoDiRilocazione(benchmark::State& state) {
    if (!DatabasePronto(state)) return;
    vesmo::Sessione s = ConRivoluzione();
    vesmo::MessaggiRegistrati m;
    QImage img(800, 800, QImage::Format_ARGB32_Premultiplied);
    vesmo::CercaCittaVicine(FileDB, s.TemaZ.Lon, s.TemaZ.Lat); // the index, once
    std::int64_t i = 0;
    for (auto _ : state) {
        vesmo::Rilocazione(s, vesmo::AsseRilocazione::EstOvest, Passo(i++), m);
        auto vicine = vesmo::CercaCittaVicine(FileDB, s.TemaZ.Lon, s.TemaZ.Lat);
        benchmark::DoNotOptimize(vicine.data());
        Ridisegna(img, s);
    }
}
BENCHMARK(PassoDiRilocazione)->Unit(benchmark::kMillisecond);

void SoloRicalcolo(benchmark::State& state) {
    vesmo::Sessione s = ConRivoluzione();
    vesmo::MessaggiRegistrati m;
    std::int64_t i = 0;
    for (auto _ : state) {
        vesmo::Rilocazione(s, vesmo::AsseRilocazione::EstOvest, Passo(i++), m);
        benchmark::DoNotOptimize(s.PosZ.Asce.Lo);
    }
}
BENCHMARK(SoloRicalcolo)->Unit(benchmark::kMillisecond);

void SoloCittaVicine(benchmark::State& state) {
    if (!DatabasePronto(state)) return;
    vesmo::Sessione s = ConRivoluzione();
    vesmo::CercaCittaVicine(FileDB, s.TemaZ.Lon, s.TemaZ.Lat);
    for (auto _ : state) {
        auto vicine = vesmo::CercaCittaVicine(FileDB, s.TemaZ.Lon, s.TemaZ.Lat);
        benchmark::DoNotOptimize(vicine.data());
    }
}
BENCHMARK(SoloCittaVicine)->Unit(benchmark::kMillisecond);

void SoloRidisegno(benchmark::State& state) {
    vesmo::Sessione s = ConRivoluzione();
    QImage img(800, 800, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        Ridisegna(img, s);
}
BENCHMARK(SoloRidisegno)->Unit(benchmark::kMillisecond);

} // namespace
