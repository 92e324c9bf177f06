// The names and angles of the 17 aspects (the session's choice of them is core/TabellaAspetti.h),
// the aspect test, parallels and contraparallels, and the text grid that the aspect selection
// shows for two charts.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/TabellaAspetti.h"
#include "core/Tema.h"

namespace vesmo {

// Names with their blanks, and exact angles in degrees.
extern const std::array<const char*, NumeroAspetti> NomiAspetti;
extern const std::array<double, NumeroAspetti> AngoliAspetti;

// The distance tested for two longitudes: |a - b (+ arco)|, folded to 0..180.
double DistanzaAspetto(double a, double b, double arcoSolare = 0);

// Indices of the aspects that distance d satisfies with this orb (both ends included), in table
// order; with a wide orb a pair can be in several.
std::vector<int> ProvaAspetto(double d, double orbita);

// "P", "C", " ", " P" or "CP" for two declinations in degrees; D the difference in declination.
std::string MarcaParallelo(double d1Gradi, double d2Gradi, double& differenza);

// The 15 points of the grid (both Black Moons) and the 14 of the wheels.
std::vector<const Posizione*> PuntiGriglia(const Posizioni& p);
std::vector<const Posizione*> PuntiRuota(const Posizioni& p, std::int32_t lunaNeraVera);
extern const std::array<const char*, 14> NomiPuntiRuota;

// The grid of the aspect selection: 31 rows (0 the column heads) and 16 columns (0 the row
// heads), rows 2i-1 and 2i for point i.
struct GrigliaAspetti {
    std::array<std::array<std::string, 16>, 31> celle;
};
extern const char* const TestataColonne;
extern const char* const TestataRighe;
// The aspect of one cell of the grid: point i of the rows against point j of the columns (1 to
// 15), the aspect k that the cell shows (the last hit), the degrees missing to the exact aspect,
// the difference in declination and the parallel mark.
struct CellaAspetto {
    int i, j, k;
    double mancano, differenza;
    std::string marca;
};
// The cells that hold an aspect, rows first.
std::vector<CellaAspetto> CelleAspetti(const Posizioni& righe, const Posizioni& colonne,
                                       bool comparati, float orbita, float arcoSolare);
GrigliaAspetti CostruisciGriglia(const Posizioni& righe, const Posizioni& colonne, bool comparati,
                                 float orbita, float arcoSolare);

// The help text of the selection form.
extern const char* const TitoloAiutoAspetti;
std::string TestoAiutoAspetti();

// One aspect between two of the 14 wheel points.
struct AspettoTrovato {
    int a, b;      // indices into NomiPuntiRuota
    int k;         // aspect index
    double d;      // distance tested
    double scarto; // |angle - d|
};
std::vector<AspettoTrovato> AspettiDelTema(const Posizioni& p, std::int32_t lunaNeraVera,
                                           float orbita);

} // namespace vesmo
