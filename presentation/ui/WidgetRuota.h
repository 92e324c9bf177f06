// The place of a wheel in a window: it keeps the chart (or the two charts) and the options it was
// last given, and paints the whole wheel again on every paint, fitted into its own rectangle, so
// that it follows the window's size.
#pragma once

#include <QFrame>
#include <QImage>

#include "core/Tema.h"
#include "presentation/Ruota.h"
#include "presentation/RuotaAscensionale.h"
#include "presentation/RuotaDoppia.h"

namespace vesmo {

class WidgetRuota : public QFrame {
    Q_OBJECT
public:
    enum class Tipo { Nessuna, Singola, Doppia, Ascensionale, DoppiaAscensionale };

    explicit WidgetRuota(QWidget* genitore = nullptr);

    // The single wheel of a chart.
    void MostraRuota(const Tema& tema, const Posizioni& pos, const OpzioniRuota& opzioni);
    // The double wheel of an inner and an outer chart; with `casa` 1 to 12 the double zodiac
    // that puts that house of both charts on the same spot.
    void MostraDoppia(const Tema& temaInterno, const Posizioni& posInterno, const Tema& temaEsterno,
                      const Posizioni& posEsterno, const OpzioniDoppia& opzioni, int casa = 0);
    // The ascensional wheel of a chart, and its double form with an outer chart.
    void MostraAscensionale(const Tema& tema, const Posizioni& pos,
                            const OpzioniAscensionale& opzioni);
    void MostraDoppiaAscensionale(const Tema& temaInterno, const Posizioni& posInterno,
                                  const Tema& temaEsterno, const Posizioni& posEsterno,
                                  const OpzioniAscensionale& opzioni);
    const OpzioniAscensionale& OpzioniAscensioni() const { return ascensionale_; }
    // Nothing drawn: the place shows its background.
    void Svuota();

    Tipo TipoMostrato() const { return tipo_; }
    int CasaCoincidente() const { return casa_; }
    const OpzioniRuota& OpzioniSingola() const { return singola_; }
    const OpzioniDoppia& OpzioniDellaDoppia() const { return doppia_; }
    // What the last painting of a double wheel placed, and the rotations it used.
    const RuotaDoppiaDisegnata& UltimaDoppia() const { return disegnata_; }

    // The wheel as it stands, drawn on an image of that size.
    QImage Immagine(QSize dimensione);

    QSize sizeHint() const override { return {480, 480}; }
    QSize minimumSizeHint() const override { return {160, 160}; }

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    void Disegna(QPainter& p, const QRectF& dove);

    Tipo tipo_ = Tipo::Nessuna;
    Tema tema_, temaEsterno_;
    Posizioni pos_, posEsterno_;
    OpzioniRuota singola_;
    OpzioniDoppia doppia_;
    OpzioniAscensionale ascensionale_;
    int casa_ = 0;
    RuotaDoppiaDisegnata disegnata_;
};

} // namespace vesmo
