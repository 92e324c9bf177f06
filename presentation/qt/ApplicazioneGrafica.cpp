#include "presentation/qt/ApplicazioneGrafica.h"

#include <QCoreApplication>
#include <QGuiApplication>

namespace vesmo {

ApplicazioneGrafica::ApplicazioneGrafica() {
    if (QCoreApplication::instance()) return;
    static int argc;
    static char nome[] = "vesmo-cli", opzione[] = "-platform", piattaforma[] = "offscreen";
    static char* argv[4];
    // The application takes the options it knows out of argv: set them again for each run.
    argc = 3;
    argv[0] = nome;
    argv[1] = opzione;
    argv[2] = piattaforma;
    argv[3] = nullptr;
    app_ = std::make_unique<QGuiApplication>(argc, argv);
}

ApplicazioneGrafica::~ApplicazioneGrafica() = default;

} // namespace vesmo
