#include "presentation/ui/WidgetMappa.h"

#include <QPainter>

#include "presentation/Superficie.h"
#include "presentation/qt/FileMappa.h"
#include "presentation/qt/SuperficieQt.h"

namespace vesmo {

WidgetMappa::WidgetMappa(QWidget* genitore) : QWidget(genitore) {
    setFixedSize(LarghezzaMappaPixel, AltezzaMappaPixel);
    setAutoFillBackground(true);
}

bool WidgetMappa::CaricaImmagine(const QString& file) {
    QImage i(file);
    if (i.isNull()) return false;
    immagine_ = i.convertToFormat(QImage::Format_RGB32);
    update();
    return true;
}

void WidgetMappa::SegnaMappa(double lon, double lat) {
    segno_ = vesmo::SegnaMappa(lon, lat, LarghezzaMappaPixel * 15.0, AltezzaMappaPixel * 15.0);
    update();
}

void WidgetMappa::paintEvent(QPaintEvent*) {
    QPainter p(this);
    if (!immagine_.isNull()) p.drawImage(rect(), immagine_);
    if (!segno_) return;
    // Twips to pixels; the mark in palette colour 11.
    p.setPen(QPen(ColoreQt(ColorePalette(11)), 1));
    const SegnoMappa& s = *segno_;
    p.drawLine(QPointF(s.x / 15, s.yDa / 15), QPointF(s.x / 15, s.yA / 15));
    p.drawLine(QPointF(s.xDa / 15, s.y / 15), QPointF(s.xA / 15, s.y / 15));
}

QString FileMappaAccanto(const std::string& fileDB) {
    return QString::fromStdString(FileMappaFusi(fileDB).string());
}

} // namespace vesmo
