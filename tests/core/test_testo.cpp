// Texts: character widths, Latin-1, case-insensitive search, and the number pictures.
#include <gtest/gtest.h>

#include "core/Testo.h"

using namespace vesmo;

TEST(Testo, CaratteriUtf8ELatin1) {
    EXPECT_EQ(LunghezzaCaratteri("Città"), 5u);
    EXPECT_EQ(PrimiCaratteri("Città di Castello", 5), "Città");
    EXPECT_EQ(TagliaOAllunga("Città di Castello", 7), "Città d");
    EXPECT_EQ(TagliaOAllunga("Zürich", 8), "Zürich  ");
    EXPECT_EQ(TagliaOAllunga("", 3), "   ");
    EXPECT_EQ(SenzaSpazi("  a b  "), "a b");
    EXPECT_EQ(SenzaSpaziDestra("  a  "), "  a");
    EXPECT_EQ(ALatin1("Città"), "Citt\xe0");
    EXPECT_EQ(DaLatin1("Citt\xe0"), "Città");
    EXPECT_EQ(DaLatin1(ALatin1("Ærøskøbing Zürich")), "Ærøskøbing Zürich");
    // Outside Latin-1 a character becomes one '?', keeping the width.
    EXPECT_EQ(ALatin1("Łódź"), "?\xf3"
                               "d?");
}

TEST(Testo, RicercaSenzaMaiuscole) {
    EXPECT_EQ(CercaSenzaCaso("C:/Dati/VESMODAT.mdb", "Vesmodat.Mdb"), 8u);
    EXPECT_EQ(CercaSenzaCaso("abc", "abcd"), std::string::npos);
    EXPECT_TRUE(UgualeSenzaCaso("Astrolog.EXE", "astrolog.exe"));
    EXPECT_FALSE(UgualeSenzaCaso("astrolog", "astrolog.exe"));
}

TEST(Testo, NumeriEFigure) {
    EXPECT_EQ(TestoNumero(0.5), "0,5");
    EXPECT_EQ(TestoNumero(2451545), "2451545");
    EXPECT_EQ(TestoNumero(1.25, '.'), "1.25");
    EXPECT_EQ(FormatoNumero(5.25, "#0.0"), "5,3");
    EXPECT_EQ(FormatoNumero(-5.25, "#0.0"), "-5,3");
    EXPECT_EQ(FormatoNumero(-0.04, "#0.0"), "0,0");
    EXPECT_EQ(FormatoNumero(12, "000"), "012");
    EXPECT_EQ(FormatoNumero(1234, "000"), "1234");
    EXPECT_EQ(FormatoNumero(2447187.5, "#####,###.##"), "2.447.187,5");
    EXPECT_EQ(FormatoNumero(2447187.456, "#####,###.##"), "2.447.187,46");
    EXPECT_EQ(FormatoNumero(999.999, "#####,###.##"), "1.000");
    EXPECT_EQ(FormatoNumero(0.25, "##0.0#°"), "0,25°");
    EXPECT_EQ(FormatoNumero(3.14159, "#0.00", '.'), "3.14");
}

TEST(Testo, ValoreTestoLeggeIlNumeroAllInizio) {
    EXPECT_EQ(ValoreTesto("12abc"), 12);
    EXPECT_EQ(ValoreTesto("  -1"), -1);
    EXPECT_EQ(ValoreTesto(""), 0);
    // The Italian comma is the decimal separator of every box.
    EXPECT_EQ(ValoreTesto(" 6,5 mesi"), 6.5);
    EXPECT_EQ(ValoreTesto(",5"), 0.5);
    EXPECT_EQ(ValoreTesto("1,2,3"), 1.2); // one separator only
    EXPECT_EQ(ValoreTesto(","), 0);
}

TEST(Testo, MaiuscoleConGliAccenti) {
    // "ß" has no single capital; signs and digits stay.
    const std::pair<const char*, const char*> casi[] = {
        {"Italy", "ITALY"}, {"Côte d'Ivoire", "CÔTE D'IVOIRE"},
        {"Łódź", "ŁÓDŹ"},   {"Čierna nad Tisou", "ČIERNA NAD TISOU"},
        {"ÿ", "Ÿ"},         {"Straße", "STRAßE"},
        {"1° 2'", "1° 2'"},
    };
    for (auto [testo, atteso] : casi)
        EXPECT_EQ(Maiuscole(testo), atteso) << testo;
}
