// The transit calendar's window driven as the user drives it: the menu entry, the list of a year
// in the local time of a place whose summer time starts and ends within it, the messages of bad
// boxes, a search stopped, the list printed, saved as PDF and as CSV, and a double click that
// puts the moment in the Transito slot.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <ctime>
#include <fstream>
#include <sstream>

#include "core/Aritmetica.h"
#include "tests/places/AiutoLuoghi.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/frmCalTransiti.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;

namespace {

std::string Leggi(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// Local date and time of a Julian day at `ore` hours east of Greenwich, by the C library.
std::pair<std::string, std::string> Locale(double jd, int ore) {
    const auto secondi =
        static_cast<std::time_t>(std::llround((jd - 2440587.5) * 86400)) + ore * 3600;
    std::tm tm{};
    gmtime_r(&secondi, &tm);
    char d[16], o[16];
    std::strftime(d, sizeof d, "%d/%m/%Y", &tm);
    std::strftime(o, sizeof o, "%H:%M:%S", &tm);
    return {d, o};
}

class CalTransiti : public test::BancoMenu<> {
protected:
    void SetUp() override {
        // Padova: one hour east since 1900, summer time from 29 March 2026 at 2:00 to
        // 25 October 2026 at 3:00.
        {
            Database d = test::DatabaseLuoghi(cartella / "Vesmodat.Mdb");
            test::AggiungiCity(d, 380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1);
            test::AggiungiFuso(d, 1, 1, 1, 1900, "-1", "00");
            test::AggiungiEstiva(d, 1, 1, 1, 1900, 0, 0, 0, 0);
            test::AggiungiEstiva(d, 1, 29, 3, 2026, 2, 0, 1, 0);
            test::AggiungiEstiva(d, 1, 25, 10, 2026, 3, 0, 0, 0);
        }
        percorsi.FileDB = (cartella / "Vesmodat.Mdb").string();
        Tema natale = test::NataleDiProva();
        natale.cNaz = 380;
        Carica(natale);
        menu = f.get();
    }
    frmCalTransiti* Apri() {
        Voce("mnuTransitiC")->trigger();
        auto aperte = menu->findChildren<frmCalTransiti*>();
        EXPECT_EQ(aperte.size(), 1);
        return aperte.isEmpty() ? nullptr : aperte.front();
    }
    void Anno2026(frmCalTransiti* f) {
        f->txtDa->setText("01/01/2026");
        f->txtA->setText("31/12/2026");
    }

    test::CartellaLuoghi cartella;
    frmMenu* menu = nullptr; // the tests' own `f` is the calendar
};

} // namespace

// The entry opens one window; a year of the slow bodies listed in the local time of each date.
TEST_F(CalTransiti, UnAnnoInOraLocale) {
    frmCalTransiti* f = Apri();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(Apri(), f); // open already: the same window
    EXPECT_EQ(f->windowTitle(), "Lyx - Calendario Transiti");
    test::Testi(f, {{"lblTema", "Tema natale:  Mario Rossi"},
                    {"lblLuogo", "Ora locale di  Padova"},
                    {"lblAspetti",
                     "Aspetti attivi:  CONGIUNZIONE, SESTILE, QUADRATURA, TRIGONO, OPPOSIZIONE"},
                    {"txtOrbita", "2,50"}});
    // The period is a whole year; the bodies checked are the defaults the search below uses.
    EXPECT_TRUE(f->txtDa->text().startsWith("01/01/"));
    EXPECT_EQ(f->txtA->text(), "31/12/" + f->txtDa->text().mid(6));

    Anno2026(f);
    f->cmdCerca->click();
    const auto& righe = f->Righe();
    ASSERT_GT(righe.size(), 20u);
    EXPECT_EQ(f->grdTransiti->rowCount(), static_cast<int>(righe.size()));
    EXPECT_EQ(f->barAvanzamento->value(), 1000);
    EXPECT_EQ(f->lblEsito->text(), QString("Transiti trovati: %1").arg(righe.size()));

    // The same search on the chart's own points, from local midnight to local midnight.
    const RichiestaTransiti r{.jdDa = GiornoGiuliano(2026, 1, 1) - 1.0 / 24,
                              .jdA = GiornoGiuliano(2027, 1, 1) - 1.0 / 24,
                              .corpi = CorpiTransitoPredefiniti(),
                              .punti = PuntiNataliPredefiniti(s.PosNat, 1),
                              .aspetti = {0, 1, 2, 3, 4},
                              .orbita = 2.5};
    const auto attesi = CercaTransiti(r);
    ASSERT_EQ(attesi.size(), righe.size());
    const double inizioEstiva = GiornoGiuliano(2026, 3, 29) + 1.0 / 24;
    const double fineEstiva = GiornoGiuliano(2026, 10, 25) + 1.0 / 24;
    int estive = 0;
    for (std::size_t i = 0; i < righe.size(); ++i) {
        EXPECT_DOUBLE_EQ(righe[i].jd, attesi[i].jd);
        const bool estiva = righe[i].jd >= inizioEstiva && righe[i].jd < fineEstiva;
        estive += estiva;
        const auto [data, ora] = Locale(righe[i].jd, estiva ? 2 : 1);
        const int r0 = static_cast<int>(i);
        EXPECT_EQ(f->grdTransiti->item(r0, 0)->text().toStdString(), data) << i;
        EXPECT_EQ(f->grdTransiti->item(r0, 1)->text().toStdString(), ora) << i;
    }
    EXPECT_GT(estive, 0);
    EXPECT_LT(estive, static_cast<int>(righe.size()));
}

TEST_F(CalTransiti, CaselleSbagliate) {
    frmCalTransiti* f = Apri();
    ASSERT_NE(f, nullptr);
    struct Caso {
        const char *da, *a, *orbita;
        bool senzaPianeti;
        const char* messaggio;
    } casi[] = {
        {"32/01/2026", "31/12/2026", "2,5", false,
         "Data iniziale non valida: 32/01/2026\r\n(GG/MM/AAAA)"},
        {"01/01/2026", "2026", "2,5", false, "Data finale non valida: 2026\r\n(GG/MM/AAAA)"},
        {"01/01/2026", "31/12/2025", "2,5", false,
         "La data finale viene prima di quella iniziale."},
        {"01/01/1800", "31/12/2026", "2,5", false,
         "Periodo di oltre 200 anni: dividere la ricerca."},
        {"01/01/2026", "31/12/2026", "tre", false,
         "Orbita non valida: tre\r\n(da 0 a 30 gradi, con la virgola)"},
        {"01/01/2026", "31/12/2026", "2,5", true, "Scegliere almeno un pianeta in transito."},
    };
    for (const Caso& c : casi) {
        m.registro.clear();
        f->txtDa->setText(c.da);
        f->txtA->setText(c.a);
        f->txtOrbita->setText(c.orbita);
        for (int k = 5; k <= 9; ++k)
            f->chkPianeta[static_cast<std::size_t>(k)]->setChecked(!c.senzaPianeti);
        f->cmdCerca->click();
        ASSERT_EQ(m.registro.size(), 1u) << c.messaggio;
        EXPECT_EQ(m.registro[0].titolo, "Lyx - Calendario Transiti");
        EXPECT_EQ(m.registro[0].testo, c.messaggio);
        EXPECT_TRUE(f->Righe().empty());
    }
}

// "&Ferma" pressed while the search runs: it ends at once with what it found.
TEST_F(CalTransiti, RicercaFermata) {
    frmCalTransiti* f = Apri();
    ASSERT_NE(f, nullptr);
    f->txtDa->setText("01/01/1900");
    f->txtA->setText("31/12/2080");
    for (QCheckBox* k : f->chkPianeta)
        k->setChecked(true);
    QTimer::singleShot(0, f->cmdFerma, [f] {
        EXPECT_TRUE(f->InRicerca());
        EXPECT_TRUE(f->cmdFerma->isEnabled());
        f->cmdFerma->click();
    });
    f->cmdCerca->click();
    EXPECT_FALSE(f->InRicerca());
    EXPECT_TRUE(f->lblEsito->text().startsWith("Ricerca interrotta.  Transiti trovati: "));
    EXPECT_TRUE(f->cmdCerca->isEnabled());
}

// The list printed, saved as PDF, CSV and text; a double click puts a row in the Transito slot.
TEST_F(CalTransiti, StampaFileEDoppioClic) {
    frmCalTransiti* f = Apri();
    ASSERT_NE(f, nullptr);
    Anno2026(f);
    f->Oggi = [] { return std::string("25/11/2026"); };
    f->cmdCerca->click();
    ASSERT_FALSE(f->Righe().empty());

    const auto pdf = cartella / "lista.pdf";
    f->ScegliFilePdf = [&] { return QString::fromStdString((cartella / "lista").string()); };
    f->cmdPdf->click();
    const std::string contenuto = Leggi(pdf);
    ASSERT_EQ(contenuto.rfind("%PDF", 0), 0u);
    // One page object for each page of the list.
    std::size_t pagine = 0;
    for (std::size_t p = contenuto.find("/Type /Page"); p != std::string::npos;
         p = contenuto.find("/Type /Page", p + 1))
        if (contenuto.compare(p, 12, "/Type /Pages") != 0) ++pagine;
    EXPECT_EQ(pagine, static_cast<std::size_t>(PagineTransiti(f->Righe().size())));

    const auto stampa = cartella / "stampa.pdf";
    f->ScegliStampante = [&](QPrinter& p) {
        p.setOutputFormat(QPrinter::PdfFormat);
        p.setOutputFileName(QString::fromStdString(stampa.string()));
        return true;
    };
    f->cmdStampa->click();
    EXPECT_EQ(Leggi(stampa).rfind("%PDF", 0), 0u);

    const auto csv = cartella / "lista.csv";
    f->ScegliFileTesto = [&] { return QString::fromStdString(csv.string()); };
    f->cmdTesto->click();
    EXPECT_EQ(Leggi(csv), CsvTransiti(f->Righe()));
    const auto txt = cartella / "lista.txt";
    f->ScegliFileTesto = [&] { return QString::fromStdString(txt.string()); };
    f->cmdTesto->click();
    EXPECT_EQ(Leggi(txt), TestoTransiti(f->Righe()));
    EXPECT_TRUE(m.registro.empty());

    // A double click: the moment in the Transito slot, its frame refreshed.
    ASSERT_GT(f->Righe().size(), 3u);
    const int riga = 3;
    const RigaTransito r = f->Righe()[riga];
    // A double wheel open on the transit shows the new moment outside.
    Voce("mnuTransitiR")->trigger();
    emit f->grdTransiti->cellDoubleClicked(riga, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    StatoMenuRuote* ruote = StatoRuoteDelMenu(*menu);
    ASSERT_TRUE(ruote && ruote->doppia);
    EXPECT_EQ(menu->findChildren<frmRuotaDoppia*>().size(), 1);
    EXPECT_EQ(std::make_pair(s.TemaZ.Day, s.TemaZ.OraL),
              std::make_pair(s.TemaTra.Day, s.TemaTra.OraL));
    EXPECT_EQ(s.TransitoCalcolato, -1);
    const Tema& t = s.TemaTra;
    EXPECT_NEAR(t.Day + (t.OraL - t.Estiva + t.Fuso) / 24, r.jd, 1e-9);
    EXPECT_EQ(t.Nome.str().substr(24, 4), " Tra");
    EXPECT_TRUE(menu->riquadri[1].data->text().startsWith(
        QString::number(r.quando.giorno) + "/" + QString::number(r.quando.mese) + "/2026"));
}
