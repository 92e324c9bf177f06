#include "places/RicercaLuoghi.h"

#include <algorithm>

#include "core/Testo.h"
#include "core/store/Chiave.h"
#include "places/FontiLuoghi.h"
#include "places/Schema.h"

namespace vesmo {

namespace {

std::string Piega(std::string_view s) {
    return store_detail::PiegaTesto(s);
}

bool Comincia(std::string_view testo, std::string_view inizio) {
    return testo.substr(0, inizio.size()) == inizio;
}

// The longest text compared: no name is longer, and a hostile text costs nothing more.
constexpr std::size_t LunghezzaMassima = 2 * LarghezzaCity;

std::string Pulito(std::string_view testo) {
    return PrimiCaratteri(SenzaSpazi(testo), LunghezzaMassima);
}

} // namespace

void CreaTabellaNomiAlternativi(Database& db) {
    db.CreaTabella(
        TabellaNomiAlternativi,
        {{"cCity", TipoCampo::Intero32},
         {"NomeAlt", TipoCampo::Testo, LarghezzaCity},
         {"City", TipoCampo::Testo, LarghezzaCity},
         {"Rango", TipoCampo::Intero32}},
        {{"IcCityNomeAlt", {"cCity", "NomeAlt", "Rango"}}, {"indNomeAlt", {"NomeAlt", "Rango"}}});
}

RicercaLuoghi::RicercaLuoghi(Database& db) : db_(db) {}
RicercaLuoghi::~RicercaLuoghi() = default;

Cursore& RicercaLuoghi::Luoghi(bool nazione) {
    auto& c = nazione ? perNazione_ : perCitta_;
    if (!c) {
        c = std::make_unique<Cursore>(db_, "AllCity");
        c->Index(nazione ? "IcCityCity" : "indCity");
    }
    return *c;
}

Cursore* RicercaLuoghi::Alternativi(bool nazione) {
    if (senzaAlternativi_) return nullptr;
    auto& c = nazione ? alt_ : altTutti_;
    if (!c) {
        if (!db_.EsisteTabella(TabellaNomiAlternativi)) {
            senzaAlternativi_ = true;
            return nullptr;
        }
        c = std::make_unique<Cursore>(db_, TabellaNomiAlternativi);
        c->Index(nazione ? "IcCityNomeAlt" : "indNomeAlt");
    }
    return c.get();
}

std::vector<LuogoTrovato> RicercaLuoghi::Comincia(std::optional<std::int32_t> cNaz,
                                                  std::string_view testo, std::size_t n) {
    std::vector<LuogoTrovato> trovati;
    const std::string t = PrimiCaratteri(testo, LunghezzaMassima);
    if (t.empty() || n == 0) return trovati;
    const std::string inizio = Piega(t);
    Cursore& c = Luoghi(cNaz.has_value());
    if (cNaz)
        c.Seek(">=", *cNaz, Valore(t));
    else
        c.Seek(">=", Valore(t));
    for (; !c.NoMatch() && !c.Eof() && trovati.size() < n; c.MoveNext()) {
        const auto naz = static_cast<std::int32_t>(c.Campo("cCity").Intero());
        if (cNaz && naz != *cNaz) break;
        std::string city = c.Campo("City").Testo();
        if (!vesmo::Comincia(Piega(city), inizio)) break;
        trovati.push_back({naz, std::move(city), {}});
    }
    return trovati;
}

std::optional<LuogoTrovato> RicercaLuoghi::NomeAlternativo(std::optional<std::int32_t> cNaz,
                                                           std::string_view testo) {
    const std::string t = Pulito(testo);
    Cursore* a = t.empty() ? nullptr : Alternativi(cNaz.has_value());
    if (!a) return std::nullopt;
    if (cNaz)
        a->Seek("=", *cNaz, Valore(t));
    else
        a->Seek("=", Valore(t));
    const std::string piegato = Piega(t);
    Cursore& luoghi = Luoghi(true);
    for (; !a->NoMatch() && !a->Eof(); a->MoveNext()) {
        const auto naz = static_cast<std::int32_t>(a->Campo("cCity").Intero());
        std::string nome = a->Campo("NomeAlt").Testo();
        if ((cNaz && naz != *cNaz) || Piega(nome) != piegato) break;
        std::string city = a->Campo("City").Testo();
        // A place renamed or deleted since the table was built is passed over.
        luoghi.Seek("=", naz, Valore(city));
        if (luoghi.NoMatch()) continue;
        return LuogoTrovato{naz, std::move(city), std::move(nome)};
    }
    return std::nullopt;
}

EsitoNome RicercaLuoghi::NomeEsatto(std::optional<std::int32_t> cNaz, std::string_view testo) {
    EsitoNome esito;
    const std::string t = Pulito(testo);
    if (t.empty()) return esito;
    const std::string piegato = Piega(t);

    Cursore& c = Luoghi(cNaz.has_value());
    if (cNaz)
        c.Seek("=", *cNaz, Valore(t));
    else
        c.Seek("=", Valore(t));
    for (; !c.NoMatch() && !c.Eof(); c.MoveNext()) {
        const auto naz = static_cast<std::int32_t>(c.Campo("cCity").Intero());
        std::string city = c.Campo("City").Testo();
        if ((cNaz && naz != *cNaz) || Piega(city) != piegato) break;
        esito.luoghi.push_back({naz, std::move(city), {}});
    }
    if (!esito.luoghi.empty()) {
        esito.tipo = Corrispondenza::Propria;
        return esito;
    }

    if (!cNaz || *cNaz == CNazItalia) {
        for (LuogoTrovato& l : Comincia(cNaz, t + " (", 1000))
            if (l.cCity == CNazItalia) esito.luoghi.push_back(std::move(l));
        if (!esito.luoghi.empty()) {
            esito.tipo = Corrispondenza::SenzaProvincia;
            return esito;
        }
    }

    if (auto l = NomeAlternativo(cNaz, t)) {
        esito.tipo = Corrispondenza::Alternativa;
        esito.luoghi.push_back(std::move(*l));
    }
    return esito;
}

std::vector<LuogoTrovato>
RicercaLuoghi::AlternativiCheCominciano(std::optional<std::int32_t> cNaz, std::string_view testo,
                                        std::size_t n, const std::vector<LuogoTrovato>& esclusi) {
    std::vector<LuogoTrovato> trovati;
    const std::string t = PrimiCaratteri(testo, LunghezzaMassima);
    Cursore* a = t.empty() || n == 0 ? nullptr : Alternativi(cNaz.has_value());
    if (!a) return trovati;
    const std::string inizio = Piega(t);
    if (cNaz)
        a->Seek(">=", *cNaz, Valore(t));
    else
        a->Seek(">=", Valore(t));
    auto gia = [&](std::int32_t naz, const std::string& city) {
        auto uguale = [&](const LuogoTrovato& l) { return l.cCity == naz && l.City == city; };
        return std::any_of(esclusi.begin(), esclusi.end(), uguale) ||
               std::any_of(trovati.begin(), trovati.end(), uguale);
    };
    for (; !a->NoMatch() && !a->Eof() && trovati.size() < n; a->MoveNext()) {
        const auto naz = static_cast<std::int32_t>(a->Campo("cCity").Intero());
        std::string nome = a->Campo("NomeAlt").Testo();
        if ((cNaz && naz != *cNaz) || !vesmo::Comincia(Piega(nome), inizio)) break;
        std::string city = a->Campo("City").Testo();
        if (gia(naz, city)) continue;
        trovati.push_back({naz, std::move(city), std::move(nome)});
    }
    return trovati;
}

std::vector<LuogoTrovato> RicercaLuoghi::Simili(std::optional<std::int32_t> cNaz,
                                                std::string_view testo, std::size_t n) {
    std::string t = Pulito(testo);
    while (!t.empty()) {
        auto trovati = Comincia(cNaz, t, n);
        if (!trovati.empty()) return trovati;
        // One character less, a whole UTF-8 sequence at a time.
        std::size_t fine = t.size() - 1;
        while (fine > 0 && (static_cast<unsigned char>(t[fine]) & 0xC0) == 0x80)
            --fine;
        t.resize(fine);
    }
    return {};
}

} // namespace vesmo
