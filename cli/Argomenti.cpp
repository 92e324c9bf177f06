#include "cli/Argomenti.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <regex>

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

int GiorniDelMese(int mese, int anno) {
    static const int giorni[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (mese == 2 && Bisestile(anno)) return 29;
    return giorni[mese - 1];
}

} // namespace

Data LeggiData(const std::string& testo) {
    static const std::regex forma(R"(^(\d{1,2})/(\d{1,2})/(-?\d{1,5})$)");
    std::smatch m;
    if (!std::regex_match(testo, m, forma))
        throw ErroreArgomenti("data non valida: '" + testo + "' (atteso GG/MM/AAAA)");
    Data d{std::stoi(m[1]), std::stoi(m[2]), std::stoi(m[3])};
    if (d.mese < 1 || d.mese > 12)
        throw ErroreArgomenti("data non valida: '" + testo + "' (mese fuori da 1-12)");
    if (d.giorno < 1 || d.giorno > GiorniDelMese(d.mese, d.anno))
        throw ErroreArgomenti("data non valida: '" + testo + "' (giorno inesistente nel mese)");
    return d;
}

Ora LeggiOra(const std::string& testo) {
    static const std::regex forma(R"(^(\d{1,2}):(\d{1,2})(?::(\d{1,2}(?:\.\d+)?))?$)");
    std::smatch m;
    if (!std::regex_match(testo, m, forma))
        throw ErroreArgomenti("ora non valida: '" + testo + "' (atteso HH:MM[:SS])");
    Ora o{std::stoi(m[1]), std::stoi(m[2]), m[3].matched ? std::stod(m[3]) : 0.0};
    if (o.ore > 23 || o.minuti > 59 || o.secondi >= 60)
        throw ErroreArgomenti("ora non valida: '" + testo + "' (fuori da 00:00:00-23:59:59)");
    return o;
}

double LeggiNumero(const std::string& testo, const std::string& cosa) {
    static const std::regex forma(R"(^[-+]?(\d+(\.\d*)?|\.\d+)([eE][-+]?\d+)?$)");
    if (!std::regex_match(testo, forma))
        throw ErroreArgomenti(cosa + " non valido: '" + testo + "'");
    double v = std::strtod(testo.c_str(), nullptr);
    if (!std::isfinite(v)) throw ErroreArgomenti(cosa + " non valido: '" + testo + "'");
    return v;
}

} // namespace vesmo::cli
