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
        const char* atteso; // the start of the output
    };
    const std::vector<std::string> j2000{"--data", "01/01/2000", "--ora", "12:00", "--json"};
    const auto Eclequ = [&](std::vector<std::string> p) {
        p.insert(p.begin(), "eclequ");
        p.insert(p.end(), j2000.begin(), j2000.end());
        return p;
    };
    const Caso casi[] = {
        // 1900 between 1895 and 1903: -0.0375 minutes.
        {{"deltat", "--data", "01/06/1900"}, "DeltaT = -2,25s  = -0,0375m  = -0,0006h\n"},
        {{"formati", "--gradi-decimali", "15", "--json"}, "{\"Text1\": \"15\", \"Text2\": "},
        // Half an hour typed as minutes alone.
        {{"formati", "--ore", "0 30"},
         "Gradi Sessagesimali  7° 30' 0,0\"\nOre Sessagesimali    0h 30m 0s\nGradi Decimali      "
         " 7,5\nOre Decimali         0,5\nRadianti             0,1309\n"},
        {{"eqt", "--data", "13/10/1992", "--ora", "00:00", "--json"}, "{\"EqT\": "},
        {Eclequ({"--segno", "Cancro", "--lon", "23 12 56.27", "--lat", "6 41"}),
         "{\"txAR_h\": 7, \"txAR_m\": 45, \"txAR_s\": "},
        {Eclequ({"--ar", "6 0 0"}), "{\"cbSegni\": 3, \"Segno\": \"Cancro\""},
    };
    for (const Caso& c : casi) {
        Esito e = Lancia(c.parole);
        EXPECT_EQ(e.stato, 0) << e.err;
        EXPECT_EQ(e.out.rfind(c.atteso, 0), 0u) << e.out;
    }
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
