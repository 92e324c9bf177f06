#include "presentation/Superficie.h"

#include <array>
#include <cmath>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

Colore ColorePalette(int indice) {
    static constexpr std::array<Colore, 16> palette{{
        {0, 0, 0},
        {0, 0, 128},
        {0, 128, 0},
        {0, 128, 128},
        {128, 0, 0},
        {128, 0, 128},
        {128, 128, 0},
        {192, 192, 192},
        {128, 128, 128},
        {0, 0, 255},
        {0, 255, 0},
        {0, 255, 255},
        {255, 0, 0},
        {255, 0, 255},
        {255, 255, 0},
        {255, 255, 255},
    }};
    return palette[static_cast<std::size_t>(indice & 15)];
}

const Carattere CarattereSimboli{"DejaVu Sans", 14};
const Carattere CarattereNumeri{"DejaVu Serif", 6};
const Carattere CarattereNormale{"DejaVu Sans", 8};

namespace {

// The two half-axes: r is the longer one.
void Semiassi(double r, double aspetto, double& rx, double& ry) {
    if (aspetto < 1) {
        rx = r;
        ry = r * aspetto;
    } else {
        rx = r / aspetto;
        ry = r;
    }
}

} // namespace

void Superficie::Cerchio(double x, double y, double r, Colore colore, double aspetto) {
    double rx, ry;
    Semiassi(r, aspetto, rx, ry);
    FaiEllisse(x, y, rx, ry, colore);
    pennaX_ = x;
    pennaY_ = y;
}

void Superficie::Cerchio(double x, double y, double r, Colore colore, double inizio, double fine,
                         double aspetto) {
    double rx, ry;
    Semiassi(r, aspetto, rx, ry);
    bool raggioInizio = inizio < 0, raggioFine = fine < 0;
    double a = std::fabs(inizio), b = std::fabs(fine);
    // An arc whose start lies above its end runs through 0.
    double ampiezza = b - a;
    if (ampiezza < 0) ampiezza += 2 * PI;
    FaiArco(x, y, rx, ry, a, ampiezza, raggioInizio, raggioFine, colore);
    pennaX_ = x;
    pennaY_ = y;
}

void Superficie::Linea(double x1, double y1, double x2, double y2, Colore colore) {
    FaiLinea(x1, y1, x2, y2, colore);
    pennaX_ = x2;
    pennaY_ = y2;
}

void Superficie::Punto(double x, double y, Colore colore) {
    FaiPunto(x, y, colore);
    pennaX_ = x;
    pennaY_ = y;
}

void Superficie::Stampa(const std::string& testo) {
    pennaX_ += FaiTesto(pennaX_, pennaY_, testo);
}

void Superficie::StampaCentrata(const std::string& testo, double cx, double cy) {
    const double larga = FaiTestoCentrato(cx, cy, testo);
    pennaX_ = cx + larga / 2;
    pennaY_ = cy - Carattere().punti * 10;
}

double Superficie::FaiTestoCentrato(double cx, double cy, const std::string& testo) {
    const double larga = LarghezzaTesto(testo);
    FaiTesto(cx - larga / 2, cy - Carattere().punti * 10, testo);
    return larga;
}

double Superficie::LarghezzaTesto(const std::string& testo) const {
    return static_cast<double>(LunghezzaCaratteri(testo)) * Carattere().punti * 20 * 0.6;
}

void Superficie::Pulisci() {
    FaiPulisci();
    pennaX_ = 0;
    pennaY_ = 0;
}

void Superficie::Immagine(double x, double y, double larghezza, double altezza,
                          const std::string& file) {
    FaiImmagine(x, y, larghezza, altezza, file);
}

} // namespace vesmo
