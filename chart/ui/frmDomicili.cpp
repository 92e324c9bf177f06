#include "chart/ui/frmDomicili.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "chart/Dignita.h"
#include "core/qt/MessaggiQt.h"
#include "core/qt/Schermo.h"
#include "core/ui/Controlli.h"

namespace vesmo {

namespace {

// Sign and body letters of the symbol font and the symbols shown in their place. The signs carry
// the text presentation selector, so that no colour emoji font takes them over.
QString SimboloDi(char c) {
    switch (c) {
    case 'L':
        return QStringLiteral(u"\u2648\uFE0E"); // Ariete
    case 'M':
        return QStringLiteral(u"\u2649\uFE0E"); // Toro
    case 'N':
        return QStringLiteral(u"\u264A\uFE0E"); // Gemelli
    case 'O':
        return QStringLiteral(u"\u264B\uFE0E"); // Cancro
    case 'P':
        return QStringLiteral(u"\u264C\uFE0E"); // Leone
    case 'Q':
        return QStringLiteral(u"\u264D\uFE0E"); // Vergine
    case 'Y':
        return QStringLiteral(u"\u264E\uFE0E"); // Bilancia
    case 'Z':
        return QStringLiteral(u"\u264F\uFE0E"); // Scorpione
    case '[':
        return QStringLiteral(u"\u2650\uFE0E"); // Sagittario
    case 'a':
        return QStringLiteral(u"\u2651\uFE0E"); // Capricorno
    case 'b':
        return QStringLiteral(u"\u2652\uFE0E"); // Acquario
    case '\\':
        return QStringLiteral(u"\u2653\uFE0E"); // Pesci
    case 'C':
        return QStringLiteral(u"\u2609"); // Sole
    case '_':
        return QStringLiteral(u"\u263D"); // Luna
    case 'D':
        return QStringLiteral(u"\u263F"); // Mercurio
    case 'E':
        return QStringLiteral(u"\u2640"); // Venere
    case 'G':
        return QStringLiteral(u"\u2642"); // Marte
    case 'H':
        return QStringLiteral(u"\u2643"); // Giove
    case 'V':
        return QStringLiteral(u"\u2644"); // Saturno
    case 'W':
        return QStringLiteral(u"\u2645"); // Urano
    case 'X':
        return QStringLiteral(u"\u2646"); // Nettuno
    case '^':
        return QStringLiteral(u"\u2647"); // Plutone
    default:
        return QString(QChar::fromLatin1(c));
    }
}

QFont FontSimboli(int punti) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPointSize(punti);
    return f;
}

} // namespace

QString frmDomicili::Simboli(const std::string& lettere) {
    QString r;
    bool tra = false;
    for (char c : lettere) {
        if (c == 'T') {
            tra = true;
            continue;
        }
        if (tra && c != ' ') {
            r += QLatin1Char('(') + SimboloDi(c) + QLatin1Char(')');
            tra = false;
        } else {
            r += SimboloDi(c);
        }
    }
    return r;
}

frmDomicili::frmDomicili(Sessione& sessione, Messaggi& messaggi, QWidget* genitore)
    : QWidget(genitore), s_(sessione), messaggi_(messaggi) {
    setObjectName("frmDomicili");
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(QStringLiteral("Lyx - Domiciliazioni di "));
    ChiudiConEsc(this);

    auto* sopra = new QHBoxLayout;
    sopra->addLayout(Gruppi(), 1);
    sopra->addSpacing(12);
    sopra->addLayout(Tabella());
    Command1 = Pulsante(this, "Command1", "&Esci ");
    connect(Command1, &QPushButton::clicked, this, &frmDomicili::Command1_Click);
    auto* tutto = new QVBoxLayout(this);
    tutto->addLayout(sopra, 1);
    auto* piede = new QHBoxLayout;
    piede->addStretch(1);
    piede->addWidget(Command1);
    tutto->addLayout(piede);

    Form_Load();
}

QVBoxLayout* frmDomicili::Gruppi() {
    // Left: one row a group, its caption, its count and the names.
    const char* nomiTesto[11] = {"Text1", "Text2", "Text3", "Text4",  "Text5", "Text6",
                                 "Text7", "Text8", "Text9", "Text10", "Text11"};
    const char* nomiConto[11] = {"Label4",  "Label5",  "Label6",  "Label11", "Label12", "Label13",
                                 "Label14", "Label19", "Label20", "Label21", "Label22"};
    const char* nomiTitolo[11] = {"Label1",  "Label2",  "Label3",  "Label7",  "Label8", "Label9",
                                  "Label10", "Label15", "Label16", "Label17", "Label18"};
    const char* titoli[11] = {NomiModalita[0], NomiModalita[1], NomiModalita[2], NomiElementi[0],
                              NomiElementi[1], NomiElementi[2], NomiElementi[3], NomiDignita[0],
                              NomiDignita[1],  NomiDignita[2],  NomiDignita[3]};
    auto* modalita = new QGridLayout;
    auto* elementi = new QGridLayout;
    auto* Frame1 = Riquadro(this, "Frame1", "Potenza  Planetaria");
    auto* dignita = new QGridLayout(Frame1);
    for (int i = 0; i < 11; ++i) {
        auto* titolo = new QLabel(QString::fromLatin1(titoli[i]), this);
        titolo->setObjectName(nomiTitolo[i]);
        titolo->setMinimumWidth(90);
        auto* conto = Etichetta(this, "", nomiConto[i]);
        conto->setMinimumWidth(24);
        conto->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        auto* testo = Nome(new QPlainTextEdit(this), nomiTesto[i]);
        testo->setReadOnly(true);
        testo->setFixedHeight(testo->fontMetrics().lineSpacing() * 2 + 12);
        testo->setMinimumWidth(300);
        Text[static_cast<std::size_t>(i)] = testo;
        Conti[static_cast<std::size_t>(i)] = conto;
        QGridLayout* g = i < 3 ? modalita : i < 7 ? elementi : dignita;
        int riga = i < 3 ? i : i < 7 ? i - 3 : i - 7;
        g->addWidget(titolo, riga, 0);
        g->addWidget(conto, riga, 1);
        g->addWidget(testo, riga, 2);
    }
    auto* sinistra = new QVBoxLayout;
    sinistra->addLayout(modalita);
    sinistra->addSpacing(8);
    sinistra->addLayout(elementi);
    sinistra->addSpacing(8);
    sinistra->addWidget(Frame1);
    sinistra->addStretch(1);
    return sinistra;
}

QVBoxLayout* frmDomicili::Tabella() {
    // Right: the fixed table under its heading, the birth and the rulers of the Ascendant. The
    // heading is set in a fixed-pitch font and the columns take its widths, so each word stands
    // over its column.
    const QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    lblTestata = new QLabel(QString::fromLatin1(TestataTabellaDignita), this);
    lblTestata->setObjectName("lblTestata");
    lblTestata->setFont(fisso);
    MSFlexGrid1 = Nome(new QTableWidget(10, 5, this), "MSFlexGrid1");
    MSFlexGrid1->setFont(FontSimboli(12));
    MSFlexGrid1->horizontalHeader()->hide();
    MSFlexGrid1->verticalHeader()->hide();
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::NoSelection);
    MSFlexGrid1->setFocusPolicy(Qt::NoFocus);
    MSFlexGrid1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    MSFlexGrid1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int carattere = QFontMetrics(fisso).horizontalAdvance(QLatin1Char('M'));
    const int larghezze[5] = {11, 18, 20, 15, 8}; // characters of each heading's word and blanks
    int totale = 0;
    for (int j = 0; j < 5; ++j) {
        MSFlexGrid1->setColumnWidth(j, larghezze[j] * carattere);
        totale += larghezze[j] * carattere;
    }
    for (int i = 0; i < 10; ++i)
        MSFlexGrid1->setRowHeight(i, 24);
    MSFlexGrid1->setFixedSize(totale + 2 * MSFlexGrid1->frameWidth(),
                              10 * 24 + 2 * MSFlexGrid1->frameWidth());
    lblNascita = Etichetta(this, "", "lblNascita");
    lblReggente = Etichetta(this, "", "lblReggente");
    lblReggente->setFont(FontSimboli(font().pointSize() > 0 ? font().pointSize() + 1 : 11));
    auto* destra = new QVBoxLayout;
    destra->addWidget(lblTestata);
    destra->addWidget(MSFlexGrid1);
    destra->addSpacing(10);
    destra->addWidget(lblNascita);
    destra->addWidget(lblReggente);
    destra->addStretch(1);
    return destra;
}

void frmDomicili::Form_Load() {
    const Domicili d = CalcolaDomicili(s_.PosDomi);
    for (std::size_t i = 0; i < 3; ++i) {
        Text[i]->setPlainText(QS(d.Modalita[i]));
        Conti[i]->setText(QString::number(d.ContiModalita[i]));
    }
    for (std::size_t i = 0; i < 4; ++i) {
        Text[3 + i]->setPlainText(QS(d.Elementi[i]));
        Conti[3 + i]->setText(QString::number(d.ContiElementi[i]));
        Text[7 + i]->setPlainText(QS(d.Dignita[i]));
        Conti[7 + i]->setText(QString::number(d.ContiDignita[i]));
    }
    DisegnaTabella(d.Nascita, d.ReggenteDiurno, d.ReggenteNotturno);
}

void frmDomicili::DisegnaTabella(const std::string& nascita, const std::string& diurno,
                                 const std::string& notturno) {
    for (int i = 0; i < 10; ++i) {
        const auto r = static_cast<std::size_t>(i);
        auto* corpo = new QTableWidgetItem(Simboli(LettereCorpi[r]));
        corpo->setTextAlignment(Qt::AlignCenter);
        MSFlexGrid1->setItem(i, 0, corpo);
        for (int j = 0; j < 4; ++j)
            MSFlexGrid1->setItem(
                i, j + 1,
                new QTableWidgetItem(Simboli(TabellaDignita[r][static_cast<std::size_t>(j)])));
    }
    lblNascita->setText(QStringLiteral("Nascita ") + QS(nascita));
    lblReggente->setText(QStringLiteral("Reggente dell'Ascendente ") + Simboli(diurno) +
                         QStringLiteral("(Diurno)     ") + Simboli(notturno) +
                         QStringLiteral("(Notturno)"));
}

void frmDomicili::Command1_Click() {
    close();
}

} // namespace vesmo
