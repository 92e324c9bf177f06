#include "presentation/qt/StampaPagina.h"

#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <cmath>

#include "presentation/qt/SuperficieQt.h"

namespace vesmo {

void DisegnaSuPittore(QPainter& pittore, const QRectF& destinazione, const Rettangolo& area,
                      const DisegnoPagina& disegna) {
    pittore.fillRect(destinazione, Qt::white);
    SuperficieQt sup(pittore, area, destinazione, Bianco);
    disegna(sup);
}

std::string SalvaPaginaPdf(const std::string& file, const DisegnoPagina& disegna) {
    QPdfWriter pdf(QString::fromStdString(file));
    pdf.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    // One device unit a twip: the page's own unit.
    pdf.setResolution(1440);
    pdf.setTitle(QStringLiteral("Vesmo"));
    pdf.setCreator(QStringLiteral("Vesmo"));
    QPainter pittore;
    if (!pittore.begin(&pdf)) return "impossibile scrivere " + file;
    DisegnaSuPittore(pittore, QRectF(0, 0, pdf.width(), pdf.height()), AreaPagina(), disegna);
    if (!pittore.end()) return "impossibile scrivere " + file;
    return {};
}

std::string SalvaAreaImmagine(const std::string& file, const char* formato, const Rettangolo& area,
                              double twipsPerPixel, const DisegnoPagina& disegna) {
    int larghezza = static_cast<int>(std::lround(area.larghezza / twipsPerPixel));
    int altezza = static_cast<int>(std::lround(area.altezza / twipsPerPixel));
    QImage immagine(larghezza, altezza, QImage::Format_RGB32);
    {
        QPainter pittore(&immagine);
        DisegnaSuPittore(pittore, QRectF(0, 0, larghezza, altezza), area, disegna);
    }
    if (!immagine.save(QString::fromStdString(file), formato))
        return "impossibile scrivere " + file;
    return {};
}

} // namespace vesmo
