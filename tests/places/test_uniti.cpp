// The combined lists (FusiEstiveUniti with ZoneOrarie): before, inside, after, chained.
#include <gtest/gtest.h>

#include "places/ModelloLuoghi.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

constexpr double Ora = 1.0 / 24;

// Date serial of a day at an hour: days from 30 December 1899.
double Seriale(int a, int m, int g, double ore = 0) {
    return static_cast<double>(GiorniDaCivile(a, m, g) - GiorniDaCivile(1899, 12, 30)) + ore / 24;
}

class Uniti : public ::testing::Test {
protected:
    test::CartellaLuoghi cartella;
    Database db = test::DatabaseLuoghi(cartella / "Vesmodat.Mdb");
    MessaggiRegistrati msg;

    void Zona(int n, const char* codice, const char* testo, double diff, const char* plusmin) {
        Cursore z(db, "ZoneOrarie");
        z.AddNew();
        z.Imposta("ZZonenNummer", n);
        z.Imposta("ZZonenCode", codice);
        z.Imposta("ZZonenText", testo);
        z.Imposta("ZUnterschied", diff);
        z.Imposta("plusmin", plusmin);
        z.Update();
    }
    void Riga(int ttn, int ttv, double wdata, int zzo) {
        Cursore u(db, "FusiEstiveUniti");
        u.AddNew();
        u.Imposta("TTN", ttn);
        u.Imposta("TTV", ttv);
        u.Imposta("wdata", wdata);
        u.Imposta("ZZo", zzo);
        u.Update();
    }

    void SetUp() override {
        db.IniziaTransazione();
        Zona(1, "CET", "Central European Standard Time", Ora, "+");
        Zona(2, "CEST", "Central European Daylight Time", 2 * Ora, "+");
        Zona(3, "EST", "Eastern Standard Time", 5 * Ora, "");
        Zona(138, "-1", "Minus one hour", 0, "+");
        Zona(139, "+1", "Plus one hour", 0, "+");
        // List 10001: standard, daylight, 139 after daylight, standard, 139 after standard.
        Riga(10001, 0, Seriale(1950, 1, 1), 1);
        Riga(10001, 0, Seriale(1950, 6, 1, 2), 2);
        Riga(10001, 0, Seriale(1950, 7, 1), 139);
        Riga(10001, 0, Seriale(1950, 8, 1), 1);
        Riga(10001, 0, Seriale(1950, 9, 1), 139);
        Riga(10001, 0, Seriale(1950, 10, 1), 1);
        // List 10002 goes on, from 1960, in list 10003 (whose rows before 1960 don't count).
        Riga(10002, 0, Seriale(1950, 1, 1), 1);
        Riga(10002, 10003, Seriale(1960, 1, 1), 1);
        Riga(10003, 0, Seriale(1955, 1, 1), 2);
        Riga(10003, 0, Seriale(1965, 1, 1), 2);
        Riga(10003, 0, Seriale(1975, 1, 1), 1);
        test::AggiungiCity(db, 380, "Unita", -0.8, 45.0, 10001, 10001);
        test::AggiungiCity(db, 380, "Catena", -0.8, 45.0, 10002, 10002);
        db.ConfermaTransazione();
    }

    Tema Importa(ModelloLuoghi& m, const std::string& city, const std::string& g,
                 const std::string& mese, const std::string& a, const std::string& h = "12",
                 const std::string& min = "00") {
        test::SuLuogo(m, city);
        return test::Importa(m, g, mese, a, h, min);
    }
    double Fuso(const std::string& city, const std::string& g, const std::string& mese,
                const std::string& a, const std::string& h = "12") {
        ModelloLuoghi m(db, msg, 'C');
        return Importa(m, city, g, mese, a, h).Fuso;
    }
};

TEST_F(Uniti, TheRowInForceGivesTheZoneAndSummerTimeIsInsideIt) {
    ModelloLuoghi m(db, msg, 'C');
    m.campi.Pannello2 = "testo di prima";
    const Tema t = Importa(m, "Unita", "15", "3", "1950");
    EXPECT_DOUBLE_EQ(t.Fuso, -1);
    EXPECT_DOUBLE_EQ(t.Estiva, 0);
    EXPECT_EQ(std::tuple(t.City.Valore(), t.Stato.Valore()), std::tuple("Unita", "Italy"));
    EXPECT_EQ(std::tuple(m.campi.Label1Visibile, m.campi.Text22Visibile, m.campi.Text23Visibile,
                         m.campi.Pannello2, m.campi.TagChkSolare, msg.occupato),
              std::tuple(true, false, false, "testo di prima", "", false));
}

TEST_F(Uniti, RowsInForceAndPlusOneHourFromThePreviousZone) {
    // The change at 02:00 of 1 June; 139 adds an hour to the zone before it.
    const std::tuple<const char*, const char*, const char*, double> casi[] = {
        {"15", "6", "12", -2}, {"1", "6", "1", -1},   {"1", "6", "2", -2},
        {"15", "7", "12", -3}, {"15", "9", "12", -1}, {"15", "8", "12", -1}};
    for (const auto& [g, mese, h, fuso] : casi)
        EXPECT_DOUBLE_EQ(Fuso("Unita", g, mese, "1950", h), fuso) << g << "/" << mese << " " << h;
}

TEST_F(Uniti, ADateBeforeTheListIsLocalMeanTime) {
    ModelloLuoghi m(db, msg, 'C');
    const Tema t = Importa(m, "Unita", "1", "1", "1940", "10", "30");
    EXPECT_EQ(m.campi.Pannello2,
              "Fusi/Estive di  Unita   Posteriori al 01/01/1940 10:30:00     LMT Impostata");
    EXPECT_EQ(m.campi.TagChkSolare, "Ok");
    EXPECT_DOUBLE_EQ(t.Fuso, 0); // the form shows 99, which reads back as the longitude
}

TEST_F(Uniti, AListGoesOnInAnotherAndTheLastZoneHoldsAfterIt) {
    // 10003's row of 1955 doesn't count in 1957.
    for (auto [anno, fuso] : {std::pair{"1957", -1.0}, {"1962", -1.0}, {"1970", -2.0}})
        EXPECT_DOUBLE_EQ(Fuso("Catena", "1", "6", anno), fuso) << anno;
    for (auto [city, testo] :
         {std::pair{"Unita", "Unita  -  Italy.  Ultimo dato in DB: 01/10/1950. [ Zona Oraria  - "
                             "01:00:00]  "},
          {"Catena", "Catena  -  Italy.  Ultimo dato in DB: 01/01/1975. [ Zona Oraria  - "
                     "01:00:00]  "}}) {
        ModelloLuoghi m(db, msg, 'C');
        const Tema t = Importa(m, city, "1", "1", "1980");
        EXPECT_EQ(std::tuple(t.Fuso, m.campi.Pannello2, m.campi.TagChkSolare),
                  std::tuple(-1.0, testo, ""));
    }
}

} // namespace
} // namespace vesmo
