// vesmo-cli on files and databases not in good shape or not alone, and the conventions every
// command keeps: its own --help, stray words refused, one line for a refusal, JSON in UTF-8.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

#include "archives/Archivi.h"
#include "cli/Comandi.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/cli/Lancia.h"

using namespace vesmo;
using vesmo::test::Esito;
using vesmo::test::Righe;

namespace {

// One chart of a text import.
const std::string UnTema = "\"Uno\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\",\"-01:00\","
                           "\"Padova\",\"Italia\",\"45N26\",\"12E30\"\n";

class CliFile : public vesmo::test::ConArchivi {
protected:
    Esito Lancia(std::vector<std::string> parole) {
        return vesmo::test::Lancia(vesmo::test::Con(std::move(parole), {"--db", fileDB}));
    }
    std::vector<std::string> Salva(const std::string& nome, const std::string& archivio) {
        return vesmo::test::Con(vesmo::test::Con({"salva"}, vesmo::test::Natale),
                                {"--nome", nome, "--archivio", archivio});
    }
};

} // namespace

// A file that cannot be written is a failure (status 1) that says so; a damaged one is refused
// before anything is written; listing the cleaning's codes writes nothing, even on such files.
TEST_F(CliFile, DatabaseDiSolaLetturaODanneggiato) {
    ASSERT_EQ(Lancia(Salva("Anna", "Amici")).stato, 0);
    {
        vesmo::test::FileSolaLettura solaLettura(fileDB);
        if (solaLettura.Riuscito()) {
            const std::string prima = Leggi(fileDB);
            for (const char* archivio : {"Amici", "Nuovo"})
                EXPECT_EQ(Lancia(Salva("Ugo", archivio)).stato, 1) << archivio;
            EXPECT_EQ(Lancia(Salva("Ugo", "Amici")).err,
                      "vesmo-cli salva: Database di sola lettura: " + fileDB + "\n");
            for (const char* lista : {"fusi", "estive"}) {
                Esito p = Lancia({"db", "pulizia", lista});
                EXPECT_EQ(p.stato, 0) << p.err;
                EXPECT_EQ(p.out, "0  Righe esaminate - (0 Codici da Eliminare)\n");
            }
            EXPECT_EQ(Leggi(fileDB), prima);
        }
    }
    // Listing on a writable file does not write either.
    const std::string prima = Leggi(fileDB);
    EXPECT_EQ(Lancia({"db", "pulizia", "fusi"}).stato, 0);
    EXPECT_EQ(Lancia({"db", "pulizia", "estive", "--json"}).stato, 0);
    EXPECT_EQ(Leggi(fileDB), prima);
    EXPECT_FALSE(Database(fileDB).EsisteIndice("AllCity", "IndFusi"));

    {
        Database db(fileDB);
        db.CreaTabella("Zavorra", {{"t", TipoCampo::Memo, 0, true}});
        for (int i = 0; i < 100; ++i)
            db.Esegui("INSERT INTO Zavorra (t) VALUES ('" + std::string(500, 'z') + "')");
    }
    vesmo::test::DanneggiaUltimaPagina(fileDB);
    const std::string danneggiato = Leggi(fileDB);
    const std::string txt = File("temi.txt", UnTema);
    for (const auto& parole :
         {Salva("Ugo", "Amici"), Salva("Ugo", "Nuovo"),
          std::vector<std::string>{"importa", txt, "--log", (cartella / "t.log").string()},
          std::vector<std::string>{"db", "pulizia", "fusi", "--elimina"},
          std::vector<std::string>{"db", "copia", "fusi", "--da", "1", "--a", "2"}}) {
        Esito e = Lancia(parole);
        EXPECT_EQ(e.stato, 1) << parole[0] << ": " << e.err;
        EXPECT_NE(e.err.find(fileDB + " è danneggiato"), std::string::npos) << e.err;
        EXPECT_EQ(Righe(e.err), 1);
    }
    EXPECT_EQ(Leggi(fileDB), danneggiato);
}

// Four programs save at once into an archive that none of them finds: the one that creates it
// and the others all add their charts to it.
TEST_F(CliFile, QuattroProcessiSalvanoInUnArchivioNuovo) {
    constexpr int Processi = 4, Temi = 8;
    // All four start together: each waits for the end of a pipe that closes once all are there.
    int via[2];
    ASSERT_EQ(::pipe(via), 0);
    std::vector<pid_t> figli;
    for (int k = 0; k < Processi; ++k) {
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            ::close(via[1]);
            char c;
            while (::read(via[0], &c, 1) > 0) {
            }
            int errori = 0;
            for (int i = 0; i < Temi; ++i) {
                Esito e =
                    Lancia(Salva("P" + std::to_string(k) + "-" + std::to_string(i), "Insieme"));
                if (e.stato != 0) {
                    std::fprintf(stderr, "%s", e.err.c_str());
                    ++errori;
                }
            }
            ::_exit(errori);
        }
        figli.push_back(pid);
    }
    // Another program holds the write lock while the four start: they all find no archive, and
    // all wait to create it at the same moment.
    {
        Database blocco(fileDB);
        blocco.Esegui("BEGIN IMMEDIATE");
        ::close(via[0]);
        ::close(via[1]);
        ::usleep(1500 * 1000);
        blocco.Esegui("COMMIT");
    }
    for (pid_t pid : figli) {
        int stato = 0;
        ASSERT_EQ(::waitpid(pid, &stato, 0), pid);
        EXPECT_TRUE(WIFEXITED(stato)) << stato;
        EXPECT_EQ(WEXITSTATUS(stato), 0);
    }
    Database db(fileDB);
    EXPECT_EQ(ElencoArchivi(db), std::vector<std::string>{"Insieme"});
    EXPECT_EQ(Cursore(db, "Insieme").RecordCount(), Processi * Temi);
}

// A refused argument is one line even where the chart at an extreme latitude has a notice to
// give; a taken one gives it after the answer. Whatever reaches the process's stderr counts.
TEST_F(CliFile, UnaRigaPerUnRifiuto) {
    auto Esegui = [](const std::vector<std::string>& parole) {
        std::ostringstream cerr;
        std::streambuf* prima = std::cerr.rdbuf(cerr.rdbuf());
        Esito e = vesmo::test::Lancia(parole);
        std::cerr.rdbuf(prima);
        e.err = cerr.str() + e.err;
        return e;
    };
    const std::vector<std::string> polare = {"--data", "10/04/1987", "--ora", "19:30",  "--lon",
                                             "11E53",  "--lat",      "89N00", "--fuso", "-1"};
    auto con = [&](std::vector<std::string> a, const std::vector<std::string>& b) {
        a.insert(a.begin() + 1, polare.begin(), polare.end());
        a.insert(a.end(), b.begin(), b.end());
        return a;
    };
    for (const auto& parole :
         {con({"rivoluzione"}, {"--tipo", "solare", "--anno", "2000", "--angolo", "zz"}),
          con({"rivoluzione"}, {"--tipo", "sinodica", "--anno", "2000", "--ritorno", "0"}),
          con({"direzione"}, {"--anni", "zz"}),
          con({"rivoluzione"}, {"--tipo", "solare", "--anno", "2000", "--rilocata",
                                "--lon-rilocata", "zz", "--lat-rilocata", "45N00"})}) {
        Esito e = Esegui(parole);
        EXPECT_EQ(e.stato, 2) << parole[0];
        EXPECT_EQ(Righe(e.err), 1) << e.err;
        EXPECT_EQ(e.err.rfind("vesmo-cli " + parole[0] + ": ", 0), 0u) << e.err;
    }
    Esito buono = Esegui(con({"tema"}, {}));
    EXPECT_EQ(buono.stato, 0);
    EXPECT_EQ(buono.err, "Lyx - Info Case: Latitudine estrema. Case di Placido non definite\n");
}
