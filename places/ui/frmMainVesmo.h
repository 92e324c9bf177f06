// The launcher: birth data entry over the places database, the settings, the sort orders, and
// the menu entries of the archives, of Astrolog and of the chart half. The forms of those
// subsystems are reached from above: the program connects these entries and puts the Astrolog
// frame on top of the window.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <functional>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"

class QAction;
class QVBoxLayout;

namespace vesmo {

class PannelloDati;

class frmMainVesmo : public QMainWindow {
    Q_OBJECT
public:
    frmMainVesmo(Sessione& sessione, ConfigIni& cfg, PercorsiVesmo& percorsi, Messaggi& messaggi,
                 QWidget* genitore = nullptr);

    // The load step: lists, sort order, cursors, the record shown and imported.
    void Form_Load();

    // A frame of another subsystem put above the entry form.
    void MettiInCima(QWidget* riquadro);

    PannelloDati* Dati;
    // Entries connected by the program: Astrolog (mnuFilAvvia, mnuFilSI), the archives
    // (mnuFilGes, mnuFilImp, mnuFilSalva) and the query (MnuQ).
    QAction *mnuFilAvvia, *mnuFilSI, *mnuFilGes, *mnuFilSalva;
    QAction* mnuFilImp;
    QAction *mnuFilAvvLyx, *mnuFilePath, *mnuFilOrdC, *mnuFilOrdN, *mnuFilEsci, *mnuAbout;
    // The places database: its editor, the zooms, the cleaning and the compaction.
    QAction *mnuZN = nullptr, *mnuZE = nullptr, *mnuFilEdit = nullptr, *mnuFilDbCt = nullptr,
            *mnuFilDbPulEst = nullptr, *mnuFilDbPilFusi = nullptr;
    // Opens the chart half (set by the program, which owns it).
    std::function<void()> AvviaLyx;
    QMenu* mnuFile;
    QAction* MnuQ; // the chart query
    // The automatic copy of the archives before the cleaning deletes (set by the program); false
    // stops the cleaning.
    std::function<bool()> PrimaDiEliminare;

    // Hooks for the parts of the launcher that live in other subsystems (archives, Astrolog,
    // the chart half); each adds its own menu entries through this window.
    QMenu* MenuFile() const { return mnuFile; }

public slots:
    void mnuFilePath_Click();
    void mnuFilOrdC_Click();
    void mnuFilOrdN_Click();
    void mnuFilEsci_Click();
    void mnuAbout_Click();
    void mnuZN_Click();
    void mnuZE_Click();
    void mnuFilEdit_Click();
    void mnuFilDbCt_Click();
    // Opens frmPulizia in mode 1 (Fusi), 2 (Estive) or 3 (compaction).
    void ApriPulizia(int modo);

signals:
    // The load step begins: the frames above reset their own controls.
    void Caricamento();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void CambiaOrdinamento(char ordine);
    void CreaRiquadro();
    void CreaMenuFile();
    void CreaMenuDb();
    void Collega();

    Sessione& sessione_;
    ConfigIni& cfg_;
    PercorsiVesmo& percorsi_;
    Messaggi& messaggi_;
    QVBoxLayout* colonna_ = nullptr;
};

// "Vesmo - About": the version and the credits.
class frmHelp : public QDialog {
    Q_OBJECT
public:
    explicit frmHelp(QWidget* genitore = nullptr);
    static QString TestoVersione();
};

} // namespace vesmo
