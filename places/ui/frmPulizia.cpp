#include "places/ui/frmPulizia.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "places/ModelloLuoghi.h"

namespace vesmo {

namespace {

QFont Monospazio() {
    QFont f(QStringLiteral("DejaVu Sans Mono"));
    f.setStyleHint(QFont::Monospace);
    return f;
}

void Errore(Messaggi& m, const char* routine, const std::exception& e) {
    m.Mostra(std::string("Vesmo - Errore [") + routine + "]", e.what(), Pulsanti::Ok,
             Icona::Critico);
}

} // namespace

// --- frmPulizia ---

frmPulizia::frmPulizia(std::string fileDB, int modo, Messaggi& messaggi, QWidget* genitore)
    : QWidget(genitore, Qt::Window), fileDB_(std::move(fileDB)), modo_(modo), messaggi_(messaggi) {
    setObjectName("frmPulizia");
    setWindowTitle(QStringLiteral("Vesmo - Pulizia"));
    List1 = Nome(new QListWidget(this), "List1");
    List1->setSelectionMode(QAbstractItemView::MultiSelection);
    Label1 = Nome(new QLabel(QStringLiteral("Le righe selezionate saranno Eliminate dal Db.        "
                                            "       Codici < 10000.                              "
                                            " Non hanno corrispondenza in nessuna City."),
                             this),
                  "Label1");
    Label1->setWordWrap(true);
    Text1 = Casella(this, "Text1");
    Text1->setReadOnly(true);
    Text2 = Nome(new QPlainTextEdit(this), "Text2");
    Text2->setReadOnly(true);
    Text2->hide();
    Command1 = Pulsante(this, "Command1", "&Procedi");
    Command2 = Pulsante(this, "Command2", "&Esci");
    auto* v = new QVBoxLayout(this);
    v->addWidget(Label1);
    v->addWidget(List1, 1);
    v->addWidget(Text2, 1);
    v->addWidget(Text1);
    auto* h = new QHBoxLayout;
    h->addStretch(1);
    h->addWidget(Command1);
    h->addWidget(Command2);
    v->addLayout(h);
    connect(Command1, &QPushButton::clicked, this, &frmPulizia::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmPulizia::Command2_Click);
    resize(460, 420);
}

void frmPulizia::Form_Load() {
    show();
    if (modo_ == 3) {
        Label1->hide();
        List1->hide();
        Text2->show();
        Text2->setPlainText(QS(TestoCompattazione(fileDB_)));
        return;
    }
    setWindowTitle(modo_ == 1 ? QStringLiteral("Vesmo - Pulizia Fusi")
                              : QStringLiteral("Vesmo - Pulizia Estive"));
    QApplication::processEvents();
    Clessidra clessidra(messaggi_);
    try {
        const EsitoScansione esito = ScansionePulizia(fileDB_, Lista());
        for (auto codice : esito.codici) {
            auto* voce = new QListWidgetItem(QString::number(codice) + ' ', List1);
            voce->setSelected(true);
        }
        Text1->setText(QS(TestoScansione(esito)));
    } catch (const std::exception& e) {
        clessidra.Spegni();
        Errore(messaggi_, "frmPulizia.Form_Load", e);
    }
}

void frmPulizia::Command1_Click() {
    if (PrimaDiEliminare && !PrimaDiEliminare()) return;
    if (modo_ == 3) {
        Clessidra clessidra(messaggi_);
        Text1->setText(QStringLiteral("Attendere... "));
        QApplication::processEvents();
        const bool fatto = CompattaDatabase(fileDB_, messaggi_);
        clessidra.Spegni();
        if (!fatto) {
            Text1->setText(QStringLiteral("Attendere... Non riuscita"));
            return;
        }
        Text1->setText(Text1->text() + QStringLiteral("Fine!"));
        QApplication::processEvents();
        Command2_Click();
        return;
    }
    std::vector<std::int32_t> codici;
    for (int i = 0; i < List1->count(); ++i)
        if (List1->item(i)->isSelected())
            codici.push_back(static_cast<std::int32_t>(ValoreTesto(SS(List1->item(i)->text()))));
    Clessidra clessidra(messaggi_);
    try {
        const std::int64_t eliminate =
            EliminaRighe(fileDB_, Lista(), codici, [this](std::int64_t righe) {
                Text1->setText(QString::number(righe));
                QApplication::processEvents();
            });
        Text1->setText(QS(TestoEliminate(eliminate, Lista())));
    } catch (const std::exception& e) {
        clessidra.Spegni();
        Errore(messaggi_, "frmPulizia.Command1", e);
    }
}

void frmPulizia::Command2_Click() {
    if (uscito_) return;
    uscito_ = true;
    if (modo_ != 3) {
        try {
            EliminaIndiceLavoro(fileDB_, Lista());
        } catch (const std::exception& e) {
            Errore(messaggi_, "frmPulizia.Command2", e);
        }
    }
    if (AlRitorno) AlRitorno();
    close();
}

void frmPulizia::closeEvent(QCloseEvent* e) {
    Command2_Click();
    e->accept();
}

// --- frmFusiEstive ---

frmFusiEstive::frmFusiEstive(ModelloFusiEstive& modello, QWidget* genitore)
    : QDialog(genitore), m_(modello) {
    setObjectName("frmFusiEstive");
    CreaControlli();
    Disponi();
    connect(Command1, &QPushButton::clicked, this, &frmFusiEstive::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::accept);
    resize(780, 460);
}

void frmFusiEstive::CreaControlli() {
    List1 = Nome(new QListWidget(this), "List1");
    List1->setFont(Monospazio());
    Text2 = Casella(this, "Text2");
    Text2->setReadOnly(true);
    Text2->setFont(Monospazio());
    cmbZoneOrarie = Lista(this, "cmbZoneOrarie");
    cmbZoneOrarie->setFont(Monospazio());
    Text17 = Casella(this, "Text17", 40);
    Text8 = Casella(this, "Text8", 40);
    Text5 = Casella(this, "Text5", 60);
    Text6 = Casella(this, "Text6", 40);
    Text7 = Casella(this, "Text7", 40);
    Text22 = Casella(this, "Text22", 40);
    Text23 = Casella(this, "Text23", 40);
    Combo5 = Lista(this, "Combo5", {"EST", "OVEST"});
    Label1 = Etichetta(this, "Estive", "Label1");
    Label2 = Etichetta(this, "Estive", "Label2");
    Label4 = Etichetta(this, "h : m", "Label4");
    Label6 = Etichetta(this, "", "Label6");
    Command1 = Pulsante(this, "Command1", "&Aggiungi al DB");
    Command2 = Pulsante(this, "Command2", "&Esci");
}

void frmFusiEstive::Disponi() {
    auto* g = new QGridLayout(this);
    g->addWidget(Label1, 0, 0, 1, 6);
    g->addWidget(Text2, 1, 0, 1, 6);
    g->addWidget(List1, 2, 0, 1, 6);
    g->addWidget(cmbZoneOrarie, 3, 0, 1, 6);
    g->addWidget(Etichetta(this, "Nuova Riga ", "Nuova"), 4, 0);
    g->addWidget(Etichetta(this, "Day Mese   Anno", "Nuova"), 4, 1);
    g->addWidget(Label4, 4, 3);
    g->addWidget(Etichetta(this, "In vigore ", "Nuova"), 4, 4);
    auto* data = new QHBoxLayout;
    data->addWidget(Text17);
    data->addWidget(Text8);
    data->addWidget(Text5);
    data->addStretch(1);
    g->addLayout(data, 5, 1);
    g->addWidget(Label6, 5, 2);
    auto* ora = new QHBoxLayout;
    ora->addWidget(Text6);
    ora->addWidget(Text7);
    g->addLayout(ora, 5, 3);
    auto* valore = new QHBoxLayout;
    valore->addWidget(Label2);
    valore->addWidget(Text22);
    valore->addWidget(Text23);
    valore->addWidget(Combo5);
    valore->addStretch(1);
    g->addLayout(valore, 5, 4);
    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch(1);
    bottoni->addWidget(Command1);
    bottoni->addWidget(Command2);
    g->addLayout(bottoni, 6, 0, 1, 6);
    g->setRowStretch(2, 1);
    g->setColumnStretch(5, 1);
}

void frmFusiEstive::Form_Load() {
    try {
        m_.Form_Load();
    } catch (const std::exception& e) {
        Errore(m_.messaggi, "frmFusiEstive.Form_Load", e);
    }
    if (m_.ZoomFuso == -1) {
        Label1->setText(QStringLiteral("Fuso"));
        Label2->setText(QStringLiteral("Fuso"));
    }
    AControlli();
}

void frmFusiEstive::Command1_Click() {
    m_.Text17 = SS(Text17->text());
    m_.Text8 = SS(Text8->text());
    m_.Text5 = SS(Text5->text());
    m_.Text6 = SS(Text6->text());
    m_.Text7 = SS(Text7->text());
    m_.Text22 = SS(Text22->text());
    m_.Text23 = SS(Text23->text());
    m_.Combo5 = Combo5->currentIndex();
    try {
        if (!m_.Command1_Click()) return;
    } catch (const std::exception& e) {
        Errore(m_.messaggi, "frmFusiEstive.Command1", e);
        return;
    }
    AControlli();
}

void frmFusiEstive::AControlli() {
    List1->clear();
    for (const auto& v : m_.List1.voci)
        List1->addItem(QS(v));
    cmbZoneOrarie->clear();
    for (const auto& v : m_.cmbZoneOrarie.voci)
        cmbZoneOrarie->addItem(QS(v));
    cmbZoneOrarie->setCurrentIndex(m_.cmbZoneOrarie.indice);
    cmbZoneOrarie->setVisible(m_.LegendaVisibile);
    Text2->setText(QS(m_.Text2));
    Text2->setVisible(m_.Text2Visibile);
    Text17->setText(QS(m_.Text17));
    Text8->setText(QS(m_.Text8));
    Text5->setText(QS(m_.Text5));
    Text6->setText(QS(m_.Text6));
    Text7->setText(QS(m_.Text7));
    Text22->setText(QS(m_.Text22));
    Text23->setText(QS(m_.Text23));
    Combo5->setCurrentIndex(m_.Combo5);
    const bool zona = m_.ZoomFuso == -1;
    const bool nuova = !m_.Unita();
    Combo5->setVisible(zona);
    for (QWidget* w : findChildren<QWidget*>(QStringLiteral("Nuova")))
        w->setVisible(nuova);
    for (QWidget* w :
         {static_cast<QWidget*>(Text17), static_cast<QWidget*>(Text8), static_cast<QWidget*>(Text5),
          static_cast<QWidget*>(Text22), static_cast<QWidget*>(Text23),
          static_cast<QWidget*>(Label2), static_cast<QWidget*>(Command1)})
        w->setVisible(nuova);
    for (QWidget* w : {static_cast<QWidget*>(Text6), static_cast<QWidget*>(Text7),
                       static_cast<QWidget*>(Label4)})
        w->setVisible(m_.OraVisibile && nuova);
    Label6->setText(QS(m_.Label6));
    Label6->setVisible(m_.OraVisibile && m_.Label6Visibile && nuova);
}

void ApriZonaFusiEstive(const std::string& fileDB, Database* condiviso, std::int32_t cFusi,
                        const std::string& didascalia, Messaggi& messaggi, QWidget* genitore) {
    ModelloFusiEstive m(fileDB, messaggi);
    m.condiviso = condiviso;
    m.ZoomFuso = -1;
    m.ZoomCFusi = cFusi;
    frmFusiEstive f(m, genitore);
    f.Form_Load();
    f.setWindowTitle(QS(didascalia));
    f.exec();
}

// --- frmZoomN ---

frmZoomN::frmZoomN(std::string fileDB, std::int32_t cNaz, Messaggi& messaggi, QWidget* genitore)
    : QDialog(genitore), fileDB_(std::move(fileDB)), cNaz_(cNaz), messaggi_(messaggi) {
    setObjectName("frmZoomN");
    Combo1 = Lista(this, "Combo1");
    Combo1->setFont(Monospazio());
    Combo1->setMaxVisibleItems(30);
    Label1 = Etichetta(this, "", "Label1");
    Command1 = Pulsante(this, "Command1", "&Esci");
    auto* v = new QVBoxLayout(this);
    v->addWidget(Combo1);
    auto* h = new QHBoxLayout;
    h->addWidget(Etichetta(this, "City:"));
    h->addWidget(Label1);
    h->addStretch(1);
    h->addWidget(Command1);
    v->addLayout(h);
    v->addStretch(1);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    resize(640, 120);
}

void frmZoomN::Form_Load() {
    Clessidra clessidra(messaggi_);
    Combo1->clear();
    try {
        Database db(fileDB_);
        for (const auto& r : RigheZoomNazione(db, cNaz_))
            Combo1->addItem(QS(r));
    } catch (const std::exception& e) {
        clessidra.Spegni();
        Errore(messaggi_, "frmZoomN.Form_Load", e);
    }
    clessidra.Spegni();
    if (Combo1->count() > 0) Combo1->setCurrentIndex(0);
    Label1->setText(QString::number(Combo1->count()));
}

} // namespace vesmo
