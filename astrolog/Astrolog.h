// The bridge to the external program Astrolog: the command line that hands it a chart, the
// chart-info file it can load later, the zodiac and house lists of the entry form, and the start
// of the program with the shortened retry. Astrolog is optional: without it the bridge says so.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Tema.h"

namespace vesmo {

// The items of Combo1 (zodiac) and Combo2 (house system) of the entry form.
extern const std::array<const char*, 6> VociCombo1;
extern const std::array<const char*, 15> VociCombo2;
// Combo1's index of the user's own sidereal offset, typed into Text17.
inline constexpr int IndiceSideraleUtente = 5;

// What the form's bridge controls hold.
struct SceltaAstrolog {
    int Combo1 = 0;      // zodiac, index into VociCombo1
    std::string Text17;  // sidereal offset of the user ("2,5"), read with Combo1 at 5
    int Combo2 = 0;      // house system, index into VociCombo2
    bool ChkGEO = false; // ticked: heliocentric chart
};

// The click of Combo1: Text17 shows only for the user's sidereal offset, and the second panel of
// the status bar takes the matching text.
struct EffettoCombo1 {
    bool Text17Visibile = false;
    std::string Pannello2;
};
EffettoCombo1 Combo1_Click(int indice);

// The caption of ChkGEO: "GEO" when clear, "ELIO" when ticked.
std::string DidascaliaChkGEO(bool spuntato);

// The eleven pieces of the command line. Each ends with a blank, except Elio.
struct PezziComando {
    std::string SwZ, SwZ0, SwZl, SwZt, SwZd, SwZm, SwZy, SwZi, Sid, Casa, Elio;

    // The switches from "=X" on: the text of the status bar's second panel, and what follows
    // the program's path on the command line.
    std::string Opzioni() const;
};

// The pieces of the entry form's chart with the form's choices.
PezziComando ComponiPezzi(const Tema& tema, const SceltaAstrolog& scelta);

// The command line: CmdAstrolog (which ends in a blank), then the switches. `pezzi` receives the
// pieces when given.
std::string ComponiComando(const Tema& tema, const SceltaAstrolog& scelta,
                           const std::string& cmdAstrolog, PezziComando* pezzi = nullptr);

// The twin of the chart half: no zodiac, house or centre switch, and the clock time brought once
// into the day in the record itself (24 or more: -24 and the next day; below 0: +24 and the day
// before).
std::string ComponiComandoTema(Tema& tema, const std::string& cmdAstrolog,
                               PezziComando* pezzi = nullptr);

// The switches as the program receives them: split at blanks, a pair of double quotes holds a
// text with blanks together (the quotes themselves are not passed on).
std::vector<std::string> ArgomentiRiga(std::string_view opzioni);

// How a start ended. RigaTroppoLunga: the system refused the command line for its length.
enum class EsitoPartenza { Avviato, RigaTroppoLunga, Fallito };

// Starts `programma` with `argomenti` in the folder `cartella`, without waiting for it.
using Avviatore = std::function<EsitoPartenza(const std::string& programma,
                                              const std::vector<std::string>& argomenti,
                                              const std::string& cartella)>;

// Tells the user, when it is so, that no Astrolog program is set or that it is not where the
// settings say. True when there is a program to start.
bool ProgrammaAstrologPronto(const PercorsiVesmo& percorsi, Messaggi& messaggi);

// The click of Command1 (and of mnuFilAvvia), after LeggiTema has filled `tema`: builds the
// command line, puts its switches on the status panel `pannello2` and starts the program. When
// the system refuses the line for its length, Nome and City of `tema` are cut to their first
// letter and "." and the program is started once more. True when a start went out.
bool Avvia(Tema& tema, const SceltaAstrolog& scelta, const PercorsiVesmo& percorsi,
           Messaggi& messaggi, const Avviatore& avvia, std::string& pannello2);

// The start from the chart half, with TemaSalva: no form choices, no status bar.
bool AvviaAstrolog(Tema& temaSalva, const PercorsiVesmo& percorsi, Messaggi& messaggi,
                   const Avviatore& avvia);

// The texts of the entry form that the chart-info file reads.
struct TestiInfo {
    std::string Text3, Text4, Text5; // day, month, year
    std::string Text6, Text7;        // hour, minute
    std::string Text22, Text23;      // summer time, hours and minutes
};

// The first line of every chart-info file.
inline constexpr const char* PrimaRigaInfo = "@0102 ;Astrolog chart info.";

// The three lines of the chart-info file, without line ends. Nothing, after a message, when the
// summer time can't be written (minutes, or more than one hour) or the month is not 1 to 12.
std::optional<std::array<std::string, 3>> RigheInfo(const TestiInfo& testi,
                                                    const PezziComando& pezzi, Messaggi& messaggi);

// The click of Command6 (and of mnuFilSI), after LeggiTema has filled `tema`: builds the pieces
// (the status panel shows them), the lines, asks for the file with `scegliFile` (nothing: the user
// cancelled) and writes it, Latin-1, each line ended by CR LF. True when the file was written.
bool SalvaInfo(const Tema& tema, const TestiInfo& testi, const SceltaAstrolog& scelta,
               Messaggi& messaggi, const std::function<std::optional<std::string>()>& scegliFile,
               std::string& pannello2);

} // namespace vesmo
