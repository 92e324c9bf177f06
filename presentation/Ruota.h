// The single wheel: sign ring, scale, house cusps, bodies kept apart ring by ring, planetary
// nodes and aspect lines, repainted whole on a drawing surface at every change. The pieces it
// is built of serve the double wheel and the preview as well.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "chart/Aspetti.h"
#include "core/Tema.h"
#include "presentation/Superficie.h"

namespace vesmo {

// One of the 14 points of a wheel: its position, the name (outer chart of the double wheel),
// the point on the inner circle where its aspect lines end, and the ring of its glyph.
struct PuntoRuota {
    Posizione pos;
    std::string Nome;
    double X = 0, Y = 0;
    std::int16_t Anello = 0;
};

// Entries 1 to 14: Sole ... NodoLuna, the Black Moon, Asce, MC (entry 0 unused).
using PuntiDellaRuota = std::array<PuntoRuota, 15>;
PuntiDellaRuota RiempiPuntiRuota(const Posizioni& pos, std::int32_t lunaNeraVera);

// The twelve cusps of a chart: I, II, III, X, XI, XII from the positions, the others opposite,
// with the obliquity of the chart instant.
Case CaseDellaRuota(const Tema& tema, const Posizioni& pos);

struct GeometriaRuota {
    double CentroX = 7200, CentroY = 3650;
    double RaggioEsterno = 3100; // R1, outer circle of the sign ring
    double RaggioInterno = 2450; // R2, inner circle of the sign ring
    double RaggioCase = 800;     // inner end of every cusp line
    double PassoSegni = 500;     // glyph size of the signs
    double PassoPianeti = 350;   // glyph size of the bodies and distance between their rings
    double RaggioFondo() const { return RaggioEsterno + 600; }
};

// What a wheel reads of the session and of its form.
struct OpzioniRuota {
    double AngoloRuota = 0; // degrees added to every longitude
    int NodiScelti = 0;     // row of the node list, 0 none
    bool DisegnaAspetti = false;
    TabellaAspetti Aspetti = TabellaAspettiDiLyx();
    bool ColoriRidotti = false;
    // The printed wheel: black outlines on the page, no erasing disc, fills or bevels, every
    // sign, body and aspect line in the pen's colour.
    bool BiancoNero = false;
    // The pen width of the bodies' glyphs on the printed wheel.
    int SpessoreGlifi = 1;
    std::int32_t LunaNeraVera = 1;
    GeometriaRuota Geometria;

    // The aspect table as the chart half starts with it: the majors on, orb 2.5.
    static TabellaAspetti TabellaAspettiDiLyx() {
        TabellaAspetti t;
        t.EntraInLyx();
        return t;
    }
};

// Colours of the twelve signs (0 Ariete) and of the twelve bodies (1 Sole ... 12 Black Moon).
Colore ColoreSegno(int segno);
Colore ColoreCorpo(int corpo);
// The colour of an aspect line on the single wheel; ColorePenna for the aspects without one.
Colore ColoreAspetto(int k, Colore penna);

// A centre with a rotation: the point at radius r and longitude L, through PolareX, PolareY.
struct Riferimento {
    double cx, cy, angolo;
    double X(double r, double L) const;
    double Y(double r, double L) const;
    double Radianti(double L) const;
};

// Ring rule of the bodies 1 to 12: fixed order, one pass, a body moves one ring on from every
// earlier body closer than `vicino` degrees (or farther than 360 - `vicino`) on its ring.
void AnelliDeiCorpi(PuntiDellaRuota& punti, double vicino);
// The ring of a planetary node: one more for every body within 8 degrees, rings not compared.
int AnelloDelNodo(double L, const PuntiDellaRuota& punti);

// The (body, side) pairs of a node choice: bodies Mercurio (3) to Nettuno (9), side 0 or 180.
struct NodoScelto {
    int corpo, lato;
};
std::array<NodoScelto, 14> NodiDellaScelta(int nodiScelti, int& quanti);

// The sign ring's scale, first part: ticks at 5, 10 and 15 degrees into the sign, from R2 + 20.
void TaccheSegno(Superficie& sup, const Riferimento& rif, double r2, double L);
// The ticks at 20 and 25 degrees, which start on R2 itself.
void TaccheFineSegno(Superficie& sup, const Riferimento& rif, double r2, double L);
// The Ascendant's arrow head: two barbs of `lunghezza` from (ex, ey) on a line at angle a.
void FrecciaAscendente(Superficie& sup, double ex, double ey, double a, double lunghezza);

// The steps of the single wheel, in the order DisegnaRuota runs them. Each draws on `sup` with
// `penna` (the surface's pen colour when the wheel began) for the black lines, and in black
// and white (BiancoNero) for every line; none reads the chart but through its arguments.
// The centre and rotation of the wheel of `o`.
Riferimento RiferimentoRuota(const OpzioniRuota& o);
// On screen: the disc that erases the old picture, the sign ring and the inner disc with their
// bevels; on paper: the two circles of the sign ring. Leaves the fill type at 1 (none).
void FondoRuota(Superficie& sup, const OpzioniRuota& o, Colore penna);
// Each sign's boundary, scale and glyph; leaves the pen's width at 1.
void SegniRuota(Superficie& sup, const OpzioniRuota& o, Colore penna);
// The twelve cusps with their numbers, the four angles across the ring (width 2), the arrow of
// the Ascendant and the circle of the Midheaven.
void CuspidiRuota(Superficie& sup, const OpzioniRuota& o, const Case& cuspidi, Colore penna);
// Bodies 1 to 12 ring by ring inward (AnelliDeiCorpi); writes each point's ring and its place
// on the inner circle, and the Ascendant's and Midheaven's, into `punti`.
void CorpiRuota(Superficie& sup, const OpzioniRuota& o, PuntiDellaRuota& punti, Colore penna);
// The chosen planetary nodes, not entered among the points.
void NodiRuota(Superficie& sup, const OpzioniRuota& o, const PuntiDellaRuota& punti, Colore penna);
// One line for every active aspect a pair of the 14 points is in, when aspects are drawn.
void AspettiRuota(Superficie& sup, const OpzioniRuota& o, const PuntiDellaRuota& punti,
                  Colore penna);

// The whole single wheel; returns the points as placed.
PuntiDellaRuota DisegnaRuota(Superficie& sup, const Tema& tema, const Posizioni& pos,
                             const OpzioniRuota& opzioni);

// The square of the surface, in twips, that a wheel fills.
struct Rettangolo {
    double x, y, larghezza, altezza;
};
Rettangolo AreaRuota(const GeometriaRuota& g);

} // namespace vesmo
