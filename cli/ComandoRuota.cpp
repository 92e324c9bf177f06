// vesmo-cli ruota: the wheel of a chart written to a PNG, SVG or PDF file; with --transito the
// double wheel of that transit at the natal place, or its double zodiac.
#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>

#include "chart/CalcolaTema.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "cli/Rivoluzione.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "places/CittaVicine.h"
#include "presentation/Rilocazione.h"
#include "presentation/Ruota.h"
#include "presentation/RuotaAscensionale.h"
#include "presentation/RuotaDoppia.h"
#include "presentation/qt/ApplicazioneGrafica.h"
#include "presentation/qt/Esporta.h"
#include "presentation/qt/FileMappa.h"

namespace vesmo::cli {

namespace {

int LeggiIntero(const std::string& testo, const std::string& cosa, int minimo, int massimo) {
    double v = LeggiNumero(testo, cosa);
    if (v != std::floor(v) || v < minimo || v > massimo) {
        std::ostringstream s;
        s << cosa << " deve essere un intero da " << minimo << " a " << massimo << ": " << testo;
        throw ErroreArgomenti(s.str());
    }
    return static_cast<int>(v);
}

// The transit: the natal place and zone at the date and clock time given ("GG/MM/AAAA HH:MM",
// or the time as the word after the date).
Tema LeggiTransito(const Argomenti& a, const Tema& natale) {
    auto [data, ora] = DividiDataOra(*a.Opzione("transito"));
    if (ora.empty() && !a.Posizionali().empty()) ora = a.Posizionali()[0];
    if (data.empty() || ora.empty())
        throw ErroreArgomenti("--transito vuole data e ora: GG/MM/AAAA HH:MM");
    Data d = LeggiData(data);
    Ora o = LeggiOra(ora);
    Tema t = natale;
    t.Nome = "Transito";
    t.Day = GiornoGiuliano(d.anno, d.mese, d.giorno);
    t.OraL = GradiDecimali(o.ore, o.minuti, o.secondi);
    t.Estiva = LeggiNumero(a.Opzione("estiva-transito").value_or("0"), "estiva-transito", -3, 3);
    return t;
}

// 1 right ascensions, 2 oblique ones, 0 the plain wheel.
int ModoAscensionale(const Argomenti& a) {
    auto v = a.Opzione("ascensionale");
    if (!v) return 0;
    if (*v == "ar") return 1;
    if (*v == "ao") return 2;
    throw ErroreArgomenti("--ascensionale vuole ar (ascensioni rette) o ao (oblique): " + *v);
}

// The map of the time zones beside the relocated wheel, from the top left corner: the picture
// the set-up drew beside the places database, the place marked on it, the nearest towns below.
void MappaERiquadro(Superficie& sup, const Tema& rilocato, const std::filesystem::path& fileDB) {
    const double W = LarghezzaMappaPixel * 15.0, H = AltezzaMappaPixel * 15.0;
    sup.Immagine(0, 0, W, H, FileMappaFusi(fileDB).string());
    const SegnoMappa segno = SegnaMappa(rilocato.Lon, rilocato.Lat, W, H);
    sup.Linea(segno.x, segno.yDa, segno.x, segno.yA, ColorePalette(11));
    sup.Linea(segno.xDa, segno.y, segno.xA, segno.y, ColorePalette(11));
    sup.PennaX(0);
    sup.PennaY(H + 100);
    sup.Stampa(TestoCoordinateRilocate(rilocato));
    if (!std::filesystem::exists(fileDB)) return;
    double y = H + 400;
    for (const CittaVicina& v : CercaCittaVicine(fileDB, rilocato.Lon, rilocato.Lat)) {
        sup.PennaX(0);
        sup.PennaY(y);
        sup.Stampa(v.Testo());
        y += 220;
    }
}

} // namespace

int ComandoRuota(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"aspetti", "asc", "case-transito", "rilocata", "primo", "json"});
    auto ammesse = OpzioniDelTema();
    for (const char* o : {"out", "transito", "estiva-transito", "aspetti", "size", "angolo", "asc",
                          "nodi", "zodiaco", "case-transito", "ascensionale", "arco", "db", "json"})
        ammesse.push_back(o);
    for (const std::string& o : OpzioniRivoluzione(false))
        ammesse.push_back(o);
    a.Consenti(ammesse);
    bool transito = a.Opzione("transito").has_value();
    const bool rilocata = a.Flag("rilocata");
    if (transito && rilocata) throw ErroreArgomenti("--transito e --rilocata non vanno insieme");
    const int modoAscens = ModoAscensionale(a);
    const double arco = LeggiNumero(a.Opzione("arco").value_or("0"), "arco");
    if (a.Opzione("arco") && !transito && !rilocata)
        throw ErroreArgomenti("--arco gira il tema esterno: vale con --transito o --rilocata");
    if (modoAscens && a.Opzione("zodiaco"))
        throw ErroreArgomenti("--ascensionale e --zodiaco non vanno insieme");
    if (modoAscens && rilocata)
        throw ErroreArgomenti("--rilocata disegna la ruota doppia con la mappa: senza "
                              "--ascensionale");
    if (a.Posizionali().size() > (transito ? 1u : 0u))
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali().back());
    std::string file = a.Richiesta("out");
    if (!FormatoDaFile(file))
        throw ErroreArgomenti("--out vuole un file .png, .svg o .pdf: " + file);
    int lato = LeggiIntero(a.Opzione("size").value_or("800"), "--size", 16, 20000);
    double angolo = LeggiNumero(a.Opzione("angolo").value_or("0"), "angolo", -360, 360);
    int nodi = LeggiIntero(a.Opzione("nodi").value_or("0"), "--nodi", 0, 24);
    int casa = 0;
    if (auto z = a.Opzione("zodiaco")) {
        if (!transito) throw ErroreArgomenti("--zodiaco vale solo con --transito");
        casa = LeggiIntero(*z, "--zodiaco", 1, 12);
    }

    Tema natale = LeggiTema(a);
    std::int16_t luna = LeggiLuna(a);
    MessaggiConsole messaggi(Avvisi());
    Case cuspidi;
    Posizioni posNatale;
    CastaTema(natale, cuspidi, posNatale, luna, messaggi);
    if (a.Flag("asc")) angolo = 360 - posNatale.Asce.Lo;

    const ApplicazioneGrafica app;
    std::string errore;
    if (rilocata) {
        RivoluzioneCercata r = CercaRivoluzioneDaArgomenti(a, false, messaggi);
        if (!r.e.trovato) throw std::runtime_error("rivoluzione non trovata");
        RilocaRivoluzione(r, a, messaggi);
        OpzioniDoppia o;
        o.AngoloRuota = angolo;
        o.MappaVisibile = true;
        o.DisegnaAspettiCmp = a.Flag("aspetti");
        o.Aspetti.ArcoSolare = static_cast<float>(arco);
        const Rettangolo ruota = AreaDoppia(true);
        const Rettangolo area{0, 0, ruota.x + ruota.larghezza, ruota.y + ruota.altezza};
        const auto fileDB = FileDatabase(a);
        errore = SalvaDisegno(file, lato, area, [&](Superficie& sup) {
            DisegnaDoppia(sup, natale, posNatale, r.s.TemaRiv, r.s.PosRiv, o);
            MappaERiquadro(sup, r.s.TemaRiv, fileDB);
        });
    } else if (modoAscens) {
        OpzioniAscensionale o;
        o.ModoAscens = modoAscens;
        o.AngoloRuota = angolo;
        // The ascensions turn with the Ascendant's right ascension when the wheel does.
        o.AngoloAscens = a.Flag("asc") ? 360 - 15 * posNatale.Asce.AR.Numero() : angolo;
        o.DisegnaAspetti = a.Flag("aspetti");
        o.Aspetti.ArcoSolare = static_cast<float>(arco);
        if (transito) {
            Tema temaTransito = LeggiTransito(a, natale);
            Posizioni posTransito;
            CastaTema(temaTransito, cuspidi, posTransito, luna, messaggi);
            errore = SalvaDisegno(file, lato, AreaAscensionale(true), [&](Superficie& sup) {
                DisegnaDoppiaAscensionale(sup, natale, posNatale, temaTransito, posTransito, o);
            });
        } else {
            errore = SalvaDisegno(file, lato, AreaAscensionale(false), [&](Superficie& sup) {
                DisegnaRuotaAscensionale(sup, natale, posNatale, o);
            });
        }
    } else if (!transito) {
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
        o.Aspetti.ArcoSolare = static_cast<float>(arco);
        Rettangolo area = casa ? AreaDoppioZodiaco() : AreaDoppia(o.MappaVisibile);
        errore = SalvaDisegno(file, lato, area, [&](Superficie& sup) {
            if (casa)
                DisegnaDoppioZodiaco(sup, natale, posNatale, temaTransito, posTransito, o, casa);
            else
                DisegnaDoppia(sup, natale, posNatale, temaTransito, posTransito, o);
        });
    }
    if (!errore.empty()) throw std::runtime_error(errore);
    // The file written, as stampa tells its own.
    if (a.Flag("json"))
        out << JsonOggetto().Campo("File", JsonLista().Valore(JsonTesto(file)).str()).str() << '\n';
    else
        out << file << '\n';
    return 0;
}

} // namespace vesmo::cli
