// The revolution form: what to look for (a point of the natal chart, any degree, or an angle
// Moon -> Sun), the hand-over to the birth data form for the year or month and the place, the
// search, and the acceptance of the return found, left in TemaX with DatiOk set.
#pragma once

#include <QDialog>
#include <functional>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/Rivoluzioni.h"
#include "timecharts/ui/frmMenu.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace vesmo {

class frmCheRivoluzione : public QDialog {
    Q_OBJECT
public:
    using InputHook = std::function<EsitoInputDati(const RichiestaInputDati&)>;
    frmCheRivoluzione(Sessione& sessione, Messaggi& messaggi, TipoRivoluzione tipo,
                      InputHook inputDati, QWidget* genitore = nullptr);

    TipoRivoluzione Tipo() const { return tipo_; }

    QListWidget* List1;
    QLineEdit *Text1, *Text2, *Text3Sin;
    QLabel *Label3, *Label4, *Label5, *Label6, *Label7, *Label38, *Label1Sin, *Label2Sin, *Picture1;
    QPushButton *Command1, *Command2, *Command3, *Command4, *Command5;
    QGroupBox* Frame2Sin;
    QCheckBox* Check1Sin;

public slots:
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void List1_Click();
    void Check1Sin_Click();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    // The construction's steps: the controls, their layout, what the kind shows, the events.
    void CreaControlli();
    void Disponi();
    void MostraTipo();
    void Collega();
    void Accetta(bool primo);

    Sessione& s_;
    Messaggi& messaggi_;
    TipoRivoluzione tipo_;
    InputHook inputDati_;
    TestiRivoluzione testi_;
    EsitoRivoluzione esito_;
};

} // namespace vesmo
