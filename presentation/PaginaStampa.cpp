#include "presentation/PaginaStampa.h"

#include <cmath>
#include <cstdio>
#include <ctime>

#include "chart/Dignita.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/TestoDatiTema.h"
#include "presentation/Glifi.h"

#ifndef VESMO_VERSIONE
#define VESMO_VERSIONE "0.1.0"
#endif
#ifndef VESMO_SITO
#define VESMO_SITO ""
#endif

namespace vesmo {

namespace {

using G = GeometriaPagina;

// The side of the glyphs in the table block: they stand in a row like a letter.
constexpr double LatoGlifo = 200;
// Where the table ends, on the right and at the bottom.
constexpr double Destra = 10500, Fondo = 7600;

const char* const Quadruplicita[3] = {"Cardinale", "Fisso", "Mobile"};
const char* const Elementi[4] = {"Fuoco", "Terra", "Aria", "Acqua"};
const char* const NomiConti[11] = {"Cardinali ", "Fissi ",       "Mobili ", "Fuoco ",
                                   "Terra ",     "Aria ",        "Acqua ",  "Domicilio ",
                                   "Esilio ",    "Esaltazione ", "Caduta "};

std::string DueCifre(double v) {
    char b[16];
    std::snprintf(b, sizeof b, "%02d", static_cast<int>(v));
    return b;
}

// Degrees, minutes and whole seconds within the sign, with the sign (0..11).
std::string ConSecondi(double lo, int& segno) {
    double g, m, s;
    GradiPrimiSecondi(Norma360(lo, 1), g, m, s);
    int gradi = static_cast<int>(g) % 360;
    segno = gradi / 30;
    return DueCifre(gradi % 30) + "°" + DueCifre(m) + "'" + DueCifre(Fix(s)) + "''";
}

// Degrees and minutes within the sign, rounded to the minute (30 seconds going down); a carry
// into the next sign moves the sign as well.
std::string SoloPrimi(double lo, int& segno) {
    double g, m, s;
    GradiPrimiSecondi(Norma360(lo, 1), g, m, s);
    int primi = static_cast<int>(g) * 60 + static_cast<int>(m) + (s > 30 ? 1 : 0);
    primi %= 360 * 60;
    segno = primi / (30 * 60);
    int nelSegno = primi % (30 * 60);
    return DueCifre(nelSegno / 60) + "°" + DueCifre(nelSegno % 60) + "'";
}

// The dignity's word on the page and the counter it adds to (-1 none).
std::string TestoDignita(int corpo, int segno, int& conto) {
    conto = -1;
    auto trovate = DignitaDelCorpo(corpo - 1, NomiSegni[segno]);
    if (trovate.empty()) return {};
    const DignitaTrovata& d = trovate.front();
    conto = d.tipo;
    const std::string& q = d.qualifica;
    switch (d.tipo) {
    case 0:
        if (q == "(Diurno + Esaltazione)") return "Dom D + Esa";
        if (q == "(Diurno)") return "Domicilio D";
        if (q == "(Notturno)") return "Domicilio N";
        return "Domicilio";
    case 1:
        if (q == "(Diurno + Caduta)") return "Esilio D + Cad";
        if (q == "(Diurno)") return "Esilio D";
        if (q == "(Notturno)") return "Esilio N";
        return "Esilio";
    case 2:
        return "Esaltazione";
    default:
        return "Caduta";
    }
}

// The body of a letter of the symbol font (the rulers of the Ascendant), 0 for none.
int CorpoDellaLettera(const std::string& lettera) {
    for (std::size_t i = 0; i < LettereCorpi.size(); ++i)
        if (lettera == LettereCorpi[i]) return static_cast<int>(i) + 1;
    return 0;
}

void Testo(Superficie& sup, double x, double y, const std::string& t) {
    sup.PennaX(x);
    sup.PennaY(y);
    sup.Stampa(t);
}

void Riquadro(Superficie& sup, double x1, double y1, double x2, double y2) {
    Colore c = sup.ColorePenna();
    sup.Linea(x1, y1, x2, y1, c);
    sup.Linea(x2, y1, x2, y2, c);
    sup.Linea(x2, y2, x1, y2, c);
    sup.Linea(x1, y2, x1, y1, c);
}

// The glyph of row i (1..12), or the text of the Ascendant and the Midheaven; the pen ends
// after it.
void GlifoDellaRiga(Superficie& sup, int riga, double x, double y, int spessore) {
    if (riga >= 13) {
        Testo(sup, x, y, riga == 13 ? "Asc" : "MC");
        return;
    }
    sup.SpessorePenna(spessore);
    sup.PennaX(x);
    sup.PennaY(y);
    DisegnaGlifo(sup, GlifoCorpo(riga), LatoGlifo, x, y, sup.ColorePenna());
    sup.SpessorePenna(1);
    sup.PennaX(x + LatoGlifo);
    sup.PennaY(y);
}

double LarghezzaGlifoRiga(const Superficie& sup, int riga) {
    if (riga >= 13) return sup.LarghezzaTesto(riga == 13 ? "Asc" : "MC");
    return LatoGlifo;
}

void GlifoSegnoPagina(Superficie& sup, int segno, double x, double y) {
    DisegnaGlifo(sup, GlifoSegno(segno), LatoGlifo, x, y, sup.ColorePenna());
    sup.SpessorePenna(1);
}

} // namespace

const char* TitoloPagina(int cheStampa) {
    switch (cheStampa) {
    case 2:
        return "TRANSITO";
    case 3:
        return "RIVOLUZIONE";
    case 4:
        return "DIREZIONE";
    default:
        return "TEMA NATALE";
    }
}

std::array<std::string, 3> RighePianeti(std::int16_t lunaGeo) {
    if (lunaGeo == 1)
        return {"Zodiaco Tropico - Case di Placido ", "       ", "       Pianeti GeoCentrici"};
    return {"Zodiaco Tropico - Case di Placido ", "       Luna TopoCentrica ",
            "    Altri Pianeti GeoCentrici"};
}

std::array<std::string, 2> PiedePagina() {
    std::string sito = VESMO_SITO;
    return {std::string("Vesmo - Versione ") + VESMO_VERSIONE,
            sito.empty() ? std::string("Vesmo, software libero: GPL-3.0-or-later")
                         : "Vesmo in rete: " + sito};
}

std::string DataOdierna() {
    std::time_t ora = std::time(nullptr);
    std::tm t{};
    localtime_r(&ora, &t);
    char b[48];
    std::snprintf(b, sizeof b, "%02d/%02d/%04d", t.tm_mday, t.tm_mon + 1, t.tm_year + 1900);
    return b;
}

ContenutoPagina CalcolaContenutoPagina(const Tema& tema, const Posizioni& pos,
                                       const OpzioniPagina& o) {
    ContenutoPagina c;
    auto punti = PuntiRuota(pos, o.LunaNeraVera);
    for (int i = 1; i <= 14; ++i) {
        const Posizione& p = *punti[static_cast<std::size_t>(i - 1)];
        RigaPagina& r = c.Righe[static_cast<std::size_t>(i)];
        r.Longitudine = i >= 13 ? SoloPrimi(p.Lo, r.Segno) : ConSecondi(p.Lo, r.Segno);
        if (i >= 3 && i <= 10 && p.Mv == -1) r.Moto = "R";
        if (i == 12) r.Moto = "-";
        r.Quadruplicita = Quadruplicita[r.Segno % 3];
        r.Elemento = Elementi[r.Segno % 4];
        ++c.Quadruplicita[static_cast<std::size_t>(r.Segno % 3)];
        ++c.Elementi[static_cast<std::size_t>(r.Segno % 4)];
        if (i <= 10) {
            int conto;
            r.Dignita = TestoDignita(i, r.Segno, conto);
            if (conto >= 0) ++c.Dignita[static_cast<std::size_t>(conto)];
        }
    }

    Domicili d = CalcolaDomicili(pos);
    c.ReggenteDiurno = CorpoDellaLettera(d.ReggenteDiurno);
    c.ReggenteNotturno = CorpoDellaLettera(d.ReggenteNotturno);

    Case cuspidi = CaseDellaRuota(tema, pos);
    for (int i = 2; i <= 12; ++i) {
        if (i == 10) continue;
        ContenutoPagina::Cuspide k;
        k.Etichetta = i == 4 ? "FC" : i == 7 ? "Dis" : std::to_string(i);
        k.Longitudine = SoloPrimi(cuspidi[i].Lo, k.Segno);
        c.Cuspidi.push_back(k);
    }

    for (auto attivo : o.Aspetti.AspettoAttivo)
        if (attivo) ++c.NumAspetti;
    if (o.DisegnaAspetti) {
        for (int i = 1; i <= 14; ++i) {
            for (int j = i + 1; j <= 14; ++j) {
                double dist = DistanzaAspetto(punti[static_cast<std::size_t>(i - 1)]->Lo,
                                              punti[static_cast<std::size_t>(j - 1)]->Lo);
                for (int k : ProvaAspetto(dist, o.Aspetti.Orbita))
                    if (o.Aspetti.AspettoAttivo[static_cast<std::size_t>(k)])
                        c.Aspetti.push_back({i, j, k});
            }
        }
    }
    return c;
}

PuntiDellaRuota DisegnaRuotaStampa(Superficie& sup, const Tema& tema, const Posizioni& pos,
                                   const OpzioniPagina& o) {
    OpzioniRuota r;
    r.AngoloRuota = 360 - pos.Asce.Lo; // RotazioneStampa: the Ascendant at the left
    r.DisegnaAspetti = o.DisegnaAspetti;
    r.Aspetti = o.Aspetti;
    r.LunaNeraVera = o.LunaNeraVera;
    r.BiancoNero = true;
    r.SpessoreGlifi = o.SpessoreGlifi;
    r.Geometria.CentroX = G::CentroX;
    r.Geometria.CentroY = G::CentroY;
    sup.ColorePenna(Nero);
    sup.SpessorePenna(1);
    return DisegnaRuota(sup, tema, pos, r);
}

void DisegnaTestataStampa(Superficie& sup, const Tema& tema, const OpzioniPagina& o) {
    sup.ColorePenna(Nero);
    sup.SpessorePenna(1);
    Riquadro(sup, 7050, 200, 7050 + 3650, 200 + 2700);
    sup.Linea(7050, 460, 7050 + 3650, 460, Nero);
    Testo(sup, 7100, 240, std::string(TitoloPagina(o.CheStampa)) + "   -  stampa  " + o.DataStampa);
    Testo(sup, 7100, 590, SenzaSpaziDestra(tema.Nome.str()));
    Testo(sup, 7100, 590 + G::PassoTesto, SenzaSpaziDestra(tema.City.str()));

    PartiDatiTema p = CalcolaPartiDatiTema(tema);
    const std::string righe[8] = {p.Data + "   " + p.Ora + "[Estiva]  " + p.Estiva,
                                  "",
                                  " [Longitudine]  " + p.Longitudine + "''",
                                  " [Latitudine]     " + p.Latitudine + "''",
                                  "[Fuso ]  " + SenzaSpaziDestra(p.Fuso),
                                  "",
                                  " [TsL]     " + p.TSL,
                                  " [JD]      " + p.JD};
    double y = 590 + 2 * G::PassoTesto;
    for (const std::string& r : righe) {
        if (!r.empty()) Testo(sup, 7100, y, r);
        y += G::PassoTesto;
    }
}

void DisegnaRiquadroPianeti(Superficie& sup, const OpzioniPagina& o) {
    sup.ColorePenna(Nero);
    sup.SpessorePenna(1);
    Riquadro(sup, 7050, 6588, 7050 + 3650, 6588 + 900);
    double y = 6750;
    for (const std::string& r : RighePianeti(o.LunaGeo)) {
        Testo(sup, 7600, y, r);
        y += G::PassoTesto;
    }
}

void RigheTabellaStampa(Superficie& sup, const ContenutoPagina& c, const OpzioniPagina& o,
                        double x0, double y0) {
    const double H = G::AltezzaRiga;
    auto testo = [&](double x, double y, const std::string& t) { Testo(sup, x0 + x, y0 + y, t); };
    // The frame, the heading row and its words.
    Riquadro(sup, x0 - 50, y0 - 20, x0 + Destra, y0 + Fondo);
    Riquadro(sup, x0 - 50, y0 - 20, x0 + Destra, y0 + 240);
    testo(0, 0, o.SulModulo ? "Longitudini " : "Longitudini");
    testo(3250, 0, "Domicili");
    // The fourteen rows, and the rule that parts the longitudes from the qualities, from the
    // first row's top to the bottom (it also parts the cusps from the aspects).
    sup.Linea(x0 + 1650, y0 + H, x0 + 1650, y0 + Fondo, Nero);
    for (int i = 1; i <= 14; ++i) {
        const RigaPagina& r = c.Righe[static_cast<std::size_t>(i)];
        const double y = H * i;
        GlifoDellaRiga(sup, i, x0, y0 + y, o.SpessoreGlifi);
        testo(350, y, r.Longitudine);
        GlifoSegnoPagina(sup, r.Segno, x0 + 1300, y0 + y);
        if (!r.Moto.empty()) testo(1520, y, r.Moto);
        testo(1700, y, r.Quadruplicita);
        testo(2600, y, r.Elemento);
        if (!r.Dignita.empty()) testo(3250, y, r.Dignita);
    }
}

void ContiTabellaStampa(Superficie& sup, const ContenutoPagina& c, const OpzioniPagina& o,
                        double x0, double y0) {
    const double H = G::AltezzaRiga;
    auto testo = [&](double x, double y, const std::string& t) { Testo(sup, x0 + x, y0 + y, t); };
    auto linea = [&](double x1, double y1, double x2, double y2) {
        sup.Linea(x0 + x1, y0 + y1, x0 + x2, y0 + y2, Nero);
    };
    // The counters, in three groups.
    linea(4500, H, 4500, 3900);
    const int conti[11] = {c.Quadruplicita[0], c.Quadruplicita[1], c.Quadruplicita[2],
                           c.Elementi[0],      c.Elementi[1],      c.Elementi[2],
                           c.Elementi[3],      c.Dignita[0],       c.Dignita[1],
                           c.Dignita[2],       c.Dignita[3]};
    for (int n = 0; n < 11; ++n)
        testo(4550, H * (n + 1), NomiConti[n] + std::to_string(conti[n]));
    linea(4500, H * 4, Destra, H * 4);
    linea(4500, H * 8, Destra, H * 8);
    // The rulers of the Ascendant.
    testo(4550, H * 12, "Reggente dell' Ascendente ");
    if (c.ReggenteDiurno)
        GlifoDellaRiga(sup, c.ReggenteDiurno, x0 + 4550, y0 + H * 13, o.SpessoreGlifi);
    testo(4550 + 264, H * 13, "(Diurno) ");
    if (c.ReggenteNotturno)
        GlifoDellaRiga(sup, c.ReggenteNotturno, x0 + 5500, y0 + H * 13, o.SpessoreGlifi);
    testo(5764, H * 13, "(Notturno) ");
}

void CuspidiTabellaStampa(Superficie& sup, const ContenutoPagina& c, double x0, double y0) {
    double y = 3900;
    for (const auto& k : c.Cuspidi) {
        Testo(sup, x0, y0 + y, k.Etichetta);
        Testo(sup, x0 + 350, y0 + y, k.Longitudine);
        GlifoSegnoPagina(sup, k.Segno, x0 + 1300, y0 + y);
        y += G::AltezzaRiga;
    }
}

void AspettiTabellaStampa(Superficie& sup, const ContenutoPagina& c, const OpzioniPagina& o,
                          double x0, double y0) {
    const double H = G::AltezzaRiga;
    // The heading.
    Riquadro(sup, x0 + 1650, y0 + 3900, x0 + Destra, y0 + 3900 + H);
    Testo(sup, x0 + 1700, y0 + 3900,
          "Aspetti Selezionati (" + std::to_string(c.NumAspetti) + "), Orbita " +
              TestoSingolo(o.Aspetti.Orbita));
    // The aspects, flowing from x 1700: a new row for each first point, and where a row is
    // full; what would pass the bottom of the table is left out.
    const double inizio = 1700, fine = Destra - 50;
    double x = inizio;
    double y = 3900 + H;
    int rigaCorrente = 0;
    for (const VoceAspettoPagina& v : c.Aspetti) {
        std::string nome = " " + SenzaSpazi(NomiAspetti[static_cast<std::size_t>(v.k)]) + " ";
        double largo = LarghezzaGlifoRiga(sup, v.a) + sup.LarghezzaTesto(nome) +
                       LarghezzaGlifoRiga(sup, v.b) + sup.LarghezzaTesto("  ");
        if (rigaCorrente != 0 && (v.a != rigaCorrente || x + largo > fine)) {
            x = inizio;
            y += H;
        }
        rigaCorrente = v.a;
        if (y + H > Fondo) break;
        GlifoDellaRiga(sup, v.a, x0 + x, y0 + y, o.SpessoreGlifi);
        sup.Stampa(nome);
        GlifoDellaRiga(sup, v.b, sup.PennaX(), y0 + y, o.SpessoreGlifi);
        sup.Stampa("  ");
        x = sup.PennaX() - x0;
    }
}

void DisegnaTabellaStampa(Superficie& sup, const Tema& tema, const Posizioni& pos,
                          const OpzioniPagina& o, double x0, double y0) {
    const ContenutoPagina c = CalcolaContenutoPagina(tema, pos, o);
    sup.ColorePenna(Nero);
    sup.SpessorePenna(1);
    RigheTabellaStampa(sup, c, o, x0, y0);
    ContiTabellaStampa(sup, c, o, x0, y0);
    CuspidiTabellaStampa(sup, c, x0, y0);
    AspettiTabellaStampa(sup, c, o, x0, y0);
    DisegnaPiedeStampa(sup, x0, y0);
}

void DisegnaPiedeStampa(Superficie& sup, double x0, double y0) {
    auto piede = PiedePagina();
    Testo(sup, x0, y0 + 7700, piede[0]);
    Testo(sup, x0, y0 + 7700 + G::PassoTesto, piede[1]);
}

void DisegnaParteAlta(Superficie& sup, const Tema& tema, const Posizioni& pos,
                      const OpzioniPagina& o) {
    DisegnaRuotaStampa(sup, tema, pos, o);
    DisegnaTestataStampa(sup, tema, o);
    DisegnaRiquadroPianeti(sup, o);
}

void DisegnaParteBassa(Superficie& sup, const Tema& tema, const Posizioni& pos,
                       const OpzioniPagina& o, double x0, double y0) {
    DisegnaTabellaStampa(sup, tema, pos, o, x0, y0);
}

void ComponiPagina(Superficie& sup, const Tema& tema, const Posizioni& pos,
                   const OpzioniPagina& o) {
    DisegnaParteAlta(sup, tema, pos, o);
    DisegnaParteBassa(sup, tema, pos, o, G::X0, G::Y0);
}

Rettangolo AreaPagina() {
    // A4, 11906 x 16838 twips, with the page's drawing (x 150 to 10700, y 200 to 15650) in the
    // middle.
    return {-528, -500, 11906, 16838};
}

Rettangolo AreaParteAlta() {
    return {0, 0, 10800, 7550};
}

Rettangolo AreaParteBassa() {
    return {-100, -100, 10700, 8400};
}

} // namespace vesmo
