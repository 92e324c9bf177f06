#include "chart/CalcolaTema.h"

#include <array>
#include <cmath>

#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "ephemeris/Lilith.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Pianeti.h"
#include "ephemeris/Plutone.h"
#include "ephemeris/Sole.h"

namespace vesmo {

namespace {

// Right ascension, declination and oblique ascension of a point of given longitude and
// latitude (both degrees), with the mean obliquity e.
void Equatoriali(Posizione& p, double lo, double laRad, double e, double phi) {
    double ar, de;
    EclitticaEquatore(Radianti(lo), laRad, e, ar, de);
    p.AR = ar / 15;
    p.De = de;
    AscensioneObliqua(p.AOb, p.AR, p.De, phi);
}

void GeocentricoPianeta(double jd, int n, PosGeocentrica& geo, double& nodo) {
    PosEliocentrica elio;
    if (n == NumPlutone) {
        Plutone(jd, elio);
    } else {
        Elementi el;
        double anomalia;
        ElementiPianeta(jd, n, 1, el, anomalia);
        nodo = el.O;
        PianetaEliocentrico(jd, n, 1, el, anomalia, elio);
    }
    double elongazione;
    PianetaGeocentrico(jd, n, 1, elio, geo, elongazione);
}

} // namespace

void CalcolaTema(const Tema& tema, const Case& c, Posizioni& pos, std::int16_t lunaGeo,
                 std::int16_t selettore, Messaggi& messaggi, bool conLilithVera) {
    double phi = Radianti(tema.Lat);
    double tu = tema.OraL - tema.Estiva + tema.Fuso;
    double jd = tema.Day + tu / 24;
    double e = Radianti(Obliquita(jd));

    // The Sun, with the true obliquity inside its own routine.
    {
        double lon, r, ar, de;
        PosizioneSole(jd, 1, lon, r, ar, de);
        Posizione& s = pos.Sole;
        s.Lo = lon;
        s.AR = ar / 15;
        s.De = de;
        AscensioneObliqua(s.AOb, s.AR, s.De, phi);
        s.Mv = 0;
        s.Ca = CasaDi(lon, c);
    }

    if (selettore == 0) {
        double lon, lat, parallasse;
        PosizioneLuna(jd, lon, lat, parallasse);
        bool calcolata = true;
        if (lunaGeo == 0) {
            double lonT, latT;
            LunaTopocentrica(tema.Day, tu, tema.Lon, tema.Lat, lon, lat, 0, parallasse, lonT, latT);
            lon = lonT;
            lat = latT;
        } else if (lunaGeo != 1) {
            calcolata = false;
        }
        if (calcolata) {
            Posizione& l = pos.Luna;
            l.Lo = lon;
            l.LaEc = Gradi(lat);
            Equatoriali(l, lon, lat, e, phi);
            l.Mv = 0;
            l.Ca = CasaDi(lon, c);
        }

        pos.LilithMedia.Lo = LilithMedia(jd);
        pos.LilithMedia.Ca = CasaDi(pos.LilithMedia.Lo, c);
        if (conLilithVera) {
            double lv = pos.LilithVera.Lo, bv = Radianti(pos.LilithVera.LaEc);
            LilithVera(jd, pos.LilithMedia.Lo, pos.Luna.Lo, lv, bv, messaggi);
            Posizione& v = pos.LilithVera;
            v.Lo = lv;
            v.LaEc = Gradi(bv);
            Equatoriali(v, lv, bv, e, phi);
            v.Ca = CasaDi(lv, c);
        }
    }

    // Planets: index by the planet's number, 3 (the Earth) stays empty.
    std::array<Posizione, 10> pianeti{};
    for (int i : {1, 2, 4, 5, 6, 7, 8, 9}) {
        if (selettore != 0 && selettore != i) continue;
        PosGeocentrica g0, g1;
        double nodo = 0, nodo1 = 0;
        GeocentricoPianeta(jd, i, g0, nodo);
        GeocentricoPianeta(jd + 1, i, g1, nodo1);
        double l0 = g0.lon, l1 = g1.lon;
        if (l0 >= 358 && l1 <= 2) l1 += 360;
        // A body going back across 0° within the day is retrograde too.
        if (l0 <= 2 && l1 >= 358) l1 -= 360;
        Posizione& p = pianeti[static_cast<std::size_t>(i)];
        p.Mv = l1 < l0 ? -1 : 0;
        p.Lo = g0.lon;
        p.LaEc = Gradi(g0.lat);
        p.Ca = CasaDi(g0.lon, c);
        Equatoriali(p, g0.lon, g0.lat, e, phi);
        if (i != NumPlutone) p.LNd = nodo;
    }
    if (selettore >= 0 && selettore <= 10) {
        pos.Mercurio = pianeti[1];
        pos.Venere = pianeti[2];
        pos.Marte = pianeti[4];
        pos.Giove = pianeti[5];
        pos.Saturno = pianeti[6];
        pos.Urano = pianeti[7];
        pos.Nettuno = pianeti[8];
        pos.Plutone = pianeti[9];
    }

    if (selettore == 0 || selettore == 10) {
        double n0 = Norma360(NodoMedio(jd), 1);
        double n1 = Norma360(NodoMedio(jd + 1), 1);
        Posizione& n = pos.NodoLuna;
        n.Lo = n0;
        if (n0 <= 2 && n1 >= 358) n1 -= 360; // the node going back across 0°
        n.Mv = n1 > n0 ? 0 : -1;
        n.Ca = CasaDi(n0, c);
        Equatoriali(n, n0, 0, e, phi);
    }
}

void CastaTema(const Tema& tema, Case& cuspidi, Posizioni& pos, std::int16_t lunaGeo,
               Messaggi& messaggi, bool conLilithVera) {
    CalcoloCase(tema, cuspidi, pos, 1, messaggi);
    CalcolaTema(tema, cuspidi, pos, lunaGeo, 0, messaggi, conLilithVera);
}

} // namespace vesmo
