// The zone and summer-time resolution of the entry forms on a small database: the four
// states, the status texts and the question, and the edge cases of the dated lists.
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

    // Selects a place as the grids would (sorted by city), types date and time, and runs the
    // steps of Command4.
    Tema Importa(ModelloLuoghi& m, const std::string& city, const std::string& g,
                 const std::string& mese, const std::string& a, const std::string& h = "12",
                 const std::string& min = "00") {
        m.Data1.Seek("=", city);
        EXPECT_FALSE(m.Data1.NoMatch()) << city;
        m.Data2.Seek("=", m.Data1.Campo("cCity"));
        m.segnalibroNazione = m.Data2.Bookmark();
        m.campi.Text1 = "Mario Rossi";
        m.campi.Text3 = g;
        m.campi.Text4 = mese;
        m.campi.Text5 = a;
        m.campi.Text6 = h;
        m.campi.Text7 = min;
        Tema t;
        m.ImportaCity(t);
        return t;
    }

    Tema Importa(const std::string& city, const std::string& g, const std::string& mese,
                 const std::string& a, const std::string& h = "12", const std::string& min = "00") {
        ModelloLuoghi m(db, msg, 'C');
        return Importa(m, city, g, mese, a, h, min);
    }
};

TEST_F(Risoluzione, RowsFoundFillTheRecord) {
    ModelloLuoghi m(db, msg, 'C');
    m.campi.Pannello2 = "testo di prima";
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

TEST_F(Risoluzione, JanuaryBeforeTheSpringRowTakesTheYearBefore) {
    EXPECT_DOUBLE_EQ(Importa("Roma", "1", "1", "1971", "0", "0").Estiva, 0);
    EXPECT_DOUBLE_EQ(Importa("Roma", "27", "3", "1971").Estiva, 0);
    EXPECT_DOUBLE_EQ(Importa("Roma", "31", "12", "1971").Estiva, 0);
    // South of the equator the year before ended in summer time.
    EXPECT_DOUBLE_EQ(Importa("Sud", "5", "1", "1971").Estiva, 1);
    EXPECT_DOUBLE_EQ(Importa("Sud", "19", "3", "1971", "23", "59").Estiva, 1);
    EXPECT_DOUBLE_EQ(Importa("Sud", "1", "6", "1971").Estiva, 0);
    EXPECT_DOUBLE_EQ(Importa("Sud", "31", "12", "1971").Estiva, 1);
}

TEST_F(Risoluzione, AChangeIsInForceFromItsMinute) {
    EXPECT_DOUBLE_EQ(Importa("Roma", "28", "3", "1971", "1", "59").Estiva, 0);
    EXPECT_DOUBLE_EQ(Importa("Roma", "28", "3", "1971", "2", "00").Estiva, 1);
    EXPECT_DOUBLE_EQ(Importa("Roma", "26", "9", "1971", "2", "59").Estiva, 1);
    EXPECT_DOUBLE_EQ(Importa("Roma", "26", "9", "1971", "3", "00").Estiva, 0);
}

TEST_F(Risoluzione, AZoneRowHoldsFromMidnightOfItsDay) {
    EXPECT_DOUBLE_EQ(Importa("Roma", "14", "3", "1940", "23", "59").Fuso, -1);
    EXPECT_DOUBLE_EQ(Importa("Roma", "15", "3", "1940", "0", "0").Fuso, -2);
    // A row of the wanted year in an earlier month is used without comparing days.
    EXPECT_DOUBLE_EQ(Importa("Roma", "2", "5", "1940").Fuso, -2);
    EXPECT_DOUBLE_EQ(Importa("Roma", "31", "12", "1949").Fuso, -2);
    EXPECT_DOUBLE_EQ(Importa("Roma", "1", "1", "1950", "0", "0").Fuso, -1);
}

TEST_F(Risoluzione, ZoneTextsWithMinutes) {
    EXPECT_DOUBLE_EQ(Importa("Mezzora", "1", "6", "1920").Fuso, -0.5); // "-" "30"
    EXPECT_DOUBLE_EQ(Importa("Mezzora", "1", "6", "1955").Fuso, -1.5); // "-1" "30"
    EXPECT_DOUBLE_EQ(Importa("Mezzora", "1", "6", "1965").Fuso, 1.5);  // "1" "30"
}

TEST_F(Risoluzione, NoSummerTimeRowOfTheYear) {
    ModelloLuoghi m(db, msg, 'C');
    const Tema t = Importa(m, "Roma", "5", "6", "1955");
    EXPECT_DOUBLE_EQ(t.Estiva, 0);
    EXPECT_DOUBLE_EQ(t.Fuso, -1);
    EXPECT_EQ(m.campi.Pannello2, " Anno 1955 Estive Vuoto ");
}

TEST_F(Risoluzione, NoSummerTimeList) {
    ModelloLuoghi m(db, msg, 'C');
    const Tema t = Importa(m, "Mezzora", "5", "06", "1955");
    EXPECT_DOUBLE_EQ(t.Estiva, 0);
    EXPECT_DOUBLE_EQ(t.Fuso, -1.5);
    EXPECT_EQ(m.campi.Pannello2,
              "Estive di  ITALY non disponibili o con inizio posteriore al 5/06/1955 ");
    EXPECT_EQ(m.campi.TagChkSolare, "");
}

TEST_F(Risoluzione, NoZoneListAsksAndSetsLocalMeanTime) {
    for (Risposta risposta : {Risposta::No, Risposta::Si}) {
        MessaggiRegistrati domande;
        domande.risposte.push_back(risposta);
        ModelloLuoghi m(db, domande, 'C');
        std::vector<std::pair<std::int32_t, std::string>> aperti;
        m.ApriFusiEstive = [&](std::int32_t c, const std::string& d) { aperti.push_back({c, d}); };
        const Tema t = Importa(m, "Nessuna", "1", "6", "1980");
        EXPECT_DOUBLE_EQ(t.Fuso, -1.0); // the longitude
        EXPECT_EQ(m.campi.TagChkSolare, "Ok");
        ASSERT_EQ(domande.registro.size(), 1u);
        EXPECT_EQ(domande.registro[0].titolo, "Vesmo - Aggiornamenti");
        EXPECT_EQ(domande.registro[0].testo,
                  "Non ci sono Fusi disponibili per la\nCity Nessuna di Italy\n\nLMT "
                  "impostata\n\nControllo / Aggiunta alla Tabella Fusi?\n");
        EXPECT_EQ(domande.registro[0].pulsanti, Pulsanti::SiNo);
        if (risposta == Risposta::Si) {
            ASSERT_EQ(aperti.size(), 1u);
            EXPECT_EQ(aperti[0].first, 5);
            EXPECT_EQ(aperti[0].second, "Vesmo - Fuso di   Italy");
        } else {
            EXPECT_TRUE(aperti.empty());
        }
        EXPECT_EQ(t.cFusi, 5);
    }
}

TEST_F(Risoluzione, DatesBeforeAZoneList) {
    // Before the first list of the table: the seek finds nothing, the first row is later.
    ModelloLuoghi m(db, msg, 'C');
    const Tema t = Importa(m, "Roma", "1", "6", "1880");
    EXPECT_DOUBLE_EQ(t.Fuso, -0.8322);
    EXPECT_EQ(m.campi.TagChkSolare, "Ok");
    EXPECT_TRUE(msg.registro.empty());
    // Before a later list: the seek lands on the list before it, so the question comes.
    MessaggiRegistrati domande;
    ModelloLuoghi m2(db, domande, 'C');
    const Tema t2 = Importa(m2, "Mezzora", "1", "6", "1890");
    EXPECT_DOUBLE_EQ(t2.Fuso, -0.5);
    EXPECT_EQ(m2.campi.TagChkSolare, "Ok");
    EXPECT_EQ(domande.registro.size(), 1u);
    // In the month of the first row but before its day: the row before is of another list.
    MessaggiRegistrati domande3;
    ModelloLuoghi m3(db, domande3, 'C');
    const Tema t3 = Importa(m3, "Roma", "31", "10", "1893");
    EXPECT_EQ(m3.campi.TagChkSolare, "");
    const Tema t4 = Importa(m3, "Roma", "15", "11", "1893");
    EXPECT_DOUBLE_EQ(t4.Fuso, -1);
    EXPECT_DOUBLE_EQ(t3.Fuso, -1); // the month is earlier than the row's: the row holds
}

TEST_F(Risoluzione, CodesAboveTenThousandThatDifferUseTheOrdinaryTables) {
    ModelloLuoghi m(db, msg, 'C');
    m.campi.Pannello2 = "testo di prima";
    const Tema t = Importa(m, "Differenti", "1", "6", "1980");
    EXPECT_FALSE(m.campi.Label1Visibile);
    EXPECT_EQ(m.campi.TagChkSolare, "Ok");
    EXPECT_EQ(msg.registro.size(), 1u); // no zone rows for 12000
    EXPECT_EQ(t.cFusi, 12000);
    EXPECT_EQ(t.cEst, 300);
    // Exactly 10000 is an ordinary code.
    ModelloLuoghi m2(db, msg, 'C');
    m2.campi.Pannello2 = "testo di prima";
    const Tema t2 = Importa(m2, "Diecimila", "1", "6", "1980");
    EXPECT_DOUBLE_EQ(t2.Fuso, -3);
    EXPECT_EQ(m2.campi.Pannello2, " Anno 1980 Estive Vuoto ");
}

TEST_F(Risoluzione, NationCursorThatRanAwayFromThePlace) {
    // The nation cursor stands on Canada while the place is Italian: the kept bookmark of the
    // nation brings it back.
    ModelloLuoghi m(db, msg, 'C');
    m.Data1.Seek("=", "Roma");
    m.Data2.Seek("=", 380);
    const Segnalibro italia = m.Data2.Bookmark();
    m.Data2.Seek("=", 124);
    m.segnalibroNazione = italia;
    m.campi.Text3 = "1";
    m.campi.Text4 = "6";
    m.campi.Text5 = "1980";
    Tema t;
    m.ImportaCity(t);
    EXPECT_EQ(t.cNaz, 380);
    EXPECT_TRUE(msg.registro.empty());
    EXPECT_EQ(t.Stato.Valore(), "Canada"); // the name was read before the cursor came back

    // Without a bookmark that helps: the error box of the sort order.
    for (char ordine : {'C', 'N'}) {
        MessaggiRegistrati errori;
        ModelloLuoghi e(db, errori, ordine);
        e.Data1.Index("indCity");
        e.Data1.Seek("=", "Roma");
        e.Data2.Index("IndCoNazi");
        e.Data2.Seek("=", 124);
        e.segnalibroNazione = e.Data2.Bookmark();
        e.campi.Text3 = "1";
        e.campi.Text4 = "6";
        e.campi.Text5 = "1980";
        Tema t2;
        e.ImportaCity(t2);
        ASSERT_EQ(errori.registro.size(), 1u);
        EXPECT_EQ(errori.registro[0].titolo, "Vesmo - Errori");
        EXPECT_EQ(errori.registro[0].icona, Icona::Critico);
        if (ordine == 'C')
            EXPECT_EQ(errori.registro[0].testo.substr(0, 32), "Errore Importa City \n\nCNaz <> cC");
        else
            EXPECT_EQ(errori.registro[0].testo,
                      "Errore Importa Città\n\nCNaz <> cCity\n\nOrdinamento per Nazioni\nImpostare "
                      "PRIMA la Nazione\n--------------------------\nError: Import City\n\nCNaz "
                      "<> cCity\n\nSet Order by nation\nSet Nation, please\n");
        EXPECT_DOUBLE_EQ(t2.Fuso, -1); // the record keeps what was filled in
    }
}

TEST(TestoDataOra, DatesAndTimesAsTheSystemWritesThem) {
    EXPECT_EQ(TestoDataOra(0), "00:00:00");
    EXPECT_EQ(TestoDataOra(1.0 / 24), "01:00:00");
    EXPECT_EQ(TestoDataOra(18264), "01/01/1950"); // 2433282.5 - 2415018.5
    EXPECT_EQ(TestoDataOra(18264 + 0.4375), "01/01/1950 10:30:00");
}

} // namespace
} // namespace vesmo
