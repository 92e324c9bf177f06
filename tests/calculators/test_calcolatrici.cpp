// The calculators' arithmetic: boxes, Julian days both ways, sums, Delta T text, the equation of
// time (Meeus' example), and the five notations of an angle.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "calculators/Calcolatrici.h"
#include "core/Aritmetica.h"

using namespace vesmo;

TEST(NumeroDiCasella, VirgolaPuntoVuotoENonNumeri) {
    struct Caso {
        const char* testo;
        bool numero;
        double valore;
    };
    const Caso casi[] = {
        {"1,5", true, 1.5},  {"1.5", true, 1.5},  {" -0,25 ", true, -0.25}, {"", true, 0},
        {"   ", true, 0},    {"+7", true, 7},     {"2e3", false, 0},        {",5", true, 0.5},
        {"abc", false, 0},   {"1,2,3", false, 0}, {"1.000,5", false, 0},    {"nan", false, 0},
        {"inf", false, 0},   {"0x10", false, 0},  {"12abc", false, 0},      {"-", false, 0},
        {"1e999", false, 0},
    };
    for (const Caso& c : casi) {
        std::optional<double> v = NumeroDiCasella(c.testo);
        EXPECT_EQ(v.has_value(), c.numero) << '"' << c.testo << '"';
        if (v && c.numero) {
            EXPECT_DOUBLE_EQ(*v, c.valore) << c.testo;
        }
    }
    EXPECT_THROW(NumeroOErrore("x"), ErroreTipo);
    EXPECT_FALSE(NumeroDiCasella(std::string(30000, '9') + "x").has_value());
    EXPECT_EQ(ValoreIniziale("12abc"), 12);
    EXPECT_EQ(ValoreIniziale("abc"), 0);
    EXPECT_EQ(ValoreIniziale("-3,5 gradi"), -3.5);
}

TEST(GiorniGiuliani, DallaDataAlJD) {
    // J2000.0 is 2000 January 1.5 = JD 2451545.0; 1987 April 10 0h is JD 2446895.5 (Meeus 12.a).
    EXPECT_DOUBLE_EQ(
        JDDellaCornice(CorniceJD{"1", "1", "2000", "12", "0", "0", 0, "0", false, ""}, 0),
        2451545.0);
    // 19:30 of summer time (1 hour) in the zone one hour east: 17:30 TU.
    EXPECT_NEAR(JDDellaCornice(CorniceJD{"10", "4", "1987", "19", "30", "0", 1, "1", true, ""}, 0),
                2446895.5 + 17.5 / 24, 1e-9);
    // The comma in the seconds is read.
    EXPECT_NEAR(
        JDDellaCornice(CorniceJD{"1", "1", "2000", "12", "0", "36,0", 0, "0", false, ""}, 0),
        2451545.0 + 0.01 / 24, 1e-9);
    // 99 stands for the working chart's longitude: a local mean time.
    for (bool est : {false, true})
        EXPECT_DOUBLE_EQ(
            FusoDellaCornice(CorniceJD{"", "", "", "", "", "", 0, "99", est, ""}, -0.8), -0.8);
    EXPECT_DOUBLE_EQ(FusoDellaCornice(CorniceJD{"", "", "", "", "", "", 0, "3", true, ""}, 0), -3);
    EXPECT_THROW(JDDellaCornice(CorniceJD{"1", "x", "2000", "12", "0", "0", 0, "0", false, ""}, 0),
                 ErroreTipo);
}

TEST(GiorniGiuliani, DalJDAllaDataConIlRiportoDelGiorno) {
    struct Caso {
        double jd;
        int estiva;
        const char* fuso;
        bool est;
        const char *g, *m, *a, *ore, *min, *sec;
    };
    const Caso casi[] = {
        // 23:00 TU of 31 December 1999, two hours east: 1:00 of the new year.
        {2451543.5 + 23.0 / 24, 0, "2", true, "1", "1", "2000", "1", "0", "0,0"},
        // 2:00 TU of 2 January, five hours west: 21:00 of the day before.
        {2451545.5 + 2.0 / 24, 0, "5", false, "1", "1", "2000", "21", "0", "0,0"},
        // Summer time adds its hour: 17:30 TU, one hour east with summer time, 19:30.
        {2446895.5 + 17.5 / 24, 1, "1", true, "10", "4", "1987", "19", "30", "0,0"},
        // 59.99 seconds are shown as the next minute.
        {2451545.0 + 59.99 / 86400, 0, "0", false, "1", "1", "2000", "12", "1", "0,0"},
        // Seconds in tenths.
        {2451545.0 + 12.5 / 86400, 0, "0", false, "1", "1", "2000", "12", "0", "12,5"},
    };
    for (const Caso& c : casi) {
        CorniceJD f;
        f.JD = FormatoNumero(c.jd, "0.0#########");
        f.Estiva = c.estiva;
        f.Fuso = c.fuso;
        f.Est = c.est;
        CorniceDaJD(f, 0);
        EXPECT_EQ(
            f.Giorno + "/" + f.Mese + "/" + f.Anno + " " + f.Ore + ":" + f.Minuti + ":" + f.Secondi,
            std::string(c.g) + "/" + c.m + "/" + c.a + " " + c.ore + ":" + c.min + ":" + c.sec)
            << f.JD;
    }
}

TEST(GiorniGiuliani, TemaCaricatoNuovoESomma) {
    Tema t;
    t.Day = 2446895.5; // 10 April 1987
    t.OraL = 19.5;
    t.Estiva = 1;
    t.Fuso = -1;
    t.Lon = -0.7921;
    t.Lat = 45.4;
    CorniceJD c = CorniceDelTema(t);
    EXPECT_EQ(
        std::tie(c.Giorno, c.Mese, c.Anno, c.Ore, c.Minuti, c.Secondi, c.Estiva, c.Fuso, c.Est),
        std::make_tuple("10", "4", "1987", "19", "30", "0,0", 1, "1", true));
    EXPECT_NEAR(*NumeroDiCasella(c.JD), 2446895.5 + 17.5 / 24, 1e-8);

    // A zone with a fraction is a local mean time, shown as 99.
    Tema lmt = t;
    lmt.Fuso = -0.7921;
    EXPECT_EQ(CorniceDelTema(lmt).Fuso, "99");

    Tema n = NuovoDallaCornice(c, t);
    EXPECT_EQ(n.Nome.Valore() + "/" + n.City.Valore(), "Nuovo JD/City di Nuovo");
    EXPECT_EQ(std::make_tuple(n.Lon, n.Lat, n.Day, n.Estiva, n.Fuso, n.OraL),
              std::make_tuple(t.Lon, t.Lat, t.Day, t.Estiva, t.Fuso, t.OraL));

    // The sums: an empty or wrong sign gives nothing.
    EXPECT_FALSE(SommaJD("2451545", "", "1") || SommaJD("2451545", "*", "1"));
    EXPECT_DOUBLE_EQ(*SommaJD("2451545", "+", "1,5"), 2451546.5);
    EXPECT_DOUBLE_EQ(*SommaJD("2451545", "-", "365,25"), 2451179.75);
    EXPECT_DOUBLE_EQ(*SommaJD("2451545", "+", ""), 2451545);

    // The chart moved to the sum keeps its zone and summer time: 0h TU of 3 January 2000 is
    // 2:00 of the clock one hour east with summer time.
    Tema y = TemaAlJD(t, 2451546.5);
    EXPECT_EQ(y.Day, 2451546.5);
    EXPECT_NEAR(y.OraL, 2.0, 1e-9); // hours
}

TEST(DeltaTTesto, SecondiMinutiOre) {
    // 1993: 59.12 seconds.
    EXPECT_EQ(TestoDeltaT(59.12 / 60), "DeltaT = 59,12s  = 0,9853m  = 0,0164h");
    const std::string aiuto = AiutoDeltaT();
    for (const char* voce : {" Anno   DeltaT   |  Anno   DeltaT       |   Anno   DeltaT\n",
                             "1710   -0,2", "1992     +0,9718", "1998   E +1,066"})
        EXPECT_NE(aiuto.find(voce), std::string::npos) << voce;
    // 1990 and 1991 stand in the table of the calculation, not in the one shown.
    EXPECT_EQ(aiuto.find("1990"), std::string::npos);
}

TEST(EquazioneDelTempo, EsempioDiMeeus) {
    // Meeus, Astronomical Algorithms, example 28.b: 1992 October 13.0 TD, E = +13m 42.7s by the
    // same series (the exact value being 13m 42.6s).
    const double jd = 2448908.5;
    const double atteso = (13 * 60 + 42.7) / 86400.0 * 2 * PI;
    EXPECT_NEAR(EquazioneDelTempo(jd), atteso, 1.0 / 86400 * 2 * PI); // one second of time
    EXPECT_EQ(TestoEqT(-0.071234567891), "EqT = -0,0712346 radianti");
}

namespace {

std::vector<std::string> Caselle(const FormatiNumerici& f, std::initializer_list<int> quali) {
    std::vector<std::string> r;
    for (int i : quali)
        r.push_back(f.Testo[static_cast<std::size_t>(i)]);
    return r;
}

} // namespace

TEST(FormatiNumerici, UnaCasellaDaTutteLeAltre) {
    struct Caso {
        int casella;
        const char* testo;
        std::array<std::string, 9> attesi;
    };
    const Caso casi[] = {
        {6, "15", {"15", "0", "0,0", "1", "0", "0,0", "15", "1,0", "0,2618"}},
        // The two empty boxes of the group become "0"; half an hour is 7.5 degrees.
        {4, "30", {"7", "30", "0,0", "0", "30", "0", "7,5", "0,5", "0,1309"}},
    };
    for (const Caso& c : casi) {
        FormatiNumerici f;
        f.Scrivi(c.casella, c.testo);
        f.CommandOK();
        EXPECT_EQ(f.Testo, c.attesi) << c.casella;
        EXPECT_EQ(f.Cambiato, decltype(f.Cambiato){}); // written by the conversion, not typed
        EXPECT_FALSE(f.Riscrivi);
    }
}

TEST(FormatiNumerici, ContaSoloLUltimaCasellaENullaSenzaInput) {
    FormatiNumerici f;
    f.CommandOK();
    EXPECT_EQ(f.Testo, (std::array<std::string, 9>{}));
    f.Scrivi(0, "10");
    f.Scrivi(6, "30,5");
    f.CommandOK();
    EXPECT_EQ(Caselle(f, {0, 1, 2, 6}), (std::vector<std::string>{"30", "30", "0,0", "30,5"}));

    // Boxes written by the conversion do not count as typed.
    f.Riscrivi = true;
    f.Cambia(8);
    f.Riscrivi = false;
    f.CommandOK();
    EXPECT_EQ(f.Testo[6], "30,5");
}

TEST(FormatiNumerici, ArrotondamentoDeiSecondiERadianti) {
    FormatiNumerici f;
    // 10d20'59.995": the seconds pass into the next minute.
    f.Scrivi(6, FormatoNumero(GradiDecimali(10, 20, 59.995), "0.0#########", '.'));
    f.CommandOK();
    EXPECT_EQ(Caselle(f, {0, 1, 2}), (std::vector<std::string>{"10", "21", "0,0"}));

    FormatiNumerici r;
    r.Scrivi(8, "3,14159265358979");
    r.CommandOK();
    EXPECT_EQ(Caselle(r, {0, 3, 6, 7}), (std::vector<std::string>{"180", "12", "180,0", "12,0"}));

    // A negative angle keeps its sign: -2d30' is -0h10m.
    FormatiNumerici n;
    n.Scrivi(0, "-2");
    n.Scrivi(1, "30");
    n.Cambia(0);
    n.CommandOK();
    EXPECT_EQ(Caselle(n, {2, 6, 7, 8}),
              (std::vector<std::string>{"0", "-2,5", "-0,16667", "-0,04363"}));
}
