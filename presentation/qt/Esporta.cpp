#include "presentation/qt/Esporta.h"

#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cctype>

#include "presentation/qt/SuperficieQt.h"

namespace vesmo {

std::optional<FormatoImmagine> FormatoDaFile(const std::string& file) {
    auto punto = file.rfind('.');
    if (punto == std::string::npos) return std::nullopt;
    std::string ext = file.substr(punto + 1);
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ext == "png") return FormatoImmagine::Png;
    if (ext == "svg") return FormatoImmagine::Svg;
    if (ext == "pdf") return FormatoImmagine::Pdf;
    return std::nullopt;
}

namespace {

void Disegna(QPainter& pittore, const QRectF& destinazione, const Rettangolo& area, Colore fondo,
             const std::function<void(Superficie&)>& disegna) {
    pittore.fillRect(destinazione, ColoreQt(fondo));
    SuperficieQt sup(pittore, area, destinazione, fondo);
    disegna(sup);
}

} // namespace

std::string SalvaDisegno(const std::string& file, int lato, const Rettangolo& area,
                         const std::function<void(Superficie&)>& disegna, Colore fondo) {
    auto formato = FormatoDaFile(file);
    if (!formato) return "formato del file non riconosciuto: " + file;
    QString nome = QString::fromStdString(file);
    switch (*formato) {
    case FormatoImmagine::Png: {
        QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
        {
            QPainter pittore(&immagine);
            Disegna(pittore, QRectF(0, 0, lato, lato), area, fondo, disegna);
        }
        if (!immagine.save(nome, "PNG")) return "impossibile scrivere " + file;
        return {};
    }
    case FormatoImmagine::Svg: {
        QSvgGenerator svg;
        svg.setFileName(nome);
        svg.setSize(QSize(lato, lato));
        svg.setViewBox(QRect(0, 0, lato, lato));
        svg.setTitle("Vesmo");
        QPainter pittore;
        if (!pittore.begin(&svg)) return "impossibile scrivere " + file;
        Disegna(pittore, QRectF(0, 0, lato, lato), area, fondo, disegna);
        pittore.end();
        return {};
    }
    case FormatoImmagine::Pdf: {
        QPdfWriter pdf(nome);
        pdf.setPageSize(QPageSize(QSizeF(200, 200), QPageSize::Millimeter));
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        pdf.setResolution(300);
        pdf.setTitle("Vesmo");
        QPainter pittore;
        if (!pittore.begin(&pdf)) return "impossibile scrivere " + file;
        Disegna(pittore, QRectF(0, 0, pdf.width(), pdf.height()), area, fondo, disegna);
        pittore.end();
        return {};
    }
    }
    return {};
}

} // namespace vesmo
