// The secondary directions form: the progressed years typed (" Anni ") or a date given in the
// birth data form (" Data "); the chart made is left in TemaX with DatiOk set.
#pragma once

#include <QDialog>
#include <functional>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/ui/frmMenu.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace vesmo {

class frmDirezioni : public QDialog {
    Q_OBJECT
public:
    using InputHook = std::function<EsitoInputDati(const RichiestaInputDati&)>;
    frmDirezioni(Sessione& sessione, Messaggi& messaggi, InputHook inputDati,
                 QWidget* genitore = nullptr);

    QRadioButton *Option1, *Option2;
    QLineEdit* Text1;
    QCheckBox* Check1;
    QPushButton *Command1, *Command2;

public slots:
    void Option1_Click();
    void Option2_Click();
    void Command1_Click();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    Sessione& s_;
    Messaggi& messaggi_;
    InputHook inputDati_;
};

} // namespace vesmo
