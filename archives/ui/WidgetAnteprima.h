// The preview wheel of the chart under the cursor of an archive, in its own place of the form,
// the whole picture again at every paint. The drawing is given by whoever opens the form.
#pragma once

#include <QWidget>
#include <functional>

#include "core/Tema.h"

namespace vesmo {

// Draws the preview into `dove`: the background, then the wheel of `tema` (null: an empty
// archive, only the background).
using DisegnoAnteprima =
    std::function<void(QPainter& p, const QRectF& dove, const Tema* tema, const Posizioni& pos)>;

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

    // Without it the place shows the button colour of the palette.
    DisegnoAnteprima Disegno;

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
