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

bool SulCerchio(double x, double y, double r) {
    return Vicino(std::hypot(x - CX, y - CY), r);
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
    // Each glyph's box of 350 centred on its ring's circle; outer glyphs outward from R1, navy.
    auto glifo = [&](double raggio, Colore c) {
        return Contiene(s.figure,
                        FigureDelGlifo(GlifoCorpo(RuotaLuna), 350, Px(CX, raggio, 57.5) - 175,
                                       Py(CY, raggio, 57.5) - 175, c));
    };
    EXPECT_TRUE(glifo(R2 - 700, Nero));
    EXPECT_TRUE(glifo(R1 + 350, BluNotte));
    EXPECT_DOUBLE_EQ(r.esterni[2].X, Px(CX, R1, 57.5));
    EXPECT_EQ(r.esterni[13].Nome + r.esterni[14].Nome, "AscMC");
    // The surface is cleared first; each sign symbol's box is centred at R2 + 200 in the middle
    // of its sign, in the symbols' font, which is put back after.
    EXPECT_EQ(s.figure.front().tipo, Figura::Pulisci);
    auto testi = DelTipo(s.figure, Figura::Testo);
    ASSERT_GE(testi.size(), 12u);
    EXPECT_EQ(testi[0].testo + testi[11].testo, "\u2648\u2653");
    EXPECT_DOUBLE_EQ(testi[0].x1 + testi[0].rx, Px(CX, R2 + 200, 15));
    EXPECT_DOUBLE_EQ(testi[0].y1 + testi[0].ry, Py(CY, R2 + 200, 15));
    EXPECT_EQ(testi[0].carattere, CarattereSimboli);
    EXPECT_EQ(s.Carattere(), CarattereNormale);
}

TEST(RuotaDoppia, ComparatiSenzaCongiunzioniEConIFiltri) {
    Posizioni interno = PosizioniDiProva(Con(Sparsi, 1, 100.5), CuspidiComuni);
    Posizioni esterno = PosizioniDiProva(Con(Con(Sparsi, 5, 100), 6, 160), CuspidiComuni);
    // The inner Sole against the outer Marte and Giove.
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
    // Midheaven at 300.
    Posizioni interno = PosizioniDiProva(Con(Sparsi, 1, 60), CuspidiComuni);
    Posizioni esterno = PosizioniDiProva(Sparsi, {0, 30, 60, 300, 320, 340});
    OpzioniDoppia o{.CaseEsterne = false,
                    .Transito = true,
                    .DisegnaAspettiCmp = true,
                    .List1 = {false, true},
                    .List2 = {}};
    o.List2[13] = o.List2[14] = true;
    auto disegna = [&] {
        SuperficieRegistrata s;
        DisegnaDoppia(s, TemaDiProva(), interno, TemaDiProva(), esterno, o);
        return s;
    };
    SuperficieRegistrata s = disegna();
    EXPECT_EQ(CuspidiEsterneDisegnate(s), 0);
    EXPECT_TRUE(LineeComparate(s, Ciano).empty());
    // After CaseTra: the cusps, both lines, the house numbers 3 degrees past their cusp.
    o.CaseEsterne = true;
    s = disegna();
    EXPECT_EQ(CuspidiEsterneDisegnate(s), 12);
    EXPECT_EQ(LineeComparate(s, Ciano).size(), 2u);
    bool uno = false;
    for (const Figura& t : DelTipo(s.figure, Figura::Testo))
        uno |= t.testo == "1" && t.colore == BluNotte && Vicino(t.x1, Px(CX, R1 + 500, 3));
    EXPECT_TRUE(uno);
    // A revolution wheel keeps its outer angles whatever CaseEsterne holds.
    o.Transito = o.CaseEsterne = false;
    EXPECT_EQ(LineeComparate(disegna(), Ciano).size(), 2u);
}

TEST(RuotaDoppia, AspettiInterniGrigiEsterniBlu) {
    // Trines only, among the 14 points at 50, 57.5, 100, 140, 170, 200, 230, 260, 290, 320, 350,
    // 20, Asc 170, MC 80: Sole with Marte, Asc and Nettuno; Venere with Urano and Lilith;
    // Marte-Nettuno, Nettuno-Asc, Giove with Plutone and MC, Saturno-Nodo, Urano-Lilith,
    // Plutone-MC: 12, four of them ending on Asc or MC.
    Posizioni p = PosizioniDiProva(Sparsi, {170, 200, 230, 80, 110, 140});
    OpzioniDoppia o;
    o.DisegnaAspetti = o.DisegnaAspettiEst = true;
    o.Aspetti.AspettoAttivo.fill(0);
    o.Aspetti.AspettoAttivo[3] = -1;
    auto conta = [&](Colore c, double r) {
        SuperficieRegistrata s;
        DisegnaDoppia(s, TemaDiProva(), p, TemaDiProva(), p, o);
        int n = 0;
        for (const Figura& f : DelTipo(s.figure, Figura::Linea))
            n += f.colore == c && SulCerchio(f.x1, f.y1, r) && SulCerchio(f.x2, f.y2, r) &&
                 !Vicino(f.x1, f.x2);
        return n;
    };
    EXPECT_EQ(conta(Grigio, R2), 12);
    EXPECT_EQ(conta(Blu, R1), 12);
    // A transit without its houses leaves out the pairs ending on Asc and MC, outside only.
    o.Transito = true;
    o.CaseEsterne = false;
    EXPECT_EQ(conta(Blu, R1), 8);
    EXPECT_EQ(conta(Grigio, R2), 12);
}

// House 7 stands opposite house 1 in both charts, so the outer zodiac turns by the same angle
// for both and they draw the same comparati lines, also when the turn passes a full circle
// (outer cusp VII at 20: 180 + 360 - 20). A square is red, a sextile cyan, a conjunction nothing.
TEST(DoppioZodiaco, Case1E7StesseLineeEIColori) {
    Posizioni interno = PosizioniDiProva(Sparsi, CuspidiComuni);
    Posizioni esterno = PosizioniDiProva(Sparsi, {200, 230, 260, 110, 140, 170});
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
    // Casa 1 turns the outer zodiac by 360 - 200; casa 7 by (190 - 10) + (360 - 20), a turn more.
    double angolo1 = 0, angolo7 = 0;
    const std::vector<Figura> casa1 = linee(1, angolo1), casa7 = linee(7, angolo7);
    EXPECT_DOUBLE_EQ(angolo1, 160);
    EXPECT_NEAR(angolo7, 160, 1e-9); // degrees
    ASSERT_FALSE(casa1.empty());
    ASSERT_EQ(casa7.size(), casa1.size());
    for (std::size_t k = 0; k < casa1.size(); ++k)
        EXPECT_TRUE(Uguali(casa1[k], casa7[k])) << k;

    // Inner Sole at 60, outer Marte at 150, 90 away after both turns of 350: one red line (the
    // sextile's cyan and the conjunction's no line are the double wheel's as well).
    interno = PosizioniDiProva(Con(Sparsi, 1, 60), CuspidiComuni);
    esterno = PosizioniDiProva(Con(Sparsi, 5, 150), CuspidiComuni);
    o.List1 = {false, true};
    o.List2 = {};
    o.List2[5] = true;
    const std::vector<Figura> quadrato = linee(1, angolo1);
    ASSERT_EQ(quadrato.size(), 1u);
    EXPECT_EQ(quadrato[0].colore, Rosso);
}

TEST(Anteprima, SimboliNumeriETesti) {
    Tema t = TemaDiProva();
    t.Estiva = 1;
    SuperficieRegistrata s;
    DisegnaAnteprima(s, t, PosizioniDiProva(Sparsi, CuspidiComuni));
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
