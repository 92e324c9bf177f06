// The launcher as the program composes it: frmMainVesmo with the Astrolog frame on top and its
// menu entries that open the forms of other subsystems (the archives, the query, Astrolog).
#pragma once

#include <QGroupBox>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace vesmo {

class frmMainVesmo;
class PannelloDati;
struct SceltaAstrolog;

// "Astrolog": zodiac, houses, centre, and the two ways out (start the program, save the
// chart-info file). It reads the chart from the launcher's entry form and writes its answer
// on the form's second panel.
class RiquadroAstrolog : public QGroupBox {
    Q_OBJECT
public:
    RiquadroAstrolog(Sessione& sessione, PercorsiVesmo& percorsi, Messaggi& messaggi,
                     PannelloDati& dati, QWidget* genitore = nullptr);

    // The load step: both lists back on their first item.
    void Azzera();

    QComboBox *Combo1, *Combo2;
    QLineEdit* Text17;
    QCheckBox* ChkGEO;
    QPushButton *Command1, *Command6;

public slots:
    void Command1_Click();
    void Command6_Click();

private:
    void CreaControlli();
    void Collega();
    SceltaAstrolog Scelta() const;
    Sessione& sessione_;
    PercorsiVesmo& percorsi_;
    Messaggi& messaggi_;
    PannelloDati& dati_;
};

// Puts the Astrolog frame on `f` and connects the entries that open the archive forms, the
// query and Astrolog, and the copy of the archives before the cleaning deletes. Returns the
// frame (owned by `f`).
RiquadroAstrolog* ComponiLanciatore(frmMainVesmo& f, Sessione& sessione, PercorsiVesmo& percorsi,
                                    Messaggi& messaggi);

} // namespace vesmo
