// vesmo-cli archivi: the archives of the database, each with its number of charts.
#include <stdexcept>

#include "archives/Archivi.h"
#include "cli/ArchiviCli.h"
#include "cli/Comandi.h"
#include "cli/Json.h"

namespace vesmo::cli {

int ComandoArchivi(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"json", "db"});
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("uso: vesmo-cli archivi [--db FILE] [--json]");
    Database db = ApriArchivi(a);
    const std::vector<std::string> archivi = ElencoArchivi(db);
    if (archivi.empty()) throw std::runtime_error("nessun archivio nel database");
    JsonLista lista;
    for (const std::string& nome : archivi) {
        Cursore rs(db, nome);
        const std::int64_t n = rs.RecordCount();
        if (a.Flag("json")) {
            JsonOggetto j;
            j.Testo("Archivio", nome).Numero("Temi", static_cast<double>(n));
            lista.Valore(j.str());
        } else {
            out << nome << "  " << n << '\n';
        }
    }
    if (a.Flag("json")) out << lista.str() << '\n';
    return 0;
}

} // namespace vesmo::cli
