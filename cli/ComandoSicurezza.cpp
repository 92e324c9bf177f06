#include <filesystem>
#include <stdexcept>

#include "archives/Archivi.h"
#include "archives/Sicurezza.h"
#include "cli/DatabaseCli.h"
#include "cli/FileArchivi.h"
#include "cli/Json.h"
#include "cli/SicurezzaCli.h"

namespace vesmo::cli {

namespace {

const char* const UsoSicurezza = "uso: vesmo-cli db sicurezza FILE | ripristina FILE [ARCHIVIO] "
                                 "[--db FILE] [--json]";

} // namespace

int SicurezzaDb(const Argomenti& a, std::ostream& out) {
    if (a.Posizionali().size() != 2) throw ErroreArgomenti(UsoSicurezza);
    const std::string fileDB = DatabaseArchivi(a);
    const std::string copia = a.Posizionali()[1];
    std::error_code ec;
    // A file that stands is not this command's to overwrite.
    if (std::filesystem::exists(copia, ec) || std::filesystem::is_symlink(copia, ec))
        throw std::runtime_error("il file esiste già: " + UnaRiga(copia));
    if (std::filesystem::equivalent(copia, fileDB, ec))
        throw ErroreArgomenti("la copia non può essere il database stesso");
    CopiaDiSicurezza(fileDB, copia);
    const auto archivi = ArchiviDellaCopia(copia);
    const auto byte = std::filesystem::file_size(copia, ec);
    if (a.Flag("json")) {
        out << JsonOggetto()
                   .Testo("FileDB", fileDB)
                   .Testo("Copia", copia)
                   .Numero("Archivi", static_cast<double>(archivi.size()))
                   .Numero("Byte", static_cast<double>(byte))
                   .str()
            << '\n';
        return 0;
    }
    out << "FileDB   " << fileDB << '\n'
        << "Copia    " << copia << '\n'
        << "Archivi  " << archivi.size() << '\n'
        << "Byte     " << byte << '\n';
    return 0;
}

int RipristinaDb(const Argomenti& a, std::ostream& out) {
    if (a.Posizionali().size() < 2 || a.Posizionali().size() > 3)
        throw ErroreArgomenti(UsoSicurezza);
    const std::string fileDB = DatabaseArchivi(a);
    const std::string copia = a.Posizionali()[1];
    std::error_code ec;
    if (!std::filesystem::is_regular_file(copia, ec))
        throw ErroreArgomenti("copia non trovata: " + UnaRiga(copia));
    const std::vector<std::string> nellaCopia = ArchiviDellaCopia(copia);
    std::vector<std::string> quali;
    if (a.Posizionali().size() == 3) {
        const std::string& cercato = a.Posizionali()[2];
        for (const std::string& n : nellaCopia)
            if (n == cercato) quali.push_back(n);
        if (quali.empty()) {
            out << "nessun archivio " << cercato << " nella copia\n";
            return 1;
        }
    } else {
        quali = nellaCopia;
    }
    if (quali.empty()) {
        out << "nessun archivio nella copia\n";
        return 1;
    }
    JsonLista lista;
    if (!a.Flag("json")) out << "Archivio                        Ripristinato come\n";
    for (const std::string& n : quali) {
        const std::string nuovo = RipristinaArchivio(fileDB, copia, n);
        if (a.Flag("json"))
            lista.Valore(JsonOggetto().Testo("Archivio", n).Testo("Ripristinato", nuovo).str());
        else
            out << n << std::string(n.size() < 32 ? 32 - n.size() : 1, ' ') << nuovo << '\n';
    }
    if (a.Flag("json")) out << lista.str() << '\n';
    return 0;
}

void CopiaPrimaDiEliminare(const Argomenti& a) {
    const auto file = FileDatabase(a);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) return;
    CopiaAutomaticaArchivi(file.string(),
                           std::filesystem::path(CartellaProgramma()) / CartellaCopie);
}

} // namespace vesmo::cli
