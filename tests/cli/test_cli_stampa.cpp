// vesmo-cli stampa: the page of a chart as an A4 PDF or a PNG, the two bitmaps in a folder, the
// files written as a table or JSON, and the refusals.
#include <gtest/gtest.h>

#include <QImage>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "cli/Comandi.h"
#include "tests/cli/Lancia.h"
#include "tests/core/store/Cartella.h"

using vesmo::test::Esito;
using vesmo::test::Lancia;
using vesmo::test::Rifiutato;

namespace {

std::vector<std::string> Tema(const std::vector<std::string>& altre) {
    return vesmo::test::Con(
        vesmo::test::Con({"stampa", "--nome", "Mario Rossi"}, vesmo::test::Natale), altre);
}

std::string Contenuto(const std::filesystem::path& file) {
    std::ifstream f(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

} // namespace

TEST(CliStampa, PaginaInPdfPngEBitmap) {
    vesmo::test::Cartella c;
    const std::string pdf = (c / "pagina.pdf").string();
    Esito e = Lancia(Tema({"--out", pdf, "--aspetti", "--slot", "transito"}));
    EXPECT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out, "File\n" + pdf + "\n");
    std::string testo = Contenuto(pdf);
    ASSERT_EQ(testo.rfind("%PDF", 0), 0u);
    auto box = testo.find("/MediaBox [0 0 ");
    ASSERT_NE(box, std::string::npos);
    double larghezza = 0, altezza = 0;
    std::sscanf(testo.c_str() + box, "/MediaBox [0 0 %lf %lf", &larghezza, &altezza);
    // A4: 210 x 297 mm, 595.28 x 841.89 points.
    constexpr double TolleranzaPunti = 1.0; // PDF points
    EXPECT_NEAR(larghezza, 595.28, TolleranzaPunti);
    EXPECT_NEAR(altezza, 841.89, TolleranzaPunti);

    const std::string png = (c / "pagina.PNG").string();
    e = Lancia(Tema({"--out", png}));
    EXPECT_EQ(e.stato, 0) << e.err;
    QImage im(QString::fromStdString(png));
    ASSERT_FALSE(im.isNull());
    constexpr double TolleranzaRapporto = 0.01; // of the height-to-width ratio
    EXPECT_NEAR(static_cast<double>(im.height()) / im.width(), 297.0 / 210.0, TolleranzaRapporto);

    // The two bitmaps in a folder, listed in JSON.
    const std::string dir = c.Percorso().string();
    e = Lancia(Tema({"--bmp", "Mario", "--dir", dir, "--json"}));
    EXPECT_EQ(e.stato, 0) << e.err;
    const std::string primo = dir + "/Mario_1.bmp", secondo = dir + "/Mario_2.bmp";
    EXPECT_EQ(e.out, "{\"File\": [\"" + primo + "\", \"" + secondo + "\"]}\n");
    for (const std::string& f : {primo, secondo}) {
        EXPECT_EQ(Contenuto(f).rfind("BM", 0), 0u) << f;
        EXPECT_FALSE(QImage(QString::fromStdString(f), "BMP").isNull()) << f;
    }
}

TEST(CliStampa, ArgomentiSbagliati) {
    vesmo::test::Cartella c;
    const std::string dir = c.Percorso().string();
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{}, "manca --out FILE.pdf|.png (o --bmp NOME)"},
        {{"--out", "x.svg"}, "--out vuole un file .pdf o .png: x.svg"},
        {{"--out", "x.pdf", "--slot", "luna"},
         "--slot vuole natale, transito, rivoluzione o direzione: luna"},
        {{"--bmp", "a/b", "--dir", dir},
         "--bmp vuole un nome di lettere e cifre (anche - e _): a/b"},
        {{"--bmp", "  "}, "--bmp vuole un nome di lettere e cifre (anche - e _):   "},
        {{"--out", "x.pdf", "--dir", dir}, "--dir vale solo con --bmp"},
        {{"--bmp", "A", "--dir", dir + "/manca"}, "--dir non è una cartella: " + dir + "/manca"},
        {{"--out", "x.pdf", "--orbita", "-1"}, "--orbita vuole gradi da 0 a 30: -1"},
        {{"--out", "x.pdf", "avanzo"}, "argomento inatteso: avanzo"},
        {{"--out", "x.pdf", "--colori"}, "opzione sconosciuta: --colori"},
    };
    for (const auto& [altre, err] : casi)
        Rifiutato(Tema(altre), "vesmo-cli stampa: " + err + "\n");
    // A file that cannot be written: status 1, the reason on stderr.
    Esito e = Lancia(Tema({"--out", dir + "/manca/x.pdf"}));
    EXPECT_EQ(e.stato, 1);
    EXPECT_EQ(e.err, "vesmo-cli stampa: impossibile scrivere " + dir + "/manca/x.pdf\n");
}
