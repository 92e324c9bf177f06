// vesmo-cli as a script sees it: the answer on stdout, one line on stderr and status 2 for bad
// arguments.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "core/Aritmetica.h"
#include "tests/cli/Lancia.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

using vesmo::test::Con;
using vesmo::test::Esito;
using vesmo::test::Lancia;
using vesmo::test::Rifiuta;
using vesmo::test::Rifiutato;

// Julian days of the proleptic calendars, the Gregorian reform and the two ends of the calendar;
// valid numbers and times of any length are read as such.
TEST(CliCalendario, GiornoGiulianoEData) {
    const std::string zeri(30000, '0');
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"data", "0." + zeri + "1"}, "01/01/-4712 12:00:00\n"},
        {{"data", "2451545." + zeri}, "01/01/2000 12:00:00\n"},
        {{"jd", "01/01/2000", "12:00:00." + zeri}, "2451545.000000\n"},
        {{"jd", "4/10/1582"}, "2299159.500000\n"},
        {{"jd", "29/02/1500"}, "2268991.500000\n"}, // Julian leap year (Meeus 7.1)
        {{"jd", "01/01/2000", "18:00:00"}, "2451545.250000\n"},
        {{"jd", "01/01/-4712"}, "-0.500000\n"},
        {{"jd", "31/12/9999"}, "5373483.500000\n"},
        {{"jd", "01/01/2000", "12:00", "--json"},
         "{\"Data\": \"01/01/2000\", \"Ora\": \"12:00:00\", \"JD\": 2451545}\n"},
        {{"data", "2451545"}, "01/01/2000 12:00:00\n"},
        {{"data", "2299160.49999"}, "04/10/1582 23:59:59\n"},
        // A whole second just before midnight does not round into the next day's date.
        {{"data", "2451545.4999942"}, "01/01/2000 23:59:59\n"},
        {{"data", "0"}, "01/01/-4712 12:00:00\n"},
        {{"data", "5373484.49999"}, "31/12/9999 23:59:59\n"},
        {{"data", "2451545.25", "--json"},
         "{\"JD\": 2451545.25, \"Data\": \"01/01/2000\", \"Ora\": \"18:00:00\", \"Anno\": "
         "2000, \"Mese\": 1, \"Giorno\": 1.75}\n"},
    };
    for (const auto& [parole, out] : casi) {
        const Esito e = Lancia(parole);
        EXPECT_EQ(std::tuple(e.stato, e.out, e.err), std::tuple(0, out, ""))
            << parole[1].substr(0, 20);
    }
}

TEST(CliCalendario, ArgomentiSbagliatiEAiuto) {
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"jd", "29/02/1900"}, "data non valida: '29/02/1900' (giorno inesistente nel mese)"},
        {{"jd", "1/13/2000"}, "data non valida: '1/13/2000' (mese fuori da 1-12)"},
        {{"jd", "2000-01-01"}, "data non valida: '2000-01-01' (atteso GG/MM/AAAA)"},
        {{"jd", "01/01/2000", "24:00"}, "ora non valida: '24:00' (fuori da 00:00:00-23:59:59)"},
        {{"jd", "01/01/2000", "12h"}, "ora non valida: '12h' (atteso HH:MM[:SS])"},
        {{"jd"}, "uso: vesmo-cli jd GG/MM/AAAA [HH:MM[:SS]] [--json]"},
        {{"jd", "01/01/2000", "--xml"}, "opzione sconosciuta: --xml"},
        {{"data", "abc"}, "giorno giuliano non valido: 'abc'"},
        {{"data", "2451545,5"}, "giorno giuliano non valido: '2451545,5'"},
        {{"deltat", "--data", "01/01/2000", "extra"}, "argomento inatteso: extra"},
    };
    for (const auto& [parole, messaggio] : casi)
        Rifiuta(parole, messaggio);
    Rifiutato({"oroscopo"}, "vesmo-cli: comando sconosciuto: oroscopo\n");
    Esito vuoto = Lancia({});
    EXPECT_EQ(vuoto.stato, 2);
    EXPECT_NE(vuoto.err.find("uso: vesmo-cli"), std::string::npos);
    // Help last on the line; a command told on several lines of the usage gets them all.
    EXPECT_EQ(Lancia({"tema", "--json", "--help"}).stato, 0);
    const std::string db = Lancia({"db", "-h"}).out;
    for (const char* riga :
         {"uso: vesmo-cli db pulizia", "\n  db compatta", "\n  db copia", "\n  db zona CODICE"})
        EXPECT_NE(db.find(riga), std::string::npos) << riga << " in " << db;
}

TEST(CliTema, TabellaJsonELuogoDalDatabase) {
    const auto padova = Con(Con({"tema"}, test::Natale), {"--nome", "Prova Padova"});
    Esito e = Lancia(padova);
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out.rfind("Prova Padova\n10/4/1987", 0), 0u);
    EXPECT_NE(e.out.find("\nSole       Ariete    20°  18' 49''"), std::string::npos) << e.out;
    auto json = padova;
    json.push_back("--json");
    Esito j = Lancia(json);
    ASSERT_EQ(j.stato, 0);
    EXPECT_EQ(j.out.rfind("{\"Tema\": {\"cNaz\": 0, \"Nome\": \"Prova Padova\"", 0), 0u);
    for (const char* pezzo :
         {"\"TU\": 17.5, \"JD\": 2446896.2291666665", "\"Posizioni\": {\"Sole\": {\"Lo\": 20.3",
          "\"Aspetti\": [{\"a\": \"Sole\"", "\"Nome\": \"TRIGONO         \""})
        EXPECT_NE(j.out.find(pezzo), std::string::npos) << pezzo << " in " << j.out;
    // Decimal coordinates give the same chart as the sexagesimal ones.
    auto decimali = padova;
    decimali[6] = "11.883333E";
    decimali[8] = "45.4N";
    Esito d = Lancia(decimali);
    EXPECT_EQ(d.out.substr(d.out.find("\nSole")), e.out.substr(e.out.find("\nSole")));
    decimali[8] = "45." + std::string(30000, '9') + "N";
    const Esito lunga = Lancia(decimali);
    EXPECT_EQ(std::tuple(lunga.stato, lunga.err), std::tuple(0, ""));

    // The zone and the summer time of the places database: the same chart as typed by hand.
    test::CartellaLuoghi cartella;
    const std::string db = (cartella / "Vesmodat.Mdb").string();
    test::DatabasePadova(db);
    const std::vector<std::string> padova2{"tema",   "--data", "10/04/1987", "--ora", "19:30",
                                           "--city", "Padova", "--db",       db};
    Esito c = Lancia(Con(padova2, {"--nazione", "Italy", "--nome", "Prova Padova", "--json"}));
    ASSERT_EQ(c.stato, 0) << c.err;
    EXPECT_NE(c.out.find("\"City\": \"Padova\""), std::string::npos) << c.out;
    EXPECT_NE(c.out.find("\"Fuso\": -1, \"Estiva\": 1"), std::string::npos) << c.out;
    EXPECT_EQ(c.out.substr(c.out.find("\"TU\"")), j.out.substr(j.out.find("\"TU\"")));
    Esito ignoto =
        Lancia({"tema", "--data", "10/04/1987", "--ora", "19:30", "--city", "Zzz", "--db", db});
    EXPECT_EQ(std::tuple(ignoto.stato, ignoto.err),
              std::tuple(1, "vesmo-cli tema: luogo sconosciuto: Zzz\n"));
    Rifiuta(Con(padova2, {"--lon", "11E53"}), "--lon non va con --city");
}

TEST(CliTema, ArgomentiSbagliati) {
    const std::string AttesaLon =
        "' (attesa come 11E53, 11E53'30 o 11.8818E, al massimo 180 gradi)";
    std::vector<std::string> base{"tema",  "--data", "21/12/2001", "--ora",  "12:00", "--lon",
                                  "11E53", "--lat",  "45N24",      "--fuso", "0"};
    struct Caso {
        std::size_t indice;
        std::string valore, messaggio;
    };
    const Caso casi[] = {
        {6, "11X53", "longitudine non valida: '11X53" + AttesaLon},
        {6, "190E00", "longitudine non valida: '190E00" + AttesaLon},
        {6, "11E75", "longitudine non valida: '11E75" + AttesaLon},
        {8, "91N00",
         "latitudine non valida: '91N00' (attesa come 45N24, 45N24'30 o 45.4152N, al "
         "massimo 90 gradi)"},
        {10, "uno", "fuso non valido: 'uno'"},
        {10, "20", "fuso fuori da -15..15 ore: 20"},
        {4, "25:00", "ora non valida: '25:00' (fuori da 00:00:00-23:59:59)"},
    };
    for (const auto& c : casi) {
        auto parole = base;
        parole[c.indice] = c.valore;
        Rifiuta(parole, c.messaggio);
    }
    Rifiuta({"tema", "--data", "21/12/2001", "--ora", "12:00"}, "manca l'opzione --lon");
    Rifiuta(Con(base, {"--luna", "marte"}), "luna non valida: 'marte' (geo o topo)");
    Rifiuta(Con(base, {"extra"}), "argomento inatteso: extra");
}

// The calendar runs from 1 January -4712 to 31 December 9999; anything outside, and numbers that
// would overflow once converted, are bad arguments.
TEST(CliArgomenti, LimitiDelCalendario) {
    const auto natale = [](const std::vector<std::string>& c) { return Con(c, test::Natale); };
    const std::vector<std::string> tropica{"rivoluzione", "--tipo", "tropica", "--anno", "2000"};
    const std::string oltre = "anni fuori dal calendario: la data diretta cade oltre -4712..9999: ";
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"jd", "31/12/-4713"}, "data non valida: '31/12/-4713' (anno fuori da -4712..9999)"},
        {{"jd", "1/1/10000"}, "data non valida: '1/1/10000' (anno fuori da -4712..9999)"},
        {{"jd", "15/5/-4998"}, "data non valida: '15/5/-4998' (anno fuori da -4712..9999)"},
        {{"data", "-0.5"}, "giorno giuliano fuori dall'intervallo 0-5373484.5: -0.5"},
        {{"data", "5373484.5"}, "giorno giuliano fuori dall'intervallo 0-5373484.5: 5373484.5"},
        {natale(Con(tropica, {"--mese", "13"})), "mese fuori da 1..12: 13"},
        {natale(Con(tropica, {"--mese", "0.5"})), "mese fuori da 1..12: 0.5"},
        {natale(Con(tropica, {"--giorno", "32"})), "giorno fuori da 1..31: 32"},
        {natale(Con(tropica, {"--giorno", "0"})), "giorno fuori da 1..31: 0"},
        {natale({"rivoluzione", "--tipo", "solare", "--anno", "10000"}),
         "anno fuori da -4712..9999: 10000"},
        {natale({"rivoluzione", "--tipo", "solare", "--anno", "1e30"}),
         "anno fuori da -4712..9999: 1e30"},
        {natale(Con(tropica, {"--grado", "1e30"})), "grado fuori da -360..360: 1e30"},
        {natale({"direzione", "--anni", "1e30"}), oltre + "1e30"},
        {natale({"direzione", "--anni", "-1e7"}), oltre + "-1e7"},
        {natale({"ingresso", "--pianeta", "Marte", "--bersaglio", "10", "--partenza", "-1"}),
         "partenza fuori dall'intervallo 0-5373484.5: -1"},
        {natale({"ingresso", "--pianeta", "Marte", "--bersaglio", "1e30", "--partenza", "2451545"}),
         "bersaglio fuori da 0..360: 1e30"},
    };
    for (const auto& [parole, messaggio] : casi)
        Rifiuta(parole, messaggio);
}

TEST(CliArgomenti, DataEOraDelTransito) {
    using Coppia = std::pair<std::string, std::string>;
    const std::pair<std::string, Coppia> casi[] = {
        {"1/1/2026 12:00", {"1/1/2026", "12:00"}},
        {"1/1/2026 ", {"1/1/2026", ""}},
        {"  1/1/2026   12:00  ", {"1/1/2026", "12:00"}},
        {"1/1/2026\t12:00", {"1/1/2026", "12:00"}},
        {"   ", {"", ""}},
    };
    for (const auto& [testo, atteso] : casi)
        EXPECT_EQ(cli::DividiDataOra(testo), atteso) << "'" << testo << "'";
}

#ifdef VESMO_CON_QT
TEST(CliRuota, TransitoConSpazioFinale) {
    test::CartellaLuoghi cartella;
    const std::string file = (cartella / "ruota.png").string();
    const auto base = Con({"ruota", "--out", file, "--size", "64"}, test::Natale);
    Esito e = Lancia(Con(base, {"--transito", "1/1/2026 ", "12:00"}));
    EXPECT_EQ(e.stato, 0) << e.err;
    EXPECT_TRUE(std::filesystem::exists(file));
    // Every command takes --json: the wheel tells the file it wrote, as the printed page does.
    Esito json = Lancia(Con(base, {"--json"}));
    EXPECT_EQ(json.stato, 0) << json.err;
    EXPECT_EQ(json.out, "{\"File\": [\"" + file + "\"]}\n");
    Rifiutato(Con(base, {"--transito", "1/1/2026 "}),
              "vesmo-cli ruota: --transito vuole data e ora: GG/MM/AAAA HH:MM\n");
    Rifiutato(Con(base, {"--transito", "1/1/2026 12:00", "--estiva-transito", "4"}),
              "vesmo-cli ruota: estiva-transito fuori da -3..3: 4\n");
}
#endif

// The aspect grid of 8 November 2000 at 18:00 UT. By the Swiss Ephemeris (Moshier): Sun
// 226.6395, Uranus 316.9687, a square 0.329 short; declinations 0.39 apart on one side: parallel.
TEST(CliAspetti, GrigliaEJson) {
    const auto tema = Con({"aspetti", "--data", "08/11/2000", "--ora", "18:00"},
                          {"--lon", "0E00", "--lat", "0N00", "--fuso", "0"});
    Esito e = Lancia(tema);
    ASSERT_EQ(e.stato, 0) << e.err;
    std::istringstream righe(e.out);
    std::vector<std::string> linee;
    for (std::string l; std::getline(righe, l);)
        linee.push_back(l);
    ASSERT_EQ(linee.size(), 4u + 31u);
    EXPECT_EQ(linee[2], "Orbita   2,5°");
    // 11 characters of row head, 19 a column; Uranus is the seventh column after the Sun.
    const std::size_t urano = 11 + 7 * 19;
    EXPECT_EQ(linee[4].substr(urano, 19), "Urano              ");
    EXPECT_EQ(linee[5].substr(0, 11), "Sole       ");
    EXPECT_EQ(linee[5].substr(urano, 18), "QUADRATURA        ");
    // The cells before it hold degree signs: columns are counted in characters.
    const auto colonna = linee[6].find("0,3°  0,4°P ");
    ASSERT_NE(colonna, std::string::npos) << linee[6];
    const std::string prima = linee[6].substr(0, colonna);
    EXPECT_EQ(std::count_if(prima.begin(), prima.end(),
                            [](unsigned char c) { return (c & 0xC0) != 0x80; }),
              static_cast<std::ptrdiff_t>(urano));

    Esito j = Lancia(Con(tema, {"--json"}));
    ASSERT_EQ(j.stato, 0) << j.err;
    EXPECT_NE(j.out.find("\"AspettiComparati\": false, \"Orbita\": 2.5"), std::string::npos);
    const std::string cella = "{\"Riga\": \"Sole\", \"Colonna\": \"Urano\", \"Nome\": "
                              "\"QUADRATURA       \", \"Angolo\": 90, \"Mancano\": ";
    const auto dove = j.out.find(cella);
    ASSERT_NE(dove, std::string::npos) << j.out.substr(0, 400);
    constexpr double TolleranzaGradi = 0.05; // degrees
    EXPECT_NEAR(std::strtod(j.out.c_str() + dove + cella.size(), nullptr), 0.329, TolleranzaGradi);
    EXPECT_NE(j.out.find("\"Marca\": \"P\"}", dove), std::string::npos);

    // A second chart twelve hours later: Pluto still meets itself, the Moon has moved on.
    Esito d = Lancia(Con(tema, {"--con-data", "09/11/2000", "--con-ora", "06:00", "--json"}));
    ASSERT_EQ(d.stato, 0) << d.err;
    EXPECT_NE(d.out.find("\"AspettiComparati\": true"), std::string::npos);
    EXPECT_NE(d.out.find("{\"Riga\": \"Plutone\", \"Colonna\": \"Plutone\", \"Nome\": "
                         "\"CONGIUNZIONE      \""),
              std::string::npos);
    EXPECT_EQ(d.out.find("{\"Riga\": \"Luna\", \"Colonna\": \"Luna\""), std::string::npos);

    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"--con-data", "09/11/2000"}, "manca l'opzione --con-ora"},
        {{"--con-ora", "06:00"}, "manca l'opzione --con-data"},
        {{"--con-estiva", "1"}, "--con-estiva va con --con-data e --con-ora"},
        {{"--con-data", "09/11/2000", "--con-ora", "06:00", "--con-estiva", "5"},
         "con-estiva fuori da -3..3: 5"},
        {{"--con-data", "32/11/2000", "--con-ora", "06:00"},
         "data non valida: '32/11/2000' (giorno inesistente nel mese)"},
        {{"--orbita", "-1"}, "orbita fuori da 0..180: -1"},
    };
    for (const auto& [aggiunte, messaggio] : casi)
        Rifiuta(Con(tema, aggiunte), messaggio);
}

// With --city the second chart takes the summer time of its own date from the places database:
// 10 April 1987 19:30 in Padova is TU 17:30, 1 January 1987 12:00 is TU 11:00.
TEST(CliAspetti, SecondoTemaDalDatabase) {
    test::CartellaLuoghi cartella;
    test::DatabasePadova(cartella / "Vesmodat.Mdb");
    Esito e = Lancia({"aspetti", "--data", "10/04/1987", "--ora", "19:30", "--city", "Padova",
                      "--db", (cartella / "Vesmodat.Mdb").string(), "--con-data", "01/01/1987",
                      "--con-ora", "12:00", "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    auto jd = [&](const std::string& lato) {
        const std::string chiave = "\"" + lato + "\": {\"Nome\": \"Tema\", \"JD\": ";
        const auto dove = e.out.find(chiave);
        EXPECT_NE(dove, std::string::npos) << lato;
        return dove == std::string::npos
                   ? 0.0
                   : std::strtod(e.out.c_str() + dove + chiave.size(), nullptr);
    };
    constexpr double TolleranzaGiorni = 1e-9; // days
    EXPECT_NEAR(jd("Righe"), 2446895.5 + 17.5 / 24, TolleranzaGiorni);
    EXPECT_NEAR(jd("Colonne"), 2446796.5 + 11.0 / 24, TolleranzaGiorni);
    Rifiutato({"aspetti", "--data", "10/04/1987", "--ora", "19:30", "--city", "Padova", "--db",
               (cartella / "Vesmodat.Mdb").string(), "--con-data", "01/01/1987", "--con-ora",
               "12:00", "--con-estiva", "1"},
              "vesmo-cli aspetti: --con-estiva non va con --city: l'ora estiva viene dal database "
              "dei luoghi\n");
}
