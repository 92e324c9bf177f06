// The preview wheel of the chart under the cursor of an archive, drawn through the drawing
// surface into its own place of the form, the whole picture again at every paint.
#pragma once

#include <QWidget>

#include "core/Tema.h"
#include "presentation/Ruota.h"

namespace vesmo {

// The part of the form, in twips, that the preview and its two lines of text occupy.
extern const Rettangolo AreaAnteprima;

class WidgetAnteprima : public QWidget {
    Q_OBJECT
public:
    explicit WidgetAnteprima(QWidget* genitore = nullptr);

    void Mostra(const Tema& tema, const Posizioni& pos);
    // Only the background: an empty archive.
    void Svuota();
    bool Vuota() const { return vuota_; }

    // The preview as it stands, on an image of that size.
    QImage Immagine(QSize dimensione) const;

    QSize sizeHint() const override { return {360, 340}; }
    QSize minimumSizeHint() const override { return {200, 190}; }

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    void Disegna(QPainter& p, const QRectF& dove) const;
    Tema tema_;
    Posizioni pos_;
    bool vuota_ = true;
};

} // namespace vesmo
