// The printing entry of the chart menu: mnuFileStampe ("&Stampe") opens frmStampe, not modally.
#pragma once

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "presentation/ui/frmStampe.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo {

// Adds the entry to the menu's File menu, before its way out.
void CollegaMenuStampe(frmMenu& menu, Sessione& sessione, Messaggi& messaggi);

// Opens the printing form on the menu, or brings forward the one already open; null when it
// unloaded itself at load (no slot chosen): that error, 364, is cleared here and nothing is told.
// Any other error is reported.
frmStampe* ApriStampe(frmMenu& menu, Sessione& sessione, Messaggi& messaggi);

} // namespace vesmo
