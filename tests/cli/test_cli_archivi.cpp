// vesmo-cli salva, archivi and archivio: a new archive, --doppio, the charts in index order, and
// the statuses of refusals and of what is not there.
#include <gtest/gtest.h>

#include "cli/Comandi.h"
#include "core/Testo.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/cli/Lancia.h"

using namespace vesmo;
using vesmo::test::Con;
using vesmo::test::Esito;
using vesmo::test::Righe;

namespace {

class CliArchivi : public vesmo::test::ConArchivi {
protected:
    Esito Lancia(std::vector<std::string> parole) {
        return vesmo::test::Lancia(Con(std::move(parole), {"--db", fileDB}));
    }
    // The words of `salva` for a chart of 10 April 1987 at `ora` in Padova, then `altro`.
    static std::vector<std::string> Tema(const std::vector<std::string>& altro,
                                         const char* ora = "19:30") {
        return Con({"salva", "--data", "10/04/1987", "--ora", ora, "--lon", "11E53", "--lat",
                    "45N24", "--fuso", "-1", "--estiva", "1"},
                   altro);
    }
    Esito Salva(const std::string& nome, const std::string& archivio,
                const std::vector<std::string>& altro = {}) {
        return Lancia(Tema(Con({"--nome", nome, "--archivio", archivio}, altro)));
    }
};

} // namespace

TEST_F(CliArchivi, SalvaInUnArchivioNuovoELoElenca) {
    // No archive yet: nothing to list.
    Esito vuoto = Lancia({"archivi"});
    EXPECT_EQ(std::tuple(vuoto.stato, Righe(vuoto.err)), std::tuple(1, 1));

    Esito e = Salva("Carla", "Amici");
    EXPECT_EQ(e.stato, 0) << e.err;
    EXPECT_NE(e.out.find("Archivio  Amici  (creato)\n"), std::string::npos) << e.out;
    EXPECT_EQ(Salva("Anna", "Amici").stato, 0);
    EXPECT_EQ(
        Salva("Bruno", "Amici", {"--json"})
            .out.rfind("{\"Archivio\": \"Amici\", \"Creato\": false, \"Esito\": \"aggiunto\"", 0),
        0u);

    EXPECT_EQ(Lancia({"archivi"}).out, "Amici  3\n");
    EXPECT_EQ(Lancia({"archivi", "--json"}).out, "[{\"Archivio\": \"Amici\", \"Temi\": 3}]\n");

    // The charts in index order, with the ten fields: 10 April 1987 at 0h is JD 2446895.5,
    // 11°53' east is 0.79222 hours east (negative), 45°24' north 45.4 degrees.
    Esito j = Lancia({"archivio", "Amici", "--json"});
    EXPECT_EQ(j.stato, 0);
    EXPECT_EQ(j.out.rfind("[{\"Nome\": \"Anna                          \", \"City\": \"", 0), 0u)
        << j.out;
    EXPECT_LT(j.out.find("Bruno "), j.out.find("Carla "));
    EXPECT_NE(j.out.find("\"Day\": 2446895.5, \"OraL\": 19.5, \"Lon\": -0.79222222222222"),
              std::string::npos)
        << j.out;
    EXPECT_NE(j.out.find("\"Lat\": 45.4, \"Fuso\": -1, \"Estiva\": 1, \"Cmto\": \"\"}"),
              std::string::npos)
        << j.out;
    Esito t = Lancia({"archivio", "amici"});
    // The head and three charts.
    EXPECT_EQ(std::tuple(t.stato, Righe(t.out), t.out.find("Nome")), std::tuple(0, 4, 0u));
}

TEST_F(CliArchivi, NomeDoppio) {
    ASSERT_EQ(Salva("Anna", "Amici").stato, 0);
    // Refused: one line, status 1, nothing written.
    Esito e = Salva("Anna", "Amici");
    EXPECT_EQ(std::tuple(e.stato, Righe(e.err), e.out), std::tuple(1, 1, ""));
    EXPECT_EQ(Lancia({"archivi"}).out, "Amici  1\n");

    EXPECT_EQ(Salva("Anna", "Amici", {"--doppio", "aggiungi"}).stato, 0);
    EXPECT_EQ(
        Lancia(Tema({"--nome", "Anna", "--archivio", "Amici", "--doppio", "sovrascrivi"}, "08:00"))
            .stato,
        0);
    EXPECT_EQ(Lancia({"archivi"}).out, "Amici  2\n");
    // The first of the two is rewritten, the second stays.
    Esito j = Lancia({"archivio", "Amici", "--json"});
    EXPECT_LT(j.out.find("\"OraL\": 8,"), j.out.find("\"OraL\": 19.5,")) << j.out;
}

TEST_F(CliArchivi, ArgomentiSbagliatiENomiRifiutati) {
    ASSERT_EQ(Salva("Anna", "Amici").stato, 0);
    const std::pair<std::vector<std::string>, int> casi[] = {
        {Tema({"--nome", "Ugo", "--archivio", "AMICI"}), 2}, // equal but for case to an archive
        {Tema({"--nome", "Ugo", "--archivio", "Amici", "--doppio", "forse"}), 2},
        {Tema({}), 2}, // no archive
        {{"archivio"}, 2},
        {{"archivio", "Nessuno"}, 1},
        {{"archivio", "Nazioni"}, 1}, // a places table, not an archive
        {{"archivi", "extra"}, 2},
    };
    for (const auto& [parole, stato] : casi) {
        Esito e = Lancia(parole);
        EXPECT_EQ(std::tuple(e.stato, Righe(e.err)), std::tuple(stato, 1))
            << parole.back() << ": " << e.err;
    }
    EXPECT_EQ(Lancia({"archivi"}).out, "Amici  1\n");
}

// Quotes, statement words and bytes that are no UTF-8 in the names: stored as typed; the JSON is
// valid UTF-8 with the quotes escaped and U+FFFD for each bad byte, stored or typed.
TEST_F(CliArchivi, NomiOstiliNelJson) {
    const std::string nome = "O'Brien (x) ; drop --";
    EXPECT_EQ(Salva("D'Annunzio \"Vate\" Ro\xffssi \xc3(", nome).stato, 0);
    EXPECT_EQ(Lancia({"archivi"}).out, nome + "  1\n");
    for (const auto& parole :
         {std::vector<std::string>{"archivio", nome, "--json"},
          Con(Con({"tema"}, vesmo::test::Natale), {"--nome", "a\xff\xfe", "--json"})}) {
        Esito j = Lancia(parole);
        ASSERT_EQ(j.stato, 0) << j.err;
        EXPECT_TRUE(TestoUtf8Valido(j.out)) << j.out;
        EXPECT_NE(j.out.find("\xef\xbf\xbd"), std::string::npos) << j.out;
    }
    EXPECT_NE(Lancia({"archivio", nome, "--json"}).out.find("D'Annunzio \\\"Vate\\\""),
              std::string::npos);
}
