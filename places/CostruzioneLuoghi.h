// Building the place tables of Vesmodat.Mdb from the raw data: nations from ISO 3166-1,
// places from GeoNames (Italian comuni under their Italian names), the places' other names, and
// for each IANA zone that a place uses one Fusi list and one Estive
// list with the same code.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "core/store/Database.h"
#include "places/FontiLuoghi.h"
#include "places/StoriaZona.h"

namespace vesmo {

struct FontiCostruzione {
    std::filesystem::path cities;  // GeoNames cities500.txt
    std::filesystem::path nazioni; // iso-codes' iso_3166-1.json
    std::filesystem::path comuni;  // the comuni's JSON files (a folder, or one file); optional
    // The folder with lista-comuni.js and lista-province.js of codice-fiscale-js: the former
    // names of the comuni and the provinces' names; optional.
    std::filesystem::path catastali;
    std::filesystem::path zoneinfo = "/usr/share/zoneinfo";
    int annoFine = 2100; // summer-time rules are carried on to the end of this year
};

struct RiepilogoCostruzione {
    std::size_t nazioni = 0, luoghi = 0, zone = 0, righeFusi = 0, righeEstive = 0;
    std::size_t scartati = 0; // GeoNames lines unread, or of a nation without an ISO code
    std::size_t comuni = 0, nomiAlternativi = 0;
    std::size_t chiavi = 0, nomiPrecedenti = 0, precedentiSenzaLuogo = 0, province = 0;
};

// The code of each zone: the zones in name order, numbered from 1.
std::map<std::string, std::int32_t> CodiciZone(const std::vector<LuogoGeo>& luoghi);

// Writes rows into the tables of an open database (the schema must exist).
void ScriviNazioni(Database& db, const std::vector<NazioneIso>& nazioni);
void ScriviStoria(Database& db, const StoriaZona& storia);
// Places with their table names, and their other names in NomiAlternativi when that table
// exists (a name cut to the field's width is another name of its place); `codici` gives each
// zone's code, `cNaz` each nation's code by its alpha-2 letters. Returns the places left out for
// want of a nation; `alternativi`, when given, counts the other names written.
std::size_t ScriviLuoghi(Database& db, const std::vector<LuogoGeo>& luoghi,
                         const std::vector<std::string>& nomi,
                         const std::map<std::string, std::int32_t>& codici,
                         const std::map<std::string, std::int32_t>& cNaz,
                         std::size_t* alternativi = nullptr);

// Builds the whole file `destinazione` (replaced if it exists): the work is done in a file
// beside it, which takes its place only when complete. The same sources give the same file.
RiepilogoCostruzione CostruisciDatabaseLuoghi(const FontiCostruzione& fonti,
                                              const std::filesystem::path& destinazione);

} // namespace vesmo
