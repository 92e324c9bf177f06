// The transit calendar: every moment of a period at which a transiting body's longitude makes an
// aspect of the table exact to a natal point, with the moments it enters and leaves the orb.
// Each body's longitude is sampled with a step fitted to its speed; its stations are found
// between the samples, so that the longitude is monotone between two breakpoints and each
// crossing of a target is bracketed alone, the three passes of a station included.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/Tema.h"

namespace vesmo {

// The transiting bodies by the numbers of the body order: 0 Sole, 1 Luna, 2 Mercurio .. 9
// Plutone, 10 NodoLuna (the mean node).
inline constexpr int NumeroCorpiTransito = 11;
extern const std::array<const char*, NumeroCorpiTransito> NomiCorpiTransito;

// The longitude of a transiting body at jd (TU), as the chart casts it: the apparent Sun, the
// geocentric Moon, the planets and Pluto, the mean node.
double LongitudineTransito(int corpo, double jd);
// The Moon seen from the place Lon (hours, west positive), Lat (degrees), as the chart casts it
// with the topocentric Moon.
double LongitudineLunaTopocentrica(double jd, double lon, double lat);

// The default transiting bodies: Giove, Saturno, Urano, Nettuno, Plutone.
std::vector<int> CorpiTransitoPredefiniti();

struct PuntoNatale {
    std::string nome; // the chart record's name: "Sole", "Asce", "MC"...
    double Lo = 0;    // degrees
};

// The natal points of a cast chart by their names: Sole..Plutone, NodoLuna, LilithMedia,
// LilithVera, Asce, MC. False when the name is none of these.
bool PuntoDelTema(const Posizioni& p, const std::string& nome, PuntoNatale& punto);
// The 14 points of the wheel, in their order: the Black Moon is the one of `lunaNeraVera`.
std::vector<PuntoNatale> PuntiNataliPredefiniti(const Posizioni& p, std::int32_t lunaNeraVera);

struct RichiestaTransiti {
    double jdDa = 0, jdA = 0;       // the period, TU, both ends included
    std::vector<int> corpi;         // transiting bodies (0..10)
    std::vector<PuntoNatale> punti; // natal points
    std::vector<int> aspetti;       // indices into the aspect table (0..16)
    double orbita = 2.5;            // degrees, the one orb of every aspect
    // The Moon: 1 geocentric, 0 topocentric from the place lonLuogo (hours, west positive),
    // latLuogo (degrees).
    std::int16_t lunaGeo = 1;
    double lonLuogo = 0, latLuogo = 0;
};

struct Transito {
    double jd = 0; // the aspect exact, TU
    int corpo = 0; // transiting body
    bool retrogrado = false;
    int aspetto = 0;      // index into the aspect table
    int punto = 0;        // index into RichiestaTransiti::punti
    double bersaglio = 0; // the longitude at which the aspect is exact, 0..360
    // Entering and leaving the orb around this pass, TU; the three passes of a station share
    // them when the body stays in orb between them. NaN when not found within the search's reach.
    double jdIngresso = 0, jdUscita = 0;
};

// Called with the share done (0..1); returning false stops the search, which then returns the
// hits found so far.
using AvanzamentoTransiti = std::function<bool(double quota)>;

// Every hit of the period, sorted by jd (then body, aspect, point). An orb below 0 finds
// nothing; an empty period (jdA < jdDa) neither.
std::vector<Transito> CercaTransiti(const RichiestaTransiti& r,
                                    const AvanzamentoTransiti& avanzamento = {});

// The sampling step of a body, days: at least three steps lie between two of its stations.
double PassoCampioni(int corpo);

} // namespace vesmo
