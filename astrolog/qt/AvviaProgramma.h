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

} // namespace vesmo
