#include <cmath>
#include <filesystem>
#include <stdexcept>

#include "archives/Archivi.h"
#include "archives/ImportaEsporta.h"
#include "cli/FileArchivi.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "cli/ScambioCli.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo::cli {

FormatoScambio LeggiFormato(const Argomenti& a) {
    const auto testo = a.Opzione("formato");
    if (!testo) return FormatoScambio::SF;
    const auto f = FormatoDaNome(*testo);
    if (!f) throw ErroreArgomenti("formato sconosciuto (sf, aaf o csv): " + UnaRiga(*testo));
    return *f;
}

CompletaLuogo CompletaDaLuoghi(const Argomenti& a) {
    return [&a](Tema& t) {
        float anno, mese, giorno;
        DataDaGiuliano(t.Day, anno, mese, giorno);
        const long secondi = std::lround(t.OraL * 3600);
        const Data d{static_cast<int>(giorno), static_cast<int>(mese), static_cast<int>(anno)};
        const Ora o{static_cast<int>(secondi / 3600 % 24), static_cast<int>(secondi / 60 % 60),
                    static_cast<double>(secondi % 60)};
        const std::string stato = SenzaSpazi(t.Stato.str());
        const LuogoRisolto r =
            RisolviLuogo(a, SenzaSpazi(t.City.str()),
                         stato.empty() ? std::nullopt : std::optional<std::string>(stato), d, o);
        t.Lon = r.tema.Lon;
        t.Lat = r.tema.Lat;
        t.Fuso = r.tema.Fuso;
        t.Estiva = r.tema.Estiva;
        t.Stato = r.tema.Stato;
    };
}

int ImportaScambioCli(const Argomenti& a, FormatoScambio formato, std::ostream& out) {
    const std::string file = a.Posizionali()[0];
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        throw ErroreArgomenti("file non trovato: " + UnaRiga(file));
    const std::string fileDB = DatabaseArchivi(a);
    std::string nome = a.Opzione("archivio") ? SenzaSpazi(*a.Opzione("archivio"))
                                             : std::filesystem::path(file).stem().string();
    if (auto errore = ErroreNomeArchivio(nome))
        throw ErroreArgomenti((a.Opzione("archivio") ? "--archivio: " : "") + *errore +
                              (a.Opzione("archivio") ? "" : " (--archivio NOME ne dà un altro)"));
    if (auto log = a.Opzione("log");
        log && (log->empty() || std::filesystem::is_directory(*log, ec)))
        throw ErroreArgomenti("--log: non è un file: " + UnaRiga(*log));
    OpzioniImportScambio opzioni;
    opzioni.doppi = a.Flag("doppi");
    opzioni.completa = CompletaDaLuoghi(a);
    const EsitoImportScambio e = ImportaScambio(fileDB, nome, file, formato, opzioni);
    const std::string log =
        a.Opzione("log")
            ? *a.Opzione("log")
            : (std::filesystem::path(CartellaProgramma()) / (e.Archivio + ".log")).string();
    const bool conLog = ScriviLogScambio(log, e.Log);
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Archivio", e.Archivio)
            .Testo("Formato", NomeFormato(formato))
            .Numero("Importati", static_cast<double>(e.Importati))
            .Numero("Completati", static_cast<double>(e.Completati))
            .Numero("Doppi", static_cast<double>(e.Doppi))
            .Numero("Scartati", static_cast<double>(e.Scartati))
            .Campo("Log", conLog ? JsonTesto(log) : "null");
        out << j.str() << '\n';
        return 0;
    }
    out << "Archivio   " << e.Archivio << (e.Creato ? " (nuovo)" : "") << '\n'
        << "Formato    " << NomeFormato(formato) << '\n'
        << "Importati  " << e.Importati << '\n'
        << "Completati " << e.Completati << '\n'
        << "Doppi      " << e.Doppi << '\n'
        << "Scartati   " << e.Scartati << '\n'
        << "Log        " << (conLog ? log : "-") << '\n';
    return 0;
}

int EsportaScambioCli(const Argomenti& a, FormatoScambio formato, std::ostream& out) {
    const std::string archivio = a.Posizionali()[0];
    const std::string fileDB = DatabaseArchivi(a);
    std::optional<std::string> trovato;
    for (const std::string& t : ElencoArchivi(fileDB))
        if (t == archivio) trovato = t;
    if (!trovato) throw std::runtime_error("archivio non trovato: " + UnaRiga(archivio));
    const std::string file =
        a.Opzione("out")
            ? *a.Opzione("out")
            : (std::filesystem::path(CartellaProgramma()) / (archivio + "." + NomeFormato(formato)))
                  .string();
    const std::int64_t n = EsportaScambio(fileDB, archivio, file, formato);
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Archivio", archivio)
            .Testo("Formato", NomeFormato(formato))
            .Testo("File", file)
            .Numero("Records", static_cast<double>(n));
        out << j.str() << '\n';
        return 0;
    }
    out << "Archivio  " << archivio << '\n'
        << "Formato   " << NomeFormato(formato) << '\n'
        << "File      " << file << '\n'
        << "Records   " << n << '\n';
    return 0;
}

} // namespace vesmo::cli
