#include "presentation/RuotaDoppia.h"

#include <cmath>
#include <string>

#include "core/Aritmetica.h"
#include "presentation/Glifi.h"

namespace vesmo {

const std::array<const char*, 12> SimboliSegni{"\u2648", "\u2649", "\u264A", "\u264B",
                                               "\u264C", "\u264D", "\u264E", "\u264F",
                                               "\u2650", "\u2651", "\u2652", "\u2653"};

const std::array<const char*, 15> RigheComparati{
    "TUTTI", "Sole",    "Luna",    "Mercurio", "Venere", "Marte",   "Giove", "Saturno",
    "Urano", "Nettuno", "Plutone", "Nodo N.",  "Lilith", "Ascend.", "MC"};

void RilascioComparati(SelezioneComparati& lista) {
    if (!lista[0]) return;
    for (std::size_t i = 1; i < lista.size(); ++i)
        lista[i] = false;
}

GeometriaDoppia GeometriaDellaDoppia(bool mappaVisibile) {
    return mappaVisibile ? GeometriaDoppia{8000, 4500, 2100, 2600}
                         : GeometriaDoppia{7000, 4000, 2400, 2900};
}

GeometriaDoppia GeometriaDelDoppioZodiaco() {
    return {7800, 4000, 2000, 2500};
}

namespace {

constexpr double Passo = 350;

} // namespace

// The sign ring of a double wheel: boundaries in the pen's colour, the scale, and the sign
// symbols printed at R2 + 200 in the middle of each sign.
void AnelloDeiSegni(Superficie& sup, const Riferimento& P, double r2, double r1) {
    Colore penna = sup.ColorePenna();
    for (int segno = 0; segno < 12; ++segno) {
        double L = segno * 30.0;
        sup.Linea(P.X(r2, L), P.Y(r2, L), P.X(r1, L), P.Y(r1, L), penna);
        TaccheSegno(sup, P, r2, L);
        TaccheFineSegno(sup, P, r2, L);
        sup.StampaCentrata(SimboliSegni[static_cast<std::size_t>(segno)], P.X(r2 + 200, L + 15),
                           P.Y(r2 + 200, L + 15));
    }
}

// The inner chart's cusps, from radius 500; the four angles out to R1 + 400.
void CuspidiInterne(Superficie& sup, const Riferimento& P, const Case& cuspidi, double r2,
                    double r1) {
    Colore penna = sup.ColorePenna();
    for (int i = 1; i <= 12; ++i) {
        double L = cuspidi[i].Lo;
        bool angolo = i == 1 || i == 4 || i == 7 || i == 10;
        double fine = angolo ? r1 + 400 : r2;
        sup.Linea(P.X(500, L), P.Y(500, L), P.X(fine, L), P.Y(fine, L), penna);
        if (i == 1) FrecciaAscendente(sup, P.X(fine, L), P.Y(fine, L), P.Radianti(L), 250);
        if (i == 10) sup.Cerchio(P.X(r1 + 200, L), P.Y(r1 + 200, L), 200, penna);
        double medio = MedioArco(L, cuspidi[i < 12 ? i + 1 : 1].Lo, 0);
        sup.PennaX(P.X(500, medio));
        sup.PennaY(P.Y(500, medio));
        sup.Stampa(std::to_string(i));
    }
}

namespace {

// The outer chart's cusps from `da` to `a`, in the pen's colour, their numbers at `numeri`,
// 3 degrees past the cusp; the Midheaven's circle at `cerchioMC`.
void CuspidiEsterne(Superficie& sup, const Riferimento& Q, const Case& cuspidi, double da, double a,
                    double cerchioMC, double numeri) {
    Colore penna = sup.ColorePenna();
    for (int i = 1; i <= 12; ++i) {
        double L = cuspidi[i].Lo;
        sup.Linea(Q.X(da, L), Q.Y(da, L), Q.X(a, L), Q.Y(a, L), penna);
        if (i == 1) FrecciaAscendente(sup, Q.X(a, L), Q.Y(a, L), Q.Radianti(L), 180);
        if (i == 10) sup.Cerchio(Q.X(cerchioMC, L), Q.Y(cerchioMC, L), 180, penna);
        double numero = MedioArco(L, cuspidi[i < 12 ? i + 1 : 1].Lo, 3);
        sup.PennaX(Q.X(numeri, numero));
        sup.PennaY(Q.Y(numeri, numero));
        sup.Stampa(std::to_string(i));
    }
}

// Bodies 1 to 12 of one chart from the circle `r0`, rings going inward (verso -1) or outward
// (verso 1); Asce and MC get their line ends only.
void CorpiSulCerchio(Superficie& sup, const Riferimento& P, PuntiDellaRuota& punti, double r0,
                     int verso, double vicino, Colore colore) {
    AnelliDeiCorpi(punti, vicino);
    for (std::size_t i = 1; i <= 14; ++i) {
        PuntoRuota& p = punti[i];
        double L = p.pos.Lo;
        p.X = P.X(r0, L);
        p.Y = P.Y(r0, L);
        if (i > 12) continue;
        double tacca = r0 + verso * 175;
        sup.Linea(p.X, p.Y, P.X(tacca, L), P.Y(tacca, L), colore);
        double r = r0 + verso * p.Anello * Passo;
        double lato = verso < 0 ? LatoNellaFascia(Passo, r, NessunCerchio, r0)
                                : LatoNellaFascia(Passo, r, r0, -NessunCerchio);
        DisegnaGlifoCentrato(sup, GlifoCorpo(static_cast<int>(i)), lato, P.X(r, L), P.Y(r, L),
                             colore);
    }
}

bool EAngoloEsterno(const PuntoRuota& p) {
    return p.Nome == "Asc" || p.Nome == "MC";
}

// The aspect lines of the three kinds. `zodiaco`: the comparati distances are measured on the
// two turned zodiacs of the double zodiac, and its squares are red.
void AspettiDoppia(Superficie& sup, const PuntiDellaRuota& interni, const PuntiDellaRuota& esterni,
                   const OpzioniDoppia& o, bool zodiaco, double angoloRuota, double angoloEsterno) {
    const auto& attivo = o.Aspetti.AspettoAttivo;
    auto linee = [&](const PuntoRuota& a, const PuntoRuota& b, double d, auto&& disegna) {
        for (int k : ProvaAspetto(d, o.Aspetti.Orbita))
            if (attivo[static_cast<std::size_t>(k)]) disegna(k, a, b);
    };
    bool senzaAngoliEsterni = o.Transito && !o.CaseEsterne;

    if (o.DisegnaAspetti) {
        for (std::size_t i = 1; i <= 14; ++i)
            for (std::size_t j = i + 1; j <= 14; ++j)
                linee(interni[i], interni[j], DistanzaAspetto(interni[i].pos.Lo, interni[j].pos.Lo),
                      [&](int, const PuntoRuota& a, const PuntoRuota& b) {
                          sup.Linea(a.X, a.Y, b.X, b.Y, Grigio);
                      });
    }
    if (o.DisegnaAspettiEst) {
        for (std::size_t i = 1; i <= 14; ++i) {
            for (std::size_t j = i + 1; j <= 14; ++j) {
                if (senzaAngoliEsterni && EAngoloEsterno(esterni[j])) continue;
                linee(esterni[i], esterni[j], DistanzaAspetto(esterni[i].pos.Lo, esterni[j].pos.Lo),
                      [&](int, const PuntoRuota& a, const PuntoRuota& b) {
                          sup.Linea(a.X, a.Y, b.X, b.Y, Blu);
                      });
            }
        }
    }
    if (o.DisegnaAspettiCmp) {
        Colore vecchia = sup.ColorePenna();
        sup.ColorePenna(Ciano);
        for (std::size_t i = 1; i <= 14; ++i) {
            if (!o.List1[0] && !o.List1[i]) continue;
            for (std::size_t j = 1; j <= 14; ++j) {
                if (!o.List2[0] && !o.List2[j]) continue;
                double d;
                if (zodiaco) {
                    // Both places on the circle first, so that the difference stays within
                    // one turn whatever the rotations.
                    d = std::fabs(Norma360(angoloRuota + interni[i].pos.Lo, 1) -
                                  Norma360(angoloEsterno + esterni[j].pos.Lo, 1));
                    if (d > 180) d = 360 - d;
                } else {
                    // The outer point where it is drawn, turned on by the solar arc: the line
                    // joins the two positions the user sees.
                    d = DistanzaAspetto(interni[i].pos.Lo,
                                        esterni[j].pos.Lo + o.Aspetti.ArcoSolare);
                }
                linee(interni[i], esterni[j], d,
                      [&](int k, const PuntoRuota& a, const PuntoRuota& b) {
                          // A conjunction would be a line of no length across the ring.
                          if (k == 0) return;
                          if (senzaAngoliEsterni && EAngoloEsterno(b)) return;
                          Colore c = zodiaco && k == 2 ? Rosso : sup.ColorePenna();
                          sup.Linea(a.X, a.Y, b.X, b.Y, c);
                      });
            }
        }
        sup.ColorePenna(vecchia);
    }
}

struct Preparati {
    Case cuspiInt, cuspiEst;
    RuotaDoppiaDisegnata r;
};

Preparati Prepara(const Tema& ti, const Posizioni& pi, const Tema& te, const Posizioni& pe,
                  std::int32_t lunaNeraVera) {
    Preparati p;
    p.cuspiInt = CaseDellaRuota(ti, pi);
    p.cuspiEst = CaseDellaRuota(te, pe);
    p.r.interni = RiempiPuntiRuota(pi, lunaNeraVera);
    p.r.esterni = RiempiPuntiRuota(pe, lunaNeraVera);
    p.r.esterni[13].Nome = "Asc";
    p.r.esterni[14].Nome = "MC";
    return p;
}

} // namespace

RuotaDoppiaDisegnata DisegnaDoppia(Superficie& sup, const Tema& ti, const Posizioni& pi,
                                   const Tema& te, const Posizioni& pe, const OpzioniDoppia& o) {
    // 1.
    Preparati prep = Prepara(ti, pi, te, pe, o.LunaNeraVera);
    RuotaDoppiaDisegnata& r = prep.r;
    r.AngoloRuota = o.AngoloRuota;
    r.AngoloEsterno = o.AngoloRuota;
    // 2.
    sup.Pulisci();
    GeometriaDoppia g = GeometriaDellaDoppia(o.MappaVisibile);
    const Riferimento P{g.CentroX, g.CentroY, o.AngoloRuota};
    // The outer chart is always drawn turned by the solar arc.
    const Riferimento Q{g.CentroX, g.CentroY, o.AngoloRuota + o.Aspetti.ArcoSolare};
    // 3., 4.
    Carattere vecchioCarattere = sup.Carattere();
    Colore vecchiaPenna = sup.ColorePenna();
    sup.Carattere(CarattereSimboli);
    sup.Cerchio(g.CentroX, g.CentroY, g.R2, vecchiaPenna);
    sup.Cerchio(g.CentroX, g.CentroY, g.R1, vecchiaPenna);
    AnelloDeiSegni(sup, P, g.R2, g.R1);
    // 5.
    sup.Carattere(CarattereNumeri);
    CuspidiInterne(sup, P, prep.cuspiInt, g.R2, g.R1);
    // 6.
    if (o.CaseEsterne) {
        sup.ColorePenna(BluNotte);
        double T = g.R1 + 500;
        CuspidiEsterne(sup, Q, prep.cuspiEst, g.R1, T, T - 180, T);
    }
    // 7.-10.
    CorpiSulCerchio(sup, P, r.interni, g.R2, -1, 8, Nero);
    CorpiSulCerchio(sup, Q, r.esterni, g.R1, 1, 7, BluNotte);
    // 11.
    sup.ColorePenna(vecchiaPenna);
    AspettiDoppia(sup, r.interni, r.esterni, o, false, 0, 0);
    // 12.
    sup.Carattere(vecchioCarattere);
    return r;
}

RuotaDoppiaDisegnata DisegnaDoppioZodiaco(Superficie& sup, const Tema& ti, const Posizioni& pi,
                                          const Tema& te, const Posizioni& pe,
                                          const OpzioniDoppia& o, int casa) {
    Preparati prep = Prepara(ti, pi, te, pe, o.LunaNeraVera);
    RuotaDoppiaDisegnata& r = prep.r;
    // 1., 2., 3.
    sup.Pulisci();
    r.AngoloRuota = 360 - pi.Asce.Lo;
    if (casa == 1)
        r.AngoloEsterno = 360 - pe.Asce.Lo;
    else
        r.AngoloEsterno =
            Norma360((prep.cuspiInt[casa].Lo - pi.Asce.Lo) + (360 - prep.cuspiEst[casa].Lo), 1);
    GeometriaDoppia g = GeometriaDelDoppioZodiaco();
    const Riferimento P{g.CentroX, g.CentroY, r.AngoloRuota};
    const Riferimento Z{g.CentroX, g.CentroY, r.AngoloEsterno};
    const Riferimento Q{g.CentroX, g.CentroY, r.AngoloEsterno + o.Aspetti.ArcoSolare};

    // 4. Both sign rings.
    Carattere vecchioCarattere = sup.Carattere();
    Colore vecchiaPenna = sup.ColorePenna();
    sup.Carattere(CarattereSimboli);
    sup.Cerchio(g.CentroX, g.CentroY, g.R2, vecchiaPenna);
    sup.Cerchio(g.CentroX, g.CentroY, g.R1, vecchiaPenna);
    AnelloDeiSegni(sup, P, g.R2, g.R1);
    sup.Cerchio(g.CentroX, g.CentroY, RaggioZodiacoEsterno, vecchiaPenna);
    sup.Cerchio(g.CentroX, g.CentroY, RaggioZodiacoEsternoFine, vecchiaPenna);
    AnelloDeiSegni(sup, Z, RaggioZodiacoEsterno, RaggioZodiacoEsternoFine);

    // 5. Inner cusps and bodies; the outer cusps whatever CaseEsterne holds, and the outer
    // bodies going inward from the second ring.
    sup.Carattere(CarattereNumeri);
    CuspidiInterne(sup, P, prep.cuspiInt, g.R2, g.R1);
    sup.ColorePenna(BluNotte);
    CuspidiEsterne(sup, Q, prep.cuspiEst, g.R1, RaggioZodiacoEsterno, 3420, 3400);
    CorpiSulCerchio(sup, P, r.interni, g.R2, -1, 8, Nero);
    CorpiSulCerchio(sup, Q, r.esterni, RaggioZodiacoEsterno, -1, 7, BluNotte);

    // 6.
    sup.ColorePenna(vecchiaPenna);
    AspettiDoppia(sup, r.interni, r.esterni, o, true, r.AngoloRuota, r.AngoloEsterno);
    sup.Carattere(vecchioCarattere);
    return r;
}

Rettangolo AreaDoppia(bool mappaVisibile) {
    GeometriaDoppia g = GeometriaDellaDoppia(mappaVisibile);
    // Three rings of outer glyphs beyond R1, and their boxes.
    double r = g.R1 + 4 * Passo + 200;
    return {g.CentroX - r, g.CentroY - r, 2 * r, 2 * r};
}

Rettangolo AreaDoppioZodiaco() {
    GeometriaDoppia g = GeometriaDelDoppioZodiaco();
    double r = RaggioZodiacoEsternoFine + 300;
    return {g.CentroX - r, g.CentroY - r, 2 * r, 2 * r};
}

} // namespace vesmo
