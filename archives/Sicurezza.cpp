#include "archives/Sicurezza.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

#include "archives/Archivi.h"
#include "core/Testo.h"
#include "core/store/Database.h"

namespace vesmo {

namespace fs = std::filesystem;

namespace {

// The number of an automatic copy's name, or -1 when the name is not one.
long NumeroCopia(const fs::path& p) {
    const std::string n = p.filename().string();
    if (n.size() != 18 || n.rfind("Archivi-", 0) != 0 || n.substr(14) != ".Mdb") return -1;
    long v = 0;
    for (std::size_t i = 8; i < 14; ++i) {
        if (n[i] < '0' || n[i] > '9') return -1;
        v = v * 10 + (n[i] - '0');
    }
    return v;
}

} // namespace

void CopiaDiSicurezza(const std::string& fileDB, const std::string& fileCopia) {
    const fs::path destinazione(fileCopia);
    fs::path lavoro = destinazione;
    lavoro += ".copia-" + std::to_string(::getpid());
    std::error_code ec;
    fs::remove(lavoro, ec); // a name of this process alone: left by a failed run of it
    Database::CopiaDiSicurezza(fileDB, lavoro);
    fs::rename(lavoro, destinazione, ec);
    if (ec) {
        std::error_code ignora;
        fs::remove(lavoro, ignora);
        throw ErroreDB(ErroreDB::ErroreMotore,
                       "Impossibile scrivere " + destinazione.string() + ": " + ec.message());
    }
}

std::vector<fs::path> CopieAutomatiche(const fs::path& cartella) {
    std::vector<std::pair<long, fs::path>> copie;
    std::error_code ec;
    for (fs::directory_iterator it(cartella, ec), fine; !ec && it != fine; it.increment(ec))
        if (long n = NumeroCopia(it->path()); n >= 0 && it->is_regular_file(ec))
            copie.emplace_back(n, it->path());
    std::sort(copie.begin(), copie.end());
    std::vector<fs::path> r;
    for (auto& c : copie)
        r.push_back(std::move(c.second));
    return r;
}

fs::path CopiaAutomaticaArchivi(const std::string& fileDB, const fs::path& cartella) {
    fs::create_directories(cartella);
    const std::vector<fs::path> prima = CopieAutomatiche(cartella);
    const long numero = prima.empty() ? 1 : NumeroCopia(prima.back()) % 999999 + 1;
    char nome[32];
    std::snprintf(nome, sizeof nome, "Archivi-%06ld.Mdb", numero);
    const fs::path copia = cartella / nome;
    std::error_code ec;
    fs::remove(copia, ec); // only after 999999 copies: the number starts again
    {
        Database origine(fileDB);
        const std::vector<std::string> archivi = ElencoArchivi(origine);
        Database db;
        db.Crea(copia);
        try {
            for (const std::string& a : archivi) {
                db.SelectIntoDaAltroFile(a, fileDB, a);
                db.CreaIndice(a, DefIndice{IndiceArchivio, {"Nome"}, false, false});
            }
        } catch (...) {
            db.Chiudi();
            fs::remove(copia, ec);
            throw;
        }
    }
    std::vector<fs::path> tutte = CopieAutomatiche(cartella);
    for (std::size_t i = 0; i + CopieTenute < tutte.size(); ++i)
        fs::remove(tutte[i], ec);
    return copia;
}

bool CopiaPrimaDiEliminare(const std::string& fileDB, const std::string& cartella,
                           Messaggi& messaggi, const std::string& routine) {
    if (cartella.empty()) return true;
    try {
        CopiaAutomaticaArchivi(fileDB, cartella);
        return true;
    } catch (const std::exception& e) {
        messaggi.Mostra("Vesmo - Copia automatica",
                        routine + ": copia automatica degli archivi non riuscita in\n" + cartella +
                            "\n" + e.what() + "\n\nNulla è stato eliminato.",
                        Pulsanti::Ok, Icona::Critico);
        return false;
    }
}

std::vector<std::string> ArchiviDellaCopia(const std::string& fileCopia) {
    return ElencoArchivi(fileCopia);
}

std::string RipristinaArchivio(const std::string& fileDB, const std::string& fileCopia,
                               const std::string& archivio) {
    Database db(fileDB);
    std::string nome = archivio;
    for (int n = 1; db.EsisteTabella(nome); ++n)
        nome = archivio + "_" + std::to_string(n);
    db.SelectIntoDaAltroFile(nome, fileCopia, archivio);
    try {
        db.CreaIndice(nome, DefIndice{IndiceArchivio, {"Nome"}, false, false});
    } catch (...) {
        db.EliminaTabella(nome); // made just now: no half archive is left
        throw;
    }
    return nome;
}

} // namespace vesmo
