// Every window of the workstation on a laptop's screen of 1366 x 768, and at the keyboard; the
// positions window keeps its whole table beside the wheel; windows and dialogs on their screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <map>
#include <memory>
#include <set>

#include "core/qt/Schermo.h"
#include "presentation/ui/WidgetRuota.h"
#include "tests/app/Finestre.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

namespace {

QSize ConCornice(const QWidget* w, QSize s) {
    const QMargins c = CorniceDi(w);
    return {s.width() + c.left() + c.right(), s.height() + c.top() + c.bottom()};
}

// The window with its frame, where it stands.
QRect Cornice(const QWidget* w) {
    return {w->pos(), ConCornice(w, w->size())};
}

// Shows the window and lets it settle.
void Mostra(QWidget* w) {
    w->show();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

QRect Schermo(const char* nome) {
    for (QScreen* s : QGuiApplication::screens())
        if (s->name() == QLatin1String(nome)) return s->availableGeometry();
    return {};
}

// The controls Tab visits, in its order, from the window's first.
std::vector<QWidget*> CatenaTab(QWidget* finestra) {
    std::vector<QWidget*> r;
    QWidget* w = finestra;
    for (int giri = 0; giri < 2000; ++giri) {
        w = w->nextInFocusChain();
        if (w == finestra) break;
        if (w->window() == finestra && w->isVisible() && w->isEnabled() &&
            (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy())
            r.push_back(w);
    }
    return r;
}

// The underlined letter of a caption, lower case; 0 without one.
QChar Sottolineata(const QString& testo) {
    for (int i = 0; i + 1 < testo.size(); ++i) {
        if (testo[i] != '&') continue;
        if (testo[i + 1] == '&') {
            ++i;
            continue;
        }
        return testo[i + 1].toLower();
    }
    return QChar();
}

// The keyboard in a window: each menu of its menu bar opens with Alt and its own underlined
// letter; the letters two entries of a menu share go to `condivise`; Enter presses the dialog's
// own default button, and Esc closes dialogs and the tool windows.
void Tastiera(QWidget* w, const std::string& nome,
              std::set<std::pair<std::string, std::string>>& condivise) {
    // The button Enter presses: the dialog's action, never its way out unless it is the only
    // button; none where the buttons are peers or there is none.
    static const std::map<std::string, std::string> predefiniti = {
        {"frmInputIni", "CmdOk"},       {"frmHelp", "Command1"},
        {"frmInDatiLyx", "cmdCalcola"}, {"frmZoomN", "Command1"},
        {"frmGesArchivi", "cmdCrea"},   {"frmSalvoLyx", "cmdSalva"},
        {"frmQuery", "CmdAvvio"},       {"frmImpTVesmo", "cmdImporta"},
        {"frmImpTnLyx", "cmdImporta"},  {"frmCheStampe", "cmdTN"},
        {"frmInSegni", "Command1"},     {"frmCheRivoluzione", "Command2"},
        {"frmDirezioni", "Command1"},   {"frmElaJD", ""},
        {"frmTE_TU_Lyx", "CommandOK"},  {"frmEqT_Lyx", "CommandOK"},
        {"frmEclEqu_Lyx", ""},          {"frmFormatiNum", "CommandOK"},
        {"frmColoriRuota", "Command2"}, {"frmLunaImg", ""}};
    QApplication::setActiveWindow(w);
    QCoreApplication::processEvents();
    if (auto* barra = w->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly)) {
        std::set<QChar> lettere;
        for (QAction* a : barra->actions()) {
            if (!a->isVisible() || a->isSeparator()) continue;
            const QChar c = Sottolineata(a->text());
            EXPECT_FALSE(c.isNull()) << a->text().toStdString();
            EXPECT_TRUE(lettere.insert(c).second) << a->text().toStdString();
            if (!a->menu() || c.isNull()) continue;
            QTest::keyClick(w, c.toLatin1(), Qt::AltModifier);
            QCoreApplication::processEvents();
            EXPECT_EQ(QApplication::activePopupWidget(), a->menu()) << a->text().toStdString();
            if (QWidget* aperto = QApplication::activePopupWidget()) aperto->close();
            QCoreApplication::processEvents();
        }
    }
    for (QMenu* menu : w->findChildren<QMenu*>()) {
        std::map<QChar, QStringList> voci;
        for (QAction* a : menu->actions())
            if (!a->isSeparator() && !Sottolineata(a->text()).isNull())
                voci[Sottolineata(a->text())] << a->text();
        for (const auto& [c, testi] : voci)
            if (testi.size() > 1)
                condivise.insert({nome + "/" + menu->title().toStdString(),
                                  QString(c).toStdString() + ": " +
                                      testi.join(QStringLiteral(" | ")).toStdString()});
    }
    if (auto* d = qobject_cast<QDialog*>(w)) {
        QString predefinito;
        for (QPushButton* b : d->findChildren<QPushButton*>())
            if (b->isDefault() && b->isVisible()) predefinito = b->objectName();
        EXPECT_EQ(predefinito.toStdString(), predefiniti.at(nome));
    }
    if (qobject_cast<QDialog*>(w) || nome == "frmSelAspetti" || nome == "frmDomicili" ||
        nome == "frmMemo") {
        QTest::keyClick(w, Qt::Key_Escape);
        QCoreApplication::processEvents();
        EXPECT_FALSE(w->isVisible()) << "Esc";
    }
}

class FinestreSulloSchermo : public ::testing::Test {
protected:
    void SetUp() override { SorvegliaFinestre(); }
    test::CartellaLuoghi cartella;
    test::BancoFinestre banco{cartella / ""};
};

// Shown on the screen of 1366 x 768, then made as small as a screen of 1280 x 720 allows: each
// window follows, and its frame stays on the screen. Tab follows what the eye reads: within one
// column of controls (overlapping horizontal spans) it never goes back up. Within a menu, the
// only letters that two entries share are those that the captions themselves share.
TEST_F(FinestreSulloSchermo, OgniFinestraSulloSchermoEAllaTastiera) {
    const std::set<std::pair<std::string, std::string>> condivise = {
        {"frmMainVesmo/&File", "l: Avvia &Lyx | Sa&lva  Tema"},
        {"frmMenu/S&alvo", "r: T&ransito | &Rivoluzione"},
    };
    std::set<std::pair<std::string, std::string>> trovate;
    const QRect schermo = Schermo("Portatile");
    ASSERT_EQ(schermo.size(), QSize(1366, 768));
    const QSize piccolo(1280, 720);
    for (auto& [nome, crea] : banco.Finestre()) {
        SCOPED_TRACE(nome);
        std::unique_ptr<QWidget> proprio = crea();
        QWidget* w = proprio ? proprio.get() : banco.menu.get();
        Mostra(w);
        const QRect cornice = Cornice(w);
        EXPECT_TRUE(schermo.contains(cornice)) << cornice.x() << "," << cornice.y() << " "
                                               << cornice.width() << "x" << cornice.height();
        const auto catena = CatenaTab(w);
        for (std::size_t i = 1; i < catena.size(); ++i) {
            const QRect a(catena[i - 1]->mapTo(w, QPoint(0, 0)), catena[i - 1]->size());
            const QRect b(catena[i]->mapTo(w, QPoint(0, 0)), catena[i]->size());
            const bool stessaColonna = a.left() < b.right() && b.left() < a.right();
            EXPECT_FALSE(stessaColonna && b.bottom() < a.top())
                << catena[i - 1]->objectName().toStdString() << " -> "
                << catena[i]->objectName().toStdString();
        }

        const QSize minima = ConCornice(w, w->minimumSizeHint().expandedTo(w->minimumSize()));
        EXPECT_LE(minima.width(), piccolo.width());
        EXPECT_LE(minima.height(), piccolo.height());
        // A fixed window (the splash) is small enough as it is.
        if (w->minimumSize() != w->maximumSize()) {
            const QMargins c = CorniceDi(w);
            const QSize dentroPiccolo(piccolo.width() - c.left() - c.right(),
                                      piccolo.height() - c.top() - c.bottom());
            w->resize(dentroPiccolo);
            QCoreApplication::processEvents();
            EXPECT_EQ(w->size(), dentroPiccolo);
        }
        Tastiera(w, nome, trovate);
        w->close();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(trovate, condivise);
}

// The positions window on the laptop's screen: the table shows every column without a scroll
// bar, the wheel stands beside it, and the wheel grows with the window.
TEST_F(FinestreSulloSchermo, PosizioniTabellaInteraERuotaCheCresce) {
    frmOutDati f(banco.s, banco.fileDB, banco.m);
    Mostra(&f);
    auto* tabella = f.findChild<QTableWidget*>("MSFlexGrid1");
    auto* ruota = f.findChild<WidgetRuota*>("Ruota");
    ASSERT_TRUE(tabella && ruota);
    EXPECT_FALSE(tabella->horizontalScrollBar()->isVisible());
    const QRect t = tabella->geometry(), r = ruota->geometry();
    EXPECT_LE(t.right(), r.left()) << "the wheel beside the table";
    const int lato = std::min(r.width(), r.height());
    EXPECT_GE(lato, 440);

    const QMargins c = CorniceDi(&f);
    f.resize(1280 - c.left() - c.right(), 720 - c.top() - c.bottom());
    QCoreApplication::processEvents();
    const QRect r2 = ruota->geometry();
    EXPECT_LT(std::min(r2.width(), r2.height()), lato) << "a smaller window, a smaller wheel";
    EXPECT_LE(tabella->geometry().right(), r2.left());
}

} // namespace

// A window shown again where it was left half off the screen comes back wholly inside it; a
// dialog opens on the screen of its parent, inside it, even when the parent stands at its edge.
TEST_F(FinestreSulloSchermo, FinestreRimostrateEDialoghiDentroLoSchermo) {
    const auto schermi = QGuiApplication::screens();
    ASSERT_EQ(schermi.size(), 2);
    const QRect portatile = Schermo("Portatile");
    const QRect grande = Schermo("Grande");

    frmMainVesmo f(banco.s, banco.cfg, banco.percorsi, banco.m);
    Mostra(&f);
    f.hide();
    f.move(portatile.left() + 200, portatile.bottom() - 150);
    Mostra(&f);
    EXPECT_TRUE(portatile.contains(Cornice(&f))) << f.x() << "," << f.y();

    // The launcher at the right edge of the large screen: the archives' dialog stays there.
    f.move(grande.right() - f.frameGeometry().width() / 2, grande.top() + 100);
    QCoreApplication::processEvents();
    frmGesArchivi g(banco.s, banco.fileDB, banco.m, &f);
    Mostra(&g);
    EXPECT_TRUE(grande.contains(Cornice(&g))) << g.x() << "," << g.y();
    g.close();

    // The same dialog with its parent on the laptop's screen opens on that screen.
    f.move(portatile.topLeft());
    QCoreApplication::processEvents();
    frmGesArchivi h(banco.s, banco.fileDB, banco.m, &f);
    Mostra(&h);
    EXPECT_TRUE(portatile.contains(Cornice(&h))) << h.x() << "," << h.y();
}

int main(int argc, char** argv) {
    // A laptop's screen of 1366 x 768, and a larger one to its right.
    QTemporaryDir cartella;
    const QString conf = cartella.filePath(QStringLiteral("schermo.json"));
    QFile f(conf);
    if (!f.open(QIODevice::WriteOnly)) return 2;
    f.write(R"({"screens": [{"name": "Portatile", "x": 0, "y": 0, "width": 1366, "height": 768,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
                {"name": "Grande", "x": 1366, "y": 0, "width": 1920, "height": 1080,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    f.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + conf).toUtf8());
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
