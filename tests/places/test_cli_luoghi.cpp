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

TEST_F(CliLuoghi, TheBuildRepeatsItself) {
    EXPECT_EQ(std::tuple(riepilogo.nazioni, riepilogo.zone), std::tuple(250u, 10u));
    EXPECT_FALSE(std::filesystem::exists(cartella / "Vesmodat.Mdb.nuovo"));
    const auto seconda = cartella / "Seconda.Mdb";
    CostruisciDatabaseLuoghi(Fonti(), seconda);
    EXPECT_EQ(Contenuto(db), Contenuto(seconda));
}

TEST_F(CliLuoghi, LuogoAsTableAndAsJson) {
    std::string out, err;
    ASSERT_EQ(Esegui({"luogo", "--city", "Vigonovo (VE)", "--data", "15/07/1980", "--ora", "12:00",
                      "--json"},
                     out, err),
              0)
        << err;
    EXPECT_EQ(out, "{\"City\": \"Vigonovo (VE)\", \"Stato\": \"Italy\", \"cNaz\": 380, \"Lon\": "
                   "-0.8005739999999999, \"Lat\": 45.38694, \"cFusi\": 10, \"cEst\": 10, "
                   "\"Fuso\": -1, \"Estiva\": 1, \"LMT\": false, \"Messaggio\": \"\"}\n");
    // Canada: the province mark, part of the name, explained.
    ASSERT_EQ(Esegui({"luogo", "--city", "Toronto (ON)", "--nazione", "canada", "--data",
                      "01/07/2000", "--ora", "12:00"},
                     out, err),
              0);
    EXPECT_NE(out.find("City       Toronto (ON)\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Provincia  (ON) = Ontario \n"), std::string::npos) << out;
}

TEST_F(CliLuoghi, MessagesOfTheResolution) {
    std::string out, err;
    // Before Rome's first zone row (Rome's mean time from 12 December 1866): local mean time.
    ASSERT_EQ(
        Esegui({"luogo", "--city", "Rome", "--data", "01/01/1860", "--ora", "12:00", "--json"}, out,
               err),
        0);
    EXPECT_NE(out.find("\"LMT\": true"), std::string::npos) << out;
    // Belgrade's zone had no summer time in 1950: the status text says so.
    ASSERT_EQ(
        Esegui({"luogo", "--city", "Pristina", "--data", "01/06/1950", "--ora", "12:00", "--json"},
               out, err),
        0);
    EXPECT_NE(out.find("\"Messaggio\": \" Anno 1950 Estive Vuoto \""), std::string::npos) << out;
}

TEST_F(CliLuoghi, UnknownNationAndBadArguments) {
    std::string out, err;
    EXPECT_EQ(Esegui({"luogo", "--city", "Rome", "--nazione", "Narnia"}, out, err), 1);
    EXPECT_EQ(err, "vesmo-cli luogo: nazione sconosciuta: Narnia\n");
    for (const std::vector<std::string>& parole :
         {std::vector<std::string>{"luogo"}, {"luogo", "--city", "Rome", "--data", "31/02/2000"}})
        EXPECT_EQ(Esegui(parole, out, err), 2) << parole.back();
}

} // namespace
} // namespace vesmo
