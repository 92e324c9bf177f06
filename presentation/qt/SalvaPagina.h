// The printed chart page into files: an A4 PDF (text stays text, glyphs stay curves), a PNG of
// the sheet, the two bitmaps of the page's halves, all through the QPainter surface. The
// header names no Qt type: the programs without windows include it.
#pragma once

#include <functional>
#include <string>

#include "presentation/PaginaStampa.h"

namespace vesmo {

using DisegnoPagina = std::function<void(Superficie&)>;

// Twips in a pixel of the bitmaps: the page at the screen's size.
inline constexpr double TwipsPerPixelBitmap = 15;

// The A4 sheet as a one-page PDF. Returns an empty text, or what went wrong.
std::string SalvaPaginaPdf(const std::string& file, const DisegnoPagina& disegna);
// `area` as an image file (PNG, BMP... by `formato`), `twipsPerPixel` twips to a pixel.
std::string SalvaAreaImmagine(const std::string& file, const char* formato, const Rettangolo& area,
                              double twipsPerPixel, const DisegnoPagina& disegna);

} // namespace vesmo
