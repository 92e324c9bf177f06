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
#include <string>
#include <vector>

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

// Distance in km from a point (degrees, east positive) to a box of latitudes and longitudes,
// 0 inside it.
double DistanzaDaRiquadro(double lat, double lon, double latMin, double latMax, double lonMin,
                          double lonMax);

} // namespace vesmo
