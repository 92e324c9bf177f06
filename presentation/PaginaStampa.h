// The printed chart page: the wheel in black at the upper left, the chart's data in a box at the
// upper right with the Moon's mode below it, and under them the table block of positions with
// their qualities and dignities, the counters, the Ascendant's rulers, the cusps and the list of
// aspects, closed by the program's footer. One composition draws the printing form, the printer,
// a PDF and the two bitmaps, all in twips with y growing downward and in the surface's own font.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "chart/Aspetti.h"
#include "core/Tema.h"
#include "presentation/Ruota.h"
#include "presentation/Superficie.h"

namespace vesmo {

// The geometry of the page.
struct GeometriaPagina {
    static constexpr double CentroX = 3700, CentroY = 3650;
    // Origin of the table block on the printed page.
    static constexpr double X0 = 200, Y0 = 7500;
    static constexpr double PassoTesto = 220;
    static constexpr double AltezzaRiga = 260;
};

// What the page reads of the form and of the session.
struct OpzioniPagina {
    // 1 Natale, 2 Transito, 3 Rivoluzione, 4 Direzione: the title of the header.
    int CheStampa = 1;
    // Today's date in the short format, for the title.
    std::string DataStampa;
    bool DisegnaAspetti = false;
    TabellaAspetti Aspetti = OpzioniRuota::TabellaAspettiDiLyx();
    std::int16_t LunaGeo = 1;
    std::int32_t LunaNeraVera = 1;
    // The pen width of the glyphs.
    int SpessoreGlifi = 2;
    // Drawn on the form rather than on the printer: the heading reads "Longitudini " there.
    bool SulModulo = false;
};

// One of the 14 rows of the table, as texts.
struct RigaPagina {
    std::string Longitudine;   // "05°03'09''", or "05°03'" for Asc and MC
    int Segno = 0;             // 0 Ariete ... 11 Pesci
    std::string Moto;          // "R", "-" or empty
    std::string Quadruplicita; // "Cardinale", "Fisso", "Mobile"
    std::string Elemento;      // "Fuoco", "Terra", "Aria", "Acqua"
    std::string Dignita;       // "Domicilio", "Dom D + Esa", ... or empty
};

// One entry of the aspect list: rows a < b (1..14) and the aspect's index.
struct VoceAspettoPagina {
    int a, b, k;
};

struct ContenutoPagina {
    std::array<RigaPagina, 15> Righe; // 1..14
    // Cardinali, Fissi, Mobili; Fuoco, Terra, Aria, Acqua; Domicilio, Esilio, Esaltazione, Caduta.
    std::array<int, 3> Quadruplicita{};
    std::array<int, 4> Elementi{};
    std::array<int, 4> Dignita{};
    // The rulers of the Ascendant's sign by day and by night: bodies 1..10, 0 none.
    int ReggenteDiurno = 0, ReggenteNotturno = 0;
    // The cusps 2, 3, 4 ... 9, 11, 12: label, longitude in the sign, sign.
    struct Cuspide {
        std::string Etichetta, Longitudine;
        int Segno = 0;
    };
    std::vector<Cuspide> Cuspidi;
    int NumAspetti = 0; // aspects switched on
    std::vector<VoceAspettoPagina> Aspetti;
};

// What the page says of a chart, without drawing it.
ContenutoPagina CalcolaContenutoPagina(const Tema& tema, const Posizioni& pos,
                                       const OpzioniPagina& o);

// The title words of the header: "TEMA NATALE", "TRANSITO", "RIVOLUZIONE", "DIREZIONE".
const char* TitoloPagina(int cheStampa);
// The three lines of the box below the header.
std::array<std::string, 3> RighePianeti(std::int16_t lunaGeo);
// The footer: the program with its version, and the contact line.
std::array<std::string, 2> PiedePagina();
// Today's date as the page prints it ("23/11/2026").
std::string DataOdierna();

// The pieces of the page.
PuntiDellaRuota DisegnaRuotaStampa(Superficie& sup, const Tema& tema, const Posizioni& pos,
                                   const OpzioniPagina& o);
void DisegnaTestataStampa(Superficie& sup, const Tema& tema, const OpzioniPagina& o);
void DisegnaRiquadroPianeti(Superficie& sup, const OpzioniPagina& o);
void DisegnaTabellaStampa(Superficie& sup, const Tema& tema, const Posizioni& pos,
                          const OpzioniPagina& o, double x0, double y0);
// The steps of DisegnaTabellaStampa, in its order, each at (x0, y0) in black with the pen's
// width as it finds it; none changes the pen's colour.
// The frame, the heading row and the fourteen rows of points with their qualities.
void RigheTabellaStampa(Superficie& sup, const ContenutoPagina& c, const OpzioniPagina& o,
                        double x0, double y0);
// The counters in three groups and the rulers of the Ascendant.
void ContiTabellaStampa(Superficie& sup, const ContenutoPagina& c, const OpzioniPagina& o,
                        double x0, double y0);
// The cusps, one a row from the 15th.
void CuspidiTabellaStampa(Superficie& sup, const ContenutoPagina& c, double x0, double y0);
// The heading of the aspects and the aspects flowing in rows; what would pass the bottom of the
// table is left out.
void AspettiTabellaStampa(Superficie& sup, const ContenutoPagina& c, const OpzioniPagina& o,
                          double x0, double y0);
void DisegnaPiedeStampa(Superficie& sup, double x0, double y0);

// The upper part (wheel, header, box), the lower part (table block and footer) at (x0, y0), and
// the whole page.
void DisegnaParteAlta(Superficie& sup, const Tema& tema, const Posizioni& pos,
                      const OpzioniPagina& o);
void DisegnaParteBassa(Superficie& sup, const Tema& tema, const Posizioni& pos,
                       const OpzioniPagina& o, double x0, double y0);
void ComponiPagina(Superficie& sup, const Tema& tema, const Posizioni& pos, const OpzioniPagina& o);

// The rectangles of twips: an A4 sheet with the page in its middle, and the two bitmaps.
Rettangolo AreaPagina();
Rettangolo AreaParteAlta();
Rettangolo AreaParteBassa();

} // namespace vesmo
