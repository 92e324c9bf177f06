// The birth data form's boxes: shown and read back, units, local mean time, its messages.
#include <gtest/gtest.h>

#include "core/Aritmetica.h"
#include "places/ModuloDati.h"

using namespace vesmo;

namespace {

constexpr double TolleranzaOre = 1e-12; // hours (the longitude and the zone in hours too)

Tema Padova() {
    Tema t;
    t.Nome = "Mario Rossi";
    t.City = "Padova";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(1987, 4, 10);
    t.OraL = GradiDecimali(19, 30, 0);
    t.Lon = -GradiDecimali(11, 52, 48) / 15;
    t.Lat = GradiDecimali(45, 24, 36);
    t.Fuso = -1;
    t.Estiva = 1;
    return t;
}

} // namespace

TEST(ModuloDati, MostraTemaERiletturaUguale) {
    Tema t = Padova();
    CampiModulo c;
    MostraTema(t, c);
    // Name, place, date, time, zone, summer time, longitude, latitude, then the panel.
    EXPECT_EQ((std::vector<std::string>{c.Text1,  c.Text2,  c.Text19, c.Text3,  c.Text4,
                                        c.Text5,  c.Text6,  c.Text7,  c.Tag3,   c.Text8,
                                        c.Text18, c.Text22, c.Text23, c.Text9,  c.Text10,
                                        c.Text11, c.Text13, c.Text14, c.Text15, c.Pannello2}),
              (std::vector<std::string>{"Mario Rossi", "Padova", "Italy", "10", "4",  "1987", "19",
                                        "30",          "10",     "-1",    "0",  "1",  "0",    "11",
                                        "52",          "48",     "45",    "24", "36", ""}));
    EXPECT_EQ(std::tuple(c.List2, c.List4), std::tuple(0, 0)); // east, north
    Tema letto;
    MessaggiRegistrati m;
    ASSERT_TRUE(LeggiTema(c, letto, m));
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(std::tuple(letto.Day, letto.Fuso, letto.Estiva, letto.Nome.Valore()),
              std::tuple(t.Day, -1.0, 1.0, "Mario Rossi"));
    EXPECT_DOUBLE_EQ(letto.OraL, t.OraL);
    EXPECT_NEAR(letto.Lon, t.Lon, TolleranzaOre);
    EXPECT_NEAR(letto.Lat, t.Lat, 1e-12); // degrees
}

TEST(ModuloDati, ListeDelleUnita) {
    Tema t = Padova();
    CampiModulo c;
    MostraTema(t, c);
    MostraLongitudine(t, c, 2);
    EXPECT_EQ(std::tuple(c.Text12, c.List3), std::tuple("11,88", 2));
    MostraLongitudine(t, c, 1);
    // 0h 47m 31.2s
    EXPECT_EQ(std::tuple(c.Text9, c.Text10, c.Text11), std::tuple("0", "47", "31,2"));
    MostraLongitudine(t, c, 3);
    EXPECT_EQ(c.Text12, "0,792");
    // Switching shows the record's value, not what was typed.
    c.Text12 = "5";
    MostraLongitudine(t, c, 2);
    EXPECT_EQ(c.Text12, "11,88");
    c.List5 = 1;
    MostraLatitudine(t, c);
    EXPECT_EQ(c.Text16, "45,41");

    // Decimal degrees read with the comma (and the dot), west and south by the lists.
    c.List3 = 2, c.List2 = 1, c.List5 = 1, c.List4 = 1;
    c.Text12 = "74,5";
    c.Text16 = "33.25";
    Tema letto;
    MessaggiRegistrati m;
    ASSERT_TRUE(LeggiTema(c, letto, m));
    EXPECT_DOUBLE_EQ(letto.Lon, 74.5 / 15);
    EXPECT_DOUBLE_EQ(letto.Lat, -33.25);
}

TEST(ModuloDati, TempoMedioLocale) {
    Tema t = Padova();
    CampiModulo c;
    c.TagChkSolare = "Ok";
    MostraTema(t, c);
    EXPECT_EQ(std::tuple(c.chkSolare, c.TagChkSolare, c.Text8, c.Text18, c.Text22),
              std::tuple(true, "", "99", "", "0"));
    Tema letto;
    MessaggiRegistrati m;
    // The zone is the longitude itself, with 99 or -99.
    for (const char* lmt : {"99", "-99"}) {
        c.Text8 = lmt;
        ASSERT_TRUE(LeggiTema(c, letto, m));
        EXPECT_NEAR(letto.Fuso, t.Lon, TolleranzaOre) << lmt;
        EXPECT_EQ(letto.Estiva, 0);
    }
    // 99 with a minute is a zone of that value, not local mean time.
    c.Text8 = "99";
    c.Text18 = "1";
    ASSERT_TRUE(LeggiTema(c, letto, m));
    EXPECT_DOUBLE_EQ(letto.Fuso, 99 + 1.0 / 60);
    // Clearing the box brings the record's zone back.
    c.chkSolare = false;
    ClickSolare(t, c);
    EXPECT_EQ(std::tuple(c.Text8, c.Text22), std::tuple("-1", "1"));
}

TEST(ModuloDati, MessaggiEDatiConservati) {
    Tema t = Padova();
    CampiModulo c;
    MostraTema(t, c);
    Tema prima = t;
    MessaggiRegistrati m;

    c.Text2 = "";
    EXPECT_FALSE(LeggiTema(c, t, m));
    EXPECT_EQ(t, prima);
    c.Text2 = "Padova";
    c.Text5 = "19x7";
    EXPECT_FALSE(LeggiTema(c, t, m));
    EXPECT_EQ(t, prima);
    EXPECT_EQ(m.registro.size(), 2u);
    EXPECT_EQ(std::tuple(m.registro[0].titolo, m.registro[0].testo, m.registro[1].titolo,
                         m.registro[1].testo),
              std::tuple("Lyx - Manca Città", "Attenzione! \rNon è stata scelta nessuna Città",
                         "Vesmo - Dati non validi",
                         "Il campo Anno contiene \"19x7\", che non è un numero."));

    // A year of 0 or below is accepted; day and month are checked on leaving their boxes.
    c.Text5 = "-44";
    EXPECT_TRUE(LeggiTema(c, t, m));
    EXPECT_EQ(t.Day, GiornoGiuliano(-44, 4, 10));
    EXPECT_TRUE(ControllaGiornoMese("3", true, m));
    EXPECT_TRUE(ControllaGiornoMese("12abc", false, m));
    std::size_t n = m.registro.size();
    EXPECT_FALSE(ControllaGiornoMese("0", true, m));
    EXPECT_FALSE(ControllaGiornoMese("-2", false, m));
    ASSERT_EQ(m.registro.size(), n + 2);
    EXPECT_EQ(m.registro[n].titolo, "Vesmo - data di Nascita ");
    EXPECT_EQ(m.registro[n].testo, "ATTENZIONE, avete inserito un  DAY  Nullo o Negativo\n" +
                                       std::string(30, '-') + "\nJust positive numbers\n");
    EXPECT_EQ(m.registro[n + 1].testo.substr(0, 37), "ATTENZIONE, avete inserito un  MESE  ");
}

TEST(ModuloDati, MarcheDiProvincia) {
    Tema t = Padova();
    t.Stato = "Canada";
    t.City = "Vancouver BC";
    CampiModulo c;
    MostraTema(t, c);
    EXPECT_EQ(c.Pannello2, "(BC) = British Columbia ");
    // A longitude of 0 leaves the east/west list as it was.
    t.Lon = 0;
    c.List2 = 1;
    MostraTema(t, c);
    EXPECT_EQ(c.List2, 1);
}
