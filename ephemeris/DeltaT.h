// Delta T, ephemeris time minus universal time, in minutes: a table of 27 years from 1710 to 1998
// and a parabola outside it. Only the calculator tells it; no position applies it.
#pragma once

#include <array>

namespace vesmo {

struct RigaDeltaT {
    float anno;
    double minuti;
};

// Indices 1 to 27 (element 0 unused).
using TabellaDeltaT = std::array<RigaDeltaT, 28>;

// The table as the calculator fills it when it opens.
TabellaDeltaT TabDeltaT();

// Delta T in minutes for the year y; the date (year, month, day) enters only outside the table.
double DeltaT(double y, double anno, double mese, double giorno);

} // namespace vesmo
