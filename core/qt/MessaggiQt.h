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

// A std::string (UTF-8) as a QString, and back.
inline QString QS(const std::string& s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}
inline std::string SS(const QString& s) {
    return s.toUtf8().toStdString();
}

} // namespace vesmo
