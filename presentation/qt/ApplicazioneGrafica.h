// The programs without windows that draw (the wheels, the printed page to a file) need fonts,
// and fonts need an application of the GUI: one on the offscreen platform, made for the drawing
// when none runs yet and gone with this object.
#pragma once

#include <memory>

class QGuiApplication;

namespace vesmo {

class ApplicazioneGrafica {
public:
    ApplicazioneGrafica();
    ~ApplicazioneGrafica();
    ApplicazioneGrafica(const ApplicazioneGrafica&) = delete;
    ApplicazioneGrafica& operator=(const ApplicazioneGrafica&) = delete;

private:
    std::unique_ptr<QGuiApplication> app_;
};

} // namespace vesmo
