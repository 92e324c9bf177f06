#include "places/RicercaLuoghi.h"

#include <algorithm>
#include <set>

#include "core/Testo.h"
#include "core/store/Chiave.h"
#include "places/FontiLuoghi.h"
#include "places/PiegaNomi.h"
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

std::string EsitoRisoluzione::Corrispondenza() const {
    if (stato != StatoRisoluzione::Trovato || candidati.empty()) return "";
    const Candidato& c = candidati.front();
    if (c.tipo == TipoNome::Ufficiale || c.tipo == TipoNome::Frazione) return "";
    return (c.tipo == TipoNome::Prefisso ? nome : c.Nome) + " → " + c.City;
}

bool RicercaLuoghi::ApriChiavi() {
    if (senzaChiavi_) return false;
    if (!chiavi_) {
        if (!db_.EsisteTabella(TabellaChiaviLuoghi) || !db_.EsisteTabella(TabellaProvinceLuoghi)) {
            senzaChiavi_ = true;
            return false;
        }
        chiavi_ = std::make_unique<Cursore>(db_, TabellaChiaviLuoghi);
        chiavi_->Index("indChiave");
        province_ = std::make_unique<Cursore>(db_, TabellaProvinceLuoghi);
        province_->Index("indChiaveProv");
    }
    return true;
}

bool FiltroLuoghi::Ammesso(const Candidato& c) const {
    if (cNaz && c.cCity != *cNaz) return false;
    if (!conProvincia) return true;
    if (c.cCity != CNazItalia) return false;
    return NellaProvincia(c) || DistanzaDaRiquadro(c.Lat, -c.Lon * 15, latMin, latMax, lonMin,
                                                   lonMax) <= DistanzaMassimaProvincia;
}

namespace {

// A place once, with its best name: the first that came.
void AggiungiCandidato(std::vector<Candidato>& trovati, Candidato c) {
    for (const Candidato& g : trovati)
        if (g.cCity == c.cCity && g.City == c.City) return;
    trovati.push_back(std::move(c));
}

bool PiuAbitanti(const Candidato& a, const Candidato& b) {
    return a.abitanti > b.abitanti;
}

} // namespace

void ScegliCandidati(std::vector<Candidato> trovati, bool libero, EsitoRisoluzione& e) {
    // A place with a hundred times the people of every other that has the name, when neither
    // a nation nor a province is given, whatever the type of its name ("Parigi" is Paris,
    // not a village that bears the name as its own).
    if (libero && trovati.size() > 1) {
        std::stable_sort(trovati.begin(), trovati.end(), PiuAbitanti);
        if (trovati[0].tipo <= TipoNome::Alternativo &&
            trovati[0].abitanti >= 100.0 * std::max(trovati[1].abitanti, 1)) {
            trovati.resize(1);
            e.stato = StatoRisoluzione::Trovato;
            e.candidati = std::move(trovati);
            return;
        }
    }
    // The best type of name, the most people first.
    const TipoNome migliore =
        std::min_element(trovati.begin(), trovati.end(),
                         [](const Candidato& a, const Candidato& b) { return a.tipo < b.tipo; })
            ->tipo;
    std::erase_if(trovati, [&](const Candidato& c) { return c.tipo != migliore; });
    std::stable_sort(trovati.begin(), trovati.end(), PiuAbitanti);
    bool uno = trovati.size() == 1;
    if (!uno && libero) {
        // Places of one name in several nations: the one far larger than all others.
        const Candidato& primo = trovati.front();
        const bool soloNazione =
            std::none_of(trovati.begin() + 1, trovati.end(),
                         [&](const Candidato& c) { return c.cCity == primo.cCity; });
        uno = soloNazione && primo.abitanti >= 10.0 * trovati[1].abitanti;
    }
    if (uno) trovati.resize(1);
    e.stato = uno ? StatoRisoluzione::Trovato : StatoRisoluzione::Ambiguo;
    e.candidati = std::move(trovati);
}

void RicercaLuoghi::LeggiProvincia(const std::string& testo, EsitoRisoluzione& e, FiltroLuoghi& f) {
    if (e.provincia.empty()) return;
    if (!f.cNaz || *f.cNaz == CNazItalia) province_->Seek("=", Valore(PiegaNome(e.provincia)));
    if ((f.cNaz && *f.cNaz != CNazItalia) || province_->NoMatch()) {
        e.provinciaSconosciuta = true;
        e.nome = testo;
        e.provincia.clear();
        return;
    }
    e.sigle = province_->Campo("Sigla").Testo();
    for (std::size_t i = 0; i < e.sigle.size(); i += 3)
        f.sigle.insert(e.sigle.substr(i, 2));
    f.latMin = province_->Campo("LatMin").Numero();
    f.latMax = province_->Campo("LatMax").Numero();
    f.lonMin = province_->Campo("LonMin").Numero();
    f.lonMax = province_->Campo("LonMax").Numero();
    f.conProvincia = true;
}

Candidato RicercaLuoghi::LeggiCandidato(TipoNome tipo) const {
    Candidato c;
    c.cCity = static_cast<std::int32_t>(chiavi_->Campo("cCity").Intero());
    c.City = chiavi_->Campo("City").Testo();
    c.Nome = chiavi_->Campo("Nome").Testo();
    c.Sigla = chiavi_->Campo("Sigla").Testo();
    c.tipo = tipo;
    c.abitanti = static_cast<std::int32_t>(chiavi_->Campo("Abitanti").Intero());
    c.Lon = chiavi_->Campo("Lon").Numero();
    c.Lat = chiavi_->Campo("Lat").Numero();
    return c;
}

std::vector<Candidato> RicercaLuoghi::CandidatiDiChiave(const std::string& chiave,
                                                        const FiltroLuoghi& f) {
    std::vector<Candidato> trovati;
    chiavi_->Seek("=", Valore(chiave));
    for (; !chiavi_->NoMatch() && !chiavi_->Eof(); chiavi_->MoveNext()) {
        if (chiavi_->Campo("Chiave").Testo() != chiave) break;
        Candidato c = LeggiCandidato(static_cast<TipoNome>(chiavi_->Campo("Tipo").Intero()));
        if (f.Ammesso(c)) AggiungiCandidato(trovati, std::move(c));
    }
    // Places of the province itself come before those only near it.
    auto nella = [&f](const Candidato& c) { return f.NellaProvincia(c); };
    if (f.conProvincia && std::any_of(trovati.begin(), trovati.end(), nella))
        std::erase_if(trovati, [&](const Candidato& c) { return !nella(c); });
    return trovati;
}

std::vector<Candidato> RicercaLuoghi::CandidatiPerInizio(const std::string& chiave,
                                                         const FiltroLuoghi& f) {
    constexpr int Righe = 20000;
    std::vector<Candidato> trovati;
    chiavi_->Seek(">=", Valore(chiave));
    for (int n = 0; n < Righe && !chiavi_->NoMatch() && !chiavi_->Eof(); ++n, chiavi_->MoveNext()) {
        if (chiavi_->Campo("Chiave").Testo().compare(0, chiave.size(), chiave) != 0) break;
        const auto tipo = static_cast<TipoNome>(chiavi_->Campo("Tipo").Intero());
        if (tipo != TipoNome::Ufficiale) continue;
        Candidato c = LeggiCandidato(TipoNome::Prefisso);
        if (c.cCity == CNazItalia && f.NellaProvincia(c)) AggiungiCandidato(trovati, std::move(c));
    }
    return trovati;
}

std::optional<EsitoRisoluzione> RicercaLuoghi::RisolviMeta(const EsitoRisoluzione& e,
                                                           const std::string& chiave,
                                                           const FiltroLuoghi& f) {
    const std::vector<std::string> parti = ChiaviNome(e.nome);
    for (std::size_t k = 0; k < parti.size(); ++k) {
        if (parti[k] == chiave || parti[k] == PiegaNomeUnito(e.nome)) continue;
        EsitoRisoluzione meta =
            RisolviNome(f.cNaz, parti[k] + (f.conProvincia ? " (" + e.provincia + ")" : ""));
        if (meta.stato != StatoRisoluzione::Trovato) continue;
        meta.nome = e.nome;
        return meta;
    }
    return std::nullopt;
}

EsitoRisoluzione RicercaLuoghi::RisolviNome(std::optional<std::int32_t> cNaz,
                                            std::string_view testo) {
    EsitoRisoluzione e;
    const std::string t = Pulito(testo);
    if (t.empty() || !ApriChiavi()) return e;
    const NomeEProvincia np = DividiProvincia(t);
    e.nome = np.nome;
    e.provincia = np.provincia;
    FiltroLuoghi f;
    f.cNaz = cNaz;
    LeggiProvincia(t, e, f);
    const std::string chiave = PiegaNome(e.nome);
    if (chiave.empty()) return e;

    std::vector<Candidato> trovati = CandidatiDiChiave(chiave, f);
    // With a province and no place of that name: the official names of the province that
    // begin with it.
    if (trovati.empty() && f.conProvincia) trovati = CandidatiPerInizio(chiave, f);
    if (trovati.empty()) {
        // A name of two languages as records write it, "Villabassa - Niederdorf": the half
        // that finds one place.
        std::optional<EsitoRisoluzione> meta = RisolviMeta(e, chiave, f);
        return meta ? std::move(*meta) : e;
    }
    ScegliCandidati(std::move(trovati), !cNaz && !f.conProvincia, e);
    return e;
}

std::vector<LuogoTrovato>
RicercaLuoghi::ChiaviCheCominciano(std::optional<std::int32_t> cNaz, std::string_view testo,
                                   std::size_t n, const std::vector<LuogoTrovato>& esclusi) {
    std::vector<LuogoTrovato> trovati;
    const std::string chiave = PiegaNome(Pulito(testo));
    if (chiave.empty() || n == 0 || !ApriChiavi()) return trovati;
    auto gia = [&](std::int32_t naz, const std::string& city) {
        auto uguale = [&](const LuogoTrovato& l) { return l.cCity == naz && l.City == city; };
        return std::any_of(esclusi.begin(), esclusi.end(), uguale) ||
               std::any_of(trovati.begin(), trovati.end(), uguale);
    };
    constexpr int Righe = 5000; // a short text begins many keys: a bounded walk
    chiavi_->Seek(">=", Valore(chiave));
    for (int k = 0; k < Righe && !chiavi_->NoMatch() && !chiavi_->Eof() && trovati.size() < n;
         ++k, chiavi_->MoveNext()) {
        if (chiavi_->Campo("Chiave").Testo().compare(0, chiave.size(), chiave) != 0) break;
        const auto naz = static_cast<std::int32_t>(chiavi_->Campo("cCity").Intero());
        if (cNaz && naz != *cNaz) continue;
        std::string city = chiavi_->Campo("City").Testo();
        if (gia(naz, city)) continue;
        const auto tipo = static_cast<TipoNome>(chiavi_->Campo("Tipo").Intero());
        std::string nome = tipo == TipoNome::Ufficiale || tipo == TipoNome::Frazione
                               ? std::string()
                               : chiavi_->Campo("Nome").Testo();
        trovati.push_back({naz, std::move(city), std::move(nome)});
    }
    return trovati;
}

} // namespace vesmo
