// "Lyx - Stampe": the printed page of one slot of the chart menu, shown on the form as it will
// stand on paper; from its menu the slot, the aspects, the printer (Qt's print dialog, with the
// system's printers and printing to a PDF file), an A4 PDF saved where the user says, and the two
// bitmaps of the page's halves in the system's temporary folder. frmCheStampe asks for the slot
// when the form opens.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <stdexcept>

#include "chart/Aspetti.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"
#include "presentation/PaginaStampa.h"
#include "presentation/qt/StampaPagina.h"

class QAction;
class QLabel;
class QPrinter;
class QPushButton;

namespace vesmo {

class frmSelAspetti;

// A run-time error of a form, by the number the platform gives it (364: the form unloaded
// itself while it was loading).
class ErroreModulo : public std::runtime_error {
public:
    ErroreModulo(int numero, const std::string& testo)
        : std::runtime_error(testo), numero(numero) {}
    int numero;
};

// Which slot to print: four buttons; closing the form without one leaves CheStampa at 0.
class frmCheStampe : public QDialog {
    Q_OBJECT
public:
    explicit frmCheStampe(QWidget* genitore = nullptr);
    int CheStampa = 0;
    QPushButton *cmdTN, *cmdT, *cmdR, *cmdD;
};

// The place of the page on the form: what it shows is drawn again, fitted into it, at every
// paint.
class WidgetPagina : public QWidget {
    Q_OBJECT
public:
    explicit WidgetPagina(QWidget* genitore = nullptr);
    void Mostra(const Rettangolo& area, DisegnoPagina disegno);
    void Pulisci();
    bool Vuota() const { return !disegno_; }
    const Rettangolo& Area() const { return area_; }
    QSize sizeHint() const override { return {620, 880}; }

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    Rettangolo area_{0, 0, 1, 1};
    DisegnoPagina disegno_;
};

class frmStampe : public QMainWindow {
    Q_OBJECT
public:
    frmStampe(Sessione& sessione, Messaggi& messaggi, QWidget* genitore = nullptr);
    ~frmStampe() override;

    // The load: the form shows, "&Bianco e Nero" is checked, frmCheStampe asks for the slot and
    // its page is composed. Without a choice the form unloads itself and ErroreModulo 364 is
    // thrown.
    void Form_Load();
    // The page composed anew (the aspect selection calls it on closing).
    void AggiornAspetti();

    int CheStampa = 0;
    int SpessoreGlifi = 2;
    // The page as composed last: its chart and its options (for the printer, not the form).
    const Tema& TemaPagina() const { return tema_; }
    const Posizioni& PosPagina() const { return pos_; }
    const OpzioniPagina& OpzioniDellaPagina() const { return opzioni_; }
    // A composed page waits for "Stam&po ...".
    bool DocumentoInAttesa() const { return inAttesa_; }

    // The platform's choices, replaced in tests: the print dialog on a printer, the save dialog
    // of the PDF (an empty name: cancelled), the slot asked at load (0 none), the system's
    // temporary folder, today's date.
    std::function<bool(QPrinter&)> ScegliStampante;
    std::function<QString()> ScegliFilePdf;
    std::function<int()> ScegliSlot;
    QString CartellaTemp;
    std::function<std::string()> Oggi = DataOdierna;
    // Hands a window opened here to the chart menu, which closes it on a new chart.
    std::function<void(QWidget*)> RegistraSecondaria;

    WidgetPagina* pagina;
    QLabel* lbInCorso;
    QAction* mnuFileStampeOpzioni;
    std::array<QAction*, 4> mnuFileStampeChe{}; // TN, T, R, D
    QAction *mnuFileStampeSelAspetti, *mnuFileStampeDisegna, *mnuFileStampeColBN_Col,
        *mnuFileStampeColBN_BN, *mnuFuleStampeStampo, *mnuFileStampeBmp, *mnuFileStampePdf,
        *nmuFileStampEsci;
    QPointer<frmSelAspetti> Selezione;

public slots:
    void Componi(int cheStampa);
    void mnuFileStampeSelAspetti_Click();
    void mnuFileStampeDisegna_Click();
    void mnuFileStampeColBN_Col_Click();
    void mnuFuleStampeStampo_Click();
    void mnuFileStampeBmp_Click();
    void mnuFileStampePdf_Click();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    // The construction's steps: the platform's dialogs, the page, the menu, the events.
    void DialoghiPredefiniti();
    void CreaPagina();
    void CreaMenu();
    void Collega();
    // The session's slot of the entry checked: the form counts its entries from 1, the session
    // its slots from 0.
    int SlotScelto() const { return CheStampa - 1; }
    OpzioniPagina Opzioni(bool sulModulo) const;
    void ErroreDiEsecuzione(const std::string& routine, const std::string& testo);

    Sessione& s_;
    Messaggi& messaggi_;
    Tema tema_;
    Posizioni pos_;
    OpzioniPagina opzioni_;
    bool inAttesa_ = false;
};

} // namespace vesmo
