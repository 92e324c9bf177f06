// What the two picking forms share: the list of archives, the grid bound to the chosen archive
// through a cursor on its index (the form's Data1), the seek as the search box is typed into,
// the switch that makes the grid editable, and the delete of the chart under the cursor.
#pragma once

#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace vesmo {

class ModelloArchivio;

// The captions of Command1: at load, switched on, switched off again.
inline constexpr const char* GrigliaOffIniziale =
    "Griglia Editabile         Grids       Updatable  OFF";
inline constexpr const char* GrigliaOn = "Griglia Editabile        Grids       Updatable    ON";
inline constexpr const char* GrigliaOff = "Griglia Editabile      Grids       Updatable  OFF";

class FinestraImporta : public QDialog {
    Q_OBJECT
public:
    ~FinestraImporta() override;

    QListWidget* lstArchivi;
    QTableView* DBGrid1;
    QLabel* DidascaliaGriglia; // the grid's caption: the archive and its count
    QLineEdit* Text1;
    QPushButton *Command1, *cmdImporta, *cmdElimina, *Command3;
    // The search by any field: words of the name, dal:, al:, luogo:, commento: (the derived
    // forms place BarraCerca); lbCerca tells how many were found, or what is wrong.
    QWidget* BarraCerca;
    QLineEdit* txtCerca;
    QLabel* lbCerca;

    // The archive bound to the grid, and the cursor on it (no current row when it is empty).
    const std::string& Archivio() const { return archivio_; }
    Cursore* Data1() { return data1_.get(); }
    ModelloArchivio& Modello() { return *modello_; }

public slots:
    void lstArchivi_Click();
    void Text1_Change();
    void Command1_Click();
    void cmdElimina_Click();
    void Command3_Click();
    void txtCerca_Change();

protected:
    // `prefisso` begins the titles of the messages: "Lyx - " or "Vesmo - ".
    FinestraImporta(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                    const char* prefisso, QWidget* genitore);

    // The load: the lists, the grid on the remembered archive, then Posiziona; the loading flag
    // is set at the end.
    void Carica();
    // The archives listed (for a second list of the form).
    virtual void ArchiviElencati(const std::vector<std::string>&) {}
    // Where the grid opens once loaded.
    virtual void Posiziona();
    // The cursor has moved to another row (or to none).
    virtual void RecordCambiato() {}
    // The current row, or "Archivio vuoto" (with the text's end `punto`) told and false.
    bool CiSonoTemi(const char* punto);

    // The rows selected in the grid, in the grid's order.
    std::vector<Segnalibro> Selezionati() const;
    // After rows went away or the search changed: the cursor on a row the grid shows.
    void CursoreVisibile();

    // Binds the grid to archive `nome`.
    void Collega(const std::string& nome);
    // Shows the cursor's row in the grid, then RecordCambiato.
    void Allinea();
    // The cursor on the row after a Seek that found none: the last row, as a data control stays
    // on it when moved past the end.
    void DopoSeek();

    Sessione& s_;
    std::string fileDB_;
    Messaggi& messaggi_;
    std::string prefisso_;
    Database db_;
    std::unique_ptr<Cursore> data1_;
    ModelloArchivio* modello_;
    std::string archivio_;
    bool caricato_ = false;
    bool allineando_ = false;

private:
    // The constructor's steps: the grid with its caption, the search bar by fields, and the
    // slots of the controls every import window shares.
    void CreaGriglia();
    void CreaBarraCerca();
    void ConnettiComuni();

    void RigaGriglia(int riga);
};

} // namespace vesmo
