// The drawing surface of the wheels: twips, origin at the top left, y growing downward. Every
// wheel is drawn through these few operations alone, so that a window, the printer, a PDF, an
// SVG or a PNG show the same picture. The surface keeps the pen's state (position, width,
// colour) and the fill; an implementation only puts the figures on its device.
#pragma once

#include <cstdint>
#include <string>

namespace vesmo {

struct Colore {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Colore&) const = default;
};

// The sixteen colours of the usual palette, by index 0 to 15.
Colore ColorePalette(int indice);

inline constexpr Colore Nero{0, 0, 0};
inline constexpr Colore Bianco{255, 255, 255};
inline constexpr Colore Blu{0, 0, 255};
inline constexpr Colore Rosso{255, 0, 0};
inline constexpr Colore Grigio{128, 128, 128};
inline constexpr Colore BluNotte{0, 0, 128};
inline constexpr Colore Ciano{0, 255, 255};
inline constexpr Colore GrigioChiaro{224, 224, 224};
// The system's button face and button shadow.
inline constexpr Colore FacciaPulsante{192, 192, 192};
inline constexpr Colore OmbraPulsante{128, 128, 128};

// A font by family name and size in points (1 point = 20 twips).
struct Carattere {
    std::string nome;
    double punti = 8;
    bool operator==(const Carattere&) const = default;
};

// Fonts of the wheels: the symbols of signs and bodies, the house numbers of the double wheel,
// and the surface's own font.
extern const Carattere CarattereSimboli;
extern const Carattere CarattereNumeri;
extern const Carattere CarattereNormale;

class Superficie {
public:
    virtual ~Superficie() = default;

    // Pen position; Cerchio, Linea, Punto and Stampa leave it at the end of what they drew, a
    // Cerchio at its centre.
    double PennaX() const { return pennaX_; }
    double PennaY() const { return pennaY_; }
    void PennaX(double x) { pennaX_ = x; }
    void PennaY(double y) { pennaY_ = y; }

    // Pen width, in pixels of a screen of 15 twips a pixel; the picture scales it with itself.
    int SpessorePenna() const { return spessore_; }
    void SpessorePenna(int w) { spessore_ = w; }

    // Fill of the closed figures that follow: 0 solid, 1 transparent.
    int TipoRiempimento() const { return tipoRiempimento_; }
    void TipoRiempimento(int t) { tipoRiempimento_ = t; }
    Colore ColoreRiempimento() const { return coloreRiempimento_; }
    void ColoreRiempimento(Colore c) { coloreRiempimento_ = c; }

    Colore ColoreFondo() const { return coloreFondo_; }
    Colore ColorePenna() const { return colorePenna_; }
    void ColorePenna(Colore c) { colorePenna_ = c; }

    const vesmo::Carattere& Carattere() const { return carattere_; }
    void Carattere(const vesmo::Carattere& c) { carattere_ = c; }

    // A full circle, or an ellipse when aspetto (height over width) is not 1; r is the longer
    // half-axis.
    void Cerchio(double x, double y, double r, Colore colore, double aspetto = 1);
    // An elliptical arc from inizio to fine, radians counterclockwise from the right; a negative
    // angle also draws a straight line from the centre to the arc's end at its absolute value.
    void Cerchio(double x, double y, double r, Colore colore, double inizio, double fine,
                 double aspetto = 1);
    void Linea(double x1, double y1, double x2, double y2, Colore colore);
    // A point of the pen's width.
    void Punto(double x, double y, Colore colore);
    // Text with its top left at the pen, in the surface's font and the pen's colour.
    void Stampa(const std::string& testo);
    // Text centred at (cx, cy): the symbols of the signs on their ring. The pen is left at the
    // top right of the text's box.
    void StampaCentrata(const std::string& testo, double cx, double cy);
    // The whole surface in the background colour.
    void Pulisci();
    // The strokes between these two calls make one glyph: a surface may keep them together.
    void InizioGlifo() { SegnaGlifo(true); }
    void FineGlifo() { SegnaGlifo(false); }
    // The picture of an image file stretched over the rectangle (twips) at (x, y), under what is
    // drawn after it. Nothing when the file is missing or is not an image.
    void Immagine(double x, double y, double larghezza, double altezza, const std::string& file);
    // The width in twips that Stampa gives a text in the surface's font; without the font's
    // metrics, six tenths of the size a character.
    virtual double LarghezzaTesto(const std::string& testo) const;

protected:
    explicit Superficie(Colore fondo = FacciaPulsante) : coloreFondo_(fondo) {}

    // The figures on the device; the state above is read as it stands.
    virtual void FaiEllisse(double x, double y, double rx, double ry, Colore colore) = 0;
    // Arc from a to a + ampiezza (radians, ampiezza 0..2pi), with the radii to the centre
    // where raggioInizio / raggioFine say so.
    virtual void FaiArco(double x, double y, double rx, double ry, double a, double ampiezza,
                         bool raggioInizio, bool raggioFine, Colore colore) = 0;
    virtual void FaiLinea(double x1, double y1, double x2, double y2, Colore colore) = 0;
    virtual void FaiPunto(double x, double y, Colore colore) = 0;
    // Returns the text's width in twips.
    virtual double FaiTesto(double x, double y, const std::string& testo) = 0;
    // Text centred at (cx, cy); by default a box LarghezzaTesto wide and the font's size high.
    // Returns the box's width in twips.
    virtual double FaiTestoCentrato(double cx, double cy, const std::string& testo);
    virtual void FaiPulisci() = 0;
    virtual void SegnaGlifo(bool /*inizio*/) {}
    virtual void FaiImmagine(double x, double y, double larghezza, double altezza,
                             const std::string& file) = 0;

private:
    double pennaX_ = 0, pennaY_ = 0;
    int spessore_ = 1;
    int tipoRiempimento_ = 1;
    Colore coloreRiempimento_ = Nero;
    Colore coloreFondo_;
    Colore colorePenna_ = Nero;
    vesmo::Carattere carattere_ = CarattereNormale;
};

} // namespace vesmo
