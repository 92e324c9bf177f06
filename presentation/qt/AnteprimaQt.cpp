#include "presentation/qt/AnteprimaQt.h"

#include "presentation/Anteprima.h"
#include "presentation/qt/SuperficieQt.h"

namespace vesmo {

// The wheel reaches 2400 twips around its centre (7500, 3250); the date line starts at 4950,
// 850 and the summer time line ends near 10000.
const Rettangolo AreaAnteprima{4800, 700, 5400, 5100};

void DisegnaAnteprimaQt(QPainter& p, const QRectF& dove, const Tema* tema, const Posizioni& pos) {
    p.fillRect(dove, ColoreQt(FacciaPulsante));
    if (!tema) return;
    SuperficieQt sup(p, AreaAnteprima, dove);
    DisegnaAnteprima(sup, *tema, pos);
}

} // namespace vesmo
