// The archive windows driven by their controls: creating archives in frmGesArchivi, its save mode,
// and frmSalvoLyx with the session's remembered archive and the saved mark.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "archives/Archivi.h"
#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmSalvoLyx.h"
#include "core/qt/MessaggiQt.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;
using vesmo::test::TemaDiProva;

namespace {

class FinestreArchivi : public vesmo::test::ConArchivi {
protected:
    Sessione sessione;
};

} // namespace

TEST_F(FinestreArchivi, GestioneCreaArchivi) {
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - Gestione Archivi Temi Natali");
    EXPECT_FALSE(f.cmdSalva->isVisible());
    EXPECT_EQ(f.Combo1->currentText(), "AllCity");
    f.Text1->setText("  Famiglia ");
    f.cmdCrea->click();
    f.Text1->setText("Amici");
    f.cmdCrea->click();
    EXPECT_EQ(f.lstArchivi->currentRow(), 0);
    // A duplicate asks for another name, which the list shows.
    messaggi.input = {"Colleghi"};
    f.Text1->setText("FAMIGLIA");
    f.cmdCrea->click();
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Colleghi", "Famiglia"}));
}

// The save mode: only the list and Salva; with no archive it says to make one, else it saves into
// the chosen archive and remembers it. The double click saves as well, also when managing.
TEST_F(FinestreArchivi, ModoSalvo) {
    sessione.TemaCorrente = TemaDiProva("Anna Bianchi");
    {
        frmGesArchivi f(sessione, fileDB, messaggi);
        f.ModoSalvo();
        f.show();
        f.cmdSalva->click();
        ASSERT_TRUE(test::Box(messaggi, 1, 0, "Vesmo - Gestione Archivi ",
                              "Crea un Archivio. File -> Gestione Archivi "));
        EXPECT_EQ(messaggi.registro[0].icona, Icona::Esclamativo);
        EXPECT_TRUE(f.isVisible());
    }
    CreaArchivio(fileDB, "Amici");
    CreaArchivio(fileDB, "Famiglia");
    messaggi.registro.clear();
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.ModoSalvo();
    f.show();
    EXPECT_EQ(f.windowTitle(), "Vesmo - Salvo");
    f.lstArchivi->setCurrentRow(1);
    f.cmdSalva->click();
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(std::tuple(sessione.ArchivioIndice, sessione.ArchivioCorrente),
              std::tuple(1, "Famiglia"));
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{sessione.TemaCorrente});
    EXPECT_TRUE(messaggi.registro.empty());

    frmGesArchivi g(sessione, fileDB, messaggi);
    g.show();
    emit g.lstArchivi->itemDoubleClicked(g.lstArchivi->item(0));
    EXPECT_FALSE(g.isVisible());
    EXPECT_EQ(Temi("Amici"), std::vector<Tema>{sessione.TemaCorrente});
}

TEST_F(FinestreArchivi, SalvoLyxRicordaLArchivioESegnaIlSalvataggio) {
    for (const char* a : {"Amici", "Clienti", "Famiglia"})
        CreaArchivio(fileDB, a);
    sessione.ArchivioIndice = 2;
    sessione.TemaSalva = TemaDiProva("Anna Bianchi");
    {
        frmSalvoLyx f(sessione, fileDB, messaggi);
        f.show();
        EXPECT_EQ(f.windowTitle(), "Lyx - Salvo");
        EXPECT_EQ(f.lstArchivi->currentRow(), 2);
        EXPECT_EQ(sessione.ArchivioCorrente, "Famiglia");
        f.lstArchivi->setCurrentRow(1);
        f.cmdSalva->click();
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_EQ(std::tuple(sessione.SalvatoOk, sessione.ArchivioIndice, sessione.ArchivioCorrente),
              std::tuple(-1, 1, "Clienti"));
    EXPECT_EQ(Temi("Clienti"), std::vector<Tema>{sessione.TemaSalva});

    // Cancel leaves the mark as it was; the list remembers the archive.
    sessione.SalvatoOk = 0;
    messaggi.risposte = {Risposta::Annulla};
    {
        frmSalvoLyx f(sessione, fileDB, messaggi);
        f.show();
        emit f.lstArchivi->itemDoubleClicked(f.lstArchivi->currentItem());
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_EQ(std::tuple(sessione.SalvatoOk, Temi("Clienti").size()), std::tuple(0, 1u));

    // A remembered index beyond the list falls back to the first archive.
    sessione.ArchivioIndice = 9;
    frmSalvoLyx g(sessione, fileDB, messaggi);
    EXPECT_EQ(g.lstArchivi->currentRow(), 0);
    EXPECT_EQ(sessione.ArchivioCorrente, "Amici");
}
