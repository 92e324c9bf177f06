// The chart menu driven as a user would: the natal slot installed at load, a transit from the
// input form, the comment, the Moon modes, the refresh, saving and importing a slot, the
// printing entry, the windows of each slot, the refusal of the close button and the way back;
// the time-based entries, each form filled and its chart installed in its slot, cancelled and
// mistyped searches leaving the slots as they were; the double wheel of each slot, with the
// aspect selection's refusals, the double zodiac, the transit moved through time, a revolution
// relocated over the map and the nearest towns, the ascensional wheels and the solar arc.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolBar>
#include <functional>

#include "archives/Archivi.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "places/Schema.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "presentation/ui/WidgetMappa.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmRuotaDoppia.h"
#include "presentation/ui/frmStampe.h"
#include "tests/core/store/Cartella.h"
#include "tests/places/AiutoLuoghi.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmInSegni.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;
using vesmo::test::Testi;

namespace {

class Menu : public vesmo::test::BancoMenu<> {
protected:
    void SetUp() override {
        BancoMenu::SetUp();
        Collega();
    }
    // The birth data form as the user fills it: `compila` changes TemaX, then Calcola; none is
    // Annulla. The ingress search's temporary file in the test's folder.
    void Collega() {
        StatoTempo(*f)->cartellaIngressi = cartella.Percorso();
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
    // A places database with one empty archive, `nome`, the menu loaded on it.
    void ConArchivio(const char* nome) {
        percorsi.FileDB = (cartella / "Vesmodat.Mdb").string();
        {
            Database db;
            db.Crea(percorsi.FileDB);
            CreaSchemaLuoghi(db);
        }
        CreaArchivio(percorsi.FileDB, nome);
    }
    vesmo::test::Cartella cartella;
    std::vector<RichiestaInputDati> richieste;
    Tema offerto;
    std::function<void(Tema&, EsitoInputDati&)> compila;
};

// The visible top-level windows named `nome`.
int Aperte(const char* nome) {
    int n = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        n += w->objectName() == nome && w->isVisible();
    return n;
}
QWidget* Aperta(const char* nome) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == nome && w->isVisible()) return w;
    return nullptr;
}
// The open positions window showing the chart named `nome`.
frmOutDati* PosizioniDi(const std::string& nome) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* f = qobject_cast<frmOutDati*>(w);
            f && f->isVisible() && f->TemaMostrato().Nome.Valore() == nome)
            return f;
    return nullptr;
}
QStringList VociMenu(QMenu* menu) {
    QStringList v;
    for (QAction* a : menu->actions())
        v << (a->isSeparator() ? QStringLiteral("-") : a->text());
    return v;
}

// The boxes recorded, and every change of the busy pointer told to the test as it happens.
class MessaggiOccupato : public MessaggiRegistrati {
public:
    std::function<void(bool)> Avviso;
    void Occupato(bool acceso) override {
        MessaggiRegistrati::Occupato(acceso);
        if (Avviso) Avviso(acceso);
    }
};

class Ruote : public test::BancoMenu<MessaggiOccupato> {
protected:
    void SetUp() override {
        // A places database of three towns, without the index iLonLat, and a plain map.
        const auto file = cartella / "Vesmodat.Mdb";
        {
            Database db = test::DatabaseLuoghi(file);
            test::AggiungiCity(db, 380, "Vicenza", -0.7695, 45.55, 1, 1);
            test::AggiungiCity(db, 380, "Padova", -0.7925, 45.4, 1, 1);
            test::AggiungiCity(db, 380, "Venezia", -0.8219, 45.44, 1, 1);
        }
        QImage mappa(LarghezzaMappaPixel, AltezzaMappaPixel, QImage::Format_RGB32);
        mappa.fill(Qt::blue);
        mappa.save(QString::fromStdString((cartella / "MappaFusi.png").string()));
        percorsi.FileDB = file.string();
        Carica(test::TemaPadova("Mario Rossi", 1987, 4, 10, 19.5));
        const char* nomi[] = {"", "Transito", "Rivoluzione", "Direzione"};
        const int anni[] = {0, 2024, 2023, 1988};
        for (int slot = 1; slot <= 3; ++slot)
            Installa(slot, test::TemaPadova(nomi[slot], anni[slot], 6, 1, 12));
        s.JDRivoluzione = s.TemaDelSlot(2).JD();
    }
    frmRuotaDoppia* Apri(const char* voce) {
        Voce(voce)->trigger();
        return StatoRuoteDelMenu(*f)->doppia;
    }
    test::Cartella cartella;
};

// The rows chosen in a list, after a left click on each of `clic` as the user makes it.
std::vector<int> Scelte(QListWidget* l, std::initializer_list<int> clic = {}) {
    for (int riga : clic)
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {},
                          l->visualItemRect(l->item(riga)).center());
    std::vector<int> v;
    for (int i = 0; i < l->count(); ++i)
        if (l->item(i)->isSelected()) v.push_back(i);
    return v;
}

} // namespace

TEST_F(Menu, IlTemaDiPartenzaDiventaNataleEVoci) {
    EXPECT_EQ(f->windowTitle(), "Lyx - Menu. Tema, Transito, Rivoluzione, Direzione Secondaria.");
    EXPECT_EQ(s.MenuPronto, -1);
    auto& r = f->riquadri[0];
    EXPECT_EQ(r.frame->title(), "Natale");
    EXPECT_EQ(r.nome->text(), "Mario Rossi                   ");
    EXPECT_TRUE(r.data->text().startsWith("10/4/1987"));
    EXPECT_EQ(r.teste[0]->text(), "   il                             alle         Estiva");
    Testi(f.get(), {{"Label38", "Luna GeoCentrica"}, {"Label39", "Luna Nera Vera"}});

    // The time menus' entries in their order; in File "&Importa" before "S&alvo", "&Stampe" last
    // before the way out.
    EXPECT_EQ(VociMenu(f->mnuRiv).mid(0, 2), (QStringList{"&Solari", "&Lunari"}));
    EXPECT_EQ(VociMenu(f->mnuDir),
              (QStringList{"&Secondarie", "&Frazione di anno (secondarie)", "&Posizioni ",
                           "&Domiciliazioni", "C&mto", "&Ruota Doppia"}));
    EXPECT_EQ(
        VociMenu(f->mnuTransiti),
        (QStringList{"Calcolo Trans&ito Nuovo", "&Posizioni ", "&Domiciliazioni",
                     "Ingressi nei &Segni", "Calendario &Transiti...", "C&mto", "&Ruota doppia"}));
    const QStringList file = VociMenu(f->mnuFile);
    const auto importa = file.indexOf("&Importa");
    ASSERT_GE(importa, 0);
    EXPECT_EQ(file[importa + 1], "S&alvo");
    EXPECT_EQ(file.indexOf("&Stampe"), file.size() - 3);
    EXPECT_EQ(file[file.size() - 2], "-");
}

TEST_F(Menu, TransitoDallInputELune) {
    compila = [](Tema& t, EsitoInputDati&) { t.Day = GiornoGiuliano(2000, 11, 8); };
    f->mnuTransitInput->trigger();
    // The first transit starts from the natal place, with " Tra" from the 25th character.
    EXPECT_EQ(offerto.Nome.str(), "Mario Rossi              Tra  ");
    EXPECT_EQ(s.TemaTra.Day, GiornoGiuliano(2000, 11, 8));
    EXPECT_TRUE(f->riquadri[1].frame->isEnabled());
    EXPECT_FALSE(f->findChild<QPushButton*>("cmdAA_Tra")->isHidden());
    // A second transit starts from the first; cancelled, the slot stays.
    compila = nullptr;
    f->mnuTransitInput->trigger();
    EXPECT_EQ(offerto.Day, GiornoGiuliano(2000, 11, 8));
    EXPECT_EQ(s.TemaTra.Day, GiornoGiuliano(2000, 11, 8));

    // Topocentric Moon: the natal slot is recast and the others emptied.
    const double geo = s.PosNat.Luna.Lo;
    f->mnuFileLunaTopo->trigger();
    EXPECT_NE(s.PosNat.Luna.Lo, geo);
    EXPECT_EQ(s.TemaTra, Tema{});
    EXPECT_TRUE(f->findChild<QPushButton*>("cmdAA_Tra")->isHidden());
    f->mnuFileLunaNMedia->trigger();
    Testi(f.get(), {{"Label38", "Luna TopoCentrica"}, {"Label39", "Luna Nera Media"}});

    // " Tra" overwrites the 25th to 28th characters of a long name, the last two stay.
    Tema lungo = vesmo::test::NataleDiProva();
    lungo.Nome = "Anna Maria Bianchi in Ferraris";
    Carica(lungo);
    Collega();
    f->mnuTransitInput->trigger();
    EXPECT_EQ(offerto.Nome.str(), "Anna Maria Bianchi in Fe Trais");
}

// The comment saved in its slot; the refresh redraws the first tagged frame only, clearing
// every tag.
TEST_F(Menu, CommentoEAggiorna) {
    f->ApriMemo(0);
    auto* w = qobject_cast<frmMemo*>(Aperta("frmMemo"));
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->windowTitle(),
              "Lyx - Commenti  su   [Tema Natale] - Mario Rossi                   ");
    w->Text1->setPlainText("Ascendente in Bilancia");
    w->Command1->click();
    EXPECT_EQ(s.TemaNat.Cmto, "Ascendente in Bilancia");
    EXPECT_EQ(f->riquadri[0].frame->title(), "Natale (salva Cmto)");
    ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Salvo Cmto",
                          "Ok! Salvato Cmto su  Tema N.\n\nPer avere una registrazione "
                          "PERMANENTE \nbisogna anche salvare Tema N.  sul disco\n"));

    s.TemaRiv = s.TemaNat;
    s.TemaNat.Nome = "Luigi Verdi";
    f->riquadri[0].tag = "oK";
    f->riquadri[2].tag = "oK";
    f->Command2->click();
    EXPECT_EQ(f->riquadri[0].frame->title(), "Natale  (Cmto)");
    EXPECT_EQ(f->riquadri[0].nome->text().trimmed(), "Luigi Verdi");
    EXPECT_TRUE(f->riquadri[2].nome->isHidden());
    for (const auto& r : f->riquadri)
        EXPECT_TRUE(r.tag.isEmpty());
}

// Saving a slot marks its entry; a save cancelled at "Tema Doppio" keeps the earlier mark.
TEST_F(Menu, SalvoSegnaLaVoce) {
    ConArchivio("Clienti");
    Carica(vesmo::test::NataleDiProva());
    s.TemaNat.Cmto = "Ascendente in Bilancia";
    QAction* voce = Voce("mnuFileSalvoTN");
    AlModale("frmSalvoLyx", [](QWidget* w) {
        auto* lista = Figlio<QListWidget>(w, "lstArchivi");
        ASSERT_EQ(lista->count(), 1);
        lista->setCurrentRow(0);
        Figlio<QPushButton>(w, "cmdSalva")->click();
    });
    voce->trigger();
    EXPECT_TRUE(voce->isChecked());
    EXPECT_EQ(f->riquadri[0].frame->title(), "Natale (Cmto)");
    EXPECT_EQ(s.SalvatoOk, 0);
    m.risposte = {Risposta::Annulla};
    AlModale("frmSalvoLyx", [](QWidget* w) { Figlio<QPushButton>(w, "cmdSalva")->click(); });
    voce->trigger();
    EXPECT_TRUE(voce->isChecked());
    ASSERT_FALSE(m.registro.empty());
    EXPECT_EQ(m.registro.back().titolo, "Tema Doppio");
}

// A chart of an archive picked into each slot: frame, button, saved marks removed, and the
// revolution's instant; leaving without a choice changes nothing, a double click imports.
TEST_F(Menu, ImportaInOgniSlot) {
    ConArchivio("Amici");
    const char* nomi[4] = {"Anna", "Bruno", "Carla", "Dario"};
    auto carta = [](const char* nome, int giorno) {
        return vesmo::test::TemaPadova(nome, 1987, 4, giorno, 19.5, 1);
    };
    for (int i = 0; i < 4; ++i)
        ASSERT_EQ(SalvaTema(percorsi.FileDB, "Amici", carta(nomi[i], 10 + i), m, "prova"),
                  EsitoSalvataggio::Aggiunto);
    Carica(carta("Natale di prova", 1));
    QAction* voce = Voce("mnuFileImporta");
    AlModale("frmImpTnLyx", [](QWidget* w) { Figlio<QPushButton>(w, "Command3")->click(); });
    voce->trigger();
    EXPECT_EQ(s.TemaNat, carta("Natale di prova", 1));

    const char* pulsanti[4] = {nullptr, "cmdAA_Tra", "cmdAA_Riv", "cmdAA_Dir"};
    for (int slot = 0; slot < 4; ++slot) {
        SCOPED_TRACE(slot);
        for (QAction* a : f->mnuFileSalvo)
            a->setChecked(true);
        AlModale("frmImpTnLyx", [&](QWidget* w) {
            Figlio<QLineEdit>(w, "Text1")->setText(nomi[slot]);
            const QString opzione = QString("Option%1").arg(slot + 1);
            if (slot == 3) { // a double click on the option imports at once
                QTest::mouseDClick(Figlio<QRadioButton>(w, qPrintable(opzione)), Qt::LeftButton);
                return;
            }
            Figlio<QRadioButton>(w, qPrintable(opzione))->setChecked(true);
            Figlio<QPushButton>(w, "cmdImporta")->click();
        });
        voce->trigger();
        EXPECT_EQ(s.TemaDelSlot(slot), carta(nomi[slot], 10 + slot));
        EXPECT_NEAR(s.PosDelSlot(slot).Sole.Lo, 22, 3); // cast: the Sun at 20-24 Aries
        auto& r = f->riquadri[static_cast<std::size_t>(slot)];
        EXPECT_EQ(r.nome->text().trimmed().toStdString(), nomi[slot]);
        EXPECT_TRUE(r.frame->isEnabled());
        if (pulsanti[slot]) {
            EXPECT_FALSE(Figlio<QPushButton>(f.get(), pulsanti[slot])->isHidden());
        }
        for (QAction* a : f->mnuFileSalvo)
            EXPECT_FALSE(a->isChecked());
    }
    EXPECT_EQ(s.RivoluzioneCalcolata, -1);
    // Carla, 12 April 1987 (JD 2446897.5 at 0h), 19:30 with summer time 1 and zone -1: 17:30 TU.
    EXPECT_NEAR(s.JDRivoluzione, 2446897.5 + 17.5 / 24, 1e-9);
    EXPECT_TRUE(m.registro.empty());
}

// The slot chosen opens the printing form; open already, the entry brings it forward without
// asking again; no slot chosen is passed over in silence.
TEST_F(Menu, StampeDelloSlot) {
    auto aperte = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return f->findChildren<frmStampe*>();
    };
    AlModale("frmCheStampe", [](QWidget* w) { w->close(); });
    Voce("mnuFileStampe")->trigger();
    EXPECT_TRUE(aperte().isEmpty());
    EXPECT_TRUE(m.registro.empty());

    Installa(2, vesmo::test::TemaPadova("Rivoluzione", 2024, 4, 10, 19.5, 1));
    AlModale("frmCheStampe", [](QWidget* w) { Figlio<QPushButton>(w, "cmdR")->click(); });
    Voce("mnuFileStampe")->trigger();
    ASSERT_EQ(aperte().size(), 1);
    frmStampe* st = aperte()[0];
    EXPECT_TRUE(st->isVisible() && !st->isModal());
    EXPECT_EQ(st->OpzioniDellaPagina().CheStampa, 3);
    EXPECT_EQ(s.TemaX.Nome, s.TemaRiv.Nome);
    st->mnuFileStampeChe[0]->trigger();
    Voce("mnuFileStampe")->trigger();
    ASSERT_EQ(aperte(), QList<frmStampe*>{st});
    EXPECT_EQ(st->OpzioniDellaPagina().CheStampa, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(Menu, ChiusuraRifiutataEUscita) {
    EXPECT_FALSE(f->close());
    ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - ControlBox", "Menu  File + Esci "));
    s.TemaRiv = s.TemaNat;
    s.RivoluzioneCalcolata = -1;
    s.JDRivoluzione = 2450000;
    bool tornato = false;
    f->TornaAVesmo = [&] { tornato = true; };
    f->Command1->click();
    EXPECT_TRUE(tornato);
    EXPECT_EQ(s.TemaRiv, Tema{});
    EXPECT_EQ(s.RivoluzioneCalcolata, 0);
    EXPECT_EQ(s.JDRivoluzione, -1.0);
}

// One window a slot; the refresh closes the dignities and the aspect selection, a new chart
// closes them all.
TEST_F(Menu, FinestreDelloSlot) {
    Voce("mnUnCieloDomi")->trigger();
    EXPECT_EQ(Aperta("frmDomicili")->windowTitle(),
              "Lyx - Domiciliazioni di [tema natale] Mario Rossi                   ");
    for (const char* voce : {"mnUnCieloDomi", "mnuTransitiD", "mnUnCieloAO", "mnUnCieloAO",
                             "mnUnCieloPosizione", "mnUnCieloPosizione"})
        Voce(voce)->trigger();
    EXPECT_EQ(Aperte("frmDomicili"), 2);
    EXPECT_EQ(Aperte("frmSelAspetti"), 1);
    EXPECT_EQ(Aperte("frmOutDati"), 1);
    EXPECT_EQ(s.TemaY, s.TemaNat);
    f->Command2->click();
    QApplication::processEvents();
    EXPECT_EQ(Aperte("frmDomicili") + Aperte("frmSelAspetti"), 0);
    EXPECT_EQ(Aperte("frmOutDati"), 1);
    f->ChiudiSecondarie();
    QApplication::processEvents();
    EXPECT_EQ(Aperte("frmOutDati"), 0);
}

// The time toolbar is on the transit's positions window only, and keeps working alone.
TEST_F(Menu, BarraDelTempoSoloSulTransito) {
    Installa(1, vesmo::test::TemaPadova("Transito di prova", 2000, 11, 8, 19.5, 1));
    const Tema transito = s.TemaTra;
    Voce("mnuTransitiP")->trigger();
    Voce("mnUnCieloPosizione")->trigger();
    frmOutDati* tra = PosizioniDi("Transito di prova");
    frmOutDati* nat = PosizioniDi("Mario Rossi");
    ASSERT_TRUE(tra && nat);
    EXPECT_FALSE(tra->Toolbar1->isHidden());
    EXPECT_TRUE(nat->Toolbar1->isHidden());
    nat->UnDay->trigger();
    EXPECT_EQ(s.TemaTra, transito);
    nat->close();
    QApplication::processEvents();
    tra->UnDay->trigger();
    EXPECT_DOUBLE_EQ(s.TemaTra.Day, transito.Day + 1);
    EXPECT_EQ(s.Ruote.TransitoPosizioni, -1);
    Voce("mnUnCieloPosizione")->trigger();
    ASSERT_NE(PosizioniDi("Mario Rossi"), nullptr);
    EXPECT_TRUE(PosizioniDi("Mario Rossi")->Toolbar1->isHidden());
    tra->close();
    EXPECT_EQ(s.Ruote.TransitoPosizioni, 0);
    f->ChiudiSecondarie();
    QApplication::processEvents();
}

// The solar return: a cancelled input form leaves nothing to accept; then the natal Sun,
// accepted into the Rivoluzione slot; Annulla leaves the slot as it was.
TEST_F(Menu, RivoluzioneSolareNelloSlot) {
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
TEST_F(Menu, SinodicaAngoloENascita) {
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
TEST_F(Menu, Direzioni) {
    bool visto = false;
    AlModale("frmDirezioni", [&](QWidget* w) {
        visto = true;
        auto* testo = Figlio<QLineEdit>(w, "Text1");
        auto* calcola = Figlio<QPushButton>(w, "Command1");
        EXPECT_EQ(calcola->text(), "&Input dati >>");
        Figlio<QRadioButton>(w, "Option1")->click();
        Testi(w, {{"Command1", "&Calcola"},
                  {"Text1", "0"},
                  {"Check1", "Frazione annua di progressione"}});
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

    // By date, the input form cancelled, then Annulla: the slot keeps its chart and its mark.
    const Tema prima = s.TemaDir;
    f->mnuFileSalvo[3]->setChecked(true);
    AlModale("frmDirezioni", [&](QWidget* w) { Figlio<QPushButton>(w, "Command1")->click(); });
    Voce("mnuDirSec")->trigger();
    ASSERT_EQ(richieste.size(), 1u);
    EXPECT_EQ(richieste[0].didascalia,
              "Lyx - Input Data Direzione Secondaria di  Mario Rossi                   ");
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
TEST_F(Menu, IngressoDiMercurioComeTransito) {
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

TEST_F(Ruote, OgniVoceApreLaSuaRuota) {
    const std::tuple<const char*, const char*, int> casi[] = {
        {"mnuTransitiR", ": Interno [Tema Natale],  Esterno [Transito]", 1},
        {"mnuRivR", ": Interno [Tema Natale],  Esterno [Rivoluzione]", 2},
        {"mnuDirRuotaDoppia", ": Interno [Tema Natale],  Esterno [Direzione]", 3},
    };
    QPointer<frmRuotaDoppia> prima;
    for (const auto& [voce, didascalia, slot] : casi) {
        SCOPED_TRACE(voce);
        frmRuotaDoppia* w = Apri(voce);
        ASSERT_NE(w, nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(prima.isNull()); // a new opening loads the window afresh
        prima = w;
        EXPECT_TRUE(w->windowTitle().endsWith(QString::fromUtf8(didascalia)));
        EXPECT_EQ(s.TemaZ.Day, s.TemaDelSlot(slot).Day);
        // The transit starts without its houses.
        EXPECT_EQ(w->Ruota->OpzioniDellaDoppia().CaseEsterne, slot != 1);
        const std::optional<Quando> q = QuandoDelTema(s.TemaZ);
        ASSERT_TRUE(q);
        EXPECT_EQ(w->lbQuando->text(), TestoQuando(*q));
    }
}

TEST_F(Ruote, SelezioneAspettiVuoleUnSoloTipo) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    Voce(w, "mnuAspSelezione")->trigger();
    ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Orbita Aspetti",
                          "Bisogna impostare  1  tipo di Aspetti tra quelli possibili "));
    // Two kinds on, by the toolbar and by the menu.
    Voce(w, "Interni")->trigger();
    Voce(w, "mnuAspDisegnaEst")->trigger();
    Voce(w, "mnuAspSelezione")->trigger();
    ASSERT_TRUE(test::Box(m, 2, 1, "Lyx - Orbita Aspetti",
                          "Impostare NON PIU' di  1  tipo di Aspetti tra quelli possibili "));
    EXPECT_EQ(w->Selezione, nullptr);
    // Only the lines between the charts: natal in the rows, transit in the columns.
    Voce(w, "Interni")->trigger();
    Voce(w, "Esterni")->trigger();
    Voce(w, "Comparati")->trigger();
    Voce(w, "mnuAspSelezione")->trigger();
    EXPECT_EQ(m.registro.size(), 2u);
    ASSERT_NE(w->Selezione, nullptr);
    EXPECT_EQ(s.TemaY.Day, s.TemaDelSlot(1).Day);
    w->Selezione->close();
}

// "Tutti" (row 0) and the other rows of a Comparati list exclude each other.
TEST_F(Ruote, TuttiTogliLeAltreRighe) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    Voce(w, "Comparati")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(Scelte(w->List1), (std::vector<int>{0}));
    EXPECT_EQ(Scelte(w->List1, {0, 3}), (std::vector<int>{3}));
    EXPECT_TRUE(w->Ruota->OpzioniDellaDoppia().List1[3]);
    EXPECT_EQ(Scelte(w->List1, {0}), (std::vector<int>{0}));
    EXPECT_EQ(Scelte(w->List2), (std::vector<int>{0})); // the other list is not touched
}

TEST_F(Ruote, ZodiacoDoppioERotazioni) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    constexpr double TolleranzaGradi = 1e-3; // degrees
    Voce(w, "mnFilZCasaV")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    Voce(w, "CaseTra")->trigger(); // a redraw keeps it
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    Voce(w, "mnuRotArieteSx")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 0);
    Voce(w, "mnuRotAscSxEST")->trigger();
    EXPECT_NEAR(w->AngoloRuota, 360 - s.PosZ.Asce.Lo, TolleranzaGradi);
    m.input.push_back("-12,5");
    Voce(w, "mnuRotQualsiasi")->trigger();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Angolo di rotazione della Ruota Doppia");
    EXPECT_NE(m.registro[0].testo.find("Riferito al tema INTERNO."), std::string::npos);
    EXPECT_FLOAT_EQ(w->AngoloRuota, -12.5f);
}

// Three days of the transit: the slot, its frame and its unsaved mark follow.
TEST_F(Ruote, IlTransitoAvanzaEIlRiquadroSiAggiorna) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    const QString quando = w->lbQuando->text(), data = f->riquadri[1].data->text();
    const double sole = s.PosZ.Sole.Lo;
    f->mnuFileSalvo[1]->setCheckable(true);
    f->mnuFileSalvo[1]->setChecked(true);
    w->txtTempi->setText("3");
    Voce(w, "UnDay")->trigger();
    EXPECT_EQ(s.TemaZ.Day, GiornoGiuliano(2024, 6, 4));
    EXPECT_EQ(s.TemaDelSlot(1).Day, s.TemaZ.Day);
    EXPECT_NEAR(s.PosZ.Sole.Lo - sole, 2.9, 0.1); // three days of the Sun
    EXPECT_EQ(s.PosTra.Sole.Lo, s.PosZ.Sole.Lo);
    EXPECT_NE(w->lbQuando->text(), quando);
    EXPECT_NE(f->riquadri[1].data->text(), data);
    EXPECT_FALSE(f->mnuFileSalvo[1]->isChecked());
}

TEST_F(Ruote, RilocataSulPostoESpostata) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(Voce(w, "mnuAspMirate")->text(), "Rivoluzioni &Rilocate On / Off");
    test::Testi(w, {{"lbNeoIndici", "Costruzione Nuovi Indici. Attendere..."},
                    {"cmdMirateOFF", "Rilocate OFF"}});
    f->mnuFileSalvo[2]->setCheckable(true);
    f->mnuFileSalvo[2]->setChecked(true);
    const double jd = s.JDRivoluzione;
    // While the index of the towns is built, the label shows with the busy pointer.
    std::vector<std::pair<bool, bool>> avvisi; // pointer, label
    m.Avviso = [&](bool acceso) { avvisi.emplace_back(acceso, w->lbNeoIndici->isVisibleTo(w)); };

    // On: the chart cast again where it stands, on local mean time, with the map and the towns.
    Voce(w, "mnuAspMirate")->trigger();
    EXPECT_EQ(avvisi, (std::vector<std::pair<bool, bool>>{{true, true}, {false, false}}));
    test::Testi(w, {{"txtTempi", "0"}, {"lbCoord", "11E53   45N24"}});
    EXPECT_TRUE(w->picFusi->isVisibleTo(w));
    EXPECT_EQ(s.TemaRiv.City.Valore(), "Jolly");
    EXPECT_NEAR(s.TemaRiv.JD(), jd, 1e-9);
    ASSERT_GT(w->lstCityVicine->count(), 0);
    EXPECT_TRUE(w->lstCityVicine->currentItem()->text().startsWith("Padova - Italy"));
    EXPECT_FALSE(f->mnuFileSalvo[2]->isChecked());

    // Thirty minutes of arc north: the index is there now, no label, no busy pointer.
    w->CaseTra->trigger();
    w->txtTempi->setText("30");
    Voce(w, "UnMin")->trigger();
    EXPECT_EQ(w->lbCoord->text(), "11E53   45N54");
    EXPECT_EQ(avvisi.size(), 2u);

    // Far west the clock of the revolution's Greenwich day reads before 0 h: the time shown
    // is that of the day before.
    w->CaseTra->trigger();
    w->txtTempi->setText("184"); // to 172 degrees west, 11.47 hours behind Greenwich
    Voce(w, "UnSec")->trigger();
    ASSERT_LT(s.TemaZ.OraL, 0);
    Tema ieri = s.TemaZ;
    ieri.Day -= 1;
    ieri.OraL += 24;
    const std::optional<Quando> q = QuandoDelTema(ieri);
    ASSERT_TRUE(q);
    EXPECT_EQ(w->lbQuando->text(), TestoQuando(*q));

    // Off, by the button on the map.
    w->cmdMirateOFF->click();
    EXPECT_FALSE(w->lstCityVicine->isVisibleTo(w));
    EXPECT_FALSE(w->Ruota->OpzioniDellaDoppia().MappaVisibile);
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(Ruote, RilocateRifiutate) {
    struct Caso {
        const char *perche, *voce, *azione; // the wheel opened, what is pressed
        double lon, lat;                    // of the outer chart
        bool rivoluzione, ascensionale;     // JDRivoluzione known; mnuRascAR checked first
        const char *titolo, *messaggio;
        Icona icona;
    };
    const Caso casi[] = {
        {"longitudine", "mnuRivR", "UnSec", 11.99, 45, true, false, "Lyx - Info Rivoluzioni",
         "Longitudine > 180°", Icona::Esclamativo},
        {"transito senza rivoluzione", "mnuTransitiR", "mnuAspMirate", 0.5, 45, false, false,
         "Vesmo - Info Rilocate", "Necessaria Rivoluzione!", Icona::Informazione},
        {"ruota ascensionale", "mnuRivR", "mnuAspMirate", 0.5, 45, true, true, "",
         "Deseleziona Ruota Ascensionale!", Icona::Nessuna},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.perche);
        s.JDRivoluzione = c.rivoluzione ? s.TemaDelSlot(2).JD() : -1.0;
        frmRuotaDoppia* w = Apri(c.voce);
        ASSERT_NE(w, nullptr);
        if (c.ascensionale) Voce(w, "mnuRascAR")->trigger();
        s.TemaZ.Lon = c.lon;
        s.TemaZ.Lat = c.lat;
        const Tema riv = s.TemaRiv, z = s.TemaZ;
        m.registro.clear();
        w->txtTempi->setText("1");
        Voce(w, c.azione)->trigger();
        ASSERT_TRUE(test::Box(m, 1, 0, c.titolo, c.messaggio));
        EXPECT_EQ(m.registro[0].icona, c.icona);
        EXPECT_EQ(s.TemaRiv, riv);
        EXPECT_FALSE(w->picFusi->isVisibleTo(w));
        if (c.rivoluzione) {
            EXPECT_EQ(s.TemaZ, z);
        }
        w->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// The ascensional switches draw their wheel at once, over a double zodiac too, in the double
// wheel and in the positions window, where the turn buttons hide while one is on.
TEST_F(Ruote, RuoteAscensionaliAcceseESpente) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    s.TemaX = s.TemaDelSlot(0);
    s.PosX = s.PosDelSlot(0);
    frmOutDati posizioni(s, percorsi.FileDB, m);
    using T = WidgetRuota::Tipo;
    const std::tuple<QWidget*, WidgetRuota*, const char*, T> passi[] = {
        {w, w->Ruota, "mnuRascAR", T::DoppiaAscensionale},
        {w, w->Ruota, "mnuRascAO", T::DoppiaAscensionale},
        {w, w->Ruota, "mnuRascAO", T::Doppia},
        {&posizioni, posizioni.Ruota, "mnuAR", T::Ascensionale},
        {&posizioni, posizioni.Ruota, "mnuAO", T::Ascensionale},
        {&posizioni, posizioni.Ruota, "mnuAO", T::Singola},
    };
    for (const auto& [finestra, ruota, voce, tipo] : passi) {
        SCOPED_TRACE(voce);
        Voce(finestra, voce)->trigger();
        EXPECT_EQ(ruota->TipoMostrato(), tipo);
        if (tipo == T::DoppiaAscensionale) { // the two switches exclude each other
            EXPECT_NE(w->mnuRascAR->isChecked(), w->mnuRascAO->isChecked());
        }
    }
    Voce(w, "mnFilZCasaV")->trigger();
    Voce(w, "mnuRascAR")->trigger();
    EXPECT_EQ(w->Ruota->TipoMostrato(), T::DoppiaAscensionale);
}

TEST_F(Ruote, ArcoSolare) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    const std::tuple<std::optional<std::string>, float, std::size_t> casi[] = {
        {"2,5", 2.5f, 0}, {"", 0, 0}, {"anni", 0, 1}}; // answer, arc, boxes after
    for (const auto& [risposta, arco, messaggi] : casi) {
        m.registro.clear();
        m.input.push_back(risposta);
        Voce(w, "mnuArco")->trigger();
        ASSERT_TRUE(test::Box(m, 1 + messaggi, 0, "Lyx - Arco Solare",
                              "La progressione Arco Solare considera \n1 grado = 1 anno.\n\nQuindi "
                              "ruota il Tema Esterno, rispetto a quello Interno, di tanti gradi "
                              "quanti sono gli anni di input utente.\nRotazione nel verso "
                              "AntiOrario.\n\nE' preferibile usare questa funzione dopo aver "
                              "caricato 2 temi eguali, uno come Tema Natale ed un altro come "
                              "Rivoluzione.\n\nNon inserire espressioni.\nIl separatore "
                              "decimale è la  Virgola.\n\nInput  ANNI."));
        EXPECT_FLOAT_EQ(aspetti.ArcoSolare, arco);
        EXPECT_FLOAT_EQ(w->Ruota->OpzioniDellaDoppia().Aspetti.ArcoSolare, arco);
    }
    // The arc outlives the wheel.
    m.input.push_back(std::optional<std::string>("12"));
    Voce(w, "mnuArco")->trigger();
    w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FLOAT_EQ(aspetti.ArcoSolare, 12);
}
