// The modal birth data form of the chart half: it fills TemaX.
#pragma once

#include <QDialog>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"

class QPushButton;

namespace vesmo {

class PannelloDati;

class frmInDatiLyx : public QDialog {
    Q_OBJECT
public:
    // `ordinamento`: the sort order of the chart half's copy of the settings ('C' or 'N').
    frmInDatiLyx(Sessione& sessione, const std::string& fileDB, char ordinamento,
                 Messaggi& messaggi, QWidget* genitore = nullptr);

    // The load step over TemaX as it stands.
    void Form_Load();

    PannelloDati* Dati;
    QPushButton *cmdCalcola, *Command2;
    // "daRivSol" or "daRivLun" when a revolution asks for the year (and month and day).
    QString TagCommand4;
    // What cmdCalcola read for a revolution.
    float AnnoRiv = 0, MeseRiv = 0, GiornoRiv = 0;

public slots:
    void cmdCalcola_Click();
    void Command2_Click();

private:
    Sessione& s_;
    std::string fileDB_;
    char ordinamento_;
    Messaggi& messaggi_;
};

} // namespace vesmo
