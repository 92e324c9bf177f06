// The positions table of a chart: twelve cusps and thirteen bodies and points in every
// coordinate the system knows, as the texts of the table's cells.
#pragma once

#include <array>
#include <string>

#include "core/Tema.h"

namespace vesmo {

// 26 rows (0 the heads) by 11 columns (0 the row heads).
struct TabellaPosizioni {
    std::array<std::array<std::string, 11>, 26> celle;
};

extern const char* const TestataColonnePosizioni;
extern const char* const TestataRighePosizioni;

// Fills every cell from the cusps and the positions.
TabellaPosizioni RiempiTabella(const Case& cuspidi, const Posizioni& pos);

// A number as the plain conversion with its sign place: one leading blank when not negative.
std::string Str(double x);

} // namespace vesmo
