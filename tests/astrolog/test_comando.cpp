// The Astrolog command line: its pieces and their number forms, and the switches as received.
#include <gtest/gtest.h>

#include "astrolog/Astrolog.h"
#include "core/Aritmetica.h"
#include "tests/astrolog/Prova.h"

using namespace vesmo;

using vesmo::test::Prova;

TEST(ComponiComando, FormeDeiNumeri) {
    struct Caso {
        const char* nome;
        double fuso, estiva, lonGradi, lat, oraL;
        const char* pezzi; // -z, -z0, -zl, -zt
    };
    const Caso casi[] = {
        {"fuso zero senza segno", 0, 0, -11.5, 45.4, 9.5,
         "-z 0:00:00 -z0 0:00 -zl 11E30 45N24 -zt 9:30 "},
        {"ora media locale, minuti e secondi con lo zero", -GradiDecimali(0, 47, 15), 0, -12, 45, 0,
         "-z -0:47:15 -z0 0:00 -zl 12E00 45N00 -zt 0:00 "},
        {"fuso a ovest senza segno", 5, 1, 74, 40.7, 23.99,
         "-z 5:00:00 -z0 1:00 -zl 74W00 40N42 -zt 23:59 "},
        {"secondi sopra 30: un primo in più", -1, 0, -GradiDecimali(11, 53, 0),
         GradiDecimali(45, 24, 40), 12, "-z -1:00:00 -z0 0:00 -zl 11E53 45N25 -zt 12:00 "},
        {"primi 59 e secondi 45: 60 senza riporto", -1, 0, GradiDecimali(7, 59, 45),
         GradiDecimali(45, 59, 45), 12, "-z -1:00:00 -z0 0:00 -zl 7W60 45N60 -zt 12:00 "},
        {"latitudine sud", 3, 0, 58.5, -34.6, 6.25,
         "-z 3:00:00 -z0 0:00 -zl 58W30 34S36 -zt 6:15 "},
        {"estiva di mezz'ora, con i secondi sopra 30", -1, GradiDecimali(0, 29, 40), 0, 0, 8,
         "-z -1:00:00 -z0 0:30 -zl 0W00 0N00 -zt 8:00 "},
    };
    for (const Caso& c : casi) {
        Tema t = Prova();
        t.Fuso = c.fuso;
        t.Estiva = c.estiva;
        t.Lon = c.lonGradi / 15;
        t.Lat = c.lat;
        t.OraL = c.oraL;
        PezziComando p = ComponiPezzi(t, {});
        EXPECT_EQ(p.SwZ + p.SwZ0 + p.SwZl + p.SwZt, c.pezzi) << c.nome;
    }
}

TEST(ComponiComando, DataENomiSenzaSpazi) {
    Tema t = Prova();
    t.Day = GiornoGiuliano(2003, 11, 7);
    t.Nome = "  Maria Rossi";
    t.City = "San Donà di Piave";
    PezziComando p = ComponiPezzi(t, {});
    EXPECT_EQ(p.SwZd + p.SwZm + p.SwZy + p.SwZi,
              "-zd 7 -zm 11 -zy 2003 -zi \"Maria Rossi\" \"San Donà di Piave\" ");
}

TEST(ComponiComando, ZodiaciCaseECentro) {
    const char* sid[] = {"", "-s  ", "-s 0.883333 ", "-s 0.983333 ", "-s 2.333333 ", "-s 2.5 "};
    for (int i = 0; i < 6; ++i) {
        SceltaAstrolog s;
        s.Combo1 = i;
        s.Text17 = "2,5";
        EXPECT_EQ(ComponiPezzi(Prova(), s).Sid, sid[i]) << i;
    }
    SceltaAstrolog s;
    EXPECT_EQ(ComponiPezzi(Prova(), s).Casa, ""); // Placidus, Astrolog's own default
    s.Combo2 = 14;
    EXPECT_EQ(ComponiPezzi(Prova(), s).Casa, "-c 14 ");
    s.Combo1 = 3;
    s.Combo2 = 1;
    s.ChkGEO = true;
    PezziComando p;
    const std::string riga = ComponiComando(Prova(), s, "astrolog ", &p);
    EXPECT_EQ(p.Elio, "-h");
    // Elio closes the line without a blank.
    EXPECT_EQ(riga.substr(riga.find("-zi")), "-zi \"Prova\" \"Padova\" -s 0.983333 -c 1 -h");
}

TEST(ComponiComando, ClickDiCombo1EDidascaliaDiChkGEO) {
    EXPECT_TRUE(Combo1_Click(5).Text17Visibile);
    EXPECT_EQ(Combo1_Click(5).Pannello2, "Siderale Utente. Es: 2,5 ruota gli elementi della "
                                         "carta di un angolo pari a (Siderale - 2,5)");
    EXPECT_FALSE(Combo1_Click(4).Text17Visibile);
    EXPECT_EQ(Combo1_Click(0).Pannello2, " ");
    EXPECT_EQ(DidascaliaChkGEO(false) + DidascaliaChkGEO(true), "GEOELIO");
}

TEST(ComponiComandoTema, OraRiportataNelGiornoSenzaSceltaDelModulo) {
    Tema t = Prova();
    t.OraL = 25.5;
    const double giorno = t.Day;
    std::string riga = ComponiComandoTema(t, "astrolog ");
    EXPECT_EQ(riga, "astrolog =X -z -1:00:00 -z0 0:00 -zl 11E53 45N24 -zt 1:30 -zd 16 -zm 1 "
                    "-zy 1980 -zi \"Prova\" \"Padova\" ");
    EXPECT_EQ(t.OraL, 1.5);
    EXPECT_EQ(t.Day, giorno + 1);

    t.OraL = -1;
    t.Day = GiornoGiuliano(1980, 3, 1);
    PezziComando p;
    ComponiComandoTema(t, "astrolog ", &p);
    EXPECT_EQ(p.SwZt, "-zt 23:00 ");
    EXPECT_EQ(p.SwZd + p.SwZm, "-zd 29 -zm 2 ");

    // Brought back once only.
    t.OraL = 50;
    ComponiComandoTema(t, "astrolog ", &p);
    EXPECT_EQ(t.OraL, 26);
}

TEST(ArgomentiRiga, VirgoletteTengonoInsiemeINomi) {
    EXPECT_EQ(ArgomentiRiga("=X -z -1:00:00 -zi \"Maria Rossi\" \"San Donà\" -s  -c 3 -h"),
              (std::vector<std::string>{"=X", "-z", "-1:00:00", "-zi", "Maria Rossi", "San Donà",
                                        "-s", "-c", "3", "-h"}));
    // An empty name stays an argument of its own, so the place does not take its slot.
    EXPECT_EQ(ArgomentiRiga("-zi \"\" \"Padova\" "),
              (std::vector<std::string>{"-zi", "", "Padova"}));
}
