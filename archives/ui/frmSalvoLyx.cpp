#include "archives/ui/frmSalvoLyx.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/Archivi.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"

namespace vesmo {

frmSalvoLyx::frmSalvoLyx(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                         QWidget* genitore)
    : QDialog(genitore), s_(sessione), fileDB_(fileDB), messaggi_(messaggi) {
    setObjectName("frmSalvoLyx");
    setWindowTitle(QStringLiteral("Lyx - Salvo"));
    setModal(true);

    auto* frame = Riquadro(this, "Frame1", "Archivi  Disponibili");
    lstArchivi = Nome(new QListWidget(frame), "lstArchivi");
    auto* lf = new QVBoxLayout(frame);
    lf->addWidget(lstArchivi);
    cmdSalva = Pulsante(this, "cmdSalva", "&Salva  Tema");
    Command4 = Pulsante(this, "Command4", "Esc&i");
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(cmdSalva);
    pulsanti->addStretch(1);
    pulsanti->addWidget(Command4);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(frame, 1);
    tutto->addLayout(pulsanti);
    resize(340, 300);

    connect(cmdSalva, &QPushButton::clicked, this, &frmSalvoLyx::cmdSalva_Click);
    connect(Command4, &QPushButton::clicked, this, &frmSalvoLyx::Command4_Click);
    connect(lstArchivi, &QListWidget::itemDoubleClicked, this, &frmSalvoLyx::lstArchivi_DblClick);

    try {
        for (const std::string& a : ElencoArchivi(fileDB_))
            lstArchivi->addItem(QS(a));
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmSalvoLyx.Form_Load", e);
    }
    if (lstArchivi->count() > 0) {
        int indice = s_.ArchivioIndice;
        if (indice < 0 || indice >= lstArchivi->count()) indice = 0;
        lstArchivi->setCurrentRow(indice);
        s_.ArchivioCorrente = SS(lstArchivi->currentItem()->text());
    }
}

void frmSalvoLyx::cmdSalva_Click() {
    QListWidgetItem* voce = lstArchivi->currentItem();
    if (!voce || !voce->isSelected()) {
        messaggi_.Mostra("Vesmo - Gestione Archivi ", "Crea un Archivio. File -> Gestione Archivi ",
                         Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    const std::string archivio = SS(voce->text());
    const EsitoSalvataggio esito =
        SalvaTema(fileDB_, archivio, s_.TemaSalva, messaggi_, "frmSalvoLyx.cmdSalva");
    if (Salvato(esito)) s_.SalvatoOk = -1;
    s_.ArchivioIndice = lstArchivi->currentRow();
    s_.ArchivioCorrente = archivio;
    Command4_Click();
}

void frmSalvoLyx::Command4_Click() {
    accept();
}

void frmSalvoLyx::lstArchivi_DblClick(QListWidgetItem*) {
    cmdSalva_Click();
}

} // namespace vesmo
