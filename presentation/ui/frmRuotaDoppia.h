// "Lyx - Ruota Doppia": the natal chart inside the sign ring and a transit, revolution or
// direction outside it. The window reads the session's inner pair (TemaX, PosX) and outer pair
// (TemaZ, PosZ) at every drawing; its menus turn the wheel, line up a house of both charts on a
// double zodiac, switch the three kinds of aspect lines and filter the lines between the charts;
// on a transit wheel the toolbar moves the transit through time.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "chart/Aspetti.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"
#include "core/qt/MessaggiDellaFinestra.h"
#include "presentation/PassiTema.h"
#include "presentation/Rilocazione.h"
#include "presentation/ui/WidgetRuota.h"

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QToolBar;
class QToolButton;

namespace vesmo {

class frmSelAspetti;
class WidgetMappa;

// Which chart stands outside: the tag of List2.
enum class Esterno { Natale = 0, Transito = 1, Rivoluzione = 2, Direzione = 3 };

class frmRuotaDoppia : public QMainWindow {
    Q_OBJECT
public:
    // The session's TemaX/PosX and TemaZ/PosZ must hold the two charts. A transit wheel starts
    // without the outer houses and with the time-stepping toolbar; the others with their houses.
    frmRuotaDoppia(Sessione& sessione, Messaggi& messaggi, Esterno esterno,
                   QWidget* genitore = nullptr);

    // Called after the toolbar moved the transit, once TemaTra/PosTra hold the new chart: the
    // menu refreshes its Transito frame.
    std::function<void()> AggiornaTransito;
    // Called with each window opened from here, so that the menu closes it with the others.
    std::function<void(QWidget*)> RegistraSecondaria;
    // Called after a relocation, once TemaRiv/PosRiv hold the chart cast at the new place: the
    // menu marks the Rivoluzione slot unsaved and refreshes its frame.
    std::function<void()> AggiornaRivoluzione;
    // The places database of the town search, and beside it the map of the time zones.
    std::string FileDB;
    // The towns nearest a point, as the list beside the map shows them: the places' search, given
    // by the chart half that opens this window. `lon` in hours west positive, `lat` in degrees;
    // `costruzione` is told true and false around the building of the index. Without it the
    // list stays empty.
    std::function<std::vector<std::string>(const std::string& fileDB, double lon, double lat,
                                           const std::function<void(bool)>& costruzione)>
        CittaVicine;

    WidgetRuota* Ruota;
    QToolBar* Toolbar1;
    QAction *Ripristina, *Interni, *Esterni, *Comparati, *CaseTra;
    QAction *UnSec, *UnMin, *UnOra, *UnDay, *UnMese, *UnYear;
    QLineEdit* txtTempi;
    QWidget* UpDown1;
    QToolButton *UpDown1Su, *UpDown1Giu;
    QLabel* lbQuando;
    QGroupBox* Frame1;
    QLabel *Label1, *Label2;
    QListWidget *List1, *List2;
    QMenu *mnuAsp, *mnuRasc, *mnuAspDisegna, *mnuRot, *mnuRotAscSx, *mnFilZodiacali;
    QAction *mnuRascAR, *mnuRascAO, *mnuAspMirate, *mnuArco;
    // The relocation of a revolution: the map, the nearest towns, the coordinates, the button
    // that closes the map, and the label shown while the index of the towns is built.
    WidgetMappa* picFusi;
    QListWidget* lstCityVicine;
    QLabel* lbCoord;
    QPushButton* cmdMirateOFF;
    QLabel* lbNeoIndici;
    QAction *mnuAspSelezione, *mnuAspDisegnaInt, *mnuAspDisegnaEst, *mnuAspDisegnaCmp, *mnuAspEsci;
    QAction *mnuRotArieteSx, *mnuRotAscSxINT, *mnuRotAscSxEST, *mnuRotQualsiasi;
    // MnuRCoinAsc, mnFilZCasaII ... mnFilZMC ... mnFilZCasaXII, by house 1 to 12 (index 0 unused).
    std::array<QAction*, 13> mnFilZ{};

    // The wheel's state while the window is open.
    float AngoloRuota = 0;
    float AngoloAscens = 0;
    float AngoloEsterno = 0;
    bool CaseEsterne = true;
    int CasaCoincidente = 0; // the house of the double zodiac, 0 for the plain wheel
    int ModoAscens = 0;      // 0 plain, 1 right ascensions, 2 oblique ascensions
    Esterno Tipo() const { return esterno_; }
    QPointer<frmSelAspetti> Selezione;

    // What the lists select, row 0 "TUTTI".
    SelezioneComparati Selezione1() const;
    SelezioneComparati Selezione2() const;

public slots:
    void Ridisegna();
    void DisegnaDoppioZodiaco(int casa);
    void mnuRotArieteSx_Click();
    void mnuRotAscSxINT_Click();
    void mnuRotAscSxEST_Click();
    void mnuRotQualsiasi_Click();
    void mnuAspDisegnaInt_Click();
    void mnuAspDisegnaEst_Click();
    void mnuAspDisegnaCmp_Click();
    void mnuAspSelezione_Click();
    void Ripristina_Click();
    void CaseTra_Click();
    void Toolbar1_ButtonClick(UnitaTempo unita);
    void UpDown1_Change(int passo);
    void DisegnaDoppia();
    void DisegnaDoppiaAscensionale();
    void mnuRascAR_Click(bool acceso);
    void mnuRascAO_Click(bool acceso);
    void mnuArco_Click();
    void mnuAspMirate_Click();
    void cmdMirateOFF_Click();
    // The toolbar of a revolution wheel: UnSec moves the longitude, UnMin the latitude.
    void Rilocazione(AsseRilocazione asse);

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    // The construction's steps: the menus, the toolbar (with the time or place steps of a
    // transit or revolution wheel), the wheel with the map and the filters, the events.
    void CreaMenu();
    void CreaBarra();
    void CreaPassi();
    void CreaCentro();
    void Collega();
    void Interruttori();
    void MostraQuando();
    void Rilascio(QListWidget* lista);
    OpzioniDoppia Opzioni() const;
    bool MappaVisibile() const;
    void MostraMappa(bool visibile);
    void CercaVicine();

    Sessione& s_;
    // The boxes raised here stand over this window.
    MessaggiDellaFinestra propri_;
    Messaggi& messaggi_;
    Esterno esterno_;
};

// The caption's end for each outer chart: ": Interno [Tema Natale],  Esterno [Transito]"...
QString DidascaliaDoppia(Esterno esterno);

} // namespace vesmo
