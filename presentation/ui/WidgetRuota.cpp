#include "presentation/ui/WidgetRuota.h"

#include <QPaintEvent>
#include <QPainter>

#include "presentation/qt/SuperficieQt.h"

namespace vesmo {

WidgetRuota::WidgetRuota(QWidget* genitore) : QFrame(genitore) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WidgetRuota::MostraRuota(const Tema& tema, const Posizioni& pos, const OpzioniRuota& opzioni) {
    tipo_ = Tipo::Singola;
    tema_ = tema;
    pos_ = pos;
    singola_ = opzioni;
    casa_ = 0;
    update();
}

void WidgetRuota::MostraDoppia(const Tema& temaInterno, const Posizioni& posInterno,
                               const Tema& temaEsterno, const Posizioni& posEsterno,
                               const OpzioniDoppia& opzioni, int casa) {
    tipo_ = Tipo::Doppia;
    tema_ = temaInterno;
    pos_ = posInterno;
    temaEsterno_ = temaEsterno;
    posEsterno_ = posEsterno;
    doppia_ = opzioni;
    casa_ = casa >= 1 && casa <= 12 ? casa : 0;
    // The rotations are known before the first paint: the window reads them back at once.
    QImage prova(1, 1, QImage::Format_RGB32);
    QPainter p(&prova);
    Disegna(p, QRectF(0, 0, 1, 1));
    update();
}

void WidgetRuota::MostraAscensionale(const Tema& tema, const Posizioni& pos,
                                     const OpzioniAscensionale& opzioni) {
    tipo_ = Tipo::Ascensionale;
    tema_ = tema;
    pos_ = pos;
    ascensionale_ = opzioni;
    casa_ = 0;
    update();
}

void WidgetRuota::MostraDoppiaAscensionale(const Tema& temaInterno, const Posizioni& posInterno,
                                           const Tema& temaEsterno, const Posizioni& posEsterno,
                                           const OpzioniAscensionale& opzioni) {
    tipo_ = Tipo::DoppiaAscensionale;
    tema_ = temaInterno;
    pos_ = posInterno;
    temaEsterno_ = temaEsterno;
    posEsterno_ = posEsterno;
    ascensionale_ = opzioni;
    casa_ = 0;
    update();
}

void WidgetRuota::Svuota() {
    tipo_ = Tipo::Nessuna;
    casa_ = 0;
    update();
}

QImage WidgetRuota::Immagine(QSize dimensione) {
    QImage img(dimensione, QImage::Format_RGB32);
    QPainter p(&img);
    Disegna(p, QRectF(QPointF(0, 0), QSizeF(dimensione)));
    return img;
}

void WidgetRuota::paintEvent(QPaintEvent* e) {
    QPainter p(this);
    p.setClipRegion(e->region());
    Disegna(p, QRectF(contentsRect()));
    p.end();
    QFrame::paintEvent(e);
}

void WidgetRuota::Disegna(QPainter& p, const QRectF& dove) {
    // The whole place in the background first: the single wheel only repaints its disc.
    p.fillRect(dove, ColoreQt(FacciaPulsante));
    switch (tipo_) {
    case Tipo::Nessuna:
        break;
    case Tipo::Singola: {
        SuperficieQt sup(p, AreaRuota(singola_.Geometria), dove);
        DisegnaRuota(sup, tema_, pos_, singola_);
        break;
    }
    case Tipo::Doppia: {
        if (casa_) {
            SuperficieQt sup(p, AreaDoppioZodiaco(), dove);
            disegnata_ =
                DisegnaDoppioZodiaco(sup, tema_, pos_, temaEsterno_, posEsterno_, doppia_, casa_);
        } else {
            SuperficieQt sup(p, AreaDoppia(doppia_.MappaVisibile), dove);
            disegnata_ = DisegnaDoppia(sup, tema_, pos_, temaEsterno_, posEsterno_, doppia_);
        }
        break;
    }
    case Tipo::Ascensionale: {
        SuperficieQt sup(p, AreaAscensionale(false), dove);
        DisegnaRuotaAscensionale(sup, tema_, pos_, ascensionale_);
        break;
    }
    case Tipo::DoppiaAscensionale: {
        SuperficieQt sup(p, AreaAscensionale(true), dove);
        DisegnaDoppiaAscensionale(sup, tema_, pos_, temaEsterno_, posEsterno_, ascensionale_);
        break;
    }
    }
}

} // namespace vesmo
