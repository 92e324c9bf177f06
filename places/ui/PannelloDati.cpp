#include "places/ui/PannelloDati.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "places/ui/ModelloGriglia.h"
#include "places/ui/frmPulizia.h"

namespace vesmo {

namespace {

std::string Trim(const std::string& s) {
    return SenzaSpazi(s);
}

} // namespace

PannelloDati::PannelloDati(Tema& tema, Messaggi& messaggi, FormIngresso form, QWidget* genitore)
    : QWidget(genitore), tema_(tema), messaggi_(messaggi), form_(form) {
    setObjectName("PannelloDati");
    CreaControlli();
    auto* corpo = new QHBoxLayout;
    corpo->addLayout(Disponi(), 3);
    corpo->addWidget(DisponiDataBase(), 2);
    auto* tutto = new QVBoxLayout(this);
    tutto->setContentsMargins(6, 6, 6, 0);
    tutto->addLayout(corpo, 1);
    tutto->addWidget(StatusBar1);
    Text12->hide();
    Text16->hide();

    Collega();
}

void PannelloDati::CreaControlli() {
    Text1 = Casella(this, "Text1", 0);
    Text19 = Casella(this, "Text19", 0);
    Text2 = Casella(this, "Text2", 0);
    Text3 = Casella(this, "Text3", 40);
    Text4 = Casella(this, "Text4", 40);
    Text5 = Casella(this, "Text5", 60);
    Text6 = Casella(this, "Text6", 40);
    Text7 = Casella(this, "Text7", 40);
    Text22 = Casella(this, "Text22", 40);
    Text23 = Casella(this, "Text23", 40);
    Text8 = Casella(this, "Text8", 40);
    Text18 = Casella(this, "Text18", 40);
    Text9 = Casella(this, "Text9", 50);
    Text10 = Casella(this, "Text10", 40);
    Text11 = Casella(this, "Text11", 60);
    Text12 = Casella(this, "Text12", 110);
    Text13 = Casella(this, "Text13", 50);
    Text14 = Casella(this, "Text14", 40);
    Text15 = Casella(this, "Text15", 60);
    Text16 = Casella(this, "Text16", 110);
    const QString virgola = QStringLiteral("Il separatore decimale è la VIRGOLA");
    Text12->setToolTip(virgola);
    Text16->setToolTip(virgola);
    chkSolare = Spunta(this, "chkSolare", "LMT", "Date antecedenti i Fusi Orari. Local Mean Time");
    Label1 = Etichetta(this, "Compresa nel Fuso se in vigore. Inside  time zone.", "Label1");
    Label1->setWordWrap(true);
    Label1->hide();
    List2 = Lista(this, "List2", {VociList2[0], VociList2[1]});
    List3 = Lista(this, "List3", {VociList3[0], VociList3[1], VociList3[2], VociList3[3]});
    List4 = Lista(this, "List4", {VociList4[0], VociList4[1]});
    List5 = Lista(this, "List5", {VociList5[0], VociList5[1]});
    Command4 = Pulsante(this, "Command4", "Importa &City");
    Command5 = Pulsante(this, "Command5", "Aggiorna DB");
    DBGrid1 = new QTableView(this);
    DBGrid1->setObjectName("DBGrid1");
    DBGrid2 = new QTableView(this);
    DBGrid2->setObjectName("DBGrid2");
    for (QTableView* v : {DBGrid1, DBGrid2}) {
        v->setSelectionBehavior(QAbstractItemView::SelectRows);
        v->setSelectionMode(QAbstractItemView::SingleSelection);
        v->setEditTriggers(QAbstractItemView::NoEditTriggers);
        v->verticalHeader()->setDefaultSectionSize(20);
        v->verticalHeader()->hide();
        v->horizontalHeader()->setStretchLastSection(true);
    }
    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName("StatusBar1");
    StatusBar1->setSizeGripEnabled(false);
    Pannello1 = Etichetta(this, "", "Pannello1");
    Pannello2 = Etichetta(this, "", "Pannello2");
    StatusBar1->addWidget(Pannello1);
    StatusBar1->addWidget(Pannello2, 1);
}

QGridLayout* PannelloDati::Disponi() {
    // Left: the person, the moment, the zone, the coordinates.
    auto* sinistra = new QGridLayout;
    int r = 0;
    sinistra->addWidget(Etichetta(this, "Nome e Cognome"), r, 0);
    sinistra->addWidget(Text1, r++, 1, 1, 4);
    sinistra->addWidget(Etichetta(this, "   Day   Mese   Anno"), r, 0);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(Text3);
        h->addWidget(Text4);
        h->addWidget(Text5);
        h->addStretch(1);
        sinistra->addLayout(h, r++, 1, 1, 4);
    }
    sinistra->addWidget(Etichetta(this, "Ora  Min"), r, 0);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(Text6);
        h->addWidget(Text7);
        h->addWidget(Etichetta(this, "Tempo Locale - quello dell'orologio"));
        h->addStretch(1);
        sinistra->addLayout(h, r++, 1, 1, 4);
    }
    sinistra->addWidget(Etichetta(this, "ora Estiva"), r, 0);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(Text22);
        h->addWidget(Text23);
        h->addWidget(Label1, 1);
        h->addStretch(1);
        sinistra->addLayout(h, r++, 1, 1, 4);
    }
    sinistra->addWidget(Etichetta(this, "Fuso Orario"), r, 0);
    {
        auto* h = new QHBoxLayout;
        h->addWidget(Text8);
        h->addWidget(Text18);
        h->addWidget(chkSolare);
        h->addStretch(1);
        sinistra->addLayout(h, r++, 1, 1, 4);
    }
    auto* lon = new QGroupBox(QStringLiteral("Longitudine"), this);
    {
        auto* g = new QGridLayout(lon);
        auto* h = new QHBoxLayout;
        h->addWidget(Text9);
        h->addWidget(Text10);
        h->addWidget(Text11);
        h->addWidget(Text12);
        h->addStretch(1);
        g->addLayout(h, 0, 0, 1, 2);
        g->addWidget(List2, 1, 0);
        g->addWidget(List3, 1, 1);
    }
    auto* lat = new QGroupBox(QStringLiteral("Latitudine"), this);
    {
        auto* g = new QGridLayout(lat);
        auto* h = new QHBoxLayout;
        h->addWidget(Text13);
        h->addWidget(Text14);
        h->addWidget(Text15);
        h->addWidget(Text16);
        h->addStretch(1);
        g->addLayout(h, 0, 0, 1, 2);
        g->addWidget(List4, 1, 0);
        g->addWidget(List5, 1, 1);
    }
    sinistra->addWidget(lon, r++, 0, 1, 5);
    sinistra->addWidget(lat, r++, 0, 1, 5);
    sinistra->setRowStretch(r, 1);
    return sinistra;
}

QGroupBox* PannelloDati::DisponiDataBase() {
    // Right: the database.
    Frame5 = Riquadro(this, "Frame5", " DataBase ");
    {
        auto* g = new QGridLayout(Frame5);
        g->addWidget(Etichetta(this, "Nazione"), 0, 0);
        g->addWidget(Text19, 0, 1);
        g->addWidget(DBGrid2, 1, 0, 1, 2);
        g->addWidget(Etichetta(this, "City"), 2, 0);
        g->addWidget(Text2, 2, 1);
        g->addWidget(DBGrid1, 3, 0, 1, 2);
        auto* h = new QHBoxLayout;
        h->addWidget(Command4);
        h->addWidget(Command5);
        g->addLayout(h, 4, 0, 1, 2);
        g->setRowStretch(1, 1);
        g->setRowStretch(3, 3);
    }
    return Frame5;
}

void PannelloDati::Collega() {
    connect(Command4, &QPushButton::clicked, this, &PannelloDati::Command4_Click);
    connect(Command5, &QPushButton::clicked, this, &PannelloDati::Command5_Click);
    connect(List3, &QComboBox::activated, this, &PannelloDati::List3_Click);
    connect(List5, &QComboBox::activated, this, &PannelloDati::List5_Click);
    connect(chkSolare, &QCheckBox::clicked, this, &PannelloDati::chkSolare_Click);
    connect(Text2, &QLineEdit::textEdited, this, &PannelloDati::Text2_Change);
    connect(Text19, &QLineEdit::textEdited, this, &PannelloDati::Text19_Change);
    connect(DBGrid1, &QTableView::doubleClicked, this, [this] { Command4_Click(); });
    for (QLineEdit* t : {Text3, Text4, Text5, Text6, Text7, Text9, Text10, Text11, Text12, Text13,
                         Text14, Text15, Text16})
        t->installEventFilter(this);
}

PannelloDati::~PannelloDati() {
    Chiudi();
}

void PannelloDati::Chiudi() {
    if (DBGrid1) DBGrid1->setModel(nullptr);
    if (DBGrid2) DBGrid2->setModel(nullptr);
    luoghi_.reset();
    db_.Chiudi();
    TagCommand4.clear();
}

std::int64_t PannelloDati::NumeroCity() const {
    return luoghi_ ? luoghi_->Data1.RecordCount() : 0;
}

void PannelloDati::ErroreBox(const std::string& routine, const std::exception& e) {
    messaggi_.Mostra("Vesmo - Errore", std::string(e.what()) + "\n\n(" + routine + ")",
                     Pulsanti::Ok, Icona::Critico);
}

bool PannelloDati::Carica(const std::string& fileDB, char ordinamento) {
    Chiudi();
    ordinamento_ = ordinamento == 'C' ? 'C' : 'N';
    List2->setCurrentIndex(0);
    List3->setCurrentIndex(0);
    List4->setCurrentIndex(0);
    List5->setCurrentIndex(0);
    Text19->setEnabled(ordinamento_ == 'N');
    Pannello1->setText(ordinamento_ == 'C' ? QStringLiteral(" City ")
                                           : QStringLiteral(" Nazioni "));
    try {
        db_.Apri(fileDB);
        // The launcher checks the file once at its opening: a damaged one is told at once, and
        // every save into it is refused by the same check.
        if (form_ == FormIngresso::MainVesmo) {
            try {
                db_.VerificaPrimaDiScrivere();
            } catch (const ErroreDB& e) {
                messaggi_.Mostra("Vesmo - DataBase",
                                 "Il DataBase è danneggiato:\n" + fileDB +
                                     "\nNessun tema vi sarà scritto.\n\n" + e.what(),
                                 Pulsanti::Ok, Icona::Critico);
            }
        }
        luoghi_ = std::make_unique<ModelloLuoghi>(db_, messaggi_, ordinamento_, form_);
        luoghi_->ApriFusiEstive = [this, fileDB](std::int32_t cFusi, const std::string& d) {
            ApriZonaFusiEstive(fileDB, &db_, cFusi, d, messaggi_, window());
        };
    } catch (const std::exception& e) {
        luoghi_.reset();
        db_.Chiudi();
        messaggi_.Mostra("Vesmo - DataBase",
                         "Impossibile aprire il database dei luoghi:\n" + fileDB + "\n\n" +
                             e.what(),
                         Pulsanti::Ok, Icona::Critico);
        MostraTema();
        return false;
    }
    Clessidra clessidra(messaggi_);
    delete griglia1_;
    delete griglia2_;
    griglia1_ = new ModelloGriglia({"cCity", "City"}, this);
    griglia2_ = new ModelloGriglia({"Nazione", "cNaz"}, this);
    griglia1_->Carica(luoghi_->Data1);
    griglia2_->Carica(luoghi_->Data2);
    DBGrid1->setModel(griglia1_);
    DBGrid2->setModel(griglia2_);
    DBGrid1->setColumnWidth(0, 50);
    DBGrid2->setColumnWidth(0, 200);
    connect(DBGrid1->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& i) {
                if (!aggiornando_ && i.isValid()) DBGrid1_RowColChange(i.row());
            });
    connect(DBGrid2->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& i) {
                if (!aggiornando_ && i.isValid()) DBGrid2_RowColChange(i.row());
            });
    clessidra.Spegni();

    MostraTema();
    Frame5->setTitle(
        QStringLiteral(" DataBase (") + QString::number(NumeroCity()) +
        (form_ == FormIngresso::MainVesmo ? QStringLiteral(" City) ") : QStringLiteral(" City)")));
    // A place that is not in the database (the default place of another database): the
    // record stays as it is, and there is nothing to import.
    if (VaiAlLuogoDelTema()) Command4_Click();
    return true;
}

bool PannelloDati::VaiAlLuogoDelTema() {
    if (!luoghi_) return false;
    try {
        if (ordinamento_ == 'N') {
            luoghi_->Data2.Seek("<=", Valore(tema_.Stato.Valore()));
            Valore cNaz = luoghi_->Data2.Campo("cNaz");
            luoghi_->Data1.Seek(">=", cNaz, Valore(tema_.City.Valore()));
            luoghi_->Data1.Campo("City");
        } else {
            luoghi_->Data1.Seek(">=", Valore(tema_.City.Valore()));
            luoghi_->Data2.Seek("=", luoghi_->Data1.Campo("cCity"));
        }
    } catch (const std::exception&) {
        if (form_ == FormIngresso::MainVesmo)
            LampoRosso();
        else
            MostraTema();
        return false;
    }
    SelezionaRigaGriglia(DBGrid1, griglia1_, luoghi_->Data1);
    SelezionaRigaGriglia(DBGrid2, griglia2_, luoghi_->Data2);
    return true;
}

void PannelloDati::LampoRosso() {
    QPalette normale = Text2->palette();
    QPalette rossa = normale;
    rossa.setColor(QPalette::Base, QColor(255, 0, 0));
    Text2->setPalette(rossa);
    QTimer::singleShot(200, Text2, [t = Text2, normale] { t->setPalette(normale); });
}

void PannelloDati::Stato(const std::string& testo) {
    Pannello2->setText(QS(testo));
}

void PannelloDati::DaControlli() {
    auto t = [](QLineEdit* e) { return SS(e->text()); };
    campi_.Text1 = t(Text1);
    campi_.Text19 = t(Text19);
    campi_.Text2 = t(Text2);
    campi_.Text3 = t(Text3);
    campi_.Text4 = t(Text4);
    campi_.Text5 = t(Text5);
    campi_.Text6 = t(Text6);
    campi_.Text7 = t(Text7);
    campi_.Text22 = t(Text22);
    campi_.Text23 = t(Text23);
    campi_.Text8 = t(Text8);
    campi_.Text18 = t(Text18);
    campi_.Text9 = t(Text9);
    campi_.Text10 = t(Text10);
    campi_.Text11 = t(Text11);
    campi_.Text12 = t(Text12);
    campi_.Text13 = t(Text13);
    campi_.Text14 = t(Text14);
    campi_.Text15 = t(Text15);
    campi_.Text16 = t(Text16);
    campi_.chkSolare = chkSolare->isChecked();
    campi_.List2 = List2->currentIndex();
    campi_.List3 = List3->currentIndex();
    campi_.List4 = List4->currentIndex();
    campi_.List5 = List5->currentIndex();
}

void PannelloDati::AControlli() {
    auto t = [](QLineEdit* e, const std::string& s) { e->setText(QS(s)); };
    t(Text1, campi_.Text1);
    t(Text19, campi_.Text19);
    t(Text2, campi_.Text2);
    t(Text3, campi_.Text3);
    t(Text4, campi_.Text4);
    t(Text5, campi_.Text5);
    t(Text6, campi_.Text6);
    t(Text7, campi_.Text7);
    t(Text22, campi_.Text22);
    t(Text23, campi_.Text23);
    t(Text8, campi_.Text8);
    t(Text18, campi_.Text18);
    t(Text9, campi_.Text9);
    t(Text10, campi_.Text10);
    t(Text11, campi_.Text11);
    t(Text12, campi_.Text12);
    t(Text13, campi_.Text13);
    t(Text14, campi_.Text14);
    t(Text15, campi_.Text15);
    t(Text16, campi_.Text16);
    chkSolare->setChecked(campi_.chkSolare);
    List2->setCurrentIndex(campi_.List2);
    List3->setCurrentIndex(campi_.List3);
    List4->setCurrentIndex(campi_.List4);
    List5->setCurrentIndex(campi_.List5);
    MostraCoordinate();
    Stato(campi_.Pannello2);
}

void PannelloDati::MostraCoordinate() {
    bool lonSplit = List3->currentIndex() <= 1;
    Text9->setVisible(lonSplit);
    Text10->setVisible(lonSplit);
    Text11->setVisible(lonSplit);
    Text12->setVisible(!lonSplit);
    bool latSplit = List5->currentIndex() == 0;
    Text13->setVisible(latSplit);
    Text14->setVisible(latSplit);
    Text15->setVisible(latSplit);
    Text16->setVisible(!latSplit);
}

void PannelloDati::MostraTema() {
    DaControlli();
    vesmo::MostraTema(tema_, campi_);
    AControlli();
}

bool PannelloDati::LeggiTema(Tema& tema) {
    DaControlli();
    return vesmo::LeggiTema(campi_, tema, messaggi_);
}

void PannelloDati::Command4_Click() {
    if (!luoghi_) return;
    CampiIngresso& ci = DataPerLaRicerca();
    ci.TagChkSolare.clear();
    try {
        luoghi_->ImportaCity(tema_);
    } catch (const std::exception& e) {
        ErroreBox("Command4_Click", e);
        return;
    }
    MostraRisolto();
    Label1->setVisible(ci.Label1Visibile);
    Text22->setVisible(ci.Text22Visibile);
    Text23->setVisible(ci.Text23Visibile);
}

void PannelloDati::Command5_Click() {
    if (!luoghi_) return;
    try {
        for (Cursore* c :
             {&luoghi_->Data1, &luoghi_->Data2, &luoghi_->Data3, &luoghi_->Data4, &luoghi_->Data5})
            c->Refresh();
        griglia1_->Carica(luoghi_->Data1);
        if (ordinamento_ == 'C') {
            luoghi_->Data1.Seek(">=", Valore(tema_.City.Valore()));
            luoghi_->Data2.Seek("=", luoghi_->Data1.Campo("cCity"));
        } else {
            luoghi_->Data2.Seek("=", Valore(tema_.Stato.Valore()));
            luoghi_->Data1.Seek(">=", luoghi_->Data2.Campo("cNaz"), Valore(tema_.City.Valore()));
        }
    } catch (const std::exception&) {
        // The place of the record is gone: the cursors stay where they are.
    }
    SelezionaRigaGriglia(DBGrid1, griglia1_, luoghi_->Data1);
    SelezionaRigaGriglia(DBGrid2, griglia2_, luoghi_->Data2);
    DopoSelezione();
}

void PannelloDati::RicalcolaData() {
    if (!luoghi_) return;
    std::string nazione, city;
    try {
        nazione = luoghi_->Data2.Campo("Nazione").Testo();
        city = luoghi_->Data1.Campo("City").Testo();
    } catch (const std::exception&) {
        return;
    }
    if (Trim(SS(Text19->text())) != Trim(nazione) || Trim(SS(Text2->text())) != Trim(city)) return;
    Command5_Click();
    Stato("");
    // The resolution starts again from a clean state: a local mean time found for the earlier
    // date must not stay ticked for the new one.
    DataPerLaRicerca().TagChkSolare.clear();
    try {
        luoghi_->CaricaTemaDaDB(tema_);
    } catch (const std::exception& e) {
        ErroreBox("RicalcolaData", e);
        return;
    }
    MostraRisolto();
}

CampiIngresso& PannelloDati::DataPerLaRicerca() {
    DaControlli();
    CampiIngresso& ci = luoghi_->campi;
    ci.Text1 = campi_.Text1;
    ci.Text3 = campi_.Text3;
    ci.Text4 = campi_.Text4;
    ci.Text5 = campi_.Text5;
    ci.Text6 = campi_.Text6;
    ci.Text7 = campi_.Text7;
    return ci;
}

void PannelloDati::MostraRisolto() {
    const CampiIngresso& ci = luoghi_->campi;
    campi_.TagChkSolare = ci.TagChkSolare;
    vesmo::MostraTema(tema_, campi_);
    // The province mark, when there is one, takes the panel; otherwise what the zone and
    // summer-time search had to say stays there.
    if (campi_.Pannello2.empty()) campi_.Pannello2 = ci.Pannello2;
    AControlli();
}

void PannelloDati::DopoSelezione() {
    if (!luoghi_) return;
    try {
        auto anno = static_cast<std::int32_t>(ValoreTesto(SS(Text5->text())));
        auto mese = static_cast<std::int32_t>(ValoreTesto(SS(Text4->text())));
        luoghi_->SeekFuso(static_cast<std::int32_t>(luoghi_->Data1.Campo("cFusi").Intero()), anno,
                          mese);
        luoghi_->CercaEstive(static_cast<std::int32_t>(luoghi_->Data1.Campo("cEst").Intero()), anno,
                             mese);
    } catch (const std::exception&) {
        // Errors are trapped here: the import will say what is missing.
    }
}

void PannelloDati::SelezionaRigaGriglia(QTableView* vista, ModelloGriglia* modello, Cursore& c) {
    if (!modello) return;
    int riga = -1;
    try {
        if (!c.BOF() && !c.Eof()) riga = modello->RigaDi(c.Bookmark());
    } catch (const std::exception&) {
        riga = -1;
    }
    if (riga < 0) return;
    aggiornando_ = true;
    vista->selectionModel()->setCurrentIndex(
        modello->index(riga, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    vista->scrollTo(modello->index(riga, 0), QAbstractItemView::PositionAtCenter);
    aggiornando_ = false;
}

void PannelloDati::Text2_Change(const QString& testo) {
    if (!luoghi_) return;
    std::string trovato;
    try {
        trovato = luoghi_->DigitaCity(SS(testo));
    } catch (const std::exception&) {
        return;
    }
    // The status bar says which other name found the place, and forgets it at the next change.
    if (!trovato.empty() || nomeAlternativo_) Stato(trovato);
    nomeAlternativo_ = !trovato.empty();
    SelezionaRigaGriglia(DBGrid1, griglia1_, luoghi_->Data1);
    SelezionaRigaGriglia(DBGrid2, griglia2_, luoghi_->Data2);
    DopoSelezione();
}

void PannelloDati::Text19_Change(const QString& testo) {
    if (!luoghi_ || ordinamento_ != 'N') return;
    try {
        luoghi_->Data2.Seek(">=", Valore(SS(testo)));
        if (luoghi_->Data2.NoMatch()) luoghi_->Data2.MoveFirst();
    } catch (const std::exception&) {
        luoghi_->Data2.MoveFirst();
    }
    SelezionaRigaGriglia(DBGrid2, griglia2_, luoghi_->Data2);
    int riga = griglia2_->RigaDi(luoghi_->Data2.Bookmark());
    if (riga >= 0) DBGrid2_RowColChange(riga);
}

void PannelloDati::DBGrid1_RowColChange(int riga) {
    if (!luoghi_) return;
    try {
        luoghi_->Data1.VaiA(griglia1_->SegnalibroDi(riga));
        Valore cCity = luoghi_->Data1.Campo("cCity");
        if (ordinamento_ == 'C') {
            luoghi_->Data2.Seek("=", cCity);
            luoghi_->segnalibroNazione = luoghi_->Data2.Bookmark();
        } else {
            luoghi_->Data5.Seek("=", cCity);
            luoghi_->segnalibroNazione = luoghi_->Data5.Bookmark();
            if (luoghi_->Data2.Campo("cNaz").Intero() != cCity.Intero())
                luoghi_->Data2.VaiA(*luoghi_->segnalibroNazione);
        }
    } catch (const std::exception&) {
        return;
    }
    SelezionaRigaGriglia(DBGrid2, griglia2_, luoghi_->Data2);
    DopoSelezione();
}

void PannelloDati::DBGrid2_RowColChange(int riga) {
    if (!luoghi_) return;
    try {
        luoghi_->Data2.VaiA(griglia2_->SegnalibroDi(riga));
        if (ordinamento_ == 'C') return;
        Valore cNaz = luoghi_->Data2.Campo("cNaz");
        std::string nome;
        try {
            nome = luoghi_->Data1.Campo("City").Testo();
        } catch (const std::exception&) {
        }
        auto& d1 = luoghi_->Data1;
        d1.Seek(">=", cNaz, Valore(nome));
        if (d1.NoMatch()) d1.MovePrevious();
        bool stessa = !d1.BOF() && !d1.Eof() && d1.Campo("cCity").Intero() == cNaz.Intero();
        if (!stessa) {
            d1.Refresh();
            d1.MoveFirst();
            d1.Seek(">=", cNaz, Valore("."));
            if (d1.NoMatch()) {
                d1.MovePrevious();
                if (d1.BOF()) d1.MoveFirst();
            }
        }
    } catch (const std::exception&) {
        luoghi_->Data1.MoveFirst();
    }
    SelezionaRigaGriglia(DBGrid1, griglia1_, luoghi_->Data1);
    DopoSelezione();
}

void PannelloDati::List3_Click() {
    DaControlli();
    vesmo::MostraLongitudine(tema_, campi_, List3->currentIndex());
    AControlli();
}

void PannelloDati::List5_Click() {
    DaControlli();
    vesmo::MostraLatitudine(tema_, campi_);
    AControlli();
}

void PannelloDati::chkSolare_Click() {
    DaControlli();
    vesmo::ClickSolare(tema_, campi_);
    AControlli();
}

bool PannelloDati::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() != QEvent::FocusOut) return QWidget::eventFilter(oggetto, evento);
    auto* t = qobject_cast<QLineEdit*>(oggetto);
    if (!t) return false;
    // Coordinates: an empty box becomes 0.
    for (QLineEdit* c : {Text9, Text10, Text11, Text12, Text13, Text14, Text15, Text16})
        if (t == c && SenzaSpazi(SS(t->text())).empty()) t->setText(QStringLiteral("0"));
    struct Data {
        QLineEdit* casella;
        std::string* tag;
    };
    const Data date[] = {{Text3, &campi_.Tag3},
                         {Text4, &campi_.Tag4},
                         {Text5, &campi_.Tag5},
                         {Text6, &campi_.Tag6},
                         {Text7, &campi_.Tag7}};
    for (const auto& d : date) {
        if (t != d.casella) continue;
        std::string testo = SS(t->text());
        if ((t == Text3 || t == Text4) && !ControllaGiornoMese(testo, t == Text3, messaggi_)) {
            QTimer::singleShot(0, t, [t] { t->setFocus(); });
            return false;
        }
        if (testo != *d.tag) {
            RicalcolaData();
            *d.tag = testo;
        }
    }
    return false;
}

} // namespace vesmo
