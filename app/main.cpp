// vesmo: the workstation. The splash, the settings, the launcher, and from it the chart half.
#include <QApplication>
#include <QLocale>

#include "app/Programma.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/frmInputIni.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vesmo"));
    // The workstation speaks Italian and writes decimals with the comma, whatever the system's.
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    vesmo::CaricaTraduzioniQt(app);

    vesmo::MessaggiQt messaggi;
    vesmo::Programma programma(messaggi);
    if (!programma.Avvia(QCoreApplication::applicationDirPath(), [](vesmo::frmInputIni& f) {
            f.exec();
            return f.Salvato;
        }))
        return 0;
    return app.exec();
}
