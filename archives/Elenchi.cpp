#include "archives/Elenchi.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Connessione.h"

namespace vesmo {

namespace {

std::string Pulito(std::string_view s) {
    std::size_t a = s.find_first_not_of(" \t"), b = s.find_last_not_of(" \t");
    return a == std::string_view::npos ? "" : std::string(s.substr(a, b - a + 1));
}

// Whole numbers split at any of the separators; nothing when something else stands there.
std::optional<std::vector<long>> Parti(const std::string& t, std::string_view separatori) {
    std::vector<long> r;
    std::string n;
    auto chiudi = [&] {
        if (n.empty() || n == "-" || n.size() > 6) return false;
        r.push_back(std::strtol(n.c_str(), nullptr, 10));
        n.clear();
        return true;
    };
    for (char c : t) {
        if (separatori.find(c) != std::string_view::npos) {
            if (!chiudi()) return std::nullopt;
        } else if ((c >= '0' && c <= '9') || (c == '-' && n.empty())) {
            n.push_back(c);
        } else {
            return std::nullopt;
        }
    }
    if (!chiudi()) return std::nullopt;
    return r;
}

std::optional<double> GiornoEsistente(long a, long m, long g) {
    if (g < 1 || g > 31 || m < 1 || m > 12 || a < -4712 || a > 9999) return std::nullopt;
    const double jd = GiornoGiuliano(a, m, g);
    float aa, mm, gg;
    DataDaGiuliano(jd, aa, mm, gg);
    if (aa != static_cast<float>(a) || mm != static_cast<float>(m) || gg != static_cast<float>(g))
        return std::nullopt;
    return jd;
}

std::optional<double> Decimale(const std::string& t) {
    if (t.empty() || t.size() > 24) return std::nullopt;
    for (char c : t)
        if (!((c >= '0' && c <= '9') || c == '.' || c == ',')) return std::nullopt;
    std::string p = t;
    for (char& c : p)
        if (c == ',') c = '.';
    char* fine = nullptr;
    const double v = std::strtod(p.c_str(), &fine);
    if (fine != p.c_str() + p.size()) return std::nullopt;
    return v;
}

std::string Q(std::string_view campo) {
    return store_detail::Q(campo);
}

// "campo contains the folded word" for each word, joined by AND.
void Contiene(std::string& sql, const std::vector<std::string>& campi,
              const std::vector<std::string>& parole, std::vector<Valore>& parametri) {
    for (const std::string& p : parole) {
        parametri.emplace_back(p);
        const std::string n = "?" + std::to_string(parametri.size());
        std::string o;
        for (const std::string& c : campi)
            o += (o.empty() ? "" : " OR ") + std::string("instr(") +
                 store_detail::NomeFunzionePiega + "(" + Q(c) + "), " +
                 store_detail::NomeFunzionePiega + "(" + n + ")) > 0";
        sql += (sql.empty() ? "" : " AND ") + ("(" + o + ")");
    }
}

} // namespace

std::optional<double> LeggiDataElenco(std::string_view testo) {
    const std::string t = Pulito(testo);
    if (t.size() >= 8 && t[4] == '-' && t.find('/') == std::string::npos)
        if (auto p = Parti(t, "-"); p && p->size() == 3)
            return GiornoEsistente((*p)[0], (*p)[1], (*p)[2]);
    auto p = Parti(t, "/.");
    if (!p || p->size() != 3) return std::nullopt;
    return GiornoEsistente((*p)[2], (*p)[1], (*p)[0]);
}

std::optional<double> LeggiOraElenco(std::string_view testo) {
    const std::string t = Pulito(testo);
    std::size_t p = t.find(':');
    if (p == std::string::npos) return std::nullopt;
    std::size_t q = t.find(':', p + 1);
    auto h = Decimale(t.substr(0, p));
    auto m = Decimale(t.substr(p + 1, q == std::string::npos ? q : q - p - 1));
    std::optional<double> s = 0.0;
    if (q != std::string::npos) s = Decimale(t.substr(q + 1));
    if (!h || !m || !s || *h > 23 || *h != std::floor(*h) || *m >= 60 || *m != std::floor(*m) ||
        *s >= 60)
        return std::nullopt;
    return GradiDecimali(*h, *m, *s);
}

std::string TestoElenco(std::string_view campo, const Valore& v) {
    if (v.ETesto()) {
        std::string t = SenzaSpaziDestra(v.Testo());
        if (campo == "Cmto")
            for (char& c : t)
                if (c == '\n' || c == '\r' || c == '\t') c = ' ';
        return t;
    }
    if (v.Nullo()) return "";
    const double x = v.Numero();
    if (!std::isfinite(x)) return v.Testo();
    char b[48];
    if (campo == "Day") {
        if (std::fabs(x) > 1e7) return v.Testo();
        float a, m, g;
        DataDaGiuliano(x, a, m, g);
        std::snprintf(b, sizeof b, "%02d/%02d/%04d", static_cast<int>(g), static_cast<int>(m),
                      static_cast<int>(a));
        return b;
    }
    if (campo == "OraL") {
        if (x < 0 || x >= 24) return v.Testo();
        const long minuti = std::lround(x * 3600) / 60;
        std::snprintf(b, sizeof b, "%02ld:%02ld", minuti / 60 % 24, minuti % 60);
        return b;
    }
    if (campo == "Lon" && std::fabs(x) <= 12) return TestoCoordinata(x, 1, 0, false);
    if (campo == "Lat" && std::fabs(x) <= 90) return TestoCoordinata(x, 0, 1, false);
    return TestoNumero(x);
}

std::optional<Valore> ValoreElenco(std::string_view campo, const std::string& testo) {
    if (campo == "Nome" || campo == "City" || campo == "Nazione" || campo == "Cmto")
        return Valore(testo);
    const std::string t = Maiuscole(Pulito(testo));
    double x = 0;
    const bool numero = !t.empty() && LeggiNumero(t, x) == t.size();
    if (campo == "Day") {
        if (auto d = LeggiDataElenco(t)) return Valore(*d);
        return std::nullopt;
    }
    if (campo == "OraL") {
        if (auto o = LeggiOraElenco(t)) return Valore(*o);
        if (numero && x >= 0 && x < 24) return Valore(x);
        return std::nullopt;
    }
    if ((campo == "Lon" || campo == "Lat") && !numero) {
        const bool lon = campo == "Lon";
        if (t.find_first_of(lon ? "EW" : "NS") == std::string::npos || t.size() > 20)
            return std::nullopt;
        for (char c : t)
            if (!((c >= '0' && c <= '9') || c == 'E' || c == 'W' || c == 'N' || c == 'S' ||
                  c == '\'' || c == '.'))
                return std::nullopt;
        const double v = lon ? LonDaTesto(t, 0) : LatDaTesto(t, 0);
        if (!std::isfinite(v)) return std::nullopt;
        return Valore(v);
    }
    if (numero && std::isfinite(x)) return Valore(x);
    return std::nullopt;
}

std::string TitoloElenco(std::string_view campo) {
    if (campo == "Day") return "Data";
    if (campo == "OraL") return "Ora";
    if (campo == "Cmto") return "Commento";
    return std::string(campo);
}

std::string OrdineCampo(std::string_view campo, bool discendente) {
    const std::string d = discendente ? " DESC" : "";
    // Texts by the store's key: one key of both fields sorts by the first, then the second.
    auto testo = [&](std::string_view a, std::string_view b = {}) {
        return std::string(store_detail::NomeFunzioneChiave) + "(" + Q(a) +
               (b.empty() ? "" : ", " + Q(b)) + ")" + d;
    };
    if (campo == "Nome") return discendente ? testo("Nome") : "";
    if (campo == "Day") return Q("Day") + d + ", " + Q("OraL") + d;
    if (campo == "City") return testo("City", "Nazione");
    if (campo == "Nazione") return testo("Nazione", "City");
    if (campo == "Cmto") return testo("Cmto");
    return Q(campo) + d;
}

std::optional<CriteriRicerca> LeggiCriteri(std::string_view testo, std::string& errore) {
    CriteriRicerca c;
    std::size_t i = 0;
    while (i < testo.size()) {
        while (i < testo.size() && (testo[i] == ' ' || testo[i] == '\t'))
            ++i;
        if (i >= testo.size()) break;
        // One term: up to a blank outside double quotes.
        std::string termine;
        bool virgolette = false;
        for (; i < testo.size() && (virgolette || (testo[i] != ' ' && testo[i] != '\t')); ++i) {
            if (testo[i] == '"')
                virgolette = !virgolette;
            else
                termine.push_back(testo[i]);
        }
        std::size_t p = termine.find(':');
        const std::string chiave = p == std::string::npos ? "" : Maiuscole(termine.substr(0, p));
        const std::string valore = p == std::string::npos ? termine : termine.substr(p + 1);
        if (chiave == "" || chiave == "NOME") {
            if (!valore.empty()) c.nome.push_back(valore);
        } else if (chiave == "LUOGO") {
            if (!valore.empty()) c.luogo.push_back(valore);
        } else if (chiave == "COMMENTO") {
            if (!valore.empty()) c.commento.push_back(valore);
        } else if (chiave == "DAL" || chiave == "AL") {
            const bool dal = chiave == "DAL";
            std::optional<double> d;
            if (auto anno = Parti(valore, ""); anno && anno->size() == 1)
                d = dal ? GiornoEsistente((*anno)[0], 1, 1) : GiornoEsistente((*anno)[0], 12, 31);
            else
                d = LeggiDataElenco(valore);
            if (!d) {
                errore = "data non valida: " + valore;
                return std::nullopt;
            }
            (dal ? c.dal : c.al) = d;
        } else {
            errore = "campo sconosciuto (nome, dal, al, luogo, commento): " + termine.substr(0, p);
            return std::nullopt;
        }
    }
    return c;
}

std::string CondizioneRicerca(const CriteriRicerca& c, std::vector<Valore>& parametri) {
    std::string sql;
    Contiene(sql, {"Nome"}, c.nome, parametri);
    Contiene(sql, {"City", "Nazione"}, c.luogo, parametri);
    Contiene(sql, {"Cmto"}, c.commento, parametri);
    if (c.dal) {
        parametri.emplace_back(*c.dal);
        sql += (sql.empty() ? "" : " AND ") + Q("Day") + " >= ?" + std::to_string(parametri.size());
    }
    if (c.al) {
        parametri.emplace_back(*c.al);
        sql += (sql.empty() ? "" : " AND ") + Q("Day") + " <= ?" + std::to_string(parametri.size());
    }
    return sql;
}

std::vector<Segnalibro> CercaTemi(const Cursore& rs, const CriteriRicerca& c) {
    std::vector<Valore> parametri;
    const std::string dove = CondizioneRicerca(c, parametri);
    return rs.Segnalibri(dove, "", parametri);
}

} // namespace vesmo
