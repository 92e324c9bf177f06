#include "presentation/qt/SuperficieQt.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainterPath>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace vesmo {

namespace {

// Twips in a pixel of the screen the pen widths are counted in.
constexpr double TwipsPerPixel = 15;

} // namespace

QColor ColoreQt(Colore c) {
    return QColor(c.r, c.g, c.b);
}

SuperficieQt::SuperficieQt(QPainter& pittore, const Rettangolo& area, const QRectF& destinazione,
                           Colore fondo)
    : Superficie(fondo), p_(pittore), destinazione_(destinazione) {
    p_.save();
    p_.setRenderHint(QPainter::Antialiasing, true);
    p_.setRenderHint(QPainter::TextAntialiasing, true);
    double s =
        std::min(destinazione.width() / area.larghezza, destinazione.height() / area.altezza);
    QTransform t;
    t.translate(destinazione.x() + (destinazione.width() - area.larghezza * s) / 2,
                destinazione.y() + (destinazione.height() - area.altezza * s) / 2);
    t.scale(s, s);
    t.translate(-area.x, -area.y);
    p_.setTransform(t, true);
}

SuperficieQt::~SuperficieQt() {
    p_.restore();
}

void SuperficieQt::Penna(Colore colore) {
    QPen penna(ColoreQt(colore), SpessorePenna() * TwipsPerPixel, Qt::SolidLine, Qt::RoundCap,
               Qt::RoundJoin);
    p_.setPen(penna);
}

void SuperficieQt::FaiEllisse(double x, double y, double rx, double ry, Colore colore) {
    Penna(colore);
    if (TipoRiempimento() == 0)
        p_.setBrush(ColoreQt(ColoreRiempimento()));
    else
        p_.setBrush(Qt::NoBrush);
    p_.drawEllipse(QPointF(x, y), rx, ry);
}

void SuperficieQt::FaiArco(double x, double y, double rx, double ry, double a, double ampiezza,
                           bool raggioInizio, bool raggioFine, Colore colore) {
    // The angles run along the ellipse's parameter: the arc is one of the unit circle,
    // stretched to the two half-axes.
    QPainterPath unita;
    if (raggioInizio)
        unita.moveTo(0, 0);
    else
        unita.moveTo(std::cos(a), -std::sin(a));
    unita.arcTo(QRectF(-1, -1, 2, 2), a * 180 / 3.141592653589793,
                ampiezza * 180 / 3.141592653589793);
    if (raggioFine) unita.lineTo(0, 0);
    QTransform t;
    t.translate(x, y);
    t.scale(rx, ry);
    QPainterPath arco = t.map(unita);
    Penna(colore);
    bool chiuso = raggioInizio && raggioFine && TipoRiempimento() == 0;
    if (chiuso) arco.closeSubpath();
    p_.setBrush(chiuso ? QBrush(ColoreQt(ColoreRiempimento())) : QBrush(Qt::NoBrush));
    p_.drawPath(arco);
}

void SuperficieQt::FaiLinea(double x1, double y1, double x2, double y2, Colore colore) {
    Penna(colore);
    p_.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void SuperficieQt::FaiPunto(double x, double y, Colore colore) {
    double r = SpessorePenna() * TwipsPerPixel / 2;
    p_.setPen(Qt::NoPen);
    p_.setBrush(ColoreQt(colore));
    p_.drawEllipse(QPointF(x, y), r, r);
}

const QFont& SuperficieQt::Font() const {
    if (!fontPronto_ || !(fontDi_ == Carattere())) {
        fontDi_ = Carattere();
        font_ = QFont(QString::fromStdString(fontDi_.nome));
        // Sizes in twips: a point is 20 of them.
        font_.setPixelSize(std::max(1, static_cast<int>(std::lround(fontDi_.punti * 20))));
        font_.setHintingPreference(QFont::PreferNoHinting);
        fontPronto_ = true;
    }
    return font_;
}

double SuperficieQt::LarghezzaTesto(const std::string& testo) const {
    return QFontMetricsF(Font()).horizontalAdvance(QString::fromStdString(testo));
}

double SuperficieQt::FaiTesto(double x, double y, const std::string& testo) {
    Font();
    p_.setFont(font_);
    p_.setPen(ColoreQt(ColorePenna()));
    QString q = QString::fromStdString(testo);
    QFontMetricsF m(font_);
    p_.drawText(QPointF(x, y + m.ascent()), q);
    return m.horizontalAdvance(q);
}

double SuperficieQt::FaiTestoCentrato(double cx, double cy, const std::string& testo) {
    Font();
    p_.setFont(font_);
    p_.setPen(ColoreQt(ColorePenna()));
    const QString q = QString::fromStdString(testo);
    const QFontMetricsF m(font_);
    // The ink of the symbol, not its line box, is centred: a sign's symbol sits on the
    // baseline with room above and below that differs from font to font.
    const QRectF inchiostro = m.tightBoundingRect(q);
    p_.drawText(QPointF(cx - inchiostro.center().x(), cy - inchiostro.center().y()), q);
    return m.horizontalAdvance(q);
}

void SuperficieQt::FaiPulisci() {
    p_.save();
    p_.resetTransform();
    p_.fillRect(destinazione_, ColoreQt(ColoreFondo()));
    p_.restore();
}

void SuperficieQt::FaiImmagine(double x, double y, double larghezza, double altezza,
                               const std::string& file) {
    const QImage immagine(QString::fromStdString(file));
    if (!immagine.isNull()) p_.drawImage(QRectF(x, y, larghezza, altezza), immagine);
}

} // namespace vesmo
