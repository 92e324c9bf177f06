// AAF and CSV; AAF records by hand from the format's published definition (its examples of
// Ferber, Cezanne and Garms). Julian days from Python's datetime.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>
#include <sstream>

#include "archives/Archivi.h"
#include "archives/FormatoAAF.h"
#include "archives/FormatoCSV.h"
#include "archives/Scambio.h"
#include "core/Aritmetica.h"
#include "tests/archives/AiutoArchivi.h"

namespace vesmo::test {
namespace {

constexpr double TolleranzaOreGradi = 1e-9; // hours and degrees

// Local mean time, summer time, all four quadrants, accents, quotes and commas, seconds.
Tema TemaEstratto(std::mt19937& g, int i) {
    static const char* const nomi[] = {
        "Rossi, Mario",      "D'Annunzio Gabriele", "Nicolò Brambilla",
        "Zoë O'Neill",       "Müller, Jürgen",      "Ana María Núñez",
        "Søren Kierkegaard", "Li \"Tiger\" Wei",    "100% Rossi"};
    static const char* const citta[] = {"Sant'Angelo",   "São Paulo",  "Buenos Aires", "Reykjavík",
                                        "Forlì, Cesena", "Wellington", "Los Angeles",  "Zürich"};
    static const char* const nazioni[] = {"Italy", "Brazil",      "Argentina",     "Iceland",
                                          "Italy", "New Zealand", "United States", "Switzerland"};
    auto unita = [&] { return static_cast<double>(g()) / 4294967296.0; };
    Tema t;
    t.Nome = std::string(nomi[g() % 9]) + " " + std::to_string(i);
    const auto luogo = g() % 8;
    t.City = citta[luogo];
    t.Stato = nazioni[luogo];
    t.Day = std::floor(2378496.5 + unita() * 100000) + 0.5; // 1800 to 2073
    t.OraL = std::floor(unita() * 86400) / 3600;
    t.Lon = (unita() * 2 - 1) * 12;
    t.Lat = (unita() * 2 - 1) * 89;
    if (i % 3 == 0) {
        t.Fuso = t.Lon;
        t.Estiva = 0;
    } else {
        t.Fuso = std::round((unita() * 2 - 1) * 12 * 4) / 4;
        t.Estiva = i % 2 ? 1 : 0;
    }
    t.Cmto = i % 5 ? "nota, con virgola e \"virgolette\"" : "";
    return t;
}

class Scambio : public ConArchivi {
protected:
    void Riempi300() {
        std::mt19937 g(29);
        std::vector<Tema> temi;
        for (int i = 0; i < 300; ++i)
            temi.push_back(TemaEstratto(g, i));
        RiempiTemi("Clienti", temi);
    }
};

TEST_F(Scambio, EsportazioneEImportazioneDannoGliStessiTemi) {
    Riempi300();
    for (FormatoScambio f : {FormatoScambio::AAF, FormatoScambio::CSV}) {
        SCOPED_TRACE(NomeFormato(f));
        const std::string file = (cartella / (std::string("temi.") + NomeFormato(f))).string();
        EXPECT_EQ(EsportaScambio(fileDB, "Clienti", file, f), 300);
        const std::string archivio = std::string("Da_") + NomeFormato(f);
        const EsitoImportScambio e = ImportaScambio(fileDB, archivio, file, f, {});
        EXPECT_TRUE(e.Creato);
        EXPECT_EQ(e.Importati, 300);
        EXPECT_EQ(e.Scartati + e.Doppi + e.Completati, 0);
        // Exact values: the round trip gives back the same doubles; AAF carries no comment.
        const auto campi = [&](const Tema& t) {
            return std::tuple(t.Day, t.OraL, t.Lon, t.Lat, t.Fuso, t.Estiva, t.Nome.str(),
                              t.City.str(), t.Stato.str(), f == FormatoScambio::CSV ? t.Cmto : "");
        };
        const auto a = Temi("Clienti"), b = Temi(archivio);
        ASSERT_EQ(a.size(), b.size());
        for (std::size_t i = 0; i < a.size(); ++i)
            EXPECT_EQ(campi(a[i]), campi(b[i]));
        // A second import into the same archive finds every chart already there.
        const EsitoImportScambio di = ImportaScambio(fileDB, archivio, file, f, {});
        EXPECT_EQ(di.Importati, 0);
        EXPECT_EQ(di.Doppi, 300);
        ASSERT_EQ(di.Log.size(), 300u);
        EXPECT_NE(di.Log[0].find(": già nell'archivio, non importato"), std::string::npos);
        // The first record stands on the first line, or below the header row.
        const std::string prima = f == FormatoScambio::AAF ? "Riga 1, " : "Riga 2, ";
        EXPECT_EQ(di.Log[0].rfind(prima, 0), 0u) << di.Log[0];
        // Asked to, it takes them again.
        OpzioniImportScambio doppi;
        doppi.doppi = true;
        EXPECT_EQ(ImportaScambio(fileDB, archivio, file, f, doppi).Importati, 300);
    }
}

TEST_F(Scambio, AafSenzaIlBloccoPropioTieneSecondiEPrimiDArco) {
    // What another program reads: #A93 and #B93 alone give each chart within a second of time
    // and of arc; the local mean time comes back exact through #ZNAM.
    Riempi300();
    const std::string file = (cartella / "temi.aaf").string();
    EsportaScambio(fileDB, "Clienti", file, FormatoScambio::AAF);
    std::istringstream in(Leggi(file));
    std::string solo, riga;
    while (std::getline(in, riga))
        if (riga.rfind("#VESMO:", 0) != 0) solo += riga + "\n";
    const std::string altro = File("altro.aaf", solo);
    EXPECT_EQ(ImportaScambio(fileDB, "Altro", altro, FormatoScambio::AAF, {}).Importati, 300);
    const auto a = Temi("Clienti"), b = Temi("Altro");
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        // The index orders by name: "Rossi, Mario 7" keeps its place.
        SCOPED_TRACE(a[i].Nome.str());
        EXPECT_EQ(a[i].Nome.str(), b[i].Nome.str());
        EXPECT_NEAR(a[i].JD(), b[i].JD(), 1.0 / 86400); // a second, in days
        // A second of time in hours, a second of arc in degrees.
        for (auto [x, y] : {std::pair{a[i].OraL, b[i].OraL},
                            {a[i].Lon * 15, b[i].Lon * 15},
                            {a[i].Lat, b[i].Lat},
                            {a[i].Fuso, b[i].Fuso}})
            EXPECT_NEAR(x, y, 1.0 / 3600);
        EXPECT_EQ(std::tuple(a[i].Estiva, a[i].Stato.str(), a[i].Fuso == a[i].Lon),
                  std::tuple(b[i].Estiva, b[i].Stato.str(), b[i].Fuso == b[i].Lon));
    }
}

TEST_F(Scambio, RecordAafScrittiAMano) {
    const std::string aaf = Leggi(std::string(VESMO_DATI_TEST) + "/archives/esempi.aaf");
    const auto attesi = RigheDati("archives/esempi-attesi.txt");
    ASSERT_EQ(attesi.size(), 6u);
    std::vector<VoceScambio> voci = LeggiAAF(aaf, {});
    ASSERT_EQ(voci.size(), 9u);
    voci.erase(voci.begin() + 2); // the first Garms record has six fields only: in the log below
    for (std::size_t i = 0; i < attesi.size(); ++i) {
        const auto& a = attesi[i];
        const Tema& t = voci[i].tema;
        SCOPED_TRACE(a[0]);
        EXPECT_EQ(std::tuple(voci[i].errore, t.Nome.Valore(), t.Day, t.Estiva, t.City.Valore(),
                             t.Stato.Valore()),
                  std::tuple("", a[0], std::stod(a[1]), std::stod(a[6]), a[7], a[8]));
        for (auto [letto, atteso] : {std::pair{t.OraL, std::stod(a[2])},
                                     {t.Lon, -std::stod(a[3]) / 15},
                                     {t.Lat, std::stod(a[4])},
                                     {t.Fuso, std::stod(a[5])}})
            EXPECT_NEAR(letto, atteso, TolleranzaOreGradi);
    }
    EXPECT_EQ(voci[0].tema.Cmto, "Programmierer");
    EXPECT_EQ(voci[1].tema.Cmto, "Frz. Maler.\ngest. 22.10.1906");
    EXPECT_EQ(voci[1].tema.Fuso, voci[1].tema.Lon); // local mean time

    // Into an archive: the refused records are logged with line and name.
    const EsitoImportScambio e =
        ImportaScambio(fileDB, "Aaf", File("mano.aaf", aaf), FormatoScambio::AAF, {});
    EXPECT_EQ(std::tuple(e.Importati, e.Scartati), std::tuple(6, 3));
    const std::vector<std::string> log = {
        "Riga 10, Garms, Martin: #A93 con 6 campi invece di 7",
        "Riga 13, Orario: ora 12:00 corretta dal giorno giuliano 2451545.041667",
        "Riga 19, Bad, Date: data non valida: 31.2.1970",
        "Riga 20, Bad, Lat: latitudine non valida: 49x05",
    };
    EXPECT_EQ(e.Log, log);
}

TEST_F(Scambio, AafSenzaB93CompletatoDalDatabaseDeiLuoghi) {
    const std::string aaf = "#A93:Rossi,Mario,m,10.4.1987,19:30,Padova,I\n"
                            "#A93:Nessuno,*,m,10.4.1987,19:30,Atlantide,I\n"
                            "#A93:Neri,Anna,f,10.4.1987,19:30,Padova,I\n"
                            "#B93:*,45n24,11e53,*,*\n";
    std::vector<std::string> chieste;
    CompletaLuogo completa = [&](Tema& t) {
        chieste.push_back(t.City.Valore() + "|" + t.Stato.Valore());
        if (t.City.Valore() != "Padova") throw std::runtime_error("luogo sconosciuto: Atlantide");
        t.Lon = -GradiDecimali(11, 52, 0) / 15; // the database's own figures
        t.Lat = GradiDecimali(45, 25, 0);
        t.Fuso = -1;
        t.Estiva = 1;
    };
    OpzioniImportScambio o;
    o.completa = completa;
    const EsitoImportScambio e =
        ImportaScambio(fileDB, "Aaf", File("b.aaf", aaf), FormatoScambio::AAF, o);
    EXPECT_EQ(chieste,
              (std::vector<std::string>{"Padova|Italy", "Atlantide|Italy", "Padova|Italy"}));
    EXPECT_EQ(std::tuple(e.Importati, e.Completati), std::tuple(2, 2));
    const std::vector<std::string> log = {
        "Riga 1, Rossi, Mario: completato dal database dei luoghi: Padova, Italy, 11E52 45N25, "
        "fuso -1, estiva 1",
        "Riga 2, Nessuno: luogo non trovato nel database dei luoghi: luogo sconosciuto: Atlantide",
        "Riga 3, Neri, Anna: completato dal database dei luoghi: Padova, Italy, 11E52 45N25, "
        "fuso -1, estiva 1",
    };
    EXPECT_EQ(e.Log, log);
    // With #B93 its coordinates hold; the zone came from the database.
    const auto temi = Temi("Aaf");
    ASSERT_EQ(temi.size(), 2u);
    EXPECT_EQ(temi[0].Nome.Valore(), "Neri, Anna");
    EXPECT_NEAR(temi[0].Lat, GradiDecimali(45, 24, 0), TolleranzaOreGradi);
    EXPECT_EQ(temi[0].Fuso, -1);
    EXPECT_NEAR(temi[1].Lat, GradiDecimali(45, 25, 0), TolleranzaOreGradi);
    // Without a places database nothing is guessed.
    EXPECT_EQ(LeggiAAF(aaf, {})[0].errore,
              "luogo senza coordinate o fuso, e nessun database dei luoghi");
}

TEST(ZonaAAF, LeFormeDelFuso) {
    const auto righe = RigheDati("archives/zone-aaf.txt");
    ASSERT_EQ(righe.size(), 13u);
    for (const auto& r : righe) {
        SCOPED_TRACE(r[0]);
        const auto z = ZonaAAF(r[0]);
        ASSERT_EQ(z.has_value(), r[1] != "-");
        if (z) {
            EXPECT_NEAR(*z, std::stod(r[1]), TolleranzaOreGradi);
        }
    }
}

TEST_F(Scambio, CsvDiUnFoglioItaliano) {
    // Semicolons, decimal commas, Latin-1 accents, columns in another order, no Day or OraL.
    const std::string csv =
        "nome;data;ora;city;stato;lat;lon;fuso;estiva;cmto\r\n"
        "Nicol\xF2 Bianchi;12/03/1960;10:30;Forl\xEC;Italy;44N13;12E03;-1;0;\"a;b\"\r\n"
        "\r\n"
        "Mario \"Bad\";12/03/1960;25:00;Roma;Italy;41,9;-0,83;-1;0;\r\n"
        "Iso;1960-03-12;10:30:15;Roma;Italy;41,9;-0,83;-1;1;\r\n"
        "Feb;30/02/1960;10:30;Roma;Italy;41,9;-0,83;-1;0;\r\n";
    const EsitoImportScambio e =
        ImportaScambio(fileDB, "Foglio", File("f.csv", csv), FormatoScambio::CSV, {});
    EXPECT_EQ(e.Importati, 2);
    const std::vector<std::string> log = {
        "Riga 4, Mario \"Bad\": ora non valida: 25:00",
        "Riga 6, Feb: data non valida: 30/02/1960",
    };
    EXPECT_EQ(e.Log, log);
    const auto t = Temi("Foglio");
    ASSERT_EQ(t.size(), 2u);
    EXPECT_EQ(std::tuple(t[1].Nome.Valore(), t[1].City.Valore(), t[1].Day, t[1].OraL, t[1].Cmto),
              std::tuple("Nicolò Bianchi", "Forlì", 2437005.5, 10.5, "a;b"));
    EXPECT_NEAR(t[1].Lat, 44 + 13.0 / 60, TolleranzaOreGradi);
    EXPECT_NEAR(t[1].Lon, -(12 + 3.0 / 60) / 15, TolleranzaOreGradi);
    EXPECT_EQ(std::tuple(t[0].Nome.Valore(), t[0].Lat, t[0].Lon, t[0].Estiva),
              std::tuple("Iso", 41.9, -0.83, 1.0));
    EXPECT_NEAR(t[0].OraL, 10.5 + 15.0 / 3600, TolleranzaOreGradi);
}

TEST(RigaCSV, TestiTraVirgoletteEValoriEsatti) {
    Tema t = TemaDiProva("Rossi, \"Mario\"");
    t.Cmto = "riga uno\nriga due";
    EXPECT_EQ(TestataCSV(), "Nome,Data,Ora,City,Nazione,Lon,Lat,Fuso,Estiva,Day,OraL,Cmto\r\n");
    EXPECT_EQ(RigaCSV(t), "\"Rossi, \"\"Mario\"\"\",10/04/1987,19:30:00,Padova,Italy,"
                          "-0.79222222222222216,45.399999999999999,-1,1,2446895.5,19.5,"
                          "\"riga uno\nriga due\"\r\n");
}

TEST(SiglaAAF, NazioniDelleSigleEDaCapo) {
    const std::pair<const char*, const char*> casi[] = {
        {"I", "Italy"},        {"D", "Germany"},         {"F", "France"},  {"USA", "United States"},
        {"CH", "Switzerland"}, {"GB", "United Kingdom"}, {"A", "Austria"}, {"E", "Spain"}};
    for (const auto& [sigla, nazione] : casi) {
        EXPECT_EQ(NazioneDaSiglaAAF(sigla).value_or("?"), nazione);
        EXPECT_EQ(SiglaAAFDaNazione(nazione).value_or("?"), sigla);
    }
    EXPECT_FALSE(NazioneDaSiglaAAF("Italia"));
}

} // namespace
} // namespace vesmo::test
