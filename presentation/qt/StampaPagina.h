// The printed chart page on Qt's devices: the files of SalvaPagina.h, and any painter (the form,
// the printer), all through the QPainter surface.
#pragma once

#include <QPainter>
#include <QRectF>

#include "presentation/qt/SalvaPagina.h"

namespace vesmo {

// Draws `area` (twips) fitted into `destinazione` of the painter, on white.
void DisegnaSuPittore(QPainter& pittore, const QRectF& destinazione, const Rettangolo& area,
                      const DisegnoPagina& disegna);

} // namespace vesmo
