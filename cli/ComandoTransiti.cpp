// vesmo-cli transiti: the transit calendar of a natal chart. Every moment of a period at which a
// transiting body makes an aspect exact to a natal point, with entering and leaving the orb; the
// dates and times are local, by the zone and summer time in force at the natal place on each
// date (from the places database when the chart comes from --city).
#include <cctype>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/TestoDatiTema.h"
#include "timecharts/CalendarioTransiti.h"
#include "timecharts/ListaTransiti.h"
#include "timecharts/OrologioLuogo.h"

namespace vesmo::cli {

namespace {

constexpr double AnniMassimi = 200;

std::string Minuscole(std::string s) {
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string Taglia(const std::string& s) {
    const auto a = s.find_first_not_of(' ');
    if (a == std::string::npos) return "";
    return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

// The words of a comma-separated list, blanks around them dropped; an empty word is refused.
std::vector<std::string> Lista(const std::string& testo, const std::string& cosa) {
    std::vector<std::string> parole;
    std::size_t inizio = 0;
    for (;;) {
        const std::size_t virgola = testo.find(',', inizio);
        const std::string parola = Taglia(testo.substr(inizio, virgola - inizio));
        if (parola.empty()) throw ErroreArgomenti("--" + cosa + ": elenco con un nome vuoto");
        parole.push_back(parola);
        if (virgola == std::string::npos) break;
        inizio = virgola + 1;
    }
    return parole;
}

std::vector<int> LeggiPianeti(const Argomenti& a) {
    auto testo = a.Opzione("pianeti");
    if (!testo) return CorpiTransitoPredefiniti();
    std::set<int> scelti;
    for (const std::string& p : Lista(*testo, "pianeti")) {
        int trovato = -1;
        for (int c = 0; c < NumeroCorpiTransito; ++c)
            if (Minuscole(NomiCorpiTransito[static_cast<std::size_t>(c)]) == Minuscole(p))
                trovato = c;
        if (trovato < 0)
            throw ErroreArgomenti("pianeta sconosciuto: '" + p +
                                  "' (Sole, Luna, Mercurio, Venere, "
                                  "Marte, Giove, Saturno, Urano, Nettuno, Plutone, NodoLuna)");
        scelti.insert(trovato);
    }
    return {scelti.begin(), scelti.end()};
}

std::vector<PuntoNatale> LeggiPunti(const Argomenti& a, const Posizioni& p) {
    auto testo = a.Opzione("punti");
    if (!testo) return PuntiNataliPredefiniti(p, 1);
    static const char* const nomi[] = {
        "Sole",    "Luna",    "Mercurio", "Venere",      "Marte",      "Giove", "Saturno", "Urano",
        "Nettuno", "Plutone", "NodoLuna", "LilithMedia", "LilithVera", "Asce",  "MC"};
    std::vector<PuntoNatale> punti;
    std::set<std::string> visti;
    for (const std::string& parola : Lista(*testo, "punti")) {
        const char* nome = nullptr;
        for (const char* n : nomi)
            if (Minuscole(n) == Minuscole(parola)) nome = n;
        if (!nome)
            throw ErroreArgomenti("punto sconosciuto: '" + parola +
                                  "' (Sole..Plutone, NodoLuna, LilithMedia, LilithVera, Asce, MC)");
        if (!visti.insert(nome).second) continue;
        PuntoNatale punto;
        PuntoDelTema(p, nome, punto);
        punti.push_back(punto);
    }
    return punti;
}

std::vector<int> LeggiAspetti(const Argomenti& a) {
    auto testo = a.Opzione("aspetti");
    if (!testo) return {0, 1, 2, 3, 4};
    std::set<int> scelti;
    for (const std::string& parola : Lista(*testo, "aspetti")) {
        int trovato = -1;
        for (int k = 0; k < NumeroAspetti; ++k)
            if (Minuscole(Taglia(NomiAspetti[static_cast<std::size_t>(k)])) == Minuscole(parola))
                trovato = k;
        if (trovato < 0)
            throw ErroreArgomenti("aspetto sconosciuto: '" + parola +
                                  "' (i nomi della tabella degli aspetti, come quadratura)");
        scelti.insert(trovato);
    }
    return {scelti.begin(), scelti.end()};
}

// Midnight at the start of a local date, as TU, by the clock of the place.
double InizioGiorno(OrologioLuogo& orologio, const Data& d) {
    const double zero = GiornoGiuliano(d.anno, d.mese, d.giorno);
    const MomentoLocale m = orologio.Locale(zero);
    return zero + (m.fuso - m.estiva) / 24;
}

std::string JsonJd(double jd) {
    return std::isfinite(jd) ? JsonNumero(jd) : "null";
}

} // namespace

namespace {

// The period asked, as whole days: the current year when not given; --a alone ends the year of
// --da. An empty period or one over AnniMassimi years throws ErroreArgomenti.
struct PeriodoTransiti {
    Data da{1, 1, 0}, fine{31, 12, 0};
    double giornoDa = 0, giornoA = 0; // Julian days at 0h of the first and the last day
};

PeriodoTransiti LeggiPeriodo(const Argomenti& a) {
    PeriodoTransiti p;
    if (auto t = a.Opzione("da")) {
        p.da = LeggiData(*t);
    } else {
        const std::time_t adesso = std::time(nullptr);
        std::tm oggi{};
        localtime_r(&adesso, &oggi);
        p.da.anno = oggi.tm_year + 1900;
    }
    p.fine.anno = p.da.anno;
    if (auto t = a.Opzione("a")) p.fine = LeggiData(*t);
    p.giornoDa = GiornoGiuliano(p.da.anno, p.da.mese, p.da.giorno);
    p.giornoA = GiornoGiuliano(p.fine.anno, p.fine.mese, p.fine.giorno);
    if (p.giornoA < p.giornoDa) throw ErroreArgomenti("periodo vuoto: --a viene prima di --da");
    if (p.giornoA - p.giornoDa > AnniMassimi * 365.25)
        throw ErroreArgomenti("periodo di oltre 200 anni: da dividere in più ricerche");
    return p;
}

void ScriviTransitiJson(const std::vector<RigaTransito>& righe, std::ostream& out) {
    JsonLista lista;
    for (const RigaTransito& t : righe)
        lista.Valore(JsonOggetto()
                         .Numero("JD", t.jd)
                         .Testo("Data", t.quando.Data())
                         .Testo("Ora", t.quando.Ora())
                         .Testo("Pianeta", t.pianeta)
                         .Campo("Retrogrado", t.retrogrado ? "true" : "false")
                         .Testo("Aspetto", t.aspetto)
                         .Testo("Punto", t.punto)
                         .Campo("JDIngresso", JsonJd(t.jdIngresso))
                         .Campo("JDUscita", JsonJd(t.jdUscita))
                         .str());
    out << JsonOggetto().Campo("Transiti", lista.str()).str() << "\n";
}

} // namespace

int ComandoTransiti(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    auto ammesse = OpzioniDelTema();
    for (const char* o : {"da", "a", "pianeti", "punti", "aspetti", "orbita", "json"})
        ammesse.push_back(o);
    a.Consenti(ammesse);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali()[0]);

    RichiestaTransiti r;
    r.corpi = LeggiPianeti(a);
    r.aspetti = LeggiAspetti(a);
    r.orbita = LeggiNumero(a.Opzione("orbita").value_or("2.5"), "orbita", 0, 30);
    const PeriodoTransiti periodo = LeggiPeriodo(a);

    Tema tema = LeggiTema(a);
    const std::int16_t luna = LeggiLuna(a);
    MessaggiConsole messaggi(std::cerr);
    Case c;
    Posizioni p;
    CastaTema(tema, c, p, luna, messaggi);
    r.punti = LeggiPunti(a, p);
    r.lunaGeo = luna;
    r.lonLuogo = tema.Lon;
    r.latLuogo = tema.Lat;

    // The clock of the natal place: the places database when the chart came from it.
    const std::string file = a.Opzione("city") ? FileDatabase(a).string() : std::string();
    OrologioLuogo orologio(file, tema);
    r.jdDa = InizioGiorno(orologio, periodo.da);
    // To the end of the last day: the midnight after it, by its own clock.
    const MomentoLocale mezzanotte = orologio.Locale(periodo.giornoA + 1);
    r.jdA = periodo.giornoA + 1 + (mezzanotte.fuso - mezzanotte.estiva) / 24;

    const std::vector<Transito> transiti = CercaTransiti(r);
    if (transiti.empty()) throw std::runtime_error("nessun transito esatto nel periodo");
    const std::vector<RigaTransito> righe = RigheTransiti(transiti, r, orologio);

    if (a.Flag("json")) {
        ScriviTransitiJson(righe, out);
        return 0;
    }
    std::string t1, t2, t3, t4;
    TestoDatiTema(tema, t1, t2, t3, t4);
    char orbita[32];
    std::snprintf(orbita, sizeof orbita, "%.2f", r.orbita);
    out << "Tema     " << SenzaSpaziDestra(tema.Nome.Valore()) << "  " << t1 << "  " << t2 << '\n'
        << "Periodo  " << MomentoConFuso(periodo.giornoDa, 0, 0).Data() << " - "
        << MomentoConFuso(periodo.giornoA, 0, 0).Data() << "   Orbita " << orbita << "\n\n"
        << TestoTransiti(righe);
    return 0;
}

} // namespace vesmo::cli
