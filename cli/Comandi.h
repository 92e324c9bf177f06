// The subcommands of vesmo-cli. Each takes its arguments (after the subcommand's name) and
// writes its answer to `out`; a bad argument throws ErroreArgomenti.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace vesmo::cli {

using Parole = std::vector<std::string>;

int ComandoJd(const Parole& parole, std::ostream& out);
int ComandoData(const Parole& parole, std::ostream& out);
int ComandoTema(const Parole& parole, std::ostream& out);
int ComandoEffemeridi(const Parole& parole, std::ostream& out);
#ifdef VESMO_CON_QT
int ComandoRuota(const Parole& parole, std::ostream& out);
int ComandoStampa(const Parole& parole, std::ostream& out);
#endif
int ComandoRivoluzione(const Parole& parole, std::ostream& out);
int ComandoDirezione(const Parole& parole, std::ostream& out);
int ComandoIngresso(const Parole& parole, std::ostream& out);
int ComandoLuogo(const Parole& parole, std::ostream& out);
int ComandoCerca(const Parole& parole, std::ostream& out);
int ComandoVicine(const Parole& parole, std::ostream& out);
int ComandoImporta(const Parole& parole, std::ostream& out);
int ComandoEsporta(const Parole& parole, std::ostream& out);
int ComandoQuery(const Parole& parole, std::ostream& out);
int ComandoDeltaT(const Parole& parole, std::ostream& out);
int ComandoEqT(const Parole& parole, std::ostream& out);
int ComandoEclEqu(const Parole& parole, std::ostream& out);
int ComandoFormati(const Parole& parole, std::ostream& out);
int ComandoSalva(const Parole& parole, std::ostream& out);
int ComandoArchivi(const Parole& parole, std::ostream& out);
int ComandoArchivio(const Parole& parole, std::ostream& out);
int ComandoDb(const Parole& parole, std::ostream& out);
int ComandoAspetti(const Parole& parole, std::ostream& out);
int ComandoTransiti(const Parole& parole, std::ostream& out);

// Where a command's notices go (the message boxes of the logic: an extreme latitude, a zone with
// seconds...). Esegui writes them to stderr after the command's answer; a command that fails
// prints its one line alone.
std::ostream& Avvisi();

// Runs a whole command line (without the program's name); returns the exit status.
int Esegui(const Parole& parole, std::ostream& out, std::ostream& err);

} // namespace vesmo::cli
