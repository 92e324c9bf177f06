// vesmo-cli importa, esporta and query on a database of the test's own folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/Comandi.h"
#include "core/store/Database.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/cli/Lancia.h"

namespace vesmo::test {
using vesmo::test::Esito;

namespace {

class CliImportaQuery : public ConArchivi {
protected:
    // By the Swiss Ephemeris (Moshier): the Sun at 351.8, Venus at 325.5 (Aquarius) on
    // 12 March 1960; the Sun at 71.3, Venus at 101.3 (Cancer) on 2 June 1946.
    const std::string file =
        File("temi.txt",
             "\"Rossi, Mario\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\",\"-01:00\",\"Padova\","
             "\"Italia\",\"45N26\",\"12E30\"\n"
             "\"Bianchi\",\"2 Jun 1946\",\"07:00\",\"AM\",\"EST\",\"05:00\",\"New York\","
             "\"USA\",\"40N42\",\"74W00\"\n"
             "\"Rotto\",\"2 jun 1946\",\"07:00\",\"AM\",\"EST\",\"05:00\",\"New York\","
             "\"USA\",\"40N42\",\"74W00\"\n");
    Esito Lancia(std::vector<std::string> parole) {
        return vesmo::test::Lancia(vesmo::test::Con(std::move(parole), {"--db", fileDB}));
    }
};

TEST_F(CliImportaQuery, ImportaEsportaEQuery) {
    const std::string log = (cartella / "temi.log").string();
    Esito i = Lancia({"importa", file, "--log", log});
    EXPECT_EQ(i.stato, 0) << i.err;
    EXPECT_EQ(i.out, "Archivio   temitxt\nImportati  2\nScartati   1\nLog        " + log + "\n");
    std::ifstream in(log);
    std::string riga;
    std::getline(in, riga);
    EXPECT_EQ(riga, "  [Errore  Mese SF: 2 jun 1946 ]");

    Esito doppio = Lancia({"importa", file, "--log", log});
    EXPECT_EQ(doppio.stato, 1);
    EXPECT_EQ(doppio.err, "vesmo-cli importa: l'archivio temitxt esiste già\n");

    Esito j = Lancia({"importa", file, "--archivio", "Altro", "--log", log, "--json"});
    EXPECT_EQ(j.out, "{\"Archivio\": \"Altro\", \"Importati\": 2, \"Scartati\": 1, \"Log\": " +
                         std::string("\"") + log + "\"}\n");

    // A file with nothing refused: no log.
    const std::string pulito =
        File("pulito.txt", "\"Uno\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\","
                           "\"-01:00\",\"Padova\",\"Italia\",\"45N26\",\"12E30\"\n");
    Esito p = Lancia({"importa", pulito, "--log", (cartella / "pulito.log").string(), "--json"});
    EXPECT_EQ(p.out, "{\"Archivio\": \"pulitotxt\", \"Importati\": 1, \"Scartati\": 0, "
                     "\"Log\": null}\n");
    EXPECT_FALSE(std::filesystem::exists(cartella / "pulito.log"));

    const std::string txt = (cartella / "fuori.txt").string();
    Esito e = Lancia({"esporta", "temitxt", "--out", txt});
    EXPECT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(e.out, "Archivio  temitxt\nFile      " + txt + "\nRecords   2\n");
    std::ifstream t(txt);
    std::getline(t, riga);
    EXPECT_EQ(riga.substr(0, 48), "* Bianchi, 02/06/1946, 07:00,  , +05:00, New Yor");
    EXPECT_EQ(Lancia({"esporta", "Nessuno"}).stato, 1);

    Esito q =
        Lancia({"query", "--da", "temitxt", "--a", "pesci", "--punto", "sole", "--luogo", "PESCI"});
    EXPECT_EQ(q.stato, 0) << q.err;
    EXPECT_EQ(q.out, "Tabella    Q_pesci\nEsaminati  2\nTrovati    1\n");
    // A house row with its blanks typed any way.
    Esito c = Lancia({"query", "--da", "temitxt", "--a", "Case", "--punto", "Sole", "--luogo",
                      "i casa", "--json"});
    EXPECT_EQ(c.err, "");
    EXPECT_EQ(c.out.substr(0, 28), "{\"Tabella\": \"Q_Case\", \"Esami");
    // Two conditions in one pass.
    Esito acquario =
        Lancia({"query", "--da", "temitxt", "--a", "VenAq", "--condizione",
                "--punto Venere --luogo acquario", "--condizione", "--punto Sole --luogo Pesci"});
    EXPECT_EQ(acquario.out, "Tabella    Q_VenAq\nEsaminati  2\nTrovati    1\n");
}

TEST_F(CliImportaQuery, ArgomentiSbagliati) {
    Lancia({"importa", file, "--log", (cartella / "x.log").string()});
    const std::pair<std::vector<std::string>, std::string> casi[] = {
        {{"importa"}, "uso: vesmo-cli importa FILE"},
        {{"importa", "/nessun/file.txt"}, "file non trovato: /nessun/file.txt"},
        // A file whose title gives no valid name.
        {{"importa", File("a.b.c.txt", "")}, "(--archivio NOME ne dà un altro)"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "Sole", "--verso", "diretto"},
         "Selezione  NON  valida!"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "Cerere", "--luogo", "Toro"},
         "punto sconosciuto: Cerere"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "Sole"},
         "una e una sola tra --luogo, --angolo e --verso"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "Sole", "--angolo", "Luna",
          "--aspetto", "33"},
         "aspetto sconosciuto: 33"},
        {{"query", "--da", "temitxt", "--a", "X", "--condizione", "--punto Venere --luogo Ariete",
          "--condizione", "--punto Sole --angolo Ariete --aspetto 330 --orbita 30"},
         "aspetto sconosciuto: 330"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "Sole", "--angolo", "Luna",
          "--aspetto", "0", "--orbita", "abc"},
         "orbita"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "------------", "--luogo", "Toro"},
         "punto sconosciuto: ------------"},
        {{"query", "--da", "temitxt", "--a", "X", "--punto", "Sole", "--luogo", "Toro", "--luna",
          "marte"},
         "--luna geo o topo"},
    };
    for (const auto& [parole, err] : casi) {
        Esito e = Lancia(parole);
        EXPECT_EQ(std::tuple(e.stato, e.out), std::tuple(2, "")) << err << " / " << e.err;
        EXPECT_NE(e.err.find(err), std::string::npos) << e.err;
    }
}

} // namespace
} // namespace vesmo::test
