// "Lyx - Posizioni di ": one chart in a table of every cusp and body in all the coordinates the
// system knows, with the wheel's place beside it. It shows TemaX and PosX as they are when it is
// made, and keeps that chart as its own: from here the user measures arcs between two rows,
// browses the current archive, turns the wheel, picks planetary nodes, opens the aspect selection
// and the dignities, and, for the transit slot only, steps the transit through time.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>

#include "chart/Aspetti.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"
#include "core/qt/MessaggiDellaFinestra.h"
#include "core/store/Cursore.h"
#include "presentation/PassiTema.h"

class QAction;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTableWidget;
class QTimer;
class QToolBar;
class QToolButton;

namespace vesmo {

class frmSelAspetti;
class frmDomicili;
class WidgetRuota;

class frmOutDati : public QMainWindow {
    Q_OBJECT
public:
    // The time-stepping toolbar shows only when stato.TransitoPosizioni is true as the window is
    // made (the menu sets it for the transit slot): the window keeps that as its own, so that
    // another positions window opened later has no toolbar. Closing the transit's window clears
    // the flag. `fileDB` is the
    // database of the archives browsed.
    frmOutDati(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
               QWidget* genitore = nullptr);

    // Redraws the wheel when it draws aspect lines (the aspect selection calls it on closing).
    void AggiornAspetti();
    // Called after the toolbar moved the transit, once TemaTra/PosTra hold the new chart: the
    // menu refreshes its Transito frame.
    std::function<void()> AggiornaTransito;
    // Called with each window opened from here (aspect selection, dignities), so that the menu
    // closes it with its other secondary windows.
    std::function<void(QWidget*)> RegistraSecondaria;
    // The previous (avanti false) or next chart of the current archive, from the row of `segna`:
    // the archives' browse, given by the chart half that opens this window. On success TemaX and
    // PosX hold the chart read and cast; without it the archive's arrows do nothing.
    std::function<bool(Sessione& s, const std::string& fileDB, std::optional<Segnalibro>& segna,
                       bool avanti, Messaggi& messaggi)>
        ScorriArchivioCorrente;

    // The window shows the transit slot: it has the time-stepping toolbar.
    bool MostraTransito() const { return transito_; }
    // The chart shown.
    const Tema& TemaMostrato() const { return tema_; }
    const Posizioni& PosMostrate() const { return pos_; }

    QTableWidget* MSFlexGrid1;
    QLabel *Label1, *Label2;
    QToolBar* Toolbar1;
    QLineEdit *txtTempi, *txtQuando;
    QWidget* UpDown1;
    QToolButton *UpDown1Su, *UpDown1Giu;
    QComboBox* comboNodi;
    QPushButton *Command1, *Command2, *Command3, *Command4;
    QTimer *Timer1, *Timer2;
    WidgetRuota* Ruota;
    QMenu *mnFile, *mnuAsc, *mnFilCarica, *mnuRot;
    QAction *mnuAR, *mnuAO, *mnuAspS, *mnuAspDC, *mnuDom, *mnFilCPrecedente, *mnFilCSuccessivo,
        *mnuAspE, *mnuRotAri, *mnuRotAsc, *mnuRotQ;
    QAction *UnSec, *UnMin, *UnOra, *UnDay, *UnMese, *UnYear, *DbPvs, *DbNext;

    // The wheel's state while the window is open.
    float AngoloRuota = 0;
    float AngoloAscens = 0;
    int ModoAscens = 0; // 0 plain, 1 right ascensions, 2 oblique ascensions
    int RigaPrecedente = 13;
    std::optional<Segnalibro> SegnaRecord;
    QPointer<frmSelAspetti> Selezione;
    QPointer<frmDomicili> Domicili;

public slots:
    void MostraArchi(int riga);
    void Toolbar1_ButtonClick(UnitaTempo unita);
    void mnFilCPrecedente_Click();
    void mnFilCSuccessivo_Click();
    void mnuRotAri_Click();
    void mnuRotAsc_Click();
    void mnuRotQ_Click();
    void mnuAR_Click(bool acceso);
    void mnuAO_Click(bool acceso);
    void mnuAspDC_Click(bool acceso);
    void mnuAspS_Click();
    void mnuDom_Click();
    void comboNodi_Click(int indice);
    void Command1_MouseDown();
    void Command2_MouseDown();
    void Command4_Click();
    void UpDown1_Change(int passo);
    // The ascensional wheel of the chart shown, by ModoAscens.
    void DisegnaRuotaAscensionale();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    // The construction's steps: the menus, the transit's toolbar, the table with the arcs below
    // it, the wheel with its date, nodes and buttons, the layout, the events.
    void CreaMenu();
    void CreaBarra();
    void CreaTabella();
    void CreaRuota();
    void Disponi();
    void Collega();
    void Form_Load();
    void RiempiTabella();
    void MostraQuando();
    void Didascalia();
    void Ridisegna();
    void Scorri(bool avanti);
    void Gira(QTimer* timer, float verso);

    Sessione& s_;
    std::string fileDB_;
    // The boxes raised here stand over this window.
    MessaggiDellaFinestra propri_;
    Messaggi& messaggi_;
    bool transito_ = false;
    Tema tema_;
    Posizioni pos_;
    Case cuspidi_;
    QElapsedTimer TempoTimer;
};

// The text of the date and time box: the locale's short date with the year in full, and the
// clock time with seconds.
QString TestoQuando(const Quando& q);

} // namespace vesmo
