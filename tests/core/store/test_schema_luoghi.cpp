// The place tables as created, and the index iLonLat made on demand.
#include "core/store/Cursore.h"
#include "core/store/TabelleLuoghi.h"
#include "places/RicercaLuoghi.h"
#include "places/Schema.h"
#include "tests/core/store/Cartella.h"

#include <gtest/gtest.h>

namespace vesmo {
namespace {

using test::NumeroErrore;

std::vector<std::string> Nomi(const std::vector<DefCampo>& campi) {
    std::vector<std::string> r;
    for (const auto& c : campi)
        r.push_back(c.nome);
    return r;
}

class SchemaLuoghi : public ::testing::Test {
protected:
    void SetUp() override {
        db.Crea(dir / "Vesmodat.Mdb");
        CreaSchemaLuoghi(db);
    }
    test::Cartella dir;
    Database db;
};

TEST_F(SchemaLuoghi, TablesFieldsAndIndexes) {
    using V = std::vector<std::string>;
    EXPECT_EQ(db.Tabelle(),
              (V{"AllCity", "Estive", "Fusi", "FusiEstiveUniti", "Nazioni", "ZoneOrarie"}));
    EXPECT_EQ(Nomi(db.Campi("Nazioni")), (V{"cNaz", "Nazione", "Spec"}));
    EXPECT_EQ(Nomi(db.Campi("AllCity")), (V{"cCity", "City", "Lon", "Lat", "cFusi", "cEst"}));
    EXPECT_EQ(Nomi(db.Campi("Fusi")), (V{"cFusi", "Day", "Mese", "Anno", "fH_h", "fH_m"}));
    EXPECT_EQ(Nomi(db.Campi("Estive")),
              (V{"cEst", "Day", "Mese", "Anno", "h", "min", "HE_h", "HE_m"}));
    EXPECT_EQ(Nomi(db.Campi("FusiEstiveUniti")), (V{"TTN", "TTV", "wdata", "ZZo"}));
    EXPECT_EQ(Nomi(db.Campi("ZoneOrarie")),
              (V{"ZZonenNummer", "ZZonenCode", "ZZonenText", "ZUnterschied", "plusmin"}));
    EXPECT_EQ(db.Campi("AllCity")[2].tipo, TipoCampo::Doppio);
    EXPECT_EQ(db.Campi("FusiEstiveUniti")[0].tipo, TipoCampo::Intero16);
    EXPECT_EQ(db.Campi("FusiEstiveUniti")[2].tipo, TipoCampo::DataOra);
    EXPECT_EQ(db.Campi("Fusi")[4].dimensione, LarghezzaFH_h);

    EXPECT_EQ(db.Indici("Nazioni"),
              (std::vector<DefIndice>{{"IndCoNazi", {"cNaz"}, true}, {"IndNazioni", {"Nazione"}}}));
    EXPECT_EQ(db.Indici("AllCity"),
              (std::vector<DefIndice>{{"IcCityCity", {"cCity", "City"}}, {"indCity", {"City"}}}));
    EXPECT_EQ(db.Indici("Fusi"),
              (std::vector<DefIndice>{{"iFusi", {"cFusi", "Anno", "Mese", "Day"}}}));
    EXPECT_EQ(db.Indici("Estive"),
              (std::vector<DefIndice>{{"IndEstiTbEstive", {"cEst", "Anno", "Mese", "Day"}}}));
    EXPECT_EQ(db.Indici("FusiEstiveUniti"),
              (std::vector<DefIndice>{{"indFusiEstUniti", {"TTN", "wdata"}}}));
    EXPECT_EQ(db.Indici("ZoneOrarie"),
              (std::vector<DefIndice>{{"PrimaryKey", {"ZZonenNummer"}, true, true}}));

    // A second run changes nothing.
    EXPECT_EQ(NumeroErrore([&] { CreaSchemaLuoghi(db); }), ErroreDB::TabellaEsistente);
    EXPECT_EQ(db.Tabelle().size(), 6u);
}

TEST_F(SchemaLuoghi, SummerTimeRowsOfAYearFoundFromJanuary) {
    // A list with the rows of 1992 and the two changes of 1993; a date in January 1993 seeks
    // "<=" (code, 1993, 1) and lands on the last row of 1992, whose next row is 1993's spring.
    Cursore e(db, "Estive");
    for (auto [anno, mese, giorno, ore] : std::vector<std::array<int, 4>>{
             {1992, 3, 29, 1}, {1992, 9, 27, 0}, {1993, 3, 28, 1}, {1993, 9, 26, 0}}) {
        e.AddNew();
        e.Imposta("cEst", 7);
        e.Imposta("Anno", anno);
        e.Imposta("Mese", mese);
        e.Imposta("Day", giorno);
        e.Imposta("HE_h", ore);
        e.Update();
    }
    e.Index("IndEstiTbEstive");
    e.Seek("=", 7, 1993, 1);
    EXPECT_TRUE(e.NoMatch());
    e.Seek("<=", 7, 1993, 1);
    auto annoMese = [&] { return e.Campo("Anno").Intero() * 100 + e.Campo("Mese").Intero(); };
    EXPECT_EQ(annoMese(), 199209);
    e.MoveNext();
    EXPECT_EQ(annoMese(), 199303);
    e.Seek("=", 7, 1993, 9);
    EXPECT_EQ(e.Campo("Day").Intero(), 26);
}

TEST_F(SchemaLuoghi, NullNationNameReadsEmpty) {
    Cursore n(db, "Nazioni");
    n.AddNew();
    n.Imposta("cNaz", 5);
    n.Imposta("Spec", " ");
    n.Update();
    n.Index("IndCoNazi");
    n.Seek("=", 5);
    EXPECT_TRUE(n.Campo("Nazione").Nullo());
    EXPECT_EQ(n.Campo("Nazione").Testo(), "");
    n.AddNew();
    n.Imposta("cNaz", 5);
    EXPECT_EQ(NumeroErrore([&] { n.Update(); }), ErroreDB::ChiaveDuplicata);
}

TEST_F(SchemaLuoghi, LonLatIndexMadeWhenMissing) {
    Cursore c(db, "AllCity");
    for (auto [lon, lat] : std::vector<std::pair<double, double>>{
             {-0.8, 45.4}, {-0.8, 41.9}, {5.0, 40.7}, {-1.2, 52.5}}) {
        c.AddNew();
        c.Imposta("Lon", lon);
        c.Imposta("Lat", lat);
        c.Update();
    }
    EXPECT_EQ(NumeroErrore([&] { c.Index("iLonLat"); }), ErroreDB::IndiceNonValido);
    c.Chiudi();
    db.Chiudi();
    CreaIndiceLonLat(dir / "Vesmodat.Mdb");
    db.Apri(dir / "Vesmodat.Mdb");
    Cursore d(db, "AllCity");
    d.Index("iLonLat");
    d.Seek(">=", -0.8, 42.0);
    EXPECT_EQ(d.Campo("Lat").Numero(), 45.4);
    d.Seek("<=", -0.8);
    EXPECT_EQ(d.Campo("Lat").Numero(), 45.4);
    d.MovePrevious();
    EXPECT_EQ(d.Campo("Lat").Numero(), 41.9);
}

// Every table the places database holds is reserved from the archives: the tables of the schema,
// the alternate names, and whatever the built database holds besides (a places table added
// later must be named in TabelleDeiLuoghi, or this fails on the built database).
TEST_F(SchemaLuoghi, OgniTabellaDeiLuoghiERiservata) {
    CreaTabellaNomiAlternativi(db);
    auto riservata = [](const std::string& t) {
        for (std::string_view r : TabelleDeiLuoghi)
            if (r == t) return true;
        return false;
    };
    for (const std::string& t : db.Tabelle())
        EXPECT_TRUE(riservata(t)) << t;
    const std::filesystem::path costruito = VESMO_DB_LUOGHI;
    if (!std::filesystem::exists(costruito))
        GTEST_SKIP() << "manca " << costruito << ": scripts/prepara-dati lo prepara";
    for (const std::string& t : Database(costruito).Tabelle())
        EXPECT_TRUE(riservata(t)) << t << " in " << costruito;
}

} // namespace
} // namespace vesmo
