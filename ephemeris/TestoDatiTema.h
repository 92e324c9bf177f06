// The four lines that describe a chart in the frames of the chart menu: date, time and summer
// time; longitude and latitude; local sidereal time and Julian day; time zone.
#pragma once

#include <string>

#include "core/Tema.h"

namespace vesmo {

void TestoDatiTema(const Tema& tema, std::string& testo1, std::string& testo2, std::string& testo3,
                   std::string& testo4);

} // namespace vesmo
