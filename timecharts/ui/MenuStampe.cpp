#include "timecharts/ui/MenuStampe.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

namespace vesmo {

frmStampe* ApriStampe(frmMenu& menu, Sessione& s, Messaggi& m) {
    // The form is loaded once: while it stands open the entry only brings it forward.
    for (frmStampe* aperto : menu.findChildren<frmStampe*>(Qt::FindDirectChildrenOnly)) {
        if (!aperto->isVisible()) continue;
        aperto->raise();
        aperto->activateWindow();
        return aperto;
    }
    auto* f = new frmStampe(s, m, &menu);
    f->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<frmMenu> io(&menu);
    f->RegistraSecondaria = [io](QWidget* w) {
        if (io) io->RegistraSecondaria(w);
    };
    QPointer<frmStampe> aperto(f);
    try {
        f->Form_Load();
    } catch (const ErroreModulo& e) {
        if (e.numero != 364)
            m.Mostra("Lyx - Errore", std::string(e.what()) + "\n\n(frmMenu.mnuFileStampe)",
                     Pulsanti::Ok, Icona::Critico);
        return nullptr;
    } catch (const std::exception& e) {
        m.Mostra("Lyx - Errore", std::string(e.what()) + "\n\n(frmMenu.mnuFileStampe)",
                 Pulsanti::Ok, Icona::Critico);
        return aperto.data();
    }
    return aperto.data();
}

void CollegaMenuStampe(frmMenu& menu, Sessione& s, Messaggi& m) {
    auto* a = new QAction(QStringLiteral("&Stampe"), &menu);
    a->setObjectName("mnuFileStampe");
    // In the File menu after the save entries: before the line above the way out.
    QAction* prima = menu.mnuFileEsci;
    const auto voci = menu.mnuFile->actions();
    int i = static_cast<int>(voci.indexOf(menu.mnuFileEsci));
    if (i > 0 && voci[i - 1]->isSeparator()) prima = voci[i - 1];
    menu.mnuFile->insertAction(prima, a);
    frmMenu* f = &menu;
    QObject::connect(a, &QAction::triggered, &menu, [f, &s, &m] { ApriStampe(*f, s, m); });
}

} // namespace vesmo
