// The entry mnuFileImporta of the chart menu: a chart of an archive picked into any slot.
#pragma once

#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo {

// Adds "&Importa" to the menu's File menu, before "S&alvo".
void CollegaMenuImporta(frmMenu& menu, Sessione& sessione, const std::string& fileDB,
                        Messaggi& messaggi);

// What the picking form does to the menu when a chart goes into `slot`: every frame's tag
// cleared, the slot's tag "oK", the slot's Astrolog button shown.
void SegnaSlotImportato(frmMenu& menu, int slot);

// The entry's sequence: the secondary windows closed, the picking form shown modally, the
// refresh, all four saved marks removed.
void mnuFileImporta_Click(frmMenu& menu, Sessione& sessione, const std::string& fileDB,
                          Messaggi& messaggi);

} // namespace vesmo
