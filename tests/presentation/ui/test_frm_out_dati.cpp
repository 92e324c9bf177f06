// The positions window driven through its controls: the table and the wheel, the arcs between
// two clicked rows, a transit's step, the archive browse, the rotation's box, the node list.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <filesystem>

#include "archives/Archivi.h"
#include "archives/ScorriArchivio.h"
#include "chart/CalcolaTema.h"
#include "chart/ui/frmDomicili.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "presentation/ui/WidgetRuota.h"
#include "presentation/ui/frmOutDati.h"
#include "tests/core/store/Cartella.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;

QT_BEGIN_NAMESPACE
// Failures print the text, not its code units.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

Tema Alle(const char* nome, int anno, int mese, int giorno, double ore, double minuti,
          double secondi) {
    Tema t;
    t.Nome = nome;
    t.City = "Milano";
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = GradiDecimali(ore, minuti, secondi);
    t.Lon = -9.19 / 15;
    t.Lat = 45.46;
    t.Fuso = -1;
    return t;
}

class Posizioni_ : public ::testing::Test {
protected:
    void SetUp() override {
        fileDB = (cartella / "Vesmodat.Mdb").string();
        sessione.TemaX = Alle("Prova", 2000, 11, 8, 10, 20, 30);
        Case c;
        CastaTema(sessione.TemaX, c, sessione.PosX, 1, messaggi);
        sessione.Aspetti.EntraInLyx();
    }
    std::unique_ptr<frmOutDati> Apri() {
        auto f = std::make_unique<frmOutDati>(sessione, fileDB, messaggi);
        f->ScorriArchivioCorrente = ScorriArchivio;
        return f;
    }
    static QString Cella(const frmOutDati& f, int riga, int colonna) {
        return f.MSFlexGrid1->item(riga - 1, colonna - 1)->text();
    }

    test::Cartella cartella;
    std::string fileDB;
    Sessione sessione;
    StatoRuote& stato = sessione.Ruote;
    MessaggiRegistrati messaggi;
};

} // namespace

TEST_F(Posizioni_, TabellaETesteAlCaricamento) {
    auto f = Apri();
    f->show();
    EXPECT_EQ(f->windowTitle(), "Lyx - Posizioni di Prova                         ");
    const QTableWidget* g = f->MSFlexGrid1;
    ASSERT_EQ(g->rowCount(), 25);
    ASSERT_EQ(g->columnCount(), 10);
    // The table's last heads land on the grid's last column and row.
    EXPECT_EQ(g->horizontalHeaderItem(9)->text(), " A.R. (Dec.)");
    EXPECT_EQ(g->verticalHeaderItem(24)->text(), "Lil.Vera");
    // The Sun in Scorpione; the mean Black Moon has no declination.
    EXPECT_EQ(Cella(*f, 13, 1), "Scorp");
    EXPECT_EQ(Cella(*f, 24, 5), "******");
    test::Testi(f.get(), {{"Label1", " Fare Click su un Pianeta o su una Casa\n della Tabella"},
                          {"Label2", "archi di longitudine, Diff.Declinazione, Asp.Sferici"},
                          {"txtQuando", "08/11/2000 10:20:30"}});
    EXPECT_EQ(f->comboNodi->itemText(1), " TUTTI  i  Nodi Planetari");
    EXPECT_EQ(f->comboNodi->itemText(27), "    Plutone  NodoSud");
    // The wheel beside it fills its image at any size: the button face in the corners, the
    // lighter sign ring near the left edge, at the same fraction of the side.
    ASSERT_EQ(f->Ruota->TipoMostrato(), WidgetRuota::Tipo::Singola);
    for (int lato : {200, 640}) {
        const QImage img = f->Ruota->Immagine(QSize(lato, lato));
        const QColor angolo = img.pixelColor(2, 2);
        EXPECT_EQ(angolo, img.pixelColor(lato - 3, lato - 3));
        EXPECT_GT(img.pixelColor(lato * 15 / 100, lato * 46 / 100).lightness(), angolo.lightness());
    }
}

TEST_F(Posizioni_, ArchiTraDueRighe) {
    // The Sun at 10 (declination +10) and the Moon at 100.5 (latitude 5, declination -12).
    Posizioni p;
    p.Sole.Lo = 10;
    p.Sole.De = Radianti(10);
    p.Luna.Lo = 100.5;
    p.Luna.LaEc = 5;
    p.Luna.De = Radianti(-12);
    p.Asce.Lo = 200;
    p.MC.Lo = 110;
    sessione.PosX = p;
    auto f = Apri();
    f->show();
    QHeaderView* teste = f->MSFlexGrid1->verticalHeader();
    auto clic = [&](int riga) {
        const int y = teste->sectionViewportPosition(riga - 1) + teste->sectionSize(riga - 1) / 2;
        QTest::mouseClick(teste->viewport(), Qt::LeftButton, {}, QPoint(teste->width() / 2, y));
    };
    // From the Sun (the row at load) to the Moon: 90.5 forward, 269.5 back; declinations 10
    // and -12 differ by 2 in absolute value; on the sphere the Moon's 5 of latitude count.
    clic(14);
    EXPECT_EQ(f->Label1->text(), " Sole --> Luna   90,5°     2,0°     90,5°\n"
                                 "  Luna --> Sole   269,5°");
    clic(14);
    EXPECT_EQ(f->Label1->text(), " Luna --> Luna   0,0°     0,0°     0,0°\n"
                                 "  Luna --> Luna   0,0°");
    // A cusp: the Ascendant at 200.
    clic(1);
    EXPECT_EQ(f->Label1->text().section('\n', 0, 0).left(27), " Luna --> Asce.   99,5°    ");
    EXPECT_EQ(f->Label1->text().section('\n', 1), "  Asce. --> Luna   260,5°");
}

TEST_F(Posizioni_, PassiDelTransito) {
    stato.TransitoPosizioni = -1;
    int aggiornamenti = 0;
    auto f = Apri();
    f->AggiornaTransito = [&] { ++aggiornamenti; };
    f->show();
    ASSERT_TRUE(f->Toolbar1->isVisible());
    f->txtTempi->setText("45");
    f->UnSec->trigger();
    EXPECT_EQ(aggiornamenti, 1);
    EXPECT_EQ(f->txtQuando->text(), "08/11/2000 10:21:15");
    EXPECT_EQ(sessione.TemaTra, f->TemaMostrato());
    // The slot is cast again at the new moment.
    Posizioni attese;
    Case c;
    CastaTema(sessione.TemaTra, c, attese, 1, messaggi);
    EXPECT_EQ(sessione.PosTra, attese);
    // A step that is no number: told (the step reader's text), nothing moves.
    const Tema prima = sessione.TemaTra;
    f->txtTempi->setText("due");
    f->UnOra->trigger();
    EXPECT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(sessione.TemaTra, prima);
    EXPECT_EQ(aggiornamenti, 1);
    f->UpDown1Giu->click();
    EXPECT_EQ(f->txtTempi->text(), "-1"); // a text that is no number counts as 0
    f->Command3->click();
    EXPECT_EQ(stato.TransitoPosizioni, 0);
}

TEST_F(Posizioni_, ScorrereLArchivio) {
    // Without an archive set, nothing is opened.
    {
        auto f = Apri();
        f->mnFilCPrecedente->trigger();
        f->mnFilCSuccessivo->trigger();
        ASSERT_TRUE(
            test::Box(messaggi, 2, 0, "Lyx - Info TN Precedente", "Nessun Archivio impostato"));
        EXPECT_EQ(messaggi.registro[1].titolo, "Lyx - Info TN Successivo");
        EXPECT_FALSE(std::filesystem::exists(fileDB));
    }
    messaggi.registro.clear();
    Database db;
    db.Crea(fileDB);
    db.Chiudi();
    CreaArchivio(fileDB, "Amici");
    for (const Tema& t : {Alle("Carla", 1970, 3, 1, 8, 0, 0), Alle("Anna", 1960, 1, 1, 12, 0, 0),
                          Alle("Bruno", 1965, 6, 15, 18, 30, 0)})
        ASSERT_TRUE(Salvato(SalvaTema(fileDB, "Amici", t, messaggi, "prova")));
    sessione.ArchivioCorrente = "Amici";
    sessione.TemaX = Alle("Bruno", 1965, 6, 15, 18, 30, 0);
    auto f = Apri();
    f->show();
    f->mnFilCPrecedente->trigger();
    EXPECT_EQ(f->windowTitle(), "Lyx - Posizioni di Anna                          ");
    EXPECT_EQ(f->txtQuando->text(), "01/01/1960 12:00:00");
    EXPECT_FLOAT_EQ(f->AngoloRuota, static_cast<float>(360 - f->PosMostrate().Asce.Lo));
    EXPECT_EQ(sessione.TemaX, f->TemaMostrato());
    EXPECT_TRUE(messaggi.registro.empty());
    // At the first row: told, and Anna stays.
    f->mnFilCPrecedente->trigger();
    ASSERT_TRUE(test::Box(messaggi, 1, 0, "Lyx - Primo record", "Primo record di Amici"));
    EXPECT_EQ(f->TemaMostrato().Nome.Valore(), "Anna");
    f->mnFilCSuccessivo->trigger();
    EXPECT_EQ(f->TemaMostrato().Nome.Valore(), "Bruno");
    f->mnFilCSuccessivo->trigger();
    EXPECT_EQ(f->TemaMostrato().Nome.Valore(), "Carla");
    f->mnFilCSuccessivo->trigger();
    ASSERT_TRUE(test::Box(messaggi, 2, 1, "Lyx - Ultimo record", "Ultimo record di Amici"));
    EXPECT_EQ(f->TemaMostrato().Nome.Valore(), "Carla");

    // A chart that is not in the archive: on to the first row.
    messaggi.registro.clear();
    sessione.TemaX = Alle("Zeta", 1990, 1, 1, 0, 0, 0);
    auto fuori = Apri();
    fuori->DbNext->trigger(); // the toolbar's twin of the menu
    EXPECT_EQ(fuori->TemaMostrato().Nome.Valore(), "Anna");
    EXPECT_TRUE(messaggi.registro.empty());
    // An archive no longer in the database: told, the chart stays.
    sessione.ArchivioCorrente = "Sparito";
    fuori->mnFilCSuccessivo->trigger();
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_NE(messaggi.registro[0].titolo.find("frmOutDati.mnFilCSuccessivo"), std::string::npos);
    EXPECT_EQ(fuori->TemaMostrato().Nome.Valore(), "Anna");
}

TEST_F(Posizioni_, RotazioniENodi) {
    auto f = Apri();
    f->show();
    messaggi.input = {std::string("-45,5"), std::nullopt, std::string("mezzo")};
    f->mnuRotQ->trigger();
    ASSERT_TRUE(test::Box(messaggi, 1, 0, "Lyx - Angolo di rotazione della Ruota",
                          "Inserire l'angolo di rotazione voluto.\n\n"
                          "angoli  Negativi  ==> verso di rotazione  ORARIO\n"
                          "angoli   Positivi   ==> verso di rotazione  ANTIORARIO. \n\n"
                          "Il TextBox NON accetta espressioni.\n"
                          "Il separatore decimale é la VIRGOLA "));
    EXPECT_FLOAT_EQ(f->AngoloRuota, -45.5f);
    EXPECT_FLOAT_EQ(f->AngoloAscens, -45.5f);
    f->mnuRotQ->trigger(); // cancelled: 0
    EXPECT_EQ(f->AngoloRuota, 0.0f);
    f->AngoloRuota = 12;
    f->mnuRotQ->trigger(); // not a number: told, the angle stays
    ASSERT_EQ(messaggi.registro.size(), 4u);
    EXPECT_EQ(messaggi.registro[3].testo,
              "L'angolo deve essere un numero: mezzo\nIl separatore decimale è la VIRGOLA.\n"
              "------------------------------\nThe angle must be a number.\n");
    EXPECT_EQ(f->AngoloRuota, 12.0f);
    f->mnuRotAsc->trigger();
    EXPECT_FLOAT_EQ(static_cast<float>(f->Ruota->OpzioniSingola().AngoloRuota),
                    static_cast<float>(360 - sessione.PosX.Asce.Lo));
    EXPECT_FLOAT_EQ(f->AngoloAscens, static_cast<float>(360 - 15 * sessione.PosX.Asce.AR.Numero()));
    f->mnuRotAri->trigger();
    EXPECT_EQ(f->AngoloRuota, 0.0f);
    // The two ascensional wheels exclude each other.
    f->mnuAR->trigger();
    f->mnuAO->trigger();
    EXPECT_EQ(f->ModoAscens, 2);
    EXPECT_FALSE(f->mnuAR->isChecked());
    f->mnuAO->trigger(); // back to the zodiacal wheel

    // Pluto's nodes are not computed: told, and the list goes back.
    messaggi.registro.clear();
    f->comboNodi->setCurrentIndex(5);
    emit f->comboNodi->activated(5);
    f->comboNodi->setCurrentIndex(26);
    emit f->comboNodi->activated(26);
    ASSERT_TRUE(
        test::Box(messaggi, 1, 0, "Lyx - Info Nodi", "Calcolo dei Nodi di Plutone inattivo"));
    EXPECT_EQ(f->comboNodi->currentIndex(), 5);
    EXPECT_EQ(f->Ruota->OpzioniSingola().NodiScelti, 5);

    // A held turn button moves the wheel by one degree at the press.
    QTest::mousePress(f->Command1, Qt::LeftButton);
    EXPECT_EQ(f->Ruota->OpzioniSingola().AngoloRuota, -1.0);
    EXPECT_TRUE(f->Timer1->isActive());
    QTest::mouseRelease(f->Command1, Qt::LeftButton);
    EXPECT_FALSE(f->Timer1->isActive());
}

TEST_F(Posizioni_, FinestreApertaDaQui) {
    stato.DisegnaAspetti = 0;
    QList<QWidget*> registrate;
    auto f = Apri();
    f->RegistraSecondaria = [&](QWidget* w) { registrate << w; };
    f->show();
    // The wheel draws its aspect lines as the menu says; closing the selection then redraws.
    f->mnuAspDC->trigger();
    EXPECT_EQ(stato.DisegnaAspetti, -1);
    EXPECT_TRUE(f->Ruota->OpzioniSingola().DisegnaAspetti);
    f->mnuAspS->trigger();
    ASSERT_TRUE(f->Selezione);
    EXPECT_TRUE(f->Selezione->isVisible());
    EXPECT_EQ(stato.SelezioneDaPosizioni, -1);
    EXPECT_EQ(sessione.TemaY, f->TemaMostrato());
    EXPECT_EQ(sessione.PosY, f->PosMostrate());
    f->Selezione->Command1->click();
    EXPECT_EQ(stato.SelezioneDaPosizioni, 0);

    f->mnuDom->trigger();
    ASSERT_TRUE(f->Domicili);
    EXPECT_EQ(f->Domicili->windowTitle(), "Lyx - Domiciliazioni di Prova                         ");
    EXPECT_EQ(sessione.PosDomi, f->PosMostrate());
    EXPECT_EQ(registrate.size(), 2);
}
