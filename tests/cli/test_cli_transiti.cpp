// vesmo-cli transiti: the JSON records in local time across the start of summer time at a place
// of the places database, the table, and the refusals.
#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <regex>

#include "core/Aritmetica.h"
#include "tests/cli/Lancia.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;
using vesmo::test::Con;
using vesmo::test::Lancia;
using vesmo::test::Natale;
using vesmo::test::Rifiutato;

namespace {

// Local date and time of a Julian day at `ore` hours east of Greenwich, by the C library.
std::pair<std::string, std::string> Locale(double jd, int ore) {
    const auto secondi =
        static_cast<std::time_t>(std::llround((jd - 2440587.5) * 86400)) + ore * 3600;
    std::tm tm{};
    gmtime_r(&secondi, &tm);
    char d[16], o[16];
    std::strftime(d, sizeof d, "%d/%m/%Y", &tm);
    std::strftime(o, sizeof o, "%H:%M:%S", &tm);
    return {d, o};
}

} // namespace

// Padova, one hour east, summer time from 29 March 2026 at 2:00 local (1:00 TU).
TEST(CliTransiti, JsonInOraLocaleAttraversoLOraEstiva) {
    test::CartellaLuoghi cartella;
    const std::string db = (cartella / "Vesmodat.Mdb").string();
    {
        Database d = test::DatabaseLuoghi(db);
        test::Aggiungi(d, {{380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1}},
                       {{1, 1, 1, 1900, "-1", "00"}},
                       {{1, 1, 1, 1900, 0, 0, 0, 0},
                        {1, 29, 3, 2026, 2, 0, 1, 0},
                        {1, 25, 10, 2026, 3, 0, 0, 0}});
    }
    const auto e = Lancia({"transiti", "--city", "Padova", "--db", db, "--data", "10/04/1987",
                           "--ora", "19:30", "--da", "25/03/2026", "--a", "02/04/2026", "--pianeti",
                           "Sole,Luna", "--punti", "Sole,Asce,MC", "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    // Each record with its fields in this order.
    const std::regex record(
        R"x(\{"JD": ([0-9.]+), "Data": "([0-9/]+)", "Ora": "([0-9:]+)", "Pianeta": "(\w+)", )x"
        R"x("Retrogrado": (true|false), "Aspetto": "(\w+)", "Punto": "(\w+)", )x"
        R"x("JDIngresso": ([0-9.]+), "JDUscita": ([0-9.]+)\})x");
    ASSERT_EQ(e.out.rfind("{\"Transiti\": [", 0), 0u) << e.out.substr(0, 80);
    // The period runs from local midnight to local midnight, across the change.
    const double cambio = GiornoGiuliano(2026, 3, 29) + 1.0 / 24;
    const double da = GiornoGiuliano(2026, 3, 25) - 1.0 / 24;
    const double a = GiornoGiuliano(2026, 4, 3) - 2.0 / 24;
    int prima = 0, dopo = 0;
    for (std::sregex_iterator it(e.out.begin(), e.out.end(), record), fine; it != fine; ++it) {
        const std::smatch& r = *it;
        const double jd = std::stod(r[1]);
        EXPECT_TRUE(jd >= da && jd <= a) << jd;
        EXPECT_EQ(std::pair(r[2].str(), r[3].str()), Locale(jd, jd < cambio ? 1 : 2));
        EXPECT_TRUE(r[4] == "Sole" || r[4] == "Luna");
        EXPECT_EQ(r[5], "false");
        (jd < cambio ? prima : dopo)++;
    }
    EXPECT_GT(prima, 2);
    EXPECT_GT(dopo, 2);

    // The table: the period, the heads and a row for each record.
    auto tabella = Lancia({"transiti", "--city", "Padova", "--db", db, "--data", "10/04/1987",
                           "--ora", "19:30", "--da", "25/03/2026", "--a", "02/04/2026", "--pianeti",
                           "sole,LUNA", "--punti", "sole,asce,mc"});
    ASSERT_EQ(tabella.stato, 0) << tabella.err;
    EXPECT_NE(tabella.out.find("Periodo  25/03/2026 - 02/04/2026   Orbita 2.50\n"),
              std::string::npos);
    const auto righe = std::count(tabella.out.begin(), tabella.out.end(), '\n');
    EXPECT_EQ(righe, 4 + prima + dopo);
}

TEST(CliTransiti, Rifiuti) {
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"--orbita", "31"}, "orbita fuori da 0..30: 31"},
        {{"--pianeti", "Xyz"},
         "pianeta sconosciuto: 'Xyz' (Sole, Luna, Mercurio, Venere, Marte, Giove, Saturno, "
         "Urano, Nettuno, Plutone, NodoLuna)"},
        {{"--punti", "Sole,,MC"}, "--punti: elenco con un nome vuoto"},
        {{"--punti", "Vertice"},
         "punto sconosciuto: 'Vertice' (Sole..Plutone, NodoLuna, LilithMedia, LilithVera, Asce, "
         "MC)"},
        {{"--aspetti", "sestil"},
         "aspetto sconosciuto: 'sestil' (i nomi della tabella degli aspetti, come quadratura)"},
        {{"--da", "01/01/2026", "--a", "31/12/2025"}, "periodo vuoto: --a viene prima di --da"},
        {{"--da", "01/01/1800", "--a", "01/01/2026"},
         "periodo di oltre 200 anni: da dividere in più ricerche"},
    };
    for (const auto& [opzioni, messaggio] : casi)
        Rifiutato(Con(Con({"transiti"}, Natale), opzioni),
                  "vesmo-cli transiti: " + messaggio + "\n");
    // Pluto makes no conjunction to the natal Sun in a day: nothing found.
    const auto e = Lancia(Con(Con({"transiti"}, Natale),
                              {"--pianeti", "Plutone", "--punti", "Sole", "--aspetti",
                               "congiunzione", "--da", "01/01/2026", "--a", "01/01/2026"}));
    EXPECT_EQ(std::tuple(e.stato, e.out, e.err),
              std::tuple(1, "", "vesmo-cli transiti: nessun transito esatto nel periodo\n"));
}
