// The four lines that describe a chart in the frames of the chart menu: date, time and summer
// time; longitude and latitude; local sidereal time and Julian day; time zone.
#pragma once

#include <string>

#include "core/Tema.h"

namespace vesmo {

void TestoDatiTema(const Tema& tema, std::string& testo1, std::string& testo2, std::string& testo3,
                   std::string& testo4);

// The same data as eight separate texts, with the same rounding and letters: date, clock time,
// summer time, longitude, latitude, local sidereal time, Julian day and time zone.
struct PartiDatiTema {
    std::string Data, Ora, Estiva, Longitudine, Latitudine, TSL, JD, Fuso;
};
PartiDatiTema CalcolaPartiDatiTema(const Tema& tema);

} // namespace vesmo
