// The two ways the positions window moves to another chart: a step in time of the transit shown,
// and the previous or next chart of the current archive. Plain logic over the session's records;
// the window shows the result.
#pragma once

#include <optional>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/store/Cursore.h"

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

// The transit moved: TemaTra becomes TemaX, cast again, and PosX takes its positions.
void RifaiTransito(Sessione& s, Messaggi& messaggi);

// The date and time of a chart for the box that shows it: civil date from Day, clock time from
// OraL, whole seconds. Nothing when it is not a valid date and time (a year out of 100..9999, a
// clock time outside the day).
struct Quando {
    int anno, mese, giorno, ore, minuti, secondi;
};
std::optional<Quando> QuandoDelTema(const Tema& tema);

// The previous (avanti false) or next chart of the archive ArchivioCorrente, from the row of
// `segna` or, before the first browse, from the row of TemaX's name. On success TemaX and PosX
// hold the chart read and cast, `segna` its row, and the result is true. An archive not set, the
// first or last row, and a failure of the database are told to the user; then nothing changes.
bool ScorriArchivio(Sessione& s, const std::string& fileDB, std::optional<Segnalibro>& segna,
                    bool avanti, Messaggi& messaggi);

} // namespace vesmo
