// The launcher as the program composes it: its menu entries, the Astrolog frame, and a chart
// imported from an archive landing in the entry form.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/Lanciatore.h"
#include "archives/Archivi.h"
#include "astrolog/Astrolog.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmMainVesmo.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/places/AiutoLuoghi.h"
#include "tests/timecharts/ui/Modale.h"

using namespace vesmo;

namespace {

class LanciatoreComposto : public ::testing::Test {
protected:
    void SetUp() override {
        test::DatabasePadovaERoma(cartella / "Vesmodat.Mdb");
        test::AvvioSu(cartella / "Vesmodat.Mdb", "Padova", percorsi, cfg, sessione);
        CreaArchivio(percorsi.FileDB, "Amici");
        f = std::make_unique<frmMainVesmo>(sessione, cfg, percorsi, messaggi);
        astro = ComponiLanciatore(*f, sessione, percorsi, messaggi);
        f->Form_Load();
    }

    test::CartellaLuoghi cartella;
    Sessione sessione;
    ConfigIni cfg;
    PercorsiVesmo percorsi;
    MessaggiRegistrati messaggi;
    std::unique_ptr<frmMainVesmo> f;
    RiquadroAstrolog* astro = nullptr;
};

} // namespace

TEST_F(LanciatoreComposto, OgniVoceApreLaSuaFinestra) {
    struct Voce {
        const char* azione;
        const char* finestra;
        const char* titolo;
    };
    const Voce voci[] = {
        {"mnuFilGes", "frmGesArchivi", "Vesmo - Gestione Archivi Temi Natali"},
        {"mnuFilSalva", "frmGesArchivi", "Vesmo - Salvo"},
        {"mnuFilImp", "frmImpTVesmo", "Vesmo - Importa Temi da Archivio"},
        {"MnuQ", "frmQuery", "Vesmo - Query Astrologiche"},
        {"mnuAbout", "frmHelp", "Vesmo - About"},
    };
    for (const Voce& v : voci) {
        QString titolo;
        test::AlModale(v.finestra, [&titolo](QWidget* w) {
            titolo = w->windowTitle();
            w->close();
        });
        QAction* a = f->findChild<QAction*>(v.azione);
        ASSERT_NE(a, nullptr) << v.azione;
        a->trigger();
        EXPECT_EQ(titolo, QString::fromUtf8(v.titolo)) << v.azione;
    }
    // The frame stands above the entry form, inside the launcher.
    EXPECT_EQ(f->findChild<QGroupBox*>("FrameAstrolog"), astro);
    EXPECT_EQ(astro->title(), "Astrolog");
    // The cleaning deletes only after the automatic copy of the archives.
    EXPECT_TRUE(f->PrimaDiEliminare);
}

// The frame's list and box follow each other as the user and the load move them; with no program
// set, the button and the menu tell it, and the form's chart is read into the record.
TEST_F(LanciatoreComposto, PonteAstrologSenzaProgramma) {
    astro->ChkGEO->setChecked(true);
    EXPECT_EQ(astro->ChkGEO->text().toStdString(), DidascaliaChkGEO(true));
    astro->Combo1->setCurrentIndex(5);
    emit astro->Combo1->activated(5);
    EXPECT_FALSE(astro->Text17->isHidden());
    EXPECT_EQ(f->Dati->Pannello2->text().toStdString(), Combo1_Click(5).Pannello2);
    astro->Combo1->setCurrentIndex(0);
    emit astro->Combo1->activated(0);
    EXPECT_TRUE(astro->Text17->isHidden());
    // Put back by the load, the box hides again.
    astro->Combo1->setCurrentIndex(5);
    astro->Combo2->setCurrentIndex(3);
    f->Form_Load();
    EXPECT_EQ(std::pair(astro->Combo1->currentIndex(), astro->Combo2->currentIndex()),
              std::pair(0, 0));
    EXPECT_TRUE(astro->Text17->isHidden());

    f->Dati->Text1->setText("Anna Bianchi");
    astro->Command1->click();
    f->findChild<QAction*>("mnuFilAvvia")->trigger();
    EXPECT_EQ(messaggi.registro.size(), 2u);
    EXPECT_EQ(sessione.TemaCorrente.Nome.Valore(), "Anna Bianchi");
}

TEST_F(LanciatoreComposto, ImportaTemaDaArchivio) {
    Tema t = test::TemaDiProva("Giulia Neri", 7.25);
    t.City = "Roma";
    t.Day = GiornoGiuliano(1960, 3, 21);
    t.Cmto = "da archivio";
    ASSERT_EQ(SalvaTema(percorsi.FileDB, "Amici", t, messaggi, "prova"),
              EsitoSalvataggio::Aggiunto);
    test::AlModale("frmImpTVesmo",
                   [](QWidget* w) { test::Figlio<QPushButton>(w, "cmdImporta")->click(); });
    QAction* voce = f->findChild<QAction*>("mnuFilImp");
    EXPECT_EQ(voce->text(), "I&mporta  Tema");
    voce->trigger();
    EXPECT_EQ(sessione.TemaCorrente.Nome.Valore(), "Giulia Neri");
    EXPECT_EQ(sessione.TemaCorrente.Cmto, "da archivio");
    // The entry form shows the chart picked.
    const PannelloDati* d = f->Dati;
    EXPECT_EQ(QStringList({d->Text1->text(), d->Text2->text(), d->Text3->text(), d->Text5->text(),
                           d->Text6->text(), d->Text7->text()}),
              QStringList({"Giulia Neri", "Roma", "21", "1960", "7", "15"}));
}
