// vesmo-cli as a script sees it: the answer on stdout, one line on stderr and status 2 for bad
// arguments.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Comandi.h"
#include "core/Aritmetica.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

using vesmo::cli::Esegui;

namespace {

struct Esito {
    int stato;
    std::string out, err;
};

Esito Lancia(std::vector<std::string> parole) {
    std::ostringstream out, err;
    int stato = Esegui(parole, out, err);
    return {stato, out.str(), err.str()};
}

} // namespace

TEST(CliCalendario, GiornoGiuliano) {
    EXPECT_EQ(Lancia({"jd", "15/10/1582"}).out, "2299160.500000\n");
    EXPECT_EQ(Lancia({"jd", "4/10/1582"}).out, "2299159.500000\n");
    EXPECT_EQ(Lancia({"jd", "01/01/2000", "12:00"}).out, "2451545.000000\n");
    EXPECT_EQ(Lancia({"jd", "01/01/2000", "18:00:00"}).out, "2451545.250000\n");
    EXPECT_EQ(Lancia({"jd", "01/01/-4712", "12:00"}).out, "0.000000\n");
    EXPECT_EQ(Lancia({"jd", "29/02/1500"}).stato, 0); // Julian leap year
    Esito j = Lancia({"jd", "01/01/2000", "12:00", "--json"});
    EXPECT_EQ(j.stato, 0);
    EXPECT_EQ(j.out, "{\"Data\": \"01/01/2000\", \"Ora\": \"12:00:00\", \"JD\": 2451545}\n");
}

TEST(CliCalendario, DataDaGiornoGiuliano) {
    EXPECT_EQ(Lancia({"data", "2451545"}).out, "01/01/2000 12:00:00\n");
    EXPECT_EQ(Lancia({"data", "2299160.5"}).out, "15/10/1582 00:00:00\n");
    EXPECT_EQ(Lancia({"data", "2299160.49999"}).out, "04/10/1582 23:59:59\n");
    EXPECT_EQ(Lancia({"data", "2436116.31"}).out, "04/10/1957 19:26:24\n");
    // A whole second just before midnight does not round into the next day's date.
    EXPECT_EQ(Lancia({"data", "2451545.4999942"}).out, "01/01/2000 23:59:59\n");
    EXPECT_EQ(Lancia({"data", "0"}).out, "01/01/-4712 12:00:00\n");
    Esito j = Lancia({"data", "2451545.25", "--json"});
    EXPECT_EQ(j.out, "{\"JD\": 2451545.25, \"Data\": \"01/01/2000\", \"Ora\": \"18:00:00\", "
                     "\"Anno\": 2000, \"Mese\": 1, \"Giorno\": 1.75}\n");
}

TEST(CliCalendario, ArgomentiSbagliati) {
    struct Caso {
        std::vector<std::string> parole;
        std::string err;
    };
    const Caso casi[] = {
        {{"jd", "31/02/2000"},
         "vesmo-cli jd: data non valida: '31/02/2000' (giorno inesistente nel mese)\n"},
        {{"jd", "29/02/1900"},
         "vesmo-cli jd: data non valida: '29/02/1900' (giorno inesistente nel mese)\n"},
        {{"jd", "1/13/2000"}, "vesmo-cli jd: data non valida: '1/13/2000' (mese fuori da 1-12)\n"},
        {{"jd", "2000-01-01"}, "vesmo-cli jd: data non valida: '2000-01-01' (atteso GG/MM/AAAA)\n"},
        {{"jd", "01/01/2000", "24:00"},
         "vesmo-cli jd: ora non valida: '24:00' (fuori da 00:00:00-23:59:59)\n"},
        {{"jd", "01/01/2000", "12h"}, "vesmo-cli jd: ora non valida: '12h' (atteso HH:MM[:SS])\n"},
        {{"jd"}, "vesmo-cli jd: uso: vesmo-cli jd GG/MM/AAAA [HH:MM[:SS]] [--json]\n"},
        {{"jd", "01/01/2000", "--xml"}, "vesmo-cli jd: opzione sconosciuta: --xml\n"},
        {{"data", "abc"}, "vesmo-cli data: giorno giuliano non valido: 'abc'\n"},
        {{"data", "2451545,5"}, "vesmo-cli data: giorno giuliano non valido: '2451545,5'\n"},
        {{"data", "1e300"}, "vesmo-cli data: giorno giuliano fuori dal calendario: 1e300\n"},
        {{"oroscopo"}, "vesmo-cli: comando sconosciuto: oroscopo\n"},
    };
    for (const auto& c : casi) {
        Esito e = Lancia(c.parole);
        EXPECT_EQ(e.stato, 2) << c.parole[0];
        EXPECT_EQ(e.err, c.err);
        EXPECT_EQ(e.out, "");
    }
    Esito vuoto = Lancia({});
    EXPECT_EQ(vuoto.stato, 2);
    EXPECT_NE(vuoto.err.find("uso: vesmo-cli"), std::string::npos);
}

TEST(CliTema, TabellaEJson) {
    const std::vector<std::string> padova{
        "tema",  "--data", "10/04/1987", "--ora",    "19:30", "--lon",  "11E53",       "--lat",
        "45N24", "--fuso", "-1",         "--estiva", "1",     "--nome", "Prova Padova"};
    Esito e = Lancia(padova);
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out.rfind("Prova Padova\n10/4/1987", 0), 0u);
    EXPECT_NE(e.out.find("\nSole       Ariete    20°  18' 49''"), std::string::npos) << e.out;
    auto json = padova;
    json.push_back("--json");
    Esito j = Lancia(json);
    ASSERT_EQ(j.stato, 0);
    EXPECT_EQ(j.out.rfind("{\"Tema\": {\"cNaz\": 0, \"Nome\": \"Prova Padova\"", 0), 0u);
    EXPECT_NE(j.out.find("\"TU\": 17.5, \"JD\": 2446896.2291666665"), std::string::npos) << j.out;
    EXPECT_NE(j.out.find("\"Posizioni\": {\"Sole\": {\"Lo\": 20.3"), std::string::npos);
    EXPECT_NE(j.out.find("\"Aspetti\": [{\"a\": \"Sole\""), std::string::npos);
    EXPECT_NE(j.out.find("\"Nome\": \"TRIGONO         \""), std::string::npos);
    // Decimal coordinates give the same chart as the sexagesimal ones.
    auto decimali = padova;
    decimali[6] = "11.883333E";
    decimali[8] = "45.4N";
    Esito d = Lancia(decimali);
    EXPECT_EQ(d.out.substr(d.out.find("\nSole")), e.out.substr(e.out.find("\nSole")));
}

TEST(CliTema, ArgomentiSbagliati) {
    std::vector<std::string> base{"tema",  "--data", "21/12/2001", "--ora",  "12:00", "--lon",
                                  "11E53", "--lat",  "45N24",      "--fuso", "0"};
    struct Caso {
        std::size_t indice;
        std::string valore, err;
    };
    const Caso casi[] = {
        {6, "11X53",
         "vesmo-cli tema: longitudine non valida: '11X53' (attesa come 11E53, 11E53'30 o "
         "11.8818E, al massimo 180 gradi)\n"},
        {6, "190E00",
         "vesmo-cli tema: longitudine non valida: '190E00' (attesa come 11E53, 11E53'30 o "
         "11.8818E, al massimo 180 gradi)\n"},
        {6, "11E75",
         "vesmo-cli tema: longitudine non valida: '11E75' (attesa come 11E53, 11E53'30 o "
         "11.8818E, al massimo 180 gradi)\n"},
        {8, "91N00",
         "vesmo-cli tema: latitudine non valida: '91N00' (attesa come 45N24, 45N24'30 o "
         "45.4152N, al massimo 90 gradi)\n"},
        {10, "uno", "vesmo-cli tema: fuso non valido: 'uno'\n"},
        {10, "20", "vesmo-cli tema: fuso fuori da -15..15 ore: 20\n"},
        {4, "25:00", "vesmo-cli tema: ora non valida: '25:00' (fuori da 00:00:00-23:59:59)\n"},
    };
    for (const auto& c : casi) {
        auto parole = base;
        parole[c.indice] = c.valore;
        Esito e = Lancia(parole);
        EXPECT_EQ(e.stato, 2) << c.valore;
        EXPECT_EQ(e.err, c.err);
    }
    Esito manca = Lancia({"tema", "--data", "21/12/2001", "--ora", "12:00"});
    EXPECT_EQ(manca.err, "vesmo-cli tema: manca l'opzione --lon\n");
    Esito luna = Lancia({"tema", "--data", "21/12/2001", "--ora", "12:00", "--lon", "1E00", "--lat",
                         "1N00", "--fuso", "0", "--luna", "marte"});
    EXPECT_EQ(luna.err, "vesmo-cli tema: luna non valida: 'marte' (geo o topo)\n");
}

TEST(CliTema, LuogoDalDatabase) {
    test::CartellaLuoghi cartella;
    {
        Database db = test::DatabaseLuoghi(cartella / "Vesmodat.Mdb");
        test::AggiungiCity(db, 380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1);
        test::AggiungiFuso(db, 1, 1, 1, 1900, "-1", "00");
        test::AggiungiEstiva(db, 1, 1, 1, 1900, 0, 0, 0, 0);
        test::AggiungiEstiva(db, 1, 29, 3, 1987, 2, 0, 1, 0);
        test::AggiungiEstiva(db, 1, 27, 9, 1987, 3, 0, 0, 0);
    }
    const std::string db = (cartella / "Vesmodat.Mdb").string();
    Esito e = Lancia({"tema", "--data", "10/04/1987", "--ora", "19:30", "--city", "Padova",
                      "--nazione", "Italy", "--db", db, "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    // The zone and the summer time of the database: the same chart as typed by hand.
    EXPECT_NE(e.out.find("\"City\": \"Padova\""), std::string::npos) << e.out;
    EXPECT_NE(e.out.find("\"Fuso\": -1, \"Estiva\": 1"), std::string::npos) << e.out;
    EXPECT_NE(e.out.find("\"TU\": 17.5"), std::string::npos);
    Esito mano = Lancia({"tema", "--data", "10/04/1987", "--ora", "19:30", "--lon", "11E53",
                         "--lat", "45N24", "--fuso", "-1", "--estiva", "1", "--json"});
    EXPECT_EQ(e.out.substr(e.out.find("\"Posizioni\"")),
              mano.out.substr(mano.out.find("\"Posizioni\"")));

    Esito ignoto =
        Lancia({"tema", "--data", "10/04/1987", "--ora", "19:30", "--city", "Zzz", "--db", db});
    EXPECT_EQ(ignoto.stato, 1);
    EXPECT_EQ(ignoto.err, "vesmo-cli tema: luogo sconosciuto: Zzz\n");
    Esito doppio = Lancia({"tema", "--data", "10/04/1987", "--ora", "19:30", "--city", "Padova",
                           "--lon", "11E53", "--db", db});
    EXPECT_EQ(doppio.stato, 2);
    EXPECT_EQ(doppio.err, "vesmo-cli tema: --lon non va con --city\n");
}
