// vesmo-icona: writes the program's icon, the glyph of Uranus as the wheels draw it, as an SVG
// and as PNG files of the usual sizes, into the folder given:
//   vesmo-icona CARTELLA      CARTELLA/scalable/apps/vesmo.svg, CARTELLA/NxN/apps/vesmo.png
#include <QDir>
#include <QGuiApplication>
#include <cstdio>
#include <string>

#include "presentation/Glifi.h"
#include "presentation/qt/Esporta.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "uso: vesmo-icona CARTELLA\n");
        return 2;
    }
    QGuiApplication app(argc, argv);
    const QString radice = QString::fromLocal8Bit(argv[1]);
    // The glyph fills a box of 1000 twips with a margin of 100 on each side.
    const vesmo::Rettangolo area{0, 0, 1200, 1200};
    const auto disegna = [](vesmo::Superficie& s) {
        s.SpessorePenna(6);
        vesmo::DisegnaGlifo(s, vesmo::GlifoCorpo(vesmo::RuotaUrano), 1000, 100, 100,
                            vesmo::Colore{24, 32, 96});
    };
    struct Uscita {
        QString cartella;
        int lato;
        const char* estensione;
    };
    const Uscita uscite[] = {{"scalable/apps", 256, "svg"}, {"16x16/apps", 16, "png"},
                             {"32x32/apps", 32, "png"},     {"48x48/apps", 48, "png"},
                             {"64x64/apps", 64, "png"},     {"128x128/apps", 128, "png"},
                             {"256x256/apps", 256, "png"}};
    for (const Uscita& u : uscite) {
        QDir().mkpath(QDir(radice).filePath(u.cartella));
        const std::string file =
            QDir(radice).filePath(u.cartella + "/vesmo." + u.estensione).toStdString();
        const std::string errore =
            vesmo::SalvaDisegno(file, u.lato, area, disegna, vesmo::Colore{255, 255, 255});
        if (!errore.empty()) {
            std::fprintf(stderr, "vesmo-icona: %s\n", errore.c_str());
            return 1;
        }
    }
    return 0;
}
