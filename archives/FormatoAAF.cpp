#include "archives/FormatoAAF.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

namespace {

// A line longer than this is cut: no chunk of a chart needs more.
constexpr std::size_t MassimoRiga = 65536;
// A second as a fraction of a day.
constexpr double Secondo = 1.0 / 86400;

bool Spazio(char c) {
    return c == ' ' || c == '\t' || c == '\f' || c == '\v' || c == '\r' || c == '\n';
}

std::string Pulito(std::string_view s) {
    std::size_t a = 0, b = s.size();
    while (a < b && Spazio(s[a]))
        ++a;
    while (b > a && Spazio(s[b - 1]))
        --b;
    return std::string(s.substr(a, b - a));
}

std::vector<std::string> Campi(std::string_view dati) {
    std::vector<std::string> r;
    std::size_t p = 0;
    for (;;) {
        std::size_t q = dati.find(',', p);
        r.push_back(Pulito(dati.substr(p, q == std::string_view::npos ? q : q - p)));
        if (q == std::string_view::npos) return r;
        p = q + 1;
    }
}

bool Ignoto(const std::string& campo) {
    return campo.empty() || campo == "*";
}

// Digits with at most one decimal point, and nothing else; at most 20 characters.
std::optional<double> Decimale(std::string_view t) {
    if (t.empty() || t.size() > 20) return std::nullopt;
    bool cifra = false, punto = false;
    for (char c : t) {
        if (c >= '0' && c <= '9')
            cifra = true;
        else if (c == '.' && !punto)
            punto = true;
        else
            return std::nullopt;
    }
    if (!cifra) return std::nullopt;
    return std::strtod(std::string(t).c_str(), nullptr);
}

std::optional<double> ConSegno(std::string_view t) {
    bool meno = !t.empty() && t[0] == '-';
    if (!t.empty() && (t[0] == '-' || t[0] == '+')) t.remove_prefix(1);
    auto v = Decimale(t);
    if (!v) return std::nullopt;
    return meno ? -*v : *v;
}

// "D.M.Y": the Julian day of the date at 0h, when that day exists.
std::optional<double> DataAAF(const std::string& t) {
    std::size_t p = t.find('.'), q = p == std::string::npos ? p : t.find('.', p + 1);
    if (q == std::string::npos) return std::nullopt;
    auto g = Decimale(std::string_view(t).substr(0, p));
    auto m = Decimale(std::string_view(t).substr(p + 1, q - p - 1));
    auto a = ConSegno(std::string_view(t).substr(q + 1));
    if (!g || !m || !a || *g != std::floor(*g) || *m != std::floor(*m) || *a != std::floor(*a))
        return std::nullopt;
    if (*g < 1 || *g > 31 || *m < 1 || *m > 12 || *a < -4712 || *a > 9999) return std::nullopt;
    const double jd = GiornoGiuliano(*a, *m, *g);
    float aa, mm, gg;
    DataDaGiuliano(jd, aa, mm, gg);
    if (aa != static_cast<float>(*a) || mm != static_cast<float>(*m) ||
        gg != static_cast<float>(*g))
        return std::nullopt;
    return jd;
}

// "H:M", "H:M:S" or "H.M": decimal hours from 0 to under 24.
std::optional<double> OraAAF(const std::string& t) {
    std::size_t p = t.find_first_of(":.");
    if (p == std::string::npos) return std::nullopt;
    std::size_t q = t.find(':', p + 1);
    auto h = Decimale(std::string_view(t).substr(0, p));
    auto m = Decimale(std::string_view(t).substr(p + 1, q == std::string::npos ? q : q - p - 1));
    std::optional<double> s = 0.0;
    if (q != std::string::npos) s = Decimale(std::string_view(t).substr(q + 1));
    if (!h || !m || !s || *h != std::floor(*h) || *m != std::floor(*m) || *h > 23 || *m >= 60 ||
        *s >= 60)
        return std::nullopt;
    return GradiDecimali(*h, *m, *s);
}

// A text field of the chunks: no commas (they would split the field), no line ends.
std::string CampoAAF(std::string_view t) {
    std::string r = SenzaSpazi(t);
    for (char& c : r)
        if (c == ',') c = ';';
    return r.empty() ? "*" : r;
}

// The exact values of the own chunk: "%" and "," coded.
std::string Codifica(std::string_view t) {
    std::string r;
    for (char c : t) {
        if (c == '%')
            r += "%25";
        else if (c == ',')
            r += "%2C";
        else
            r.push_back(c);
    }
    return r;
}

std::string Decodifica(std::string_view t) {
    std::string r;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i] == '%' && t.substr(i, 3) == "%25") {
            r.push_back('%');
            i += 2;
        } else if (t[i] == '%' && t.substr(i, 3) == "%2C") {
            r.push_back(',');
            i += 2;
        } else {
            r.push_back(t[i]);
        }
    }
    return r;
}

std::string Numero17(double x) {
    char b[40];
    std::snprintf(b, sizeof b, "%.17g", x);
    return b;
}

std::optional<double> Numero(const std::string& t) {
    if (t.empty() || t.size() > 40) return std::nullopt;
    char* fine = nullptr;
    const double v = std::strtod(t.c_str(), &fine);
    if (fine != t.c_str() + t.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

// Degrees, minutes and seconds of an angle, the seconds rounded.
void Sessagesimali(double x, long& g, long& m, long& s) {
    const long totale = std::lround(std::fabs(x) * 3600);
    g = totale / 3600;
    m = totale / 60 % 60;
    s = totale % 60;
}

std::string TestoGradi(double gradi, char positivo, char negativo) {
    long g, m, s;
    Sessagesimali(gradi, g, m, s);
    char b[48];
    if (s)
        std::snprintf(b, sizeof b, "%ld%c%02ld:%02ld", g, gradi < 0 ? negativo : positivo, m, s);
    else
        std::snprintf(b, sizeof b, "%ld%c%02ld", g, gradi < 0 ? negativo : positivo, m);
    return b;
}

} // namespace

std::string LeggiA93(const BloccoAAF& r, Tema& t) {
    const auto& a = r.a93;
    std::string nome = Ignoto(a[0]) ? "" : a[0];
    if (a.size() > 1 && !Ignoto(a[1])) nome += (nome.empty() ? "" : ", ") + a[1];
    t.Nome = nome;
    t.Cmto = r.commento;
    if (a.size() < 7) return "#A93 con " + std::to_string(a.size()) + " campi invece di 7";
    t.City = Ignoto(a[5]) ? "" : a[5];
    auto nazione = NazioneDaSiglaAAF(a[6]);
    t.Stato = nazione ? *nazione : (Ignoto(a[6]) ? "" : a[6]);
    auto day = DataAAF(a[3]);
    if (!day) return "data non valida: " + a[3];
    t.Day = *day;
    auto ora = OraAAF(a[4]);
    if (!ora) return "ora non valida: " + a[4];
    t.OraL = *ora;
    return {};
}

bool LeggiProprio(const BloccoAAF& r, Tema& t) {
    if (!r.conVesmo || r.vesmo.size() != 9) return false;
    std::optional<double> n[6];
    bool tutti = true;
    for (int i = 0; i < 6; ++i)
        tutti = (n[i] = Numero(r.vesmo[static_cast<std::size_t>(i)])) && tutti;
    if (!tutti || *n[0] != t.Day || std::fabs(*n[1] - t.OraL) >= 1.0 / 60 ||
        std::fabs(*n[2]) > 12 || std::fabs(*n[3]) > 90 || std::fabs(*n[4]) > 24 ||
        std::fabs(*n[5]) > 24)
        return false;
    t.OraL = *n[1];
    t.Lon = *n[2];
    t.Lat = *n[3];
    t.Fuso = *n[4];
    t.Estiva = *n[5];
    t.Nome = Decodifica(r.vesmo[6]);
    t.City = Decodifica(r.vesmo[7]);
    t.Stato = Decodifica(r.vesmo[8]);
    return true;
}

std::string LeggiB93(const BloccoAAF& r, double day, DatiB93& d) {
    d.lmt = r.lmt;
    if (!r.conB93) return {};
    std::vector<std::string> b = r.b93;
    b.resize(5);
    if (!Ignoto(b[0]) && !(d.jd = Decimale(b[0]))) return "giorno giuliano non valido: " + b[0];
    if (!Ignoto(b[1]) && !(d.lat = GradiAAF(b[1], 'n', 's')))
        return "latitudine non valida: " + b[1];
    if (!Ignoto(b[2]) && !(d.lon = GradiAAF(b[2], 'e', 'w')))
        return "longitudine non valida: " + b[2];
    if (b[4] == "L" || b[4] == "l" || b[4] == "m" || b[4] == "M")
        d.lmt = true;
    else if (!Ignoto(b[4]) && !((d.estiva = ConSegno(b[4])) && std::fabs(*d.estiva) <= 3))
        return "ora estiva non valida: " + b[4];
    if (!Ignoto(b[3]) && !d.lmt && !(d.zona = ZonaAAF(b[3]))) return "fuso non valido: " + b[3];
    if (d.lat && std::fabs(*d.lat) > 90) return "latitudine non valida: " + b[1];
    if (d.lon && std::fabs(*d.lon) > 180) return "longitudine non valida: " + b[2];
    if (d.jd && std::fabs(*d.jd - day) > 2) return "giorno giuliano lontano dalla data: " + b[0];
    return {};
}

std::string CompletaDaLuoghi(const DatiB93& d, const CompletaLuogo& completa, VoceScambio& v) {
    if (d.lat && d.lon && (d.zona || d.jd || d.lmt)) return {};
    return CompletaVoce(completa, v);
}

std::string ApplicaB93(const BloccoAAF& r, const DatiB93& d, VoceScambio& v) {
    Tema& t = v.tema;
    if (d.lat) t.Lat = *d.lat;
    if (d.lon) t.Lon = -*d.lon / 15;
    if (d.lmt) {
        t.Fuso = t.Lon;
        t.Estiva = 0;
    } else if (d.zona) {
        t.Fuso = -*d.zona;
        t.Estiva = d.estiva ? *d.estiva : 0;
    }
    if (d.jd && !d.zona && !d.lmt) {
        // The zone from the Julian day: the summer time as given, the rest is the zone.
        t.Estiva = d.estiva ? *d.estiva : 0;
        const double scarto = std::round(((*d.jd - t.Day) * 24 - t.OraL) * 3600) / 3600;
        t.Fuso = scarto + t.Estiva;
    } else if (d.jd && std::fabs(t.JD() - *d.jd) > Secondo) {
        t.OraL = (*d.jd - t.Day) * 24 + t.Estiva - t.Fuso;
        t.OraL = std::round(t.OraL * 3600) / 3600;
        while (t.OraL < 0) {
            t.OraL += 24;
            t.Day -= 1;
        }
        while (t.OraL >= 24) {
            t.OraL -= 24;
            t.Day += 1;
        }
        v.nota = "ora " + r.a93[4] + " corretta dal giorno giuliano " + r.b93[0];
    }
    if (std::fabs(t.Fuso) > 24) return "fuso non valido: " + TestoNumero(t.Fuso);
    if (r.lmt && std::fabs(t.Fuso - t.Lon) <= Secondo * 24) t.Fuso = t.Lon;
    return {};
}

VoceScambio VoceAAF(const BloccoAAF& r, const CompletaLuogo& completa) {
    VoceScambio v;
    v.riga = r.riga;
    if ((v.errore = LeggiA93(r, v.tema)).empty() && !LeggiProprio(r, v.tema)) {
        DatiB93 d;
        if ((v.errore = LeggiB93(r, v.tema.Day, d)).empty() &&
            (v.errore = CompletaDaLuoghi(d, completa, v)).empty())
            v.errore = ApplicaB93(r, d, v);
    }
    return v;
}

std::optional<double> GradiAAF(std::string_view testo, char positivo, char negativo) {
    std::string t = Pulito(testo);
    std::size_t p = std::string::npos;
    double segno = 1;
    for (std::size_t i = 0; i < t.size(); ++i) {
        const char c = static_cast<char>(std::tolower(static_cast<unsigned char>(t[i])));
        if (c == positivo || c == negativo) {
            p = i;
            segno = c == negativo ? -1 : 1;
            break;
        }
    }
    if (p == std::string::npos || p == 0) return std::nullopt;
    auto g = Decimale(std::string_view(t).substr(0, p));
    std::string_view resto = std::string_view(t).substr(p + 1);
    std::size_t q = resto.find_first_of(":'");
    std::optional<double> m = resto.empty() ? 0.0 : Decimale(resto.substr(0, q));
    std::optional<double> s = 0.0;
    if (q != std::string_view::npos) s = Decimale(resto.substr(q + 1));
    if (!g || !m || !s || *m >= 60 || *s >= 60) return std::nullopt;
    return segno * GradiDecimali(*g, *m, *s);
}

std::optional<double> ZonaAAF(std::string_view testo) {
    std::string t;
    for (char c : Pulito(testo))
        t.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
    if (auto v = ConSegno(t)) {
        // A plain number: hours east.
        if (std::fabs(*v) > 24) return std::nullopt;
        return *v;
    }
    // "1he00", "0he49:32", "1he", "0e21:48", or "1h00e" with the side behind the minutes.
    std::size_t p = t.find_first_of("ew");
    if (p == std::string::npos || p == 0) return std::nullopt;
    const double segno = t[p] == 'w' ? -1 : 1;
    std::string ore = t.substr(0, p), minuti = t.substr(p + 1);
    if (minuti.empty()) {
        std::size_t h = ore.find('h');
        if (h != std::string::npos) {
            minuti = ore.substr(h + 1);
            ore = ore.substr(0, h);
        }
    } else if (ore.back() == 'h') {
        ore.pop_back();
    }
    auto h = Decimale(ore);
    std::size_t q = minuti.find(':');
    std::optional<double> m = minuti.empty() ? 0.0 : Decimale(minuti.substr(0, q));
    std::optional<double> s = 0.0;
    if (q != std::string::npos) s = Decimale(minuti.substr(q + 1));
    if (!h || !m || !s || *m >= 60 || *s >= 60 || *h > 24) return std::nullopt;
    return segno * GradiDecimali(*h, *m, *s);
}

std::vector<VoceScambio> LeggiAAF(std::string_view testo, const CompletaLuogo& completa) {
    std::vector<VoceScambio> voci;
    std::optional<BloccoAAF> r;
    std::string* ultimo = nullptr; // the comment a line without "#" continues
    std::string bloccoVesmo;
    auto chiudi = [&] {
        if (r) voci.push_back(VoceAAF(*r, completa));
        r.reset();
        ultimo = nullptr;
    };
    std::int64_t numero = 0;
    std::size_t p = 0;
    while (p < testo.size()) {
        std::size_t q = testo.find('\n', p);
        std::string_view riga = testo.substr(p, q == std::string_view::npos ? q : q - p);
        p = q == std::string_view::npos ? testo.size() : q + 1;
        ++numero;
        if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
        if (riga.size() > MassimoRiga) riga = riga.substr(0, MassimoRiga);
        if (riga.empty() || riga[0] != '#') {
            if (ultimo && !Pulito(riga).empty()) *ultimo += "\n" + Pulito(riga);
            continue;
        }
        std::size_t duePunti = riga.find(':');
        if (duePunti == std::string_view::npos) continue;
        const std::string nome = Maiuscole(riga.substr(0, duePunti));
        std::string_view dati = riga.substr(duePunti + 1);
        ultimo = nullptr;
        if (nome == "#A93") {
            chiudi();
            r.emplace();
            r->riga = numero;
            r->a93 = Campi(dati);
        } else if (!r || nome == "#") {
            continue;
        } else if (nome == "#B93") {
            r->b93 = Campi(dati);
            r->conB93 = true;
        } else if (nome == "#ZNAM") {
            r->lmt = UgualeSenzaCaso(Pulito(dati), "LMT");
        } else if (nome == "#COM") {
            if (!r->commento.empty()) r->commento += "\n";
            r->commento += Pulito(dati);
            ultimo = &r->commento;
        } else if (nome == "#VESMO") {
            r->vesmo = Campi(dati);
            r->conVesmo = true;
        }
    }
    chiudi();
    return voci;
}

std::string RecordAAF(const Tema& t) {
    float anno, mese, giorno;
    DataDaGiuliano(t.Day, anno, mese, giorno);
    long h, m, s;
    Sessagesimali(t.OraL, h, m, s);
    if (h >= 24) h = 23, m = 59, s = 59;
    char ora[32];
    if (s)
        std::snprintf(ora, sizeof ora, "%ld:%02ld:%02ld", h, m, s);
    else
        std::snprintf(ora, sizeof ora, "%ld:%02ld", h, m);
    // The name "Surname, First name" goes into its two fields.
    std::string nome = SenzaSpazi(t.Nome.str()), primo = "*";
    if (std::size_t v = nome.find(", "); v != std::string::npos) {
        primo = CampoAAF(nome.substr(v + 2));
        nome = nome.substr(0, v);
    }
    auto sigla = SiglaAAFDaNazione(t.Stato.str());
    const bool lmt = std::fabs(t.Lon - t.Fuso) <= static_cast<double>(0.0001f);
    char data[48];
    std::snprintf(data, sizeof data, "%.0f.%.0f.%.0f", static_cast<double>(giorno),
                  static_cast<double>(mese), static_cast<double>(anno));
    std::string r = "#A93:" + CampoAAF(nome) + "," + primo + ",*," + data + "," + ora + "," +
                    CampoAAF(t.City.str()) + "," + (sigla ? *sigla : CampoAAF(t.Stato.str())) +
                    "\n";
    char jd[40];
    std::snprintf(jd, sizeof jd, "%.6f", t.JD());
    long zh, zm, zs;
    Sessagesimali(t.Fuso, zh, zm, zs);
    char zona[48];
    if (zs)
        std::snprintf(zona, sizeof zona, "%ldh%c%02ld:%02ld", zh, t.Fuso > 0 ? 'w' : 'e', zm, zs);
    else
        std::snprintf(zona, sizeof zona, "%ldh%c%02ld", zh, t.Fuso > 0 ? 'w' : 'e', zm);
    r += std::string("#B93:") + jd + "," + TestoGradi(t.Lat, 'n', 's') + "," +
         TestoGradi(-t.Lon * 15, 'e', 'w') + "," + zona + "," + TestoNumero(t.Estiva, '.') + "\n";
    if (lmt) r += "#ZNAM:LMT\n";
    if (!t.Cmto.empty()) {
        // Lines of the comment that begin with "#" would be taken for chunks.
        std::string com;
        for (char c : t.Cmto) {
            if (c == '\r') continue;
            com.push_back(c);
            if (c == '\n') com.push_back(' ');
        }
        r += "#COM:" + com + "\n";
    }
    r += "#VESMO:" + Numero17(t.Day) + "," + Numero17(t.OraL) + "," + Numero17(t.Lon) + "," +
         Numero17(t.Lat) + "," + Numero17(t.Fuso) + "," + Numero17(t.Estiva) + "," +
         Codifica(t.Nome.Valore()) + "," + Codifica(t.City.Valore()) + "," +
         Codifica(t.Stato.Valore()) + "\n";
    return r;
}

} // namespace vesmo
