// Revolutions: the instant when the Sun or the Moon comes back to a point of the zodiac
// (solar, lunar tropical), or when Moon and Sun form a given angle (lunar synodic). The form
// frmCheRivoluzione reads its controls, calls these routines and shows what they return.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/Tema.h"
#include "timecharts/Istanti.h"

namespace vesmo {

enum class TipoRivoluzione { Solare, LunareTropica, LunareSinodica };

// Mean daily motions used for the first guesses, degrees a day.
inline constexpr double MotoMedioLuna = 13.17635;
inline constexpr double MotoMedioSinodico = 12.19;
inline constexpr double MeseSiderale = 27.3215821;

// The list "Ritorno Su:" (List1): 24 rows; the last takes any degree typed in Text1.
extern const std::array<const char*, 24> RigheRitorno;
inline constexpr int RigaGradoQualsiasi = 23;

// The degree of a row of List1 from the natal positions; row 23 reads `testoGrado` (the comma
// is the decimal separator), and a text that is not a number gives 0.
double GradoRitorno(int riga, const Posizioni& posNat, const std::string& testoGrado = {});

// The target angle Moon -> Sun of the synodic kind: the natal one when `natale`, else the
// number in `testoAngolo` (comma separator, not a number gives 0), both brought into 0..360.
double AngoloSinodico(bool natale, const Posizioni& posNat, const std::string& testoAngolo = {});

// The arc from the Moon forward to the Sun at jd, Norma360(Sun - Moon). `tema` gives the place
// for the topocentric Moon (its Day is moved to jd's date); lunaGeo 1 geocentric, 0 topocentric.
double AngoloLunaSole(double jd, Tema& tema, std::int16_t lunaGeo);
// The Moon's longitude at jd, geocentric or topocentric as above.
double LongitudineLuna(double jd, Tema& tema, std::int16_t lunaGeo);
// The Sun's apparent longitude at jd.
double LongitudineSole(double jd);

// Texts of the form, by kind.
struct TestiRivoluzione {
    std::string didascalia;                     // caption of frmCheRivoluzione
    std::string tagCommand2;                    // "", "LunTropica", "LunSinodica"
    std::string label6;                         // "" for the solar kind (hidden)
    std::string label4;                         // the tropical kind's explanation, "" otherwise
    std::string tagInput;                       // mode of the input form: "daRivSol", "daRivLun"
    std::string frame2Input;                    // caption of Frame2 of the input form
    std::vector<std::string> disabilitatiInput; // boxes of the input form disabled and grey
    std::string titoloAiuto, testoAiuto;        // help form of Command3
    int rigaIniziale = 0;                       // row of List1 selected when the form opens
};
TestiRivoluzione TestiDellaRivoluzione(TipoRivoluzione tipo);

inline constexpr const char* CaptionLabel7Riv = "Ritorno Su:";
inline constexpr const char* CaptionLabel3Riv = "Inserire il grado:";
inline constexpr const char* TipText1Riv = "Separatore decimale:  virgola";
inline constexpr const char* CaptionCheck1Sin = "  Angolo di Nascita";
inline constexpr const char* CaptionLabelAngoloSin = "Angolo   qualsiasi";
inline constexpr const char* CaptionFrame2Sin = "Angolo Luna  --> Sole ";
inline constexpr const char* Label5Trovato = "ok! Trovato  JD. Calcolo  della  posizione";
inline constexpr const char* Label5DueRitorni =
    "Sono state trovate in questo mese 2 rivoluzioni Lunari Tropiche. Scegliere tra:";
inline constexpr const char* TagDueRitorni = "2RivTropiche";

// Caption of the input form: the row's text or the typed degree for the solar and tropical
// kinds; the Moon and the angle (or " Natale") for the synodic kind.
std::string DidascaliaInputRivoluzione(TipoRivoluzione tipo, int riga, double grado,
                                       std::int16_t lunaGeo, bool angoloNatale, double angolo);

// TemaX before the input form: the natal chart with its name mark, and for the lunar kinds its
// Day moved to the first of the natal month.
Tema PreparaTemaRivoluzione(const Tema& temaNat, TipoRivoluzione tipo, std::int16_t lunaGeo);

// What the input form gave: the year, month and day to start from (fractions allowed: 1998,5
// is the middle of 1998). The place, Fuso and Estiva are in TemaX.
struct DatiRivoluzione {
    TipoRivoluzione tipo = TipoRivoluzione::Solare;
    double bersaglio = 0; // GradoRitorno, or the angle Moon -> Sun of the synodic kind
    float AnnoRiv = 0, MeseRiv = 1, GiornoRiv = 1;
};

// The result of a search.
struct EsitoRivoluzione {
    bool trovato = false;
    double jd = -1.0;        // JDRivoluzione
    double jdPrimo = -1.0;   // JDPrimoRitorno, two returns only
    bool dueRitorni = false; // a lunar month with two tropical returns
    float AnnoRiv = 0;       // the solar kind gives back the year of the return
    std::string label5, tagLabel5, command4, command5; // command5 empty with one return
};

// The bare iterations: the instant of the return, nullopt when a loop gave up (its box shown).
// `tema` gives the place of a topocentric Moon and serves as scratch for its Day.
std::optional<double> IstanteSolare(double grado, double annoRiv, Messaggi& messaggi);
std::optional<double> IstanteLunareTropico(double grado, double jdPartenza, Tema& tema,
                                           std::int16_t lunaGeo, Messaggi& messaggi,
                                           const Avanzamento& avanzamento = {});
std::optional<double> IstanteSinodico(double angolo, double jdPartenza, Tema& tema,
                                      std::int16_t lunaGeo, Messaggi& messaggi,
                                      const Avanzamento& avanzamento = {});

// The whole search on the session: TemaX (already through the input form) gets the Day and
// OraL of the return, JDRivoluzione its instant, and with two returns in the month TemaBase and
// JDPrimoRitorno the earlier one. DatiOk becomes false. On a failure nothing but DatiOk and
// the Day of a topocentric scratch changes, and `trovato` is false.
EsitoRivoluzione CercaRivoluzione(Sessione& s, const DatiRivoluzione& dati, Messaggi& messaggi,
                                  const Avanzamento& avanzamento = {});

// Command4 (primo true) or Command5 accepts the result: with two returns Command4 takes the
// earlier one back from TemaBase. DatiOk becomes true.
void AccettaRivoluzione(Sessione& s, const EsitoRivoluzione& esito, bool primo);

} // namespace vesmo
