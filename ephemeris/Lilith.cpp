#include "ephemeris/Lilith.h"

#include <cmath>
#include <string>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/Luna.h"

namespace vesmo {

namespace {

// Mean motion of the Moon, degrees a day, and the days of one turn at that rate.
constexpr double MotoLuna = 13.176397;

std::string TestoErrore(double jd) {
    return "Lilith Vera del\r\nGiul = " + TestoNumero(jd) +
           "\r\nNON è compresa nei giusti Apogei\r\nImpossibile Calcolo. Rivedere il sorgente.";
}

} // namespace

double LilithMedia(double jd) {
    return Norma360(((jd - 2415020) * 6144.03) / 55151 + 154.383, 1);
}

double DistanzaLuna(double t) {
    return 6378.14 / std::sin(Radianti(ParallasseLuna(t)));
}

double CercaApogeo(double t) {
    double dt = DistanzaLuna(t);
    double a = t - 2, b = t + 2;
    double da = DistanzaLuna(a), db = DistanzaLuna(b);
    for (;;) {
        // The end with the smaller distance moves to the middle.
        if (da < db) {
            a = t;
            da = dt;
        } else if (da > db) {
            b = t;
            db = dt;
        } else {
            break;
        }
        if (std::fabs(a - b) <= 1e-6) break;
        t = (a + b) / 2;
        dt = DistanzaLuna(t);
    }
    return t;
}

void LilithVera(double jd, double lilithMedia, double lunaLo, double& lon, double& lat,
                Messaggi& messaggi) {
    LilithVera(jd, lilithMedia, lunaLo, lon, lat, messaggi, CercaApogeo);
}

void LilithVera(double jd, double lilithMedia, double lunaLo, double& lon, double& lat,
                Messaggi& messaggi, double (*cercaApogeo)(double)) {
    int passi = 0;
    double tolleranza = 1e-6; // days
    bool primoSegno = false, secondoSegno = false;
    double t = jd; // the guess when the Moon stands exactly on the mean apogee
    for (;;) {
        if (passi >= 5) tolleranza = 0.05;
        // First guess: the day the Moon reaches the mean apogee at its mean motion.
        double x = lilithMedia - lunaLo;
        if (x > 0)
            t = jd + x / MotoLuna;
        else if (x < 0)
            t = jd + Norma360(x, 1) / MotoLuna;
        if (primoSegno) {
            primoSegno = false;
            t = jd + 1;
        }
        if (secondoSegno) {
            secondoSegno = false;
            t = jd + 360 / MotoLuna;
        }
        // This apogee, then the last one, a lunar turn before.
        double jq = cercaApogeo(t);
        double lq, bq, p;
        PosizioneLuna(jq, lq, bq, p);
        double js = cercaApogeo(jq - 360 / MotoLuna);
        double ls, bs;
        PosizioneLuna(js, ls, bs, p);

        if (!(js - 1e-6 > jd) && !(jq + 1e-6 < jd)) {
            // Between the two apogees: interpolate in time, the short way round the circle.
            double f = (jd - js) / (jq - js);
            if (std::fabs(lq - ls) > 350) {
                if (ls < lq)
                    ls += 360;
                else
                    lq += 360;
            }
            double d = lq - ls;
            lon = Norma360(ls + f * d, 1);
            lat = (bs + f * (bq - bs)) * 0.104;
            return;
        }
        if (!(jd > js)) {
            if (std::fabs(jd - js) <= tolleranza) {
                lon = ls;
                lat = bs * 0.104;
                return;
            }
            primoSegno = true;
            ++passi;
            if (passi == 10) {
                messaggi.Mostra("Lyx - errore 'JDxScorso' LilithVera.Modulo1", TestoErrore(jd),
                                Pulsanti::Ok, Icona::Critico);
                return;
            }
        }
        if (jd < jq) continue;
        if (std::fabs(jd - jq) <= tolleranza) {
            lon = lq;
            lat = bq * 0.104;
            return;
        }
        secondoSegno = true;
        ++passi;
        if (passi == 10) {
            messaggi.Mostra("LilithVera - errore 'JDxQuesto' LilithVera.Modulo1", TestoErrore(jd),
                            Pulsanti::Ok, Icona::Critico);
            return;
        }
    }
}

} // namespace vesmo
