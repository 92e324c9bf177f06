// vesmo: the workstation. The splash, the settings, the launcher, and from it the chart half.
#include <QApplication>
#include <QLocale>
#include <QTimer>
#include <memory>

#include "chart/Aspetti.h"
#include "core/Sessione.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/Avvio.h"
#include "core/ui/frmInputIni.h"
#include "core/ui/frmUrano.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "places/ui/frmMainVesmo.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmMenu.h"

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
    vesmo::TabellaAspetti aspetti;
    vesmo::ConfigIni cfgLyx;
    std::unique_ptr<vesmo::frmMenu> menu;

    // The chart half: the launcher's chart becomes the natal slot; leaving brings the launcher
    // back with its chart as it was.
    principale.AvviaLyx = [&] {
        messaggi.Occupato(true);
        aspetti.EntraInLyx();
        sessione.TemaX = sessione.TemaCorrente;
        cfgLyx = avvio.cfg;
        sessione.DatiOk = 0;
        sessione.MenuPronto = 0;
        principale.Dati->Chiudi();
        principale.hide();
        menu =
            std::make_unique<vesmo::frmMenu>(sessione, aspetti, cfgLyx, avvio.percorsi, messaggi);
        menu->InputDati = [&](const vesmo::RichiestaInputDati& richiesta) {
            char ordine = cfgLyx.Ordinamento.str() == "C" ? 'C' : 'N';
            vesmo::frmInDatiLyx f(sessione, avvio.percorsi.FileDB, ordine, messaggi, menu.get());
            f.TagCommand4 = richiesta.TagCommand4;
            f.Form_Load();
            vesmo::PreparaInputDati(f, richiesta);
            f.exec();
            return vesmo::EsitoInputDati{sessione.DatiOk != 0, f.AnnoRiv, f.MeseRiv, f.GiornoRiv};
        };
        menu->TornaAVesmo = [&] {
            QTimer::singleShot(0, &principale, [&] {
                menu.reset();
                messaggi.ImpostaGenitore(&principale);
                principale.show();
                principale.Form_Load();
            });
        };
        messaggi.ImpostaGenitore(menu.get());
        messaggi.Occupato(false);
        menu->Form_Load();
    };

    messaggi.ImpostaGenitore(&principale);
    principale.show();
    splash.close();
    principale.Form_Load();
    int esito = app.exec();
    menu.reset();
    return esito;
}
