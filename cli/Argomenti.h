// Arguments of vesmo-cli: positionals and "--name value" / "--flag" options, and the readers of
// the texts a user types (dates, times, numbers), each telling what is wrong in one line.
#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vesmo::cli {

// A bad argument: its text is the one line printed on stderr; the exit status is 2.
class ErroreArgomenti : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Argomenti {
public:
    // `flags` are the options that take no value (--json ...).
    Argomenti(const std::vector<std::string>& parole, const std::vector<std::string>& flags);

    const std::vector<std::string>& Posizionali() const { return posizionali_; }
    bool Flag(const std::string& nome) const;
    std::optional<std::string> Opzione(const std::string& nome) const;
    std::string Richiesta(const std::string& nome) const; // throws when missing
    // Refuses options outside the list (flags included).
    void Consenti(const std::vector<std::string>& nomi) const;

private:
    std::vector<std::string> posizionali_;
    std::map<std::string, std::string> opzioni_;
    std::vector<std::string> flag_;
    std::vector<std::string> senzaValore_; // options given last, without their value
};

// The calendar the commands work in: from 1 January -4712 (Julian day 0 at noon, -0.5 at its
// start) to the end of 31 December 9999.
inline constexpr int AnnoMinimo = -4712;
inline constexpr int AnnoMassimo = 9999;
inline constexpr double JdMinimo = 0.0;
inline constexpr double JdMassimo = 5373484.5;

struct Data {
    int giorno, mese, anno;
};
struct Ora {
    int ore, minuti;
    double secondi;
};

// GG/MM/AAAA (the year may be negative, from -4712 to 9999); the day must exist in that month of
// the calendar in force (Julian up to 1582, Gregorian after).
Data LeggiData(const std::string& testo);
// HH:MM or HH:MM:SS, hours 0-23.
Ora LeggiOra(const std::string& testo);
// A decimal number with a dot; one that does not fit a double is refused.
double LeggiNumero(const std::string& testo, const std::string& cosa);
// The same, between two limits included: "cosa fuori da 1..12: testo".
double LeggiNumero(const std::string& testo, const std::string& cosa, double minimo,
                   double massimo);
// A Julian day from JdMinimo to JdMassimo.
double LeggiGiornoGiuliano(const std::string& testo, const std::string& cosa);
// "GG/MM/AAAA HH:MM" split at the blanks into date and time; blanks around either are dropped
// and a missing part is empty.
std::pair<std::string, std::string> DividiDataOra(const std::string& testo);
// A message made one line whatever the user typed: line ends read "\n", "\r", other control
// characters "?".
std::string UnaRiga(std::string_view testo);
// How many digits stand in `testo` from position `da`.
std::size_t ContaCifre(std::string_view testo, std::size_t da);

} // namespace vesmo::cli
