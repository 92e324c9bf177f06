// vesmo-cli vicine, the relocated revolution, and the wheel's ascensional, solar arc and map
// options.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "cli/Comandi.h"
#include "tests/cli/Lancia.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;
using namespace vesmo::test;

namespace {

// The text after `campo` up to the next comma.
std::string CampoJson(const std::string& json, const std::string& campo) {
    auto i = json.find("\"" + campo + "\": ");
    if (i == std::string::npos) return {};
    i += campo.size() + 4;
    return json.substr(i, json.find_first_of(",}", i) - i);
}

} // namespace

TEST(CliVicine, CittaDelDatabase) {
    test::CartellaLuoghi cartella;
    const std::string file = (cartella / "Vesmodat.Mdb").string();
    {
        Database db = DatabaseLuoghi(file);
        Aggiungi(db, {{380, "Padova", -0.7925, 45.4, 1, 1}, {380, "Trento", -0.7475, 46.07, 1, 1}});
    }
    // 11E53 is a little west of Padova: the first seek stands on Trento, last in the index, and
    // its walk ends; the next ones, a minute east each, stand on Padova: ten rows.
    Esito e = Lancia({"vicine", "--lon", "11E53", "--lat", "45N24", "--db", file});
    EXPECT_EQ(e.stato, 0) << e.err;
    std::string righe;
    for (int n = 1; n <= 10; ++n)
        righe += "Padova - Italy - 11E53   45N24\n";
    EXPECT_EQ(e.out, righe);
    e = Lancia({"vicine", "--lon", "11E53", "--lat", "45N24", "--db", file, "--json"});
    EXPECT_EQ(e.out.substr(0, 70),
              R"([{"City": "Padova", "Nazione": "Italy", "Lon": -0.7925, "Lat": 45.4}, )");

    const std::pair<std::vector<std::string>, int> casi[] = {
        {{"--lon", "11E53", "--db", file}, 2},
        {{"--lon", "11E53", "--lat", "45N24", "--db", file + ".no"}, 1},
        // West of every town of the table the walk ends at its first row.
        {{"--lon", "9E00", "--lat", "80N00", "--db", file}, 1},
    };
    for (const auto& [opzioni, stato] : casi) {
        Esito r = Lancia(Con({"vicine"}, opzioni));
        EXPECT_EQ(std::tuple(r.stato, Righe(r.err)), std::tuple(stato, 1)) << opzioni[1] << r.err;
    }
}

TEST(CliRivoluzione, RilocataSulTempoMedioLocale) {
    const auto base = Con({"rivoluzione", "--tipo", "solare", "--anno", "2026", "--json"}, Natale);
    Esito qui = Lancia(base);
    ASSERT_EQ(qui.stato, 0) << qui.err;
    Esito la =
        Lancia(Con(base, {"--rilocata", "--lon-rilocata", "74W00", "--lat-rilocata", "40N43"}));
    ASSERT_EQ(la.stato, 0) << la.err;
    // The same instant, at the place of the relocation on its local mean time.
    for (const auto& [campo, atteso] : {std::pair{"JDRisultato", CampoJson(qui.out, "JDRisultato")},
                                        {"City", "\"Jolly\""},
                                        {"Fuso", CampoJson(la.out, "Lon")}})
        EXPECT_EQ(CampoJson(la.out, campo), atteso) << campo;
    constexpr double TolleranzaOre = 1e-12; // hours
    EXPECT_NEAR(std::stod(CampoJson(la.out, "Lon")), 74.0 / 15, TolleranzaOre);

    for (const auto& parole :
         {Con(base, {"--lon-rilocata", "74W00", "--lat-rilocata", "40N43"}),
          Con(base, {"--rilocata", "--lat-rilocata", "40N43"}),
          Con(base, {"--rilocata", "--lon-rilocata", "74W00", "--lat-rilocata", "91N00"})}) {
        EXPECT_EQ(Lancia(parole).stato, 2);
    }
}

// The wheels as images need Qt, which the sanitizer build leaves out.
#ifdef VESMO_CON_QT
TEST(CliRuota, AscensionaleArcoERilocata) {
    // The images are drawn without a display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    test::CartellaLuoghi cartella;
    struct Caso {
        const char* perche;
        std::vector<std::string> opzioni;
        int stato;
    };
    const std::vector<Caso> casi{
        {"rette", {"--ascensionale", "ar"}, 0},
        {"oblique doppia con arco",
         {"--ascensionale", "ao", "--transito", "10/04/2026 12:00", "--arco", "30"},
         0},
        {"arco con la virgola", {"--transito", "10/04/2026 12:00", "--arco", "2,5"}, 2},
        {"arco senza esterno", {"--arco", "30"}, 2},
        {"modo sconosciuto", {"--ascensionale", "rette"}, 2},
        {"rilocata",
         {"--rilocata", "--tipo", "solare", "--anno", "2026", "--lon-rilocata", "74W00",
          "--lat-rilocata", "40N43", "--db", (cartella / "nessuno.Mdb").string()},
         0},
        {"rilocata e transito",
         {"--rilocata", "--transito", "10/04/2026 12:00", "--tipo", "solare", "--anno", "2026"},
         2},
    };
    int n = 0;
    for (const Caso& c : casi) {
        const std::string file = (cartella / ("ruota" + std::to_string(n++) + ".png")).string();
        Esito r = Lancia(Con(Con({"ruota", "--out", file, "--size", "200"}, Natale), c.opzioni));
        EXPECT_EQ(r.stato, c.stato) << c.perche << ": " << r.err;
        EXPECT_EQ(std::filesystem::exists(file), c.stato == 0) << c.perche;
    }
}
#endif
