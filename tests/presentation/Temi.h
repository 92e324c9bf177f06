// Charts of known positions for the wheel tests: every longitude set by hand.
#pragma once

#include <array>

#include "core/Aritmetica.h"
#include "core/Tema.h"

namespace vesmo::prova {

inline Tema TemaDiProva() {
    Tema t;
    t.Day = GiornoGiuliano(2000, 1, 1);
    t.OraL = 12;
    t.Lat = 45;
    return t;
}

// Bodies Sole ... NodoLuna and the true Black Moon; cusps I, II, III, X, XI, XII.
inline std::array<Posizione*, 12> Corpi(Posizioni& p) {
    return {&p.Sole,    &p.Luna,  &p.Mercurio, &p.Venere,  &p.Marte,    &p.Giove,
            &p.Saturno, &p.Urano, &p.Nettuno,  &p.Plutone, &p.NodoLuna, &p.LilithVera};
}
inline std::array<Posizione*, 6> Cuspidi(Posizioni& p) {
    return {&p.Asce, &p.CasaII, &p.CasaIII, &p.MC, &p.CasaXI, &p.CasaXII};
}

// The bodies' longitudes (the mean Black Moon with the true one) and the cusps'.
inline Posizioni PosizioniDiProva(const std::array<double, 12>& corpi,
                                  const std::array<double, 6>& cuspidi) {
    Posizioni p;
    for (std::size_t i = 0; i < 12; ++i)
        Corpi(p)[i]->Lo = corpi[i];
    p.LilithMedia.Lo = corpi[11];
    for (std::size_t i = 0; i < 6; ++i)
        Cuspidi(p)[i]->Lo = cuspidi[i];
    return p;
}

// Right ascensions in hours set by hand; the oblique ones 0.2 hours on for the bodies, 0.1 for
// the cusps.
inline Posizioni ConAscensioni(Posizioni p, const std::array<double, 12>& corpi,
                               const std::array<double, 6>& cuspidi) {
    for (std::size_t i = 0; i < 12; ++i) {
        Corpi(p)[i]->AR = corpi[i];
        Corpi(p)[i]->AOb = corpi[i] + 0.2;
    }
    for (std::size_t i = 0; i < 6; ++i) {
        Cuspidi(p)[i]->AR = cuspidi[i];
        Cuspidi(p)[i]->AOb = cuspidi[i] + 0.1;
    }
    return p;
}

inline const std::array<double, 6> CuspidiComuni{10, 40, 70, 280, 310, 350};

} // namespace vesmo::prova
