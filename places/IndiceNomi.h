// The index of place names by their folded keys (PiegaNome), and the Italian provinces by
// letters and name, built with the places database:
//
//   ChiaviLuoghi    Chiave (Testo: the folded key), Tipo (Intero32: TipoNome), cCity
//                   (Intero32, the nation's cNaz), City (Testo: the place's name in AllCity),
//                   Nome (Testo: the name as written, "Girgenti"), Sigla (Testo: the province
//                   letters of the name in its time, Italy only), Abitanti (Intero32), Lon
//                   (Doppio, hours west positive), Lat (Doppio)
//                   indChiave (Chiave, Tipo)
//   ProvinceLuoghi  Chiave (Testo: the folded letters or name), Sigla (Testo: the letters of
//                   today's provinces that hold its territory, blank-separated, "FC RN" for
//                   Forlì), Nome (Testo), LatMin, LatMax, LonMin, LonMax (Doppio: the box of the
//                   province's places, degrees, east positive)
//                   indChiaveProv (Chiave)
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "places/FontiLuoghi.h"

namespace vesmo {

inline constexpr const char* TabellaChiaviLuoghi = "ChiaviLuoghi";
inline constexpr const char* TabellaProvinceLuoghi = "ProvinceLuoghi";

// Which name of a place a key is, in the order in which a lookup prefers them.
enum class TipoNome : std::int32_t {
    Ufficiale = 0,   // the official name: an Italian comune's, or a place's own name abroad
    Precedente = 1,  // a former official name of an Italian comune (renamed, merged, suppressed)
    Frazione = 2,    // the own name of an Italian place that is not a comune's seat
    Alternativo = 3, // another name of the place (another language, a variant)
    Prefisso = 4     // (lookups only) the beginning of an official name within the province
};

// Creates the two tables with their indexes in an open database.
void CreaTabelleIndiceNomi(Database& db);

// The former provinces, whose letters or names records still carry: Forlì (FO), Pesaro (PS),
// the Sardinian provinces of 2005-2016, and the names before the reforms ("Girgenti",
// "Porto Maurizio", "Terra di Lavoro"...), each with the letters of today's provinces.
struct ProvinciaPrecedente {
    const char* chiave; // letters or name
    const char* sigle;  // today's letters, blank-separated
    const char* nome;
};
const std::vector<ProvinciaPrecedente>& ProvincePrecedenti();

struct RiepilogoIndice {
    std::size_t chiavi = 0, precedenti = 0, precedentiSenzaLuogo = 0, province = 0;
};

// Writes the keys of every place of `luoghi` written in AllCity (names `nomi`, nation codes
// `cNaz` by alpha-2 letters), the former names of the comuni from `catastali` (`comuni` gives
// today's comuni with their cadastral codes), and the provinces of `province` with the boxes
// of their places.
RiepilogoIndice ScriviIndiceNomi(Database& db, const std::vector<LuogoGeo>& luoghi,
                                 const std::vector<std::string>& nomi,
                                 const std::map<std::string, std::int32_t>& cNaz,
                                 const std::vector<Comune>& comuni,
                                 const std::vector<NomeCatastale>& catastali,
                                 const std::vector<ProvinciaItaliana>& province);

// The box of a province's places (degrees, east positive); empty until a point is added.
struct RiquadroProvincia {
    double latMin = 90, latMax = -90, lonMin = 180, lonMax = -180;
    bool Vuoto() const { return latMin > latMax; }
    void Aggiungi(double lat, double lon);
    void Aggiungi(const RiquadroProvincia& r); // an empty box adds nothing
};

// The steps of ScriviIndiceNomi, run in the order they are declared; each writes rows through
// the one key cursor and counts them in the summary. Only places whose nation is in `cNaz` are
// written; a key goes once a place, with the type of the first step that writes it.
class ScritturaIndiceNomi {
public:
    ScritturaIndiceNomi(Database& db, const std::vector<LuogoGeo>& luoghi,
                        const std::vector<std::string>& nomi,
                        const std::map<std::string, std::int32_t>& cNaz);

    // Writes nothing: today's Italian comune seats by ISTAT and by cadastral code, the Italian
    // places by folded name and province letters, the box of each province.
    void Raccogli(const std::vector<Comune>& comuni);
    // The keys of each place's own name and of its name in AllCity: hamlet for an Italian place
    // of a known comune that is not its seat, official otherwise.
    void ScriviPropri();
    // The names of `catastali` on the place that holds their territory today (LuogoOggi):
    // official when still in use, former otherwise; a former name without such a place is
    // only counted.
    void ScriviPrecedenti(const std::vector<NomeCatastale>& catastali);
    // The keys of every other name of each place, as alternative names.
    void ScriviAlternativi();
    // The provinces by letters and name, today's and former ones, each with the box of the
    // places of today's provinces it lists; one row a key, none for an empty box.
    void ScriviProvince(const std::vector<ProvinciaItaliana>& province);

    const RiepilogoIndice& Riepilogo() const { return riepilogo_; }

private:
    Database& db_;
    Cursore chiavi_;
    const std::vector<LuogoGeo>& luoghi_;
    const std::vector<std::string>& nomi_;
    const std::map<std::string, std::int32_t>& cNaz_;
    RiepilogoIndice riepilogo_;
    std::map<std::string, std::size_t> sedePerIstat_, sedePerCatastale_;
    std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> perChiaveSigla_;
    std::map<std::string, RiquadroProvincia> riquadri_;
    std::map<std::size_t, std::set<std::string>> scritte_; // keys written, by place
    std::set<std::string> chiaviProvince_;

    // One key row for place `i`.
    void Scrivi(const std::string& chiave, TipoNome tipo, std::size_t i, const std::string& nome,
                const std::string& sigla);
    // The place that holds a cadastral name's territory today: the seat of the comune of the
    // same cadastral code, else (for a name no longer in use) the seat of the comune of an
    // Italian place of that name and province; none when neither is found.
    std::optional<std::size_t> LuogoOggi(const NomeCatastale& n) const;
    // One province row into `p` unless its key is written already or its box is empty.
    void ScriviProvincia(Cursore& p, const std::string& chiave, const std::string& sigle,
                         const std::string& nome);
};

// Distance in km from a point (degrees, east positive) to a box of latitudes and longitudes,
// 0 inside it.
double DistanzaDaRiquadro(double lat, double lon, double latMin, double latMax, double lonMin,
                          double lonMax);

} // namespace vesmo
