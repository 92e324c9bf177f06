// The chart menu driven as a user would: the natal slot installed at load, a transit from the
// input form, the comment, the Moon modes, the refresh, saving and importing a slot, the
// printing entry, the windows of each slot, the refusal of the close button and the way back.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
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

#include "archives/Archivi.h"
#include "core/Aritmetica.h"
#include "places/Schema.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmStampe.h"
#include "tests/core/store/Cartella.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;

namespace {

class Menu : public vesmo::test::BancoMenu<> {
protected:
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
    vesmo::test::Testi(f.get(), {{"Label38", "Luna GeoCentrica"}, {"Label39", "Luna Nera Vera"}});

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
    Tema offerto;
    bool calcola = true; // the user changes the date, then Calcola; else Annulla
    auto input = [&](const RichiestaInputDati&) {
        offerto = s.TemaX;
        if (!calcola) return EsitoInputDati{};
        s.TemaX.Day = GiornoGiuliano(2000, 11, 8);
        s.DatiOk = -1;
        return EsitoInputDati{true};
    };
    f->InputDati = input;
    f->mnuTransitInput->trigger();
    // The first transit starts from the natal place, with " Tra" from the 25th character.
    EXPECT_EQ(offerto.Nome.str(), "Mario Rossi              Tra  ");
    EXPECT_EQ(s.TemaTra.Day, GiornoGiuliano(2000, 11, 8));
    EXPECT_TRUE(f->riquadri[1].frame->isEnabled());
    EXPECT_FALSE(f->findChild<QPushButton*>("cmdAA_Tra")->isHidden());
    // A second transit starts from the first; cancelled, the slot stays.
    calcola = false;
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
    vesmo::test::Testi(f.get(), {{"Label38", "Luna TopoCentrica"}, {"Label39", "Luna Nera Media"}});

    // " Tra" overwrites the 25th to 28th characters of a long name, the last two stay.
    Tema lungo = vesmo::test::NataleDiProva();
    lungo.Nome = "Anna Maria Bianchi in Ferraris";
    Carica(lungo);
    f->InputDati = input;
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
