// The printed chart page on Qt's devices: an A4 PDF (text stays text, glyphs stay curves), a
// PNG of the sheet, the two bitmaps of the page's halves, and any painter (the form, the
// printer), all through the QPainter surface.
#pragma once

#include <QPainter>
#include <QRectF>
#include <functional>
#include <string>

#include "presentation/PaginaStampa.h"

namespace vesmo {

using DisegnoPagina = std::function<void(Superficie&)>;

// Twips in a pixel of the bitmaps: the page at the screen's size.
inline constexpr double TwipsPerPixelBitmap = 15;

// Draws `area` (twips) fitted into `destinazione` of the painter, on white.
void DisegnaSuPittore(QPainter& pittore, const QRectF& destinazione, const Rettangolo& area,
                      const DisegnoPagina& disegna);

// The A4 sheet as a one-page PDF. Returns an empty text, or what went wrong.
std::string SalvaPaginaPdf(const std::string& file, const DisegnoPagina& disegna);
// `area` as an image file (PNG, BMP... by `formato`), `twipsPerPixel` twips to a pixel.
std::string SalvaAreaImmagine(const std::string& file, const char* formato, const Rettangolo& area,
                              double twipsPerPixel, const DisegnoPagina& disegna);

} // namespace vesmo
