// The small calculators of the chart menu and its two tool forms: Julian days, Delta T, the
// equation of time, ecliptic and equatorial coordinates, the five notations of an angle, the
// wheel's colours and the store of the Moon's picture. Thin forms over calculators/.
#pragma once

#include <QDialog>
#include <QPointer>
#include <map>

#include "calculators/Calcolatrici.h"
#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/StatoRuote.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace vesmo {

class frmElaJD : public QDialog {
    Q_OBJECT
public:
    frmElaJD(Sessione& sessione, Messaggi& messaggi, QWidget* genitore = nullptr);

    QLineEdit *Text1, *Text2, *Text3, *Text4, *Text5, *Text11, *Text6, *Text7;
    QComboBox *List1, *List2;
    QPushButton *Command12, *Command13, *Command1, *Command2, *Command3, *Command4, *Command9,
        *Command15, *Command11;
    QLineEdit *Text8, *Text9, *Text10;
    QPushButton *Command5, *Command6, *Command7, *Command8, *Command10;
    QLabel *Label10, *Label11;
    Tema Nuovo;

    void Command12_Click();
    void Command13_Click();
    void CaricaTema(const Tema& t);
    void Command15_Click();
    void Somma();

private:
    // The construction's steps: the date frame, the column of the charts to load, the frame of
    // the sums, the events.
    QGroupBox* CreaData();
    QVBoxLayout* CreaCarica();
    QGroupBox* CreaSomme();
    void Collega();
    CorniceJD Cornice() const;
    void MostraCornice(const CorniceJD& c);
    void ErroreDiTipo(const char* routine, const ErroreTipo& e);
    Sessione& s_;
    Messaggi& messaggi_;
};

class frmTE_TU_Lyx : public QDialog {
    Q_OBJECT
public:
    explicit frmTE_TU_Lyx(QWidget* genitore = nullptr);
    QLineEdit *Text3, *Text4, *Text5;
    QPushButton *CommandOK, *Command2;
    QLabel *Label1, *lbAiuto;
    void CommandOK_Click();
};

class frmEqT_Lyx : public QDialog {
    Q_OBJECT
public:
    explicit frmEqT_Lyx(QWidget* genitore = nullptr);
    QLineEdit *Text3, *Text4, *Text5, *Text6, *Text7;
    QPushButton *CommandOK, *Command2;
    QLabel* Label1;
    void CommandOK_Click();
};

class frmEclEqu_Lyx : public QDialog {
    Q_OBJECT
public:
    frmEclEqu_Lyx(Messaggi& messaggi, QWidget* genitore = nullptr);
    QLineEdit *txDay, *txMese, *txYear, *txH, *txMn;
    QComboBox* cbSegni;
    QLineEdit *txLon_Gradi, *txLon_Primi, *txLon_Sec, *txLat_Gradi, *txLat_Primi;
    QLineEdit *txAR_h, *txAR_m, *txAR_s, *txDec_Gradi, *txDec_Primi;
    QPushButton *cmdCal_Equ, *cmdCal_Ecl, *cmdEsci;
    void cmdCal_Equ_Click();
    void cmdCal_Ecl_Click();

private:
    // The constructor's steps, in tab order: the date, the ecliptic coordinates with their
    // button, the equatorial ones with theirs; each frame is laid out inside.
    QGroupBox* RiquadroData();
    QGroupBox* RiquadroEclittiche();
    QGroupBox* RiquadroEquatoriali();
    // The Julian day of the date frame, or none after the message that asks for it.
    std::optional<double> JDDelFrame();
    Messaggi& messaggi_;
};

class frmFormatiNum : public QDialog {
    Q_OBJECT
public:
    explicit frmFormatiNum(QWidget* genitore = nullptr);
    std::array<QLineEdit*, 9> Testi{}; // Text1 to Text9
    QPushButton *CommandOK, *Command2;
    FormatiNumerici Stato;
    void CommandOK_Click();
};

class frmColoriRuota : public QDialog {
    Q_OBJECT
public:
    frmColoriRuota(StatoRuote& stato, QWidget* genitore = nullptr);
    QLabel* Label1;
    QGroupBox* Frame1;
    QPushButton *Command1, *Command2;

private:
    StatoRuote& stato_;
};

class frmLunaImg : public QDialog {
    Q_OBJECT
public:
    explicit frmLunaImg(QWidget* genitore = nullptr);
    QLabel* Picture1;
};

// The menu's entries: each calculator shown not modally, one window each for the life of
// `menu` (a second choice brings it to the front); the colours modally.
enum class Calcolatrice { EclEqu, EqT, JD, Formati, TETU };

// The calculators open from one menu: owned by the menu, their windows its children, at most
// one window for each calculator.
class FinestreCalcolatrici : public QObject {
    Q_OBJECT
public:
    explicit FinestreCalcolatrici(QWidget* menu);
    // Shows the calculator's window, made when it has none or when the user closed it, and
    // brings it to the front.
    QDialog* Mostra(Calcolatrice quale, Sessione& sessione, Messaggi& messaggi);

private:
    QDialog* Crea(Calcolatrice quale, Sessione& sessione, Messaggi& messaggi);
    QWidget* menu_;
    std::map<Calcolatrice, QPointer<QDialog>> aperte_;
};

// Through the menu's own FinestreCalcolatrici, made at the first choice.
QDialog* MostraCalcolatrice(Calcolatrice quale, Sessione& sessione, Messaggi& messaggi,
                            QWidget* menu);
void MostraColoriRuota(StatoRuote& stato, QWidget* menu);

} // namespace vesmo
