// The hub of the chart half: four chart slots (Natale, Transito, Rivoluzione, Direzione), each
// shown in its frame, the Moon settings, and the menu from which every chart is made or shown.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QStringList>
#include <array>
#include <functional>

#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"

class QAction;
class QGroupBox;
class QLabel;
class QPushButton;
class QPlainTextEdit;

namespace vesmo {

class frmMemo;

// How the chart half opens the birth data form: the mode of a revolution ("daRivSol",
// "daRivLun"), the caption (replaced, or with a text added), the caption over the date, and the
// boxes the user may not touch: disabled with a grey background, or only greyed.
struct RichiestaInputDati {
    RichiestaInputDati(const QString& tag = {}) : TagCommand4(tag) {}
    QString TagCommand4;
    QString didascalia, aggiuntaDidascalia;
    QString frame2;
    QStringList disabilitati, grigi;
};
// What the form gave back: Calcola pressed (DatiOk), and the year, month and day it read for a
// revolution.
struct EsitoInputDati {
    bool ok = false;
    float AnnoRiv = 0, MeseRiv = 0, GiornoRiv = 0;
};

class frmMenu : public QMainWindow {
    Q_OBJECT
public:
    frmMenu(Sessione& sessione, const PercorsiVesmo& percorsi, Messaggi& messaggi,
            QWidget* genitore = nullptr);
    ~frmMenu() override;

    // The load: labels, Moon modes, and the chart of TemaX installed as the natal slot.
    void Form_Load();

    // Slot 0..3: TemaX becomes the slot's chart, its frame is refreshed and it is cast.
    void InstallaTema(int cheFrame);
    // 0: the refresh of Command2; 2 and 3: that frame only, when it waits.
    void AggiornaFrames(int cheFrame = 0);
    void PulisciSlot();
    void ChiudiSecondarie();

    // Called when the user goes back to the launcher (after the slots are emptied).
    std::function<void()> TornaAVesmo;
    // The modal birth data form over TemaX (the launcher's twin); returns when it closed,
    // with what a revolution needs back from it.
    std::function<EsitoInputDati(const RichiestaInputDati&)> InputDati;
    // Opens a secondary window that the menu must close on a new chart.
    void RegistraSecondaria(QWidget* w);

    // Frames and their labels, by slot.
    struct Riquadro {
        QGroupBox* frame;
        QLabel *nome, *city, *data, *coordinate, *tslJd, *fuso;
        std::array<QLabel*, 3> teste;
        QPushButton* astrolog; // null for the natal slot
        QString tag;           // "oK" while a new chart waits to be shown
        QString titolo;        // "Natale", "Transito", "Rivoluzione", "Direzione"
    };
    std::array<Riquadro, 4> riquadri;
    // The session's wheel switches (aspect lines, nodes, the transit's positions window): the
    // session's own copy, which outlives this window.
    StatoRuote& stato;
    QLabel *Label11, *Label38, *Label39;
    QPushButton *Command1, *Command2;
    QAction *mnuFileLunaGeo, *mnuFileLunaTopo, *mnuFileLunaNMedia, *mnuFileLunaNVera;
    std::array<QAction*, 4> mnuFileSalvo{}; // TN, T, R, D
    QAction *mnuFileEsci, *mnUnCieloNuovo, *mnuTransitInput, *munVarSca;
    QMenu *mnuFile, *mnUnCielo, *mnuTransiti, *mnuRiv, *mnuDir, *mnuVar, *mnuHefrMenu;

    const PercorsiVesmo& Percorsi() const { return percorsi_; }

public slots:
    void Command1_Click();
    void Command2_Click();
    void mnuTransitInput_Click();
    void mnUnCieloNuovo_Click();
    void ApriMemo(int slot);
    void ApriPosizioni(int slot);
    void ApriDomicili(int slot);
    void ApriSelezioneAspetti();
    void Salvo(int slot);
    void CambiaLuna(std::int16_t geo);
    void CambiaLunaNera(std::int32_t vera);

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    // The construction's steps: the four slots' frames with the side column, one slot's frame,
    // the File menu, the menus of the four charts, the utilities and help, the events.
    void CreaCentro();
    void CreaRiquadro(int slot, QWidget* centro);
    void CreaMenuFile();
    void CreaMenuTemi();
    // The positions, dignities and comment entries of `slot`'s menu.
    void VociSlot(QMenu* menu, int slot, const char* posizioni, const char* testoPosizioni,
                  const char* domicili, const char* memo);
    void CreaMenuUtility();
    void Collega();
    void Rinfresca(int slot);
    void Didascalia(int slot, bool dopoSalvo);
    void MostraEtichette(int slot, bool visibili);
    void DopoInput(int slot);
    void Aiuto(const QString& titolo, const QString& testo);

    Sessione& s_;
    PercorsiVesmo percorsi_;
    Messaggi& messaggi_;
    QList<QPointer<QWidget>> secondarie_;
    QPointer<frmMemo> memo_;
    // One positions window and one dignities window a slot, one aspect selection: opening one
    // again brings the open one to the front.
    std::array<QPointer<QWidget>, 4> posizioni_, domicili_;
    QPointer<QWidget> selezione_;
    bool uscendo_ = false;
};

// The comment of a slot: "Lyx - Commenti  su   ".
class frmMemo : public QWidget {
    Q_OBJECT
public:
    frmMemo(Sessione& sessione, frmMenu& menu, Messaggi& messaggi, int slot,
            QWidget* genitore = nullptr);
    QPlainTextEdit* Text1;
    QLabel* Label1;
    QPushButton *Command1, *Command2;

public slots:
    void Command1_Click();

private:
    Sessione& s_;
    frmMenu& menu_;
    Messaggi& messaggi_;
};

// The help texts of the menu's "?" entries.
extern const char* const AiutoDecimali;
extern const char* const AiutoRivoluzioniMirate;

} // namespace vesmo
