// The birth data form's boxes: a chart shown and read back, the unit lists, local mean time,
// and the messages for a missing city, a non-positive day or month and a box with no number.
#include <gtest/gtest.h>

#include "core/Aritmetica.h"
#include "places/ModuloDati.h"

using namespace vesmo;

namespace {

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
    EXPECT_EQ(c.List2, 0); // east
    EXPECT_EQ(c.List4, 0); // north

    Tema letto;
    MessaggiRegistrati m;
    ASSERT_TRUE(LeggiTema(c, letto, m));
    EXPECT_TRUE(m.registro.empty());
    EXPECT_EQ(letto.Day, t.Day);
    EXPECT_DOUBLE_EQ(letto.OraL, t.OraL);
    EXPECT_NEAR(letto.Lon, t.Lon, 1e-12);
    EXPECT_NEAR(letto.Lat, t.Lat, 1e-12);
    EXPECT_EQ(letto.Fuso, -1);
    EXPECT_EQ(letto.Estiva, 1);
    EXPECT_EQ(letto.Nome.Valore(), "Mario Rossi");
}

TEST(ModuloDati, ListeDelleUnita) {
    Tema t = Padova();
    CampiModulo c;
    MostraTema(t, c);
    MostraLongitudine(t, c, 2);
    EXPECT_EQ(c.Text12, "11,88");
    EXPECT_EQ(c.List3, 2);
    MostraLongitudine(t, c, 1);
    EXPECT_EQ(c.Text9, "0"); // 0h 47m 31.2s
    EXPECT_EQ(c.Text10, "47");
    EXPECT_EQ(c.Text11, "31,2");
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
    c.List3 = 2;
    c.Text12 = "74,5";
    c.List2 = 1;
    c.List5 = 1;
    c.Text16 = "33.25";
    c.List4 = 1;
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
    EXPECT_TRUE(c.chkSolare);
    EXPECT_EQ(c.TagChkSolare, "");
    EXPECT_EQ(c.Text8, "99");
    EXPECT_EQ(c.Text18, "");
    EXPECT_EQ(c.Text22, "0");
    Tema letto;
    MessaggiRegistrati m;
    ASSERT_TRUE(LeggiTema(c, letto, m));
    // The zone is the longitude itself.
    EXPECT_NEAR(letto.Fuso, t.Lon, 1e-12);
    EXPECT_EQ(letto.Estiva, 0);
    c.Text8 = "-99";
    ASSERT_TRUE(LeggiTema(c, letto, m));
    EXPECT_NEAR(letto.Fuso, t.Lon, 1e-12);
    // 99 with a minute is a zone of that value, not local mean time.
    c.Text8 = "99";
    c.Text18 = "1";
    ASSERT_TRUE(LeggiTema(c, letto, m));
    EXPECT_DOUBLE_EQ(letto.Fuso, 99 + 1.0 / 60);
    // Clearing the box brings the record's zone back.
    c.chkSolare = false;
    ClickSolare(t, c);
    EXPECT_EQ(c.Text8, "-1");
    EXPECT_EQ(c.Text22, "1");
}

TEST(ModuloDati, MessaggiEDatiConservati) {
    Tema t = Padova();
    CampiModulo c;
    MostraTema(t, c);
    Tema prima = t;
    MessaggiRegistrati m;

    c.Text2 = "";
    EXPECT_FALSE(LeggiTema(c, t, m));
    ASSERT_EQ(m.registro.size(), 1u);
    EXPECT_EQ(m.registro[0].titolo, "Lyx - Manca Città");
    EXPECT_EQ(m.registro[0].testo, "Attenzione! \rNon è stata scelta nessuna Città");
    EXPECT_EQ(t, prima);

    c.Text2 = "Padova";
    c.Text5 = "19x7";
    EXPECT_FALSE(LeggiTema(c, t, m));
    EXPECT_EQ(m.registro.back().titolo, "Vesmo - Dati non validi");
    EXPECT_EQ(m.registro.back().testo, "Il campo Anno contiene \"19x7\", che non è un numero.");
    EXPECT_EQ(t, prima);

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
    t.Stato = "Italy";
    MostraTema(t, c);
    EXPECT_EQ(c.Pannello2, "");
    // A longitude of 0 leaves the east/west list as it was.
    t.Lon = 0;
    c.List2 = 1;
    MostraTema(t, c);
    EXPECT_EQ(c.List2, 1);
}
