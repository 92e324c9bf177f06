// The time-based entries of the chart menu: revolutions, directions and the ingress search,
// each opening its form and installing the chart it made in its slot.
#pragma once

#include <QObject>
#include <QString>
#include <filesystem>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/ui/frmMenu.h"

class QWidget;

namespace vesmo {

class frmInDatiLyx;

// Adds mnuRivSol, mnuRivLun (mnuRivLunT, mnuRivLunS), mnuDirSec, mnuDirFra and mnuTransitiI to
// the menu's Rivoluzioni, Direzioni and Transiti menus.
void CollegaMenuTempo(frmMenu& menu, Sessione& sessione, Messaggi& messaggi);

// What the entries keep while the menu lives: the last target and result of the ingress search
// (given back to the form when it opens again) and the folder of its temporary file (empty:
// the system's temporary folder).
class StatoMenuTempo : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    QString ultimoBersaglio, ultimoRisultato;
    std::filesystem::path cartellaIngressi;
};
// The menu's state object, made by CollegaMenuTempo.
StatoMenuTempo* StatoTempo(frmMenu& menu);

// After a modal form: when DatiOk is set, closes the secondary windows, marks the slot as
// holding a chart, shows its Astrolog button, takes the Salvo mark away (unless `tieniSalvo`)
// and installs TemaX in the slot.
void InstallaDopoForm(frmMenu& menu, Sessione& sessione, int slot, bool tieniSalvo = false);

// Applies a request to the birth data form before it is shown: caption, the caption over the
// date, the boxes disabled or greyed.
void PreparaInputDati(frmInDatiLyx& form, const RichiestaInputDati& richiesta);

// The help form of the chart half: `titolo` as its caption, `testo` in lbHelpFuso, modal.
void MostraAiuto(QWidget* genitore, const QString& titolo, const QString& testo);

} // namespace vesmo
