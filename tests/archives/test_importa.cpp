// Solar Fire text import and text export; reference values in tests/data/archives with sources.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>
#include <sstream>

#include "archives/Archivi.h"
#include "archives/FormatoAAF.h"
#include "archives/FormatoCSV.h"
#include "archives/ImportaEsporta.h"
#include "archives/Scambio.h"
#include "core/Aritmetica.h"
#include "core/store/Cursore.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo::test {
namespace {

constexpr double TolleranzaOreGradi = 1e-12; // hours and degrees

std::vector<std::string> Campi(const std::string& testo) {
    std::istringstream in(testo);
    LettoreCampiSF l(in);
    std::vector<std::string> r;
    std::string c;
    while (l.InizioRecord())
        for (int i = 0; i < 10 && l.Campo(c); ++i)
            r.push_back(c);
    return r;
}

TEST(LettoreCampiSF, SeparatoriVirgoletteFineRigaECampoEnorme) {
    struct Caso {
        const char* testo;
        std::vector<std::string> campi;
    } casi[] = {
        {"a,b,c\n", {"a", "b", "c"}},
        {"\"Rossi, Mario\",12 Mar 1960\n", {"Rossi, Mario", "12 Mar 1960"}},
        {"  a  ,  b \r\nc", {"a", "b", "c"}},
        {"\"x\"junk,y\n", {"x", "y"}},
        {"a,\nb,c\n", {"a", "b", "c"}},   // a line end behind a comma ends nothing more
        {"a\rb\r\nc\n", {"a", "b", "c"}}, // CR, CR LF and LF all end a field
        {"a,,b\n", {"a", "", "b"}},       // an empty field between two commas
        // empty lines between records are skipped
        {"\n\n  \na,b,c,d,e,f,g,h,i,j\n\n\n1,2,3,4,5,6,7,8,9,10",
         {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j",
          "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}},
        {"\xEF\xBB\xBF"
         "a,b",
         {"a", "b"}}, // the UTF-8 mark at the start
        {"\"open, never closed", {"open, never closed"}},
    };
    for (const Caso& c : casi)
        EXPECT_EQ(Campi(c.testo), c.campi) << c.testo;
    // A huge field is kept to the longest length.
    std::string testo(3'000'000, 'x');
    testo += ",fine\n";
    auto campi = Campi(testo);
    ASSERT_EQ(campi.size(), 2u);
    EXPECT_EQ(campi[0].size(), LettoreCampiSF::LunghezzaMassima);
    EXPECT_EQ(campi[1], "fine");
}

RecordSF Record(const std::string& nome, const std::string& data, const std::string& ora,
                const std::string& ampm, const std::string& fuso, const std::string& lat = "45N26",
                const std::string& lon = "12E30") {
    return {nome, data, ora, ampm, "CET", fuso, "Padova", "Italia", lat, lon};
}

TEST(TemaDaRecordSF, DataOraFusoECoordinate) {
    const auto righe = RigheDati("archives/record-sf.txt");
    ASSERT_EQ(righe.size(), 6u);
    for (const auto& r : righe) {
        SCOPED_TRACE(r[0]);
        Tema t;
        auto errore = TemaDaRecordSF(Record(r[0], r[1], r[2], r[3], r[4], r[5], r[6]), t);
        ASSERT_FALSE(errore) << *errore;
        EXPECT_EQ(
            std::tuple(t.Day, t.Estiva, t.ZonaSF.str(), t.City.Valore(), t.Stato.Valore(), t.Cmto),
            std::tuple(std::stod(r[7]), 0.0, "CET    ", "Padova", "Italia", ""));
        for (auto [letto, i] : {std::pair{t.OraL, 8}, {t.Fuso, 9}, {t.Lat, 10}, {t.Lon, 11}})
            EXPECT_NEAR(letto, std::stod(r[static_cast<std::size_t>(i)]), TolleranzaOreGradi);
    }
}

TEST(TemaDaRecordSF, VirgolaNelNomeDiventaUnoSpazioELeLarghezzeSonoQuelleDelTema) {
    Tema t;
    RecordSF r = Record("Rossi, Mario", "12 Mar 1960", "10:30", "", "-01:00");
    r[4] = "EuropeRome";
    r[6] = std::string(40, 'c');
    ASSERT_FALSE(TemaDaRecordSF(r, t));
    EXPECT_EQ(t.Nome.str(), "Rossi  Mario" + std::string(18, ' '));
    EXPECT_EQ(t.ZonaSF.str(), "EuropeR");
    EXPECT_EQ(t.City.str(), std::string(30, 'c'));
}

TEST(TemaDaRecordSF, RigheDelLogPerOgniErrore) {
    struct Caso {
        RecordSF record;
        const char* riga;
    } casi[] = {
        {Record("A", "12 mar 1960", "10:30", "", "-01:00"), "  [Errore  Mese SF: 12 mar 1960 ]"},
        {Record("A", "12 Mar 1960", "1030", "", "-01:00"), "  [Errore  Ora SF: 1030 ]"},
        {Record("A", "12 Mar 1960", "10:30", "", "-0100"), "  [Errore  TimeZone SF: -0100 ]"},
        // The first failure ends the record: the month before the time.
        {Record("A", "12 Xyz 1960", "1030", "", "-0100"), "  [Errore  Mese SF: 12 Xyz 1960 ]"},
        {Record("A", "12 Mar 1960", "1030", "", "-0100"), "  [Errore  Ora SF: 1030 ]"},
        // Marks without numbers, and numbers out of their range.
        {Record("A", "xx Mar 1960", "10:30", "", "-01:00"), "  [Errore  Campo SF: xx Mar 1960 ]"},
        {Record("A", "12 Mar", "10:30", "", "-01:00"), "  [Errore  Campo SF: 12 Mar ]"},
        {Record("A", "40 Mar 1960", "10:30", "", "-01:00"), "  [Errore  Campo SF: 40 Mar 1960 ]"},
        {Record("A", "12 Mar 1960", "ab:cd", "", "-01:00"), "  [Errore  Campo SF: ab:cd ]"},
        {Record("A", "12 Mar 1960", "10:75", "", "-01:00"), "  [Errore  Campo SF: 10:75 ]"},
        {Record("A", "12 Mar 1960", "10:30", "", "-x:00"), "  [Errore  Campo SF: -x:00 ]"},
        {Record("A", "12 Mar 1960", "10:30", "", "-01:00", "45X26"),
         "  [Errore  Campo SF: 45X26 ]"},
        {Record("A", "12 Mar 1960", "10:30", "", "-01:00", "45N26", "999E00"),
         "  [Errore  Campo SF: 999E00 ]"},
        {Record("A", "12 Mar 1960", "10:30", "", "-01:00", "45N26", ""), "  [Errore  Campo SF:  ]"},
        // A comma inside the quotes reaches the log as a blank.
        {Record("A", "12 mar, 1960", "10:30", "", "-01:00"), "  [Errore  Mese SF: 12 mar  1960 ]"},
    };
    for (const Caso& c : casi) {
        Tema t;
        auto errore = TemaDaRecordSF(c.record, t);
        ASSERT_TRUE(errore) << c.riga;
        EXPECT_EQ(*errore, c.riga);
    }
}

TEST(TestoCampoSF, Utf8TenutoWindows1252ConvertitoControlliInSpazi) {
    EXPECT_EQ(TestoCampoSF("Città"), "Città");
    EXPECT_EQ(TestoCampoSF("Citt\xE0"), "Città");
    EXPECT_EQ(TestoCampoSF("\x80uro"), "€uro");
    EXPECT_EQ(TestoCampoSF(std::string("a\0b\x01", 4)), "a b ");
    EXPECT_EQ(TestoCampoSF("\xC0\xAF"), "À¯"); // an overlong form is not UTF-8
}

TEST(NomeArchivio, DalTitoloDelFileONomeDoppio) {
    EXPECT_EQ(NomeArchivioDaTitolo("foo.txt"), "footxt");
    EXPECT_EQ(NomeArchivioDaTitolo("a.b.txt"), "ab.txt");
    EXPECT_EQ(NomeArchivioDaTitolo("senzapunto"), "senzapunto");
    MessaggiRegistrati m;
    m.input = {std::string("Secondo"), std::string("terzo")};
    EXPECT_EQ(
        NomeArchivioImport("footxt", {"Altro", "FOOTXT", "secondo", "Ultimo"}, "/tmp/foo.txt", m),
        "terzo");
    ASSERT_EQ(m.registro.size(), 2u);
    EXPECT_EQ(m.registro[0].titolo, "Import File - Nome Doppio");
    EXPECT_EQ(m.registro[0].testo, "L'Archivio  footxt  Esiste già\n"
                                   "Digitare un nome diverso o annullare \n"
                                   "L'import del file  /tmp/foo.txt");
    m.input = {std::string("")};
    EXPECT_FALSE(NomeArchivioImport("a", {"A"}, "/tmp/a", m));
}

// A record of a Solar Fire text file, in Padova.
std::string RigaSF(const std::string& nome, const std::string& data = "12 Mar 1960",
                   const std::string& ora = "10:30", const std::string& fuso = "-01:00",
                   const std::string& ampm = "AM") {
    return "\"" + nome + "\",\"" + data + "\",\"" + ora + "\",\"" + ampm + "\",\"CET\",\"" + fuso +
           "\",\"Padova\",\"Italia\",\"45N26\",\"12E30\"\n";
}

using Importazione = ConArchivi;

// An older log of the same name stays untouched; a second import asks another name or stops.
TEST_F(Importazione, FileSenzaErroriNonLasciaLogENonToccaQuelloVecchio) {
    const std::string file =
        File("temi.txt", RigaSF("Rossi, Mario") + RigaSF("Bianchi", "2 Jun 1946"));
    const std::string logGiusto = File("temitxt.log", "vecchio\n");
    const std::string dir = cartella.Percorso().string();
    auto esito = ImportaArchivioSF(fileDB, file, {"Altro"}, dir, messaggi);
    ASSERT_TRUE(esito);
    EXPECT_EQ(std::tuple(esito->Archivio, esito->Importati, esito->Scartati, esito->Log),
              std::tuple("temitxt", 2, 0, ""));
    EXPECT_EQ(Leggi(logGiusto), "vecchio\n");
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(Nomi("temitxt"), (std::vector<std::string>{"Bianchi", "Rossi  Mario"}));
    EXPECT_EQ(std::tuple(Temi("temitxt")[1].Day, Temi("temitxt")[1].Cmto),
              std::tuple(2437005.5, ""));

    messaggi.input = {std::nullopt};
    EXPECT_FALSE(ImportaArchivioSF(fileDB, file, {"TEMITXT"}, dir, messaggi));
    EXPECT_EQ(ElencoArchivi(fileDB), (std::vector<std::string>{"temitxt"}));
    EXPECT_EQ(Temi("temitxt").size(), 2u);
}

TEST_F(Importazione, RecordSuDueRigheERecordErratiNelLog) {
    const std::string file = File("misti.txt",
                                  // over two lines
                                  "\"Uno\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\",\n"
                                  "\"-01:00\",\"Padova\",\"Italia\",\"45N26\",\"12E30\"\n" +
                                      RigaSF("Due", "12 mar 1960") +
                                      RigaSF("Cinque", "12 Mar 1960", "10:30", "-01:00", "PM") +
                                      // the file ends inside a record
                                      "\"Sei\",\"12 Mar 1960\",\"10:30\"\n");
    auto esito = ImportaArchivioSF(fileDB, file, {}, cartella.Percorso().string(), messaggi);
    ASSERT_TRUE(esito);
    const std::string log = (cartella / "mistitxt.log").string();
    EXPECT_EQ(std::tuple(esito->Importati, esito->Scartati, esito->Log), std::tuple(2, 2, log));
    EXPECT_EQ(Leggi(log), "  [Errore  Mese SF: 12 mar 1960 ]\n"
                          "  [Errore  Campo SF: Sei,12 Mar 1960,10:30 ]\n");
    ASSERT_EQ(messaggi.registro.size(), 1u);
    const auto& v = messaggi.registro[0];
    EXPECT_EQ(std::tuple(v.titolo, v.testo, v.icona),
              std::tuple("Vesmo - frmGesArchivi.mnFileImpSFtxt",
                         "Errori! Esamina il file di testo\n\n" + log, Icona::Critico));
    auto temi = Temi("mistitxt");
    ASSERT_EQ(temi.size(), 2u);
    EXPECT_EQ(std::tuple(temi[0].Nome.Valore(), temi[1].Nome.Valore()),
              std::tuple("Cinque", "Uno"));
    EXPECT_NEAR(temi[0].OraL, 22.5, TolleranzaOreGradi);
    EXPECT_NEAR(temi[1].Fuso, -1, TolleranzaOreGradi);
}

// A reader makes the engine refuse the import's commit: nothing of the new archive remains.
TEST_F(Importazione, ImportInterrottoDaUnErroreDelDatabaseNonLasciaRighe) {
    std::string testo;
    for (int i = 0; i < 50; ++i)
        testo += RigaSF("T" + std::to_string(i));
    std::string file = File("lungo.txt", testo);
    Database lettore(fileDB);
    std::unique_ptr<LetturaUnica> lettura;
    int righe = 0;
    EXPECT_THROW(ImportaSF(fileDB, "lungotxt", file, (cartella / "lungotxt.log").string(),
                           [&](std::uint64_t) {
                               if (++righe == 20) lettura = std::make_unique<LetturaUnica>(lettore);
                               if (lettura) lettore.Tabelle();
                           }),
                 ErroreDB);
    lettura.reset();
    EXPECT_GE(righe, 20);
    EXPECT_FALSE(Database(fileDB).EsisteTabella("lungotxt"));
    EXPECT_TRUE(ElencoArchivi(fileDB).empty());
}

// A folder or device as log, a refused name or a missing database: told, nothing written.
TEST_F(Importazione, LogOArchivioRifiutatiNonScrivonoNulla) {
    const std::string buono = File("buono.txt", RigaSF("Rossi, Mario"));
    std::filesystem::create_directories(cartella / "vuota");
    for (const std::string& log : {(cartella / "vuota").string(), std::string("/dev/null")}) {
        if (log == "/dev/null" && !std::filesystem::exists(log)) continue;
        EXPECT_THROW(ImportaSF(fileDB, "Tre", buono, log), std::runtime_error) << log;
        EXPECT_TRUE(ElencoArchivi(fileDB).empty()) << log;
    }
    EXPECT_TRUE(std::filesystem::is_directory(cartella / "vuota"));

    const std::string cattivo = File("a..b.txt", RigaSF("Rossi, Mario"));
    const std::string dir = cartella.Percorso().string();
    EXPECT_EQ(ImportaArchivioSF(fileDB, cattivo, {}, dir, messaggi), std::nullopt);
    EXPECT_EQ(
        Mostrati(messaggi),
        (Riquadri{{"Vesmo - frmGesArchivi.mnFileImpSFtxt: Nome Non Valido",
                   "Il nome  a.b.txt  non vale per un Archivio:\n" +
                       *ErroreNomeArchivio("a.b.txt") + "\nFile non importato:\n" + cattivo}}));
    EXPECT_TRUE(ElencoArchivi(fileDB).empty());

    messaggi.registro.clear();
    EXPECT_EQ(ImportaArchivioSF((cartella / "manca.Mdb").string(), buono, {}, dir, messaggi),
              std::nullopt);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - frmGesArchivi.mnFileImpSFtxt");
    EXPECT_EQ(messaggi.registro[0].testo.substr(0, 11), "Errore 3024");
}

// Hostile files through the three readers: counts and logs stay true, numbers stay finite.
TEST_F(Importazione, FileOstiliNonRomponoNulla) {
    const auto forma = [](const std::string& r) {
        for (const char* cosa : {"Mese", "Ora", "TimeZone", "Campo"})
            if (const std::string i = std::string("  [Errore  ") + cosa + " SF: ";
                r.starts_with(i) && r.size() >= i.size() + 2 && r.ends_with(" ]"))
                return true;
        return false;
    };
    std::vector<std::string> file = {
        "",
        "\xEF\xBB\xBF",
        "#A93:",
        "#A93:,,,,,,,,,,,,,,,,,,,,\n#B93:,,,,,,,,,,\n#VESMO:,,,,,,,,\n",
        "#A93:a,b,c,99999999999999999999.1.1,1:1,x,y\n#B93:1e308,9999n99,1e9e1,1he99999,nan\n",
        "#A93:a,*,*,1.1.2000,12:00,x,I\n#VESMO:2451544.5,12,nan,inf,1e308,-1e308,%,%2,%25%\n",
        "#A93:a,*,*,1.1.2000,12:00,x,I\n#B93:-1e300,90n00,180e00,24he00,3\n",
        std::string(200000, '#') + ":\n" + std::string(300000, ','),
        "\"" + std::string(100000, 'x'),
        "Nome,Day,OraL,Lon,Lat,Fuso\n" + std::string(5000, ',') + "\n\"\"\"\n",
        "Nome,Day,OraL,Lon,Lat,Fuso\nx,1e400,-0,nan,inf,-inf\nx,2451544.5,23.9999999999,12,90,24\n",
        "Nome,Data,Ora\nx,-4712-01-01,00:00\nx,31/12/9999,23:59:59.999\nx,1/1/-99999999999,1:1\n",
        std::string("a\0b,c\0\n\0", 8),
    };
    std::mt19937 g(2);
    std::string caso(4096, ' ');
    for (char& c : caso)
        c = static_cast<char>(g() % 256);
    file.insert(file.end(), {caso, "#A93:" + caso});
    const std::string buono = RigaSF("Nome", "12 Mar 1960", "10:30", "-01:00", "PM");
    for (unsigned seme = 1; seme <= 12; ++seme) {
        g.seed(seme);
        std::string testo;
        int pezzi = 30 + static_cast<int>(g() % 40);
        for (int k = 0; k < pezzi; ++k) {
            std::string r = buono;
            switch (g() % 8) {
            case 0: // cut
                r.resize(g() % r.size());
                break;
            case 1: // stray quote
                r.insert(g() % r.size(), "\"");
                break;
            case 2: // binary bytes
                for (int i = 0; i < 20; ++i)
                    r[g() % r.size()] = static_cast<char>(g() % 256);
                break;
            case 3: // invalid UTF-8 in the name
                r.insert(2, "\xC3\x28\xFF\xFE\xED\xA0\x80");
                break;
            case 4: // a huge field
                r.insert(2, std::string(50'000 + g() % 1000, 'N'));
                break;
            default:
                break;
            }
            testo += r;
        }
        if (seme == 6) testo += std::string(10'000'000, 'Z') + "\n";
        if (seme == 11) testo += "\"" + std::string(10'000'000, ',') + "\n";
        file.push_back(testo);
    }
    OpzioniImportScambio o;
    o.completa = [](Tema&) { throw std::runtime_error("nessun luogo"); };
    for (std::size_t n = 0; n < file.size(); ++n) {
        SCOPED_TRACE(n);
        const std::string nome = "caso" + std::to_string(n);
        const std::string p = File(nome + ".txt", file[n]), log = p + ".log";
        EsitoImport esito;
        ASSERT_NO_THROW(esito = ImportaSF(fileDB, nome, p, log));
        EXPECT_EQ(static_cast<std::int64_t>(Temi(nome).size()), esito.Importati);
        std::vector<std::string> righe;
        std::ifstream in(log, std::ios::binary);
        for (std::string riga; esito.Scartati && std::getline(in, riga);)
            righe.push_back(riga);
        EXPECT_EQ(static_cast<std::int64_t>(righe.size()), esito.Scartati);
        for (const std::string& riga : righe)
            EXPECT_TRUE(forma(riga)) << riga.substr(0, 80);
        for (FormatoScambio f : {FormatoScambio::AAF, FormatoScambio::CSV})
            EXPECT_NO_THROW({
                for (const std::string& r : ImportaScambio(fileDB, "Ostile", p, f, o).Log)
                    EXPECT_EQ(r.rfind("Riga ", 0), 0u);
            });
    }
    for (const Tema& t : Temi("Ostile")) {
        EXPECT_TRUE(std::isfinite(t.Day) && std::isfinite(t.OraL) && std::isfinite(t.Lon) &&
                    std::isfinite(t.Lat) && std::isfinite(t.Fuso) && std::isfinite(t.Estiva));
        RecordAAF(t);
        RigaCSV(t);
    }
}

// The export line, case by case.
Tema TemaEsportato(const char* nome, int anno, int mese, int giorno, double ora, double lonOre,
                   double lat, double fuso, double estiva, const char* city, const char* stato) {
    Tema t;
    t.Nome = nome;
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = lonOre;
    t.Lat = lat;
    t.Fuso = fuso;
    t.Estiva = estiva;
    t.City = city;
    t.Stato = stato;
    return t;
}

TEST(RigaEsportazione, Casi) {
    const auto righe = RigheDati("archives/riga-esportazione.txt");
    ASSERT_EQ(righe.size(), 4u);
    for (const auto& r : righe) {
        const auto n = [&](std::size_t i) { return std::stod(r[i]); };
        const Tema t =
            TemaEsportato(r[0].c_str(), std::stoi(r[1]), std::stoi(r[2]), std::stoi(r[3]), n(4),
                          n(5), n(6), n(7), n(8), r[9].c_str(), r[10].c_str());
        std::optional<double> avviso;
        EXPECT_EQ(RigaEsportazione(t, avviso), r[11]);
        EXPECT_FALSE(avviso) << r[11];
    }
}

TEST(RigaEsportazione, MinutiSenzaRiportoAnnoSenzaFormatoFusoConSecondi) {
    Tema t =
        TemaEsportato("  Spazi  ", 800, 3, 15, GradiDecimali(10, 59, 30), 0, 0, 0, 0, " Qui ", "");
    std::optional<double> avviso;
    std::string riga = RigaEsportazione(t, avviso);
    EXPECT_EQ(riga.substr(0, 36), "* Spazi, 15/03/800, 10:60, LMT, +00:");
    EXPECT_NE(riga.find(", Qui, , "), std::string::npos) << riga;

    // 0h 49m 58s east, as the longitude: "LMT" and no warning; a zone with seconds that is not
    // the longitude is warned of by the export of an archive below.
    const double fuso = -GradiDecimali(12, 29, 30) / 15;
    avviso.reset();
    Tema lmt = TemaEsportato("A", 1900, 1, 1, 12, fuso, 45, fuso, 0, "X", "Y");
    EXPECT_NE(RigaEsportazione(lmt, avviso).find(", LMT, -00:49, "), std::string::npos);
    EXPECT_FALSE(avviso);
}

// An archive written out, warning of a zone with seconds; Cancel writes nothing; empty is empty.
TEST_F(Importazione, EsportazioneDiUnArchivio) {
    const double fuso = -GradiDecimali(12, 29, 30) / 15;
    RiempiTemi("Mio", {TemaEsportato("Zeta", 1960, 3, 12, 10.25, -12.5 / 15, 45 + 26.0 / 60, -1, 0,
                                     "Padova", "Italia"),
                       TemaEsportato("Alfa", 1900, 1, 1, 12, -0.8, 45, fuso, 0, "X", "Y")});
    const std::string percorso = File("Mio.txt", "vecchio contenuto che sparisce\n");
    const std::string dir = cartella.Percorso().string();
    EXPECT_EQ(EsportaArchivio(fileDB, "Mio", dir, messaggi), percorso);
    std::string testo = Leggi(percorso);
    EXPECT_EQ(testo.substr(0, 9), "* Alfa, 0");
    EXPECT_NE(testo.find("\n* Zeta, 12/03/1960, 10:15,  , -01:00, Padova, Italia, 012E30 45N26, "
                         "17Gem42\n"),
              std::string::npos);
    EXPECT_EQ(
        Mostrati(messaggi),
        (Riquadri{{"Vesmo - Export Archivi", "Scrittura del file " + percorso},
                  {"AVVISO frmGesArchivi.mnFileTT",
                   "Errore TimeZone con secondi!!! Alfa" + std::string(26, ' ') + ", 58"},
                  {"Vesmo - Info File GesArchivi",
                   "Tabella  Mio\n\nScritta nel File  \n" + percorso + "\nNumero di Records: 2"}}));
    EXPECT_EQ(messaggi.registro[0].pulsanti, Pulsanti::OkAnnulla);
    EXPECT_EQ(messaggi.registro[1].icona, Icona::Critico);

    CreaArchivio(fileDB, "Vuoto");
    messaggi.risposte = {Risposta::Annulla};
    EXPECT_FALSE(EsportaArchivio(fileDB, "Vuoto", dir, messaggi));
    EXPECT_FALSE(std::filesystem::exists(cartella / "Vuoto.txt"));
    auto scritto = EsportaArchivio(fileDB, "Vuoto", dir, messaggi);
    ASSERT_TRUE(scritto);
    EXPECT_EQ(Leggi(*scritto), "");
    EXPECT_EQ(messaggi.registro.back().testo,
              "Tabella  Vuoto\n\nScritta nel File  \n" + *scritto + "\nNumero di Records: 0");
}

} // namespace
} // namespace vesmo::test
