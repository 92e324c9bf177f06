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

// Each point in its own step, shared by the whole casting and the casting of a few points, so
// that both give the same numbers. A null `c` leaves the house alone.
void PassoSole(double jd, double phi, const Case* c, Posizioni& pos) {
    double lon, r, ar, de;
    PosizioneSole(jd, 1, lon, r, ar, de);
    Posizione& s = pos.Sole;
    s.Lo = lon;
    s.AR = ar / 15;
    s.De = de;
    AscensioneObliqua(s.AOb, s.AR, s.De, phi);
    s.Mv = 0;
    if (c) s.Ca = CasaDi(lon, *c);
}

void PassoLuna(const Tema& tema, double tu, double jd, double e, double phi, const Case* c,
               Posizioni& pos, std::int16_t lunaGeo) {
    double lon, lat, parallasse;
    PosizioneLuna(jd, lon, lat, parallasse);
    if (lunaGeo == 0) {
        double lonT, latT;
        LunaTopocentrica(tema.Day, tu, tema.Lon, tema.Lat, lon, lat, 0, parallasse, lonT, latT);
        lon = lonT;
        lat = latT;
    } else if (lunaGeo != 1) {
        return;
    }
    Posizione& l = pos.Luna;
    l.Lo = lon;
    l.LaEc = Gradi(lat);
    Equatoriali(l, lon, lat, e, phi);
    l.Mv = 0;
    if (c) l.Ca = CasaDi(lon, *c);
}

void PassoLilithMedia(double jd, const Case* c, Posizioni& pos) {
    pos.LilithMedia.Lo = LilithMedia(jd);
    if (c) pos.LilithMedia.Ca = CasaDi(pos.LilithMedia.Lo, *c);
}

// Needs the mean apogee and the Moon of this chart.
void PassoLilithVera(double jd, double e, double phi, const Case* c, Posizioni& pos,
                     Messaggi& messaggi) {
    double lv = pos.LilithVera.Lo, bv = Radianti(pos.LilithVera.LaEc);
    LilithVera(jd, pos.LilithMedia.Lo, pos.Luna.Lo, lv, bv, messaggi);
    Posizione& v = pos.LilithVera;
    v.Lo = lv;
    v.LaEc = Gradi(bv);
    Equatoriali(v, lv, bv, e, phi);
    if (c) v.Ca = CasaDi(lv, *c);
}

// Planet number i (1..9 but 3). Without `conMoto` the day after is not cast and Mv is left.
void PassoPianeta(int i, double jd, double e, double phi, const Case* c, Posizione& p,
                  bool conMoto) {
    PosGeocentrica g0, g1;
    double nodo = 0, nodo1 = 0;
    GeocentricoPianeta(jd, i, g0, nodo);
    if (conMoto) {
        GeocentricoPianeta(jd + 1, i, g1, nodo1);
        double l0 = g0.lon, l1 = g1.lon;
        if (l0 >= 358 && l1 <= 2) l1 += 360;
        // A body going back across 0° within the day is retrograde too.
        if (l0 <= 2 && l1 >= 358) l1 -= 360;
        p.Mv = l1 < l0 ? -1 : 0;
    }
    p.Lo = g0.lon;
    p.LaEc = Gradi(g0.lat);
    if (c) p.Ca = CasaDi(g0.lon, *c);
    Equatoriali(p, g0.lon, g0.lat, e, phi);
    if (i != NumPlutone) p.LNd = nodo;
}

void PassoNodo(double jd, double e, double phi, const Case* c, Posizioni& pos) {
    double n0 = Norma360(NodoMedio(jd), 1);
    double n1 = Norma360(NodoMedio(jd + 1), 1);
    Posizione& n = pos.NodoLuna;
    n.Lo = n0;
    if (n0 <= 2 && n1 >= 358) n1 -= 360; // the node going back across 0°
    n.Mv = n1 > n0 ? 0 : -1;
    if (c) n.Ca = CasaDi(n0, *c);
    Equatoriali(n, n0, 0, e, phi);
}

Posizione Posizioni::*const CampoPianeta[10] = {nullptr,
                                                &Posizioni::Mercurio,
                                                &Posizioni::Venere,
                                                nullptr,
                                                &Posizioni::Marte,
                                                &Posizioni::Giove,
                                                &Posizioni::Saturno,
                                                &Posizioni::Urano,
                                                &Posizioni::Nettuno,
                                                &Posizioni::Plutone};

} // namespace

void CalcolaTema(const Tema& tema, const Case& c, Posizioni& pos, std::int16_t lunaGeo,
                 std::int16_t selettore, Messaggi& messaggi, bool conLilithVera) {
    double phi = Radianti(tema.Lat);
    double tu = tema.OraL - tema.Estiva + tema.Fuso;
    double jd = tema.Day + tu / 24;
    double e = Radianti(Obliquita(jd));

    // The Sun, with the true obliquity inside its own routine.
    PassoSole(jd, phi, &c, pos);

    if (selettore == 0) {
        PassoLuna(tema, tu, jd, e, phi, &c, pos, lunaGeo);
        PassoLilithMedia(jd, &c, pos);
        if (conLilithVera) PassoLilithVera(jd, e, phi, &c, pos, messaggi);
    }

    // Planets: index by the planet's number, 3 (the Earth) stays empty.
    std::array<Posizione, 10> pianeti{};
    for (int i : {1, 2, 4, 5, 6, 7, 8, 9}) {
        if (selettore != 0 && selettore != i) continue;
        PassoPianeta(i, jd, e, phi, &c, pianeti[static_cast<std::size_t>(i)], true);
    }
    if (selettore >= 0 && selettore <= 10) {
        for (int i : {1, 2, 4, 5, 6, 7, 8, 9})
            pos.*CampoPianeta[i] = pianeti[static_cast<std::size_t>(i)];
    }

    if (selettore == 0 || selettore == 10) PassoNodo(jd, e, phi, &c, pos);
}

void CalcolaPunti(const Tema& tema, const Case* cuspidi, Posizioni& pos, std::int16_t lunaGeo,
                  std::uint32_t punti, bool conMoto, Messaggi& messaggi) {
    auto chiesto = [punti](int n) { return (punti >> n & 1u) != 0; };
    double phi = Radianti(tema.Lat);
    double tu = tema.OraL - tema.Estiva + tema.Fuso;
    double jd = tema.Day + tu / 24;
    double e = Radianti(Obliquita(jd));
    if (chiesto(PuntoSole)) PassoSole(jd, phi, cuspidi, pos);
    // The true apogee starts from the Moon and the mean apogee of the chart.
    if (chiesto(PuntoLuna) || chiesto(PuntoLilithVera))
        PassoLuna(tema, tu, jd, e, phi, cuspidi, pos, lunaGeo);
    if (chiesto(PuntoLilithMedia) || chiesto(PuntoLilithVera)) PassoLilithMedia(jd, cuspidi, pos);
    if (chiesto(PuntoLilithVera)) PassoLilithVera(jd, e, phi, cuspidi, pos, messaggi);
    for (int i : {1, 2, 4, 5, 6, 7, 8, 9}) {
        int punto = i < 3 ? i + 1 : i;
        if (chiesto(punto)) PassoPianeta(i, jd, e, phi, cuspidi, pos.*CampoPianeta[i], conMoto);
    }
    if (chiesto(PuntoNodoLuna)) PassoNodo(jd, e, phi, cuspidi, pos);
}

void CastaTema(const Tema& tema, Case& cuspidi, Posizioni& pos, std::int16_t lunaGeo,
               Messaggi& messaggi, bool conLilithVera) {
    CalcoloCase(tema, cuspidi, pos, 1, messaggi);
    CalcolaTema(tema, cuspidi, pos, lunaGeo, 0, messaggi, conLilithVera);
}

} // namespace vesmo
