// Message boxes, input boxes, beep and busy pointer on the screen.
#pragma once

#include <QWidget>

#include "core/Messaggi.h"

namespace vesmo {

class MessaggiQt : public Messaggi {
public:
    // Boxes are modal over `genitore` (the active window when null).
    explicit MessaggiQt(QWidget* genitore = nullptr) : genitore_(genitore) {}
    void ImpostaGenitore(QWidget* genitore) { genitore_ = genitore; }
    QWidget* GenitoreImpostato() const { return genitore_; }

    Risposta Mostra(const std::string& titolo, const std::string& testo, Pulsanti pulsanti,
                    Icona icona) override;
    std::optional<std::string> Chiedi(const std::string& titolo, const std::string& testo,
                                      const std::string& predefinito) override;
    void Beep() override;
    void Occupato(bool acceso) override;

private:
    QWidget* Genitore() const;
    QWidget* genitore_;
};

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

// A std::string (UTF-8) as a QString, and back.
inline QString QS(const std::string& s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}
inline std::string SS(const QString& s) {
    return s.toUtf8().toStdString();
}

} // namespace vesmo
