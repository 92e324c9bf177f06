// The commands that draw (wheels, the printed page) need fonts, and fonts need an application
// of the GUI: one on the offscreen platform, made for the command when none runs yet.
#pragma once

#include <QCoreApplication>
#include <QGuiApplication>
#include <memory>

namespace vesmo::cli {

inline std::unique_ptr<QGuiApplication> ApplicazioneGrafica() {
    if (QCoreApplication::instance()) return nullptr;
    static int argc = 3;
    static char nome[] = "vesmo-cli", opzione[] = "-platform", piattaforma[] = "offscreen";
    static char* argv[] = {nome, opzione, piattaforma, nullptr};
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace vesmo::cli
