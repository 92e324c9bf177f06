// The relocation of a revolution with its refusals and the map's mark; the transit's steps in
// time with their carries and borrows.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <vector>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "presentation/PassiTema.h"
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

TEST(Rilocazione, PassiSulTempoMedioLocale) {
    Sessione s = ConRivoluzione();
    const Sessione prima = s;
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
    // The same instant and place: the same positions, but for the clock reading written again.
    constexpr double TolleranzaGradi = 1e-6; // degrees
    EXPECT_NEAR(s.PosRiv.Asce.Lo, prima.PosRiv.Asce.Lo, TolleranzaGradi);
    EXPECT_NEAR(s.PosRiv.Luna.Lo, prima.PosRiv.Luna.Lo, TolleranzaGradi);
    EXPECT_EQ(s.PosZ, s.PosRiv);

    // One degree west: 1/15 hour more; the Midheaven moves one degree of right ascension back.
    const double mcPrima = s.PosRiv.MC.AR.Numero();
    EXPECT_EQ(Rilocazione(s, AsseRilocazione::EstOvest, 1, m), EsitoRilocazione::Rilocata);
    EXPECT_NEAR(s.TemaZ.Lon, -0.7925 + 1.0 / 15, 1e-12);
    constexpr double TolleranzaOre = 1e-7; // hours
    EXPECT_NEAR(std::remainder(s.PosRiv.MC.AR.Numero() - mcPrima, 24), -1.0 / 15, TolleranzaOre);
    EXPECT_NEAR(s.TemaRiv.JD(), JDRiv, 1e-9);
    // Thirty minutes of arc north.
    EXPECT_EQ(Rilocazione(s, AsseRilocazione::NordSud, PassoRilocazione(30, true), m),
              EsitoRilocazione::Rilocata);
    EXPECT_NEAR(s.TemaZ.Lat, 45.9, 1e-12);
    EXPECT_EQ(TestoCoordinateRilocate(s.TemaZ), "10E53   45N54");
}

TEST(Rilocazione, Rifiuti) {
    struct Caso {
        double lon, lat;
        AsseRilocazione asse;
        double passo;
        bool rivoluzione;
        EsitoRilocazione esito;
        const char *titolo, *testo;
        Icona icona;
    };
    const Caso casi[] = {
        {11.99, 45, AsseRilocazione::EstOvest, 1, true, EsitoRilocazione::FuoriLongitudine,
         "Lyx - Info Rivoluzioni", "Longitudine > 180°", Icona::Esclamativo},
        {-11.99, 45, AsseRilocazione::EstOvest, -1, true, EsitoRilocazione::FuoriLongitudine,
         "Lyx - Info Rivoluzioni", "Longitudine > 180°", Icona::Esclamativo},
        {0, 89.5, AsseRilocazione::NordSud, 1, true, EsitoRilocazione::FuoriLatitudine,
         "Lyx - Info Rivoluzioni", "Latitudine > 90°", Icona::Esclamativo},
        {0, 45, AsseRilocazione::NordSud, 1, false, EsitoRilocazione::SenzaRivoluzione,
         "Lyx - Info Rilocate", "Necessaria Rivoluzione!", Icona::Informazione},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.testo + std::to_string(c.lon));
        Sessione s = ConRivoluzione();
        s.TemaZ.Lon = c.lon;
        s.TemaZ.Lat = c.lat;
        if (!c.rivoluzione) s.JDRivoluzione = -1.0;
        const Sessione prima = s;
        MessaggiRegistrati m;
        EXPECT_EQ(Rilocazione(s, c.asse, c.passo, m), c.esito);
        ASSERT_EQ(m.registro.size(), 1u);
        EXPECT_EQ(std::tie(m.registro[0].titolo, m.registro[0].testo, m.registro[0].icona),
                  std::tie(c.titolo, c.testo, c.icona));
        EXPECT_EQ(s.TemaRiv, prima.TemaRiv);
        EXPECT_EQ(s.PosRiv, prima.PosRiv);
        if (c.rivoluzione) {
            EXPECT_EQ(s.TemaZ, prima.TemaZ);
        } else {
            // The new place stays in the outer chart.
            EXPECT_DOUBLE_EQ(s.TemaZ.Lat, 46);
            EXPECT_DOUBLE_EQ(s.TemaZ.Fuso, s.TemaZ.Lon);
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
    constexpr double TolleranzaTwips = 1e-9;
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.lat);
        SegnoMappa s = SegnaMappa(c.lon, c.lat, W, H);
        EXPECT_NEAR(s.x, 2557.5 - c.dx, TolleranzaTwips);
        EXPECT_NEAR(s.yDa, 1395 - c.dy, TolleranzaTwips);
        EXPECT_NEAR(s.yA, 11 * H / 14 - c.dy, TolleranzaTwips);
        EXPECT_NEAR(s.y, 1755 - c.dy, TolleranzaTwips);
        EXPECT_NEAR(s.xDa, 2142 - c.dx, TolleranzaTwips);
        EXPECT_NEAR(s.xA, 2997 - c.dx, TolleranzaTwips);
    }
}

namespace {

Tema Alle(int anno, int mese, int giorno, double ore, double minuti, double secondi) {
    Tema t;
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = GradiDecimali(ore, minuti, secondi);
    return t;
}

} // namespace

TEST(PassoTempo, RiportiEPrestiti) {
    struct Caso {
        UnitaTempo unita;
        double quanti;
        double oraPrima[3], oraDopo[3];
        int giorniDopo; // days from the start date
    };
    const Caso casi[] = {
        // 30 seconds and 45 more: 15 seconds and one more minute.
        {UnitaTempo::Secondi, 45, {10, 20, 30}, {10, 21, 15}, 0},
        {UnitaTempo::Secondi, -20, {10, 0, 10}, {9, 59, 50}, 0},
        // 90 minutes back: one hour carried, then 30 minutes borrowed.
        {UnitaTempo::Minuti, -90, {10, 0, 0}, {8, 30, 0}, 0},
        {UnitaTempo::Ore, 1, {23, 30, 0}, {0, 30, 0}, 1},
        {UnitaTempo::Ore, -11, {10, 0, 0}, {23, 0, 0}, -1},
        {UnitaTempo::Ore, 1.5, {10, 0, 0}, {11, 30, 0}, 0},
        {UnitaTempo::Giorni, -1, {10, 0, 0}, {10, 0, 0}, -1},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.quanti);
        Tema t = Alle(2001, 2, 27, c.oraPrima[0], c.oraPrima[1], c.oraPrima[2]);
        const double giorno = t.Day;
        PassoTempo(t, c.unita, c.quanti);
        double h, m, s;
        GradiPrimiSecondi(t.OraL, h, m, s);
        EXPECT_EQ(std::make_pair(h, m), std::make_pair(c.oraDopo[0], c.oraDopo[1]));
        EXPECT_NEAR(s, c.oraDopo[2], 1e-6);
        EXPECT_EQ(t.Day, giorno + c.giorniDopo);
    }
    // A month or a day out of range goes into the Julian day as it is: 31 January and one month
    // is "31 February", that is 3 March of a common year.
    Tema t = Alle(2001, 1, 31, 12, 0, 0);
    PassoTempo(t, UnitaTempo::Mesi, 1);
    EXPECT_EQ(t.Day, GiornoGiuliano(2001, 3, 3));
    PassoTempo(t, UnitaTempo::Anni, -1);
    EXPECT_EQ(t.Day, GiornoGiuliano(2000, 3, 3));
    EXPECT_EQ(t.OraL, 12);
}

TEST(PassoTempo, RiquadroEFrecce) {
    auto campi = [](const Tema& t) {
        const Quando q = QuandoDelTema(t).value();
        return std::vector{q.anno, q.mese, q.giorno, q.ore, q.minuti, q.secondi};
    };
    EXPECT_EQ(campi(Alle(2000, 11, 8, 9, 5, 7)), (std::vector{2000, 11, 8, 9, 5, 7}));
    EXPECT_EQ(campi(Alle(1582, 10, 15, 0, 0, 0)), (std::vector{1582, 10, 15, 0, 0, 0}));
    // A clock time beyond the day, or a year the box cannot show: nothing to show.
    EXPECT_FALSE(QuandoDelTema(Alle(2000, 11, 8, 25, 0, 0)).has_value());
    EXPECT_FALSE(QuandoDelTema(Alle(2000, 11, 8, -1, 0, 0)).has_value());
    EXPECT_FALSE(QuandoDelTema(Alle(50, 1, 1, 12, 0, 0)).has_value());
    // The arrows beside the step: whole steps from -30 to 30, whatever was typed.
    const std::tuple<const char*, int, int> frecce[] = {
        {"1", 1, 2},     {"2,6", -1, 2}, {"30", 1, 30},  {"-30", -1, -30},
        {"900", -1, 30}, {"uno", 1, 1},  {"1e300", 1, 1}};
    for (const auto& [testo, verso, atteso] : frecce)
        EXPECT_EQ(PassoConFrecce(testo, verso), atteso) << testo;
    // The step typed: a number with the comma, or the user told.
    MessaggiRegistrati m;
    EXPECT_EQ(PassoDigitato("-1,5", m), -1.5);
    EXPECT_FALSE(PassoDigitato("due", m).has_value());
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo + " | " + m.registro[0].testo,
              "Lyx - Passo del Transito | Il passo deve essere un numero: due\n"
              "Il separatore decimale è la VIRGOLA.\n"
              "------------------------------\nThe step must be a number.\n");
}
