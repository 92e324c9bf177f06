#include "archives/ui/WidgetAnteprima.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

#include "presentation/Anteprima.h"
#include "presentation/qt/SuperficieQt.h"

namespace vesmo {

// The wheel reaches 2400 twips around its centre (7500, 3250); the date line starts at 4950,
// 850 and the summer time line ends near 10000.
const Rettangolo AreaAnteprima{4800, 700, 5400, 5100};

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
    p.fillRect(dove, ColoreQt(FacciaPulsante));
    if (vuota_) return;
    SuperficieQt sup(p, AreaAnteprima, dove);
    DisegnaAnteprima(sup, tema_, pos_);
}

} // namespace vesmo
