// The session's global records and flags. One object, owned by the application and handed to
// the forms by reference; nothing of it is written to disk.
#pragma once

#include <cstdint>
#include <string>

#include "core/StatoRuote.h"
#include "core/TabellaAspetti.h"
#include "core/Tema.h"

namespace vesmo {

struct Sessione {
    // Chart slots and working pairs.
    Tema TemaNat, TemaTra, TemaRiv, TemaDir, TemaX, TemaY, TemaZ, TemaBase, TemaVuoto;
    Posizioni PosNat, PosTra, PosRiv, PosDir, PosX, PosY, PosZ, PosDomi, PosVuoto;
    Tema TemaSalva;
    Tema TemaCorrente;

    // Flags that steer the calculation (16-bit flags hold -1 for true).
    std::int16_t LunaGeo = 1;      // 1 geocentric Moon, 0 topocentric
    std::int32_t LunaNeraVera = 1; // 0 mean Lilith shown, 1 true Lilith shown

    // Revolutions: Julian days of the return found, -1 for none.
    double JDRivoluzione = -1.0;
    double JDPrimoRitorno = -1.0;

    // Flags of the chart half.
    std::int16_t DatiOk = 0;
    std::int16_t MenuPronto = 0;
    std::int16_t TransitoCalcolato = 0;
    std::int16_t RivoluzioneCalcolata = 0;
    std::int16_t DirezioneCalcolata = 0;
    std::int16_t SalvatoOk = 0;
    std::int32_t ArchivioIndice = 0;
    std::string ArchivioCorrente;
    // The folder of the automatic copies of the archives made before a deletion; none when
    // empty (the application sets it to the user's data folder).
    std::string CartellaCopie;

    // The aspect choice, the orb and the solar arc: one table for the whole run.
    TabellaAspetti Aspetti;
    // The wheels' drawing switches: one copy for the single and the double wheel.
    StatoRuote Ruote;

    // The four chart slots by number: 0 natal, 1 transit, 2 revolution, 3 direction (any
    // other number is the natal slot).
    Tema& TemaDelSlot(int slot);
    Posizioni& PosDelSlot(int slot);
    // The "calculated" flag of slots 1..3 (any other number is the transit's).
    std::int16_t& FlagDelSlot(int slot);

    // Captions of the two Moon flags.
    std::string DidascaliaLunaGeo() const {
        return LunaGeo == 1 ? "Luna GeoCentrica" : "Luna TopoCentrica";
    }
    std::string DidascaliaLunaNera() const {
        return LunaNeraVera == 0 ? "Luna Nera Media" : "Luna  Nera  Vera";
    }
};

} // namespace vesmo
