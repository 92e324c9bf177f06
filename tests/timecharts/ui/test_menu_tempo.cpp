// The time-based entries of the chart menu driven as a user would: each form opened from its
// menu entry, filled, and its chart installed in its slot; cancelled and mistyped searches
// leave the slots as they were.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <cmath>
#include <functional>

#include "core/Aritmetica.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "timecharts/Istanti.h"
#include "timecharts/Rivoluzioni.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmCheRivoluzione.h"
#include "timecharts/ui/frmDirezioni.h"
#include "timecharts/ui/frmInSegni.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;

namespace {

// Runs `azione` on the modal window named `nome` as soon as it is shown; a window that never
// shows fails the test and closes whatever modal window stands, so nothing hangs.
void AlModale(const QString& nome, std::function<void(QWidget*)> azione) {
    auto* t = new QTimer;
    auto giri = std::make_shared<int>(0);
    QObject::connect(t, &QTimer::timeout, [t, nome, azione, giri] {
        QWidget* w = QApplication::activeModalWidget();
        if (w && w->objectName() == nome) {
            t->stop();
            t->deleteLater();
            azione(w);
            return;
        }
        if (++*giri > 2000) {
            t->stop();
            t->deleteLater();
            ADD_FAILURE() << "non si è aperta la finestra " << nome.toStdString();
            if (w) w->close();
        }
    });
    t->start(5);
}

template <class T> T* Figlio(QWidget* w, const char* nome) {
    T* c = w->findChild<T*>(nome);
    EXPECT_NE(c, nullptr) << nome;
    return c;
}

std::string Data(double jd) {
    float a, m, g;
    DataDaGiuliano(jd, a, m, g);
    return std::to_string(static_cast<int>(g)) + "/" + std::to_string(static_cast<int>(m)) + "/" +
           std::to_string(static_cast<int>(a));
}

QStringList Voci(QMenu* m) {
    QStringList v;
    for (QAction* a : m->actions())
        v << a->text();
    return v;
}

class MenuTempo : public ::testing::Test {
protected:
    void SetUp() override {
        Tema t;
        t.Nome = "Mario Rossi";
        t.City = "Padova";
        t.Stato = "Italy";
        t.Day = GiornoGiuliano(1987, 4, 10);
        t.OraL = 19.5;
        t.Lon = -GradiDecimali(11, 53, 0) / 15;
        t.Lat = 45.4;
        t.Fuso = -1;
        t.Estiva = 1;
        s.TemaX = t;
        aspetti.EntraInLyx();
        percorsi.FileDB = "/non/esiste/Vesmodat.Mdb";
        f = std::make_unique<frmMenu>(s, aspetti, cfg, percorsi, m);
        f->Form_Load();
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
    QAction* Voce(const char* nome) {
        auto* a = f->findChild<QAction*>(nome);
        EXPECT_NE(a, nullptr) << nome;
        return a;
    }
    Sessione s;
    TabellaAspetti aspetti;
    ConfigIni cfg;
    PercorsiVesmo percorsi;
    MessaggiRegistrati m;
    QTemporaryDir cartella;
    std::unique_ptr<frmMenu> f;
    std::vector<RichiestaInputDati> richieste;
    Tema offerto;
    std::function<void(Tema&, EsitoInputDati&)> compila;
};

} // namespace

TEST_F(MenuTempo, VociNeiMenu) {
    EXPECT_EQ(Voci(f->mnuRiv).mid(0, 2), (QStringList{"&Solari", "&Lunari"}));
    EXPECT_EQ(Voci(f->mnuRiv).last(), "C&mto");
    auto* lun = f->findChild<QMenu*>("mnuRivLun");
    ASSERT_NE(lun, nullptr);
    EXPECT_EQ(Voci(lun), (QStringList{"&Tropiche", "S&inodiche"}));
    EXPECT_EQ(Voci(f->mnuDir), (QStringList{"&Secondarie", "&Frazione di anno (secondarie)",
                                            "&Posizioni ", "&Domiciliazioni", "C&mto"}));
    EXPECT_EQ(Voci(f->mnuTransiti),
              (QStringList{"Calcolo Trans&ito Nuovo", "&Posizioni ", "&Domiciliazioni",
                           "Ingressi nei &Segni", "C&mto"}));
    for (const char* n : {"mnuRivSol", "mnuRivLunT", "mnuRivLunS", "mnuDirSec", "mnuDirFra",
                          "mnuTransitiI", "mnuHeDirFrAnno"})
        Voce(n);
}

TEST_F(MenuTempo, RivoluzioneSolareNelloSlot) {
    f->mnuFileSalvo[2]->setChecked(true);
    compila = [](Tema&, EsitoInputDati& e) { e.AnnoRiv = 2000; };
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        EXPECT_EQ(w->windowTitle(), "Lyx - Rivoluzioni Solari");
        auto* lista = Figlio<QListWidget>(w, "List1");
        ASSERT_EQ(lista->count(), 24);
        EXPECT_EQ(lista->currentItem()->text(), " Sole");
        EXPECT_EQ(lista->item(23)->text(), "Grado qualsiasi dell'Eclittica!");
        EXPECT_EQ(Figlio<QLabel>(w, "Label7")->text(), "Ritorno Su:");
        EXPECT_TRUE(Figlio<QLabel>(w, "Label6")->isHidden());
        EXPECT_TRUE(Figlio<QGroupBox>(w, "Frame2Sin")->isHidden());
        auto* grado = Figlio<QLineEdit>(w, "Text1");
        EXPECT_FALSE(grado->isEnabled());
        EXPECT_EQ(grado->toolTip(), "Separatore decimale:  virgola");
        lista->setCurrentRow(23);
        EXPECT_TRUE(grado->isEnabled());
        EXPECT_TRUE(Figlio<QLabel>(w, "Label3")->isEnabled());
        lista->setCurrentRow(0);
        EXPECT_FALSE(grado->isEnabled());
        EXPECT_TRUE(Figlio<QLabel>(w, "Label5")->isHidden());
        Figlio<QPushButton>(w, "Command2")->click();
        EXPECT_EQ(Figlio<QLabel>(w, "Label5")->text(),
                  "ok! Trovato  JD. Calcolo  della  posizione");
        EXPECT_FALSE(Figlio<QLabel>(w, "Label5")->isHidden());
        EXPECT_TRUE(Figlio<QPushButton>(w, "Command5")->isHidden());
        auto* calcola = Figlio<QPushButton>(w, "Command4");
        EXPECT_EQ(calcola->text(), "&Calcola >>");
        // Nothing is installed before the user accepts.
        EXPECT_EQ(s.RivoluzioneCalcolata, 0);
        calcola->click();
    });
    Voce("mnuRivSol")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 1u);
    const RichiestaInputDati& r = richieste[0];
    EXPECT_EQ(r.TagCommand4, "daRivSol");
    EXPECT_EQ(r.didascalia, "Lyx - Rivoluzione Solare. Ritorno del SOLE su  Sole");
    EXPECT_EQ(r.frame2, "Anno della Rivoluzione");
    EXPECT_EQ(r.disabilitati,
              (QStringList{"Text3", "Text4", "Text6", "Text7", "Text22", "Text23"}));
    EXPECT_EQ(offerto.Nome.str(), "Mario Rossi                RS ");

    // The Rivoluzione slot holds the return of 2000, cast: its Sun is the natal Sun.
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
    EXPECT_EQ(s.DatiOk, 0);
    EXPECT_NEAR(s.TemaRiv.JD(), s.JDRivoluzione, 1e-8);
    EXPECT_EQ(Data(s.JDRivoluzione).substr(Data(s.JDRivoluzione).size() - 7), "/4/2000");
    EXPECT_NEAR(std::fabs(Scostamento(s.PosRiv.Sole.Lo, s.PosNat.Sole.Lo)), 0, 1e-7);
    auto& riq = f->riquadri[2];
    EXPECT_TRUE(riq.frame->isEnabled());
    EXPECT_EQ(riq.frame->title(), "Rivoluzione");
    EXPECT_EQ(riq.nome->text(), "Mario Rossi                RS ");
    EXPECT_FALSE(riq.astrolog->isHidden());
    EXPECT_FALSE(f->mnuFileSalvo[2]->isChecked());
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(MenuTempo, RivoluzioneAnnullataLasciaLoSlot) {
    // Any degree typed with letters counts as 0; the input form cancelled: TemaX is blanked,
    // the form stays open, nothing can be accepted; Annulla leaves the slot empty.
    bool visto = false;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        visto = true;
        Figlio<QListWidget>(w, "List1")->setCurrentRow(23);
        Figlio<QLineEdit>(w, "Text1")->setText("ventidue");
        Figlio<QPushButton>(w, "Command2")->click();
        EXPECT_EQ(s.TemaX, Tema{});
        EXPECT_TRUE(w->isVisible());
        EXPECT_TRUE(Figlio<QPushButton>(w, "Command4")->isHidden());
        Figlio<QPushButton>(w, "Command1")->click();
    });
    Voce("mnuRivSol")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].didascalia, "Lyx - Rivoluzione Solare. Ritorno del SOLE sul Grado   0");
    EXPECT_EQ(s.RivoluzioneCalcolata, 0);
    EXPECT_EQ(s.TemaRiv, Tema{});
    EXPECT_FALSE(f->riquadri[2].frame->isEnabled());
    EXPECT_TRUE(f->riquadri[2].astrolog->isHidden());
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
        EXPECT_EQ(Figlio<QLabel>(w, "Label6")->text(), "Lunare  TROPICA");
        EXPECT_FALSE(Figlio<QLabel>(w, "Label6")->isHidden());
        EXPECT_EQ(Figlio<QLabel>(w, "Label4")->text(),
                  "Il ritorno della LUNA può essere calcolato in qualsiasi punto della "
                  "Eclittica. Selezionare un elemento della lista (es. Luna) o scrivere il "
                  "grado desiderato (es. 237,4176)");
        auto* lista = Figlio<QListWidget>(w, "List1");
        EXPECT_EQ(lista->currentRow(), 1);
        lista->setCurrentRow(23);
        Figlio<QLineEdit>(w, "Text1")->setText(QString::fromStdString(TestoNumero(grado)));
        Figlio<QPushButton>(w, "Command2")->click();
        EXPECT_EQ(Figlio<QLabel>(w, "Label5")->text(),
                  "Sono state trovate in questo mese 2 rivoluzioni Lunari Tropiche. Scegliere "
                  "tra:");
        EXPECT_FALSE(Figlio<QLineEdit>(w, "Text2")->isHidden());
        auto* primo = Figlio<QPushButton>(w, "Command4");
        auto* secondo = Figlio<QPushButton>(w, "Command5");
        EXPECT_FALSE(secondo->isHidden());
        EXPECT_EQ(primo->text().toStdString(), Data(s.JDPrimoRitorno));
        EXPECT_EQ(secondo->text().toStdString(), Data(s.JDRivoluzione));
        EXPECT_EQ(primo->text(), "2/1/2000");
        primo->click();
    });
    Voce("mnuRivLunT")->trigger();
    ASSERT_TRUE(visto);
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].TagCommand4, "daRivLun");
    EXPECT_EQ(richieste[0].frame2, "Mese e Anno della Rivoluzione");
    EXPECT_EQ(richieste[0].disabilitati,
              (QStringList{"Text3", "Text6", "Text7", "Text22", "Text23"}));
    EXPECT_TRUE(richieste[0].didascalia.startsWith(
        "Lyx - Rivoluzione Lunare Tropica. Ritorno di LUNA sul Grado   "));
    // The input form starts from the first of the natal month.
    EXPECT_EQ(offerto.Day, GiornoGiuliano(1987, 4, 1));
    EXPECT_EQ(offerto.Nome.str().substr(21, 7), " RL Tro");
    // The earlier return was chosen: it is the slot's chart and its instant.
    EXPECT_EQ(s.JDRivoluzione, s.JDPrimoRitorno);
    EXPECT_NEAR(s.TemaRiv.JD(), s.JDPrimoRitorno, 1e-8);
    EXPECT_NEAR(std::fabs(Scostamento(s.PosRiv.Luna.Lo, grado)), 0, 1e-6);
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
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
        EXPECT_TRUE(Figlio<QLineEdit>(w, "Text1")->isHidden());
        auto* pannello = Figlio<QGroupBox>(w, "Frame2Sin");
        EXPECT_FALSE(pannello->isHidden());
        EXPECT_EQ(pannello->title(), "Angolo Luna  --> Sole ");
        EXPECT_EQ(Figlio<QLabel>(w, "Label38")->text(), "Luna GeoCentrica");
        EXPECT_EQ(Figlio<QLabel>(w, "Label6")->text(), "Lunare  SINODICA");
        auto* natale = Figlio<QCheckBox>(w, "Check1Sin");
        auto* angolo = Figlio<QLineEdit>(w, "Text3Sin");
        EXPECT_EQ(natale->text(), "  Angolo di Nascita");
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
    EXPECT_NEAR(Norma360(s.PosRiv.Sole.Lo - s.PosRiv.Luna.Lo, 1), 180, 1e-6);
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
}

TEST_F(MenuTempo, AiutoDelleRivoluzioni) {
    QString titolo, testo;
    AlModale("frmCheRivoluzione", [&](QWidget* w) {
        AlModale("frmHelp", [&](QWidget* h) {
            titolo = h->windowTitle();
            testo = Figlio<QLabel>(h, "lbHelpFuso")->text();
            h->close();
        });
        Figlio<QPushButton>(w, "Command3")->click();
        w->close();
    });
    Voce("mnuRivLunS")->trigger();
    EXPECT_EQ(titolo, "Lyx - Aiuto Rivoluzioni Lunari Sinodiche");
    EXPECT_TRUE(testo.contains("Ciclo di 29 giorni 12 ore 44 minuti 2,9 secondi"));
    EXPECT_TRUE(richieste.empty());
}
