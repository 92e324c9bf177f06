// The archive management form of the launcher half: the list of archives, the creation and the
// deletion of an archive, the transport of all charts of one archive into another, the import of
// a table of birthdays from a side database, and the save of the entry form's chart. Opened as
// management form, or reduced to a save dialog by ModoSalvo().
#pragma once

#include <QDialog>
#include <cstdint>
#include <string>

#include "archives/Scambio.h"
#include "archives/ui/ScambioSicurezza.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QMenuBar;
class QAction;
class QPushButton;

namespace vesmo {

class frmGesArchivi : public QDialog {
    Q_OBJECT
public:
    // Lists the archives of `fileDB` and selects the first. The birthdays import is offered when
    // "AstDbTmp.mdb" stands in `cartellaProgramma`.
    frmGesArchivi(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                  QWidget* genitore = nullptr, const std::string& cartellaProgramma = {});

    // The save mode of mnuFilSalva (the caller has run LeggiTema on TemaCorrente): only the list,
    // cmdSalva and Command4, caption "Vesmo - Salvo".
    void ModoSalvo();

    // Fills lstArchivi again and selects its first item.
    void RiempiArchivi();
    // The fill routine: 0 lstArchivi, 1 List1; the first item selected.
    void Riempi(std::int16_t& quale);

    QGroupBox *Frame1, *Frame2, *Frame3, *Frame4;
    QListWidget *lstArchivi, *List1;
    QPushButton *cmdSalva, *Command4, *cmdCrea, *cmdElimina;
    QPushButton *cmdTrasporta, *cmdOkTrasporta, *Command1, *Command2, *Command3;
    QLineEdit* Text1;
    QLabel* Label1;
    QComboBox* Combo1;
    // The menu of the text import and export; their entries are wired by those forms.
    QMenu *mnFile, *mnFileImp, *mnFileExp;
    QAction *mnFileImpSFtxt, *mnFileTT;
    // The exchange with other programs and the copies: AAF and CSV in and out, the copy of the
    // whole database, an archive brought back from a copy; and the rename of an archive.
    QAction *mnFileImpAAF, *mnFileImpCSV, *mnFileExpAAF, *mnFileExpCSV, *mnFileSicurezza,
        *mnFileRipristina;
    QPushButton* cmdRinomina;
    // The completion of imported charts from the places database (set by the opener; records
    // without coordinates or zone are refused without it), the file dialogs of those entries
    // (tests replace them), and the folder of the files written beside the program.
    CompletaLuogo completaLuogo;
    SceltaFile sceltaApri = DialogoApriFile, sceltaSalva = DialogoSalvaFile;
    QString cartellaFile;
    // The help form last shown by Command1 or Command3.
    QDialog* Aiuto() const { return aiuto_; }

public slots:
    void cmdCrea_Click();
    void cmdElimina_Click();
    void cmdTrasporta_Click();
    void cmdOkTrasporta_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void cmdSalva_Click();
    void Command4_Click();
    void lstArchivi_DblClick(QListWidgetItem*);
    void cmdRinomina_Click();

private:
    // The construction's steps: the four frames with their controls, the menu bar, the layout,
    // the events.
    void CreaRiquadri();
    QMenuBar* CreaMenu();
    void Disponi(QMenuBar* barra);
    void Collega();
    void MostraAiuto(const QString& titolo, const QStringList& righe);

    Sessione& s_;
    std::string fileDB_;
    Messaggi& messaggi_;
    std::string cartellaProgramma_;
    QDialog* aiuto_ = nullptr;
};

} // namespace vesmo
