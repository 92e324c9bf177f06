#include "core/TabellaAspetti.h"

#include <cstddef>

namespace vesmo {

TabellaAspetti::TabellaAspetti() {
    for (int k = 0; k < 5; ++k)
        AspettoAttivo[static_cast<std::size_t>(k)] = -1;
}

void TabellaAspetti::EntraInLyx() {
    if (Orbita == 0) Orbita = 2.5f;
    for (int k = 0; k < 5; ++k)
        AspettoAttivo[static_cast<std::size_t>(k)] = -1;
}

} // namespace vesmo
