// A number typed into a box of the chart half: the comma is the decimal separator (the dot is
// read as one too), blanks around it are allowed, no grouping and no expressions.
#pragma once

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "core/Testo.h"

namespace vesmo {

// The number, or nothing when the text is not one.
// The same reader as every other box (LeggiNumero), here with nothing but the number allowed.
inline std::optional<double> NumeroDigitato(std::string_view testo) {
    auto primo = testo.find_first_not_of(' ');
    if (primo == std::string_view::npos) return std::nullopt;
    const std::string_view t = testo.substr(primo, testo.find_last_not_of(' ') - primo + 1);
    double v = 0;
    if (LeggiNumero(t, v) != t.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

// A text that is the start of a number still being typed ("-", "+", ",", "-,"): not yet a number
// and not yet wrong.
inline bool NumeroIniziato(std::string_view testo) {
    return testo == "-" || testo == "+" || testo == "," || testo == "." || testo == "-," ||
           testo == "+," || testo == "-." || testo == "+.";
}

} // namespace vesmo
