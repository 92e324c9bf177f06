#include "core/ui/frmUrano.h"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace vesmo {

frmUrano::frmUrano(QWidget* genitore)
    : QWidget(genitore, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("frmUrano");
    setFixedSize(460, 260);
}

void frmUrano::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sfondo(0, 0, 0, height());
    sfondo.setColorAt(0, QColor(18, 24, 64));
    sfondo.setColorAt(1, QColor(46, 20, 84));
    p.fillRect(rect(), sfondo);
    // The glyph of Uranus: a circle with a dot, a cross above it.
    QPointF c(110, 140);
    p.setPen(QPen(QColor(230, 210, 140), 4));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(c + QPointF(0, 30), 22, 22);
    p.setBrush(QColor(230, 210, 140));
    p.drawEllipse(c + QPointF(0, 30), 4, 4);
    p.drawLine(c + QPointF(0, 8), c + QPointF(0, -60));
    p.drawLine(c + QPointF(-30, -30), c + QPointF(30, -30));
    p.setPen(QColor(240, 240, 250));
    QFont titolo = font();
    titolo.setPointSize(28);
    titolo.setBold(true);
    p.setFont(titolo);
    p.drawText(QRectF(190, 70, 260, 50), Qt::AlignLeft, QStringLiteral("Vesmo"));
    QFont testo = font();
    testo.setPointSize(11);
    p.setFont(testo);
    p.drawText(QRectF(190, 125, 260, 80), Qt::AlignLeft | Qt::TextWordWrap,
               QStringLiteral("Stazione di lavoro astrologica\nEffemeridi, case di Placido, "
                              "rivoluzioni e archivi"));
}

} // namespace vesmo
