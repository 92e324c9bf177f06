// The relocation of a revolution: the outer chart of the double wheel moved east or west, north
// or south by a step, and cast again at the same instant on the local mean time of the new
// place; the mark of the place on the map of time zones.
#pragma once

#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"

namespace vesmo {

// Which coordinate a step moves: the longitude (the toolbar's UnSec, positive west) or the
// latitude (UnMin, positive north).
enum class AsseRilocazione { EstOvest, NordSud };

// The step in decimal degrees: the number typed taken as degrees, or as minutes of arc when
// `primi` (the unit "UnP").
double PassoRilocazione(double valore, bool primi);

enum class EsitoRilocazione {
    Rilocata,         // TemaZ, TemaRiv, PosRiv and PosZ hold the chart cast at the new place
    FuoriLongitudine, // told "Longitudine > 180°": nothing changed
    FuoriLatitudine,  // told "Latitudine > 90°": nothing changed
    SenzaRivoluzione, // told "Necessaria Rivoluzione!": the new place stays in TemaZ alone
};

// Moves TemaZ by `passo` degrees along `asse`, names its place "Jolly" and puts it on local
// mean time (Fuso = Lon, Estiva 0); then, when a revolution is known (JDRivoluzione not -1),
// sets its clock reading to the instant of the revolution, makes it the Rivoluzione slot and
// casts it there. The boxes go through `messaggi`.
EsitoRilocazione Rilocazione(Sessione& s, AsseRilocazione asse, double passo, Messaggi& messaggi);

// The text of lbCoord: "11E53   45N24".
std::string TestoCoordinateRilocate(const Tema& tema);

// The picture box of the map: 357 by 186 pixels of 15 twips.
inline constexpr int LarghezzaMappaPixel = 357;
inline constexpr int AltezzaMappaPixel = 186;

// Where a place falls on a map of W by H twips: lon in hours west positive, lat in degrees.
// Longitude 0 is 120 twips left of the middle and the equator 360 twips below it; latitudes
// above 60 north and beyond 30 south are stretched.
struct PuntoMappa {
    double x, y;
};
PuntoMappa PosizioneSullaMappa(double lon, double lat, double W, double H);

// The mark of SegnaMappa: a vertical line at x from y1 to y2 and a horizontal one at y from x1
// to x2, crossing at the place, in palette colour 11.
struct SegnoMappa {
    double x, yDa, yA;
    double y, xDa, xA;
};
SegnoMappa SegnaMappa(double lon, double lat, double W, double H);

} // namespace vesmo
