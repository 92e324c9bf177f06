#include "ephemeris/TestoDatiTema.h"

#include <cmath>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/Sole.h"

namespace vesmo {

namespace {

// hours ":" minutes ":" whole seconds.
std::string TestoOre(double ore) {
    double h, m, s;
    GradiPrimiSecondi(ore, h, m, s);
    return TestoNumero(h) + ":" + TestoNumero(m) + ":" + TestoNumero(Fix(s));
}

// degrees, letter, minutes, blank, whole seconds.
std::string TestoAngolo(double gradi, const char* negativo, const char* positivo) {
    const char* lettera = gradi < 0 ? negativo : (gradi > 0 ? positivo : " ");
    double d, m, s;
    GradiPrimiSecondi(std::fabs(gradi), d, m, s);
    return TestoNumero(d) + lettera + TestoNumero(m) + " " + TestoNumero(Fix(s));
}

} // namespace

PartiDatiTema CalcolaPartiDatiTema(const Tema& tema) {
    PartiDatiTema p;
    // A clock time outside 0..24 is shown on the neighbouring day.
    double day = tema.Day;
    double ora = tema.OraL;
    if (ora < 0) {
        ora += 24;
        day -= 1;
    } else if (ora >= 24) {
        ora -= 24;
        day += 1;
    }
    float anno, mese, giorno;
    DataDaGiuliano(day, anno, mese, giorno);
    p.Data = TestoNumero(Fix(giorno)) + "/" + TestoNumero(mese) + "/" + TestoNumero(anno);
    p.Ora = TestoOre(ora);
    p.Estiva = TestoNumero(tema.Estiva);

    p.Longitudine = TestoAngolo(tema.Lon * 15, "E", "O");
    p.Latitudine = TestoAngolo(tema.Lat, "S", "N");

    double tsl = TempoSiderale(tema.Day, tema.TU(), 1) - tema.Lon;
    if (tsl >= 24)
        tsl -= 24;
    else if (tsl < 0)
        tsl += 24;
    p.TSL = TestoOre(tsl);
    p.JD = FormatoNumero(tema.Day + tema.TU() / 24, "#####,###.##");

    std::string fuso = TestoNumero(std::fabs(tema.Fuso));
    if (tema.Fuso < 0)
        fuso = "E" + fuso;
    else if (tema.Fuso > 0)
        fuso = "O" + fuso;
    p.Fuso = TagliaOAllunga(fuso, 5);
    return p;
}

void TestoDatiTema(const Tema& tema, std::string& testo1, std::string& testo2, std::string& testo3,
                   std::string& testo4) {
    PartiDatiTema p = CalcolaPartiDatiTema(tema);
    testo1 = p.Data + std::string(7, ' ') + p.Ora + std::string(8, ' ') + p.Estiva;
    testo2 = p.Longitudine + std::string(6, ' ') + p.Latitudine;
    testo3 = p.TSL + std::string(10, ' ') + p.JD;
    testo4 = p.Fuso;
}

} // namespace vesmo
