#include "places/IndiceNomi.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

#include "core/Testo.h"
#include "core/store/Cursore.h"
#include "places/PiegaNomi.h"
#include "places/Schema.h"

namespace vesmo {

void CreaTabelleIndiceNomi(Database& db) {
    db.CreaTabella(TabellaChiaviLuoghi,
                   {{"Chiave", TipoCampo::Testo, LarghezzaCity * 2},
                    {"Tipo", TipoCampo::Intero32},
                    {"cCity", TipoCampo::Intero32},
                    {"City", TipoCampo::Testo, LarghezzaCity},
                    {"Nome", TipoCampo::Testo, LarghezzaCity * 2},
                    {"Sigla", TipoCampo::Testo, 2},
                    {"Abitanti", TipoCampo::Intero32},
                    {"Lon", TipoCampo::Doppio},
                    {"Lat", TipoCampo::Doppio}},
                   {{"indChiave", {"Chiave", "Tipo"}}});
    db.CreaTabella(TabellaProvinceLuoghi,
                   {{"Chiave", TipoCampo::Testo, LarghezzaCity * 2},
                    {"Sigla", TipoCampo::Testo, 40},
                    {"Nome", TipoCampo::Testo, LarghezzaCity},
                    {"LatMin", TipoCampo::Doppio},
                    {"LatMax", TipoCampo::Doppio},
                    {"LonMin", TipoCampo::Doppio},
                    {"LonMax", TipoCampo::Doppio}},
                   {{"indChiaveProv", {"Chiave"}}});
}

const std::vector<ProvinciaPrecedente>& ProvincePrecedenti() {
    static const std::vector<ProvinciaPrecedente> tabella{
        {"FO", "FC RN", "Forlì"},
        {"Forlì", "FC RN", "Forlì"},
        {"PS", "PU RN", "Pesaro e Urbino"},
        {"Pesaro", "PU RN", "Pesaro e Urbino"},
        {"CI", "SU", "Carbonia-Iglesias"},
        {"Carbonia-Iglesias", "SU", "Carbonia-Iglesias"},
        {"VS", "SU", "Medio Campidano"},
        {"Medio Campidano", "SU", "Medio Campidano"},
        {"OG", "NU", "Ogliastra"},
        {"Ogliastra", "NU", "Ogliastra"},
        {"OT", "SS", "Olbia-Tempio"},
        {"Olbia-Tempio", "SS", "Olbia-Tempio"},
        {"Girgenti", "AG", "Girgenti"},
        {"Aquila", "AQ", "Aquila degli Abruzzi"},
        {"Aquila degli Abruzzi", "AQ", "Aquila degli Abruzzi"},
        {"Porto Maurizio", "IM", "Porto Maurizio"},
        {"Terra di Lavoro", "CE", "Terra di Lavoro"},
        {"Littoria", "LT", "Littoria"},
        {"Apuania", "MS", "Apuania"},
        {"Massa e Carrara", "MS", "Massa e Carrara"},
        {"Reggio di Calabria", "RC", "Reggio di Calabria"},
        {"Reggio nell'Emilia", "RE", "Reggio nell'Emilia"},
        {"Spezia", "SP", "La Spezia"},
        {"Monza", "MB", "Monza e della Brianza"},
        {"Bolzano-Bozen", "BZ", "Bolzano"},
    };
    return tabella;
}

double DistanzaDaRiquadro(double lat, double lon, double latMin, double latMax, double lonMin,
                          double lonMax) {
    const double la = std::clamp(lat, latMin, latMax);
    const double lo = std::clamp(lon, lonMin, lonMax);
    constexpr double Rad = 3.14159265358979323846 / 180;
    const double c = std::sin(lat * Rad) * std::sin(la * Rad) +
                     std::cos(lat * Rad) * std::cos(la * Rad) * std::cos((lon - lo) * Rad);
    return 6371.0 * std::acos(std::clamp(c, -1.0, 1.0));
}

void RiquadroProvincia::Aggiungi(double lat, double lon) {
    latMin = std::min(latMin, lat);
    latMax = std::max(latMax, lat);
    lonMin = std::min(lonMin, lon);
    lonMax = std::max(lonMax, lon);
}

void RiquadroProvincia::Aggiungi(const RiquadroProvincia& r) {
    if (r.Vuoto()) return;
    Aggiungi(r.latMin, r.lonMin);
    Aggiungi(r.latMax, r.lonMax);
}

namespace {

std::int32_t Abitanti(std::int64_t n) {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(n, 0, std::numeric_limits<std::int32_t>::max()));
}

} // namespace

ScritturaIndiceNomi::ScritturaIndiceNomi(Database& db, const std::vector<LuogoGeo>& luoghi,
                                         const std::vector<std::string>& nomi,
                                         const std::map<std::string, std::int32_t>& cNaz)
    : db_(db), chiavi_(db, TabellaChiaviLuoghi), luoghi_(luoghi), nomi_(nomi), cNaz_(cNaz) {}

void ScritturaIndiceNomi::Scrivi(const std::string& chiave, TipoNome tipo, std::size_t i,
                                 const std::string& nome, const std::string& sigla) {
    const LuogoGeo& l = luoghi_[i];
    chiavi_.AddNew();
    chiavi_.Imposta("Chiave", chiave);
    chiavi_.Imposta("Tipo", static_cast<std::int32_t>(tipo));
    chiavi_.Imposta("cCity", cNaz_.at(l.paese));
    chiavi_.Imposta("City", nomi_[i]);
    chiavi_.Imposta("Nome", PrimiCaratteri(nome, LarghezzaCity * 2));
    if (!sigla.empty()) chiavi_.Imposta("Sigla", sigla);
    chiavi_.Imposta("Abitanti", Abitanti(l.popolazione));
    chiavi_.Imposta("Lon", -l.lon / 15.0);
    chiavi_.Imposta("Lat", l.lat);
    chiavi_.Update();
    ++riepilogo_.chiavi;
}

void ScritturaIndiceNomi::Raccogli(const std::vector<Comune>& comuni) {
    for (std::size_t i = 0; i < luoghi_.size(); ++i) {
        const LuogoGeo& l = luoghi_[i];
        if (l.paese != "IT" || l.sigla.empty() || !cNaz_.count(l.paese)) continue;
        if (l.sede) sedePerIstat_[l.admin3] = i;
        perChiaveSigla_[{PiegaNome(l.nome), l.sigla}].push_back(i);
        // A seat that took its comune's name keeps its own among its other names ("Berra",
        // seat of Riva del Po).
        if (l.sede)
            for (const std::string& a : l.alternativi)
                perChiaveSigla_[{PiegaNome(a), l.sigla}].push_back(i);
        riquadri_[l.sigla].Aggiungi(l.lat, l.lon);
    }
    for (const Comune& co : comuni) {
        auto s = sedePerIstat_.find(co.codice);
        if (!co.catastale.empty() && s != sedePerIstat_.end())
            sedePerCatastale_[co.catastale] = s->second;
    }
}

void ScritturaIndiceNomi::ScriviPropri() {
    for (std::size_t i = 0; i < luoghi_.size(); ++i) {
        const LuogoGeo& l = luoghi_[i];
        if (!cNaz_.count(l.paese)) continue;
        const bool italia = l.paese == "IT";
        // An Italian place of a known comune that is not its seat is a hamlet.
        const TipoNome proprio =
            italia && !l.sigla.empty() && !l.sede ? TipoNome::Frazione : TipoNome::Ufficiale;
        std::set<std::string>& visti = scritte_[i];
        for (const std::string& k : ChiaviNome(l.nome))
            if (visti.insert(k).second) Scrivi(k, proprio, i, l.nome, l.sigla);
        const std::string tabella = PiegaNome(nomi_[i]);
        if (!tabella.empty() && visti.insert(tabella).second)
            Scrivi(tabella, proprio, i, nomi_[i], l.sigla);
    }
}

std::optional<std::size_t> ScritturaIndiceNomi::LuogoOggi(const NomeCatastale& n) const {
    if (auto s = sedePerCatastale_.find(n.catastale); s != sedePerCatastale_.end())
        return s->second;
    if (n.attivo) return std::nullopt;
    auto p = perChiaveSigla_.find({PiegaNome(n.nome), n.sigla});
    if (p == perChiaveSigla_.end()) return std::nullopt;
    for (std::size_t i : p->second)
        if (auto s = sedePerIstat_.find(luoghi_[i].admin3); s != sedePerIstat_.end())
            return s->second;
    return std::nullopt;
}

void ScritturaIndiceNomi::ScriviPrecedenti(const std::vector<NomeCatastale>& catastali) {
    for (const NomeCatastale& n : catastali) {
        const std::optional<std::size_t> meta = LuogoOggi(n);
        if (!meta) {
            if (!n.attivo) ++riepilogo_.precedentiSenzaLuogo;
            continue;
        }
        const std::string nome = NomeDaMaiuscole(n.nome);
        for (const std::string& k : ChiaviNome(nome)) {
            if (!scritte_[*meta].insert(k).second) continue;
            Scrivi(k, n.attivo ? TipoNome::Ufficiale : TipoNome::Precedente, *meta, nome, n.sigla);
            if (!n.attivo) ++riepilogo_.precedenti;
        }
    }
}

void ScritturaIndiceNomi::ScriviAlternativi() {
    for (std::size_t i = 0; i < luoghi_.size(); ++i) {
        const LuogoGeo& l = luoghi_[i];
        if (!cNaz_.count(l.paese)) continue;
        std::set<std::string>& visti = scritte_[i];
        for (const std::string& a : l.alternativi)
            for (const std::string& k : ChiaviNome(a))
                if (visti.insert(k).second) Scrivi(k, TipoNome::Alternativo, i, a, l.sigla);
    }
}

void ScritturaIndiceNomi::ScriviProvincia(Cursore& p, const std::string& chiave,
                                          const std::string& sigle, const std::string& nome) {
    RiquadroProvincia q;
    std::size_t inizio = 0;
    while (inizio < sigle.size()) {
        std::size_t fine = sigle.find(' ', inizio);
        if (fine == std::string::npos) fine = sigle.size();
        auto it = riquadri_.find(sigle.substr(inizio, fine - inizio));
        if (it != riquadri_.end()) q.Aggiungi(it->second);
        inizio = fine + 1;
    }
    const std::string k = PiegaNome(chiave);
    if (q.Vuoto() || k.empty() || !chiaviProvince_.insert(k).second) return;
    p.AddNew();
    p.Imposta("Chiave", k);
    p.Imposta("Sigla", sigle);
    p.Imposta("Nome", nome);
    p.Imposta("LatMin", q.latMin);
    p.Imposta("LatMax", q.latMax);
    p.Imposta("LonMin", q.lonMin);
    p.Imposta("LonMax", q.lonMax);
    p.Update();
    ++riepilogo_.province;
}

void ScritturaIndiceNomi::ScriviProvince(const std::vector<ProvinciaItaliana>& province) {
    Cursore p(db_, TabellaProvinceLuoghi);
    std::map<std::string, std::string> nomeDi;
    for (const ProvinciaItaliana& pr : province)
        nomeDi[pr.sigla] = pr.nome;
    for (const auto& [sigla, q] : riquadri_)
        ScriviProvincia(p, sigla, sigla, nomeDi.count(sigla) ? nomeDi[sigla] : sigla);
    // A province of the past in the list (Medio Campidano) has no places: the table of the
    // former provinces gives its successors.
    for (const ProvinciaItaliana& pr : province)
        if (riquadri_.count(pr.sigla)) ScriviProvincia(p, pr.nome, pr.sigla, pr.nome);
    for (const ProvinciaPrecedente& pr : ProvincePrecedenti())
        ScriviProvincia(p, pr.chiave, pr.sigle, pr.nome);
}

RiepilogoIndice ScriviIndiceNomi(Database& db, const std::vector<LuogoGeo>& luoghi,
                                 const std::vector<std::string>& nomi,
                                 const std::map<std::string, std::int32_t>& cNaz,
                                 const std::vector<Comune>& comuni,
                                 const std::vector<NomeCatastale>& catastali,
                                 const std::vector<ProvinciaItaliana>& province) {
    ScritturaIndiceNomi scrittura(db, luoghi, nomi, cNaz);
    scrittura.Raccogli(comuni);
    scrittura.ScriviPropri();
    scrittura.ScriviPrecedenti(catastali);
    scrittura.ScriviAlternativi();
    scrittura.ScriviProvince(province);
    return scrittura.Riepilogo();
}

} // namespace vesmo
