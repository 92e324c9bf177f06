#include "timecharts/PaginaTransiti.h"

#include <algorithm>

#include "presentation/PaginaStampa.h"

namespace vesmo {

namespace {

using G = GeometriaPagina;

// The columns of the list, x in twips, and where the list begins and ends.
constexpr double Colonne[] = {200, 1400, 2400, 3700, 5500, 6900, 8800};
constexpr double InizioLista = 3300;
constexpr double FineLista = 14900;

void Testo(Superficie& sup, double x, double y, const std::string& t) {
    sup.PennaX(x);
    sup.PennaY(y);
    sup.Stampa(t);
}

} // namespace

int RighePerPaginaTransiti() {
    return static_cast<int>((FineLista - InizioLista) / G::AltezzaRiga) - 1;
}

int PagineTransiti(std::size_t righe) {
    const auto perPagina = static_cast<std::size_t>(RighePerPaginaTransiti());
    return static_cast<int>(std::max<std::size_t>(1, (righe + perPagina - 1) / perPagina));
}

void DisegnaPaginaTransiti(Superficie& sup, const DatiPaginaTransiti& dati,
                           const std::vector<RigaTransito>& righe, int pagina) {
    sup.ColorePenna(Nero);
    sup.SpessorePenna(1);
    OpzioniPagina o;
    o.CheStampa = 1;
    o.DataStampa = dati.dataStampa;
    DisegnaTestataStampa(sup, dati.tema, o);

    // The description at the upper left, beside the header.
    const int pagine = PagineTransiti(righe.size());
    Testo(sup, 200, 240,
          std::string(TitoloPaginaTransiti) + "   -   pagina " + std::to_string(pagina + 1) +
              " di " + std::to_string(pagine));
    sup.Linea(200, 460, 6800, 460, Nero);
    double y = 590;
    for (const std::string& riga : dati.descrizione) {
        if (y > 2800) break;
        Testo(sup, 200, y, riga);
        y += G::PassoTesto;
    }

    // The list: heads, a line under them, the rows of this page.
    for (std::size_t i = 0; i < TesteColonneTransiti.size(); ++i)
        Testo(sup, Colonne[i], InizioLista, TesteColonneTransiti[i]);
    sup.Linea(150, InizioLista + G::AltezzaRiga - 20, 10700, InizioLista + G::AltezzaRiga - 20,
              Nero);
    const auto perPagina = static_cast<std::size_t>(RighePerPaginaTransiti());
    const std::size_t da = static_cast<std::size_t>(std::max(0, pagina)) * perPagina;
    y = InizioLista + G::AltezzaRiga;
    for (std::size_t r = da; r < righe.size() && r < da + perPagina; ++r) {
        const auto celle = CelleTransito(righe[r]);
        for (std::size_t i = 0; i < celle.size(); ++i)
            Testo(sup, Colonne[i], y, celle[i]);
        y += G::AltezzaRiga;
    }
    if (righe.empty()) Testo(sup, Colonne[0], y, "Nessun transito esatto nel periodo.");
    DisegnaPiedeStampa(sup, G::X0, G::Y0);
}

} // namespace vesmo
