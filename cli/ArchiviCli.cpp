#include "cli/ArchiviCli.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "archives/Archivi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "core/Testo.h"

namespace vesmo::cli {

Database ApriArchivi(const Argomenti& a) {
    const auto file = FileDatabase(a);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        throw std::runtime_error("database non trovato: " + file.string() +
                                 " (scripts/prepara-dati lo costruisce, --db ne indica un altro)");
    return Database(file);
}

std::optional<std::string> TrovaArchivio(const Database& db, const std::string& nome) {
    const std::vector<std::string> archivi = ElencoArchivi(db);
    for (const std::string& n : archivi)
        if (n == nome) return n;
    for (const std::string& n : archivi)
        if (UgualeSenzaCaso(n, nome)) return n;
    return std::nullopt;
}

std::string JsonTemaArchivio(const Tema& t) {
    JsonOggetto j;
    j.Testo("Nome", t.Nome.str())
        .Testo("City", t.City.str())
        .Testo("Nazione", t.Stato.str())
        .Numero("Day", t.Day)
        .Numero("OraL", t.OraL)
        .Numero("Lon", t.Lon)
        .Numero("Lat", t.Lat)
        .Numero("Fuso", t.Fuso)
        .Numero("Estiva", t.Estiva)
        .Testo("Cmto", t.Cmto);
    return j.str();
}

namespace {

// A number of the table: at most six decimals, with the dot, right-aligned in its column.
std::string Numero(double x, std::size_t larghezza) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.6f", x);
    std::string s = buf;
    while (s.back() == '0')
        s.pop_back();
    if (s.back() == '.') s.pop_back();
    if (s == "-0") s = "0";
    return s.size() >= larghezza ? s + ' ' : std::string(larghezza - s.size(), ' ') + s + ' ';
}

} // namespace

std::string TestataTemi() {
    return TagliaOAllunga("Nome", 30) + ' ' + TagliaOAllunga("City", 30) + ' ' +
           TagliaOAllunga("Nazione", 38) + ' ' +
           "          Day       OraL        Lon        Lat  " + "   Fuso   Estiva Cmto";
}

std::string RigaTemaArchivio(const Tema& t) {
    std::string cmto = t.Cmto;
    for (char& c : cmto)
        if (c == '\n' || c == '\r' || c == '\t') c = ' ';
    return SenzaSpaziDestra(t.Nome.str() + ' ' + t.City.str() + ' ' + t.Stato.str() + ' ' +
                            Numero(t.Day, 13) + Numero(t.OraL, 10) + Numero(t.Lon, 10) +
                            Numero(t.Lat, 10) + Numero(t.Fuso, 8) + Numero(t.Estiva, 8) + cmto);
}

} // namespace vesmo::cli
