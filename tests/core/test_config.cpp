// The settings record Vesmodat.ini: its 325 bytes, its names and paths, and files gone wrong.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <tuple>

#include "core/Aritmetica.h"
#include "core/Config.h"
#include "tests/core/store/Cartella.h"

using namespace vesmo;
namespace fs = std::filesystem;

namespace {

class ConfigTest : public ::testing::Test {
protected:
    std::string Contenuto() {
        std::stringstream s;
        s << std::ifstream(ini, std::ios::binary).rdbuf();
        return s.str();
    }
    test::Cartella cartella;
    const std::string ini = (cartella / "Vesmodat.ini").string();
};

} // namespace

TEST_F(ConfigTest, RecordDi325ByteConCampiAllineatiETagliati) {
    ConfigIni c;
    c.PathDB = "/home/astro/Vesmodat.Mdb";
    c.PathExe = "/usr/local/bin/astrolog";
    c.NazioneDefault = "Italy";
    c.CityDefault = "Città di Castello";
    c.Ordinamento = "C";
    ASSERT_TRUE(ScriviConfig(ini, c));
    // Fields of 128, 128, 38, 30 and 1 bytes padded with blanks; Latin-1 "à" is one byte.
    EXPECT_EQ(Contenuto(), "/home/astro/Vesmodat.Mdb" + std::string(104, ' ') +
                               "/usr/local/bin/astrolog" + std::string(105, ' ') + "Italy" +
                               std::string(33, ' ') + "Citt\xe0 di Castello" +
                               std::string(13, ' ') + "C");
    ConfigIni r;
    ASSERT_TRUE(LeggiConfig(ini, r));
    EXPECT_EQ(r.CityDefault.Valore(), "Città di Castello");
    EXPECT_EQ(r.Ordinamento.str(), "C");

    c.NazioneDefault = "The United Kingdom of Great Britain and Northern Ireland";
    c.CityDefault = "Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch";
    c.PathExe = "/" + std::string(120, 'a') + "/astrolog";
    ASSERT_TRUE(ScriviConfig(ini, c));
    ASSERT_TRUE(LeggiConfig(ini, r));
    EXPECT_EQ(r.NazioneDefault.str(), "The United Kingdom of Great Britain an");
    EXPECT_EQ(r.CityDefault.str(), "Llanfairpwllgwyngyllgogerychwy");
    // A path of 128 characters or more is cut: the program's name is lost.
    EXPECT_EQ(LunghezzaCaratteri(r.PathExe.str()), 128u);
    EXPECT_FALSE(NomeAstrologPresente(r.PathExe.str()));
}

TEST_F(ConfigTest, FileAssenteVuotoOCorto) {
    ConfigIni c;
    ASSERT_TRUE(LeggiConfig(ini, c));
    // Opening created the file, of no bytes, and every field is blank.
    EXPECT_EQ(fs::file_size(ini), 0u);
    EXPECT_EQ(c.PathDB.Valore() + c.Ordinamento.Valore(), "");
    EXPECT_TRUE(ServePrimaConfigurazione(c));
    // A short file fills what it reaches.
    std::ofstream(ini, std::ios::binary) << "/dati/VESMODAT.MDB";
    ASSERT_TRUE(LeggiConfig(ini, c));
    EXPECT_EQ(c.PathDB.Valore(), "/dati/VESMODAT.MDB");
    EXPECT_EQ(c.NazioneDefault.Valore(), "");
    EXPECT_FALSE(ServePrimaConfigurazione(c)); // only a missing database name asks again
}

TEST_F(ConfigTest, FileNonScrivibileEOrdinamentoSoloNellUltimoByte) {
    std::string errore;
    fs::create_directories(cartella / "cartella.ini");
    EXPECT_FALSE(ScriviConfig((cartella / "cartella.ini").string(), ConfigIni{}, &errore));
    EXPECT_NE(errore.find("cartella.ini"), std::string::npos) << errore;

    ASSERT_TRUE(ScriviConfig(ini, ConfigPredefinita("/opt/vesmo")));
    const std::string prima = Contenuto();
    ASSERT_TRUE(ScriviOrdinamento(ini, 'C'));
    EXPECT_EQ(Contenuto(), prima.substr(0, 324) + "C");
    EXPECT_EQ(prima[324], 'N');
}

TEST(NomiConfig, ConfrontoSenzaMaiuscoleEPercorsiDerivati) {
    for (const char* si :
         {"/home/a/Vesmodat.Mdb", "/home/a/vesmodat.mdb   ", "/home/a/VESMODAT.MDB.bak"})
        EXPECT_TRUE(NomeDBPresente(si)) << si;
    for (const char* si : {"/usr/bin/astrolog", "/opt/Astrolog/Astrolog.Exe ", "ASTROLOG.EXE"})
        EXPECT_TRUE(NomeAstrologPresente(si)) << si;
    EXPECT_FALSE(NomeDBPresente("/home/a/Vesmo.db") || NomeDBPresente(""));
    EXPECT_FALSE(NomeAstrologPresente("/opt/astrolog/astro") || NomeAstrologPresente(""));

    ConfigIni c;
    c.PathDB = "  /dati/Vesmodat.Mdb  ";
    c.PathExe = "/opt/astrolog/astrolog";
    PercorsiVesmo p = DerivaPercorsi("/opt/vesmo/Vesmodat.ini", c);
    EXPECT_EQ(std::tie(p.FileIni, p.FileDB, p.CmdAstrolog, p.DirAstrolog),
              std::make_tuple("/opt/vesmo/Vesmodat.ini", "/dati/Vesmodat.Mdb",
                              "/opt/astrolog/astrolog ", "/opt/astrolog"));
    c.PathExe = "";
    p = DerivaPercorsi("/opt/vesmo/Vesmodat.ini", c);
    EXPECT_EQ(std::tie(p.CmdAstrolog, p.DirAstrolog), std::make_tuple(" ", ""));
}

TEST(AvvioVesmo, PresetDelTemaCorrenteEAvvisoDelFileAssente) {
    Sessione s;
    s.LunaGeo = 0;
    s.JDRivoluzione = 2450000;
    ConfigIni c = ConfigPredefinita("/opt/vesmo/");
    EXPECT_EQ(c.PathDB.Valore() + "|" + c.NazioneDefault.Valore() + "|" + c.CityDefault.Valore() +
                  "|" + c.Ordinamento.str(),
              "/opt/vesmo/Vesmodat.Mdb|Italy|Padova|N");
    PresetTemaCorrente(s, c, 2026, 11, 23, 14, 30, 36);
    const Tema& t = s.TemaCorrente;
    EXPECT_EQ(t.Nome.Valore() + "/" + t.City.Valore() + "/" + t.Stato.Valore(),
              "Default Now/Padova/Italy");
    EXPECT_EQ(t.Day, GiornoGiuliano(2026, 11, 23));
    EXPECT_DOUBLE_EQ(t.OraL, 14.51); // 14:30:36
    EXPECT_EQ(std::make_tuple(t.Lon, t.Lat, t.Fuso, t.Estiva), std::make_tuple(0.1, 0.0, 0.0, 0.0));
    // The session's switches go back to their start.
    EXPECT_EQ(std::make_tuple(s.LunaGeo, s.JDRivoluzione), std::make_tuple(std::int16_t{1}, -1.0));

    MessaggiRegistrati m;
    AvvisoIniAssente(m);
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(std::tie(m.registro[0].titolo, m.registro[0].testo, m.registro[0].icona),
              std::make_tuple("Vesmo - Avvio",
                              "Assente il file Vesmodat.ini\n\nCreazione file  Vesmodat.ini\n",
                              Icona::Informazione));
}
