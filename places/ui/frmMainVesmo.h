// The launcher: birth data entry over the places database, the settings, the sort orders, and
// the way to the archives, to Astrolog and to the chart half.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <functional>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace vesmo {

class PannelloDati;

class frmMainVesmo : public QMainWindow {
    Q_OBJECT
public:
    frmMainVesmo(Sessione& sessione, ConfigIni& cfg, PercorsiVesmo& percorsi, Messaggi& messaggi,
                 QWidget* genitore = nullptr);

    // The load step: lists, sort order, cursors, the record shown and imported.
    void Form_Load();

    PannelloDati* Dati;
    // The bridge to Astrolog.
    QComboBox *Combo1, *Combo2;
    QLineEdit* Text17;
    QCheckBox* ChkGEO;
    QPushButton *Command1, *Command6;
    QAction *mnuFilAvvia, *mnuFilSI, *mnuFilGes, *mnuFilSalva;
    QAction* mnuFilImp;
    QAction *mnuFilAvvLyx, *mnuFilePath, *mnuFilOrdC, *mnuFilOrdN, *mnuFilEsci, *mnuAbout;
    // Opens the chart half (set by the program, which owns it).
    std::function<void()> AvviaLyx;
    QMenu* mnuFile;

    // Hooks for the parts of the launcher that live in other subsystems (archives, Astrolog,
    // the chart half); each adds its own menu entries through this window.
    QMenu* MenuFile() const { return mnuFile; }

public slots:
    void mnuFilePath_Click();
    void mnuFilOrdC_Click();
    void mnuFilOrdN_Click();
    void mnuFilEsci_Click();
    void mnuAbout_Click();
    void Command1_Click();
    void Command6_Click();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void CambiaOrdinamento(char ordine);

    Sessione& sessione_;
    ConfigIni& cfg_;
    PercorsiVesmo& percorsi_;
    Messaggi& messaggi_;
};

// "Vesmo - About": the version and the credits.
class frmHelp : public QDialog {
    Q_OBJECT
public:
    explicit frmHelp(QWidget* genitore = nullptr);
    static QString TestoVersione();
};

} // namespace vesmo
