#include "archives/ui/frmImpTVesmo.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "archives/Archivi.h"
#include "core/ui/Controlli.h"

namespace vesmo {

frmImpTVesmo::frmImpTVesmo(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                           QWidget* genitore)
    : FinestraImporta(sessione, fileDB, messaggi, "Vesmo - ", genitore) {
    setObjectName("frmImpTVesmo");
    setWindowTitle(QStringLiteral("Vesmo - Importa Temi da Archivio"));

    Frame1 = Riquadro(this, "Frame1", "Archivi  Disponibili");
    auto* l1 = new QVBoxLayout(Frame1);
    l1->addWidget(lstArchivi);
    Frame3 = Riquadro(this, "Frame3", "Cerca >>");
    auto* l3 = new QHBoxLayout(Frame3);
    l3->addWidget(Text1);

    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(Frame1, 1);
    sinistra->addWidget(cmdImporta);
    sinistra->addWidget(cmdElimina);
    sinistra->addWidget(Command3);
    auto* centro = new QVBoxLayout;
    centro->addWidget(DidascaliaGriglia);
    centro->addWidget(DBGrid1, 1);
    centro->addWidget(Frame3);
    centro->addWidget(BarraCerca);
    centro->addWidget(Command1);
    auto* tutto = new QHBoxLayout(this);
    tutto->addLayout(sinistra);
    tutto->addLayout(centro, 1);
    resize(900, 520);

    connect(cmdImporta, &QPushButton::clicked, this, &frmImpTVesmo::cmdImporta_Click);
    connect(DBGrid1, &QTableView::doubleClicked, this, &frmImpTVesmo::cmdImporta_Click);

    Carica();
}

void frmImpTVesmo::cmdImporta_Click() {
    try {
        if (!CiSonoTemi("")) return;
        LeggiRecordTema(*data1_, s_.TemaCorrente);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi_, "frmImpTVesmo.cmdImporta", e);
        return;
    }
    Command3_Click();
}

} // namespace vesmo
