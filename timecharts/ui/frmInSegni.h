// The ingress search form: a planet, a target degree and a starting Julian day; the instant
// found is left in TemaX with DatiOk set, for the transit slot.
#pragma once

#include <QDialog>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/Ingressi.h"

class QGridLayout;
class QLabel;
class QMenuBar;
class QLineEdit;
class QListWidget;
class QPushButton;
class QAction;

namespace vesmo {

class StatoMenuTempo;

class frmInSegni : public QDialog {
    Q_OBJECT
public:
    // `stato` keeps the last target and result between two openings, and the folder of the
    // temporary file.
    frmInSegni(Sessione& sessione, Messaggi& messaggi, StatoMenuTempo& stato,
               QWidget* genitore = nullptr);

    // The result of the last search (trovato false before one).
    const EsitoIngresso& Esito() const { return esito_; }

    QListWidget* List1;
    QLineEdit *Text1, *txtPartenza, *Text3, *Text4, *Text5, *Text6, *Text7, *Text8;
    QLabel *Label7, *Label8, *Label9, *Label10, *Label11, *Label12;
    QPushButton *cmdTN, *cmdT, *cmdR, *cmdD, *Command1, *Command2, *Command3, *Command4;
    QAction* mnuGuida;

public slots:
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void cmdSlot_Click(int slot);

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    // The construction's steps: the controls (the guide's entry on `barra`), the inputs' and
    // the outputs' columns, the events.
    void CreaControlli(QMenuBar* barra);
    QGridLayout* Ingressi();
    QGridLayout* Uscite();
    void Collega();
    void Avanzamento(const char* controllo, double valore);

    Sessione& s_;
    Messaggi& messaggi_;
    StatoMenuTempo& stato_;
    EsitoIngresso esito_;
};

} // namespace vesmo
