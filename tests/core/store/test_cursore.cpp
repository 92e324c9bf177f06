// The table cursor: seeks, moves, bookmarks, changes, and what it sees of others' writes.
#include "core/store/Cursore.h"
#include "tests/core/store/Cartella.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>
#include <vector>

namespace vesmo {
namespace {

using test::NumeroErrore;
using Testi = std::vector<std::string>;

// A dated list table shaped like the zone lists: code, year, month, day, value.
class Liste : public ::testing::Test {
protected:
    void SetUp() override {
        db.Crea(dir / "Vesmodat.Mdb");
        db.CreaTabella("Fusi",
                       {{"cFusi", TipoCampo::Intero32},
                        {"Day", TipoCampo::Intero16},
                        {"Mese", TipoCampo::Intero16},
                        {"Anno", TipoCampo::Intero16},
                        {"fH_h", TipoCampo::Testo, 4}},
                       {{"iFusi", {"cFusi", "Anno", "Mese", "Day"}}});
    }
    // A row written through a cursor of its own, on `db` or on another connection.
    void Aggiungi(int codice, int anno, int mese, int giorno, const char* ore,
                  Database* su = nullptr) {
        Cursore c(su ? *su : db, "Fusi");
        c.AddNew();
        c.Imposta("cFusi", codice);
        c.Imposta("Anno", anno);
        c.Imposta("Mese", mese);
        c.Imposta("Day", giorno);
        c.Imposta("fH_h", ore);
        c.Update();
    }
    // Code 10: three rows; code 20: two rows in one month; code 30: one row.
    void Riempi() {
        Aggiungi(20, 1950, 4, 20, "b2");
        Aggiungi(10, 1900, 1, 1, "a1");
        Aggiungi(30, 2000, 1, 1, "c1");
        Aggiungi(10, 1940, 6, 15, "a2");
        Aggiungi(20, 1950, 4, 5, "b1");
        Aggiungi(10, 1980, 3, 1, "a3");
    }
    std::string Su(const Cursore& c) { return c.Campo("fH_h").Testo(); }
    int SenzaRecord(auto&& f) { return NumeroErrore(f) == ErroreDB::NessunRecordCorrente; }

    test::Cartella dir;
    Database db;
};

TEST_F(Liste, SeekLandsOnTheNearestRowEvenOfAnotherCode) {
    Riempi();
    Cursore c(db, "Fusi");
    c.Index("iFusi");
    EXPECT_EQ(Su(c), "a1"); // setting the index goes to its first row
    struct Caso {
        const char* confronto;
        std::vector<Valore> chiavi;
        const char* atteso;
    };
    const Caso casi[] = {
        {"<=", {20, 1950, 4}, "b2"}, // three keys of four: the last row of that month or before
        {"<=", {20, 1900, 1}, "a3"}, // before code 20's first row: code 10's last, no NoMatch
        {">=", {15}, "b1"},          // between codes: the next code's first row
        {"=", {20}, "b1"},           // a tie on leading keys: its first row in index order
        {">", {10}, "b1"},           // strict comparisons step over the whole tie
        {"<", {20}, "a3"},
        {"=", {"20", 1950.0, "4"}, "b1"}, // keys converted to the fields' types
        {">=", {10}, "a1"},               // the first and last rows themselves
        {"<=", {99, 9999, 12}, "c1"},
    };
    for (const Caso& k : casi) {
        c.Seek(k.confronto, k.chiavi);
        EXPECT_FALSE(c.NoMatch()) << k.atteso;
        EXPECT_EQ(Su(c), k.atteso);
    }
    // No match inside the index: no current row, but neither end.
    c.Seek("=", 20, 1950, 5);
    EXPECT_TRUE(c.NoMatch() && !c.BOF() && !c.Eof());
    EXPECT_TRUE(SenzaRecord([&] { c.Campo("fH_h"); }));
    EXPECT_TRUE(SenzaRecord([&] { c.MoveNext(); }));
    // Before the first row: at BOF, from where the next move is the first row.
    c.Seek("<=", 5, 2000, 1);
    EXPECT_TRUE(c.NoMatch() && c.BOF() && !c.Eof());
    EXPECT_TRUE(SenzaRecord([&] { c.MovePrevious(); }));
    c.MoveNext();
    EXPECT_EQ(Su(c), "a1");
    // After the last row: at EOF, from where the previous move is the last row.
    c.Seek(">=", 31);
    EXPECT_TRUE(c.NoMatch() && c.Eof());
    EXPECT_TRUE(SenzaRecord([&] { c.Bookmark(); }));
    EXPECT_TRUE(SenzaRecord([&] { c.MoveNext(); }));
    c.MovePrevious();
    EXPECT_EQ(Su(c), "c1");
}

TEST_F(Liste, SeekRefusesWhatItCannotDo) {
    Riempi();
    Cursore c(db, "Fusi");
    EXPECT_EQ(NumeroErrore([&] { c.Seek("=", 10); }), ErroreDB::NessunIndiceCorrente);
    EXPECT_EQ(NumeroErrore([&] { c.Index("IndEstiTbEstive"); }), ErroreDB::IndiceNonValido);
    c.Index("IFUSI"); // index names ignore case
    EXPECT_EQ(c.Index(), "iFusi");
    EXPECT_EQ(NumeroErrore([&] { c.Seek("=>", 10); }), ErroreDB::ArgomentoNonValido);
    EXPECT_EQ(NumeroErrore([&] { c.Seek("=", {10, 1, 2, 3, 4}); }), ErroreDB::ArgomentoNonValido);
    EXPECT_EQ(NumeroErrore([&] { c.Seek("=", "12a"); }), ErroreDB::ConversioneNonValida);
}

TEST_F(Liste, WalksTheIndexOrderBothWaysAcrossManyRows) {
    // Several read-ahead windows, with ties on the first key and on the whole key (in order added).
    std::vector<std::tuple<int, int, int, int>> attese; // code, year, month, order added
    db.IniziaTransazione();
    for (int i = 0; i < 150; ++i) {
        int codice = (i * 7) % 5, anno = 1900 + (i * 13) % 11, mese = 1 + i % 2;
        Aggiungi(codice, anno, mese, 1, std::to_string(i).c_str());
        attese.emplace_back(codice, anno, mese, i);
    }
    db.ConfermaTransazione();
    std::sort(attese.begin(), attese.end());
    Cursore c(db, "Fusi");
    c.Index("iFusi");
    EXPECT_EQ(c.RecordCount(), 150);
    std::vector<int> avanti, indietro;
    for (c.MoveFirst(); !c.Eof(); c.MoveNext())
        avanti.push_back(c.Campo("fH_h").Intero());
    for (c.MoveLast(); !c.BOF(); c.MovePrevious())
        indietro.push_back(c.Campo("fH_h").Intero());
    ASSERT_EQ(avanti.size(), attese.size());
    for (std::size_t i = 0; i < attese.size(); ++i)
        EXPECT_EQ(avanti[i], std::get<3>(attese[i])) << i;
    std::reverse(indietro.begin(), indietro.end());
    EXPECT_EQ(indietro, avanti);
}

TEST_F(Liste, EmptyTableAndBookmarksInEntryOrder) {
    Cursore c(db, "Fusi");
    EXPECT_TRUE(c.BOF() && c.Eof());
    EXPECT_EQ(c.RecordCount(), 0);
    EXPECT_TRUE(SenzaRecord([&] { c.MoveFirst(); }));
    EXPECT_TRUE(SenzaRecord([&] { c.Delete(); }));
    Riempi();
    // Without an index the bookmarks follow the order of entry; with one, the index order,
    // without moving the cursor.
    Cursore d(db, "Fusi");
    const auto Ordine = [&](const std::vector<Segnalibro>& segnalibri) {
        Testi r;
        for (const Segnalibro& b : segnalibri) {
            d.VaiA(b);
            r.push_back(Su(d));
        }
        return r;
    };
    EXPECT_EQ(Ordine(d.Segnalibri()), (Testi{"b2", "a1", "c1", "a2", "b1", "a3"}));
    d.Index("iFusi");
    d.Seek("=", 20);
    const std::vector<Segnalibro> tutti = d.Segnalibri();
    EXPECT_EQ(Su(d), "b1");
    EXPECT_EQ(Ordine(tutti), (Testi{"a1", "a2", "a3", "b1", "b2", "c1"}));
}

TEST_F(Liste, BookmarksAndDeletedRows) {
    Riempi();
    Cursore c(db, "Fusi");
    c.Index("iFusi");
    c.Seek("=", 10, 1940);
    Segnalibro a2 = c.Bookmark();
    c.MoveLast();
    c.VaiA(a2);
    c.MoveNext(); // the bookmark put the cursor back in the index order too
    EXPECT_EQ(Su(c), "a3");

    // Deleting the current row leaves the cursor where it stood.
    c.VaiA(a2);
    c.Delete();
    for (auto f :
         std::vector<std::function<void()>>{[&] { c.Campo("fH_h"); }, [&] { c.Bookmark(); },
                                            [&] { c.Delete(); }, [&] { c.VaiA(a2); }})
        EXPECT_EQ(NumeroErrore(f), ErroreDB::RecordEliminato);
    c.MoveNext();
    EXPECT_EQ(Su(c), "a3");
    c.Delete();
    c.MovePrevious();
    EXPECT_EQ(Su(c), "a1");
    EXPECT_EQ(c.RecordCount(), 4);

    // A row deleted through another cursor of the same file reads as deleted.
    Cursore altro(db, "Fusi");
    altro.Index("iFusi");
    altro.Seek("=", 10, 1900);
    altro.Delete();
    EXPECT_EQ(NumeroErrore([&] { c.Campo("fH_h"); }), ErroreDB::RecordEliminato);
    c.MoveNext();
    EXPECT_EQ(Su(c), "b1");
}

TEST_F(Liste, AddNewEditUpdate) {
    Riempi();
    Cursore c(db, "Fusi");
    c.Index("iFusi");
    c.Seek("=", 20);
    EXPECT_EQ(NumeroErrore([&] { c.Imposta("fH_h", "x"); }), ErroreDB::UpdateSenzaAddNew);
    EXPECT_EQ(NumeroErrore([&] { c.Update(); }), ErroreDB::UpdateSenzaAddNew);

    // After AddNew and Update the cursor stays where it was; the new row is the last modified.
    c.AddNew();
    EXPECT_EQ(c.Modo(), ModoModifica::Aggiunta);
    for (auto [campo, valore] : std::vector<std::pair<const char*, Valore>>{
             {"cFusi", 20}, {"Anno", 1950}, {"Mese", 4}, {"Day", 10}, {"fH_h", "bN"}})
        c.Imposta(campo, valore);
    EXPECT_EQ(Su(c), "bN"); // reads the row being written
    c.Update();
    EXPECT_EQ(Su(c), "b1");
    c.VaiA(c.UltimoModificato());
    EXPECT_EQ(Su(c), "bN");

    // An Edit that changes the key moves the row in the index order, and the cursor with it.
    c.Edit();
    c.Imposta("cFusi", 5);
    c.Update();
    EXPECT_EQ(Su(c), "bN");
    c.MoveNext();
    EXPECT_EQ(Su(c), "a1");

    // A cancelled change writes nothing; a move abandons a pending one.
    c.Edit();
    c.Imposta("fH_h", "zz");
    c.CancelUpdate();
    EXPECT_EQ(Su(c), "a1");
    c.AddNew();
    c.MoveFirst();
    EXPECT_EQ(c.Modo(), ModoModifica::Nessuno);
    EXPECT_EQ(c.RecordCount(), 7);
}

TEST_F(Liste, FieldRulesOnWrite) {
    db.CreaIndice("Fusi", "Unico", {"cFusi"}, true);
    Cursore c(db, "Fusi");
    EXPECT_EQ(NumeroErrore([&] { c.Campo("Nessuno"); }), ErroreDB::ElementoNonTrovato);
    c.AddNew();
    EXPECT_EQ(NumeroErrore([&] { c.Imposta("Anno", "19x0"); }), ErroreDB::ConversioneNonValida);
    EXPECT_EQ(NumeroErrore([&] { c.Imposta("Anno", 40000); }), ErroreDB::OverflowNumerico);
    c.Imposta("Anno", "1950,4"); // a number written as text, with the decimal comma
    EXPECT_EQ(c.Campo("anno").Intero(), 1950);
    c.Imposta("fH_h", "");
    EXPECT_EQ(NumeroErrore([&] { c.Update(); }), ErroreDB::LunghezzaZero);
    c.Imposta("fH_h", "-10:30");
    EXPECT_EQ(NumeroErrore([&] { c.Update(); }), ErroreDB::CampoTroppoPiccolo);
    c.Imposta("fH_h", "-1è"); // the size counts characters
    c.Update();
    c.MoveFirst();
    EXPECT_EQ(c.Campo("fH_h").Testo(), "-1è");
    EXPECT_TRUE(c.Campo("cFusi").Nullo()); // a field never set is null, read as empty or 0
    EXPECT_EQ(c.Campo("cFusi").Testo(), "");
    EXPECT_EQ(c.Campo("cFusi").Numero(), 0);
    // A unique index refuses a second row with its key.
    Aggiungi(1, 1900, 1, 1, "a");
    EXPECT_EQ(NumeroErrore([&] { Aggiungi(1, 1950, 1, 1, "b"); }), ErroreDB::ChiaveDuplicata);
    EXPECT_EQ(c.RecordCount(), 2);
}

TEST_F(Liste, OtherCursorsWritesShow) {
    Riempi();
    Cursore a(db, "Fusi");
    a.Index("iFusi");
    a.Seek("=", 10); // on a1, with a2 and a3 read ahead after the first move
    a.MoveNext();
    // Through the same Database: shown at the next move.
    Aggiungi(10, 1945, 1, 1, "aX");
    a.MoveNext();
    EXPECT_EQ(Su(a), "aX");

    // Through another connection to the file: shown after Refresh.
    Database altro(db.Percorso());
    Aggiungi(10, 1960, 1, 1, "aY", &altro);
    a.Refresh();
    EXPECT_EQ(a.RecordCount(), 8);
    a.MoveNext();
    EXPECT_EQ(Su(a), "aY");
    // A current row deleted elsewhere reads as deleted after Refresh.
    Cursore b(altro, "Fusi");
    b.Index("iFusi");
    b.Seek("=", 10, 1960);
    b.Delete();
    a.Refresh();
    EXPECT_EQ(NumeroErrore([&] { a.Campo("fH_h"); }), ErroreDB::RecordEliminato);
    a.MoveNext();
    EXPECT_EQ(Su(a), "a3");
}

// A grouped read: inside a transaction it changes nothing; on its own it ends in autocommit, a
// write made through it is kept, and another connection sees the file again once it ends.
TEST_F(Liste, GroupedReadLeavesTransactionsAlone) {
    Riempi();
    db.IniziaTransazione();
    Aggiungi(40, 2001, 1, 1, "d1");
    { LetturaUnica lettura(db); }
    db.AnnullaTransazione(); // the transaction was still open: the row goes
    EXPECT_EQ(Cursore(db, "Fusi").RecordCount(), 6);

    Database altro(dir / "Vesmodat.Mdb");
    {
        LetturaUnica lettura(db);
        Aggiungi(50, 2010, 5, 5, "e1");
    }
    Cursore b(altro, "Fusi");
    EXPECT_EQ(b.RecordCount(), 7);
    // Back in autocommit: a new transaction can begin, and the other connection can write.
    db.IniziaTransazione();
    db.ConfermaTransazione();
    Aggiungi(60, 2020, 1, 1, "f1", &altro);
    EXPECT_EQ(Cursore(db, "Fusi").RecordCount(), 8);
    Database chiuso;
    LetturaUnica niente(chiuso);
}

TEST_F(Liste, SqlConParametriLegati) {
    Riempi();
    Aggiungi(40, 2001, 1, 1, "d'1");
    // An apostrophe is only a character.
    for (const auto& [valore, attesi] :
         {std::pair<std::string, Testi>{"d'1", {"d'1"}}, {"a2", {"a2"}}, {"x' OR '1'='1", {}}}) {
        Cursore q = Cursore::Sql(db, "SELECT fH_h FROM Fusi WHERE fH_h = ?1", {Valore(valore)});
        EXPECT_EQ(q.Segnalibri().size(), attesi.size());
        Testi r;
        for (; !q.Eof(); q.MoveNext())
            r.push_back(q.Campo("fH_h").Testo());
        EXPECT_EQ(r, attesi) << valore;
    }
}

// Place names: the type-ahead ignores case and accents, never blanks.
class Nomi : public ::testing::Test {
protected:
    void SetUp() override {
        db.Crea(dir / "nomi.mdb");
        db.CreaTabella("AllCity", {{"cCity", TipoCampo::Intero32}, {"City", TipoCampo::Testo, 30}},
                       {{"indCity", {"City"}}, {"IcCityCity", {"cCity", "City"}}});
        Cursore c(db, "AllCity");
        const int nazioni[] = {1, 1, 2, 2, 3, 1, 4, 5, 1, 6, 6};
        const char* nomi[] = {
            "Città di Castello", "Cittadella", "Zürich", "zug",     "München", "Roma ",
            "Ålesund",           "Aachen",     "Città",  "STRASSE", "Straße"};
        for (std::size_t i = 0; i < std::size(nomi); ++i) {
            c.AddNew();
            c.Imposta("cCity", nazioni[i]);
            c.Imposta("City", nomi[i]);
            c.Update();
        }
    }
    test::Cartella dir;
    Database db;
};

TEST_F(Nomi, TypeAheadAndOrderIgnoreCaseAndAccents) {
    Cursore c(db, "AllCity");
    c.Index("indCity");
    Testi nomi;
    for (; !c.Eof(); c.MoveNext())
        nomi.push_back(c.Campo("City").Testo());
    EXPECT_EQ(nomi, (Testi{"Aachen", "Ålesund", "Città", "Città di Castello", "Cittadella",
                           "München", "Roma ", "STRASSE", "Straße", "zug", "Zürich"}));
    struct Caso {
        const char* indice;
        const char* confronto;
        std::vector<Valore> chiavi;
        const char* atteso; // nullptr: no match
    };
    const Caso casi[] = {
        {"indCity", ">=", {"CITTA D"}, "Città di Castello"},
        {"indCity", "=", {"Citta\xCC\x80"}, "Città"}, // the accent as a combining mark
        {"indCity", "=", {"strasse"}, "STRASSE"}, // "ß" counts as "ss": the first added of the tie
        {"indCity", "=", {"Roma"}, nullptr},      // blanks count: a padded name is another key
        {"indCity", "=", {"roma "}, "Roma "},
        {"IcCityCity", ">=", {2, "ZUR"}, "Zürich"}, // nation, then the name's beginning
        {"IcCityCity", ">=", {1, ""}, "Città"},
    };
    for (const Caso& k : casi) {
        c.Index(k.indice);
        c.Seek(k.confronto, k.chiavi);
        ASSERT_EQ(c.NoMatch(), k.atteso == nullptr) << k.chiavi[0].Testo();
        if (k.atteso) {
            EXPECT_EQ(c.Campo("City").Testo(), k.atteso);
        }
    }
}

TEST_F(Nomi, SqlCursorIsASnapshot) {
    Cursore q = Cursore::Sql(db, "SELECT City, cCity FROM AllCity WHERE City = 'citta' OR "
                                 "cCity = 6 ORDER BY City");
    EXPECT_EQ(q.RecordCount(), 3);
    EXPECT_EQ(q.Campi(), (Testi{"City", "cCity"}));
    EXPECT_EQ(q.Campo("City").Testo(), "Città");
    q.MoveNext();
    Segnalibro s = q.Bookmark();
    q.MoveNext();
    q.MoveNext();
    EXPECT_TRUE(q.Eof());
    q.VaiA(s);
    EXPECT_EQ(q.Campo("cCity").Intero(), 6);
    EXPECT_EQ(NumeroErrore([&] { q.Index("indCity"); }), ErroreDB::OperazioneNonSupportata);
    EXPECT_EQ(NumeroErrore([&] { q.Seek("=", 1); }), ErroreDB::OperazioneNonSupportata);
    EXPECT_EQ(NumeroErrore([&] { q.AddNew(); }), ErroreDB::SolaLettura);
}

} // namespace
} // namespace vesmo
