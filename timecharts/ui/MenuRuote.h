// The double wheel entries of the chart menu: mnuTransitiR, mnuRivR and mnuDirRuotaDoppia put
// the natal chart inside and the slot's chart outside, and open frmRuotaDoppia.
#pragma once

#include <QObject>
#include <QPointer>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"
#include "presentation/ui/frmRuotaDoppia.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo {

// Adds the three entries to the menu's Transiti, Rivoluzioni and Direzioni menus.
void CollegaMenuRuote(frmMenu& menu, Sessione& sessione, Messaggi& messaggi);

// What the entries keep while the menu lives: the session's wheel switches (the session's own
// copy) and the double wheel open (a new opening closes it and loads a new one).
class StatoMenuRuote : public QObject {
    Q_OBJECT
public:
    StatoMenuRuote(StatoRuote& s, QObject* genitore) : QObject(genitore), stato(s) {}
    StatoRuote& stato;
    QPointer<frmRuotaDoppia> doppia;
};
// The menu's state object, made by CollegaMenuRuote.
StatoMenuRuote* StatoRuoteDelMenu(frmMenu& menu);

// Opens the double wheel of the natal chart and the chart of `esterno`'s slot.
frmRuotaDoppia* ApriRuotaDoppia(frmMenu& menu, Sessione& sessione, Messaggi& messaggi,
                                Esterno esterno);

} // namespace vesmo
