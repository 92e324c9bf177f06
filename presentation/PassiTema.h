// The steps of the positions window and of the double wheel: a step in time of the transit shown,
// the step and the angle typed, the transit cast again. Plain logic over the session's records;
// the windows show the result.
#pragma once

#include <optional>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"

namespace vesmo {

enum class UnitaTempo { Secondi, Minuti, Ore, Giorni, Mesi, Anni };

// Adds `quanti` units (negative or with decimals) to the clock time and date of `tema`. Seconds
// carry into minutes, minutes into hours and hours into days, each keeping its remainder with its
// sign; then negatives borrow from the next unit, and 59.99 seconds or minutes or 24 hours pass
// on. A month or day out of its range goes into the Julian day as it is.
void PassoTempo(Tema& tema, UnitaTempo unita, double quanti);

// The step typed beside the time buttons: its number, or nothing once the user has been told it
// is not one ("Lyx - Passo del Transito").
std::optional<double> PassoDigitato(const std::string& testo, Messaggi& messaggi);
// The arrows beside the step: the step rounded to a whole number, moved by `verso`, kept within
// -30 and 30; a text that is not a number counts as 0.
int PassoConFrecce(const std::string& testo, int verso);

// The rotation's input box: `titolo`, the lines of `domanda`, the current angle as the answer
// offered. An empty answer or a cancelled box is 0; a text that is not a number is told, and
// gives nothing.
std::optional<double> ChiediAngolo(Messaggi& messaggi, const std::string& titolo,
                                   const std::string& domanda, float attuale);

// The transit moved, in the positions window or in the double wheel: `spostato` becomes TemaTra,
// cast again; its positions (PosTra) are returned for the window's own working pair.
const Posizioni& RifaiTransito(Sessione& s, const Tema& spostato, Messaggi& messaggi);

// The date and time of a chart for the box that shows it: civil date from Day, clock time from
// OraL, whole seconds. Nothing when it is not a valid date and time (a year out of 100..9999, a
// clock time outside the day).
struct Quando {
    int anno, mese, giorno, ore, minuti, secondi;
};
std::optional<Quando> QuandoDelTema(const Tema& tema);

} // namespace vesmo
