#include "timecharts/ui/MenuImporta.h"

#include <QAction>
#include <QMenu>
#include <QPushButton>

#include "archives/ui/WidgetAnteprima.h"
#include "archives/ui/frmImpTnLyx.h"
#include "presentation/qt/AnteprimaQt.h"

namespace vesmo {

void SegnaSlotImportato(frmMenu& menu, int slot) {
    for (frmMenu::Riquadro& r : menu.riquadri)
        r.tag.clear();
    frmMenu::Riquadro& r = menu.riquadri.at(static_cast<std::size_t>(slot));
    r.tag = QStringLiteral("oK");
    if (r.astrolog) r.astrolog->show();
}

void mnuFileImporta_Click(frmMenu& menu, Sessione& sessione, const std::string& fileDB,
                          Messaggi& messaggi) {
    menu.ChiudiSecondarie();
    {
        frmImpTnLyx f(sessione, fileDB, messaggi, &menu);
        f.Anteprima->Disegno = DisegnaAnteprimaQt;
        f.ImportaNelMenu = [&menu](int slot) { SegnaSlotImportato(menu, slot); };
        f.exec();
    }
    menu.Command2_Click();
    for (QAction* a : menu.mnuFileSalvo)
        a->setChecked(false);
}

void CollegaMenuImporta(frmMenu& menu, Sessione& sessione, const std::string& fileDB,
                        Messaggi& messaggi) {
    auto* salvo = qobject_cast<QMenu*>(menu.mnuFileSalvo[0]->parent());
    auto* voce = new QAction(QStringLiteral("&Importa"), menu.mnuFile);
    voce->setObjectName("mnuFileImporta");
    menu.mnuFile->insertAction(salvo ? salvo->menuAction() : nullptr, voce);
    QObject::connect(voce, &QAction::triggered, &menu, [&menu, &sessione, fileDB, &messaggi] {
        mnuFileImporta_Click(menu, sessione, fileDB, messaggi);
    });
}

} // namespace vesmo
