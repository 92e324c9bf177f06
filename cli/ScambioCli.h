// The exchange formats of vesmo-cli importa and esporta (--formato aaf|csv): the file read into
// an archive (made when missing, charts already there skipped unless --doppi) with records
// without coordinates or zone completed from the places database, and an archive written out.
#pragma once

#include <ostream>

#include "archives/Scambio.h"
#include "cli/Argomenti.h"

namespace vesmo::cli {

// The format of --formato: sf when not given; a bad name is a bad argument.
FormatoScambio LeggiFormato(const Argomenti& a);

// The completion of a record from the places database of --db: the place by City and Stato,
// its zone and summer time at the chart's clock date and time.
CompletaLuogo CompletaDaLuoghi(const Argomenti& a);

int ImportaScambioCli(const Argomenti& a, FormatoScambio formato, std::ostream& out);
int EsportaScambioCli(const Argomenti& a, FormatoScambio formato, std::ostream& out);

} // namespace vesmo::cli
