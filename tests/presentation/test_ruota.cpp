// The single wheel: crowded glyphs, cusps and arrow, houses, signs, nodes and aspect lines.
#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "Disegno.h"
#include "Temi.h"
#include "presentation/Ruota.h"

using namespace vesmo;
using namespace vesmo::prova;

namespace {

constexpr double CX = 7200, CY = 3650, R1 = 3100, R2 = 2450;

struct Disegnata {
    SuperficieRegistrata sup;
    PuntiDellaRuota punti;
};

Disegnata Disegna(const Posizioni& p, const OpzioniRuota& o = {}) {
    Disegnata d;
    d.punti = DisegnaRuota(d.sup, TemaDiProva(), p, o);
    return d;
}

// Whether body `corpo` (1..12) has its glyph of 350 centred on ring `anello` at longitude L.
bool GlifoSulRing(const Disegnata& d, int corpo, int anello, double L, int colore,
                  double angolo = 0) {
    double r = R2 - anello * 350;
    return Contiene(d.sup.figure,
                    FigureDelGlifo(GlifoCorpo(corpo), 350, Px(CX, r, L, angolo) - 175,
                                   Py(CY, r, L, angolo) - 175, ColorePalette(colore)));
}

bool SulCerchio(double x, double y, double r) {
    return Vicino(std::hypot(x - CX, y - CY), r);
}

// The lines drawn from radius r1 to radius r2 at longitude L.
int LineeTra(const Disegnata& d, double r1, double r2, double L) {
    int n = 0;
    for (const Figura& f : DelTipo(d.sup.figure, Figura::Linea))
        n += Vicino(f.x1, Px(CX, r1, L)) && Vicino(f.y1, Py(CY, r1, L)) &&
             Vicino(f.x2, Px(CX, r2, L)) && Vicino(f.y2, Py(CY, r2, L));
    return n;
}

// The lines drawn between two points of the circle R2: the aspect lines.
std::vector<Figura> LineeAspetto(const Disegnata& d) {
    std::vector<Figura> r;
    for (const Figura& f : DelTipo(d.sup.figure, Figura::Linea))
        if (SulCerchio(f.x1, f.y1, R2) && SulCerchio(f.x2, f.y2, R2) &&
            !(Vicino(f.x1, f.x2) && Vicino(f.y1, f.y2)))
            r.push_back(f);
    return r;
}

// How many lines join the points of longitudes a and b in colour c.
int Linee(const std::vector<Figura>& linee, double a, double b, Colore c) {
    int n = 0;
    for (const Figura& f : linee)
        if (f.colore == c && Vicino(f.x1, Px(CX, R2, a)) && Vicino(f.y1, Py(CY, R2, a)) &&
            Vicino(f.x2, Px(CX, R2, b)) && Vicino(f.y2, Py(CY, R2, b)))
            ++n;
    return n;
}

const std::array<double, 12> Affollati{100, 104, 111, 107, 150, 200, 205, 211, 208, 359, 1, 7};

} // namespace

TEST(RuotaSingola, AnelliDeiCorpiVicini) {
    const Disegnata d = Disegna(PosizioniDiProva(Affollati, CuspidiComuni));
    // Venere meets rings 1, 2, 1: up at Sole, up at Luna, and Mercurio no longer counts.
    // Nettuno meets rings 2, 1 (Giove exactly 8 degrees off does not count): it stays at 1 at
    // Saturno and goes to 2 at Urano, on Saturno's ring.
    // NodoLuna at 1 is near Plutone at 359 (358 apart); Lilith at 7 is exactly 352 from
    // Plutone and stays on ring 1.
    const int anelli[13] = {0, 1, 2, 1, 3, 1, 1, 2, 1, 2, 1, 2, 1};
    const int colori[13] = {0, 14, 15, 8, 13, 12, 1, 0, 9, 5, 4, 15, 0};
    for (int i = 1; i <= 12; ++i) {
        EXPECT_EQ(d.punti[static_cast<std::size_t>(i)].Anello, anelli[i]) << i;
        EXPECT_TRUE(
            GlifoSulRing(d, i, anelli[i], Affollati[static_cast<std::size_t>(i - 1)], colori[i]))
            << "glifo del corpo " << i;
    }
    // The tick on R2 marks the true longitude whatever the ring.
    EXPECT_EQ(d.punti[4].X, Px(CX, R2, 107));
    EXPECT_EQ(LineeTra(d, R2, R2 - 175, 107), 1);
}

TEST(RuotaSingola, AnelliSenzaLimite) {
    // Twelve bodies within 8 degrees climb to ring 12.
    std::array<double, 12> stretti{};
    for (std::size_t i = 0; i < 12; ++i)
        stretti[i] = 50 + 0.5 * static_cast<double>(i);
    const Disegnata d = Disegna(PosizioniDiProva(stretti, CuspidiComuni));
    for (std::size_t i = 1; i <= 12; ++i)
        EXPECT_EQ(d.punti[i].Anello, static_cast<int>(i));
    EXPECT_TRUE(GlifoSulRing(d, 12, 12, stretti[11], 0));
}

TEST(RuotaSingola, CuspidiFrecciaCerchioENumeri) {
    OpzioniRuota o;
    o.AngoloRuota = 360 - CuspidiComuni[0]; // the Ascendant at the left
    const Disegnata d = Disegna(PosizioniDiProva(Affollati, CuspidiComuni), o);
    const auto& f = d.sup.figure;
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
        EXPECT_NEAR(f[b].x1, CX - 3600, TolleranzaTwips);
        EXPECT_NEAR(f[b].x2 - f[b].x1, 300 * std::cos(Radianti(54)), TolleranzaTwips);
        EXPECT_NEAR(std::fabs(f[b].y2 - f[b].y1), 300 * std::sin(Radianti(54)), TolleranzaTwips);
    }
    EXPECT_NEAR(f[i + 1].y2 + f[i + 2].y2, 2 * CY, TolleranzaTwips);
    // The Midheaven at 280 stands at the top; its circle of 250 at R1 + 280.
    int cerchi = 0;
    for (const Figura& e : DelTipo(f, Figura::Ellisse))
        cerchi += e.rx == 250 && Vicino(e.x1, CX, TolleranzaTwips) &&
                  Vicino(e.y1, CY - 3380, TolleranzaTwips);
    EXPECT_EQ(cerchi, 1);
    // Angles 4, 7 and 10 cross the ring too, the others stop at R2 with pen 1.
    int lungheSpesse = 0, corteSottili = 0;
    for (const Figura& l : DelTipo(f, Figura::Linea)) {
        if (!SulCerchio(l.x1, l.y1, 800)) continue;
        if (SulCerchio(l.x2, l.y2, R1 + 500)) lungheSpesse += l.spessore == 2;
        if (SulCerchio(l.x2, l.y2, R2)) corteSottili += l.spessore == 1;
    }
    EXPECT_EQ(lungheSpesse, 4);
    EXPECT_EQ(corteSottili, 8);
}

TEST(RuotaSingola, NumeriDelleCase) {
    const Disegnata d = Disegna(PosizioniDiProva(Affollati, CuspidiComuni));
    auto numero = [&](const std::string& n, double L) {
        for (const Figura& t : DelTipo(d.sup.figure, Figura::Testo))
            if (t.testo == n) return Vicino(t.x1, Px(CX, 900, L)) && Vicino(t.y1, Py(CY, 900, L));
        return false;
    };
    // House 12 from 350 to 10 across 0: (350 + 10 + 360) / 2 = 360.
    EXPECT_TRUE(numero("12", 360));
    EXPECT_TRUE(numero("1", 25));
    // Houses 5 and 6 between the opposites of XI, XII and I: 130, 170 and 190.
    EXPECT_TRUE(numero("5", 150));
    EXPECT_TRUE(numero("6", 180));
    EXPECT_EQ(DelTipo(d.sup.figure, Figura::Testo).size(), 12u);
}

// The disc, the two bevels (40 arcs and a white circle each); reduced colours drop the outer one.
TEST(RuotaSingola, FondoAnelloEBiselli) {
    auto conta = [](const std::vector<Figura>& f, double r) {
        int archi = 0, cerchi = 0;
        for (const Figura& e : f) {
            archi += e.tipo == Figura::Arco && e.rx == r && e.x1 > CX;
            cerchi += e.tipo == Figura::Ellisse && e.rx == r && e.colore == Bianco;
        }
        return std::pair{archi, cerchi};
    };
    for (bool ridotti : {false, true}) {
        SCOPED_TRACE(ridotti);
        OpzioniRuota o;
        o.ColoriRidotti = ridotti;
        const Disegnata d = Disegna(PosizioniDiProva(Affollati, CuspidiComuni), o);
        const Figura& fondo = d.sup.figure.front();
        EXPECT_EQ(std::make_tuple(fondo.tipo, fondo.rx, fondo.coloreRiempimento),
                  std::make_tuple(Figura::Ellisse, 3700.0, FacciaPulsante));
        EXPECT_EQ(conta(d.sup.figure, R1), ridotti ? std::pair(0, 0) : std::pair(40, 1));
        EXPECT_EQ(conta(d.sup.figure, R2), (std::pair{40, 1}));
        // The sign ring in light grey; after the discs everything is transparent.
        for (const Figura& e : DelTipo(d.sup.figure, Figura::Ellisse))
            EXPECT_TRUE(e.rx != R1 || e.tipoRiempimento != 0 ||
                        e.coloreRiempimento == GrigioChiaro);
        EXPECT_EQ(d.sup.figure.back().tipoRiempimento, 1);
    }
}

TEST(RuotaSingola, SegniDaSinistraInSensoAntiorario) {
    const Disegnata d = Disegna(PosizioniDiProva(Affollati, CuspidiComuni));
    std::vector<Figura> confini;
    for (const Figura& l : DelTipo(d.sup.figure, Figura::Linea))
        if (SulCerchio(l.x1, l.y1, R2) && SulCerchio(l.x2, l.y2, R1) && l.spessore == 1)
            confini.push_back(l);
    ASSERT_EQ(confini.size(), 12u);
    // Ariete's boundary at the left in red, Cancro's at the bottom in white.
    EXPECT_NEAR(confini[0].x2, CX - R1, TolleranzaTwips);
    EXPECT_NEAR(confini[0].y2, CY, TolleranzaTwips);
    EXPECT_EQ(confini[0].colore, ColorePalette(12));
    EXPECT_NEAR(confini[3].y2, CY + R1, TolleranzaTwips);
    EXPECT_EQ(confini[3].colore, ColorePalette(15));
    // Each sign glyph centred at R2 + 350 in the middle of its sign, pen 2; its box and its
    // pen (40 twips) keep within the 300 twips left to R1 at every angle: its side is
    // (300 - 40) times root 2.
    const double lato = 260 * std::sqrt(2.0);
    EXPECT_TRUE(Contiene(d.sup.figure,
                         FigureDelGlifo(GlifoSegno(4), lato, Px(CX, R2 + 350, 135) - lato / 2,
                                        Py(CY, R2 + 350, 135) - lato / 2, ColorePalette(14), 2)));
}

TEST(RuotaSingola, NodiPlanetariDaLNd) {
    Posizioni p = PosizioniDiProva(Affollati, CuspidiComuni);
    // Venere's node at 97: Sole (100) and Luna (104) within 8 degrees, so ring 3; its south
    // node at 277 is free, ring 1. Every near body counts, rings are not compared.
    p.Venere.LNd = 97;
    OpzioniRuota o;
    o.NodiScelti = 7;
    const Disegnata d = Disegna(p, o);
    auto nodo = [&](int lato, int anello, double L) {
        double r = R2 - anello * 350;
        return Contiene(d.sup.figure,
                        FigureDelGlifo(GlifoNodo(RuotaVenere, lato), 350, Px(CX, r, L) - 175,
                                       Py(CY, r, L) - 175, ColorePalette(13)));
    };
    EXPECT_TRUE(nodo(0, 3, 97));
    EXPECT_TRUE(nodo(180, 1, 277));

    // Only north (row 8), and none for the rows of Plutone.
    o.NodiScelti = 8;
    const Disegnata soloNord = Disegna(p, o);
    const Disegnata nessuno = Disegna(p, OpzioniRuota{});
    std::size_t base = nessuno.sup.figure.size();
    std::size_t nord = FigureDelGlifo(GlifoNodo(RuotaVenere, 0), 350, 0, 0, Nero).size();
    EXPECT_EQ(soloNord.sup.figure.size(), base + 1 + nord);
    o.NodiScelti = 25;
    const Disegnata plutone = Disegna(p, o);
    EXPECT_EQ(plutone.sup.figure.size(), base);

    // All the nodes: seven bodies, two sides.
    int quanti;
    NodiDellaScelta(1, quanti);
    EXPECT_EQ(quanti, 14);
    NodiDellaScelta(3, quanti);
    EXPECT_EQ(quanti, 7);
}

TEST(RuotaSingola, LineeDegliAspettiEIloroColori) {
    // Sole 0, Luna 121, Mercurio 33, Marte 271, Giove 214, Saturno 135, Urano 1.5; the others
    // far from any aspect of the table's majors, SesquiQuadratura and Quinconce.
    const std::array<double, 12> corpi{0, 121, 33, 177, 271, 214, 135, 1.5, 324, 321, 288, 222};
    Posizioni p = PosizioniDiProva(corpi, {353, 20, 50, 37, 300, 330});
    OpzioniRuota o;
    const Disegnata senza = Disegna(p, o);
    EXPECT_TRUE(LineeAspetto(senza).empty());

    o.DisegnaAspetti = true;
    const Disegnata d = Disegna(p, o);
    auto linee = LineeAspetto(d);
    EXPECT_EQ(linee.size(), 8u);
    EXPECT_EQ(Linee(linee, 0, 121, Blu), 1);   // trine
    EXPECT_EQ(Linee(linee, 0, 271, Rosso), 1); // square
    EXPECT_EQ(Linee(linee, 0, 1.5, Nero), 1);  // conjunction in the pen's colour
    EXPECT_EQ(Linee(linee, 121, 33, Rosso), 1);
    EXPECT_EQ(Linee(linee, 121, 1.5, Blu), 1);
    EXPECT_EQ(Linee(linee, 33, 271, Blu), 1);
    EXPECT_EQ(Linee(linee, 33, 214, Blu), 1); // opposition
    EXPECT_EQ(Linee(linee, 271, 1.5, Rosso), 1);

    // The majors off, SesquiQuadratura and Quinconce on.
    o.Aspetti.AspettoAttivo.fill(0);
    o.Aspetti.AspettoAttivo[13] = -1;
    o.Aspetti.AspettoAttivo[15] = -1;
    const Disegnata minori = Disegna(p, o);
    linee = LineeAspetto(minori);
    EXPECT_EQ(linee.size(), 5u);
    EXPECT_EQ(Linee(linee, 121, 271, Rosso), 1); // Quinconce
    EXPECT_EQ(Linee(linee, 214, 1.5, Rosso), 1);
    EXPECT_EQ(Linee(linee, 0, 135, Nero), 1); // SesquiQuadratura
    EXPECT_EQ(Linee(linee, 271, 135, Nero), 1);
    EXPECT_EQ(Linee(linee, 135, 1.5, Nero), 1);

    // A wide orb: one pair in several aspects draws one line for each.
    o.Aspetti.AspettoAttivo.fill(-1);
    o.Aspetti.Orbita = 16;
    const Disegnata larga = Disegna(p, o);
    EXPECT_EQ(Linee(LineeAspetto(larga), 0, 33, Nero) + Linee(LineeAspetto(larga), 0, 33, Rosso),
              3); // 30 (SemiSestile, red), 40 and 45 in the pen's colour
}
