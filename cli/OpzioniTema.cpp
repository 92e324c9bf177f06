#include "cli/OpzioniTema.h"

#include <cmath>
#include <regex>

#include "core/Aritmetica.h"

namespace vesmo::cli {

std::vector<std::string> OpzioniDelTema() {
    return {"data", "ora", "lon", "lat", "fuso", "estiva", "nome", "luna", "city", "nazione", "db"};
}

namespace {

// Degrees (with sign by the letter) of a coordinate text, or NaN when it is not one.
double Coordinata(const std::string& testo, char neg, char pos, double limite) {
    std::string lettere =
        std::string(1, neg) + pos + static_cast<char>(neg + 32) + static_cast<char>(pos + 32);
    // 11E53, 11E53'30, 11E53 30.5
    std::regex sessagesimale("^(\\d{1,3})([" + lettere +
                             "])(\\d{2})(?:['\\s](\\d{1,2}(?:\\.\\d+)?))?$");
    // 11.8818E
    std::regex decimale("^(\\d{1,3}(?:\\.\\d+)?)([" + lettere + "])$");
    std::smatch m;
    double gradi;
    bool negativo;
    if (std::regex_match(testo, m, sessagesimale)) {
        double primi = std::stod(m[3]);
        double secondi = m[4].matched ? std::stod(m[4]) : 0;
        if (primi >= 60 || secondi >= 60) return std::nan("");
        gradi = std::stod(m[1]) + primi / 60 + secondi / 3600;
        negativo = std::toupper(static_cast<unsigned char>(m[2].str()[0])) == neg;
    } else if (std::regex_match(testo, m, decimale)) {
        gradi = std::stod(m[1]);
        negativo = std::toupper(static_cast<unsigned char>(m[2].str()[0])) == neg;
    } else {
        return std::nan("");
    }
    if (gradi > limite) return std::nan("");
    return negativo ? -gradi : gradi;
}

} // namespace

double LeggiLongitudine(const std::string& testo) {
    double g = Coordinata(testo, 'E', 'W', 180);
    if (std::isnan(g))
        throw ErroreArgomenti("longitudine non valida: '" + testo +
                              "' (attesa come 11E53, 11E53'30 o 11.8818E, al massimo 180 gradi)");
    // The sexagesimal form is read as the entry form reads it.
    static const std::regex sessagesimale("^\\d{1,3}[EWew]\\d{2}.*$");
    if (std::regex_match(testo, sessagesimale)) return LonDaTesto(testo, 0);
    return g / 15;
}

double LeggiLatitudine(const std::string& testo) {
    double g = Coordinata(testo, 'S', 'N', 90);
    if (std::isnan(g))
        throw ErroreArgomenti("latitudine non valida: '" + testo +
                              "' (attesa come 45N24, 45N24'30 o 45.4152N, al massimo 90 gradi)");
    static const std::regex sessagesimale("^\\d{1,3}[NSns]\\d{2}.*$");
    if (std::regex_match(testo, sessagesimale)) return LatDaTesto(testo, 0);
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
