#include "presentation/SuperficieRegistrata.h"

namespace vesmo {

Figura SuperficieRegistrata::Nuova(Figura::Tipo tipo, Colore colore) const {
    Figura f;
    f.tipo = tipo;
    f.colore = colore;
    f.spessore = SpessorePenna();
    f.tipoRiempimento = TipoRiempimento();
    f.coloreRiempimento = ColoreRiempimento();
    f.carattere = Carattere();
    return f;
}

void SuperficieRegistrata::FaiEllisse(double x, double y, double rx, double ry, Colore colore) {
    Figura f = Nuova(Figura::Ellisse, colore);
    f.x1 = x;
    f.y1 = y;
    f.rx = rx;
    f.ry = ry;
    figure.push_back(f);
}

void SuperficieRegistrata::FaiArco(double x, double y, double rx, double ry, double a,
                                   double ampiezza, bool raggioInizio, bool raggioFine,
                                   Colore colore) {
    Figura f = Nuova(Figura::Arco, colore);
    f.x1 = x;
    f.y1 = y;
    f.rx = rx;
    f.ry = ry;
    f.inizio = a;
    f.ampiezza = ampiezza;
    f.raggioInizio = raggioInizio;
    f.raggioFine = raggioFine;
    figure.push_back(f);
}

void SuperficieRegistrata::FaiLinea(double x1, double y1, double x2, double y2, Colore colore) {
    Figura f = Nuova(Figura::Linea, colore);
    f.x1 = x1;
    f.y1 = y1;
    f.x2 = x2;
    f.y2 = y2;
    figure.push_back(f);
}

void SuperficieRegistrata::FaiPunto(double x, double y, Colore colore) {
    Figura f = Nuova(Figura::Punto, colore);
    f.x1 = x;
    f.y1 = y;
    figure.push_back(f);
}

double SuperficieRegistrata::FaiTesto(double x, double y, const std::string& testo) {
    Figura f = Nuova(Figura::Testo, ColorePenna());
    f.x1 = x;
    f.y1 = y;
    f.testo = testo;
    f.rx = LarghezzaTesto(testo) / 2;
    f.ry = Carattere().punti * 10;
    figure.push_back(f);
    return LarghezzaTesto(testo);
}

void SuperficieRegistrata::SegnaGlifo(bool inizio) {
    if (inizio)
        glifi.emplace_back(figure.size(), figure.size());
    else if (!glifi.empty())
        glifi.back().second = figure.size();
}

void SuperficieRegistrata::FaiPulisci() {
    figure.push_back(Nuova(Figura::Pulisci, ColoreFondo()));
}

void SuperficieRegistrata::FaiImmagine(double x, double y, double larghezza, double altezza,
                                       const std::string& file) {
    Figura f = Nuova(Figura::Immagine, ColorePenna());
    f.x1 = x;
    f.y1 = y;
    f.x2 = x + larghezza;
    f.y2 = y + altezza;
    f.testo = file;
    figure.push_back(f);
}

} // namespace vesmo
