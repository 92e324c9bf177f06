// Windows at home on the screen: every window, its frame included, fits the screen that holds
// its parent and lies wholly inside it, whether it is shown for the first time or again. The
// forms keep their own preferred sizes; these routines only bring them back within the screen.
#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>

class QWidget;

namespace vesmo {

// What a window manager adds around a window (title bar and borders) where the platform does
// not tell it before the window is mapped: generous, so that a fitted window stays inside.
QMargins CorniceStimata();

// The frame of a window: the one the platform reports, at least the estimate above.
QMargins CorniceDi(const QWidget* finestra);

// The usable area of the screen holding the window's parent (or the window itself, or the
// primary screen).
QRect AreaDelloSchermo(const QWidget* finestra);

// The preferred size of a window, made smaller where the screen is smaller: what a form passes
// to resize() in its constructor.
QSize DimensioneVoluta(const QWidget* finestra, QSize voluta);

// Makes the window, frame included, no larger than its screen's area and places it wholly
// inside it. A window that was never placed by the user, and any dialog, is centred on its
// parent when it has one.
void AdattaAlloSchermo(QWidget* finestra);

// Tab in the order the eye reads the window: its controls as its layouts place them (boxes in
// their order, grids row by row), the toolbars of a main window before its centre.
void OrdinaTab(QWidget* finestra);

// Esc closes this window as it closes a dialog: for the tool windows that are not dialogs.
void ChiudiConEsc(QWidget* finestra);

// From now on every window of the application goes through AdattaAlloSchermo each time it is
// shown, and once more when its first layout pass has run.
void SorvegliaFinestre();

} // namespace vesmo
