// The searches in time from a natal chart: revolutions against published instants and the chart
// cast at the instant; secondary directions by years, by date and by fraction of a year with the
// api warning; the ingress search with the help's example, stations, the node, its survey file
// and its messages; marks and texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "tests/core/Padova.h"
#include "tests/core/store/Cartella.h"
#include "timecharts/Direzioni.h"
#include "timecharts/Ingressi.h"
#include "timecharts/Rivoluzioni.h"

using namespace vesmo;

namespace {

constexpr double TolleranzaIstanteGiorni = 1e-8; // the chart written back at the instant found
constexpr double TolleranzaRitornoGiorni = 1e-7; // a lunar return, against its source instant
constexpr double TolleranzaRicastoGradi = 1e-7;  // the body cast again, against the target
constexpr double MinutoGiorni = 1.0 / 1440;      // published instants are given to the minute
constexpr double TolleranzaGradi = 1e-9;         // an ingress's longitude, against the target
constexpr double Tolleranza = 1e-9;              // days, hours and years alike: only rounding

Tema Natale(double anno, double mese, double giorno, double ora, double estiva = 0) {
    Tema t = test::NatoAPadova("Mario Rossi", anno, mese, giorno, ora, estiva);
    t.Cmto = "commento";
    return t;
}

// What the input form gives back: the natal chart with another date (and place).
Tema Input(const Tema& nat, double anno, double mese, double giorno, double ora) {
    Tema t = nat;
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = 1;
    t.City = "Altrove";
    return t;
}

Posizioni Casta(const Tema& t, std::int16_t lunaGeo) {
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    CastaTema(t, c, p, lunaGeo, m);
    return p;
}

// Prova's natal chart at Padova cast in a session, TemaX prepared for a revolution of `tipo`.
Sessione Pronta(TipoRivoluzione tipo, std::int16_t lunaGeo = 1, const char* nome = "Prova") {
    Sessione s;
    s.LunaGeo = lunaGeo;
    s.TemaNat = Natale(1987, 4, 10, 19.5);
    s.TemaNat.Nome = nome;
    s.PosNat = Casta(s.TemaNat, lunaGeo);
    s.TemaX = PreparaTemaRivoluzione(s.TemaNat, tipo, lunaGeo);
    return s;
}

double Fase(const Posizioni& p) {
    return Norma360(p.Sole.Lo - p.Luna.Lo, 1);
}

} // namespace

TEST(RivoluzioneSolare, IlSoleTornaSulGradoNatale) {
    Sessione s = Pronta(TipoRivoluzione::Solare, 1, "Mario Rossi");
    const double g = GradoRitorno(0, s.PosNat);
    s.DatiOk = -1;
    MessaggiRegistrati m;
    for (float anno : {1988.0f, 2000.0f, 2024.0f}) {
        SCOPED_TRACE(anno);
        EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::Solare, g, anno}, m);
        ASSERT_TRUE(e.trovato);
        EXPECT_EQ(std::make_tuple(s.DatiOk, s.JDRivoluzione, e.AnnoRiv),
                  std::make_tuple(0, e.jd, anno));
        EXPECT_LE(std::fabs(Scostamento(LongitudineSole(e.jd), g)), 1e-9);
        // TemaX is the chart of that instant, in April of that year: its Sun is the natal Sun.
        EXPECT_NEAR(s.TemaX.JD(), e.jd, TolleranzaIstanteGiorni);
        EXPECT_LE(std::fabs(Scostamento(Casta(s.TemaX, 1).Sole.Lo, g)), TolleranzaRicastoGradi);
        EXPECT_EQ(s.TemaX.Day, GiornoZero(e.jd));
        EXPECT_GT(e.jd, GiornoGiuliano(anno, 4, 1));
        EXPECT_LT(e.jd, GiornoGiuliano(anno, 4, 30));
    }
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(s.TemaX.Nome.str(), "Mario Rossi                RS ");
}

// Seasons are searched from the year, phases from the first of the month.
TEST(Rivoluzioni, EquinoziSolstiziEFasiPubblicati) {
    std::ifstream f(std::string(VESMO_DATI_TEST) + "/timecharts/fasi_stagioni.csv");
    std::string riga;
    std::getline(f, riga);
    MessaggiRegistrati m;
    Tema scratch;
    int stagioni = 0, fasi = 0;
    char tipo[16];
    double valore;
    int g, me, a, h, mi;
    while (std::getline(f, riga)) {
        ASSERT_EQ(std::sscanf(riga.c_str(), "%15[^,],%lf,%d/%d/%d,%d:%d", tipo, &valore, &g, &me,
                              &a, &h, &mi),
                  7);
        const double jd = GiornoGiuliano(a, me, g) + (h + mi / 60.0) / 24;
        const bool sole = std::string(tipo) == "sole";
        auto trovato = sole ? IstanteSolare(valore, a, m)
                            : IstanteSinodico(valore, GiornoGiuliano(a, me, 1), scratch, 1, m);
        ASSERT_TRUE(trovato.has_value()) << riga;
        EXPECT_NEAR(*trovato, jd, (sole ? 6 : 4) * MinutoGiorni) << riga;
        ++(sole ? stagioni : fasi);
    }
    EXPECT_EQ(std::make_pair(stagioni, fasi), std::make_pair(8, 8));
    EXPECT_TRUE(m.registro.empty());
}

TEST(RivoluzioneSolare, CasiAiMargini) {
    MessaggiRegistrati m;
    // The Sun already on the degree at 1 January: no step at all.
    const double x = GiornoGiuliano(2010, 1, 1);
    EXPECT_EQ(IstanteSolare(LongitudineSole(x), 2010, m), x);
    // From the middle of 1998 a spring degree is found in the spring of 1999.
    Sessione s = Pronta(TipoRivoluzione::Solare);
    EsitoRivoluzione e =
        CercaRivoluzione(s, {TipoRivoluzione::Solare, s.PosNat.Sole.Lo, 1998.5f}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_EQ(e.AnnoRiv, 1999.0f);
    EXPECT_GT(e.jd, GiornoGiuliano(1999, 4, 1));
    EXPECT_LT(e.jd, GiornoGiuliano(1999, 4, 30));

    // With a zone far east the clock hour of a return just before 0h TU passes 24.
    Sessione est = Pronta(TipoRivoluzione::Solare);
    est.TemaX.Fuso = -12;
    const double y = GiornoGiuliano(2021, 5, 1) - 0.1; // 21:36 TU of 30 April
    e = CercaRivoluzione(est, {TipoRivoluzione::Solare, LongitudineSole(y), 2021}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_NEAR(e.jd, y, 1e-6);
    EXPECT_EQ(est.TemaX.Day, GiornoGiuliano(2021, 4, 30));
    EXPECT_NEAR(est.TemaX.OraL, 21.6 + 12, 1e-4);
}

TEST(RivoluzioneLunare, DueRitorniNelloStessoMese) {
    Sessione s = Pronta(TipoRivoluzione::LunareTropica);
    // A degree the Moon reaches on 2 January 2020 at noon TU comes back on the 29th.
    Tema scratch;
    const double primo = GiornoGiuliano(2020, 1, 2.5);
    const double g = LongitudineLuna(primo, scratch, 1);
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
    EXPECT_EQ(std::make_tuple(e.tagLabel5, e.command4, e.command5),
              std::make_tuple("2RivTropiche", "2/1/2020", "29/1/2020"));
    EXPECT_EQ(std::make_pair(s.JDPrimoRitorno, s.JDRivoluzione), std::make_pair(e.jdPrimo, e.jd));
    EXPECT_NEAR(s.TemaBase.JD(), e.jdPrimo, TolleranzaIstanteGiorni);
    EXPECT_EQ(s.TemaX.Nome.str(), "Prova                 RL Tro  ");

    // Command5 keeps the later one, Command4 takes the earlier one back.
    Sessione dopo = s;
    AccettaRivoluzione(dopo, e, false);
    EXPECT_EQ(std::make_tuple(dopo.DatiOk, dopo.JDRivoluzione), std::make_tuple(-1, e.jd));
    EXPECT_NEAR(dopo.TemaX.JD(), e.jd, TolleranzaIstanteGiorni);
    AccettaRivoluzione(s, e, true);
    EXPECT_EQ(std::make_tuple(s.DatiOk, s.JDRivoluzione), std::make_tuple(-1, e.jdPrimo));
    EXPECT_NEAR(s.TemaX.JD(), e.jdPrimo, TolleranzaIstanteGiorni);
    EXPECT_LE(std::fabs(Scostamento(Casta(s.TemaX, 1).Luna.Lo, g)), TolleranzaRicastoGradi);

    // A second return that falls in the next month does not count.
    Sessione f = Pronta(TipoRivoluzione::LunareTropica);
    const double febbraio = GiornoGiuliano(2020, 2, 4.5);
    e = CercaRivoluzione(
        f, {TipoRivoluzione::LunareTropica, LongitudineLuna(febbraio, scratch, 1), 2020, 2, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_FALSE(e.dueRitorni);
    EXPECT_NEAR(e.jd, febbraio, TolleranzaRitornoGiorni);
    EXPECT_EQ(f.JDPrimoRitorno, -1.0);
    EXPECT_EQ(std::make_tuple(e.label5, e.command5),
              std::make_tuple("ok! Trovato  JD. Calcolo  della  posizione", ""));
    AccettaRivoluzione(f, e, true);
    EXPECT_EQ(f.JDRivoluzione, e.jd);
}

// The topocentric Moon of the place returns on the degree; a half-month starts on the 15th.
TEST(RivoluzioneLunare, LunaTopocentricaDelLuogo) {
    Sessione s = Pronta(TipoRivoluzione::LunareTropica, 0);
    const double g = s.PosNat.Luna.Lo;
    MessaggiRegistrati m;
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::LunareTropica, g, 2015, 6.5f, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_GE(e.jd, GiornoGiuliano(2015, 6, 15));
    EXPECT_LT(e.jd, GiornoGiuliano(2015, 6, 15) + 28);
    EXPECT_LE(std::fabs(Scostamento(Casta(s.TemaX, 0).Luna.Lo, g)), TolleranzaRicastoGradi);
    // The geocentric Moon is then off by up to a degree of parallax.
    EXPECT_GT(std::fabs(Scostamento(Casta(s.TemaX, 1).Luna.Lo, g)), 0.05);
}

TEST(RivoluzioneSinodica, LunaPienaEAngoloNatale) {
    Sessione s = Pronta(TipoRivoluzione::LunareSinodica, 1, "Una Persona Dal Nome Lunghissimo");
    EXPECT_EQ(s.TemaX.Nome.str(), "Una Persona Dal Nome RL Sin Gi");
    MessaggiRegistrati m;
    EsitoRivoluzione e = CercaRivoluzione(s, {TipoRivoluzione::LunareSinodica, 180, 2020, 3, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_LE(std::fabs(Scostamento(Fase(Casta(s.TemaX, 1)), 180)), 1e-6);

    // The natal angle: the phase of birth comes back.
    const double a = AngoloSinodico(true, s.PosNat);
    EXPECT_DOUBLE_EQ(a, Fase(s.PosNat));
    e = CercaRivoluzione(s, {TipoRivoluzione::LunareSinodica, a, 2021, 7, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_LE(std::fabs(Scostamento(Fase(Casta(s.TemaX, 1)), a)), 1e-6);
    EXPECT_GE(e.jd, GiornoGiuliano(2021, 7, 1));
    EXPECT_TRUE(m.registro.empty());

    // Topocentric: the mark changes and the phase is the one seen from the place.
    Sessione t = Pronta(TipoRivoluzione::LunareSinodica, 0, "Una Persona Dal Nome Lunghissimo");
    EXPECT_EQ(t.TemaX.Nome.str(), "Una Persona Dal Nome RL Sin Ti");
    e = CercaRivoluzione(t, {TipoRivoluzione::LunareSinodica, 0, 2020, 1, 1}, m);
    ASSERT_TRUE(e.trovato);
    EXPECT_LE(std::fabs(Scostamento(Fase(Casta(t.TemaX, 0)), 0)), 1e-6);
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
    EXPECT_FALSE(Secante([](double) { return 1.0; }, 1, 1, 2, 1, r, m).has_value());
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].testo, "Divisione per zero.\r\n");
}

TEST(RivoluzioneModulo, ListaDidascalieEMarche) {
    const Sessione s = Pronta(TipoRivoluzione::Solare);
    // Row 14 is the IC, 17 the Descendant, 23 a degree typed in the box.
    EXPECT_EQ(GradoRitorno(14, s.PosNat), Norma360(s.PosNat.MC.Lo + 180, 1));
    EXPECT_EQ(GradoRitorno(17, s.PosNat), Norma360(s.PosNat.Asce.Lo + 180, 1));
    EXPECT_DOUBLE_EQ(GradoRitorno(23, s.PosNat, "237,4176"), 237.4176);
    EXPECT_DOUBLE_EQ(GradoRitorno(23, s.PosNat, "-10"), 350);
    EXPECT_EQ(GradoRitorno(23, s.PosNat, "abc"), 0);
    EXPECT_EQ(AngoloSinodico(false, s.PosNat, "270"), 270);

    using T = TipoRivoluzione;
    EXPECT_EQ(DidascaliaInputRivoluzione(T::Solare, 0, 0, 1, false, 0),
              "Lyx - Rivoluzione Solare. Ritorno del SOLE su  Sole");
    EXPECT_EQ(DidascaliaInputRivoluzione(T::Solare, 23, 12.5, 1, false, 0),
              "Lyx - Rivoluzione Solare. Ritorno del SOLE sul Grado   12,5");
    EXPECT_EQ(DidascaliaInputRivoluzione(T::LunareTropica, 20, 0, 1, false, 0),
              "Lyx - Rivoluzione Lunare Tropica. Ritorno di LUNA su     Medio Cielo");
    EXPECT_EQ(DidascaliaInputRivoluzione(T::LunareSinodica, 1, 0, 1, false, 90.25),
              "Lyx - Rivoluzione Lunare Sinodica Geocentrica. Angolo Luna - Sole: 90,25");
    EXPECT_EQ(DidascaliaInputRivoluzione(T::LunareSinodica, 1, 0, 0, true, 0),
              "Lyx - Rivoluzione Lunare Sinodica Topocentrica. Angolo Luna - Sole:  Natale");

    const TestiRivoluzione sol = TestiDellaRivoluzione(T::Solare);
    EXPECT_EQ(std::make_tuple(sol.didascalia, sol.frame2Input),
              std::make_tuple("Lyx - Rivoluzioni Solari", "Anno della Rivoluzione"));
    const TestiRivoluzione tro = TestiDellaRivoluzione(T::LunareTropica);
    EXPECT_EQ(tro.label6, "Lunare  TROPICA");
    EXPECT_NE(tro.testoAiuto.find("Ciclo di 27 giorni 7 ore 43 minuti 4,7 secondi"),
              std::string::npos);
    const TestiRivoluzione sin = TestiDellaRivoluzione(T::LunareSinodica);
    EXPECT_EQ(sin.didascalia, "Lyx - Rivoluzione Lunare Sinodica (Fasi Lunari)");
    EXPECT_EQ(sin.titoloAiuto, "Lyx - Aiuto Rivoluzioni Lunari Sinodiche");
    EXPECT_NE(sin.testoAiuto.find("Ciclo di 29 giorni 12 ore 44 minuti 2,9 secondi"),
              std::string::npos);

    // The lunar kinds start from the first of the natal month; a long name is cut for the mark.
    EXPECT_EQ(PreparaTemaRivoluzione(s.TemaNat, T::LunareTropica, 1).Day,
              GiornoGiuliano(1987, 4, 1));
    EXPECT_EQ(s.TemaX.Day, s.TemaNat.Day);
    Tema lungo = s.TemaNat;
    lungo.Nome = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234";
    EXPECT_EQ(PreparaTemaRivoluzione(lungo, T::Solare, 1).Nome.str(),
              "ABCDEFGHIJKLMNOPQRSTUVWXYZ RS4");
}

TEST(DirezioniAnni, GiorniPerAnniEOraEstivaNellOra) {
    Tema nat = Natale(1960, 1, 10, 10.5, 1);
    Tema zero = DirezionePerAnni(nat, 0);
    EXPECT_EQ(std::make_tuple(zero.Day, zero.OraL, zero.Estiva, zero.JD(), zero.Cmto),
              std::make_tuple(nat.Day, 9.5, 0.0, nat.JD(), std::string()));
    EXPECT_EQ(zero.Nome.str(), "Mario Rossi           P. 0,00 ");

    // Summer time pulling the hour below 0 moves the day back; the instant stays.
    Tema notte = Natale(1960, 7, 10, 0.5, 1);
    Tema n = DirezionePerAnni(notte, 2);
    EXPECT_EQ(std::make_pair(n.OraL, n.Day), std::make_pair(23.5, notte.Day + 2 - 1));
    EXPECT_NEAR(n.JD(), notte.JD() + 2, Tolleranza);
}

TEST(DirezioniData, AnniInteriOFrazioneTroncata) {
    Tema nat = Natale(1960, 1, 10, 12);
    // 11201 days later: 30.6667 years.
    Tema in = Input(nat, 1990, 9, 10, 12);
    float api = -1;
    Tema t = DirezionePerData(nat, in, false, api);
    EXPECT_EQ(api, 30.0f);
    // The place typed counts for nothing.
    EXPECT_EQ(std::make_tuple(t.Day, t.OraL, t.Lon), std::make_tuple(nat.Day + 30, 12.0, nat.Lon));
    EXPECT_EQ(t.City, nat.City);
    EXPECT_EQ(t.Cmto, "commento");
    EXPECT_EQ(t.Nome.str(), "Mario Rossi          P. 30,00 ");

    t = DirezionePerData(nat, in, true, api);
    EXPECT_FLOAT_EQ(api, 30.66f);
    EXPECT_NEAR(t.Day, nat.Day + 30.66, 1e-5);
    EXPECT_EQ(t.Nome.str(), "Mario Rossi          P. 30,66 ");

    // The natal summer time stays in the natal chart; the input's is taken out first.
    Tema estiva = Natale(1960, 7, 10, 12, 1);
    Tema inE = Input(estiva, 1961, 7, 10, 12);
    t = DirezionePerData(estiva, inE, true, api);
    EXPECT_FLOAT_EQ(api, 0.99f); // one hour short of the year, cut
    EXPECT_EQ(std::make_pair(t.Estiva, t.OraL), std::make_pair(1.0, 12.0));
}

TEST(DirezioniFrazione, PrimaDelCompleannoEsempioDellAiuto) {
    // A solar revolution loaded as natal chart, a date in the following March.
    Sessione s;
    s.TemaNat = Natale(1997, 10, 20, 8.25);
    s.TemaX = Input(s.TemaNat, 1998, 3, 4, 12);
    MessaggiRegistrati m;
    double api = DirezioneFrazioneAnno(s, true, m);
    // 135 days and 3 h 45 min of a year of 365 days.
    double e = 135 + 3.75 / 24;
    EXPECT_NEAR(api, e / 365, Tolleranza);
    EXPECT_EQ(FormatoNumero(api, "#0.00"), "0,37");
    EXPECT_EQ(s.TemaDir.Day, s.TemaNat.Day);
    EXPECT_NEAR(s.TemaDir.OraL, e / 365 * 24 + 8.25, Tolleranza);
    EXPECT_EQ(s.TemaDir.Nome.str(), "Mario Rossi          P. 0,37  ");
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(s.DirezioneCalcolata, -1);
    EXPECT_EQ(s.TemaX, s.TemaDir);

    // The explanation's other example: 11/8/1997 to 8/3/1998 gives 0,57.
    s.TemaNat = Natale(1997, 8, 11, 12);
    s.TemaX = Input(s.TemaNat, 1998, 3, 8, 12);
    EXPECT_EQ(FormatoNumero(DirezioneFrazioneAnno(s, true, m), "#0.00"), "0,57");
}

TEST(DirezioniFrazione, DopoIlCompleannoEAvvisoApi) {
    Sessione s;
    s.TemaNat = Natale(1960, 1, 10, 12);
    s.TemaX = Input(s.TemaNat, 1990, 7, 10, 12);
    MessaggiRegistrati m;
    double api = DirezioneFrazioneAnno(s, true, m);
    EXPECT_NEAR(api, 30 + 181.0 / 365, Tolleranza);
    EXPECT_EQ(s.TemaDir.Day, s.TemaNat.Day + 30);
    EXPECT_NEAR(s.TemaDir.OraL, 181.0 / 365 * 24 + 12, Tolleranza);
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(std::make_tuple(m.registro[0].titolo, m.registro[0].testo, m.registro[0].icona),
              std::make_tuple("Lyx - Avviso api > 1 ",
                              "Attenzione! \r\nE' stata impostata una data che conduce \r\nla "
                              "variabile  api (anni progressi)  \r\nad un valore maggiore di 1. "
                              "\r\n\r\napi = 30,50",
                              Icona::Informazione));
    EXPECT_EQ(s.TemaDir.Nome.str(), "Mario Rossi          P. 30,50 ");

    // On the birthday at the natal hour: whole years, the hour unchanged, 1 is no warning.
    m.registro.clear();
    s.TemaX = Input(s.TemaNat, 1961, 1, 10, 12);
    EXPECT_EQ(DirezioneFrazioneAnno(s, true, m), 1.0);
    EXPECT_EQ(std::make_pair(s.TemaDir.OraL, s.TemaDir.Day),
              std::make_pair(12.0, s.TemaNat.Day + 1));
    EXPECT_TRUE(m.registro.empty());

    // A leap year of 366 days, 361 of them passed: the hour past 24 moves to the next day.
    s.TemaNat = Natale(1960, 1, 10, 20);
    s.TemaX = Input(s.TemaNat, 1961, 1, 5, 20);
    EXPECT_NEAR(DirezioneFrazioneAnno(s, true, m), 361.0 / 366, Tolleranza);
    EXPECT_EQ(s.TemaDir.Day, s.TemaNat.Day + 1);
    EXPECT_NEAR(s.TemaDir.OraL, 361.0 / 366 * 24 + 20 - 24, Tolleranza);
}

TEST(DirezioniFrazione, InputAnnullatoESpiegazione) {
    Sessione s;
    s.TemaNat = Natale(1960, 1, 10, 12);
    s.TemaX = Input(s.TemaNat, 1960, 6, 10, 12);
    Tema prima = s.TemaX;
    MessaggiRegistrati m;
    DirezioneFrazioneAnno(s, false, m);
    // TemaDir holds the stale values; nothing else moves.
    EXPECT_NE(s.TemaDir.OraL, s.TemaNat.OraL);
    EXPECT_EQ(s.TemaX, prima);
    EXPECT_EQ(s.DirezioneCalcolata, 0);

    m.risposte = {Risposta::No};
    EXPECT_FALSE(ChiediFrazioneAnno(m));
    m.risposte = {Risposta::Si};
    EXPECT_TRUE(ChiediFrazioneAnno(m));
    ASSERT_EQ(m.registro.size(), 2u);
    const auto& box = m.registro[0];
    EXPECT_EQ(std::make_tuple(box.titolo, box.pulsanti, box.icona),
              std::make_tuple("Lyx - Direzioni Secondarie per Frazione di Anno", Pulsanti::SiNo,
                              Icona::Informazione));
    EXPECT_EQ(box.testo.rfind("Calcolo sperimentale inteso a fornire un aiuto nella \r\n"
                              "datazione delle RS,                \r\n",
                              0),
              0u);
    EXPECT_NE(box.testo.find("\r\n\r\nEsempio. Data del tema caricato come Tema Natale "
                             "11/8/1997\r\nData di input 8/3/1998. Si ottiene la progressione "
                             "0,57.\r\n\r\n"),
              std::string::npos);
    const std::string fine = "\r\npiù di un anno, tra due compleanni, dal momento iniziale. ";
    ASSERT_GT(box.testo.size(), fine.size());
    EXPECT_EQ(box.testo.substr(box.testo.size() - fine.size()), fine);
}

namespace {

class Ingressi : public ::testing::Test {
protected:
    void SetUp() override { s.TemaNat = Natale(1960, 1, 10, 12); }

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
