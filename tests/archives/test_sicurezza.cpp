// The copies that keep the archives safe: the online copy of the whole file while another
// process saves charts, the automatic copies of the archives with the last seven kept, and an
// archive brought back from a copy without touching what stands.
#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

#include "archives/Archivi.h"
#include "archives/Sicurezza.h"
#include "tests/archives/AiutoArchivi.h"

namespace vesmo::test {
namespace {

class Sicurezza : public ConArchivi {};

TEST_F(Sicurezza, CopiaMentreUnAltroProcessoSalva) {
    CreaArchivio(fileDB, "Clienti");
    int tubo[2];
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t figlio = ::fork();
    ASSERT_GE(figlio, 0);
    if (figlio == 0) {
        // The other process: one chart a statement, each told once it is in the file.
        ::close(tubo[0]);
        try {
            Database db(fileDB);
            Cursore rs(db, "Clienti");
            for (int i = 0; i < 100000; ++i) {
                std::int16_t aggiungi = -1, modifica = 0;
                ScriviTema(rs, TemaDiProva("T" + std::to_string(i)), aggiungi, modifica);
                if (::write(tubo[1], &i, sizeof i) != sizeof i) break;
            }
        } catch (...) {
        }
        ::_exit(0);
    }
    ::close(tubo[1]);
    int salvati = -1, i;
    while (salvati < 200 && ::read(tubo[0], &i, sizeof i) == sizeof i)
        salvati = i;
    const std::string copia = (cartella / "copia.Mdb").string();
    CopiaDiSicurezza(fileDB, copia);
    // The other process is still saving.
    ASSERT_EQ(::read(tubo[0], &i, sizeof i), static_cast<ssize_t>(sizeof i));
    ::kill(figlio, SIGKILL);
    ::waitpid(figlio, nullptr, 0);
    ::close(tubo[0]);

    Database db(copia);
    Cursore controllo = Cursore::Sql(db, "PRAGMA integrity_check");
    EXPECT_EQ(controllo.Campo("integrity_check").Testo(), "ok");
    std::vector<std::string> nomi;
    for (const Tema& t : TemiArchivio(copia, "Clienti"))
        nomi.push_back(t.Nome.Valore());
    EXPECT_GE(nomi.size(), static_cast<std::size_t>(salvati + 1));
    std::set<std::string> presenti(nomi.begin(), nomi.end());
    for (int k = 0; k <= salvati; ++k)
        EXPECT_TRUE(presenti.count("T" + std::to_string(k))) << k;
    EXPECT_FALSE(std::filesystem::exists(copia + ".copia-" + std::to_string(::getpid())));
}

TEST_F(Sicurezza, CopieAutomaticheUltimeSetteERipristino) {
    Riempi("Clienti", {"Anna", "Bruno"});
    Riempi("Amici", {"Carla"});
    const auto cartellaCopie = cartella / CartellaCopie;
    std::vector<std::filesystem::path> fatte;
    for (int n = 1; n <= 9; ++n)
        fatte.push_back(CopiaAutomaticaArchivi(fileDB, cartellaCopie));
    const auto tenute = CopieAutomatiche(cartellaCopie);
    ASSERT_EQ(tenute.size(), 7u);
    EXPECT_EQ(
        std::tuple(fatte.front().filename(), fatte.back().filename(), tenute.front().filename()),
        std::tuple("Archivi-000001.Mdb", "Archivi-000009.Mdb", "Archivi-000003.Mdb"));
    // Only archives go into the copy.
    EXPECT_EQ(ArchiviDellaCopia(tenute.back().string()),
              (std::vector<std::string>{"Amici", "Clienti"}));

    // Deleted, then brought back; brought back again beside the one that stands.
    Database(fileDB).EliminaTabella("Clienti");
    for (const char* nome : {"Clienti", "Clienti_1"}) {
        EXPECT_EQ(RipristinaArchivio(fileDB, tenute.back().string(), "Clienti"), nome);
        EXPECT_EQ(Nomi(nome), (std::vector<std::string>{"Anna", "Bruno"}));
    }
    EXPECT_TRUE(Database(fileDB).EsisteIndice("Clienti_1", IndiceArchivio));
    EXPECT_THROW(RipristinaArchivio(fileDB, tenute.back().string(), "Nessuno"), ErroreDB);
}

} // namespace
} // namespace vesmo::test
