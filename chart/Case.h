// Placidus houses by semi-arcs, cusp by cusp, with the Ascendant checked against the direct
// formula; the house of a longitude; oblique ascensions.
#pragma once

#include <stdexcept>

#include "core/Messaggi.h"
#include "core/Tema.h"

namespace vesmo {

// The house iteration that never converged: the message has been shown, and the caller ends
// what it was doing (the workstation reports it and stops the calculation).
class ErroreLoopCase : public std::runtime_error {
public:
    ErroreLoopCase() : std::runtime_error("Loop in Calcolo Case.") {}
};

// A declination argument meaning "a point of the ecliptic, no declination given".
inline constexpr double DeclinazioneEclittica = 6.4;

// Fills the twelve cusps, the six of Posizioni and CaseNonDefinite. `flag` goes to the sidereal
// time (callers pass 1). Messages go through `messaggi`; a loop without end throws
// ErroreLoopCase after its message.
void CalcoloCase(const Tema& tema, Case& cuspidi, Posizioni& pos, int flag, Messaggi& messaggi);

// Right ascension of cusp 1, 2, 3, 11 or 12 in degrees (not normalised); 0 when undefined.
double CuspidePlacido(double ramc, double phi, double e, int casa, Messaggi& messaggi);

// Ascendant longitude (degrees) and the angle between ecliptic and horizon (radians).
void LonAsce(double e, double phi, double ramc, double& lon, double& angolo);

void EquatoreEclittica(double a, double d, double& lon, double& lat, double e);

void CaseOpposte(Case& cuspidi, double e, double phi);

// House of a longitude: 1..12, 13 when no house takes it.
std::int16_t CasaDi(double lon, const Case& cuspidi);

// Oblique ascension in hours (not reduced), or "Indefinita".
void AscensioneObliqua(Variante& aob, const Variante& ar, double de, double phi);

} // namespace vesmo
