// Every window of the workstation on a laptop's screen of 1366 x 768: opened as the program
// opens it, with its frame it fits the screen and lies inside it, it can be made as small as
// 1280 x 720 with its frame, and it follows a resize. The positions window keeps its whole table
// beside the wheel, and the wheel takes the room that is left.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <functional>
#include <memory>

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

class FinestreSulloSchermo : public ::testing::Test {
protected:
    void SetUp() override { SorvegliaFinestre(); }
    test::CartellaLuoghi cartella;
    test::BancoFinestre banco{cartella / ""};
};

// Shown on the screen of 1366 x 768, then made as small as a screen of 1280 x 720 allows, then
// as large as the first screen: each window follows, and its frame stays on the screen.
TEST_F(FinestreSulloSchermo, OgniFinestraStaNelloSchermoEdECambiaMisura) {
    const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
    ASSERT_EQ(schermo.size(), QSize(1366, 768));
    const QSize piccolo(1280, 720);
    for (auto& [nome, crea] : banco.Finestre()) {
        SCOPED_TRACE(nome);
        std::unique_ptr<QWidget> proprio = crea();
        QWidget* w = proprio ? proprio.get() : banco.menu.get();
        w->show();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        const QSize conCornice = ConCornice(w, w->size());
        EXPECT_LE(conCornice.width(), schermo.width());
        EXPECT_LE(conCornice.height(), schermo.height());
        const QRect cornice(w->pos(), conCornice);
        EXPECT_TRUE(schermo.contains(cornice)) << cornice.x() << "," << cornice.y();

        const QSize minima = ConCornice(w, w->minimumSizeHint().expandedTo(w->minimumSize()));
        EXPECT_LE(minima.width(), piccolo.width());
        EXPECT_LE(minima.height(), piccolo.height());
        if (w->minimumSize() == w->maximumSize()) {
            // A fixed window (the splash) is small enough as it is.
            w->close();
            continue;
        }
        const QMargins c = CorniceDi(w);
        const QSize dentroPiccolo(piccolo.width() - c.left() - c.right(),
                                  piccolo.height() - c.top() - c.bottom());
        w->resize(dentroPiccolo);
        QCoreApplication::processEvents();
        EXPECT_EQ(w->size(), dentroPiccolo);
        w->close();
    }
}

// The positions window on the laptop's screen: the table shows every column without a scroll
// bar, the wheel stands beside it, and the wheel grows with the window.
TEST_F(FinestreSulloSchermo, PosizioniTabellaInteraERuotaCheCresce) {
    frmOutDati f(banco.s, banco.aspetti, StatoRuoteDelMenu(*banco.menu)->stato, banco.fileDB,
                 banco.m);
    f.show();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    auto* tabella = f.findChild<QTableWidget*>("MSFlexGrid1");
    auto* ruota = f.findChild<WidgetRuota*>("Ruota");
    ASSERT_TRUE(tabella && ruota);
    fprintf(stderr, "DBG tab %d,%d %dx%d hint %dx%d ruota %d,%d %dx%d win %dx%d\n", tabella->x(),
            tabella->y(), tabella->width(), tabella->height(), tabella->sizeHint().width(),
            tabella->sizeHint().height(), ruota->x(), ruota->y(), ruota->width(), ruota->height(),
            f.width(), f.height());
    for (int k = 0; k < tabella->columnCount(); ++k)
        fprintf(stderr, "col %d %d %s\n", k, tabella->columnWidth(k),
                tabella->horizontalHeaderItem(k)
                    ? qPrintable(tabella->horizontalHeaderItem(k)->text())
                    : "");
    fprintf(stderr, "vh %d\n", tabella->verticalHeader()->width());
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

int main(int argc, char** argv) {
    // A laptop's screen: one screen of 1366 x 768 at 96 dots an inch.
    QTemporaryDir cartella;
    const QString conf = cartella.filePath(QStringLiteral("schermo.json"));
    QFile f(conf);
    if (!f.open(QIODevice::WriteOnly)) return 2;
    f.write(R"({"screens": [{"name": "Portatile", "x": 0, "y": 0, "width": 1366, "height": 768,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    f.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + conf).toUtf8());
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
