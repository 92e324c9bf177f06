// The transit calendar as the user reads it: each hit with its local date and time, the body
// with "R" when retrograde, the aspect, the natal point and the dates of entering and leaving the
// orb; written as a text table or as CSV.
#pragma once

#include <string>
#include <vector>

#include "timecharts/CalendarioTransiti.h"
#include "timecharts/OrologioLuogo.h"

namespace vesmo {

struct RigaTransito {
    double jd = 0; // TU
    MomentoLocale quando;
    std::string pianeta; // "Giove"
    bool retrogrado = false;
    std::string aspetto;                 // the table's name without its blanks: "QUADRATURA"
    std::string punto;                   // "MC"
    double jdIngresso = 0, jdUscita = 0; // TU, NaN when not found
    std::string ingresso, uscita;        // local "GG/MM/AAAA HH:MM", "" when not found
};

// The rows of the hits, local times by the clock of the place.
std::vector<RigaTransito> RigheTransiti(const std::vector<Transito>& transiti,
                                        const RichiestaTransiti& richiesta,
                                        OrologioLuogo& orologio);

// The column heads, and the text of a row's cells, in the order the list shows them:
// "Data", "Ora", "Pianeta", "Aspetto", "Punto natale", "Ingresso", "Uscita".
extern const std::vector<std::string> TesteColonneTransiti;
std::vector<std::string> CelleTransito(const RigaTransito& r);

// A plain text table with aligned columns, one hit a line, under the heads.
std::string TestoTransiti(const std::vector<RigaTransito>& righe);
// CSV with ';' between the fields, the heads on the first line, CR LF line ends; the JD of the
// hit and of entering and leaving the orb in three more columns.
std::string CsvTransiti(const std::vector<RigaTransito>& righe);

} // namespace vesmo
