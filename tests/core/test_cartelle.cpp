// Where settings and database live: beside the program in the build tree, else the user's
// freedesktop folders with a copy of the delivered database that is never overwritten.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

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

// HOME inside a temporary folder, the XDG variables unset, and <radice>/usr/bin installed beside
// <radice>/usr/share/vesmo/Vesmodat.Mdb; everything put back at the end.
class CartelleTest : public ::testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(radice);
        for (const char* v : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
            const char* prima = std::getenv(v);
            salvate.push_back({v, prima ? std::optional<std::string>(prima) : std::nullopt});
            unsetenv(v);
        }
        setenv("HOME", casa.c_str(), 1);
        fs::create_directories(programma);
        Scrivi(consegnato, "consegnato");
    }
    void TearDown() override {
        for (const auto& [nome, valore] : salvate)
            valore ? setenv(nome.c_str(), valore->c_str(), 1) : unsetenv(nome.c_str());
        fs::remove_all(radice);
    }
    const fs::path radice = fs::temp_directory_path() /
                            ("vesmo-cartelle-" + std::to_string(::getpid()) + "-" +
                             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    const fs::path casa = radice / "casa", programma = radice / "usr" / "bin";
    const fs::path consegnato = radice / "usr" / "share" / "vesmo" / "Vesmodat.Mdb";
    const fs::path dati = casa / ".local" / "share" / "vesmo";
    std::vector<std::pair<std::string, std::optional<std::string>>> salvate;
};

} // namespace

TEST_F(CartelleTest, AlberoDiCompilazioneOInstallatoConXdgAssolute) {
    const fs::path build = radice / "build" / "app";
    fs::create_directories(build);
    EXPECT_FALSE(ProgrammaInstallato(build));
    EXPECT_EQ(CartellaImpostazioni(build), build);
    EXPECT_TRUE(DatabaseConsegnato(build).empty());
    EXPECT_TRUE(CopiaUtenteDatabase(build).empty());
    EXPECT_FALSE(fs::exists(casa / ".local"));

    EXPECT_TRUE(ProgrammaInstallato(programma));
    EXPECT_EQ(DatabaseConsegnato(programma), consegnato);
    EXPECT_EQ(CartellaImpostazioni(programma), casa / ".config" / "vesmo");
    EXPECT_EQ(CartellaDatiUtente(), dati);
    setenv("XDG_CONFIG_HOME", (radice / "conf").c_str(), 1);
    setenv("XDG_DATA_HOME", (radice / "dati").c_str(), 1);
    EXPECT_EQ(CartellaConfigUtente(), radice / "conf" / "vesmo");
    EXPECT_EQ(CartellaDatiUtente(), radice / "dati" / "vesmo");
    // A relative or empty XDG folder is ignored.
    setenv("XDG_CONFIG_HOME", "relativa/conf", 1);
    setenv("XDG_DATA_HOME", "", 1);
    EXPECT_EQ(CartellaConfigUtente(), casa / ".config" / "vesmo");
    EXPECT_EQ(CartellaDatiUtente(), dati);
}

TEST_F(CartelleTest, LaCopiaSiFaUnaVoltaENonSiSovrascrive) {
    std::string errore;
    const fs::path copia = CopiaUtenteDatabase(programma, &errore);
    EXPECT_EQ(errore, "");
    ASSERT_EQ(copia, dati / "Vesmodat.Mdb");
    EXPECT_EQ(Leggi(copia), "consegnato");
    // The user's archives are in the copy: a new delivery does not replace it.
    Scrivi(copia, "con gli archivi dell'utente");
    Scrivi(consegnato, "nuova consegna");
    EXPECT_EQ(CopiaUtenteDatabase(programma), copia);
    EXPECT_EQ(Leggi(copia), "con gli archivi dell'utente");
    EXPECT_FALSE(fs::exists(dati / "Vesmodat.Mdb.parziale"));
}

TEST_F(CartelleTest, UnaCopiaImpossibileSiDiceENonLasciaNulla) {
    Scrivi(dati, "un file, non una cartella");
    std::string errore;
    EXPECT_TRUE(CopiaUtenteDatabase(programma, &errore).empty());
    EXPECT_EQ(errore.rfind("impossibile copiare ", 0), 0u) << errore;
    EXPECT_NE(errore.find("Vesmodat.Mdb"), std::string::npos) << errore;
    EXPECT_EQ(Leggi(dati), "un file, non una cartella");
}
