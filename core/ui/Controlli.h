// The controls of the forms made in one call each: the objectName the tests find, the caption
// and the tooltip. Captions and names are UTF-8; an empty tooltip sets none.
#pragma once

#include <QString>
#include <initializer_list>

class QAction;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QObject;
class QPushButton;
class QToolBar;
class QWidget;

namespace vesmo {

// Gives `w` its objectName and hands it back.
template <class W> W* Nome(W* w, const char* nome) {
    w->setObjectName(QString::fromUtf8(nome));
    return w;
}

QPushButton* Pulsante(QWidget* genitore, const char* nome, const char* testo,
                      const char* suggerimento = "");
// A text box no wider than `larghezza` pixels (0: as wide as the layout makes it).
QLineEdit* Casella(QWidget* genitore, const char* nome, int larghezza = 0,
                   const char* suggerimento = "");
// A label; unnamed when `nome` is empty.
QLabel* Etichetta(QWidget* genitore, const char* testo, const char* nome = "");
// A framed group with its title.
QGroupBox* Riquadro(QWidget* genitore, const char* nome, const char* titolo = "");
QCheckBox* Spunta(QWidget* genitore, const char* nome, const char* testo,
                  const char* suggerimento = "");
// A drop-down list with its items.
QComboBox* Lista(QWidget* genitore, const char* nome, std::initializer_list<const char*> voci = {});
// An entry appended to `menu`.
QAction* Voce(QMenu* menu, const char* nome, const char* testo);
// An entry owned by `genitore`, to be put in a menu later.
QAction* Azione(QObject* genitore, const char* nome, const char* testo);
// Makes `a` (a menu's entry or a toolbar's button) a toggle and hands it back.
QAction* Interruttore(QAction* a);
// A submenu appended to `menu`; its entry in `menu` carries the same name.
QMenu* Sottomenu(QMenu* menu, const char* nome, const char* testo);
// A button appended to the toolbar: its face and its tooltip.
QAction* Tasto(QToolBar* barra, const char* nome, const char* faccia, const char* suggerimento);

} // namespace vesmo
