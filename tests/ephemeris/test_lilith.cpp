// The two Black Moons: the mean apogee, the apogee search and interpolation, the retries, and
// the error boxes when the apogees cannot be found.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "ephemeris/Lilith.h"
#include "ephemeris/Luna.h"
#include "tests/ephemeris/Riferimenti.h"

using namespace vesmo;
using vesmo::test::Scarto;

// The true Black Moon interpolated between two scripted apogees, against the hand figure.
constexpr double TolleranzaInterpolazioneGradi = 0.05;

TEST(LilithMedia, FormulaLineare) {
    EXPECT_DOUBLE_EQ(LilithMedia(2415020.0), 154.383);
    // One anomalistic turn of the apogee, 3232.6 days, is nearly a full circle.
    EXPECT_NEAR(LilithMedia(2451545.0), Norma360(36525 * 6144.03 / 55151 + 154.383, 1), 1e-9);
    EXPECT_GE(LilithMedia(2415020.0 - 1000), 0);
}

TEST(CercaApogeo, TrovaIlMassimoDellaDistanza) {
    double jq = CercaApogeo(2451545.0 + 5);
    double d = DistanzaLuna(jq);
    EXPECT_GT(d, 404000); // an apogee, not a perigee
    EXPECT_GT(d, DistanzaLuna(jq - 0.05));
    EXPECT_GT(d, DistanzaLuna(jq + 0.05));
    EXPECT_LE(std::fabs(jq - (2451545.0 + 5)), 2);
}

namespace {

// A scripted apogee search: each call answers the next day of the script, in turn.
double copione[2];
int chiamate = 0;
double ApogeoScritto(double) {
    double t = copione[chiamate % 2];
    ++chiamate;
    return t;
}

// The script: the apogee after the instant, then the one before it.
void Copione(double dopo, double prima) {
    copione[0] = dopo;
    copione[1] = prima;
    chiamate = 0;
}

// The day after `da` on which the Moon's longitude reaches `lon`.
double GiornoLongitudine(double da, double lon) {
    double t = da;
    for (int i = 0; i < 60; ++i) {
        double l, b, p;
        PosizioneLuna(t, l, b, p);
        double d = Scarto(lon, l);
        if (i == 0 && d < 0) d += 360;
        if (std::fabs(d) < 1e-9) break;
        t += d / 13.176397;
    }
    return t;
}

double LongitudineLuna(double t) {
    double l, b, p;
    PosizioneLuna(t, l, b, p);
    return l;
}

const std::string TestoErrore =
    "Lilith Vera del\r\nGiul = 2451545,25\r\nNON è compresa nei giusti Apogei\r\n"
    "Impossibile Calcolo. Rivedere il sorgente.";

} // namespace

TEST(LilithVera, InterpolaTraDueApogeiAttraversoLoZero) {
    MessaggiRegistrati msg;
    double ts = GiornoLongitudine(2451545.0, 359);
    double tq = GiornoLongitudine(ts, 1); // 0.15 days later, 2 degrees on
    double jd = (ts + tq) / 2;
    Copione(tq, ts);
    double lon = -1, lat = -1;
    LilithVera(jd, 0, 0, lon, lat, msg, ApogeoScritto);
    // LS near 359 and LQ near 1: halfway is near 0, not near 180.
    EXPECT_NEAR(Scarto(lon, 0), 0, TolleranzaInterpolazioneGradi);
    EXPECT_TRUE(msg.registro.empty());

    // LS near 1 and LQ near 359 a turn later: the short way goes back by 2 degrees.
    double ts2 = GiornoLongitudine(2451545.0, 1);
    double tq2 = GiornoLongitudine(ts2 + 1, 359);
    Copione(tq2, ts2);
    double jd2 = ts2 + 0.25 * (tq2 - ts2);
    LilithVera(jd2, 0, 0, lon, lat, msg, ApogeoScritto);
    EXPECT_NEAR(Scarto(lon, 0.5), 0, TolleranzaInterpolazioneGradi);
}

TEST(LilithVera, LatitudineRidottaDalFattore0104) {
    MessaggiRegistrati msg;
    double ts = 2451545.0, tq = 2451545.0 + 27.5;
    Copione(tq, ts);
    double lon, lat;
    LilithVera(ts + 10, 0, 0, lon, lat, msg, ApogeoScritto);
    double ls, bs, lq, bq, p;
    PosizioneLuna(ts, ls, bs, p);
    PosizioneLuna(tq, lq, bq, p);
    double f = 10 / 27.5;
    EXPECT_NEAR(lat, (bs + f * (bq - bs)) * 0.104, 1e-12);
    EXPECT_LT(std::fabs(Gradi(lat)), 0.6);
}

TEST(LilithVera, AllApogeoStessoDaLaLunaDiQuelGiorno) {
    MessaggiRegistrati msg;
    double jq = CercaApogeo(2451545.0 + 5);
    double lon, lat;
    LilithVera(jq, LilithMedia(jq), LongitudineLuna(jq), lon, lat, msg);
    EXPECT_TRUE(msg.registro.empty());
    EXPECT_NEAR(Scarto(lon, LongitudineLuna(jq)), 0, 0.001);
}

TEST(LilithVera, DopoCinquePassiLaTolleranzaSaleA005Giorni) {
    // The last apogee always 0.03 days after the instant: refused while the tolerance is 1e-6,
    // accepted on the sixth round, when it has become 0.05 days.
    MessaggiRegistrati msg;
    double jd = 2451545.25;
    Copione(jd + 27.5, jd + 0.03);
    double lon = -1, lat = -1;
    LilithVera(jd, 100, 50, lon, lat, msg, ApogeoScritto);
    EXPECT_EQ(chiamate, 12);
    EXPECT_TRUE(msg.registro.empty());
    double l, b, p;
    PosizioneLuna(jd + 0.03, l, b, p);
    EXPECT_DOUBLE_EQ(lon, l);
    EXPECT_DOUBLE_EQ(lat, b * 0.104);
}

// Apogees all after or all before the instant: ten rounds, a box, the outputs left untouched.
TEST(LilithVera, ApogeiTuttiDaUnaParteErrore) {
    struct Caso {
        double dopo, prima;
        const char* titolo;
    };
    for (Caso c : {Caso{28, 1, "Lyx - errore 'JDxScorso' LilithVera.Modulo1"},
                   Caso{-1, -28, "LilithVera - errore 'JDxQuesto' LilithVera.Modulo1"}}) {
        SCOPED_TRACE(c.titolo);
        MessaggiRegistrati msg;
        const double jd = 2451545.25;
        Copione(jd + c.dopo, jd + c.prima);
        double lon = 123.5, lat = 0.25;
        LilithVera(jd, 100, 50, lon, lat, msg, ApogeoScritto);
        ASSERT_EQ(msg.registro.size(), 1u);
        EXPECT_EQ(msg.registro[0].titolo, c.titolo);
        EXPECT_EQ(msg.registro[0].testo, TestoErrore);
        EXPECT_EQ(msg.registro[0].icona, Icona::Critico);
        EXPECT_EQ(chiamate, 20);
        EXPECT_EQ(std::make_pair(lon, lat), std::make_pair(123.5, 0.25));
    }
}
