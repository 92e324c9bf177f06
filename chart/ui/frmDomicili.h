// "Lyx - Domiciliazioni di ": how a chart's bodies spread over the modalities, the elements and
// the dignities of their signs, the fixed table of dignities, day or night birth and the rulers
// of the Ascendant. It reads PosDomi, which the caller fills before making it; the caller then
// appends the chart's name to the caption and shows it.
#pragma once

#include <QWidget>
#include <array>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;
class QVBoxLayout;

namespace vesmo {

class frmDomicili : public QWidget {
    Q_OBJECT
public:
    frmDomicili(Sessione& sessione, Messaggi& messaggi, QWidget* genitore = nullptr);

    // The boxes by modality (Text1..3), element (Text4..7) and dignity (Text8..11).
    std::array<QPlainTextEdit*, 11> Text{};
    // Their counts: Label4..6, Label11..14, Label19..22.
    std::array<QLabel*, 11> Conti{};
    QTableWidget* MSFlexGrid1;
    QLabel *lblTestata, *lblNascita, *lblReggente;
    QPushButton* Command1;

    // Letters of the symbol font as astrological symbols: the sign and body letters become their
    // Unicode signs, blanks stay, and a "T" (a sign shown without weight in the counts) puts the
    // sign that follows it in brackets.
    static QString Simboli(const std::string& lettere);

public slots:
    void Command1_Click();

private:
    // The left column (a row for each group of modes, elements and dignities: caption, count,
    // names) and the right one (the fixed table under its heading, the birth, the rulers).
    QVBoxLayout* Gruppi();
    QVBoxLayout* Tabella();
    void Form_Load();
    void DisegnaTabella(const std::string& nascita, const std::string& diurno,
                        const std::string& notturno);

    Sessione& s_;
    Messaggi& messaggi_;
};

} // namespace vesmo
