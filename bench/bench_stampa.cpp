// The printed chart page composed whole: on the recording surface (the composition alone), into
// an A4 PDF in memory (what "Stam&po ..." and "Salva PDF..." cost), and on the form's image of
// the first bitmap.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "presentation/PaginaStampa.h"
#include "presentation/SuperficieRegistrata.h"
#include "presentation/qt/StampaPagina.h"

using namespace vesmo;

namespace {

struct Carta {
    Tema t;
    Case c;
    Posizioni p;
    OpzioniPagina o;
};

Carta Casta() {
    Carta k;
    k.t.Nome = "Mario Rossi";
    k.t.City = "Padova";
    k.t.Day = GiornoGiuliano(1987, 4, 10);
    k.t.OraL = 19.5;
    k.t.Fuso = -1;
    k.t.Estiva = 1;
    k.t.Lon = -GradiDecimali(11, 53, 0) / 15;
    k.t.Lat = 45.4;
    MessaggiRegistrati m;
    CastaTema(k.t, k.c, k.p, 1, m);
    k.o.DataStampa = "23/11/2026";
    k.o.DisegnaAspetti = true;
    return k;
}

void PaginaRegistrata(benchmark::State& state) {
    Carta k = Casta();
    for (auto _ : state) {
        SuperficieRegistrata sup(Bianco);
        ComponiPagina(sup, k.t, k.p, k.o);
        benchmark::DoNotOptimize(sup.figure.data());
    }
}
BENCHMARK(PaginaRegistrata)->Unit(benchmark::kMicrosecond);

void PaginaPdf(benchmark::State& state) {
    Carta k = Casta();
    std::int64_t byte = 0;
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter pdf(&buffer);
        pdf.setPageLayout(
            QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        pdf.setResolution(1440);
        QPainter pittore(&pdf);
        DisegnaSuPittore(pittore, QRectF(0, 0, pdf.width(), pdf.height()), AreaPagina(),
                         [&](Superficie& sup) { ComponiPagina(sup, k.t, k.p, k.o); });
        pittore.end();
        byte = buffer.size();
    }
    state.counters["byte"] = static_cast<double>(byte);
}
BENCHMARK(PaginaPdf)->Unit(benchmark::kMillisecond);

void ParteAltaSuImmagine(benchmark::State& state) {
    Carta k = Casta();
    Rettangolo area = AreaParteAlta();
    QImage immagine(static_cast<int>(area.larghezza / TwipsPerPixelBitmap),
                    static_cast<int>(area.altezza / TwipsPerPixelBitmap), QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter pittore(&immagine);
        DisegnaSuPittore(pittore, QRectF(0, 0, immagine.width(), immagine.height()), area,
                         [&](Superficie& sup) { DisegnaParteAlta(sup, k.t, k.p, k.o); });
    }
}
BENCHMARK(ParteAltaSuImmagine)->Unit(benchmark::kMillisecond);

} // namespace
