// The Black Moon: LilithMedia, the mean lunar apogee by a linear formula, and LilithVera, the
// true apogee, found by searching the Moon's distance for the apogees around the instant and
// interpolating between the last one and this one.
#pragma once

#include "core/Messaggi.h"

namespace vesmo {

// Mean apogee, degrees 0..360.
double LilithMedia(double jd);

// The Moon's distance in km from its parallax: 6378.14 / sin(ParallasseLuna(t)).
double DistanzaLuna(double t);

// The apogee nearest a starting day t (within two days of it): the day of greatest distance.
double CercaApogeo(double t);

// True apogee at jd, from the mean apogee and the Moon's longitude (degrees), which give the
// first guess. Out: longitude in degrees, latitude in radians. When the apogees cannot be found
// around jd, a message box tells it and the out-arguments stay as they came in.
void LilithVera(double jd, double lilithMedia, double lunaLo, double& lon, double& lat,
                Messaggi& messaggi);

// The same with another apogee search in place of CercaApogeo (the tests drive the retries
// with it).
void LilithVera(double jd, double lilithMedia, double lunaLo, double& lon, double& lat,
                Messaggi& messaggi, double (*cercaApogeo)(double));

} // namespace vesmo
