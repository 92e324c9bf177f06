// The boxes raised by one window, modal over it.
#pragma once

#include "core/Messaggi.h"

class QWidget;

namespace vesmo {

// The boxes raised by one window: on the screen they are modal over that window, whatever
// window the other boxes stand over, so that the window the user works in stays in front.
// Any other Messaggi (the tests' recording one) is used as it is.
class MessaggiDellaFinestra : public Messaggi {
public:
    MessaggiDellaFinestra(Messaggi& base, QWidget* finestra) : base_(base), finestra_(finestra) {}
    Risposta Mostra(const std::string& titolo, const std::string& testo, Pulsanti pulsanti,
                    Icona icona) override;
    std::optional<std::string> Chiedi(const std::string& titolo, const std::string& testo,
                                      const std::string& predefinito) override;
    void Beep() override { base_.Beep(); }
    void Occupato(bool acceso) override { base_.Occupato(acceso); }

private:
    Messaggi& base_;
    QWidget* finestra_;
};

} // namespace vesmo
