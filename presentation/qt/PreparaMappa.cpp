// vesmo-prepara-mappa --terre land-110m.json --out MappaFusi.png: the map of the time zones of
// the relocated revolutions, drawn at set-up from Natural Earth's land.
#include <QFile>
#include <QGuiApplication>
#include <cstring>
#include <iostream>

#include "presentation/qt/MappaFusi.h"

int main(int argc, char** argv) {
    QString terre, uscita;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--terre") == 0)
            terre = QString::fromLocal8Bit(argv[i + 1]);
        else if (std::strcmp(argv[i], "--out") == 0)
            uscita = QString::fromLocal8Bit(argv[i + 1]);
    }
    if (terre.isEmpty() || uscita.isEmpty()) {
        std::cerr << "uso: vesmo-prepara-mappa --terre land-110m.json --out MappaFusi.png\n";
        return 2;
    }
    // The numbers of the zones need fonts: an application on the offscreen platform.
    int n = 3;
    char nome[] = "vesmo-prepara-mappa", opzione[] = "-platform", piattaforma[] = "offscreen";
    char* argomenti[] = {nome, opzione, piattaforma, nullptr};
    QGuiApplication app(n, argomenti);

    QFile f(terre);
    if (!f.open(QIODevice::ReadOnly)) {
        std::cerr << "vesmo-prepara-mappa: non posso leggere " << terre.toStdString() << '\n';
        return 1;
    }
    QString errore;
    const auto poligoni = vesmo::TerreDaTopoJson(f.readAll(), errore);
    if (poligoni.empty()) {
        std::cerr << "vesmo-prepara-mappa: " << terre.toStdString() << ": "
                  << (errore.isEmpty() ? "nessuna terra" : errore.toStdString()) << '\n';
        return 1;
    }
    if (!vesmo::DisegnaMappaFusi(poligoni).save(uscita)) {
        std::cerr << "vesmo-prepara-mappa: non posso scrivere " << uscita.toStdString() << '\n';
        return 1;
    }
    std::cout << uscita.toStdString() << '\n';
    return 0;
}
