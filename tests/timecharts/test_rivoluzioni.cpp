// Revolutions against published instants and the chart cast at the instant; marks and texts.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "timecharts/Rivoluzioni.h"

using namespace vesmo;

namespace {

// The chart written back at the instant found, through its clock reading.
constexpr double TolleranzaIstanteGiorni = 1e-8;
// A lunar return found, against the instant the degree was taken from.
constexpr double TolleranzaRitornoGiorni = 1e-7;
// A body cast again at the instant found, against the degree searched.
constexpr double TolleranzaRicastoGradi = 1e-7;
// Published instants of equinoxes, solstices and phases are given to the minute.
constexpr double MinutoGiorni = 1.0 / 1440;

Tema Natale(const std::string& nome, double anno, double mese, double giorno, double ora) {
    Tema t;
    t.Nome = nome;
    t.City = "Padova";
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    t.Fuso = -1;
    return t;
}

// A session with the natal chart cast in the Natale slot.
Sessione ConNatale(const Tema& nat, std::int16_t lunaGeo = 1) {
    Sessione s;
    s.LunaGeo = lunaGeo;
    s.TemaNat = nat;
    Case c;
    MessaggiRegistrati m;
    CastaTema(s.TemaNat, c, s.PosNat, lunaGeo, m);
    return s;
}

// The session of Prova's natal chart with TemaX prepared for a revolution of `tipo`.
Sessione Pronta(TipoRivoluzione tipo, std::int16_t lunaGeo = 1) {
    Sessione s = ConNatale(Natale("Prova", 1987, 4, 10, 19.5), lunaGeo);
    s.TemaX = PreparaTemaRivoluzione(s.TemaNat, tipo, lunaGeo);
    return s;
}

// The chart cast at TemaX, as frmMenu installs it.
Posizioni Casta(const Tema& t, std::int16_t lunaGeo) {
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    CastaTema(t, c, p, lunaGeo, m);
    return p;
}

struct Riferimento {
    std::string tipo;
    double valore;
    double jd; // UT
};

std::vector<Riferimento> Riferimenti() {
    std::ifstream f(std::string(VESMO_DATI_TEST) + "/timecharts/fasi_stagioni.csv");
    std::vector<Riferimento> v;
    std::string riga;
    std::getline(f, riga);
    char tipo[16];
    double valore;
    int g, m, a, h, mi;
    while (std::getline(f, riga))
        if (std::sscanf(riga.c_str(), "%15[^,],%lf,%d/%d/%d,%d:%d", tipo, &valore, &g, &m, &a, &h,
                        &mi) == 7)
            v.push_back({tipo, valore, GiornoGiuliano(a, m, g) + (h + mi / 60.0) / 24});
    return v;
}

std::string Data(double jd) {
    float a, m, g;
    DataDaGiuliano(jd, a, m, g);
    return std::to_string(static_cast<int>(g)) + "/" + std::to_string(static_cast<int>(m)) + "/" +
           std::to_string(static_cast<int>(a));
}

} // namespace

TEST(RivoluzioneSolare, IlSoleTornaSulGradoNatale) {
    Sessione s = ConNatale(Natale("Mario Rossi", 1987, 4, 10, 19.5));
    double g = GradoRitorno(0, s.PosNat);
    EXPECT_EQ(g, s.PosNat.Sole.Lo);
    s.TemaX = PreparaTemaRivoluzione(s.TemaNat, TipoRivoluzione::Solare, 1);
    s.DatiOk = -1;
    MessaggiRegistrati m;
    for (float anno : {1988.0f, 2000.0f, 2024.0f}) {
        SCOPED_TRACE(anno);
        EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::Solare, g, anno}, m);
        ASSERT_TRUE(e.trovato);
        EXPECT_EQ(s.DatiOk, 0);
        EXPECT_EQ(s.JDRivoluzione, e.jd);
        EXPECT_EQ(e.AnnoRiv, anno);
        EXPECT_LE(std::fabs(Scostamento(LongitudineSole(e.jd), g)), 1e-9);
        // The chart in TemaX is the chart of that instant: its Sun is the natal Sun.
        EXPECT_NEAR(s.TemaX.JD(), e.jd, TolleranzaIstanteGiorni);
        EXPECT_LE(std::fabs(Scostamento(Casta(s.TemaX, 1).Sole.Lo, g)), TolleranzaRicastoGradi);
        EXPECT_EQ(s.TemaX.Day, GiornoZero(e.jd));
        EXPECT_NE(Data(e.jd).find("/4/"), std::string::npos) << Data(e.jd);
        EXPECT_EQ(e.label5, "ok! Trovato  JD. Calcolo  della  posizione");
        EXPECT_EQ(e.command5, "");
    }
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(s.TemaX.Nome.str(), "Mario Rossi                RS ");
}

// Seasons are searched from the year, phases from the first of the month.
TEST(Rivoluzioni, EquinoziSolstiziEFasiPubblicati) {
    MessaggiRegistrati m;
    Tema scratch;
    int stagioni = 0, fasi = 0;
    for (const auto& r : Riferimenti()) {
        float a, me, g;
        DataDaGiuliano(r.jd, a, me, g);
        const bool sole = r.tipo == "sole";
        auto jd = sole ? IstanteSolare(r.valore, a, m)
                       : IstanteSinodico(r.valore, GiornoGiuliano(a, me, 1), scratch, 1, m);
        ASSERT_TRUE(jd.has_value());
        EXPECT_NEAR(*jd, r.jd, (sole ? 6 : 4) * MinutoGiorni) << r.tipo << r.valore << " " << a;
        ++(sole ? stagioni : fasi);
    }
    EXPECT_EQ(stagioni, 8);
    EXPECT_EQ(fasi, 7);
    EXPECT_TRUE(m.registro.empty());
}

TEST(RivoluzioneSolare, PartenzaSulGradoEAnnoFrazionario) {
    MessaggiRegistrati m;
    // The Sun already on the degree at 1 January: no step at all.
    double x = GiornoGiuliano(2010, 1, 1);
    EXPECT_EQ(IstanteSolare(LongitudineSole(x), 2010, m), x);
    // From the middle of 1998 a spring degree is found in the spring of 1999.
    Sessione s = Pronta(TipoRivoluzione::Solare);
    EsitoRivoluzione e =
        CercaRivoluzione(s, {TipoRivoluzione::Solare, s.PosNat.Sole.Lo, 1998.5f}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_EQ(e.AnnoRiv, 1999.0f);
    EXPECT_GT(e.jd, GiornoGiuliano(1999, 4, 1));
    EXPECT_LT(e.jd, GiornoGiuliano(1999, 4, 30));
}

TEST(RivoluzioneSolare, OraLocaleFuoriDallaGiornata) {
    // With a zone far east the clock hour of a return just before 0h TU passes 24, and the
    // date line still shows it in range.
    Sessione s = Pronta(TipoRivoluzione::Solare);
    s.TemaX.Fuso = -12;
    MessaggiRegistrati m;
    double x = GiornoGiuliano(2021, 5, 1) - 0.1; // 21:36 TU of 30 April
    double g = LongitudineSole(x);
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::Solare, g, 2021}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_NEAR(e.jd, x, 1e-6);
    EXPECT_EQ(s.TemaX.Day, GiornoGiuliano(2021, 4, 30));
    EXPECT_NEAR(s.TemaX.OraL, 21.6 + 12, 1e-4);
}

TEST(RivoluzioneLunare, DueRitorniNelloStessoMese) {
    Sessione s = Pronta(TipoRivoluzione::LunareTropica);
    // A degree the Moon reaches on 2 January 2020 at noon TU comes back on the 29th.
    Tema scratch;
    double primo = GiornoGiuliano(2020, 1, 2.5);
    double g = LongitudineLuna(primo, scratch, 1);
    std::vector<double> mostrati;
    MessaggiRegistrati m;
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::LunareTropica, g, 2020, 1, 1}, m,
                                          [&](const char* c, double v) {
                                              EXPECT_STREQ(c, "Text2");
                                              mostrati.push_back(v);
                                          });
    ASSERT_TRUE(e.trovato);
    EXPECT_TRUE(m.registro.empty());
    EXPECT_GE(mostrati.size(), 4u);
    EXPECT_TRUE(e.dueRitorni);
    EXPECT_NEAR(e.jdPrimo, primo, TolleranzaRitornoGiorni);
    EXPECT_NEAR(e.jd - e.jdPrimo, MeseSiderale, 0.5);
    // The Moon moves 7e-9 degrees in one step of a Julian day's last bit.
    for (double jd : {e.jdPrimo, e.jd})
        EXPECT_LE(std::fabs(Scostamento(LongitudineLuna(jd, scratch, 1), g)), 2e-8);
    EXPECT_EQ(e.label5, "Sono state trovate in questo mese 2 rivoluzioni Lunari Tropiche. "
                        "Scegliere tra:");
    EXPECT_EQ(e.tagLabel5, "2RivTropiche");
    EXPECT_EQ(e.command4, "2/1/2020");
    EXPECT_EQ(e.command5, "29/1/2020");
    EXPECT_EQ(s.JDPrimoRitorno, e.jdPrimo);
    EXPECT_EQ(s.JDRivoluzione, e.jd);
    EXPECT_NEAR(s.TemaBase.JD(), e.jdPrimo, TolleranzaIstanteGiorni);
    EXPECT_NEAR(s.TemaX.JD(), e.jd, TolleranzaIstanteGiorni);
    EXPECT_EQ(s.TemaX.Nome.str(), "Prova                 RL Tro  ");

    // Command5 keeps the later one, Command4 takes the earlier one back.
    Sessione dopo = s;
    AccettaRivoluzione(dopo, e, false);
    EXPECT_EQ(dopo.DatiOk, -1);
    EXPECT_EQ(dopo.JDRivoluzione, e.jd);
    AccettaRivoluzione(s, e, true);
    EXPECT_EQ(s.DatiOk, -1);
    EXPECT_EQ(s.JDRivoluzione, e.jdPrimo);
    EXPECT_NEAR(s.TemaX.JD(), e.jdPrimo, TolleranzaIstanteGiorni);
    EXPECT_LE(std::fabs(Scostamento(Casta(s.TemaX, 1).Luna.Lo, g)), TolleranzaRicastoGradi);
}

TEST(RivoluzioneLunare, IlSecondoRitornoNelMeseDopoNonConta) {
    Sessione s = Pronta(TipoRivoluzione::LunareTropica);
    Tema scratch;
    double primo = GiornoGiuliano(2020, 2, 4.5);
    double g = LongitudineLuna(primo, scratch, 1);
    MessaggiRegistrati m;
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::LunareTropica, g, 2020, 2, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_FALSE(e.dueRitorni);
    EXPECT_NEAR(e.jd, primo, TolleranzaRitornoGiorni);
    EXPECT_EQ(s.JDPrimoRitorno, -1.0);
    EXPECT_EQ(e.command5, "");
    EXPECT_EQ(e.label5, "ok! Trovato  JD. Calcolo  della  posizione");
    AccettaRivoluzione(s, e, true);
    EXPECT_EQ(s.JDRivoluzione, e.jd);
}

TEST(RivoluzioneLunare, LunaTopocentricaDelLuogo) {
    // The topocentric Moon of the place of the revolution returns on the degree: the chart
    // cast with the topocentric Moon has it there. A half-month fraction starts on the 15th.
    Sessione s = Pronta(TipoRivoluzione::LunareTropica, 0);
    double g = s.PosNat.Luna.Lo;
    MessaggiRegistrati m;
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::LunareTropica, g, 2015, 6.5f, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_GE(e.jd, GiornoGiuliano(2015, 6, 15));
    EXPECT_LT(e.jd, GiornoGiuliano(2015, 6, 15) + 28);
    Posizioni topo = Casta(s.TemaX, 0);
    EXPECT_LE(std::fabs(Scostamento(topo.Luna.Lo, g)), TolleranzaRicastoGradi);
    // The geocentric Moon is then off by up to a degree of parallax.
    EXPECT_GT(std::fabs(Scostamento(Casta(s.TemaX, 1).Luna.Lo, g)), 0.05);
}

TEST(RivoluzioneSinodica, LunaPienaEAngoloNatale) {
    Sessione s = ConNatale(Natale("Una Persona Dal Nome Lunghissimo", 1987, 4, 10, 19.5));
    s.TemaX = PreparaTemaRivoluzione(s.TemaNat, TipoRivoluzione::LunareSinodica, 1);
    EXPECT_EQ(s.TemaX.Nome.str(), "Una Persona Dal Nome RL Sin Gi");
    MessaggiRegistrati m;
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::LunareSinodica, 180, 2020, 3, 1}, m);
    ASSERT_TRUE(e.trovato);
    Posizioni p = Casta(s.TemaX, 1);
    EXPECT_LE(std::fabs(Scostamento(Norma360(p.Sole.Lo - p.Luna.Lo, 1), 180)), 1e-6);
    EXPECT_NEAR(e.jd, GiornoGiuliano(2020, 3, 9) + (17 + 48 / 60.0) / 24, 4 * MinutoGiorni);

    // The natal angle: the phase of birth comes back.
    double a = AngoloSinodico(true, s.PosNat);
    EXPECT_DOUBLE_EQ(a, Norma360(s.PosNat.Sole.Lo - s.PosNat.Luna.Lo, 1));
    e = CercaRivoluzione(s, {TipoRivoluzione::LunareSinodica, a, 2021, 7, 1}, m);
    ASSERT_TRUE(e.trovato);
    p = Casta(s.TemaX, 1);
    EXPECT_LE(std::fabs(Scostamento(Norma360(p.Sole.Lo - p.Luna.Lo, 1), a)), 1e-6);
    EXPECT_GE(e.jd, GiornoGiuliano(2021, 7, 1));
    EXPECT_TRUE(m.registro.empty());

    // Topocentric: the mark changes and the phase is the one seen from the place.
    Sessione t = ConNatale(s.TemaNat, 0);
    t.TemaX = PreparaTemaRivoluzione(t.TemaNat, TipoRivoluzione::LunareSinodica, 0);
    EXPECT_EQ(t.TemaX.Nome.str(), "Una Persona Dal Nome RL Sin Ti");
    e = CercaRivoluzione(t, {TipoRivoluzione::LunareSinodica, 0, 2020, 1, 1}, m);
    ASSERT_TRUE(e.trovato);
    p = Casta(t.TemaX, 0);
    EXPECT_LE(std::fabs(Scostamento(Norma360(p.Sole.Lo - p.Luna.Lo, 1), 0)), 1e-6);
}

TEST(RivoluzioneSinodica, UnLoopSenzaFineSiFermaEDiceperche) {
    // A secant on a cube root runs away: the bounded loop gives up with its box.
    RegolaSecante r;
    r.giriVicinanza = 10;
    r.giriMassimi = 20;
    r.titoloLoop = "Vesmo - Errori  [frmCheRivoluzione.RivLunSin]";
    r.testoLoop = TestoLoopInfinito;
    r.titoloDivisione = r.titoloLoop;
    MessaggiRegistrati m;
    int chiamate = 0;
    auto f = [&](double x) {
        ++chiamate;
        return std::cbrt(x);
    };
    EXPECT_FALSE(Secante(f, 1, f(1), 0.5, f(0.5), r, m).has_value());
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Vesmo - Errori  [frmCheRivoluzione.RivLunSin]");
    EXPECT_EQ(m.registro[0].testo, "Vesmo Entrato in un Loop infinito.\r\nIstruzione STOP\r\n");
    EXPECT_EQ(chiamate, 2 + 19);
    // Two points at the same height: a division by zero, told and stopped.
    m.registro.clear();
    auto piatta = [](double) { return 1.0; };
    EXPECT_FALSE(Secante(piatta, 1, 1, 2, 1, r, m).has_value());
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].testo, "Divisione per zero.\r\n");
}

TEST(RivoluzioneModulo, ListaDidascalieEMarche) {
    Sessione s = ConNatale(Natale("Prova", 1987, 4, 10, 19.5));
    // Row 14 is the IC, 17 the Descendant, 23 a degree typed in the box.
    EXPECT_EQ(GradoRitorno(14, s.PosNat), Norma360(s.PosNat.MC.Lo + 180, 1));
    EXPECT_EQ(GradoRitorno(17, s.PosNat), Norma360(s.PosNat.Asce.Lo + 180, 1));
    EXPECT_DOUBLE_EQ(GradoRitorno(23, s.PosNat, "237,4176"), 237.4176);
    EXPECT_DOUBLE_EQ(GradoRitorno(23, s.PosNat, "-10"), 350);
    EXPECT_EQ(GradoRitorno(23, s.PosNat, "abc"), 0);
    EXPECT_EQ(AngoloSinodico(false, s.PosNat, "270"), 270);

    struct Didascalia {
        TipoRivoluzione tipo;
        int riga;
        double grado;
        std::int16_t lunaGeo;
        bool natale;
        double angolo;
        const char* testo;
    };
    const Didascalia didascalie[] = {
        {TipoRivoluzione::Solare, 0, 0, 1, false, 0,
         "Lyx - Rivoluzione Solare. Ritorno del SOLE su  Sole"},
        {TipoRivoluzione::Solare, 23, 12.5, 1, false, 0,
         "Lyx - Rivoluzione Solare. Ritorno del SOLE sul Grado   12,5"},
        {TipoRivoluzione::LunareTropica, 20, 0, 1, false, 0,
         "Lyx - Rivoluzione Lunare Tropica. Ritorno di LUNA su     Medio Cielo"},
        {TipoRivoluzione::LunareSinodica, 1, 0, 1, false, 90.25,
         "Lyx - Rivoluzione Lunare Sinodica Geocentrica. Angolo Luna - Sole: 90,25"},
        {TipoRivoluzione::LunareSinodica, 1, 0, 0, true, 0,
         "Lyx - Rivoluzione Lunare Sinodica Topocentrica. Angolo Luna - Sole:  Natale"},
    };
    for (const Didascalia& d : didascalie)
        EXPECT_EQ(
            DidascaliaInputRivoluzione(d.tipo, d.riga, d.grado, d.lunaGeo, d.natale, d.angolo),
            d.testo);

    TestiRivoluzione sol = TestiDellaRivoluzione(TipoRivoluzione::Solare);
    EXPECT_EQ(sol.didascalia, "Lyx - Rivoluzioni Solari");
    EXPECT_EQ(sol.frame2Input, "Anno della Rivoluzione");
    TestiRivoluzione tro = TestiDellaRivoluzione(TipoRivoluzione::LunareTropica);
    EXPECT_EQ(tro.label6, "Lunare  TROPICA");
    EXPECT_NE(tro.testoAiuto.find("Ciclo di 27 giorni 7 ore 43 minuti 4,7 secondi"),
              std::string::npos);
    TestiRivoluzione sin = TestiDellaRivoluzione(TipoRivoluzione::LunareSinodica);
    EXPECT_EQ(sin.didascalia, "Lyx - Rivoluzione Lunare Sinodica (Fasi Lunari)");
    EXPECT_EQ(sin.titoloAiuto, "Lyx - Aiuto Rivoluzioni Lunari Sinodiche");
    EXPECT_NE(sin.testoAiuto.find("Ciclo di 29 giorni 12 ore 44 minuti 2,9 secondi"),
              std::string::npos);

    // The lunar kinds start from the first of the natal month.
    Tema tro1 = PreparaTemaRivoluzione(s.TemaNat, TipoRivoluzione::LunareTropica, 1);
    EXPECT_EQ(tro1.Day, GiornoGiuliano(1987, 4, 1));
    EXPECT_EQ(PreparaTemaRivoluzione(s.TemaNat, TipoRivoluzione::Solare, 1).Day, s.TemaNat.Day);
    Tema lungo = s.TemaNat;
    lungo.Nome = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234";
    EXPECT_EQ(PreparaTemaRivoluzione(lungo, TipoRivoluzione::Solare, 1).Nome.str(),
              "ABCDEFGHIJKLMNOPQRSTUVWXYZ RS4");
}
