// The preview wheel of a chart on a QPainter: the background of the place, then the wheel with
// its two lines of text scaled into it. The archive forms that show a preview are given this
// drawing by whoever opens them.
#pragma once

#include <QPainter>
#include <QRectF>

#include "core/Tema.h"
#include "presentation/Ruota.h"

namespace vesmo {

// The part of the form, in twips, that the preview and its two lines of text occupy.
extern const Rettangolo AreaAnteprima;

// Only the background when `tema` is null (an empty archive).
void DisegnaAnteprimaQt(QPainter& p, const QRectF& dove, const Tema* tema, const Posizioni& pos);

} // namespace vesmo
