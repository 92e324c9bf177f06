// The drawing surface on any Qt paint device (window, image, PDF, SVG, printer): the painter is
// set to map a rectangle of twips onto a rectangle of the device, keeping the proportions, so
// that the wheel fills its place at any size.
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>

#include "presentation/Ruota.h"
#include "presentation/Superficie.h"

namespace vesmo {

class SuperficieQt : public Superficie {
public:
    // `area` (twips) is fitted and centred into `destinazione` (device coordinates); Pulisci
    // fills `destinazione`. The painter's state is put back when the surface goes.
    SuperficieQt(QPainter& pittore, const Rettangolo& area, const QRectF& destinazione,
                 Colore fondo = FacciaPulsante);
    ~SuperficieQt() override;
    double LarghezzaTesto(const std::string& testo) const override;
    SuperficieQt(const SuperficieQt&) = delete;
    SuperficieQt& operator=(const SuperficieQt&) = delete;

protected:
    void FaiEllisse(double x, double y, double rx, double ry, Colore colore) override;
    void FaiArco(double x, double y, double rx, double ry, double a, double ampiezza,
                 bool raggioInizio, bool raggioFine, Colore colore) override;
    void FaiLinea(double x1, double y1, double x2, double y2, Colore colore) override;
    void FaiPunto(double x, double y, Colore colore) override;
    double FaiTesto(double x, double y, const std::string& testo) override;
    double FaiTestoCentrato(double cx, double cy, const std::string& testo) override;
    void FaiPulisci() override;
    void FaiImmagine(double x, double y, double larghezza, double altezza,
                     const std::string& file) override;

private:
    void Penna(Colore colore);
    // The Qt font of the surface's font, made again when that changes.
    const QFont& Font() const;
    QPainter& p_;
    QRectF destinazione_;
    mutable QFont font_;
    mutable vesmo::Carattere fontDi_;
    mutable bool fontPronto_ = false;
};

QColor ColoreQt(Colore c);

} // namespace vesmo
