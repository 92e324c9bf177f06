#include "archives/FormatoCSV.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

namespace {

// A field longer than this is cut: no field of a chart needs more.
constexpr std::size_t MassimoCampo = 65536;

const char* const Colonne[] = {"Nome", "Data", "Ora",    "City", "Nazione", "Lon",
                               "Lat",  "Fuso", "Estiva", "Day",  "OraL",    "Cmto"};

// The rows of a CSV text: fields split at the separator, double quotes around a field that may
// hold separators, quotes doubled and line ends. Each row with the line it begins on.
struct Riga {
    std::int64_t numero = 0;
    std::vector<std::string> campi;
};

std::vector<Riga> Righe(std::string_view t, char sep) {
    std::vector<Riga> righe;
    std::int64_t linea = 1;
    std::size_t i = 0;
    while (i < t.size()) {
        Riga r;
        r.numero = linea;
        std::string campo;
        bool fine = false;
        while (!fine) {
            campo.clear();
            if (i < t.size() && t[i] == '"') {
                ++i;
                while (i < t.size()) {
                    if (t[i] == '"') {
                        if (i + 1 < t.size() && t[i + 1] == '"') {
                            if (campo.size() < MassimoCampo) campo.push_back('"');
                            i += 2;
                            continue;
                        }
                        ++i;
                        break;
                    }
                    if (t[i] == '\n') ++linea;
                    if (t[i] != '\r' && campo.size() < MassimoCampo) campo.push_back(t[i]);
                    ++i;
                }
                // What stands between the closing quote and the separator is dropped.
                while (i < t.size() && t[i] != sep && t[i] != '\n')
                    ++i;
            } else {
                while (i < t.size() && t[i] != sep && t[i] != '\n') {
                    if (t[i] != '\r' && campo.size() < MassimoCampo) campo.push_back(t[i]);
                    ++i;
                }
            }
            r.campi.push_back(campo);
            if (i >= t.size() || t[i] == '\n') {
                fine = true;
                if (i < t.size()) ++linea;
            }
            ++i;
        }
        bool vuota = true;
        for (const std::string& c : r.campi)
            if (!SenzaSpazi(c).empty()) vuota = false;
        if (!vuota) righe.push_back(std::move(r));
    }
    return righe;
}

char Separatore(std::string_view t) {
    std::string_view prima = t.substr(0, t.find('\n'));
    std::size_t virgole = 0, puntiVirgola = 0, tab = 0;
    for (char c : prima) {
        virgole += c == ',';
        puntiVirgola += c == ';';
        tab += c == '\t';
    }
    if (tab > virgole && tab > puntiVirgola) return '\t';
    return puntiVirgola > virgole ? ';' : ',';
}

std::string Pulito(const std::string& s) {
    std::size_t a = s.find_first_not_of(" \t"), b = s.find_last_not_of(" \t");
    return a == std::string::npos ? "" : s.substr(a, b - a + 1);
}

std::optional<double> Numero(std::string t, bool virgola) {
    t = Pulito(t);
    if (virgola)
        for (char& c : t)
            if (c == ',') c = '.';
    if (t.empty() || t.size() > 40) return std::nullopt;
    for (char c : t)
        if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+' ||
              c == 'e' || c == 'E'))
            return std::nullopt;
    char* fine = nullptr;
    const double v = std::strtod(t.c_str(), &fine);
    if (fine != t.c_str() + t.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

// Whole numbers split at any of the separators: "12/03/1960", "12.3.1960", "1960-03-12".
std::vector<long> Parti(const std::string& t, const char* separatori) {
    std::vector<long> r;
    std::string n;
    auto chiudi = [&] {
        if (n.empty() || n.size() > 6 || n == "-") {
            r.push_back(-99999);
        } else {
            r.push_back(std::strtol(n.c_str(), nullptr, 10));
        }
        n.clear();
    };
    for (char c : t) {
        if (std::strchr(separatori, c)) {
            chiudi();
        } else if (std::isdigit(static_cast<unsigned char>(c)) || (c == '-' && n.empty())) {
            n.push_back(c);
        } else {
            return {};
        }
    }
    chiudi();
    return r;
}

std::optional<double> Data(const std::string& testo) {
    const std::string t = Pulito(testo);
    long g, m, a;
    if (auto iso = Parti(t, "-");
        iso.size() == 3 && t.find('/') == std::string::npos && t.size() >= 8 && t[4] == '-') {
        a = iso[0], m = iso[1], g = iso[2];
    } else if (auto p = Parti(t, "/."); p.size() == 3) {
        g = p[0], m = p[1], a = p[2];
    } else {
        return std::nullopt;
    }
    if (g < 1 || g > 31 || m < 1 || m > 12 || a < -4712 || a > 9999) return std::nullopt;
    const double jd = GiornoGiuliano(a, m, g);
    float aa, mm, gg;
    DataDaGiuliano(jd, aa, mm, gg);
    if (aa != static_cast<float>(a) || mm != static_cast<float>(m) || gg != static_cast<float>(g))
        return std::nullopt;
    return jd;
}

std::optional<double> Ora(const std::string& testo) {
    const std::string t = Pulito(testo);
    std::size_t p = t.find(':');
    if (p == std::string::npos) return std::nullopt;
    std::size_t q = t.find(':', p + 1);
    auto h = Numero(t.substr(0, p), false);
    auto m = Numero(t.substr(p + 1, q == std::string::npos ? q : q - p - 1), false);
    std::optional<double> s = 0.0;
    if (q != std::string::npos) s = Numero(t.substr(q + 1), true);
    if (!h || !m || !s || *h < 0 || *h > 23 || *h != std::floor(*h) || *m < 0 || *m >= 60 ||
        *m != std::floor(*m) || *s < 0 || *s >= 60)
        return std::nullopt;
    return GradiDecimali(*h, *m, *s);
}

// A coordinate: a number in the archive's unit, or a text with its side ("11E53", "45N24").
std::optional<double> Coordinata(const std::string& testo, bool virgola, bool longitudine) {
    const std::string t = Maiuscole(Pulito(testo));
    // "12E03" is a side's text, not a power of ten; "1e-05" and "1.5E2" are numbers.
    if (t.find_first_of(".+-") != std::string::npos || t.find_first_of("ENSW") == std::string::npos)
        return Numero(testo, virgola);
    const char a = longitudine ? 'E' : 'N', b = longitudine ? 'W' : 'S';
    std::size_t p = t.find_first_of(std::string{a, b});
    if (p == std::string::npos || p == 0 || t.size() > 20) return std::nullopt;
    for (char c : t)
        if (!(std::isdigit(static_cast<unsigned char>(c)) || c == a || c == b || c == '\'' ||
              c == '.'))
            return std::nullopt;
    return longitudine ? LonDaTesto(t, 0) : LatDaTesto(t, 0);
}

std::string Campo(const std::string& t) {
    if (t.find_first_of(",\"\r\n") == std::string::npos) return t;
    std::string r = "\"";
    for (char c : t) {
        if (c == '"') r.push_back('"');
        r.push_back(c);
    }
    return r + "\"";
}

std::string Numero17(double x) {
    char b[40];
    std::snprintf(b, sizeof b, "%.17g", x);
    return b;
}

} // namespace

std::string TestataCSV() {
    std::string r;
    for (const char* c : Colonne)
        r += std::string(r.empty() ? "" : ",") + c;
    return r + "\r\n";
}

std::string RigaCSV(const Tema& t) {
    float anno, mese, giorno;
    DataDaGiuliano(t.Day, anno, mese, giorno);
    double h, m, s;
    GradiPrimiSecondi(t.OraL, h, m, s);
    char data[48], ora[32];
    std::snprintf(data, sizeof data, "%02d/%02d/%04d", static_cast<int>(giorno),
                  static_cast<int>(mese), static_cast<int>(anno));
    long sec = std::lround(t.OraL * 3600);
    if (sec >= 86400) sec = 86399;
    std::snprintf(ora, sizeof ora, "%02ld:%02ld:%02ld", sec / 3600, sec / 60 % 60, sec % 60);
    return Campo(t.Nome.Valore()) + "," + data + "," + ora + "," + Campo(t.City.Valore()) + "," +
           Campo(t.Stato.Valore()) + "," + Numero17(t.Lon) + "," + Numero17(t.Lat) + "," +
           Numero17(t.Fuso) + "," + Numero17(t.Estiva) + "," + Numero17(t.Day) + "," +
           Numero17(t.OraL) + "," + Campo(t.Cmto) + "\r\n";
}

std::vector<VoceScambio> LeggiCSV(std::string_view testo, const CompletaLuogo& completa) {
    std::vector<VoceScambio> voci;
    const char sep = Separatore(testo);
    const bool virgola = sep != ',';
    std::vector<Riga> righe = Righe(testo, sep);
    if (righe.empty()) return voci;
    std::map<std::string, std::size_t> colonna;
    for (std::size_t i = 0; i < righe[0].campi.size(); ++i) {
        std::string n = Maiuscole(Pulito(righe[0].campi[i]));
        if (n == "STATO") n = "NAZIONE";
        if (!colonna.count(n)) colonna[n] = i;
    }
    auto c = [&](const Riga& r, const char* nome) -> std::optional<std::string> {
        auto it = colonna.find(Maiuscole(nome));
        if (it == colonna.end() || it->second >= r.campi.size()) return std::nullopt;
        std::string v = Pulito(r.campi[it->second]);
        if (v.empty()) return std::nullopt;
        return v;
    };
    for (std::size_t k = 1; k < righe.size(); ++k) {
        const Riga& r = righe[k];
        VoceScambio v;
        v.riga = r.numero;
        Tema& t = v.tema;
        t.Nome = c(r, "Nome").value_or("");
        t.City = c(r, "City").value_or("");
        t.Stato = c(r, "Nazione").value_or("");
        if (colonna.count("CMTO") && colonna["CMTO"] < r.campi.size())
            t.Cmto = r.campi[colonna["CMTO"]];
        auto errore = [&](const std::string& e) {
            v.errore = e;
            voci.push_back(v);
        };
        auto day = c(r, "Day"), oraL = c(r, "OraL");
        if (day && oraL) {
            auto d = Numero(*day, virgola), o = Numero(*oraL, virgola);
            if (!d || *d < 0 || *d > 5373484.5 || std::fabs(*d - std::floor(*d) - 0.5) > 1e-9) {
                errore("Day non valido: " + *day);
                continue;
            }
            if (!o || *o < 0 || *o >= 24) {
                errore("OraL non valida: " + *oraL);
                continue;
            }
            t.Day = *d;
            t.OraL = *o;
        } else {
            auto data = c(r, "Data"), ora = c(r, "Ora");
            std::optional<double> d = data ? Data(*data) : std::nullopt;
            if (!d) {
                errore("data non valida: " + data.value_or(""));
                continue;
            }
            std::optional<double> o = ora ? Ora(*ora) : std::nullopt;
            if (!o) {
                errore("ora non valida: " + ora.value_or(""));
                continue;
            }
            t.Day = *d;
            t.OraL = *o;
        }
        auto lonT = c(r, "Lon"), latT = c(r, "Lat"), fusoT = c(r, "Fuso"), estT = c(r, "Estiva");
        std::optional<double> lon, lat, fuso, estiva = 0.0;
        if (lonT && !((lon = Coordinata(*lonT, virgola, true)) && std::fabs(*lon) <= 12)) {
            errore("Lon non valida: " + *lonT);
            continue;
        }
        if (latT && !((lat = Coordinata(*latT, virgola, false)) && std::fabs(*lat) <= 90)) {
            errore("Lat non valida: " + *latT);
            continue;
        }
        if (fusoT && !((fuso = Numero(*fusoT, virgola)) && std::fabs(*fuso) <= 24)) {
            errore("Fuso non valido: " + *fusoT);
            continue;
        }
        if (estT && !((estiva = Numero(*estT, virgola)) && std::fabs(*estiva) <= 3)) {
            errore("Estiva non valida: " + *estT);
            continue;
        }
        if (!lon || !lat || !fuso) {
            if (!completa) {
                errore("luogo senza coordinate o fuso, e nessun database dei luoghi");
                continue;
            }
            try {
                completa(t);
            } catch (const std::exception& e) {
                errore(std::string("luogo non trovato nel database dei luoghi: ") + e.what());
                continue;
            }
            v.completare = true;
            v.nota = "completato dal database dei luoghi: " + SenzaSpazi(t.City.str()) + ", " +
                     SenzaSpazi(t.Stato.str()) + ", " + TestoCoordinata(t.Lon, 1, 0, false) + " " +
                     TestoCoordinata(t.Lat, 0, 1, false) + ", fuso " + TestoNumero(t.Fuso) +
                     ", estiva " + TestoNumero(t.Estiva);
        }
        if (lon) t.Lon = *lon;
        if (lat) t.Lat = *lat;
        if (fuso) {
            t.Fuso = *fuso;
            t.Estiva = *estiva;
        }
        voci.push_back(v);
    }
    return voci;
}

} // namespace vesmo
