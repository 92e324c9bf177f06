#include "cli/FileArchivi.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "cli/DatabaseCli.h"
#include "core/Cartelle.h"

namespace vesmo::cli {

namespace fs = std::filesystem;

std::string DatabaseArchivi(const Argomenti& a) {
    const fs::path file = FileDatabase(a);
    std::error_code ec;
    if (!fs::is_regular_file(file, ec))
        throw std::runtime_error("database non trovato: " + file.string());
    return file.string();
}

std::string CartellaProgramma() {
    std::error_code ec;
    const auto programma = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const fs::path cartella = programma.parent_path();
        const auto app = (cartella / "../app").lexically_normal();
        if (fs::is_directory(app, ec)) return app.string();
        if (ProgrammaInstallato(cartella)) {
            const fs::path dati = CartellaDatiUtente();
            fs::create_directories(dati, ec);
            if (!ec) return dati.string();
        }
    }
    return fs::current_path(ec).string();
}

} // namespace vesmo::cli
