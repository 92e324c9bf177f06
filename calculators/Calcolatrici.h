// The arithmetic of the small calculators of the chart menu: Julian days and their sums, Delta T,
// the equation of time, ecliptic and equatorial coordinates, and the five notations of an angle.
// The forms only read and write their boxes; every rule stands here, on the boxes' texts.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/Tema.h"

namespace vesmo {

// A box whose text is not a number: the run-time error "Tipo non corrispondente" (13).
class ErroreTipo : public std::runtime_error {
public:
    explicit ErroreTipo(const std::string& testo);
};

// A box's number, read by the workstation's one number reader (the comma or the dot, a sign):
// blanks around it ignored, an empty box 0; a text with anything more is not a number.
std::optional<double> NumeroDiCasella(std::string_view testo);
// The same, raising ErroreTipo for a text that is not a number.
double NumeroOErrore(std::string_view testo);
// The leading number of a text, 0 when there is none ("12abc" 12, "abc" 0).
double ValoreIniziale(std::string_view testo);

// ---- Julian days (frmElaJD) ----

// The date frame "[Data di  (JD)]": the boxes as typed.
struct CorniceJD {
    std::string Giorno, Mese, Anno;   // Text1, Text2, Text3
    std::string Ore, Minuti, Secondi; // Text4, Text5, Text11
    int Estiva = 0;                   // List1's index
    std::string Fuso;                 // Text6, hours; 99 the place's local mean time
    bool Est = false;                 // List2: " EST " rather than " OVEST"
    std::string JD;                   // Text7
};

// The zone of the frame in hours, west positive: 99 stands for `lon` (hours west) of the
// working chart; " EST " makes it negative.
double FusoDellaCornice(const CorniceJD& c, double lon);
// `Command12`: the Julian day of the frame's date and clock time.
double JDDellaCornice(const CorniceJD& c, double lon);
// `Command13`: the date and clock time of the Julian day in Text7, for the frame's summer time
// and zone; a clock time outside 0..24 moves to the neighbouring day. Seconds as "#0.0".
void CorniceDaJD(CorniceJD& c, double lon);
// A chart loaded into the frame: date, time, summer time, zone (99 when it has a fraction, a
// local mean time), the side of the zone, and the chart instant in Text7.
CorniceJD CorniceDelTema(const Tema& t);
// `Command15`: the chart "Nuovo JD" of the frame, at the working chart's place.
Tema NuovoDallaCornice(const CorniceJD& c, const Tema& temaX);
// The chart `base` moved to the instant `jd`, keeping its summer time and zone.
Tema TemaAlJD(const Tema& base, double jd);
// The sum of the frame "Somme Algebriche": Text7 plus or minus Text9 by the sign in Text8; no
// result for another sign.
std::optional<double> SommaJD(std::string_view jd, std::string_view segno,
                              std::string_view operando);

// ---- Delta T (frmTE_TU_Lyx) ----

// "DeltaT = ...s  = ...m  = ...h" for m minutes.
std::string TestoDeltaT(double minuti);
// The help and the three-column table the form shows when it opens.
std::string AiutoDeltaT();

// ---- Equation of time (frmEqT_Lyx) ----

// Apparent minus mean solar time, radians, at the Julian day jd.
double EquazioneDelTempo(double jd);
// "EqT = " the value " radianti".
std::string TestoEqT(double eqt);

// ---- Ecliptic and equatorial coordinates (frmEclEqu_Lyx) ----

struct Equatoriali {
    double AR_h = 0, AR_m = 0, AR_s = 0; // right ascension, hours minutes seconds
    double Dec_Gradi = 0, Dec_Primi = 0; // declination, degrees and minutes
};
// The signs of the calculator's list, in full, from "Ariete" (0) to "Pesci" (11).
extern const std::array<const char*, 12> SegniCalcolatrice;
struct Eclittiche {
    int Segno = 0; // 0 Ariete to 11 Pesci
    double Lon_Gradi = 0, Lon_Primi = 0, Lon_Sec = 0;
    double Lat_Gradi = 0, Lat_Primi = 0;
};
// The Julian day of the frame "Data per il Calcolo" (hours and minutes of the clock).
double JDDelCalcolo(double giorno, double mese, double anno, double ore, double minuti);
// `cmdCal_Equ` and `cmdCal_Ecl`, with the mean obliquity of the day.
Equatoriali EclitticheAEquatoriali(double jd, const Eclittiche& ecl);
Eclittiche EquatorialiAEclittiche(double jd, const Equatoriali& equ);

// ---- Number formats (frmFormatiNum) ----

// The nine boxes: Text1-Text3 degrees minutes seconds, Text4-Text6 hours minutes seconds, Text7
// decimal degrees, Text8 decimal hours, Text9 radians (indices 0 to 8 here).
struct FormatiNumerici {
    std::array<std::string, 9> Testo;
    std::array<std::int16_t, 9> Cambiato{};
    bool Riscrivi = false;

    // A change of box `i` (0 to 8): only the last box typed counts.
    void Cambia(int i);
    // The box typed in, written by the user (the change is recorded as the form's would be).
    void Scrivi(int i, std::string testo);
    // `CommandOK`: every box outside the group typed in written from it.
    void CommandOK();
};

} // namespace vesmo
