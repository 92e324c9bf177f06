// The chart of the Astrolog tests: Prova, Padova, 15 January 1980 at 15:05, one hour east.
#pragma once

#include "core/Aritmetica.h"
#include "core/Tema.h"
#include "tests/core/Padova.h"

namespace vesmo::test {

inline Tema Prova() {
    return NatoAPadova("Prova", 1980, 1, 15, GradiDecimali(15, 5, 0));
}

} // namespace vesmo::test
