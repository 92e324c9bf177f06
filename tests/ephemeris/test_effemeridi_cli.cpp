// vesmo-cli effemeridi: the table and the JSON the user reads, and the one-line refusals.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/Lancia.h"

using vesmo::test::Esito;
using vesmo::test::Lancia;

TEST(Effemeridi, TabellaEJsonConINomiDelRecord) {
    Esito e = Lancia({"effemeridi", "--jd", "2451545.0"});
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_TRUE(e.err.empty());
    // 2000 January 1.5: the apparent Sun at 280 degrees 22 minutes, ten degrees of Capricorn.
    EXPECT_NE(e.out.find("\nSole        Capri  10°22'03\"    0,0000°    0,983318\n"),
              std::string::npos)
        << e.out;
    EXPECT_NE(e.out.find("\nTSL0        18:41:49\n"), std::string::npos);

    e = Lancia({"effemeridi", "--jd", "2451545.0", "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    const std::string& j = e.out;
    for (const char* chiave : {"\"Sole\": {\"Lo\": ", "\"Plutone\": {\"Lo\": ",
                               "\"NodoLuna\": {\"Lo\": ", "\"LilithMedia\": {\"Lo\": ",
                               "\"LilithVera\": {\"Lo\": ", "\"TSL0\": ", "\"Obliquita\": "})
        EXPECT_NE(j.find(chiave), std::string::npos) << chiave << "\n" << j;
    // The Moon has longitude and latitude, no distance.
    const std::size_t luna = j.find("\"Luna\": {");
    ASSERT_NE(luna, std::string::npos);
    const std::string oggettoLuna = j.substr(luna, j.find('}', luna) - luna);
    EXPECT_NE(oggettoLuna.find("\"LaEc\""), std::string::npos);
    EXPECT_EQ(oggettoLuna.find("\"R\""), std::string::npos);
    EXPECT_EQ(j.back(), '\n');
}

TEST(Effemeridi, GiornoGiulianoErratoUnaRigaEUscita2) {
    const std::string fuori = "vesmo-cli effemeridi: giorno giuliano fuori dall'intervallo "
                              "0-5373484.5: ";
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"effemeridi", "--jd", "abc"},
         "vesmo-cli effemeridi: giorno giuliano non valido: 'abc'\n"},
        {{"effemeridi", "--jd", "-5"}, fuori + "-5\n"},
        {{"effemeridi", "--jd", "1e300"}, fuori + "1e300\n"},
    };
    for (const auto& [parole, errore] : casi) {
        Esito e = Lancia(parole);
        EXPECT_EQ(e.stato, 2);
        EXPECT_EQ(e.err, errore);
        EXPECT_TRUE(e.out.empty());
    }
}
