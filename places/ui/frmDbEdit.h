// "Vesmo - DB Edita": the editor of the place tables, a tabbed dialog over seven cursors with
// the grids of nations, places, zone and summer-time lists, named zones and combined lists.
#pragma once

#include <QWidget>
#include <memory>
#include <utility>
#include <vector>

#include "core/Messaggi.h"
#include "core/store/Database.h"
#include "places/EditorLuoghi.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QGridLayout;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTableView;

namespace vesmo {

class ModelloGriglia;

class frmDbEdit : public QWidget {
    Q_OBJECT
public:
    frmDbEdit(const std::string& fileDB, Messaggi& messaggi, QWidget* genitore = nullptr);
    ~frmDbEdit() override;

    // Opens the cursors and fills the grids; false when the file cannot be opened (said).
    bool Form_Load();
    // Closes the cursors (before a compaction of the file).
    void Chiudi();
    ModelloDbEdit* Modello() { return m_.get(); }

    QTabWidget* SSTabDB;
    QTableView *DBGrid1, *DBGrid2, *DBGrid3, *DBGrid4, *DBGrid5, *DBGrid6;
    QPushButton *Command1, *CmdEsci;

private:
    struct Legame;
    void Costruisci();
    QWidget* TabCity();
    // TabCity's frames of the coordinates (longitude, latitude) and its zoom of the codes from
    // row `r` of `g` down.
    std::pair<QGroupBox*, QGroupBox*> CoordinateCity(QWidget* p);
    void ZoomCity(QWidget* p, QGridLayout* g, int r);
    QWidget* TabElimCity();
    QWidget* TabFusoEstive();
    // TabFusoEstive's new row (date, time, value, the button that adds it) from row `r` of
    // `g`, returning the next row, and its zoom of the lists below.
    int RigaFusoEstive(QWidget* p, QGridLayout* g, int r);
    void ZoomFusoEstive(QWidget* p, QGridLayout* g, int r);
    QWidget* TabElimFE();
    QWidget* TabCopia();
    QWidget* TabZone();
    void DaControlli();
    void AControlli();
    void Seleziona(QTableView* v, ModelloGriglia* g, Cursore& c);
    void Esegui(const char* routine, const std::function<void()>& azione,
                const std::vector<int>& daRicaricare = {});
    // A button whose click runs the model's `azione` through Esegui.
    QPushButton* PulsanteModello(QWidget* p, const char* nome, const char* testo,
                                 const char* routine, void (ModelloDbEdit::*azione)(),
                                 std::vector<int> daRicaricare = {});
    void Command1_Click();
    void Combo2_Click();
    void Combo4_Click();

    std::string fileDB_;
    Messaggi& messaggi_;
    Database db_;
    std::unique_ptr<ModelloDbEdit> m_;
    std::vector<Legame> legami_;
    ModelloGriglia* griglie_[6] = {};
    bool aggiornando_ = false;
};

} // namespace vesmo
