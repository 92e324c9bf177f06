// The map of the time zones of picFusi, drawn from Natural Earth's land in TopoJSON: the land
// coloured band by band, one band of 15 degrees around each zone's hour meridian, the meridians
// drawn and numbered, in the stretch that SegnaMappa marks places with.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPolygonF>
#include <QString>
#include <vector>

namespace vesmo {

// The rings of the land polygons in degrees (x longitude east, y latitude north), decoded from
// a TopoJSON topology (quantised, delta-coded arcs; a negative index ~i runs arc i backwards).
// An empty list and `errore` set when the text is not such a topology with an object "land".
std::vector<QPolygonF> TerreDaTopoJson(const QByteArray& testo, QString& errore);

// The map, LarghezzaMappaPixel by AltezzaMappaPixel.
QImage DisegnaMappaFusi(const std::vector<QPolygonF>& terre);

} // namespace vesmo
