// Every subcommand that `vesmo-cli --comandi` lists, fed hostile values in every option it takes;
// the other options a run needs are those its own messages ask for. Status 0, 1 or 2; a refusal
// is one line on stderr and nothing on stdout; a value no option can take is refused where a
// value is checked, and not found where a name is looked up.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <stdlib.h>

#include "archives/Archivi.h"
#include "archives/Query.h"
#include "cli/FileArchivi.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "tests/cli/Lancia.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;

namespace {

namespace fs = std::filesystem;
using test::Con;
using test::Esito;
using test::Lancia;
using Parole = std::vector<std::string>;
using Opzioni = std::vector<std::pair<std::string, std::string>>;

const std::string Nove(30000, '9');

// Values that no option may take: not numbers, dates, times, coordinates or names of anything.
const Parole Inaccettabili = {
    // numbers that are none
    "", "nan", "NaN", "-nan", "inf", "-inf", "1e400", "-1e400", Nove, "-" + Nove, "1e" + Nove,
    // bytes and texts
    "\xff\xfe", "\xc3\x28", std::string("a\xff") + "b", "'; DROP TABLE AllCity; --", "\" OR 1=1 --",
    "%", "_%", "[;database=/etc/passwd].x", "1/1/-99999", "99/99/99999", "\x01\x02\x7f", "a\nb"};

// Values that may or may not be taken, at the edges of what options accept.
Parole AiMargini() {
    const std::string zeri(30000, '0');
    Parole v{" ", "\t", "-", "--", "---x", ".", "+", "e", "E5", "1e30", "-1e30", "1e308", "1e-400",
             "0x1p3", "0", "-0", "00", "1,5", "1.5.5", "\xef\xbc\x91\xef\xbc\x92", "\xd9\xa3",
             "2147483648", "-2147483649", "9223372036854775808", "18446744073709551616",
             "0." + zeri + "1", std::string(30000, 'x'), std::string(100000, 'a'), "'", "\"", "\\",
             "[", "]", "select * from AllCity", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xc0\xaf",
             "\n", "\r\n", "\xc3\xa9", "Citt\xc3\xa0", "\xf0\x9f\x9c\x82",
             // dates
             "00/00/0000", "0/0/0", "31/12/-4713", "1/1/-4712", "01/01/-4712", "31/12/9999",
             "1/1/10000", "29/02/1900", "29/02/2000", "5/10/1582", "15/10/1582", "4/10/1582",
             "31/04/2000", "1/1/" + Nove, "01/01/2000 ", " 01/01/2000", "1/1/2026 12:00",
             "1/1/2026 ", "1/1/2026\t", "01-01-2000", "2000/01/01", "1/1/-0",
             // times
             "24:00", "23:59:60", "23:59:59.9999999", "00:00", "-1:00", "12:60", "1:2:3.",
             "12:00:00." + zeri, "99:99:99", "12:00:00:00",
             // coordinates
             "181E00", "180E00", "180W00", "90N00", "91S00", "0E00", "11E53'30", "11E53 30.5",
             "11E53'99", "11E5", "11.E", "11.8818E", "999.9E", "11e53", "1E" + zeri, "11X53",
             "45N24'60", "45N24'" + std::string(30000, '5'), "0.0000001S",
             // numbers at the limits
             "-15", "15", "15.0001", "-3", "3", "3.0001", "-360", "360", "361", "1", "12", "13",
             "31", "32", "22", "23", "0.5", "-0.5", "5373484.5", "5373484.6", "-1", "2451545",
             "2451545.9999999999", "1e-320", "4.9e-324",
             // names
             "Padova", "padova", "PADOVA", "Padova ", " Padova", "Pad", "Xyzzy Nowhere", "Italy",
             "Zzzzzz", "solare", "sinodica", "natale", "Marte", "Nodo", "geo", "topo", "x.png",
             "x.svg", "/nonexistent/x.pdf"};
    // The same texts with blanks around them, and signs in front.
    const std::size_t n = v.size();
    for (std::size_t i = 0; i < n; i += 3) {
        if (v[i].size() > 100) continue;
        v.push_back(v[i] + " ");
        v.push_back(" " + v[i]);
        v.push_back("-" + v[i]);
    }
    return v;
}

// The "--name" words of a text, in order.
Parole OpzioniNominate(const std::string& testo) {
    Parole r;
    for (std::size_t p = testo.find("--"); p != std::string::npos; p = testo.find("--", p + 2)) {
        std::size_t i = p + 2;
        while (i < testo.size() && ((testo[i] >= 'a' && testo[i] <= 'z') || testo[i] == '-'))
            ++i;
        if (i > p + 2) r.push_back(testo.substr(p + 2, i - p - 2));
        p = i - 2;
    }
    return r;
}

Parole Comandi() {
    Parole r;
    std::istringstream righe(Lancia({"--comandi"}).out);
    for (std::string c; std::getline(righe, c);)
        r.push_back(c);
    return r;
}

Parole Riga(const std::string& comando, const Parole& posizionali, const Opzioni& opzioni) {
    Parole r = Con({comando}, posizionali);
    for (const auto& [o, v] : opzioni)
        r = Con(r, {"--" + o, v});
    return r;
}

// Each file of a folder with its size and time of last change.
using Stato = std::map<std::string, std::pair<std::uintmax_t, fs::file_time_type>>;
Stato Istantanea(const fs::path& cartella) {
    Stato r;
    std::error_code ec;
    for (auto it = fs::recursive_directory_iterator(cartella, ec);
         !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
        std::error_code e2;
        if (it->is_regular_file(e2))
            r[it->path().string()] = {it->file_size(e2), it->last_write_time(e2)};
        else
            r[it->path().string()] = {0, {}};
    }
    return r;
}

// The files changed or gone from `prima` to `dopo`, and the new ones `ammesso` does not take.
std::string Cambiati(const Stato& prima, const Stato& dopo,
                     const std::function<bool(const std::string&)>& ammesso) {
    std::string r;
    for (const auto& [f, s] : prima)
        if (!dopo.count(f) || dopo.at(f) != s) r += "changed or gone: " + f + "\n";
    for (const auto& [f, s] : dopo)
        if (!prima.count(f) && !ammesso(f)) r += "new: " + f + "\n";
    return r;
}

// How many runs that a command takes whole each command gets.
constexpr int Preventivo = 60;

class CliOstile : public ::testing::Test {
protected:
    test::CartellaLuoghi cartella;
    std::string db = (cartella / "Vesmodat.Mdb").string();
    // Valid values by option name, to get a run past the options it needs.
    std::map<std::string, std::string> validi;
    std::string fallimenti;
    int numeroFallimenti = 0, esecuzioni = 0, riusciti = 0;
    fs::path cartellaDiPrima = fs::current_path();

    void SetUp() override {
        // The ingress search writes a scratch table at every run: on memory, not on the disk.
        std::error_code ec;
        if (fs::is_directory("/dev/shm", ec)) ::setenv("TMPDIR", "/dev/shm", 1);
        // Images named by a relative path land in the test's own folder.
        fs::current_path(cartella / ".");
        const Parole nomiEValori = {
            // a chart
            "data", "10/04/1987", "ora", "19:30", "lon", "11E53", "lat", "45N24", "fuso", "-1",
            "estiva", "1", "city", "Padova", "nazione", "Italy", "db", db,
            // the times and searches that start from it
            "tipo", "tropica", "anno", "2000", "pianeta", "Marte", "bersaglio", "10", "partenza",
            "2451545", "anni", "30", "jd", "2451545", "con-data", "11/04/1987", "con-ora", "12:00",
            "transito", "1/1/2026 12:00",
            // an image
            "size", "16", "out", (cartella / "ruota.png").string()};
        for (std::size_t i = 0; i + 1 < nomiEValori.size(); i += 2)
            validi[nomiEValori[i]] = nomiEValori[i + 1];
        Database d = test::DatabasePadova(db);
        test::AggiungiCity(d, 380, "Vigonovo (VE)", -GradiDecimali(12, 3, 0) / 15, 45.38, 1, 1);
    }
    void TearDown() override { fs::current_path(cartellaDiPrima); }

    void Fallisce(const Parole& parole, const Esito& e, const std::string& cosa) {
        if (++numeroFallimenti > 25) return;
        fallimenti += cosa + " (status " + std::to_string(e.stato) + "):";
        for (const auto& p : parole)
            fallimenti += " [" + p.substr(0, 40) + "]";
        fallimenti += "\n  err: " + e.err.substr(0, 200) + "\n";
    }

    // Runs one line and checks what every run must keep.
    Esito Prova(const Parole& parole, bool deveRifiutare, bool nonDeveTrovare = false) {
        ++esecuzioni;
        Esito e = Lancia(parole);
        riusciti += e.stato == 0;
        const bool unaRiga =
            std::count(e.err.begin(), e.err.end(), '\n') == 1 && e.err.rfind("vesmo-cli", 0) == 0;
        if (e.stato < 0 || e.stato > 2) Fallisce(parole, e, "status outside 0-2");
        if (e.stato != 0 && !e.out.empty()) Fallisce(parole, e, "output with a failure");
        if (e.stato == 2 && !(unaRiga && e.err.back() == '\n'))
            Fallisce(parole, e, "a refusal not in one line");
        if (e.stato == 1 && !unaRiga) Fallisce(parole, e, "a failed lookup not in one line");
        if (deveRifiutare && e.stato != 2) Fallisce(parole, e, "a value no option takes, taken");
        if (nonDeveTrovare && e.stato == 0) Fallisce(parole, e, "a lookup of no name, found");
        return e;
    }

    std::set<std::string> Accettate(const std::string& comando, const Parole& candidate) {
        std::set<std::string> r;
        for (const auto& o : candidate)
            if (Lancia({comando, "--" + o, "1"}).err.find("opzione sconosciuta: --" + o + "\n") ==
                std::string::npos)
                r.insert(o);
        return r;
    }

    // Adds or removes the options that the command's message names, until the run gets past
    // them or nothing more can be done. `fisse` are never removed.
    Opzioni Completa(const std::string& comando, const Parole& posizionali, Opzioni opzioni,
                     const std::set<std::string>& accettate, const std::set<std::string>& fisse) {
        for (int giro = 0; giro < 12; ++giro) {
            Esito e = Lancia(Riga(comando, posizionali, opzioni));
            if (e.stato != 2) break;
            bool cambiato = false;
            for (const auto& nome : OpzioniNominate(e.err)) {
                if (fisse.count(nome)) continue;
                auto presente = std::find_if(opzioni.begin(), opzioni.end(),
                                             [&](const auto& p) { return p.first == nome; });
                if (presente != opzioni.end())
                    opzioni.erase(presente);
                else if (accettate.count(nome) && validi.count(nome))
                    opzioni.emplace_back(nome, validi.at(nome));
                else
                    continue;
                cambiato = true;
                break;
            }
            if (!cambiato) break;
        }
        return opzioni;
    }
};

TEST_F(CliOstile, OgniComandoOgniOpzione) {
    const Parole comandi = Comandi();
    ASSERT_GE(comandi.size(), 10u);
    Parole candidate = OpzioniNominate(Lancia({"--help"}).out);
    candidate.insert(candidate.end(), {"json", "db"});
    std::sort(candidate.begin(), candidate.end());
    candidate.erase(std::unique(candidate.begin(), candidate.end()), candidate.end());
    std::erase(candidate, "comandi");
    Parole tutti = Con(Inaccettabili, AiMargini());
    ASSERT_GE(tutti.size(), 200u);

    // A word that is no command, and no word at all, are bad arguments.
    for (const auto& v : Inaccettabili)
        Prova({v}, true);

    for (const auto& comando : comandi) {
        SCOPED_TRACE(comando);
        const auto accettate = Accettate(comando, candidate);
        // The positional words the command needs, if any: the first that a run takes.
        Parole posizionali;
        Opzioni base;
        if (accettate.count("db")) base.emplace_back("db", db);
        for (const char* p : {"01/01/2000", "2451545", "Pad"})
            if (Lancia(Riga(comando, {p}, base)).stato != 2) {
                posizionali.push_back(p);
                break;
            }
        base = Completa(comando, posizionali, base, accettate, {"db"});

        // Each option in turn takes every value, the others as the base needs them; past a
        // budget of whole runs, only the values that must be refused go on.
        int opzioniProvate = 0, presi = 0;
        for (const auto& o : accettate) {
            auto conValido = base;
            std::erase_if(conValido, [&](const auto& p) { return p.first == o; });
            conValido.emplace_back(o, validi.count(o) ? validi.at(o) : "1");
            auto opzioni = Completa(comando, posizionali, conValido, accettate, {o, "db"});
            std::erase_if(opzioni, [&](const auto& p) { return p.first == o; });
            const Parole parole = Riga(comando, posizionali, opzioni);
            // Checked (any stray word refused), looked up (a plain word not found) or free text
            // (taken): all get the values none may take, a share of the others.
            const int sbagliato = Lancia(Con(parole, {"--" + o, "zz\xc2\xa7"})).stato;
            const int parola = Lancia(Con(parole, {"--" + o, "zz"})).stato;
            const int tipo = sbagliato == 2 && parola == 2 ? 2 : (parola == 1 ? 1 : 0);
            const std::size_t quota = tipo == 2 ? 8 : 30;
            for (std::size_t i = 0; i < tutti.size(); ++i) {
                const bool inaccettabile = i < Inaccettabili.size();
                if (!inaccettabile && (i + static_cast<std::size_t>(opzioniProvate)) % quota != 0)
                    continue;
                if (presi >= Preventivo && !(tipo == 2 && inaccettabile)) continue;
                presi += Prova(Con(parole, {"--" + o, tutti[i]}), tipo == 2 && inaccettabile,
                               tipo == 1 && inaccettabile)
                             .stato == 0;
            }
            ++opzioniProvate;
        }
        EXPECT_GT(opzioniProvate, 0);

        // Each positional word in turn, and a stray word where none is expected.
        for (std::size_t k = 0; k <= posizionali.size(); ++k)
            for (std::size_t i = k % 4; i < tutti.size() && presi < Preventivo; i += 4) {
                auto p = posizionali;
                if (k < p.size())
                    p[k] = tutti[i];
                else
                    p.push_back(tutti[i]);
                presi += Prova(Riga(comando, p, base), false).stato == 0;
            }
    }
    EXPECT_EQ(numeroFallimenti, 0) << fallimenti;
    EXPECT_GT(riusciti, 0);
    std::cout << esecuzioni << " runs of " << comandi.size() << " commands, " << riusciti
              << " of them taken\n";
}

// Archive names that would be paths or break a file name, logs that are not logs, and every
// command's help: refused in one line or taken, and no file but the program's own is touched.
TEST_F(CliOstile, NomiDArchivioPercorsiDiLogEAiuto) {
    const fs::path lavoro = cartella / "lavoro";
    fs::create_directories(lavoro / "vuota");
    const std::string tesi = (lavoro / "tesi.odt").string();
    std::ofstream(tesi) << "il mio lavoro";
    std::ofstream(lavoro / "x") << "un file dell'utente";
    std::ofstream(lavoro / "x.txt") << "un altro";
    std::ofstream(lavoro / "x.log") << "e un altro";
    const std::string txt = (lavoro / "temi.txt").string();
    std::ofstream(txt) << "\"Uno\",\"12 Mar 1960\",\"10:30\",\"AM\",\"CET\",\"-01:00\",\"Padova\","
                          "\"Italia\",\"45N26\",\"12E30\"\n"
                          "\"Due\",\"2 jun 1946\",\"07:00\",\"AM\",\"EST\",\"05:00\",\"New York\","
                          "\"USA\",\"40N42\",\"74W00\"\n";
    fs::current_path(lavoro / "vuota");
    const fs::path programma = cli::CartellaProgramma();
    Stato primaLavoro = Istantanea(lavoro);
    const Stato primaProgramma = Istantanea(programma);

    Parole nomi = {// paths and the bytes of no file name
                   "../../x", "../x", "..", ".", "/", "/tmp/x", "a/b", "a\\b", "..\\x", "x/../../y",
                   "a\nb", "a\rb", "\t", "\x01", "a\x7f", "a\xff", "a:b", "a*b", "a?b", "a|b",
                   "<x>", "a\"b", "[x]", "x.", "x!", "x`",
                   // the places tables and the database's own
                   "NomiAlternativi", "nomialternativi", "AllCity", "ZoneOrarie", "sqlite_master",
                   "MSysX",
                   // names a statement would break on
                   "Temi; DROP TABLE AllCity;--", "Citt\xc3\xa0", "O'Brien"};
    nomi.push_back(std::string(65, 'n'));
    nomi.push_back(std::string(20000, 'n'));
    int rifiutiAttesi = 0, nomiPresi = 0;
    for (const std::string& nome : nomi) {
        const std::vector<Parole> righe = {
            {"salva", "--data", "10/04/1987", "--ora", "19:30", "--lon", "11E53", "--lat", "45N24",
             "--fuso", "-1", "--nome", "Ugo", "--archivio", nome, "--db", db},
            {"importa", txt, "--archivio", nome, "--db", db},
            {"query", "--da", "Nessuno", "--a", nome, "--punto", "Sole", "--luogo", "Ariete",
             "--db", db},
            {"esporta", nome, "--db", db},
            {"archivio", nome, "--db", db},
        };
        // The three that name a new archive refuse every name the rule refuses; the query's
        // table is the name with "Q_" in front.
        const bool rifiuta[] = {!NomeArchivioValido(SenzaSpazi(nome)),
                                !NomeArchivioValido(SenzaSpazi(nome)),
                                !NomeArchivioValido(NomeRisultato(nome)), false, false};
        for (std::size_t k = 0; k < righe.size(); ++k) {
            const Esito e = Prova(righe[k], rifiuta[k]);
            rifiutiAttesi += rifiuta[k];
            nomiPresi += k < 2 && e.stato == 0;
        }
    }
    // Logs that are not logs, and a document in the place of one.
    for (const std::string& log :
         {(lavoro / "vuota").string(), std::string("/dev/null"), std::string(""), std::string("/"),
          tesi, std::string("/dev/zero"), std::string("."), std::string("..")}) {
        Prova({"importa", txt, "--archivio", "Log" + std::to_string(esecuzioni), "--log", log,
               "--db", db},
              log != tesi);
        rifiutiAttesi += log != tesi;
    }
    for (const std::string& c : Comandi())
        for (const char* aiuto : {"--help", "-h"}) {
            const Esito e = Prova({c, aiuto}, false);
            if (e.stato != 0 || e.out.rfind("uso: vesmo-cli " + c, 0) != 0)
                Fallisce({c, aiuto}, e, "no usage of its own");
        }

    // Changed: the database, the document logged into (appended to), and the program's own logs
    // and exports named after valid archives in its folder.
    fs::current_path(cartella / ".");
    std::ifstream in(tesi);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}).rfind("il mio lavoro", 0), 0u);
    Stato dopoLavoro = Istantanea(lavoro);
    primaLavoro.erase(tesi);
    dopoLavoro.erase(tesi);
    auto proprio = [&](const std::string& f) {
        const std::string nome = fs::path(f).filename().string();
        const std::string coda = nome.size() > 4 ? nome.substr(nome.size() - 4) : "";
        return fs::path(f).parent_path() == programma && (coda == ".log" || coda == ".txt") &&
               NomeArchivioValido(nome.substr(0, nome.size() - 4));
    };
    const Stato dopoProgramma = Istantanea(programma);
    EXPECT_EQ(Cambiati(primaLavoro, dopoLavoro, proprio) +
                  Cambiati(primaProgramma, dopoProgramma, proprio),
              "");
    for (const auto& [f, s] : dopoProgramma)
        if (!primaProgramma.count(f) && proprio(f)) fs::remove(f);
    EXPECT_EQ(numeroFallimenti, 0) << fallimenti;
    EXPECT_GT(rifiutiAttesi, 100);
    EXPECT_GT(nomiPresi, 0);
}

} // namespace
