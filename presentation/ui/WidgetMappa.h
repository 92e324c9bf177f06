// picFusi: the world map of the time zones, 357 by 186 pixels, with the mark of the relocated
// place drawn over it. The picture is the one the set-up prepared beside the places database;
// without it the box shows its background and the mark alone.
#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

#include "presentation/Rilocazione.h"

namespace vesmo {

class WidgetMappa : public QWidget {
    Q_OBJECT
public:
    explicit WidgetMappa(QWidget* genitore = nullptr);

    // Reads the picture; false when the file is missing or not an image.
    bool CaricaImmagine(const QString& file);
    bool HaImmagine() const { return !immagine_.isNull(); }

    // SegnaMappa: the overlay cleared, then the mark of (lon hours, lat degrees).
    void SegnaMappa(double lon, double lat);
    const std::optional<SegnoMappa>& Segno() const { return segno_; }

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    QImage immagine_;
    std::optional<SegnoMappa> segno_;
};

// The map's file (FileMappaFusi) as a QString.
QString FileMappaAccanto(const std::string& fileDB);

} // namespace vesmo
