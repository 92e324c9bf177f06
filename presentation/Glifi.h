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
void DisegnaGlifo(Superficie& sup, const Glifo& glifo, double s, double x, double y, Colore colore);

} // namespace vesmo
