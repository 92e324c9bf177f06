// The ascensional wheels: cusps and bodies at their ascensions, polar cusps, the solar arc.
#include <gtest/gtest.h>

#include <cmath>

#include "Disegno.h"
#include "Temi.h"
#include "presentation/RuotaAscensionale.h"

using namespace vesmo;
using namespace vesmo::prova;

namespace {

constexpr double CX = 7500, CY = 3900, RZ = 1800, RZF = 2200, RA = 3250;
constexpr Colore RossoScuro{192, 0, 0};

// Longitudes as in the other wheel tests; right ascensions set by hand, in hours. Sole 45 and
// Luna 52.5 degrees are 7.5 apart, Mercurio 58.5 is 6 from Luna; NodoLuna 358.5 and the
// Black Moon 1.5 are 3 apart across 0.
const std::array<double, 12> Longitudini{50, 57.5, 100, 140, 170, 200, 230, 260, 290, 320, 350, 20};
const std::array<double, 12> OreAR{3.0,  3.5,  3.9,  9.2,  11.3, 13.3,
                                   15.2, 17.3, 19.3, 21.4, 23.9, 0.1};
// Cusps I, II, III, X, XI, XII.
const std::array<double, 6> OreCuspidi{0.6, 2.7, 4.6, 18.6, 20.7, 23.3};

Posizioni Tema45() {
    return ConAscensioni(PosizioniDiProva(Longitudini, CuspidiComuni), OreAR, OreCuspidi);
}

bool SulCerchio(double x, double y, double r) {
    return Vicino(std::hypot(x - CX, y - CY), r);
}

// Lines of colour c from circle `da` to circle `a`.
std::vector<Figura> Raggi(const SuperficieRegistrata& s, Colore c, double da, double a) {
    std::vector<Figura> r;
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        if (f.colore == c && SulCerchio(f.x1, f.y1, da) && SulCerchio(f.x2, f.y2, a))
            r.push_back(f);
    return r;
}

// A line of colour c from circle `da` at angle l1 to circle `a` at angle l2 (l1 if not given).
bool HaRaggio(const SuperficieRegistrata& s, Colore c, double da, double a, double l1,
              double l2 = NAN) {
    if (std::isnan(l2)) l2 = l1;
    for (const Figura& f : Raggi(s, c, da, a))
        if (Vicino(f.x1, Px(CX, da, l1)) && Vicino(f.y1, Py(CY, da, l1)) &&
            Vicino(f.x2, Px(CX, a, l2)) && Vicino(f.y2, Py(CY, a, l2)))
            return true;
    return false;
}

// Whether a body's glyph of 300 stands centred at radius r and angle L in colour c.
bool HaGlifo(const SuperficieRegistrata& s, int corpo, double r, double L, Colore c) {
    return Contiene(s.figure, FigureDelGlifo(GlifoCorpo(corpo), 300, Px(CX, r, L) - 150,
                                             Py(CY, r, L) - 150, c));
}

// Barbs of the given length starting at a point of circle r.
int Barbe(const SuperficieRegistrata& s, Colore c, double r, double lunghezza) {
    int n = 0;
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        n += f.colore == c && SulCerchio(f.x1, f.y1, r) &&
             Vicino(std::hypot(f.x2 - f.x1, f.y2 - f.y1), lunghezza);
    return n;
}

bool HaCerchio(const SuperficieRegistrata& s, Colore c, double raggio, double r, double angolo) {
    for (const Figura& f : DelTipo(s.figure, Figura::Ellisse))
        if (f.colore == c && Vicino(f.rx, raggio) && Vicino(f.x1, Px(CX, r, angolo)) &&
            Vicino(f.y1, Py(CY, r, angolo)))
            return true;
    return false;
}

} // namespace

TEST(RuotaAscensionale, CuspidiCorpiEAspettiAlleAscensioniRette) {
    OpzioniAscensionale o{.ModoAscens = 1, .AngoloAscens = 20, .DisegnaAspetti = true};
    SuperficieRegistrata s;
    auto r = DisegnaRuotaAscensionale(s, TemaDiProva(), Tema45(), o);

    // Every cusp from the ring to the circle of the ascensions, at 20 + 15 AR degrees.
    EXPECT_EQ(Raggi(s, BluNotte, RZF, RA).size(), 12u);
    for (double ore : OreCuspidi)
        EXPECT_TRUE(HaRaggio(s, BluNotte, RZF, RA, 20 + 15 * ore)) << ore;
    // The Ascendant's barbs of 180, the Midheaven's circle of 180 at radius 3070.
    EXPECT_EQ(Barbe(s, BluNotte, RA, 180), 2);
    EXPECT_TRUE(HaCerchio(s, BluNotte, 180, 3070, 20 + 15 * 18.6));
    // The zodiacal cusps keep the pen's black: from 500 to the ring, the angles to 2600.
    EXPECT_EQ(Raggi(s, Nero, 500, RZ).size(), 8u);
    EXPECT_EQ(Raggi(s, Nero, 500, 2600).size(), 4u);
    EXPECT_TRUE(HaRaggio(s, Nero, 500, 2600, 10));
    // Sole 50 and Venere 140 are square: a grey line on the zodiac's inner circle, and no grey
    // line elsewhere.
    EXPECT_TRUE(HaRaggio(s, Grigio, RZ, RZ, 50, 140));
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        EXPECT_TRUE(f.colore != Grigio ||
                    (SulCerchio(f.x1, f.y1, RZ) && SulCerchio(f.x2, f.y2, RZ)));

    struct Caso {
        std::size_t corpo;
        int anelloAscensionale, anelloZodiacale;
    };
    // Sole and Luna 7.5 apart share a ring on the ascensions but not in the zodiac (8);
    // Mercurio 6 from Luna moves on; the Black Moon 3 across 0 from the node moves on.
    for (Caso c : {Caso{1, 1, 1}, Caso{2, 1, 2}, Caso{3, 2, 1}, Caso{11, 1, 1}, Caso{12, 2, 1}})
        EXPECT_EQ(
            (std::pair<int, int>(r.ascensionali[c.corpo].Anello, r.zodiacali[c.corpo].Anello)),
            std::make_pair(c.anelloAscensionale, c.anelloZodiacale))
            << c.corpo;

    // Glyphs of 300 centred on their rings, red inward from 3250, black inward from 1800; ticks
    // of 150 inward, red on the circle of the ascensions.
    const double lunaA = 20 + 15 * 3.5, mercurioA = 20 + 15 * 3.9;
    EXPECT_TRUE(HaGlifo(s, RuotaLuna, RA - 300, lunaA, Rosso));
    EXPECT_TRUE(HaGlifo(s, RuotaMercurio, RA - 600, mercurioA, Rosso));
    EXPECT_TRUE(HaGlifo(s, RuotaLuna, RZ - 600, 57.5, Nero));
    EXPECT_EQ(Raggi(s, Rosso, RA, RA - 150).size(), 12u);
    EXPECT_TRUE(HaRaggio(s, Rosso, RA, RA - 150, lunaA));
    // Ascendant and Midheaven: places only, at their ascensions.
    EXPECT_NEAR(r.ascensionali[13].X, Px(CX, RA, 20 + 15 * 0.6), TolleranzaTwips);
    EXPECT_NEAR(r.ascensionali[14].Y, Py(CY, RA, 20 + 15 * 18.6), TolleranzaTwips);
    EXPECT_NEAR(r.zodiacali[13].X, Px(CX, RZ, 10), TolleranzaTwips);

    // Oblique ascensions: the same cusps at 15 AOb.
    o.ModoAscens = 2;
    SuperficieRegistrata obl;
    DisegnaRuotaAscensionale(obl, TemaDiProva(), Tema45(), o);
    for (double ore : OreCuspidi)
        EXPECT_TRUE(HaRaggio(obl, BluNotte, RZF, RA, 20 + 15 * (ore + 0.1))) << ore;
}

TEST(RuotaAscensionale, CuspidiSenzaAscensioneTralasciate) {
    // At a polar latitude the Ascendant has no right ascension, and some cusps no oblique one.
    Posizioni p = Tema45();
    p.Asce.AR = NonDefinita;
    p.Asce.AOb = Indefinita;
    p.CasaII.AOb = Indefinita;
    p.Luna.AOb = Indefinita;
    OpzioniAscensionale o{.ModoAscens = 1};
    SuperficieRegistrata s;
    auto r = DisegnaRuotaAscensionale(s, TemaDiProva(), p, o);
    EXPECT_EQ(Raggi(s, BluNotte, RZF, RA).size(), 11u);
    EXPECT_EQ(Barbe(s, BluNotte, RA, 180), 0);
    EXPECT_FALSE(r.posti[13]);
    EXPECT_TRUE(r.posti[2]);

    o.ModoAscens = 2;
    SuperficieRegistrata obl;
    r = DisegnaRuotaAscensionale(obl, TemaDiProva(), p, o);
    EXPECT_EQ(Raggi(obl, BluNotte, RZF, RA).size(), 10u);
    EXPECT_FALSE(HaRaggio(obl, BluNotte, RZF, RA, 15 * (2.7 + 0.1)));
    // The Moon without an oblique ascension has no place and no glyph on the circle, and
    // Mercurio, near the Moon alone, keeps the first ring.
    EXPECT_FALSE(r.posti[2]);
    EXPECT_EQ(Raggi(obl, Rosso, RA, RA - 150).size(), 11u);
    EXPECT_EQ(r.ascensionali[3].Anello, 1);
    // The zodiacal half is whole.
    EXPECT_EQ(Raggi(obl, Nero, 500, RZ).size() + Raggi(obl, Nero, 500, 2600).size(), 12u);
}

TEST(DoppiaAscensionale, EsternoRossoScuroFuoriEGiratoDallArco) {
    OpzioniAscensionale o{.ModoAscens = 1, .AngoloAscens = 20};
    o.Aspetti.ArcoSolare = 30;
    SuperficieRegistrata s;
    auto r = DisegnaDoppiaAscensionale(s, TemaDiProva(), Tema45(), TemaDiProva(), Tema45(), o);

    // Inner ascensional cusps and bodies in red.
    EXPECT_EQ(Raggi(s, Rosso, RZF, RA).size(), 12u);
    EXPECT_EQ(Raggi(s, BluNotte, RZF, RA).size(), 0u);
    // Outer cusps from 3250 to 3650 at 20 + 15 AR + 30, the Midheaven's circle at 3470, barbs
    // of 180 on the Ascendant.
    EXPECT_EQ(Raggi(s, RossoScuro, RA, 3650).size(), 12u);
    for (double ore : OreCuspidi)
        EXPECT_TRUE(HaRaggio(s, RossoScuro, RA, 3650, 50 + 15 * ore)) << ore;
    EXPECT_TRUE(HaCerchio(s, RossoScuro, 180, 3470, 50 + 15 * 18.6));
    EXPECT_EQ(Barbe(s, RossoScuro, 3650, 180), 2);
    // Outer bodies: ticks and rings outward, limits 7 and 353.
    EXPECT_EQ(Raggi(s, RossoScuro, RA, RA + 150).size(), 12u);
    EXPECT_EQ(r.esterni[2].Anello, 1);
    EXPECT_EQ(r.esterni[3].Anello, 2);
    EXPECT_TRUE(HaGlifo(s, RuotaMercurio, RA + 600, 50 + 15 * 3.9, RossoScuro));
    EXPECT_NEAR(r.esterni[13].X, Px(CX, RA, 50 + 15 * 0.6), TolleranzaTwips);
    // No outer body in the zodiac ring: nothing dark red inside the circle of the ascensions.
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        EXPECT_TRUE(f.colore != RossoScuro ||
                    std::hypot(f.x1 - CX, f.y1 - CY) >= RA - TolleranzaCerchioTwips);
}
