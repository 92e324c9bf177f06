// The ascensional wheels: the zodiac with the chart's cusps and bodies inside, and around it a
// circle on which the same cusps and bodies stand at their right ascensions (mode 1) or oblique
// ascensions (mode 2), 15 degrees an hour. The single form shows one chart; the double form
// adds the outer chart's ascensional cusps and bodies outside that circle, turned by the solar
// arc.
#pragma once

#include <array>
#include <optional>

#include "presentation/Ruota.h"

namespace vesmo {

// The ascension of a point in degrees (15 times AR in mode 1, 15 times AOb in mode 2); nothing
// when that field holds a text such as "NonDefinita": such a point has no ascensional place.
std::optional<double> Ascensione(const Posizione& p, int modoAscens);

struct GeometriaAscensionale {
    double CentroX = 7500, CentroY = 3900;
    double RaggioZodiaco = 1800;     // inner circle of the sign ring
    double RaggioZodiacoFine = 2200; // outer circle of the sign ring
    double RaggioAscensioni = 3250;  // the circle of the ascensions
    double Passo = 300;              // glyph size and distance between rings
};

struct OpzioniAscensionale {
    int ModoAscens = 1;      // 1 right ascensions, 2 oblique ascensions
    double AngoloRuota = 0;  // degrees added to every longitude
    double AngoloAscens = 0; // degrees added to every ascension
    bool DisegnaAspetti = false;
    TabellaAspetti Aspetti = OpzioniRuota::TabellaAspettiDiLyx(); // ArcoSolare turns the outer
    std::int32_t LunaNeraVera = 1;
};

// What a drawing placed: the zodiacal points, the ascensional points of the inner chart and
// (double wheel) of the outer chart; an ascensional entry whose field holds a text is not placed.
struct RuotaAscensionaleDisegnata {
    PuntiDellaRuota zodiacali, ascensionali, esterni;
    std::array<bool, 15> posti{}, postiEsterni{};
};

RuotaAscensionaleDisegnata DisegnaRuotaAscensionale(Superficie& sup, const Tema& tema,
                                                    const Posizioni& pos,
                                                    const OpzioniAscensionale& opzioni);
RuotaAscensionaleDisegnata DisegnaDoppiaAscensionale(Superficie& sup, const Tema& temaInterno,
                                                     const Posizioni& posInterno,
                                                     const Tema& temaEsterno,
                                                     const Posizioni& posEsterno,
                                                     const OpzioniAscensionale& opzioni);

// The square of the surface the single (doppia false) or double ascensional wheel fills.
Rettangolo AreaAscensionale(bool doppia);

} // namespace vesmo
