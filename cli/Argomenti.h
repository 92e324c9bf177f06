// Arguments of vesmo-cli: positionals and "--name value" / "--flag" options, and the readers of
// the texts a user types (dates, times, numbers), each telling what is wrong in one line.
#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
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

struct Data {
    int giorno, mese, anno;
};
struct Ora {
    int ore, minuti;
    double secondi;
};

// GG/MM/AAAA (the year may be negative); the day must exist in that month of the calendar in
// force (Julian up to 1582, Gregorian after).
Data LeggiData(const std::string& testo);
// HH:MM or HH:MM:SS, hours 0-23.
Ora LeggiOra(const std::string& testo);
// A decimal number with a dot.
double LeggiNumero(const std::string& testo, const std::string& cosa);

} // namespace vesmo::cli
