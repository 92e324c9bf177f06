// vesmo-cli esporta: an archive as a text file, one chart a line.
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "archives/Archivi.h"
#include "archives/ImportaEsporta.h"
#include "cli/Comandi.h"
#include "cli/FileArchivi.h"
#include "cli/Json.h"
#include "cli/ScambioCli.h"

namespace vesmo::cli {

int ComandoEsporta(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"out", "db", "json", "formato"});
    if (a.Posizionali().size() != 1)
        throw ErroreArgomenti("uso: vesmo-cli esporta ARCHIVIO [--formato sf|aaf|csv] [--out FILE] "
                              "[--db FILE] [--json]");
    if (const FormatoScambio f = LeggiFormato(a); f != FormatoScambio::SF)
        return EsportaScambioCli(a, f, out);
    const std::string archivio = a.Posizionali()[0];
    const std::string fileDB = DatabaseArchivi(a);
    bool trovato = false;
    for (const std::string& t : ElencoArchivi(fileDB))
        if (t == archivio) trovato = true;
    if (!trovato) throw std::runtime_error("archivio non trovato: " + archivio);
    const std::string file = a.Opzione("out")
                                 ? *a.Opzione("out")
                                 : FileDiArchivio(CartellaProgramma(), archivio, ".txt");
    // The warnings of a zone with seconds go to stderr.
    MessaggiConsole avvisi(Avvisi());
    const std::int64_t n = EsportaTesto(fileDB, archivio, file, avvisi);
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Archivio", archivio).Testo("File", file).Numero("Records", static_cast<double>(n));
        out << j.str() << '\n';
        return 0;
    }
    out << "Archivio  " << archivio << '\n'
        << "File      " << file << '\n'
        << "Records   " << n << '\n';
    return 0;
}

} // namespace vesmo::cli
