// The recording message double that every later test relies on to read the user's texts.
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "core/Messaggi.h"

using namespace vesmo;

TEST(Messaggi, RegistraERispondeDaCopione) {
    MessaggiRegistrati m;
    m.risposte = {Risposta::No};
    m.input = {std::string("Archivio1"), std::nullopt};
    EXPECT_EQ(m.Mostra("Lyx - Prova", "Continuo?", Pulsanti::SiNo, Icona::Domanda), Risposta::No);
    // With the script used up, the first button answers.
    EXPECT_EQ(m.Mostra("t", "x", Pulsanti::RiprovaAnnulla, Icona::Nessuna), Risposta::Riprova);
    EXPECT_EQ(m.Chiedi("Vesmo - Nome", "Nome archivio", ""),
              std::optional<std::string>("Archivio1"));
    EXPECT_EQ(m.Chiedi("Vesmo - Nome", "Nome archivio", ""), std::nullopt);
    EXPECT_EQ(m.Chiedi("Vesmo - Nome", "Nome archivio", "Pred"),
              std::optional<std::string>("Pred"));
    m.Beep();
    EXPECT_EQ(m.Testi(), (std::vector<std::string>{"Continuo?", "x"}));
    EXPECT_EQ(m.registro.back().tipo, MessaggiRegistrati::Voce::Beep);
}

TEST(Messaggi, ConsoleScriveTitoloETesto) {
    std::ostringstream out;
    MessaggiConsole m(out);
    EXPECT_EQ(
        m.Mostra("Lyx - Calcolo", "Loop in Calcolo Case.", Pulsanti::OkAnnulla, Icona::Critico),
        Risposta::Ok);
    EXPECT_EQ(out.str(), "Lyx - Calcolo: Loop in Calcolo Case.\n");
}

// The busy pointer of a scope goes off however the scope ends, and once: a second "off" would
// take away the pointer of an enclosing wait on the screen.
class MessaggiContati : public MessaggiRegistrati {
public:
    void Occupato(bool acceso) override {
        MessaggiRegistrati::Occupato(acceso);
        (acceso ? accesi : spenti)++;
    }
    int accesi = 0, spenti = 0;
};

TEST(Messaggi, ClessidraSpentaUnaVoltaComunqueFiniscaLoScope) {
    struct Caso {
        const char* fine;
        bool eccezione, spegniPrima;
    };
    for (const Caso c : {Caso{"ritorno", false, false}, Caso{"eccezione", true, false},
                         Caso{"spenta prima di un avviso", false, true},
                         Caso{"spenta prima, poi eccezione", true, true}}) {
        SCOPED_TRACE(c.fine);
        MessaggiContati m;
        try {
            Clessidra clessidra(m);
            EXPECT_TRUE(m.occupato);
            if (c.spegniPrima) {
                clessidra.Spegni();
                EXPECT_FALSE(m.occupato);
            }
            if (c.eccezione) throw std::runtime_error("database chiuso");
        } catch (const std::runtime_error&) {
        }
        EXPECT_FALSE(m.occupato);
        EXPECT_EQ(m.accesi, 1);
        EXPECT_EQ(m.spenti, 1);
    }
}
