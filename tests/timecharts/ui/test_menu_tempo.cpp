// The time-based entries of the chart menu driven as a user would: each form opened from its
// menu entry, filled, and its chart installed in its slot; cancelled and mistyped searches
// leave the slots as they were.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <cmath>
#include <functional>

#include "core/Aritmetica.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/Istanti.h"
#include "timecharts/Rivoluzioni.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmCheRivoluzione.h"
#include "timecharts/ui/frmDirezioni.h"
#include "timecharts/ui/frmInSegni.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;
using vesmo::test::Testi;

namespace {

std::string Data(double jd) {
    float a, m, g;
    DataDaGiuliano(jd, a, m, g);
    return std::to_string(static_cast<int>(g)) + "/" + std::to_string(static_cast<int>(m)) + "/" +
           std::to_string(static_cast<int>(a));
}

class MenuTempo : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        BancoMenu::SetUp();
        ASSERT_TRUE(cartella.isValid());
        StatoTempo(*f)->cartellaIngressi = cartella.path().toStdString();
        // The birth data form as the user fills it: `compila` changes TemaX, then Calcola.
        f->InputDati = [this](const RichiestaInputDati& r) {
            richieste.push_back(r);
            offerto = s.TemaX;
            EsitoInputDati e;
            if (!compila) return e;
            compila(s.TemaX, e);
            s.DatiOk = -1;
            e.ok = true;
            return e;
        };
    }
    QTemporaryDir cartella;
    std::vector<RichiestaInputDati> richieste;
    Tema offerto;
    std::function<void(Tema&, EsitoInputDati&)> compila;
};

} // namespace

// The solar return: a degree typed with letters counts as 0 and a cancelled input form
// leaves nothing to accept; then the natal Sun, accepted into the Rivoluzione slot.
TEST_F(MenuTempo, RivoluzioneSolareNelloSlot) {
    f->mnuFileSalvo[2]->setChecked(true);
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        EXPECT_EQ(w->windowTitle(), "Lyx - Rivoluzioni Solari");
        auto* lista = Figlio<QListWidget>(w, "List1");
        ASSERT_EQ(lista->count(), 24);
        EXPECT_EQ(lista->currentItem()->text(), " Sole");
        EXPECT_EQ(lista->item(23)->text(), "Grado qualsiasi dell'Eclittica!");
        EXPECT_TRUE(Figlio<QLabel>(w, "Label6")->isHidden());
        auto* grado = Figlio<QLineEdit>(w, "Text1");
        EXPECT_EQ(grado->toolTip(), "Separatore decimale:  virgola");
        lista->setCurrentRow(23);
        EXPECT_TRUE(grado->isEnabled());
        grado->setText("ventidue");
        Figlio<QPushButton>(w, "Command2")->click();
        EXPECT_EQ(s.TemaX, Tema{});
        EXPECT_TRUE(Figlio<QPushButton>(w, "Command4")->isHidden());

        lista->setCurrentRow(0);
        EXPECT_FALSE(grado->isEnabled());
        compila = [](Tema&, EsitoInputDati& e) { e.AnnoRiv = 2000; };
        Figlio<QPushButton>(w, "Command2")->click();
        Testi(w, {{"Label7", "Ritorno Su:"},
                  {"Label5", "ok! Trovato  JD. Calcolo  della  posizione"},
                  {"Command4", "&Calcola >>"}});
        EXPECT_TRUE(Figlio<QPushButton>(w, "Command5")->isHidden());
        EXPECT_EQ(s.RivoluzioneCalcolata, 0); // nothing installed before the user accepts
        Figlio<QPushButton>(w, "Command4")->click();
    });
    Voce("mnuRivSol")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 2u);
    EXPECT_EQ(richieste[0].didascalia, "Lyx - Rivoluzione Solare. Ritorno del SOLE sul Grado   0");
    EXPECT_EQ(richieste[1].frame2, "Anno della Rivoluzione");

    // The Rivoluzione slot holds the return of April 2000, cast.
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
    EXPECT_TRUE(Data(s.JDRivoluzione).ends_with("/4/2000"));
    auto& riq = f->riquadri[2];
    EXPECT_TRUE(riq.frame->isEnabled());
    EXPECT_EQ(riq.nome->text(), "Mario Rossi                RS ");
    EXPECT_FALSE(riq.astrolog->isHidden());
    EXPECT_FALSE(f->mnuFileSalvo[2]->isChecked());
    EXPECT_TRUE(m.registro.empty());

    // Annulla: the slot stays as it was.
    const Tema prima = s.TemaRiv;
    AlModale("frmCheRivoluzione", [](QWidget* w) { Figlio<QPushButton>(w, "Command1")->click(); });
    Voce("mnuRivSol")->trigger();
    EXPECT_EQ(s.TemaRiv, prima);
}

TEST_F(MenuTempo, LunareTropicaDueRitorniNelMese) {
    // A degree the Moon reaches on 2 January 2000: the month holds a second return.
    Tema scratch = s.TemaNat;
    const double jd2gen = GiornoGiuliano(2000, 1, 2) + 0.5;
    const double grado = LongitudineLuna(jd2gen, scratch, 1);
    compila = [](Tema&, EsitoInputDati& e) {
        e.AnnoRiv = 2000;
        e.MeseRiv = 1;
        e.GiornoRiv = 1;
    };
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        EXPECT_EQ(w->windowTitle(), "Lyx - Rivoluzione Lunare Tropica");
        EXPECT_EQ(Figlio<QListWidget>(w, "List1")->currentRow(), 1);
        Figlio<QListWidget>(w, "List1")->setCurrentRow(23);
        Figlio<QLineEdit>(w, "Text1")->setText(QString::fromStdString(TestoNumero(grado)));
        Figlio<QPushButton>(w, "Command2")->click();
        Testi(w, {{"Label6", "Lunare  TROPICA"},
                  {"Label4", "Il ritorno della LUNA può essere calcolato in qualsiasi punto "
                             "della Eclittica. Selezionare un elemento della lista (es. Luna) o "
                             "scrivere il grado desiderato (es. 237,4176)"},
                  {"Label5", "Sono state trovate in questo mese 2 rivoluzioni Lunari Tropiche. "
                             "Scegliere tra:"},
                  {"Command4", "2/1/2000"},
                  {"Command5", QString::fromStdString(Data(s.JDRivoluzione))}});
        EXPECT_FALSE(Figlio<QPushButton>(w, "Command5")->isHidden());
        Figlio<QPushButton>(w, "Command4")->click();
    });
    Voce("mnuRivLunT")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].frame2, "Mese e Anno della Rivoluzione");
    // The input form starts from the first of the natal month.
    EXPECT_EQ(offerto.Day, GiornoGiuliano(1987, 4, 1));
    EXPECT_EQ(offerto.Nome.str().substr(21, 7), " RL Tro");
    // The earlier return was chosen: it is the slot's chart.
    EXPECT_EQ(s.JDRivoluzione, s.JDPrimoRitorno);
    EXPECT_NEAR(std::fabs(Scostamento(s.PosRiv.Luna.Lo, grado)), 0, 1e-6);
}

TEST_F(MenuTempo, LunareSinodicaLunaPiena) {
    compila = [](Tema&, EsitoInputDati& e) {
        e.AnnoRiv = 2001;
        e.MeseRiv = 3;
        e.GiornoRiv = 1;
    };
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        EXPECT_EQ(w->windowTitle(), "Lyx - Rivoluzione Lunare Sinodica (Fasi Lunari)");
        EXPECT_TRUE(Figlio<QListWidget>(w, "List1")->isHidden());
        EXPECT_FALSE(Figlio<QGroupBox>(w, "Frame2Sin")->isHidden());
        Testi(w, {{"Frame2Sin", "Angolo Luna  --> Sole "},
                  {"Label38", "Luna GeoCentrica"},
                  {"Label6", "Lunare  SINODICA"},
                  {"Check1Sin", "  Angolo di Nascita"}});
        auto* natale = Figlio<QCheckBox>(w, "Check1Sin");
        auto* angolo = Figlio<QLineEdit>(w, "Text3Sin");
        EXPECT_TRUE(natale->isChecked());
        // Giving the angle box the focus takes the tick away; an empty box becomes 0.
        QFocusEvent dentro(QEvent::FocusIn), fuori(QEvent::FocusOut);
        QApplication::sendEvent(angolo, &dentro);
        EXPECT_FALSE(natale->isChecked());
        QApplication::sendEvent(angolo, &fuori);
        EXPECT_EQ(angolo->text(), "0");
        natale->click();
        EXPECT_EQ(angolo->text(), "");
        natale->click();
        angolo->setText("180");
        Figlio<QPushButton>(w, "Command2")->click();
        Figlio<QPushButton>(w, "Command4")->click();
    });
    Voce("mnuRivLunS")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].didascalia,
              "Lyx - Rivoluzione Lunare Sinodica Geocentrica. Angolo Luna - Sole: 180,0");
    EXPECT_EQ(offerto.Nome.str().substr(20, 9), " RL Sin G");
    // The full moon of 9 March 2001.
    EXPECT_EQ(Data(s.JDRivoluzione), "9/3/2001");
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
}

// Each form's help opens over it with its own title and text.
TEST_F(MenuTempo, Aiuti) {
    const std::tuple<const char*, const char*, std::function<void(QWidget*)>, const char*,
                     const char*>
        casi[] = {
            {"mnuRivLunS", "frmCheRivoluzione",
             [](QWidget* w) { Figlio<QPushButton>(w, "Command3")->click(); },
             "Lyx - Aiuto Rivoluzioni Lunari Sinodiche",
             "Ciclo di 29 giorni 12 ore 44 minuti 2,9 secondi"},
            {"mnuTransitiI", "frmInSegni",
             [](QWidget* w) { qobject_cast<frmInSegni*>(w)->mnuGuida->trigger(); },
             "Lyx - Aiuto Ingressi nei Segni",
             "  Permette di calcolare quando un Pianeta sarà ad un certo grado della  Eclittica."},
        };
    for (const auto& [voce, finestra, apri, titolo, brano] : casi) {
        SCOPED_TRACE(voce);
        QString t, testo;
        AlModale(finestra, [&](QWidget* w) {
            AlModale("frmHelp", [&](QWidget* h) {
                t = h->windowTitle();
                testo = Figlio<QLabel>(h, "lbHelpFuso")->text();
                h->close();
            });
            apri(w);
            w->close();
        });
        Voce(voce)->trigger();
        EXPECT_EQ(t, titolo);
        EXPECT_TRUE(testo.contains(brano));
    }
    EXPECT_TRUE(richieste.empty());
}

// frmDirezioni by years, refusing letters; by date through the input form, whole or with the
// fraction; cancelled; and the fraction of year after its explanation.
TEST_F(MenuTempo, Direzioni) {
    bool visto = false;
    AlModale("frmDirezioni", [&](QWidget* w) {
        visto = true;
        EXPECT_EQ(w->windowTitle(), "Lyx - Direzioni secondarie");
        auto* testo = Figlio<QLineEdit>(w, "Text1");
        auto* calcola = Figlio<QPushButton>(w, "Command1");
        EXPECT_TRUE(testo->isHidden() && Figlio<QCheckBox>(w, "Check1")->isHidden());
        EXPECT_EQ(calcola->text(), "&Input dati >>");
        Figlio<QRadioButton>(w, "Option1")->click();
        Testi(w, {{"Command1", "&Calcola"}, {"Text1", "0"}});
        testo->setText("trenta");
        calcola->click();
        EXPECT_TRUE(w->isVisible());
        ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Direzioni secondarie",
                              "Anni di progressione non validi: \"trenta\"\r\nScrivere "
                              "un numero, con la virgola come separatore decimale (es. "
                              "30,57)."));
        testo->setText("30,5");
        calcola->click();
    });
    Voce("mnuDirSec")->trigger();
    ASSERT_TRUE(visto);
    EXPECT_TRUE(richieste.empty());
    // Thirty and a half days after birth, the summer hour taken into the clock.
    EXPECT_NEAR(s.TemaDir.Day, s.TemaNat.Day + 30.5, 1e-9);
    EXPECT_EQ(s.TemaDir.OraL, 18.5);
    EXPECT_EQ(f->riquadri[3].nome->text(), "Mario Rossi          P. 30,50 ");
    EXPECT_FALSE(f->riquadri[3].astrolog->isHidden());

    // 10 December 2017, 30 years and 8 months after birth.
    compila = [](Tema& t, EsitoInputDati&) { t.Day = GiornoGiuliano(2017, 12, 10); };
    for (bool frazione : {false, true}) {
        SCOPED_TRACE(frazione);
        richieste.clear();
        AlModale("frmDirezioni", [&](QWidget* w) {
            Figlio<QRadioButton>(w, "Option2")->click();
            Testi(w, {{"Check1", "Frazione annua di progressione"}});
            Figlio<QCheckBox>(w, "Check1")->setChecked(frazione);
            Figlio<QPushButton>(w, "Command1")->click();
        });
        Voce("mnuDirSec")->trigger();
        ASSERT_EQ(richieste.size(), 1u);
        EXPECT_EQ(richieste[0].didascalia,
                  "Lyx - Input Data Direzione Secondaria di  Mario Rossi                   ");
        EXPECT_EQ(f->riquadri[3].nome->text(),
                  frazione ? "Mario Rossi          P. 30,66 " : "Mario Rossi          P. 30,00 ");
    }
    // The input form cancelled, then Annulla: the slot keeps its chart and its mark.
    const Tema prima = s.TemaDir;
    f->mnuFileSalvo[3]->setChecked(true);
    compila = nullptr;
    AlModale("frmDirezioni", [&](QWidget* w) { Figlio<QPushButton>(w, "Command1")->click(); });
    Voce("mnuDirSec")->trigger();
    AlModale("frmDirezioni", [&](QWidget* w) { Figlio<QPushButton>(w, "Command2")->click(); });
    Voce("mnuDirSec")->trigger();
    EXPECT_EQ(s.TemaDir, prima);
    EXPECT_TRUE(f->mnuFileSalvo[3]->isChecked());

    // The fraction of year: No to the explanation opens no input form; Yes, half a year past
    // the birthday, tells api above 1 and still makes the chart.
    richieste.clear();
    m.registro.clear();
    m.risposte = {Risposta::No};
    Voce("mnuDirFra")->trigger();
    EXPECT_TRUE(richieste.empty());
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Direzioni Secondarie per Frazione di Anno");
    m.registro.clear();
    m.risposte = {Risposta::Si};
    compila = [](Tema& t, EsitoInputDati&) { t.Day = GiornoGiuliano(1988, 10, 10); };
    Voce("mnuDirFra")->trigger();
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].aggiuntaDidascalia, " Direzioni Frazione d' Anno");
    ASSERT_EQ(m.registro.size(), 2u);
    EXPECT_EQ(m.registro[1].titolo, "Lyx - Avviso api > 1 ");
    EXPECT_EQ(s.TemaDir.Day, s.TemaNat.Day + 2);
    EXPECT_NEAR(s.TemaDir.OraL, 183.0 / 365 * 24 + 19.5 - 24, 1e-9);
    EXPECT_EQ(f->riquadri[3].nome->text(), "Mario Rossi          P. 1,50  ");
}

TEST_F(MenuTempo, IngressoDiMercurioComeTransito) {
    f->mnuFileSalvo[1]->setChecked(true);
    QString giorno;
    AlModale("frmInSegni", [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Lyx - Ingressi nei Segni");
        auto* lista = Figlio<QListWidget>(w, "List1");
        ASSERT_EQ(lista->count(), 9);
        EXPECT_EQ(lista->item(8)->text(), " Nodo Luna Nord");
        auto* bersaglio = Figlio<QLineEdit>(w, "Text1");
        auto* partenza = Figlio<QLineEdit>(w, "txtPartenza");
        auto* avvio = Figlio<QPushButton>(w, "Command1");
        // The natal day as the start.
        Figlio<QPushButton>(w, "cmdTN")->click();
        EXPECT_EQ(partenza->text().toStdString(), TestoNumero(s.TemaNat.JD()));
        // No planet chosen (the list picks its first row when it takes the focus).
        lista->setCurrentRow(-1);
        bersaglio->setText("240");
        avvio->click();
        ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Manca il Pianeta",
                              "Attenzione!\r\n\r\nSelezionare un Pianeta"));
        // Letters in the start box.
        lista->setCurrentRow(0);
        partenza->setText("ieri");
        avvio->click();
        ASSERT_TRUE(test::Box(m, 2, 1, "Lyx - Ingressi nei Segni",
                              "JD Partenza non valido: \"ieri\"\r\nScrivere un numero, "
                              "con la virgola come separatore decimale."));
        EXPECT_TRUE(Figlio<QPushButton>(w, "Command4")->isHidden());
        // The example of the help: Mercury at 240 degrees from 26 October 1998.
        partenza->setText("2451113");
        avvio->click();
        EXPECT_EQ(m.registro.size(), 2u);
        Testi(w, {{"Label12", "Centro!  Calcolo posizione  >>"}});
        giorno = Figlio<QLineEdit>(w, "Text5")->text();
        Figlio<QPushButton>(w, "Command4")->click();
    });
    Voce("mnuTransitiI")->trigger();
    EXPECT_EQ(s.TransitoCalcolato, -1);
    EXPECT_EQ(Data(s.TemaTra.JD()), "1/11/1998");
    // 16:58 Italian time, 15:58 at Greenwich.
    EXPECT_NEAR(s.TemaTra.TU(), 15 + 58.0 / 60, 1.0 / 60);
    EXPECT_EQ(f->riquadri[1].nome->text(), "Mario Rossi              Tra  ");
    // The ingress search keeps the transit's Salvo mark.
    EXPECT_TRUE(f->mnuFileSalvo[1]->isChecked());

    // Opened again: the last target and result come back; Annulla changes nothing.
    const Tema prima = s.TemaTra;
    AlModale("frmInSegni", [&](QWidget* w) {
        Testi(w, {{"Text1", "240"}, {"txtPartenza", giorno}});
        Figlio<QListWidget>(w, "List1")->setCurrentRow(1);
        Figlio<QLineEdit>(w, "Text1")->setText("100");
        Figlio<QPushButton>(w, "Command1")->click();
        Figlio<QPushButton>(w, "Command2")->click();
    });
    Voce("mnuTransitiI")->trigger();
    EXPECT_EQ(s.TemaTra, prima);
}

// The requests applied to the real birth data form: what can't be typed is disabled and grey.
TEST(PreparaInputDati, CaselleGrigieEDidascalie) {
    Sessione s;
    MessaggiRegistrati m;
    frmInDatiLyx sol(s, "/non/esiste/Vesmodat.Mdb", 'N', m);
    RichiestaInputDati r("daRivSol");
    r.didascalia = "Lyx - Rivoluzione Solare. Ritorno del SOLE su  Sole";
    r.frame2 = "Anno della Rivoluzione";
    r.disabilitati = {"Text3", "Text4", "Text6", "Text7", "Text22", "Text23"};
    PreparaInputDati(sol, r);
    EXPECT_EQ(sol.windowTitle(), r.didascalia);
    Testi(&sol, {{"Frame2", "Anno della Rivoluzione"}});
    for (QLineEdit* t : {sol.Dati->Text3, sol.Dati->Text4, sol.Dati->Text6, sol.Dati->Text7,
                         sol.Dati->Text22, sol.Dati->Text23})
        EXPECT_FALSE(t->isEnabled()) << t->objectName().toStdString();
    EXPECT_TRUE(sol.Dati->Text5->isEnabled());
    EXPECT_TRUE(sol.Dati->Text2->isEnabled());

    frmInDatiLyx fra(s, "/non/esiste/Vesmodat.Mdb", 'N', m);
    RichiestaInputDati d;
    d.aggiuntaDidascalia = " Direzioni Frazione d' Anno";
    d.disabilitati = {"Text2", "Text19", "Frame3", "Frame4", "Frame5"};
    d.grigi = {"List2", "Text9"};
    PreparaInputDati(fra, d);
    EXPECT_EQ(fra.windowTitle(), "Lyx - Input Dati Direzioni Frazione d' Anno");
    EXPECT_EQ(fra.findChild<QLabel*>("Frame2"), nullptr);
    EXPECT_FALSE(fra.Dati->Frame5->isEnabled());
    EXPECT_FALSE(fra.Dati->Text13->isEnabled()); // inside the latitude frame
    EXPECT_TRUE(fra.Dati->Text3->isEnabled());
    EXPECT_FALSE(fra.Dati->List2->styleSheet().isEmpty());
}
