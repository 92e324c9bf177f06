// The transit calendar of the natal slot: the period, the transiting bodies, the natal points and
// the orb; the list of every exact transit in local time, on the screen, on paper, as PDF, as
// text or CSV. A double click puts that moment in the Transito slot.
#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "chart/Aspetti.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "timecharts/CalendarioTransiti.h"
#include "timecharts/ListaTransiti.h"
#include "timecharts/PaginaTransiti.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QVBoxLayout;

namespace vesmo {

class frmMenu;

inline constexpr const char* DidascaliaCalTransiti = "Lyx - Calendario Transiti";

// The natal points the form offers, by the chart record's names, with their captions.
extern const std::array<const char*, 15> PuntiCalTransiti;

class frmCalTransiti : public QWidget {
    Q_OBJECT
public:
    // `fileDB`: the places database that gives the zone and summer time of each date.
    frmCalTransiti(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                   QWidget* genitore = nullptr);

    // The platform's choices, replaced in tests: the print dialog on a printer, the save dialogs
    // of the PDF and of the text (an empty name: cancelled), today's date.
    std::function<bool(QPrinter&)> ScegliStampante;
    std::function<QString()> ScegliFilePdf;
    std::function<QString()> ScegliFileTesto;
    std::function<std::string()> Oggi;
    // Called after a double click has put the moment into TemaX with DatiOk set: the chart menu
    // installs it in the Transito slot.
    std::function<void()> InstallaTransito;

    QLabel *lblTema, *lblLuogo, *lblAspetti, *lblEsito;
    QLineEdit *txtDa, *txtA, *txtOrbita;
    std::array<QCheckBox*, NumeroCorpiTransito> chkPianeta{};
    std::array<QCheckBox*, 15> chkPunto{};
    QPushButton *cmdCerca, *cmdFerma, *cmdStampa, *cmdPdf, *cmdTesto, *cmdEsci;
    QProgressBar* barAvanzamento;
    QTableWidget* grdTransiti;

    // The list now shown, and what was asked for it.
    const std::vector<RigaTransito>& Righe() const { return righe_; }
    const RichiestaTransiti& Richiesta() const { return richiesta_; }
    bool InRicerca() const { return inRicerca_; }
    // The pages of the list, as printed.
    DatiPaginaTransiti DatiPagina() const;

public slots:
    void cmdCerca_Click();
    void cmdFerma_Click();
    void cmdStampa_Click();
    void cmdPdf_Click();
    void cmdTesto_Click();
    void grdTransiti_DblClick(int riga);

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    // The construction's steps: the platform's dialogs, the chart with the period and the orb,
    // the bodies and points chosen, the buttons with the progress bar, the list, the events.
    void DialoghiPredefiniti();
    void CreaPeriodo(QVBoxLayout* l);
    void CreaScelte(QVBoxLayout* l);
    void CreaPulsanti(QVBoxLayout* l);
    void CreaTabella(QVBoxLayout* l);
    void Collega();
    bool Errore(const std::string& testo);
    void Mostra();
    void Disegna(QPrinter& stampante);
    const Tema& TemaDelLuogo() const;

    Sessione& s_;
    std::string fileDB_;
    Messaggi& messaggi_;
    RichiestaTransiti richiesta_;
    std::vector<RigaTransito> righe_;
    std::string periodo_;
    bool inRicerca_ = false, fermato_ = false, chiudiDopo_ = false;
};

// Adds "Calendario &Transiti..." (mnuTransitiC) to the menu's Transiti menu, after the ingress
// search; it opens the form, or brings forward the one open.
void CollegaMenuCalTransiti(frmMenu& menu, Sessione& sessione, Messaggi& messaggi);
frmCalTransiti* ApriCalTransiti(frmMenu& menu, Sessione& sessione, Messaggi& messaggi);

} // namespace vesmo
