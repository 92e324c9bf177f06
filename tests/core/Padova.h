// The birth most tests start from: Padova, 11°53' east and 45°24' north, one hour east of
// Greenwich.
#pragma once

#include <string>

#include "core/Aritmetica.h"
#include "core/Tema.h"

namespace vesmo::test {

inline Tema NatoAPadova(const std::string& nome, double anno, double mese, double giorno,
                        double ora, double estiva = 0) {
    Tema t;
    t.Nome = nome;
    t.City = "Padova";
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    t.Fuso = -1;
    t.Estiva = estiva;
    return t;
}

} // namespace vesmo::test
