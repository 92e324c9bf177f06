// The workstation as one object: the session, the settings and the launcher live for the whole
// run; the chart half lives while the user is in it. main() makes one and runs the event
// loop; the tests drive the same object.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/ui/Avvio.h"

class QApplication;
class QWidget;

namespace vesmo {

class frmInputIni;
class frmMainVesmo;
class frmMenu;
class frmUrano;

// Qt's own Italian texts for the standard buttons and dialogs ("Sì", "Annulla", "Apri"), from
// the system's translations; false when they are not installed.
bool CaricaTraduzioniQt(QApplication& app);

class Programma {
public:
    explicit Programma(Messaggi& messaggi);
    ~Programma();

    // The start: the splash, the settings (the first-time dialog shown through `dialogo`), the
    // chart preset to now, the launcher shown and loaded. False when the user left the
    // first-time dialog: the program ends.
    bool Avvia(const QString& cartellaProgramma, const std::function<bool(frmInputIni&)>& dialogo);

    // The chart half: the launcher's chart becomes the natal slot; leaving it brings the
    // launcher back with its chart as it was.
    void AvviaLyx();
    void TornaAVesmo();

    Sessione sessione;
    // The settings as read at the start: the one copy every form reads; the launcher's settings
    // dialog stores into it.
    EsitoAvvio avvio;
    std::unique_ptr<frmMainVesmo> principale;
    std::unique_ptr<frmMenu> menu;

private:
    void Genitore(QWidget* w);
    Messaggi& messaggi_;
    std::unique_ptr<frmUrano> splash_;
};

} // namespace vesmo
