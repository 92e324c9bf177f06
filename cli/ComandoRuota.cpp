// vesmo-cli ruota: the wheel of a chart written to a PNG, SVG or PDF file; with --transito the
// double wheel of that transit at the natal place, or its double zodiac.
#include <iostream>
#include <memory>
#include <sstream>

#include "chart/CalcolaTema.h"
#include "cli/ApplicazioneGrafica.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/OpzioniTema.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "presentation/Ruota.h"
#include "presentation/RuotaDoppia.h"
#include "presentation/qt/Esporta.h"

namespace vesmo::cli {

namespace {

int LeggiIntero(const std::string& testo, const std::string& cosa, int minimo, int massimo) {
    double v = LeggiNumero(testo, cosa);
    if (v != static_cast<int>(v) || v < minimo || v > massimo) {
        std::ostringstream s;
        s << cosa << " deve essere un intero da " << minimo << " a " << massimo << ": " << testo;
        throw ErroreArgomenti(s.str());
    }
    return static_cast<int>(v);
}

// The transit: the natal place and zone at the date and clock time given ("GG/MM/AAAA HH:MM",
// or the time as the word after the date).
Tema LeggiTransito(const Argomenti& a, const Tema& natale) {
    std::string testo = *a.Opzione("transito");
    std::string data = testo, ora;
    auto spazio = testo.find(' ');
    if (spazio != std::string::npos) {
        data = testo.substr(0, spazio);
        ora = testo.substr(testo.find_first_not_of(' ', spazio));
    } else if (!a.Posizionali().empty()) {
        ora = a.Posizionali()[0];
    } else {
        throw ErroreArgomenti("--transito vuole data e ora: GG/MM/AAAA HH:MM");
    }
    Data d = LeggiData(data);
    Ora o = LeggiOra(ora);
    Tema t = natale;
    t.Nome = "Transito";
    t.Day = GiornoGiuliano(d.anno, d.mese, d.giorno);
    t.OraL = GradiDecimali(o.ore, o.minuti, o.secondi);
    t.Estiva = LeggiNumero(a.Opzione("estiva-transito").value_or("0"), "estiva-transito");
    return t;
}

} // namespace

int ComandoRuota(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"aspetti", "asc", "case-transito"});
    auto ammesse = OpzioniDelTema();
    for (const char* o : {"out", "transito", "estiva-transito", "aspetti", "size", "angolo", "asc",
                          "nodi", "zodiaco", "case-transito"})
        ammesse.push_back(o);
    a.Consenti(ammesse);
    bool transito = a.Opzione("transito").has_value();
    if (a.Posizionali().size() > (transito ? 1u : 0u))
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali().back());
    std::string file = a.Richiesta("out");
    if (!FormatoDaFile(file))
        throw ErroreArgomenti("--out vuole un file .png, .svg o .pdf: " + file);
    int lato = LeggiIntero(a.Opzione("size").value_or("800"), "--size", 16, 20000);
    double angolo = LeggiNumero(a.Opzione("angolo").value_or("0"), "angolo");
    int nodi = LeggiIntero(a.Opzione("nodi").value_or("0"), "--nodi", 0, 24);
    int casa = 0;
    if (auto z = a.Opzione("zodiaco")) {
        if (!transito) throw ErroreArgomenti("--zodiaco vale solo con --transito");
        casa = LeggiIntero(*z, "--zodiaco", 1, 12);
    }

    Tema natale = LeggiTema(a);
    std::int16_t luna = LeggiLuna(a);
    MessaggiConsole messaggi(std::cerr);
    Case cuspidi;
    Posizioni posNatale;
    CastaTema(natale, cuspidi, posNatale, luna, messaggi);
    if (a.Flag("asc")) angolo = 360 - posNatale.Asce.Lo;

    auto app = ApplicazioneGrafica();
    std::string errore;
    if (!transito) {
        OpzioniRuota o;
        o.AngoloRuota = angolo;
        o.NodiScelti = nodi;
        o.DisegnaAspetti = a.Flag("aspetti");
        errore = SalvaDisegno(file, lato, AreaRuota(o.Geometria),
                              [&](Superficie& sup) { DisegnaRuota(sup, natale, posNatale, o); });
    } else {
        Tema temaTransito = LeggiTransito(a, natale);
        Posizioni posTransito;
        CastaTema(temaTransito, cuspidi, posTransito, luna, messaggi);
        OpzioniDoppia o;
        o.AngoloRuota = angolo;
        o.Transito = true;
        // A transit wheel opens without the transit's houses.
        o.CaseEsterne = a.Flag("case-transito");
        o.DisegnaAspettiCmp = a.Flag("aspetti");
        Rettangolo area = casa ? AreaDoppioZodiaco() : AreaDoppia(o.MappaVisibile);
        errore = SalvaDisegno(file, lato, area, [&](Superficie& sup) {
            if (casa)
                DisegnaDoppioZodiaco(sup, natale, posNatale, temaTransito, posTransito, o, casa);
            else
                DisegnaDoppia(sup, natale, posNatale, temaTransito, posTransito, o);
        });
    }
    if (!errore.empty()) throw std::runtime_error(errore);
    out << file << '\n';
    return 0;
}

} // namespace vesmo::cli
