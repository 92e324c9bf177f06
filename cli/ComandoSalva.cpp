// vesmo-cli salva: a chart's record stored into an archive, created when missing. Nothing is
// cast. A chart of the same name is refused unless --doppio says to overwrite the first of that
// name or to add a second one.
#include <optional>
#include <stdexcept>

#include "archives/Archivi.h"
#include "cli/ArchiviCli.h"
#include "cli/Comandi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "core/Testo.h"

namespace vesmo::cli {

namespace {

// The archive of that exact name; another of the same name but for the case is refused
// (ErroreArgomenti), as the database does not tell them apart. None when there is no such one.
std::optional<std::string> TrovaArchivio(Database& db, const std::string& richiesto) {
    std::optional<std::string> r;
    for (const std::string& n : ElencoArchivi(db)) {
        if (n == richiesto) return n;
        if (UgualeSenzaCaso(n, richiesto)) r = n;
    }
    if (r)
        throw ErroreArgomenti("l'archivio " + *r + " esiste già: nomi uguali a meno " +
                              "delle maiuscole non sono ammessi");
    return std::nullopt;
}

// The archive the chart goes into: the one of that name, else made now (`creato` true); one
// that another program made in the meantime is taken as it is.
std::string ArchivioDestinazione(Database& db, const std::string& richiesto, bool& creato) {
    creato = false;
    std::optional<std::string> trovato = TrovaArchivio(db, richiesto);
    if (!trovato) {
        try {
            db.CreaTabella(richiesto, CampiArchivio(),
                           {DefIndice{IndiceArchivio, {"Nome"}, false, false}});
            creato = true;
        } catch (const ErroreDB&) {
            trovato = TrovaArchivio(db, richiesto);
            if (!trovato) throw;
        }
    }
    return trovato ? *trovato : richiesto;
}

// Writes the chart into the archive: added when its name is new there, else as `doppio` says
// (overwritten or added again); without it a chart of the same name is an error. Returns the
// outcome's word.
std::string ScriviNellArchivio(Database& db, const std::string& archivio, const Tema& tema,
                               const std::string& doppio) {
    Cursore rs(db, archivio);
    rs.Index(IndiceArchivio);
    rs.Seek("=", tema.Nome.str());
    std::int16_t aggiungi = 0, modifica = 0;
    std::string esito = "aggiunto";
    if (rs.NoMatch()) {
        aggiungi = -1;
    } else if (doppio == "sovrascrivi") {
        modifica = -1;
        esito = "sovrascritto";
    } else if (doppio == "aggiungi") {
        aggiungi = -1;
        esito = "aggiunto doppio";
    } else {
        throw std::runtime_error("un tema di nome " + SenzaSpazi(tema.Nome.str()) +
                                 " è già nell'archivio " + archivio +
                                 " (--doppio sovrascrivi o --doppio aggiungi)");
    }
    ScriviTema(rs, tema, aggiungi, modifica);
    return esito;
}

} // namespace

int ComandoSalva(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    std::vector<std::string> consentite = OpzioniDelTema();
    for (const char* o : {"archivio", "doppio", "json"})
        consentite.push_back(o);
    a.Consenti(consentite);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("uso: vesmo-cli salva OPZIONI-TEMA --archivio NOME [--nome TESTO] "
                              "[--doppio sovrascrivi|aggiungi] [--db FILE] [--json]");
    const std::string doppio = a.Opzione("doppio").value_or("");
    if (!doppio.empty() && doppio != "sovrascrivi" && doppio != "aggiungi")
        throw ErroreArgomenti("--doppio non valido: '" + doppio + "' (sovrascrivi o aggiungi)");
    const std::string richiesto = SenzaSpazi(a.Richiesta("archivio"));
    if (auto errore = ErroreNomeArchivio(richiesto))
        throw ErroreArgomenti("--archivio: " + *errore);
    const Tema tema = LeggiTema(a);

    Database db = ApriArchivi(a);
    if (db.SolaLettura())
        throw std::runtime_error("Database di sola lettura: " + FileDatabase(a).string());
    db.VerificaPrimaDiScrivere();
    bool creato = false;
    const std::string archivio = ArchivioDestinazione(db, richiesto, creato);
    const std::string esito = ScriviNellArchivio(db, archivio, tema, doppio);

    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Archivio", archivio)
            .Campo("Creato", creato ? "true" : "false")
            .Testo("Esito", esito)
            .Campo("Tema", JsonTemaArchivio(tema));
        out << j.str() << '\n';
        return 0;
    }
    out << "Archivio  " << archivio << (creato ? "  (creato)" : "") << '\n'
        << "Esito     " << esito << '\n'
        << TestataTemi() << '\n'
        << RigaTemaArchivio(tema) << '\n';
    return 0;
}

} // namespace vesmo::cli
