// The double wheel, the double zodiac and the preview wheel: rings, filters and lines.
#include <gtest/gtest.h>

#include "Disegno.h"
#include "Temi.h"
#include "presentation/Anteprima.h"
#include "presentation/RuotaDoppia.h"

using namespace vesmo;
using namespace vesmo::prova;

namespace {

constexpr double CX = 7000, CY = 4000, R2 = 2400, R1 = 2900;

const std::array<double, 12> Sparsi{50, 57.5, 100, 140, 170, 200, 230, 260, 290, 320, 350, 20};

std::array<double, 12> Con(std::array<double, 12> a, std::size_t i, double lo) {
    a[i - 1] = lo;
    return a;
}

bool SulCerchio(double x, double y, double r, double cx = CX, double cy = CY) {
    return Vicino(std::hypot(x - cx, y - cy), r);
}

// Lines from the inner circle R2 to the outer circle R1 in colour c.
std::vector<Figura> LineeComparate(const SuperficieRegistrata& s, Colore c) {
    std::vector<Figura> r;
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        if (f.colore == c && SulCerchio(f.x1, f.y1, R2) && SulCerchio(f.x2, f.y2, R1))
            r.push_back(f);
    return r;
}

int CuspidiEsterneDisegnate(const SuperficieRegistrata& s) {
    int n = 0;
    for (const Figura& f : DelTipo(s.figure, Figura::Linea))
        n += f.colore == BluNotte && SulCerchio(f.x1, f.y1, R1) && SulCerchio(f.x2, f.y2, R1 + 500);
    return n;
}

} // namespace

TEST(RuotaDoppia, AnelliInterniAOttoEsterniASette) {
    Posizioni p = PosizioniDiProva(Sparsi, CuspidiComuni);
    SuperficieRegistrata s;
    auto r = DisegnaDoppia(s, TemaDiProva(), p, TemaDiProva(), p, OpzioniDoppia{});
    // Sole 50 and Luna 57.5: apart on the inner wheel, together on the outer.
    EXPECT_EQ(r.interni[2].Anello, 2);
    EXPECT_EQ(r.esterni[2].Anello, 1);
    // Each glyph's box of 350 is centred on its ring's circle at the body's longitude.
    EXPECT_TRUE(
        Contiene(s.figure, FigureDelGlifo(GlifoCorpo(RuotaLuna), 350, Px(CX, R2 - 700, 57.5) - 175,
                                          Py(CY, R2 - 700, 57.5) - 175, Nero)));
    // Outer glyphs go outward from R1, in navy, with their ticks outward.
    EXPECT_TRUE(
        Contiene(s.figure, FigureDelGlifo(GlifoCorpo(RuotaLuna), 350, Px(CX, R1 + 350, 57.5) - 175,
                                          Py(CY, R1 + 350, 57.5) - 175, BluNotte)));
    EXPECT_DOUBLE_EQ(r.esterni[2].X, Px(CX, R1, 57.5));
    EXPECT_EQ(r.esterni[13].Nome, "Asc");
    EXPECT_EQ(r.esterni[14].Nome, "MC");
    // The surface is cleared first; the sign symbols stand in the middle of each sign.
    EXPECT_EQ(s.figure.front().tipo, Figura::Pulisci);
    auto testi = DelTipo(s.figure, Figura::Testo);
    ASSERT_GE(testi.size(), 12u);
    EXPECT_EQ(testi[0].testo, "\u2648");
    // Each symbol's box is centred at R2 + 200 in the middle of its sign.
    EXPECT_DOUBLE_EQ(testi[0].x1 + testi[0].rx, Px(CX, R2 + 200, 15));
    EXPECT_DOUBLE_EQ(testi[0].y1 + testi[0].ry, Py(CY, R2 + 200, 15));
    EXPECT_EQ(testi[0].carattere, CarattereSimboli);
    EXPECT_EQ(testi[11].testo, "\u2653");
    // The font is put back.
    EXPECT_EQ(s.Carattere(), CarattereNormale);
}

TEST(RuotaDoppia, ComparatiSenzaCongiunzioniEConIFiltri) {
    Posizioni interno = PosizioniDiProva(Con(Sparsi, 1, 100.5), CuspidiComuni);
    Posizioni esterno =
        PosizioniDiProva(Con(Con(Sparsi, 5, 100), 6, 160), CuspidiComuni); // Marte, Giove
    // Sole against Marte and Giove.
    OpzioniDoppia o{.DisegnaAspettiCmp = true, .List1 = {false, true}, .List2 = {}};
    o.List2[5] = o.List2[6] = true;
    SuperficieRegistrata s;
    DisegnaDoppia(s, TemaDiProva(), interno, TemaDiProva(), esterno, o);
    // The conjunction with Marte draws nothing; the sextile with Giove a cyan line.
    auto linee = LineeComparate(s, Ciano);
    ASSERT_EQ(linee.size(), 1u);
    EXPECT_NEAR(linee[0].x1, Px(CX, R2, 100.5), TolleranzaTwips);
    EXPECT_NEAR(linee[0].x2, Px(CX, R1, 160), TolleranzaTwips);
    EXPECT_NEAR(linee[0].y2, Py(CY, R1, 160), TolleranzaTwips);

    // The solar arc turns the outer chart 30 degrees counterclockwise, and the lines join the
    // positions as drawn: Marte at 70.5 is drawn at 100.5, on the inner Sole (a conjunction, no
    // line); Giove at 190 is drawn at 220, 119.5 degrees on (a trine within the orb of 2.5).
    Posizioni spostato = PosizioniDiProva(Con(Con(Sparsi, 5, 70.5), 6, 190), CuspidiComuni);
    o.Aspetti.ArcoSolare = 30;
    SuperficieRegistrata a;
    auto r = DisegnaDoppia(a, TemaDiProva(), interno, TemaDiProva(), spostato, o);
    linee = LineeComparate(a, Ciano);
    ASSERT_EQ(linee.size(), 1u);
    EXPECT_NEAR(linee[0].x2, Px(CX, R1, 220), TolleranzaTwips);
    EXPECT_NEAR(linee[0].y2, Py(CY, R1, 220), TolleranzaTwips);
    EXPECT_NEAR(r.esterni[6].Y, Py(CY, R1, 220), TolleranzaTwips);
    EXPECT_NEAR(r.esterni[5].X, Px(CX, R1, 100.5), TolleranzaTwips);

    // "TUTTI" selected with other rows: the release leaves it alone.
    SelezioneComparati lista{true, true, false, true};
    RilascioComparati(lista);
    EXPECT_EQ(lista, SoloTutti());
}

TEST(RuotaDoppia, TransitoSenzaCaseEsterne) {
    // Inner Sole at 60 makes a sextile with the transit's Ascendant at 0 and a trine with its
    // Midheaven at 300; outer bodies sextile each other and the outer Ascendant.
    Posizioni interno = PosizioniDiProva(Con(Sparsi, 1, 60), CuspidiComuni);
    std::array<double, 6> cuspidiEsterne{0, 30, 60, 300, 320, 340};
    Posizioni esterno = PosizioniDiProva(Sparsi, cuspidiEsterne);
    OpzioniDoppia o{.CaseEsterne = false,
                    .Transito = true,
                    .DisegnaAspettiCmp = true,
                    .List1 = {false, true},
                    .List2 = {}};
    o.List2[13] = o.List2[14] = true;
    SuperficieRegistrata s;
    DisegnaDoppia(s, TemaDiProva(), interno, TemaDiProva(), esterno, o);
    EXPECT_EQ(CuspidiEsterneDisegnate(s), 0);
    EXPECT_TRUE(LineeComparate(s, Ciano).empty());
    // After CaseTra: the cusps and both lines.
    o.CaseEsterne = true;
    SuperficieRegistrata c;
    DisegnaDoppia(c, TemaDiProva(), interno, TemaDiProva(), esterno, o);
    EXPECT_EQ(CuspidiEsterneDisegnate(c), 12);
    EXPECT_EQ(LineeComparate(c, Ciano).size(), 2u);
    // Outer house numbers 3 degrees past their cusp, at R1 + 500.
    bool uno = false;
    for (const Figura& t : DelTipo(c.figure, Figura::Testo))
        uno |= t.testo == "1" && t.colore == BluNotte && Vicino(t.x1, Px(CX, R1 + 500, 3));
    EXPECT_TRUE(uno);
    // A revolution wheel keeps its outer angles whatever CaseEsterne holds.
    o.Transito = false;
    o.CaseEsterne = false;
    SuperficieRegistrata rv;
    DisegnaDoppia(rv, TemaDiProva(), interno, TemaDiProva(), esterno, o);
    EXPECT_EQ(LineeComparate(rv, Ciano).size(), 2u);
}

TEST(RuotaDoppia, AspettiInterniGrigiEsterniBlu) {
    // Sole 50 and Nettuno 290: a trine on both sides; the outer Sole also trines the outer
    // Ascendant at 170 (a transit without its houses leaves that line out).
    std::array<double, 6> cuspidi{170, 200, 230, 80, 110, 140};
    Posizioni p = PosizioniDiProva(Sparsi, cuspidi);
    OpzioniDoppia o;
    o.DisegnaAspetti = o.DisegnaAspettiEst = true;
    o.Aspetti.AspettoAttivo.fill(0);
    o.Aspetti.AspettoAttivo[3] = -1;
    auto conta = [&](const OpzioniDoppia& oo, Colore c, double r) {
        SuperficieRegistrata s;
        DisegnaDoppia(s, TemaDiProva(), p, TemaDiProva(), p, oo);
        int n = 0;
        for (const Figura& f : DelTipo(s.figure, Figura::Linea))
            n += f.colore == c && SulCerchio(f.x1, f.y1, r) && SulCerchio(f.x2, f.y2, r) &&
                 !Vicino(f.x1, f.x2);
        return n;
    };
    // Trines among the 14 points at 50, 57.5, 100, 140, 170, 200, 230, 260, 290, 320, 350,
    // 20, Asc 170, MC 80: Sole with Marte, Asc and Nettuno; Venere with Urano and Lilith;
    // Marte-Nettuno, Nettuno-Asc, Giove with Plutone and MC, Saturno-Nodo, Urano-Lilith,
    // Plutone-MC: 12, four of them ending on Asc or MC.
    int interni = conta(o, Grigio, R2);
    int esterni = conta(o, Blu, R1);
    EXPECT_EQ(interni, 12);
    EXPECT_EQ(esterni, 12);
    o.Transito = true;
    o.CaseEsterne = false;
    // Without the transit's houses, the pairs ending on Asc (170) and MC (80) go.
    EXPECT_EQ(conta(o, Blu, R1), esterni - 4);
    EXPECT_EQ(conta(o, Grigio, R2), interni);
}

TEST(DoppioZodiaco, LaStessaCasaNelloStessoPunto) {
    Posizioni interno = PosizioniDiProva(Sparsi, CuspidiComuni);
    std::array<double, 6> altre{100, 125, 150, 20, 45, 70};
    Posizioni esterno = PosizioniDiProva(Sparsi, altre);
    OpzioniDoppia o;
    SuperficieRegistrata s;
    auto r = DisegnaDoppioZodiaco(s, TemaDiProva(), interno, TemaDiProva(), esterno, o, 5);
    EXPECT_DOUBLE_EQ(r.AngoloRuota, 350);
    // Inner cusp 5 opposite XI (310): 130. Outer cusp 5 opposite 45: 225.
    EXPECT_DOUBLE_EQ(r.AngoloEsterno, (130 - 10) + (360 - 225));
    const double cx = 7800, cy = 4000;
    auto angolo = [&](const Figura& f) { return std::atan2(f.y2 - cy, f.x2 - cx); };
    Figura interna{}, esterna{};
    for (const Figura& f : DelTipo(s.figure, Figura::Linea)) {
        if (SulCerchio(f.x1, f.y1, 500, cx, cy) && SulCerchio(f.x2, f.y2, 2000, cx, cy) &&
            Vicino(f.x2, Px(cx, 2000, 130, 350)) && Vicino(f.y2, Py(cy, 2000, 130, 350)))
            interna = f;
        if (f.colore == BluNotte && SulCerchio(f.x1, f.y1, 2500, cx, cy) &&
            SulCerchio(f.x2, f.y2, 3600, cx, cy) &&
            Vicino(f.x2, Px(cx, 3600, 225, r.AngoloEsterno)) &&
            Vicino(f.y2, Py(cy, 3600, 225, r.AngoloEsterno)))
            esterna = f;
    }
    ASSERT_NE(interna.x2, 0);
    ASSERT_NE(esterna.x2, 0);
    EXPECT_NEAR(angolo(interna), angolo(esterna), 1e-9); // radians
    // The outer bodies hang inward from the second ring at 3600, rings at 7 degrees.
    EXPECT_TRUE(
        Contiene(s.figure, FigureDelGlifo(GlifoCorpo(RuotaLuna), 350,
                                          Px(cx, 3250, 57.5, r.AngoloEsterno) - 175,
                                          Py(cy, 3250, 57.5, r.AngoloEsterno) - 175, BluNotte)));
    // Two sign rings: 24 symbols.
    int simboli = 0;
    for (const Figura& t : DelTipo(s.figure, Figura::Testo))
        simboli += t.carattere == CarattereSimboli;
    EXPECT_EQ(simboli, 24);
}

// House 7 stands opposite house 1 in both charts, so the outer zodiac turns by the same angle
// for both and they draw the same comparati lines, also when the turn passes a full circle
// (outer cusp VII at 20: 180 + 360 - 20).
TEST(DoppioZodiaco, Case1E7StesseLinee) {
    Posizioni interno = PosizioniDiProva(Sparsi, CuspidiComuni);
    Posizioni esterno =
        PosizioniDiProva(Sparsi, std::array<double, 6>{200, 230, 260, 110, 140, 170});
    OpzioniDoppia o{.DisegnaAspettiCmp = true};
    o.List1[0] = o.List2[0] = true;
    auto linee = [&](int casa, double& angolo) {
        SuperficieRegistrata s;
        angolo = DisegnaDoppioZodiaco(s, TemaDiProva(), interno, TemaDiProva(), esterno, o, casa)
                     .AngoloEsterno;
        std::vector<Figura> r;
        for (const Figura& f : DelTipo(s.figure, Figura::Linea))
            if (f.colore == Rosso || f.colore == Ciano) r.push_back(f);
        return r;
    };
    double angolo1 = 0, angolo7 = 0;
    const std::vector<Figura> casa1 = linee(1, angolo1);
    const std::vector<Figura> casa7 = linee(7, angolo7);
    EXPECT_DOUBLE_EQ(angolo1, 160);
    EXPECT_NEAR(angolo7, 160, 1e-9); // degrees
    ASSERT_FALSE(casa1.empty());
    ASSERT_EQ(casa7.size(), casa1.size());
    for (std::size_t k = 0; k < casa1.size(); ++k)
        EXPECT_TRUE(Uguali(casa1[k], casa7[k])) << k;
}

TEST(DoppioZodiaco, QuadratureComparateInRosso) {
    // Inner Sole at 60 turned by 350 stands at 50; outer Marte at 0 turned by the outer
    // rotation stands 90 away from it.
    Posizioni interno = PosizioniDiProva(Con(Sparsi, 1, 60), CuspidiComuni);
    Posizioni esterno = PosizioniDiProva(Sparsi, CuspidiComuni);
    OpzioniDoppia o{.DisegnaAspettiCmp = true, .List1 = {false, true}, .List2 = {}};
    o.List2[5] = true;
    // Outer rotation for house 1: 350, the same as the inner one.
    auto trova = [&](double marte) {
        Posizioni e = esterno;
        e.Marte.Lo = marte;
        SuperficieRegistrata s;
        DisegnaDoppioZodiaco(s, TemaDiProva(), interno, TemaDiProva(), e, o, 1);
        std::vector<Colore> colori;
        for (const Figura& f : DelTipo(s.figure, Figura::Linea))
            if (f.colore == Rosso || f.colore == Ciano) colori.push_back(f.colore);
        return colori;
    };
    EXPECT_EQ(trova(150), std::vector<Colore>{Rosso}); // square
    EXPECT_EQ(trova(120), std::vector<Colore>{Ciano}); // sextile
    EXPECT_EQ(trova(60), std::vector<Colore>{});       // conjunction
}

TEST(Anteprima, SimboliNumeriETesti) {
    Posizioni p = PosizioniDiProva(Sparsi, CuspidiComuni);
    Tema t = TemaDiProva();
    t.Estiva = 1;
    SuperficieRegistrata s;
    DisegnaAnteprima(s, t, p);
    auto testi = DelTipo(s.figure, Figura::Testo);
    // 12 signs, 11 bodies, 12 house numbers, two lines of text.
    ASSERT_EQ(testi.size(), 37u);
    EXPECT_EQ(testi.back().testo, "Estiva =  1");
    EXPECT_EQ(testi.back().x1, 8800);
    EXPECT_EQ(testi[testi.size() - 2].testo, "1/1/2000  12:0");
    EXPECT_EQ(testi.back().carattere, CarattereNormale);
    // Sole and Luna 7.5 apart: within 9 degrees, Luna one ring in, moved by -175.
    const double cx = 7500, cy = 3250;
    EXPECT_EQ(testi[13].testo, "\u263D");
    EXPECT_NEAR(testi[13].x1, Px(cx, 1600 - 700, 57.5, 350) - 175, TolleranzaTwips);
    EXPECT_NEAR(testi[13].y1, Py(cy, 1600 - 700, 57.5, 350) - 175, TolleranzaTwips);
    // House numbers in the small font.
    EXPECT_EQ(testi[23].testo, "1");
    EXPECT_EQ(testi[23].carattere, CarattereNumeri);
}
