// vesmo: the workstation. The splash, the settings, then the launcher window.
#include <QApplication>
#include <QLocale>

#include "core/Sessione.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Avvio.h"
#include "core/ui/frmInputIni.h"
#include "core/ui/frmUrano.h"
#include "places/ui/frmMainVesmo.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vesmo"));
    // The workstation speaks Italian and writes decimals with the comma, whatever the system's.
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));

    vesmo::frmUrano splash;
    splash.show();
    QApplication::processEvents();

    vesmo::Sessione sessione;
    vesmo::MessaggiQt messaggi;
    vesmo::EsitoAvvio avvio = vesmo::Avvia(QCoreApplication::applicationDirPath(), sessione,
                                           messaggi, [&](vesmo::frmInputIni& f) {
                                               splash.hide();
                                               f.exec();
                                               return f.Salvato;
                                           });
    if (!avvio.continua) return 0;

    vesmo::frmMainVesmo principale(sessione, avvio.cfg, avvio.percorsi, messaggi);
    messaggi.ImpostaGenitore(&principale);
    principale.show();
    splash.close();
    principale.Form_Load();
    return app.exec();
}
