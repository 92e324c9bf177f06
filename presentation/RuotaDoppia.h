// The double wheel: an inner chart inside the sign ring and an outer chart around it, in navy,
// with the aspect lines inside each chart and between the two; and the double zodiac, where
// the outer chart turns on a second sign ring of its own so that one house of both charts
// falls on the same spot.
#pragma once

#include <array>
#include <cstdint>

#include "core/Tema.h"
#include "presentation/Ruota.h"

namespace vesmo {

// The sign symbols printed on the double wheels, 0 Ariete to 11 Pesci (UTF-8).
extern const std::array<const char*, 12> SimboliSegni;

// Rows of the Comparati lists: 0 "TUTTI", then the 14 points.
extern const std::array<const char*, 15> RigheComparati;
using SelezioneComparati = std::array<bool, 15>;
inline SelezioneComparati SoloTutti() {
    return {true};
}
// A left button release on a list: with "TUTTI" selected no other row stays selected.
void RilascioComparati(SelezioneComparati& lista);

struct OpzioniDoppia {
    double AngoloRuota = 0;
    bool CaseEsterne = true;     // the outer chart's cusps are drawn
    bool Transito = false;       // a transit wheel
    bool MappaVisibile = false;  // the map of zones beside the wheel moves it right and shrinks it
    bool DisegnaAspetti = false; // between inner points
    bool DisegnaAspettiEst = false; // between outer points
    bool DisegnaAspettiCmp = false; // from inner to outer points
    TabellaAspetti Aspetti = OpzioniRuota::TabellaAspettiDiLyx();
    std::int32_t LunaNeraVera = 1;
    SelezioneComparati List1 = SoloTutti();
    SelezioneComparati List2 = SoloTutti();
};

struct GeometriaDoppia {
    double CentroX, CentroY, R2, R1;
};
GeometriaDoppia GeometriaDellaDoppia(bool mappaVisibile);
GeometriaDoppia GeometriaDelDoppioZodiaco();
// Radii of the outer sign ring of the double zodiac.
inline constexpr double RaggioZodiacoEsterno = 3600;
inline constexpr double RaggioZodiacoEsternoFine = 4100;

// What a drawing leaves to its form: the points as placed and the rotations used.
struct RuotaDoppiaDisegnata {
    PuntiDellaRuota interni, esterni;
    double AngoloRuota = 0, AngoloEsterno = 0;
};

RuotaDoppiaDisegnata DisegnaDoppia(Superficie& sup, const Tema& temaInterno,
                                   const Posizioni& posInterno, const Tema& temaEsterno,
                                   const Posizioni& posEsterno, const OpzioniDoppia& opzioni);

// casa 1 to 12: the inner chart turns its Ascendant to the left, the outer its cusp `casa` onto
// the inner cusp `casa`. The rotations drawn are returned.
RuotaDoppiaDisegnata DisegnaDoppioZodiaco(Superficie& sup, const Tema& temaInterno,
                                          const Posizioni& posInterno, const Tema& temaEsterno,
                                          const Posizioni& posEsterno, const OpzioniDoppia& opzioni,
                                          int casa);

// The sign ring of a double wheel between r2 and r1, with its symbols at r2 + 200; and the inner
// chart's cusps from radius 500, the four angles out to r1 + 400. The ascensional wheels draw
// their zodiac with them.
void AnelloDeiSegni(Superficie& sup, const Riferimento& P, double r2, double r1);
void CuspidiInterne(Superficie& sup, const Riferimento& P, const Case& cuspidi, double r2,
                    double r1);

Rettangolo AreaDoppia(bool mappaVisibile);
Rettangolo AreaDoppioZodiaco();

} // namespace vesmo
