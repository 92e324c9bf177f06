#include "archives/ui/frmGesArchivi.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/Selezione.h"
#include "archives/Sicurezza.h"
#include "archives/ui/ImportaEsporta.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"

namespace vesmo {

namespace {

// Twips of the original layout to pixels.
constexpr int Pixel(int twips) {
    return twips / 15;
}

} // namespace

frmGesArchivi::frmGesArchivi(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                             QWidget* genitore, const std::string& cartellaProgramma)
    : QDialog(genitore), s_(sessione), fileDB_(fileDB), messaggi_(messaggi),
      cartellaProgramma_(cartellaProgramma) {
    setObjectName("frmGesArchivi");
    setWindowTitle(QStringLiteral("Vesmo - Gestione Archivi Temi Natali"));
    setModal(true);
    CreaRiquadri();
    cmdSalva = Pulsante(this, "cmdSalva", "&Salva  Tema");
    cmdSalva->hide();
    Command4 = Pulsante(this, "Command4", "Esc&i");
    Disponi(CreaMenu());
    // Enter creates the archive whose name was typed; never the deletion.
    cmdCrea->setDefault(true);
    resize(560, 460);
    Collega();

    RiempiArchivi();
    Combo1->setCurrentIndex(0);
    std::error_code ec;
    if (!cartellaProgramma_.empty() &&
        std::filesystem::is_regular_file(std::filesystem::path(cartellaProgramma_) / FileCompleanni,
                                         ec))
        Frame4->show();
}

void frmGesArchivi::CreaRiquadri() {
    Frame1 = Riquadro(this, "Frame1", "Archivi  Disponibili");
    lstArchivi = Nome(new QListWidget(Frame1), "lstArchivi");
    cmdElimina = Pulsante(Frame1, "cmdElimina", "&Elimina Archivio Selezionato");
    cmdRinomina = Pulsante(Frame1, "cmdRinomina", "&Rinomina Archivio Selezionato");
    auto* l1 = new QVBoxLayout(Frame1);
    l1->addWidget(lstArchivi);
    l1->addWidget(cmdElimina);
    l1->addWidget(cmdRinomina);

    Frame2 = Riquadro(this, "Frame2", "Crea Nuovo Archivio");
    Text1 = Casella(Frame2, "Text1");
    cmdCrea = Pulsante(Frame2, "cmdCrea", "Ok  &Crea");
    Label1 = Etichetta(Frame2, "  Nomi  Non Validi", "Label1");
    Combo1 = Lista(
        Frame2, "Combo1",
        {"AllCity", "Estive", "Fusi", "FusiEstiveUniti", "Nazioni", "ZoneOrarie", "MSys...!"});
    auto* l2 = new QGridLayout(Frame2);
    l2->addWidget(Text1, 0, 0);
    l2->addWidget(cmdCrea, 0, 1);
    l2->addWidget(Label1, 1, 0);
    l2->addWidget(Combo1, 1, 1);

    Frame3 = Riquadro(this, "Frame3", "Trasporta  Archivi");
    cmdTrasporta = Pulsante(Frame3, "cmdTrasporta", "&Trasporta");
    List1 = Nome(new QListWidget(Frame3), "List1");
    cmdOkTrasporta = Pulsante(Frame3, "cmdOkTrasporta", "Ok   --->");
    Command1 = Pulsante(Frame3, "Command1", "?");
    auto* l3 = new QGridLayout(Frame3);
    l3->addWidget(cmdTrasporta, 0, 0);
    l3->addWidget(Command1, 0, 1);
    l3->addWidget(List1, 1, 0, 1, 2);
    l3->addWidget(cmdOkTrasporta, 2, 0, 1, 2);
    List1->hide();
    cmdOkTrasporta->hide();
    Command1->hide();

    Frame4 = Riquadro(this, "Frame4", "Importa Compleanni  da AstDbTmp.mdb");
    Command2 = Pulsante(Frame4, "Command2", "Importa");
    Command3 = Pulsante(Frame4, "Command3", "?");
    auto* l4 = new QHBoxLayout(Frame4);
    l4->addWidget(Command2, 1);
    l4->addWidget(Command3);
    Frame4->hide();
}

QMenuBar* frmGesArchivi::CreaMenu() {
    // The text import and export live in their own forms, which connect these entries.
    auto* barra = new QMenuBar(this);
    mnFile = Nome(barra->addMenu(QStringLiteral("&File")), "mnFile");
    mnFileImp = Nome(mnFile->addMenu(QStringLiteral("&Importa Archivio")), "mnFileImp");
    mnFileImpSFtxt = Voce(mnFileImp, "mnFileImpSFtxt", "&Simple Text Solar Fire");
    mnFileExp = Nome(mnFile->addMenu(QStringLiteral("&Esporta Archivio")), "mnFileExp");
    mnFileTT = Voce(mnFileExp, "mnFileTT", "File di &Testo");
    cartellaFile = CartellaProgrammaQt();
    mnFileImpAAF = Voce(mnFileImp, "mnFileImpAAF", "&AAF...");
    mnFileImpCSV = Voce(mnFileImp, "mnFileImpCSV", "Foglio &CSV...");
    mnFileExpAAF = Voce(mnFileExp, "mnFileExpAAF", "&AAF...");
    mnFileExpCSV = Voce(mnFileExp, "mnFileExpCSV", "Foglio &CSV...");
    mnFile->addSeparator();
    mnFileSicurezza = Voce(mnFile, "mnFileSicurezza", "Copia di &sicurezza...");
    mnFileRipristina = Voce(mnFile, "mnFileRipristina", "&Ripristina...");
    return barra;
}

void frmGesArchivi::Disponi(QMenuBar* barra) {
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(cmdSalva);
    pulsanti->addStretch(1);
    pulsanti->addWidget(Command4);
    auto* colonnaDestra = new QVBoxLayout;
    colonnaDestra->addWidget(Frame2);
    colonnaDestra->addWidget(Frame3, 1);
    colonnaDestra->addWidget(Frame4);
    auto* corpo = new QHBoxLayout;
    corpo->addWidget(Frame1, 1);
    corpo->addLayout(colonnaDestra, 1);
    auto* tutto = new QVBoxLayout(this);
    tutto->setMenuBar(barra);
    tutto->addLayout(corpo, 1);
    tutto->addLayout(pulsanti);
}

void frmGesArchivi::Collega() {
    connect(mnFileImpSFtxt, &QAction::triggered, this,
            [this] { mnFileImpSFtxt_Click(this, lstArchivi, fileDB_, messaggi_); });
    connect(mnFileTT, &QAction::triggered, this,
            [this] { mnFileTT_Click(lstArchivi, fileDB_, messaggi_); });
    for (auto [voce, formato] : {std::pair{mnFileImpAAF, FormatoScambio::AAF},
                                 std::pair{mnFileImpCSV, FormatoScambio::CSV}})
        connect(voce, &QAction::triggered, this, [this, formato] {
            ImportaScambioUtente(this, lstArchivi, fileDB_, formato, messaggi_, cartellaFile,
                                 completaLuogo, sceltaApri);
        });
    for (auto [voce, formato] : {std::pair{mnFileExpAAF, FormatoScambio::AAF},
                                 std::pair{mnFileExpCSV, FormatoScambio::CSV}})
        connect(voce, &QAction::triggered, this, [this, formato] {
            EsportaScambioUtente(this, lstArchivi, fileDB_, formato, messaggi_, cartellaFile,
                                 sceltaSalva);
        });
    connect(mnFileSicurezza, &QAction::triggered, this, [this] {
        CopiaDiSicurezzaUtente(this, fileDB_, messaggi_, cartellaFile, sceltaSalva);
    });
    connect(mnFileRipristina, &QAction::triggered, this, [this] {
        if (!RipristinaUtente(this, fileDB_, messaggi_, QS(s_.CartellaCopie), sceltaApri).isEmpty())
            RiempiArchivi();
    });
    connect(cmdCrea, &QPushButton::clicked, this, &frmGesArchivi::cmdCrea_Click);
    connect(cmdSalva, &QPushButton::clicked, this, &frmGesArchivi::cmdSalva_Click);
    connect(Command4, &QPushButton::clicked, this, &frmGesArchivi::Command4_Click);
    connect(lstArchivi, &QListWidget::itemDoubleClicked, this, &frmGesArchivi::lstArchivi_DblClick);
    connect(cmdElimina, &QPushButton::clicked, this, &frmGesArchivi::cmdElimina_Click);
    connect(cmdRinomina, &QPushButton::clicked, this, &frmGesArchivi::cmdRinomina_Click);
    connect(cmdTrasporta, &QPushButton::clicked, this, &frmGesArchivi::cmdTrasporta_Click);
    connect(cmdOkTrasporta, &QPushButton::clicked, this, &frmGesArchivi::cmdOkTrasporta_Click);
    connect(Command1, &QPushButton::clicked, this, &frmGesArchivi::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmGesArchivi::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &frmGesArchivi::Command3_Click);
}

void frmGesArchivi::ModoSalvo() {
    Frame2->hide();
    Frame3->hide();
    cmdElimina->hide();
    cmdRinomina->hide();
    setWindowTitle(QStringLiteral("Vesmo - Salvo"));
    cmdSalva->show();
    cmdSalva->setDefault(true);
    resize(width(), Pixel(3000));
}

void frmGesArchivi::RiempiArchivi() {
    std::int16_t quale = 0;
    Riempi(quale);
}

void frmGesArchivi::Riempi(std::int16_t& quale) {
    QListWidget* lista = quale == 0 ? lstArchivi : List1;
    lista->clear();
    try {
        for (const std::string& a : ElencoArchivi(fileDB_))
            lista->addItem(QS(a));
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmGesArchivi.Riempi", e);
    }
    if (lista->count() > 0) lista->setCurrentRow(0);
}

void frmGesArchivi::cmdElimina_Click() {
    QListWidgetItem* voce = lstArchivi->currentItem();
    if (!voce) return;
    const std::string nome = SS(voce->text());
    if (messaggi_.Mostra("Lyx - Gestione Archivi", TestoEliminaArchivio(nome), Pulsanti::SiNo,
                         Icona::Informazione) == Risposta::Si &&
        CopiaPrimaDiEliminare(fileDB_, s_.CartellaCopie, messaggi_, "frmGesArchivi.cmdElimina")) {
        try {
            EliminaArchivio(fileDB_, nome);
        } catch (const std::exception& e) {
            AvvisoErroreDB(messaggi_, "frmGesArchivi.cmdElimina", e);
        }
    }
    s_.ArchivioIndice = 0;
    s_.ArchivioCorrente = SS(lstArchivi->item(0)->text());
    RiempiArchivi();
}

void frmGesArchivi::cmdTrasporta_Click() {
    std::int16_t quale = 1;
    Riempi(quale);
    List1->show();
    cmdOkTrasporta->show();
    Command1->show();
}

void frmGesArchivi::cmdOkTrasporta_Click() {
    QListWidgetItem* da = lstArchivi->currentItem();
    QListWidgetItem* a = List1->currentItem();
    if (da && a) {
        Clessidra clessidra(messaggi_);
        try {
            TrasportaArchivio(fileDB_, SS(da->text()), SS(a->text()));
        } catch (const std::exception& e) {
            clessidra.Spegni();
            AvvisoErroreDB(messaggi_, "frmGesArchivi.cmdOkTrasporta", e);
        }
    }
    List1->hide();
    cmdOkTrasporta->hide();
    Command1->hide();
}

void frmGesArchivi::Command1_Click() {
    MostraAiuto(QStringLiteral("Help - Trasporta Temi"),
                {QStringLiteral("Trasporta tutti i Temi Natali contenuti nell'Archivio"),
                 QStringLiteral("selezionato in Archivi Disponibili"),
                 QStringLiteral("dentro l'Archivio selezionato in Trasporta Archivi"),
                 QString(59, QLatin1Char('-')),
                 QStringLiteral("Copy FROM  Archivi Disponibili   TO   Trasporta Archivi")});
}

void frmGesArchivi::Command2_Click() {
    Clessidra clessidra(messaggi_);
    try {
        const EsitoCompleanni e = ImportaCompleanni(
            fileDB_, std::filesystem::path(cartellaProgramma_) / FileCompleanni, messaggi_);
        Command2->setText(QS(DidascaliaImportati(e.importati)));
    } catch (const std::exception& e) {
        clessidra.Spegni();
        AvvisoErroreDB(messaggi_, "frmGesArchivi.Command2", e);
    }
    RiempiArchivi();
}

void frmGesArchivi::Command3_Click() {
    MostraAiuto(QStringLiteral("Help - Importa Compleanni"),
                {QStringLiteral("AstDbTmp.mdb  DEVE  essere presente"),
                 QStringLiteral("nella stessa cartella di Vesmo.exe")});
}

void frmGesArchivi::MostraAiuto(const QString& titolo, const QStringList& righe) {
    if (aiuto_) aiuto_->close();
    aiuto_ = new QDialog(this);
    aiuto_->setObjectName("frmHelp");
    aiuto_->setAttribute(Qt::WA_DeleteOnClose);
    aiuto_->setWindowTitle(titolo);
    auto* testo = new QLabel(righe.join(QLatin1Char('\n')), aiuto_);
    testo->setObjectName("lbHelpFuso");
    auto* ok = new QPushButton(QStringLiteral("&Ok"), aiuto_);
    ok->setObjectName("Command1");
    connect(ok, &QPushButton::clicked, aiuto_, &QDialog::close);
    auto* l = new QVBoxLayout(aiuto_);
    l->addWidget(testo);
    l->addWidget(ok, 0, Qt::AlignRight);
    connect(aiuto_, &QObject::destroyed, this, [this] { aiuto_ = nullptr; });
    aiuto_->show();
}

void frmGesArchivi::cmdCrea_Click() {
    std::vector<std::string> elenco;
    for (int i = 0; i < lstArchivi->count(); ++i)
        elenco.push_back(SS(lstArchivi->item(i)->text()));
    if (CreaArchivioUtente(fileDB_, SS(Text1->text()), elenco, messaggi_)) RiempiArchivi();
}

void frmGesArchivi::cmdRinomina_Click() {
    QListWidgetItem* voce = lstArchivi->currentItem();
    if (!voce) return;
    const std::string vecchio = SS(voce->text());
    const auto testo = messaggi_.Chiedi("Vesmo - Rinomina Archivio",
                                        "Nuovo nome dell'Archivio  " + vecchio, vecchio);
    if (!testo) return;
    const auto nuovo = RinominaArchivio(fileDB_, vecchio, *testo, messaggi_);
    if (!nuovo || *nuovo == vecchio) return;
    if (s_.ArchivioCorrente == vecchio) s_.ArchivioCorrente = *nuovo;
    const int riga = lstArchivi->currentRow();
    RiempiArchivi();
    if (riga < lstArchivi->count()) lstArchivi->setCurrentRow(riga);
}

void frmGesArchivi::cmdSalva_Click() {
    QListWidgetItem* voce = lstArchivi->currentItem();
    if (!voce || !voce->isSelected()) {
        messaggi_.Mostra("Vesmo - Gestione Archivi ", "Crea un Archivio. File -> Gestione Archivi ",
                         Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    const std::string archivio = SS(voce->text());
    SalvaTema(fileDB_, archivio, s_.TemaCorrente, messaggi_, "frmGesArchivi.cmdSalva");
    s_.ArchivioIndice = lstArchivi->currentRow();
    s_.ArchivioCorrente = archivio;
    Command4_Click();
}

void frmGesArchivi::Command4_Click() {
    accept();
}

void frmGesArchivi::lstArchivi_DblClick(QListWidgetItem*) {
    cmdSalva_Click();
}

} // namespace vesmo
