// "Lyx - Selezione  Aspetti": the aspect grid of two charts, rows from TemaX/PosX and columns from
// TemaY/PosY (the caller sets the four), the one orb, and the switches of the aspects that the
// wheels draw.
#pragma once

#include <QWidget>
#include <functional>

#include "chart/Aspetti.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"
#include "core/qt/MessaggiDellaFinestra.h"

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenuBar;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace vesmo {

class frmSelAspetti : public QWidget {
    Q_OBJECT
public:
    frmSelAspetti(Sessione& sessione, Messaggi& messaggi, QWidget* genitore = nullptr);

    // Called on closing, when the selection was opened from that form and the single wheel
    // draws its aspects: the positions window's and the printing form's AggiornAspetti.
    std::function<void()> AggiornaPosizioni;
    std::function<void()> AggiornaStampe;

    QTableWidget* MSFlexGrid1;
    QListWidget* List1;
    QRadioButton *Option1, *Option2;
    QGroupBox* Frame2;
    QLineEdit* Text1;
    QLabel* lblOrbita;
    QLabel *Label1, *Label2, *Label3;
    QPushButton* Command1;
    QMenuBar* barraMenu;
    QAction *mnuE, *mnuA;

    // The grid of the current orb, from the two charts.
    void CostruisciGriglia();

public slots:
    void Command1_Click();
    void mnuA_Click();
    void Option1_Click();
    void Option2_Click();
    void List1_MouseUp();
    void Text1_Change();

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    // The construction's steps: the grid with its legend, the switches of the wheels' aspects,
    // the orb and the exit, the layout, the events, and the load from the session's aspect
    // table (the orb's change builds the grid).
    void CreaGriglia();
    void CreaInterruttori();
    void CreaOrbita();
    void Disponi();
    void Collega();
    void Carica();
    void ListaInAspetti();
    void SelezionaDa(int ultimo);
    void PulisciOpzioni();

    Sessione& s_;
    // The boxes raised here stand over this window.
    MessaggiDellaFinestra propri_;
    Messaggi& messaggi_;
};

// The text of a single as the box shows it (core/Testo.h).
std::string TestoSingolo(float x);

} // namespace vesmo
