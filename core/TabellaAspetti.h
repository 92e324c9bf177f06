// The session's aspect choice: which of the 17 aspects are switched on, the one orb and the
// solar arc that turns the outer ring of a direction.
#pragma once

#include <array>
#include <cstdint>

namespace vesmo {

inline constexpr int NumeroAspetti = 17;

struct TabellaAspetti {
    std::array<std::int16_t, NumeroAspetti> AspettoAttivo{};
    float Orbita = 0;
    float ArcoSolare = 0;

    // The five majors (conjunction to opposition) are on, the others off, the orb 0.
    TabellaAspetti();
    // Entering the chart half: an orb of 0 becomes 2.5; the five majors are switched on again.
    void EntraInLyx();
};

} // namespace vesmo
