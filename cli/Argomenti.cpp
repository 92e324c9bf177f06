#include "cli/Argomenti.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vesmo::cli {

Argomenti::Argomenti(const std::vector<std::string>& parole,
                     const std::vector<std::string>& flags) {
    for (std::size_t i = 0; i < parole.size(); ++i) {
        const std::string& p = parole[i];
        if (p.size() > 2 && p.rfind("--", 0) == 0) {
            std::string nome = p.substr(2);
            std::size_t uguale = nome.find('=');
            if (uguale != std::string::npos) {
                opzioni_[nome.substr(0, uguale)] = nome.substr(uguale + 1);
            } else if (std::find(flags.begin(), flags.end(), nome) != flags.end()) {
                flag_.push_back(nome);
            } else {
                // A missing value is told once the option is known to be one of the command's.
                if (i + 1 >= parole.size())
                    senzaValore_.push_back(nome);
                else
                    opzioni_[nome] = parole[++i];
            }
        } else {
            posizionali_.push_back(p);
        }
    }
}

bool Argomenti::Flag(const std::string& nome) const {
    return std::find(flag_.begin(), flag_.end(), nome) != flag_.end();
}

std::optional<std::string> Argomenti::Opzione(const std::string& nome) const {
    if (std::find(senzaValore_.begin(), senzaValore_.end(), nome) != senzaValore_.end())
        throw ErroreArgomenti("manca il valore di --" + nome);
    auto it = opzioni_.find(nome);
    if (it == opzioni_.end()) return std::nullopt;
    return it->second;
}

std::string Argomenti::Richiesta(const std::string& nome) const {
    auto v = Opzione(nome);
    if (!v) throw ErroreArgomenti("manca l'opzione --" + nome);
    return *v;
}

void Argomenti::Consenti(const std::vector<std::string>& nomi) const {
    auto ammesso = [&](const std::string& n) {
        return std::find(nomi.begin(), nomi.end(), n) != nomi.end();
    };
    for (const auto& [nome, valore] : opzioni_)
        if (!ammesso(nome)) throw ErroreArgomenti("opzione sconosciuta: --" + nome);
    for (const auto& nome : flag_)
        if (!ammesso(nome)) throw ErroreArgomenti("opzione sconosciuta: --" + nome);
    for (const auto& nome : senzaValore_) {
        if (!ammesso(nome)) throw ErroreArgomenti("opzione sconosciuta: --" + nome);
        throw ErroreArgomenti("manca il valore di --" + nome);
    }
}

namespace {

bool Bisestile(int anno) {
    bool giuliano = anno <= 1582;
    int a = anno < 0 ? -anno : anno;
    if (giuliano) return ((anno % 4) + 4) % 4 == 0;
    return (a % 4 == 0 && a % 100 != 0) || a % 400 == 0;
}

// A limit as the user typed it: "12", "-4712", "0.5".
std::string TestoLimite(double x) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%g", x);
    return buf;
}

int GiorniDelMese(int mese, int anno) {
    static const int giorni[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (mese == 2 && Bisestile(anno)) return 29;
    return giorni[mese - 1];
}

} // namespace

std::string UnaRiga(std::string_view testo) {
    std::string r;
    r.reserve(testo.size());
    for (char c : testo) {
        if (c == '\n')
            r += "\\n";
        else if (c == '\r')
            r += "\\r";
        else if ((static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f)
            r += '?';
        else
            r += c;
    }
    return r;
}

std::size_t ContaCifre(std::string_view testo, std::size_t da) {
    std::size_t n = 0;
    while (da + n < testo.size() && testo[da + n] >= '0' && testo[da + n] <= '9')
        ++n;
    return n;
}

namespace {

// Reads from `pos` between `minimo` and `massimo` digits into `valore`; false when there are
// fewer or more.
bool Intero(std::string_view testo, std::size_t& pos, std::size_t minimo, std::size_t massimo,
            int& valore) {
    std::size_t n = ContaCifre(testo, pos);
    if (n < minimo || n > massimo) return false;
    valore = 0;
    for (std::size_t i = 0; i < n; ++i)
        valore = valore * 10 + (testo[pos + i] - '0');
    pos += n;
    return true;
}

bool Carattere(std::string_view testo, std::size_t& pos, char c) {
    if (pos >= testo.size() || testo[pos] != c) return false;
    ++pos;
    return true;
}

} // namespace

Data LeggiData(const std::string& testo) {
    // GG/MM/AAAA, the year with an optional minus and up to five digits.
    Data d{};
    std::size_t pos = 0;
    bool negativo = false;
    bool forma = Intero(testo, pos, 1, 2, d.giorno) && Carattere(testo, pos, '/') &&
                 Intero(testo, pos, 1, 2, d.mese) && Carattere(testo, pos, '/');
    if (forma) {
        negativo = Carattere(testo, pos, '-');
        forma = Intero(testo, pos, 1, 5, d.anno) && pos == testo.size();
    }
    if (!forma) throw ErroreArgomenti("data non valida: '" + testo + "' (atteso GG/MM/AAAA)");
    if (negativo) d.anno = -d.anno;
    if (d.anno < AnnoMinimo || d.anno > AnnoMassimo)
        throw ErroreArgomenti("data non valida: '" + testo + "' (anno fuori da -4712..9999)");
    if (d.mese < 1 || d.mese > 12)
        throw ErroreArgomenti("data non valida: '" + testo + "' (mese fuori da 1-12)");
    if (d.giorno < 1 || d.giorno > GiorniDelMese(d.mese, d.anno))
        throw ErroreArgomenti("data non valida: '" + testo + "' (giorno inesistente nel mese)");
    return d;
}

Ora LeggiOra(const std::string& testo) {
    // HH:MM or HH:MM:SS, the seconds with an optional decimal part.
    Ora o{};
    std::size_t pos = 0;
    int secondi = 0;
    bool forma = Intero(testo, pos, 1, 2, o.ore) && Carattere(testo, pos, ':') &&
                 Intero(testo, pos, 1, 2, o.minuti);
    std::size_t inizioSecondi = pos + 1;
    if (forma && Carattere(testo, pos, ':')) {
        forma = Intero(testo, pos, 1, 2, secondi);
        if (forma && Carattere(testo, pos, '.')) {
            std::size_t n = ContaCifre(testo, pos);
            forma = n > 0;
            pos += n;
        }
    }
    if (!forma || pos != testo.size())
        throw ErroreArgomenti("ora non valida: '" + testo + "' (atteso HH:MM[:SS])");
    if (inizioSecondi < testo.size())
        o.secondi = std::strtod(testo.c_str() + inizioSecondi, nullptr);
    if (o.ore > 23 || o.minuti > 59 || o.secondi >= 60)
        throw ErroreArgomenti("ora non valida: '" + testo + "' (fuori da 00:00:00-23:59:59)");
    return o;
}

double LeggiNumero(const std::string& testo, const std::string& cosa) {
    // [+-] digits [. digits] [e [+-] digits], with digits on at least one side of the point.
    std::size_t pos = 0;
    if (pos < testo.size() && (testo[pos] == '+' || testo[pos] == '-')) ++pos;
    std::size_t intere = ContaCifre(testo, pos);
    pos += intere;
    std::size_t decimali = 0;
    if (pos < testo.size() && testo[pos] == '.') {
        decimali = ContaCifre(testo, pos + 1);
        pos += 1 + decimali;
    }
    bool forma = intere + decimali > 0;
    if (forma && pos < testo.size() && (testo[pos] == 'e' || testo[pos] == 'E')) {
        ++pos;
        if (pos < testo.size() && (testo[pos] == '+' || testo[pos] == '-')) ++pos;
        std::size_t esponente = ContaCifre(testo, pos);
        forma = esponente > 0;
        pos += esponente;
    }
    if (!forma || pos != testo.size()) throw ErroreArgomenti(cosa + " non valido: '" + testo + "'");
    double v = std::strtod(testo.c_str(), nullptr);
    if (!std::isfinite(v)) throw ErroreArgomenti(cosa + " non valido: '" + testo + "'");
    return v;
}

double LeggiNumero(const std::string& testo, const std::string& cosa, double minimo,
                   double massimo) {
    double v = LeggiNumero(testo, cosa);
    if (v < minimo || v > massimo)
        throw ErroreArgomenti(cosa + " fuori da " + TestoLimite(minimo) + ".." +
                              TestoLimite(massimo) + ": " + testo);
    return v;
}

double LeggiGiornoGiuliano(const std::string& testo, const std::string& cosa) {
    double jd = LeggiNumero(testo, cosa);
    if (jd < JdMinimo || jd > JdMassimo)
        throw ErroreArgomenti(cosa + " fuori dall'intervallo 0-5373484.5: " + testo);
    return jd;
}

std::pair<std::string, std::string> DividiDataOra(const std::string& testo) {
    const char* const spazi = " \t";
    std::size_t inizio = testo.find_first_not_of(spazi);
    if (inizio == std::string::npos) return {};
    std::size_t fine = testo.find_first_of(spazi, inizio);
    std::string data = testo.substr(inizio, fine == std::string::npos ? fine : fine - inizio);
    std::string ora;
    if (fine != std::string::npos) {
        std::size_t inizioOra = testo.find_first_not_of(spazi, fine);
        if (inizioOra != std::string::npos) {
            std::size_t fineOra = testo.find_last_not_of(spazi);
            ora = testo.substr(inizioOra, fineOra + 1 - inizioOra);
        }
    }
    return {data, ora};
}

} // namespace vesmo::cli
