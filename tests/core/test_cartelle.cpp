// Where settings and database live: beside the program in the build tree, else the user's
// freedesktop folders with a copy of the delivered database that is never overwritten.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include "core/Cartelle.h"

using namespace vesmo;
namespace fs = std::filesystem;

namespace {

std::string Leggi(const fs::path& f) {
    std::ifstream in(f, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Scrivi(const fs::path& f, const std::string& testo) {
    fs::create_directories(f.parent_path());
    std::ofstream(f, std::ios::binary) << testo;
}

// A temporary folder with HOME pointed inside it and the XDG variables unset; everything put
// back at the end.
class CartelleTest : public ::testing::Test {
protected:
    void SetUp() override {
        radice =
            fs::temp_directory_path() /
            ("vesmo-cartelle-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(radice);
        fs::create_directories(radice / "casa");
        for (const char* v : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
            const char* prima = std::getenv(v);
            salvate.push_back({v, prima ? std::optional<std::string>(prima) : std::nullopt});
        }
        setenv("HOME", (radice / "casa").c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
        unsetenv("XDG_DATA_HOME");
    }
    void TearDown() override {
        for (const auto& [nome, valore] : salvate) {
            if (valore)
                setenv(nome.c_str(), valore->c_str(), 1);
            else
                unsetenv(nome.c_str());
        }
        fs::remove_all(radice);
    }
    // <radice>/usr/bin with <radice>/usr/share/vesmo/Vesmodat.Mdb holding `contenuto`.
    fs::path Installa(const std::string& contenuto) {
        fs::create_directories(radice / "usr" / "bin");
        Scrivi(radice / "usr" / "share" / "vesmo" / "Vesmodat.Mdb", contenuto);
        return radice / "usr" / "bin";
    }
    fs::path radice;
    std::vector<std::pair<std::string, std::optional<std::string>>> salvate;
};

} // namespace

TEST_F(CartelleTest, DalloAlberoDiCompilazioneTuttoAccantoAlProgramma) {
    const fs::path programma = radice / "build" / "app";
    fs::create_directories(programma);
    EXPECT_FALSE(ProgrammaInstallato(programma));
    EXPECT_EQ(CartellaImpostazioni(programma), programma);
    EXPECT_TRUE(DatabaseConsegnato(programma).empty());
    EXPECT_TRUE(CopiaUtenteDatabase(programma).empty());
    EXPECT_FALSE(fs::exists(radice / "casa" / ".local"));
}

TEST_F(CartelleTest, InstallatoUsaLeCartelleDellUtenteEXdgAssolute) {
    const fs::path programma = Installa("consegnato");
    EXPECT_TRUE(ProgrammaInstallato(programma));
    EXPECT_EQ(DatabaseConsegnato(programma), radice / "usr" / "share" / "vesmo" / "Vesmodat.Mdb");
    EXPECT_EQ(CartellaImpostazioni(programma), radice / "casa" / ".config" / "vesmo");
    EXPECT_EQ(CartellaDatiUtente(), radice / "casa" / ".local" / "share" / "vesmo");
    setenv("XDG_CONFIG_HOME", (radice / "conf").c_str(), 1);
    setenv("XDG_DATA_HOME", (radice / "dati").c_str(), 1);
    EXPECT_EQ(CartellaConfigUtente(), radice / "conf" / "vesmo");
    EXPECT_EQ(CartellaDatiUtente(), radice / "dati" / "vesmo");
    setenv("XDG_CONFIG_HOME", "relativa/conf", 1);
    setenv("XDG_DATA_HOME", "", 1);
    EXPECT_EQ(CartellaConfigUtente(), radice / "casa" / ".config" / "vesmo");
    EXPECT_EQ(CartellaDatiUtente(), radice / "casa" / ".local" / "share" / "vesmo");
}

TEST_F(CartelleTest, LaCopiaSiFaUnaVoltaENonSiSovrascrive) {
    const fs::path programma = Installa("consegnato");
    std::string errore;
    const fs::path copia = CopiaUtenteDatabase(programma, &errore);
    EXPECT_EQ(errore, "");
    ASSERT_EQ(copia, radice / "casa" / ".local" / "share" / "vesmo" / "Vesmodat.Mdb");
    EXPECT_EQ(Leggi(copia), "consegnato");
    // The user's archives are in the copy: a new delivery does not replace it.
    Scrivi(copia, "con gli archivi dell'utente");
    Scrivi(radice / "usr" / "share" / "vesmo" / "Vesmodat.Mdb", "nuova consegna");
    EXPECT_EQ(CopiaUtenteDatabase(programma), copia);
    EXPECT_EQ(Leggi(copia), "con gli archivi dell'utente");
    // No half-written file is left beside it.
    EXPECT_FALSE(fs::exists(copia.parent_path() / "Vesmodat.Mdb.parziale"));
}

TEST_F(CartelleTest, UnaCopiaImpossibileSiDiceENonLasciaNulla) {
    const fs::path programma = Installa("consegnato");
    // The data folder's place is taken by a file.
    Scrivi(radice / "casa" / ".local" / "share" / "vesmo", "un file, non una cartella");
    std::string errore;
    EXPECT_TRUE(CopiaUtenteDatabase(programma, &errore).empty());
    EXPECT_NE(errore.find("impossibile copiare "), std::string::npos) << errore;
    EXPECT_NE(errore.find("Vesmodat.Mdb"), std::string::npos) << errore;
    EXPECT_EQ(Leggi(radice / "casa" / ".local" / "share" / "vesmo"), "un file, non una cartella");
}
