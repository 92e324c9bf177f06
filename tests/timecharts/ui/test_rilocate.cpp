// The double wheel of a revolution moved to other places: the toolbar's units and steps, the
// map and the nearest towns of a small places database, the refusals, the slot marked unsaved;
// the ascensional wheels switched on and off in both windows, and the solar arc's input box.
#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "core/Aritmetica.h"
#include "presentation/ui/WidgetMappa.h"
#include "presentation/ui/frmOutDati.h"
#include "presentation/ui/frmRuotaDoppia.h"
#include "tests/core/store/Cartella.h"
#include "tests/places/AiutoLuoghi.h"
#include "tests/timecharts/ui/BancoMenu.h"
#include "timecharts/ui/MenuRuote.h"
#include "timecharts/ui/frmMenu.h"

using namespace vesmo;

namespace {

// The boxes recorded, and every change of the busy pointer told to the test as it happens.
class MessaggiOccupato : public MessaggiRegistrati {
public:
    std::function<void(bool)> Avviso;
    void Occupato(bool acceso) override {
        MessaggiRegistrati::Occupato(acceso);
        if (Avviso) Avviso(acceso);
    }
};

class Rilocate : public test::BancoMenu<MessaggiOccupato> {
protected:
    void SetUp() override {
        // A places database of three towns, without the index iLonLat.
        const auto file = cartella / "Vesmodat.Mdb";
        {
            Database db = test::DatabaseLuoghi(file);
            test::AggiungiCity(db, 380, "Vicenza", -0.7695, 45.55, 1, 1);
            test::AggiungiCity(db, 380, "Padova", -0.7925, 45.4, 1, 1);
            test::AggiungiCity(db, 380, "Venezia", -0.8219, 45.44, 1, 1);
        }
        QImage mappa(LarghezzaMappaPixel, AltezzaMappaPixel, QImage::Format_RGB32);
        mappa.fill(Qt::blue);
        mappa.save(QString::fromStdString((cartella / "MappaFusi.png").string()));
        percorsi.FileDB = file.string();
        Carica(test::TemaPadova("Mario Rossi", 1987, 4, 10, 19.5));
        Installa(2, test::TemaPadova("Rivoluzione", 2023, 4, 10, 12));
        Installa(1, test::TemaPadova("Transito", 2024, 4, 10, 12));
        s.JDRivoluzione = s.TemaDelSlot(2).JD();
    }
    frmRuotaDoppia* Apri(const char* voce) {
        f->findChild<QAction*>(voce)->trigger();
        return StatoRuoteDelMenu(*f)->doppia;
    }
    static QAction* Voce(QWidget* w, const char* nome) {
        auto* a = w->findChild<QAction*>(nome);
        EXPECT_NE(a, nullptr) << nome;
        return a;
    }
    test::Cartella cartella;
};

} // namespace

// The revolution's toolbar and menu: tooltips, captions, the unit's switch; the map, the towns
// and the label of the index hidden at load.
TEST_F(Rilocate, LaBarraDiUnaRivoluzione) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    const std::pair<const char*, const char*> suggerimenti[] = {
        {"CaseTra", "Gradi o Primi. Variazione Coordinate Geografiche"},
        {"UnSec", "Positivi: Ovest     Negativi: Est"},
        {"UnMin", "Positivi: Nord     Negativi: Sud"}};
    for (const auto& [chiave, testo] : suggerimenti)
        EXPECT_EQ(Voce(w, chiave)->toolTip(), QString::fromUtf8(testo)) << chiave;
    const std::pair<const char*, const char*> voci[] = {
        {"mnuAspMirate", "Rivoluzioni &Rilocate On / Off"},
        {"mnuArco", "Arco &Solare"},
        {"mnuRascAR", "A. Rette  ON / OFF"},
        {"mnuRascAO", "A. Oblique  ON / OFF"}};
    for (const auto& [chiave, testo] : voci)
        EXPECT_EQ(Voce(w, chiave)->text(), QString::fromUtf8(testo)) << chiave;
    test::Testi(w, {{"lbNeoIndici", "Costruzione Nuovi Indici. Attendere..."},
                    {"cmdMirateOFF", "Rilocate OFF"}});
    for (QWidget* nascosto :
         {static_cast<QWidget*>(w->picFusi), static_cast<QWidget*>(w->lstCityVicine),
          static_cast<QWidget*>(w->lbNeoIndici)})
        EXPECT_FALSE(nascosto->isVisibleTo(w)) << nascosto->objectName().toStdString();
    EXPECT_EQ(w->CaseTra->property("Tag").toString(), "UnG");
    w->CaseTra->trigger();
    EXPECT_EQ(w->CaseTra->property("Tag").toString(), "UnP");
}

TEST_F(Rilocate, AccesaSulPostoESpostataDiPrimi) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    f->mnuFileSalvo[2]->setCheckable(true);
    f->mnuFileSalvo[2]->setChecked(true);
    const double jd = s.JDRivoluzione;
    // While the index of the towns is built, the label shows with the busy pointer.
    std::vector<std::pair<bool, bool>> avvisi; // pointer, label
    m.Avviso = [&](bool acceso) { avvisi.emplace_back(acceso, w->lbNeoIndici->isVisibleTo(w)); };

    // On: the chart cast again where it stands, on local mean time, with the map.
    Voce(w, "mnuAspMirate")->trigger();
    EXPECT_EQ(avvisi, (std::vector<std::pair<bool, bool>>{{true, true}, {false, false}}));
    EXPECT_TRUE(m.registro.empty());
    test::Testi(w, {{"txtTempi", "0"}, {"lbCoord", "11E53   45N24"}});
    EXPECT_TRUE(w->picFusi->isVisibleTo(w));
    EXPECT_TRUE(w->Ruota->OpzioniDellaDoppia().MappaVisibile);
    EXPECT_EQ(s.TemaRiv.City.Valore(), "Jolly");
    EXPECT_DOUBLE_EQ(s.TemaRiv.Fuso, s.TemaRiv.Lon);
    EXPECT_NEAR(s.TemaRiv.JD(), jd, 1e-9);
    // The index was built for the search; the towns listed, the first chosen.
    EXPECT_TRUE(Database(percorsi.FileDB).EsisteIndice("AllCity", "iLonLat"));
    ASSERT_GT(w->lstCityVicine->count(), 0);
    EXPECT_EQ(w->lstCityVicine->currentItem()->text(), "Padova - Italy - 11E53   45N24");
    // The slot is unsaved and its frame shows the new place.
    EXPECT_FALSE(f->mnuFileSalvo[2]->isChecked());
    EXPECT_EQ(s.TemaDelSlot(2).City.Valore(), "Jolly");

    // Thirty minutes of arc north.
    w->CaseTra->trigger();
    w->txtTempi->setText("30");
    Voce(w, "UnMin")->trigger();
    EXPECT_NEAR(s.TemaZ.Lat, 45.9, 1e-12);
    EXPECT_EQ(w->lbCoord->text(), "11E53   45N54");
    EXPECT_NEAR(s.TemaRiv.JD(), jd, 1e-9);
    // The index is there now: no label, no busy pointer.
    EXPECT_EQ(avvisi.size(), 2u);

    // Far west the clock of the revolution's Greenwich day reads before 0 h: the time shown
    // is that of the day before.
    w->CaseTra->trigger();
    w->txtTempi->setText("184"); // to 172 degrees west, 11.47 hours behind Greenwich
    Voce(w, "UnSec")->trigger();
    ASSERT_LT(s.TemaZ.OraL, 0);
    Tema ieri = s.TemaZ;
    ieri.Day -= 1;
    ieri.OraL += 24;
    const std::optional<Quando> q = QuandoDelTema(ieri);
    ASSERT_TRUE(q);
    EXPECT_EQ(w->lbQuando->text(), TestoQuando(*q));

    // Off, by the button on the map, then on and off again by the menu.
    w->cmdMirateOFF->click();
    EXPECT_FALSE(w->lstCityVicine->isVisibleTo(w));
    EXPECT_FALSE(w->Ruota->OpzioniDellaDoppia().MappaVisibile);
    Voce(w, "mnuAspMirate")->trigger();
    EXPECT_TRUE(w->picFusi->isVisibleTo(w));
    Voce(w, "mnuAspMirate")->trigger();
    EXPECT_FALSE(w->picFusi->isVisibleTo(w));
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(Rilocate, Rifiuti) {
    struct Caso {
        const char* perche;
        const char* voce;   // the wheel opened
        const char* azione; // what is pressed
        const char* testo;  // txtTempi
        double lon, lat;    // of the outer chart
        bool rivoluzione;   // JDRivoluzione known
        bool ascensionale;  // mnuRascAR checked first
        const char* titolo;
        const char* messaggio;
        Icona icona;
    };
    const Caso casi[] = {
        {"longitudine", "mnuRivR", "UnSec", "1", 11.99, 45, true, false, "Lyx - Info Rivoluzioni",
         "Longitudine > 180°", Icona::Esclamativo},
        {"latitudine", "mnuRivR", "UnMin", "1", 0.5, 89.5, true, false, "Lyx - Info Rivoluzioni",
         "Latitudine > 90°", Icona::Esclamativo},
        {"passo senza rivoluzione", "mnuRivR", "UnMin", "1", 0.5, 45, false, false,
         "Lyx - Info Rilocate", "Necessaria Rivoluzione!", Icona::Informazione},
        {"transito senza rivoluzione", "mnuTransitiR", "mnuAspMirate", "1", 0.5, 45, false, false,
         "Vesmo - Info Rilocate", "Necessaria Rivoluzione!", Icona::Informazione},
        {"ruota ascensionale", "mnuRivR", "mnuAspMirate", "1", 0.5, 45, true, true, "",
         "Deseleziona Ruota Ascensionale!", Icona::Nessuna},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.perche);
        s.JDRivoluzione = c.rivoluzione ? s.TemaDelSlot(2).JD() : -1.0;
        frmRuotaDoppia* w = Apri(c.voce);
        ASSERT_NE(w, nullptr);
        if (c.ascensionale) Voce(w, "mnuRascAR")->trigger();
        s.TemaZ.Lon = c.lon;
        s.TemaZ.Lat = c.lat;
        const Tema riv = s.TemaRiv, z = s.TemaZ;
        m.registro.clear();
        w->txtTempi->setText(c.testo);
        Voce(w, c.azione)->trigger();
        ASSERT_TRUE(test::Box(m, 1, 0, c.titolo, c.messaggio));
        EXPECT_EQ(m.registro[0].icona, c.icona);
        EXPECT_EQ(s.TemaRiv, riv);
        EXPECT_FALSE(w->picFusi->isVisibleTo(w));
        if (c.rivoluzione) {
            EXPECT_EQ(s.TemaZ, z);
        }
        w->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(Rilocate, RuoteAscensionaliAcceseESpente) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    struct Passo {
        const char* voce;
        WidgetRuota::Tipo tipo;
        int modo;
        bool ar, ao;
    };
    for (Passo p : {Passo{"mnuRascAR", WidgetRuota::Tipo::DoppiaAscensionale, 1, true, false},
                    Passo{"mnuRascAO", WidgetRuota::Tipo::DoppiaAscensionale, 2, false, true},
                    Passo{"mnuRascAO", WidgetRuota::Tipo::Doppia, 0, false, false}}) {
        Voce(w, p.voce)->trigger();
        EXPECT_EQ(w->Ruota->TipoMostrato(), p.tipo) << p.voce;
        EXPECT_EQ(w->ModoAscens, p.modo) << p.voce;
        EXPECT_EQ(w->mnuRascAR->isChecked(), p.ar) << p.voce;
        EXPECT_EQ(w->mnuRascAO->isChecked(), p.ao) << p.voce;
    }
    // Over the double zodiac of the fifth house the switch draws the ascensional wheel.
    Voce(w, "mnFilZCasaV")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    Voce(w, "mnuRascAR")->trigger();
    EXPECT_EQ(w->Ruota->TipoMostrato(), WidgetRuota::Tipo::DoppiaAscensionale);

    // The positions window: the same switches, the turn buttons hidden while one is on.
    s.TemaX = s.TemaDelSlot(0);
    s.PosX = s.PosDelSlot(0);
    frmOutDati posizioni(s, percorsi.FileDB, m);
    for (Passo p : {Passo{"mnuAR", WidgetRuota::Tipo::Ascensionale, 1, true, false},
                    Passo{"mnuAO", WidgetRuota::Tipo::Ascensionale, 2, false, true},
                    Passo{"mnuAO", WidgetRuota::Tipo::Singola, 0, false, false}}) {
        Voce(&posizioni, p.voce)->trigger();
        EXPECT_EQ(posizioni.Ruota->TipoMostrato(), p.tipo) << p.voce;
        EXPECT_EQ(posizioni.ModoAscens, p.modo) << p.voce;
        EXPECT_EQ(posizioni.Ruota->OpzioniAscensioni().ModoAscens, p.modo ? p.modo : 2) << p.voce;
        EXPECT_EQ(posizioni.mnuAR->isChecked(), p.ar) << p.voce;
        EXPECT_EQ(posizioni.Command1->isVisibleTo(&posizioni), p.modo == 0) << p.voce;
    }
}

TEST_F(Rilocate, ArcoSolare) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    struct Caso {
        std::optional<std::string> risposta;
        float arco;
        std::size_t messaggi; // boxes after the input box
    };
    const Caso casi[] = {{"30", 30, 0}, {"2,5", 2.5f, 0}, {"", 0, 0}, {"anni", 0, 1}};
    for (const Caso& c : casi) {
        m.registro.clear();
        m.input.push_back(c.risposta);
        Voce(w, "mnuArco")->trigger();
        ASSERT_EQ(m.registro.size(), 1 + c.messaggi);
        EXPECT_EQ(m.registro[0].titolo, "Lyx - Arco Solare");
        EXPECT_EQ(m.registro[0].testo,
                  "La progressione Arco Solare considera \n1 grado = 1 anno.\n\nQuindi ruota il "
                  "Tema Esterno, rispetto a quello Interno, di tanti gradi quanti sono gli anni "
                  "di input utente.\nRotazione nel verso AntiOrario.\n\nE' preferibile usare "
                  "questa funzione dopo aver caricato 2 temi eguali, uno come Tema Natale ed un "
                  "altro come Rivoluzione.\n\nNon inserire espressioni.\nIl separatore decimale "
                  "è la  Virgola.\n\nInput  ANNI.");
        EXPECT_FLOAT_EQ(aspetti.ArcoSolare, c.arco);
        EXPECT_FLOAT_EQ(w->Ruota->OpzioniDellaDoppia().Aspetti.ArcoSolare, c.arco);
    }
    // The arc outlives the wheel.
    m.input.push_back(std::optional<std::string>("12"));
    Voce(w, "mnuArco")->trigger();
    w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FLOAT_EQ(aspetti.ArcoSolare, 12);
}
