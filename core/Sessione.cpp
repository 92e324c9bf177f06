#include "core/Sessione.h"

namespace vesmo {

Tema& Sessione::TemaDelSlot(int slot) {
    switch (slot) {
    case 1:
        return TemaTra;
    case 2:
        return TemaRiv;
    case 3:
        return TemaDir;
    default:
        return TemaNat;
    }
}

Posizioni& Sessione::PosDelSlot(int slot) {
    switch (slot) {
    case 1:
        return PosTra;
    case 2:
        return PosRiv;
    case 3:
        return PosDir;
    default:
        return PosNat;
    }
}

std::int16_t& Sessione::FlagDelSlot(int slot) {
    switch (slot) {
    case 2:
        return RivoluzioneCalcolata;
    case 3:
        return DirezioneCalcolata;
    default:
        return TransitoCalcolato;
    }
}

} // namespace vesmo
