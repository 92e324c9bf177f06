// Secondary directions by years, by date and by fraction of a year; marks and the api warning.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "core/Aritmetica.h"
#include "timecharts/Direzioni.h"

using namespace vesmo;

namespace {

constexpr double Tolleranza = 1e-9; // days, hours and years alike: only rounding

Tema Natale(double anno, double mese, double giorno, double ora, double estiva = 0) {
    Tema t;
    t.Nome = "Mario Rossi";
    t.City = "Padova";
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = ora;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    t.Fuso = -1;
    t.Estiva = estiva;
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

} // namespace

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
