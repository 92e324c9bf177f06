// The launcher's entries of the places database: the zoom of a nation and of a summer-time list,
// the editor, the cleaning of Fusi and Estive and the compaction of the file.
#include <QApplication>
#include <QMenu>

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Controlli.h"
#include "places/ModelloLuoghi.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmDbEdit.h"
#include "places/ui/frmMainVesmo.h"
#include "places/ui/frmPulizia.h"

#include <QLineEdit>

namespace vesmo {

void frmMainVesmo::CreaMenuDb() {
    mnuZN = Azione(this, "mnuZN", "Zoom N&azione");
    mnuZE = Azione(this, "mnuZE", "&Zoom Estive");
    mnuFile->insertActions(mnuFilePath, {mnuZN, mnuZE});
    mnuFile->insertSeparator(mnuFilePath);
    mnuFilEdit = Azione(this, "mnuFilEdit", "Db Ed&ita");
    mnuFilDbCt = Azione(this, "mnuFilDbCt", "Db C&ompact");
    auto* pulizia = new QMenu(QStringLiteral("Db P&ulizia / Clean"), mnuFile);
    pulizia->setObjectName("mnuFilDbPul");
    mnuFilDbPulEst = Azione(this, "mnuFilDbPulEst", "&Estive");
    mnuFilDbPilFusi = Azione(this, "mnuFilDbPilFusi", "&Fusi");
    pulizia->addAction(mnuFilDbPulEst);
    pulizia->addAction(mnuFilDbPilFusi);
    mnuFile->insertAction(mnuFilEsci, mnuFilEdit);
    mnuFile->insertAction(mnuFilEsci, mnuFilDbCt);
    mnuFile->insertMenu(mnuFilEsci, pulizia);
    mnuFile->insertSeparator(mnuFilEsci);

    connect(mnuZN, &QAction::triggered, this, &frmMainVesmo::mnuZN_Click);
    connect(mnuZE, &QAction::triggered, this, &frmMainVesmo::mnuZE_Click);
    connect(mnuFilEdit, &QAction::triggered, this, &frmMainVesmo::mnuFilEdit_Click);
    connect(mnuFilDbCt, &QAction::triggered, this, &frmMainVesmo::mnuFilDbCt_Click);
    connect(mnuFilDbPulEst, &QAction::triggered, this, [this] { ApriPulizia(2); });
    connect(mnuFilDbPilFusi, &QAction::triggered, this, [this] { ApriPulizia(1); });
}

void frmMainVesmo::mnuZN_Click() {
    ModelloLuoghi* l = Dati->Luoghi();
    if (!l || l->Data2.BOF() || l->Data2.Eof()) return;
    try {
        auto* f = new frmZoomN(percorsi_.FileDB,
                               static_cast<std::int32_t>(l->Data2.Campo("cNaz").Intero()),
                               messaggi_, this);
        f->setAttribute(Qt::WA_DeleteOnClose);
        f->Form_Load();
        f->setWindowTitle(QStringLiteral("Vesmo - Zoom  ") +
                          QS(SenzaSpazi(l->Data2.Campo("Nazione").Testo())));
        f->show();
    } catch (const std::exception& e) {
        messaggi_.Mostra("Vesmo - Errore [frmMainVesmo.mnuZN]", e.what(), Pulsanti::Ok,
                         Icona::Critico);
    }
}

void frmMainVesmo::mnuZE_Click() {
    ModelloLuoghi* l = Dati->Luoghi();
    if (!l || l->Data1.BOF() || l->Data1.Eof() || l->Data2.BOF() || l->Data2.Eof()) return;
    try {
        ModelloFusiEstive m(percorsi_.FileDB, messaggi_);
        m.condiviso = &l->db;
        m.ZoomCEst = static_cast<double>(l->Data1.Campo("cEst").Intero());
        if (m.ZoomCEst < 10000) m.ZoomAnno = ValoreTesto(SS(Dati->Text5->text()));
        frmFusiEstive f(m, this);
        f.Form_Load();
        f.setWindowTitle(QStringLiteral("Vesmo - Estive di   ") +
                         QS(SenzaSpazi(l->Data2.Campo("Nazione").Testo())) + QStringLiteral(" - ") +
                         QS(SenzaSpazi(l->Data1.Campo("City").Testo())));
        f.exec();
        Dati->Command5_Click();
    } catch (const std::exception& e) {
        messaggi_.Mostra("Vesmo - Errore [frmMainVesmo.mnuZE]", e.what(), Pulsanti::Ok,
                         Icona::Critico);
    }
}

void frmMainVesmo::mnuFilEdit_Click() {
    auto* f = new frmDbEdit(percorsi_.FileDB, messaggi_, this);
    f->setAttribute(Qt::WA_DeleteOnClose);
    if (!f->Form_Load()) {
        f->close();
        return;
    }
    f->show();
}

void frmMainVesmo::mnuFilDbCt_Click() {
    ApriPulizia(3);
}

void frmMainVesmo::ApriPulizia(int modo) {
    // The start form goes, and with it every cursor of this side on the file.
    auto scarica = [this] {
        for (auto* f : findChildren<frmDbEdit*>())
            f->close();
        for (auto* f : findChildren<frmZoomN*>())
            f->close();
        Dati->Chiudi();
        hide();
        QApplication::processEvents();
    };
    if (modo != 3) scarica();
    auto* p = new frmPulizia(percorsi_.FileDB, modo, messaggi_);
    p->setAttribute(Qt::WA_DeleteOnClose);
    p->PrimaDiEliminare = PrimaDiEliminare;
    p->AlRitorno = [this] {
        show();
        Form_Load();
    };
    p->Form_Load();
    if (modo == 3) {
        QApplication::processEvents();
        scarica();
    }
}

} // namespace vesmo
