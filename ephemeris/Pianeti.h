// Mercury to Neptune: mean elements as polynomials in T, the perturbations of the elements of
// Jupiter to Neptune and the direct perturbations of the positions of Mars, Saturn, Uranus and
// Neptune, Kepler's equation, and the reduction to the Earth through the Sun's position. No light
// time: each planet is taken at the instant itself.
#pragma once

namespace vesmo {

struct Elementi {
    double L = 0; // mean longitude, degrees
    double a = 0; // semi-major axis, AU
    double e = 0; // eccentricity
    double i = 0; // inclination, degrees
    double w = 0; // argument of perihelion, degrees
    double O = 0; // longitude of the ascending node, degrees
};

// Longitude in degrees, latitude in radians, distance in AU.
struct PosEliocentrica {
    double lon = 0, lat = 0, dist = 0;
};
using PosGeocentrica = PosEliocentrica;

// Elements of planet n (1 Mercury .. 8 Neptune; 3, the Earth, gives zeros) and its mean anomaly
// in degrees. Flag 0: unperturbed; non-zero: with the corrections of Venus, Mars and the giants.
void ElementiPianeta(double jd, int n, int flag, Elementi& el, double& anomalia);
// Arguments of the giant planets: v, and the mean longitudes P, Q, S, N of Jupiter, Saturn,
// Uranus and Neptune in degrees.
void ArgomentiGiganti(double T, double& v, double& P, double& Q, double& S, double& N);
// Adds the direct perturbations of Mars, Saturn, Uranus or Neptune to dl (degrees), db (radians)
// and dr (AU).
void PerturbazioniPianeta(double jd, int n, double& dl, double& db, double& dr);
void PianetaEliocentrico(double jd, int n, int flag, const Elementi& el, double anomalia,
                         PosEliocentrica& pos);
// Geocentric position through the Sun of PosizioneSole(jd, flag); elongation in radians.
void PianetaGeocentrico(double jd, int n, int flag, const PosEliocentrica& elio,
                        PosGeocentrica& geo, double& elongazione);

} // namespace vesmo
