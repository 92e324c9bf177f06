// The launcher's picking form: the charts of an archive in a grid; the chosen one becomes the
// entry form's chart (TemaCorrente).
#pragma once

#include "archives/ui/FinestraImporta.h"

class QGroupBox;

namespace vesmo {

class frmImpTVesmo : public FinestraImporta {
    Q_OBJECT
public:
    // Loads: lists the archives and binds the grid to the remembered one, on its first chart.
    frmImpTVesmo(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                 QWidget* genitore = nullptr);

    QGroupBox *Frame1, *Frame3;

public slots:
    void cmdImporta_Click();
};

} // namespace vesmo
