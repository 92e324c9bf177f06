// vesmo-cli aspetti: the aspect grid of a chart with itself, or with a second chart cast at the
// same place at another date and time (--con-data, --con-ora): the aspect's name in one cell and,
// below it, the degrees missing to the exact aspect, the difference in declination and the
// parallel mark; --json gives the cells with their numbers.
#include <iostream>
#include <sstream>

#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/TestoDatiTema.h"

namespace vesmo::cli {

namespace {

// The 15 points of the grid by their field names, in the grid's order.
const char* const CampiPunti[15] = {"Sole",     "Luna",        "Mercurio",   "Venere",  "Marte",
                                    "Giove",    "Saturno",     "Urano",      "Nettuno", "Plutone",
                                    "NodoLuna", "LilithMedia", "LilithVera", "Asce",    "MC"};

// The second chart: the place and zone of the first at the date and time given; from the places
// database when the first came from --city, else with --con-estiva (0 when not given).
Tema SecondoTema(const Argomenti& a, const Tema& primo) {
    Data d = LeggiData(a.Richiesta("con-data"));
    Ora o = LeggiOra(a.Richiesta("con-ora"));
    Tema t = primo;
    if (auto city = a.Opzione("city")) {
        if (a.Opzione("con-estiva"))
            throw ErroreArgomenti("--con-estiva non va con --city: l'ora estiva viene dal "
                                  "database dei luoghi");
        t = RisolviLuogo(a, *city, a.Opzione("nazione"), d, o).tema;
        t.Nome = primo.Nome;
    } else {
        t.Estiva = LeggiNumero(a.Opzione("con-estiva").value_or("0"), "con-estiva", -3, 3);
    }
    t.Day = GiornoGiuliano(d.anno, d.mese, d.giorno);
    t.OraL = GradiDecimali(o.ore, o.minuti, o.secondi);
    return t;
}

std::string RigaTema(const Tema& t) {
    std::string t1, t2, t3, t4;
    TestoDatiTema(t, t1, t2, t3, t4);
    return SenzaSpaziDestra(t.Nome.Valore()) + "  " + t1 + "  " + t2;
}

std::string InJson(const Tema& righe, const Tema& colonne, bool comparati, float orbita,
                   const std::vector<CellaAspetto>& celle, const GrigliaAspetti& g) {
    auto tema = [](const Tema& t) {
        return JsonOggetto().Testo("Nome", t.Nome.Valore()).Numero("JD", t.JD()).str();
    };
    JsonLista lista;
    for (const CellaAspetto& c : celle) {
        const auto k = static_cast<std::size_t>(c.k);
        lista.Valore(JsonOggetto()
                         .Testo("Riga", CampiPunti[c.i - 1])
                         .Testo("Colonna", CampiPunti[c.j - 1])
                         .Testo("Nome", NomiAspetti[k])
                         .Numero("Angolo", AngoliAspetti[k])
                         .Numero("Mancano", c.mancano)
                         .Numero("Declinazione", c.differenza)
                         .Testo("Marca", c.marca)
                         .str());
    }
    JsonLista griglia;
    for (const auto& riga : g.celle) {
        JsonLista r;
        for (const auto& cella : riga)
            r.Valore(JsonTesto(cella));
        griglia.Valore(r.str());
    }
    return JsonOggetto()
        .Campo("Righe", tema(righe))
        .Campo("Colonne", tema(colonne))
        .Campo("AspettiComparati", comparati ? "true" : "false")
        .Numero("Orbita", orbita)
        .Campo("Celle", lista.str())
        .Campo("Griglia", griglia.str())
        .str();
}

std::string InTabella(const Tema& righe, const Tema& colonne, float orbita,
                      const GrigliaAspetti& g) {
    std::ostringstream out;
    out << "Righe    " << RigaTema(righe) << '\n'
        << "Colonne  " << RigaTema(colonne) << '\n'
        << "Orbita   " << FormatoNumero(orbita, "#0.0#°") << "\n\n";
    // The row heads are at most 10 characters, an aspect's name 18.
    for (const auto& riga : g.celle) {
        std::string linea = TagliaOAllunga(riga[0], 11);
        for (std::size_t j = 1; j < riga.size(); ++j)
            linea += TagliaOAllunga(riga[j], 18) + " ";
        out << SenzaSpaziDestra(linea) << '\n';
    }
    return out.str();
}

} // namespace

int ComandoAspetti(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    auto ammesse = OpzioniDelTema();
    for (const char* o : {"con-data", "con-ora", "con-estiva", "orbita", "json"})
        ammesse.push_back(o);
    a.Consenti(ammesse);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali()[0]);
    bool comparati = a.Opzione("con-data") || a.Opzione("con-ora");
    if (!comparati && a.Opzione("con-estiva"))
        throw ErroreArgomenti("--con-estiva va con --con-data e --con-ora");
    float orbita =
        static_cast<float>(LeggiNumero(a.Opzione("orbita").value_or("2.5"), "orbita", 0, 180));

    Tema primo = LeggiTema(a);
    Tema secondo = comparati ? SecondoTema(a, primo) : primo;
    std::int16_t luna = LeggiLuna(a);
    MessaggiConsole messaggi(Avvisi());
    Case c;
    Posizioni posRighe, posColonne;
    CastaTema(primo, c, posRighe, luna, messaggi);
    if (comparati)
        CastaTema(secondo, c, posColonne, luna, messaggi);
    else
        posColonne = posRighe;

    const auto celle = CelleAspetti(posRighe, posColonne, comparati, orbita, 0);
    const GrigliaAspetti g = CostruisciGriglia(posRighe, posColonne, comparati, orbita, 0);
    out << (a.Flag("json") ? InJson(primo, secondo, comparati, orbita, celle, g) + "\n"
                           : InTabella(primo, secondo, orbita, g));
    return 0;
}

} // namespace vesmo::cli
