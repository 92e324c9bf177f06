// The splash window shown while the program starts.
#pragma once

#include <QWidget>

namespace vesmo {

class frmUrano : public QWidget {
    Q_OBJECT
public:
    explicit frmUrano(QWidget* genitore = nullptr);

protected:
    void paintEvent(QPaintEvent*) override;
};

} // namespace vesmo
