// The query window, and the management menu's text import and export entries.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <fstream>

#include "archives/Archivi.h"
#include "archives/ui/ImportaEsporta.h"
#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmQuery.h"
#include "core/Aritmetica.h"
#include "core/store/Cursore.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;

namespace {

class FinestraQuery : public vesmo::test::ConArchivi {
protected:
    // Charts of every day of a year at noon in Padova: the Sun passes through every sign.
    void Riempi(const std::string& archivio, int n) {
        std::vector<Tema> temi(static_cast<std::size_t>(n));
        for (int i = 0; i < n; ++i) {
            Tema& t = temi[static_cast<std::size_t>(i)];
            t.Nome = "T" + std::to_string(100000 + i);
            t.Day = GiornoGiuliano(2001, 1, 1) + i % 365;
            t.OraL = 12;
            t.Lon = -11.88 / 15;
            t.Lat = 45.4;
            t.Fuso = -1;
        }
        RiempiTemi(archivio, temi);
    }
    std::int64_t Righe(const std::string& archivio) {
        Database db(fileDB);
        return Cursore(db, archivio).RecordCount();
    }
    Sessione sessione;
};

TEST_F(FinestraQuery, ControlliAlCaricamento) {
    Riempi("Miei", 3);
    Riempi("Q_Vecchia", 1);
    frmQuery f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - Query Astrologiche");
    test::Testi(
        &f, {{"Frame1", ">>     Query Options   >> "},
             {"Frame2", "Archivi DataBase"},
             {"FrLuna", "Calcolo della Luna "},
             {"OpLuogo", "Luogo                           (Segno, Casa)"},
             {"OpAngolo", "Angolo                          (Aspetti,                     Orbita)"},
             {"OpVerso", "Verso"},
             {"OpGeo", "Luna Geocentrica"},
             {"OpTopo", "Luna Topocentrica"},
             {"CmdAvvio", "&Avvio Query"},
             {"cmdEsci", "&Esci"},
             {"CmdHelp", "&?"},
             {"cmdFerma", "&Ferma"},
             {"TxOrbita", "2,5"},
             {"CmbAspetti", "CONGIUNZIONE  0°"},
             {"CmbTbFrom", "Miei"}});
    EXPECT_EQ((QStringList{f.LstFrom->currentItem()->text(), f.LstTo->currentItem()->text(),
                           f.LstVerso->item(1)->text()}),
              (QStringList{"Sole", "Ariete", "Retrogrado"}));
    // Every archive is a source; only the results are offered as a result.
    EXPECT_EQ(std::tuple(f.CmbTbFrom->count(), f.CmbTbTo->count()), std::tuple(2, 1));
    // The orb is read by the window: a word is refused before any run.
    f.CmbTbTo->setCurrentText("X");
    f.OpAngolo->click();
    f.TxOrbita->setText("due");
    f.CmdAvvio->click();
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - frmQuery.CmdAvvio");
    EXPECT_FALSE(Database(fileDB).EsisteTabella("Q_X"));
}

TEST_F(FinestraQuery, EsecuzioneCompletaEAggiunteAllaStessaTabella) {
    Riempi("Anno", 365);
    frmQuery f(sessione, fileDB, messaggi);
    f.show();
    f.OpTopo->setChecked(true);
    f.LstTo->setCurrentRow(1); // the Sun in Taurus: about 30 days of the year
    f.CmbTbTo->setCurrentText("SoleToro");
    f.CmdAvvio->click();
    EXPECT_EQ(f.lbNewTb->text(), "Ok! Terminato con successo");
    EXPECT_EQ(f.PBarFrom->value(), 0);
    EXPECT_EQ(f.CmbTbTo->currentText(), "Q_SoleToro");
    EXPECT_EQ(sessione.LunaGeo, 0); // left as chosen here
    const std::int64_t primo = Righe("Q_SoleToro");
    EXPECT_GE(primo, 29);
    EXPECT_LE(primo, 32);
    // The new result is offered as a source and as a result.
    EXPECT_EQ(std::tuple(f.CmbTbFrom->count(), f.CmbTbTo->findText("Q_SoleToro")),
              std::tuple(2, 0));
    f.CmdAvvio->click();
    EXPECT_EQ(Righe("Q_SoleToro"), 2 * primo);
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(FinestraQuery, FermaTieneIColpiTrovatiELaFinestraRispondeDurante) {
    Riempi("Grande", 4000);
    frmQuery f(sessione, fileDB, messaggi);
    f.show();
    f.LstFrom->setCurrentRow(12); // the true Black Moon, the slowest point
    f.OpAngolo->click();
    f.TxOrbita->setText("180");
    f.CmbTbTo->setCurrentText("Q_Tutte");
    // Ferma is clicked while the run goes (a disabled button would not stop it).
    bool avvioSpento = false;
    QTimer::singleShot(40, [&] {
        avvioSpento = !f.CmdAvvio->isEnabled();
        f.cmdFerma->click();
    });
    f.CmdAvvio->click();
    EXPECT_TRUE(avvioSpento);
    const std::int64_t trovati = Righe("Q_Tutte");
    EXPECT_LT(trovati, 4000);
    EXPECT_EQ(f.lbNewTb->text().toStdString(), "Query fermata: " + std::to_string(trovati) +
                                                   " temi esaminati, " + std::to_string(trovati) +
                                                   " trovati in Q_Tutte");
    EXPECT_TRUE(f.CmdAvvio->isEnabled());
    EXPECT_FALSE(f.cmdFerma->isEnabled());
}

TEST_F(FinestraQuery, MenuDellaGestioneArchivi) {
    frmGesArchivi g(sessione, fileDB, messaggi);
    EXPECT_EQ((QStringList{g.mnFileImpSFtxt->text(), g.mnFileTT->text()}),
              (QStringList{"&Simple Text Solar Fire", "File di &Testo"}));

    const std::string file = (cartella / "amici.txt").string();
    std::ofstream(file) << "\"Uno\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\",\"-01:00\","
                           "\"Padova\",\"Italia\",\"45N26\",\"12E30\"\n";
    const QString dir = QString::fromStdString(cartella.Percorso().string());
    // Cancel in the dialog: nothing happens.
    mnFileImpSFtxt_Click(&g, g.lstArchivi, fileDB, messaggi, dir,
                         [](QWidget*, const QString&) { return QString(); });
    EXPECT_EQ(g.lstArchivi->count(), 0);
    QString cartellaVista;
    mnFileImpSFtxt_Click(&g, g.lstArchivi, fileDB, messaggi, dir, [&](QWidget*, const QString& c) {
        cartellaVista = c;
        return QString::fromStdString(file);
    });
    EXPECT_EQ(cartellaVista, dir);
    ASSERT_EQ(g.lstArchivi->count(), 1);
    EXPECT_EQ(g.lstArchivi->item(0)->text(), "amicitxt");
    EXPECT_EQ(Righe("amicitxt"), 1);
    EXPECT_TRUE(messaggi.registro.empty());

    g.lstArchivi->setCurrentRow(0);
    mnFileTT_Click(g.lstArchivi, fileDB, messaggi, dir);
    EXPECT_EQ(messaggi.registro.size(), 2u);
    EXPECT_TRUE(std::filesystem::exists(cartella / "amicitxt.txt"));
}

} // namespace
