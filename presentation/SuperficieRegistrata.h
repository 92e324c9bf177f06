// A surface that draws nothing and keeps every figure with the state it was drawn in, so that a
// test can ask what was drawn where, in which colour and with which pen.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "presentation/Superficie.h"

namespace vesmo {

struct Figura {
    enum Tipo { Ellisse, Arco, Linea, Punto, Testo, Pulisci, Immagine } tipo = Linea;
    // Line: from (x1, y1) to (x2, y2). Ellipse, arc, point and text: at (x1, y1). Picture: over
    // the rectangle from (x1, y1) to (x2, y2), its file in `testo`.
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    double rx = 0, ry = 0;           // half-axes of ellipses and arcs; half the box of a text
    double inizio = 0, ampiezza = 0; // arcs, radians
    bool raggioInizio = false, raggioFine = false;
    Colore colore;
    int spessore = 1;
    int tipoRiempimento = 1;
    Colore coloreRiempimento;
    std::string testo;
    Carattere carattere;
};

class SuperficieRegistrata : public Superficie {
public:
    explicit SuperficieRegistrata(Colore fondo = FacciaPulsante) : Superficie(fondo) {}
    std::vector<Figura> figure;
    // Each glyph as the range [first, second) of its figures.
    std::vector<std::pair<std::size_t, std::size_t>> glifi;

protected:
    void FaiEllisse(double x, double y, double rx, double ry, Colore colore) override;
    void FaiArco(double x, double y, double rx, double ry, double a, double ampiezza,
                 bool raggioInizio, bool raggioFine, Colore colore) override;
    void FaiLinea(double x1, double y1, double x2, double y2, Colore colore) override;
    void FaiPunto(double x, double y, Colore colore) override;
    double FaiTesto(double x, double y, const std::string& testo) override;
    void FaiPulisci() override;
    void SegnaGlifo(bool inizio) override;
    void FaiImmagine(double x, double y, double larghezza, double altezza,
                     const std::string& file) override;

private:
    Figura Nuova(Figura::Tipo tipo, Colore colore) const;
};

} // namespace vesmo
