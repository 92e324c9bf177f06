// The map of the time zones: the land decoded from a small TopoJSON topology, its refusals, the
// land coloured by its zone, and the map's picture on the drawing surface.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "presentation/Rilocazione.h"
#include "presentation/qt/FileMappa.h"
#include "presentation/qt/MappaFusi.h"
#include "presentation/qt/SuperficieQt.h"
#include "tests/core/store/Cartella.h"

using namespace vesmo;

namespace {

// Two arcs of a square from (-10, 5) to (-8, 6), with scale 0.5, 0.25 and translate -10, 5.
const char* const Topologia = R"({"type":"Topology",
  "transform":{"scale":[0.5,0.25],"translate":[-10,5]},
  "arcs":[[[0,0],[4,0],[0,4]],[[4,4],[-4,0],[0,-4]]],
  "objects":{"land":{"type":"GeometryCollection","geometries":[
    {"type":"Polygon","arcs":[[0,1]]},
    {"type":"MultiPolygon","arcs":[[[-2,-1]]]}]}}})";

} // namespace

TEST(MappaFusi, TerreDallaTopologia) {
    QString errore;
    const auto terre = TerreDaTopoJson(Topologia, errore);
    EXPECT_TRUE(errore.isEmpty());
    ASSERT_EQ(terre.size(), 2u);
    EXPECT_EQ(terre[0], (QPolygonF{{-10, 5}, {-8, 5}, {-8, 6}, {-10, 6}, {-10, 5}}));
    // ~1 and ~0: both arcs backwards.
    EXPECT_EQ(terre[1], (QPolygonF{{-10, 5}, {-10, 6}, {-8, 6}, {-8, 5}, {-10, 5}}));

    struct Caso {
        const char* testo;
        bool conErrore;
    };
    for (Caso c : {Caso{"non json", true}, Caso{R"({"type":"Topology","objects":{}})", true},
                   Caso{R"({"type":"Topology","arcs":[],"objects":{"land":{"type":"Polygon",
                        "arcs":[[3]]}}})",
                        true}}) {
        QString e;
        EXPECT_TRUE(TerreDaTopoJson(c.testo, e).empty()) << c.testo;
        EXPECT_EQ(!e.isEmpty(), c.conErrore) << c.testo;
    }
}

TEST(MappaFusi, TerraColorataPerFuso) {
    // A square of land from 0 to 10 degrees east, 40 to 50 north.
    const std::vector<QPolygonF> terre{QPolygonF{{0, 40}, {10, 40}, {10, 50}, {0, 50}, {0, 40}}};
    const QImage mappa = DisegnaMappaFusi(terre);
    ASSERT_EQ(mappa.size(), QSize(357, 186));
    auto colore = [&](double lonEst, double lat) {
        const PuntoMappa p = PosizioneSullaMappa(-lonEst / 15, lat, 357 * 15.0, 186 * 15.0);
        return mappa.pixelColor(static_cast<int>(p.x / 15), static_cast<int>(p.y / 15));
    };
    // The zone of Greenwich (from 7.5 west to 7.5 east) and the next one east differ; the sea
    // is neither.
    const QColor zero = colore(4, 45), uno = colore(9, 45), mare = colore(100, -20);
    EXPECT_NE(zero, uno);
    EXPECT_NE(zero, mare);
    EXPECT_NE(uno, mare);
    EXPECT_EQ(colore(-40, 0), mare);
}

// The map beside the relocated wheel: the picture of the file beside the database, stretched
// over its rectangle of twips under what is drawn after it; without the file, the background.
TEST(MappaFusi, ImmagineDelFileSullaSuperficie) {
    test::Cartella cartella;
    const auto fileDB = cartella / "Vesmodat.Mdb";
    const auto fileMappa = cartella / "MappaFusi.png";
    EXPECT_EQ(FileMappaFusi(fileDB), fileMappa); // not there yet: the name all the same
    QImage rossa(4, 2, QImage::Format_RGB32);
    rossa.fill(Qt::red);
    ASSERT_TRUE(rossa.save(QString::fromStdString(fileMappa.string())));
    EXPECT_EQ(FileMappaFusi(fileDB), fileMappa);

    for (const bool conFile : {true, false}) {
        SCOPED_TRACE(conFile ? "con il file" : "senza il file");
        // 100 by 100 twips on 100 by 100 pixels; the picture over the left half, 50 by 100.
        QImage foglio(100, 100, QImage::Format_RGB32);
        {
            QPainter p(&foglio);
            SuperficieQt sup(p, Rettangolo{0, 0, 100, 100}, QRectF(0, 0, 100, 100), Bianco);
            sup.Pulisci();
            sup.Immagine(0, 0, 50, 100,
                         conFile ? fileMappa.string() : (cartella / "nessuna.png").string());
            sup.Linea(0, 50, 100, 50, Blu);
        }
        EXPECT_EQ(foglio.pixelColor(10, 10), conFile ? QColor(Qt::red) : QColor(Qt::white));
        EXPECT_EQ(foglio.pixelColor(40, 90), conFile ? QColor(Qt::red) : QColor(Qt::white));
        EXPECT_EQ(foglio.pixelColor(75, 10), QColor(Qt::white));
        EXPECT_EQ(foglio.pixelColor(25, 50), QColor(Qt::blue)); // drawn after, over it
    }
}
