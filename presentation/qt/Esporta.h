// A wheel written to an image file: PNG, SVG or PDF by the file's extension, through the same
// QPainter surface that draws on the screen.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "presentation/Ruota.h"
#include "presentation/Superficie.h"

namespace vesmo {

enum class FormatoImmagine { Png, Svg, Pdf };

// The format named by the extension (case ignored), or none.
std::optional<FormatoImmagine> FormatoDaFile(const std::string& file);

// Draws `area` (twips) fitted into a square of `lato` pixels (PNG, SVG) or a square page (PDF),
// on the background colour. Returns an empty text, or what went wrong.
std::string SalvaDisegno(const std::string& file, int lato, const Rettangolo& area,
                         const std::function<void(Superficie&)>& disegna,
                         Colore fondo = FacciaPulsante);

} // namespace vesmo
