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

// Bodies Sole ... NodoLuna, the Black Moon (both), then cusps I, II, III, X, XI, XII.
inline Posizioni PosizioniDiProva(const std::array<double, 12>& corpi,
                                  const std::array<double, 6>& cuspidi) {
    Posizioni p;
    Posizione* c[] = {&p.Sole,    &p.Luna,  &p.Mercurio, &p.Venere,  &p.Marte,    &p.Giove,
                      &p.Saturno, &p.Urano, &p.Nettuno,  &p.Plutone, &p.NodoLuna, &p.LilithVera};
    for (std::size_t i = 0; i < 12; ++i)
        c[i]->Lo = corpi[i];
    p.LilithMedia.Lo = corpi[11];
    Posizione* k[] = {&p.Asce, &p.CasaII, &p.CasaIII, &p.MC, &p.CasaXI, &p.CasaXII};
    for (std::size_t i = 0; i < 6; ++i)
        k[i]->Lo = cuspidi[i];
    return p;
}

inline const std::array<double, 6> CuspidiComuni{10, 40, 70, 280, 310, 350};

} // namespace vesmo::prova
