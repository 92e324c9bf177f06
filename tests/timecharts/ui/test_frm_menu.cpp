// The chart menu driven as a user would: the natal slot installed at load, a transit from the
// input form, the comment, the Moon modes, the refresh, saving and importing a slot, the
// printing entry, the windows of each slot, the refusal of the close button and the way back;
// the time-based entries, each form filled and its chart installed in its slot, cancelled and
// mistyped searches leaving the slots as they were.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
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
#include "core/Aritmetica.h"
#include "places/Schema.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmStampe.h"
#include "tests/core/store/Cartella.h"
#include "tests/timecharts/ui/BancoMenu.h"
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
