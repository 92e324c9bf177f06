// The single wheel and what it is drawn with: the surface, the glyphs, crowded bodies, cusps and
// arrow, houses, signs, nodes and aspect lines.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>

#include "Disegno.h"
#include "Temi.h"
#include "presentation/Ruota.h"

using namespace vesmo;
using namespace vesmo::prova;

constexpr double TolleranzaRadianti = 1e-12;

TEST(Superficie, PennaEllissiEArchi) {
    SuperficieRegistrata sup;
    sup.Linea(100, 200, 300, 400, Nero);
    EXPECT_EQ(std::make_pair(sup.PennaX(), sup.PennaY()), std::make_pair(300.0, 400.0));
    // Text moves the pen on by its width, on the same line.
    sup.Stampa("12");
    EXPECT_GT(sup.PennaX(), 300);
    EXPECT_EQ(sup.PennaY(), 400);
    sup.figure.clear();
    // The radius is the longer half-axis: horizontal below aspect 1, vertical above.
    sup.Cerchio(0, 0, 100, Nero, 0.5);
    sup.Cerchio(0, 0, 100, Nero, 2);
    EXPECT_EQ(std::make_pair(sup.figure[0].rx, sup.figure[0].ry), std::make_pair(100.0, 50.0));
    EXPECT_EQ(std::make_pair(sup.figure[1].rx, sup.figure[1].ry), std::make_pair(50.0, 100.0));
    EXPECT_EQ(std::make_pair(sup.PennaX(), sup.PennaY()), std::make_pair(0.0, 0.0));
    // From 342 to 252 degrees the arc runs through 0: 270 degrees.
    sup.Cerchio(0, 0, 100, Nero, Radianti(342), Radianti(252));
    EXPECT_NEAR(sup.figure[2].ampiezza, Radianti(270), TolleranzaRadianti);
    // A negative start: the arc from its absolute value, with the radius to it.
    sup.Cerchio(0, 0, 100, Nero, -Radianti(72), Radianti(72.0057));
    EXPECT_TRUE(sup.figure[3].raggioInizio && !sup.figure[3].raggioFine);
    EXPECT_NEAR(sup.figure[3].inizio, Radianti(72), TolleranzaRadianti);
    EXPECT_NEAR(sup.figure[3].ampiezza, Radianti(0.0057), TolleranzaRadianti);
    // The classic 4-bit palette.
    const std::pair<int, Colore> colori[] = {
        {0, {0, 0, 0}},       {1, {0, 0, 128}},     {4, {128, 0, 0}},  {5, {128, 0, 128}},
        {8, {128, 128, 128}}, {9, {0, 0, 255}},     {12, {255, 0, 0}}, {13, {255, 0, 255}},
        {14, {255, 255, 0}},  {15, {255, 255, 255}}};
    for (const auto& [i, c] : colori)
        EXPECT_EQ(ColorePalette(i), c) << i;
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
                   Caso{11, true, {0, 127, 127}}, Caso{13, false, {}}}) {
        SCOPED_TRACE(c.indice);
        const Colore colore = ColorePalette(c.indice);
        // The Moon at pen 1 and Cancro (pen 2 of its own).
        auto luna = FigureDelGlifo(GlifoCorpo(RuotaLuna), 350, 0, 0, colore, 1);
        auto cancro = FigureDelGlifo(GlifoSegno(3), 500, 0, 0, colore, 1);
        ASSERT_EQ(luna.size(), c.contorno ? 4u : 2u);
        ASSERT_EQ(cancro.size(), c.contorno ? 8u : 4u);
        if (c.contorno) {
            EXPECT_EQ(std::make_pair(luna[0].colore, luna[0].spessore), std::make_pair(c.scuro, 3));
            EXPECT_TRUE(Vicino(luna[1].rx, luna[3].rx));
            EXPECT_EQ(std::make_pair(cancro[3].colore, cancro[3].spessore),
                      std::make_pair(c.scuro, 4));
        }
        EXPECT_EQ(std::make_pair(luna.back().colore, luna.back().spessore),
                  std::make_pair(colore, 1));
        EXPECT_EQ(std::make_pair(cancro.back().colore, cancro.back().spessore),
                  std::make_pair(colore, 2));
    }
}

namespace {

constexpr double CX = 7200, CY = 3650, R1 = 3100, R2 = 2450;

SuperficieRegistrata Disegna(const Posizioni& p, const OpzioniRuota& o, PuntiDellaRuota* punti) {
    SuperficieRegistrata sup;
    PuntiDellaRuota r = DisegnaRuota(sup, TemaDiProva(), p, o);
    if (punti) *punti = r;
    return sup;
}

// Whether glyph `g` of 350 stands centred on ring `anello` at longitude L.
bool GlifoSulRing(const SuperficieRegistrata& s, const Glifo& g, int anello, double L,
                  Colore colore) {
    const double r = R2 - anello * 350;
    return Contiene(s.figure,
                    FigureDelGlifo(g, 350, Px(CX, r, L) - 175, Py(CY, r, L) - 175, colore));
}

bool SulCerchio(double x, double y, double r) {
    return Vicino(std::hypot(x - CX, y - CY), r);
}

// The lines between two points of the circle R2 (the aspect lines), as "colour a-b" with the
// longitudes rounded.
std::multiset<std::string> LineeAspetto(const SuperficieRegistrata& s) {
    auto lo = [](double x, double y) {
        return std::to_string(std::lround(Gradi(std::atan2(y - CY, CX - x)) + 360) % 360);
    };
    std::multiset<std::string> r;
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        if (SulCerchio(f.x1, f.y1, R2) && SulCerchio(f.x2, f.y2, R2) &&
            !(Vicino(f.x1, f.x2) && Vicino(f.y1, f.y2))) {
            const char* colore = f.colore == Blu     ? "blu "
                                 : f.colore == Rosso ? "rosso "
                                 : f.colore == Nero  ? "nero "
                                                     : "altro ";
            r.insert(colore + lo(f.x1, f.y1) + "-" + lo(f.x2, f.y2));
        }
    return r;
}

const std::array<double, 12> Affollati{100, 104, 111, 107, 150, 200, 205, 211, 208, 359, 1, 7};

} // namespace

TEST(RuotaSingola, AnelliDeiCorpiVicini) {
    PuntiDellaRuota punti;
    const auto sup = Disegna(PosizioniDiProva(Affollati, CuspidiComuni), {}, &punti);
    // Venere meets rings 1, 2, 1: up at Sole, up at Luna, and Mercurio no longer counts.
    // Nettuno meets rings 2, 1 (Giove exactly 8 degrees off does not count): it stays at 1 at
    // Saturno and goes to 2 at Urano, on Saturno's ring.
    // NodoLuna at 1 is near Plutone at 359 (358 apart); Lilith at 7 is exactly 352 from
    // Plutone and stays on ring 1.
    const int anelli[13] = {0, 1, 2, 1, 3, 1, 1, 2, 1, 2, 1, 2, 1};
    const int colori[13] = {0, 14, 15, 8, 13, 12, 1, 0, 9, 5, 4, 15, 0};
    for (std::size_t i = 1; i <= 12; ++i) {
        EXPECT_EQ(punti[i].Anello, anelli[i]) << i;
        EXPECT_TRUE(GlifoSulRing(sup, GlifoCorpo(static_cast<int>(i)), anelli[i], Affollati[i - 1],
                                 ColorePalette(colori[i])))
            << "glifo del corpo " << i;
    }
    // The tick on R2 marks the true longitude whatever the ring.
    EXPECT_EQ(punti[4].X, Px(CX, R2, 107));
    // Twelve bodies within 8 degrees climb to ring 12.
    std::array<double, 12> stretti{};
    for (std::size_t i = 0; i < 12; ++i)
        stretti[i] = 50 + 0.5 * static_cast<double>(i);
    Disegna(PosizioniDiProva(stretti, CuspidiComuni), {}, &punti);
    for (std::size_t i = 1; i <= 12; ++i)
        EXPECT_EQ(punti[i].Anello, static_cast<int>(i));
}

TEST(RuotaSingola, CuspidiFrecciaCaseESegni) {
    OpzioniRuota o;
    o.AngoloRuota = 360 - CuspidiComuni[0]; // the Ascendant at the left
    const auto sup = Disegna(PosizioniDiProva(Affollati, CuspidiComuni), o, nullptr);
    const auto& f = sup.figure;
    // The Ascendant's line, pen 2, from radius 800 to R1 + 500 on the left.
    std::size_t i = 0;
    while (i < f.size() &&
           !(f[i].tipo == Figura::Linea && Vicino(f[i].x2, CX - 3600) && Vicino(f[i].y2, CY)))
        ++i;
    ASSERT_LT(i + 2, f.size());
    EXPECT_EQ(f[i].spessore, 2);
    EXPECT_NEAR(f[i].x1, CX - 800, TolleranzaTwips);
    // The arrow head: two barbs of 300 pointing back at 54 degrees either side of the line.
    for (std::size_t b : {i + 1, i + 2}) {
        EXPECT_NEAR(f[b].x2 - f[b].x1, 300 * std::cos(Radianti(54)), TolleranzaTwips);
        EXPECT_NEAR(std::fabs(f[b].y2 - f[b].y1), 300 * std::sin(Radianti(54)), TolleranzaTwips);
    }
    // Angles 4, 7 and 10 cross the ring too, the others stop at R2 with pen 1.
    int lungheSpesse = 0, corteSottili = 0;
    for (const Figura& l : DelTipo(f, Figura::Linea)) {
        if (!SulCerchio(l.x1, l.y1, 800)) continue;
        if (SulCerchio(l.x2, l.y2, R1 + 500)) lungheSpesse += l.spessore == 2;
        if (SulCerchio(l.x2, l.y2, R2)) corteSottili += l.spessore == 1;
    }
    EXPECT_EQ(std::make_pair(lungheSpesse, corteSottili), std::make_pair(4, 8));
    // House numbers halfway between cusps at radius 900: house 12 from 350 to 10 across 0;
    // houses 5 and 6 between the opposites of XI, XII and I (130, 170, 190).
    for (auto [n, L] : {std::pair{"12", 360.0}, {"1", 25.0}, {"5", 150.0}, {"6", 180.0}}) {
        int trovati = 0;
        for (const Figura& t : DelTipo(f, Figura::Testo))
            trovati += t.testo == n && Vicino(t.x1, Px(CX, 900, L, o.AngoloRuota)) &&
                       Vicino(t.y1, Py(CY, 900, L, o.AngoloRuota));
        EXPECT_EQ(trovati, 1) << n;
    }
    // Ariete's boundary in red.
    int ariete = 0;
    for (const Figura& l : DelTipo(f, Figura::Linea))
        ariete += SulCerchio(l.x1, l.y1, R2) && Vicino(l.x2, Px(CX, R1, 0, o.AngoloRuota)) &&
                  Vicino(l.y2, Py(CY, R1, 0, o.AngoloRuota)) && l.colore == ColorePalette(12);
    EXPECT_EQ(ariete, 1);
}

// The disc and the bevel of the outer circle (40 arcs and a white circle); reduced colours drop
// the bevel.
TEST(RuotaSingola, FondoEBiselli) {
    for (bool ridotti : {false, true}) {
        SCOPED_TRACE(ridotti);
        OpzioniRuota o;
        o.ColoriRidotti = ridotti;
        const auto sup = Disegna(PosizioniDiProva(Affollati, CuspidiComuni), o, nullptr);
        EXPECT_EQ(std::make_tuple(sup.figure.front().rx, sup.figure.front().coloreRiempimento),
                  std::make_tuple(3700.0, FacciaPulsante));
        int archi = 0, bianchi = 0;
        for (const Figura& e : sup.figure) {
            archi += e.tipo == Figura::Arco && e.rx == R1 && e.x1 > CX;
            bianchi += e.tipo == Figura::Ellisse && e.rx == R1 && e.colore == Bianco;
        }
        EXPECT_EQ(std::make_pair(archi, bianchi), ridotti ? std::pair(0, 0) : std::pair(40, 1));
    }
}

TEST(RuotaSingola, NodiPlanetariDaLNd) {
    Posizioni p = PosizioniDiProva(Affollati, CuspidiComuni);
    // Venere's node at 97: Sole (100) and Luna (104) within 8 degrees, so ring 3; its south
    // node at 277 is free, ring 1. Every near body counts, rings are not compared.
    p.Venere.LNd = 97;
    OpzioniRuota o;
    o.NodiScelti = 7;
    auto sup = Disegna(p, o, nullptr);
    EXPECT_TRUE(GlifoSulRing(sup, GlifoNodo(RuotaVenere, 0), 3, 97, ColorePalette(13)));
    EXPECT_TRUE(GlifoSulRing(sup, GlifoNodo(RuotaVenere, 180), 1, 277, ColorePalette(13)));
    // Only north (row 8): one tick and one glyph more; none for the rows of Plutone.
    const std::size_t base = Disegna(p, {}, nullptr).figure.size();
    const std::size_t nord = FigureDelGlifo(GlifoNodo(RuotaVenere, 0), 350, 0, 0, Nero).size();
    o.NodiScelti = 8;
    EXPECT_EQ(Disegna(p, o, nullptr).figure.size(), base + 1 + nord);
    o.NodiScelti = 25;
    EXPECT_EQ(Disegna(p, o, nullptr).figure.size(), base);
    int quanti; // all the nodes (14) are counted by the glyph bands' test
    NodiDellaScelta(3, quanti);
    EXPECT_EQ(quanti, 7);
}

TEST(RuotaSingola, LineeDegliAspettiEIloroColori) {
    // Sole 0, Luna 121, Mercurio 33, Marte 271, Giove 214, Saturno 135, Urano 1.5 (read "2");
    // the others far from any aspect of the majors, SesquiQuadratura and Quinconce.
    const std::array<double, 12> corpi{0, 121, 33, 177, 271, 214, 135, 1.5, 324, 321, 288, 222};
    Posizioni p = PosizioniDiProva(corpi, {353, 20, 50, 37, 300, 330});
    OpzioniRuota o;
    EXPECT_TRUE(LineeAspetto(Disegna(p, o, nullptr)).empty());
    o.DisegnaAspetti = true;
    using Linee = std::multiset<std::string>;
    // Trines in blue, squares in red, the conjunction in the pen's colour.
    EXPECT_EQ(LineeAspetto(Disegna(p, o, nullptr)),
              (Linee{"blu 0-121", "blu 121-2", "blu 33-271", "blu 33-214", "rosso 0-271",
                     "rosso 121-33", "rosso 271-2", "nero 0-2"}));
    // The majors off, SesquiQuadratura (black) and Quinconce (red) on.
    o.Aspetti.AspettoAttivo.fill(0);
    o.Aspetti.AspettoAttivo[13] = -1;
    o.Aspetti.AspettoAttivo[15] = -1;
    EXPECT_EQ(LineeAspetto(Disegna(p, o, nullptr)),
              (Linee{"rosso 121-271", "rosso 214-2", "nero 0-135", "nero 271-135", "nero 135-2"}));
    // A wide orb: one pair in several aspects draws one line for each: 30 (SemiSestile, red),
    // 40 and 45 in the pen's colour.
    o.Aspetti.AspettoAttivo.fill(-1);
    o.Aspetti.Orbita = 16;
    const Linee larga = LineeAspetto(Disegna(p, o, nullptr));
    EXPECT_EQ(larga.count("rosso 0-33") + larga.count("nero 0-33"), 3u);
}
