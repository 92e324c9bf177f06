// What the time-based searches share: the instant of a found Julian day written into a chart,
// the name marks, the short way between two longitudes, the secant loop with its stop rules.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/Messaggi.h"
#include "core/Tema.h"

namespace vesmo {

// Writes `marca` into the name from position `posizione` (the first character is 1), over what
// stands there; the name keeps its 30 characters, so a mark running past them is cut.
void ScriviMarca(TestoFisso<30>& nome, int posizione, std::string_view marca);

// Puts the instant `jd` (Greenwich time) into the chart: Day is the 0h of jd's date as
// DataDaGiuliano gives it, with the day cut to a whole number, and OraL the clock time with the
// chart's own Fuso and Estiva. OraL may fall outside 0..24; Day is not corrected for it.
void ImpostaIstante(Tema& tema, double jd);

// Day 0h of the civil date of a Julian day, by DataDaGiuliano with the day cut.
double GiornoZero(double jd);

// The difference a - b brought into -180..180: the short way round the circle.
double Scostamento(double a, double b);

// A number typed with the comma as the decimal separator ("237,4176"), blanks around it
// allowed; nullopt when the text is not a number.
std::optional<double> NumeroConVirgola(std::string_view testo);

// Where the progress of an iteration is shown: the name of the form's box and its value.
using Avanzamento = std::function<void(const char* controllo, double valore)>;

// How a secant loop stops.
struct RegolaSecante {
    // Bit-equal iterates stop the loop always; from this round on, iterates closer than
    // `vicinanza` days stop it too.
    int giriVicinanza = 10;
    double vicinanza = 1e-8;
    // At this round the loop gives up and shows the box below. 0: no limit.
    int giriMassimi = 20;
    std::string titoloLoop;
    std::string testoLoop;
    // Title of the box for a zero denominator (two points with the same value).
    std::string titoloDivisione;
};

// The text of the boxes that tell an iteration without end.
inline constexpr const char* TestoLoopInfinito = "Vesmo Entrato in un Loop infinito.\r\n"
                                                 "Istruzione STOP\r\n";

// Secant iteration on f, whose root is sought: from (x, fx) and (x0, f0) it steps to
// x2 = x - (x - x0) * fx / (fx - f0) until a stop rule holds, and returns the last x. nullopt
// when the loop gave up (the box has been shown). `controllo`, when given, is the box that
// shows every x2.
std::optional<double> Secante(const std::function<double(double)>& f, double x, double fx,
                              double x0, double f0, const RegolaSecante& regola, Messaggi& messaggi,
                              const Avanzamento& avanzamento = {}, const char* controllo = nullptr);

} // namespace vesmo
