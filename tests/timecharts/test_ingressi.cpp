// The ingress search: the help's example, stations, the node, the survey file and the messages.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

#include "core/Aritmetica.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "tests/core/store/Cartella.h"
#include "timecharts/Ingressi.h"

using namespace vesmo;

namespace {

constexpr double TolleranzaIstanteGiorni = 1e-8; // the chart written back at the instant found
constexpr double TolleranzaGradi = 1e-9;         // the longitude reached, against the target

class Ingressi : public ::testing::Test {
protected:
    void SetUp() override {
        s.TemaNat.Nome = "Mario Rossi";
        s.TemaNat.City = "Padova";
        s.TemaNat.Day = GiornoGiuliano(1960, 1, 10);
        s.TemaNat.OraL = 12;
        s.TemaNat.Lon = -GradiDecimali(11, 53, 0) / 15;
        s.TemaNat.Lat = GradiDecimali(45, 24, 0);
        s.TemaNat.Fuso = -1;
    }

    EsitoIngresso Cerca(int pianeta, double bersaglio, double partenza) {
        DatiIngresso d;
        d.pianeta = pianeta;
        d.bersaglio = bersaglio;
        d.partenza = partenza;
        d.cartella = cartella_;
        d.conservaFile = conserva;
        EsitoIngresso e =
            IngressiPinS(s, d, m, [this](const char* c, double v) { mostrati.emplace_back(c, v); });
        ultimo_ = e.fileTemporaneo;
        return e;
    }
    // The survey table as the last search left it, in time order.
    std::vector<std::pair<double, double>> Tabella() {
        Database db(ultimo_);
        Cursore c(db, "TabellaPinS");
        c.Index("Tempi");
        std::vector<std::pair<double, double>> v;
        for (c.MoveFirst(); !c.Eof(); c.MoveNext())
            v.emplace_back(c.Campo("Ges").Numero(), c.Campo("Les").Numero());
        return v;
    }

    bool Mostrato(auto&& condizione) {
        return std::any_of(mostrati.begin(), mostrati.end(), condizione);
    }
    // The files of the temporary folder.
    std::vector<std::string> FileDellaCartella() {
        std::vector<std::string> r;
        std::error_code ec;
        for (const auto& f : std::filesystem::directory_iterator(cartella_, ec))
            r.push_back(f.path().filename().string());
        return r;
    }

    test::Cartella cartella;
    std::filesystem::path cartella_ = cartella.Percorso(), ultimo_;
    bool conserva = true;
    Sessione s;
    MessaggiRegistrati m;
    std::vector<std::pair<std::string, double>> mostrati;
};

double Scarto(double a, double b) {
    return std::fabs(Scostamento(a, b));
}

} // namespace

TEST_F(Ingressi, MercurioEsempioDellAiuto) {
    EsitoIngresso e = Cerca(NumMercurio, 240, 2451113);
    ASSERT_TRUE(e.trovato);
    EXPECT_TRUE(m.registro.empty());
    EXPECT_FALSE(e.stazione.has_value());
    EXPECT_LE(Scarto(LongitudineIngresso(e.jd, NumMercurio), 240), TolleranzaGradi);
    // 1 November 1998 at 16:58 Italian time.
    EXPECT_EQ(s.TemaX.Day, GiornoGiuliano(1998, 11, 1));
    EXPECT_EQ(static_cast<int>(s.TemaX.OraL), 16);
    EXPECT_EQ(static_cast<int>((s.TemaX.OraL - 16) * 60), 58);
    EXPECT_NEAR(s.TemaX.JD(), e.jd, TolleranzaIstanteGiorni);
    EXPECT_EQ(s.TemaX.Nome.str(), "Mario Rossi              Tra  ");
    // The progress went to the boxes of the form, the result among them.
    EXPECT_TRUE(Mostrato([&](const auto& x) { return x.first == "Text5" && x.second == e.jd; }));

    // With a transit in its slot, the result takes the transit's place and zone.
    s.TransitoCalcolato = -1;
    s.TemaTra = s.TemaNat;
    s.TemaTra.City = "Roma";
    s.TemaTra.Fuso = 0;
    EsitoIngresso t = Cerca(NumMercurio, 240, 2451113);
    ASSERT_TRUE(t.trovato);
    EXPECT_EQ(s.TemaX.City.Valore(), "Roma");
    EXPECT_NEAR(s.TemaX.OraL, (t.jd - s.TemaX.Day) * 24, 1e-9);
}

TEST_F(Ingressi, BersaglioOltre360) {
    // Mars at 355 degrees goes on to 5: the samples past 0 are counted past 360.
    double partenza = 2451580;
    ASSERT_GT(LongitudineIngresso(partenza, NumMarte), 354.5);
    EsitoIngresso e = Cerca(NumMarte, 5, partenza);
    ASSERT_TRUE(e.trovato);
    EXPECT_TRUE(m.registro.empty());
    EXPECT_TRUE(e.jd > partenza && e.jd < partenza + 20) << e.jd;
    EXPECT_NEAR(e.longitudine, 5, TolleranzaGradi);
    auto righe = Tabella();
    ASSERT_GE(righe.size(), 3u);
    auto fuoriOrdine = [](auto& a, auto& b) { return a.first >= b.first; }; // time order
    EXPECT_EQ(std::adjacent_find(righe.begin(), righe.end(), fuoriOrdine), righe.end());
    EXPECT_TRUE(std::any_of(righe.begin(), righe.end(), [](auto& r) { return r.second > 360; }));

    // And the other way round, 17 degrees back to 355.
    EsitoIngresso indietro = Cerca(NumMarte, 355, partenza + 30);
    ASSERT_TRUE(indietro.trovato);
    EXPECT_NEAR(indietro.jd, partenza, 0.1);
    EXPECT_LE(Scarto(indietro.longitudine, 355), TolleranzaGradi);
}

TEST_F(Ingressi, StazioniPrimaDelBersaglio) {
    // Mercury stands still at about 347.17 degrees on 21 February 2000 and turns back: a target
    // 2 degrees beyond is out of reach.
    double partenza = 2451590;
    EsitoIngresso e = Cerca(NumMercurio, 349.17, partenza);
    ASSERT_TRUE(e.trovato);
    EXPECT_TRUE(m.registro.empty());
    ASSERT_TRUE(e.stazione.has_value());
    EXPECT_EQ(e.stazione->label7(), "Attenzione, il movimento del Pianeta diventa  RETROGRADO");
    EXPECT_EQ(e.stazione->label8(), "Intorno al JD di partenza si può solo trovare un MASSIMO");
    // The instant is the maximum of the longitude.
    double l = LongitudineIngresso(e.jd, NumMercurio);
    for (double h : {0.5, 0.1, 0.02}) {
        EXPECT_LT(LongitudineIngresso(e.jd - h, NumMercurio), l);
        EXPECT_LT(LongitudineIngresso(e.jd + h, NumMercurio), l);
    }
    EXPECT_NEAR(e.jd, GiornoGiuliano(2000, 2, 21.5), 1);
    EXPECT_NEAR(s.TemaX.JD(), e.jd, TolleranzaIstanteGiorni);
    // The dicotomic search showed its own boxes.
    EXPECT_TRUE(Mostrato([](const auto& x) { return x.first == "Text6"; }));

    // Going back towards a degree Mercury never reaches: the minimum after the retrograde arc.
    partenza = 2451605; // retrograde, some days before the station of 14 March 2000
    double minimo = LongitudineIngresso(partenza, NumMercurio);
    for (double t = partenza; t < partenza + 30; t += 0.25)
        minimo = std::min(minimo, LongitudineIngresso(t, NumMercurio));
    e = Cerca(NumMercurio, minimo - 2, partenza);
    ASSERT_TRUE(e.trovato && e.stazione.has_value());
    EXPECT_EQ(std::make_pair(e.stazione->direzione, e.stazione->estremo),
              std::make_pair(std::string("DIRETTO"), std::string("MINIMO")));
    EXPECT_NEAR(e.longitudine, minimo, 0.01);
}

TEST_F(Ingressi, NodoCheArretra) {
    double partenza = 2451545;
    double l0 = LongitudineIngresso(partenza, NumNodoLuna);
    // A degree ahead of the node was passed some 19 days before.
    EsitoIngresso e = Cerca(NumNodoLuna, l0 + 1, partenza);
    ASSERT_TRUE(e.trovato);
    EXPECT_TRUE(m.registro.empty());
    EXPECT_TRUE(e.jd > partenza - 25 && e.jd < partenza - 15) << e.jd;
    EXPECT_LE(Scarto(e.longitudine, l0 + 1), TolleranzaGradi);
    EXPECT_LE(Scarto(s.TemaX.JD(), e.jd), TolleranzaIstanteGiorni);
}

TEST_F(Ingressi, MessaggiEFileTemporaneo) {
    EsitoIngresso e = Cerca(-1, 10, 2451545);
    EXPECT_FALSE(e.trovato);
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Manca il Pianeta");
    EXPECT_EQ(m.registro[0].testo, "Attenzione!\r\n\r\nSelezionare un Pianeta");
    EXPECT_TRUE(FileDellaCartella().empty());

    // The planet on the target at the start: no result, no box.
    m.registro.clear();
    Tema prima = s.TemaX;
    e = Cerca(NumSaturno, LongitudineIngresso(2451545, NumSaturno), 2451545);
    EXPECT_FALSE(e.trovato);
    EXPECT_TRUE(e.giaSulBersaglio);
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(s.TemaX, prima);

    // Each run makes the file anew: after a Venus run and a Saturn run only Saturn is there.
    ASSERT_TRUE(Cerca(NumVenere, 100, 2451545).trovato);
    ASSERT_TRUE(Cerca(NumSaturno, 45, 2451545).trovato);
    auto righe = Tabella();
    ASSERT_GE(righe.size(), 2u);
    for (const auto& [ges, les] : righe)
        EXPECT_EQ(les, LongitudineIngresso(ges, NumSaturno)) << ges;

    // The form's list: Mercury first, the node last, no row no planet.
    EXPECT_EQ(PianetaDellaLista(0), NumMercurio);
    EXPECT_EQ(PianetaDellaLista(8), NumNodoLuna);
    EXPECT_EQ(PianetaDellaLista(-1), -1);
}

namespace {

// Each run makes a file of its own, named after the survey's file, and removes it at its end; a
// file of that name left by someone else does not stop a run; a folder where no file can be made
// is an error told as such, never a planet not found.
TEST_F(Ingressi, FileTemporaneoDiOgniRicerca) {
    conserva = false;
    // What another user's run left: a file that is not even a database, and not writable.
    const auto altrui = cartella_ / "Exp_PinS_Tmp.mdb";
    std::ofstream(altrui) << "non un database";
    std::filesystem::permissions(altrui, std::filesystem::perms::owner_read);
    EsitoIngresso e = Cerca(NumVenere, 100, 2451545);
    EXPECT_TRUE(e.trovato);
    EXPECT_TRUE(e.errore.empty());
    EXPECT_EQ(FileDellaCartella(), std::vector<std::string>{"Exp_PinS_Tmp.mdb"});

    // Kept on request, the file carries the survey's name as its prefix.
    conserva = true;
    ASSERT_TRUE(Cerca(NumVenere, 100, 2451545).trovato);
    EXPECT_EQ(ultimo_.parent_path(), cartella_);
    EXPECT_EQ(ultimo_.filename().string().rfind("Exp_PinS_Tmp", 0), 0u);
    EXPECT_EQ(ultimo_.extension(), ".mdb");
    EXPECT_NE(ultimo_.filename(), "Exp_PinS_Tmp.mdb");

    // A "folder" that is a file: no file can be made there.
    conserva = false;
    m.registro.clear();
    const auto cartellaGiusta = cartella_;
    cartella_ = cartellaGiusta / "Exp_PinS_Tmp.mdb" / "sotto";
    e = Cerca(NumVenere, 100, 2451545);
    cartella_ = cartellaGiusta;
    EXPECT_FALSE(e.trovato);
    EXPECT_NE(e.errore.find("Impossibile creare il file temporaneo della ricerca"),
              std::string::npos)
        << e.errore;
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Errore  [frmInSegni.IngressiPinS]");
    EXPECT_EQ(m.registro[0].testo, e.errore);
}

// Two programs searching at once in the same temporary folder both find their ingress.
TEST_F(Ingressi, DueRicercheInsiemeInDueProcessi) {
    conserva = false;
    std::vector<pid_t> figli;
    for (int k = 0; k < 2; ++k) {
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            // Several runs each, so that the two overlap.
            bool tutti = true;
            const int pianeta = k == 0 ? NumVenere : NumMarte;
            const double l0 = LongitudineIngresso(2451545, pianeta);
            for (int i = 0; i < 4; ++i)
                tutti = Cerca(pianeta, std::fmod(l0 + 2 + i, 360), 2451545).trovato && tutti;
            ::_exit(tutti ? 0 : 1);
        }
        figli.push_back(pid);
    }
    for (pid_t pid : figli) {
        int stato = 0;
        ASSERT_EQ(::waitpid(pid, &stato, 0), pid);
        EXPECT_TRUE(WIFEXITED(stato) && WEXITSTATUS(stato) == 0) << stato;
    }
    EXPECT_TRUE(FileDellaCartella().empty());
}

} // namespace
