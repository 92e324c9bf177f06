// The transit calendar on paper: pages of the printed chart's size, each with the chart's header
// box at the upper right, the search's description at the upper left, then the list in columns,
// and the footer of the chart page. Drawn on the surface of the wheels, so that the printer, a
// PDF and the tests draw the same.
#pragma once

#include <string>
#include <vector>

#include "core/Tema.h"
#include "presentation/Superficie.h"
#include "timecharts/ListaTransiti.h"

namespace vesmo {

struct DatiPaginaTransiti {
    Tema tema;              // the natal chart of the header
    std::string dataStampa; // today's date, in the header's title
    // The lines under the title at the upper left: period, bodies, points, aspects, orb, place.
    std::vector<std::string> descrizione;
};

inline constexpr const char* TitoloPaginaTransiti = "CALENDARIO TRANSITI";

// Rows of the list on each page.
int RighePerPaginaTransiti();
// How many pages the list takes (one at least).
int PagineTransiti(std::size_t righe);
// Page `pagina` (0 first) of the list.
void DisegnaPaginaTransiti(Superficie& sup, const DatiPaginaTransiti& dati,
                           const std::vector<RigaTransito>& righe, int pagina);

} // namespace vesmo
