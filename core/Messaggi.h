// Message box, input box, beep and busy pointer. The logic never shows a dialog itself: it asks
// a Messaggi. The windows hand it a Qt implementation, the command line one that writes to
// stderr, and the tests a recording one that answers from a script.
#pragma once

#include <deque>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vesmo {

enum class Pulsanti { Ok, OkAnnulla, InterrompiRiprovaIgnora, SiNoAnnulla, SiNo, RiprovaAnnulla };
enum class Icona { Nessuna, Critico, Domanda, Esclamativo, Informazione };
enum class Risposta { Ok, Annulla, Interrompi, Riprova, Ignora, Si, No };

class Messaggi {
public:
    virtual ~Messaggi() = default;
    // A modal message box; returns the button pressed.
    virtual Risposta Mostra(const std::string& titolo, const std::string& testo,
                            Pulsanti pulsanti = Pulsanti::Ok, Icona icona = Icona::Nessuna) = 0;
    // An input box; nullopt when cancelled.
    virtual std::optional<std::string> Chiedi(const std::string& titolo, const std::string& testo,
                                              const std::string& predefinito = {}) = 0;
    virtual void Beep() = 0;
    // The busy pointer on (true) or off.
    virtual void Occupato(bool acceso) = 0;
};

// The busy pointer for the life of a scope: on when the hourglass is made, off when the scope
// ends, however it ends (a return, an exception), or earlier with Spegni (before a message box
// that reports what went wrong). The pointer is turned off once.
class Clessidra {
public:
    explicit Clessidra(Messaggi& messaggi) : messaggi_(&messaggi) { messaggi.Occupato(true); }
    ~Clessidra() { Spegni(); }
    Clessidra(const Clessidra&) = delete;
    Clessidra& operator=(const Clessidra&) = delete;

    void Spegni() {
        if (!messaggi_) return;
        Messaggi* m = messaggi_;
        messaggi_ = nullptr;
        m->Occupato(false);
    }

private:
    Messaggi* messaggi_;
};

// The answer a box gets when nobody is there to press a button: Ok, Si, Riprova... the first
// button of the set.
Risposta PrimoPulsante(Pulsanti p);

// Records every box, answers from a script (or the first button when the script is empty).
class MessaggiRegistrati : public Messaggi {
public:
    struct Voce {
        enum Tipo { Box, Input, Beep } tipo;
        std::string titolo;
        std::string testo;
        Pulsanti pulsanti = Pulsanti::Ok;
        Icona icona = Icona::Nessuna;
    };

    Risposta Mostra(const std::string& titolo, const std::string& testo, Pulsanti pulsanti,
                    Icona icona) override;
    std::optional<std::string> Chiedi(const std::string& titolo, const std::string& testo,
                                      const std::string& predefinito) override;
    void Beep() override;
    void Occupato(bool acceso) override { occupato = acceso; }

    std::vector<Voce> registro;
    std::deque<Risposta> risposte;                // answers to the next boxes
    std::deque<std::optional<std::string>> input; // answers to the next input boxes
    bool occupato = false;

    // The texts of the boxes shown, in order.
    std::vector<std::string> Testi() const;
};

// Writes every box to a stream (stderr for the command line) and answers with the first button.
class MessaggiConsole : public Messaggi {
public:
    explicit MessaggiConsole(std::ostream& out) : out_(out) {}
    Risposta Mostra(const std::string& titolo, const std::string& testo, Pulsanti pulsanti,
                    Icona icona) override;
    std::optional<std::string> Chiedi(const std::string& titolo, const std::string& testo,
                                      const std::string& predefinito) override;
    void Beep() override {}
    void Occupato(bool) override {}

private:
    std::ostream& out_;
};

} // namespace vesmo
