// vesmo-cli rivoluzione, direzione, ingresso: table, JSON and one-line refusals.
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/Comandi.h"
#include "tests/cli/Lancia.h"

using vesmo::test::Esito;
using vesmo::test::Lancia;

namespace {

std::vector<std::string> Con(std::vector<std::string> comando) {
    for (const char* p : {"--data", "10/04/1987", "--ora", "19:30", "--lon", "11E53", "--lat",
                          "45N24", "--fuso", "-1", "--nome", "Prova"})
        comando.emplace_back(p);
    return comando;
}

} // namespace

// Each command's table and JSON: the result's first line, the chart's mark, the field names.
TEST(CliTempo, TabelleEJson) {
    const std::vector<std::string> solare{"rivoluzione", "--tipo", "solare", "--anno", "2024"};
    const std::vector<std::string> tropica{"rivoluzione", "--tipo", "tropica", "--anno", "2020",
                                           "--mese",      "1",      "--grado", "2.5"};
    const std::pair<std::vector<std::string>, std::vector<std::string>> casi[] = {
        {solare,
         {"JDRisultato: 2460410.2", "09/04/2024 17:3", "\nProva                      RS\n"}},
        {{"rivoluzione", "--tipo", "solare", "--anno", "2024", "--json"},
         {"{\"JDRisultato\": 2460410.2", "\"Tema\": {", "\"Posizioni\": {"}},
        // Two returns in January 2020 for the degree the Moon holds on the 2nd.
        {tropica, {"Due ritorni in questo mese:\nJDPrimoRitorno: "}},
        {{"rivoluzione", "--tipo", "tropica", "--anno", "2020", "--mese", "1", "--grado", "2.5",
          "--json"},
         {"\"JDPrimoRitorno\": "}},
        {{"rivoluzione", "--tipo", "sinodica", "--anno", "2020", "--mese", "3", "--angolo", "180"},
         {"RL Sin G"}},
        {{"direzione", "--anni", "30.5"}, {"api: 30,50\n", "P. 30,50"}},
        {{"direzione", "--data-direzione", "10/12/2017", "--frazione"}, {"api: 30,66\n"}},
        {{"direzione", "--data-direzione", "10/12/2017", "--json"}, {"\"api\": 30,"}},
        {{"ingresso", "--pianeta", "mercurio", "--bersaglio", "240", "--partenza", "2451113"},
         {"01/11/1998 15:58", "Longitudine: 240,000000\n"}},
        {{"ingresso", "--pianeta", "Giove", "--bersaglio", "5", "--partenza", "2455322", "--json"},
         {"\"Stazione\": {\"Direzione\": \"RETROGRADO\", \"Estremo\": \"MASSIMO\", \"Label7\": "
          "\"Attenzione, il movimento del Pianeta diventa  RETROGRADO\""}},
    };
    for (const auto& [parole, attesi] : casi) {
        Esito e = Lancia(Con(parole));
        SCOPED_TRACE(parole[0] + " " + parole[2]);
        ASSERT_EQ(e.stato, 0) << e.err;
        for (const std::string& a : attesi)
            EXPECT_NE(e.out.find(a), std::string::npos) << a << "\n" << e.out.substr(0, 400);
    }
    // The result comes first.
    EXPECT_EQ(Lancia(Con(solare)).out.rfind("JDRisultato: ", 0), 0u);
}

TEST(CliTempo, ArgomentiSbagliati) {
    for (const auto& parole :
         {Con({"rivoluzione", "--tipo", "lunare", "--anno", "2020"}),
          Con({"rivoluzione", "--tipo", "solare"}),
          Con({"rivoluzione", "--tipo", "solare", "--anno", "2020", "--angolo", "90"}),
          Con({"rivoluzione", "--tipo", "tropica", "--anno", "2020", "--ritorno", "23"}),
          Con({"rivoluzione", "--tipo", "sinodica", "--anno", "2020", "--grado", "3"}),
          Con({"direzione"}), Con({"direzione", "--anni", "3", "--frazione"}),
          Con({"ingresso", "--pianeta", "Sole", "--bersaglio", "3", "--partenza", "2451545"})}) {
        Esito e = Lancia(parole);
        EXPECT_EQ(e.stato, 2) << parole[0] << " " << parole[2];
        EXPECT_EQ(e.out, "");
        EXPECT_EQ(std::count(e.err.begin(), e.err.end(), '\n'), 1) << e.err;
    }
}
