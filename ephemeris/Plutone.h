// Pluto: heliocentric longitude, latitude and radius vector straight from three trigonometric
// series in the mean longitudes of Jupiter, Saturn and Pluto, carried from the equinox of 1950.0
// to that of date. The result is reduced to the Earth by PianetaGeocentrico like any planet's.
#pragma once

#include "ephemeris/Pianeti.h"

namespace vesmo {

// Longitude in degrees (not normalised), latitude in radians, radius vector in AU.
void Plutone(double jd, PosEliocentrica& pos);

} // namespace vesmo
