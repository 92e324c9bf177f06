// All the positions of the ephemeris at one instant, as the command line and the benchmark ask
// for them: the geocentric Sun, Moon and planets, the mean node, the two Black Moons, Greenwich
// apparent sidereal time and the obliquity.
#pragma once

#include <array>

#include "core/Messaggi.h"

namespace vesmo {

struct CorpoEffemeride {
    const char* nome;
    double Lo = 0;   // degrees, 0..360
    double LaEc = 0; // degrees
    double R = 0;    // AU (0 for the Moon, whose distance is not computed in AU)
};

struct Effemeridi {
    // Sole, Luna, Mercurio ... Plutone, in the order of the tables.
    std::array<CorpoEffemeride, 10> corpi{};
    double NodoLuna = 0;       // mean node, degrees
    double LilithMedia = 0;    // degrees
    double LilithVeraLo = 0;   // degrees
    double LilithVeraLaEc = 0; // degrees
    bool conLilithVera = false;
    double TSL0 = 0;      // Greenwich apparent sidereal time, hours 0..24
    double Obliquita = 0; // mean obliquity, degrees
};

// The instant jd is taken on the TU scale, as the chart calculation takes it; the positions are
// those the chart driver computes with flag 1. LilithVera is searched only when asked for.
Effemeridi CalcolaEffemeridi(double jd, bool conLilithVera, Messaggi& messaggi);

} // namespace vesmo
