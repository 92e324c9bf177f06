#include "cli/ArchiviCli.h"

#include <filesystem>
#include <system_error>

namespace vesmo::cli {

namespace {

std::filesystem::path CartellaEseguibile() {
    std::error_code ec;
    const auto programma = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::path() : programma.parent_path();
}

} // namespace

std::string DatabaseArchivi(const Argomenti& a) {
    std::filesystem::path file = "data/Vesmodat.Mdb";
    std::error_code ec;
    if (auto db = a.Opzione("db")) {
        file = *db;
    } else {
        const auto vicino = CartellaEseguibile() / "../../../data/Vesmodat.Mdb";
        if (std::filesystem::exists(vicino, ec)) file = vicino.lexically_normal();
    }
    if (!std::filesystem::exists(file, ec))
        throw ErroreArgomenti("database non trovato: " + file.string());
    return file.string();
}

std::string CartellaProgramma() {
    std::error_code ec;
    const auto app = (CartellaEseguibile() / "../app").lexically_normal();
    if (std::filesystem::is_directory(app, ec)) return app.string();
    return std::filesystem::current_path(ec).string();
}

} // namespace vesmo::cli
