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
#include <functional>

#include "core/Aritmetica.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmInSegni.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;
using vesmo::test::Testi;

namespace {

class MenuTempo : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        BancoMenu::SetUp();
        ASSERT_TRUE(cartella.isValid());
        StatoTempo(*f)->cartellaIngressi = cartella.path().toStdString();
        // The birth data form as the user fills it: `compila` changes TemaX, then Calcola.
        f->InputDati = [this](const RichiestaInputDati& r) {
            richieste.push_back(r);
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
    std::function<void(Tema&, EsitoInputDati&)> compila;
};

} // namespace

// The solar return: a cancelled input form leaves nothing to accept; then the natal Sun,
// accepted into the Rivoluzione slot; Annulla leaves the slot as it was.
TEST_F(MenuTempo, RivoluzioneSolareNelloSlot) {
    f->mnuFileSalvo[2]->setChecked(true);
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        auto* lista = Figlio<QListWidget>(w, "List1");
        EXPECT_EQ(lista->currentItem()->text(), " Sole");
        lista->setCurrentRow(23);
        EXPECT_EQ(lista->currentItem()->text(), "Grado qualsiasi dell'Eclittica!");
        Figlio<QPushButton>(w, "Command2")->click();
        EXPECT_TRUE(Figlio<QPushButton>(w, "Command4")->isHidden());

        lista->setCurrentRow(0);
        compila = [](Tema&, EsitoInputDati& e) { e.AnnoRiv = 2000; };
        Figlio<QPushButton>(w, "Command2")->click();
        Testi(w, {{"Label7", "Ritorno Su:"}, {"Command4", "&Calcola >>"}});
        EXPECT_EQ(s.RivoluzioneCalcolata, 0); // nothing installed before the user accepts
        Figlio<QPushButton>(w, "Command4")->click();
    });
    Voce("mnuRivSol")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 2u);
    EXPECT_EQ(richieste[1].frame2, "Anno della Rivoluzione");
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
    EXPECT_EQ(s.TemaRiv.Day, GiornoZero(s.JDRivoluzione));
    EXPECT_FALSE(f->riquadri[2].astrolog->isHidden());
    EXPECT_FALSE(f->mnuFileSalvo[2]->isChecked());
    EXPECT_TRUE(m.registro.empty());

    const Tema prima = s.TemaRiv;
    AlModale("frmCheRivoluzione", [](QWidget* w) { Figlio<QPushButton>(w, "Command1")->click(); });
    Voce("mnuRivSol")->trigger();
    EXPECT_EQ(s.TemaRiv, prima);
}

// The synodic form: giving the angle box the focus takes the natal tick away; an empty box
// becomes 0; the tick clears the box.
TEST_F(MenuTempo, SinodicaAngoloENascita) {
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        Testi(w, {{"Frame2Sin", "Angolo Luna  --> Sole "}, {"Check1Sin", "  Angolo di Nascita"}});
        auto* natale = Figlio<QCheckBox>(w, "Check1Sin");
        auto* angolo = Figlio<QLineEdit>(w, "Text3Sin");
        EXPECT_TRUE(natale->isChecked());
        QFocusEvent dentro(QEvent::FocusIn), fuori(QEvent::FocusOut);
        QApplication::sendEvent(angolo, &dentro);
        EXPECT_FALSE(natale->isChecked());
        QApplication::sendEvent(angolo, &fuori);
        EXPECT_EQ(angolo->text(), "0");
        natale->click();
        EXPECT_EQ(angolo->text(), "");
        Figlio<QPushButton>(w, "Command1")->click();
    });
    Voce("mnuRivLunS")->trigger();
    EXPECT_TRUE(visto);
}

// frmDirezioni by years, refusing letters; by date with the fraction; the input form cancelled
// and Annulla; the fraction of year after its explanation.
TEST_F(MenuTempo, Direzioni) {
    bool visto = false;
    AlModale("frmDirezioni", [&](QWidget* w) {
        visto = true;
        auto* testo = Figlio<QLineEdit>(w, "Text1");
        auto* calcola = Figlio<QPushButton>(w, "Command1");
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
    EXPECT_NEAR(s.TemaDir.Day, s.TemaNat.Day + 30.5, 1e-9);
    EXPECT_FALSE(f->riquadri[3].astrolog->isHidden());

    // 10 December 2017, 30 years and 8 months after birth, with the fraction.
    compila = [](Tema& t, EsitoInputDati&) { t.Day = GiornoGiuliano(2017, 12, 10); };
    AlModale("frmDirezioni", [&](QWidget* w) {
        Figlio<QRadioButton>(w, "Option2")->click();
        Testi(w, {{"Check1", "Frazione annua di progressione"}});
        Figlio<QCheckBox>(w, "Check1")->setChecked(true);
        Figlio<QPushButton>(w, "Command1")->click();
    });
    Voce("mnuDirSec")->trigger();
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].didascalia,
              "Lyx - Input Data Direzione Secondaria di  Mario Rossi                   ");
    EXPECT_EQ(f->riquadri[3].nome->text(), "Mario Rossi          P. 30,66 ");

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

    // The fraction of year: No to the explanation opens no input form; Yes does.
    richieste.clear();
    m.registro.clear();
    m.risposte = {Risposta::No, Risposta::Si};
    Voce("mnuDirFra")->trigger();
    EXPECT_TRUE(richieste.empty());
    compila = [](Tema& t, EsitoInputDati&) { t.Day = GiornoGiuliano(1988, 10, 10); };
    Voce("mnuDirFra")->trigger();
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].aggiuntaDidascalia, " Direzioni Frazione d' Anno");
    EXPECT_EQ(m.registro.size(), 3u); // the explanation twice, the api warning once
    EXPECT_EQ(s.TemaDir.Day, s.TemaNat.Day + 2);
}

// The help's example through frmInSegni, with its help and its refusals; opened again, the last
// target and result come back and Annulla changes nothing.
TEST_F(MenuTempo, IngressoDiMercurioComeTransito) {
    f->mnuFileSalvo[1]->setChecked(true);
    QString giorno, aiuto;
    AlModale("frmInSegni", [&](QWidget* w) {
        AlModale("frmHelp", [&](QWidget* h) {
            aiuto = h->windowTitle() + "|" + Figlio<QLabel>(h, "lbHelpFuso")->text();
            h->close();
        });
        qobject_cast<frmInSegni*>(w)->mnuGuida->trigger();
        auto* lista = Figlio<QListWidget>(w, "List1");
        EXPECT_EQ(lista->item(8)->text(), " Nodo Luna Nord");
        auto* partenza = Figlio<QLineEdit>(w, "txtPartenza");
        auto* avvio = Figlio<QPushButton>(w, "Command1");
        Figlio<QPushButton>(w, "cmdTN")->click(); // the natal day as the start
        EXPECT_EQ(partenza->text().toStdString(), TestoNumero(s.TemaNat.JD()));
        // No planet chosen (the list picks its first row when it takes the focus).
        lista->setCurrentRow(-1);
        Figlio<QLineEdit>(w, "Text1")->setText("240");
        avvio->click();
        ASSERT_EQ(m.registro.size(), 1u);
        lista->setCurrentRow(0);
        partenza->setText("ieri");
        avvio->click();
        ASSERT_TRUE(test::Box(m, 2, 1, "Lyx - Ingressi nei Segni",
                              "JD Partenza non valido: \"ieri\"\r\nScrivere un numero, "
                              "con la virgola come separatore decimale."));
        partenza->setText("2451113");
        avvio->click();
        EXPECT_EQ(m.registro.size(), 2u);
        Testi(w, {{"Label12", "Centro!  Calcolo posizione  >>"}});
        giorno = Figlio<QLineEdit>(w, "Text5")->text();
        Figlio<QPushButton>(w, "Command4")->click();
    });
    Voce("mnuTransitiI")->trigger();
    EXPECT_TRUE(aiuto.startsWith("Lyx - Aiuto Ingressi nei Segni|"));
    EXPECT_TRUE(aiuto.contains(
        "  Permette di calcolare quando un Pianeta sarà ad un certo grado della  Eclittica."));
    EXPECT_EQ(s.TransitoCalcolato, -1);
    EXPECT_EQ(s.TemaTra.Day, GiornoGiuliano(1998, 11, 1));
    EXPECT_TRUE(f->mnuFileSalvo[1]->isChecked()); // the ingress search keeps the Salvo mark

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
    r.disabilitati = {"Text3", "Text22"};
    PreparaInputDati(sol, r);
    EXPECT_EQ(sol.windowTitle(), r.didascalia);
    Testi(&sol, {{"Frame2", "Anno della Rivoluzione"}});
    EXPECT_FALSE(sol.Dati->Text3->isEnabled() || sol.Dati->Text22->isEnabled());
    EXPECT_TRUE(sol.Dati->Text5->isEnabled());

    frmInDatiLyx fra(s, "/non/esiste/Vesmodat.Mdb", 'N', m);
    RichiestaInputDati d;
    d.aggiuntaDidascalia = " Direzioni Frazione d' Anno";
    d.disabilitati = {"Text2", "Text19", "Frame3", "Frame4", "Frame5"};
    d.grigi = {"List2", "Text9"};
    PreparaInputDati(fra, d);
    EXPECT_EQ(fra.windowTitle(), "Lyx - Input Dati Direzioni Frazione d' Anno");
    EXPECT_FALSE(fra.Dati->Frame5->isEnabled());
    EXPECT_FALSE(fra.Dati->Text13->isEnabled()); // inside the latitude frame
    EXPECT_TRUE(fra.Dati->Text3->isEnabled());
    EXPECT_FALSE(fra.Dati->List2->styleSheet().isEmpty());
}
