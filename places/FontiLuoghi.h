// The raw data behind the places tables: GeoNames' places of 1000 people and above (the file
// cities1000.txt, tab-separated), the ISO 3166-1 nation names of Debian's iso-codes, and the
// place names as the tables hold them.
#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vesmo {

class ErroreFonte : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One GeoNames place: the fields we use of its 19.
struct LuogoGeo {
    std::int64_t id = 0;
    std::string nome;        // UTF-8
    double lat = 0, lon = 0; // degrees, north and east positive
    std::string paese;       // ISO 3166-1 alpha-2
    std::string admin1, admin2;
    std::string zona; // IANA zone
};

// Reads the places of a GeoNames dump (one a line, 19 fields). Lines with fewer fields or
// without a zone are skipped and counted in `scartate` when given.
std::vector<LuogoGeo> LeggiLuoghiGeo(std::istream& in, std::size_t* scartate = nullptr);
std::vector<LuogoGeo> LeggiFileLuoghiGeo(const std::string& percorso,
                                         std::size_t* scartate = nullptr);

struct NazioneIso {
    std::int32_t cNaz = 0; // the ISO 3166-1 numeric code
    std::string nome;      // the English short name ("Italy", "Russian Federation")
    std::string alpha2;
};

// Reads iso_3166-1.json of iso-codes: the "name", "alpha_2" and "numeric" of each entry.
std::vector<NazioneIso> LeggiNazioniIso(std::string_view json);
std::vector<NazioneIso> LeggiFileNazioniIso(const std::string& percorso);

// Places that GeoNames files under a code outside ISO 3166-1: Kosovo (XK), coded 900, in the
// range that ISO leaves to its users.
std::vector<NazioneIso> NazioniFuoriIso();

// The province mark of a Canadian or Australian place from its GeoNames region code (admin1),
// as the entry form reads it: "ON", "BC", "PQ", "L" (Labrador) ... for Canada, "NS", "V",
// "CT" ... for Australia; "" elsewhere. Nunavut, split from the Northwest Territories in 1999,
// has "NU".
std::string MarcaProvincia(const LuogoGeo& l);

// The names of the places as the table holds them, in the order of `luoghi`: the GeoNames name,
// cut to 30 characters. Canadian and Australian places end with their province mark in
// brackets, "Toronto (ON)". Places of one nation that share a name (case and accents ignored) are
// told apart by their region ("Castello (BG)", the province for Italy and Spain, the state for the
// United States, else GeoNames' region code); where that is not enough, by the latitude ("... (TX)
// 30N12"), then the longitude, then the GeoNames number.
std::vector<std::string> NomiLuoghi(const std::vector<LuogoGeo>& luoghi);

} // namespace vesmo
