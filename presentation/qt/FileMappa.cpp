#include "presentation/qt/FileMappa.h"

#include <QCoreApplication>
#include <system_error>

#include "core/Cartelle.h"

namespace vesmo {

namespace {

// The folder of the running program.
std::filesystem::path CartellaProgramma() {
    if (QCoreApplication::instance()) return QCoreApplication::applicationDirPath().toStdString();
    std::error_code ec;
    const auto programma = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::path() : programma.parent_path();
}

} // namespace

std::filesystem::path FileMappaFusi(const std::filesystem::path& fileDB) {
    const std::filesystem::path vicino = fileDB.parent_path() / "MappaFusi.png";
    std::error_code ec;
    if (std::filesystem::exists(vicino, ec)) return vicino;
    const std::filesystem::path cartella = CartellaProgramma();
    const auto consegnato = cartella.empty() ? cartella : DatabaseConsegnato(cartella);
    if (consegnato.empty()) return vicino;
    return consegnato.parent_path() / "MappaFusi.png";
}

} // namespace vesmo
