#include "presentation/RuotaAscensionale.h"

#include <cmath>
#include <string>

#include "core/Aritmetica.h"
#include "presentation/Glifi.h"
#include "presentation/RuotaDoppia.h"

namespace vesmo {

namespace {

inline constexpr Colore RossoScuro{192, 0, 0};

using Ascensioni = std::array<std::optional<double>, 15>;

Ascensioni AscensioniDei(const PuntiDellaRuota& punti, int modo) {
    Ascensioni a;
    for (std::size_t i = 1; i <= 14; ++i)
        a[i] = Ascensione(punti[i].pos, modo);
    return a;
}

Ascensioni AscensioniDelleCuspidi(const Case& cuspidi, int modo) {
    Ascensioni a;
    for (int i = 1; i <= 12; ++i)
        a[static_cast<std::size_t>(i)] = Ascensione(cuspidi[i], modo);
    return a;
}

// The ring rule on ascensions, among the bodies that have one.
void AnelliAscensionali(PuntiDellaRuota& punti, const Ascensioni& a, double vicino) {
    for (std::size_t i = 1; i <= 12; ++i) {
        punti[i].Anello = 1;
        if (!a[i]) continue;
        for (std::size_t j = 1; j < i; ++j) {
            if (!a[j]) continue;
            double d = std::fabs(*a[i] - *a[j]);
            if ((d < vicino || d > 360 - vicino) && punti[j].Anello == punti[i].Anello)
                ++punti[i].Anello;
        }
    }
}

// The ascensional cusps from `da` to `a` in the pen's colour: barbs on cusp 1, the
// Midheaven's circle at `cerchioMC`, the numbers at `numeri` 3 degrees past the cusp. A cusp
// without an ascension is left out, and the number of the one before it stands past it to the
// next cusp that has one.
void CuspidiAscensionali(Superficie& sup, const Riferimento& A, const Ascensioni& asc, double da,
                         double a, double cerchioMC, double numeri) {
    Colore penna = sup.ColorePenna();
    for (std::size_t i = 1; i <= 12; ++i) {
        if (!asc[i]) continue;
        double L = *asc[i];
        sup.Linea(A.X(da, L), A.Y(da, L), A.X(a, L), A.Y(a, L), penna);
        if (i == 1) FrecciaAscendente(sup, A.X(a, L), A.Y(a, L), A.Radianti(L), 180);
        if (i == 10) sup.Cerchio(A.X(cerchioMC, L), A.Y(cerchioMC, L), 180, penna);
        std::optional<double> successiva;
        for (std::size_t k = 1; k <= 11 && !successiva; ++k)
            successiva = asc[(i + k - 1) % 12 + 1];
        if (!successiva) continue;
        double numero = MedioArco(L, *successiva, 3);
        sup.PennaX(A.X(numeri, numero));
        sup.PennaY(A.Y(numeri, numero));
        sup.Stampa(std::to_string(i));
    }
}

// Ascensional bodies on the circle r0, with a tick and rings inward (verso -1) or outward
// (verso 1), in the pen's colour; Asce and MC get their place only.
void CorpiAscensionali(Superficie& sup, const Riferimento& A, PuntiDellaRuota& punti,
                       const Ascensioni& asc, const GeometriaAscensionale& g, int verso) {
    Colore colore = sup.ColorePenna();
    AnelliAscensionali(punti, asc, 7);
    const double r0 = g.RaggioAscensioni;
    for (std::size_t i = 1; i <= 14; ++i) {
        if (!asc[i]) continue;
        PuntoRuota& p = punti[i];
        double L = *asc[i];
        p.X = A.X(r0, L);
        p.Y = A.Y(r0, L);
        if (i > 12) continue;
        double tacca = r0 + verso * 150;
        sup.Linea(p.X, p.Y, A.X(tacca, L), A.Y(tacca, L), colore);
        double r = r0 + verso * p.Anello * g.Passo;
        double lato = verso < 0 ? LatoNellaFascia(g.Passo, r, NessunCerchio, r0)
                                : LatoNellaFascia(g.Passo, r, r0, -NessunCerchio);
        DisegnaGlifoCentrato(sup, GlifoCorpo(static_cast<int>(i)), lato, A.X(r, L), A.Y(r, L),
                             colore);
    }
}

struct Base {
    Case cuspidi;
    RuotaAscensionaleDisegnata r;
};

// Steps common to both forms: the zodiac ring, the ascension circle, the zodiacal cusps, then
// the inner chart's ascensional cusps in `coloreAscensioni`.
Base Zodiaco(Superficie& sup, const Tema& tema, const Posizioni& pos, const OpzioniAscensionale& o,
             const GeometriaAscensionale& g, Colore coloreAscensioni) {
    Base b;
    sup.Pulisci();
    b.cuspidi = CaseDellaRuota(tema, pos);
    b.r.zodiacali = RiempiPuntiRuota(pos, o.LunaNeraVera);
    b.r.ascensionali = b.r.zodiacali;
    const Riferimento P{g.CentroX, g.CentroY, o.AngoloRuota};
    const Riferimento A{g.CentroX, g.CentroY, o.AngoloAscens};
    Colore penna = sup.ColorePenna();

    sup.Carattere(CarattereSimboli);
    sup.Cerchio(g.CentroX, g.CentroY, g.RaggioZodiaco, penna);
    sup.Cerchio(g.CentroX, g.CentroY, g.RaggioZodiacoFine, penna);
    AnelloDeiSegni(sup, P, g.RaggioZodiaco, g.RaggioZodiacoFine);
    sup.SpessorePenna(2);
    sup.Cerchio(g.CentroX, g.CentroY, g.RaggioAscensioni, penna);
    sup.SpessorePenna(1);
    sup.Carattere(CarattereNumeri);

    CuspidiInterne(sup, P, b.cuspidi, g.RaggioZodiaco, g.RaggioZodiacoFine);

    sup.ColorePenna(coloreAscensioni);
    CuspidiAscensionali(sup, A, AscensioniDelleCuspidi(b.cuspidi, o.ModoAscens),
                        g.RaggioZodiacoFine, g.RaggioAscensioni, g.RaggioAscensioni - 180,
                        g.RaggioAscensioni - 200);
    sup.ColorePenna(penna);
    return b;
}

// The zodiacal bodies in black inside the ring, and the lines between the zodiacal points.
void CorpiZodiacali(Superficie& sup, PuntiDellaRuota& punti, const OpzioniAscensionale& o,
                    const GeometriaAscensionale& g) {
    const Riferimento P{g.CentroX, g.CentroY, o.AngoloRuota};
    const double r0 = g.RaggioZodiaco;
    Colore penna = sup.ColorePenna();
    AnelliDeiCorpi(punti, 8);
    for (std::size_t i = 1; i <= 14; ++i) {
        PuntoRuota& p = punti[i];
        double L = p.pos.Lo;
        p.X = P.X(r0, L);
        p.Y = P.Y(r0, L);
        if (i > 12) continue;
        sup.Linea(p.X, p.Y, P.X(r0 - 150, L), P.Y(r0 - 150, L), penna);
        double r = r0 - p.Anello * g.Passo;
        DisegnaGlifoCentrato(sup, GlifoCorpo(static_cast<int>(i)),
                             LatoNellaFascia(g.Passo, r, NessunCerchio, r0), P.X(r, L), P.Y(r, L),
                             Nero);
    }
}

void AspettiZodiacali(Superficie& sup, const PuntiDellaRuota& punti, const OpzioniAscensionale& o) {
    if (!o.DisegnaAspetti) return;
    for (std::size_t i = 1; i <= 14; ++i)
        for (std::size_t j = i + 1; j <= 14; ++j)
            for (int k :
                 ProvaAspetto(DistanzaAspetto(punti[i].pos.Lo, punti[j].pos.Lo), o.Aspetti.Orbita))
                if (o.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)])
                    sup.Linea(punti[i].X, punti[i].Y, punti[j].X, punti[j].Y, Grigio);
}

void Posti(std::array<bool, 15>& posti, const Ascensioni& a) {
    for (std::size_t i = 1; i <= 14; ++i)
        posti[i] = a[i].has_value();
}

} // namespace

std::optional<double> Ascensione(const Posizione& p, int modoAscens) {
    const Variante& v = modoAscens == 2 ? p.AOb : p.AR;
    if (v.ETesto()) return std::nullopt;
    return 15 * v.Numero();
}

RuotaAscensionaleDisegnata DisegnaRuotaAscensionale(Superficie& sup, const Tema& tema,
                                                    const Posizioni& pos,
                                                    const OpzioniAscensionale& o) {
    const GeometriaAscensionale g;
    Carattere vecchioCarattere = sup.Carattere();
    Base b = Zodiaco(sup, tema, pos, o, g, BluNotte);
    RuotaAscensionaleDisegnata& r = b.r;
    CorpiZodiacali(sup, r.zodiacali, o, g);

    Colore penna = sup.ColorePenna();
    sup.ColorePenna(Rosso);
    const Ascensioni asc = AscensioniDei(r.ascensionali, o.ModoAscens);
    CorpiAscensionali(sup, {g.CentroX, g.CentroY, o.AngoloAscens}, r.ascensionali, asc, g, -1);
    Posti(r.posti, asc);
    sup.ColorePenna(penna);

    AspettiZodiacali(sup, r.zodiacali, o);
    sup.Carattere(vecchioCarattere);
    return r;
}

RuotaAscensionaleDisegnata DisegnaDoppiaAscensionale(Superficie& sup, const Tema& ti,
                                                     const Posizioni& pi, const Tema& te,
                                                     const Posizioni& pe,
                                                     const OpzioniAscensionale& o) {
    const GeometriaAscensionale g;
    Carattere vecchioCarattere = sup.Carattere();
    Base b = Zodiaco(sup, ti, pi, o, g, Rosso);
    RuotaAscensionaleDisegnata& r = b.r;

    // The outer chart, turned by the solar arc, stands outside the circle of the ascensions,
    // its cusps drawn whatever the outer houses switch says.
    const Riferimento Q{g.CentroX, g.CentroY, o.AngoloAscens + o.Aspetti.ArcoSolare};
    Colore penna = sup.ColorePenna();
    sup.ColorePenna(RossoScuro);
    const double R = g.RaggioAscensioni;
    CuspidiAscensionali(sup, Q, AscensioniDelleCuspidi(CaseDellaRuota(te, pe), o.ModoAscens), R,
                        R + 400, R + 220, R + 200);
    sup.ColorePenna(penna);

    CorpiZodiacali(sup, r.zodiacali, o, g);

    sup.ColorePenna(Rosso);
    const Ascensioni asc = AscensioniDei(r.ascensionali, o.ModoAscens);
    CorpiAscensionali(sup, {g.CentroX, g.CentroY, o.AngoloAscens}, r.ascensionali, asc, g, -1);
    Posti(r.posti, asc);

    sup.ColorePenna(RossoScuro);
    r.esterni = RiempiPuntiRuota(pe, o.LunaNeraVera);
    r.esterni[13].Nome = "Asc";
    r.esterni[14].Nome = "MC";
    const Ascensioni ascEst = AscensioniDei(r.esterni, o.ModoAscens);
    CorpiAscensionali(sup, Q, r.esterni, ascEst, g, 1);
    Posti(r.postiEsterni, ascEst);
    sup.ColorePenna(penna);

    AspettiZodiacali(sup, r.zodiacali, o);
    sup.Carattere(vecchioCarattere);
    return r;
}

Rettangolo AreaAscensionale(bool doppia) {
    const GeometriaAscensionale g;
    // The single wheel ends at its circle and the Ascendant's barbs; the double one has rings
    // of outer glyphs beyond it.
    double r = doppia ? g.RaggioAscensioni + 4 * g.Passo + 150 : g.RaggioAscensioni + 300;
    return {g.CentroX - r, g.CentroY - r, 2 * r, 2 * r};
}

} // namespace vesmo
