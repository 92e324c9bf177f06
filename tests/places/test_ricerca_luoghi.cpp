// Places found by the names people say, by the entry form, vesmo-cli luogo and cerca.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "cli/Comandi.h"
#include "places/CostruzioneLuoghi.h"
#include "places/ModelloLuoghi.h"
#include "places/RicercaLuoghi.h"
#include "tests/places/AiutoCli.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

constexpr std::int32_t Italia = 380, Canada = 124, Francia = 250;

constexpr double TolleranzaGradi = 1e-9; // degrees (hours for the longitude)

using Parole = std::vector<std::string>;
constexpr auto Esegui = test::EseguiSuDatabase;

// vesmo-cli luogo at a fixed date and time, with `altre` words after.
int Luogo(const Parole& altre, const std::filesystem::path& db, std::string& out,
          std::string& err) {
    Parole parole{"luogo", "--data", "01/07/2000", "--ora", "12:00"};
    parole.insert(parole.end(), altre.begin(), altre.end());
    return Esegui(parole, db, out, err);
}

// A few places of Italy, France and Canada with some other names.
class NomiDeiLuoghi : public ::testing::Test {
protected:
    test::CartellaLuoghi cartella;
    std::filesystem::path file = cartella / "Vesmodat.Mdb";
    Database db;
    MessaggiRegistrati messaggi;

    void SetUp() override {
        db = test::DatabaseLuoghi(file);
        CreaTabellaNomiAlternativi(db);
        test::AggiungiNazione(db, 250, "France");
        struct Luogo {
            int cNaz;
            const char* city;
        };
        for (auto [cNaz, city] :
             {Luogo{Italia, "Venezia"}, Luogo{Italia, "Vercelli"},
              Luogo{Italia, "Castelnuovo (TN)"}, Luogo{Italia, "Castelnuovo (MN)"},
              Luogo{Italia, "Castelnuovo Belbo"}, Luogo{Italia, "Castelvecchio (PG)"},
              Luogo{Francia, "Paris"}, Luogo{Francia, "Parigné"}, Luogo{Canada, "Paris (ON)"},
              Luogo{Canada, "Toronto (ON)"}})
            test::AggiungiCity(db, cNaz, city, -0.8, 45.4, 1, 1);
        // Atlantis: a place deleted since the table was built.
        Cursore::Sql(db,
                     "insert into " + std::string(TabellaNomiAlternativi) +
                         " (cCity, NomeAlt, City, Rango) values (380, 'Venice', 'Venezia', 3), "
                         "(380, 'Venedig', 'Venezia', 3), (250, 'Parigi', 'Paris', 1), "
                         "(124, 'Parigi', 'Paris (ON)', 50), (380, 'Atlantide', 'Atlantis', 7)");
    }
};

TEST_F(NomiDeiLuoghi, ExactNamesOwnWithoutProvinceLettersAndOther) {
    RicercaLuoghi r(db);
    struct Caso {
        std::optional<std::int32_t> cNaz;
        const char* testo;
        Corrispondenza tipo;
        std::vector<std::string> luoghi;
        const char* nomeAlt;
    };
    const std::vector<Caso> casi{
        {Italia, " venezia ", Corrispondenza::Propria, {"Venezia"}, ""},
        {Italia, "Castelvecchio", Corrispondenza::SenzaProvincia, {"Castelvecchio (PG)"}, ""},
        {Italia,
         "castelnuovo",
         Corrispondenza::SenzaProvincia,
         {"Castelnuovo (MN)", "Castelnuovo (TN)"},
         ""},
        // The marks of Canada belong to the name.
        {Canada, "Toronto", Corrispondenza::Nessuna, {}, ""},
        {Italia, "vénice", Corrispondenza::Alternativa, {"Venezia"}, "Venice"},
        {std::nullopt, "parigi", Corrispondenza::Alternativa, {"Paris"}, "Parigi"},
        {Canada, "Parigi", Corrispondenza::Alternativa, {"Paris (ON)"}, "Parigi"},
        {Francia, "Venice", Corrispondenza::Nessuna, {}, ""},
        {Italia, "Atlantide", Corrispondenza::Nessuna, {}, ""},
        {Italia, "Vene", Corrispondenza::Nessuna, {}, ""},
        {std::nullopt, "   ", Corrispondenza::Nessuna, {}, ""},
    };
    for (const Caso& c : casi) {
        const EsitoNome e = r.NomeEsatto(c.cNaz, c.testo);
        EXPECT_EQ(e.tipo, c.tipo) << c.testo;
        std::vector<std::string> nomi;
        for (const LuogoTrovato& l : e.luoghi)
            nomi.push_back(l.City);
        EXPECT_EQ(nomi, c.luoghi) << c.testo;
        if (!e.luoghi.empty()) {
            EXPECT_EQ(e.luoghi[0].NomeAlt, c.nomeAlt) << c.testo;
        }
    }
    EXPECT_EQ(r.NomeEsatto(std::nullopt, "Parigi").luoghi.at(0).cCity, Francia);
}

TEST_F(NomiDeiLuoghi, TypeAheadFallsBackOnAnotherNameAndSaysWhichOne) {
    struct Caso {
        char ordinamento;
        std::int32_t nazione; // the nation selected in the grid (sorted by nation)
        const char* testo;
        const char* stato;
        const char* city;
        std::int32_t cCity;
    };
    const Caso casi[] = {
        {'N', Italia, "venice ", "Venice → Venezia", "Venezia", Italia},
        {'N', Italia, "Ven", "", "Venezia", Italia},
        {'N', Italia, "Castelnuovo", "", "Castelnuovo (MN)", Italia},
        {'N', Francia, "Parigi", "Parigi → Paris", "Paris", Francia},
        {'N', Canada, "parigi", "Parigi → Paris (ON)", "Paris (ON)", Canada},
        {'C', 0, "Parigi", "Parigi → Paris", "Paris", Francia},
        {'C', 0, "Venezia", "", "Venezia", Italia},
    };
    for (const Caso& c : casi) {
        ModelloLuoghi m(db, messaggi, c.ordinamento);
        if (c.ordinamento == 'N') {
            m.Data2.Index("IndCoNazi");
            m.Data2.Seek("=", c.nazione);
            ASSERT_FALSE(m.Data2.NoMatch());
        }
        const std::string stato = m.DigitaCity(c.testo);
        EXPECT_EQ(std::tuple(stato, m.Data1.Campo("City").Testo(), m.Data1.Campo("cCity").Intero(),
                             m.Data2.Campo("cNaz").Intero()),
                  std::tuple(c.stato, c.city, c.cCity, c.cCity))
            << c.testo;
    }
}

TEST_F(NomiDeiLuoghi, LuogoNeedsTheWholeNameElseNamesLikeIt) {
    db.Chiudi();
    struct Caso {
        Parole parole;
        const char* errore; // status 1
    };
    const std::vector<Caso> casi{
        {{"--city", "Xyzzy Nowhere"}, "vesmo-cli luogo: luogo sconosciuto: Xyzzy Nowhere\n"},
        {{"--city", "Venezzia", "--nazione", "Italy"},
         "vesmo-cli luogo: luogo sconosciuto: Venezzia (Italy); forse: Venezia\n"},
        {{"--city", "Cast", "--nazione", "Italy"},
         "vesmo-cli luogo: luogo sconosciuto: Cast (Italy); forse: Castelnuovo (MN), "
         "Castelnuovo (TN), Castelnuovo Belbo, Castelvecchio (PG)\n"},
        {{"--city", "Castelnuovo", "--nazione", "Italy"},
         "vesmo-cli luogo: luogo ambiguo: Castelnuovo (Italy); forse: Castelnuovo (MN), "
         "Castelnuovo (TN)\n"},
        {{"--city", "Toronto"},
         "vesmo-cli luogo: luogo sconosciuto: Toronto; forse: Toronto (ON)\n"},
    };
    std::string out, err;
    for (const Caso& c : casi) {
        EXPECT_EQ(Luogo(c.parole, file, out, err), 1) << c.parole[1];
        EXPECT_EQ(err, c.errore);
    }
    // Every command that casts a chart from a place asks the same.
    for (Parole parole : {Parole{"tema"}, Parole{"direzione", "--anni", "30"},
                          Parole{"rivoluzione", "--tipo", "solare", "--anno", "2026"}}) {
        const std::string comando = parole[0];
        for (const char* p : {"--data", "10/04/1987", "--ora", "19:30", "--city", "Padov"})
            parole.push_back(p);
        EXPECT_EQ(Esegui(parole, file, out, err), 1) << comando;
        EXPECT_EQ(err, "vesmo-cli " + comando +
                           ": luogo sconosciuto: Padov; forse: Parigné, Paris, Paris (ON)\n");
    }
    // Found: the whole name (case, accents, blanks aside), without letters, another name.
    struct Trovato {
        Parole parole;
        const char* city;
        const char* stato;
        const char* nomeAlt; // the other name said, "" when the own name found it
    };
    const std::vector<Trovato> trovati{
        {{"--city", " vÈnezia  "}, "Venezia", "Italy", ""},
        {{"--city", "castelvecchio", "--nazione", "Italy"}, "Castelvecchio (PG)", "Italy", ""},
        {{"--city", "Parigi"}, "Paris", "France", "Parigi"},
        {{"--city", "parigi", "--nazione", "Canada"}, "Paris (ON)", "Canada", "Parigi"},
    };
    for (const Trovato& t : trovati) {
        Parole parole = t.parole;
        ASSERT_EQ(Luogo(parole, file, out, err), 0) << t.parole[1] << err;
        const std::string riga = std::string("City       ") + t.city + "\n";
        const std::string trovato =
            *t.nomeAlt ? std::string("Trovato    ") + t.nomeAlt + " → " + t.city + "\n" : "";
        EXPECT_EQ(out.rfind(riga + trovato + "Stato      " + t.stato, 0), 0u) << out;
        parole.push_back("--json");
        ASSERT_EQ(Luogo(parole, file, out, err), 0) << t.parole[1] << err;
        EXPECT_EQ(
            out.rfind(std::string("{\"City\": \"") + t.city + "\", \"Stato\": \"" + t.stato, 0),
            0u);
        EXPECT_EQ(out.find("\"NomeAlt\": \"" + std::string(t.nomeAlt) + "\"}\n") !=
                      std::string::npos,
                  *t.nomeAlt != 0)
            << out;
    }
}

TEST_F(NomiDeiLuoghi, CercaListsOwnNamesThenOtherNamesMarked) {
    db.Chiudi();
    std::string out, err;
    struct Caso {
        Parole parole, inizi, fini; // the start of each line, then what ends it
    };
    const std::vector<Caso> casi{
        {{"Veni"}, {"Venezia                         Italy "}, {"  ← Venice"}},
        // Venezia is listed once, under its own name.
        {{"Ven", "--nazione", "Italy"}, {"Venezia "}, {"N24"}},
        {{"Parig"}, {"Parigné ", "Paris ", "Paris (ON) "}, {"N24", "  ← Parigi", "  ← Parigi"}},
    };
    for (const Caso& c : casi) {
        Parole parole{"cerca"};
        parole.insert(parole.end(), c.parole.begin(), c.parole.end());
        ASSERT_EQ(Esegui(parole, file, out, err), 0) << c.parole[0] << err;
        std::istringstream righe(out);
        std::string riga;
        std::size_t k = 0;
        for (; std::getline(righe, riga); ++k) {
            ASSERT_LT(k, c.inizi.size()) << out;
            EXPECT_EQ(riga.rfind(c.inizi[k], 0), 0u) << riga;
            EXPECT_EQ(riga.substr(riga.size() - c.fini[k].size()), c.fini[k]) << riga;
        }
        EXPECT_EQ(k, c.inizi.size()) << out;
    }
    EXPECT_EQ(Esegui({"cerca", "Xyz"}, file, out, err), 1);
    EXPECT_EQ(err, "vesmo-cli cerca: nessun luogo a partire da Xyz\n");
}

// tests/data/places/campione-comuni.py's comuni, found by name at their seats.
struct ComuneAtteso {
    std::string nomeCampione, nomeIntero;
    double lat = 0, lon = 0;
};

std::vector<ComuneAtteso> ComuniAttesi() {
    std::ifstream f(std::string(VESMO_DATI_TEST) + "/places/comuni-attesi.tsv");
    std::vector<ComuneAtteso> attesi;
    std::string riga;
    while (std::getline(f, riga)) {
        if (riga.empty() || riga[0] == '#') continue;
        std::istringstream s(riga);
        ComuneAtteso c;
        std::getline(s, c.nomeCampione, '\t');
        std::getline(s, c.nomeIntero, '\t');
        s >> c.lat >> c.lon;
        attesi.push_back(c);
    }
    return attesi;
}

// Lon and Lat of `luogo --json`.
void Coordinate(const std::string& json, double& lon, double& lat) {
    auto numero = [&](const std::string& campo) {
        const auto p = json.find("\"" + campo + "\": ");
        return p == std::string::npos ? -999.0 : std::stod(json.substr(p + campo.size() + 4));
    };
    lon = numero("Lon");
    lat = numero("Lat");
}

void ControllaComuni(const std::filesystem::path& db, bool intero) {
    const auto attesi = ComuniAttesi();
    ASSERT_EQ(attesi.size(), 37u);
    for (const ComuneAtteso& c : attesi) {
        const std::string& nome = intero ? c.nomeIntero : c.nomeCampione;
        std::string out, err;
        ASSERT_EQ(Esegui({"luogo", "--city", nome, "--nazione", "Italy", "--data", "10/04/1987",
                          "--ora", "19:30", "--json"},
                         db, out, err),
                  0)
            << nome << ": " << err;
        double lon, lat;
        Coordinate(out, lon, lat);
        EXPECT_NEAR(lat, c.lat, TolleranzaGradi) << nome;
        EXPECT_NEAR(lon, -c.lon / 15, TolleranzaGradi) << nome;
        // Italy's clocks in April 1987: one hour east of Greenwich, summer time.
        EXPECT_NE(out.find("\"Fuso\": -1, \"Estiva\": 1"), std::string::npos) << nome << out;
    }
}

class ComuniCampione : public ::testing::Test {
protected:
    test::CartellaLuoghi cartella;
    std::filesystem::path db = cartella / "Vesmodat.Mdb";
    RiepilogoCostruzione riepilogo;
    void SetUp() override {
        FontiCostruzione f;
        f.cities = std::string(VESMO_DATI_TEST) + "/places/cities500-comuni.txt";
        f.comuni = std::string(VESMO_DATI_TEST) + "/places/comuni-campione.json";
        f.nazioni = "/usr/share/iso-codes/json/iso_3166-1.json";
        riepilogo = CostruisciDatabaseLuoghi(f, db);
    }
};

TEST_F(ComuniCampione, EachComuneIsFoundByItsItalianNameAtItsSeatAndGeoNamesNamesStillFindIt) {
    EXPECT_EQ(std::tuple(riepilogo.comuni, riepilogo.luoghi), std::tuple(37u, 123u));
    ControllaComuni(db, false);
    // The GeoNames name of a seat, now another name of the comune.
    struct Caso {
        const char* nome;
        const char* city;
    };
    for (const Caso& c :
         {Caso{"Rome", "Roma"}, Caso{"Venice", "Venezia"}, Caso{"Mestre", "Mestre"}}) {
        std::string out, err;
        ASSERT_EQ(Esegui({"luogo", "--city", c.nome, "--nazione", "Italy", "--json"}, db, out, err),
                  0)
            << c.nome << err;
        EXPECT_EQ(out.rfind(std::string("{\"City\": \"") + c.city + "\"", 0), 0u) << out;
    }
}

TEST(LuoghiOmonimi, OfOneNameInSeveralNationsTheLargestIsTakenWithoutANation) {
    test::CartellaLuoghi cartella;
    const auto cities = cartella / "cities.txt";
    {
        std::ofstream f(cities);
        auto riga = [&](int id, const char* paese, double lat, double lon, long popolazione,
                        const char* zona) {
            f << id << "\tRoma\tRoma\t\t" << lat << '\t' << lon << "\tP\tPPL\t" << paese
              << "\t\t01\t\t\t\t" << popolazione << "\t\t100\t" << zona << "\t2024-01-01\n";
        };
        // Nations before Italy in the order of their letters.
        riga(2677234, "AL", 41.3, 19.8, 900, "Europe/Tirane");
        riga(666, "AR", -34.6, -58.4, 12000, "America/Argentina/Buenos_Aires");
        riga(3169070, "IT", 41.89193, 12.51133, 2318895, "Europe/Rome");
    }
    FontiCostruzione f;
    f.cities = cities;
    f.nazioni = "/usr/share/iso-codes/json/iso_3166-1.json";
    const auto db = cartella / "Vesmodat.Mdb";
    CostruisciDatabaseLuoghi(f, db);
    struct Caso {
        Parole parole;
        const char* stato;
    };
    for (const Caso& c :
         {Caso{{"--city", "Roma", "--json"}, "Italy"},
          Caso{{"--city", "roma", "--nazione", "Albania", "--json"}, "Albania"},
          Caso{{"--city", "Roma", "--nazione", "Argentina", "--json"}, "Argentina"}}) {
        std::string out, err;
        ASSERT_EQ(Luogo(c.parole, db, out, err), 0) << err;
        EXPECT_NE(out.find(std::string("\"Stato\": \"") + c.stato + "\""), std::string::npos)
            << out;
    }
}

TEST(ComuniDatabaseIntero, EachComuneOfTheSampleIsFoundAtItsSeat) {
    const std::filesystem::path file = VESMO_DB_LUOGHI;
    if (!std::filesystem::exists(file))
        GTEST_SKIP() << "manca " << file << ": scripts/prepara-dati lo prepara";
    if (!Database(file).EsisteTabella(TabellaNomiAlternativi))
        GTEST_SKIP() << file << " viene da altre fonti: scripts/prepara-dati lo ricostruisce";
    ControllaComuni(file, true);
}

} // namespace
} // namespace vesmo
