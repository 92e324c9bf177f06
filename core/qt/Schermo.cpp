#include "core/qt/Schermo.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <vector>

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
        if (!w->property("vesmoTabOrdinato").toBool()) {
            w->setProperty("vesmoTabOrdinato", true);
            OrdinaTab(w);
        }
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

namespace {

void Raccogli(QWidget* w, QWidget* finestra, std::vector<QWidget*>& ordine);

void RaccogliLayout(QLayout* l, QWidget* finestra, std::vector<QWidget*>& ordine) {
    auto voce = [&](QLayoutItem* it) {
        if (!it) return;
        if (QWidget* w = it->widget())
            Raccogli(w, finestra, ordine);
        else if (QLayout* figlio = it->layout())
            RaccogliLayout(figlio, finestra, ordine);
    };
    if (auto* g = qobject_cast<QGridLayout*>(l)) {
        // Row by row, each cell once (a cell spanning several is met at its top left).
        for (int r = 0; r < g->rowCount(); ++r)
            for (int c = 0; c < g->columnCount(); ++c) {
                QLayoutItem* it = g->itemAtPosition(r, c);
                if (!it) continue;
                int riga, colonna, righe, colonne;
                g->getItemPosition(g->indexOf(it), &riga, &colonna, &righe, &colonne);
                if (riga == r && colonna == c) voce(it);
            }
        return;
    }
    for (int i = 0; i < l->count(); ++i)
        voce(l->itemAt(i));
}

void Raccogli(QWidget* w, QWidget* finestra, std::vector<QWidget*>& ordine) {
    if (w->window() != finestra || w->isHidden()) return;
    if ((w->focusPolicy() & Qt::TabFocus) && !w->focusProxy()) {
        ordine.push_back(w);
        return;
    }
    if (w->layout()) {
        RaccogliLayout(w->layout(), finestra, ordine);
        return;
    }
    if (auto* schede = qobject_cast<QTabWidget*>(w)) {
        // The tabs above their pages.
        Raccogli(schede->tabBar(), finestra, ordine);
        for (int i = 0; i < schede->count(); ++i)
            Raccogli(schede->widget(i), finestra, ordine);
        return;
    }
    for (QObject* o : w->children())
        if (o->isWidgetType()) Raccogli(static_cast<QWidget*>(o), finestra, ordine);
}

} // namespace

void OrdinaTab(QWidget* finestra) {
    std::vector<QWidget*> ordine;
    if (auto* principale = qobject_cast<QMainWindow*>(finestra)) {
        for (QToolBar* t :
             principale->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
            Raccogli(t, finestra, ordine);
        if (principale->centralWidget()) Raccogli(principale->centralWidget(), finestra, ordine);
    } else {
        Raccogli(finestra, finestra, ordine);
    }
    for (std::size_t i = 1; i < ordine.size(); ++i)
        QWidget::setTabOrder(ordine[i - 1], ordine[i]);
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
