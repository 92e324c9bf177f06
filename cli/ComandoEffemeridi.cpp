// vesmo-cli effemeridi: the geocentric positions of the ephemeris at one instant, taken on the
// TU scale as the chart calculation takes it, as a table or as JSON.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <string>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "core/Testo.h"
#include "ephemeris/Effemeridi.h"

namespace vesmo::cli {

namespace {

// Sign name, degrees, minutes and whole seconds in the sign: "Scorp  19°15'02"".
std::string TestoLongitudine(double lon) {
    std::string segno;
    double g, m, s, dec;
    SegnoGradi(lon, segno, g, m, s, dec, 0);
    char buf[64];
    std::snprintf(buf, sizeof buf, "%-7s%2.0f°%02.0f'%02.0f\"", segno.c_str(), g, m, Fix(s));
    return buf;
}

std::string Colonna(std::string testo, std::size_t larghezza) {
    std::size_t n = LunghezzaCaratteri(testo);
    if (n < larghezza) testo.insert(0, larghezza - n, ' ');
    return testo;
}

std::string Riga(const std::string& nome, double lon, const std::string& lat,
                 const std::string& r) {
    std::string riga = nome;
    riga.resize(12, ' ');
    return riga + TestoLongitudine(lon) + Colonna(lat, 11) + Colonna(r, 12);
}

} // namespace

int ComandoEffemeridi(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"jd", "json"});
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("uso: vesmo-cli effemeridi --jd JD [--json]");
    std::string testoJd = a.Richiesta("jd");
    double jd = LeggiGiornoGiuliano(testoJd, "giorno giuliano");

    MessaggiConsole messaggi(Avvisi());
    Effemeridi e = CalcolaEffemeridi(jd, true, messaggi);

    if (a.Flag("json")) {
        JsonOggetto j;
        j.Numero("JD", jd);
        for (const CorpoEffemeride& c : e.corpi) {
            JsonOggetto o;
            o.Numero("Lo", c.Lo).Numero("LaEc", c.LaEc);
            if (std::string(c.nome) != "Luna") o.Numero("R", c.R);
            j.Campo(c.nome, o.str());
        }
        j.Campo("NodoLuna", JsonOggetto().Numero("Lo", e.NodoLuna).str());
        j.Campo("LilithMedia", JsonOggetto().Numero("Lo", e.LilithMedia).str());
        j.Campo("LilithVera",
                JsonOggetto().Numero("Lo", e.LilithVeraLo).Numero("LaEc", e.LilithVeraLaEc).str());
        j.Numero("TSL0", e.TSL0).Numero("Obliquita", e.Obliquita);
        out << j.str() << '\n';
        return 0;
    }

    out << "JD " << FormatoNumero(jd, "0.00000") << " (TU)\n";
    out << "Corpo       Lo              " << Colonna("LaEc", 11) << Colonna("R", 12) << '\n';
    for (const CorpoEffemeride& c : e.corpi) {
        std::string r = std::string(c.nome) == "Luna" ? "" : FormatoNumero(c.R, "#0.000000");
        out << Riga(c.nome, c.Lo, FormatoNumero(c.LaEc, "#0.0000°"), r) << '\n';
    }
    out << Riga("NodoLuna", e.NodoLuna, "", "") << '\n';
    out << Riga("LilithMedia", e.LilithMedia, "", "") << '\n';
    out << Riga("LilithVera", e.LilithVeraLo, FormatoNumero(e.LilithVeraLaEc, "#0.0000°"), "")
        << '\n';
    double h, m, s;
    GradiPrimiSecondi(e.TSL0, h, m, s);
    char buf[64];
    std::snprintf(buf, sizeof buf, "%02.0f:%02.0f:%02.0f", h, m, Fix(s));
    out << "TSL0        " << buf << '\n';
    out << "Obliquita   " << FormatoNumero(e.Obliquita, "#0.000000°") << '\n';
    return 0;
}

} // namespace vesmo::cli
