// Drawing a whole wheel: the single wheel with its aspect lines on an 800 x 800 image (one
// redraw of the window), also at a device pixel ratio of 2, the same on the recording surface (the
// drawing logic alone), and the double transit wheel.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "presentation/Ruota.h"
#include "presentation/RuotaDoppia.h"
#include "presentation/SuperficieRegistrata.h"
#include "presentation/qt/SuperficieQt.h"

using namespace vesmo;

namespace {

struct Carta {
    Tema t;
    Case c;
    Posizioni p;
};

Carta Casta(int anno) {
    Carta k;
    k.t.Day = GiornoGiuliano(anno, 4, 10);
    k.t.OraL = 19.5;
    k.t.Fuso = -1;
    k.t.Estiva = 1;
    k.t.Lon = -GradiDecimali(11, 53, 0) / 15;
    k.t.Lat = 45.4;
    MessaggiRegistrati m;
    CastaTema(k.t, k.c, k.p, 1, m);
    return k;
}

void RuotaSuImmagine(benchmark::State& state) {
    Carta k = Casta(1987);
    OpzioniRuota o;
    o.DisegnaAspetti = true;
    o.NodiScelti = 1;
    o.AngoloRuota = 360 - k.p.Asce.Lo;
    // The side in pixels: the wheel's place at its usual size, and a large export.
    const int lato = static_cast<int>(state.range(0));
    QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter pittore(&immagine);
        SuperficieQt sup(pittore, AreaRuota(o.Geometria), QRectF(0, 0, lato, lato));
        DisegnaRuota(sup, k.t, k.p, o);
    }
}
BENCHMARK(RuotaSuImmagine)->Arg(480)->Arg(800)->Unit(benchmark::kMillisecond);

// The same wheel of 800 pixels on a screen of device pixel ratio 2: the picture is drawn anew
// on 1600 x 1600 device pixels, never scaled from a smaller one.
void RuotaSuImmagineRapporto2(benchmark::State& state) {
    Carta k = Casta(1987);
    OpzioniRuota o;
    o.DisegnaAspetti = true;
    o.NodiScelti = 1;
    o.AngoloRuota = 360 - k.p.Asce.Lo;
    QImage immagine(1600, 1600, QImage::Format_ARGB32_Premultiplied);
    immagine.setDevicePixelRatio(2);
    for (auto _ : state) {
        QPainter pittore(&immagine);
        SuperficieQt sup(pittore, AreaRuota(o.Geometria), QRectF(0, 0, 800, 800));
        DisegnaRuota(sup, k.t, k.p, o);
    }
}
BENCHMARK(RuotaSuImmagineRapporto2)->Unit(benchmark::kMillisecond);

void RuotaRegistrata(benchmark::State& state) {
    Carta k = Casta(1987);
    OpzioniRuota o;
    o.DisegnaAspetti = true;
    o.NodiScelti = 1;
    for (auto _ : state) {
        SuperficieRegistrata sup;
        benchmark::DoNotOptimize(DisegnaRuota(sup, k.t, k.p, o));
    }
}
BENCHMARK(RuotaRegistrata)->Unit(benchmark::kMicrosecond);

void RuotaDoppiaSuImmagine(benchmark::State& state) {
    Carta n = Casta(1987), t = Casta(2024);
    OpzioniDoppia o;
    o.Transito = true;
    o.DisegnaAspettiCmp = true;
    QImage immagine(900, 900, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter pittore(&immagine);
        SuperficieQt sup(pittore, AreaDoppia(false), QRectF(0, 0, 900, 900));
        DisegnaDoppia(sup, n.t, n.p, t.t, t.p, o);
    }
}
BENCHMARK(RuotaDoppiaSuImmagine)->Unit(benchmark::kMillisecond);

} // namespace
