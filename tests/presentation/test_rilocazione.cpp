// The relocation of a revolution: steps, refusals, the chart cast again and the map's mark.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "presentation/Rilocazione.h"

using namespace vesmo;

namespace {

constexpr double JDRiv = 2461000.3; // 0.8 of the day from 0h of its date, Greenwich

// A revolution cast at Padova (11E53, 45N24) on its zone with summer time.
Sessione ConRivoluzione() {
    Sessione s;
    Tema t;
    t.Nome = "Prova Riv";
    t.Stato = "Italia";
    t.City = "Padova";
    t.Lon = -0.7925;
    t.Lat = 45.4;
    t.Fuso = -1;
    t.Estiva = 1;
    t.Day = 2460999.5;
    t.OraL = 21.2; // TU = OraL - Estiva + Fuso = 19.2
    s.TemaRiv = s.TemaZ = t;
    s.JDRivoluzione = JDRiv;
    MessaggiRegistrati m;
    Case c;
    CastaTema(s.TemaRiv, c, s.PosRiv, s.LunaGeo, m);
    s.PosZ = s.PosRiv;
    return s;
}

} // namespace

TEST(Rilocazione, PassoZeroRifaIlTemaSulTempoMedioLocale) {
    Sessione s = ConRivoluzione();
    MessaggiRegistrati m;
    EXPECT_EQ(Rilocazione(s, AsseRilocazione::EstOvest, 0, m), EsitoRilocazione::Rilocata);
    EXPECT_TRUE(m.registro.empty());
    const Tema& z = s.TemaZ;
    EXPECT_EQ(std::make_tuple(z.Lon, z.Fuso, z.Estiva), std::make_tuple(-0.7925, -0.7925, 0.0));
    EXPECT_EQ(z.City.str(), "Jolly" + std::string(25, ' '));
    EXPECT_EQ(z.Stato.str(), "Jolly" + std::string(33, ' '));
    // Day is 0h of the revolution's date; the clock reads 19.2 h Greenwich plus 0.7925 h east.
    EXPECT_DOUBLE_EQ(z.Day, 2460999.5);
    EXPECT_NEAR(z.OraL, 19.9925, 1e-7);
    EXPECT_NEAR(z.JD(), JDRiv, 1e-9);
    EXPECT_EQ(s.TemaRiv, z);
    // The slot is cast at the same instant and place: the same positions as before, but for
    // the rounding of the clock reading written again (1e-8 hours).
    Sessione prima = ConRivoluzione();
    const double gradiTolleranza = 1e-6;
    EXPECT_NEAR(s.PosRiv.Asce.Lo, prima.PosRiv.Asce.Lo, gradiTolleranza);
    EXPECT_NEAR(s.PosRiv.Luna.Lo, prima.PosRiv.Luna.Lo, gradiTolleranza);
    EXPECT_EQ(s.PosZ, s.PosRiv);
}

TEST(Rilocazione, PassiVersoOvestENord) {
    Sessione s = ConRivoluzione();
    MessaggiRegistrati m;
    // One degree west: 1/15 hour more; the Midheaven moves one degree of right ascension back.
    const double mcPrima = s.PosRiv.MC.AR.Numero();
    EXPECT_EQ(Rilocazione(s, AsseRilocazione::EstOvest, 1, m), EsitoRilocazione::Rilocata);
    EXPECT_NEAR(s.TemaZ.Lon, -0.7925 + 1.0 / 15, 1e-12);
    const double oreTolleranza = 1e-7;
    EXPECT_NEAR(std::remainder(s.PosRiv.MC.AR.Numero() - mcPrima, 24), -1.0 / 15, oreTolleranza);
    EXPECT_NEAR(s.TemaRiv.JD(), JDRiv, 1e-9);
    // Thirty minutes of arc north.
    EXPECT_EQ(Rilocazione(s, AsseRilocazione::NordSud, PassoRilocazione(30, true), m),
              EsitoRilocazione::Rilocata);
    EXPECT_NEAR(s.TemaZ.Lat, 45.9, 1e-12);
    EXPECT_EQ(TestoCoordinateRilocate(s.TemaZ), "10E53   45N54");
}

TEST(Rilocazione, Rifiuti) {
    struct Caso {
        const char* perche;
        double lon, lat;
        AsseRilocazione asse;
        double passo;
        bool rivoluzione;
        EsitoRilocazione esito;
        const char* titolo;
        const char* testo;
        Icona icona;
    };
    const Caso casi[] = {
        {"11.99 h + 1 grado", 11.99, 45, AsseRilocazione::EstOvest, 1, true,
         EsitoRilocazione::FuoriLongitudine, "Lyx - Info Rivoluzioni", "Longitudine > 180°",
         Icona::Esclamativo},
        {"verso est", -11.99, 45, AsseRilocazione::EstOvest, -1, true,
         EsitoRilocazione::FuoriLongitudine, "Lyx - Info Rivoluzioni", "Longitudine > 180°",
         Icona::Esclamativo},
        {"89.5 + 1", 0, 89.5, AsseRilocazione::NordSud, 1, true, EsitoRilocazione::FuoriLatitudine,
         "Lyx - Info Rivoluzioni", "Latitudine > 90°", Icona::Esclamativo},
        {"senza rivoluzione", 0, 45, AsseRilocazione::NordSud, 1, false,
         EsitoRilocazione::SenzaRivoluzione, "Lyx - Info Rilocate", "Necessaria Rivoluzione!",
         Icona::Informazione},
    };
    for (const Caso& c : casi) {
        Sessione s = ConRivoluzione();
        s.TemaZ.Lon = c.lon;
        s.TemaZ.Lat = c.lat;
        if (!c.rivoluzione) s.JDRivoluzione = -1.0;
        const Sessione prima = s;
        MessaggiRegistrati m;
        EXPECT_EQ(Rilocazione(s, c.asse, c.passo, m), c.esito) << c.perche;
        ASSERT_EQ(m.registro.size(), 1u) << c.perche;
        EXPECT_EQ(m.registro[0].titolo, c.titolo) << c.perche;
        EXPECT_EQ(m.registro[0].testo, c.testo) << c.perche;
        EXPECT_EQ(m.registro[0].icona, c.icona) << c.perche;
        EXPECT_EQ(s.TemaRiv, prima.TemaRiv) << c.perche;
        EXPECT_EQ(s.PosRiv, prima.PosRiv) << c.perche;
        if (c.rivoluzione) {
            EXPECT_EQ(s.TemaZ, prima.TemaZ) << c.perche;
        } else {
            // The new place stays in the outer chart.
            EXPECT_DOUBLE_EQ(s.TemaZ.Lat, 46) << c.perche;
            EXPECT_DOUBLE_EQ(s.TemaZ.Fuso, s.TemaZ.Lon) << c.perche;
        }
    }
}

TEST(SegnaMappa, CroceConLeCorrezioniDiLatitudine) {
    // The picture box of 357 by 186 pixels: W 5355, H 2790 twips. x0 = 2557.5, y0 = 1755.
    const double W = 5355, H = 2790;
    struct Caso {
        double lon, lat, dx, dy;
    };
    const Caso casi[] = {
        {0, 0, 0, 0},
        {6, 45, 1338.75, 697.5},               // 90 degrees west, to the left
        {-3, 60, -669.375, 930},               // 60 north: no correction yet
        {0, 70, 0, 1085 + 10 * 360.0 / 24},    // above 60: 15 twips a degree more
        {0, -30, 0, -465},                     // 30 south: no correction yet
        {0, -45, 0, -697.5 - 15 * 216.0 / 60}, // beyond 30 south: 3.6 twips a degree more
    };
    for (const Caso& c : casi) {
        SegnoMappa s = SegnaMappa(c.lon, c.lat, W, H);
        EXPECT_NEAR(s.x, 2557.5 - c.dx, 1e-9) << c.lat;
        EXPECT_NEAR(s.yDa, 1395 - c.dy, 1e-9) << c.lat;
        EXPECT_NEAR(s.yA, 11 * H / 14 - c.dy, 1e-9) << c.lat;
        EXPECT_NEAR(s.y, 1755 - c.dy, 1e-9) << c.lat;
        EXPECT_NEAR(s.xDa, 2142 - c.dx, 1e-9) << c.lat;
        EXPECT_NEAR(s.xA, 2997 - c.dx, 1e-9) << c.lat;
    }
}
