// The two Black Moons: the mean apogee, the apogee search and interpolation, the retries, and
// the error boxes when the apogees cannot be found.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>

#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "ephemeris/Lilith.h"
#include "ephemeris/Luna.h"
#include "tests/ephemeris/Riferimenti.h"

using namespace vesmo;
using vesmo::test::Scarto;

// The true Black Moon interpolated between two scripted apogees, against the hand figure.
constexpr double TolleranzaInterpolazioneGradi = 0.05;

namespace {

// A scripted apogee search: each call answers the next day of the script, in turn: the apogee
// after the instant, then the one before it.
double copione[2];
int chiamate = 0;
double ApogeoScritto(double) {
    return copione[chiamate++ % 2];
}
void Copione(double dopo, double prima) {
    copione[0] = dopo;
    copione[1] = prima;
    chiamate = 0;
}

double LongitudineLuna(double t) {
    double l, b, p;
    PosizioneLuna(t, l, b, p);
    return l;
}

// The day after `da` on which the Moon's longitude reaches `lon`.
double GiornoLongitudine(double da, double lon) {
    double t = da;
    for (int i = 0; i < 60; ++i) {
        double d = Scarto(lon, LongitudineLuna(t));
        if (i == 0 && d < 0) d += 360;
        if (std::fabs(d) < 1e-9) break;
        t += d / 13.176397;
    }
    return t;
}

} // namespace

TEST(LilithMedia, FormulaLineareEApogeoCercato) {
    EXPECT_DOUBLE_EQ(LilithMedia(2415020.0), 154.383);
    // One anomalistic turn of the apogee, 3232.6 days, is nearly a full circle.
    EXPECT_NEAR(LilithMedia(2451545.0), Norma360(36525 * 6144.03 / 55151 + 154.383, 1), 1e-9);
    double jq = CercaApogeo(2451545.0 + 5);
    double d = DistanzaLuna(jq);
    EXPECT_GT(d, 404000); // km: an apogee, not a perigee
    EXPECT_GT(d, DistanzaLuna(jq - 0.05));
    EXPECT_GT(d, DistanzaLuna(jq + 0.05));
    EXPECT_LE(std::fabs(jq - (2451545.0 + 5)), 2);
}

TEST(LilithVera, InterpolaTraDueApogeiAttraversoLoZero) {
    MessaggiRegistrati msg;
    double ts = GiornoLongitudine(2451545.0, 359);
    double tq = GiornoLongitudine(ts, 1); // 0.15 days later, 2 degrees on
    Copione(tq, ts);
    double lon = -1, lat = -1;
    LilithVera((ts + tq) / 2, 0, 0, lon, lat, msg, ApogeoScritto);
    // LS near 359 and LQ near 1: halfway is near 0, not near 180.
    EXPECT_NEAR(Scarto(lon, 0), 0, TolleranzaInterpolazioneGradi);
    EXPECT_TRUE(msg.registro.empty());
    // LS near 1 and LQ near 359 a turn later: the short way goes back by 2 degrees.
    ts = GiornoLongitudine(2451545.0, 1);
    tq = GiornoLongitudine(ts + 1, 359);
    Copione(tq, ts);
    LilithVera(ts + 0.25 * (tq - ts), 0, 0, lon, lat, msg, ApogeoScritto);
    EXPECT_NEAR(Scarto(lon, 0.5), 0, TolleranzaInterpolazioneGradi);

    // The latitude is the interpolated one reduced by the factor 0.104.
    ts = 2451545.0;
    tq = ts + 27.5;
    Copione(tq, ts);
    LilithVera(ts + 10, 0, 0, lon, lat, msg, ApogeoScritto);
    double ls, bs, lq, bq, p;
    PosizioneLuna(ts, ls, bs, p);
    PosizioneLuna(tq, lq, bq, p);
    EXPECT_NEAR(lat, (bs + 10 / 27.5 * (bq - bs)) * 0.104, 1e-12);
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
        EXPECT_EQ(std::tie(msg.registro[0].titolo, msg.registro[0].testo, msg.registro[0].icona),
                  std::make_tuple(c.titolo,
                                  "Lilith Vera del\r\nGiul = 2451545,25\r\nNON è compresa nei "
                                  "giusti Apogei\r\nImpossibile Calcolo. Rivedere il sorgente.",
                                  Icona::Critico));
        EXPECT_EQ(chiamate, 20);
        EXPECT_EQ(std::make_pair(lon, lat), std::make_pair(123.5, 0.25));
    }
}
