// The three small forms beside the entry form: frmPulizia (the cleaning of unused zone and
// summer-time codes, and the compaction of the file), frmFusiEstive (the dated list of one code
// with its new rows) and frmZoomN (the places of one nation).
#pragma once

#include <QDialog>
#include <QWidget>
#include <functional>

#include "core/Messaggi.h"
#include "places/PuliziaLuoghi.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace vesmo {

class frmPulizia : public QWidget {
    Q_OBJECT
public:
    // `modo` (PuliziaModo): 1 clean Fusi, 2 clean Estive, 3 compact the file.
    // Called before the compaction or the deletion of rows; false stops it (the caller's
    // automatic copy of the archives that failed has told why).
    std::function<bool()> PrimaDiEliminare;
    frmPulizia(std::string fileDB, int modo, Messaggi& messaggi, QWidget* genitore = nullptr);

    // Shows the form, then runs the scan (modes 1 and 2) or shows the compaction text.
    void Form_Load();
    void Command1_Click();
    void Command2_Click();

    // Run when the form goes: the start form comes back and reloads its cursors.
    std::function<void()> AlRitorno;

    QListWidget* List1;
    QLabel* Label1;
    QLineEdit* Text1;
    QPlainTextEdit* Text2;
    QPushButton *Command1, *Command2;

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    ListaPulizia Lista() const { return modo_ == 1 ? ListaPulizia::Fusi : ListaPulizia::Estive; }
    std::string fileDB_;
    int modo_;
    Messaggi& messaggi_;
    bool uscito_ = false;
};

class frmFusiEstive : public QDialog {
    Q_OBJECT
public:
    frmFusiEstive(ModelloFusiEstive& modello, QWidget* genitore = nullptr);

    void Form_Load();
    void Command1_Click();

    QListWidget* List1;
    QLineEdit *Text2, *Text17, *Text8, *Text5, *Text6, *Text7, *Text22, *Text23;
    QComboBox *cmbZoneOrarie, *Combo5;
    QLabel *Label1, *Label2, *Label4, *Label6;
    QPushButton *Command1, *Command2;

private:
    void CreaControlli();
    void Disponi();
    void AControlli();
    ModelloFusiEstive& m_;
};

// Opens frmFusiEstive modally in zone mode for a cFusi, with a caption: the "yes" of the
// question of a missing zone. `condiviso` is the asking form's connection to the file.
void ApriZonaFusiEstive(const std::string& fileDB, Database* condiviso, std::int32_t cFusi,
                        const std::string& didascalia, Messaggi& messaggi, QWidget* genitore);

class frmZoomN : public QDialog {
    Q_OBJECT
public:
    frmZoomN(std::string fileDB, std::int32_t cNaz, Messaggi& messaggi,
             QWidget* genitore = nullptr);
    void Form_Load();

    QComboBox* Combo1;
    QLabel* Label1;
    QPushButton* Command1;

private:
    std::string fileDB_;
    std::int32_t cNaz_;
    Messaggi& messaggi_;
};

} // namespace vesmo
