// vesmo-cli tema: a chart cast from typed birth data, as the positions table shows it, or JSON.
#include <iostream>
#include <sstream>

#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "cli/UscitaTema.h"
#include "core/Testo.h"
#include "ephemeris/TestoDatiTema.h"
#include "presentation/TabellaPosizioni.h"

namespace vesmo::cli {

namespace {

std::string JsonVariante(const Variante& v) {
    return v.ETesto() ? JsonTesto(v.Testo()) : JsonNumero(v.Numero());
}

std::string JsonPosizione(const Posizione& p) {
    JsonOggetto o;
    o.Numero("Lo", p.Lo)
        .Numero("LaEc", p.LaEc)
        .Campo("AR", JsonVariante(p.AR))
        .Numero("De", p.De)
        .Campo("AOb", JsonVariante(p.AOb))
        .Numero("LNd", p.LNd)
        .Numero("Mv", p.Mv)
        .Numero("Ca", p.Ca);
    return o.str();
}

std::string JsonTema(const Tema& t) {
    JsonOggetto o;
    o.Numero("cNaz", t.cNaz)
        .Testo("Nome", t.Nome.Valore())
        .Testo("Stato", t.Stato.Valore())
        .Testo("City", t.City.Valore())
        .Numero("Day", t.Day)
        .Numero("OraL", t.OraL)
        .Numero("Lon", t.Lon)
        .Numero("Lat", t.Lat)
        .Testo("ZonaSF", t.ZonaSF.Valore())
        .Numero("Fuso", t.Fuso)
        .Numero("Estiva", t.Estiva)
        .Numero("cFusi", t.cFusi)
        .Numero("cEst", t.cEst)
        .Testo("Cmto", t.Cmto);
    return o.str();
}

} // namespace

std::string TemaInJson(const Tema& t, const Case& c, const Posizioni& p) {
    JsonOggetto pos;
    for (const auto& v : CorpiInOrdine)
        pos.Campo(v.nome, JsonPosizione(p.*v.campo));
    pos.Numero("CaseNonDefinite", p.CaseNonDefinite)
        .Campo("Asce", JsonPosizione(p.Asce))
        .Campo("CasaII", JsonPosizione(p.CasaII))
        .Campo("CasaIII", JsonPosizione(p.CasaIII))
        .Campo("MC", JsonPosizione(p.MC))
        .Campo("CasaXI", JsonPosizione(p.CasaXI))
        .Campo("CasaXII", JsonPosizione(p.CasaXII))
        .Campo("LilithMedia", JsonPosizione(p.LilithMedia))
        .Campo("LilithVera", JsonPosizione(p.LilithVera));
    JsonLista cuspidi;
    for (int i = 1; i <= 12; ++i) {
        JsonOggetto o;
        o.Numero("Lo", c[i].Lo)
            .Campo("AR", JsonVariante(c[i].AR))
            .Numero("De", c[i].De)
            .Campo("AOb", JsonVariante(c[i].AOb));
        cuspidi.Valore(o.str());
    }
    JsonLista aspetti;
    for (const auto& a : AspettiDelTema(p, 1, 2.5f)) {
        JsonOggetto o;
        o.Testo("a", NomiPuntiRuota[static_cast<std::size_t>(a.a)])
            .Testo("b", NomiPuntiRuota[static_cast<std::size_t>(a.b)])
            .Testo("Nome", NomiAspetti[static_cast<std::size_t>(a.k)])
            .Numero("Angolo", AngoliAspetti[static_cast<std::size_t>(a.k)])
            .Numero("Scarto", a.scarto);
        aspetti.Valore(o.str());
    }
    JsonOggetto r;
    r.Campo("Tema", JsonTema(t))
        .Numero("TU", t.TU())
        .Numero("JD", t.JD())
        .Campo("Posizioni", pos.str())
        .Campo("Case", cuspidi.str())
        .Campo("Aspetti", aspetti.str());
    return r.str();
}

std::string TemaInTabella(const Tema& t, const Case& c, const Posizioni& p) {
    std::ostringstream out;
    std::string t1, t2, t3, t4;
    TestoDatiTema(t, t1, t2, t3, t4);
    out << t.Nome.Valore() << '\n'
        << t1 << '\n'
        << t2 << '\n'
        << t3 << '\n'
        << "Fuso " << t4 << '\n';
    if (p.CaseNonDefinite) out << "Case di Placido non definite\n";
    out << '\n';
    TabellaPosizioni tab = RiempiTabella(c, p);
    const std::size_t larghezze[] = {10, 8, 15, 4, 6, 18, 15, 15, 18, 17, 12};
    for (const auto& riga : tab.celle) {
        std::string linea;
        for (std::size_t j = 0; j < riga.size(); ++j)
            linea += TagliaOAllunga(riga[j], larghezze[j]) + " ";
        out << SenzaSpaziDestra(linea) << '\n';
    }
    return out.str();
}

int ComandoTema(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    auto ammesse = OpzioniDelTema();
    ammesse.push_back("json");
    a.Consenti(ammesse);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali()[0]);
    Tema t = LeggiTema(a);
    std::int16_t luna = LeggiLuna(a);
    MessaggiConsole messaggi(Avvisi());
    Case c;
    Posizioni p;
    CastaTema(t, c, p, luna, messaggi);
    out << (a.Flag("json") ? TemaInJson(t, c, p) + "\n" : TemaInTabella(t, c, p));
    return 0;
}

} // namespace vesmo::cli
