// Every window of the workstation made as the program makes it, on a session with its four slots
// filled and a small places database: for the screen tests and the showcase.
#pragma once

#include <QCoreApplication>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/Lanciatore.h"
#include "archives/ui/WidgetAnteprima.h"
#include "archives/ui/frmGesArchivi.h"
#include "archives/ui/frmImpTVesmo.h"
#include "archives/ui/frmImpTnLyx.h"
#include "archives/ui/frmQuery.h"
#include "archives/ui/frmSalvoLyx.h"
#include "calculators/ui/Calcolatrici.h"
#include "chart/ui/frmDomicili.h"
#include "chart/ui/frmSelAspetti.h"
#include "core/Aritmetica.h"
#include "core/qt/MessaggiQt.h"
#include "core/ui/frmInputIni.h"
#include "core/ui/frmUrano.h"
#include "places/Schema.h"
#include "places/ui/frmDbEdit.h"
#include "places/ui/frmInDatiLyx.h"
#include "places/ui/frmMainVesmo.h"
#include "places/ui/frmPulizia.h"
#include "presentation/qt/AnteprimaQt.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmRuotaDoppia.h"
#include "presentation/ui/frmStampe.h"
#include "tests/places/AiutoLuoghi.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/MenuTempo.h"
#include "timecharts/ui/frmCalTransiti.h"
#include "timecharts/ui/frmCheRivoluzione.h"
#include "timecharts/ui/frmDirezioni.h"
#include "timecharts/ui/frmInSegni.h"
#include "timecharts/ui/frmMenu.h"

namespace vesmo::test {

inline Tema PadovaAlle(const char* nome, int anno, int mese, int giorno, double ora) {
    Tema t;
    t.Nome = nome;
    t.City = "Padova";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = 45.4;
    t.Fuso = -1;
    return t;
}

// A window made with `argomenti` and loaded as its menu loads it.
template <class F, class... A> std::unique_ptr<QWidget> Caricata(A&&... argomenti) {
    auto f = std::make_unique<F>(std::forward<A>(argomenti)...);
    f->Form_Load();
    return f;
}

class BancoFinestre {
public:
    using Fabbrica = std::function<std::unique_ptr<QWidget>()>;

    explicit BancoFinestre(const std::filesystem::path& cartella) {
        fileDB = (cartella / "Vesmodat.Mdb").string();
        {
            Database db;
            db.Crea(fileDB);
            CreaSchemaLuoghi(db);
            AggiungiNazione(db, 380, "Italy");
        }
        percorsi.FileDB = fileDB;
        percorsi.FileIni = (cartella / "Vesmodat.ini").string();
        cfg.Ordinamento = "N";
        s.TemaCorrente = PadovaAlle("Mario Rossi", 1987, 4, 10, 19.5);
        s.TemaX = s.TemaCorrente;
        aspetti.EntraInLyx();
        menu = std::make_unique<frmMenu>(s, percorsi, m);
        menu->Form_Load();
        const char* nomi[] = {"", "Transito", "Rivoluzione", "Direzione"};
        for (int slot = 1; slot <= 3; ++slot) {
            s.TemaX = PadovaAlle(nomi[slot], 2024, 6, 1, 12);
            menu->InstallaTema(slot);
            s.FlagDelSlot(slot) = -1;
        }
        menu->hide();
        RimettiCoppie();
    }
    // The working pairs as the chart menu leaves them before opening a chart's window: a window
    // shown earlier (the data entry, an import's preview) may have used them for its own chart.
    void RimettiCoppie() {
        s.TemaX = s.TemaDelSlot(0);
        s.PosX = s.PosDelSlot(0);
        s.TemaZ = s.TemaDelSlot(1);
        s.PosZ = s.PosDelSlot(1);
        s.PosDomi = s.PosX;
    }
    // A chart's window, opened on the working pairs as the chart menu leaves them.
    template <class F, class... A> std::unique_ptr<QWidget> DelTema(A&&... argomenti) {
        RimettiCoppie();
        return std::make_unique<F>(std::forward<A>(argomenti)...);
    }
    ~BancoFinestre() {
        menu.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // The chart menu itself is the one window that the bench owns: its maker gives nothing.
    std::vector<std::pair<const char*, Fabbrica>> Finestre() {
        StatoRuote& ruote = StatoRuoteDelMenu(*menu)->stato;
        auto nessunInput = [](const RichiestaInputDati&) { return EsitoInputDati{}; };
        return {
            {"frmUrano", [] { return std::make_unique<frmUrano>(); }},
            {"frmInputIni", [this] { return std::make_unique<frmInputIni>(percorsi, m); }},
            {"frmMainVesmo",
             [this] {
                 auto f = std::make_unique<frmMainVesmo>(s, cfg, percorsi, m);
                 ComponiLanciatore(*f, s, percorsi, m);
                 f->Form_Load();
                 return f;
             }},
            {"frmHelp", [] { return std::make_unique<frmHelp>(); }},
            {"frmInDatiLyx", [this] { return Caricata<frmInDatiLyx>(s, fileDB, 'N', m); }},
            {"frmDbEdit", [this] { return Caricata<frmDbEdit>(fileDB, m); }},
            {"frmPulizia 1", [this] { return std::make_unique<frmPulizia>(fileDB, 1, m); }},
            {"frmPulizia 3", [this] { return std::make_unique<frmPulizia>(fileDB, 3, m); }},
            {"frmZoomN", [this] { return std::make_unique<frmZoomN>(fileDB, 380, m); }},
            {"frmGesArchivi", [this] { return std::make_unique<frmGesArchivi>(s, fileDB, m); }},
            {"frmSalvoLyx", [this] { return std::make_unique<frmSalvoLyx>(s, fileDB, m); }},
            {"frmQuery", [this] { return std::make_unique<frmQuery>(s, fileDB, m); }},
            {"frmImpTVesmo", [this] { return std::make_unique<frmImpTVesmo>(s, fileDB, m); }},
            {"frmImpTnLyx",
             [this] {
                 auto f = std::make_unique<frmImpTnLyx>(s, fileDB, m);
                 f->Anteprima->Disegno = DisegnaAnteprimaQt;
                 return f;
             }},
            {"frmMenu", [] { return std::unique_ptr<QWidget>(); }},
            {"frmMemo", [this] { return std::make_unique<frmMemo>(s, *menu, m, 0); }},
            {"frmOutDati", [this] { return DelTema<frmOutDati>(s, fileDB, m); }},
            {"frmRuotaDoppia transito",
             [this] { return DelTema<frmRuotaDoppia>(s, m, Esterno::Transito); }},
            {"frmRuotaDoppia rivoluzione",
             [this] { return DelTema<frmRuotaDoppia>(s, m, Esterno::Rivoluzione); }},
            {"frmCheStampe", [] { return std::make_unique<frmCheStampe>(); }},
            {"frmStampe",
             [this] {
                 auto f = std::make_unique<frmStampe>(s, m);
                 f->ScegliSlot = [] { return 1; };
                 f->Form_Load();
                 return f;
             }},
            {"frmSelAspetti", [this] { return std::make_unique<frmSelAspetti>(s, m); }},
            {"frmDomicili", [this] { return std::make_unique<frmDomicili>(s, m); }},
            {"frmInSegni",
             [this] { return std::make_unique<frmInSegni>(s, m, *StatoTempo(*menu)); }},
            {"frmCheRivoluzione",
             [this, nessunInput] {
                 return std::make_unique<frmCheRivoluzione>(s, m, TipoRivoluzione::Solare,
                                                            nessunInput);
             }},
            {"frmDirezioni",
             [this, nessunInput] { return std::make_unique<frmDirezioni>(s, m, nessunInput); }},
            {"frmCalTransiti", [this] { return std::make_unique<frmCalTransiti>(s, fileDB, m); }},
            {"frmElaJD", [this] { return std::make_unique<frmElaJD>(s, m); }},
            {"frmTE_TU_Lyx", [] { return std::make_unique<frmTE_TU_Lyx>(); }},
            {"frmEqT_Lyx", [] { return std::make_unique<frmEqT_Lyx>(); }},
            {"frmEclEqu_Lyx", [this] { return std::make_unique<frmEclEqu_Lyx>(m); }},
            {"frmFormatiNum", [] { return std::make_unique<frmFormatiNum>(); }},
            {"frmColoriRuota", [&ruote] { return std::make_unique<frmColoriRuota>(ruote); }},
            {"frmLunaImg", [] { return std::make_unique<frmLunaImg>(); }},
        };
    }

    std::string fileDB;
    PercorsiVesmo percorsi;
    ConfigIni cfg;
    Sessione s;
    TabellaAspetti& aspetti = s.Aspetti;
    MessaggiRegistrati m;
    std::unique_ptr<frmMenu> menu;
};

} // namespace vesmo::test
