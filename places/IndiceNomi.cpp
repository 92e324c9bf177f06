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

namespace {

struct Riquadro {
    double latMin = 90, latMax = -90, lonMin = 180, lonMax = -180;
    bool Vuoto() const { return latMin > latMax; }
    void Aggiungi(double lat, double lon) {
        latMin = std::min(latMin, lat);
        latMax = std::max(latMax, lat);
        lonMin = std::min(lonMin, lon);
        lonMax = std::max(lonMax, lon);
    }
    void Aggiungi(const Riquadro& r) {
        if (r.Vuoto()) return;
        Aggiungi(r.latMin, r.lonMin);
        Aggiungi(r.latMax, r.lonMax);
    }
};

std::int32_t Abitanti(std::int64_t n) {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(n, 0, std::numeric_limits<std::int32_t>::max()));
}

} // namespace

RiepilogoIndice ScriviIndiceNomi(Database& db, const std::vector<LuogoGeo>& luoghi,
                                 const std::vector<std::string>& nomi,
                                 const std::map<std::string, std::int32_t>& cNaz,
                                 const std::vector<Comune>& comuni,
                                 const std::vector<NomeCatastale>& catastali,
                                 const std::vector<ProvinciaItaliana>& province) {
    RiepilogoIndice r;
    Cursore c(db, TabellaChiaviLuoghi);
    auto scrivi = [&](const std::string& chiave, TipoNome tipo, std::size_t i,
                      const std::string& nome, const std::string& sigla) {
        const LuogoGeo& l = luoghi[i];
        c.AddNew();
        c.Imposta("Chiave", chiave);
        c.Imposta("Tipo", static_cast<std::int32_t>(tipo));
        c.Imposta("cCity", cNaz.at(l.paese));
        c.Imposta("City", nomi[i]);
        c.Imposta("Nome", PrimiCaratteri(nome, LarghezzaCity * 2));
        if (!sigla.empty()) c.Imposta("Sigla", sigla);
        c.Imposta("Abitanti", Abitanti(l.popolazione));
        c.Imposta("Lon", -l.lon / 15.0);
        c.Imposta("Lat", l.lat);
        c.Update();
        ++r.chiavi;
    };

    // Today's comuni: their seats by ISTAT code and by cadastral code; the Italian places by
    // key and province letters; the box of each province.
    std::map<std::string, std::size_t> sedePerIstat;
    std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> perChiaveSigla;
    std::map<std::string, Riquadro> riquadri;
    for (std::size_t i = 0; i < luoghi.size(); ++i) {
        const LuogoGeo& l = luoghi[i];
        if (l.paese != "IT" || l.sigla.empty() || !cNaz.count(l.paese)) continue;
        if (l.sede) sedePerIstat[l.admin3] = i;
        perChiaveSigla[{PiegaNome(l.nome), l.sigla}].push_back(i);
        // A seat that took its comune's name keeps its own among its other names ("Berra",
        // seat of Riva del Po).
        if (l.sede)
            for (const std::string& a : l.alternativi)
                perChiaveSigla[{PiegaNome(a), l.sigla}].push_back(i);
        riquadri[l.sigla].Aggiungi(l.lat, l.lon);
    }
    std::map<std::string, std::size_t> sedePerCatastale;
    for (const Comune& co : comuni) {
        auto s = sedePerIstat.find(co.codice);
        if (!co.catastale.empty() && s != sedePerIstat.end())
            sedePerCatastale[co.catastale] = s->second;
    }

    // Keys already written for a place: a key goes once a place, with its best type.
    std::map<std::size_t, std::set<std::string>> scritte;
    auto nuova = [&](std::size_t i, const std::string& k) { return scritte[i].insert(k).second; };

    for (std::size_t i = 0; i < luoghi.size(); ++i) {
        const LuogoGeo& l = luoghi[i];
        if (!cNaz.count(l.paese)) continue;
        const bool italia = l.paese == "IT";
        // An Italian place of a known comune that is not its seat is a hamlet.
        const TipoNome proprio =
            italia && !l.sigla.empty() && !l.sede ? TipoNome::Frazione : TipoNome::Ufficiale;
        std::set<std::string>& visti = scritte[i];
        for (const std::string& k : ChiaviNome(l.nome))
            if (visti.insert(k).second) scrivi(k, proprio, i, l.nome, l.sigla);
        const std::string tabella = PiegaNome(nomi[i]);
        if (!tabella.empty() && visti.insert(tabella).second)
            scrivi(tabella, proprio, i, nomi[i], l.sigla);
    }

    // Former names: the place that holds the territory today is the seat of the comune of the
    // same cadastral code, else the comune of an Italian place of that name and province.
    for (const NomeCatastale& n : catastali) {
        std::optional<std::size_t> meta;
        if (auto s = sedePerCatastale.find(n.catastale); s != sedePerCatastale.end()) {
            meta = s->second;
        } else if (!n.attivo) {
            auto p = perChiaveSigla.find({PiegaNome(n.nome), n.sigla});
            if (p != perChiaveSigla.end())
                for (std::size_t i : p->second)
                    if (auto s = sedePerIstat.find(luoghi[i].admin3); s != sedePerIstat.end()) {
                        meta = s->second;
                        break;
                    }
        }
        if (!meta) {
            if (!n.attivo) ++r.precedentiSenzaLuogo;
            continue;
        }
        const std::string nome = NomeDaMaiuscole(n.nome);
        for (const std::string& k : ChiaviNome(nome)) {
            if (!nuova(*meta, k)) continue;
            scrivi(k, n.attivo ? TipoNome::Ufficiale : TipoNome::Precedente, *meta, nome, n.sigla);
            if (!n.attivo) ++r.precedenti;
        }
    }

    for (std::size_t i = 0; i < luoghi.size(); ++i) {
        const LuogoGeo& l = luoghi[i];
        if (!cNaz.count(l.paese)) continue;
        std::set<std::string>& visti = scritte[i];
        for (const std::string& a : l.alternativi)
            for (const std::string& k : ChiaviNome(a))
                if (visti.insert(k).second) scrivi(k, TipoNome::Alternativo, i, a, l.sigla);
    }

    // The provinces: by letters and by name, today's and former ones.
    Cursore p(db, TabellaProvinceLuoghi);
    std::set<std::string> chiaviProvince;
    auto provincia = [&](const std::string& chiave, const std::string& sigle,
                         const std::string& nome) {
        Riquadro q;
        std::size_t inizio = 0;
        while (inizio < sigle.size()) {
            std::size_t fine = sigle.find(' ', inizio);
            if (fine == std::string::npos) fine = sigle.size();
            auto it = riquadri.find(sigle.substr(inizio, fine - inizio));
            if (it != riquadri.end()) q.Aggiungi(it->second);
            inizio = fine + 1;
        }
        const std::string k = PiegaNome(chiave);
        if (q.Vuoto() || k.empty() || !chiaviProvince.insert(k).second) return;
        p.AddNew();
        p.Imposta("Chiave", k);
        p.Imposta("Sigla", sigle);
        p.Imposta("Nome", nome);
        p.Imposta("LatMin", q.latMin);
        p.Imposta("LatMax", q.latMax);
        p.Imposta("LonMin", q.lonMin);
        p.Imposta("LonMax", q.lonMax);
        p.Update();
        ++r.province;
    };
    std::map<std::string, std::string> nomeDi;
    for (const ProvinciaItaliana& pr : province)
        nomeDi[pr.sigla] = pr.nome;
    for (const auto& [sigla, q] : riquadri)
        provincia(sigla, sigla, nomeDi.count(sigla) ? nomeDi[sigla] : sigla);
    // A province of the past in the list (Medio Campidano) has no places: the table of the
    // former provinces gives its successors.
    for (const ProvinciaItaliana& pr : province)
        if (riquadri.count(pr.sigla)) provincia(pr.nome, pr.sigla, pr.nome);
    for (const ProvinciaPrecedente& pr : ProvincePrecedenti())
        provincia(pr.chiave, pr.sigle, pr.nome);
    return r;
}

} // namespace vesmo
