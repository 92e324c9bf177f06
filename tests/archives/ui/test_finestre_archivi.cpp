// The archive windows driven by their controls: creating archives in frmGesArchivi (duplicates,
// refused names), its save mode with the three answers, and frmSalvoLyx with the session's
// remembered archive and the saved mark.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "archives/Archivi.h"
#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmSalvoLyx.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;
using vesmo::test::Cartella;

namespace {

Tema Bianchi() {
    Tema t;
    t.Nome = "Anna Bianchi";
    t.City = "Treviso";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(1975, 6, 2);
    t.OraL = 4.25;
    t.Lon = -12.24 / 15;
    t.Lat = 45.67;
    t.Fuso = -1;
    t.Estiva = 1;
    return t;
}

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
    EXPECT_EQ(f.Combo1->count(), 7);
    EXPECT_EQ(f.Combo1->currentText(), "AllCity");
    EXPECT_EQ(f.Combo1->itemText(6), "MSys...!");
    EXPECT_EQ(f.lstArchivi->count(), 0);

    f.Text1->setText("  Famiglia ");
    f.cmdCrea->click();
    f.Text1->setText("Amici");
    f.cmdCrea->click();
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Famiglia"}));
    EXPECT_EQ(f.lstArchivi->currentRow(), 0);
    EXPECT_TRUE(messaggi.registro.empty());

    // A duplicate asks for another name.
    messaggi.input = {"Colleghi"};
    f.Text1->setText("FAMIGLIA");
    f.cmdCrea->click();
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "frmGesArchivi.cmdCrea: Nome Doppio");
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Colleghi", "Famiglia"}));

    // Empty text: nothing happens. A name the database refuses: a message, nothing created.
    f.Text1->setText("   ");
    f.cmdCrea->click();
    f.Text1->setText("Nazioni");
    f.cmdCrea->click();
    ASSERT_EQ(messaggi.registro.size(), 2u);
    EXPECT_EQ(messaggi.registro[1].titolo, "frmGesArchivi.cmdCrea: Nome Non Valido");
    EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Colleghi", "Famiglia"}));
    EXPECT_TRUE(f.isVisible());
}

TEST_F(FinestreArchivi, ModoSalvoConLeTreRisposte) {
    CreaArchivio(fileDB, "Amici");
    CreaArchivio(fileDB, "Famiglia");
    sessione.TemaCorrente = Bianchi();

    auto salva = [&](int riga, std::optional<Risposta> risposta) {
        frmGesArchivi f(sessione, fileDB, messaggi);
        f.ModoSalvo();
        f.show();
        EXPECT_EQ(f.windowTitle(), "Vesmo - Salvo");
        // Only the list and Salva: the management frames are hidden.
        EXPECT_FALSE(f.Frame2->isVisible());
        EXPECT_FALSE(f.Frame3->isVisible());
        EXPECT_FALSE(f.cmdElimina->isVisible());
        EXPECT_TRUE(f.cmdSalva->isVisible());
        EXPECT_EQ(f.height(), 200);
        if (risposta) messaggi.risposte = {*risposta};
        f.lstArchivi->setCurrentRow(riga);
        f.cmdSalva->click();
        EXPECT_FALSE(f.isVisible());
        EXPECT_EQ(sessione.ArchivioIndice, riga);
        EXPECT_EQ(sessione.ArchivioCorrente, riga == 0 ? "Amici" : "Famiglia");
    };

    salva(1, std::nullopt);
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{Bianchi()});

    // The same name again: the question, here for TemaCorrente.
    sessione.TemaCorrente.OraL = 5;
    salva(1, Risposta::Si);
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{sessione.TemaCorrente});
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Tema Doppio");
    EXPECT_EQ(messaggi.registro[0].testo.substr(0, 30), "Anna Bianchi                  ");
    EXPECT_TRUE(Temi("Amici").empty());

    // The double click saves as well, also in the management form.
    messaggi.registro.clear();
    frmGesArchivi g(sessione, fileDB, messaggi);
    g.show();
    emit g.lstArchivi->itemDoubleClicked(g.lstArchivi->item(0));
    EXPECT_FALSE(g.isVisible());
    EXPECT_EQ(Temi("Amici"), std::vector<Tema>{sessione.TemaCorrente});
}

TEST_F(FinestreArchivi, SalvaSenzaArchiviAvvisa) {
    frmGesArchivi f(sessione, fileDB, messaggi);
    f.ModoSalvo();
    f.show();
    f.cmdSalva->click();
    ASSERT_TRUE(test::Box(messaggi, 1, 0, "Vesmo - Gestione Archivi ",
                          "Crea un Archivio. File -> Gestione Archivi "));
    EXPECT_EQ(messaggi.registro[0].icona, Icona::Esclamativo);
    EXPECT_TRUE(f.isVisible());
}

TEST_F(FinestreArchivi, SalvoLyxRicordaLArchivioESegnaIlSalvataggio) {
    for (const char* a : {"Amici", "Clienti", "Famiglia"})
        CreaArchivio(fileDB, a);
    sessione.ArchivioIndice = 2;
    sessione.TemaSalva = Bianchi();
    {
        frmSalvoLyx f(sessione, fileDB, messaggi);
        f.show();
        EXPECT_EQ(f.windowTitle(), "Lyx - Salvo");
        EXPECT_EQ(test::Voci(f.lstArchivi), (QStringList{"Amici", "Clienti", "Famiglia"}));
        EXPECT_EQ(f.lstArchivi->currentRow(), 2);
        EXPECT_EQ(sessione.ArchivioCorrente, "Famiglia");
        f.lstArchivi->setCurrentRow(1);
        f.cmdSalva->click();
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_EQ(sessione.SalvatoOk, -1);
    EXPECT_EQ(sessione.ArchivioIndice, 1);
    EXPECT_EQ(sessione.ArchivioCorrente, "Clienti");
    EXPECT_EQ(Temi("Clienti"), std::vector<Tema>{Bianchi()});

    // Cancel leaves the mark as it was; the list remembers the archive.
    sessione.SalvatoOk = 0;
    messaggi.risposte = {Risposta::Annulla};
    {
        frmSalvoLyx f(sessione, fileDB, messaggi);
        f.show();
        EXPECT_EQ(f.lstArchivi->currentRow(), 1);
        emit f.lstArchivi->itemDoubleClicked(f.lstArchivi->currentItem());
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_EQ(sessione.SalvatoOk, 0);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Tema Doppio");
    EXPECT_EQ(Temi("Clienti"), std::vector<Tema>{Bianchi()});

    // A remembered index beyond the list falls back to the first archive.
    sessione.ArchivioIndice = 9;
    frmSalvoLyx g(sessione, fileDB, messaggi);
    EXPECT_EQ(g.lstArchivi->currentRow(), 0);
    EXPECT_EQ(sessione.ArchivioCorrente, "Amici");
}
