// The revolution of vesmo-cli, shared by rivoluzione and ruota: the options that ask for it,
// the search from the natal chart, and its relocation to another place.
#pragma once

#include <string>
#include <vector>

#include "cli/Argomenti.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/Rivoluzioni.h"

namespace vesmo::cli {

// --tipo, --anno, --mese, --giorno, --ritorno, --grado, and --angolo when `conAngolo`; then
// --lon-rilocata, --lat-rilocata. The flags are "primo" and "rilocata".
std::vector<std::string> OpzioniRivoluzione(bool conAngolo);

struct RivoluzioneCercata {
    Sessione s; // TemaNat/PosNat the natal chart, TemaX the return, JDRivoluzione its instant
    DatiRivoluzione d;
    EsitoRivoluzione e;
};
// The natal chart read from `a` and the return searched; the synodic kind takes its angle from
// --angolo when `conAngolo`, else the natal one. `e.trovato` false when none was found.
RivoluzioneCercata CercaRivoluzioneDaArgomenti(const Argomenti& a, bool conAngolo,
                                               Messaggi& messaggi);

// With --rilocata: TemaX moved to --lon-rilocata, --lat-rilocata at the same instant, on local
// mean time, City "Jolly"; true then. Without it false, and the two places refused.
bool RilocaRivoluzione(RivoluzioneCercata& r, const Argomenti& a, Messaggi& messaggi);

} // namespace vesmo::cli
