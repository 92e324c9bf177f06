// The database file: tables and indexes, statements, copies, compaction, and the key folding.
#include "core/store/Chiave.h"
#include "core/store/Connessione.h"
#include "core/store/Cursore.h"
#include "tests/core/store/Cartella.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace vesmo {
namespace {

using test::NumeroErrore;
namespace fs = std::filesystem;

std::string Contenuto(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

const std::vector<DefCampo> CampiArchivio{
    {"Nome", TipoCampo::Testo, 30},    {"City", TipoCampo::Testo, 30},
    {"Nazione", TipoCampo::Testo, 38}, {"Day", TipoCampo::Doppio},
    {"OraL", TipoCampo::Doppio},       {"Cmto", TipoCampo::Memo, 0, true},
    {"Anno", TipoCampo::Intero16},     {"Vivo", TipoCampo::Booleano},
    {"Quando", TipoCampo::DataOra},    {"Piccolo", TipoCampo::Byte},
    {"Codice", TipoCampo::Intero32},   {"Peso", TipoCampo::Singolo},
};

void Scrivi(Database& db, const std::string& tabella, const std::string& nome, double giorno) {
    Cursore c(db, tabella);
    c.AddNew();
    c.Imposta("Nome", nome);
    c.Imposta("Day", giorno);
    c.Imposta("Cmto", "");
    c.Update();
}

class File : public ::testing::Test {
protected:
    void SetUp() override {
        db.Crea(dir / "Vesmodat.Mdb");
        db.CreaTabella("Amici", CampiArchivio, {{"indNome", {"Nome"}}});
        Scrivi(db, "Amici", "Anna", 2451545);
        Scrivi(db, "Amici", "bruno", 2451546.5);
        Scrivi(db, "Amici", "Carla", 2451547);
    }
    test::Cartella dir;
    Database db;
};

TEST_F(File, OpenAndCreate) {
    Database altro;
    EXPECT_EQ(NumeroErrore([&] { altro.Apri(dir / "manca.mdb"); }), ErroreDB::FileNonTrovato);
    EXPECT_FALSE(fs::exists(dir / "manca.mdb"));
    EXPECT_EQ(NumeroErrore([&] { altro.Crea(db.Percorso()); }), ErroreDB::DatabaseEsistente);
    altro.Apri(db.Percorso());
    EXPECT_EQ(Cursore(altro, "amici").RecordCount(), 3);
    altro.Chiudi();
    EXPECT_FALSE(altro.Aperto());
    EXPECT_EQ(NumeroErrore([&] { Cursore(db, "Nemici"); }), ErroreDB::TabellaNonTrovata);
}

TEST_F(File, TablesFieldsAndIndexesByName) {
    db.CreaTabella("zeta", {{"x", TipoCampo::Intero32}});
    db.CreaTabella("Beta", CampiArchivio,
                   {{"indNome", {"Nome"}}, {"Chiave", {"Codice"}, true, true}});
    EXPECT_EQ(db.Tabelle(), (std::vector<std::string>{"Amici", "Beta", "zeta"}));
    EXPECT_TRUE(db.EsisteTabella("BETA"));
    EXPECT_EQ(db.Campi("Beta"), CampiArchivio);
    // The same index name on two tables; names of indexes ignore case.
    EXPECT_EQ(db.Indici("Beta"),
              (std::vector<DefIndice>{{"Chiave", {"Codice"}, true, true}, {"indNome", {"Nome"}}}));
    EXPECT_TRUE(db.EsisteIndice("Amici", "INDNOME"));
    EXPECT_EQ(NumeroErrore([&] {
                  db.CreaTabella("ZETA", {{"y", TipoCampo::Doppio}});
              }),
              ErroreDB::TabellaEsistente);
    EXPECT_EQ(NumeroErrore([&] { db.CreaIndice("Beta", "INDNOME", {"City"}); }),
              ErroreDB::IndiceEsistente);
    EXPECT_EQ(NumeroErrore([&] { db.CreaIndice("Beta", "iX", {"Manca"}); }),
              ErroreDB::ElementoNonTrovato);

    db.EliminaIndice("Amici", "indNome");
    Cursore c(db, "Amici");
    EXPECT_EQ(NumeroErrore([&] { c.Index("indNome"); }), ErroreDB::IndiceNonValido);
    EXPECT_EQ(NumeroErrore([&] { db.EliminaIndice("Amici", "indNome"); }),
              ErroreDB::ElementoNonTrovato);
    db.EliminaTabella("zeta");
    EXPECT_FALSE(db.EsisteTabella("zeta"));
    EXPECT_EQ(NumeroErrore([&] { db.EliminaTabella("zeta"); }), ErroreDB::TabellaNonTrovata);
    // A table with a failing index is not created at all.
    db.CreaTabella("Doppi", {{"n", TipoCampo::Intero32}});
    EXPECT_EQ(NumeroErrore([&] {
                  db.CreaTabella("Tripli", {{"n", TipoCampo::Intero32}}, {{"i", {"manca"}}});
              }),
              ErroreDB::ElementoNonTrovato);
    EXPECT_FALSE(db.EsisteTabella("Tripli"));
}

TEST_F(File, StatementsReturnRecordsAffected) {
    EXPECT_EQ(db.Esegui("UPDATE Amici SET Anno = 1990 WHERE Day > 2451545"), 2);
    EXPECT_EQ(db.Esegui("DELETE FROM Amici WHERE Nome = 'BRUNO'"), 1); // text ignores case
    EXPECT_EQ(Cursore(db, "Amici").RecordCount(), 2);
    EXPECT_EQ(NumeroErrore([&] { db.Esegui("SELEC nonsense"); }), ErroreDB::ErroreMotore);
}

TEST_F(File, SelectIntoFromAnotherFile) {
    Database altro;
    altro.Crea(dir / "AstDbTmp.mdb");
    altro.CreaTabella("Compleanni", CampiArchivio, {{"indNome", {"Nome"}}});
    Scrivi(altro, "Compleanni", "Dario", 2440000);
    Scrivi(altro, "Compleanni", "Elena", 2440001);
    altro.Chiudi();

    std::string sql =
        "select * into Compleanni from [;database=" + (dir / "AstDbTmp.mdb").string() +
        "].Compleanni";
    EXPECT_EQ(db.Esegui(sql), 2);
    EXPECT_EQ(db.Campi("Compleanni"), CampiArchivio);
    EXPECT_TRUE(db.Indici("Compleanni").empty()); // indexes are the caller's to copy
    Cursore c(db, "Compleanni");
    EXPECT_EQ(c.Campo("Nome").Testo(), "Dario");
    EXPECT_EQ(c.Campo("Day").Numero(), 2440000);
    EXPECT_EQ(NumeroErrore([&] { db.Esegui(sql); }), ErroreDB::TabellaEsistente);
    EXPECT_EQ(
        NumeroErrore([&] { db.SelectIntoDaAltroFile("Nuova", dir / "AstDbTmp.mdb", "Manca"); }),
        ErroreDB::TabellaNonTrovata);
    EXPECT_EQ(NumeroErrore([&] { db.SelectIntoDaAltroFile("Nuova", dir / "manca.mdb", "X"); }),
              ErroreDB::FileNonTrovato);
    EXPECT_FALSE(fs::exists(dir / "manca.mdb"));
    EXPECT_FALSE(db.EsisteTabella("Nuova"));
}

TEST_F(File, SelectIntoWithBracketsBlanksAndAnyLength) {
    Database altro;
    altro.Crea(dir / "Ast Db.mdb");
    altro.CreaTabella("Compleanni", CampiArchivio);
    Scrivi(altro, "Compleanni", "Dario", 2440000);
    altro.Chiudi();
    EXPECT_EQ(db.Esegui("  SELECT *  INTO [Nuova Tabella]\tFROM [;DATABASE=" +
                        (dir / "Ast Db.mdb").string() + "].[Compleanni] ; "),
              1);
    EXPECT_EQ(Cursore(db, "Nuova Tabella").Campo("Nome").Testo(), "Dario");
    // Statements of any length reach the engine, which refuses them in one error.
    const std::string lungo(30000, '(');
    EXPECT_EQ(NumeroErrore([&] { db.Esegui("select * into x from [;database=" + lungo); }),
              ErroreDB::ErroreMotore);
    EXPECT_EQ(NumeroErrore([&] { db.Esegui("select " + lungo); }), ErroreDB::ErroreMotore);
    EXPECT_EQ(NumeroErrore([&] {
                  db.Esegui("select * into " + std::string(30000, 'x') +
                            " from [;database=" + (dir / "manca.mdb").string() + "].T");
              }),
              ErroreDB::FileNonTrovato);
}

// A file that cannot be used says why: locked by another connection, read-only, or no
// database at all; the name of a table is not blamed.
TEST_F(File, EngineFailuresNameTheirCause) {
    const fs::path file = dir / "Vesmodat.Mdb";
    db.Esegui("BEGIN EXCLUSIVE");
    db.Esegui("INSERT INTO Amici (Nome) VALUES ('Dora')");
    std::string testo;
    try {
        Database altro;
        altro.ImpostaAttesaBlocco(50);
        altro.Apri(file);
        altro.CreaTabella("Nuova", CampiArchivio);
    } catch (const ErroreDB& e) {
        EXPECT_EQ(e.Numero(), ErroreDB::Bloccato);
        testo = e.what();
    }
    EXPECT_EQ(testo.rfind("3218: Database bloccato da un altro programma. ", 0), 0u) << testo;
    db.Esegui("COMMIT");
    db.Chiudi();

    const fs::path testoSemplice = dir / "note.txt";
    std::ofstream(testoSemplice) << std::string(4096, 'x');
    EXPECT_EQ(NumeroErrore([&] { Database x(testoSemplice); }), ErroreDB::FormatoNonRiconosciuto);

    // Last, as a user who passes the permissions may find no way to make a file read-only.
    test::FileSolaLettura solaLettura(file);
    if (!solaLettura.Riuscito()) GTEST_SKIP() << "no read-only file for this user here";
    Database letto(file);
    EXPECT_EQ(Cursore(letto, "Amici").RecordCount(), 4); // reading goes on
    testo.clear();
    try {
        letto.CreaTabella("Nuova", CampiArchivio);
    } catch (const ErroreDB& e) {
        EXPECT_EQ(e.Numero(), ErroreDB::SolaLettura);
        testo = e.what();
    }
    EXPECT_EQ(testo.rfind("3027: Database di sola lettura. ", 0), 0u) << testo;
}

// A full disk in the middle of a transaction: the engine has rolled it back, the rollback that
// follows raises nothing, the cause is the full disk, and the file holds what it held before.
TEST_F(File, FullDiskInATransactionTellsTheDiskAndKeepsTheFile) {
    const auto prima = Cursore(db, "Amici").RecordCount();
    const auto pagine = std::filesystem::file_size(dir / "Vesmodat.Mdb") / 4096;
    db.Esegui("PRAGMA max_page_count = " + std::to_string(pagine + 2));
    std::string testo;
    db.IniziaTransazione();
    try {
        db.CreaTabella("Grande", {{"t", TipoCampo::Memo, 0, true}});
        for (int i = 0; i < 1000; ++i)
            db.Esegui("INSERT INTO Grande (t) VALUES ('" + std::string(1000, 'g') + "')");
        ADD_FAILURE() << "the file never filled";
    } catch (const ErroreDB& e) {
        EXPECT_EQ(e.Numero(), ErroreDB::DiscoPieno);
        testo = e.what();
        EXPECT_NO_THROW(db.AnnullaTransazione());
    }
    EXPECT_EQ(testo.rfind("3026: Disco pieno. ", 0), 0u) << testo;
    EXPECT_FALSE(db.EsisteTabella("Grande"));
    EXPECT_EQ(Cursore(db, "Amici").RecordCount(), prima);
    // A rollback with nothing to roll back is no error either.
    EXPECT_NO_THROW(db.AnnullaTransazione());
}

// The check before a write: a sound file passes, a damaged one is named and refused; a file that
// can only be read says so.
TEST_F(File, DamagedFileIsRefusedBeforeWriting) {
    EXPECT_NO_THROW(db.VerificaPrimaDiScrivere());
    EXPECT_FALSE(db.SolaLettura());
    db.CreaTabella("Zavorra", {{"t", TipoCampo::Memo, 0, true}});
    for (int i = 0; i < 100; ++i)
        db.Esegui("INSERT INTO Zavorra (t) VALUES ('" + std::string(500, 'z') + "')");
    db.Chiudi();
    const fs::path file = dir / "Vesmodat.Mdb";
    test::DanneggiaUltimaPagina(file);
    Database danneggiato(file);
    std::string testo;
    try {
        danneggiato.VerificaPrimaDiScrivere();
    } catch (const ErroreDB& e) {
        EXPECT_EQ(e.Numero(), ErroreDB::FormatoNonRiconosciuto);
        testo = e.what();
    }
    EXPECT_EQ(
        testo.rfind("3343: Il file " + file.string() + " è danneggiato: nessuna scrittura", 0), 0u)
        << testo;
    danneggiato.Chiudi();

    test::FileSolaLettura solaLettura(file);
    if (!solaLettura.Riuscito()) GTEST_SKIP() << "no read-only file for this user here";
    EXPECT_TRUE(Database(file).SolaLettura());
}

TEST_F(File, CompactionCopiesTablesAndIndexes) {
    db.Esegui("DELETE FROM Amici WHERE Nome = 'Anna'");
    db.Chiudi();
    fs::path neo = dir / "Neo_Vesmodat.mdb";
    Database::Compatta(dir / "Vesmodat.Mdb", neo);
    Database copia(neo);
    Cursore c(copia, "Amici");
    c.Index("indNome");
    c.Seek("=", "BRUNO");
    EXPECT_EQ(c.Campo("Nome").Testo(), "bruno");
    EXPECT_EQ(c.RecordCount(), 2);
    c.Chiudi();
    copia.Chiudi();

    Database::CompattaSulPosto(dir / "Vesmodat.Mdb", dir / "lavoro.mdb");
    EXPECT_FALSE(fs::exists(dir / "lavoro.mdb"));
    Database dopo(dir / "Vesmodat.Mdb");
    EXPECT_EQ(Cursore(dopo, "Amici").RecordCount(), 2);
}

TEST_F(File, FailedCompactionKeepsTheSourceWhole) {
    db.Chiudi();
    fs::path sorgente = dir / "Vesmodat.Mdb";
    std::string prima = Contenuto(sorgente);
    // A target that exists is left alone.
    std::ofstream(dir / "Neo_Vesmodat.mdb") << "non toccare";
    EXPECT_EQ(NumeroErrore([&] { Database::Compatta(sorgente, dir / "Neo_Vesmodat.mdb"); }),
              ErroreDB::DatabaseEsistente);
    EXPECT_EQ(Contenuto(dir / "Neo_Vesmodat.mdb"), "non toccare");
    // A target in a folder that does not exist cannot be written.
    fs::path irraggiungibile = dir / "manca" / "Neo_Vesmodat.mdb";
    EXPECT_NE(NumeroErrore([&] { Database::Compatta(sorgente, irraggiungibile); }), 0);
    EXPECT_NE(NumeroErrore([&] { Database::CompattaSulPosto(sorgente, irraggiungibile); }), 0);
    EXPECT_FALSE(fs::exists(irraggiungibile));
    EXPECT_EQ(Contenuto(sorgente), prima);
    Database ancora(sorgente);
    EXPECT_EQ(Cursore(ancora, "Amici").RecordCount(), 3);
}

TEST(Chiave, FoldsCaseAndAccentsOnly) {
    using store_detail::PiegaTesto;
    EXPECT_EQ(PiegaTesto("Città"), "citta");
    EXPECT_EQ(PiegaTesto("ÀÉÎÕÜ àéîõü Ç ñ"), "aeiou aeiou c n");
    EXPECT_EQ(PiegaTesto("Straße Œuvre Æbeltoft Łódź Ștefănești"),
              "strasse oeuvre aebeltoft lodz stefanesti");
    EXPECT_EQ(PiegaTesto("Αθήνα МОСКВА"), "αθήνα москва");
    EXPECT_EQ(PiegaTesto("Roma  (RM) 1-2"), "roma  (rm) 1-2");
    EXPECT_EQ(PiegaTesto("Citt\xE0"), "citta"); // a Latin-1 byte outside UTF-8
    EXPECT_EQ(PiegaTesto("e\xCC\x81"), "e");    // a combining accent
}

TEST(Chiave, EncodedKeysKeepTheOrderOfValues) {
    using namespace store_detail;
    auto k = [](std::vector<Valore> v) {
        std::string s;
        for (const Valore& x : v)
            CodificaValore(s, x);
        return s;
    };
    // Null first, then numbers (whole and decimal together), then texts.
    std::vector<std::vector<Valore>> ordine{{Valore()}, {-1e300}, {-2},     {-1.5}, {0},
                                            {0.25},     {1},      {1.5},    {2},    {1e300},
                                            {""},       {"a"},    {"a", 5}, {"ab"}, {"b"}};
    for (std::size_t i = 0; i + 1 < ordine.size(); ++i)
        EXPECT_LT(k(ordine[i]), k(ordine[i + 1])) << i;
    EXPECT_EQ(k({-0.0}), k({0}));
    EXPECT_EQ(k({2}), k({2.0}));
    // Leading fields compare first whatever follows them.
    EXPECT_LT(k({"a", 9}), k({"a\x01", 1}));
    EXPECT_LT(k({1, "zzz"}), k({2, ""}));
    EXPECT_EQ(SuccessorePrefisso("ab\xFF\xFF"), "ac");
}

} // namespace
} // namespace vesmo
