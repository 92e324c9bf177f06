#include "core/ui/Avvio.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/Cartelle.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/frmInputIni.h"

namespace vesmo {

std::string DatabasePreparato(const QString& cartellaProgramma) {
    QDir d(cartellaProgramma);
    for (int livello = 0; livello < 5; ++livello) {
        for (const char* nome : {"Vesmodat.Mdb", "data/Vesmodat.Mdb"}) {
            QFileInfo f(d.filePath(QString::fromUtf8(nome)));
            if (f.isFile()) return SS(f.absoluteFilePath());
        }
        if (!d.cdUp()) break;
    }
    return {};
}

EsitoAvvio Avvia(const QString& cartellaProgramma, Sessione& sessione, Messaggi& messaggi,
                 const std::function<bool(frmInputIni&)>& dialogo) {
    EsitoAvvio esito;
    QDir::setCurrent(cartellaProgramma);
    // Run from its build tree the program keeps its settings beside itself; installed, in the
    // user's configuration folder.
    const QString cartellaIni =
        QString::fromStdString(CartellaImpostazioni(cartellaProgramma.toStdString()).string());
    QDir().mkpath(cartellaIni);
    std::string fileIni = SS(QDir(cartellaIni).absoluteFilePath(QStringLiteral("Vesmodat.ini")));

    if (!QFileInfo::exists(QS(fileIni))) AvvisoIniAssente(messaggi);
    std::string errore;
    if (!LeggiConfig(fileIni, esito.cfg, &errore)) {
        messaggi.Mostra("Vesmo - Avvio",
                        "Impossibile aprire il file delle impostazioni:\n" + errore, Pulsanti::Ok,
                        Icona::Critico);
        return esito;
    }

    esito.percorsi = DerivaPercorsi(fileIni, esito.cfg);
    if (ServePrimaConfigurazione(esito.cfg)) {
        // The database that the set-up prepared and an Astrolog on the path are offered, so that
        // "&Ok" alone is enough.
        std::string db = DatabasePreparato(cartellaProgramma);
        // Installed, the user works on a copy of the delivered database, made now.
        std::string erroreCopia;
        const auto copia = CopiaUtenteDatabase(cartellaProgramma.toStdString(), &erroreCopia);
        if (!copia.empty()) db = copia.string();
        if (!erroreCopia.empty())
            messaggi.Mostra("Vesmo - Avvio", erroreCopia, Pulsanti::Ok, Icona::Critico);
        QString exe = QStandardPaths::findExecutable(QStringLiteral("astrolog"));
        esito.percorsi.FileDB = db;
        esito.percorsi.CmdAstrolog = exe.isEmpty() ? std::string() : SS(exe) + " ";
        frmInputIni f(esito.percorsi, messaggi);
        f.PresetPrimaVolta(db.empty() ? SS(QDir(cartellaProgramma).filePath("Vesmodat.Mdb")) : db,
                           SS(exe));
        if (!dialogo(f)) return esito;
        LeggiConfig(fileIni, esito.cfg, &errore);
    }
    esito.percorsi = DerivaPercorsi(fileIni, esito.cfg);
    // From here on the current folder is Astrolog's, when there is one.
    if (!esito.percorsi.DirAstrolog.empty() && QFileInfo(QS(esito.percorsi.DirAstrolog)).isDir())
        QDir::setCurrent(QS(esito.percorsi.DirAstrolog));

    QDateTime ora = QDateTime::currentDateTime();
    PresetTemaCorrente(sessione, esito.cfg, ora.date().year(), ora.date().month(), ora.date().day(),
                       ora.time().hour(), ora.time().minute(), ora.time().second());
    esito.continua = true;
    return esito;
}

} // namespace vesmo
