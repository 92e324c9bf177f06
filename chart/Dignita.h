// How a chart's bodies spread over modalities, elements and the dignities of their signs; day or
// night birth; the rulers of the Ascendant.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/Tema.h"

namespace vesmo {

struct Domicili {
    // CARDINALI, FISSI, MOBILI: the text of each box ("  Sole  Luna...") and its count.
    std::array<std::string, 3> Modalita;
    std::array<int, 3> ContiModalita{};
    // FUOCO, TERRA, ARIA, ACQUA.
    std::array<std::string, 4> Elementi;
    std::array<int, 4> ContiElementi{};
    // DOMICILIO, ESILIO, ESALTAZIONE, CADUTA.
    std::array<std::string, 4> Dignita;
    std::array<int, 4> ContiDignita{};
    // " Diurna", " Notturna" or " sull'Asse AscDisc".
    std::string Nascita;
    // The rulers of the Ascendant by day and by night, as letters of the symbol font ("" none).
    std::string ReggenteDiurno, ReggenteNotturno;
};

extern const std::array<const char*, 3> NomiModalita;
extern const std::array<const char*, 4> NomiElementi;
extern const std::array<const char*, 4> NomiDignita;

Domicili CalcolaDomicili(const Posizioni& pos);

// The dignities of one body (0 Sole ... 9 Plutone) in a sign given by its short name: the kind
// (0 domicile, 1 exile, 2 exaltation, 3 fall) and the qualifier ("", "(Diurno)", "(Notturno)",
// "(Diurno + Esaltazione)", "(Diurno + Caduta)"), in table order.
struct DignitaTrovata {
    int tipo;
    std::string qualifica;
};
std::vector<DignitaTrovata> DignitaDelCorpo(int corpo, const std::string& segno);

// The fixed table of dignities, ten rows (Sole to Plutone) of four cells, in the letters of the
// symbol font; and the body letters.
extern const std::array<std::array<const char*, 4>, 10> TabellaDignita;
extern const std::array<const char*, 10> LettereCorpi;
extern const char* const TestataTabellaDignita;

} // namespace vesmo
