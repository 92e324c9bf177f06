// Names as registries write them: folding, "Town (PR)", former names, homonyms.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

#include "places/CostruzioneLuoghi.h"
#include "places/IndiceNomi.h"
#include "places/ModelloLuoghi.h"
#include "places/PiegaNomi.h"
#include "places/RicercaLuoghi.h"
#include "tests/places/AiutoCli.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

TEST(PiegaNomi, RegistrySpellingsGiveTheKeyOfTheOfficialName) {
    struct Caso {
        const char* scritto;
        const char* ufficiale;
    };
    const Caso casi[] = {
        {"BUDDUSO'", "Buddusò"},
        {"Budduso’", "Buddusò"},
        {"L Aquila", "L'Aquila"},
        {"LAQUILA", "L'Aquila"},
        {"L’Aquila", "L'Aquila"},
        {"Celle-Ligure", "Celle Ligure"},
        {"Castelbolognese", "Castel Bolognese"},
        {"S. Giovanni in Persiceto", "San Giovanni in Persiceto"},
        {"S.GIOVANNI IN PERSICETO", "San Giovanni in Persiceto"},
        {"St. Vincent", "Saint-Vincent"},
        {"S. Agata de' Goti", "Sant'Agata de' Goti"},
        {"Sta Maria Capua Vetere", "Santa Maria Capua Vetere"},
        {"Sto Stefano", "Santo Stefano"},
        {"Forli`", "Forlì"},
        {"Sant ʼAngelo", "Sant'Angelo"},
        {"  roma  ", "Roma"},
    };
    for (const Caso& c : casi)
        EXPECT_EQ(PiegaNome(c.scritto), PiegaNome(c.ufficiale)) << c.scritto;
    EXPECT_EQ(PiegaNome("Sant'Agata de' Goti"), "sagatadegoti");
    // Different names stay different.
    EXPECT_NE(PiegaNome("Paterno"), PiegaNome("Paternopoli"));
    // Words run together: the second key of the name, without the words for "San".
    for (auto [unito, nome] : {std::pair{"SANMARTINOINBADIA", "San Martino in Badia"},
                               {"SANTALFIO", "Sant'Alfio"},
                               {"CELLEDISANVITO", "Celle di San Vito"}})
        EXPECT_EQ(PiegaNome(unito), PiegaNomeUnito(nome));
    EXPECT_EQ(PiegaNome("' - ."), "");
}

TEST(PiegaNomi, HalvesProvincesAndCapitals) {
    EXPECT_EQ(ChiaviNome("Villabassa - Niederdorf"),
              (std::vector<std::string>{"villabassaniederdorf", "villabassa", "niederdorf"}));
    EXPECT_EQ(ChiaviNome("San Candido - Innichen"),
              (std::vector<std::string>{"scandidoinnichen", "sancandidoinnichen", "scandido",
                                        "sancandido", "innichen"}));
    EXPECT_EQ(ChiaviNome("Bolzano/Bozen"),
              (std::vector<std::string>{"bolzanobozen", "bolzano", "bozen"}));
    EXPECT_EQ(ChiaviNome("Forlì-Cesena"), (std::vector<std::string>{"forlicesena"}));
    struct Caso {
        const char* testo;
        const char* nome;
        const char* provincia;
    };
    const Caso casi[] = {
        {"Abbiategrasso (MI)", "Abbiategrasso", "MI"},
        {" Abbiategrasso  ( Milano ) ", "Abbiategrasso", "Milano"},
        {"Abbiategrasso", "Abbiategrasso", ""},
        {"(MI)", "(MI)", ""},
        {"Abbiategrasso ()", "Abbiategrasso ()", ""},
        {"Roma (RM", "Roma (RM", ""},
    };
    for (const Caso& c : casi) {
        const NomeEProvincia np = DividiProvincia(c.testo);
        EXPECT_EQ(std::tuple(np.nome, np.provincia), std::tuple(c.nome, c.provincia)) << c.testo;
    }
    for (auto [maiuscole, nome] : {std::pair{"MONTELEONE DI CALABRIA", "Monteleone di Calabria"},
                                   {"SANT'AGATA DE' GOTI", "Sant'Agata de' Goti"},
                                   {"BUDDUSO'", "Buddusò"},
                                   {"CASSANO D'ADDA", "Cassano d'Adda"},
                                   {"Girgenti", "Girgenti"}})
        EXPECT_EQ(NomeDaMaiuscole(maiuscole), nome);
}

constexpr std::int32_t Italia = 380, Francia = 250, Indonesia = 360;

LuogoGeo Luogo(std::int64_t id, const std::string& nome, double lat, double lon,
               const std::string& paese, const std::string& istat, std::int64_t abitanti,
               std::vector<std::string> alternativi = {}) {
    LuogoGeo l;
    l.id = id;
    l.nome = nome;
    l.lat = lat;
    l.lon = lon;
    l.tipo = "PPL";
    l.paese = paese;
    l.admin3 = istat;
    l.popolazione = abitanti;
    l.zona = "Europe/Rome";
    l.alternativi = std::move(alternativi);
    return l;
}

// Built as the whole database, from hand-made comuni, a hamlet, stray and former names.
class RegistriLuoghi : public ::testing::Test {
protected:
    void SetUp() override {
        std::vector<LuogoGeo> luoghi{
            Luogo(1, "Agrigento", 37.31, 13.58, "IT", "084001", 59000),
            Luogo(2, "Vibo Valentia", 38.68, 16.10, "IT", "102047", 33000),
            Luogo(3, "Riva del Po", 44.95, 11.93, "IT", "038029", 7000),
            Luogo(4, "Berra", 44.98, 11.98, "IT", "038029", 2500), // a hamlet of Riva del Po
            Luogo(5, "Bella", 40.76, 15.54, "IT", "076011", 5000, {"Berra"}),
            Luogo(6, "Altavilla Vicentina", 45.51, 11.47, "IT", "024004", 12000),
            Luogo(7, "Altavilla Silentina", 40.53, 15.13, "IT", "065006", 7000, {"Altavilla"}),
            Luogo(8, "Abbiategrasso", 45.40, 8.92, "IT", "015002", 32000),
            Luogo(9, "Paternò", 37.57, 14.90, "IT", "087033", 47000),
            Luogo(10, "Paterno", 40.38, 15.74, "IT", "076099", 3500),
            Luogo(11, "Forlimpopoli", 44.19, 12.13, "IT", "040015", 13000),
            Luogo(12, "Villabassa", 46.74, 12.17, "IT", "021113", 1400, {"Niederdorf"}),
            Luogo(13, "Paris", 48.85, 2.35, "FR", "", 2100000, {"Parigi"}),
            Luogo(14, "Parigi", -0.80, 120.18, "ID", "", 9000),
            Luogo(15, "Buddusò", 40.58, 9.26, "IT", "090017", 3900),
            Luogo(16, "Catanzaro", 38.91, 16.59, "IT", "079023", 90000),
        };
        const std::vector<Comune> comuni{
            {"Agrigento", "084001", "AG", "A089"},
            {"Vibo Valentia", "102047", "VV", "F537"},
            {"Riva del Po", "038029", "FE", "M410"},
            {"Bella", "076011", "PZ", "A717"},
            {"Altavilla Vicentina", "024004", "VI", "A231"},
            {"Altavilla Silentina", "065006", "SA", "A230"},
            {"Abbiategrasso", "015002", "MI", "A010"},
            {"Paternò", "087033", "CT", "G371"},
            {"Paterno", "076099", "PZ", "M269"},
            {"Forlimpopoli", "040015", "FC", "D705"},
            {"Villabassa", "021113", "BZ", "L915"},
            {"Buddusò", "090017", "SS", "B246"},
            {"Catanzaro", "079023", "CZ", "C352"},
        };
        ApplicaComuni(luoghi, comuni);
        const std::vector<NomeCatastale> catastali{
            {"A089", "AG", "GIRGENTI", false},   {"A089", "AG", "AGRIGENTO", true},
            {"F537", "CZ", "MONTELEONE", false}, {"F537", "VV", "VIBO VALENTIA", true},
            {"F536", "AP", "MONTELEONE", false}, {"A806", "FE", "BERRA", false},
            {"A231", "VI", "ALTAVILLA", false},  {"A230", "SA", "ALTAVILLA", false},
            {"B246", "SS", "BUDDUSO'", true},    {"Z999", "ZA", "ZARA", false},
        };
        const std::vector<ProvinciaItaliana> province{
            {"AG", "Agrigento"},    {"VV", "Vibo Valentia"}, {"FE", "Ferrara"}, {"PZ", "Potenza"},
            {"VI", "Vicenza"},      {"SA", "Salerno"},       {"MI", "Milano"},  {"CT", "Catania"},
            {"FC", "Forlì-Cesena"}, {"BZ", "Bolzano"},       {"SS", "Sassari"}};
        const std::map<std::string, std::int32_t> cNaz{
            {"IT", Italia}, {"FR", Francia}, {"ID", Indonesia}};
        nomi = NomiLuoghi(luoghi);
        db = test::DatabaseLuoghi(cartella / "Vesmodat.Mdb");
        CreaTabellaNomiAlternativi(db);
        CreaTabelleIndiceNomi(db);
        db.IniziaTransazione();
        ScriviLuoghi(db, luoghi, nomi, {{"Europe/Rome", 1}}, cNaz);
        riepilogo = ScriviIndiceNomi(db, luoghi, nomi, cNaz, comuni, catastali, province);
        db.ConfermaTransazione();
    }
    test::CartellaLuoghi cartella;
    Database db;
    std::vector<std::string> nomi;
    RiepilogoIndice riepilogo;
};

TEST_F(RegistriLuoghi, TownAndProvinceFormerNamesAndHomonyms) {
    // Berra by its hamlet, the rest by cadastral codes; Zara and Monteleone (AP) have no place.
    EXPECT_EQ(std::tuple(riepilogo.precedenti, riepilogo.precedentiSenzaLuogo), std::tuple(5u, 2u));
    RicercaLuoghi r(db);
    struct Caso {
        const char* testo;
        StatoRisoluzione stato;
        const char* city;   // the one place, or the first candidate
        std::size_t quanti; // candidates
        const char* corrispondenza;
    };
    using S = StatoRisoluzione;
    const Caso casi[] = {
        {"Abbiategrasso (MI)", S::Trovato, "Abbiategrasso", 1, ""},
        {"Abbiategrasso (mi)", S::Trovato, "Abbiategrasso", 1, ""},
        {"Abbiategrasso (PZ)", S::Nessuno, "", 0, ""}, // 700 km from Potenza
        {"BUDDUSO'", S::Trovato, "Buddusò", 1, ""},
        {"Girgenti", S::Trovato, "Agrigento", 1, "Girgenti → Agrigento"},
        {"Monteleone (CZ)", S::Trovato, "Vibo Valentia", 1, "Monteleone → Vibo Valentia"},
        // The former comune beats the hamlet and the stray other name of Bella (PZ).
        {"Berra (FE)", S::Trovato, "Riva del Po", 1, "Berra → Riva del Po"},
        {"Berra", S::Trovato, "Riva del Po", 1, "Berra → Riva del Po"},
        {"Berra (PZ)", S::Trovato, "Bella", 1, "Berra → Bella"},
        // Two former comuni of that name: ambiguous without the province.
        {"Altavilla", S::Ambiguo, "Altavilla Vicentina", 2, ""},
        {"Altavilla (VI)", S::Trovato, "Altavilla Vicentina", 1, "Altavilla → Altavilla Vicentina"},
        // Homonyms of one nation bear their province letters in the table.
        {"Paterno", S::Ambiguo, "Paternò (CT)", 2, ""},
        {"Paterno (PZ)", S::Trovato, "Paterno (PZ)", 1, ""},
        {"Paternò (Catania)", S::Trovato, "Paternò (CT)", 1, ""},
        // Former province letters: Forlì.
        {"Forlimpopoli (FO)", S::Trovato, "Forlimpopoli", 1, ""},
        {"Forlimpopoli (Forlì)", S::Trovato, "Forlimpopoli", 1, ""},
        // The beginning of an official name, unique in the province.
        {"Abbiate (MI)", S::Trovato, "Abbiategrasso", 1, "Abbiate → Abbiategrasso"},
        // Either half of a name of two languages.
        {"Villabassa - Niederdorf", S::Trovato, "Villabassa", 1, ""},
        {"Niederdorf (BZ)", S::Trovato, "Villabassa", 1, "Niederdorf → Villabassa"},
        // Paris is a hundred times larger than the Parigi of Indonesia.
        {"Parigi", S::Trovato, "Paris", 1, "Parigi → Paris"},
        {"Nessuno (XX)", S::Nessuno, "", 0, ""},
    };
    for (const Caso& c : casi) {
        const EsitoRisoluzione e = r.RisolviNome(std::nullopt, c.testo);
        EXPECT_EQ(e.stato, c.stato) << c.testo;
        ASSERT_EQ(e.candidati.size(), c.quanti) << c.testo;
        if (c.quanti) {
            EXPECT_EQ(e.candidati[0].City, c.city) << c.testo;
        }
        EXPECT_EQ(e.Corrispondenza(), c.corrispondenza) << c.testo;
    }
    // Within a nation: the Parigi of Indonesia.
    EXPECT_EQ(r.RisolviNome(Indonesia, "Parigi").candidati.at(0).City, "Parigi");
}

// The entry forms' city box: which name matched, or an ambiguous name; the letters choose.
TEST_F(RegistriLuoghi, TypingARegistryNameInTheCityBox) {
    MessaggiRegistrati messaggi;
    ModelloLuoghi m(db, messaggi, 'C');
    struct Caso {
        const char *testo, *stato, *city;
    };
    for (const Caso& c :
         {Caso{"GIRGENTI", "Girgenti → Agrigento", "Agrigento"},
          Caso{"Altavilla (VI)", "Altavilla → Altavilla Vicentina", "Altavilla Vicentina"}}) {
        EXPECT_EQ(m.DigitaCity(c.testo), c.stato);
        EXPECT_EQ(m.Data1.Campo("City").Testo(), c.city);
    }
    EXPECT_EQ(m.DigitaCity("Altavilla"), "Altavilla: nome ambiguo, 2 luoghi: Altavilla → "
                                         "Altavilla Vicentina (VI), Altavilla → Altavilla "
                                         "Silentina (SA)");
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(RegistriLuoghi, TheCommandLineListsTheCandidates) {
    std::string out, err;
    const auto file = cartella / "Vesmodat.Mdb";
    db.Chiudi();
    auto cli = [&](std::vector<std::string> parole) {
        return test::EseguiSuDatabase(std::move(parole), file, out, err);
    };
    EXPECT_EQ(cli({"luogo", "--city", "Altavilla", "--data", "01/01/1900"}), 1);
    EXPECT_EQ(err, "vesmo-cli luogo: luogo ambiguo: Altavilla; 2 luoghi: Altavilla (VI) → "
                   "Altavilla Vicentina, Altavilla (SA) → Altavilla Silentina\n");
    EXPECT_EQ(cli({"luogo", "--city", "Paterno", "--data", "01/01/1900"}), 1);
    EXPECT_EQ(err,
              "vesmo-cli luogo: luogo ambiguo: Paterno; 2 luoghi: Paternò (CT), Paterno (PZ)\n");
    ASSERT_EQ(cli({"luogo", "--city", "Girgenti (AG)", "--data", "01/01/1900"}), 0) << err;
    EXPECT_NE(out.find("City       Agrigento\nTrovato    Girgenti → Agrigento\n"),
              std::string::npos)
        << out;
    // cerca: names as records write them, the name that matched beside the place.
    ASSERT_EQ(cli({"cerca", "GIRG", "--json"}), 0) << err;
    EXPECT_EQ(out, "[{\"City\": \"Agrigento\", \"Stato\": \"Italy\", \"cNaz\": 380, \"Lon\": "
                   "-0.9053333333333333, \"Lat\": 37.31, \"cFusi\": 1, \"cEst\": 1, \"NomeAlt\": "
                   "\"Girgenti\"}]\n");
}

// tests/data/places/campione-registri.py's sample on the whole database.
TEST(RegistriLuoghiInteri, TheSampleOfRegistryPairs) {
    const std::filesystem::path file = VESMO_DB_LUOGHI;
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "manca " << file;
    Database db(file);
    if (!db.EsisteTabella(TabellaChiaviLuoghi)) GTEST_SKIP() << "database senza ChiaviLuoghi";
    RicercaLuoghi r(db);
    std::ifstream f(std::string(VESMO_DATI_TEST) + "/places/campione-registri.tsv");
    ASSERT_TRUE(f);
    struct Conto {
        int casi = 0, trovati = 0, lontani = 0, ambigui = 0;
    };
    std::map<std::string, Conto> conti;
    std::vector<std::string> errori;
    for (std::string riga; std::getline(f, riga);) {
        std::istringstream s(riga);
        std::string tipo, testo, atteso, lat, lon;
        std::getline(s, tipo, '\t');
        std::getline(s, testo, '\t');
        std::getline(s, atteso, '\t');
        std::getline(s, lat, '\t');
        std::getline(s, lon, '\t');
        Conto& c = conti[tipo];
        ++c.casi;
        const EsitoRisoluzione e = r.RisolviNome(std::nullopt, testo);
        bool giusto = false;
        if (atteso.empty()) {
            giusto = e.stato == StatoRisoluzione::Ambiguo;
            ++(giusto ? c.ambigui : c.trovati);
        } else if (e.stato == StatoRisoluzione::Ambiguo) {
            ++c.ambigui;
        } else if (e.stato == StatoRisoluzione::Trovato) {
            const Candidato& t = e.candidati.front();
            const double km = DistanzaDaRiquadro(t.Lat, -t.Lon * 15, std::stod(lat), std::stod(lat),
                                                 std::stod(lon), std::stod(lon));
            // Names are cut to 30 characters in the table.
            const std::string nome = PiegaNome(t.City.substr(0, t.City.find(" (")));
            giusto = PiegaNome(atteso).rfind(nome, 0) == 0 && km < 5;
            if (giusto) ++c.trovati;
            if (km > DistanzaMassimaProvincia) ++c.lontani;
        }
        if (!giusto && errori.size() < 60)
            errori.push_back(tipo + " " + testo + " → " +
                             (e.candidati.empty() ? std::string("-") : e.candidati[0].City) +
                             " (atteso " + atteso + ")");
    }
    Conto tutti;
    for (const auto& [tipo, c] : conti) {
        std::cout << tipo << ": " << c.trovati << " trovati su " << c.casi << "\n";
        tutti.casi += c.casi;
        tutti.lontani += c.lontani;
    }
    for (const auto& e : errori)
        std::cout << "  " << e << "\n";
    EXPECT_GT(tutti.casi, 800);
    // Never a place far from the province given.
    EXPECT_EQ(tutti.lontani, 0);
    const Conto& p = conti["provincia"];
    EXPECT_GE(p.trovati, p.casi * 0.98);
    const Conto& o = conti["omonimo"];
    EXPECT_EQ(o.trovati + o.ambigui, o.casi);
    const Conto& s = conti["sigla-prec"];
    EXPECT_EQ(s.trovati, s.casi);
    const Conto& v = conti["precedente"];
    EXPECT_GE(v.trovati, v.casi * 0.9);
}

} // namespace
} // namespace vesmo
