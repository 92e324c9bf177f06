// The chart record: fixed-width texts, the chart instant, the session's captions and slots.
#include <gtest/gtest.h>

#include "core/Sessione.h"
#include "core/Tema.h"

using namespace vesmo;

TEST(Tema, TestiFissiTagliatiEAllungatiACaratteri) {
    Tema t;
    EXPECT_EQ(t.Nome.str(), std::string(30, ' '));
    t.Nome = "Mario Rossi";
    EXPECT_EQ(t.Nome.str(), "Mario Rossi" + std::string(19, ' '));
    t.Nome = "Un nome lungo più di trenta caratteri davvero";
    EXPECT_EQ(t.Nome.str(), "Un nome lungo più di trenta ca");
    // Widths count characters, not bytes: "Città" is 5 characters in 6 bytes.
    t.City = "Città di Castello";
    EXPECT_EQ(LunghezzaCaratteri(t.City.str()), 30u);
    EXPECT_EQ(t.City.str().size(), 31u);
    EXPECT_EQ(Variante("NonDefinita").Numero(), 0.0); // a text in a numeric slot reads as 0
}

TEST(Tema, TempoUniversaleEIstante) {
    Tema t;
    t.Day = 2451544.5;
    t.OraL = 0.5;
    t.Fuso = -1;
    t.Estiva = 1;
    // The instant falls on the previous day; Day stays as it is.
    EXPECT_EQ(t.TU(), -1.5);
    EXPECT_DOUBLE_EQ(t.JD(), 2451544.5 - 1.5 / 24);
    t.OraL = 23.5;
    t.Fuso = 5;
    t.Estiva = 0;
    EXPECT_DOUBLE_EQ(t.JD(), 2451544.5 + 28.5 / 24);
}

TEST(Sessione, DidascalieDellaLuna) {
    Sessione s;
    EXPECT_EQ(s.DidascaliaLunaGeo(), "Luna GeoCentrica");
    EXPECT_EQ(s.DidascaliaLunaNera(), "Luna  Nera  Vera");
    s.LunaGeo = 0;
    s.LunaNeraVera = 0;
    EXPECT_EQ(s.DidascaliaLunaGeo(), "Luna TopoCentrica");
    EXPECT_EQ(s.DidascaliaLunaNera(), "Luna Nera Media");
}

// The four slots as the chart menu's frames number them (Natale, Transito, Rivoluzione,
// Direzione): each number reaches its own chart, positions and "calculated" flag, and a number
// outside 0..3 falls back to the natal chart.
TEST(Sessione, SlotPerNumero) {
    Sessione s;
    struct Caso {
        int slot;
        Tema Sessione::*tema;
        Posizioni Sessione::*pos;
        std::int16_t Sessione::*flag;
    };
    const Caso casi[] = {
        {0, &Sessione::TemaNat, &Sessione::PosNat, &Sessione::TransitoCalcolato},
        {1, &Sessione::TemaTra, &Sessione::PosTra, &Sessione::TransitoCalcolato},
        {2, &Sessione::TemaRiv, &Sessione::PosRiv, &Sessione::RivoluzioneCalcolata},
        {3, &Sessione::TemaDir, &Sessione::PosDir, &Sessione::DirezioneCalcolata},
        {-1, &Sessione::TemaNat, &Sessione::PosNat, &Sessione::TransitoCalcolato},
        {4, &Sessione::TemaNat, &Sessione::PosNat, &Sessione::TransitoCalcolato},
    };
    for (const Caso& c : casi) {
        EXPECT_EQ(&s.TemaDelSlot(c.slot), &(s.*c.tema)) << c.slot;
        EXPECT_EQ(&s.PosDelSlot(c.slot), &(s.*c.pos)) << c.slot;
        EXPECT_EQ(&s.FlagDelSlot(c.slot), &(s.*c.flag)) << c.slot;
    }
}
