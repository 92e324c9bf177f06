// Secondary directions: the natal chart cast one day after birth for each year of life. The
// form frmDirezioni gives the years or a date; mnuDirFra turns the time since the last birthday
// into one turn of the clock, so that the houses go round once a year.
#pragma once

#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/Tema.h"

namespace vesmo {

inline constexpr const char* DidascaliaDirezioni = "Lyx - Direzioni secondarie";
inline constexpr const char* CaptionOption1Dir = " Anni ";
inline constexpr const char* CaptionOption2Dir = " Data ";
inline constexpr const char* CaptionCheck1Dir = "Frazione annua di progressione";
inline constexpr const char* CaptionCalcolaDir = "&Calcola";
inline constexpr const char* CaptionInputDir = "&Input dati >>";
// Caption of the input form opened for a date: this text followed by the natal Nome.
inline constexpr const char* DidascaliaInputDirezione =
    "Lyx - Input Data Direzione Secondaria di  ";

// The summer time taken into the clock time: OraL - Estiva with Estiva 0, one day back when
// the hour falls below 0. The instant stays the same.
void TogliEstiva(Tema& tema);

// " Anni ": the natal chart `api` days later, marked " P. " and the years.
Tema DirezionePerAnni(const Tema& temaNat, float api);
// " Data ": `input` is the chart the input form filled with the date; the years between the two
// clock instants, cut to two decimals with `frazione`, to whole years without. `api` returns
// the years used.
Tema DirezionePerData(const Tema& temaNat, const Tema& input, bool frazione, float& api);

// mnuDirFra, the fraction of a year.
inline constexpr const char* TitoloFrazioneAnno = "Lyx - Direzioni Secondarie per Frazione di Anno";
// The explanation asked Yes or No before the input form.
std::string TestoFrazioneAnno();
inline constexpr const char* DidascaliaInputFrazione = " Direzioni Frazione d' Anno";
inline constexpr const char* TitoloAiutoFrazione = "Lyx - Aiuto Direzioni Frazione d' Anno";
std::string TestoAiutoFrazione();
inline constexpr const char* TitoloAvvisoApi = "Lyx - Avviso api > 1 ";

// Shows the explanation; true when the user answers Yes (the input form then opens).
bool ChiediFrazioneAnno(Messaggi& messaggi);

// Steps after the input form: TemaDir becomes the natal chart moved by the whole years since
// birth in days, with the clock hour turned by the fraction of the year since the last
// birthday. `datiOk` is the input form's answer: without it TemaDir is changed and nothing
// else; with it TemaX takes TemaDir and DirezioneCalcolata becomes true, for frmMenu to install
// the Direzione slot. Returns api, the progressed years; above 1 the warning box is shown.
double DirezioneFrazioneAnno(Sessione& s, bool datiOk, Messaggi& messaggi);

} // namespace vesmo
