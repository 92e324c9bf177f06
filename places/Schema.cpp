#include "places/Schema.h"

namespace vesmo {

namespace {

DefCampo Intero32(const char* nome) {
    return {nome, TipoCampo::Intero32};
}
DefCampo Intero16(const char* nome) {
    return {nome, TipoCampo::Intero16};
}
DefCampo Doppio(const char* nome) {
    return {nome, TipoCampo::Doppio};
}
DefCampo DataOra(const char* nome) {
    return {nome, TipoCampo::DataOra};
}
DefCampo Testo(const char* nome, int larghezza, bool lunghezzaZero = false) {
    return {nome, TipoCampo::Testo, larghezza, lunghezzaZero};
}

} // namespace

void CreaSchemaLuoghi(Database& db) {
    // All six tables or none, also inside a transaction of the caller.
    db.Esegui("SAVEPOINT schema_luoghi");
    try {
        db.CreaTabella(
            "Nazioni",
            {Intero32("cNaz"), Testo("Nazione", LarghezzaNazione), Testo("Spec", LarghezzaSpec)},
            {{"IndCoNazi", {"cNaz"}, true}, {"IndNazioni", {"Nazione"}}});
        db.CreaTabella("AllCity",
                       {Intero32("cCity"), Testo("City", LarghezzaCity), Doppio("Lon"),
                        Doppio("Lat"), Intero32("cFusi"), Intero32("cEst")},
                       {{"IcCityCity", {"cCity", "City"}}, {"indCity", {"City"}}});
        db.CreaTabella("Fusi",
                       {Intero32("cFusi"), Intero16("Day"), Intero16("Mese"), Intero16("Anno"),
                        Testo("fH_h", LarghezzaFH_h), Testo("fH_m", LarghezzaFH_m)},
                       {{"iFusi", {"cFusi", "Anno", "Mese", "Day"}}});
        db.CreaTabella("Estive",
                       {Intero32("cEst"), Intero16("Day"), Intero16("Mese"), Intero16("Anno"),
                        Intero16("h"), Intero16("min"), Intero16("HE_h"), Intero16("HE_m")},
                       {{"IndEstiTbEstive", {"cEst", "Anno", "Mese", "Day"}}});
        db.CreaTabella("FusiEstiveUniti",
                       {Intero16("TTN"), Intero16("TTV"), DataOra("wdata"), Intero16("ZZo")},
                       {{"indFusiEstUniti", {"TTN", "wdata"}}});
        db.CreaTabella("ZoneOrarie",
                       {Intero16("ZZonenNummer"), Testo("ZZonenCode", LarghezzaZZonenCode),
                        Testo("ZZonenText", LarghezzaZZonenText), DataOra("ZUnterschied"),
                        Testo("plusmin", LarghezzaPlusmin, true)},
                       {{"PrimaryKey", {"ZZonenNummer"}, true, true}});
        db.Esegui("RELEASE schema_luoghi");
    } catch (...) {
        db.Esegui("ROLLBACK TO schema_luoghi");
        db.Esegui("RELEASE schema_luoghi");
        throw;
    }
}

void CreaIndiceLonLat(const std::filesystem::path& fileDB) {
    Database db(fileDB);
    db.CreaIndice("AllCity", "iLonLat", {"Lon", "Lat"});
    db.Chiudi();
}

} // namespace vesmo
