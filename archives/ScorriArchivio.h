// The previous or next chart of the current archive, as the positions window browses it. Plain
// logic over the session's records; the window shows the result.
#pragma once

#include <optional>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/store/Cursore.h"

namespace vesmo {

// The previous (avanti false) or next chart of the archive ArchivioCorrente, from the row of
// `segna` or, before the first browse, from the row of TemaX's name. On success TemaX and PosX
// hold the chart read and cast, `segna` its row, and the result is true. An archive not set, the
// first or last row, and a failure of the database are told to the user; then nothing changes.
bool ScorriArchivio(Sessione& s, const std::string& fileDB, std::optional<Segnalibro>& segna,
                    bool avanti, Messaggi& messaggi);

} // namespace vesmo
