// The splash window shown while the program starts.
#pragma once

#include <QIcon>
#include <QWidget>

class QPainter;
class QPointF;

namespace vesmo {

// The glyph of Uranus (a circle with a dot, a cross above it) around `centro`, `scala` 1 for
// the splash's size, in the painter's brush colour.
void DisegnaUrano(QPainter& p, const QPointF& centro, double scala);
// "IconaUrano": the window icon of every form of the program.
QIcon IconaUrano();

class frmUrano : public QWidget {
    Q_OBJECT
public:
    explicit frmUrano(QWidget* genitore = nullptr);

protected:
    void paintEvent(QPaintEvent*) override;
};

} // namespace vesmo
