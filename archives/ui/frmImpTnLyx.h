// The chart half's picking form: the charts of an archive in a grid with a preview wheel of the
// one under the cursor; it puts the chart into one of the four slots, deletes charts, moves a
// chart to another archive, and searches names inside a text.
#pragma once

#include <functional>

#include "archives/ui/FinestraImporta.h"

class QComboBox;
class QGroupBox;
class QPlainTextEdit;
class QRadioButton;

namespace vesmo {

class WidgetAnteprima;

class frmImpTnLyx : public FinestraImporta {
    Q_OBJECT
public:
    // Loads: lists the archives, binds the grid to the remembered one and seeks the natal
    // slot's name.
    frmImpTnLyx(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                QWidget* genitore = nullptr);

    // Called by cmdImporta with the slot 0..3 that took the chart, after the session's records
    // and flags: the chart menu tags the frame and shows the slot's button.
    std::function<void(int slot)> ImportaNelMenu;

    QGroupBox *Frame1, *Frame2;
    QLabel* Label1;
    QPushButton *cdAvanzata, *cmdCambiaA;
    QComboBox *cbEstesa, *cmbCambiaA;
    QRadioButton *Option1, *Option2, *Option3, *Option4;
    QPlainTextEdit* txtCmto;
    WidgetAnteprima* Anteprima;

public slots:
    void cdAvanzata_Click();
    void cbEstesa_Click(int indice);
    void cmdImporta_Click();
    void cmdCambiaA_Click();
    void DBGrid1_DblClick();

protected:
    void ArchiviElencati(const std::vector<std::string>& archivi) override;
    void Posiziona() override;
    void RecordCambiato() override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    // The constructor's steps: the archives' and the options' frames, the other controls (in
    // tab order), the layout, the slots.
    void CreaRiquadri();
    void CreaControlli();
    void Disponi();
    void Connetti();

    // The option set, 0..3, or -1.
    int OpzioneScelta() const;
};

} // namespace vesmo
