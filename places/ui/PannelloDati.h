// The birth data panel shared by frmMainVesmo and frmInDatiLyx: name, date and time, zone and
// summer time, coordinates in their units, the grids of places and nations over the database,
// "Importa &City" and "Aggiorna DB", and the status bar.
#pragma once

#include <QWidget>
#include <memory>

#include "core/Messaggi.h"
#include "core/Tema.h"
#include "core/store/Database.h"
#include "places/ModelloLuoghi.h"
#include "places/ModuloDati.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStatusBar;
class QTableView;

namespace vesmo {

class ModelloGriglia;

class PannelloDati : public QWidget {
    Q_OBJECT
public:
    // `tema` is the record the panel fills (TemaCorrente or TemaX).
    PannelloDati(Tema& tema, Messaggi& messaggi, FormIngresso form, QWidget* genitore = nullptr);
    ~PannelloDati() override;

    // The load step: opens the database with the sort order ('C' or 'N'), shows the record,
    // goes to its place and imports it. False when the database cannot be opened (said).
    bool Carica(const std::string& fileDB, char ordinamento);
    // Closes the cursors and the database.
    void Chiudi();

    void MostraTema();
    bool LeggiTema(Tema& tema);
    void RicalcolaData();

    // The number of places, for the frame's caption.
    std::int64_t NumeroCity() const;
    char Ordinamento() const { return ordinamento_; }
    // The cursors on the place tables (null before Carica or after Chiudi).
    ModelloLuoghi* Luoghi() const { return luoghi_.get(); }

    QLineEdit *Text1, *Text2, *Text3, *Text4, *Text5, *Text6, *Text7, *Text8, *Text9, *Text10,
        *Text11, *Text12, *Text13, *Text14, *Text15, *Text16, *Text18, *Text19, *Text22, *Text23;
    QCheckBox* chkSolare;
    QLabel* Label1;
    QComboBox *List2, *List3, *List4, *List5;
    QTableView *DBGrid1, *DBGrid2;
    QPushButton *Command4, *Command5;
    QGroupBox* Frame5;
    QStatusBar* StatusBar1;
    QLabel *Pannello1, *Pannello2;
    // Tag of Command4: "daRivSol", "daRivLun" when opened by a revolution.
    QString TagCommand4;

public slots:
    void Command4_Click();
    void Command5_Click();
    void List3_Click();
    void List5_Click();
    void chkSolare_Click();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    // The construction's steps: the controls, the left side (person, moment, zone,
    // coordinates), the database frame on the right, the events.
    void CreaControlli();
    QGridLayout* Disponi();
    QGroupBox* DisponiDataBase();
    void Collega();
    void DaControlli(); // controls -> campi_
    void AControlli();  // campi_ -> controls
    void MostraCoordinate();
    // False when the record's place is not in the database: the load then ends there.
    bool VaiAlLuogoDelTema();
    void DopoSelezione(); // SeekFuso and CercaEstive with the place now selected
    // The name, date and time typed, handed to the zone and summer-time search.
    CampiIngresso& DataPerLaRicerca();
    // The chart the search filled, shown with what the search had to say.
    void MostraRisolto();
    void SelezionaRigaGriglia(QTableView* vista, ModelloGriglia* modello, Cursore& c);
    void Text2_Change(const QString& testo);
    void Text19_Change(const QString& testo);
    void DBGrid1_RowColChange(int riga);
    void DBGrid2_RowColChange(int riga);
    void LampoRosso();
    void Stato(const std::string& testo);
    void ErroreBox(const std::string& routine, const std::exception& e);

    Tema& tema_;
    Messaggi& messaggi_;
    FormIngresso form_;
    char ordinamento_ = 'N';
    CampiModulo campi_;
    Database db_;
    std::unique_ptr<ModelloLuoghi> luoghi_;
    ModelloGriglia *griglia1_ = nullptr, *griglia2_ = nullptr;
    bool aggiornando_ = false;
    bool nomeAlternativo_ = false; // the status bar shows the other name typed
};

} // namespace vesmo
