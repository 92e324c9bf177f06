// vesmo-cli importa: a Solar Fire text chart file into a new archive, with the log of the records
// refused.
#include <filesystem>
#include <stdexcept>

#include "archives/Archivi.h"
#include "archives/ImportaEsporta.h"
#include "cli/Comandi.h"
#include "cli/FileArchivi.h"
#include "cli/Json.h"
#include "cli/ScambioCli.h"
#include "core/Testo.h"

namespace vesmo::cli {

int ComandoImporta(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json", "doppi"});
    a.Consenti({"archivio", "log", "db", "json", "formato", "doppi"});
    if (a.Posizionali().size() != 1)
        throw ErroreArgomenti(
            "uso: vesmo-cli importa FILE [--formato sf|aaf|csv] [--archivio NOME] "
            "[--doppi] [--log FILE] [--db FILE] [--json]");
    if (const FormatoScambio f = LeggiFormato(a); f != FormatoScambio::SF)
        return ImportaScambioCli(a, f, out);
    const std::string file = a.Posizionali()[0];
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        throw ErroreArgomenti("file non trovato: " + file);
    const std::string fileDB = DatabaseArchivi(a);
    std::string nome = a.Opzione("archivio")
                           ? SenzaSpazi(*a.Opzione("archivio"))
                           : NomeArchivioDaTitolo(std::filesystem::path(file).filename().string());
    if (auto errore = ErroreNomeArchivio(nome))
        throw ErroreArgomenti((a.Opzione("archivio") ? "--archivio: " : "") + *errore +
                              (a.Opzione("archivio") ? "" : " (--archivio NOME ne dà un altro)"));
    // The log: the one named, or the archive's beside the program; only ever appended to.
    const std::string log =
        a.Opzione("log") ? *a.Opzione("log") : FileDiArchivio(CartellaProgramma(), nome, ".log");
    if (log.empty()) throw ErroreArgomenti("--log senza nome di file");
    if (std::filesystem::exists(log, ec) && !std::filesystem::is_regular_file(log, ec))
        throw ErroreArgomenti("--log: non è un file: " + log);
    for (const std::string& esistente : ElencoArchivi(fileDB))
        if (UgualeSenzaCaso(esistente, nome))
            throw std::runtime_error("l'archivio " + esistente + " esiste già");
    const EsitoImport e = ImportaSF(fileDB, nome, file, log);
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Archivio", e.Archivio)
            .Numero("Importati", static_cast<double>(e.Importati))
            .Numero("Scartati", static_cast<double>(e.Scartati))
            .Campo("Log", e.Log.empty() ? "null" : JsonTesto(e.Log));
        out << j.str() << '\n';
        return 0;
    }
    out << "Archivio   " << e.Archivio << '\n'
        << "Importati  " << e.Importati << '\n'
        << "Scartati   " << e.Scartati << '\n'
        << "Log        " << (e.Log.empty() ? "-" : e.Log) << '\n';
    return 0;
}

} // namespace vesmo::cli
