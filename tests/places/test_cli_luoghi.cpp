// The places database built from a sample of GeoNames, and vesmo-cli luogo and cerca on it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "cli/Comandi.h"
#include "places/CostruzioneLuoghi.h"
#include "tests/places/AiutoCli.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

FontiCostruzione Fonti() {
    FontiCostruzione f;
    f.cities = std::string(VESMO_DATI_TEST) + "/places/cities-campione.txt";
    f.nazioni = "/usr/share/iso-codes/json/iso_3166-1.json";
    return f;
}

std::string Contenuto(const std::filesystem::path& p) {
    std::ifstream f(p, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
}

class CliLuoghi : public ::testing::Test {
protected:
    test::CartellaLuoghi cartella;
    std::filesystem::path db = cartella / "Vesmodat.Mdb";
    RiepilogoCostruzione riepilogo;
    void SetUp() override { riepilogo = CostruisciDatabaseLuoghi(Fonti(), db); }

    int Esegui(std::vector<std::string> parole, std::string& out, std::string& err) {
        return test::EseguiSuDatabase(std::move(parole), db, out, err);
    }
};

TEST_F(CliLuoghi, TheBuildCountsAndRepeatsItself) {
    // The two bad lines are left out.
    EXPECT_EQ(std::tuple(riepilogo.luoghi, riepilogo.scartati, riepilogo.nazioni, riepilogo.zone),
              std::tuple(17u, 2u, 250u, 10u));
    EXPECT_FALSE(std::filesystem::exists(cartella / "Vesmodat.Mdb.nuovo"));
    const auto seconda = cartella / "Seconda.Mdb";
    CostruisciDatabaseLuoghi(Fonti(), seconda);
    EXPECT_EQ(Contenuto(db), Contenuto(seconda));
}

TEST_F(CliLuoghi, LuogoAsJson) {
    std::string out, err;
    ASSERT_EQ(Esegui({"luogo", "--city", "Vigonovo (VE)", "--data", "15/07/1980", "--ora", "12:00",
                      "--json"},
                     out, err),
              0)
        << err;
    EXPECT_EQ(out, "{\"City\": \"Vigonovo (VE)\", \"Stato\": \"Italy\", \"cNaz\": 380, \"Lon\": "
                   "-0.8005739999999999, \"Lat\": 45.38694, \"cFusi\": 10, \"cEst\": 10, "
                   "\"Fuso\": -1, \"Estiva\": 1, \"LMT\": false, \"Messaggio\": \"\"}\n");
}

TEST_F(CliLuoghi, LuogoFindsThePlaceByItsWholeNameWithinTheNation) {
    std::string out, err;
    ASSERT_EQ(Esegui({"luogo", "--city", "vigonovo (pn) ", "--nazione", "italy", "--data",
                      "15/01/1980", "--ora", "12:00"},
                     out, err),
              0)
        << err;
    EXPECT_NE(out.find("City       Vigonovo (PN)\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Estiva     0\n"), std::string::npos) << out;
    // Canada: the province mark, part of the name, explained.
    ASSERT_EQ(Esegui({"luogo", "--city", "Toronto (ON)", "--data", "01/07/2000", "--ora", "12:00"},
                     out, err),
              0);
    EXPECT_NE(out.find("City       Toronto (ON)\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Fuso       5\nEstiva     1\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Provincia  (ON) = Ontario \n"), std::string::npos) << out;
}

TEST_F(CliLuoghi, MessagesOfTheResolution) {
    std::string out, err;
    // Before Rome's first zone row (Rome's mean time from 12 December 1866): local mean time
    // and the question of the form.
    ASSERT_EQ(
        Esegui({"luogo", "--city", "Rome", "--data", "01/01/1860", "--ora", "12:00", "--json"}, out,
               err),
        0);
    EXPECT_NE(out.find("\"LMT\": true"), std::string::npos) << out;
    EXPECT_NE(out.find("\"Fuso\": -0.83226"), std::string::npos) << out;
    // Belgrade's zone had no summer time in 1950: the status text says so.
    ASSERT_EQ(
        Esegui({"luogo", "--city", "Pristina", "--data", "01/06/1950", "--ora", "12:00", "--json"},
               out, err),
        0);
    EXPECT_NE(out.find("\"Messaggio\": \" Anno 1950 Estive Vuoto \""), std::string::npos) << out;
}

TEST_F(CliLuoghi, UnknownPlacesAndBadArguments) {
    std::string out, err;
    EXPECT_EQ(Esegui({"luogo", "--city", "Zzz"}, out, err), 1);
    EXPECT_EQ(err, "vesmo-cli luogo: luogo sconosciuto: Zzz; forse: Zongzhai (06), Zongzhai (15) "
                   "34N33, Zongzhai (15) 39N37\n");
    // A beginning is not a name.
    EXPECT_EQ(Esegui({"luogo", "--city", "vigo", "--nazione", "italy"}, out, err), 1);
    EXPECT_EQ(err, "vesmo-cli luogo: luogo sconosciuto: vigo (italy); forse: Vigonovo (PN), "
                   "Vigonovo (VE)\n");
    EXPECT_EQ(Esegui({"luogo", "--city", "Rome", "--nazione", "Narnia"}, out, err), 1);
    EXPECT_EQ(err, "vesmo-cli luogo: nazione sconosciuta: Narnia\n");
    EXPECT_EQ(Esegui({"luogo", "--city", "Zz", "--nazione", "Canada"}, out, err), 1);
    EXPECT_EQ(Esegui({"luogo"}, out, err), 2);
    EXPECT_EQ(Esegui({"luogo", "--city", "Rome", "--data", "31/02/2000"}, out, err), 2);
}

TEST_F(CliLuoghi, CercaListsPlacesInIndexOrder) {
    std::string out, err;
    ASSERT_EQ(Esegui({"cerca", "V"}, out, err), 0);
    EXPECT_EQ(out.substr(0, 32), "Vancouver (BC)                  ");
    EXPECT_NE(out.find("Vigonovo (PN)"), std::string::npos);
    EXPECT_LT(out.find("Vigonovo (PN)"), out.find("Vigonovo (VE)"));
    ASSERT_EQ(Esegui({"cerca", "Z", "--nazione", "China", "--json"}, out, err), 0);
    EXPECT_EQ(std::count(out.begin(), out.end(), '{'), 3);
    EXPECT_EQ(out.find("[{\"City\": \"Zongzhai (06)\""), 0u);
}

} // namespace
} // namespace vesmo
