// Dignities: the birth by day or night and the Ascendant's rulers (the window shows them; the
// printed page checks the dignities and the counts).
#include <gtest/gtest.h>

#include <tuple>

#include "chart/Dignita.h"

using namespace vesmo;

namespace {

// A chart with every body at `lo` unless set otherwise.
Posizioni Tutti(double lo) {
    Posizioni p;
    for (auto* q : {&p.Sole, &p.Luna, &p.Mercurio, &p.Venere, &p.Marte, &p.Giove, &p.Saturno,
                    &p.Urano, &p.Nettuno, &p.Plutone, &p.Asce, &p.MC})
        q->Lo = lo;
    return p;
}

} // namespace

TEST(Dignita, NascitaEReggenti) {
    Posizioni p = Tutti(15);
    Domicili d = CalcolaDomicili(p); // Sun on the Ascendant
    EXPECT_EQ(d.Nascita, " sull'Asse AscDisc");
    EXPECT_EQ(d.ReggenteDiurno + "|" + d.ReggenteNotturno, "^|G"); // day and night rulers
    p.Sole.Lo = 195;                                               // opposite: on the axis too
    EXPECT_EQ(CalcolaDomicili(p).Nascita, " sull'Asse AscDisc");
    p.Sole.Lo = 300; // above the horizon: the Sun is 285° past the Ascendant
    EXPECT_EQ(CalcolaDomicili(p).Nascita, " Diurna");
    p.Sole.Lo = 100;
    EXPECT_EQ(CalcolaDomicili(p).Nascita, " Notturna");
    p.Asce.Lo = 45; // Toro: no day ruler, Venus by night
    d = CalcolaDomicili(p);
    EXPECT_EQ(d.ReggenteDiurno + "|" + d.ReggenteNotturno, "|E");
}

// Mercury's dignity qualified by day or night, with its exaltation or fall in the same entry:
// one box holds it.
TEST(Dignita, MercurioQualificatoInUnaCasella) {
    Posizioni p = Tutti(100); // Cancro
    const std::tuple<double, std::size_t, const char*> casi[] = {
        {75, 0, "  Mercurio(Notturno)"},              // Gemelli
        {160, 0, "  Mercurio(Diurno + Esaltazione)"}, // Vergine
        {345, 1, "  Mercurio(Diurno + Caduta)"}};     // Pesci
    for (const auto& [lo, casella, testo] : casi) {
        p.Mercurio.Lo = lo;
        const Domicili d = CalcolaDomicili(p);
        EXPECT_NE(d.Dignita[casella].find(testo), std::string::npos) << lo;
        int caselle = 0;
        for (const std::string& t : d.Dignita)
            caselle += t.find("Mercurio") != std::string::npos;
        EXPECT_EQ(caselle, 1) << lo;
    }
}
