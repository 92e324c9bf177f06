// The entry forms' zone and summer-time resolution: its states, texts and question, edges.
#include <gtest/gtest.h>

#include "places/ModelloLuoghi.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

class Risoluzione : public ::testing::Test {
protected:
    test::CartellaLuoghi cartella;
    Database db = test::DatabaseLuoghi(cartella / "Vesmodat.Mdb");
    MessaggiRegistrati msg;

    void SetUp() override {
        db.IniziaTransazione();
        // List 2 has half hours; list 3 is southern, in summer time over the new year.
        test::Aggiungi(db,
                       {{380, "Roma", -0.8322, 41.9, 1, 1},
                        {380, "Mezzora", -0.5, 40.0, 2, 2},
                        {124, "Sud", 4.0, -30.0, 3, 3},
                        {380, "Nessuna", -1.0, 45.0, 5, 5},
                        {380, "Differenti", -1.0, 45.0, 12000, 300},
                        {380, "Diecimila", -1.0, 45.0, 10000, 10000}},
                       {{1, 1, 11, 1893, "-1", "00"},
                        {1, 15, 3, 1940, "-2", "00"},
                        {1, 1, 1, 1950, "-1", "00"},
                        {2, 1, 1, 1900, "-", "30"},
                        {2, 1, 1, 1950, "-1", "30"},
                        {2, 1, 1, 1960, "1", "30"},
                        {3, 1, 1, 1900, "4", "00"},
                        {10000, 1, 1, 1900, "-3", "00"}},
                       {{1, 1, 11, 1893, 0, 0, 0, 0},
                        {1, 28, 3, 1971, 2, 0, 1, 0},
                        {1, 26, 9, 1971, 3, 0, 0, 0},
                        {3, 1, 1, 1900, 0, 0, 0, 0},
                        {3, 10, 10, 1970, 2, 0, 1, 0},
                        {3, 20, 3, 1971, 3, 0, 0, 0},
                        {3, 9, 10, 1971, 2, 0, 1, 0},
                        {10000, 1, 1, 1900, 0, 0, 0, 0}});
        db.ConfermaTransazione();
    }
    Tema Importa(ModelloLuoghi& m, const std::string& city, const std::string& g,
                 const std::string& mese, const std::string& a, const std::string& h = "12",
                 const std::string& min = "00") {
        test::SuLuogo(m, city);
        return test::Importa(m, g, mese, a, h, min);
    }
};

TEST_F(Risoluzione, RowsFoundFillTheRecord) {
    ModelloLuoghi m(db, msg, 'C');
    m.campi.Pannello2 = "testo di prima";
    m.campi.Text1 = "Mario Rossi";
    const Tema t = Importa(m, "Roma", "10", "7", "1971", "21", "30");
    EXPECT_EQ(std::tuple(t.Nome.Valore(), t.City.Valore(), t.Stato.Valore(), t.cNaz, t.cFusi,
                         t.cEst, m.campi.Pannello2, m.campi.TagChkSolare),
              std::tuple("Mario Rossi", "Roma", "Italy", 380, 1, 1, "", ""));
    // Every value is exact in binary or copied from the row: no tolerance.
    EXPECT_EQ(std::tuple(t.Day, t.OraL, t.Lon, t.Lat, t.Fuso, t.Estiva),
              std::tuple(2441142.5, 21.5, -0.8322, 41.9, -1.0, 1.0));
    EXPECT_FALSE(m.campi.Label1Visibile);
    EXPECT_TRUE(m.campi.Text22Visibile);
    EXPECT_TRUE(msg.registro.empty());
}

TEST_F(Risoluzione, TheRowsInForceAtADateAndTime) {
    struct Caso {
        const char *city, *g, *m, *a, *h, *min;
        double fuso, estiva;
        const char* pannello;
    };
    const Caso casi[] = {
        // January takes the year before; south of the equator that ended in summer time.
        {"Roma", "1", "1", "1971", "0", "0", -1, 0, nullptr},
        {"Roma", "27", "3", "1971", "12", "00", -1, 0, nullptr},
        {"Sud", "5", "1", "1971", "12", "00", 4, 1, nullptr},
        {"Sud", "1", "6", "1971", "12", "00", 4, 0, nullptr},
        {"Sud", "31", "12", "1971", "12", "00", 4, 1, nullptr},
        // A change is in force from its minute.
        {"Roma", "28", "3", "1971", "1", "59", -1, 0, nullptr},
        {"Roma", "28", "3", "1971", "2", "00", -1, 1, nullptr},
        {"Roma", "26", "9", "1971", "2", "59", -1, 1, nullptr},
        {"Roma", "26", "9", "1971", "3", "00", -1, 0, nullptr},
        // A zone row holds from midnight; one of that year in an earlier month, whatever the day.
        {"Roma", "14", "3", "1940", "23", "59", -1, 0, nullptr},
        {"Roma", "15", "3", "1940", "0", "0", -2, 0, nullptr},
        {"Roma", "2", "5", "1940", "12", "00", -2, 0, nullptr},
        {"Roma", "1", "1", "1950", "0", "0", -1, 0, nullptr},
        // Zone texts with minutes: "-" "30", "-1" "30", "1" "30".
        {"Mezzora", "1", "6", "1920", "12", "00", -0.5, 0, nullptr},
        {"Mezzora", "1", "6", "1955", "12", "00", -1.5, 0, nullptr},
        {"Mezzora", "1", "6", "1965", "12", "00", 1.5, 0, nullptr},
        // No summer-time row of the year, no summer-time list at all.
        {"Roma", "5", "6", "1955", "12", "00", -1, 0, " Anno 1955 Estive Vuoto "},
        {"Mezzora", "5", "06", "1955", "12", "00", -1.5, 0,
         "Estive di  ITALY non disponibili o con inizio posteriore al 5/06/1955 "},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(std::string(c.city) + " " + c.g + "/" + c.m + "/" + c.a + " " + c.h + ":" +
                     c.min);
        ModelloLuoghi m(db, msg, 'C');
        const Tema t = Importa(m, c.city, c.g, c.m, c.a, c.h, c.min);
        EXPECT_EQ(std::tuple(t.Fuso, t.Estiva, m.campi.TagChkSolare),
                  std::tuple(c.fuso, c.estiva, ""));
        if (c.pannello) {
            EXPECT_EQ(m.campi.Pannello2, c.pannello);
        }
    }
}

TEST_F(Risoluzione, NoZoneListAsksAndSetsLocalMeanTime) {
    for (Risposta risposta : {Risposta::No, Risposta::Si}) {
        MessaggiRegistrati domande;
        domande.risposte.push_back(risposta);
        ModelloLuoghi m(db, domande, 'C');
        std::vector<std::pair<std::int32_t, std::string>> aperti;
        m.ApriFusiEstive = [&](std::int32_t c, const std::string& d) { aperti.push_back({c, d}); };
        const Tema t = Importa(m, "Nessuna", "1", "6", "1980");
        // The zone is the longitude.
        EXPECT_EQ(std::tuple(t.Fuso, t.cFusi, m.campi.TagChkSolare), std::tuple(-1.0, 5, "Ok"));
        ASSERT_EQ(domande.registro.size(), 1u);
        EXPECT_EQ(domande.registro[0].titolo, "Vesmo - Aggiornamenti");
        EXPECT_EQ(domande.registro[0].testo,
                  "Non ci sono Fusi disponibili per la\nCity Nessuna di Italy\n\nLMT "
                  "impostata\n\nControllo / Aggiunta alla Tabella Fusi?\n");
        EXPECT_EQ(domande.registro[0].pulsanti, Pulsanti::SiNo);
        using Aperti = std::vector<std::pair<std::int32_t, std::string>>;
        const Aperti attesi =
            risposta == Risposta::Si ? Aperti{{5, "Vesmo - Fuso di   Italy"}} : Aperti{};
        EXPECT_EQ(aperti, attesi);
    }
}

TEST_F(Risoluzione, DatesBeforeAZoneList) {
    // Before the table's first list no question; before a later one the seek asks it.
    struct Caso {
        const char *city, *g, *m, *a;
        double fuso;
        const char* lmt;
        std::size_t domande;
    };
    // In the first row's month but before its day, the row holds.
    for (const Caso& c : {Caso{"Roma", "1", "6", "1880", -0.8322, "Ok", 0},
                          Caso{"Mezzora", "1", "6", "1890", -0.5, "Ok", 1},
                          Caso{"Roma", "31", "10", "1893", -1, "", 0},
                          Caso{"Roma", "15", "11", "1893", -1, "", 0}}) {
        MessaggiRegistrati domande;
        ModelloLuoghi m(db, domande, 'C');
        const Tema t = Importa(m, c.city, c.g, c.m, c.a);
        EXPECT_EQ(std::tuple(t.Fuso, m.campi.TagChkSolare, domande.registro.size()),
                  std::tuple(c.fuso, c.lmt, c.domande))
            << c.city << " " << c.a;
    }
}

TEST_F(Risoluzione, CodesAboveTenThousandThatDifferUseTheOrdinaryTables) {
    ModelloLuoghi m(db, msg, 'C');
    const Tema t = Importa(m, "Differenti", "1", "6", "1980");
    // No zone rows for 12000: local mean time and its question.
    EXPECT_EQ(std::tuple(m.campi.Label1Visibile, m.campi.TagChkSolare, msg.registro.size(), t.cFusi,
                         t.cEst),
              std::tuple(false, "Ok", 1u, 12000, 300));
    // Exactly 10000 is an ordinary code.
    ModelloLuoghi m2(db, msg, 'C');
    const Tema t2 = Importa(m2, "Diecimila", "1", "6", "1980");
    EXPECT_DOUBLE_EQ(t2.Fuso, -3);
    EXPECT_EQ(m2.campi.Pannello2, " Anno 1980 Estive Vuoto ");
}

TEST_F(Risoluzione, NationCursorThatRanAwayFromThePlace) {
    // The nation cursor on Canada, the place Italian: the kept bookmark brings it back.
    ModelloLuoghi m(db, msg, 'C');
    m.Data1.Seek("=", "Roma");
    m.Data2.Seek("=", 380);
    m.segnalibroNazione = m.Data2.Bookmark();
    m.Data2.Seek("=", 124);
    const Tema t = test::Importa(m, "1", "6", "1980");
    // The name was read before the cursor came back.
    EXPECT_EQ(std::tuple(t.cNaz, msg.registro.size(), t.Stato.Valore()),
              std::tuple(380, 0u, "Canada"));
    // With no bookmark that helps: the sort order's error box, the record kept.
    const std::string perNazioni =
        "Errore Importa Città\n\nCNaz <> cCity\n\nOrdinamento per Nazioni\nImpostare PRIMA la "
        "Nazione\n--------------------------\nError: Import City\n\nCNaz <> cCity\n\nSet Order "
        "by nation\nSet Nation, please\n";
    for (char ordine : {'C', 'N'}) {
        MessaggiRegistrati errori;
        ModelloLuoghi e(db, errori, ordine);
        e.Data1.Index("indCity");
        e.Data1.Seek("=", "Roma");
        e.Data2.Index("IndCoNazi");
        e.Data2.Seek("=", 124);
        e.segnalibroNazione = e.Data2.Bookmark();
        const Tema t2 = test::Importa(e, "1", "6", "1980");
        ASSERT_EQ(errori.registro.size(), 1u);
        EXPECT_EQ(std::tuple(errori.registro[0].titolo, errori.registro[0].icona, t2.Fuso),
                  std::tuple("Vesmo - Errori", Icona::Critico, -1.0));
        if (ordine == 'C')
            EXPECT_EQ(errori.registro[0].testo.substr(0, 32), "Errore Importa City \n\nCNaz <> cC");
        else
            EXPECT_EQ(errori.registro[0].testo, perNazioni);
    }
}

} // namespace
} // namespace vesmo
