#include "archives/ui/frmGesArchivi.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/Archivi.h"
#include "archives/ui/ImportaEsporta.h"
#include "core/qt/MessaggiQt.h"

namespace vesmo {

namespace {

// Twips of the original layout to pixels.
constexpr int Pixel(int twips) {
    return twips / 15;
}

} // namespace

frmGesArchivi::frmGesArchivi(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                             QWidget* genitore)
    : QDialog(genitore), s_(sessione), fileDB_(fileDB), messaggi_(messaggi) {
    setObjectName("frmGesArchivi");
    setWindowTitle(QStringLiteral("Vesmo - Gestione Archivi Temi Natali"));
    setModal(true);

    Frame1 = new QGroupBox(QStringLiteral("Archivi  Disponibili"), this);
    Frame1->setObjectName("Frame1");
    lstArchivi = new QListWidget(Frame1);
    lstArchivi->setObjectName("lstArchivi");
    auto* l1 = new QVBoxLayout(Frame1);
    l1->addWidget(lstArchivi);

    Frame2 = new QGroupBox(QStringLiteral("Crea Nuovo Archivio"), this);
    Frame2->setObjectName("Frame2");
    Text1 = new QLineEdit(Frame2);
    Text1->setObjectName("Text1");
    cmdCrea = new QPushButton(QStringLiteral("Ok  &Crea"), Frame2);
    cmdCrea->setObjectName("cmdCrea");
    Label1 = new QLabel(QStringLiteral("  Nomi  Non Validi"), Frame2);
    Label1->setObjectName("Label1");
    Combo1 = new QComboBox(Frame2);
    Combo1->setObjectName("Combo1");
    Combo1->addItems(
        {"AllCity", "Estive", "Fusi", "FusiEstiveUniti", "Nazioni", "ZoneOrarie", "MSys...!"});
    auto* l2 = new QGridLayout(Frame2);
    l2->addWidget(Text1, 0, 0);
    l2->addWidget(cmdCrea, 0, 1);
    l2->addWidget(Label1, 1, 0);
    l2->addWidget(Combo1, 1, 1);

    cmdSalva = new QPushButton(QStringLiteral("&Salva  Tema"), this);
    cmdSalva->setObjectName("cmdSalva");
    cmdSalva->hide();
    Command4 = new QPushButton(QStringLiteral("Esc&i"), this);
    Command4->setObjectName("Command4");
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(cmdSalva);
    pulsanti->addStretch(1);
    pulsanti->addWidget(Command4);

    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(Frame1, 1);
    tutto->addWidget(Frame2);
    tutto->addLayout(pulsanti);
    resize(380, 420);

    auto* menu = new QMenuBar(this);
    QMenu* mnFile = menu->addMenu(QStringLiteral("&File"));
    mnFile->setObjectName("mnFile");
    QMenu* mnFileImp = mnFile->addMenu(QStringLiteral("&Importa Archivio"));
    mnFileImp->setObjectName("mnFileImp");
    mnFileImpSFtxt = mnFileImp->addAction(QStringLiteral("&Simple Text Solar Fire"));
    mnFileImpSFtxt->setObjectName("mnFileImpSFtxt");
    QMenu* mnFileExp = mnFile->addMenu(QStringLiteral("&Esporta Archivio"));
    mnFileExp->setObjectName("mnFileExp");
    mnFileTT = mnFileExp->addAction(QStringLiteral("File di &Testo"));
    mnFileTT->setObjectName("mnFileTT");
    tutto->setMenuBar(menu);
    connect(mnFileImpSFtxt, &QAction::triggered, this,
            [this] { mnFileImpSFtxt_Click(this, lstArchivi, fileDB_, messaggi_); });
    connect(mnFileTT, &QAction::triggered, this,
            [this] { mnFileTT_Click(lstArchivi, fileDB_, messaggi_); });

    connect(cmdCrea, &QPushButton::clicked, this, &frmGesArchivi::cmdCrea_Click);
    connect(cmdSalva, &QPushButton::clicked, this, &frmGesArchivi::cmdSalva_Click);
    connect(Command4, &QPushButton::clicked, this, &frmGesArchivi::Command4_Click);
    connect(lstArchivi, &QListWidget::itemDoubleClicked, this, &frmGesArchivi::lstArchivi_DblClick);

    RiempiArchivi();
    Combo1->setCurrentIndex(0);
}

void frmGesArchivi::ModoSalvo() {
    Frame2->hide();
    setWindowTitle(QStringLiteral("Vesmo - Salvo"));
    cmdSalva->show();
    resize(width(), Pixel(3000));
}

void frmGesArchivi::RiempiArchivi() {
    lstArchivi->clear();
    try {
        for (const std::string& a : ElencoArchivi(fileDB_))
            lstArchivi->addItem(QS(a));
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmGesArchivi.Riempi", e);
    }
    if (lstArchivi->count() > 0) lstArchivi->setCurrentRow(0);
}

void frmGesArchivi::cmdCrea_Click() {
    std::vector<std::string> elenco;
    for (int i = 0; i < lstArchivi->count(); ++i)
        elenco.push_back(SS(lstArchivi->item(i)->text()));
    if (CreaArchivioUtente(fileDB_, SS(Text1->text()), elenco, messaggi_)) RiempiArchivi();
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
