// The chart menu driven as a user would: the natal slot installed at load, a transit from the
// input form, the comment, the Moon modes, the refresh, saving a slot with its mark, the refusal
// of the close button, and the way back.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolBar>

#include "archives/Archivi.h"
#include "core/Aritmetica.h"
#include "places/Schema.h"
#include "presentation/ui/frmOutDati.h"
#include "tests/core/store/Cartella.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;
using vesmo::test::AlModale;
using vesmo::test::Figlio;

namespace {

using Menu = vesmo::test::BancoMenu<>;

QWidget* Aperta(const char* nome) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == nome && w->isVisible()) return w;
    return nullptr;
}
// The positions windows open, by the chart they show.
std::vector<frmOutDati*> FinestrePosizioni() {
    std::vector<frmOutDati*> v;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* f = qobject_cast<frmOutDati*>(w); f && f->isVisible()) v.push_back(f);
    return v;
}
frmOutDati* PosizioniDi(const std::string& nome) {
    for (frmOutDati* f : FinestrePosizioni())
        if (f->TemaMostrato().Nome.Valore() == nome) return f;
    return nullptr;
}
int Aperte(const char* nome) {
    int n = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == nome && w->isVisible()) ++n;
    return n;
}

} // namespace

TEST_F(Menu, IlTemaDiPartenzaDiventaNatale) {
    EXPECT_EQ(f->windowTitle(), "Lyx - Menu. Tema, Transito, Rivoluzione, Direzione Secondaria.");
    EXPECT_EQ(s.MenuPronto, -1);
    // The positions were cast: the Sun at 20° Aries.
    constexpr double TolleranzaSole = 0.01; // degrees, the figure's last digit
    EXPECT_NEAR(s.PosNat.Sole.Lo, 20.31, TolleranzaSole);
    auto& r = f->riquadri[0];
    EXPECT_EQ(r.frame->title(), "Natale");
    EXPECT_EQ(r.nome->text(), "Mario Rossi                   ");
    EXPECT_TRUE(r.data->text().startsWith("10/4/1987"));
    EXPECT_EQ(r.teste[0]->text(), "   il                             alle         Estiva");
    vesmo::test::Testi(f.get(), {{"Label38", "Luna GeoCentrica"}, {"Label39", "Luna Nera Vera"}});
    for (std::size_t i = 1; i <= 3; ++i)
        EXPECT_TRUE(!f->riquadri[i].frame->isEnabled() && f->riquadri[i].nome->isHidden()) << i;
    EXPECT_TRUE(f->findChild<QPushButton*>("cmdAA_Tra")->isHidden());
    EXPECT_TRUE(m.registro.empty());
}

// The entries of the time menus, in their order, and where the File menu's additions stand.
TEST_F(Menu, VociDeiMenu) {
    auto voci = [](QMenu* menu, bool nomi = false) {
        QStringList v;
        for (QAction* a : menu->actions())
            v << (a->isSeparator() ? QStringLiteral("-") : nomi ? a->objectName() : a->text());
        return v;
    };
    const QStringList riv = voci(f->mnuRiv);
    EXPECT_EQ(riv.mid(0, 2), (QStringList{"&Solari", "&Lunari"}));
    EXPECT_EQ(riv.mid(riv.size() - 2), (QStringList{"C&mto", "&Ruota Doppia"}));
    EXPECT_EQ(voci(f->mnuRiv, true).mid(riv.size() - 2), (QStringList{"mnuRivMemo", "mnuRivR"}));
    auto* lun = f->findChild<QMenu*>("mnuRivLun");
    ASSERT_NE(lun, nullptr);
    EXPECT_EQ(voci(lun), (QStringList{"&Tropiche", "S&inodiche"}));
    EXPECT_EQ(voci(f->mnuDir),
              (QStringList{"&Secondarie", "&Frazione di anno (secondarie)", "&Posizioni ",
                           "&Domiciliazioni", "C&mto", "&Ruota Doppia"}));
    EXPECT_EQ(voci(f->mnuDir, true).mid(4), (QStringList{"mnuDirMemo", "mnuDirRuotaDoppia"}));
    EXPECT_EQ(
        voci(f->mnuTransiti),
        (QStringList{"Calcolo Trans&ito Nuovo", "&Posizioni ", "&Domiciliazioni",
                     "Ingressi nei &Segni", "Calendario &Transiti...", "C&mto", "&Ruota doppia"}));
    EXPECT_EQ(voci(f->mnuTransiti, true).mid(3),
              (QStringList{"mnuTransitiI", "mnuTransitiC", "mnuTransitiMemo", "mnuTransitiR"}));
    for (const char* n :
         {"mnuRivSol", "mnuRivLunT", "mnuRivLunS", "mnuDirSec", "mnuDirFra", "mnuHeDirFrAnno"})
        Voce(n);
    // In the File menu "&Importa" stands before "S&alvo", "&Stampe" before the way out.
    const QStringList file = voci(f->mnuFile), nomi = voci(f->mnuFile, true);
    const auto importa = nomi.indexOf("mnuFileImporta");
    ASSERT_GE(importa, 0);
    EXPECT_EQ(file.mid(importa, 2), (QStringList{"&Importa", "S&alvo"}));
    const auto stampe = nomi.indexOf("mnuFileStampe");
    ASSERT_GT(stampe, 0);
    EXPECT_EQ(nomi.mid(stampe), (QStringList{"mnuFileStampe", "-", "mnuFileEsci"}));
    EXPECT_EQ(file[stampe], "&Stampe");
}

TEST_F(Menu, TransitoDallInput) {
    Tema offerto;
    f->InputDati = [&](const RichiestaInputDati&) {
        offerto = s.TemaX;
        // The user changes the date and presses Calcola.
        s.TemaX.Day = GiornoGiuliano(2000, 11, 8);
        s.DatiOk = -1;
        return EsitoInputDati{true};
    };
    f->mnuTransitInput->trigger();
    // The first transit starts from the natal place, with " Tra" from the 25th character.
    EXPECT_EQ(offerto.Nome.str(), "Mario Rossi              Tra  ");
    EXPECT_EQ(s.TemaTra.Day, GiornoGiuliano(2000, 11, 8));
    EXPECT_TRUE(f->riquadri[1].frame->isEnabled());
    EXPECT_FALSE(f->findChild<QPushButton*>("cmdAA_Tra")->isHidden());
    // A second transit starts from the first.
    f->InputDati = [&](const RichiestaInputDati&) {
        offerto = s.TemaX;
        return EsitoInputDati{};
    };
    f->mnuTransitInput->trigger();
    EXPECT_EQ(offerto.Day, GiornoGiuliano(2000, 11, 8));
    // Cancelled: the slot stays.
    EXPECT_EQ(s.TemaTra.Day, GiornoGiuliano(2000, 11, 8));

    // Topocentric Moon: the natal slot is recast and the others emptied.
    double geo = s.PosNat.Luna.Lo;
    f->mnuFileLunaTopo->trigger();
    EXPECT_NE(s.PosNat.Luna.Lo, geo);
    EXPECT_EQ(s.TemaTra, Tema{});
    EXPECT_TRUE(f->findChild<QPushButton*>("cmdAA_Tra")->isHidden());
    f->mnuFileLunaNMedia->trigger();
    vesmo::test::Testi(f.get(), {{"Label38", "Luna TopoCentrica"}, {"Label39", "Luna Nera Media"}});
    f->mnuFileLunaNVera->trigger();
    vesmo::test::Testi(f.get(), {{"Label39", "Luna  Nera  Vera"}});
}

TEST_F(Menu, CommentoDelloSlot) {
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
    // A refresh of the natal frame now shows the comment's mark.
    f->riquadri[0].tag = "oK";
    f->Command2->click();
    EXPECT_EQ(f->riquadri[0].frame->title(), "Natale  (Cmto)");
}

// The refresh redraws the first tagged frame only, and clears every tag.
TEST_F(Menu, AggiornaConDueEtichette) {
    s.TemaRiv = s.TemaNat;
    s.TemaRiv.Nome = "Rivoluzione 2001";
    s.TemaNat.Nome = "Luigi Verdi";
    f->riquadri[0].tag = "oK";
    f->riquadri[2].tag = "oK";
    f->Command2->click();
    EXPECT_EQ(f->riquadri[0].nome->text().trimmed(), "Luigi Verdi");
    EXPECT_TRUE(f->riquadri[2].nome->isHidden());
    for (const auto& r : f->riquadri)
        EXPECT_TRUE(r.tag.isEmpty());
}

// Saving a slot: the archive gets the chart, the entry its check mark, and a slot with a comment
// shows it in its frame's caption; a save cancelled at "Tema Doppio" keeps the mark of the earlier
// save.
TEST_F(Menu, SalvoSegnaLaVoce) {
    vesmo::test::Cartella cartella;
    percorsi.FileDB = (cartella / "Vesmodat.Mdb").string();
    {
        Database db;
        db.Crea(percorsi.FileDB);
        CreaSchemaLuoghi(db);
    }
    CreaArchivio(percorsi.FileDB, "Clienti");
    Carica(vesmo::test::NataleDiProva());
    s.TemaNat.Cmto = "Ascendente in Bilancia";
    QAction* voce = Voce("mnuFileSalvoTN");
    ASSERT_NE(voce, nullptr);

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
    {
        Database db(percorsi.FileDB);
        Cursore rs(db, "Clienti");
        ASSERT_FALSE(rs.Eof());
        Tema letto;
        LeggiRecordTema(rs, letto);
        EXPECT_EQ(letto.Cmto, "Ascendente in Bilancia");
    }

    // The same chart again: the user cancels at the duplicate's question. The slot was saved
    // before, and its mark stays.
    m.risposte = {Risposta::Annulla};
    AlModale("frmSalvoLyx", [](QWidget* w) { Figlio<QPushButton>(w, "cmdSalva")->click(); });
    voce->trigger();
    EXPECT_TRUE(voce->isChecked());
    ASSERT_FALSE(m.registro.empty());
    EXPECT_EQ(m.registro.back().titolo, "Tema Doppio");
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

TEST_F(Menu, FinestreDelloSlot) {
    Voce("mnUnCieloDomi")->trigger();
    QWidget* d = Aperta("frmDomicili");
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->windowTitle(),
              "Lyx - Domiciliazioni di [tema natale] Mario Rossi                   ");
    EXPECT_EQ(s.PosDomi, s.PosNat);
    Voce("mnUnCieloPosizione")->trigger();
    ASSERT_NE(Aperta("frmOutDati"), nullptr);
    EXPECT_EQ(s.TemaX, s.TemaNat);
    Voce("mnUnCieloAO")->trigger();
    ASSERT_NE(Aperta("frmSelAspetti"), nullptr);
    EXPECT_EQ(s.TemaY, s.TemaNat);
    // The refresh closes the dignities and the selection; a new chart closes them all.
    f->Command2->click();
    QApplication::processEvents();
    EXPECT_EQ(Aperta("frmDomicili"), nullptr);
    EXPECT_EQ(Aperta("frmSelAspetti"), nullptr);
    EXPECT_NE(Aperta("frmOutDati"), nullptr);
    f->ChiudiSecondarie();
    QApplication::processEvents();
    EXPECT_EQ(Aperta("frmOutDati"), nullptr);

    // One window a slot: the dignities of two slots, one aspect selection; closed, they open anew.
    for (int volta = 0; volta < 2; ++volta) {
        Voce("mnUnCieloDomi")->trigger();
        Voce("mnuTransitiD")->trigger();
        Voce("mnUnCieloAO")->trigger();
    }
    EXPECT_EQ(Aperte("frmDomicili"), 2);
    EXPECT_EQ(Aperte("frmSelAspetti"), 1);
    f->ChiudiSecondarie();
    QApplication::processEvents();
    Voce("mnUnCieloDomi")->trigger();
    EXPECT_EQ(Aperte("frmDomicili"), 1);
    f->ChiudiSecondarie();
    QApplication::processEvents();
}

// " Tra" overwrites the 25th to 28th characters of a long name.
TEST_F(Menu, TraSuiCaratteriDa25A28) {
    Tema natale = vesmo::test::NataleDiProva();
    natale.Nome = "Anna Maria Bianchi in Ferraris";
    Carica(natale);
    Tema offerto;
    f->InputDati = [&](const RichiestaInputDati&) {
        offerto = s.TemaX;
        return EsitoInputDati{};
    };
    f->mnuTransitInput->trigger();
    EXPECT_EQ(offerto.Nome.str(), "Anna Maria Bianchi in Fe Trais");
}

TEST_F(Menu, BarraDelTempoSoloSulTransito) {
    s.TemaX = s.TemaNat;
    s.TemaX.Nome = "Transito di prova";
    s.TemaX.Day = GiornoGiuliano(2000, 11, 8);
    f->InstallaTema(1);
    s.TransitoCalcolato = -1;
    const Tema transito = s.TemaTra;

    Voce("mnuTransitiP")->trigger();
    Voce("mnUnCieloPosizione")->trigger();
    frmOutDati* tra = PosizioniDi("Transito di prova");
    frmOutDati* nat = PosizioniDi("Mario Rossi");
    ASSERT_NE(tra, nullptr);
    ASSERT_NE(nat, nullptr);
    EXPECT_FALSE(tra->Toolbar1->isHidden());
    EXPECT_TRUE(nat->Toolbar1->isHidden());
    // "Days" of the natal window does not touch the transit.
    nat->UnDay->trigger();
    EXPECT_EQ(s.TemaTra, transito);
    EXPECT_EQ(nat->TemaMostrato().Nome.Valore(), "Mario Rossi");

    // Opening again brings the open window forward: still one a slot.
    Voce("mnuTransitiP")->trigger();
    Voce("mnUnCieloPosizione")->trigger();
    EXPECT_EQ(FinestrePosizioni().size(), 2u);

    // Closing the natal window leaves the transit's toolbar working.
    nat->close();
    QApplication::processEvents();
    tra->UnDay->trigger();
    EXPECT_DOUBLE_EQ(s.TemaTra.Day, transito.Day + 1);
    EXPECT_EQ(s.Ruote.TransitoPosizioni, -1);
    // And a natal window opened after it has no toolbar either.
    Voce("mnUnCieloPosizione")->trigger();
    ASSERT_NE(PosizioniDi("Mario Rossi"), nullptr);
    EXPECT_TRUE(PosizioniDi("Mario Rossi")->Toolbar1->isHidden());
    tra->close();
    EXPECT_EQ(s.Ruote.TransitoPosizioni, 0);
    f->ChiudiSecondarie();
    QApplication::processEvents();
}
