// The equation of time and the two coordinate conversions against Debian's Swiss Ephemeris
// (swe_time_equ, swe_cotrans) from 1900 to 2100; each run prints the worst difference. The short
// series of the equation of time leaves out nutation (up to 1.2 s) and the Sun's small terms; the
// conversions use the day's mean obliquity; the boxes hold seconds of right ascension and of
// longitude, but only minutes of declination and latitude.
#include <gtest/gtest.h>

#include <swephexp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "calculators/Calcolatrici.h"
#include "core/Aritmetica.h"
#include "tests/ephemeris/Riferimenti.h"

using namespace vesmo;

namespace {

constexpr double Inizio = 2415020.5; // 1900 January 1
constexpr double Fine = 2488069.5;   // 2100 January 1

double ObliquitaMediaSwe(double jd) {
    double x[6];
    char errore[256];
    swe_calc(jd, SE_ECL_NUT, 0, x, errore);
    return x[1];
}

} // namespace

TEST(ConfrontoSwe, EquazioneDelTempo) {
    double peggiore = 0, quando = 0;
    for (double jd = Inizio; jd < Fine; jd += 17.3) {
        double e = 0;
        char errore[256];
        ASSERT_EQ(swe_time_equ(jd, &e, errore), OK) << errore;
        const double secondi = std::fabs(EquazioneDelTempo(jd) / (2 * PI) * 86400 - e * 86400);
        if (secondi > peggiore) peggiore = secondi, quando = jd;
    }
    std::printf("equazione del tempo: scarto massimo %.2f s (JD %.1f)\n", peggiore, quando);
    EXPECT_LT(peggiore, 4.0);
}

TEST(ConfrontoSwe, EclitticheEquatorialiEIndietro) {
    double peggioreAR = 0, peggioreDec = 0, peggioreLon = 0, peggioreLat = 0;
    int n = 0;
    for (double jd = Inizio; jd < Fine; jd += 731.7) {
        const double eps = ObliquitaMediaSwe(jd);
        for (double lon = 3.3; lon < 360; lon += 29.7) {
            for (double lat : {-7.0, -1.5, 0.0, 2.25, 5.0}) {
                // The boxes: sign, degrees, minutes, seconds of longitude; degrees and minutes
                // of latitude.
                const int segno = static_cast<int>(lon / 30);
                double g, m, s, lg, lm, ls;
                GradiPrimiSecondi(lon - 30 * segno, g, m, s);
                GradiPrimiSecondi(lat, lg, lm, ls);
                const Eclittiche ecl{segno, g, m, std::round(s * 100) / 100, lg, lm};
                const double lonBox =
                    30 * ecl.Segno + GradiDecimali(ecl.Lon_Gradi, ecl.Lon_Primi, ecl.Lon_Sec);
                const double latBox = GradiDecimali(ecl.Lat_Gradi, ecl.Lat_Primi, 0);
                double in[3] = {lonBox, latBox, 1}, out[3];
                swe_cotrans(in, out, -eps);
                Equatoriali q = EclitticheAEquatoriali(jd, ecl);
                const double ar = (q.AR_h + q.AR_m / 60 + q.AR_s / 3600) * 15;
                const double dec = GradiDecimali(q.Dec_Gradi, q.Dec_Primi, 0);
                peggioreAR = std::max(peggioreAR, std::fabs(test::Scarto(ar, out[0])) * 3600);
                peggioreDec = std::max(peggioreDec, std::fabs(dec - out[1]) * 3600);

                // And back, from the right ascension and declination of the boxes.
                double inEq[3] = {ar, dec, 1}, outEcl[3];
                swe_cotrans(inEq, outEcl, eps);
                Eclittiche e = EquatorialiAEclittiche(jd, q);
                const double lonR =
                    30 * e.Segno + GradiDecimali(e.Lon_Gradi, e.Lon_Primi, e.Lon_Sec);
                const double latR = GradiDecimali(e.Lat_Gradi, e.Lat_Primi, 0);
                peggioreLon =
                    std::max(peggioreLon, std::fabs(test::Scarto(lonR, outEcl[0])) * 3600);
                peggioreLat = std::max(peggioreLat, std::fabs(latR - outEcl[1]) * 3600);
                ++n;
            }
        }
    }
    std::printf("%d conversioni: AR %.2f\", Dec %.2f\", Lon %.2f\", Lat %.2f\"\n", n, peggioreAR,
                peggioreDec, peggioreLon, peggioreLat);
    // Seconds of right ascension and of longitude are kept; the rounding of a fraction above
    // 0.99 moves them by at most 0.01 s (0.15") and 0.01".
    EXPECT_LT(peggioreAR, 0.5);
    EXPECT_LT(peggioreLon, 0.5);
    // Declination and latitude are rounded to the minute.
    EXPECT_LE(peggioreDec, 30.5);
    EXPECT_LE(peggioreLat, 30.5);
}
