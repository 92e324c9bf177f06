// vesmo-cli rivoluzione, direzione, ingresso: table, JSON and one-line refusals.
#include <gtest/gtest.h>

#include <sstream>

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

bool Contiene(const std::string& s, const std::string& t) {
    return s.find(t) != std::string::npos;
}

} // namespace

TEST(CliRivoluzione, SolareTropicaSinodica) {
    Esito s = Lancia(Con({"rivoluzione", "--tipo", "solare", "--anno", "2024"}));
    ASSERT_EQ(s.stato, 0) << s.err;
    EXPECT_EQ(s.out.rfind("JDRisultato: 2460410.2", 0), 0u) << s.out;
    EXPECT_TRUE(Contiene(s.out, "09/04/2024 17:3")) << s.out;
    EXPECT_TRUE(Contiene(s.out, "\nProva                      RS\n")) << s.out;

    Esito j = Lancia(Con({"rivoluzione", "--tipo", "solare", "--anno", "2024", "--json"}));
    ASSERT_EQ(j.stato, 0);
    EXPECT_EQ(j.out.rfind("{\"JDRisultato\": 2460410.2", 0), 0u) << j.out.substr(0, 80);
    EXPECT_TRUE(Contiene(j.out, "\"Tema\": {"));
    EXPECT_TRUE(Contiene(j.out, "\"Posizioni\": {"));

    // Two returns in January 2020 for the degree the Moon holds on the 2nd.
    Esito t = Lancia(Con({"rivoluzione", "--tipo", "tropica", "--anno", "2020", "--mese", "1",
                          "--grado", "2.5", "--json"}));
    ASSERT_EQ(t.stato, 0) << t.err;
    EXPECT_TRUE(Contiene(t.out, "\"JDPrimoRitorno\": ")) << t.out.substr(0, 200);
    Esito tt = Lancia(Con(
        {"rivoluzione", "--tipo", "tropica", "--anno", "2020", "--mese", "1", "--grado", "2.5"}));
    EXPECT_TRUE(Contiene(tt.out, "Due ritorni in questo mese:\nJDPrimoRitorno: ")) << tt.out;

    Esito f = Lancia(Con(
        {"rivoluzione", "--tipo", "sinodica", "--anno", "2020", "--mese", "3", "--angolo", "180"}));
    ASSERT_EQ(f.stato, 0) << f.err;
    EXPECT_TRUE(Contiene(f.out, "09/03/2020 17:4")) << f.out; // full moon 17:48 UT
    EXPECT_TRUE(Contiene(f.out, "RL Sin G")) << f.out;
}

TEST(CliRivoluzione, ArgomentiSbagliati) {
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

TEST(CliDirezione, AnniEData) {
    Esito a = Lancia(Con({"direzione", "--anni", "30.5"}));
    ASSERT_EQ(a.stato, 0) << a.err;
    EXPECT_TRUE(Contiene(a.out, "api: 30,50\n")) << a.out;
    EXPECT_TRUE(Contiene(a.out, "P. 30,50")) << a.out;
    Esito d = Lancia(Con({"direzione", "--data-direzione", "10/12/2017", "--json"}));
    ASSERT_EQ(d.stato, 0) << d.err;
    EXPECT_TRUE(Contiene(d.out, "\"api\": 30,")) << d.out.substr(0, 100);
    Esito f = Lancia(Con({"direzione", "--data-direzione", "10/12/2017", "--frazione"}));
    EXPECT_TRUE(Contiene(f.out, "api: 30,66\n")) << f.out;
}

TEST(CliIngresso, EsempioEStazione) {
    Esito e = Lancia(
        Con({"ingresso", "--pianeta", "mercurio", "--bersaglio", "240", "--partenza", "2451113"}));
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_TRUE(Contiene(e.out, "01/11/1998 15:58")) << e.out;
    EXPECT_TRUE(Contiene(e.out, "Longitudine: 240,000000\n")) << e.out;
    Esito s = Lancia(Con(
        {"ingresso", "--pianeta", "Giove", "--bersaglio", "5", "--partenza", "2455322", "--json"}));
    ASSERT_EQ(s.stato, 0) << s.err;
    EXPECT_TRUE(Contiene(s.out, "\"Stazione\": {\"Direzione\": \"RETROGRADO\", \"Estremo\": "
                                "\"MASSIMO\", \"Label7\": \"Attenzione, il movimento del "
                                "Pianeta diventa  RETROGRADO\""))
        << s.out.substr(0, 300);
    Esito n = Lancia(
        Con({"ingresso", "--pianeta", "nodo", "--bersaglio", "126.04", "--partenza", "2451545"}));
    EXPECT_EQ(n.stato, 0) << n.err;
}
