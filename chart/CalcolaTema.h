// Casting a chart: from a Tema whose houses are computed, every body and point of Posizioni.
#pragma once

#include <cstdint>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/Tema.h"

namespace vesmo {

// selettore: 0 everything; 1..9 the Sun and that planet; 10 the Sun and the lunar node.
// lunaGeo: 1 geocentric Moon, 0 topocentric, anything else leaves the Moon as it was.
// conLilithVera false skips the true apogee search (its fields stay as they were).
void CalcolaTema(const Tema& tema, const Case& cuspidi, Posizioni& pos, std::int16_t lunaGeo,
                 std::int16_t selettore, Messaggi& messaggi, bool conLilithVera = true);

// The whole casting, houses then bodies, as every caller does it.
void CastaTema(const Tema& tema, Case& cuspidi, Posizioni& pos, std::int16_t lunaGeo,
               Messaggi& messaggi, bool conLilithVera = true);

} // namespace vesmo
