// The places editor, the cleaning and the two zoom forms driven by their controls' names, and
// the launcher's entries that open them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "core/Aritmetica.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmDbEdit.h"
#include "places/ui/frmMainVesmo.h"
#include "places/ui/frmPulizia.h"
#include "tests/core/ui/Controlli.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

namespace {

constexpr double UnOraSeriale = 1.0 / 24;

std::int64_t Conta(const std::filesystem::path& file, const std::string& sql) {
    Database db(file);
    Cursore c = Cursore::Sql(db, sql);
    return c.Campo(c.Campi().at(0)).Intero();
}

class FinestreDb : public ::testing::Test {
protected:
    void SetUp() override {
        Database db = test::DatabaseLuoghi(file);
        db.IniziaTransazione();
        test::AggiungiCity(db, 380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1);
        test::AggiungiCity(db, 380, "Roma", -0.8322, 41.9, 1, 1);
        test::AggiungiCity(db, 380, "Aosta", -0.49, 45.7, 3, 3);
        test::AggiungiCity(db, 124, "Vancouver BC", 8.2, 49.25, 2, 2);
        test::AggiungiFuso(db, 1, 1, 1, 1900, "-1", "00");
        test::AggiungiFuso(db, 2, 1, 1, 1900, "8", "00");
        test::AggiungiFuso(db, 3, 1, 1, 1900, "-1", "00");
        test::AggiungiFuso(db, 7, 1, 1, 1900, "-1", "00"); // used by no place
        test::AggiungiFuso(db, 7, 1, 1, 1940, "-2", "00");
        test::AggiungiFuso(db, 9, 1, 1, 1900, "2", "00"); // used by no place
        test::AggiungiEstiva(db, 1, 29, 3, 1987, 2, 0, 1, 0);
        test::AggiungiEstiva(db, 2, 1, 1, 1900, 0, 0, 0, 0);
        test::AggiungiEstiva(db, 3, 1, 1, 1900, 0, 0, 0, 0);
        Cursore z(db, "ZoneOrarie");
        z.AddNew();
        z.Imposta("ZZonenNummer", 12);
        z.Imposta("ZZonenCode", "CET");
        z.Imposta("ZZonenText", "Central European Standard Time");
        z.Imposta("ZUnterschied", UnOraSeriale);
        z.Imposta("plusmin", "+");
        z.Update();
        db.ConfermaTransazione();
    }
    template <class W> W* Trova(QWidget* f, const char* nome) { return test::Figlio<W>(f, nome); }
    // The launcher's settings: this database, sorted by nation, the default place in Italy.
    void Impostazioni(const char* city) {
        percorsi.FileDB = file.string();
        percorsi.FileIni = (cartella / "Vesmodat.ini").string();
        cfg.NazioneDefault = "Italy";
        cfg.CityDefault = city;
        cfg.Ordinamento = "N";
        ScriviConfig(percorsi.FileIni, cfg);
        PresetTemaCorrente(sessione, cfg, 1987, 4, 10, 19, 30, 0);
    }
    void Clic(QWidget* f, const char* nome) { Trova<QAbstractButton>(f, nome)->click(); }
    // The pop-up window of `T` standing on its own (the launcher opens them without a parent).
    template <class T> T* Aperta() {
        T* p = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* x = qobject_cast<T*>(w); x && x->isVisible()) p = x;
        return p;
    }
    test::CartellaLuoghi cartella;
    std::filesystem::path file = cartella / "Vesmodat.Mdb";
    MessaggiRegistrati messaggi;
    Sessione sessione;
    ConfigIni cfg;
    PercorsiVesmo percorsi;
};

TEST_F(FinestreDb, EditorTabsAndGridSwitch) {
    frmDbEdit f(file.string(), messaggi);
    ASSERT_TRUE(f.Form_Load());
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - DB Edita");
    const char* schede[] = {"City / Nazione",       "Delete City",         "Fuso / Estive",
                            "Delete Fuso / Estive", "Copia Fusi / Estive", "Zone Orarie"};
    ASSERT_EQ(f.SSTabDB->count(), 6);
    for (int k = 0; k < 6; ++k)
        EXPECT_EQ(f.SSTabDB->tabText(k), schede[k]);
    EXPECT_EQ(f.DBGrid1->model()->rowCount(), 4);
    EXPECT_EQ(f.DBGrid2->model()->rowCount(), 2);
    EXPECT_EQ(f.DBGrid3->model()->rowCount(), 6);
    // The switch of the grids: its caption tells the state, and DBGrid6 stays read only.
    EXPECT_EQ(f.Command1->text(), "Griglie Modificabili   Grids       Updatable  OFF");
    EXPECT_FALSE(f.DBGrid3->model()->flags(f.DBGrid3->model()->index(0, 0)) & Qt::ItemIsEditable);
    Clic(&f, "Command1");
    EXPECT_EQ(f.Command1->text(), "Griglie Modificabili   Grids       Updatable    ON");
    for (QTableView* v : {f.DBGrid1, f.DBGrid2, f.DBGrid3, f.DBGrid4, f.DBGrid5})
        EXPECT_TRUE(v->model()->flags(v->model()->index(0, 0)) & Qt::ItemIsEditable)
            << v->objectName().toStdString();
    EXPECT_FALSE(f.DBGrid6->model()->flags(f.DBGrid6->model()->index(0, 0)) & Qt::ItemIsEditable);
    // A cell typed in writes straight to the table: Fusi's first row, fH_m.
    auto* g3 = f.DBGrid3->model();
    ASSERT_TRUE(g3->setData(g3->index(0, 5), QStringLiteral("30"), Qt::EditRole));
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where fH_m = '30'"), 1);
    EXPECT_EQ(g3->data(g3->index(0, 5)).toString(), "30");
    // A value the table refuses (fH_m holds two characters) is told, and the cell keeps its own.
    EXPECT_FALSE(g3->setData(g3->index(0, 5), QStringLiteral("123"), Qt::EditRole));
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Errore [frmDbEdit.DBGrid]");
    EXPECT_EQ(g3->data(g3->index(0, 5)).toString(), "30");
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where fH_m = '30'"), 1);
    Clic(&f, "Command1");
    EXPECT_EQ(f.Command1->text(), "Griglie Modificabili   Grids       Updatable  OFF");
    EXPECT_FALSE(g3->flags(g3->index(0, 0)) & Qt::ItemIsEditable);
}

TEST_F(FinestreDb, EditorAddsANationAndDeletesItsOnlyPlace) {
    frmDbEdit f(file.string(), messaggi);
    ASSERT_TRUE(f.Form_Load());
    f.show();
    // Typing a nation shows its code.
    test::Scrivi(&f, {{"Text19", "Can"}});
    test::Testi(&f, {{"Text21", "124"}, {"Text1", "124"}});
    // A new nation with a free code.
    Clic(&f, "ChkNewNaz");
    test::Testi(&f, {{"Text21", ""}});
    EXPECT_FALSE(Trova<QWidget>(&f, "lstZoom")->isVisible());
    test::Scrivi(&f, {{"Text19", "Slovenia"}, {"Text21", "1"}});
    Clic(&f, "cmdHelpCod");
    test::Testi(&f, {{"Text21", "4"}, {"Text18", "4"}, {"Text20", "4"}});
    // Decimal degrees east, with the comma.
    Trova<QComboBox>(&f, "Combo2")->setCurrentIndex(2);
    test::Scrivi(&f, {{"Text2", "Lubiana"},
                      {"Text12", "14,5"},
                      {"Text13", "46"},
                      {"Text14", "3"},
                      {"Text15", "0"}});
    messaggi.risposte = {Risposta::Si};
    Clic(&f, "CmdAddNewCity");
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - AddNew City - Nazione NUOVA ");
    EXPECT_EQ(Conta(file, "select count(*) from Nazioni where cNaz = 4"), 1);
    EXPECT_EQ(Conta(file, "select count(*) from AllCity where cCity = 4 and abs(Lon + 14.5 / 15) "
                          "< 1e-12 and abs(Lat - (46 + 3 / 60.0)) < 1e-12"),
              1);
    EXPECT_EQ(f.DBGrid1->model()->rowCount(), 5);
    EXPECT_EQ(f.DBGrid2->model()->rowCount(), 3);

    // The delete tab: Canada's only place goes with its nation.
    f.SSTabDB->setCurrentIndex(1);
    test::Scrivi(&f, {{"Text29", "Canada"}, {"Text30", "Van"}});
    messaggi.risposte = {Risposta::Si};
    Clic(&f, "CmdElimCity");
    ASSERT_EQ(messaggi.registro.size(), 3u);
    EXPECT_EQ(messaggi.registro[1].titolo, "Vesmo - Unica City");
    EXPECT_EQ(messaggi.registro[2].titolo, "Vesmo - Elimina City");
    EXPECT_EQ(Conta(file, "select count(*) from Nazioni where cNaz = 124"), 0);
    EXPECT_EQ(f.DBGrid2->model()->rowCount(), 2);
    EXPECT_EQ(f.DBGrid1->model()->rowCount(), 4);
}

TEST_F(FinestreDb, EditorListTabs) {
    frmDbEdit f(file.string(), messaggi);
    ASSERT_TRUE(f.Form_Load());
    f.show();
    f.SSTabDB->setCurrentIndex(2);
    test::Scrivi(&f, {{"Text31", "Italy"}});
    Clic(&f, "cmdHpCodFE");
    EXPECT_TRUE(Trova<QWidget>(&f, "Option6")->isVisible());
    EXPECT_EQ(Trova<QComboBox>(&f, "Combo8")->count(), 2);
    test::Testi(&f, {{"Text36", "Cod         Dal                          Fusi"}});
    // One hour east for every code of Italy.
    Clic(&f, "Option6");
    test::Scrivi(&f, {{"Text17", "1"}, {"Text8", "1"}, {"Text5", "1950"}, {"Text22", "1"}});
    Trova<QComboBox>(&f, "Combo5")->setCurrentIndex(0);
    Clic(&f, "Command7");
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Fusi");
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where Anno = 1950 and fH_h = '-1'"), 2);
    EXPECT_EQ(f.DBGrid3->model()->rowCount(), 8);
    // New Estive shows the hour boxes and hides the zone's side.
    Clic(&f, "Option2");
    EXPECT_TRUE(Trova<QWidget>(&f, "Text6")->isVisible());
    EXPECT_FALSE(Trova<QWidget>(&f, "Combo5")->isVisible());
    test::Testi(&f, {{"Label2", "Estive"}});

    // The frames of the delete and copy tabs tell a missing code.
    f.SSTabDB->setCurrentIndex(3);
    test::Scrivi(&f, {{"Text32", "4"}, {"Text35", "1"}, {"Text47", "12000"}});
    test::Testi(&f, {{"Frame32", "4 cFusi - Assente "},
                     {"Frame35", "cEst"},
                     {"Frame47", "12000 cod TTN - Assente "}});
    f.SSTabDB->setCurrentIndex(4);
    Clic(&f, "Option4");
    test::Scrivi(&f, {{"Text4", "1"}, {"Text26", "10000"}});
    test::Testi(&f, {{"Frame10", "cEst (nuova Copia)"}, {"Frame4", "cEst (from)"}});
    Clic(&f, "Command3");
    EXPECT_EQ(messaggi.registro.back().testo, "Eseguito\n" + std::string(30, '-') + "\nDone\n");
    EXPECT_EQ(Conta(file, "select count(*) from Estive where cEst = 10000"), 1);

    // The combined lists refuse a code below 10000.
    f.SSTabDB->setCurrentIndex(5);
    test::Scrivi(&f, {{"Text37", "500"}});
    Clic(&f, "Command6");
    EXPECT_EQ(messaggi.registro.back().titolo, "Info Codici");
    EXPECT_EQ(messaggi.registro.back().testo,
              "codice  < 10000\nNessuna Azione\nclick su tab    Fuso / Estive < 10000\n");
}

TEST_F(FinestreDb, CleaningFormDeletesWhatStaysSelected) {
    bool tornato = false;
    auto* p = new frmPulizia(file.string(), 1, messaggi);
    p->setAttribute(Qt::WA_DeleteOnClose);
    p->AlRitorno = [&] { tornato = true; };
    p->Form_Load();
    EXPECT_EQ(p->windowTitle(), "Vesmo - Pulizia Fusi");
    ASSERT_EQ(p->List1->count(), 2);
    EXPECT_EQ(p->List1->item(0)->text(), "7 ");
    EXPECT_EQ(p->List1->item(1)->text(), "9 ");
    EXPECT_TRUE(p->List1->item(0)->isSelected());
    EXPECT_EQ(p->Text1->text(), "6  Righe esaminate - (2 Codici da Eliminare)");
    p->List1->item(1)->setSelected(false);
    QTest::mouseClick(p->Command1, Qt::LeftButton);
    EXPECT_EQ(p->Text1->text(), "2  Righe Eliminate da Fusi");
    EXPECT_EQ(p->List1->count(), 2);
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where cFusi = 9"), 1);
    QTest::mouseClick(p->Command2, Qt::LeftButton);
    EXPECT_TRUE(tornato);
    Database db(file);
    EXPECT_FALSE(db.EsisteIndice("AllCity", "IndFusi"));
}

TEST_F(FinestreDb, CleaningAndCompactionWaitForTheCopyBefore) {
    // The copy asked first; when it fails nothing is deleted or compacted.
    for (int modo : {1, 3}) {
        auto* p = new frmPulizia(file.string(), modo, messaggi);
        p->setAttribute(Qt::WA_DeleteOnClose);
        int chiesta = 0;
        p->PrimaDiEliminare = [&] {
            ++chiesta;
            return false;
        };
        p->Form_Load();
        QTest::mouseClick(p->Command1, Qt::LeftButton);
        EXPECT_EQ(chiesta, 1) << modo;
        EXPECT_EQ(Conta(file, "select count(*) from Fusi where cFusi = 7"), 2) << modo;
        EXPECT_FALSE(std::filesystem::exists(cartella / "Neo_Vesmodat.mdb"));
        p->close();
    }
}

TEST_F(FinestreDb, ZoneFormAndNationZoom) {
    ModelloFusiEstive m(file, messaggi);
    m.ZoomFuso = -1;
    m.ZoomCFusi = 44;
    frmFusiEstive f(m);
    f.Form_Load();
    f.show();
    EXPECT_EQ(f.List1->item(0)->text(), QString(15, ' ') + "NON DISPONIBILE");
    EXPECT_FALSE(f.Text2->isVisible());
    EXPECT_TRUE(f.Combo5->isVisible());
    EXPECT_EQ(f.Label1->text(), "Fuso");
    test::Scrivi(&f, {{"Text17", "1"}, {"Text8", "3"}, {"Text5", "1920"}, {"Text22", "1"}});
    QTest::mouseClick(f.Command1, Qt::LeftButton);
    ASSERT_EQ(f.List1->count(), 1);
    EXPECT_EQ(f.List1->item(0)->text(),
              "044" + QString(20, ' ') + "01/03/1920" + QString(25, ' ') + "-1:00");
    EXPECT_TRUE(f.Text2->isVisible());

    frmZoomN z(file.string(), 380, messaggi);
    z.Form_Load();
    EXPECT_EQ(z.Label1->text(), "3");
    EXPECT_EQ(z.Combo1->currentIndex(), 0);
    EXPECT_EQ(z.Combo1->itemText(0), "Aosta" + QString(25, ' ') + "  7E21 45N42  , 3  3");
}

TEST_F(FinestreDb, LauncherEntries) {
    Impostazioni("Aosta");
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    f.show();
    const std::pair<QAction*, const char*> voci[] = {
        {f.mnuZN, "Zoom N&azione"},    {f.mnuZE, "&Zoom Estive"},     {f.mnuFilEdit, "Db Ed&ita"},
        {f.mnuFilDbCt, "Db C&ompact"}, {f.mnuFilDbPulEst, "&Estive"}, {f.mnuFilDbPilFusi, "&Fusi"}};
    for (auto [a, testo] : voci) {
        ASSERT_NE(a, nullptr);
        EXPECT_EQ(a->text(), testo);
    }
    f.mnuFilEdit->trigger();
    auto* editor = f.findChild<frmDbEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->isVisible());
    f.mnuZN->trigger();
    auto* zoom = f.findChild<frmZoomN*>();
    ASSERT_NE(zoom, nullptr);
    EXPECT_EQ(zoom->windowTitle(), "Vesmo - Zoom  Italy");
    // The summer-time list of Aosta, modal: closed as soon as it shows.
    QString titolo;
    test::AlModale("frmFusiEstive", [&](QWidget* d) {
        titolo = d->windowTitle();
        d->close();
    });
    f.mnuZE->trigger();
    EXPECT_EQ(titolo, "Vesmo - Estive di   Italy - Aosta");
    // The cleaning of Fusi takes the launcher away, closing the editor, and brings it back.
    f.mnuFilDbPilFusi->trigger();
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.findChild<frmDbEdit*>(), nullptr);
    auto* pulizia = Aperta<frmPulizia>();
    ASSERT_NE(pulizia, nullptr);
    EXPECT_EQ(pulizia->List1->count(), 2);
    QTest::mouseClick(pulizia->Command2, Qt::LeftButton);
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(f.Dati->Text2->text(), "Aosta");
}

TEST_F(FinestreDb, MissingZoneQuestionOpensTheZoneList) {
    {
        Database db(file);
        test::AggiungiCity(db, 380, "Bari", -1.1, 41.1, 44, 1);
    }
    Impostazioni("Bari");
    messaggi.risposte = {Risposta::Si};
    QString titolo, voce;
    QTimer::singleShot(0, [&] {
        if (auto* d = qobject_cast<frmFusiEstive*>(QApplication::activeModalWidget())) {
            titolo = d->windowTitle();
            voce = d->List1->item(0)->text();
            // A row added there, while the launcher is in the middle of its lookup.
            test::Scrivi(d, {{"Text17", "1"}, {"Text8", "1"}, {"Text5", "1900"}, {"Text22", "1"}});
            d->Command1->click();
            d->accept();
        }
    });
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.show();
    f.Form_Load();
    ASSERT_FALSE(messaggi.registro.empty());
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Aggiornamenti");
    EXPECT_EQ(titolo, "Vesmo - Fuso di   Italy");
    EXPECT_EQ(voce, QString(15, ' ') + "NON DISPONIBILE");
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where cFusi = 44 and fH_h = '-1'"), 1);
}

// The compaction closes the launcher's cursors first, says what it compacts, and gives the
// launcher back on the compacted file.
TEST_F(FinestreDb, CompactionFromTheLauncherClosesItsCursorsFirst) {
    Impostazioni("Roma");
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    f.show();
    f.mnuFilEdit->trigger();
    ASSERT_NE(f.findChild<frmDbEdit*>(), nullptr);
    f.mnuFilDbCt->trigger();
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.findChild<frmDbEdit*>(), nullptr);
    EXPECT_EQ(f.Dati->Luoghi(), nullptr);
    frmPulizia* p = Aperta<frmPulizia>();
    ASSERT_NE(p, nullptr);
    EXPECT_FALSE(p->List1->isVisible());
    EXPECT_EQ(p->Text2->toPlainText().toStdString(),
              "\n          Deframmentazione del Database\n\n     " + file.string() + "\n");
    QTest::mouseClick(p->Command1, Qt::LeftButton);
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_FALSE(std::filesystem::exists(cartella / "Neo_Vesmodat.mdb"));
    // Back on the launcher, on the compacted file.
    EXPECT_TRUE(f.isVisible());
    ASSERT_NE(f.Dati->Luoghi(), nullptr);
    EXPECT_EQ(f.Dati->Text2->text(), "Roma");
    EXPECT_EQ(f.Dati->NumeroCity(), 4);
    EXPECT_EQ(Conta(file, "select count(*) from AllCity"), 4);
}

} // namespace
