// The shared astronomical base of the ephemeris: mean elements of the Sun and the Moon, the
// obliquity of the ecliptic, nutation, sidereal time, Kepler's equation and the Sun's position.
// Polynomials in T, Julian centuries from 1900 January 0.5 (SecoliGiuliani). Every time argument
// is a Julian day on the chart's TU scale, taken as if it were uniform time: no Delta T anywhere.
#pragma once

namespace vesmo {

// Mean longitude L of the Sun, degrees, not normalised.
double LongMediaSole(double T);
// Mean anomaly M of the Sun, degrees, 0..360.
double AnomaliaSole(double T);
// Eccentricity of the Earth's orbit.
double EccTerra(double T);
// Mean longitude L' and mean anomaly M' of the Moon, degrees, 0..360.
double LongMediaLuna(double jd);
double AnomaliaLuna(double jd);
// Longitude of the Moon's mean ascending node, degrees, not normalised.
double NodoMedio(double jd);
// Mean obliquity of the ecliptic, degrees.
double Obliquita(double jd);
// Nutation in longitude and in obliquity, seconds of arc (13 and 9 terms).
void Nutazione(double jd, double& dPsi, double& dEps);

// Greenwich sidereal time in hours for the day `day` (Julian day of 0h) and `tu` hours after it;
// flag 0 mean, non-zero apparent. The range is left to the caller (negative before 1900).
double TempoSiderale(double day, double tu, int flag);
// TempoSiderale(day, a + b, flag) - lon (hours, west positive), brought into 0..24 by one step.
double TempoSideraleLocale(double a, double b, double day, int flag, double lon);

// Eccentric anomaly (radians) of Kepler's equation E = M + e sin E, by Newton's method.
double Keplero(double e, double m);
// True anomaly in degrees, 0..360, from the eccentric anomaly in radians.
double AnomaliaVera(double e, double E);

// The Sun: longitude in degrees (apparent with flag non-zero: aberration and the main term of
// nutation), radius vector in AU, right ascension in degrees, declination in radians.
void PosizioneSole(double jd, int flag, double& lon, double& r, double& ar, double& de);

} // namespace vesmo
