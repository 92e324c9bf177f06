#include "ephemeris/DeltaT.h"

#include <cstddef>

#include "core/Aritmetica.h"

namespace vesmo {

TabellaDeltaT TabDeltaT() {
    // From 1990 the values are seconds over 60; 1996 to 1998 are extrapolated.
    return {{{0, 0},
             {1710, -0.2},
             {1730, -0.1},
             {1750, 0.0},
             {1770, 0.1},
             {1800, 0.1},
             {1840, 0.0},
             {1870, 0.0},
             {1880, -0.1},
             {1895, -0.1},
             {1903, 0.0},
             {1912, 0.2},
             {1927, 0.4},
             {1940, 0.4},
             {1950, 0.5},
             {1965, 0.6},
             {1971, 0.7},
             {1977, 0.8},
             {1987, 1.0},
             {1990, 56.86 / 60},
             {1991, 57.57 / 60},
             {1992, 58.31 / 60},
             {1993, 59.12 / 60},
             {1994, 59.98 / 60},
             {1995, 60.78 / 60},
             {1996, 62.0 / 60},
             {1997, 63.0 / 60},
             {1998, 64.0 / 60}}};
}

double DeltaT(double y, double anno, double mese, double giorno) {
    if (y < 1710 || y > 1998) {
        double T = SecoliGiuliani(GiornoGiuliano(anno, mese, giorno));
        return 0.41 + 1.2053 * T + 0.4992 * T * T;
    }
    const TabellaDeltaT tab = TabDeltaT();
    for (std::size_t i = 1; i <= 27; ++i) {
        double yi = tab[i].anno;
        if (yi == y) return tab[i].minuti;
        if (i < 27 && yi < y && tab[i + 1].anno > y) {
            double y1 = tab[i + 1].anno;
            return tab[i].minuti + (y - yi) * (tab[i + 1].minuti - tab[i].minuti) / (y1 - yi);
        }
    }
    return 0;
}

} // namespace vesmo
