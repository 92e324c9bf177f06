// Whole archives and their charts: transport, birthdays, search, delete, slots and safe copies.
#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "archives/Selezione.h"
#include "archives/Sicurezza.h"
#include "core/Aritmetica.h"
#include "tests/archives/AiutoArchivi.h"

using namespace vesmo;
using vesmo::test::TemaDiProva;

namespace {

class Gestione : public vesmo::test::ConArchivi {
protected:
    using V = std::vector<std::string>;
};

} // namespace

TEST_F(Gestione, TrasportoPerValoreDaArchivioVuotoEInSeStesso) {
    Riempi("Amici", {"Carla", "Bruno"});
    Riempi("Famiglia", {"Bruno"});
    CreaArchivio(fileDB, "Vuoto");
    EXPECT_EQ(TrasportaArchivio(fileDB, "Amici", "Famiglia"), 2);
    EXPECT_EQ(Nomi("Famiglia"), (V{"Bruno", "Bruno", "Carla"}));
    // The ten fields by value; the source stays.
    EXPECT_EQ(Temi("Famiglia").back(), TemaDiProva("Carla"));
    EXPECT_EQ(Nomi("Amici"), (V{"Bruno", "Carla"}));
    // An empty source copies nothing, without complaint.
    EXPECT_EQ(TrasportaArchivio(fileDB, "Vuoto", "Amici"), 0);
    // Into itself: the rows read first, the archive doubles and the copy ends.
    EXPECT_EQ(TrasportaArchivio(fileDB, "Amici", "Amici"), 2);
    EXPECT_EQ(Nomi("Amici"), (V{"Bruno", "Bruno", "Carla", "Carla"}));
}

TEST_F(Gestione, CompleanniImportatiConNomiNumerati) {
    const auto laterale = cartella / FileCompleanni;
    test::CreaCompleanni(laterale, {"Zeno", "Ada", "Ugo"});

    EsitoCompleanni e = ImportaCompleanni(fileDB, laterale, messaggi);
    EXPECT_EQ(std::tuple(e.tabella, e.importati, DidascaliaImportati(e.importati)),
              std::tuple("Compleanni", 3, "3  Importati"));
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(Nomi("Compleanni"), (V{"Ada", "Ugo", "Zeno"}));
    EXPECT_TRUE(Database(fileDB).EsisteIndice("Compleanni", IndiceArchivio));

    // Again, No: "Compleanni1", one question only; a third time, No twice: "Compleanni2"; Yes:
    // the first table is replaced.
    const struct {
        std::deque<Risposta> risposte;
        const char* tabella;
        std::size_t domande; // so far
    } passi[] = {{{Risposta::No}, "Compleanni1", 1},
                 {{Risposta::No, Risposta::No}, "Compleanni2", 3},
                 {{Risposta::Si}, "Compleanni", 4}};
    for (const auto& p : passi) {
        messaggi.risposte = p.risposte;
        e = ImportaCompleanni(fileDB, laterale, messaggi);
        EXPECT_EQ(std::tuple(e.tabella, messaggi.registro.size()),
                  std::tuple(p.tabella, p.domande));
    }
    const auto& d = messaggi.registro[0];
    EXPECT_EQ(std::tuple(d.testo, d.pulsanti, d.icona),
              std::tuple("La tabella esiste già. Eliminarla?", Pulsanti::SiNo, Icona::Domanda));
    // The question is asked whatever the letters of the name.
    Database db(fileDB);
    messaggi.risposte = {Risposta::No};
    EXPECT_EQ(DupeTableName(db, "COMPLEANNI1", messaggi), -1);
    EXPECT_EQ(messaggi.registro.size(), 5u);
    EXPECT_EQ(ElencoArchivi(fileDB), (V{"Compleanni", "Compleanni1", "Compleanni2"}));
    EXPECT_EQ(Nomi("Compleanni").size(), 3u);
}

TEST_F(Gestione, RicercaEstesaConApostrofiEJolly) {
    Riempi("Amici", {"Gabriele D'Annunzio", "Anna d'Arco", "Rossi 100%", "Rossi 1000", "Bruno"});
    Database db(fileDB);
    struct Caso {
        std::string testo;
        V attesi;
    };
    const std::vector<Caso> casi = {
        {"'", {"Anna d'Arco", "Gabriele D'Annunzio"}},
        {"D'A", {"Anna d'Arco", "Gabriele D'Annunzio"}}, // case ignored
        {"100%", {"Rossi 100%"}},                        // % is a character
        {"_", {}},
        {"ross", {"Rossi 100%", "Rossi 1000"}},
        {"runo", {"Bruno"}},
        {"zzz", {}},
    };
    for (const Caso& c : casi) {
        V trovati;
        for (const std::string& n : RicercaEstesa(db, "Amici", c.testo))
            trovati.push_back(SenzaSpaziDestra(n));
        EXPECT_EQ(trovati, c.attesi) << c.testo;
    }
    // The names come back padded as stored.
    EXPECT_EQ(RicercaEstesa(db, "Amici", "Bru").at(0).size(), 30u);
}

TEST_F(Gestione, EliminaTemaERestaVicino) {
    Riempi("Amici", {"Anna", "Bruno", "Carla"});
    Database db(fileDB);
    Cursore rs(db, "Amici");
    rs.Index(IndiceArchivio);
    // The middle one: back to the one before.
    rs.MoveNext();
    EliminaTemaCorrente(rs);
    EXPECT_EQ(SenzaSpaziDestra(rs.Campo("Nome").Testo()), "Anna");
    // The first: on the new first.
    EliminaTemaCorrente(rs);
    EXPECT_EQ(SenzaSpaziDestra(rs.Campo("Nome").Testo()), "Carla");
    // The only one: an empty archive, no current row.
    EliminaTemaCorrente(rs);
    EXPECT_TRUE(rs.BOF());
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_THROW(rs.Campo("Nome"), ErroreDB);
}

// The questions and reports around deleting and moving charts, names as the archive pads them.
TEST(TestiGestione, DomandeEAvvisi) {
    const std::string bruno = "Bruno" + std::string(25, ' ');
    const std::pair<std::string, std::string> casi[] = {
        {TestoEliminaArchivio("Famiglia"),
         "L' Archivio  Famiglia\n\nSarà eliminato senza possibilità di recupero.\n\nContinuo?\n"},
        {TestoEliminaTema("Anna" + std::string(26, ' ')),
         "Anna                          \n\nSarà Eliminato senza possibilità di recupero\n\n"},
        {TestoArchiviUguali("Amici", "Amici"),
         "Archivio sorgente  Amici\nUGUALE \nArchivio destinazione  Amici\n\n"
         "Selezionare un altro Archivio sulla lista a scomparsa"},
        {TestoTrasferire(bruno, "Padova" + std::string(24, ' '), "Amici", "Famiglia"),
         "Bruno                         \nPadova                        \n\n"
         "Trasferire da  Amici  a  Famiglia ?\n"},
        {TestoTrasferito(bruno, "Amici", "Famiglia"),
         "Bruno   Trasferito\n\ndall' Archivio   Amici\nall' Archivio     Famiglia"},
        {TestoEliminaTemi(2, "Clienti"), "Eliminare i 2 temi selezionati dall'Archivio Clienti?"},
        {TestoTrasferireTemi(2, "Altri", "Amici"),
         "Trasferire i 2 temi selezionati\ndall' Archivio   Altri\nall' Archivio     Amici ?"},
    };
    for (const auto& [testo, atteso] : casi)
        EXPECT_EQ(testo, atteso);
}

TEST(ImportaInSlot, OgniSlotConISuoiSegni) {
    Sessione s;
    s.TemaX = TemaDiProva("Anna", 19.5);
    s.PosX.Sole.Lo = 20.5;
    for (int slot = 0; slot < 4; ++slot)
        ImportaInSlot(s, slot);
    for (const Tema* t : {&s.TemaNat, &s.TemaTra, &s.TemaDir})
        EXPECT_EQ(*t, s.TemaX);
    EXPECT_EQ(std::tuple(s.PosNat.Sole.Lo, s.PosTra.Sole.Lo, s.PosRiv.Sole.Lo),
              std::tuple(20.5, 20.5, 20.5));
    EXPECT_EQ(std::tuple(s.TransitoCalcolato, s.RivoluzioneCalcolata, s.DirezioneCalcolata),
              std::tuple(-1, -1, -1));
    // 10 April 1987 at 0h is JD 2446895.5; 19:30 local with summer time 1 and zone -1 is 17:30
    // TU, 17.5 / 24 of a day later.
    constexpr double TolleranzaGiorni = 1e-9; // days
    EXPECT_NEAR(s.JDRivoluzione, 2446895.5 + 17.5 / 24, TolleranzaGiorni);
}

// The online copy of the whole file while another process saves charts.
TEST_F(Gestione, CopiaMentreUnAltroProcessoSalva) {
    CreaArchivio(fileDB, "Clienti");
    int tubo[2];
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t figlio = ::fork();
    ASSERT_GE(figlio, 0);
    if (figlio == 0) {
        // The other process: one chart a statement, each told once it is in the file, a few
        // milliseconds apart as a program in use saves them (a writer that never pauses keeps
        // every reader out, and the copy gives up after its wait with "Database bloccato").
        ::close(tubo[0]);
        try {
            Database db(fileDB);
            Cursore rs(db, "Clienti");
            for (int i = 0; i < 100000; ++i) {
                std::int16_t aggiungi = -1, modifica = 0;
                ScriviTema(rs, TemaDiProva("T" + std::to_string(i)), aggiungi, modifica);
                if (::write(tubo[1], &i, sizeof i) != sizeof i) break;
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
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
    for (const Tema& t : vesmo::test::TemiArchivio(copia, "Clienti"))
        nomi.push_back(t.Nome.Valore());
    EXPECT_GE(nomi.size(), static_cast<std::size_t>(salvati + 1));
    std::set<std::string> presenti(nomi.begin(), nomi.end());
    for (int k = 0; k <= salvati; ++k)
        EXPECT_TRUE(presenti.count("T" + std::to_string(k))) << k;
    EXPECT_FALSE(std::filesystem::exists(copia + ".copia-" + std::to_string(::getpid())));
}

// The automatic copies keep the last seven; an archive comes back beside what stands.
TEST_F(Gestione, CopieAutomaticheUltimeSetteERipristino) {
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
