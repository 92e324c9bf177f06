#include "ephemeris/Effemeridi.h"

#include "core/Aritmetica.h"
#include "ephemeris/Lilith.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Pianeti.h"
#include "ephemeris/Plutone.h"
#include "ephemeris/Sole.h"

namespace vesmo {

Effemeridi CalcolaEffemeridi(double jd, bool conLilithVera, Messaggi& messaggi) {
    static constexpr const char* nomi[10] = {"Sole",  "Luna",    "Mercurio", "Venere",  "Marte",
                                             "Giove", "Saturno", "Urano",    "Nettuno", "Plutone"};
    static constexpr int numeri[10] = {0, 0, 1, 2, 4, 5, 6, 7, 8, 9};
    Effemeridi eff;
    for (int i = 0; i < 10; ++i)
        eff.corpi[static_cast<std::size_t>(i)].nome = nomi[i];

    double ar, de;
    CorpoEffemeride& sole = eff.corpi[0];
    PosizioneSole(jd, 1, sole.Lo, sole.R, ar, de);

    CorpoEffemeride& luna = eff.corpi[1];
    double lat, parallasse;
    PosizioneLuna(jd, luna.Lo, lat, parallasse);
    luna.LaEc = Gradi(lat);

    for (std::size_t i = 2; i < 10; ++i) {
        int n = numeri[i];
        PosEliocentrica elio;
        if (n == 9) {
            Plutone(jd, elio);
        } else {
            Elementi el;
            double anomalia = 0;
            ElementiPianeta(jd, n, 1, el, anomalia);
            PianetaEliocentrico(jd, n, 1, el, anomalia, elio);
        }
        PosGeocentrica geo;
        double elongazione;
        PianetaGeocentrico(jd, n, 1, elio, geo, elongazione);
        eff.corpi[i].Lo = geo.lon;
        eff.corpi[i].LaEc = Gradi(geo.lat);
        eff.corpi[i].R = geo.dist;
    }

    eff.NodoLuna = Norma360(NodoMedio(jd), 1);
    eff.LilithMedia = LilithMedia(jd);
    eff.conLilithVera = conLilithVera;
    if (conLilithVera) {
        double lv = 0, bv = 0;
        LilithVera(jd, eff.LilithMedia, luna.Lo, lv, bv, messaggi);
        eff.LilithVeraLo = lv;
        eff.LilithVeraLaEc = Gradi(bv);
    }

    // Sidereal time at the instant: the day of 0h and the hours after it.
    double day = Int(jd - 0.5) + 0.5;
    double tu = (jd - day) * 24;
    double s = TempoSiderale(day, tu, 1);
    if (s >= 24)
        s -= 24;
    else if (s < 0)
        s += 24;
    eff.TSL0 = s;
    eff.Obliquita = Obliquita(jd);
    return eff;
}

} // namespace vesmo
