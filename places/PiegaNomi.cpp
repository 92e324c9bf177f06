#include "places/PiegaNomi.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "core/Testo.h"
#include "core/store/Chiave.h"

namespace vesmo {

namespace {

// Typographic apostrophes and dashes as the plain signs.
std::string SegniSemplici(std::string_view s) {
    struct Sostituzione {
        std::string_view da;
        char a;
    };
    static constexpr std::array<Sostituzione, 9> Tabella{{{"\xE2\x80\x99", '\''},
                                                          {"\xE2\x80\x98", '\''},
                                                          {"\xCA\xBC", '\''},
                                                          {"\xC2\xB4", '\''},
                                                          {"`", '\''},
                                                          {"\xE2\x80\x90", '-'},
                                                          {"\xE2\x80\x91", '-'},
                                                          {"\xE2\x80\x93", '-'},
                                                          {"\xE2\x80\x94", '-'}}};
    std::string r;
    r.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) {
        bool sostituito = false;
        for (const Sostituzione& t : Tabella)
            if (s.substr(i, t.da.size()) == t.da) {
                r += t.a;
                i += t.da.size();
                sostituito = true;
                break;
            }
        if (!sostituito) r += s[i++];
    }
    return r;
}

// A byte of a word once folded: Latin letters and digits, and the bytes of letters of other
// scripts, which the folding leaves as they are.
bool DiParola(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c >= 0x80;
}

// The words that stand for "San", "Santo", "Santa", "Sant'".
bool Santo(std::string_view parola) {
    static constexpr std::array<std::string_view, 11> Parole{
        "s", "st", "sto", "sta", "san", "santo", "santa", "sant", "saint", "sainte", "sankt"};
    return std::find(Parole.begin(), Parole.end(), parola) != Parole.end();
}

} // namespace

namespace {

std::string Piega(std::string_view nome, bool unito) {
    const std::string piegato = store_detail::PiegaTesto(SegniSemplici(nome));
    std::string chiave;
    std::size_t i = 0;
    while (i < piegato.size()) {
        if (!DiParola(static_cast<unsigned char>(piegato[i]))) {
            ++i;
            continue;
        }
        std::size_t fine = i;
        while (fine < piegato.size() && DiParola(static_cast<unsigned char>(piegato[fine])))
            ++fine;
        const std::string_view parola(piegato.data() + i, fine - i);
        chiave += unito || !Santo(parola) ? parola : std::string_view("s");
        i = fine;
    }
    return chiave;
}

} // namespace

std::string PiegaNome(std::string_view nome) {
    return Piega(nome, false);
}

std::string PiegaNomeUnito(std::string_view nome) {
    return Piega(nome, true);
}

std::vector<std::string> ChiaviNome(std::string_view nome) {
    std::vector<std::string> chiavi;
    auto aggiungi = [&](std::string_view parte) {
        for (std::string k : {PiegaNome(parte), PiegaNomeUnito(parte)})
            if (!k.empty() && std::find(chiavi.begin(), chiavi.end(), k) == chiavi.end())
                chiavi.push_back(std::move(k));
    };
    aggiungi(nome);
    // The halves of a name of two languages: "A - B", "A/B".
    const std::string s = SegniSemplici(nome);
    std::size_t inizio = 0;
    for (std::size_t i = 0; i <= s.size(); ++i) {
        const bool fine = i == s.size();
        const bool barra = !fine && s[i] == '/';
        const bool trattino =
            !fine && i > 0 && i + 1 < s.size() && s[i] == '-' && s[i - 1] == ' ' && s[i + 1] == ' ';
        if (!(barra || trattino || (fine && inizio > 0))) continue;
        aggiungi(std::string_view(s).substr(inizio, i - inizio));
        inizio = i + 1;
    }
    return chiavi;
}

NomeEProvincia DividiProvincia(std::string_view testo) {
    NomeEProvincia r;
    const std::string t = SenzaSpazi(testo);
    const std::size_t aperta = t.rfind('(');
    if (t.empty() || t.back() != ')' || aperta == std::string::npos) {
        r.nome = t;
        return r;
    }
    r.nome = SenzaSpazi(std::string_view(t).substr(0, aperta));
    r.provincia = SenzaSpazi(std::string_view(t).substr(aperta + 1, t.size() - aperta - 2));
    if (r.nome.empty() || r.provincia.empty()) {
        r.nome = t;
        r.provincia.clear();
    }
    return r;
}

std::string NomeDaMaiuscole(std::string_view nome) {
    const bool minuscole =
        std::any_of(nome.begin(), nome.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    const bool maiuscole =
        std::any_of(nome.begin(), nome.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
    if (minuscole || !maiuscole) return std::string(nome);
    static constexpr std::array<std::string_view, 28> Particelle{
        "di", "de", "del", "dei",  "della", "delle", "dello", "degli", "d",    "e",
        "ed", "in", "sul", "sull", "sulla", "sullo", "al",    "all",   "alla", "allo",
        "ai", "a",  "da",  "dal",  "dalla", "nel",   "nell",  "dell"};
    std::string r;
    std::size_t i = 0;
    bool prima = true;
    while (i < nome.size()) {
        if (!std::isalpha(static_cast<unsigned char>(nome[i]))) {
            r += nome[i++];
            continue;
        }
        std::size_t fine = i;
        while (fine < nome.size() && std::isalpha(static_cast<unsigned char>(nome[fine])))
            ++fine;
        std::string parola(nome.substr(i, fine - i));
        for (char& c : parola)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const bool particella =
            !prima && std::find(Particelle.begin(), Particelle.end(), parola) != Particelle.end();
        if (!particella) parola[0] = static_cast<char>(std::toupper(parola[0]));
        // An apostrophe after a final vowel, at the end of the word, is its accent.
        const bool apostrofo = fine < nome.size() && nome[fine] == '\'' &&
                               (fine + 1 == nome.size() || nome[fine + 1] == ' ');
        if (apostrofo && parola != "de") {
            static constexpr std::array<std::pair<char, std::string_view>, 5> Accenti{
                {{'a', "à"}, {'e', "è"}, {'i', "ì"}, {'o', "ò"}, {'u', "ù"}}};
            for (const auto& [vocale, accentata] : Accenti)
                if (parola.back() == vocale) {
                    parola.pop_back();
                    parola += accentata;
                    ++fine; // the apostrophe is the accent
                    break;
                }
        }
        r += parola;
        i = fine;
        prima = false;
    }
    return r;
}

} // namespace vesmo
