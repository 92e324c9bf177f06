// The chart of the Astrolog tests: Prova, Padova, 15 January 1980 at 15:05, one hour east.
#pragma once

#include "core/Aritmetica.h"
#include "core/Tema.h"

namespace vesmo::test {

inline Tema Prova() {
    Tema t;
    t.Nome = "Prova";
    t.City = "Padova";
    t.Day = GiornoGiuliano(1980, 1, 15);
    t.OraL = GradiDecimali(15, 5, 0);
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    t.Fuso = -1;
    return t;
}

} // namespace vesmo::test
