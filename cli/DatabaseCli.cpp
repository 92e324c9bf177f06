#include "cli/DatabaseCli.h"

#include <stdexcept>
#include <system_error>

#include "core/Cartelle.h"
#include "core/Config.h"

namespace vesmo::cli {

namespace fs = std::filesystem;

fs::path FileDatabase(const Argomenti& a) {
    if (auto db = a.Opzione("db")) return *db;
    std::error_code ec;
    const auto programma = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const fs::path cartella = programma.parent_path();
        // Installed: the database the workstation's settings name, else the user's copy of the
        // delivered one (made now when missing), else the delivered one itself.
        if (ProgrammaInstallato(cartella)) {
            const fs::path ini = CartellaConfigUtente() / "Vesmodat.ini";
            ConfigIni cfg;
            if (fs::is_regular_file(ini, ec) && LeggiConfig(ini.string(), cfg)) {
                const fs::path scelto = DerivaPercorsi(ini.string(), cfg).FileDB;
                if (!scelto.empty() && fs::is_regular_file(scelto, ec)) return scelto;
            }
            const fs::path copia = CopiaUtenteDatabase(cartella);
            if (!copia.empty()) return copia;
            const fs::path consegnato = DatabaseConsegnato(cartella);
            if (!consegnato.empty()) return consegnato;
        }
        const auto vicino = cartella / "../../../data/Vesmodat.Mdb";
        if (fs::exists(vicino, ec)) return vicino.lexically_normal();
    }
    return "data/Vesmodat.Mdb";
}

Database ApriDatabase(const Argomenti& a) {
    const auto file = FileDatabase(a);
    if (!fs::exists(file))
        throw std::runtime_error("database dei luoghi non trovato: " + file.string() +
                                 " (scripts/prepara-dati lo costruisce, --db ne indica un altro)");
    return Database(file);
}

} // namespace vesmo::cli
