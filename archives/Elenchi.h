// What the lists of an archive show and how they are searched and sorted: a chart's fields as
// people read them (date GG/MM/AAAA, time HH:MM, coordinates "11E53"), the order of a column,
// and the search by part of the name, a range of dates, a place and a word of the comment.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/store/Cursore.h"
#include "core/store/Valore.h"

namespace vesmo {

// A field of an archive row as the lists show it: Day "12/03/1960", OraL "10:30", Lon "11E53",
// Lat "45N24", Fuso and Estiva as numbers, texts without their padding, Cmto on one line.
std::string TestoElenco(std::string_view campo, const Valore& v);
// The value to write for a text typed into such a cell: the same forms read back (a number is
// taken as it stands too). Nothing when the text is not readable.
std::optional<Valore> ValoreElenco(std::string_view campo, const std::string& testo);
// The titles of the columns: "Data" for Day, "Ora" for OraL, "Commento" for Cmto, else the
// field's name.
std::string TitoloElenco(std::string_view campo);

// "12/03/1960", "12.3.1960" or "1960-03-12": the Julian day of the date at 0h, when that day
// exists (years -4712 to 9999); the lists and the CSV files read dates with it. A text that
// starts like a year and dashes but has not three parts is read day first. "10:30" or "10:30:15":
// decimal hours from 0 to under 24.
std::optional<double> LeggiDataElenco(std::string_view testo);
std::optional<double> LeggiOraElenco(std::string_view testo);

// The SQL terms that sort an archive by a field: by date and time for Day, by place then
// nation for City, by nation then place for Nazione; empty for Nome (the index's order).
std::string OrdineCampo(std::string_view campo, bool discendente);

// A search: every word of `nome` in the name, the date from `dal` to `al` (Julian days at 0h,
// both included), every word of `luogo` in the place or the nation, every word of `commento` in
// the comment; case and accents ignored.
struct CriteriRicerca {
    std::vector<std::string> nome, luogo, commento;
    std::optional<double> dal, al;
    bool Vuoti() const { return nome.empty() && luogo.empty() && commento.empty() && !dal && !al; }
};
// The text of a search: words of the name, "dal:DATA", "al:DATA" (GG/MM/AAAA, or a year alone:
// its first or last day), "luogo:TESTO", "commento:PAROLA"; double quotes keep blanks inside a
// value ("luogo:\"San Paolo\""). On a fault nothing, and `errore` says what.
std::optional<CriteriRicerca> LeggiCriteri(std::string_view testo, std::string& errore);
// The SQL condition of a search, its values appended to `parametri` (numbered from there).
std::string CondizioneRicerca(const CriteriRicerca& c, std::vector<Valore>& parametri);
// The rows of the archive open on the table cursor `rs` that the search finds, in index order.
std::vector<Segnalibro> CercaTemi(const Cursore& rs, const CriteriRicerca& c);

} // namespace vesmo
