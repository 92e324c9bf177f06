// Aspects: the table, the test at its ends, parallels, and the grid of the selection form.
#include <gtest/gtest.h>

#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"

using namespace vesmo;

TEST(Aspetti, EntrandoSiRiaccendonoIMaggiori) {
    TabellaAspetti t;
    t.AspettoAttivo[2] = 0;
    t.AspettoAttivo[9] = -1;
    t.EntraInLyx();
    EXPECT_EQ(t.Orbita, 2.5f);         // the default orb replaces 0
    EXPECT_EQ(t.AspettoAttivo[2], -1); // majors on again
    EXPECT_EQ(t.AspettoAttivo[9], -1); // minors as they stood
    EXPECT_EQ(t.AspettoAttivo[10], 0);
    t.Orbita = 4;
    t.EntraInLyx();
    EXPECT_EQ(t.Orbita, 4.f);
}

TEST(Aspetti, ProvaAiBordi) {
    // 359 and 1 are 2 apart: a conjunction at the default orb.
    EXPECT_EQ(DistanzaAspetto(359, 1), 2);
    EXPECT_EQ(ProvaAspetto(DistanzaAspetto(359, 1), 2.5), std::vector<int>{0});
    EXPECT_EQ(ProvaAspetto(180, 0), std::vector<int>{4});
    EXPECT_EQ(DistanzaAspetto(10, 190), 180);
    EXPECT_EQ(ProvaAspetto(122.5, 2.5), std::vector<int>{3});
    EXPECT_TRUE(ProvaAspetto(122.6, 2.5).empty());
    EXPECT_EQ(ProvaAspetto(42.5, 3), (std::vector<int>{6, 7}));
    EXPECT_TRUE(ProvaAspetto(60, -1).empty());
    EXPECT_EQ(ProvaAspetto(0, 0), std::vector<int>{0});
    // The solar arc is added to the inner point's difference.
    EXPECT_NEAR(DistanzaAspetto(100, 40, 30.5), 90.5, 1e-12);
    EXPECT_NEAR(DistanzaAspetto(10, 350, -15), 5, 1e-12);
}

TEST(Aspetti, ParalleliEControparalleli) {
    struct Caso {
        double a, b;
        const char* marca;
    };
    const Caso casi[] = {
        {10, 11.2, "P"},   {10, 11.3, " "},  {-16 - 46.0 / 60, -16 - 25.0 / 60, "P"},
        {10, -11, "C"},    {10, -11.5, " "}, {0.3, -0.4, "CP"},
        {0, 0.6, "CP"},                      // 0 has sign 0: the second rule
        {0, 1.5, " "},     {-0.4, 0.8, "C"}, // the sum 1.2 is too far for "P"
        {-0.4, 0.6, "CP"}, {-0.3, 1.5, " "}, {0, 0, "P"},
    };
    for (const Caso& c : casi) {
        double d;
        EXPECT_EQ(MarcaParallelo(c.a, c.b, d), c.marca) << c.a << " " << c.b;
    }
    double d;
    MarcaParallelo(0.3, -0.4, d);
    EXPECT_NEAR(d, 0.1, 1e-12);
}

TEST(Aspetti, GrigliaDiUnTemaConSeStesso) {
    Posizioni p;
    p.Sole.Lo = 10;
    p.Luna.Lo = 100.4;
    p.Marte.Lo = 52.5;
    p.Sole.De = Radianti(5);
    p.Luna.De = Radianti(-5.5);
    // Everything else at 0 (conjunct with each other and sextile... to nothing).
    GrigliaAspetti g = CostruisciGriglia(p, p, false, 2.5, 0);
    // Two rows a point: its name, then the numbers.
    EXPECT_EQ(g.celle[0][15] + g.celle[2][0] + g.celle[3][0] + g.celle[23][0],
              "MC            LunaLil. Media");
    // Sun (row 1) and Moon (column 2): 90.4 apart, a square 0.4 short, declinations on two
    // sides 0.5 apart in size: contraparallel.
    EXPECT_EQ(g.celle[1][2], "QUADRATURA       ");
    EXPECT_EQ(g.celle[2][2], "0,4°  0,5°C");
    // The diagonal stays empty although each point is conjunct with itself.
    for (int i = 1; i <= 15; ++i) {
        EXPECT_EQ(g.celle[static_cast<std::size_t>(2 * i - 1)][static_cast<std::size_t>(i)], "");
        EXPECT_EQ(g.celle[static_cast<std::size_t>(2 * i)][static_cast<std::size_t>(i)], "");
    }
    // Comparing, the diagonal is tested too.
    GrigliaAspetti gc = CostruisciGriglia(p, p, true, 2.5, 0);
    EXPECT_EQ(gc.celle[1][1], "CONGIUNZIONE      ");
    EXPECT_EQ(gc.celle[2][1], "0,0°  0,0°P");

    // With orb 3, 42.5 apart is both Novile and SemiQuadratura: the later one stays.
    GrigliaAspetti g3 = CostruisciGriglia(p, p, false, 3, 0);
    EXPECT_EQ(g3.celle[1][5], "SemiQuadratura   "); // Sun (10) and Mars (52.5)
    EXPECT_EQ(g3.celle[2][5], "2,5°  5,0° ");
}

TEST(Aspetti, AspettiDelleRuoteETestoDiAiuto) {
    Posizioni p;
    p.Sole.Lo = 0;
    p.Luna.Lo = 120.5;
    p.Asce.Lo = 181;
    for (auto* q : {&p.Mercurio, &p.Venere, &p.Marte, &p.Giove, &p.Saturno, &p.Urano, &p.Nettuno,
                    &p.Plutone, &p.NodoLuna, &p.LilithMedia, &p.MC})
        q->Lo = 300;
    p.LilithVera.Lo = 240;
    auto a = AspettiDelTema(p, 1, 2.5);
    auto trova = [&](int x, int y, int k) {
        for (const auto& v : a)
            if (v.a == x && v.b == y && v.k == k) return true;
        return false;
    };
    EXPECT_TRUE(trova(0, 1, 3));  // Sun trine Moon
    EXPECT_TRUE(trova(0, 12, 4)); // Sun opposite Ascendant (179 apart)
    EXPECT_TRUE(trova(1, 11, 3)); // Moon trine true Lilith, shown by LunaNeraVera 1
    EXPECT_FALSE(trova(1, 11, 4));
    a = AspettiDelTema(p, 0, 2.5);
    EXPECT_FALSE(trova(1, 11, 3));
    // The help text keeps its Windows line ends.
    const std::string aiuto = TestoAiutoAspetti();
    EXPECT_EQ(aiuto.rfind("           SELEZIONE ASPETTI e ORBITE  \r\n\r\n"
                          "Ogni Aspetto occupa due caselle della griglia. \r\n\r\n",
                          0),
              0u);
    EXPECT_NE(aiuto.find("è (-16g 46p) - (-16g 25p) = 0,4g arrotondando.\r\n"), std::string::npos);
}
