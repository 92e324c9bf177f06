// Calendar and angle arithmetic: Julian days, sexagesimal triples, normalised angles, guarded
// inverse trigonometry, ecliptic to equatorial, and the small coordinate texts. The calendar
// formulas follow Meeus, Astronomical Formulae for Calculators; the order of operations of each
// routine is part of its result and is kept as written.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vesmo {

inline constexpr double PI = 3.141592653589793;

// Raised by ArcoCoseno for an argument outside -1..1; the house calculation clears it before
// it starts and reads it at the end.
extern thread_local std::int16_t PlacidoNonDefinito;

// An arithmetic fault that the platform would report as a run-time error ("Overflow").
class ErroreAritmetico : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Truncation towards zero (Fix) and the floor (Int).
double Fix(double x);
double Int(double x);
// -1, 0 or 1.
int Segno(double x);

double GiornoGiuliano(double anno, double mese, double giorno);
void DataDaGiuliano(double jd, float& anno, float& mese, float& giorno);
double SecoliGiuliani(double jd);

double Radianti(double gradi);
double Gradi(double radianti);

// flag 0: the angle is in radians; non-zero: in degrees. The result is in degrees, 0 <= r < 360
// (a tiny negative angle may round to 360.0 and is left so). Beyond 2^31 whole degrees the
// 32-bit remainder overflows: ErroreAritmetico.
double Norma360(double angolo, int flag);

double GradiDecimali(double gradi, double primi, double secondi);
void GradiPrimiSecondi(double x, double& gradi, double& primi, double& secondi);
void RadGradiPrimiSecondi(double x, double& gradi, double& primi, double& secondi);
double GPSaRadianti(double gradi, double primi, double secondi);
void ArrotondaGPS(double& gradi, double& primi, double& secondi);

// The sign names, index 0 to 11.
extern const char* const NomiSegni[12];

void SegnoGradi(double lon, std::string& segno, double& gradi, double& primi, double& secondi,
                double& decimali, int arrotonda);

double ArcoSeno(double x);
double ArcoCoseno(double x);
double QuadranteAtn(int segnoNumeratore, int segnoDenominatore, double arcotangente);
void EclitticaEquatore(double l, double b, double e, double& ar, double& de);
double DistanzaAngolare(double l1, double b1, double l2, double b2);

// kind 1: value in hours (shown as degrees); axis 0 longitude (E/W), 1 latitude (S/N).
std::string TestoCoordinata(double valore, int tipoOre, int asse, bool conSecondi);
std::string TestoCoordSF(double lonOre, double latGradi);
double LonDaTesto(std::string_view testo, int correzione);
double LatDaTesto(std::string_view testo, int correzione);

double PolareX(double cx, double r, double a);
double PolareY(double cy, double r, double a);
double MedioArco(double a, double b, int k);

} // namespace vesmo
