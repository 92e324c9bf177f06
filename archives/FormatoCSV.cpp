#include "archives/FormatoCSV.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include "archives/Elenchi.h"
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

namespace {

// The columns of the header row by name, upper case, Stato read as Nazione; the first column of
// a name counts.
class ColonneCSV {
public:
    explicit ColonneCSV(const Riga& testata) {
        for (std::size_t i = 0; i < testata.campi.size(); ++i) {
            std::string n = Maiuscole(Pulito(testata.campi[i]));
            if (n == "STATO") n = "NAZIONE";
            if (!colonna_.count(n)) colonna_[n] = i;
        }
    }
    // The field of column `nome` in row `r` without the blanks around; none when the column or
    // the field is missing or blank.
    std::optional<std::string> operator()(const Riga& r, const char* nome) const {
        auto it = colonna_.find(Maiuscole(nome));
        if (it == colonna_.end() || it->second >= r.campi.size()) return std::nullopt;
        std::string v = Pulito(r.campi[it->second]);
        if (v.empty()) return std::nullopt;
        return v;
    }
    // The comment as it stands, blanks kept; none when the row has no such column.
    std::optional<std::string> Commento(const Riga& r) const {
        auto it = colonna_.find("CMTO");
        if (it == colonna_.end() || it->second >= r.campi.size()) return std::nullopt;
        return r.campi[it->second];
    }

private:
    std::map<std::string, std::size_t> colonna_;
};

// The steps of reading one row into an entry. Each that can refuse the row returns the reason
// ("" when it does not) and leaves the chart as far as it got.

// The date and clock time: Day and OraL (the archive's exact values) when both are given, else
// Data and Ora.
std::string LeggiMomento(const ColonneCSV& c, const Riga& r, bool virgola, Tema& t) {
    auto day = c(r, "Day"), oraL = c(r, "OraL");
    if (day && oraL) {
        auto d = Numero(*day, virgola), o = Numero(*oraL, virgola);
        if (!d || *d < 0 || *d > 5373484.5 || std::fabs(*d - std::floor(*d) - 0.5) > 1e-9)
            return "Day non valido: " + *day;
        if (!o || *o < 0 || *o >= 24) return "OraL non valida: " + *oraL;
        t.Day = *d;
        t.OraL = *o;
        return {};
    }
    auto data = c(r, "Data"), ora = c(r, "Ora");
    std::optional<double> d = data ? LeggiDataElenco(*data) : std::nullopt;
    if (!d) return "data non valida: " + data.value_or("");
    std::optional<double> o = ora ? Ora(*ora) : std::nullopt;
    if (!o) return "ora non valida: " + ora.value_or("");
    t.Day = *d;
    t.OraL = *o;
    return {};
}

// Coordinates, zone and summer time; a row without Lon, Lat or Fuso is completed through
// `completa` (with a note) before the values given are put over it.
std::string LeggiLuogo(const ColonneCSV& c, const Riga& r, bool virgola,
                       const CompletaLuogo& completa, VoceScambio& v) {
    Tema& t = v.tema;
    auto lonT = c(r, "Lon"), latT = c(r, "Lat"), fusoT = c(r, "Fuso"), estT = c(r, "Estiva");
    std::optional<double> lon, lat, fuso, estiva = 0.0;
    if (lonT && !((lon = Coordinata(*lonT, virgola, true)) && std::fabs(*lon) <= 12))
        return "Lon non valida: " + *lonT;
    if (latT && !((lat = Coordinata(*latT, virgola, false)) && std::fabs(*lat) <= 90))
        return "Lat non valida: " + *latT;
    if (fusoT && !((fuso = Numero(*fusoT, virgola)) && std::fabs(*fuso) <= 24))
        return "Fuso non valido: " + *fusoT;
    if (estT && !((estiva = Numero(*estT, virgola)) && std::fabs(*estiva) <= 3))
        return "Estiva non valida: " + *estT;
    if (!lon || !lat || !fuso) {
        if (std::string errore = CompletaVoce(completa, v); !errore.empty()) return errore;
    }
    if (lon) t.Lon = *lon;
    if (lat) t.Lat = *lat;
    if (fuso) {
        t.Fuso = *fuso;
        t.Estiva = *estiva;
    }
    return {};
}

} // namespace

std::vector<VoceScambio> LeggiCSV(std::string_view testo, const CompletaLuogo& completa) {
    std::vector<VoceScambio> voci;
    const char sep = Separatore(testo);
    const bool virgola = sep != ',';
    std::vector<Riga> righe = Righe(testo, sep);
    if (righe.empty()) return voci;
    const ColonneCSV c(righe[0]);
    for (std::size_t k = 1; k < righe.size(); ++k) {
        const Riga& r = righe[k];
        VoceScambio v;
        v.riga = r.numero;
        Tema& t = v.tema;
        t.Nome = c(r, "Nome").value_or("");
        t.City = c(r, "City").value_or("");
        t.Stato = c(r, "Nazione").value_or("");
        if (auto cmto = c.Commento(r)) t.Cmto = *cmto;
        if ((v.errore = LeggiMomento(c, r, virgola, t)).empty())
            v.errore = LeggiLuogo(c, r, virgola, completa, v);
        voci.push_back(v);
    }
    return voci;
}

} // namespace vesmo
