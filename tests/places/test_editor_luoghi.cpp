// The places editor, the cleaning and the compaction, and the lists beside the entry form.
#include <gtest/gtest.h>

#include <fstream>

#include "core/Aritmetica.h"
#include "places/EditorLuoghi.h"
#include "places/PuliziaLuoghi.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

namespace {

std::int64_t Conta(Database& db, const std::string& sql) {
    Cursore c = Cursore::Sql(db, sql);
    return c.Campo(c.Campi().at(0)).Intero();
}
// The rows of each "table where ...", to compare with a table in one check.
std::vector<std::int64_t> Conte(Database& db, std::initializer_list<std::string> dove) {
    std::vector<std::int64_t> n;
    for (const std::string& d : dove)
        n.push_back(Conta(db, "select count(*) from " + d));
    return n;
}

class Editor : public ::testing::Test {
protected:
    void SetUp() override {
        db = test::DatabaseLuoghi(file);
        test::Aggiungi(
            db,
            {{380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1},
             {380, "Roma", -0.8322, 41.9, 1, 1},
             {380, "Aosta", -0.49, 45.7, 3, 3},
             {124, "Vancouver BC", 8.2, 49.25, 2, 2}},
            {{1, 1, 1, 1900, "-1", "00"}, {2, 1, 1, 1900, "8", "00"}, {3, 1, 1, 1900, "-1", "00"}},
            {{1, 29, 3, 1987, 2, 0, 1, 0},
             {2, 1, 1, 1900, 0, 0, 0, 0},
             {3, 1, 1, 1900, 0, 0, 0, 0}});
    }
    // The model with the nation cursor on `nazione` and the place cursor on `city`.
    ModelloDbEdit& Su(const std::string& nazione, const std::string& city = "") {
        m = std::make_unique<ModelloDbEdit>(db, messaggi, file.string());
        m->campi.Text19 = nazione;
        m->Text19_Change();
        if (!city.empty()) {
            m->campi.Text30 = city;
            m->Text30_Change();
        }
        return *m;
    }
    void NuovaCity(ModelloDbEdit& e, const std::string& citta) {
        e.campi.Text2 = citta;
        e.campi.Text9 = "7", e.campi.Text10 = "30", e.campi.Text11 = "0";
        e.campi.Text13 = "45", e.campi.Text14 = "30", e.campi.Text15 = "0";
    }
    test::CartellaLuoghi cartella;
    std::filesystem::path file = cartella / "Vesmodat.Mdb";
    Database db;
    MessaggiRegistrati messaggi;
    std::unique_ptr<ModelloDbEdit> m;
};

TEST_F(Editor, NewNationWithAFreeCodeThenASecondPlace) {
    ModelloDbEdit& e = Su("Italy");
    e.campi.ChkNewNaz = true;
    e.ChkNewNaz_Click();
    EXPECT_FALSE(e.campi.ZoomVisibili);
    e.campi.Text19 = "Slovenia";
    e.campi.Text21 = "1";
    e.cmdHelpCod_Click(); // 1, 2 and 3 are lists already
    EXPECT_EQ(std::tuple(e.campi.Text21, e.campi.Text18, e.campi.Text20),
              std::tuple("4", "4", "4"));
    NuovaCity(e, "Lubiana");
    messaggi.risposte = {Risposta::Si};
    e.CmdAddNewCity_Click();
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{{"Vesmo - AddNew City - Nazione NUOVA ",
                               "Nuovo codice 4\nNuova City Lubiana\ne nuova Nazione Slovenia\n"
                               "Procedo?\n" +
                                   std::string(30, '-') +
                                   "\nNew code \nNew city \nAnd new country \nContinue?\n"}}));
    // 7°30' east is half an hour east, negative; 45°30' north.
    EXPECT_EQ(Conte(db, {"Nazioni where cNaz = 4 and Nazione = 'Slovenia' and Spec = ' '",
                         "AllCity where cCity = 4",
                         "AllCity where City = 'Lubiana' and Lon = -0.5 and Lat = 45.5 and cFusi "
                         "= 4 and cEst = 4"}),
              (std::vector<std::int64_t>{1, 1, 1}));
    // The same code and name again: only a second place, no question.
    NuovaCity(e, "Maribor");
    e.CmdAddNewCity_Click();
    EXPECT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(Conte(db, {"Nazioni where cNaz = 4", "AllCity where cCity = 4"}),
              (std::vector<std::int64_t>{1, 2}));
}

TEST_F(Editor, RefusalsOfANewPlace) {
    ModelloDbEdit& e = Su("Italy");
    e.campi.ChkNewNaz = true;
    e.ChkNewNaz_Click();
    e.campi.Text19 = "Francia";
    e.campi.Text21 = "380";
    e.campi.Text18 = e.campi.Text20 = "1";
    NuovaCity(e, "Nizza");
    e.CmdAddNewCity_Click();
    // Empty code boxes, then letters in a coordinate box.
    e.campi.Text18.clear();
    e.CmdAddNewCity_Click();
    e.campi.Text18 = "1";
    e.campi.Text10 = "3O";
    e.CmdAddNewCity_Click();
    const std::string d(30, '-');
    EXPECT_EQ(
        test::Mostrati(messaggi),
        (test::Riquadri{
            {"Vesmo - New City",
             "Il codice 380 \nCorrisponde alla Nazione Italy\nEsecuzione annullata\n" + d +
                 "\nThe code 380\nStands for Italy\nAccess denied\n"},
            {"Vesmo - AddNew City", "E' Necessario inserire\ntutti i Codici\nEsecuzione "
                                    "Annullata\n" +
                                        d + "\nSet Every code\nAccess denied\n"},
            {"DbEdit - Errore ", "Tipo non corrispondente \nCaselle Coordinate Geografiche "
                                 "\nvuote o con valori NON numerici\nOperazione Annullata\n"}}));
    EXPECT_EQ(Conte(db, {"AllCity", "Nazioni"}), (std::vector<std::int64_t>{4, 2}));
}

TEST_F(Editor, DeletingTheLastPlaceOfANationDeletesTheNationAndKeepsItsLists) {
    ModelloDbEdit& e = Su("Canada", "Vancouver");
    messaggi.risposte = {Risposta::Si};
    e.CmdElimCity_Click();
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{
                  {"Vesmo - Unica City",
                   "Vancouver BC  è l'unica City di  Canada\nLa sua Eliminazione comporterà anche "
                   "\nl'Eliminazione di  Canada\nProcedo?\n" +
                       std::string(29, '-') +
                       "\nDeleting this City means...\nDeleting the Nation\nContinue?\n"},
                  {"Vesmo - Elimina City",
                   "Operazione eseguita\nFacoltative:\nPulizia Fusi e Pulizia Estive\n" +
                       std::string(30, '-') + "\nDone\n"}}));
    EXPECT_EQ(Conte(db, {"AllCity where cCity = 124", "Nazioni where cNaz = 124",
                         "Fusi where cFusi = 2", "Estive where cEst = 2"}),
              (std::vector<std::int64_t>{0, 0, 1, 1}));
}

TEST_F(Editor, DeletingAPlaceAsksItsQuestions) {
    // Aosta alone has the lists 3: the question of the unique lists, then the delete.
    ModelloDbEdit& e = Su("Italy", "Aosta");
    messaggi.risposte = {Risposta::No};
    e.CmdElimCity_Click();
    const std::string unici = "cFusi = 3   e/o \n   cEst = 3\nin copia unica per la Nazione "
                              "Italy\nProcedo?\n";
    EXPECT_EQ(test::Mostrati(messaggi), (test::Riquadri{{"Vesmo - Unici Fusi ed Estive", unici}}));
    EXPECT_EQ(e.Data1.Campo("City").Testo(), "Aosta"); // back where it was
    messaggi.risposte = {Risposta::Si, Risposta::No};
    e.CmdElimCity_Click();
    const std::string f = file.string();
    const std::string elimino = "Elimino dal DataBase " + f + "\n\nCity Aosta ?\n" +
                                std::string(30, '-') + "\nDelete from database " + f +
                                "\n\nCity Aosta ?\n";
    EXPECT_EQ(test::Mostrati(messaggi), (test::Riquadri{{"Vesmo - Unici Fusi ed Estive", unici},
                                                        {"Vesmo - Unici Fusi ed Estive", unici},
                                                        {"Vesmo - Delete City", elimino}}));
    EXPECT_EQ(Conta(db, "select count(*) from AllCity"), 4);
    // Padova shares its lists with Roma: only the last question, and the row goes.
    e.campi.Text30 = "Padova";
    e.Text30_Change();
    messaggi.risposte = {Risposta::Si};
    e.CmdElimCity_Click();
    ASSERT_EQ(messaggi.registro.size(), 4u);
    EXPECT_EQ(messaggi.registro[3].titolo, "Vesmo - Delete City");
    EXPECT_EQ(Conte(db, {"AllCity where City = 'Padova'", "Nazioni where cNaz = 380"}),
              (std::vector<std::int64_t>{0, 1}));
}

TEST_F(Editor, DeletingAPlaceOfAnotherNationIsRefused) {
    // A nation without places: the place cursor cannot follow it.
    test::AggiungiNazione(db, 250, "France");
    ModelloDbEdit& e = Su("Italy", "Padova");
    e.campi.Text29 = "France";
    e.Text29_Change();
    EXPECT_EQ(e.Data2.Campo("Nazione").Testo(), "France");
    e.CmdElimCity_Click();
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{{"Vesmo - Accesso Errato",
                               "Errore Elimina City\nCNaz <> cCity\nOrdinamento per Nazioni\n"
                               "Impostare PRIMA la Nazione\n" +
                                   std::string(26, '-') +
                                   "\nError: Delete City\nCNaz <> cCity\nSet Order by nation\n"
                                   "Set Nation, please\n"}}));
    EXPECT_EQ(Conta(db, "select count(*) from AllCity"), 4);
}

TEST_F(Editor, CodeListsOfANationInOrderOfFirstAppearance) {
    ModelloDbEdit& e = Su("Italy");
    e.cmdHelpCod_Click();
    EXPECT_EQ(e.campi.Text1, "380");
    // Aosta (3) comes first in the order of names, then Padova and Roma (1).
    EXPECT_EQ(std::tuple(e.campi.Combo6.voci, e.campi.Combo7.voci),
              std::tuple(std::vector<std::string>{"3", "1"}, std::vector<std::string>{"3", "1"}));
    e.campi.Combo6.indice = 1;
    e.cmdZoomF_Click();
    EXPECT_EQ(e.campi.TestaZoom, "City                          cFusi  cEst");
    ASSERT_EQ(e.campi.lstZoom.voci.size(), 2u);
    EXPECT_EQ(e.campi.lstZoom.voci[0], "Padova" + std::string(24, ' ') + "11E53 45N24 1  1");
    // The third tab: several codes of each kind show the two options, and no code is taken.
    e.cmdHpCodFE_Click();
    EXPECT_TRUE(e.campi.OpzioniVisibili);
    EXPECT_EQ(e.campi.Text33, "");
    EXPECT_EQ(e.campi.Text36, "Cod         Dal                          Fusi");
    EXPECT_EQ(e.campi.lstZmFE.voci,
              (std::vector<std::string>{"003" + std::string(5, ' ') + "01/01/1900" +
                                        std::string(15, ' ') + "-01:00"}));
    e.campi.Text31 = "Canada";
    e.Text31_Change();
    e.cmdHpCodFE_Click();
    EXPECT_EQ(std::tuple(e.campi.OpzioniVisibili, e.campi.Text33, e.campi.Text34),
              std::tuple(false, "2", "2"));
}

TEST_F(Editor, NewRowsOfTheDatedLists) {
    ModelloDbEdit& e = Su("Italy");
    e.campi.Text17 = "1", e.campi.Text8 = "1", e.campi.Text5 = "1950";
    // One hour east, typed as "1" with "EST".
    e.campi.Text33 = "1";
    e.campi.Text22 = "1";
    e.campi.Combo5 = 0;
    e.Command7_Click();
    // Exactly 10000 passes, 10001 and a code far beyond any list are refused.
    for (const char* codice : {"10000", "10001", "99999999999999999999"}) {
        e.campi.Text33 = codice;
        e.Command7_Click();
    }
    EXPECT_EQ(Conte(db, {"Fusi where cFusi = 1 and Anno = 1950 and fH_h = '-1' and fH_m = '00'",
                         "Fusi where cFusi = 10000", "Fusi where cFusi = 10001"}),
              (std::vector<std::int64_t>{1, 1, 0}));
    // Empty date boxes.
    e.campi.Text33 = "1";
    e.campi.Text8.clear();
    e.Command7_Click();
    ASSERT_EQ(messaggi.registro.size(), 5u);
    messaggi.registro.erase(messaggi.registro.begin() + 1); // the second new row, as the first
    const std::string d = "\n" + std::string(30, '-') + "\n";
    const std::string oltre =
        "cFusi  o  cEst > 10000\nNessuna Azione\nclick su tab    ZoneOrarie\n";
    EXPECT_EQ(
        test::Mostrati(messaggi),
        (test::Riquadri{{"Vesmo - Fusi", "New Fusi. Eseguito" + d + "New time zone. Done\n"},
                        {"Info Codici", oltre},
                        {"Info Codici", oltre},
                        {"Vesmo - Errore Estive", "Caselle Nuova Riga vuote" + d +
                                                      "Day  or  Mese  or  Anno  not legal\n"}}));
}

TEST_F(Editor, OneRowForEachCodeOfTheNationWithOneMessage) {
    ModelloDbEdit& e = Su("Italy");
    e.campi.Text31 = "Italy";
    e.Text31_Change();
    e.Option2_Click();
    e.cmdHpCodFE_Click();
    ASSERT_TRUE(e.campi.OpzioniVisibili);
    e.campi.Option5 = false;
    e.campi.Text34 = "1";
    e.campi.Text17 = "28", e.campi.Text8 = "3", e.campi.Text5 = "1999";
    e.campi.Text6 = "2", e.campi.Text7 = "0", e.campi.Text22 = "1", e.campi.Text23 = "0";
    e.Command7_Click();
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{{"Vesmo - Estive", "New Estive. Eseguito\n" + std::string(30, '-') +
                                                     "\nNew summer time. Done\n"}}));
    EXPECT_EQ(Conte(db, {"Estive where Anno = 1999 and h = 2 and HE_h = 1",
                         "Estive where Anno = 1999 and cEst in (1, 3)"}),
              (std::vector<std::int64_t>{2, 2}));
}

TEST_F(Editor, CopyOfAList) {
    test::Aggiungi(db, {}, {{10000, 1, 1, 1900, "0", "00"}, {10000, 1, 1, 1940, "-1", "00"}});
    ModelloDbEdit& e = Su("Italy");
    e.campi.Text3 = "10000";
    e.Text3_Change();
    EXPECT_EQ(e.campi.Frame3, "cFusi (from)");
    e.campi.Text26 = "77";
    e.Command3_Click();
    EXPECT_EQ(Conte(db, {"Fusi where cFusi = 77", "Fusi where cFusi = 77 and Anno = 1940 and "
                                                  "fH_h = '-1'"}),
              (std::vector<std::int64_t>{2, 1}));
    // A missing code, a new code above 10000, the summer-time copy of an absent list.
    e.campi.Text3 = "55";
    e.Text3_Change();
    EXPECT_EQ(e.campi.Frame3, "55 cFusi (from) - Assente ");
    e.Command3_Click();
    e.campi.Text3 = "1";
    e.campi.Text26 = "10001";
    e.Command3_Click();
    e.Option4_Click();
    e.campi.Text4 = "0";
    e.Command3_Click();
    const std::string d = "\n" + std::string(30, '-') + "\n";
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{{"Vesmo - Copia Fusi", "Eseguito" + d + "Done\n"},
                              {"Vesmo - Copia Fusi",
                               "cFusi (from) non valido !" + d + "cFusi (from) not legal !\n"},
                              {"Vesmo - Copia Fusi", "cFusi (nuova Copia) non valido !" + d +
                                                         "cFusi (nuova Copia) not legal !\n"},
                              {"Vesmo - Copia Estive",
                               "cEst(from) non valido !" + d + "cEst (from) not legal !\n"}}));
}

TEST_F(Editor, CombinedListRows) {
    ModelloDbEdit& e = Su("Italy");
    e.campi.Text44 = "9999";
    e.Command5_Click();
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{{"Info Codici", "Codice  9999 < 10000\nNessuna Azione\nclick su "
                                              "tab    Fuso / Estive \n"}}));
    e.campi.Text44 = "10000";
    e.campi.Text45 = "0";
    e.campi.Text46 = "12";
    e.campi.Text39 = "1", e.campi.Text40 = "4", e.campi.Text41 = "1980";
    e.campi.Text42 = "2", e.campi.Text43 = "0";
    e.Command5_Click();
    EXPECT_EQ(Conta(db, "select count(*) from FusiEstiveUniti where TTN = 10000 and ZZo = 12"), 1);
    EXPECT_EQ(e.campi.Text38, "Cod $ ExtraCod , ZZonenNummer * Data [ ZUnterschied ]");
    ASSERT_EQ(e.campi.List1.voci.size(), 1u);
    EXPECT_EQ(e.campi.List1.voci[0].substr(0, 35), "10000 $ 000 , 12 * 01/04/1980 02:00");
    // An extra code asks first; no stops.
    e.campi.Text45 = "5";
    messaggi.risposte = {Risposta::No};
    e.Command5_Click();
    EXPECT_EQ(messaggi.registro.back().testo, "Attenzione!\nExtraCod <> 0\nContinuo ?\n");
    EXPECT_EQ(Conta(db, "select count(*) from FusiEstiveUniti"), 1);
    // Deleting a combined list refuses an ordinary code.
    e.campi.Text37 = "500";
    e.Command6_Click();
    EXPECT_EQ(test::Mostrati(messaggi).back(),
              (std::pair<std::string, std::string>{
                  "Info Codici",
                  "codice  < 10000\nNessuna Azione\nclick su tab    Fuso / Estive < 10000\n"}));
}

TEST_F(Editor, DeletingOneRowAsksWithTheRowsFields) {
    test::AggiungiEstiva(db, 1, 27, 9, 1987, 3, 0, 0, 0);
    ModelloDbEdit& e = Su("Italy");
    e.campi.Text35 = "1";
    e.Text35_Change();
    EXPECT_EQ(e.campi.Frame35, "cEst");
    messaggi.risposte = {Risposta::Si};
    e.Command4_Click();
    EXPECT_EQ(
        test::Mostrati(messaggi),
        (test::Riquadri{
            {"Vesmo - Elimina Una riga Estive",
             "Elimino la riga  1\nDa 29/03/1987 Alle 02:00  Estive 1:00 ?\nATTENZIONE! "
             "Eliminare successivamente anche\nl'eventuale seconda riga dell' anno 1987\n"
             "Procedo?\n" +
                 std::string(30, '-') +
                 "\nDelete row 1\nFrom 29/03/1987 Hour 02:00  Summer time 1:00 ?\nContinue?\n"}}));
    EXPECT_EQ(Conta(db, "select count(*) from Estive where cEst = 1"), 1);
}

// --- the cleaning ---

class Pulizia : public ::testing::Test {
protected:
    void SetUp() override {
        Database db = test::DatabaseLuoghi(file);
        // 7 (two rows) and 9 are unused; 12000 is unused but a combined list.
        test::Aggiungi(
            db, {{380, "Padova", -0.79, 45.4, 1, 1}, {124, "Vancouver BC", 8.2, 49.25, 2, 2}},
            {{1, 1, 1, 1900, "-1", "00"},
             {7, 1, 1, 1900, "-1", "00"},
             {7, 1, 1, 1940, "-2", "00"},
             {2, 1, 1, 1900, "8", "00"},
             {12000, 1, 1, 1900, "1", "00"},
             {9, 1, 1, 1900, "1", "00"}},
            {{1, 29, 3, 1987, 2, 0, 1, 0}, {2, 1, 1, 1900, 0, 0, 0, 0}});
    }
    test::CartellaLuoghi cartella;
    std::filesystem::path file = cartella / "Vesmodat.Mdb";
    MessaggiRegistrati messaggi;
};

TEST_F(Pulizia, AScanAgainUsesTheIndexLeftAndTheDeleteTakesOnlyTheSelectedCodes) {
    const EsitoScansione esito = ScansionePulizia(file, ListaPulizia::Fusi);
    EXPECT_EQ(esito.codici, (std::vector<std::int32_t>{7, 9}));
    // A scan again, as after an interrupted cleaning: the index left there is used.
    EXPECT_EQ(ScansionePulizia(file, ListaPulizia::Fusi).codici, esito.codici);
    EXPECT_EQ(EliminaRighe(file, ListaPulizia::Fusi, {7}), 2); // 9 unselected by the user
    EliminaIndiceLavoro(file, ListaPulizia::Fusi);
    Database db(file);
    EXPECT_FALSE(db.EsisteIndice("AllCity", "IndFusi"));
    EXPECT_EQ(Conte(db, {"Fusi where cFusi = 7", "Fusi where cFusi = 9", "Fusi where cFusi = 12000",
                         "Fusi"}),
              (std::vector<std::int64_t>{0, 1, 1, 4}));
}

TEST_F(Pulizia, CompactionReplacesAnOldCopyAndAFailureLeavesTheSourceWhole) {
    auto righe = [&] {
        Database db(file);
        std::vector<std::vector<std::string>> r;
        for (const char* t : {"Nazioni", "AllCity", "Fusi", "Estive"})
            for (Cursore c(db, t); !c.Eof(); c.MoveNext()) {
                std::vector<std::string> riga{t};
                for (const auto& campo : c.Campi())
                    riga.push_back(c.Campo(campo).Testo());
                r.push_back(riga);
            }
        return r;
    };
    EXPECT_EQ(TestoCompattazione("/d/Vesmodat.Mdb"),
              "\n          Deframmentazione del Database\n\n     /d/Vesmodat.Mdb\n");
    const auto prima = righe();
    const auto copia = cartella / "Neo_Vesmodat.mdb";
    { std::ofstream(copia) << "vecchio"; }
    EXPECT_TRUE(CompattaDatabase(file, messaggi));
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_FALSE(std::filesystem::exists(copia));
    EXPECT_EQ(righe(), prima);
    // A folder in the copy's place: the compaction fails and says where.
    std::filesystem::create_directory(copia);
    EXPECT_FALSE(CompattaDatabase(file, messaggi));
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Db Compact");
    EXPECT_NE(messaggi.registro[0].testo.find("Compattazione non riuscita"), std::string::npos);
    EXPECT_NE(messaggi.registro[0].testo.find(copia.string()), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_directory(copia));
    EXPECT_EQ(righe(), prima);
    Database db(file);
    test::AggiungiFuso(db, 5, 1, 1, 1900, "0", "00"); // still writable
}

// --- the lists beside the entry form ---

TEST_F(Pulizia, ZoneListNotAvailableThenTwoAddsInDateOrder) {
    ModelloFusiEstive f(file, messaggi);
    f.ZoomFuso = -1;
    f.ZoomCFusi = 44;
    f.Form_Load();
    EXPECT_EQ(std::tuple(f.OraVisibile, f.Text2Visibile), std::tuple(false, false));
    EXPECT_EQ(f.List1.voci, (std::vector<std::string>{std::string(15, ' ') + "NON DISPONIBILE"}));
    f.Text17 = "1", f.Text8 = "5", f.Text5 = "1950", f.Text22 = "1";
    ASSERT_TRUE(f.Command1_Click());
    f.Text17 = "1", f.Text8 = "1", f.Text5 = "1900", f.Text22 = "0", f.Combo5 = 1;
    ASSERT_TRUE(f.Command1_Click());
    EXPECT_TRUE(f.Text2Visibile);
    EXPECT_EQ(f.Text2, " Cod          Dal           Fuso");
    const std::string b20(20, ' '), b25(25, ' ');
    EXPECT_EQ(f.List1.voci, (std::vector<std::string>{"044" + b20 + "01/01/1900" + b25 + "0:00",
                                                      "044" + b20 + "01/05/1950" + b25 + "-1:00"}));
    f.Text8.clear();
    EXPECT_FALSE(f.Command1_Click());
    EXPECT_EQ(test::Mostrati(messaggi),
              (test::Riquadri{{"Vesmo - Errore Estive", "Caselle Nuova Riga vuote\n"}}));
}

TEST_F(Pulizia, SummerTimeYearBoxFilledForTwoRowsOnly) {
    ModelloFusiEstive f(file, messaggi);
    f.ZoomCEst = 1;
    f.ZoomAnno = 1988;
    f.Form_Load();
    EXPECT_EQ(f.Label6, "(1)");
    EXPECT_EQ(f.Text5, "1988");
    EXPECT_EQ(f.Text2, " Cod         Dal           h:m         Estive");
    EXPECT_EQ(f.List1.voci, (std::vector<std::string>{"001" + std::string(15, ' ') + "29/03/1987" +
                                                      std::string(25, ' ') + "02:00" +
                                                      std::string(25, ' ') + "1:0"}));
    f.Text17 = "27", f.Text8 = "3", f.Text6 = "2", f.Text22 = "1";
    ASSERT_TRUE(f.Command1_Click());
    EXPECT_EQ(std::tuple(f.Label6, f.Text5), std::tuple("(2)", "1988"));
    f.Text17 = "25", f.Text8 = "9", f.Text6 = "3";
    ASSERT_TRUE(f.Command1_Click());
    EXPECT_EQ(std::tuple(f.Label6Visibile, f.Text5, f.List1.voci.size()),
              std::tuple(false, "", 3u));
}

TEST_F(Pulizia, CombinedListIsOnlyShown) {
    {
        Database db(file);
        Cursore::Sql(db, "insert into ZoneOrarie (ZZonenNummer, ZZonenCode, ZZonenText, "
                         "ZUnterschied, plusmin) values (12, 'CET', 'Central European Standard "
                         "Time', 1.0 / 24, '+')");
        // wdata 1 is 31/12/1899.
        Cursore::Sql(
            db, "insert into FusiEstiveUniti (TTN, TTV, ZZo, wdata) values (12000, 0, 12, 1.0)");
    }
    ModelloFusiEstive f(file, messaggi);
    f.ZoomCEst = 12000;
    f.ZoomAnno = 1950;
    f.Form_Load();
    EXPECT_TRUE(f.Unita());
    EXPECT_EQ(f.Text2, "Cod $ ExtraCod , ZZonenNummer * Data [ZonaOraria]");
    ASSERT_EQ(f.List1.voci.size(), 1u);
    // A "+" zone is east of Greenwich: one hour with the sign reversed.
    EXPECT_EQ(f.List1.voci[0], "12000 $ 000 , 12 * 31/12/1899 [ - 01:00:00] ");
    EXPECT_TRUE(f.LegendaVisibile);
    EXPECT_EQ(
        f.cmbZoneOrarie.voci,
        (std::vector<std::string>{"12 $ CET , Central European Standard Time ( -01:00:00 ) "}));
    f.Text17 = "1", f.Text8 = "1", f.Text5 = "1950";
    EXPECT_FALSE(f.Command1_Click());
    Database db(file);
    EXPECT_EQ(Conta(db, "select count(*) from Estive where cEst = 12000"), 0);
}

TEST_F(Pulizia, PlacesOfANation) {
    {
        Database db(file);
        // 30 seconds do not raise the minutes, 31 do.
        test::Aggiungi(
            db,
            {{380, "Zeta", -0.5, 45.5, 3, 4},
             {380, "Sud", 0.25, -33.25, 5, 6},
             {380, "Trenta", -GradiDecimali(9, 0, 30) / 15, GradiDecimali(44, 59, 30), 1, 1},
             {380, "Trentuno", -GradiDecimali(9, 0, 31) / 15, GradiDecimali(44, 58, 31), 1, 1}});
    }
    Database db(file);
    const auto righe = RigheZoomNazione(db, 380);
    // 0.79 h = 11°51'; 45.4° = 45°24'.
    EXPECT_EQ(righe,
              (std::vector<std::string>{"Padova" + std::string(24, ' ') + "  11E51 45N24  , 1  1",
                                        "Sud" + std::string(27, ' ') + "  3W45 33S15  , 5  6",
                                        "Trenta" + std::string(24, ' ') + "  9E00 44N59  , 1  1",
                                        "Trentuno" + std::string(22, ' ') + "  9E01 44N59  , 1  1",
                                        "Zeta" + std::string(26, ' ') + "  7E30 45N30  , 3  4"}));
    EXPECT_TRUE(RigheZoomNazione(db, 999).empty());
}

} // namespace
