// The database file: tables and indexes, statements, copies, compaction, and the key folding.
#include "core/store/Chiave.h"
#include "core/store/Connessione.h"
#include "core/store/Cursore.h"
#include "tests/core/store/Cartella.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
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

// The message of the database error `f` raises, which must be `numero`.
std::string Testo(int numero, auto&& f) {
    try {
        f();
    } catch (const ErroreDB& e) {
        EXPECT_EQ(e.Numero(), numero);
        return e.what();
    }
    ADD_FAILURE() << "no error " << numero;
    return "";
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
    EXPECT_FALSE(altro.SolaLettura());
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
    const std::vector<DefCampo> uno{{"n", TipoCampo::Intero32}};
    const std::vector<DefIndice> indiceSbagliato{{"i", {"manca"}}};
    const std::pair<int, std::function<void()>> rifiutati[] = {
        {ErroreDB::TabellaEsistente, [&] { db.CreaTabella("ZETA", uno); }},
        {ErroreDB::IndiceEsistente, [&] { db.CreaIndice("Beta", "INDNOME", {"City"}); }},
        {ErroreDB::ElementoNonTrovato, [&] { db.CreaIndice("Beta", "iX", {"Manca"}); }},
        {ErroreDB::ElementoNonTrovato, [&] { db.EliminaIndice("Amici", "manca"); }},
        {ErroreDB::TabellaNonTrovata, [&] { db.EliminaTabella("manca"); }},
        // A table with a failing index is not created at all.
        {ErroreDB::ElementoNonTrovato, [&] { db.CreaTabella("Tripli", uno, indiceSbagliato); }},
    };
    for (const auto& [numero, f] : rifiutati)
        EXPECT_EQ(NumeroErrore(f), numero);
    EXPECT_FALSE(db.EsisteTabella("Tripli"));
    db.EliminaIndice("Amici", "indNome");
    EXPECT_EQ(NumeroErrore([&] { Cursore(db, "Amici").Index("indNome"); }),
              ErroreDB::IndiceNonValido);
    db.EliminaTabella("zeta");
    EXPECT_FALSE(db.EsisteTabella("zeta"));
}

TEST_F(File, StatementsAndSelectIntoFromAnotherFile) {
    EXPECT_EQ(db.Esegui("UPDATE Amici SET Anno = 1990 WHERE Day > 2451545"), 2);
    EXPECT_EQ(db.Esegui("DELETE FROM Amici WHERE Nome = 'BRUNO'"), 1); // text ignores case
    EXPECT_EQ(NumeroErrore([&] { db.Esegui("SELEC nonsense"); }), ErroreDB::ErroreMotore);

    Database altro;
    altro.Crea(dir / "Ast Db.mdb");
    altro.CreaTabella("Compleanni", CampiArchivio, {{"indNome", {"Nome"}}});
    Scrivi(altro, "Compleanni", "Dario", 2440000);
    Scrivi(altro, "Compleanni", "Elena", 2440001);
    altro.Chiudi();
    const std::string sql =
        "  SELECT *  INTO [Nuova Tabella]\tFROM [;DATABASE=" + (dir / "Ast Db.mdb").string() +
        "].[Compleanni] ; ";
    EXPECT_EQ(db.Esegui(sql), 2);
    EXPECT_EQ(db.Campi("Nuova Tabella"), CampiArchivio);
    EXPECT_TRUE(db.Indici("Nuova Tabella").empty()); // indexes are the caller's to copy
    Cursore c(db, "Nuova Tabella");
    EXPECT_EQ(c.Campo("Nome").Testo(), "Dario");
    EXPECT_EQ(c.Campo("Day").Numero(), 2440000);
    EXPECT_EQ(NumeroErrore([&] { db.Esegui(sql); }), ErroreDB::TabellaEsistente);
    EXPECT_EQ(NumeroErrore([&] { db.SelectIntoDaAltroFile("N", dir / "Ast Db.mdb", "Manca"); }),
              ErroreDB::TabellaNonTrovata);
    EXPECT_EQ(NumeroErrore([&] { db.SelectIntoDaAltroFile("N", dir / "manca.mdb", "X"); }),
              ErroreDB::FileNonTrovato);
    EXPECT_FALSE(fs::exists(dir / "manca.mdb"));
    EXPECT_FALSE(db.EsisteTabella("N"));
    // Statements of any length reach the engine, which refuses them in one error.
    const std::string lungo(30000, '(');
    EXPECT_EQ(NumeroErrore([&] { db.Esegui("select * into x from [;database=" + lungo); }),
              ErroreDB::ErroreMotore);
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
    const std::string bloccato = Testo(ErroreDB::Bloccato, [&] {
        Database altro;
        altro.ImpostaAttesaBlocco(50);
        altro.Apri(file);
        altro.CreaTabella("Nuova", CampiArchivio);
    });
    EXPECT_EQ(bloccato.rfind("3218: Database bloccato da un altro programma. ", 0), 0u) << bloccato;
    db.Esegui("COMMIT");
    db.Chiudi();

    std::ofstream(dir / "note.txt") << std::string(4096, 'x');
    EXPECT_EQ(NumeroErrore([&] { Database x(dir / "note.txt"); }),
              ErroreDB::FormatoNonRiconosciuto);

    // Last, as a user who passes the permissions may find no way to make a file read-only.
    test::FileSolaLettura solaLettura(file);
    if (!solaLettura.Riuscito()) GTEST_SKIP() << "no read-only file for this user here";
    Database letto(file);
    EXPECT_TRUE(letto.SolaLettura());
    EXPECT_EQ(Cursore(letto, "Amici").RecordCount(), 4); // reading goes on
    const std::string testo =
        Testo(ErroreDB::SolaLettura, [&] { letto.CreaTabella("Nuova", CampiArchivio); });
    EXPECT_EQ(testo.rfind("3027: Database di sola lettura. ", 0), 0u) << testo;
}

// A full disk in the middle of a transaction: the engine has rolled it back, the rollback that
// follows raises nothing, and the file holds what it held before.
TEST_F(File, FullDiskInATransactionTellsTheDiskAndKeepsTheFile) {
    const auto pagine = std::filesystem::file_size(dir / "Vesmodat.Mdb") / 4096;
    db.Esegui("PRAGMA max_page_count = " + std::to_string(pagine + 2));
    db.IniziaTransazione();
    const std::string testo = Testo(ErroreDB::DiscoPieno, [&] {
        db.CreaTabella("Grande", {{"t", TipoCampo::Memo, 0, true}});
        for (int i = 0; i < 1000; ++i)
            db.Esegui("INSERT INTO Grande (t) VALUES ('" + std::string(1000, 'g') + "')");
    });
    EXPECT_EQ(testo.rfind("3026: Disco pieno. ", 0), 0u) << testo;
    EXPECT_NO_THROW(db.AnnullaTransazione());
    EXPECT_NO_THROW(db.AnnullaTransazione()); // nothing left to roll back is no error either
    EXPECT_FALSE(db.EsisteTabella("Grande"));
    EXPECT_EQ(Cursore(db, "Amici").RecordCount(), 3);
}

// The check before a write: a sound file passes, a damaged one is named and refused.
TEST_F(File, DamagedFileIsRefusedBeforeWriting) {
    EXPECT_NO_THROW(db.VerificaPrimaDiScrivere());
    db.CreaTabella("Zavorra", {{"t", TipoCampo::Memo, 0, true}});
    for (int i = 0; i < 100; ++i)
        db.Esegui("INSERT INTO Zavorra (t) VALUES ('" + std::string(500, 'z') + "')");
    db.Chiudi();
    test::DanneggiaUltimaPagina(dir / "Vesmodat.Mdb");
    Database danneggiato(dir / "Vesmodat.Mdb");
    const std::string testo =
        Testo(ErroreDB::FormatoNonRiconosciuto, [&] { danneggiato.VerificaPrimaDiScrivere(); });
    EXPECT_EQ(testo.rfind("3343: Il file " + (dir / "Vesmodat.Mdb").string() +
                              " è danneggiato: nessuna scrittura",
                          0),
              0u)
        << testo;
}

TEST_F(File, CompactionCopiesTablesAndIndexesOrKeepsTheSourceWhole) {
    db.Esegui("DELETE FROM Amici WHERE Nome = 'Anna'");
    db.Chiudi();
    const fs::path sorgente = dir / "Vesmodat.Mdb", neo = dir / "Neo_Vesmodat.mdb";
    Database::Compatta(sorgente, neo);
    {
        Database copia(neo);
        Cursore c(copia, "Amici");
        c.Index("indNome");
        c.Seek("=", "BRUNO");
        EXPECT_EQ(c.Campo("Nome").Testo(), "bruno");
        EXPECT_EQ(c.RecordCount(), 2);
    }
    // A target that exists is left alone.
    std::ofstream(neo) << "non toccare";
    EXPECT_EQ(NumeroErrore([&] { Database::Compatta(sorgente, neo); }),
              ErroreDB::DatabaseEsistente);
    EXPECT_EQ(Contenuto(neo), "non toccare");

    Database::CompattaSulPosto(sorgente, dir / "lavoro.mdb");
    EXPECT_FALSE(fs::exists(dir / "lavoro.mdb"));
    Database dopo(sorgente);
    EXPECT_EQ(Cursore(dopo, "Amici").RecordCount(), 2);
}

TEST(Chiave, FoldsCaseAndAccentsOnly) {
    using store_detail::PiegaTesto;
    const std::pair<const char*, const char*> casi[] = {
        {"ÀÉÎÕÜ àéîõü Ç ñ", "aeiou aeiou c n"},
        {"Straße Œuvre Æbeltoft Łódź Ștefănești", "strasse oeuvre aebeltoft lodz stefanesti"},
        {"Αθήνα МОСКВА", "αθήνα москва"},
        {"Roma  (RM) 1-2", "roma  (rm) 1-2"},
        {"Citt\xE0", "citta"}, // a Latin-1 byte outside UTF-8
        {"e\xCC\x81", "e"},    // a combining accent
    };
    for (auto [testo, atteso] : casi)
        EXPECT_EQ(PiegaTesto(testo), atteso);
}

TEST(Chiave, EncodedKeysKeepTheOrderOfValues) {
    using namespace store_detail;
    auto k = [](std::vector<Valore> v) {
        std::string s;
        for (const Valore& x : v)
            CodificaValore(s, x);
        return s;
    };
    // Null first, then numbers (whole and decimal together), then texts; leading fields compare
    // first whatever follows them.
    std::vector<std::vector<Valore>> ordine{
        {Valore()}, {-1e300}, {-2},  {-1.5},   {0},      {0.25},       {1},    {1.5}, {2},
        {1e300},    {""},     {"a"}, {"a", 5}, {"a", 9}, {"a\x01", 1}, {"ab"}, {"b"}};
    for (std::size_t i = 0; i + 1 < ordine.size(); ++i)
        EXPECT_LT(k(ordine[i]), k(ordine[i + 1])) << i;
    EXPECT_EQ(k({-0.0}), k({0}));
    EXPECT_EQ(k({2}), k({2.0}));
    EXPECT_LT(k({1, "zzz"}), k({2, ""}));
    EXPECT_EQ(SuccessorePrefisso("ab\xFF\xFF"), "ac");
}

} // namespace
} // namespace vesmo
