// What the menu's window tests share: the natal chart they start from.
#pragma once

#include <gtest/gtest.h>

#include "core/Aritmetica.h"
#include "core/Tema.h"
#include "tests/core/Padova.h"
#include "tests/core/ui/Controlli.h"

namespace vesmo::test {

// Padova, 10 April 1987 at 19:30, summer time, one hour east: the chart the chart half opens on.
inline Tema NataleDiProva() {
    Tema t = NatoAPadova("Mario Rossi", 1987, 4, 10, 19.5, 1);
    t.Stato = "Italy";
    return t;
}

} // namespace vesmo::test
