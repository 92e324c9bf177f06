// The start-up: the missing settings file, the first-time dialog preset to the prepared
// database, leaving it, storing it, and the dialog reopened from the menu.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "core/Cartelle.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Avvio.h"
#include "core/ui/frmInputIni.h"
#include "tests/core/ui/Controlli.h"

using namespace vesmo;

namespace {

void Scrivi(const QString& file, const QByteArray& testo) {
    QDir().mkpath(QFileInfo(file).path());
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(testo);
}

class AvvioTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(cartella.isValid());
        QDir().mkpath(programma);
        Scrivi(db, "x");
    }
    // A start whose dialog must not open.
    EsitoAvvio SenzaDialogo(const QString& dove, MessaggiRegistrati& m) {
        return Avvia(dove, sessione, m, [&](frmInputIni&) {
            ADD_FAILURE() << "the dialog opened again";
            return false;
        });
    }
    QTemporaryDir cartella;
    const QString programma = cartella.filePath("bin");
    const QString db = QFileInfo(cartella.filePath("data/Vesmodat.Mdb")).absoluteFilePath();
    Sessione sessione;
    MessaggiRegistrati messaggi;
};

} // namespace

// The first start: the "Assente" box, the dialog left with Esci (an empty file, the dialog
// again next time without the box), then filled with the choosers and stored.
TEST_F(AvvioTest, PrimaVoltaEsciPoiSfogliaEOk) {
    EsitoAvvio e = Avvia(programma, sessione, messaggi, [&](frmInputIni& f) {
        EXPECT_EQ(f.windowTitle(), "Vesmo - Confgurazione prima volta/First time");
        EXPECT_TRUE(f.PrimaVolta);
        f.cmdEsci->click();
        return f.Salvato;
    });
    EXPECT_FALSE(e.continua);
    EXPECT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(QFileInfo(QDir(programma).filePath("Vesmodat.ini")).size(), 0);

    MessaggiRegistrati m2;
    bool aperto = false;
    e = Avvia(programma, sessione, m2, [&](frmInputIni& f) {
        aperto = true;
        test::Testi(&f, {{"TextDB", db}, {"TextNaz", "Italy"}, {"TextCity", "Padova"}});
        EXPECT_TRUE(f.OptNazioni->isChecked());
        // The database chooser cancelled leaves the box; the program's chooser fills its own.
        QStringList titoli;
        f.ScegliFile = [&](const QString& titolo, const QString&) -> std::optional<QString> {
            titoli << titolo;
            if (titolo.contains("DataBase")) return std::nullopt;
            return QString("/opt/astro/astrolog");
        };
        f.CmdDB->click();
        f.CmdExe->click();
        EXPECT_EQ(titoli, QStringList({"Vesmo - Cerca DataBase", "Vesmo - Cerca Astrolog.Exe"}));
        f.OptCity->setChecked(true);
        f.CmdOk->click();
        return f.Salvato;
    });
    EXPECT_TRUE(aperto);
    ASSERT_TRUE(e.continua);
    EXPECT_TRUE(m2.registro.empty());
    EXPECT_EQ(e.percorsi.FileDB, SS(db));
    EXPECT_EQ(e.percorsi.CmdAstrolog, "/opt/astro/astrolog ");
    EXPECT_EQ(e.cfg.Ordinamento.str(), "C");
    EXPECT_EQ(QFileInfo(QDir(programma).filePath("Vesmodat.ini")).size(), 325);
    EXPECT_EQ(sessione.TemaCorrente.Nome.Valore(), "Default Now");
    // The next start finds everything and asks nothing.
    MessaggiRegistrati m3;
    EXPECT_TRUE(SenzaDialogo(programma, m3).continua);
    EXPECT_TRUE(m3.registro.empty());
}

// Reopened from the menu on a file that cannot be written: the dialog stays open and says so.
TEST_F(AvvioTest, DialogoDalMenuEFileNonScrivibile) {
    PercorsiVesmo p;
    p.FileIni = SS(cartella.filePath("manca/Vesmodat.ini"));
    p.FileDB = "/dati/Vesmodat.Mdb";
    ConfigIni c;
    c.CityDefault = "Toronto";
    c.Ordinamento = "C";
    frmInputIni f(p, messaggi);
    f.MostraConfig(c);
    EXPECT_FALSE(f.PrimaVolta);
    test::Testi(&f, {{"TextDB", "/dati/Vesmodat.Mdb"}, {"TextCity", "Toronto"}});
    EXPECT_TRUE(f.OptCity->isChecked());
    f.CmdOk->click();
    EXPECT_FALSE(f.Salvato);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Configurazione");
    EXPECT_EQ(
        messaggi.registro[0].testo.rfind("Impossibile leggere il file delle impostazioni:\n", 0),
        0u);
}

// Installed (<prefix>/bin beside <prefix>/share/vesmo), the first start keeps Vesmodat.ini in the
// user's configuration folder, copies the delivered database into the user's data folder and
// proposes that copy; nothing is written beside the program.
TEST_F(AvvioTest, InstallatoImpostazioniECopiaNelleCartelleDellUtente) {
    const QString casa = cartella.filePath("casa"), bin = cartella.filePath("usr/bin");
    QDir().mkpath(bin);
    Scrivi(cartella.filePath("usr/share/vesmo/Vesmodat.Mdb"), "consegnato");
    const QByteArray prima[] = {qgetenv("HOME"), qgetenv("XDG_CONFIG_HOME"),
                                qgetenv("XDG_DATA_HOME")};
    qputenv("HOME", casa.toUtf8());
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("XDG_DATA_HOME");
    // The program's rule and Qt's agree on the user's folders.
    EXPECT_EQ(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/vesmo",
              QString::fromStdString(CartellaConfigUtente().string()));
    EXPECT_EQ(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/vesmo",
              QString::fromStdString(CartellaDatiUtente().string()));

    const QString copia = casa + "/.local/share/vesmo/Vesmodat.Mdb";
    EsitoAvvio e = Avvia(bin, sessione, messaggi, [&](frmInputIni& f) {
        EXPECT_EQ(f.TextDB->text(), copia);
        f.CmdOk->click();
        return f.Salvato;
    });
    EXPECT_TRUE(e.continua);
    EXPECT_EQ(e.percorsi.FileIni, SS(casa + "/.config/vesmo/Vesmodat.ini"));
    EXPECT_TRUE(QFileInfo::exists(casa + "/.config/vesmo/Vesmodat.ini"));
    EXPECT_FALSE(QFileInfo::exists(bin + "/Vesmodat.ini"));

    const char* nomi[] = {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"};
    for (int i = 0; i < 3; ++i)
        prima[i].isNull() ? qunsetenv(nomi[i]) : qputenv(nomi[i], prima[i]);
}
