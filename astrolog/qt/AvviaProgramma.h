// Starting Astrolog on the screen: the detached start of a program, and the save dialog of the
// chart-info file.
#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "astrolog/Astrolog.h"

namespace vesmo {

// Starts `programma` with `argomenti` in `cartella` (the current folder when it is empty or not
// a folder), without waiting and without keeping a link to it. RigaTroppoLunga when the
// arguments pass the system's limits for a command line; Fallito when the program can't start.
EsitoPartenza AvviaDistaccato(const std::string& programma,
                              const std::vector<std::string>& argomenti,
                              const std::string& cartella);

// The save dialog of the chart-info file; nothing when cancelled. Afterwards the current folder
// goes back to `dirAstrolog` when it is a folder.
std::optional<std::string> ScegliFileInfo(QWidget* genitore, const std::string& dirAstrolog);

// The clicks of the entry form with the screen's facilities: Command1 starts Astrolog detached,
// Command6 asks for the file with the save dialog. Both after LeggiTema has filled `tema`.
bool Command1_Avvia(Tema& tema, const SceltaAstrolog& scelta, const PercorsiVesmo& percorsi,
                    Messaggi& messaggi, std::string& pannello2);
bool Command6_SalvaInfo(const Tema& tema, const TestiInfo& testi, const SceltaAstrolog& scelta,
                        const PercorsiVesmo& percorsi, Messaggi& messaggi, std::string& pannello2,
                        QWidget* genitore);
// The start of the chart half, with TemaSalva.
bool AvviaAstrologSchermo(Tema& temaSalva, const PercorsiVesmo& percorsi, Messaggi& messaggi);

} // namespace vesmo
