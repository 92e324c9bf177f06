// The program as main() starts it: the launcher, the chart half and back, again and again, with
// the event loop running as it does for the user.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <vector>

#include "app/Programma.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/frmInputIni.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmMainVesmo.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmRuotaDoppia.h"
#include "tests/places/AiutoLuoghi.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;

namespace {

class ProgrammaTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::DatabasePadovaERoma(cartella / "Vesmodat.Mdb");
        ConfigIni cfg;
        cfg.PathDB = (cartella / "Vesmodat.Mdb").string();
        cfg.NazioneDefault = "Italy";
        cfg.CityDefault = "Padova";
        cfg.Ordinamento = "N";
        ScriviConfig((cartella / "Vesmodat.ini").string(), cfg);
    }

    // Runs the steps from the event loop as the user's clicks would come; status 7 after the
    // last, unless the program quits earlier on its own.
    int Esegui(std::vector<std::function<void()>> passi) {
        fatti = 0;
        auto prossimo = std::make_shared<std::function<void(std::size_t)>>();
        *prossimo = [this, passi, prossimo](std::size_t i) {
            if (i == passi.size()) {
                QCoreApplication::exit(7);
                return;
            }
            passi[i]();
            ++fatti;
            QTimer::singleShot(30, qApp, [prossimo, i] { (*prossimo)(i + 1); });
        };
        QTimer::singleShot(0, qApp, [prossimo] { (*prossimo)(0); });
        return QApplication::exec();
    }

    test::CartellaLuoghi cartella;
    MessaggiRegistrati messaggi;
    std::size_t fatti = 0;
};

} // namespace

TEST_F(ProgrammaTest, LyxEVesmoAvantiEIndietroDueVolte) {
    Programma p(messaggi);
    ASSERT_TRUE(p.Avvia(QString::fromStdString((cartella / "").string()), [](frmInputIni&) {
        ADD_FAILURE() << "il dialogo della prima volta si è aperto";
        return false;
    }));
    // The user types a chart of their own into the launcher.
    frmMainVesmo& vesmo = *p.principale;
    vesmo.Dati->Text1->setText("Prova Andata");
    ASSERT_TRUE(vesmo.Dati->LeggiTema(p.sessione.TemaCorrente));
    const Tema lasciato = p.sessione.TemaCorrente;

    // Every window takes the icon of Uranus.
    ASSERT_FALSE(QApplication::windowIcon().isNull());
    const qint64 urano = QApplication::windowIcon().cacheKey();
    EXPECT_EQ(vesmo.windowIcon().cacheKey(), urano);

    auto entra = [&] {
        vesmo.mnuFilAvvLyx->trigger();
        ASSERT_TRUE(p.menu);
        EXPECT_TRUE(p.menu->isVisible());
        EXPECT_EQ(p.menu->windowIcon().cacheKey(), urano);
        EXPECT_FALSE(vesmo.isVisible());
        EXPECT_EQ(p.sessione.TemaNat.Nome.Valore(), "Prova Andata");
    };
    auto tornato = [&] {
        EXPECT_FALSE(p.menu);
        EXPECT_TRUE(vesmo.isVisible());
        EXPECT_EQ(p.sessione.TemaCorrente, lasciato);
        EXPECT_EQ(vesmo.Dati->Text1->text(), "Prova Andata");
    };
    const int esito = Esegui({
        entra,
        [&] {
            // The wheel's switches set in the positions window of the natal chart.
            p.menu->findChild<QAction*>("mnUnCieloPosizione")->trigger();
            frmOutDati* pos = nullptr;
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* f = qobject_cast<frmOutDati*>(w); f && f->isVisible()) pos = f;
            ASSERT_NE(pos, nullptr);
            pos->mnuAspDC->trigger();
            pos->comboNodi->setCurrentIndex(5);
            pos->comboNodi_Click(5);
            // The colours form and the solar arc set theirs on the same session.
            p.sessione.Ruote.ColoriRidotti = -1;
            p.sessione.Aspetti.ArcoSolare = 12.5f;
        },
        [&] { p.menu->Command1->click(); },
        tornato,
        entra,
        [&] {
            EXPECT_EQ(p.sessione.Ruote.DisegnaAspetti, -1);
            EXPECT_EQ(p.sessione.Ruote.NodiScelti, 5);
            EXPECT_EQ(p.sessione.Ruote.ColoriRidotti, -1);
            EXPECT_EQ(p.sessione.Aspetti.ArcoSolare, 12.5f);
            // The menu and the double wheel work on the session's own switches.
            EXPECT_EQ(&p.menu->stato, &p.sessione.Ruote);
            p.menu->findChild<QAction*>("mnuFileEsci")->trigger();
        },
        tornato,
        entra,
        [&] { p.menu->Command1->click(); },
        tornato,
    });
    EXPECT_EQ(esito, 7) << "il programma è finito dopo " << fatti << " passi";
    EXPECT_EQ(fatti, 10u);
    EXPECT_TRUE(messaggi.registro.empty()) << messaggi.registro[0].testo;
}

namespace {

// What stood over the first modal box that showed while `azione` ran: its parent, its buttons'
// texts without their mnemonics. The box is closed with Escape.
struct Box {
    QWidget* genitore = nullptr;
    QStringList pulsanti;
};
Box PrimoBox(const std::function<void()>& azione) {
    Box visto;
    QTimer t;
    QObject::connect(&t, &QTimer::timeout, [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (!w) return;
        t.stop();
        visto.genitore = w->parentWidget();
        if (auto* box = qobject_cast<QMessageBox*>(w))
            for (QAbstractButton* b : box->buttons())
                visto.pulsanti << b->text().remove('&');
        if (auto* d = qobject_cast<QDialog*>(w)) d->reject();
    });
    t.start(5);
    azione();
    return visto;
}

} // namespace

TEST(Messaggi, IBoxStannoSopraLaFinestraCheLiSolleva) {
    QWidget menu;
    menu.setObjectName("frmMenu");
    MessaggiQt messaggi(&menu);
    Sessione s;
    s.Aspetti.EntraInLyx();
    StatoRuote& stato = s.Ruote;

    frmOutDati pos(s, "", messaggi);
    pos.show();
    // Pluto's nodes are not computed: the box stands over the positions window.
    EXPECT_EQ(PrimoBox([&] { pos.comboNodi_Click(26); }).genitore, &pos);
    // So does the input box of the rotation.
    EXPECT_EQ(PrimoBox([&] { pos.mnuRotQ_Click(); }).genitore, &pos);

    frmRuotaDoppia doppia(s, messaggi, Esterno::Transito);
    doppia.show();
    // The aspect selection with no kind of line switched on.
    stato.DisegnaAspetti = stato.DisegnaAspettiEst = stato.DisegnaAspettiCmp = 0;
    EXPECT_EQ(PrimoBox([&] { doppia.mnuAspSelezione_Click(); }).genitore, &doppia);

    // The boxes of the program itself keep their window.
    EXPECT_EQ(PrimoBox([&] {
                  messaggi.Mostra("Lyx - Prova", "prova", Pulsanti::Ok, Icona::Informazione);
              }).genitore,
              &menu);
}

TEST(Messaggi, PulsantiInItaliano) {
    ASSERT_TRUE(CaricaTraduzioniQt(*qApp)) << "mancano le traduzioni di Qt (qt6-translations-l10n)";
    MessaggiQt messaggi;
    // The question of a name already in the archive names its buttons in its text.
    const Box b = PrimoBox(
        [&] { messaggi.Mostra("Tema Doppio", "Prova", Pulsanti::SiNoAnnulla, Icona::Domanda); });
    for (const char* p : {"Sì", "No", "Annulla"})
        EXPECT_TRUE(b.pulsanti.contains(QString::fromUtf8(p)))
            << b.pulsanti.join(",").toStdString();
    QDialogButtonBox apri(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
    EXPECT_EQ(apri.button(QDialogButtonBox::Open)->text().remove('&'), "Apri");
    EXPECT_EQ(apri.button(QDialogButtonBox::Cancel)->text().remove('&'), "Annulla");
}
