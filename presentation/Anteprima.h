// The small wheel that previews the chart under the cursor of an archive: signs, bodies and
// cusps only, in symbols of a font, with no colours, nodes or aspects.
#pragma once

#include <array>

#include "core/Tema.h"
#include "presentation/Superficie.h"

namespace vesmo {

// The body symbols of the preview, Sole to NodoLuna (UTF-8).
extern const std::array<const char*, 11> SimboliCorpi;

// Clears the surface and draws the preview of a chart, with its date, time and summer time
// above it.
void DisegnaAnteprima(Superficie& sup, const Tema& tema, const Posizioni& pos);

} // namespace vesmo
