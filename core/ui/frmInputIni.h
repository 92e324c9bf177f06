// The settings dialog: database and Astrolog paths, sort order of the places, default place.
// At the first start it must be answered before any other window opens.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "core/Config.h"
#include "core/Messaggi.h"

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace vesmo {

class frmInputIni : public QDialog {
    Q_OBJECT
public:
    // `percorsi` holds FileIni, FileDB and CmdAstrolog; the dialog changes the last two when the
    // user browses, and writes them with CmdOk.
    frmInputIni(PercorsiVesmo& percorsi, Messaggi& messaggi, QWidget* genitore = nullptr);

    // First start: the presets of a missing configuration. Otherwise: the record's fields.
    void PresetPrimaVolta(const std::string& percorsoDB, const std::string& percorsoExe);
    void MostraConfig(const ConfigIni& cfg);

    // True while the first-time run is open.
    bool PrimaVolta = false;
    // True when CmdOk stored the record.
    bool Salvato = false;

    // The file dialog (replaced by the tests): title, filter; the chosen path or nothing.
    std::function<std::optional<QString>(const QString&, const QString&)> ScegliFile;

    QLineEdit *TextDB, *TextExe, *TextNaz, *TextCity;
    QPushButton *CmdDB, *CmdExe, *CmdOk, *cmdEsci;
    QRadioButton *OptNazioni, *OptCity;

public slots:
    void CmdDB_Click();
    void CmdExe_Click();
    void CmdOk_Click();
    void cmdEsci_Click();

private:
    // The constructor's steps: the controls (in tab order), their frames, the buttons' slots.
    void CreaControlli();
    void Disponi();
    void Collega();

    PercorsiVesmo& percorsi_;
    Messaggi& messaggi_;
};

} // namespace vesmo
