// The files around the text import: the log never takes the place of a folder or a device, a
// refused archive name writes nothing, and a full disk in the middle of an import is told as such
// and leaves the database as it was.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "archives/Archivi.h"
#include "archives/ImportaEsporta.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/archives/DiscoPieno.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo::test {
namespace {

namespace fs = std::filesystem;

const char* const RecordBuono = "\"Rossi, Mario\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\","
                                "\"-01:00\",\"Padova\",\"Italia\",\"45N26\",\"12E30\"\n";
const char* const RecordCattivo = "\"Bianchi\",\"2 jun 1946\",\"07:00\",\"AM\",\"EST\","
                                  "\"05:00\",\"New York\",\"USA\",\"40N42\",\"74W00\"\n";

using FileImport = ConArchivi;

TEST_F(FileImport, LogOArchivioRifiutatiNonScrivonoNulla) {
    const std::string misto = File("misto.txt", std::string(RecordBuono) + RecordCattivo);
    // A folder, empty or not, and a device are not a log: refused before anything is written.
    fs::create_directories(cartella / "vuota");
    for (const std::string& log : {(cartella / "vuota").string(), std::string("/dev/null")}) {
        if (log == "/dev/null" && !fs::exists(log)) continue;
        EXPECT_THROW(ImportaSF(fileDB, "Tre", misto, log), std::runtime_error) << log;
        EXPECT_TRUE(ElencoArchivi(fileDB).empty()) << log;
    }
    EXPECT_TRUE(fs::is_directory(cartella / "vuota"));

    // The menu entry: a name the rule refuses is told, and nothing is imported nor written.
    const std::string cattivo = File("a..b.txt", RecordBuono);
    EXPECT_EQ(ImportaArchivioSF(fileDB, cattivo, ElencoArchivi(fileDB),
                                cartella.Percorso().string(), messaggi),
              std::nullopt);
    EXPECT_EQ(
        Mostrati(messaggi),
        (Riquadri{{"Vesmo - frmGesArchivi.mnFileImpSFtxt: Nome Non Valido",
                   "Il nome  a.b.txt  non vale per un Archivio:\n" +
                       *ErroreNomeArchivio("a.b.txt") + "\nFile non importato:\n" + cattivo}}));
    EXPECT_TRUE(ElencoArchivi(fileDB).empty());
}

// The disk fills up while the archive is written: the cause is the full disk, in Italian, and the
// database holds what it held before.
TEST_F(FileImport, DiscoPienoDuranteLImport) {
    Riempi("Famiglia", {"Anna", "Bruno"});
    std::string righe;
    for (int i = 0; i < 3000; ++i)
        righe += RecordBuono;
    const std::string grande = File("grande.txt", righe);
    const auto dimensione = static_cast<sqlite3_int64>(fs::file_size(fileDB));
    std::string testo;
    {
        DiscoPieno disco(fs::path(fileDB).filename().string(), dimensione + 8192);
        try {
            ImportaSF(fileDB, "Grande", grande, (cartella / "grande.log").string());
            ADD_FAILURE() << "the import never met the full disk";
        } catch (const ErroreDB& e) {
            EXPECT_EQ(e.Numero(), ErroreDB::DiscoPieno);
            testo = e.what();
        }
        EXPECT_GT(disco.Rifiutate(), 0);
    }
    EXPECT_EQ(testo.rfind("3026: Disco pieno. ", 0), 0u) << testo;
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{"Famiglia"});
    EXPECT_EQ(Nomi("Famiglia"), (std::vector<std::string>{"Anna", "Bruno"}));
    EXPECT_FALSE(fs::exists(cartella / "grande.log"));
    EXPECT_NO_THROW(Database(fileDB).VerificaPrimaDiScrivere());

    // The menu entry tells the same cause in its box.
    {
        DiscoPieno disco(fs::path(fileDB).filename().string(), dimensione + 8192);
        messaggi.registro.clear();
        EXPECT_EQ(ImportaArchivioSF(fileDB, grande, ElencoArchivi(fileDB),
                                    cartella.Percorso().string(), messaggi),
                  std::nullopt);
    }
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - frmGesArchivi.mnFileImpSFtxt");
    EXPECT_EQ(messaggi.registro[0].testo.rfind("Errore 3026\n3026: Disco pieno. ", 0), 0u)
        << messaggi.registro[0].testo;
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{"Famiglia"});
}

} // namespace
} // namespace vesmo::test
