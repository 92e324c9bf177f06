// The Moon's geocentric longitude, latitude and parallax from the abridged lunar theory (50
// terms in longitude, 45 in latitude, 30 and a constant in parallax), and the correction of a
// geocentric position to the observer's place. The longitude is referred to the mean equinox of
// date: no nutation is added to it.
#pragma once

namespace vesmo {

// Longitude in degrees (0..360), latitude in radians, equatorial horizontal parallax in degrees.
void PosizioneLuna(double jd, double& lon, double& lat, double& parallasse);
// The parallax alone, degrees.
double ParallasseLuna(double jd);

// A geocentric position (longitude in degrees, latitude in radians, distance in AU) seen from
// the place Lon (hours, west positive), Lat (degrees) at the chart's day and TU. `parallasse` is
// the Moon's parallax in degrees, 8.794 for the Sun, or 0 to derive it from the distance.
void LunaTopocentrica(double day, double tu, double lon, double lat, double lonCorpo,
                      double latCorpo, double distanza, double parallasse, double& lonTopo,
                      double& latTopo);

} // namespace vesmo
