#include "app/Programma.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#include "app/Lanciatore.h"
#include "archives/Sicurezza.h"
#include "core/Cartelle.h"
#include "core/qt/MessaggiQt.h"
#include "core/qt/Schermo.h"
#include "core/ui/frmInputIni.h"
#include "core/ui/frmUrano.h"
#include "places/ui/PannelloDati.h"
#include "places/ui/frmInDatiLyx.h"
#include "places/ui/frmMainVesmo.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo {

bool CaricaTraduzioniQt(QApplication& app) {
    auto* traduttore = new QTranslator(&app);
    const QString cartella = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!traduttore->load(QLocale(QLocale::Italian, QLocale::Italy), QStringLiteral("qtbase"),
                          QStringLiteral("_"), cartella)) {
        delete traduttore;
        return false;
    }
    QCoreApplication::installTranslator(traduttore);
    return true;
}

Programma::Programma(Messaggi& messaggi) : messaggi_(messaggi) {}

Programma::~Programma() {
    menu.reset();
    principale.reset();
}

void Programma::Genitore(QWidget* w) {
    if (auto* qt = dynamic_cast<MessaggiQt*>(&messaggi_)) qt->ImpostaGenitore(w);
}

bool Programma::Avvia(const QString& cartellaProgramma,
                      const std::function<bool(frmInputIni&)>& dialogo) {
    // The chart half hides the launcher before it shows itself, and leaving it closes its last
    // window before the launcher comes back: only the launcher's own exit ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    // Every window, shown for the first time or again, stays within its screen.
    SorvegliaFinestre();
    // Every form, the boxes included, takes the icon of Uranus.
    QApplication::setWindowIcon(IconaUrano());
    splash_ = std::make_unique<frmUrano>();
    splash_->show();
    QApplication::processEvents();

    avvio = vesmo::Avvia(cartellaProgramma, sessione, messaggi_, [&](frmInputIni& f) {
        splash_->hide();
        return dialogo(f);
    });
    if (!avvio.continua) {
        splash_.reset();
        return false;
    }
    // The automatic copies of the archives, made before anything is deleted, go into the
    // user's data folder.
    sessione.CartellaCopie = (CartellaDatiUtente() / CartellaCopie).string();
    principale = std::make_unique<frmMainVesmo>(sessione, avvio.cfg, avvio.percorsi, messaggi_);
    principale->AvviaLyx = [this] { AvviaLyx(); };
    ComponiLanciatore(*principale, sessione, avvio.percorsi, messaggi_);
    Genitore(principale.get());
    principale->show();
    splash_->close();
    splash_.reset();
    principale->Form_Load();
    return true;
}

void Programma::AvviaLyx() {
    Clessidra clessidra(messaggi_);
    sessione.Aspetti.EntraInLyx();
    sessione.TemaX = sessione.TemaCorrente;
    sessione.DatiOk = 0;
    sessione.MenuPronto = 0;
    principale->Dati->Chiudi();
    principale->hide();
    menu = std::make_unique<frmMenu>(sessione, avvio.percorsi, messaggi_);
    menu->InputDati = [this](const RichiestaInputDati& richiesta) {
        char ordine = avvio.cfg.Ordinamento.str() == "C" ? 'C' : 'N';
        frmInDatiLyx f(sessione, avvio.percorsi.FileDB, ordine, messaggi_, menu.get());
        f.TagCommand4 = richiesta.TagCommand4;
        f.Form_Load();
        PreparaInputDati(f, richiesta);
        f.exec();
        return EsitoInputDati{sessione.DatiOk != 0, f.AnnoRiv, f.MeseRiv, f.GiornoRiv};
    };
    menu->TornaAVesmo = [this] {
        // The menu is deleted once its own handler has returned.
        QTimer::singleShot(0, principale.get(), [this] { TornaAVesmo(); });
    };
    Genitore(menu.get());
    clessidra.Spegni();
    menu->Form_Load();
}

void Programma::TornaAVesmo() {
    menu.reset();
    Genitore(principale.get());
    // The load step goes to the record's place and imports it again; the launcher shows the
    // chart as the user left it.
    const Tema lasciato = sessione.TemaCorrente;
    principale->show();
    principale->Form_Load();
    sessione.TemaCorrente = lasciato;
    principale->Dati->MostraTema();
}

} // namespace vesmo
