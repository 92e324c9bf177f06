// The printing form driven through its menu: the load, the captions, the slot entries, the
// aspects composing the page anew, the printer, the PDF on A4 and the two bitmaps.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "chart/CalcolaTema.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "presentation/ui/frmStampe.h"
#include "tests/core/store/Cartella.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;

namespace {

Tema Padova(const char* nome, int anno, int mese, int giorno, double ora) {
    Tema t;
    t.Nome = nome;
    t.City = "Padova";
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = 45.4;
    t.Fuso = -1;
    t.Estiva = 1;
    return t;
}

std::string Contenuto(const std::filesystem::path& file) {
    std::ifstream f(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

class Stampe : public ::testing::Test {
protected:
    void SetUp() override {
        Case c;
        s.TemaNat = Padova("Mario Rossi", 1987, 4, 10, 19.5);
        CastaTema(s.TemaNat, c, s.PosNat, 1, m);
        s.TemaTra = Padova("Mario Rossi    Tra", 2026, 2, 1, 12);
        CastaTema(s.TemaTra, c, s.PosTra, 1, m);
        aspetti.EntraInLyx();
        f = std::make_unique<frmStampe>(s, m);
        f->ScegliSlot = [this] { return slot; };
        f->Oggi = [] { return std::string("01/02/2026"); };
        f->CartellaTemp = QString::fromStdString(cartella.Percorso().string());
    }
    void TearDown() override {
        f.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    std::vector<bool> Segni() {
        std::vector<bool> r;
        for (QAction* a : f->mnuFileStampeChe)
            r.push_back(a->isChecked());
        return r;
    }
    Sessione s;
    TabellaAspetti& aspetti = s.Aspetti;
    StatoRuote& stato = s.Ruote;
    MessaggiRegistrati m;
    test::Cartella cartella;
    int slot = 1;
    std::unique_ptr<frmStampe> f;
};

} // namespace

TEST_F(Stampe, CaricaLoSlotSceltoEDidascalie) {
    slot = 2;
    f->Form_Load();
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(f->windowTitle(), "Lyx - Stampe");
    EXPECT_EQ(Segni(), (std::vector<bool>{false, true, false, false}));
    EXPECT_EQ(f->TemaPagina().Nome, s.TemaTra.Nome);
    EXPECT_TRUE(f->DocumentoInAttesa());
    EXPECT_EQ(f->lbInCorso->text(), "Disegno in corso ...");
    const std::pair<const char*, const char*> voci[] = {
        {"mnuFileStampeOpzioni", "&Opzioni"},
        {"mnuFileStampeChe", "&Che Stampa"},
        {"mnuFileStampeCheTN", "&Tema Natale"},
        {"mnuFileStampeCheT", "Tra&nstito"},
        {"mnuFileStampeCheR", "&Rivoluzione"},
        {"mnuFileStampeCheD", "Dire&zione"},
        {"mnuFileStampeSelAspetti", "&Selezione Aspetti e Orbita"},
        {"mnuFileStampeDisegna", "&Disegna / Cancella Aspetti"},
        {"mnuFileStampeColBN", "Sta&mpa Colori / BN"},
        {"mnuFileStampeColBN_Col", "C&olori"},
        {"mnuFileStampeColBN_BN", "&Bianco e Nero"},
        {"mnuFuleStampeStampo", "Stam&po ..."},
        {"mnuFileStampeBmp", "Prepara 2 file *.bmp"},
        {"mnuFileStampePdf", "Salva PDF..."},
        {"nmuFileStampEsci", "&Esci"},
    };
    for (const auto& [nome, testo] : voci) {
        const QAction* a = f->findChild<QAction*>(nome);
        ASSERT_NE(a, nullptr) << nome;
        EXPECT_EQ(a->text().toStdString(), testo) << nome;
    }

    // Another entry: it alone is checked and its slot is composed.
    f->mnuFileStampeChe[3]->trigger();
    EXPECT_EQ(Segni(), (std::vector<bool>{false, false, false, true}));
    EXPECT_EQ(f->OpzioniDellaPagina().CheStampa, 4);
    f->mnuFileStampeChe[0]->trigger();
    EXPECT_EQ(f->TemaPagina().Nome, s.TemaNat.Nome);
    // The choice's own buttons, one slot each.
    frmCheStampe che;
    const std::pair<QPushButton*, int> pulsanti[] = {
        {che.cmdTN, 1}, {che.cmdT, 2}, {che.cmdR, 3}, {che.cmdD, 4}};
    for (const auto& [b, n] : pulsanti) {
        che.CheStampa = 0;
        b->click();
        EXPECT_EQ(che.CheStampa, n) << n;
    }
}

TEST_F(Stampe, SenzaSceltaSiScarica) {
    slot = 0;
    try {
        f->Form_Load();
        ADD_FAILURE() << "il form doveva scaricarsi";
    } catch (const ErroreModulo& e) {
        EXPECT_EQ(e.numero, 364);
    }
    EXPECT_FALSE(f->DocumentoInAttesa());
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(Stampe, ColoriInattivoAspettiESelezione) {
    f->Form_Load();
    f->mnuFileStampeColBN_Col->trigger();
    ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Stampa a Colori", "INATTIVA"));
    EXPECT_TRUE(f->mnuFileStampeColBN_BN->isChecked());
    f->mnuFileStampeColBN_BN->trigger();
    EXPECT_TRUE(f->mnuFileStampeColBN_BN->isChecked()) << "l'unico modo resta segnato";

    EXPECT_FALSE(f->OpzioniDellaPagina().DisegnaAspetti);
    f->mnuFileStampeDisegna->trigger();
    EXPECT_EQ(stato.DisegnaAspetti, -1);
    EXPECT_TRUE(f->OpzioniDellaPagina().DisegnaAspetti);

    // The selection of the aspects composes the page anew when it closes.
    f->mnuFileStampeSelAspetti->trigger();
    ASSERT_TRUE(f->Selezione);
    EXPECT_EQ(s.TemaY.Nome, s.TemaNat.Nome);
    f->Selezione->Text1->setText("4");
    EXPECT_FLOAT_EQ(f->OpzioniDellaPagina().Aspetti.Orbita, 2.5f) << "non ancora ricomposta";
    f->Selezione->Command1->click();
    EXPECT_EQ(stato.SelezioneDaStampe, 0);
    EXPECT_FLOAT_EQ(f->OpzioniDellaPagina().Aspetti.Orbita, 4.0f);
}

TEST_F(Stampe, StampaSuStampanteEPdf) {
    f->Form_Load();
    f->ScegliStampante = [](QPrinter&) { return false; }; // cancelled: the page still waits
    f->mnuFuleStampeStampo->trigger();
    EXPECT_TRUE(f->DocumentoInAttesa());
    const auto stampato = cartella / "stampante.pdf";
    bool a4 = false;
    f->ScegliStampante = [&](QPrinter& p) {
        a4 = p.pageLayout().pageSize().id() == QPageSize::A4;
        p.setOutputFormat(QPrinter::PdfFormat);
        p.setOutputFileName(QString::fromStdString(stampato.string()));
        return true;
    };
    f->mnuFuleStampeStampo->trigger();
    EXPECT_TRUE(a4);
    EXPECT_FALSE(f->DocumentoInAttesa());
    EXPECT_EQ(Contenuto(stampato).rfind("%PDF", 0), 0u);

    // Saved as a PDF: ".pdf" added, an A4 page (210 x 297 mm: 595.28 x 841.89 points, which the
    // writer rounds to whole points), the text as text.
    f->ScegliFilePdf = [&] { return QString::fromStdString((cartella / "pagina").string()); };
    f->mnuFileStampePdf->trigger();
    std::string pdf = Contenuto(cartella / "pagina.pdf");
    ASSERT_EQ(pdf.rfind("%PDF", 0), 0u);
    auto box = pdf.find("/MediaBox [0 0 ");
    ASSERT_NE(box, std::string::npos);
    double larghezza = 0, altezza = 0;
    std::sscanf(pdf.c_str() + box, "/MediaBox [0 0 %lf %lf", &larghezza, &altezza);
    EXPECT_NEAR(larghezza, 595.28, 1.0);
    EXPECT_NEAR(altezza, 841.89, 1.0);
    EXPECT_NE(pdf.find("/FontFile2"), std::string::npos) << "il testo resta testo";
    EXPECT_TRUE(m.registro.empty());

    // A folder that does not exist: the error and the routine, and nothing else breaks.
    f->ScegliFilePdf = [&] { return QString::fromStdString((cartella / "no/x.pdf").string()); };
    f->mnuFileStampePdf->trigger();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Errore");
    EXPECT_NE(m.registro[0].testo.find("(frmStampe.mnuFileStampePdf)"), std::string::npos);
}

TEST_F(Stampe, DueFileBitmap) {
    slot = 2;
    f->Form_Load();
    stato.DisegnaAspetti = 0;
    m.input.push_back(std::string("  Prova1 "));
    f->mnuFileStampeBmp->trigger();
    const std::string c = cartella.Percorso().string() + "/";
    const std::string primo = c + "Prova1_1.bmp", secondo = c + "Prova1_2.bmp";

    ASSERT_EQ(m.registro.size(), 3u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Salva in 2 file per invio in Internet");
    EXPECT_EQ(m.registro[0].testo,
              "L' immagine della pagina stampata viene divisa in due parti \n"
              "e salvata in due file in formato bitmap. \n" +
                  c + "(InputUtente)_1.bmp   " + c +
                  "(InputUtente)_2.bmp \n"
                  "Digitare un valido (InputUtente). Solo caratteri alfanumerici. \n"
                  "Correggere quelli errati di default. ");
    EXPECT_EQ(m.registro[1].titolo, "Lyx - info servizio");
    EXPECT_EQ(m.registro[1].testo, "Primo file salvato");
    EXPECT_EQ(m.registro[2].titolo, "Lyx - info servizio");
    EXPECT_EQ(m.registro[2].testo,
              "Salvataggio dell' immagine della pagina stampata effuttuato. \nFile: " + primo +
                  "   " + secondo +
                  "\nPrima dell'invio in Internet, uscire da Lyx, recuperare i file ");
    for (const std::string& file : {primo, secondo})
        EXPECT_FALSE(QImage(QString::fromStdString(file), "BMP").isNull()) << file;
    // The transit's slot under the typed name; the form is cleared at the end.
    EXPECT_EQ(SenzaSpaziDestra(s.TemaX.Nome.str()), "Prova1");
    EXPECT_TRUE(f->pagina->Vuota());

    // Cancelled: no file, no message.
    m.registro.clear();
    m.input.push_back(std::nullopt);
    f->mnuFileStampeBmp->trigger();
    EXPECT_EQ(m.registro.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(c + "_1.bmp"));
    // A folder that is not there is not made: the error is told, with the routine.
    m.registro.clear();
    f->CartellaTemp = QString::fromStdString(c + "manca");
    m.input.push_back(std::string("Prova2"));
    f->mnuFileStampeBmp->trigger();
    ASSERT_EQ(m.registro.size(), 2u);
    EXPECT_EQ(m.registro[1].titolo, "Lyx - Errore");
    EXPECT_NE(m.registro[1].testo.find("(frmStampe.mnuFileStampeBmp)"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(c + "manca"));
}
