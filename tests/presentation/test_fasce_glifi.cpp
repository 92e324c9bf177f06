// Every glyph of the single, printed, double and double-zodiac wheels, at all rotations, stays
// between its ring's circles (the ascensional wheels' glyphs are placed exactly in their own test).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "Disegno.h"
#include "Temi.h"
#include "presentation/PaginaStampa.h"
#include "presentation/Ruota.h"
#include "presentation/RuotaDoppia.h"

using namespace vesmo;
using namespace vesmo::prova;

namespace {

constexpr double Infinito = std::numeric_limits<double>::infinity();

struct Scatola {
    double x0 = Infinito, y0 = Infinito, x1 = -Infinito, y1 = -Infinito;
    void Aggiungi(double x, double y, double margine = 0) {
        x0 = std::min(x0, x - margine);
        y0 = std::min(y0, y - margine);
        x1 = std::max(x1, x + margine);
        y1 = std::max(y1, y + margine);
    }
};

// The box of what a figure puts on the surface, with half the pen's width (15 twips a pixel).
void AggiungiFigura(Scatola& s, const Figura& f) {
    const double m = f.spessore * 15 / 2.0;
    switch (f.tipo) {
    case Figura::Linea:
        s.Aggiungi(f.x1, f.y1, m);
        s.Aggiungi(f.x2, f.y2, m);
        break;
    case Figura::Ellisse:
        s.Aggiungi(f.x1 - f.rx, f.y1 - f.ry, m);
        s.Aggiungi(f.x1 + f.rx, f.y1 + f.ry, m);
        break;
    case Figura::Arco:
        for (int k = 0; k <= 256; ++k) {
            const double t = f.inizio + f.ampiezza * k / 256;
            s.Aggiungi(f.x1 + f.rx * std::cos(t), f.y1 - f.ry * std::sin(t), m);
        }
        if (f.raggioInizio || f.raggioFine) s.Aggiungi(f.x1, f.y1, m);
        break;
    case Figura::Punto:
        s.Aggiungi(f.x1, f.y1, m);
        break;
    case Figura::Testo:
        s.Aggiungi(f.x1, f.y1);
        s.Aggiungi(f.x1 + 2 * f.rx, f.y1 + 2 * f.ry);
        break;
    case Figura::Immagine:
        s.Aggiungi(f.x1, f.y1);
        s.Aggiungi(f.x2, f.y2);
        break;
    case Figura::Pulisci:
        break;
    }
}

// The boxes of the glyphs and of the sign symbols drawn on a surface.
std::vector<Scatola> ScatoleDeiGlifi(const SuperficieRegistrata& sup) {
    std::vector<Scatola> r;
    for (auto [da, a] : sup.glifi) {
        Scatola s;
        for (std::size_t i = da; i < a; ++i)
            AggiungiFigura(s, sup.figure[i]);
        r.push_back(s);
    }
    for (const Figura& f : sup.figure)
        if (f.tipo == Figura::Testo && f.carattere == CarattereSimboli) {
            Scatola s;
            AggiungiFigura(s, f);
            r.push_back(s);
        }
    return r;
}

// A wheel's circles: each glyph's box stays inside the band where the box's centre lies.
struct Ruota {
    double cx, cy;
    std::vector<double> cerchi;
};

void ControllaFasce(const SuperficieRegistrata& sup, const Ruota& ruota, std::size_t attesi) {
    const auto scatole = ScatoleDeiGlifi(sup);
    EXPECT_EQ(scatole.size(), attesi);
    for (const Scatola& s : scatole) {
        const double mx = (s.x0 + s.x1) / 2, my = (s.y0 + s.y1) / 2;
        const double centro = std::hypot(mx - ruota.cx, my - ruota.cy);
        double dentro = 0, fuori = Infinito;
        for (double c : ruota.cerchi) {
            if (c <= centro) dentro = std::max(dentro, c);
            if (c > centro) fuori = std::min(fuori, c);
        }
        // The nearest point of the box to the wheel's centre, and its farthest corner.
        const double vx = std::clamp(ruota.cx, s.x0, s.x1), vy = std::clamp(ruota.cy, s.y0, s.y1);
        const double vicino = std::hypot(vx - ruota.cx, vy - ruota.cy);
        double lontano = 0;
        for (double x : {s.x0, s.x1})
            for (double y : {s.y0, s.y1})
                lontano = std::max(lontano, std::hypot(x - ruota.cx, y - ruota.cy));
        EXPECT_GE(vicino, dentro) << "glifo a " << mx << ", " << my;
        EXPECT_LE(lontano, fuori) << "glifo a " << mx << ", " << my;
    }
}

// Bodies spread round, Sole and Luna 5 degrees apart (rings 1 and 2), nodes between them.
Posizioni Carta() {
    Posizioni p =
        PosizioniDiProva({50, 55, 100, 140, 170, 200, 230, 262, 290, 320, 350, 20}, CuspidiComuni);
    for (Posizione* c : Corpi(p))
        c->LNd = c->Lo + 65;
    return p;
}

} // namespace

TEST(FasceDeiGlifi, RuotaSingolaEStampata) {
    GeometriaRuota piccola;
    piccola.RaggioEsterno = 2600;
    piccola.RaggioInterno = 2000;
    for (const GeometriaRuota& g : {GeometriaRuota{}, piccola}) {
        for (double angolo = 0; angolo < 360; angolo += 7.5) {
            SCOPED_TRACE(std::to_string(g.RaggioEsterno) + " a " + std::to_string(angolo));
            // Both nodes of Mercurio to Nettuno.
            const OpzioniRuota o{.AngoloRuota = angolo, .NodiScelti = 1, .Geometria = g};
            SuperficieRegistrata sup;
            DisegnaRuota(sup, TemaDiProva(), Carta(), o);
            // 12 signs, 12 bodies, 14 nodes.
            ControllaFasce(sup, {g.CentroX, g.CentroY, {g.RaggioInterno, g.RaggioEsterno}}, 38);
        }
    }
    OpzioniPagina pagina;
    SuperficieRegistrata sup;
    DisegnaRuotaStampa(sup, TemaDiProva(), Carta(), pagina);
    ControllaFasce(sup, {GeometriaPagina::CentroX, GeometriaPagina::CentroY, {2450, 3100}}, 24);
}

TEST(FasceDeiGlifi, RuotaDoppiaConESenzaMappaEDoppioZodiaco) {
    for (bool mappa : {false, true}) {
        const GeometriaDoppia g = GeometriaDellaDoppia(mappa);
        for (double angolo = 0; angolo < 360; angolo += 7.5) {
            SCOPED_TRACE(std::string(mappa ? "con mappa a " : "senza mappa a ") +
                         std::to_string(angolo));
            const OpzioniDoppia o{.AngoloRuota = angolo, .MappaVisibile = mappa};
            SuperficieRegistrata sup;
            DisegnaDoppia(sup, TemaDiProva(), Carta(), TemaDiProva(), Carta(), o);
            // 12 sign symbols, 12 inner and 12 outer bodies.
            ControllaFasce(sup, {g.CentroX, g.CentroY, {g.R2, g.R1}}, 36);
        }
    }
    const GeometriaDoppia z = GeometriaDelDoppioZodiaco();
    for (int casa = 1; casa <= 12; ++casa) {
        SCOPED_TRACE(casa);
        SuperficieRegistrata sup;
        Posizioni esterno = Carta();
        DisegnaDoppioZodiaco(sup, TemaDiProva(), Carta(), TemaDiProva(), esterno, OpzioniDoppia{},
                             casa);
        ControllaFasce(
            sup,
            {z.CentroX, z.CentroY, {z.R2, z.R1, RaggioZodiacoEsterno, RaggioZodiacoEsternoFine}},
            48);
    }
}
