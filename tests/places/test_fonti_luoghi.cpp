// The places' sources: GeoNames lines, the names in the table, ISO nations, province marks.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "core/Testo.h"
#include "places/FontiLuoghi.h"
#include "places/Province.h"

namespace vesmo {
namespace {

const std::string Campione = std::string(VESMO_DATI_TEST) + "/places/cities-campione.txt";

std::map<std::string, std::vector<std::string>> NomiPerGeoNames() {
    const auto luoghi = LeggiFileLuoghiGeo(Campione);
    const auto nomi = NomiLuoghi(luoghi);
    std::map<std::string, std::vector<std::string>> m;
    for (std::size_t i = 0; i < luoghi.size(); ++i)
        m[luoghi[i].nome].push_back(nomi[i]);
    return m;
}

TEST(FontiLuoghi, ReadsGeoNamesLinesAndSkipsBadOnes) {
    std::size_t scartate = 0;
    const auto luoghi = LeggiFileLuoghiGeo(Campione, &scartate);
    EXPECT_EQ(std::tuple(luoghi.size(), scartate), std::tuple(17u, 2u));
    const LuogoGeo& roma = *std::find_if(luoghi.begin(), luoghi.end(),
                                         [](const LuogoGeo& l) { return l.nome == "Rome"; });
    // The line's own figures, read back exactly.
    EXPECT_EQ(
        std::tuple(roma.id, roma.lat, roma.lon, roma.paese, roma.admin1, roma.admin2, roma.zona),
        std::tuple(3169070, 41.89474, 12.4839, "IT", "07", "RM", "Europe/Rome"));
    EXPECT_THROW(LeggiFileLuoghiGeo("/nessun/file.txt"), ErroreFonte);
}

TEST(FontiLuoghi, SameNamesOfOneNationAreToldApart) {
    auto m = NomiPerGeoNames();
    // Italy: by province.
    EXPECT_EQ(m["Vigonovo"], (std::vector<std::string>{"Vigonovo (PN)", "Vigonovo (VE)"}));
    EXPECT_EQ(m["Solaro"], (std::vector<std::string>{"Solaro (MI)", "Solaro (PV)"}));
    // China: two in one region, told apart by the latitude as well.
    EXPECT_EQ(m["Zongzhai"], (std::vector<std::string>{"Zongzhai (15) 39N37", "Zongzhai (06)",
                                                       "Zongzhai (15) 34N33"}));
    // A name alone in its nation stays as it is; a long one is cut to 30 characters.
    EXPECT_EQ(m["Rome"], (std::vector<std::string>{"Rome"}));
    EXPECT_EQ(m["Sant'Andrea Apostolo dello Ionio"],
              (std::vector<std::string>{"Sant'Andrea Apostolo dello Ion"}));
    EXPECT_EQ(m["Pristina"], (std::vector<std::string>{"Pristina"}));
}

TEST(FontiLuoghi, CanadianAndAustralianPlacesCarryTheirProvince) {
    auto m = NomiPerGeoNames();
    for (const char* nome : {"Toronto (ON)", "Vancouver (BC)", "Labrador City (L)", "Iqaluit (NU)",
                             "Sydney (NS)", "Hobart (T)", "Darwin (NT)"}) {
        const std::string n = nome;
        EXPECT_EQ(m[n.substr(0, n.find(" ("))].at(0), n);
    }
}

TEST(FontiLuoghi, AMarkSurvivesTheCutOfALongName) {
    LuogoGeo l;
    l.id = 1;
    l.nome = "Saint-Jean-de-la-Lande-des-Ormeaux-Est";
    l.paese = "CA";
    l.admin1 = "10";
    l.zona = "America/Toronto";
    const auto nomi = NomiLuoghi({l});
    EXPECT_EQ(nomi[0], "Saint-Jean-de-la-Lande-de (PQ)");
    EXPECT_EQ(LunghezzaCaratteri(nomi[0]), 30u);
}

TEST(FontiLuoghi, ReadsIsoNations) {
    const std::string json = R"({"3166-1": [
        {"alpha_2": "IT", "alpha_3": "ITA", "name": "Italy", "numeric": "380",
         "official_name": "Italian Republic"},
        {"alpha_2": "CI", "name": "C\u00f4te d'Ivoire \"CI\"", "numeric": "384"},
        {"alpha_2": "XX", "name": "No number"}
    ]})";
    const auto n = LeggiNazioniIso(json);
    ASSERT_EQ(n.size(), 2u);
    EXPECT_EQ(std::tuple(n[0].cNaz, n[0].nome, n[0].alpha2, n[1].nome),
              std::tuple(380, "Italy", "IT", "Côte d'Ivoire \"CI\""));
    EXPECT_THROW(LeggiNazioniIso("{\"3166-1\": [ {\"name\": \"x\""), ErroreFonte);
}

TEST(FontiLuoghi, ReadsTheSystemIsoCodes) {
    const auto n = LeggiFileNazioniIso("/usr/share/iso-codes/json/iso_3166-1.json");
    std::map<std::string, std::pair<int, std::string>> per;
    for (const auto& x : n)
        per[x.alpha2] = {x.cNaz, x.nome};
    EXPECT_EQ(std::tuple(per["IT"], per["AU"], per["RU"], per.count("XK")),
              std::tuple(std::pair<int, std::string>{380, "Italy"},
                         std::pair<int, std::string>{36, "Australia"},
                         std::pair<int, std::string>{643, "Russian Federation"}, 0u));
    EXPECT_EQ(NazioniFuoriIso()[0].alpha2, "XK");
}

TEST(Province, MarksOfCanadaAndAustralia) {
    const std::tuple<const char*, const char*, const char*> casi[] = {
        {"Canada", "Victoria (BC)", "(BC) = British Columbia "},
        {"Italy", "Victoria (BC)", ""},
        {"CANADA", "Hull (PQ)", "(PQ) = Quebec "},
        // Bare letters anywhere in a Canadian name, case counting, first in the table's order.
        {"Canada", "BONAVISTA (NF)", "(ON) = Ontario "},
        {"Canada", "Halifax (ns)", ""},
        {"Canada", "Dawson (YK)", "(YK) = Yukon "},
        {"Canada", "Labrador City (L)", "(L) = Labrador "},
        // Australia: brackets, case counting except for (NT).
        {"Australia", "Albury (ns)", ""},
        {"Australia", "Alice Springs (nt)", "(NT) = Northern Territory "},
        {"Australia", "Perth (W)", "(W) = Western "},
        {"Australia", "Flying Fish Cove (CI)", "(CI) = Christmas Island "},
        {"Australia", "Canberra (CT)", "(CT) = Capital Territory "},
        {"Australia", "Perth", ""},
        {"", "Toronto (ON)", ""},
    };
    for (const auto& [nazione, city, testo] : casi)
        EXPECT_EQ(TestoProvincia(nazione, city), testo) << city;
}

} // namespace
} // namespace vesmo
