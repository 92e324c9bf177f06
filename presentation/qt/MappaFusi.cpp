#include "presentation/qt/MappaFusi.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "presentation/Rilocazione.h"

namespace vesmo {

namespace {

using Arco = std::vector<QPointF>;

std::vector<Arco> ArchiDecodificati(const QJsonObject& topologia) {
    double sx = 1, sy = 1, tx = 0, ty = 0;
    const QJsonObject trasformazione = topologia.value("transform").toObject();
    const bool quantizzata = !trasformazione.isEmpty();
    if (quantizzata) {
        const QJsonArray scala = trasformazione.value("scale").toArray();
        const QJsonArray traslazione = trasformazione.value("translate").toArray();
        sx = scala.at(0).toDouble(1);
        sy = scala.at(1).toDouble(1);
        tx = traslazione.at(0).toDouble();
        ty = traslazione.at(1).toDouble();
    }
    std::vector<Arco> archi;
    for (const QJsonValue& a : topologia.value("arcs").toArray()) {
        Arco arco;
        double x = 0, y = 0;
        for (const QJsonValue& p : a.toArray()) {
            const QJsonArray punto = p.toArray();
            if (quantizzata) {
                x += punto.at(0).toDouble();
                y += punto.at(1).toDouble();
                arco.emplace_back(x * sx + tx, y * sy + ty);
            } else {
                arco.emplace_back(punto.at(0).toDouble(), punto.at(1).toDouble());
            }
        }
        archi.push_back(std::move(arco));
    }
    return archi;
}

// A ring from its arcs; consecutive arcs share their end point.
bool Anello(const QJsonArray& indici, const std::vector<Arco>& archi, QPolygonF& anello) {
    for (const QJsonValue& v : indici) {
        const int i = v.toInt();
        const std::size_t k = static_cast<std::size_t>(i >= 0 ? i : ~i);
        if (k >= archi.size()) return false;
        Arco arco = archi[k];
        if (i < 0) std::reverse(arco.begin(), arco.end());
        for (std::size_t j = anello.isEmpty() ? 0 : 1; j < arco.size(); ++j)
            anello << arco[j];
    }
    return true;
}

bool Geometria(const QJsonObject& g, const std::vector<Arco>& archi, std::vector<QPolygonF>& r) {
    const QString tipo = g.value("type").toString();
    if (tipo == "GeometryCollection") {
        for (const QJsonValue& figlia : g.value("geometries").toArray())
            if (!Geometria(figlia.toObject(), archi, r)) return false;
        return true;
    }
    QJsonArray poligoni;
    if (tipo == "Polygon")
        poligoni.append(g.value("arcs").toArray());
    else if (tipo == "MultiPolygon")
        poligoni = g.value("arcs").toArray();
    else
        return true; // points and lines have no land
    for (const QJsonValue& poligono : poligoni) {
        for (const QJsonValue& anello : poligono.toArray()) {
            QPolygonF p;
            if (!Anello(anello.toArray(), archi, p)) return false;
            if (p.size() >= 3) r.push_back(p);
        }
    }
    return true;
}

QPointF Pixel(double lonEst, double lat) {
    const PuntoMappa p = PosizioneSullaMappa(-lonEst / 15, lat, LarghezzaMappaPixel * 15.0,
                                             AltezzaMappaPixel * 15.0);
    return {p.x / 15, p.y / 15};
}

} // namespace

std::vector<QPolygonF> TerreDaTopoJson(const QByteArray& testo, QString& errore) {
    QJsonParseError e;
    const QJsonDocument d = QJsonDocument::fromJson(testo, &e);
    if (d.isNull()) {
        errore = e.errorString();
        return {};
    }
    const QJsonObject topologia = d.object();
    const QJsonObject terra = topologia.value("objects").toObject().value("land").toObject();
    if (topologia.value("type").toString() != "Topology" || terra.isEmpty()) {
        errore = QStringLiteral("non è una topologia con l'oggetto \"land\"");
        return {};
    }
    std::vector<QPolygonF> r;
    if (!Geometria(terra, ArchiDecodificati(topologia), r)) {
        errore = QStringLiteral("indice di arco fuori dalla topologia");
        return {};
    }
    return r;
}

QImage DisegnaMappaFusi(const std::vector<QPolygonF>& terre) {
    const int W = LarghezzaMappaPixel, H = AltezzaMappaPixel;
    QImage img(W, H, QImage::Format_RGB32);
    img.fill(QColor(198, 222, 246)); // the sea
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);

    // The land in the stretch of the map. A ring that crosses the 180th meridian is made
    // continuous beyond it, and every ring is drawn once more a turn to each side, so that the
    // strips at the edges show what lies past them.
    QPainterPath terra;
    terra.setFillRule(Qt::OddEvenFill);
    for (const QPolygonF& anello : terre) {
        QPolygonF continuo;
        double prima = anello.first().x();
        for (const QPointF& v : anello) {
            const double lon = v.x() + 360 * std::round((prima - v.x()) / 360);
            continuo << QPointF(lon, v.y());
            prima = lon;
        }
        for (const double spostamento : {-360.0, 0.0, 360.0}) {
            QPolygonF q;
            for (const QPointF& v : continuo)
                q << Pixel(v.x() + spostamento, v.y());
            terra.addPolygon(q);
            terra.closeSubpath();
        }
    }
    // One band of 15 degrees around each hour meridian, coloured in turn.
    const QColor colori[2] = {QColor(238, 214, 150), QColor(196, 226, 150)};
    for (int ora = -12; ora <= 12; ++ora) {
        const double da = Pixel(ora * 15 - 7.5, 0).x(), a = Pixel(ora * 15 + 7.5, 0).x();
        p.save();
        p.setClipRect(QRectF(da, 0, a - da, H));
        p.fillPath(terra, colori[(ora + 12) % 2]);
        p.restore();
    }
    p.setPen(QPen(QColor(110, 110, 90), 0.5));
    p.drawPath(terra);

    // The hour meridians and their zones, west negative.
    QFont carattere(QStringLiteral("DejaVu Sans"));
    carattere.setPixelSize(7);
    p.setFont(carattere);
    for (int ora = -12; ora <= 12; ++ora) {
        const double x = Pixel(ora * 15, 0).x();
        p.setPen(QPen(QColor(90, 90, 140), 0.6, Qt::DashLine));
        p.drawLine(QPointF(x, 9), QPointF(x, H));
        if (ora == -12) continue; // the same meridian as +12
        p.setPen(QColor(30, 30, 90));
        const QString testo = ora > 0 ? QStringLiteral("+%1").arg(ora) : QString::number(ora);
        p.drawText(QRectF(x - 8, 0, 16, 9), Qt::AlignCenter, testo);
    }
    // The equator.
    p.setPen(QPen(QColor(120, 120, 160), 0.5, Qt::DotLine));
    const double y = Pixel(0, 0).y();
    p.drawLine(QPointF(0, y), QPointF(W, y));
    p.end();
    return img;
}

} // namespace vesmo
