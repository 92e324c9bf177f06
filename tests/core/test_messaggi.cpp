// The recording message double that every later test relies on to read the user's texts.
#include <gtest/gtest.h>

#include <sstream>

#include "core/Messaggi.h"

using namespace vesmo;

TEST(Messaggi, RegistraERispondeDaCopione) {
    MessaggiRegistrati m;
    m.risposte = {Risposta::No};
    m.input = {std::string("Archivio1"), std::nullopt};
    EXPECT_EQ(m.Mostra("Lyx - Prova", "Continuo?", Pulsanti::SiNo, Icona::Domanda), Risposta::No);
    // With the script used up, the first button answers.
    EXPECT_EQ(m.Mostra("Lyx - Prova", "Ancora?", Pulsanti::SiNoAnnulla, Icona::Domanda),
              Risposta::Si);
    EXPECT_EQ(m.Mostra("t", "x", Pulsanti::RiprovaAnnulla, Icona::Nessuna), Risposta::Riprova);
    EXPECT_EQ(m.Chiedi("Vesmo - Nome", "Nome archivio", ""),
              std::optional<std::string>("Archivio1"));
    EXPECT_EQ(m.Chiedi("Vesmo - Nome", "Nome archivio", ""), std::nullopt);
    EXPECT_EQ(m.Chiedi("Vesmo - Nome", "Nome archivio", "Pred"),
              std::optional<std::string>("Pred"));
    m.Beep();
    ASSERT_EQ(m.registro.size(), 7u);
    EXPECT_EQ(m.Testi(), (std::vector<std::string>{"Continuo?", "Ancora?", "x"}));
    EXPECT_EQ(m.registro[6].tipo, MessaggiRegistrati::Voce::Beep);
    m.Occupato(true);
    EXPECT_TRUE(m.occupato);
}

TEST(Messaggi, ConsoleScriveTitoloETesto) {
    std::ostringstream out;
    MessaggiConsole m(out);
    EXPECT_EQ(
        m.Mostra("Lyx - Calcolo", "Loop in Calcolo Case.", Pulsanti::OkAnnulla, Icona::Critico),
        Risposta::Ok);
    EXPECT_EQ(out.str(), "Lyx - Calcolo: Loop in Calcolo Case.\n");
}
