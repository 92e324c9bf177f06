// The settings record Vesmodat.ini: its 325 bytes, the name tests, the derived paths, the
// start-up presets, and what happens with missing, empty, short and unwritable files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <tuple>

#include "core/Aritmetica.h"
#include "core/Config.h"

using namespace vesmo;
namespace fs = std::filesystem;

namespace {

class ConfigTest : public ::testing::Test {
protected:
    void SetUp() override {
        cartella =
            fs::temp_directory_path() /
            ("vesmo_config_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             "_" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(cartella);
        fs::create_directories(cartella);
        ini = (cartella / "Vesmodat.ini").string();
    }
    void TearDown() override {
        fs::permissions(cartella, fs::perms::owner_all);
        fs::remove_all(cartella);
    }
    std::string Contenuto() {
        std::ifstream in(ini, std::ios::binary);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    fs::path cartella;
    std::string ini;
};

} // namespace

TEST_F(ConfigTest, RecordDi325ByteConCampiAllineati) {
    ConfigIni c;
    c.PathDB = "/home/astro/Vesmodat.Mdb";
    c.PathExe = "/usr/local/bin/astrolog";
    c.NazioneDefault = "Italy";
    c.CityDefault = "Città di Castello";
    c.Ordinamento = "C";
    ASSERT_TRUE(ScriviConfig(ini, c));
    std::string b = Contenuto();
    ASSERT_EQ(b.size(), 325u);
    EXPECT_EQ(b.substr(0, 24), "/home/astro/Vesmodat.Mdb");
    EXPECT_EQ(b.substr(24, 104), std::string(104, ' '));
    EXPECT_EQ(b.substr(128, 23), "/usr/local/bin/astrolog");
    EXPECT_EQ(b.substr(256, 38), "Italy" + std::string(33, ' '));
    // Latin-1: "à" is one byte, so the field keeps its 30 bytes.
    EXPECT_EQ(b.substr(294, 17), "Citt\xe0 di Castello");
    EXPECT_EQ(b.substr(311, 13), std::string(13, ' '));
    EXPECT_EQ(b[324], 'C');

    ConfigIni r;
    ASSERT_TRUE(LeggiConfig(ini, r));
    EXPECT_EQ(r.CityDefault.Valore(), "Città di Castello");
    EXPECT_EQ(r.PathDB.Valore(), "/home/astro/Vesmodat.Mdb");
    EXPECT_EQ(r.Ordinamento.str(), "C");
}

TEST_F(ConfigTest, NomiLunghiTagliatiAllaLarghezza) {
    ConfigIni c;
    c.NazioneDefault = "The United Kingdom of Great Britain and Northern Ireland";
    c.CityDefault = "Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch";
    c.PathExe = "/" + std::string(120, 'a') + "/astrolog";
    ASSERT_TRUE(ScriviConfig(ini, c));
    ConfigIni r;
    ASSERT_TRUE(LeggiConfig(ini, r));
    EXPECT_EQ(r.NazioneDefault.str(), "The United Kingdom of Great Britain an");
    EXPECT_EQ(r.CityDefault.str(), "Llanfairpwllgwyngyllgogerychwy");
    // A path of 128 characters or more is cut: the program's name is lost.
    EXPECT_EQ(LunghezzaCaratteri(r.PathExe.str()), 128u);
    EXPECT_FALSE(NomeAstrologPresente(r.PathExe.str()));
}

TEST_F(ConfigTest, FileAssenteVuotoOCorto) {
    ASSERT_FALSE(fs::exists(ini));
    ConfigIni c;
    ASSERT_TRUE(LeggiConfig(ini, c));
    // Opening created the file, of no bytes, and every field is blank.
    EXPECT_TRUE(fs::exists(ini));
    EXPECT_EQ(fs::file_size(ini), 0u);
    EXPECT_EQ(c.PathDB.Valore(), "");
    EXPECT_EQ(c.Ordinamento.Valore(), "");
    EXPECT_TRUE(ServePrimaConfigurazione(c));

    // A short file fills what it reaches.
    {
        std::ofstream out(ini, std::ios::binary | std::ios::trunc);
        out << "/dati/VESMODAT.MDB";
    }
    ASSERT_TRUE(LeggiConfig(ini, c));
    EXPECT_EQ(c.PathDB.Valore(), "/dati/VESMODAT.MDB");
    EXPECT_EQ(c.NazioneDefault.Valore(), "");
    EXPECT_FALSE(ServePrimaConfigurazione(c));
}

TEST_F(ConfigTest, FileNonScrivibileDaUnMotivo) {
    std::string errore;
    // A folder where the file should be: it can be neither written nor read as a record.
    fs::create_directories(cartella / "cartella.ini");
    ConfigIni c;
    EXPECT_FALSE(ScriviConfig((cartella / "cartella.ini").string(), c, &errore));
    EXPECT_NE(errore.find("cartella.ini"), std::string::npos);
    errore.clear();
    EXPECT_FALSE(ScriviConfig((cartella / "manca" / "Vesmodat.ini").string(), c, &errore));
    EXPECT_FALSE(errore.empty());
}

TEST_F(ConfigTest, OrdinamentoCambiaSoloLUltimoByte) {
    ConfigIni c = ConfigPredefinita("/opt/vesmo");
    ASSERT_TRUE(ScriviConfig(ini, c));
    std::string prima = Contenuto();
    ASSERT_TRUE(ScriviOrdinamento(ini, 'C'));
    std::string dopo = Contenuto();
    ASSERT_EQ(dopo.size(), 325u);
    EXPECT_EQ(prima.substr(0, 324), dopo.substr(0, 324));
    EXPECT_EQ(prima[324], 'N');
    EXPECT_EQ(dopo[324], 'C');
}

TEST(NomiConfig, ConfrontoSenzaMaiuscole) {
    EXPECT_TRUE(NomeDBPresente("/home/a/Vesmodat.Mdb"));
    EXPECT_TRUE(NomeDBPresente("/home/a/vesmodat.mdb   "));
    EXPECT_TRUE(NomeDBPresente("/home/a/VESMODAT.MDB.bak"));
    EXPECT_FALSE(NomeDBPresente("/home/a/Vesmo.db"));
    EXPECT_FALSE(NomeDBPresente(""));

    EXPECT_TRUE(NomeAstrologPresente("/usr/bin/astrolog"));
    EXPECT_TRUE(NomeAstrologPresente("/opt/Astrolog/Astrolog.Exe "));
    EXPECT_TRUE(NomeAstrologPresente("ASTROLOG.EXE"));
    EXPECT_FALSE(NomeAstrologPresente("/opt/astrolog/astro"));
    EXPECT_FALSE(NomeAstrologPresente(""));

    // Only a missing database name reopens the first-time dialog.
    ConfigIni c;
    c.PathDB = "/x/vesmodat.mdb";
    c.PathExe = "";
    EXPECT_FALSE(ServePrimaConfigurazione(c));
}

TEST(NomiConfig, PercorsiDerivati) {
    ConfigIni c;
    c.PathDB = "  /dati/Vesmodat.Mdb  ";
    c.PathExe = "/opt/astrolog/astrolog";
    PercorsiVesmo p = DerivaPercorsi("/opt/vesmo/Vesmodat.ini", c);
    EXPECT_EQ(p.FileIni, "/opt/vesmo/Vesmodat.ini");
    EXPECT_EQ(p.FileDB, "/dati/Vesmodat.Mdb");
    EXPECT_EQ(p.CmdAstrolog, "/opt/astrolog/astrolog ");
    EXPECT_EQ(p.DirAstrolog, "/opt/astrolog");
    c.PathExe = "";
    p = DerivaPercorsi("/opt/vesmo/Vesmodat.ini", c);
    EXPECT_EQ(p.CmdAstrolog, " ");
    EXPECT_EQ(p.DirAstrolog, "");
}

TEST(AvvioVesmo, PresetDelTemaCorrente) {
    Sessione s;
    s.LunaGeo = 0;
    s.JDRivoluzione = 2450000;
    ConfigIni c = ConfigPredefinita("/opt/vesmo/");
    EXPECT_EQ(c.PathDB.Valore(), "/opt/vesmo/Vesmodat.Mdb");
    EXPECT_EQ(c.NazioneDefault.Valore(), "Italy");
    EXPECT_EQ(c.CityDefault.Valore(), "Padova");
    EXPECT_EQ(c.Ordinamento.str(), "N");

    PresetTemaCorrente(s, c, 2026, 11, 23, 14, 30, 36);
    const Tema& t = s.TemaCorrente;
    EXPECT_EQ(t.Nome.Valore() + "/" + t.City.Valore() + "/" + t.Stato.Valore(),
              "Default Now/Padova/Italy");
    EXPECT_EQ(t.Day, GiornoGiuliano(2026, 11, 23));
    EXPECT_DOUBLE_EQ(t.OraL, 14.51); // 14:30:36
    EXPECT_EQ(std::make_tuple(t.Lon, t.Lat, t.Fuso, t.Estiva), std::make_tuple(0.1, 0.0, 0.0, 0.0));
    // The session's switches go back to their start.
    EXPECT_EQ(std::make_tuple(s.LunaGeo, s.JDRivoluzione), std::make_tuple(std::int16_t{1}, -1.0));
}

TEST(AvvioVesmo, AvvisoDelFileAssente) {
    MessaggiRegistrati m;
    AvvisoIniAssente(m);
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Vesmo - Avvio");
    EXPECT_EQ(m.registro[0].testo,
              "Assente il file Vesmodat.ini\n\nCreazione file  Vesmodat.ini\n");
    EXPECT_EQ(m.registro[0].icona, Icona::Informazione);
}
