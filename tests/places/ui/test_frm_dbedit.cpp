// The places editor, the cleaning and the zoom forms, opened from the launcher's entries.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
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

std::int64_t Conta(const std::filesystem::path& file, const std::string& sql) {
    Database db(file);
    Cursore c = Cursore::Sql(db, sql);
    return c.Campo(c.Campi().at(0)).Intero();
}

bool Modificabile(QTableView* v) {
    return v->model()->flags(v->model()->index(0, 0)) & Qt::ItemIsEditable;
}

class FinestreDb : public ::testing::Test {
protected:
    void SetUp() override {
        Database db = test::DatabaseLuoghi(file);
        db.IniziaTransazione();
        // Codes 7 and 9 are used by no place.
        test::Aggiungi(db,
                       {{380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1},
                        {380, "Roma", -0.8322, 41.9, 1, 1},
                        {380, "Aosta", -0.49, 45.7, 3, 3},
                        {124, "Vancouver BC", 8.2, 49.25, 2, 2}},
                       {{1, 1, 1, 1900, "-1", "00"},
                        {2, 1, 1, 1900, "8", "00"},
                        {3, 1, 1, 1900, "-1", "00"},
                        {7, 1, 1, 1900, "-1", "00"},
                        {7, 1, 1, 1940, "-2", "00"},
                        {9, 1, 1, 1900, "2", "00"}},
                       {{1, 29, 3, 1987, 2, 0, 1, 0},
                        {2, 1, 1, 1900, 0, 0, 0, 0},
                        {3, 1, 1, 1900, 0, 0, 0, 0}});
        Cursore::Sql(db, "insert into ZoneOrarie (ZZonenNummer, ZZonenCode, ZZonenText, "
                         "ZUnterschied, plusmin) values (12, 'CET', 'Central European Standard "
                         "Time', 1.0 / 24, '+')");
        db.ConfermaTransazione();
    }
    void Clic(QWidget* f, const char* nome) { test::Figlio<QAbstractButton>(f, nome)->click(); }
    // The launcher on this database, sorted by nation, the default place in Italy.
    std::unique_ptr<frmMainVesmo> Lanciatore(const char* city) {
        test::AvvioSu(file, city, percorsi, cfg, sessione);
        return std::make_unique<frmMainVesmo>(sessione, cfg, percorsi, messaggi);
    }
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

TEST_F(FinestreDb, EditorTabsGridSwitchAndANewNation) {
    frmDbEdit f(file.string(), messaggi);
    ASSERT_TRUE(f.Form_Load());
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - DB Edita");
    const QStringList schede{"City / Nazione",       "Delete City",         "Fuso / Estive",
                             "Delete Fuso / Estive", "Copia Fusi / Estive", "Zone Orarie"};
    for (int k = 0; k < schede.size(); ++k)
        EXPECT_EQ(f.SSTabDB->tabText(k), schede[k]);
    // The switch of the grids: its caption tells the state, and DBGrid6 stays read only.
    const QString spento = "Griglie Modificabili   Grids       Updatable  OFF";
    test::Testi(&f, {{"Command1", spento}});
    EXPECT_FALSE(Modificabile(f.DBGrid3));
    Clic(&f, "Command1");
    test::Testi(&f, {{"Command1", "Griglie Modificabili   Grids       Updatable    ON"}});
    for (QTableView* v : {f.DBGrid1, f.DBGrid2, f.DBGrid3, f.DBGrid4, f.DBGrid5})
        EXPECT_TRUE(Modificabile(v)) << v->objectName().toStdString();
    EXPECT_FALSE(Modificabile(f.DBGrid6));
    // A cell typed in writes straight to the table: Fusi's first row, fH_m.
    auto* g3 = f.DBGrid3->model();
    ASSERT_TRUE(g3->setData(g3->index(0, 5), QStringLiteral("30"), Qt::EditRole));
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where fH_m = '30'"), 1);
    // A value the table refuses (fH_m holds two characters) is told, and the cell keeps its own.
    EXPECT_FALSE(g3->setData(g3->index(0, 5), QStringLiteral("123"), Qt::EditRole));
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Errore [frmDbEdit.DBGrid]");
    EXPECT_EQ(g3->data(g3->index(0, 5)).toString(), "30");
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where fH_m = '30'"), 1);
    // Typing a nation shows its code.
    test::Scrivi(&f, {{"Text19", "Can"}});
    test::Testi(&f, {{"Text21", "124"}});
    // A new nation with a free code.
    Clic(&f, "ChkNewNaz");
    test::Scrivi(&f, {{"Text19", "Slovenia"}, {"Text21", "1"}});
    Clic(&f, "cmdHelpCod");
    // Decimal degrees east, with the comma.
    test::Figlio<QComboBox>(&f, "Combo2")->setCurrentIndex(2);
    test::Scrivi(&f, {{"Text2", "Lubiana"},
                      {"Text12", "14,5"},
                      {"Text13", "46"},
                      {"Text14", "3"},
                      {"Text15", "0"}});
    messaggi.risposte = {Risposta::Si};
    Clic(&f, "CmdAddNewCity");
    EXPECT_EQ(messaggi.registro.size(), 2u);
    EXPECT_EQ(Conta(file, "select count(*) from AllCity where cCity = 4 and abs(Lon + 14.5 / 15) "
                          "< 1e-12 and abs(Lat - (46 + 3 / 60.0)) < 1e-12"),
              1);
    EXPECT_EQ(std::tuple(f.DBGrid1->model()->rowCount(), f.DBGrid2->model()->rowCount()),
              std::tuple(5, 3));
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

TEST_F(FinestreDb, LauncherEntriesAndTheCleaning) {
    auto f = Lanciatore("Aosta");
    f->Form_Load();
    f->show();
    f->mnuFilEdit->trigger();
    auto* editor = f->findChild<frmDbEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->isVisible());
    f->mnuZN->trigger();
    auto* zoom = f->findChild<frmZoomN*>();
    ASSERT_NE(zoom, nullptr);
    EXPECT_EQ(std::tuple(zoom->windowTitle(), zoom->Label1->text()),
              std::tuple(QString("Vesmo - Zoom  Italy"), QString("3")));
    // The summer-time list of Aosta, modal: closed as soon as it shows.
    QString titolo;
    test::AlModale("frmFusiEstive", [&](QWidget* d) {
        titolo = d->windowTitle();
        d->close();
    });
    f->mnuZE->trigger();
    EXPECT_EQ(titolo, "Vesmo - Estive di   Italy - Aosta");
    // The cleaning of Fusi takes the launcher away, closing the editor, and brings it back.
    f->mnuFilDbPilFusi->trigger();
    EXPECT_FALSE(f->isVisible());
    EXPECT_EQ(f->findChild<frmDbEdit*>(), nullptr);
    // The cleaning deletes the codes that stay selected.
    auto* p = Aperta<frmPulizia>();
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(p->windowTitle(), "Vesmo - Pulizia Fusi");
    EXPECT_EQ(test::Voci(p->List1), (QStringList{"7 ", "9 "}));
    EXPECT_TRUE(p->List1->item(0)->isSelected());
    p->List1->item(1)->setSelected(false);
    QTest::mouseClick(p->Command1, Qt::LeftButton);
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where cFusi = 7"), 0);
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where cFusi = 9"), 1);
    QTest::mouseClick(p->Command2, Qt::LeftButton);
    EXPECT_FALSE(Database(file).EsisteIndice("AllCity", "IndFusi"));
    EXPECT_TRUE(f->isVisible());
    test::Testi(f->Dati, {{"Text2", "Aosta"}});
}

TEST_F(FinestreDb, MissingZoneQuestionOpensTheZoneList) {
    {
        Database db(file);
        test::AggiungiCity(db, 380, "Bari", -1.1, 41.1, 44, 1);
    }
    auto f = Lanciatore("Bari");
    messaggi.risposte = {Risposta::Si};
    QTimer::singleShot(0, [&] {
        if (auto* d = qobject_cast<frmFusiEstive*>(QApplication::activeModalWidget())) {
            // A row added there, while the launcher is in the middle of its lookup.
            test::Scrivi(d, {{"Text17", "1"}, {"Text8", "1"}, {"Text5", "1900"}, {"Text22", "1"}});
            d->Command1->click();
            d->accept();
        }
    });
    f->show();
    f->Form_Load();
    EXPECT_EQ(Conta(file, "select count(*) from Fusi where cFusi = 44 and fH_h = '-1'"), 1);
}

// The compaction closes the launcher's cursors first and gives it back on the new file.
TEST_F(FinestreDb, CompactionFromTheLauncherClosesItsCursorsFirst) {
    auto f = Lanciatore("Roma");
    f->Form_Load();
    f->show();
    f->mnuFilEdit->trigger();
    ASSERT_NE(f->findChild<frmDbEdit*>(), nullptr);
    f->mnuFilDbCt->trigger();
    EXPECT_FALSE(f->isVisible());
    EXPECT_EQ(f->findChild<frmDbEdit*>(), nullptr);
    EXPECT_EQ(f->Dati->Luoghi(), nullptr);
    frmPulizia* p = Aperta<frmPulizia>();
    ASSERT_NE(p, nullptr);
    EXPECT_FALSE(p->List1->isVisible());
    QTest::mouseClick(p->Command1, Qt::LeftButton);
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_FALSE(std::filesystem::exists(cartella / "Neo_Vesmodat.mdb"));
    // Back on the launcher, on the compacted file.
    EXPECT_TRUE(f->isVisible());
    ASSERT_NE(f->Dati->Luoghi(), nullptr);
    test::Testi(f->Dati, {{"Text2", "Roma"}});
    EXPECT_EQ(f->Dati->NumeroCity(), 4);
}

} // namespace
