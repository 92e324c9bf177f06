// The program's entry routine up to the main window: the settings file, the first-time dialog,
// the derived paths and the chart preset to the present moment.
#pragma once

#include <QString>
#include <functional>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"

namespace vesmo {

class frmInputIni;

struct EsitoAvvio {
    bool continua = false; // false: the user left the first-time dialog, the program ends
    // The settings read: the program keeps this one copy and hands it to the forms by reference.
    ConfigIni cfg;
    PercorsiVesmo percorsi;
};

// The database the set-up prepared (data/Vesmodat.Mdb beside the program or in a folder above
// it), or empty.
std::string DatabasePreparato(const QString& cartellaProgramma);

// `dialogo` shows the settings dialog modally and returns true when it was stored; the tests
// answer it themselves.
EsitoAvvio Avvia(const QString& cartellaProgramma, Sessione& sessione, Messaggi& messaggi,
                 const std::function<bool(frmInputIni&)>& dialogo);

} // namespace vesmo
