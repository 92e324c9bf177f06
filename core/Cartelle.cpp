#include "core/Cartelle.h"

#include <cstdlib>
#include <system_error>
#include <unistd.h>

namespace vesmo {

namespace fs = std::filesystem;

namespace {

// An XDG variable when it holds an absolute path (the rule ignores a relative one), else the
// default below the home folder.
fs::path CartellaXdg(const char* variabile, const char* predefinita) {
    const char* v = std::getenv(variabile);
    if (v != nullptr && v[0] == '/') return fs::path(v);
    const char* casa = std::getenv("HOME");
    fs::path base = (casa != nullptr && casa[0] != '\0') ? fs::path(casa) : fs::path("/tmp");
    return base / predefinita;
}

} // namespace

fs::path DatabaseConsegnato(const fs::path& cartellaProgramma) {
    std::error_code ec;
    fs::path db = (cartellaProgramma / ".." / "share" / "vesmo" / NomeFileDB).lexically_normal();
    if (fs::is_regular_file(db, ec)) return db;
    return {};
}

bool ProgrammaInstallato(const fs::path& cartellaProgramma) {
    if (!DatabaseConsegnato(cartellaProgramma).empty()) return true;
    return ::access(cartellaProgramma.c_str(), W_OK) != 0;
}

fs::path CartellaConfigUtente() {
    return CartellaXdg("XDG_CONFIG_HOME", ".config") / "vesmo";
}

fs::path CartellaDatiUtente() {
    return CartellaXdg("XDG_DATA_HOME", ".local/share") / "vesmo";
}

fs::path CartellaImpostazioni(const fs::path& cartellaProgramma) {
    return ProgrammaInstallato(cartellaProgramma) ? CartellaConfigUtente() : cartellaProgramma;
}

fs::path CopiaUtenteDatabase(const fs::path& cartellaProgramma, std::string* errore) {
    if (!ProgrammaInstallato(cartellaProgramma)) return {};
    const fs::path copia = CartellaDatiUtente() / NomeFileDB;
    std::error_code ec;
    if (fs::is_regular_file(copia, ec)) return copia;
    const fs::path consegnato = DatabaseConsegnato(cartellaProgramma);
    if (consegnato.empty()) return {};
    fs::create_directories(copia.parent_path(), ec);
    // Copied under a temporary name and renamed, so that an interrupted copy never passes for
    // the user's database.
    const fs::path parziale = copia.parent_path() / (std::string(NomeFileDB) + ".parziale");
    if (!ec) fs::copy_file(consegnato, parziale, fs::copy_options::overwrite_existing, ec);
    if (!ec)
        fs::permissions(parziale, fs::perms::owner_read | fs::perms::owner_write,
                        fs::perm_options::add, ec);
    if (!ec) fs::rename(parziale, copia, ec);
    if (ec) {
        std::error_code ignora;
        fs::remove(parziale, ignora);
        if (errore != nullptr)
            *errore = "impossibile copiare " + consegnato.string() + " in " + copia.string() +
                      ": " + ec.message();
        return {};
    }
    return copia;
}

} // namespace vesmo
