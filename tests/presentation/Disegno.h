// Helpers of the drawing tests: figures compared with a tolerance, and the figures one glyph
// leaves on a fresh surface, to be found again inside a whole wheel.
#pragma once

#include <cmath>
#include <vector>

#include "core/Aritmetica.h"
#include "presentation/Glifi.h"
#include "presentation/SuperficieRegistrata.h"

namespace vesmo::prova {

// Figures are placed exactly: off by rounding only, a point on a circle by its square root's.
constexpr double TolleranzaTwips = 1e-9;
constexpr double TolleranzaCerchioTwips = 1e-6;

inline bool Vicino(double a, double b, double tolleranzaTwips = TolleranzaCerchioTwips) {
    return std::fabs(a - b) <= tolleranzaTwips;
}

inline bool Uguali(const Figura& a, const Figura& b) {
    return a.tipo == b.tipo && Vicino(a.x1, b.x1) && Vicino(a.y1, b.y1) && Vicino(a.x2, b.x2) &&
           Vicino(a.y2, b.y2) && Vicino(a.rx, b.rx) && Vicino(a.ry, b.ry) &&
           Vicino(a.inizio, b.inizio) && Vicino(a.ampiezza, b.ampiezza) &&
           a.raggioInizio == b.raggioInizio && a.raggioFine == b.raggioFine &&
           a.colore == b.colore && a.spessore == b.spessore;
}

// The figures of one glyph drawn alone with the given pen width.
inline std::vector<Figura> FigureDelGlifo(const Glifo& g, double s, double x, double y,
                                          Colore colore, int spessore = 1) {
    SuperficieRegistrata sup;
    sup.SpessorePenna(spessore);
    DisegnaGlifo(sup, g, s, x, y, colore);
    return sup.figure;
}

// Whether `parte` stands in `tutte` as one unbroken run of figures.
inline bool Contiene(const std::vector<Figura>& tutte, const std::vector<Figura>& parte) {
    if (parte.empty() || parte.size() > tutte.size()) return false;
    for (std::size_t i = 0; i + parte.size() <= tutte.size(); ++i) {
        std::size_t k = 0;
        while (k < parte.size() && Uguali(tutte[i + k], parte[k]))
            ++k;
        if (k == parte.size()) return true;
    }
    return false;
}

// The point at radius r and longitude L around (cx, cy) turned by `angolo` degrees.
inline double Px(double cx, double r, double L, double angolo = 0) {
    return PolareX(cx, r, Radianti(angolo + L));
}
inline double Py(double cy, double r, double L, double angolo = 0) {
    return PolareY(cy, r, Radianti(angolo + L));
}

inline std::vector<Figura> DelTipo(const std::vector<Figura>& tutte, Figura::Tipo tipo) {
    std::vector<Figura> r;
    for (const Figura& f : tutte)
        if (f.tipo == tipo) r.push_back(f);
    return r;
}

} // namespace vesmo::prova
