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

// The points of the body order, as bits of CalcolaPunti's `punti`: 0 the Sun, 1 the Moon, 2 to 9
// Mercury to Pluto, 10 the lunar node, 11 and 12 the mean and the true Black Moon.
enum PuntoTema : int {
    PuntoSole = 0,
    PuntoLuna = 1,
    PuntoNodoLuna = 10,
    PuntoLilithMedia = 11,
    PuntoLilithVera = 12,
};

// Only the points asked, with the same numbers CalcolaTema gives them. `cuspidi` null: the houses
// of the points are not looked up. Without `conMoto` the planets' Mv is not computed (the node's
// always is). The true Black Moon brings the Moon and the mean one with it.
void CalcolaPunti(const Tema& tema, const Case* cuspidi, Posizioni& pos, std::int16_t lunaGeo,
                  std::uint32_t punti, bool conMoto, Messaggi& messaggi);

// The whole casting, houses then bodies, as every caller does it.
void CastaTema(const Tema& tema, Case& cuspidi, Posizioni& pos, std::int16_t lunaGeo,
               Messaggi& messaggi, bool conLilithVera = true);

} // namespace vesmo
