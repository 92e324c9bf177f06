// The printed chart page, on charts of hand-set longitudes so that the expected texts follow
// from the tables of dignities and signs.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "Disegno.h"
#include "Temi.h"
#include "presentation/PaginaStampa.h"

using namespace vesmo;
using namespace vesmo::prova;

namespace {

constexpr double X0 = 200, Y0 = 7500, H = 260;

// The texts of the surface at exactly (x, y), joined.
std::string TestoIn(const SuperficieRegistrata& sup, double x, double y) {
    std::string t;
    for (const Figura& f : sup.figure)
        if (f.tipo == Figura::Testo && Vicino(f.x1, x) && Vicino(f.y1, y)) t += f.testo;
    return t;
}

// The texts whose top stands at y, from x `da` to x `a`.
std::vector<std::string> TestiDellaRiga(const SuperficieRegistrata& sup, double y, double da,
                                        double a) {
    std::vector<std::string> r;
    for (const Figura& f : sup.figure)
        if (f.tipo == Figura::Testo && Vicino(f.y1, y) && f.x1 >= da && f.x1 < a)
            r.push_back(f.testo);
    return r;
}

std::string Cella(const SuperficieRegistrata& sup, int riga, double x) {
    return TestoIn(sup, X0 + x, Y0 + H * riga);
}

// Bodies Sole ... NodoLuna, Black Moon; Asc 10 (Ariete), MC 280 (Capricorno).
const std::array<double, 12> Dignitosi{130, 45, 160, 350, 10, 100, 190, 310, 170, 225, 0.5, 200};

OpzioniPagina Opzioni() {
    OpzioniPagina o;
    o.DataStampa = "01/02/2026";
    return o;
}

SuperficieRegistrata Componi(const Posizioni& p, const OpzioniPagina& o = Opzioni(),
                             const Tema& t = TemaDiProva()) {
    SuperficieRegistrata sup;
    ComponiPagina(sup, t, p, o);
    return sup;
}

} // namespace

TEST(PaginaStampa, QualitaEContatoriDiUnTemaNoto) {
    auto sup = Componi(PosizioniDiProva(Dignitosi, CuspidiComuni));
    // Quadruplicity, element and dignity of rows 1..14 (Asc and MC last, in Ariete and
    // Capricorno); node and Black Moon have no dignity, though the node stands in Ariete.
    const std::vector<std::vector<std::string>> righe{
        {"Fisso", "Fuoco", "Domicilio"},       // Leone
        {"Fisso", "Terra", "Esaltazione"},     // Toro
        {"Mobile", "Terra", "Dom D + Esa"},    // Vergine
        {"Mobile", "Acqua", "Esaltazione"},    // Pesci
        {"Cardinale", "Fuoco", "Domicilio N"}, // Ariete
        {"Cardinale", "Acqua", "Esaltazione"}, // Cancro
        {"Cardinale", "Aria", "Esaltazione"},  // Bilancia
        {"Fisso", "Aria", "Domicilio"},        // Acquario
        {"Mobile", "Terra", "Esilio"},         // Vergine
        {"Fisso", "Acqua", "Domicilio N"},     // Scorpione
        {"Cardinale", "Fuoco", ""},            // Ariete
        {"Cardinale", "Aria", ""},             // Bilancia
        {"Cardinale", "Fuoco"},
        {"Cardinale", "Terra"}};
    for (int i = 1; i <= 14; ++i) {
        std::vector<std::string> letti{Cella(sup, i, 1700), Cella(sup, i, 2600)};
        if (i <= 12) letti.push_back(Cella(sup, i, 3250));
        EXPECT_EQ(letti, righe[static_cast<std::size_t>(i - 1)]) << "riga " << i;
    }

    // Fourteen rows in each group; Mercury in Vergine counts once, under "Domicilio ".
    const char* conti[11] = {"Cardinali 7", "Fissi 4",       "Mobili 3", "Fuoco 4",
                             "Terra 4",     "Aria 3",        "Acqua 3",  "Domicilio 5",
                             "Esilio 1",    "Esaltazione 4", "Caduta 0"};
    for (int n = 0; n < 11; ++n)
        EXPECT_EQ(Cella(sup, n + 1, 4550), conti[n]) << n;
    EXPECT_EQ(Cella(sup, 12, 4550), "Reggente dell' Ascendente ");
    EXPECT_EQ(Cella(sup, 13, 4550 + 264), "(Diurno) ");
    EXPECT_EQ(Cella(sup, 13, 5764), "(Notturno) ");
    // Ascendant in Ariete: Plutone by day, Marte by night, their glyphs before the words.
    EXPECT_TRUE(Contiene(sup.figure, FigureDelGlifo(GlifoCorpo(RuotaPlutone), 200, X0 + 4550,
                                                    Y0 + H * 13, Nero, 2)));
    EXPECT_TRUE(Contiene(
        sup.figure, FigureDelGlifo(GlifoCorpo(RuotaMarte), 200, X0 + 5500, Y0 + H * 13, Nero, 2)));
}

TEST(PaginaStampa, TestiDelleDignita) {
    struct Caso {
        int riga;
        double lo;
        const char* testo;
    };
    // One row for each text, the qualifiers by day (D) and night (N) on Mercury, Venus and
    // Pluto; the plain words of the other bodies are read on the known chart above.
    const Caso casi[] = {{3, 75, "Domicilio N"},     {3, 255, "Esilio N"}, {3, 165, "Dom D + Esa"},
                         {3, 345, "Esilio D + Cad"}, {3, 15, ""},          {4, 195, "Domicilio D"},
                         {4, 15, "Esilio D"},        {4, 165, "Caduta"},   {4, 345, "Esaltazione"},
                         {10, 45, "Esilio N"}};
    for (const Caso& c : casi) {
        // Every other body in Gemelli at 65 degrees, where only Mercury and Jupiter have a word.
        std::array<double, 12> corpi;
        corpi.fill(65);
        corpi[3 - 1] = 135; // Mercury out of Gemelli unless the case moves it
        corpi[6 - 1] = 135;
        corpi[static_cast<std::size_t>(c.riga - 1)] = c.lo;
        auto sup = Componi(PosizioniDiProva(corpi, CuspidiComuni));
        EXPECT_EQ(Cella(sup, c.riga, 3250), c.testo) << "riga " << c.riga << " a " << c.lo;
    }
}

TEST(PaginaStampa, RetrogradiLongitudiniECuspidi) {
    auto p = PosizioniDiProva(Dignitosi, CuspidiComuni);
    // The Sun, the Moon and the node never show the letter, even with the flag set.
    for (Posizione* x : {&p.Sole, &p.Luna, &p.Mercurio, &p.Saturno, &p.Plutone, &p.NodoLuna})
        x->Mv = -1;
    p.Sole.Lo = 130 + 5.0 / 60 + 9.5 / 3600; // 10°05'09.5'' Leone: whole seconds
    p.Asce.Lo = 10 + 3.0 / 60 + 31.0 / 3600; // 10°03'31'': to the nearest minute
    p.MC.Lo = 280 + 59.0 / 60 + 45.0 / 3600; // 10°59'45'' Capricorno
    auto sup = Componi(p);
    auto riga = [&](int i) { return TestiDellaRiga(sup, Y0 + H * i, X0 + 1300, X0 + 1650); };
    const std::map<int, std::vector<std::string>> attese{
        {1, {}},     {2, {}},  {3, {"R"}},  {4, {}},  {7, {"R"}}, {8, {}},
        {10, {"R"}}, {11, {}}, {12, {"-"}}, {13, {}}, {14, {}}};
    for (const auto& [i, testi] : attese)
        EXPECT_EQ(riga(i), testi) << "riga " << i;
    EXPECT_EQ(Cella(sup, 1, 350), "10°05'09''");
    EXPECT_EQ(Cella(sup, 13, 0), "Asc");
    EXPECT_EQ(Cella(sup, 13, 350), "10°04'");
    EXPECT_EQ(Cella(sup, 14, 0), "MC");
    EXPECT_EQ(Cella(sup, 14, 350), "11°00'");
    // Cusps 2, 3, FC, 5, 6, Dis, 8, 9, 11, 12 from row 15; II at 40 is 10°00' Toro, IV opposite
    // the MC.
    std::string etichette;
    for (int n = 0; n < 10; ++n)
        etichette += Cella(sup, 15 + n, 0) + " ";
    EXPECT_EQ(etichette, "2 3 FC 5 6 Dis 8 9 11 12 ");
    EXPECT_EQ(Cella(sup, 15, 350), "10°00'");
    EXPECT_EQ(Cella(sup, 17, 350), "11°00'");
    EXPECT_TRUE(
        Contiene(sup.figure, FigureDelGlifo(GlifoSegno(3), 200, X0 + 1300, Y0 + H * 17, Nero, 2)))
        << "FC in Cancro";
}

namespace {

// Aspects at orb 2.5 among the majors, worked out by hand: Sole-Luna 60, Luna-Saturno 92,
// Mercurio-Nodo 88, Mercurio-Asc 59, Marte-Lilith 121, Saturno-Lilith 62, Nettuno-Asc 88.
const std::array<double, 12> Aspettati{5, 65, 17, 40, 150, 293, 333, 207, 230, 356, 105, 271};
const std::array<double, 6> CuspidiAspettati{318, 350, 20, 82, 110, 140};

// The aspect names of the list, row by row (the texts between the glyphs).
std::vector<std::vector<std::string>> ListaAspetti(const SuperficieRegistrata& sup) {
    std::vector<std::vector<std::string>> righe;
    for (int r = 1; r <= 13; ++r) {
        std::vector<std::string> riga;
        for (const std::string& t : TestiDellaRiga(sup, Y0 + 3900 + H * r, X0 + 1700, X0 + 10500))
            if (t != "  " && t != "Asc" && t != "MC") riga.push_back(t);
        if (!riga.empty()) righe.push_back(riga);
    }
    return righe;
}

bool SulCerchio(const Figura& f, double r) {
    return Vicino(std::hypot(f.x1 - 3700, f.y1 - 3650), r) &&
           Vicino(std::hypot(f.x2 - 3700, f.y2 - 3650), r) &&
           !(Vicino(f.x1, f.x2) && Vicino(f.y1, f.y2));
}

int LineeAspetto(const SuperficieRegistrata& sup) {
    int n = 0;
    for (const Figura& f : DelTipo(sup.figure, Figura::Linea))
        if (SulCerchio(f, 2450)) ++n;
    return n;
}

} // namespace

TEST(PaginaStampa, ElencoAspettiConESenzaDisegno) {
    auto p = PosizioniDiProva(Aspettati, CuspidiAspettati);
    OpzioniPagina o = Opzioni();
    o.DisegnaAspetti = true;
    auto con = Componi(p, o);
    const std::vector<std::vector<std::string>> attese{
        {" SESTILE "}, {" QUADRATURA "}, {" QUADRATURA ", " SESTILE "},
        {" TRIGONO "}, {" SESTILE "},    {" QUADRATURA "}};
    EXPECT_EQ(ListaAspetti(con), attese);
    EXPECT_EQ(Cella(con, 15, 1700), "Aspetti Selezionati (5), Orbita 2,5");
    EXPECT_EQ(LineeAspetto(con), 7);
    // The last entry ends on the Ascendant, written as text: glyph, name, "Asc", two blanks.
    EXPECT_EQ(TestiDellaRiga(con, Y0 + 3900 + H * 6, X0 + 1700, X0 + 10500),
              (std::vector<std::string>{" QUADRATURA ", "Asc", "  "}));

    o.DisegnaAspetti = false;
    auto senza = Componi(p, o);
    EXPECT_TRUE(ListaAspetti(senza).empty());
    EXPECT_EQ(LineeAspetto(senza), 0);

    // Switched off, the sextiles go.
    o.DisegnaAspetti = true;
    o.Aspetti.AspettoAttivo[1] = 0;
    auto senzaSestili = Componi(p, o);
    EXPECT_EQ(ListaAspetti(senzaSestili),
              (std::vector<std::vector<std::string>>{
                  {" QUADRATURA "}, {" QUADRATURA "}, {" TRIGONO "}, {" QUADRATURA "}}));
    EXPECT_EQ(Cella(senzaSestili, 15, 1700), "Aspetti Selezionati (4), Orbita 2,5");
    for (auto& a : o.Aspetti.AspettoAttivo)
        a = -1;
    o.Aspetti.Orbita = 3;
    EXPECT_EQ(Cella(Componi(p, o), 15, 1700), "Aspetti Selezionati (17), Orbita 3");
}

TEST(PaginaStampa, TestataDelTema) {
    // Padova, 10 April 1987 at 19:30 summer time: 17:30 UT. Local sidereal time from Meeus,
    // Astronomical Algorithms, example 12.b (8h34m57.09s at 19:21 UT that day): 6h43m38.9s at
    // 17:30 UT, -0.24 s of nutation, +47m32s for 11°53' east: 7h31m10s. JD 2446896.229.
    Tema t;
    t.Nome = "Mario Rossi";
    t.City = "Padova";
    t.Day = GiornoGiuliano(1987, 4, 10);
    t.OraL = 19.5;
    t.Estiva = 1;
    t.Fuso = -1;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    auto sup = Componi(PosizioniDiProva(Dignitosi, CuspidiComuni), Opzioni(), t);
    struct Riga {
        double y;
        const char* testo;
    };
    const Riga righe[] = {{240, "TEMA NATALE   -  stampa  01/02/2026"},
                          {590, "Mario Rossi"},
                          {810, "Padova"},
                          {1030, "10/4/1987   19:30:0[Estiva]  1"},
                          {1470, " [Longitudine]  11E53 0''"},
                          {1690, " [Latitudine]     45N24 0''"},
                          {1910, "[Fuso ]  E1"},
                          {2350, " [TsL]     7:31:10"},
                          {2570, " [JD]      2.446.896,23"}};
    for (const Riga& r : righe)
        EXPECT_EQ(TestoIn(sup, 7100, r.y), r.testo) << r.y;
    EXPECT_EQ(TestoIn(sup, 7100, 1250) + TestoIn(sup, 7100, 2130), "");

    const char* titoli[5] = {"", "TEMA NATALE", "TRANSITO", "RIVOLUZIONE", "DIREZIONE"};
    for (int che = 1; che <= 4; ++che) {
        OpzioniPagina o = Opzioni();
        o.CheStampa = che;
        auto s = Componi(PosizioniDiProva(Dignitosi, CuspidiComuni), o, t);
        EXPECT_EQ(TestoIn(s, 7100, 240), std::string(titoli[che]) + "   -  stampa  01/02/2026");
    }
}

TEST(PaginaStampa, RiquadroDellaLunaTestateEPiede) {
    struct Caso {
        std::int16_t lunaGeo;
        const char* seconda;
        const char* terza;
    };
    const Caso casi[] = {{1, "       ", "       Pianeti GeoCentrici"},
                         {0, "       Luna TopoCentrica ", "    Altri Pianeti GeoCentrici"}};
    for (const Caso& c : casi) {
        OpzioniPagina o = Opzioni();
        o.LunaGeo = c.lunaGeo;
        auto sup = Componi(PosizioniDiProva(Dignitosi, CuspidiComuni), o);
        EXPECT_EQ(TestoIn(sup, 7600, 6750), "Zodiaco Tropico - Case di Placido ");
        EXPECT_EQ(TestoIn(sup, 7600, 6970), c.seconda);
        EXPECT_EQ(TestoIn(sup, 7600, 7190), c.terza);
    }
    // The heading reads "Longitudini " with a blank on the form only.
    EXPECT_EQ(Cella(Componi(PosizioniDiProva(Dignitosi, CuspidiComuni)), 0, 0), "Longitudini");
    OpzioniPagina o = Opzioni();
    o.SulModulo = true;
    auto modulo = Componi(PosizioniDiProva(Dignitosi, CuspidiComuni), o);
    EXPECT_EQ(Cella(modulo, 0, 0), "Longitudini ");
    EXPECT_EQ(Cella(modulo, 0, 3250), "Domicili");
    // The footer: the program, its version as three numbers, and the contact line below.
    std::string piede = TestoIn(modulo, X0, Y0 + 7700);
    ASSERT_EQ(piede.rfind("Vesmo - Versione ", 0), 0u) << piede;
    EXPECT_EQ(std::count(piede.begin(), piede.end(), '.'), 2);
    EXPECT_FALSE(TestoIn(modulo, X0, Y0 + 7920).empty());
}

TEST(PaginaStampa, RuotaInNeroSenzaRiempimenti) {
    OpzioniPagina o = Opzioni();
    o.DisegnaAspetti = true;
    SuperficieRegistrata sup;
    auto punti =
        DisegnaRuotaStampa(sup, TemaDiProva(), PosizioniDiProva(Aspettati, CuspidiAspettati), o);
    for (const Figura& f : sup.figure)
        EXPECT_TRUE(f.colore == Nero && f.tipoRiempimento == 1) << "tutto nero, niente riempito";
    // The bodies' glyphs with the glyphs' pen: the Sun's on ring 1 at 5 degrees.
    double r = 2450 - 350, a = Radianti(360 - 318 + 5);
    EXPECT_TRUE(
        Contiene(sup.figure, FigureDelGlifo(GlifoCorpo(RuotaSole), 350, PolareX(3700, r, a) - 175,
                                            PolareY(3650, r, a) - 175, Nero, 2)));
    // The Ascendant (318) at the left: its aspect point on the circle R2 left of the centre.
    EXPECT_TRUE(Vicino(punti[13].X, 3700 - 2450) && Vicino(punti[13].Y, 3650));
}

TEST(PaginaStampa, LeDueParti) {
    // The second bitmap: the table block from the corner, then the footer.
    auto p = PosizioniDiProva(Dignitosi, CuspidiComuni);
    SuperficieRegistrata bassa;
    DisegnaParteBassa(bassa, TemaDiProva(), p, Opzioni(), 0, 0);
    EXPECT_EQ(TestoIn(bassa, 4550, H), "Cardinali 7");
    EXPECT_EQ(TestoIn(bassa, 0, 7700).rfind("Vesmo", 0), 0u);
    // The first: wheel, header and box, nothing of the table.
    SuperficieRegistrata alta;
    DisegnaParteAlta(alta, TemaDiProva(), p, Opzioni());
    EXPECT_EQ(TestoIn(alta, 7600, 6750), "Zodiaco Tropico - Case di Placido ");
    for (const Figura& f : alta.figure)
        EXPECT_LT(f.y1, 7500) << f.testo;
}

TEST(PaginaStampa, TemaVuoto) {
    // An empty slot prints a blank record: every point at 0 Ariete, nothing left out.
    auto sup = Componi(Posizioni(), Opzioni(), Tema());
    EXPECT_EQ(Cella(sup, 12, 350), "00°00'00''");
    EXPECT_EQ(Cella(sup, 13, 350), "00°00'");
    // Ariete: the Sun exalted, Venus exiled by day, Mars at home by night, Saturn fallen.
    const std::map<int, std::string> conti{{1, "Cardinali 14"},   {4, "Fuoco 14"},
                                           {8, "Domicilio 1"},    {9, "Esilio 1"},
                                           {10, "Esaltazione 1"}, {11, "Caduta 1"}};
    for (const auto& [riga, testo] : conti)
        EXPECT_EQ(Cella(sup, riga, 4550), testo) << riga;
}
