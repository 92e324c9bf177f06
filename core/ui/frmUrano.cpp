#include "core/ui/frmUrano.h"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace vesmo {

void DisegnaUrano(QPainter& p, const QPointF& c, double k) {
    const QColor colore = p.brush().color();
    p.setPen(QPen(colore, 4 * k));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(c + QPointF(0, 30 * k), 22 * k, 22 * k);
    p.setBrush(colore);
    p.drawEllipse(c + QPointF(0, 30 * k), 4 * k, 4 * k);
    p.drawLine(c + QPointF(0, 8 * k), c + QPointF(0, -60 * k));
    p.drawLine(c + QPointF(-30 * k, -30 * k), c + QPointF(30 * k, -30 * k));
}

QIcon IconaUrano() {
    QIcon icona;
    for (int lato : {16, 32, 64}) {
        QPixmap pm(lato, lato);
        pm.fill(QColor(18, 24, 64));
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor(230, 210, 140));
        // The glyph is 120 units high at scale 1, from 60 above the centre to 52 below it.
        const double k = lato / 130.0;
        DisegnaUrano(p, QPointF(lato / 2.0, lato / 2.0 + 4 * k), k);
        p.end();
        icona.addPixmap(pm);
    }
    return icona;
}

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
    p.setBrush(QColor(230, 210, 140));
    DisegnaUrano(p, QPointF(110, 140), 1);
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
