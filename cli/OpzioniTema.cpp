#include "cli/OpzioniTema.h"

#include <cctype>
#include <cmath>
#include <cstdlib>

#include "core/Aritmetica.h"

namespace vesmo::cli {

std::vector<std::string> OpzioniDelTema() {
    return {"data", "ora", "lon", "lat", "fuso", "estiva", "nome", "luna", "city", "nazione", "db"};
}

namespace {

// Degrees (with sign by the letter) of a coordinate text, or NaN when it is not one:
// 11E53, 11E53'30, 11E53 30.5 (sexagesimal) or 11.8818E (decimal).
double Coordinata(const std::string& testo, char neg, char pos, double limite,
                  bool& sessagesimale) {
    auto lettera = [&](std::size_t i) {
        if (i >= testo.size()) return '\0';
        char c = static_cast<char>(std::toupper(static_cast<unsigned char>(testo[i])));
        return c == neg || c == pos ? c : '\0';
    };
    // A whole number of 1-3 digits, then a fraction when one follows the point.
    auto decimale = [&](std::size_t& i, std::size_t massimoIntere) {
        std::size_t intere = ContaCifre(testo, i);
        if (intere == 0 || intere > massimoIntere) return std::nan("");
        std::size_t fine = i + intere;
        if (fine < testo.size() && testo[fine] == '.') {
            std::size_t decimali = ContaCifre(testo, fine + 1);
            if (decimali == 0) return std::nan("");
            fine += 1 + decimali;
        }
        // Only the digits read: "11E53" is no exponent here.
        double v = std::strtod(testo.substr(i, fine - i).c_str(), nullptr);
        i = fine;
        return v;
    };
    std::size_t i = 0;
    double gradi = decimale(i, 3);
    char segno = lettera(i);
    if (std::isnan(gradi) || segno == '\0') return std::nan("");
    ++i;
    sessagesimale = i < testo.size();
    if (sessagesimale) {
        // Whole degrees, two digits of minutes, then the seconds after ' or a blank.
        if (ContaCifre(testo, 0) + 1 != i || ContaCifre(testo, i) != 2) return std::nan("");
        double primi = (testo[i] - '0') * 10 + (testo[i + 1] - '0');
        i += 2;
        double secondi = 0;
        if (i < testo.size()) {
            if (testo[i] != '\'' && !std::isspace(static_cast<unsigned char>(testo[i])))
                return std::nan("");
            ++i;
            secondi = decimale(i, 2);
            if (std::isnan(secondi) || i != testo.size()) return std::nan("");
        }
        if (primi >= 60 || secondi >= 60) return std::nan("");
        gradi += primi / 60 + secondi / 3600;
    }
    if (gradi > limite) return std::nan("");
    return segno == neg ? -gradi : gradi;
}

} // namespace

double LeggiLongitudine(const std::string& testo) {
    bool sessagesimale = false;
    double g = Coordinata(testo, 'E', 'W', 180, sessagesimale);
    if (std::isnan(g))
        throw ErroreArgomenti("longitudine non valida: '" + testo +
                              "' (attesa come 11E53, 11E53'30 o 11.8818E, al massimo 180 gradi)");
    // The sexagesimal form is read as the entry form reads it.
    if (sessagesimale) return LonDaTesto(testo, 0);
    return g / 15;
}

double LeggiLatitudine(const std::string& testo) {
    bool sessagesimale = false;
    double g = Coordinata(testo, 'S', 'N', 90, sessagesimale);
    if (std::isnan(g))
        throw ErroreArgomenti("latitudine non valida: '" + testo +
                              "' (attesa come 45N24, 45N24'30 o 45.4152N, al massimo 90 gradi)");
    if (sessagesimale) return LatDaTesto(testo, 0);
    return g;
}

Tema LeggiTema(const Argomenti& a) {
    Tema t;
    Data d = LeggiData(a.Richiesta("data"));
    Ora o = LeggiOra(a.Richiesta("ora"));
    if (auto city = a.Opzione("city")) {
        // The place, its zone and its summer time come from the places database.
        for (const char* fuori : {"lon", "lat", "fuso", "estiva"})
            if (a.Opzione(fuori))
                throw ErroreArgomenti(std::string("--") + fuori + " non va con --city");
        t = RisolviLuogo(a, *city, a.Opzione("nazione"), d, o).tema;
    } else {
        if (a.Opzione("nazione")) throw ErroreArgomenti("--nazione va con --city");
        t.Lon = LeggiLongitudine(a.Richiesta("lon"));
        t.Lat = LeggiLatitudine(a.Richiesta("lat"));
        t.Fuso = LeggiNumero(a.Richiesta("fuso"), "fuso");
        t.Estiva = LeggiNumero(a.Opzione("estiva").value_or("0"), "estiva");
        if (std::fabs(t.Fuso) > 15)
            throw ErroreArgomenti("fuso fuori da -15..15 ore: " + a.Richiesta("fuso"));
        if (t.Estiva < -3 || t.Estiva > 3)
            throw ErroreArgomenti("estiva fuori da -3..3 ore: " + *a.Opzione("estiva"));
    }
    t.Nome = a.Opzione("nome").value_or("Tema");
    t.Day = GiornoGiuliano(d.anno, d.mese, d.giorno);
    t.OraL = GradiDecimali(o.ore, o.minuti, o.secondi);
    return t;
}

std::int16_t LeggiLuna(const Argomenti& a) {
    std::string l = a.Opzione("luna").value_or("geo");
    if (l == "geo") return 1;
    if (l == "topo") return 0;
    throw ErroreArgomenti("luna non valida: '" + l + "' (geo o topo)");
}

} // namespace vesmo::cli
