// The double wheel opened from the chart menu, natal chart inside and the slot's chart outside:
// the toolbar of each kind of wheel, the refusals of the aspect selection, the double zodiac, the
// transit moved through time; a revolution relocated over the map and the nearest towns of a
// small places database, the ascensional wheels and the solar arc.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <functional>

#include "chart/ui/frmSelAspetti.h"
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

class Ruote : public test::BancoMenu<MessaggiOccupato> {
protected:
    void SetUp() override {
        // A places database of three towns, without the index iLonLat, and a plain map.
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
        const char* nomi[] = {"", "Transito", "Rivoluzione", "Direzione"};
        const int anni[] = {0, 2024, 2023, 1988};
        for (int slot = 1; slot <= 3; ++slot)
            Installa(slot, test::TemaPadova(nomi[slot], anni[slot], 6, 1, 12));
        s.JDRivoluzione = s.TemaDelSlot(2).JD();
    }
    frmRuotaDoppia* Apri(const char* voce) {
        Voce(voce)->trigger();
        return StatoRuoteDelMenu(*f)->doppia;
    }
    test::Cartella cartella;
};

// The rows chosen in a list, after a left click on each of `clic` as the user makes it.
std::vector<int> Scelte(QListWidget* l, std::initializer_list<int> clic = {}) {
    for (int riga : clic)
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {},
                          l->visualItemRect(l->item(riga)).center());
    std::vector<int> v;
    for (int i = 0; i < l->count(); ++i)
        if (l->item(i)->isSelected()) v.push_back(i);
    return v;
}

} // namespace

TEST_F(Ruote, OgniVoceApreLaSuaRuota) {
    const std::tuple<const char*, const char*, int> casi[] = {
        {"mnuTransitiR", ": Interno [Tema Natale],  Esterno [Transito]", 1},
        {"mnuRivR", ": Interno [Tema Natale],  Esterno [Rivoluzione]", 2},
        {"mnuDirRuotaDoppia", ": Interno [Tema Natale],  Esterno [Direzione]", 3},
    };
    QPointer<frmRuotaDoppia> prima;
    for (const auto& [voce, didascalia, slot] : casi) {
        SCOPED_TRACE(voce);
        frmRuotaDoppia* w = Apri(voce);
        ASSERT_NE(w, nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(prima.isNull()); // a new opening loads the window afresh
        prima = w;
        EXPECT_TRUE(w->windowTitle().endsWith(QString::fromUtf8(didascalia)));
        EXPECT_EQ(w->List2->property("Tag").toString(), QString::number(slot));
        EXPECT_EQ(s.TemaZ.Day, s.TemaDelSlot(slot).Day);
        // The transit starts without its houses.
        EXPECT_EQ(w->Ruota->OpzioniDellaDoppia().CaseEsterne, slot != 1);
        const std::optional<Quando> q = QuandoDelTema(s.TemaZ);
        ASSERT_TRUE(q);
        EXPECT_EQ(w->lbQuando->text(), TestoQuando(*q));
    }
}

TEST_F(Ruote, SelezioneAspettiVuoleUnSoloTipo) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    Voce(w, "mnuAspSelezione")->trigger();
    ASSERT_TRUE(test::Box(m, 1, 0, "Lyx - Orbita Aspetti",
                          "Bisogna impostare  1  tipo di Aspetti tra quelli possibili "));
    // The toolbar button and the menu entry are the same switch.
    Voce(w, "Interni")->trigger();
    EXPECT_TRUE(Voce(w, "mnuAspDisegnaInt")->isChecked());
    Voce(w, "mnuAspDisegnaEst")->trigger();
    EXPECT_TRUE(Voce(w, "Esterni")->isChecked());
    Voce(w, "mnuAspSelezione")->trigger();
    ASSERT_TRUE(test::Box(m, 2, 1, "Lyx - Orbita Aspetti",
                          "Impostare NON PIU' di  1  tipo di Aspetti tra quelli possibili "));
    EXPECT_EQ(w->Selezione, nullptr);
    // Only the lines between the charts: natal in the rows, transit in the columns.
    Voce(w, "Interni")->trigger();
    Voce(w, "Esterni")->trigger();
    Voce(w, "Comparati")->trigger();
    Voce(w, "mnuAspSelezione")->trigger();
    EXPECT_EQ(m.registro.size(), 2u);
    ASSERT_NE(w->Selezione, nullptr);
    EXPECT_EQ(s.TemaY.Day, s.TemaDelSlot(1).Day);
    w->Selezione->close();
}

// "Tutti" (row 0) and the other rows of a Comparati list exclude each other.
TEST_F(Ruote, TuttiTogliLeAltreRighe) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    Voce(w, "Comparati")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(Scelte(w->List1), (std::vector<int>{0}));
    EXPECT_EQ(Scelte(w->List1, {0, 3}), (std::vector<int>{3}));
    EXPECT_TRUE(w->Ruota->OpzioniDellaDoppia().List1[3]);
    EXPECT_EQ(Scelte(w->List1, {0}), (std::vector<int>{0}));
    EXPECT_EQ(Scelte(w->List2), (std::vector<int>{0})); // the other list is not touched
}

TEST_F(Ruote, ZodiacoDoppioERotazioni) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    constexpr double TolleranzaGradi = 1e-3; // degrees
    Voce(w, "mnFilZCasaV")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    Voce(w, "CaseTra")->trigger(); // a redraw keeps it
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 5);
    Voce(w, "mnuRotArieteSx")->trigger();
    EXPECT_EQ(w->Ruota->CasaCoincidente(), 0);
    Voce(w, "mnuRotAscSxEST")->trigger();
    EXPECT_NEAR(w->AngoloRuota, 360 - s.PosZ.Asce.Lo, TolleranzaGradi);
    m.input.push_back("-12,5");
    Voce(w, "mnuRotQualsiasi")->trigger();
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Angolo di rotazione della Ruota Doppia");
    EXPECT_NE(m.registro[0].testo.find("Riferito al tema INTERNO."), std::string::npos);
    EXPECT_FLOAT_EQ(w->AngoloRuota, -12.5f);
}

// Three days of the transit: the slot, its frame and its unsaved mark follow.
TEST_F(Ruote, IlTransitoAvanzaEIlRiquadroSiAggiorna) {
    frmRuotaDoppia* w = Apri("mnuTransitiR");
    ASSERT_NE(w, nullptr);
    const QString quando = w->lbQuando->text(), data = f->riquadri[1].data->text();
    const double sole = s.PosZ.Sole.Lo;
    f->mnuFileSalvo[1]->setCheckable(true);
    f->mnuFileSalvo[1]->setChecked(true);
    w->txtTempi->setText("3");
    Voce(w, "UnDay")->trigger();
    EXPECT_EQ(s.TemaZ.Day, GiornoGiuliano(2024, 6, 4));
    EXPECT_EQ(s.TemaDelSlot(1).Day, s.TemaZ.Day);
    EXPECT_NEAR(s.PosZ.Sole.Lo - sole, 2.9, 0.1); // three days of the Sun
    EXPECT_EQ(s.PosTra.Sole.Lo, s.PosZ.Sole.Lo);
    EXPECT_NE(w->lbQuando->text(), quando);
    EXPECT_NE(f->riquadri[1].data->text(), data);
    EXPECT_FALSE(f->mnuFileSalvo[1]->isChecked());
}

TEST_F(Ruote, RilocataSulPostoESpostata) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(Voce(w, "mnuAspMirate")->text(), "Rivoluzioni &Rilocate On / Off");
    test::Testi(w, {{"lbNeoIndici", "Costruzione Nuovi Indici. Attendere..."},
                    {"cmdMirateOFF", "Rilocate OFF"}});
    f->mnuFileSalvo[2]->setCheckable(true);
    f->mnuFileSalvo[2]->setChecked(true);
    const double jd = s.JDRivoluzione;
    // While the index of the towns is built, the label shows with the busy pointer.
    std::vector<std::pair<bool, bool>> avvisi; // pointer, label
    m.Avviso = [&](bool acceso) { avvisi.emplace_back(acceso, w->lbNeoIndici->isVisibleTo(w)); };

    // On: the chart cast again where it stands, on local mean time, with the map and the towns.
    Voce(w, "mnuAspMirate")->trigger();
    EXPECT_EQ(avvisi, (std::vector<std::pair<bool, bool>>{{true, true}, {false, false}}));
    test::Testi(w, {{"txtTempi", "0"}, {"lbCoord", "11E53   45N24"}});
    EXPECT_TRUE(w->picFusi->isVisibleTo(w));
    EXPECT_EQ(s.TemaRiv.City.Valore(), "Jolly");
    EXPECT_NEAR(s.TemaRiv.JD(), jd, 1e-9);
    ASSERT_GT(w->lstCityVicine->count(), 0);
    EXPECT_TRUE(w->lstCityVicine->currentItem()->text().startsWith("Padova - Italy"));
    EXPECT_FALSE(f->mnuFileSalvo[2]->isChecked());

    // Thirty minutes of arc north: the index is there now, no label, no busy pointer.
    EXPECT_EQ(w->CaseTra->property("Tag").toString(), "UnG");
    w->CaseTra->trigger();
    EXPECT_EQ(w->CaseTra->property("Tag").toString(), "UnP");
    w->txtTempi->setText("30");
    Voce(w, "UnMin")->trigger();
    EXPECT_EQ(w->lbCoord->text(), "11E53   45N54");
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

    // Off, by the button on the map.
    w->cmdMirateOFF->click();
    EXPECT_FALSE(w->lstCityVicine->isVisibleTo(w));
    EXPECT_FALSE(w->Ruota->OpzioniDellaDoppia().MappaVisibile);
    EXPECT_TRUE(m.registro.empty());
}

TEST_F(Ruote, RilocateRifiutate) {
    struct Caso {
        const char *perche, *voce, *azione; // the wheel opened, what is pressed
        double lon, lat;                    // of the outer chart
        bool rivoluzione, ascensionale;     // JDRivoluzione known; mnuRascAR checked first
        const char *titolo, *messaggio;
        Icona icona;
    };
    const Caso casi[] = {
        {"longitudine", "mnuRivR", "UnSec", 11.99, 45, true, false, "Lyx - Info Rivoluzioni",
         "Longitudine > 180°", Icona::Esclamativo},
        {"transito senza rivoluzione", "mnuTransitiR", "mnuAspMirate", 0.5, 45, false, false,
         "Vesmo - Info Rilocate", "Necessaria Rivoluzione!", Icona::Informazione},
        {"ruota ascensionale", "mnuRivR", "mnuAspMirate", 0.5, 45, true, true, "",
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
        w->txtTempi->setText("1");
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

// The ascensional switches draw their wheel at once, over a double zodiac too, in the double
// wheel and in the positions window, where the turn buttons hide while one is on.
TEST_F(Ruote, RuoteAscensionaliAcceseESpente) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    s.TemaX = s.TemaDelSlot(0);
    s.PosX = s.PosDelSlot(0);
    frmOutDati posizioni(s, percorsi.FileDB, m);
    using T = WidgetRuota::Tipo;
    const std::tuple<QWidget*, WidgetRuota*, const char*, T> passi[] = {
        {w, w->Ruota, "mnuRascAR", T::DoppiaAscensionale},
        {w, w->Ruota, "mnuRascAO", T::DoppiaAscensionale},
        {w, w->Ruota, "mnuRascAO", T::Doppia},
        {&posizioni, posizioni.Ruota, "mnuAR", T::Ascensionale},
        {&posizioni, posizioni.Ruota, "mnuAO", T::Ascensionale},
        {&posizioni, posizioni.Ruota, "mnuAO", T::Singola},
    };
    for (const auto& [finestra, ruota, voce, tipo] : passi) {
        SCOPED_TRACE(voce);
        Voce(finestra, voce)->trigger();
        EXPECT_EQ(ruota->TipoMostrato(), tipo);
        if (tipo == T::DoppiaAscensionale) { // the two switches exclude each other
            EXPECT_NE(w->mnuRascAR->isChecked(), w->mnuRascAO->isChecked());
        }
    }
    Voce(w, "mnFilZCasaV")->trigger();
    Voce(w, "mnuRascAR")->trigger();
    EXPECT_EQ(w->Ruota->TipoMostrato(), T::DoppiaAscensionale);
}

TEST_F(Ruote, ArcoSolare) {
    frmRuotaDoppia* w = Apri("mnuRivR");
    ASSERT_NE(w, nullptr);
    const std::tuple<std::optional<std::string>, float, std::size_t> casi[] = {
        {"2,5", 2.5f, 0}, {"", 0, 0}, {"anni", 0, 1}}; // answer, arc, boxes after
    for (const auto& [risposta, arco, messaggi] : casi) {
        m.registro.clear();
        m.input.push_back(risposta);
        Voce(w, "mnuArco")->trigger();
        ASSERT_TRUE(test::Box(m, 1 + messaggi, 0, "Lyx - Arco Solare",
                              "La progressione Arco Solare considera \n1 grado = 1 anno.\n\nQuindi "
                              "ruota il Tema Esterno, rispetto a quello Interno, di tanti gradi "
                              "quanti sono gli anni di input utente.\nRotazione nel verso "
                              "AntiOrario.\n\nE' preferibile usare questa funzione dopo aver "
                              "caricato 2 temi eguali, uno come Tema Natale ed un altro come "
                              "Rivoluzione.\n\nNon inserire espressioni.\nIl separatore "
                              "decimale è la  Virgola.\n\nInput  ANNI."));
        EXPECT_FLOAT_EQ(aspetti.ArcoSolare, arco);
        EXPECT_FLOAT_EQ(w->Ruota->OpzioniDellaDoppia().Aspetti.ArcoSolare, arco);
    }
    // The arc outlives the wheel.
    m.input.push_back(std::optional<std::string>("12"));
    Voce(w, "mnuArco")->trigger();
    w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FLOAT_EQ(aspetti.ArcoSolare, 12);
}
