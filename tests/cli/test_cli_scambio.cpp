// vesmo-cli with the exchange formats, the search and the copies, on a places database that
// knows Padova with the Italian summer time of 1987.
#include <gtest/gtest.h>

#include "core/Aritmetica.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/cli/Lancia.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo::test {
namespace {

class CliScambio : public ConArchivi {
protected:
    void SetUp() override {
        fileDB = (cartella / "Vesmodat.Mdb").string();
        DatabasePadova(fileDB);
    }
    Esito Cli(std::vector<std::string> parole) {
        return Lancia(Con(std::move(parole), {"--db", fileDB}));
    }
};

TEST_F(CliScambio, AafCompletatoEsportatoInCsvEReimportato) {
    const std::string aaf = File("clienti.aaf", "#A93:Rossi,Mario,m,10.4.1987,19:30,Padova,I\n"
                                                "#A93:Ferber,Tobias,m,27.9.1970,11:04,Kandel,D\n"
                                                "#B93:*,49n05,8e11,1he,0\n"
                                                "#A93:Nessuno,*,m,10.4.1987,19:30,Atlantide,I\n");
    const std::string log = (cartella / "clienti.log").string();
    Esito i = Cli({"importa", aaf, "--formato", "aaf", "--log", log});
    ASSERT_EQ(i.stato, 0) << i.err;
    EXPECT_EQ(i.out, "Archivio   clienti (nuovo)\nFormato    aaf\nImportati  2\nCompletati 1\n"
                     "Doppi      0\nScartati   1\nLog        " +
                         log + "\n");

    const std::string csv = (cartella / "clienti.csv").string();
    Esito e = Cli({"esporta", "clienti", "--formato", "csv", "--out", csv, "--json"});
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out, "{\"Archivio\": \"clienti\", \"Formato\": \"csv\", \"File\": \"" + csv +
                         "\", \"Records\": 2}\n");
    // Both stand already: skipped, then taken again when asked.
    const std::string log2 = (cartella / "csv.log").string();
    Esito d =
        Cli({"importa", csv, "--formato", "csv", "--archivio", "clienti", "--log", log2, "--json"});
    EXPECT_NE(d.out.find("\"Importati\": 0, \"Completati\": 0, \"Doppi\": 2"), std::string::npos)
        << d.out;
    Esito d2 = Cli(
        {"importa", csv, "--formato", "csv", "--archivio", "clienti", "--doppi", "--log", log2});
    EXPECT_NE(d2.out.find("Importati  2\n"), std::string::npos) << d2.out;

    // The search: one of the two, then none.
    Esito c = Cli({"archivio", "clienti", "--cerca", "dal:1980 luogo:padova", "--json"});
    EXPECT_EQ(std::tuple(c.stato, c.out.find("Ferber")), std::tuple(0, std::string::npos));
    EXPECT_NE(c.out.find("Rossi, Mario"), std::string::npos);
    EXPECT_EQ(Cli({"archivio", "clienti", "--cerca", "commento:nulla"}).stato, 1);
    Rifiutato(Con({"archivio", "clienti", "--cerca", "dal:31/02/1980"}, {"--db", fileDB}),
              "vesmo-cli archivio: --cerca: data non valida: 31/02/1980\n");
    Rifiutato(Con({"importa", csv, "--formato", "xls"}, {"--db", fileDB}),
              "vesmo-cli importa: formato sconosciuto (sf, aaf o csv): xls\n");
}

TEST_F(CliScambio, SicurezzaERipristino) {
    ASSERT_EQ(
        Cli({"importa", File("a.aaf", "#A93:Rossi,Mario,m,10.4.1987,19:30,Padova,I\n"), "--formato",
             "aaf", "--archivio", "Clienti", "--log", (cartella / "a.log").string()})
            .stato,
        0);
    const std::string copia = (cartella / "copia.Mdb").string();
    Esito s = Cli({"db", "sicurezza", copia});
    ASSERT_EQ(s.stato, 0) << s.err;
    EXPECT_NE(s.out.find("Archivi  1\n"), std::string::npos) << s.out;
    Esito ancora = Cli({"db", "sicurezza", copia});
    EXPECT_EQ(ancora.stato, 1);
    EXPECT_EQ(ancora.err, "vesmo-cli db: il file esiste già: " + copia + "\n");
    Esito r = Cli({"db", "ripristina", copia, "Clienti", "--json"});
    ASSERT_EQ(r.stato, 0) << r.err;
    EXPECT_EQ(r.out, "[{\"Archivio\": \"Clienti\", \"Ripristinato\": \"Clienti_1\"}]\n");
    Esito a = Cli({"archivio", "Clienti_1", "--json"});
    EXPECT_NE(a.out.find("Rossi, Mario"), std::string::npos);
    Esito manca = Cli({"db", "ripristina", copia, "Nessuno"});
    EXPECT_EQ(manca.stato, 1);
}

} // namespace
} // namespace vesmo::test
