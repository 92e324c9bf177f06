#include "core/qt/Schermo.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWidget>
#include <algorithm>

namespace vesmo {

QMargins CorniceStimata() {
    return {4, 32, 4, 4};
}

QMargins CorniceDi(const QWidget* finestra) {
    const QRect dentro = finestra->geometry();
    const QRect fuori = finestra->frameGeometry();
    const QMargins stima = CorniceStimata();
    return {std::max(dentro.left() - fuori.left(), stima.left()),
            std::max(dentro.top() - fuori.top(), stima.top()),
            std::max(fuori.right() - dentro.right(), stima.right()),
            std::max(fuori.bottom() - dentro.bottom(), stima.bottom())};
}

namespace {

QScreen* SchermoDi(const QWidget* finestra) {
    const QWidget* genitore =
        finestra->parentWidget() ? finestra->parentWidget()->window() : nullptr;
    if (genitore && genitore->isVisible()) {
        if (QScreen* s = QGuiApplication::screenAt(genitore->frameGeometry().center())) return s;
        return genitore->screen();
    }
    if (finestra->testAttribute(Qt::WA_Moved) || finestra->isVisible())
        if (QScreen* s = QGuiApplication::screenAt(finestra->frameGeometry().center())) return s;
    return finestra->screen() ? finestra->screen() : QGuiApplication::primaryScreen();
}

bool DaSorvegliare(const QWidget* w) {
    if (!w->isWindow()) return false;
    switch (w->windowType()) {
    case Qt::Window:
    case Qt::Dialog:
    case Qt::Tool:
    case Qt::SplashScreen:
        return true;
    default:
        return false;
    }
}

class Sorvegliante : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() != QEvent::Show || !o->isWidgetType()) return false;
        auto* w = static_cast<QWidget*>(o);
        if (!DaSorvegliare(w)) return false;
        AdattaAlloSchermo(w);
        // A form that fills its controls after showing may have grown: once more when the
        // events of the show have run.
        QPointer<QWidget> p(w);
        QTimer::singleShot(0, w, [p] {
            if (p && p->isVisible()) AdattaAlloSchermo(p);
        });
        return false;
    }
};

} // namespace

QRect AreaDelloSchermo(const QWidget* finestra) {
    QScreen* s = SchermoDi(finestra);
    return s ? s->availableGeometry() : QRect(0, 0, 1366, 768);
}

QSize DimensioneVoluta(const QWidget* finestra, QSize voluta) {
    const QRect area = AreaDelloSchermo(finestra);
    const QMargins c = CorniceDi(finestra);
    return voluta.boundedTo(
        QSize(area.width() - c.left() - c.right(), area.height() - c.top() - c.bottom()));
}

void AdattaAlloSchermo(QWidget* finestra) {
    if (!finestra || finestra->isMaximized() || finestra->isFullScreen()) return;
    const QRect area = AreaDelloSchermo(finestra);
    const QMargins c = CorniceDi(finestra);
    const QSize massima(area.width() - c.left() - c.right(), area.height() - c.top() - c.bottom());
    const QSize ora = finestra->size();
    const QSize nuova = ora.boundedTo(massima).expandedTo(finestra->minimumSize());
    if (nuova != ora) finestra->resize(nuova);

    // The frame's top left, as the platform places windows.
    const int larga = nuova.width() + c.left() + c.right();
    const int alta = nuova.height() + c.top() + c.bottom();
    QPoint angolo = finestra->pos();
    const QWidget* genitore =
        finestra->parentWidget() ? finestra->parentWidget()->window() : nullptr;
    if (genitore && genitore->isVisible() && !finestra->testAttribute(Qt::WA_Moved)) {
        const QPoint centro = genitore->frameGeometry().center();
        angolo = QPoint(centro.x() - larga / 2, centro.y() - alta / 2);
    }
    const int x =
        std::clamp(angolo.x(), area.left(), std::max(area.left(), area.right() + 1 - larga));
    const int y =
        std::clamp(angolo.y(), area.top(), std::max(area.top(), area.bottom() + 1 - alta));
    if (QPoint(x, y) != finestra->pos()) finestra->move(x, y);
}

void ChiudiConEsc(QWidget* finestra) {
    auto* esc = new QShortcut(QKeySequence(Qt::Key_Escape), finestra);
    esc->setContext(Qt::WindowShortcut);
    QObject::connect(esc, &QShortcut::activated, finestra, &QWidget::close);
}

void SorvegliaFinestre() {
    static QPointer<Sorvegliante> sorvegliante;
    if (sorvegliante || !qApp) return;
    sorvegliante = new Sorvegliante(qApp);
    qApp->installEventFilter(sorvegliante);
}

} // namespace vesmo
