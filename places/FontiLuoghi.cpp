#include "places/FontiLuoghi.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <fstream>
#include <istream>
#include <iterator>
#include <map>
#include <set>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Chiave.h"

namespace vesmo {

namespace {

constexpr std::size_t LarghezzaNome = 30;

std::vector<std::string_view> Dividi(std::string_view riga, char sep) {
    std::vector<std::string_view> parti;
    std::size_t inizio = 0;
    for (;;) {
        std::size_t fine = riga.find(sep, inizio);
        if (fine == std::string_view::npos) {
            parti.push_back(riga.substr(inizio));
            return parti;
        }
        parti.push_back(riga.substr(inizio, fine - inizio));
        inizio = fine + 1;
    }
}

bool LeggiDouble(std::string_view s, double& v) {
    auto [p, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
    return ec == std::errc() && p == s.data() + s.size();
}

// Appends a code point as UTF-8.
void AggiungiUtf8(std::string& s, std::uint32_t c) {
    if (c < 0x80) {
        s += static_cast<char>(c);
    } else if (c < 0x800) {
        s += static_cast<char>(0xC0 | (c >> 6));
        s += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        s += static_cast<char>(0xE0 | (c >> 12));
        s += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        s += static_cast<char>(0xF0 | (c >> 18));
        s += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        s += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// A small reader of the JSON of iso-codes: objects, arrays and strings (numbers, true, false
// and null are passed over).
class LettoreJson {
public:
    explicit LettoreJson(std::string_view s) : s_(s) {}

    // Calls `oggetto` with the string fields of each object found anywhere in the text.
    template <class F> void Oggetti(F&& oggetto) {
        Valore(oggetto);
        Spazi();
        if (i_ != s_.size()) Errore("testo dopo il valore");
    }

private:
    std::string_view s_;
    std::size_t i_ = 0;

    [[noreturn]] void Errore(const char* cosa) const {
        throw ErroreFonte("JSON non valido (" + std::string(cosa) + ") al carattere " +
                          std::to_string(i_));
    }
    void Spazi() {
        while (i_ < s_.size() && std::isspace(static_cast<unsigned char>(s_[i_])))
            ++i_;
    }
    char Prossimo() {
        Spazi();
        if (i_ >= s_.size()) Errore("fine inattesa");
        return s_[i_];
    }
    void Atteso(char c) {
        if (Prossimo() != c) Errore("carattere inatteso");
        ++i_;
    }
    unsigned Esadecimale() {
        if (i_ + 4 > s_.size()) Errore("\\u troncato");
        unsigned v = 0;
        for (int k = 0; k < 4; ++k) {
            char c = s_[i_++];
            v <<= 4;
            if (c >= '0' && c <= '9')
                v |= unsigned(c - '0');
            else if (c >= 'a' && c <= 'f')
                v |= unsigned(c - 'a' + 10);
            else if (c >= 'A' && c <= 'F')
                v |= unsigned(c - 'A' + 10);
            else
                Errore("\\u non esadecimale");
        }
        return v;
    }
    std::string Stringa() {
        Atteso('"');
        std::string r;
        while (true) {
            if (i_ >= s_.size()) Errore("stringa non chiusa");
            char c = s_[i_++];
            if (c == '"') return r;
            if (c != '\\') {
                r += c;
                continue;
            }
            if (i_ >= s_.size()) Errore("stringa non chiusa");
            char e = s_[i_++];
            switch (e) {
            case 'n':
                r += '\n';
                break;
            case 't':
                r += '\t';
                break;
            case 'r':
                r += '\r';
                break;
            case 'b':
                r += '\b';
                break;
            case 'f':
                r += '\f';
                break;
            case 'u': {
                std::uint32_t c1 = Esadecimale();
                if (c1 >= 0xD800 && c1 < 0xDC00 && i_ + 1 < s_.size() && s_[i_] == '\\' &&
                    s_[i_ + 1] == 'u') {
                    i_ += 2;
                    std::uint32_t c2 = Esadecimale();
                    c1 = 0x10000 + ((c1 - 0xD800) << 10) + (c2 - 0xDC00);
                }
                AggiungiUtf8(r, c1);
                break;
            }
            default:
                r += e;
            }
        }
    }
    template <class F> void Valore(F& oggetto) {
        char c = Prossimo();
        if (c == '{') {
            ++i_;
            std::map<std::string, std::string> campi;
            if (Prossimo() == '}') {
                ++i_;
                oggetto(campi);
                return;
            }
            while (true) {
                std::string chiave = Stringa();
                Atteso(':');
                if (Prossimo() == '"')
                    campi[chiave] = Stringa();
                else
                    Valore(oggetto);
                if (Prossimo() == ',') {
                    ++i_;
                    continue;
                }
                Atteso('}');
                break;
            }
            oggetto(campi);
        } else if (c == '[') {
            ++i_;
            if (Prossimo() == ']') {
                ++i_;
                return;
            }
            while (true) {
                Valore(oggetto);
                if (Prossimo() == ',') {
                    ++i_;
                    continue;
                }
                Atteso(']');
                break;
            }
        } else if (c == '"') {
            Stringa();
        } else {
            while (i_ < s_.size() && s_[i_] != ',' && s_[i_] != '}' && s_[i_] != ']' &&
                   !std::isspace(static_cast<unsigned char>(s_[i_])))
                ++i_;
        }
    }
};

std::string LeggiTutto(const std::string& percorso) {
    std::ifstream f(percorso, std::ios::binary);
    if (!f) throw ErroreFonte("file non trovato: " + percorso);
    return std::string((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
}

// True when the text is written in Latin letters (with their accents, apostrophes, hyphens),
// holds a letter, and is valid UTF-8.
bool ScritturaLatina(std::string_view s) {
    bool lettera = false;
    for (std::size_t i = 0; i < s.size();) {
        const auto b = static_cast<unsigned char>(s[i]);
        std::uint32_t c;
        std::size_t n;
        if (b < 0x80) {
            c = b;
            n = 1;
        } else if ((b & 0xE0) == 0xC0) {
            c = b & 0x1Fu;
            n = 2;
        } else if ((b & 0xF0) == 0xE0) {
            c = b & 0x0Fu;
            n = 3;
        } else {
            return false; // four-byte characters are no Latin letters
        }
        if (i + n > s.size()) return false;
        for (std::size_t k = 1; k < n; ++k) {
            const auto t = static_cast<unsigned char>(s[i + k]);
            if ((t & 0xC0) != 0x80) return false;
            c = (c << 6) | (t & 0x3Fu);
        }
        i += n;
        if (c < 0x20 || (c >= 0x7F && c < 0xA0)) return false;
        const bool latina = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                            (c >= 0xC0 && c < 0x250 && c != 0xD7 && c != 0xF7) ||
                            (c >= 0x1E00 && c < 0x1F00);
        lettera = lettera || latina;
        const bool segno = c < 0xC0 || latina || (c >= 0x2B0 && c < 0x370) || c == 0x2018 ||
                           c == 0x2019 || c == 0x2010 || c == 0x2011;
        if (!segno) return false;
    }
    return lettera;
}

// A short code in capitals ("ROM", "LIRF"): an airport's, not a name people say.
bool Sigla(std::string_view s) {
    return s.size() <= 4 &&
           std::all_of(s.begin(), s.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

// The alternate names of a place from GeoNames' comma-separated list.
std::vector<std::string> NomiAlternativi(std::string_view lista, const std::string& nome) {
    std::vector<std::string> nomi;
    if (lista.empty()) return nomi;
    std::set<std::string> visti{store_detail::PiegaTesto(nome)};
    for (std::string_view a : Dividi(lista, ',')) {
        std::string n = SenzaSpazi(a);
        if (n.empty() || Sigla(n) || LunghezzaCaratteri(n) > 60 || !ScritturaLatina(n)) continue;
        if (visti.insert(store_detail::PiegaTesto(n)).second) nomi.push_back(std::move(n));
    }
    return nomi;
}

bool SoloLettere(std::string_view s) {
    return !s.empty() && s.size() <= 3 &&
           std::all_of(s.begin(), s.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

// The region that tells apart two places of one name: a province of letters (Italy, Spain),
// else the GeoNames region code (the state for the United States).
std::string Regione(const LuogoGeo& l) {
    if (!l.sigla.empty()) return l.sigla;
    if (SoloLettere(l.admin2)) return l.admin2;
    return l.admin1;
}

// The name with a suffix, the name cut so that the whole stays within the width.
std::string Componi(const std::string& nome, const std::string& suffisso) {
    const std::size_t n = LunghezzaCaratteri(suffisso);
    std::string base = PrimiCaratteri(nome, LarghezzaNome > n ? LarghezzaNome - n : 0);
    return SenzaSpaziDestra(base) + suffisso;
}

} // namespace

std::vector<LuogoGeo> LeggiLuoghiGeo(std::istream& in, std::size_t* scartate) {
    std::vector<LuogoGeo> luoghi;
    std::string riga;
    std::size_t scarti = 0;
    while (std::getline(in, riga)) {
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        if (riga.empty()) continue;
        const auto f = Dividi(riga, '\t');
        LuogoGeo l;
        if (f.size() < 19 || f[17].empty() || f[1].empty() || !LeggiDouble(f[4], l.lat) ||
            !LeggiDouble(f[5], l.lon) ||
            std::from_chars(f[0].data(), f[0].data() + f[0].size(), l.id).ec != std::errc()) {
            ++scarti;
            continue;
        }
        l.nome = SenzaSpazi(f[1]);
        l.tipo = std::string(f[7]);
        l.paese = std::string(f[8]);
        l.admin1 = std::string(f[10]);
        l.admin2 = std::string(f[11]);
        l.admin3 = std::string(f[12]);
        std::from_chars(f[14].data(), f[14].data() + f[14].size(), l.popolazione);
        l.zona = std::string(f[17]);
        l.alternativi = NomiAlternativi(f[3], l.nome);
        luoghi.push_back(std::move(l));
    }
    if (scartate) *scartate = scarti;
    return luoghi;
}

std::vector<LuogoGeo> LeggiFileLuoghiGeo(const std::string& percorso, std::size_t* scartate) {
    std::ifstream f(percorso, std::ios::binary);
    if (!f) throw ErroreFonte("file non trovato: " + percorso);
    return LeggiLuoghiGeo(f, scartate);
}

std::vector<Comune> LeggiComuni(std::string_view json) {
    std::vector<Comune> comuni;
    LettoreJson(json).Oggetti([&](const std::map<std::string, std::string>& campi) {
        auto nome = campi.find("nome");
        auto codice = campi.find("codice");
        auto sigla = campi.find("sigla");
        if (nome == campi.end() || codice == campi.end() || sigla == campi.end()) return;
        auto catastale = campi.find("codiceCatastale");
        comuni.push_back({SenzaSpazi(nome->second), codice->second, sigla->second,
                          catastale == campi.end() ? std::string() : catastale->second});
    });
    return comuni;
}

std::vector<Comune> LeggiFileComuni(const std::filesystem::path& percorso) {
    if (!std::filesystem::is_directory(percorso)) return LeggiComuni(LeggiTutto(percorso));
    std::vector<std::filesystem::path> file;
    for (const auto& voce : std::filesystem::directory_iterator(percorso))
        if (voce.path().extension() == ".json") file.push_back(voce.path());
    std::sort(file.begin(), file.end());
    std::vector<Comune> comuni;
    for (const auto& f : file)
        for (Comune& c : LeggiComuni(LeggiTutto(f)))
            comuni.push_back(std::move(c));
    if (comuni.empty()) throw ErroreFonte("nessun comune in " + percorso.string());
    return comuni;
}

namespace {

// GeoNames marks the seat of a division, the comune's included, with these feature codes.
bool Capoluogo(const LuogoGeo& l) {
    return l.tipo == "PPLC" || l.tipo == "PPLA" || l.tipo == "PPLA2" || l.tipo == "PPLA3";
}

} // namespace

void ApplicaComuni(std::vector<LuogoGeo>& luoghi, const std::vector<Comune>& comuni) {
    std::map<std::string, const Comune*> perCodice;
    for (const Comune& c : comuni)
        perCodice[c.codice] = &c;
    std::map<std::string, std::size_t> sedi; // code -> the seat's place
    for (std::size_t i = 0; i < luoghi.size(); ++i) {
        LuogoGeo& l = luoghi[i];
        if (l.paese != "IT") continue;
        auto c = perCodice.find(l.admin3);
        if (c == perCodice.end()) continue;
        l.sigla = c->second->sigla;
        auto [s, nuova] = sedi.emplace(l.admin3, i);
        if (nuova) continue;
        const LuogoGeo& sede = luoghi[s->second];
        const std::string nomeComune = store_detail::PiegaTesto(c->second->nome);
        const bool omonima = store_detail::PiegaTesto(l.nome) == nomeComune;
        const bool sedeOmonima = store_detail::PiegaTesto(sede.nome) == nomeComune;
        if (omonima != sedeOmonima) {
            if (omonima) s->second = i;
        } else if (Capoluogo(l) != Capoluogo(sede)) {
            if (Capoluogo(l)) s->second = i;
        } else if (l.popolazione > sede.popolazione ||
                   (l.popolazione == sede.popolazione && l.id < sede.id)) {
            s->second = i;
        }
    }
    for (const auto& [codice, i] : sedi) {
        LuogoGeo& l = luoghi[i];
        l.sede = true;
        const std::string& nome = perCodice.at(codice)->nome;
        if (l.nome == nome) continue;
        // The GeoNames name stays a way to find the place.
        const std::string piegato = store_detail::PiegaTesto(nome);
        std::erase_if(l.alternativi,
                      [&](const std::string& a) { return store_detail::PiegaTesto(a) == piegato; });
        if (store_detail::PiegaTesto(l.nome) != piegato)
            l.alternativi.insert(l.alternativi.begin(), l.nome);
        l.nome = nome;
    }
}

namespace {

// The quoted texts of a line of JavaScript, in order ('...' or "..."), and what follows the last.
std::vector<std::string> TestiTraVirgolette(std::string_view riga, std::string_view* resto) {
    std::vector<std::string> testi;
    std::size_t i = 0;
    while (i < riga.size()) {
        const char q = riga[i];
        if (q != '\'' && q != '"') {
            ++i;
            continue;
        }
        const std::size_t fine = riga.find(q, i + 1);
        if (fine == std::string_view::npos) break;
        testi.emplace_back(riga.substr(i + 1, fine - i - 1));
        i = fine + 1;
        if (resto) *resto = riga.substr(i);
    }
    return testi;
}

} // namespace

std::vector<NomeCatastale> LeggiNomiCatastali(std::string_view testo) {
    std::vector<NomeCatastale> nomi;
    for (std::string_view riga : Dividi(testo, '\n')) {
        const std::string r = SenzaSpazi(riga);
        if (r.empty() || r.front() != '[') continue;
        std::string_view resto;
        const auto t = TestiTraVirgolette(r, &resto);
        if (t.size() != 3 || t[0].size() != 4 || t[1].size() != 2 || t[2].empty()) continue;
        const std::string stato = SenzaSpazi(resto);
        nomi.push_back({t[0], t[1], t[2], stato.rfind(", 1", 0) == 0 || stato.rfind(",1", 0) == 0});
    }
    if (nomi.empty()) throw ErroreFonte("nessun nome di comune nel file dei codici catastali");
    return nomi;
}

std::vector<NomeCatastale> LeggiFileNomiCatastali(const std::filesystem::path& percorso) {
    return LeggiNomiCatastali(LeggiTutto(percorso.string()));
}

std::vector<ProvinciaItaliana> LeggiProvince(std::string_view testo) {
    std::vector<ProvinciaItaliana> province;
    for (std::string_view riga : Dividi(testo, '\n')) {
        const std::string r = SenzaSpazi(riga);
        if (r.size() < 4 || r[2] != ':' || !SoloLettere(r.substr(0, 2))) continue;
        const auto t = TestiTraVirgolette(std::string_view(r).substr(3), nullptr);
        if (t.size() == 1 && !t[0].empty()) province.push_back({r.substr(0, 2), t[0]});
    }
    return province;
}

std::vector<NazioneIso> LeggiNazioniIso(std::string_view json) {
    std::vector<NazioneIso> nazioni;
    LettoreJson(json).Oggetti([&](const std::map<std::string, std::string>& campi) {
        auto nome = campi.find("name");
        auto alpha2 = campi.find("alpha_2");
        auto numerico = campi.find("numeric");
        if (nome == campi.end() || alpha2 == campi.end() || numerico == campi.end()) return;
        NazioneIso n;
        const std::string& t = numerico->second;
        if (std::from_chars(t.data(), t.data() + t.size(), n.cNaz).ec != std::errc())
            throw ErroreFonte("codice numerico non valido: " + t);
        n.nome = nome->second;
        n.alpha2 = alpha2->second;
        nazioni.push_back(std::move(n));
    });
    if (nazioni.empty()) throw ErroreFonte("nessuna nazione nel file ISO 3166-1");
    return nazioni;
}

std::vector<NazioneIso> LeggiFileNazioniIso(const std::string& percorso) {
    return LeggiNazioniIso(LeggiTutto(percorso));
}

std::vector<NazioneIso> NazioniFuoriIso() {
    return {{900, "Kosovo", "XK"}};
}

std::string MarcaProvincia(const LuogoGeo& l) {
    if (l.paese == "CA") {
        static const std::map<std::string, std::string> canada{
            {"01", "AB"}, {"02", "BC"}, {"03", "MB"}, {"04", "NB"}, {"05", "NF"},
            {"07", "NS"}, {"08", "ON"}, {"09", "PE"}, {"10", "PQ"}, {"11", "SK"},
            {"12", "YK"}, {"13", "NT"}, {"14", "NU"}};
        auto it = canada.find(l.admin1);
        if (it == canada.end()) return "";
        // Labrador: the mainland of Newfoundland and Labrador, north of the Strait of Belle Isle.
        if (it->second == "NF" && (l.lat > 51.7 || (l.lat > 51.3 && l.lon < -56.9))) return "L";
        return it->second;
    }
    if (l.paese == "AU") {
        static const std::map<std::string, std::string> australia{
            {"01", "CT"}, {"02", "NS"}, {"03", "NT"}, {"04", "Q"},
            {"05", "S"},  {"06", "T"},  {"07", "V"},  {"08", "W"}};
        auto it = australia.find(l.admin1);
        return it == australia.end() ? "" : it->second;
    }
    return "";
}

std::vector<std::string> NomiLuoghi(const std::vector<LuogoGeo>& luoghi) {
    const std::size_t n = luoghi.size();
    std::vector<std::string> nomi(n);
    std::vector<std::string> marche(n);
    // Places grouped by nation and name as it would stand cut, compared as the index of the
    // table compares them (case and accents ignored), so that a seek can tell them apart.
    std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> gruppi;
    for (std::size_t i = 0; i < n; ++i) {
        marche[i] = MarcaProvincia(luoghi[i]);
        gruppi[{luoghi[i].paese,
                store_detail::PiegaTesto(PrimiCaratteri(luoghi[i].nome, LarghezzaNome))}]
            .push_back(i);
    }
    auto latitudine = [&](std::size_t i) { return TestoCoordinata(luoghi[i].lat, 0, 1, false); };
    auto longitudine = [&](std::size_t i) {
        return TestoCoordinata(-luoghi[i].lon / 15, 1, 0, false);
    };
    for (const auto& [chiave, membri] : gruppi) {
        std::vector<std::string> suffissi(membri.size());
        for (std::size_t k = 0; k < membri.size(); ++k) {
            const std::size_t i = membri[k];
            std::string tag = marche[i];
            if (tag.empty() && membri.size() > 1) tag = Regione(luoghi[i]);
            if (!tag.empty()) suffissi[k] = " (" + tag + ")";
        }
        // Members still alike get the latitude, then the longitude, then the GeoNames number.
        for (int passo = 0; passo < 3 && membri.size() > 1; ++passo) {
            std::map<std::string, int> conta;
            for (const auto& s : suffissi)
                ++conta[s];
            for (std::size_t k = 0; k < membri.size(); ++k) {
                if (conta[suffissi[k]] < 2) continue;
                const std::size_t i = membri[k];
                const std::string aggiunta = passo == 0   ? latitudine(i)
                                             : passo == 1 ? longitudine(i)
                                                          : std::to_string(luoghi[i].id);
                suffissi[k] += " " + aggiunta;
            }
        }
        for (std::size_t k = 0; k < membri.size(); ++k)
            nomi[membri[k]] = Componi(luoghi[membri[k]].nome, suffissi[k]);
    }
    return nomi;
}

} // namespace vesmo
