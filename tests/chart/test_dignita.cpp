// Dignities: modalities, elements, qualified dignities by day or night, the Ascendant's rulers.
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

TEST(Dignita, MercurioNotturnoEDiurno) {
    Posizioni p = Tutti(100); // Cancro
    p.Mercurio.Lo = 75;       // Gemelli
    Domicili d = CalcolaDomicili(p);
    EXPECT_NE(d.Dignita[0].find("  Mercurio(Notturno)"), std::string::npos);
    p.Mercurio.Lo = 160; // Vergine
    d = CalcolaDomicili(p);
    EXPECT_NE(d.Dignita[0].find("  Mercurio(Diurno + Esaltazione)"), std::string::npos);
    EXPECT_EQ(d.Dignita[2].find("Mercurio"), std::string::npos);
    p.Mercurio.Lo = 345; // Pesci
    d = CalcolaDomicili(p);
    EXPECT_NE(d.Dignita[1].find("  Mercurio(Diurno + Caduta)"), std::string::npos);
    EXPECT_EQ(d.Dignita[3].find("Mercurio"), std::string::npos);
}

TEST(Dignita, CasiDellaTabella) {
    Posizioni p = Tutti(200); // Bilancia
    p.Venere.Lo = 350;        // Pesci: exaltation, no qualifier
    p.Plutone.Lo = 10;        // Ariete: the table shows it, nothing counts
    Domicili d = CalcolaDomicili(p);
    EXPECT_NE(d.Dignita[2].find("  Venere"), std::string::npos);
    EXPECT_EQ(d.Dignita[2].find("  Venere("), std::string::npos);
    for (const auto& testo : d.Dignita)
        EXPECT_EQ(testo.find("Plutone"), std::string::npos);
    // In Bilancia: Sun fall, Saturn exaltation, Mars exile by night, Venus domicile by day
    // (but Venus was moved), Giove nothing.
    EXPECT_NE(d.Dignita[3].find("  Sole"), std::string::npos);
    EXPECT_NE(d.Dignita[2].find("  Saturno"), std::string::npos);
    EXPECT_NE(d.Dignita[1].find("  Marte(Notturno)"), std::string::npos);
    EXPECT_EQ(d.ContiDignita[0] + d.ContiDignita[1] + d.ContiDignita[2] + d.ContiDignita[3], 4);
    EXPECT_EQ(d.Dignita[0], "");
}

TEST(Dignita, ModalitaEdElementiContanoAncheAsceEMC) {
    Posizioni p = Tutti(15); // Ariete
    p.Luna.Lo = 45;          // Toro
    p.MC.Lo = 250;           // Sagittario
    Domicili d = CalcolaDomicili(p);
    EXPECT_EQ(std::make_tuple(d.ContiModalita[0], d.ContiModalita[1], d.ContiModalita[2]),
              std::make_tuple(10, 1, 1));
    EXPECT_EQ(d.Modalita[2], "  MC");
    EXPECT_EQ(d.ContiElementi[0], 11);
    EXPECT_EQ(d.Elementi[1], "  Luna");
    EXPECT_EQ(d.Modalita[0].substr(0, 12), "  Sole  Merc");
    EXPECT_NE(d.Modalita[0].find("  ASC"), std::string::npos);
}

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
