// What the menu's window tests share: the natal chart they start from.
#pragma once

#include <gtest/gtest.h>

#include "core/Aritmetica.h"
#include "core/Tema.h"
#include "tests/core/ui/Controlli.h"

namespace vesmo::test {

// Padova, 10 April 1987 at 19:30, summer time, one hour east: the chart the chart half opens on.
inline Tema NataleDiProva() {
    Tema t;
    t.Nome = "Mario Rossi";
    t.City = "Padova";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(1987, 4, 10);
    t.OraL = 19.5;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = 45.4;
    t.Fuso = -1;
    t.Estiva = 1;
    return t;
}

} // namespace vesmo::test
