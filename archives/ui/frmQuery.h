// The chart query window: the point, the test and its target, the source archive and the result
// table; the run shows its progress, keeps the window alive and can be stopped with "Ferma".
#pragma once

#include <QDialog>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace vesmo {

class frmQuery : public QDialog {
    Q_OBJECT
public:
    frmQuery(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
             QWidget* genitore = nullptr);

    // The tables again: all archives in CmbTbFrom (row 0 selected), the "Q_" ones in CmbTbTo.
    void RiempiTabelle();
    bool InCorso() const { return inCorso_; }

    QGroupBox *Frame1, *Frame2, *FrLuna;
    QListWidget *LstFrom, *LstTo, *LstVerso;
    QRadioButton *OpLuogo, *OpAngolo, *OpVerso, *OpGeo, *OpTopo;
    QComboBox *CmbAspetti, *CmbTbFrom, *CmbTbTo;
    QLineEdit* TxOrbita;
    QPushButton *CmdAvvio, *cmdEsci, *CmdHelp, *cmdFerma;
    QProgressBar* PBarFrom;
    QLabel* lbNewTb;

public slots:
    void CmdAvvio_Click();
    void cmdEsci_Click();
    void CmdHelp_Click();
    void cmdFerma_Click();
    void OpLuogo_Click();
    void OpAngolo_Click();
    void OpVerso_Click();

protected:
    void closeEvent(QCloseEvent* e) override;
    void reject() override;

private:
    // The construction's steps: the query's options (lists, kinds, aspect and orb, the Moon),
    // the archives from and to, the events.
    void CreaOpzioni();
    void CreaArchivi();
    void Collega();
    Sessione& s_;
    std::string fileDB_;
    Messaggi& messaggi_;
    bool inCorso_ = false;
    bool ferma_ = false;
    bool chiudiDopo_ = false;
};

} // namespace vesmo
