// vesmo-cli deltat, eqt, eclequ and formati: answers, JSON keys and refusals.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Comandi.h"
#include "tests/cli/Lancia.h"

using vesmo::test::Esito;
using vesmo::test::Lancia;

TEST(CliCalcolatrici, RisposteComeLeFinestre) {
    struct Caso {
        std::vector<std::string> parole;
        const char* atteso;
    };
    const Caso casi[] = {
        // 1900 between 1895 and 1903: -0.0375 minutes.
        {{"deltat", "--data", "01/06/1900"}, "DeltaT = -2,25s  = -0,0375m  = -0,0006h\n"},
        // 15 decimal degrees.
        {{"formati", "--gradi-decimali", "15", "--json"},
         "{\"Text1\": \"15\", \"Text2\": \"0\", \"Text3\": \"0,0\", \"Text4\": \"1\", \"Text5\": "
         "\"0\", \"Text6\": \"0,0\", \"Text7\": \"15\", \"Text8\": \"1,0\", \"Text9\": "
         "\"0,2618\"}\n"},
        // Half an hour typed as minutes alone.
        {{"formati", "--ore", "0 30"},
         "Gradi Sessagesimali  7° 30' 0,0\"\nOre Sessagesimali    0h 30m 0s\nGradi Decimali      "
         " 7,5\nOre Decimali         0,5\nRadianti             0,1309\n"},
    };
    for (const Caso& c : casi) {
        Esito e = Lancia(c.parole);
        EXPECT_EQ(e.stato, 0) << e.err;
        EXPECT_EQ(e.out, c.atteso) << c.parole[0];
    }
}

TEST(CliCalcolatrici, EquazioneDelTempoECoordinate) {
    // Meeus, example 28.b: 1992 October 13.0, +13m 42.7s = 0.05983 radians.
    Esito e = Lancia({"eqt", "--data", "13/10/1992", "--ora", "00:00", "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out.rfind("{\"EqT\": 0.0598", 0), 0u) << e.out;

    // Meeus, example 13.a: Pollux at lambda 113d12'56", beta 6d41' on J2000.0 is about
    // alpha 7h45m19s, delta +28d01'31" (to the minute: 28d02').
    e = Lancia({"eclequ", "--data", "01/01/2000", "--ora", "12:00", "--segno", "Cancro", "--lon",
                "23 12 56.27", "--lat", "6 41", "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out.rfind("{\"txAR_h\": 7, \"txAR_m\": 45, \"txAR_s\": 18.9", 0), 0u) << e.out;
    EXPECT_NE(e.out.find("\"txDec_Gradi\": 28, \"txDec_Primi\": 2}"), std::string::npos) << e.out;

    e = Lancia({"eclequ", "--data", "01/01/2000", "--ora", "12:00", "--ar", "6 0 0", "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out.rfind("{\"cbSegni\": 3, \"Segno\": \"Cancro\"", 0), 0u) << e.out;
}

// Options missing, out of range or together with their alternative.
TEST(CliCalcolatrici, ValoriRifiutati) {
    const std::vector<std::vector<std::string>> cattivi = {
        {"deltat"},
        {"deltat", "--data", "32/01/2000"},
        {"eqt", "--data", "01/01/2000"},
        {"eclequ", "--data", "01/01/2000", "--ora", "12:00"},
        {"eclequ", "--data", "01/01/2000", "--ora", "12:00", "--segno", "12", "--lon", "1"},
        {"eclequ", "--data", "01/01/2000", "--ora", "12:00", "--lon", "1 2 3 4"},
        {"eclequ", "--data", "01/01/2000", "--ora", "12:00", "--lon", "1", "--ar", "1"},
        {"formati"},
        {"formati", "--gradi", "1", "--ore", "1"},
    };
    for (const auto& p : cattivi) {
        Esito e = Lancia(p);
        EXPECT_EQ(e.stato, 2) << p[0] << " " << (p.size() > 1 ? p.back() : "");
        EXPECT_EQ(std::count(e.err.begin(), e.err.end(), '\n'), 1) << e.err;
    }
}
