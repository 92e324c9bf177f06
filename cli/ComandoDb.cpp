// vesmo-cli db: maintenance of the places database for scripts: the cleaning of unused zone and
// summer-time codes, the compaction, the copy of a dated list under a new code, and the dated
// list of one code.
#include <filesystem>
#include <stdexcept>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/SicurezzaCli.h"
#include "core/store/Cursore.h"
#include "places/EditorLuoghi.h"
#include "places/ModelloLuoghi.h"
#include "places/PuliziaLuoghi.h"

namespace vesmo::cli {

namespace {

const char* const UsoDb =
    "uso: vesmo-cli db pulizia fusi|estive [--elimina] | compatta | copia fusi|estive --da "
    "CODICE --a CODICE | zona CODICE | estive CODICE | sicurezza FILE | ripristina FILE [ARCHIVIO] "
    "[--db FILE] [--json]";

// The database file of --db or the usual one, which must exist.
std::filesystem::path FileDb(const Argomenti& a) {
    const auto file = FileDatabase(a);
    if (!std::filesystem::is_regular_file(file))
        throw std::runtime_error("database dei luoghi non trovato: " + file.string());
    return file;
}

// Before a write: a read-only file or a damaged one is refused, naming the file.
void VerificaScrivibile(const std::filesystem::path& file) {
    Database db(file);
    if (db.SolaLettura()) throw std::runtime_error("Database di sola lettura: " + file.string());
    db.VerificaPrimaDiScrivere();
}

ListaPulizia QualeLista(const std::string& parola) {
    if (parola == "fusi") return ListaPulizia::Fusi;
    if (parola == "estive") return ListaPulizia::Estive;
    throw ErroreArgomenti("atteso fusi o estive, non: " + parola);
}

std::int32_t LeggiCodice(const std::string& testo) {
    const double v = LeggiNumero(testo, "codice");
    if (v != static_cast<std::int32_t>(v) || v < 0 || v > 32767)
        throw ErroreArgomenti("codice non valido: " + testo);
    return static_cast<std::int32_t>(v);
}

// The first line of the last box, as the reason of a failure.
std::string PrimaRiga(const MessaggiRegistrati& m) {
    if (m.registro.empty()) return "";
    const std::string& t = m.registro.back().testo;
    return t.substr(0, t.find('\n'));
}

int Pulizia(const Argomenti& a, std::ostream& out) {
    if (a.Posizionali().size() != 2) throw ErroreArgomenti(UsoDb);
    const ListaPulizia lista = QualeLista(a.Posizionali()[1]);
    const auto file = FileDb(a);
    // The list is read without writing; only --elimina writes, into a file found sound first.
    const EsitoScansione esito = ScansioneSolaLettura(file, lista);
    std::int64_t eliminate = 0;
    if (a.Flag("elimina")) {
        VerificaScrivibile(file);
        CopiaPrimaDiEliminare(a);
        eliminate = EliminaRighe(file, lista, esito.codici);
        // A work index left by the workstation's cleaning form goes with it.
        EliminaIndiceLavoro(file, lista);
    }
    if (a.Flag("json")) {
        JsonLista codici;
        for (auto c : esito.codici)
            codici.Valore(std::to_string(c));
        out << JsonOggetto()
                   .Numero("Esaminate", static_cast<double>(esito.esaminate))
                   .Campo("Codici", codici.str())
                   .Numero("Eliminate", static_cast<double>(eliminate))
                   .str()
            << '\n';
        return 0;
    }
    out << TestoScansione(esito) << '\n';
    for (auto c : esito.codici)
        out << c << '\n';
    if (a.Flag("elimina")) out << TestoEliminate(eliminate, lista) << '\n';
    return 0;
}

int Compatta(const Argomenti& a, std::ostream& out) {
    if (a.Posizionali().size() != 1) throw ErroreArgomenti(UsoDb);
    const auto file = FileDb(a);
    const auto prima = std::filesystem::file_size(file);
    CopiaPrimaDiEliminare(a);
    MessaggiRegistrati m;
    if (!CompattaDatabase(file, m)) {
        const std::string& t = m.registro.back().testo;
        const auto inizio = t.find('\n') + 1;
        throw std::runtime_error("compattazione non riuscita: " +
                                 t.substr(inizio, t.find('\n', inizio) - inizio));
    }
    const auto dopo = std::filesystem::file_size(file);
    if (a.Flag("json")) {
        out << JsonOggetto()
                   .Testo("FileDB", file.string())
                   .Numero("Prima", static_cast<double>(prima))
                   .Numero("Dopo", static_cast<double>(dopo))
                   .str()
            << '\n';
    } else {
        out << "FileDB  " << file.string() << '\n'
            << "Prima   " << prima << " byte\n"
            << "Dopo    " << dopo << " byte\n";
    }
    return 0;
}

int Copia(const Argomenti& a, std::ostream& out) {
    if (a.Posizionali().size() != 2) throw ErroreArgomenti(UsoDb);
    const bool fusi = QualeLista(a.Posizionali()[1]) == ListaPulizia::Fusi;
    const std::int32_t da = LeggiCodice(a.Richiesta("da"));
    const std::int32_t nuovo = LeggiCodice(a.Richiesta("a"));
    VerificaScrivibile(FileDb(a));
    Database db(FileDb(a));
    MessaggiRegistrati m;
    ModelloDbEdit e(db, m, db.Percorso().string());
    e.campi.Option3 = fusi;
    (fusi ? e.campi.Text3 : e.campi.Text4) = std::to_string(da);
    e.campi.Text26 = std::to_string(nuovo);
    const char* tabella = fusi ? "Fusi" : "Estive";
    const char* campo = fusi ? "cFusi" : "cEst";
    auto righe = [&](std::int32_t codice) {
        Cursore c = Cursore::Sql(db, std::string("select count(*) as n from ") + tabella +
                                         " where " + campo + " = " + std::to_string(codice));
        return c.Campo("n").Intero();
    };
    const auto prima = righe(nuovo);
    e.Command3_Click();
    if (PrimaRiga(m) != "Eseguito") throw std::runtime_error(PrimaRiga(m));
    const auto copiate = righe(nuovo) - prima;
    if (a.Flag("json"))
        out << JsonOggetto()
                   .Numero("Da", da)
                   .Numero("A", nuovo)
                   .Numero("Copiate", static_cast<double>(copiate))
                   .str()
            << '\n';
    else
        out << copiate << " righe di " << tabella << " copiate da " << da << " a " << nuovo << '\n';
    return 0;
}

int Lista(const Argomenti& a, std::ostream& out, bool zona) {
    if (a.Posizionali().size() != 2) throw ErroreArgomenti(UsoDb);
    const std::int32_t codice = LeggiCodice(a.Posizionali()[1]);
    const auto file = FileDb(a);
    if (a.Flag("json")) {
        Database db(file);
        JsonLista lista;
        std::vector<std::string> campi;
        std::string tabella, indice, chiave;
        if (zona) {
            tabella = "Fusi", indice = "iFusi", chiave = "cFusi";
            campi = {"cFusi", "Day", "Mese", "Anno", "fH_h", "fH_m"};
        } else if (codice >= 10000) {
            tabella = "FusiEstiveUniti", indice = "indFusiEstUniti", chiave = "TTN";
            campi = {"TTN", "TTV", "wdata", "ZZo"};
        } else {
            tabella = "Estive", indice = "IndEstiTbEstive", chiave = "cEst";
            campi = {"cEst", "Day", "Mese", "Anno", "h", "min", "HE_h", "HE_m"};
        }
        Cursore c(db, tabella);
        c.Index(indice);
        c.Seek(">=", codice);
        for (; !c.NoMatch() && !c.Eof() && c.Campo(chiave).Intero() == codice; c.MoveNext()) {
            JsonOggetto o;
            for (const auto& f : campi) {
                const Valore v = c.Campo(f);
                if (f == "wdata")
                    o.Testo(f, TestoDataOra(v.Numero()));
                else if (v.ETesto())
                    o.Testo(f, v.Testo());
                else
                    o.Numero(f, v.Numero());
            }
            lista.Valore(o.str());
        }
        if (lista.str() == "[]") {
            out << "[]\n";
            return 1;
        }
        out << lista.str() << '\n';
        return 0;
    }
    MessaggiRegistrati m;
    ModelloFusiEstive f(file, m);
    f.ZoomFuso = zona ? -1 : 0;
    f.ZoomCFusi = f.ZoomCEst = codice;
    f.Form_Load();
    if (f.List1.voci.empty() || !f.Text2Visibile) {
        out << (f.List1.voci.empty() ? "NON DISPONIBILE" : f.List1.voci[0]) << '\n';
        return 1;
    }
    out << f.Text2 << '\n';
    for (const auto& v : f.List1.voci)
        out << v << '\n';
    for (const auto& v : f.cmbZoneOrarie.voci)
        out << v << '\n';
    return 0;
}

} // namespace

int ComandoDb(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json", "elimina"});
    if (a.Posizionali().empty()) throw ErroreArgomenti(UsoDb);
    const std::string& cosa = a.Posizionali()[0];
    if (cosa == "pulizia") {
        a.Consenti({"elimina", "json", "db"});
        return Pulizia(a, out);
    }
    if (cosa == "compatta") {
        a.Consenti({"json", "db"});
        return Compatta(a, out);
    }
    if (cosa == "copia") {
        a.Consenti({"da", "a", "json", "db"});
        return Copia(a, out);
    }
    if (cosa == "sicurezza" || cosa == "ripristina") {
        a.Consenti({"json", "db"});
        return cosa == "sicurezza" ? SicurezzaDb(a, out) : RipristinaDb(a, out);
    }
    if (cosa == "zona" || cosa == "estive") {
        a.Consenti({"json", "db"});
        return Lista(a, out, cosa == "zona");
    }
    throw ErroreArgomenti("db: comando sconosciuto: " + cosa);
}

} // namespace vesmo::cli
