#include "presentation/Ruota.h"

#include <cmath>

#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "ephemeris/Sole.h"
#include "presentation/Glifi.h"

namespace vesmo {

PuntiDellaRuota RiempiPuntiRuota(const Posizioni& pos, std::int32_t lunaNeraVera) {
    PuntiDellaRuota punti;
    auto sorgenti = PuntiRuota(pos, lunaNeraVera);
    for (std::size_t i = 1; i <= 14; ++i)
        punti[i].pos = *sorgenti[i - 1];
    return punti;
}

Case CaseDellaRuota(const Tema& tema, const Posizioni& pos) {
    Case c;
    c[1] = pos.Asce;
    c[2] = pos.CasaII;
    c[3] = pos.CasaIII;
    c[10] = pos.MC;
    c[11] = pos.CasaXI;
    c[12] = pos.CasaXII;
    CaseOpposte(c, vesmo::Radianti(Obliquita(tema.JD())), vesmo::Radianti(tema.Lat));
    return c;
}

Colore ColoreSegno(int segno) {
    static constexpr int indici[12] = {12, 13, 8, 15, 14, 8, 13, 4, 1, 0, 9, 5};
    return ColorePalette(indici[segno]);
}

Colore ColoreCorpo(int corpo) {
    static constexpr int indici[13] = {0, 14, 15, 8, 13, 12, 1, 0, 9, 5, 4, 15, 0};
    return ColorePalette(indici[corpo]);
}

Colore ColoreAspetto(int k, Colore penna) {
    switch (k) {
    case 1: // SESTILE
    case 3: // TRIGONO
    case 4: // OPPOSIZIONE
        return Blu;
    case 2:  // QUADRATURA
    case 5:  // SemiSestile
    case 15: // Quinconce
        return Rosso;
    default:
        return penna;
    }
}

double Riferimento::Radianti(double L) const {
    return vesmo::Radianti(angolo + L);
}
double Riferimento::X(double r, double L) const {
    return PolareX(cx, r, Radianti(L));
}
double Riferimento::Y(double r, double L) const {
    return PolareY(cy, r, Radianti(L));
}

namespace {

bool Vicini(double d, double vicino) {
    return d < vicino || d > 360 - vicino;
}

} // namespace

void AnelliDeiCorpi(PuntiDellaRuota& punti, double vicino) {
    for (std::size_t i = 1; i <= 12; ++i) {
        punti[i].Anello = 1;
        for (std::size_t j = 1; j < i; ++j) {
            double d = std::fabs(punti[i].pos.Lo - punti[j].pos.Lo);
            if (Vicini(d, vicino) && punti[j].Anello == punti[i].Anello) ++punti[i].Anello;
        }
    }
}

int AnelloDelNodo(double L, const PuntiDellaRuota& punti) {
    int anello = 1;
    for (std::size_t j = 1; j <= 12; ++j)
        if (Vicini(std::fabs(L - punti[j].pos.Lo), 8)) ++anello;
    return anello;
}

std::array<NodoScelto, 14> NodiDellaScelta(int nodiScelti, int& quanti) {
    std::array<NodoScelto, 14> r{};
    quanti = 0;
    auto aggiungi = [&](int corpo, int lato) {
        r[static_cast<std::size_t>(quanti++)] = {corpo, lato};
    };
    if (nodiScelti >= 1 && nodiScelti <= 3) {
        for (int corpo = RuotaMercurio; corpo <= RuotaNettuno; ++corpo) {
            if (nodiScelti != 3) aggiungi(corpo, 0);
            if (nodiScelti != 2) aggiungi(corpo, 180);
        }
    } else if (nodiScelti >= 4 && nodiScelti <= 24) {
        // Three rows a body from Mercurio: both sides, north, south.
        int corpo = RuotaMercurio + (nodiScelti - 4) / 3;
        int riga = (nodiScelti - 4) % 3;
        if (riga != 2) aggiungi(corpo, 0);
        if (riga != 1) aggiungi(corpo, 180);
    }
    return r;
}

void TaccheSegno(Superficie& sup, const Riferimento& rif, double r2, double L) {
    Colore penna = sup.ColorePenna();
    for (double t : {L + 5, L + 10})
        sup.Linea(rif.X(r2 + 20, t), rif.Y(r2 + 20, t), rif.X(r2 + 150, t), rif.Y(r2 + 150, t),
                  penna);
    sup.Linea(rif.X(r2 + 20, L + 15), rif.Y(r2 + 20, L + 15), rif.X(r2 + 200, L + 15),
              rif.Y(r2 + 200, L + 15), penna);
}

void TaccheFineSegno(Superficie& sup, const Riferimento& rif, double r2, double L) {
    Colore penna = sup.ColorePenna();
    for (double t : {L + 20, L + 25})
        sup.Linea(rif.X(r2, t), rif.Y(r2, t), rif.X(r2 + 150, t), rif.Y(r2 + 150, t), penna);
}

namespace {

// A bevel: arcs of one radius with their centres moved down and right pixel by pixel, the
// first 25 in the button shadow, the next 15 in the pen's colour.
void Bisello(Superficie& sup, const GeometriaRuota& g, double r, double da, double a) {
    for (int n = 1; n <= 40; ++n) {
        Colore c = n <= 25 ? OmbraPulsante : sup.ColorePenna();
        sup.Cerchio(g.CentroX + n, g.CentroY + n, r, c, vesmo::Radianti(da), vesmo::Radianti(a));
    }
}

} // namespace

void FrecciaAscendente(Superficie& sup, double ex, double ey, double a, double lunghezza) {
    Colore penna = sup.ColorePenna();
    for (double barba : {126.0, 234.0}) {
        double b = a + vesmo::Radianti(barba);
        sup.Linea(ex, ey, PolareX(ex, lunghezza, b), PolareY(ey, lunghezza, b), penna);
    }
}

Riferimento RiferimentoRuota(const OpzioniRuota& o) {
    const GeometriaRuota& g = o.Geometria;
    return {g.CentroX, g.CentroY, o.AngoloRuota};
}

void FondoRuota(Superficie& sup, const OpzioniRuota& o, Colore penna) {
    const GeometriaRuota& g = o.Geometria;
    const double R1 = g.RaggioEsterno, R2 = g.RaggioInterno;
    if (o.BiancoNero) {
        // On paper: the two circles of the sign ring as outlines, nothing filled.
        sup.TipoRiempimento(1);
        sup.Cerchio(g.CentroX, g.CentroY, R1, penna);
        sup.Cerchio(g.CentroX, g.CentroY, R2, penna);
        return;
    }
    // The disc that erases the old picture; nothing outside it changes.
    sup.PennaX(g.CentroX);
    sup.PennaY(g.CentroY);
    sup.TipoRiempimento(0);
    sup.ColoreRiempimento(FacciaPulsante);
    sup.Cerchio(g.CentroX, g.CentroY, g.RaggioFondo(), sup.ColoreFondo());
    // The sign ring, light grey with a bevel on its outer edge.
    if (!o.ColoriRidotti) {
        sup.ColoreRiempimento(GrigioChiaro);
        sup.Cerchio(g.CentroX, g.CentroY, R1, Bianco);
        Bisello(sup, g, R1, 216, 45);
    }
    // The inner disc, its bevel the other way.
    sup.ColoreRiempimento(FacciaPulsante);
    sup.Cerchio(g.CentroX, g.CentroY, R2, Bianco);
    Bisello(sup, g, R2, 45, 216);
    sup.TipoRiempimento(1);
}

void SegniRuota(Superficie& sup, const OpzioniRuota& o, Colore penna) {
    const GeometriaRuota& g = o.Geometria;
    const double R1 = g.RaggioEsterno, R2 = g.RaggioInterno;
    const Riferimento P = RiferimentoRuota(o);
    for (int segno = 0; segno < 12; ++segno) {
        const double L = segno * 30.0;
        const Colore colore = o.BiancoNero ? penna : ColoreSegno(segno);
        LineaChiara(sup, P.X(R2, L), P.Y(R2, L), P.X(R1, L), P.Y(R1, L), colore);
        TaccheSegno(sup, P, R2, L);
        DisegnaGlifoCentrato(sup, GlifoSegno(segno),
                             LatoNellaFascia(g.PassoSegni, R2 + 350, R2, R1), P.X(R2 + 350, L + 15),
                             P.Y(R2 + 350, L + 15), colore);
        sup.SpessorePenna(1);
        TaccheFineSegno(sup, P, R2, L);
    }
}

void CuspidiRuota(Superficie& sup, const OpzioniRuota& o, const Case& cuspidi, Colore penna) {
    const GeometriaRuota& g = o.Geometria;
    const Riferimento P = RiferimentoRuota(o);
    for (int i = 1; i <= 12; ++i) {
        const double L = cuspidi[i].Lo;
        const bool angolo = i == 1 || i == 4 || i == 7 || i == 10;
        const double fine = angolo ? g.RaggioEsterno + 500 : g.RaggioInterno;
        sup.SpessorePenna(angolo ? 2 : 1);
        sup.Linea(P.X(g.RaggioCase, L), P.Y(g.RaggioCase, L), P.X(fine, L), P.Y(fine, L), penna);
        if (i == 1) FrecciaAscendente(sup, P.X(fine, L), P.Y(fine, L), P.Radianti(L), 300);
        if (i == 10)
            sup.Cerchio(P.X(g.RaggioEsterno + 280, L), P.Y(g.RaggioEsterno + 280, L), 250, penna);
        const double medio = MedioArco(L, cuspidi[i < 12 ? i + 1 : 1].Lo, 0);
        sup.PennaX(P.X(900, medio));
        sup.PennaY(P.Y(900, medio));
        sup.Stampa(std::to_string(i));
    }
}

void CorpiRuota(Superficie& sup, const OpzioniRuota& o, PuntiDellaRuota& punti, Colore penna) {
    const GeometriaRuota& g = o.Geometria;
    const double R2 = g.RaggioInterno;
    const Riferimento P = RiferimentoRuota(o);
    const bool bn = o.BiancoNero;
    AnelliDeiCorpi(punti, 8);
    for (std::size_t i = 1; i <= 12; ++i) {
        PuntoRuota& p = punti[i];
        const double L = p.pos.Lo;
        p.X = P.X(R2, L);
        p.Y = P.Y(R2, L);
        sup.Linea(p.X, p.Y, P.X(R2 - 175, L), P.Y(R2 - 175, L), penna);
        const double r = R2 - p.Anello * g.PassoPianeti;
        if (bn) sup.SpessorePenna(o.SpessoreGlifi);
        DisegnaGlifoCentrato(sup, GlifoCorpo(static_cast<int>(i)),
                             LatoNellaFascia(g.PassoPianeti, r, NessunCerchio, R2), P.X(r, L),
                             P.Y(r, L), bn ? penna : ColoreCorpo(static_cast<int>(i)));
        if (bn) sup.SpessorePenna(1);
    }
    // Ascendant and Midheaven: the ends of their aspect lines only.
    for (std::size_t i = 13; i <= 14; ++i) {
        punti[i].X = P.X(R2, punti[i].pos.Lo);
        punti[i].Y = P.Y(R2, punti[i].pos.Lo);
    }
}

void NodiRuota(Superficie& sup, const OpzioniRuota& o, const PuntiDellaRuota& punti, Colore penna) {
    const GeometriaRuota& g = o.Geometria;
    const double R2 = g.RaggioInterno;
    const Riferimento P = RiferimentoRuota(o);
    int quanti;
    auto nodi = NodiDellaScelta(o.NodiScelti, quanti);
    for (int n = 0; n < quanti; ++n) {
        const NodoScelto& nodo = nodi[static_cast<std::size_t>(n)];
        const double L = punti[static_cast<std::size_t>(nodo.corpo)].pos.LNd + nodo.lato;
        sup.Linea(P.X(R2, L), P.Y(R2, L), P.X(R2 - 175, L), P.Y(R2 - 175, L), penna);
        const double r = R2 - AnelloDelNodo(L, punti) * g.PassoPianeti;
        DisegnaGlifoCentrato(sup, GlifoNodo(nodo.corpo, nodo.lato),
                             LatoNellaFascia(g.PassoPianeti, r, NessunCerchio, R2), P.X(r, L),
                             P.Y(r, L), o.BiancoNero ? penna : ColoreCorpo(nodo.corpo));
    }
}

void AspettiRuota(Superficie& sup, const OpzioniRuota& o, const PuntiDellaRuota& punti,
                  Colore penna) {
    if (!o.DisegnaAspetti) return;
    for (std::size_t i = 1; i <= 14; ++i) {
        for (std::size_t j = i + 1; j <= 14; ++j) {
            const double d = DistanzaAspetto(punti[i].pos.Lo, punti[j].pos.Lo);
            for (int k : ProvaAspetto(d, o.Aspetti.Orbita)) {
                if (!o.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)]) continue;
                sup.Linea(punti[i].X, punti[i].Y, punti[j].X, punti[j].Y,
                          o.BiancoNero ? penna : ColoreAspetto(k, penna));
            }
        }
    }
}

PuntiDellaRuota DisegnaRuota(Superficie& sup, const Tema& tema, const Posizioni& pos,
                             const OpzioniRuota& o) {
    const Colore penna = sup.ColorePenna();
    const Case cuspidi = CaseDellaRuota(tema, pos);
    PuntiDellaRuota punti = RiempiPuntiRuota(pos, o.LunaNeraVera);
    FondoRuota(sup, o, penna);
    SegniRuota(sup, o, penna);
    CuspidiRuota(sup, o, cuspidi, penna);
    CorpiRuota(sup, o, punti, penna);
    NodiRuota(sup, o, punti, penna);
    AspettiRuota(sup, o, punti, penna);
    return punti;
}

Rettangolo AreaRuota(const GeometriaRuota& g) {
    // The disc and a margin for the Ascendant's arrow.
    double r = g.RaggioFondo() + 250;
    return {g.CentroX - r, g.CentroY - r, 2 * r, 2 * r};
}

} // namespace vesmo
