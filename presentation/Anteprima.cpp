#include "presentation/Anteprima.h"

#include <cmath>
#include <string>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "presentation/Ruota.h"
#include "presentation/RuotaDoppia.h"

namespace vesmo {

const std::array<const char*, 11> SimboliCorpi{"\u2609", "\u263D", "\u263F", "\u2640",
                                               "\u2642", "\u2643", "\u2644", "\u2645",
                                               "\u2646", "\u2647", "\u260A"};

namespace {

void StampaIn(Superficie& sup, double x, double y, const std::string& testo) {
    sup.PennaX(x);
    sup.PennaY(y);
    sup.Stampa(testo);
}

} // namespace

void DisegnaAnteprima(Superficie& sup, const Tema& tema, const Posizioni& pos) {
    const double cx = 7500, cy = 3250, R1 = 2000, R2 = 1600;
    Case cuspidi = CaseDellaRuota(tema, pos);
    const Riferimento P{cx, cy, static_cast<float>(360 - cuspidi[1].Lo)};
    Colore penna = sup.ColorePenna();
    Carattere carattereForm = sup.Carattere();
    sup.Carattere(CarattereSimboli);

    // 1.
    sup.Pulisci();
    sup.Cerchio(cx, cy, R2, penna);
    sup.Cerchio(cx, cy, R1, penna);

    // 2. Signs.
    for (int segno = 0; segno < 12; ++segno) {
        double L = segno * 30.0;
        sup.Linea(P.X(R2, L), P.Y(R2, L), P.X(R1, L), P.Y(R1, L), penna);
        StampaIn(sup, P.X(R2 + 200, L + 15) - 160, P.Y(R2 + 200, L + 15) - 160,
                 SimboliSegni[static_cast<std::size_t>(segno)]);
    }

    // 3. Bodies: one ring more for every earlier body within 9 degrees, rings not compared.
    const Posizione* corpi[11] = {&pos.Sole,    &pos.Luna,    &pos.Mercurio, &pos.Venere,
                                  &pos.Marte,   &pos.Giove,   &pos.Saturno,  &pos.Urano,
                                  &pos.Nettuno, &pos.Plutone, &pos.NodoLuna};
    for (int i = 0; i < 11; ++i) {
        double L = corpi[i]->Lo;
        sup.Linea(P.X(R2, L), P.Y(R2, L), P.X(R2 - 175, L), P.Y(R2 - 175, L), penna);
        int anello = 1;
        for (int j = 0; j < i; ++j) {
            double d = std::fabs(L - corpi[j]->Lo);
            if (d < 9 || d > 351) ++anello;
        }
        double r = R2 - anello * 350;
        StampaIn(sup, P.X(r, L) - 175, P.Y(r, L) - 175, SimboliCorpi[static_cast<std::size_t>(i)]);
    }

    // 4. Cusps, with their numbers in the small font.
    for (int i = 1; i <= 12; ++i) {
        double L = cuspidi[i].Lo;
        bool angolo = i == 1 || i == 4 || i == 7 || i == 10;
        double fine = angolo ? R1 + 400 : R2;
        sup.Linea(P.X(500, L), P.Y(500, L), P.X(fine, L), P.Y(fine, L), penna);
        if (i == 1) FrecciaAscendente(sup, P.X(fine, L), P.Y(fine, L), P.Radianti(L), 250);
        if (i == 10) sup.Cerchio(P.X(R1 + 200, L), P.Y(R1 + 200, L), 200, penna);
        double medio = MedioArco(L, cuspidi[i < 12 ? i + 1 : 1].Lo, 0);
        sup.Carattere(CarattereNumeri);
        StampaIn(sup, P.X(500, medio) - 70, P.Y(500, medio) - 70, std::to_string(i));
        sup.Carattere(CarattereSimboli);
    }

    // 5. Date, time and summer time in the form's font.
    sup.Carattere(carattereForm);
    float anno, mese, giorno;
    DataDaGiuliano(tema.Day, anno, mese, giorno);
    double ore, minuti, secondi;
    GradiPrimiSecondi(tema.OraL, ore, minuti, secondi);
    StampaIn(sup, 4950, 850,
             TestoNumero(giorno) + "/" + TestoNumero(mese) + "/" + TestoNumero(anno) + "  " +
                 TestoNumero(ore) + ":" + TestoNumero(minuti));
    StampaIn(sup, 8800, 850, "Estiva =  " + TestoNumero(tema.Estiva));
}

} // namespace vesmo
