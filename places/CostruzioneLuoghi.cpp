#include "places/CostruzioneLuoghi.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <numeric>
#include <optional>
#include <set>

#include "core/Testo.h"
#include "core/store/Chiave.h"
#include "core/store/Cursore.h"
#include "places/IndiceNomi.h"
#include "places/RicercaLuoghi.h"
#include "places/Schema.h"
#include "places/Tzif.h"

namespace vesmo {

std::map<std::string, std::int32_t> CodiciZone(const std::vector<LuogoGeo>& luoghi) {
    std::set<std::string> nomi;
    for (const LuogoGeo& l : luoghi)
        nomi.insert(l.zona);
    std::map<std::string, std::int32_t> codici;
    std::int32_t codice = 0;
    for (const std::string& z : nomi)
        codici[z] = ++codice;
    return codici;
}

void ScriviNazioni(Database& db, const std::vector<NazioneIso>& nazioni) {
    Cursore c(db, "Nazioni");
    for (const NazioneIso& n : nazioni) {
        c.AddNew();
        c.Imposta("cNaz", n.cNaz);
        c.Imposta("Nazione", PrimiCaratteri(n.nome, LarghezzaNazione));
        c.Imposta("Spec", n.alpha2.empty() ? std::string(" ") : n.alpha2);
        c.Update();
    }
}

void ScriviStoria(Database& db, const StoriaZona& storia) {
    Cursore f(db, "Fusi");
    for (const RigaFusi& r : storia.fusi) {
        f.AddNew();
        f.Imposta("cFusi", r.cFusi);
        f.Imposta("Day", r.Day);
        f.Imposta("Mese", r.Mese);
        f.Imposta("Anno", r.Anno);
        f.Imposta("fH_h", r.fH_h);
        f.Imposta("fH_m", r.fH_m);
        f.Update();
    }
    Cursore e(db, "Estive");
    for (const RigaEstive& r : storia.estive) {
        e.AddNew();
        e.Imposta("cEst", r.cEst);
        e.Imposta("Day", r.Day);
        e.Imposta("Mese", r.Mese);
        e.Imposta("Anno", r.Anno);
        e.Imposta("h", r.h);
        e.Imposta("min", r.min);
        e.Imposta("HE_h", r.HE_h);
        e.Imposta("HE_m", r.HE_m);
        e.Update();
    }
}

std::size_t ScriviLuoghi(Database& db, const std::vector<LuogoGeo>& luoghi,
                         const std::vector<std::string>& nomi,
                         const std::map<std::string, std::int32_t>& codici,
                         const std::map<std::string, std::int32_t>& cNaz,
                         std::size_t* alternativi) {
    // Rows go in by people, the most first, then by GeoNames number: the file does not depend
    // on the order of the dump, and of places of one name in several nations the largest comes
    // first in the order by city. The rank in this order goes with the other names, so that a
    // name shared by several places finds the largest first.
    std::vector<std::size_t> ordine(luoghi.size());
    std::iota(ordine.begin(), ordine.end(), std::size_t{0});
    std::sort(ordine.begin(), ordine.end(), [&](std::size_t a, std::size_t b) {
        if (luoghi[a].popolazione != luoghi[b].popolazione)
            return luoghi[a].popolazione > luoghi[b].popolazione;
        return luoghi[a].id < luoghi[b].id;
    });
    std::vector<std::int32_t> rango(luoghi.size());
    for (std::size_t k = 0; k < ordine.size(); ++k)
        rango[ordine[k]] = static_cast<std::int32_t>(k);
    Cursore c(db, "AllCity");
    std::optional<Cursore> alt;
    if (db.EsisteTabella(TabellaNomiAlternativi)) alt.emplace(db, TabellaNomiAlternativi);
    std::size_t scartati = 0, scritti = 0;
    for (std::size_t i : ordine) {
        const LuogoGeo& l = luoghi[i];
        auto naz = cNaz.find(l.paese);
        auto zona = codici.find(l.zona);
        if (naz == cNaz.end() || zona == codici.end()) {
            ++scartati;
            continue;
        }
        c.AddNew();
        c.Imposta("cCity", naz->second);
        c.Imposta("City", nomi[i]);
        c.Imposta("Lon", -l.lon / 15.0); // hours, west positive
        c.Imposta("Lat", l.lat);
        c.Imposta("cFusi", zona->second);
        c.Imposta("cEst", zona->second);
        c.Update();
        if (!alt) continue;
        auto scrivi = [&](const std::string& nome) {
            alt->AddNew();
            alt->Imposta("cCity", naz->second);
            alt->Imposta("NomeAlt", nome);
            alt->Imposta("City", nomi[i]);
            alt->Imposta("Rango", rango[i]);
            alt->Update();
            ++scritti;
        };
        const std::string intero = store_detail::PiegaTesto(l.nome);
        if (store_detail::PiegaTesto(nomi[i]).substr(0, intero.size()) != intero)
            scrivi(PrimiCaratteri(l.nome, LarghezzaCity));
        for (const std::string& a : l.alternativi)
            scrivi(a);
    }
    if (alternativi) *alternativi = scritti;
    return scartati;
}

namespace {

// The ISO nations and those outside the standard, by code.
std::vector<NazioneIso> NazioniOrdinate(const FontiCostruzione& fonti) {
    std::vector<NazioneIso> nazioni = LeggiFileNazioniIso(fonti.nazioni.string());
    for (const NazioneIso& n : NazioniFuoriIso())
        nazioni.push_back(n);
    std::sort(nazioni.begin(), nazioni.end(),
              [](const NazioneIso& a, const NazioneIso& b) { return a.cNaz < b.cNaz; });
    return nazioni;
}

// The comuni's names since 1861 and the provinces, when the sources name their folder; a
// missing list of provinces throws ErroreFonte.
void LeggiCatastali(const FontiCostruzione& fonti, std::vector<NomeCatastale>& catastali,
                    std::vector<ProvinciaItaliana>& province) {
    if (fonti.catastali.empty()) return;
    catastali = LeggiFileNomiCatastali(fonti.catastali / "lista-comuni.js");
    std::ifstream f(fonti.catastali / "lista-province.js", std::ios::binary);
    if (!f)
        throw ErroreFonte("file non trovato: " + (fonti.catastali / "lista-province.js").string());
    province = LeggiProvince(
        std::string((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>()));
}

// The history of every zone named by the places: a zone that cannot be read stops the build.
std::vector<StoriaZona> StorieDelleZone(const FontiCostruzione& fonti,
                                        const std::map<std::string, std::int32_t>& codici) {
    std::vector<StoriaZona> storie;
    for (const auto& [zona, codice] : codici) {
        const ZonaTzif z = LeggiFileTzif((fonti.zoneinfo / zona).string(), fonti.annoFine);
        storie.push_back(StoriaDaPeriodi(z.periodi, codice));
    }
    return storie;
}

} // namespace

RiepilogoCostruzione CostruisciDatabaseLuoghi(const FontiCostruzione& fonti,
                                              const std::filesystem::path& destinazione) {
    RiepilogoCostruzione r;
    const std::vector<NazioneIso> nazioni = NazioniOrdinate(fonti);
    std::map<std::string, std::int32_t> cNaz;
    for (const NazioneIso& n : nazioni)
        cNaz[n.alpha2] = n.cNaz;

    std::size_t illeggibili = 0;
    std::vector<LuogoGeo> luoghi = LeggiFileLuoghiGeo(fonti.cities.string(), &illeggibili);
    std::vector<Comune> comuni;
    if (!fonti.comuni.empty()) {
        comuni = LeggiFileComuni(fonti.comuni);
        ApplicaComuni(luoghi, comuni);
        r.comuni = comuni.size();
    }
    std::vector<NomeCatastale> catastali;
    std::vector<ProvinciaItaliana> province;
    LeggiCatastali(fonti, catastali, province);
    const std::vector<std::string> nomi = NomiLuoghi(luoghi);
    const std::map<std::string, std::int32_t> codici = CodiciZone(luoghi);
    const std::vector<StoriaZona> storie = StorieDelleZone(fonti, codici);

    std::filesystem::path lavoro = destinazione;
    lavoro += ".nuovo";
    std::filesystem::remove(lavoro);
    if (!destinazione.parent_path().empty())
        std::filesystem::create_directories(destinazione.parent_path());
    {
        Database db;
        db.Crea(lavoro);
        CreaSchemaLuoghi(db);
        CreaTabellaNomiAlternativi(db);
        CreaTabelleIndiceNomi(db);
        db.IniziaTransazione();
        ScriviNazioni(db, nazioni);
        for (const StoriaZona& s : storie) {
            ScriviStoria(db, s);
            r.righeFusi += s.fusi.size();
            r.righeEstive += s.estive.size();
        }
        r.scartati = ScriviLuoghi(db, luoghi, nomi, codici, cNaz, &r.nomiAlternativi) + illeggibili;
        const RiepilogoIndice indice =
            ScriviIndiceNomi(db, luoghi, nomi, cNaz, comuni, catastali, province);
        r.chiavi = indice.chiavi;
        r.nomiPrecedenti = indice.precedenti;
        r.precedentiSenzaLuogo = indice.precedentiSenzaLuogo;
        r.province = indice.province;
        db.ConfermaTransazione();
        db.Chiudi();
    }
    std::filesystem::rename(lavoro, destinazione);
    r.nazioni = nazioni.size();
    r.luoghi = luoghi.size() + illeggibili - r.scartati;
    r.zone = codici.size();
    return r;
}

} // namespace vesmo
