// vesmo-cli archivio NOME: the charts of an archive in the order of its index, with the ten
// fields of a chart row.
#include <stdexcept>

#include "archives/Archivi.h"
#include "archives/Elenchi.h"
#include "cli/ArchiviCli.h"
#include "cli/Comandi.h"
#include "cli/Json.h"

namespace vesmo::cli {

int ComandoArchivio(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"json", "db", "cerca"});
    if (a.Posizionali().size() != 1)
        throw ErroreArgomenti("uso: vesmo-cli archivio NOME [--cerca \"PAROLE dal:GG/MM/AAAA "
                              "al:GG/MM/AAAA luogo:TESTO commento:PAROLA\"] [--db FILE] [--json]");
    std::optional<CriteriRicerca> criteri;
    if (auto testo = a.Opzione("cerca")) {
        std::string errore;
        criteri = LeggiCriteri(*testo, errore);
        if (!criteri) throw ErroreArgomenti("--cerca: " + UnaRiga(errore));
    }
    Database db = ApriArchivi(a);
    const auto nome = TrovaArchivio(db, a.Posizionali()[0]);
    if (!nome) throw std::runtime_error("archivio sconosciuto: " + a.Posizionali()[0]);
    Cursore rs(db, *nome);
    rs.Index(IndiceArchivio);
    // The rows the search finds, or all, in the order of the index.
    const std::vector<Segnalibro> righe = criteri ? CercaTemi(rs, *criteri) : rs.Segnalibri();
    if (criteri && righe.empty()) {
        if (a.Flag("json")) out << "[]\n";
        return 1;
    }
    JsonLista lista;
    if (!a.Flag("json")) out << TestataTemi() << '\n';
    for (const Segnalibro& s : righe) {
        rs.VaiA(s);
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
