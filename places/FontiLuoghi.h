// The raw data behind the places tables: GeoNames' places of 500 people and above (the file
// cities500.txt, tab-separated), the Italian comuni with their ISTAT codes and province letters,
// the ISO 3166-1 nation names of Debian's iso-codes, and the place names as the tables hold them.
#pragma once

#include <cstdint>
#include <filesystem>
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
    std::string tipo;        // GeoNames feature code: "PPL", "PPLA3" (seat of a comune)...
    std::string paese;       // ISO 3166-1 alpha-2
    std::string admin1, admin2;
    std::string admin3; // for Italy the comune's ISTAT code
    std::int64_t popolazione = 0;
    std::string zona;  // IANA zone
    std::string sigla; // an Italian place: the letters of its comune's province
    bool sede = false; // an Italian place that is its comune's seat (and bears its name)
    // Other names of the place in Latin script, each once (case and accents ignored), none
    // equal to `nome`; short codes in capitals (airports) are left out.
    std::vector<std::string> alternativi;
};

// Reads the places of a GeoNames dump (one a line, 19 fields). Lines with fewer fields or
// without a zone are skipped and counted in `scartate` when given.
std::vector<LuogoGeo> LeggiLuoghiGeo(std::istream& in, std::size_t* scartate = nullptr);
std::vector<LuogoGeo> LeggiFileLuoghiGeo(const std::string& percorso,
                                         std::size_t* scartate = nullptr);

// An Italian comune: its official name, ISTAT code and province letters.
struct Comune {
    std::string nome;           // "Roma", "Castelnuovo Don Bosco"
    std::string codice;         // "058091"
    std::string sigla;          // "RM"
    std::string catastale = {}; // the cadastral code, "H501"; "" when the source has none
};

// Reads the comuni of a JSON text: every object with the string fields "nome", "codice" and
// "sigla" (one comune's file, or an array of them).
std::vector<Comune> LeggiComuni(std::string_view json);
// A folder of such files (every *.json in it, in name order), or one file.
std::vector<Comune> LeggiFileComuni(const std::filesystem::path& percorso);

// Gives Italian places their comune: each place whose admin3 is a comune's code takes the
// comune's province letters; the comune's seat takes its Italian name, and keeps its GeoNames
// name among its alternate names ("Rome" becomes "Roma"). The seat is the place of that code
// that already bears the comune's name; else one that GeoNames marks as the seat of a division
// (PPLC, PPLA, PPLA2, PPLA3); then the one with the most people, then the lowest GeoNames number.
void ApplicaComuni(std::vector<LuogoGeo>& luoghi, const std::vector<Comune>& comuni);

// One name of the registry of Italian comuni since 1861 with its cadastral code (which a
// former comune shares with the comune that holds its territory today, when there is one) and
// the province letters of its time: the list of the npm package codice-fiscale-js
// (src/lista-comuni.js), one entry a line: ['A089', 'AG', 'GIRGENTI', 0].
struct NomeCatastale {
    std::string catastale; // "A089"
    std::string sigla;     // "AG"
    std::string nome;      // "GIRGENTI", in capitals as the registry writes it
    bool attivo = false;   // a comune of today
};
std::vector<NomeCatastale> LeggiNomiCatastali(std::string_view testo);
std::vector<NomeCatastale> LeggiFileNomiCatastali(const std::filesystem::path& percorso);

// The Italian provinces by letters and name, from the same package (src/lista-province.js,
// one a line: AQ: "L'Aquila",).
struct ProvinciaItaliana {
    std::string sigla, nome;
};
std::vector<ProvinciaItaliana> LeggiProvince(std::string_view testo);

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
// told apart by their region ("Castelnuovo (TN)", the province letters for Italy and Spain, the
// state for the United States, else GeoNames' region code); where that is not enough, by the
// latitude ("... (TX) 30N12"), then the longitude, then the GeoNames number.
std::vector<std::string> NomiLuoghi(const std::vector<LuogoGeo>& luoghi);

// The ISO 3166-1 code of Italy, whose places may be named without their province letters.
inline constexpr std::int32_t CNazItalia = 380;

} // namespace vesmo
