#include "core/Messaggi.h"

namespace vesmo {

Risposta PrimoPulsante(Pulsanti p) {
    switch (p) {
    case Pulsanti::Ok:
    case Pulsanti::OkAnnulla:
        return Risposta::Ok;
    case Pulsanti::InterrompiRiprovaIgnora:
        return Risposta::Interrompi;
    case Pulsanti::SiNoAnnulla:
    case Pulsanti::SiNo:
        return Risposta::Si;
    case Pulsanti::RiprovaAnnulla:
        return Risposta::Riprova;
    }
    return Risposta::Ok;
}

Risposta MessaggiRegistrati::Mostra(const std::string& titolo, const std::string& testo,
                                    Pulsanti pulsanti, Icona icona) {
    registro.push_back({Voce::Box, titolo, testo, pulsanti, icona});
    if (risposte.empty()) return PrimoPulsante(pulsanti);
    Risposta r = risposte.front();
    risposte.pop_front();
    return r;
}

std::optional<std::string> MessaggiRegistrati::Chiedi(const std::string& titolo,
                                                      const std::string& testo,
                                                      const std::string& predefinito) {
    registro.push_back({Voce::Input, titolo, testo, Pulsanti::OkAnnulla, Icona::Nessuna});
    if (input.empty()) return predefinito;
    auto r = input.front();
    input.pop_front();
    return r;
}

void MessaggiRegistrati::Beep() {
    registro.push_back({Voce::Beep, {}, {}, Pulsanti::Ok, Icona::Nessuna});
}

std::vector<std::string> MessaggiRegistrati::Testi() const {
    std::vector<std::string> t;
    for (const auto& v : registro)
        if (v.tipo == Voce::Box) t.push_back(v.testo);
    return t;
}

Risposta MessaggiConsole::Mostra(const std::string& titolo, const std::string& testo,
                                 Pulsanti pulsanti, Icona) {
    out_ << titolo << ": " << testo << '\n';
    return PrimoPulsante(pulsanti);
}

std::optional<std::string> MessaggiConsole::Chiedi(const std::string& titolo,
                                                   const std::string& testo,
                                                   const std::string& predefinito) {
    out_ << titolo << ": " << testo << '\n';
    return predefinito;
}

} // namespace vesmo
