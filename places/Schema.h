// The place tables of Vesmodat.Mdb: nations, places, the dated zone and summer-time lists,
// the combined lists and the named zones.
//
//   Nazioni          cNaz (Intero32), Nazione (Testo), Spec (Testo: the nation's remarks,
//                    "Specifiche" on the places editor; one blank when there are none)
//                    IndCoNazi (cNaz, unique), IndNazioni (Nazione)
//   AllCity          cCity (Intero32, the nation's cNaz), City (Testo), Lon, Lat (Doppio),
//                    cFusi, cEst (Intero32)
//                    IcCityCity (cCity, City), indCity (City); iLonLat (Lon, Lat) by
//                    CreaIndiceLonLat
//   Fusi             cFusi (Intero32), Day, Mese, Anno (Intero16), fH_h, fH_m (Testo)
//                    iFusi (cFusi, Anno, Mese, Day)
//   Estive           cEst (Intero32), Day, Mese, Anno, h, min, HE_h, HE_m (Intero16)
//                    IndEstiTbEstive (cEst, Anno, Mese, Day)
//   FusiEstiveUniti  TTN, TTV (Intero16), wdata (DataOra), ZZo (Intero16)
//                    indFusiEstUniti (TTN, wdata)
//   ZoneOrarie       ZZonenNummer (Intero16), ZZonenCode, ZZonenText (Testo),
//                    ZUnterschied (DataOra, a time of day), plusmin (Testo)
//                    PrimaryKey (ZZonenNummer, primary)
//
// Text fields refuse "" (an empty name is stored as null) except plusmin, and refuse texts
// longer than the widths below: whoever fills the tables cuts names to them.
#pragma once

#include "core/store/Database.h"

#include <filesystem>

namespace vesmo {

// Widths in characters of the text fields in the file.
inline constexpr int LarghezzaNazione = 38;
inline constexpr int LarghezzaSpec = 255;
inline constexpr int LarghezzaCity = 60;
inline constexpr int LarghezzaFH_h = 4;
inline constexpr int LarghezzaFH_m = 2;
inline constexpr int LarghezzaZZonenCode = 10;
inline constexpr int LarghezzaZZonenText = 80;
inline constexpr int LarghezzaPlusmin = 1;

// Creates the six place tables with their indexes (all but iLonLat) in an open database.
// ErroreDB 3010 when one of them exists already.
void CreaSchemaLuoghi(Database& db);

// Opens the database file, creates the index iLonLat on AllCity (Lon, then Lat), and closes it.
// Run when a cursor on AllCity finds no index of that name (ErroreDB 3015).
void CreaIndiceLonLat(const std::filesystem::path& fileDB);

} // namespace vesmo
