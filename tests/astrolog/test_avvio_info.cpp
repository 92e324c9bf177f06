// Starting Astrolog through a recording starter, and the chart-info file against the reference.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "astrolog/Astrolog.h"
#include "core/Aritmetica.h"
#include "tests/astrolog/Prova.h"
#include "tests/core/store/Cartella.h"

using namespace vesmo;
using vesmo::test::Cartella;
using vesmo::test::Prova;

namespace {

TestiInfo TestiProva() {
    return {"15", "1", "1980", "15", "5", "0", "0"};
}

struct Partenza {
    std::string programma;
    std::vector<std::string> argomenti;
    std::string cartella;
};

// Records every start and answers from a list (then Avviato).
struct AvviatoreRegistrato {
    std::vector<Partenza> partenze;
    std::vector<EsitoPartenza> esiti;
    Avviatore Funzione() {
        return
            [this](const std::string& p, const std::vector<std::string>& a, const std::string& c) {
                partenze.push_back({p, a, c});
                if (esiti.empty()) return EsitoPartenza::Avviato;
                EsitoPartenza e = esiti.front();
                esiti.erase(esiti.begin());
                return e;
            };
    }
};

// A file's bytes.
std::string Leggi(const std::filesystem::path& f) {
    std::ostringstream s;
    s << std::ifstream(f, std::ios::binary).rdbuf();
    return s.str();
}

class AvvioAstrolog : public ::testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(cartella / "Astrolog Dir");
        std::ofstream(cartella / "Astrolog Dir/Astrolog.exe") << "#!/bin/sh\n";
        percorsi.CmdAstrolog = (cartella / "Astrolog Dir/Astrolog.exe").string() + " ";
        percorsi.DirAstrolog = DirDiComando(percorsi.CmdAstrolog);
    }
    Cartella cartella;
    PercorsiVesmo percorsi;
    MessaggiRegistrati messaggi;
    AvviatoreRegistrato avviatore;
    std::string pannello;
};

} // namespace

TEST_F(AvvioAstrolog, AvviaConLaRigaIntera) {
    Tema t = Prova();
    SceltaAstrolog s;
    s.Combo2 = 2;
    ASSERT_TRUE(Avvia(t, s, percorsi, messaggi, avviatore.Funzione(), pannello));
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(pannello, "=X -z -1:00:00 -z0 0:00 -zl 11E53 45N24 -zt 15:05 -zd 15 -zm 1 "
                        "-zy 1980 -zi \"Prova\" \"Padova\" -c 2 ");
    ASSERT_EQ(avviatore.partenze.size(), 1u);
    const Partenza& p = avviatore.partenze[0];
    // A folder with a blank in its name stays one path.
    EXPECT_EQ(p.programma, (cartella / "Astrolog Dir/Astrolog.exe").string());
    EXPECT_EQ(p.cartella, (cartella / "Astrolog Dir").string());
    EXPECT_EQ(p.argomenti, ArgomentiRiga(pannello));
    EXPECT_EQ(t, Prova());

    // Another failure than a line too long shows nothing and is not tried again.
    avviatore.esiti = {EsitoPartenza::Fallito};
    EXPECT_FALSE(Avvia(t, {}, percorsi, messaggi, avviatore.Funzione(), pannello));
    EXPECT_EQ(avviatore.partenze.size(), 2u);
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(t, Prova());
}

TEST_F(AvvioAstrolog, RigaTroppoLungaRiprovaConIniziali) {
    Tema t = Prova();
    t.Nome = "Bartolomeo";
    avviatore.esiti = {EsitoPartenza::RigaTroppoLunga, EsitoPartenza::RigaTroppoLunga};
    // The second start is not looked at beyond its own result: no third try.
    EXPECT_FALSE(Avvia(t, {}, percorsi, messaggi, avviatore.Funzione(), pannello));
    ASSERT_EQ(avviatore.partenze.size(), 2u);
    EXPECT_EQ(avviatore.partenze[0].argomenti.back(), "Padova");
    EXPECT_EQ(avviatore.partenze[0].argomenti.end()[-2], "Bartolomeo");
    EXPECT_EQ(avviatore.partenze[1].argomenti.back(), "P.");
    EXPECT_EQ(avviatore.partenze[1].argomenti.end()[-2], "B.");
    EXPECT_EQ(t.Nome.Valore() + t.City.Valore(), "B.P.");
    EXPECT_NE(pannello.find("-zi \"B.\" \"P.\" "), std::string::npos);
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(AvvioAstrolog, SenzaProgrammaLoDice) {
    Tema t = Prova();
    const std::string attesoNessuno = "Nessun programma Astrolog impostato.\n"
                                      "Indicarlo in  File -> Default  Vesmo\n" +
                                      std::string(30, '-') + "\nNo Astrolog program set.\n";
    percorsi.CmdAstrolog = " ";
    EXPECT_FALSE(Avvia(t, {}, percorsi, messaggi, avviatore.Funzione(), pannello));
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - Avvia Astrolog");
    EXPECT_EQ(messaggi.registro[0].testo, attesoNessuno);
    // The status panel still shows what would have gone out.
    EXPECT_EQ(pannello.substr(0, 6), "=X -z ");

    // Set, but not installed where the settings say.
    messaggi.registro.clear();
    const std::string assente = (cartella / "altrove/astrolog").string();
    percorsi.CmdAstrolog = assente + " ";
    EXPECT_FALSE(AvviaAstrolog(t, percorsi, messaggi, avviatore.Funzione()));
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].testo, "Astrolog non trovato:\n" + assente + "\n" +
                                              std::string(30, '-') + "\nAstrolog not found.\n");
    EXPECT_TRUE(avviatore.partenze.empty());
}

TEST(ChartInfo, FileDiEsempioRigaPerRiga) {
    Cartella cartella;
    const auto file = cartella / "prova.dat";
    MessaggiRegistrati m;
    std::string pannello;
    ASSERT_TRUE(SalvaInfo(
        Prova(), TestiProva(), {}, m, [&] { return file.string(); }, pannello));
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(pannello.substr(0, 3), "=X ");
    // Byte for byte, the CR LF of each line included.
    EXPECT_EQ(Leggi(file), Leggi(std::string(VESMO_DATI_TEST) + "/astrolog/Prova_Padova.dat"));

    // A second save replaces the file; names go out in Latin-1.
    Tema t = Prova();
    t.Nome = "Niccolò";
    ASSERT_TRUE(SalvaInfo(
        t, TestiProva(), {}, m, [&] { return file.string(); }, pannello));
    const std::string scritto = Leggi(file);
    EXPECT_EQ(std::count(scritto.begin(), scritto.end(), '\n'), 3); // replaced, not appended to
    EXPECT_EQ(scritto.substr(scritto.rfind("/zi")), "/zi \"Niccol\xF2\" \"Padova\" \r\n");
}

TEST(ChartInfo, OraParolaEstivaEFuso) {
    struct Caso {
        const char* riga2;
        double fuso;
        TestiInfo testi;
    };
    const Caso casi[] = {
        {"/qb Jan 15 1980 0:00pm ST -1:00:00  11E53 45N24 ",
         -1,
         {"15", "1", "1980", "12", "0", "0", "0"}},
        {"/qb Jul 1 2001 0:30am DT -1:00:00  11E53 45N24 ",
         -1,
         {"1", "7", "2001", "0", "30", "1", "0"}},
        {"/qb Dec 31 1999 11:59pm  0:00:00  11E53 45N24 ",
         0,
         {" 31 ", "12", " 1999 ", "23", "59", "0.5", "0"}},
        {"/qb Mar 5 1850 9:07am  -0:47:15  11E53 45N24 ",
         -GradiDecimali(0, 47, 15),
         {"5", "3", "1850", "9", "7", "-1", "0"}},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.riga2);
        Tema t = Prova();
        t.Fuso = c.fuso;
        MessaggiRegistrati m;
        auto righe = RigheInfo(c.testi, ComponiPezzi(t, {}), m);
        ASSERT_TRUE(righe);
        EXPECT_EQ((*righe)[0], "@0102 ;Astrolog chart info.");
        EXPECT_EQ((*righe)[1], c.riga2);
        EXPECT_TRUE(m.registro.empty());
    }
}

// Refusals before the file dialog (a summer time Astrolog cannot write, a month out of range)
// and after it (a file that cannot be written); a cancelled dialog says nothing.
TEST(ChartInfo, RifiutiEAnnullato) {
    Cartella cartella;
    const std::string file = (cartella / "manca/info.dat").string(), trattini(30, '-');
    const std::string estiva = "Ora Estiva con minuti.\nOppure Ore Estive > 1\n"
                               "Salvataggio Info Impossibile\n" +
                               trattini + "\nSorry: Not possible this Save Info :-(\n";
    struct Caso {
        const char *ore, *minuti, *mese;
        std::string testo;
        bool chiesto;
    };
    const Caso casi[] = {
        {"1", "30", "1", estiva, false},
        {"0", "0", "13",
         "Mese non valido:  13\nSalvataggio Info Impossibile\n" + trattini +
             "\nMonth out of range 1 - 12\n",
         false},
        {"0", "0", "1",
         "Impossibile scrivere il file\n" + file + "\n" + trattini + "\nCannot write the file.\n",
         true},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.testo);
        MessaggiRegistrati m;
        TestiInfo testi = TestiProva();
        testi.Text22 = c.ore;
        testi.Text23 = c.minuti;
        testi.Text4 = c.mese;
        bool chiesto = false;
        std::string pannello;
        auto dialogo = [&]() -> std::optional<std::string> {
            chiesto = true;
            return file;
        };
        EXPECT_FALSE(SalvaInfo(Prova(), testi, {}, m, dialogo, pannello));
        EXPECT_EQ(chiesto, c.chiesto);
        ASSERT_EQ(m.registro.size(), 1u);
        EXPECT_EQ(m.registro[0].titolo, "Vesmo - Salva Info");
        EXPECT_EQ(m.registro[0].testo, c.testo);
        EXPECT_FALSE(std::filesystem::exists(file));
    }
    MessaggiRegistrati m;
    std::string pannello;
    EXPECT_FALSE(SalvaInfo(
        Prova(), TestiProva(), {}, m, [] { return std::nullopt; }, pannello));
    EXPECT_TRUE(m.registro.empty());
}
