// vesmo-cli db on a small places database: the cleaning, the compaction, the copy and the lists.
#include <gtest/gtest.h>

#include "tests/places/AiutoCli.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

class CliDb : public ::testing::Test {
protected:
    void SetUp() override {
        Database d = test::DatabaseLuoghi(db);
        test::Aggiungi(d, {{380, "Padova", -0.79, 45.4, 1, 1}},
                       {{1, 1, 1, 1900, "-1", "00"},
                        {7, 1, 1, 1900, "-1", "00"},
                        {7, 1, 1, 1940, "-2", "00"},
                        {12000, 1, 1, 1900, "1", "00"}},
                       {{1, 29, 3, 1987, 2, 0, 1, 0}, {1, 27, 9, 1987, 3, 0, 0, 0}});
    }
    std::int64_t Conta(const std::string& sql) {
        Database d(db);
        Cursore c = Cursore::Sql(d, sql);
        return c.Campo(c.Campi().at(0)).Intero();
    }
    int Esegui(std::vector<std::string> parole) {
        return test::EseguiSuDatabase(std::move(parole), db, out, err);
    }
    test::CartellaLuoghi cartella;
    std::filesystem::path db = cartella / "Vesmodat.Mdb";
    std::string out, err;
};

TEST_F(CliDb, CleaningListsThenDeletes) {
    ASSERT_EQ(Esegui({"db", "pulizia", "fusi", "--json"}), 0) << err;
    EXPECT_EQ(out, "{\"Esaminate\": 4, \"Codici\": [7], \"Eliminate\": 0}\n");
    EXPECT_EQ(Conta("select count(*) from Fusi where cFusi = 7"), 2);
    ASSERT_EQ(Esegui({"db", "pulizia", "fusi", "--elimina"}), 0) << err;
    EXPECT_EQ(out, "4  Righe esaminate - (1 Codici da Eliminare)\n7\n2  Righe Eliminate da Fusi\n");
    EXPECT_FALSE(Database(db).EsisteIndice("AllCity", "IndFusi"));
    EXPECT_EQ(Conta("select count(*) from Fusi where cFusi = 7"), 0);
    ASSERT_EQ(Esegui({"db", "pulizia", "estive"}), 0) << err;
    EXPECT_EQ(out, "2  Righe esaminate - (0 Codici da Eliminare)\n");
}

TEST_F(CliDb, CopyListsAndCompaction) {
    ASSERT_EQ(Esegui({"db", "copia", "fusi", "--da", "7", "--a", "8"}), 0) << err;
    EXPECT_EQ(out, "2 righe di Fusi copiate da 7 a 8\n");
    ASSERT_EQ(Esegui({"db", "zona", "8", "--json"}), 0) << err;
    EXPECT_EQ(out, "[{\"cFusi\": 8, \"Day\": 1, \"Mese\": 1, \"Anno\": 1900, \"fH_h\": \"-1\", "
                   "\"fH_m\": \"00\"}, {\"cFusi\": 8, \"Day\": 1, \"Mese\": 1, \"Anno\": 1940, "
                   "\"fH_h\": \"-2\", \"fH_m\": \"00\"}]\n");
    ASSERT_EQ(Esegui({"db", "estive", "1"}), 0) << err;
    EXPECT_EQ(out.substr(0, out.find('\n')), " Cod         Dal           h:m         Estive");
    // A missing code: status 1; a refused copy: status 1 and the reason.
    EXPECT_EQ(Esegui({"db", "zona", "44"}), 1);
    EXPECT_EQ(Esegui({"db", "copia", "estive", "--da", "5", "--a", "6"}), 1);
    EXPECT_EQ(err, "vesmo-cli db: cEst(from) non valido !\n");
    // The compaction, and its failure told in one line.
    ASSERT_EQ(Esegui({"db", "compatta"}), 0) << err;
    EXPECT_FALSE(std::filesystem::exists(cartella / "Neo_Vesmodat.mdb"));
    std::filesystem::create_directory(cartella / "Neo_Vesmodat.mdb");
    EXPECT_EQ(Esegui({"db", "compatta"}), 1);
    EXPECT_EQ(err.rfind("vesmo-cli db: compattazione non riuscita", 0), 0u) << err;
    EXPECT_EQ(err.find('\n'), err.size() - 1);
}

TEST_F(CliDb, BadArguments) {
    for (const auto& parole :
         std::vector<std::vector<std::string>>{{"db"},
                                               {"db", "pulizia"},
                                               {"db", "pulizia", "nodi"},
                                               {"db", "copia", "fusi", "--da", "7"},
                                               {"db", "zona", "abc"},
                                               {"db", "zona", "-3"},
                                               {"db", "sposta"},
                                               {"db", "compatta", "--elimina"}}) {
        EXPECT_EQ(Esegui(parole), 2) << parole.back();
        EXPECT_EQ(err.find('\n'), err.size() - 1) << err;
    }
}

} // namespace
} // namespace vesmo
