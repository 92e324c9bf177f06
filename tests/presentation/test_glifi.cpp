// The drawing surface's own rules and the glyphs drawn stroke by stroke with their pens.
#include <gtest/gtest.h>

#include <tuple>

#include "Disegno.h"
#include "presentation/Ruota.h"

using namespace vesmo;
using namespace vesmo::prova;

TEST(Superficie, PennaLasciataDoveFinisceLaFigura) {
    SuperficieRegistrata sup;
    sup.Linea(100, 200, 300, 400, Nero);
    EXPECT_EQ(std::make_pair(sup.PennaX(), sup.PennaY()), std::make_pair(300.0, 400.0));
    sup.Cerchio(1000, 2000, 50, Nero);
    EXPECT_EQ(std::make_pair(sup.PennaX(), sup.PennaY()), std::make_pair(1000.0, 2000.0));
    // Text moves the pen on by its width, on the same line.
    sup.Stampa("12");
    EXPECT_GT(sup.PennaX(), 1000);
    EXPECT_EQ(sup.PennaY(), 2000);
}

TEST(Superficie, EllissiArchiRaggiEPalette) {
    SuperficieRegistrata sup;
    // The radius is the longer half-axis: horizontal below aspect 1, vertical above.
    sup.Cerchio(0, 0, 100, Nero, 0.5);
    sup.Cerchio(0, 0, 100, Nero, 2);
    EXPECT_EQ(std::make_pair(sup.figure[0].rx, sup.figure[0].ry), std::make_pair(100.0, 50.0));
    EXPECT_EQ(std::make_pair(sup.figure[1].rx, sup.figure[1].ry), std::make_pair(50.0, 100.0));
    // From 342 to 252 degrees the arc runs through 0: 270 degrees.
    sup.Cerchio(0, 0, 100, Nero, Radianti(342), Radianti(252));
    EXPECT_NEAR(sup.figure[2].inizio, Radianti(342), 1e-12);
    EXPECT_NEAR(sup.figure[2].ampiezza, Radianti(270), 1e-12);
    // A negative start: the arc from its absolute value, with the radius to it.
    sup.Cerchio(0, 0, 100, Nero, -Radianti(72), Radianti(72.0057));
    EXPECT_TRUE(sup.figure[3].raggioInizio && !sup.figure[3].raggioFine);
    EXPECT_NEAR(sup.figure[3].inizio, Radianti(72), 1e-12);
    EXPECT_NEAR(sup.figure[3].ampiezza, Radianti(0.0057), 1e-12);
    // The sixteen colours of the classic 4-bit palette.
    const std::pair<int, Colore> colori[] = {
        {0, {0, 0, 0}},       {1, {0, 0, 128}},     {4, {128, 0, 0}},  {5, {128, 0, 128}},
        {8, {128, 128, 128}}, {9, {0, 0, 255}},     {12, {255, 0, 0}}, {13, {255, 0, 255}},
        {14, {255, 255, 0}},  {15, {255, 255, 255}}};
    for (const auto& [i, c] : colori)
        EXPECT_EQ(ColorePalette(i), c) << i;
}

TEST(Glifi, PenneDelSegnoEDelSole) {
    SuperficieRegistrata sup;
    DisegnaGlifo(sup, GlifoSegno(0), 500, 1000, 2000, Rosso);
    EXPECT_EQ(sup.SpessorePenna(), 2);
    ASSERT_EQ(sup.figure.size(), 3u);
    for (const Figura& f : sup.figure) {
        EXPECT_EQ(f.spessore, 2);
        EXPECT_EQ(f.colore, Rosso);
    }
    // Ariete: the stem from the bottom middle up to the middle, then two arcs of aspect 2.
    const Figura &stelo = sup.figure[0], &arco = sup.figure[1];
    EXPECT_EQ(std::make_tuple(stelo.tipo, stelo.x1, stelo.y1, stelo.y2),
              std::make_tuple(Figura::Linea, 1250.0, 2500.0, 2250.0));
    EXPECT_EQ(std::make_tuple(arco.x1, arco.rx, arco.ry), std::make_tuple(1350.0, 100.0, 200.0));
    EXPECT_NEAR(arco.ampiezza, Radianti(144), 1e-12);
    // A body glyph drawn at once inherits the width.
    DisegnaGlifo(sup, GlifoCorpo(RuotaMarte), 350, 0, 0, Rosso);
    EXPECT_EQ(sup.figure.back().spessore, 2);
    auto f = FigureDelGlifo(GlifoCorpo(RuotaSole), 350, 700, 1400, ColorePalette(1), 1);
    ASSERT_EQ(f.size(), 2u);
    EXPECT_EQ(std::make_tuple(f[0].tipo, f[0].spessore, f[0].x1, f[0].y1),
              std::make_tuple(Figura::Punto, 3, 875.0, 1575.0));
    EXPECT_EQ(std::make_tuple(f[1].tipo, f[1].spessore, f[1].rx),
              std::make_tuple(Figura::Ellisse, 1, 140.0));
}

// The light colours of the palette (white 15, yellow 14, and cyan 11) are read on the light
// grey of the wheel through an outline: the same strokes first, two pixels wider, in the colour
// with each component halved. Darker colours are drawn once.
TEST(Glifi, ColoriChiariConContornoScuro) {
    struct Caso {
        int indice;
        bool contorno;
        Colore scuro;
    };
    for (Caso c : {Caso{15, true, {127, 127, 127}}, Caso{14, true, {127, 127, 0}},
                   Caso{11, true, {0, 127, 127}}, Caso{13, false, {}}, Caso{8, false, {}},
                   Caso{12, false, {}}, Caso{9, false, {}}, Caso{0, false, {}}}) {
        SCOPED_TRACE(c.indice);
        const Colore colore = ColorePalette(c.indice);
        // The Moon at pen 1 and Cancro (pen 2 of its own).
        auto luna = FigureDelGlifo(GlifoCorpo(RuotaLuna), 350, 0, 0, colore, 1);
        auto cancro = FigureDelGlifo(GlifoSegno(3), 500, 0, 0, colore, 1);
        ASSERT_EQ(luna.size(), c.contorno ? 4u : 2u);
        ASSERT_EQ(cancro.size(), c.contorno ? 8u : 4u);
        if (c.contorno) {
            for (std::size_t i = 0; i < 2; ++i) {
                EXPECT_EQ(std::make_pair(luna[i].colore, luna[i].spessore),
                          std::make_pair(c.scuro, 3));
                EXPECT_TRUE(Vicino(luna[i].x1, luna[i + 2].x1) &&
                            Vicino(luna[i].rx, luna[i + 2].rx));
            }
            for (std::size_t i = 0; i < 4; ++i) {
                EXPECT_EQ(std::make_pair(cancro[i].colore, cancro[i].spessore),
                          std::make_pair(c.scuro, 4));
            }
        }
        EXPECT_EQ(std::make_pair(luna.back().colore, luna.back().spessore),
                  std::make_pair(colore, 1));
        EXPECT_EQ(std::make_pair(cancro.back().colore, cancro.back().spessore),
                  std::make_pair(colore, 2));
    }
}

TEST(Glifi, ArchiCheAttraversanoLoZeroEArchiSvaniti) {
    auto giove = FigureDelGlifo(GlifoCorpo(RuotaGiove), 350, 0, 0, Nero);
    EXPECT_NEAR(giove[0].ampiezza, Radianti(270), 1e-12);
    // Capricorno: three arcs that start with a radius; the first two arcs barely exist.
    auto capricorno = FigureDelGlifo(GlifoSegno(9), 500, 0, 0, Nero);
    EXPECT_TRUE(capricorno[0].raggioInizio);
    EXPECT_NEAR(capricorno[0].ampiezza, Radianti(0.0057), 1e-9);
    EXPECT_TRUE(capricorno[1].raggioInizio);
    EXPECT_NEAR(capricorno[1].inizio, Radianti(108), 1e-12);
    EXPECT_TRUE(capricorno[4].raggioInizio);
    EXPECT_FALSE(capricorno[5].raggioInizio);
}

TEST(Glifi, NodiPlanetari) {
    auto venere = FigureDelGlifo(GlifoCorpo(RuotaVenere), 350, 100, 200, ColorePalette(13));
    auto nord = FigureDelGlifo(GlifoNodo(RuotaVenere, 0), 350, 100, 200, ColorePalette(13));
    auto sud = FigureDelGlifo(GlifoNodo(RuotaVenere, 180), 350, 100, 200, ColorePalette(13));
    // Venere's small form is its whole glyph; the marks follow with five strokes each.
    ASSERT_EQ(nord.size(), venere.size() + 5);
    ASSERT_EQ(sud.size(), venere.size() + 5);
    for (std::size_t i = 0; i < venere.size(); ++i) {
        EXPECT_TRUE(Uguali(nord[i], venere[i]));
        EXPECT_TRUE(Uguali(sud[i], venere[i]));
    }
    // The north mark's arch from 0 to 180; the south mark's from 180 to 2.865 degrees.
    EXPECT_NEAR(nord.back().inizio, 0, 1e-12);
    EXPECT_NEAR(nord.back().ampiezza, PI, 1e-12);
    EXPECT_NEAR(sud.back().inizio, PI, 1e-12);
    EXPECT_NEAR(sud.back().ampiezza, Radianti(182.86479), 1e-12);
    // Mercurio's small forms differ between the sides.
    auto mNord = FigureDelGlifo(GlifoNodo(RuotaMercurio, 0), 350, 0, 0, Nero);
    auto mSud = FigureDelGlifo(GlifoNodo(RuotaMercurio, 180), 350, 0, 0, Nero);
    EXPECT_DOUBLE_EQ(mNord[0].y1, 0.6 * 350);
    EXPECT_DOUBLE_EQ(mSud[0].y1, 0.5 * 350);
    // Aspect 0.9: the radius is the horizontal half-axis.
    EXPECT_EQ(std::make_pair(mNord[0].rx, mNord[0].ry), std::make_pair(0.2 * 350, 0.2 * 350 * 0.9));
}
