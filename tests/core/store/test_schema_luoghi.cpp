// The place tables as created, all of them reserved from the archives.
#include "core/store/TabelleLuoghi.h"
#include "places/RicercaLuoghi.h"
#include "places/Schema.h"
#include "tests/core/store/Cartella.h"

#include <gtest/gtest.h>

namespace vesmo {
namespace {

using test::NumeroErrore;

class SchemaLuoghi : public ::testing::Test {
protected:
    void SetUp() override {
        db.Crea(dir / "Vesmodat.Mdb");
        CreaSchemaLuoghi(db);
    }
    test::Cartella dir;
    Database db;
};

TEST_F(SchemaLuoghi, SecondaCreazioneRifiutataSenzaCambiare) {
    EXPECT_EQ(NumeroErrore([&] { CreaSchemaLuoghi(db); }), ErroreDB::TabellaEsistente);
    EXPECT_EQ(db.Tabelle(), (std::vector<std::string>{"AllCity", "Estive", "Fusi",
                                                      "FusiEstiveUniti", "Nazioni", "ZoneOrarie"}));
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
