#include "cli/DatabaseCli.h"

#include <stdexcept>
#include <system_error>

namespace vesmo::cli {

std::filesystem::path FileDatabase(const Argomenti& a) {
    if (auto db = a.Opzione("db")) return *db;
    std::error_code ec;
    const auto programma = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const auto vicino = programma.parent_path() / "../../../data/Vesmodat.Mdb";
        if (std::filesystem::exists(vicino, ec)) return vicino.lexically_normal();
    }
    return "data/Vesmodat.Mdb";
}

Database ApriDatabase(const Argomenti& a) {
    const auto file = FileDatabase(a);
    if (!std::filesystem::exists(file))
        throw std::runtime_error("database dei luoghi non trovato: " + file.string() +
                                 " (scripts/prepara-dati lo costruisce, --db ne indica un altro)");
    return Database(file);
}

} // namespace vesmo::cli
