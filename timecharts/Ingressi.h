// The ingress search: when a planet or the mean lunar node stands at a given degree of the
// ecliptic. A secant iteration from a starting day; when it moves away, a survey of the
// longitude around the estimate, kept in a temporary table, gives a fresh bracket, or shows
// that the planet turns back before the target, and then the station is found by a dicotomic
// search. The form frmInSegni reads its controls, calls IngressiPinS and shows the result.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/Tema.h"
#include "timecharts/Istanti.h"

namespace vesmo {

inline constexpr const char* DidascaliaInSegni = "Lyx - Ingressi nei Segni";
inline constexpr const char* TitoloAiutoInSegni = "Lyx - Aiuto Ingressi nei Segni";
std::string TestoAiutoInSegni();

// The planets of the list, in its order; PianetaDellaLista gives the body number of list row p
// (the Earth skipped, the last row the node, 10), -1 when no row is selected.
extern const std::array<const char*, 9> VociPianetiIngresso;
int PianetaDellaLista(int riga);

// Mean period in days of body n (1..10, 3 the Earth gives 0).
double PeriodoMedio(int n);

// The temporary file of the survey, in the system's temporary folder: each run makes a file of
// its own, named with this prefix, a unique part and ".mdb", and removes it at its end.
inline constexpr const char* FileTemporaneoPinS = "Exp_PinS_Tmp";
std::filesystem::path CartellaTemporanea();

inline constexpr const char* Label7Stazione = "Attenzione, il movimento del Pianeta diventa  ";
inline constexpr const char* Label8Stazione = "Intorno al JD di partenza si può solo trovare un ";
inline constexpr const char* Label12Risultato = "Centro!  Calcolo posizione  >>";

// A station met before the target.
struct StazioneTrovata {
    std::string direzione; // "RETROGRADO" or "DIRETTO": the motion after the station
    std::string estremo;   // "MASSIMO" or "MINIMO": the extreme longitude reached
    std::string label7() const { return Label7Stazione + direzione; }
    std::string label8() const { return Label8Stazione + estremo; }
};

struct DatiIngresso {
    int pianeta = -1; // body number 1..10 (not 3), -1 none selected
    double bersaglio = 0;
    double partenza = 0; // JD Partenza
    // Where the temporary file goes; empty: the system's temporary folder.
    std::filesystem::path cartella;
    // Keeps the temporary file after the run (its path in EsitoIngresso::fileTemporaneo), for
    // whoever wants to look at the survey.
    bool conservaFile = false;
};

struct EsitoIngresso {
    bool trovato = false;
    double jd = 0;
    double longitudine = 0; // the planet's longitude at jd (0..360)
    std::optional<StazioneTrovata> stazione;
    // Set when the search ended without a result and without a box: the planet already
    // stood on the target at the start.
    bool giaSulBersaglio = false;
    // Set when the search could not run (its temporary file could not be made, the disk
    // failed): what stopped it. The box has told it.
    std::string errore;
    // The survey's file, when DatiIngresso::conservaFile kept it.
    std::filesystem::path fileTemporaneo;
};

// The longitude of body n at jd (planets as the chart computes them, 10 the mean node).
double LongitudineIngresso(double jd, int n);

// The search. On success TemaX takes the transit slot when TransitoCalcolato is set, else the
// natal chart, with the Day and OraL of the result and " Tra" at position 25 of its Nome; the
// form then shows Label12 and Command4. On a failure the box has been shown and the charts are
// as they were. `avanzamento` receives the progress boxes Text3..Text8.
EsitoIngresso IngressiPinS(Sessione& s, const DatiIngresso& dati, Messaggi& messaggi,
                           const Avanzamento& avanzamento = {});

} // namespace vesmo
