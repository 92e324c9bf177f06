// vesmo-cli archivio NOME: the charts of an archive in the order of its index, with the ten
// fields of a chart row.
#include <stdexcept>

#include "archives/Archivi.h"
#include "cli/ArchiviCli.h"
#include "cli/Comandi.h"
#include "cli/Json.h"

namespace vesmo::cli {

int ComandoArchivio(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"json", "db"});
    if (a.Posizionali().size() != 1)
        throw ErroreArgomenti("uso: vesmo-cli archivio NOME [--db FILE] [--json]");
    Database db = ApriArchivi(a);
    const auto nome = TrovaArchivio(db, a.Posizionali()[0]);
    if (!nome) throw std::runtime_error("archivio sconosciuto: " + a.Posizionali()[0]);
    Cursore rs(db, *nome);
    rs.Index(IndiceArchivio);
    JsonLista lista;
    if (!a.Flag("json")) out << TestataTemi() << '\n';
    for (; !rs.Eof(); rs.MoveNext()) {
        Tema t;
        LeggiRecordTema(rs, t);
        if (a.Flag("json"))
            lista.Valore(JsonTemaArchivio(t));
        else
            out << RigaTemaArchivio(t) << '\n';
    }
    if (a.Flag("json")) out << lista.str() << '\n';
    return 0;
}

} // namespace vesmo::cli
