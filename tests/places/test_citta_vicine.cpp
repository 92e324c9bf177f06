// The nearest towns: the walk's branches and the index iLonLat built once when missing.
#include <gtest/gtest.h>

#include "AiutoLuoghi.h"
#include "places/CittaVicine.h"

using namespace vesmo;
using namespace vesmo::test;

namespace {

class CittaVicine : public ::testing::Test {
protected:
    void SetUp() override {
        Database db = DatabaseLuoghi(file);
        db.IniziaTransazione();
        Aggiungi(db, {{380, "Primo", 0.10, 30, 1, 1},
                      {380, "Bravia", 0.20, 46, 1, 1},
                      {380, "Cresta", 0.40, 46, 1, 1},
                      {380, "Dolo", 0.60, 55, 1, 1},
                      {380, "Elce", 1.50, 20, 1, 1},
                      {380, "Fiume", 1.55, 20.05, 1, 1}});
        // A slope of forty towns, each half a degree further south, then one far away.
        for (int k = 0; k < 40; ++k)
            AggiungiCity(db, 380, "Pendio" + std::to_string(k), 2.00 + 0.001 * k, 60 - 0.5 * k, 1,
                         1);
        AggiungiCity(db, 380, "Zeta", 3.0, 10, 1, 1);
        db.ConfermaTransazione();
    }

    CartellaLuoghi cartella;
    std::filesystem::path file = cartella / "Vesmodat.Mdb";
};

std::vector<std::string> Ripetuta(const std::string& riga, std::size_t volte) {
    return std::vector<std::string>(volte, riga);
}

} // namespace

TEST_F(CittaVicine, IlPercorsoDellaRicerca) {
    struct Caso {
        const char* perche;
        double lon, lat;
        std::vector<std::string> righe;
    };
    const std::vector<Caso> casi{
        // Fiume is within 0.1 of both coordinates of the first row found for every n.
        {"subito", 1.52, 20.02, Ripetuta("Fiume - Italy - 23W15   20N03", 11)},
        // Bravia and Cresta both 1 degree off: the fifth return gives Bravia, the first best.
        {"pari", 0.30, 45, Ripetuta("Bravia - Italy - 3W00   46N00", 11)},
        // Every seek lands on the first row of the index: the step back reaches BOF.
        {"inizio", 0.05, 80, {}},
        // Down the slope: the 32nd-step checks stop the walks; odd n reach Pendio39 on the
        // latitude.
        {"32 passi", 1.95, 40.5, Ripetuta("Pendio39 - Italy - 30W35   40N30", 5)},
    };
    for (const Caso& c : casi) {
        std::vector<std::string> righe;
        for (const CittaVicina& v : CercaCittaVicine(file, c.lon, c.lat))
            righe.push_back(v.Testo());
        EXPECT_EQ(righe, c.righe) << c.perche;
    }
}

TEST_F(CittaVicine, IndiceCostruitoUnaVolta) {
    std::vector<bool> avvisi;
    auto annota = [&](bool inizio) { avvisi.push_back(inizio); };
    EXPECT_FALSE(Database(file).EsisteIndice("AllCity", "iLonLat"));
    EXPECT_EQ(CercaCittaVicine(file, 1.52, 20.02, annota).size(), 11u);
    EXPECT_EQ(avvisi, (std::vector<bool>{true, false}));
    EXPECT_TRUE(Database(file).EsisteIndice("AllCity", "iLonLat"));
    avvisi.clear();
    EXPECT_EQ(CercaCittaVicine(file, 1.52, 20.02, annota).size(), 11u);
    EXPECT_TRUE(avvisi.empty());
}
