// The towns of the places database nearest to a point, as the relocated revolution lists them:
// a walk on the index iLonLat (longitude, then latitude) from eleven starting longitudes one
// minute of arc apart, from the point eastward, each walk ending on the row of the nearest
// latitude once it has come back to that distance five times.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vesmo {

// One town found: its name, its nation's, and its place (Lon hours west positive, Lat degrees).
struct CittaVicina {
    std::string City, Nazione;
    double Lon = 0, Lat = 0;
    // The row of the list: "City - Nazione - 11E53   45N24".
    std::string Testo() const;
};

// The towns of the list, up to eleven, repeats kept. `lon` in hours west positive, `lat` in
// degrees. When AllCity has no index iLonLat it is built first;
// `costruzione` is told true before and false after, so that the window can show its label and
// the busy pointer. Errors of the database other than the missing index reach the caller.
std::vector<CittaVicina> CercaCittaVicine(const std::filesystem::path& fileDB, double lon,
                                          double lat,
                                          const std::function<void(bool)>& costruzione = {});

} // namespace vesmo
