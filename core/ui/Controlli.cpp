#include "core/ui/Controlli.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolBar>

namespace vesmo {

namespace {

QString Testo(const char* t) {
    return QString::fromUtf8(t);
}

template <class W> W* Suggerito(W* w, const char* suggerimento) {
    if (*suggerimento) w->setToolTip(Testo(suggerimento));
    return w;
}

} // namespace

QPushButton* Pulsante(QWidget* genitore, const char* nome, const char* testo,
                      const char* suggerimento) {
    return Suggerito(Nome(new QPushButton(Testo(testo), genitore), nome), suggerimento);
}

QLineEdit* Casella(QWidget* genitore, const char* nome, int larghezza, const char* suggerimento) {
    auto* t = Nome(new QLineEdit(genitore), nome);
    if (larghezza > 0) t->setMaximumWidth(larghezza);
    return Suggerito(t, suggerimento);
}

QLabel* Etichetta(QWidget* genitore, const char* testo, const char* nome) {
    auto* l = new QLabel(Testo(testo), genitore);
    if (*nome) l->setObjectName(Testo(nome));
    return l;
}

QGroupBox* Riquadro(QWidget* genitore, const char* nome, const char* titolo) {
    return Nome(new QGroupBox(Testo(titolo), genitore), nome);
}

QCheckBox* Spunta(QWidget* genitore, const char* nome, const char* testo,
                  const char* suggerimento) {
    return Suggerito(Nome(new QCheckBox(Testo(testo), genitore), nome), suggerimento);
}

QComboBox* Lista(QWidget* genitore, const char* nome, std::initializer_list<const char*> voci) {
    auto* l = Nome(new QComboBox(genitore), nome);
    for (const char* v : voci)
        l->addItem(Testo(v));
    return l;
}

QAction* Voce(QMenu* menu, const char* nome, const char* testo) {
    return Nome(menu->addAction(Testo(testo)), nome);
}

QAction* Azione(QObject* genitore, const char* nome, const char* testo) {
    return Nome(new QAction(Testo(testo), genitore), nome);
}

QAction* Interruttore(QAction* a) {
    a->setCheckable(true);
    return a;
}

QMenu* Sottomenu(QMenu* menu, const char* nome, const char* testo) {
    QMenu* m = Nome(menu->addMenu(Testo(testo)), nome);
    Nome(m->menuAction(), nome);
    return m;
}

QAction* Tasto(QToolBar* barra, const char* nome, const char* faccia, const char* suggerimento) {
    QAction* a = Azione(barra, nome, faccia);
    a->setToolTip(Testo(suggerimento));
    barra->addAction(a);
    return a;
}

} // namespace vesmo
