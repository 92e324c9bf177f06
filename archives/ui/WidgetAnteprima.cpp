#include "archives/ui/WidgetAnteprima.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

namespace vesmo {

WidgetAnteprima::WidgetAnteprima(QWidget* genitore) : QWidget(genitore) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void WidgetAnteprima::Mostra(const Tema& tema, const Posizioni& pos) {
    tema_ = tema;
    pos_ = pos;
    vuota_ = false;
    update();
}

void WidgetAnteprima::Svuota() {
    vuota_ = true;
    update();
}

QImage WidgetAnteprima::Immagine(QSize dimensione) const {
    QImage img(dimensione, QImage::Format_RGB32);
    QPainter p(&img);
    Disegna(p, QRectF(QPointF(0, 0), QSizeF(dimensione)));
    return img;
}

void WidgetAnteprima::paintEvent(QPaintEvent* e) {
    QPainter p(this);
    p.setClipRegion(e->region());
    Disegna(p, QRectF(rect()));
}

void WidgetAnteprima::Disegna(QPainter& p, const QRectF& dove) const {
    if (!Disegno) {
        p.fillRect(dove, palette().button());
        return;
    }
    Disegno(p, dove, vuota_ ? nullptr : &tema_, pos_);
}

} // namespace vesmo
