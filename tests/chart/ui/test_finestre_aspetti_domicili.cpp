// The aspect selection and the dignities windows driven through their controls: the grid rebuilt
// on each orb typed, the switches, the closing, the help; the dignities' boxes, table and rulers.
#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "chart/ui/frmDomicili.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;

QT_BEGIN_NAMESPACE
// Failures print the text, not its code units.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

// 8 November 2000 at noon in Milan: the Sun at 226.35 and Uranus at 316.92, 90.57 apart;
// declinations -16.73 and -16.44.
Tema Milano2000() {
    Tema t;
    t.Nome = "Prova Milano";
    t.City = "Milano";
    t.Day = GiornoGiuliano(2000, 11, 8);
    t.OraL = 12;
    t.Lon = -9.19 / 15;
    t.Lat = 45.46;
    t.Fuso = -1;
    return t;
}

QString Cella(const QTableWidget* g, int riga, int colonna) {
    const QTableWidgetItem* v = g->item(riga, colonna);
    return v ? v->text() : QString();
}

int CelleScritte(const QTableWidget* g) {
    int n = 0;
    for (int i = 0; i < g->rowCount(); ++i)
        for (int j = 0; j < g->columnCount(); ++j)
            if (!Cella(g, i, j).isEmpty()) ++n;
    return n;
}

class Selezione : public ::testing::Test {
protected:
    void SetUp() override {
        sessione.TemaX = Milano2000();
        Case c;
        CastaTema(sessione.TemaX, c, sessione.PosX, 1, messaggi);
        sessione.TemaY = sessione.TemaX;
        sessione.PosY = sessione.PosX;
        aspetti.EntraInLyx();
    }
    // The grid row of point i's name (1 Sole ... 15 MC); columns from 0.
    static int RigaNome(int i) { return 2 * i - 2; }

    Sessione sessione;
    TabellaAspetti& aspetti = sessione.Aspetti;
    StatoRuote& stato = sessione.Ruote;
    MessaggiRegistrati messaggi;
};

} // namespace

TEST_F(Selezione, GrigliaEOrbitaDigitata) {
    frmSelAspetti f(sessione, messaggi);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Lyx - Selezione  Aspetti");
    EXPECT_EQ(f.Text1->text(), "2,5");
    EXPECT_FALSE(f.Label2->isVisible());
    const QTableWidget* g = f.MSFlexGrid1;
    ASSERT_EQ(g->rowCount(), 30);
    ASSERT_EQ(g->columnCount(), 15);
    // The grid shows the table of the chart with itself, heads included.
    const GrigliaAspetti attesa = CostruisciGriglia(sessione.PosX, sessione.PosX, false, 2.5, 0);
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(g->verticalHeaderItem(i)->text().toStdString(), attesa.celle[i + 1][0]) << i;
        for (int j = 0; j < 15; ++j)
            EXPECT_EQ(Cella(g, i, j).toStdString(), attesa.celle[i + 1][j + 1]) << i << "," << j;
    }
    EXPECT_EQ(g->horizontalHeaderItem(14)->text().toStdString(), attesa.celle[0][15]);
    const int conOrbita25 = CelleScritte(g);

    // Letters: no box pops up at any keystroke; the box reddens and the line below it says
    // why; the orb and the grid stay as they were. A number again: the warning goes.
    f.Text1->selectAll();
    QTest::keyClicks(f.Text1, "abc");
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(f.lblOrbita->text(), "L'Orbita degli Aspetti deve essere un numero: abc\n"
                                   "Il separatore decimale è la VIRGOLA.");
    EXPECT_FALSE(f.Text1->styleSheet().isEmpty());
    EXPECT_FLOAT_EQ(aspetti.Orbita, 2.5f);
    EXPECT_EQ(CelleScritte(g), conOrbita25);
    f.Text1->setText("2,5");
    EXPECT_TRUE(f.lblOrbita->text().isEmpty());
    EXPECT_TRUE(f.Text1->styleSheet().isEmpty());

    // An empty box reads "0"; an orb of 0,5 leaves out the Sun's square to Uranus, 0.57 short.
    f.Text1->clear();
    EXPECT_EQ(f.Text1->text(), "0");
    f.Text1->selectAll();
    QTest::keyClicks(f.Text1, "0,5");
    EXPECT_FLOAT_EQ(aspetti.Orbita, 0.5f);
    EXPECT_EQ(Cella(g, RigaNome(1), 7), "");
    // A negative orb is legal and empties the grid; its minus sign alone is no error.
    f.Text1->selectAll();
    QTest::keyClicks(f.Text1, "-1");
    EXPECT_FLOAT_EQ(aspetti.Orbita, -1.0f);
    EXPECT_EQ(CelleScritte(g), 0);
    EXPECT_TRUE(messaggi.registro.empty());
    f.Text1->setText("2,5");
    EXPECT_EQ(CelleScritte(g), conOrbita25);
}

TEST_F(Selezione, InterruttoriDegliAspettiSullaRuota) {
    aspetti.AspettoAttivo[9] = -1; // Quintile on from an earlier visit
    frmSelAspetti f(sessione, messaggi);
    f.show();
    ASSERT_EQ(f.List1->count(), 17);
    EXPECT_EQ(f.List1->item(0)->text(), "  CONGIUNZIONE      0°");
    EXPECT_EQ(f.List1->item(8)->text(), "  Settile        51,4°");
    EXPECT_EQ(f.List1->item(11)->text(), "  BiSettile     102,9°");
    // The rows selected and the switches on, one character each from the conjunction down.
    auto scelte = [&] {
        std::string r;
        for (int k = 0; k < 17; ++k)
            r += f.List1->item(k)->isSelected() ? '1' : '0';
        return r;
    };
    auto accesi = [&] {
        std::string r;
        for (std::int16_t a : aspetti.AspettoAttivo)
            r += a == -1 ? '1' : a == 0 ? '0' : '?';
        return r;
    };
    EXPECT_EQ(scelte(), "11111000010000000");
    f.Option2->click();
    EXPECT_EQ(accesi(), "11111111111111111");
    f.Option1->click();
    EXPECT_EQ(accesi(), "11111000000000000");
    EXPECT_EQ(scelte(), "11111000000000000");

    // A click in the list switches that row and clears both options.
    const QRect r = f.List1->visualItemRect(f.List1->item(2));
    QTest::mouseClick(f.List1->viewport(), Qt::LeftButton, {}, r.center());
    EXPECT_EQ(aspetti.AspettoAttivo[2], 0);
    EXPECT_FALSE(f.Option1->isChecked());
    EXPECT_FALSE(f.Option2->isChecked());

    // "Esci" copies the list as it stands.
    f.List1->item(16)->setSelected(true);
    f.Command1->click();
    EXPECT_EQ(aspetti.AspettoAttivo[16], -1);
    EXPECT_FALSE(f.isVisible());
}

TEST_F(Selezione, ConfrontoDiDueTemiEChiusura) {
    // The transit of the next day on the columns, compared with the chart on the rows.
    sessione.TemaY = Milano2000();
    sessione.TemaY.Day += 1;
    Case c;
    CastaTema(sessione.TemaY, c, sessione.PosY, 1, messaggi);
    stato.AspettiComparati = -1;
    stato.SelezioneDaPosizioni = -1;
    stato.DisegnaAspetti = -1;
    int ridisegni = 0;
    {
        frmSelAspetti f(sessione, messaggi);
        f.AggiornaPosizioni = [&] { ++ridisegni; };
        f.show();
        EXPECT_TRUE(f.Label2->isVisible());
        EXPECT_EQ(f.Label2->text(), "Pianeti  INTERNI   sulla COLONNA  scura" + QString(52, ' ') +
                                        "Pianeti  ESTERNI  sulla  RIGA  scura");
        // Compared charts test the diagonal too: the slow Uranus stays in conjunction.
        EXPECT_EQ(Cella(f.MSFlexGrid1, RigaNome(8), 7), "CONGIUNZIONE      ");
        f.mnuE->trigger();
        EXPECT_EQ(ridisegni, 1);
        EXPECT_EQ(stato.SelezioneDaPosizioni, 0);
        EXPECT_EQ(stato.AspettiComparati, 0);
    }
    // Without the wheel's aspect lines the opener is not redrawn and keeps its mark.
    stato.SelezioneDaPosizioni = -1;
    stato.DisegnaAspetti = 0;
    frmSelAspetti f(sessione, messaggi);
    f.AggiornaPosizioni = [&] { ++ridisegni; };
    f.show();
    f.close();
    EXPECT_EQ(ridisegni, 1);
    EXPECT_EQ(stato.SelezioneDaPosizioni, -1);
}

TEST_F(Selezione, Aiuto) {
    frmSelAspetti f(sessione, messaggi);
    f.show();
    QString titolo, testo;
    test::AlModale("frmHelp", [&](QWidget* d) {
        titolo = d->windowTitle();
        testo = test::Figlio<QLabel>(d, "lbHelpFuso")->text();
        d->close();
    });
    f.mnuA->trigger();
    EXPECT_EQ(titolo, "Lyx - Aiuto Aspetti");
    EXPECT_TRUE(testo.endsWith("è (-16g 46p) - (-16g 25p) = 0,4g arrotondando.\n"));
}

namespace {

// A chart laid out by hand, one body in each case worth seeing.
Posizioni PerDomicili(double asce, double sole) {
    Posizioni p;
    p.Sole.Lo = sole;
    p.Luna.Lo = 35;     // Toro: exaltation
    p.Mercurio.Lo = 65; // Gemelli: domicile by night
    p.Venere.Lo = 345;  // Pesci: exaltation
    p.Marte.Lo = 95;    // Cancro: fall
    p.Giove.Lo = 250;   // Sagittario: domicile by day
    p.Saturno.Lo = 10;  // Ariete: fall
    p.Urano.Lo = 315;   // Acquario: domicile
    p.Nettuno.Lo = 290; // Capricorno: fall
    p.Plutone.Lo = 5;   // Ariete: none, though its table row shows it
    p.Asce.Lo = asce;
    p.MC.Lo = 35; // Toro
    return p;
}

QString Segno(const char16_t* s) {
    return QString::fromUtf16(s) + QChar(0xFE0E);
}

} // namespace

TEST(Domicili, CaselleContiTabellaEReggenti) {
    Sessione s;
    MessaggiRegistrati m;
    s.PosDomi = PerDomicili(125, 125); // Sun on the Ascendant, both in Leone
    frmDomicili f(s, m);
    f.setWindowTitle(f.windowTitle() + "[tema natale] Prova");
    f.show();
    EXPECT_EQ(f.windowTitle(), "Lyx - Domiciliazioni di [tema natale] Prova");

    // The boxes and one count (the counts themselves are read on the printed page).
    test::Testi(&f, {{"Text1", "  Marte  Saturno  Nettuno  Plutone"},
                     {"Text2", "  Sole  Luna  Urano  ASC  MC"},
                     {"Text3", "  Mercurio  Venere  Giove"},
                     {"Label4", "4"},
                     {"Text4", "  Sole  Giove  Saturno  Plutone  ASC"},
                     {"Text5", "  Luna  Nettuno  MC"},
                     {"Text6", "  Mercurio  Urano"},
                     {"Text7", "  Venere  Marte"},
                     {"Text8", "  Sole  Mercurio(Notturno)  Giove(Diurno)  Urano"},
                     {"Text9", ""},
                     {"Text10", "  Luna  Venere"},
                     {"Text11", "  Marte  Saturno  Nettuno"},
                     {"Label1", "CARDINALI"},
                     {"Label18", "CADUTA"}});

    // The fixed table in symbols; a sign that does not count stands in brackets.
    const QTableWidget* g = f.MSFlexGrid1;
    EXPECT_EQ(f.lblTestata->text(),
              " Pianeta    Domicilio         Esilio              Esaltazione    Caduta ");
    EXPECT_EQ(Cella(g, 9, 0), QString::fromUtf16(u"\u2647"));
    EXPECT_EQ(Cella(g, 2, 1), Segno(u"\u264D") + "      " + Segno(u"\u264A"));
    EXPECT_EQ(Cella(g, 7, 1), Segno(u"\u2652") + "     (" + Segno(u"\u2651") + ")");
    EXPECT_EQ(Cella(g, 9, 1), "(" + Segno(u"\u2648") + ")     " + Segno(u"\u264F"));
    EXPECT_EQ(Cella(g, 9, 2), "       " + Segno(u"\u2649"));
    EXPECT_EQ(Cella(g, 9, 3), "");

    EXPECT_EQ(f.lblNascita->text(), "Nascita  sull'Asse AscDisc");
    EXPECT_EQ(f.lblReggente->text(), "Reggente dell'Ascendente " + QString::fromUtf16(u"\u2609") +
                                         "(Diurno)     (Notturno)");
    f.Command1->click();
    EXPECT_FALSE(f.isVisible());
}
