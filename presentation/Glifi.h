// The glyphs of the wheels, drawn stroke by stroke from lines and elliptical arcs in units of a
// square box, so that screen and printer show the same shapes at any size.
#pragma once

#include "presentation/Superficie.h"

namespace vesmo {

// The bodies of the wheels, numbered in their order 1 to 12.
enum CorpoRuota : int {
    RuotaSole = 1,
    RuotaLuna,
    RuotaMercurio,
    RuotaVenere,
    RuotaMarte,
    RuotaGiove,
    RuotaSaturno,
    RuotaUrano,
    RuotaNettuno,
    RuotaPlutone,
    RuotaNodoLuna,
    RuotaLunaNera
};

struct Glifo {
    enum Genere { Segno, Corpo, NodoNord, NodoSud } genere = Corpo;
    // Signs 0 (Ariete) to 11 (Pesci); bodies and nodes by CorpoRuota.
    int indice = RuotaSole;
};

inline Glifo GlifoSegno(int segno) {
    return {Glifo::Segno, segno};
}
inline Glifo GlifoCorpo(int corpo) {
    return {Glifo::Corpo, corpo};
}
// A planetary node: Mercurio to Nettuno, side 0 north or 180 south.
inline Glifo GlifoNodo(int corpo, int lato) {
    return {lato == 0 ? Glifo::NodoNord : Glifo::NodoSud, corpo};
}

// One glyph in a box of side s with its top left corner at (x, y). The pen goes to (x, y). A sign
// sets the pen width to 2 and leaves it so; a body or a node keeps the width it finds.
// A glyph in a light colour (white, yellow, cyan) is outlined in a darker tone of its own.
void DisegnaGlifo(Superficie& sup, const Glifo& glifo, double s, double x, double y, Colore colore);

// The same glyph with the centre of its box at (cx, cy): how the wheels place a glyph on its
// ring, so that it stays between the ring's circles at every angle.
void DisegnaGlifoCentrato(Superficie& sup, const Glifo& glifo, double s, double cx, double cy,
                          Colore colore);

// The side of a glyph of side `s` centred on the circle of radius `r`, made smaller where its
// box would cross one of the circles `interno` and `esterno` at some angle (its half diagonal,
// and the width of its pen, stay within the distance to each).
double LatoNellaFascia(double s, double r, double interno, double esterno);
// A side of the band with no circle: the bodies' rings have only the circle outside them.
inline constexpr double NessunCerchio = -1e12;

// The colours that are hard to read on the wheel's light grey, and the darker tone of their
// outline (each component halved).
bool ColoreChiaro(Colore c);
Colore ColoreContorno(Colore c);

// A line in a light colour with the outline of the glyphs; other colours as a plain line.
void LineaChiara(Superficie& sup, double x1, double y1, double x2, double y2, Colore colore);

} // namespace vesmo
