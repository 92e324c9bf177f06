#include "presentation/Glifi.h"

#include <algorithm>
#include <cmath>

#include <initializer_list>

#include "core/Aritmetica.h"

namespace vesmo {

namespace {

// One stroke in units of the box side. Line: (a, b) to (c, d). Circle: centre (a, b), radius c,
// aspect k. Arc: the same from d to e degrees, counterclockwise from the right.
struct Tratto {
    char forma;
    double a, b, c, d, e, k;
};

constexpr Tratto L(double u1, double v1, double u2, double v2) {
    return {'L', u1, v1, u2, v2, 0, 1};
}
constexpr Tratto O(double u, double v, double r, double k = 1) {
    return {'O', u, v, r, 0, 0, k};
}
constexpr Tratto A(double u, double v, double r, double p, double q, double k = 1) {
    return {'A', u, v, r, p, q, k};
}

using Tratti = std::initializer_list<Tratto>;

const Tratti Segni[12] = {
    // Ariete
    {L(0.5, 1, 0.5, 0.5), A(0.7, 0.5, 0.4, 36, 180, 2), A(0.3, 0.5, 0.4, 0, 144, 2)},
    // Toro
    {O(0.5, 0.5, 0.35), A(0.5, 0, 0.35, 180, 0, 0.4)},
    // Gemelli
    {L(0.3, 0.2, 0.3, 0.8), L(0.7, 0.2, 0.7, 0.8), A(0.5, 0.1, 0.4, 180, 0, 0.2),
     A(0.5, 0.9, 0.4, 0, 180, 0.2)},
    // Cancro
    {A(0.5, 0.6, 0.4, 189, 0, 0.6), A(0.5, 0.4, 0.4, 0, 180, 0.6), O(0.2, 0.4, 0.1),
     O(0.8, 0.6, 0.1)},
    // Leone
    {A(0.5, 0.5, 0.4, 0, 180, 2), A(0.1, 0.5, 0.4, 270, 0, 2), O(0.1, 0.82, 0.06667),
     A(0.95, 0.5, 0.25, 180, 270)},
    // Vergine
    {L(0.3, 0.25, 0.3, 0.91), L(0.5, 0.25, 0.5, 0.91), L(0.7, 0.25, 0.7, 0.91),
     A(0.4, 0.25, 0.2, 0, 180, 2), A(0.6, 0.25, 0.2, 0, 180, 2), A(0.8, 0.25, 0.2, 0, 180, 2),
     A(0.2, 0.25, 0.2, 0, 180, 2), A(0.8, 0.9, 0.1, 180, 270), A(0, 0.25, 0.9, 306, 0)},
    // Bilancia
    {L(0.1, 0.7, 0.9, 0.7), L(0.1, 0.5, 0.3, 0.5), L(0.7, 0.5, 0.9, 0.5), A(0.5, 0.5, 0.2, 0, 180)},
    // Scorpione
    {L(0.3, 0.25, 0.3, 0.91), L(0.5, 0.25, 0.5, 0.91), L(0.7, 0.25, 0.7, 0.91),
     A(0.4, 0.25, 0.2, 0, 180, 2), A(0.6, 0.25, 0.2, 0, 180, 2), A(0.2, 0.25, 0.2, 0, 180, 2),
     A(0.8, 0.9, 0.1, 180, 0), L(0.9, 0.9, 0.9, 0.6), L(0.9, 0.6, 0.95, 0.7),
     L(0.9, 0.6, 0.85, 0.7)},
    // Sagittario
    {L(0.1, 0.7, 1, 0.3), L(1, 0.3, 0.7, 0.3), L(1, 0.3, 0.8, 0.6), L(0.15, 0.5, 0.3, 0.8)},
    // Capricorno: the first arcs vanish and leave only their radii.
    {A(0.4, 0.9, 0.7, -72, 72.0057), A(0.4, 0.9, 0.7, -108, 122.4), L(0.63, 0.22, 0.73, 0.22),
     O(0.73, 0.13, 0.08), A(0.95, 0.73, 0.64, -117, 117.006), A(0.75, 0.78, 0.15, 180, 18)},
    // Acquario
    {L(0.1, 0.4, 0.3, 0.3), L(0.3, 0.3, 0.5, 0.4), L(0.5, 0.4, 0.7, 0.3), L(0.7, 0.3, 0.9, 0.4),
     L(0.1, 0.7, 0.3, 0.6), L(0.3, 0.6, 0.5, 0.7), L(0.5, 0.7, 0.7, 0.6), L(0.7, 0.6, 0.9, 0.7)},
    // Pesci
    {A(0.9, 0.5, 0.4, 90, 270, 1.5), A(0.1, 0.5, 0.4, 270, 90, 1.5), L(0.3, 0.5, 0.7, 0.5)},
};

// Bodies 1 to 12; entry 0 unused.
const Tratti Corpi[13] = {
    {},
    // Sole (its dot is drawn apart)
    {O(0.5, 0.5, 0.4)},
    // Luna
    {A(0.5, 0.5, 0.4, 252, 108), A(0.3, 0.5, 0.4, 288, 72)},
    // Mercurio
    {O(0.5, 0.4, 0.25), A(0.5, -0.1, 0.3, 198, 342, 0.8), L(0.5, 0.6, 0.5, 0.9),
     L(0.3, 0.75, 0.7, 0.75)},
    // Venere
    {O(0.5, 0.4, 0.3), L(0.5, 0.7, 0.5, 1), L(0.3, 0.85, 0.7, 0.85)},
    // Marte
    {O(0.5, 0.5, 0.3), L(0.7, 0.3, 0.9, 0.1), L(0.7, 0.1, 0.9, 0.1), L(0.9, 0.1, 0.9, 0.3)},
    // Giove
    {A(0.3, 0.2, 0.15, 342, 252), L(0.45, 0.25, 0.25, 0.75), L(0.25, 0.75, 0.95, 0.75),
     L(0.85, 0.45, 0.85, 0.85)},
    // Saturno
    {L(0.3, 0.05, 0.3, 0.35), L(0.1, 0.15, 0.5, 0.15), A(0.45, 0.55, 0.3, 216, 133.2, 0.9)},
    // Urano
    {L(0.5, 0.2, 0.5, 0.8), O(0.5, 0.85, 0.05), L(0.35, 0.35, 0.65, 0.35),
     A(0.9, 0.35, 0.3, 90, 270, 1.2), A(0.1, 0.35, 0.3, 270, 90, 1.2)},
    // Nettuno
    {L(0.5, 0.1, 0.5, 0.8), O(0.5, 0.85, 0.05), A(0.5, 0.05, 0.4, 180, 0, 0.9)},
    // Plutone
    {L(0.5, 0.6, 0.5, 0.9), L(0.3, 0.75, 0.7, 0.75), A(0.5, 0.2, 0.4, 180, 0), O(0.5, 0.3, 0.2)},
    // NodoLuna
    {L(0.3, 0.3, 0.3, 0.8), O(0.3, 0.85, 0.05), L(0.7, 0.3, 0.7, 0.8), O(0.7, 0.85, 0.05),
     A(0.5, 0.3, 0.2, 0, 180)},
    // Black Moon
    {O(0.5, 0.5, 0.3), L(0.1, 0.9, 0.9, 0.1)},
};

// The small forms of the bodies under their nodes, Mercurio (3) to Nettuno (9): north, south.
const Tratti NodiNord[10] = {
    {},
    {},
    {},
    // Mercurio
    {O(0.5, 0.6, 0.2, 0.9), A(0.5, 0.25, 0.25, 180, 0, 0.7), L(0.5, 0.75, 0.5, 0.95),
     L(0.3, 0.85, 0.7, 0.85)},
    // Venere
    {O(0.5, 0.4, 0.3), L(0.5, 0.7, 0.5, 1), L(0.3, 0.85, 0.7, 0.85)},
    // Marte
    {O(0.4, 0.6, 0.2), L(0.55, 0.45, 0.7, 0.25), L(0.5, 0.25, 0.7, 0.25), L(0.7, 0.25, 0.7, 0.45)},
    // Giove
    {A(0.4, 0.3, 0.15, 342, 252), L(0.55, 0.35, 0.25, 0.85), L(0.25, 0.85, 0.85, 0.85),
     L(0.75, 0.55, 0.75, 0.95)},
    // Saturno
    {L(0.4, 0.1, 0.4, 0.4), L(0.25, 0.2, 0.55, 0.2), A(0.5, 0.6, 0.3, 216, 117, 0.9)},
    // Urano
    {L(0.5, 0.3, 0.5, 0.9), O(0.5, 0.95, 0.05), L(0.4, 0.45, 0.6, 0.45),
     A(0.75, 0.45, 0.25, 90, 270, 1.5), A(0.25, 0.45, 0.25, 270, 90, 1.5)},
    // Nettuno
    {L(0.5, 0.3, 0.5, 0.8), O(0.5, 0.85, 0.05), A(0.5, 0.25, 0.3, 180, 0, 0.7)},
};

const Tratti NodiSud[10] = {
    {},
    {},
    {},
    // Mercurio
    {O(0.5, 0.5, 0.2, 0.9), A(0.5, 0.15, 0.25, 180, 0, 0.7), L(0.5, 0.65, 0.5, 0.85),
     L(0.3, 0.75, 0.7, 0.75)},
    // Venere
    {O(0.5, 0.4, 0.3), L(0.5, 0.7, 0.5, 1), L(0.3, 0.85, 0.7, 0.85)},
    // Marte
    {O(0.5, 0.5, 0.2), L(0.65, 0.35, 0.8, 0.15), L(0.6, 0.15, 0.8, 0.15), L(0.8, 0.15, 0.8, 0.35)},
    // Giove
    {A(0.4, 0.15, 0.15, 342, 252), L(0.55, 0.2, 0.25, 0.7), L(0.25, 0.7, 0.85, 0.7),
     L(0.75, 0.4, 0.75, 0.8)},
    // Saturno
    {L(0.4, 0.05, 0.4, 0.35), L(0.25, 0.15, 0.55, 0.15), A(0.5, 0.55, 0.3, 216, 117, 0.9)},
    // Urano
    {L(0.5, 0.2, 0.5, 0.8), O(0.5, 0.85, 0.05), L(0.4, 0.35, 0.6, 0.35),
     A(0.75, 0.35, 0.25, 90, 270, 1.5), A(0.25, 0.35, 0.25, 270, 90, 1.5)},
    // Nettuno
    {L(0.5, 0.3, 0.5, 0.8), O(0.5, 0.85, 0.05), A(0.5, 0.25, 0.3, 180, 0, 0.7)},
};

const Tratti MarcaNord{L(0.1, 0.4, 0.1, 0.9), O(0.1, 0.95, 0.05), L(0.9, 0.4, 0.9, 0.9),
                       O(0.9, 0.95, 0.05), A(0.5, 0.4, 0.4, 0, 180)};
const Tratti MarcaSud{L(0.1, 0.6, 0.1, 0.1), O(0.1, 0.05, 0.05), O(0.9, 0.05, 0.05),
                      L(0.9, 0.1, 0.9, 0.6), A(0.5, 0.6, 0.4, 180, 2.86479)};

void Traccia(Superficie& sup, const Tratti& tratti, double s, double x, double y, Colore colore) {
    for (const Tratto& t : tratti) {
        switch (t.forma) {
        case 'L':
            sup.Linea(x + t.a * s, y + t.b * s, x + t.c * s, y + t.d * s, colore);
            break;
        case 'O':
            sup.Cerchio(x + t.a * s, y + t.b * s, t.c * s, colore, t.k);
            break;
        default:
            sup.Cerchio(x + t.a * s, y + t.b * s, t.c * s, colore, Radianti(t.d), Radianti(t.e),
                        t.k);
            break;
        }
    }
}

} // namespace

namespace {

// The strokes of one glyph; a sign's pen is 2, widened by `allarga`.
void TracciaGlifo(Superficie& sup, const Glifo& glifo, double s, double x, double y, Colore colore,
                  int allarga = 0) {
    sup.PennaX(x);
    sup.PennaY(y);
    switch (glifo.genere) {
    case Glifo::Segno:
        sup.SpessorePenna(2 + allarga);
        Traccia(sup, Segni[glifo.indice], s, x, y, colore);
        break;
    case Glifo::Corpo:
        if (glifo.indice == RuotaSole) {
            // The Sun's dot, with a wider pen for this one point.
            int spessore = sup.SpessorePenna();
            sup.SpessorePenna(3);
            sup.Punto(x + 0.5 * s, y + 0.5 * s, colore);
            sup.SpessorePenna(spessore);
        }
        Traccia(sup, Corpi[glifo.indice], s, x, y, colore);
        break;
    case Glifo::NodoNord:
        Traccia(sup, NodiNord[glifo.indice], s, x, y, colore);
        Traccia(sup, MarcaNord, s, x, y, colore);
        break;
    case Glifo::NodoSud:
        Traccia(sup, NodiSud[glifo.indice], s, x, y, colore);
        Traccia(sup, MarcaSud, s, x, y, colore);
        break;
    }
}

} // namespace

bool ColoreChiaro(Colore c) {
    // Relative luminance in the ITU-R BT.709 weights.
    return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b > 0.7 * 255;
}

Colore ColoreContorno(Colore c) {
    auto meta = [](std::uint8_t v) { return static_cast<std::uint8_t>(v / 2); };
    return {meta(c.r), meta(c.g), meta(c.b)};
}

void DisegnaGlifo(Superficie& sup, const Glifo& glifo, double s, double x, double y,
                  Colore colore) {
    sup.InizioGlifo();
    if (ColoreChiaro(colore)) {
        // A light glyph first drawn two pixels wider in a darker tone: a thin outline that keeps
        // it readable on the light ring and disc.
        const int spessore = sup.SpessorePenna();
        sup.SpessorePenna(spessore + 2);
        TracciaGlifo(sup, glifo, s, x, y, ColoreContorno(colore), 2);
        sup.SpessorePenna(spessore);
    }
    TracciaGlifo(sup, glifo, s, x, y, colore);
    sup.FineGlifo();
}

void DisegnaGlifoCentrato(Superficie& sup, const Glifo& glifo, double s, double cx, double cy,
                          Colore colore) {
    DisegnaGlifo(sup, glifo, s, cx - s / 2, cy - s / 2, colore);
}

double LatoNellaFascia(double s, double r, double interno, double esterno) {
    // The pen's width, an outline's included, stands out of the strokes by up to 30 twips.
    const double spazio = std::min(r - interno, esterno - r) - 40;
    return std::max(0.0, std::min(s, std::sqrt(2.0) * spazio));
}

void LineaChiara(Superficie& sup, double x1, double y1, double x2, double y2, Colore colore) {
    if (ColoreChiaro(colore)) {
        const int spessore = sup.SpessorePenna();
        sup.SpessorePenna(spessore + 2);
        sup.Linea(x1, y1, x2, y2, ColoreContorno(colore));
        sup.SpessorePenna(spessore);
    }
    sup.Linea(x1, y1, x2, y2, colore);
}

} // namespace vesmo
