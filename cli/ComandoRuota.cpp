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

// What the command line asks of the wheel, its arguments checked: a bad or clashing one
// throws ErroreArgomenti, in the order the checks are written.
struct RichiestaRuota {
    bool transito = false, rilocata = false;
    int modoAscens = 0; // ModoAscensionale
    double arco = 0;    // the outer chart's turn, degrees
    std::string file;   // .png, .svg or .pdf
    int lato = 800;     // pixels
    double angolo = 0;  // the wheel's rotation, degrees
    int nodi = 0;       // the choice of planetary nodes
    int casa = 0;       // the house of the double zodiac, 0 for the double wheel
};

RichiestaRuota LeggiRichiesta(Argomenti& a) {
    a.Consenti([] {
        auto ammesse = OpzioniDelTema();
        for (const char* o :
             {"out", "transito", "estiva-transito", "aspetti", "size", "angolo", "asc", "nodi",
              "zodiaco", "case-transito", "ascensionale", "arco", "db", "json"})
            ammesse.push_back(o);
        for (const std::string& o : OpzioniRivoluzione(false))
            ammesse.push_back(o);
        return ammesse;
    }());
    RichiestaRuota r;
    r.transito = a.Opzione("transito").has_value();
    r.rilocata = a.Flag("rilocata");
    if (r.transito && r.rilocata)
        throw ErroreArgomenti("--transito e --rilocata non vanno insieme");
    r.modoAscens = ModoAscensionale(a);
    r.arco = LeggiNumero(a.Opzione("arco").value_or("0"), "arco");
    if (a.Opzione("arco") && !r.transito && !r.rilocata)
        throw ErroreArgomenti("--arco gira il tema esterno: vale con --transito o --rilocata");
    if (r.modoAscens && a.Opzione("zodiaco"))
        throw ErroreArgomenti("--ascensionale e --zodiaco non vanno insieme");
    if (r.modoAscens && r.rilocata)
        throw ErroreArgomenti("--rilocata disegna la ruota doppia con la mappa: senza "
                              "--ascensionale");
    if (a.Posizionali().size() > (r.transito ? 1u : 0u))
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali().back());
    r.file = a.Richiesta("out");
    if (!FormatoDaFile(r.file))
        throw ErroreArgomenti("--out vuole un file .png, .svg o .pdf: " + r.file);
    r.lato = LeggiIntero(a.Opzione("size").value_or("800"), "--size", 16, 20000);
    r.angolo = LeggiNumero(a.Opzione("angolo").value_or("0"), "angolo", -360, 360);
    r.nodi = LeggiIntero(a.Opzione("nodi").value_or("0"), "--nodi", 0, 24);
    if (auto z = a.Opzione("zodiaco")) {
        if (!r.transito) throw ErroreArgomenti("--zodiaco vale solo con --transito");
        r.casa = LeggiIntero(*z, "--zodiaco", 1, 12);
    }
    return r;
}

// The natal chart cast, as every kind of wheel begins.
struct NataleRuota {
    Tema tema;
    Posizioni pos;
    std::int16_t luna = 0;
};

// The steps below draw one kind of wheel into the file and return SalvaDisegno's error ("" when
// written); the revolution's and the transit's own errors go on to the caller.

// The relocated revolution's double wheel with the map of the time zones.
std::string RuotaRilocata(const Argomenti& a, const RichiestaRuota& r, const NataleRuota& n,
                          Messaggi& messaggi) {
    RivoluzioneCercata riv = CercaRivoluzioneDaArgomenti(a, false, messaggi);
    if (!riv.e.trovato) throw std::runtime_error("rivoluzione non trovata");
    RilocaRivoluzione(riv, a, messaggi);
    OpzioniDoppia o;
    o.AngoloRuota = r.angolo;
    o.MappaVisibile = true;
    o.DisegnaAspettiCmp = a.Flag("aspetti");
    o.Aspetti.ArcoSolare = static_cast<float>(r.arco);
    const Rettangolo ruota = AreaDoppia(true);
    const Rettangolo area{0, 0, ruota.x + ruota.larghezza, ruota.y + ruota.altezza};
    const auto fileDB = FileDatabase(a);
    return SalvaDisegno(r.file, r.lato, area, [&](Superficie& sup) {
        DisegnaDoppia(sup, n.tema, n.pos, riv.s.TemaRiv, riv.s.PosRiv, o);
        MappaERiquadro(sup, riv.s.TemaRiv, fileDB);
    });
}

// The wheel of ascensions, single or with the transit.
std::string RuotaAscensioni(const Argomenti& a, const RichiestaRuota& r, const NataleRuota& n,
                            Messaggi& messaggi) {
    OpzioniAscensionale o;
    o.ModoAscens = r.modoAscens;
    o.AngoloRuota = r.angolo;
    // The ascensions turn with the Ascendant's right ascension when the wheel does.
    o.AngoloAscens = a.Flag("asc") ? 360 - 15 * n.pos.Asce.AR.Numero() : r.angolo;
    o.DisegnaAspetti = a.Flag("aspetti");
    o.Aspetti.ArcoSolare = static_cast<float>(r.arco);
    if (!r.transito)
        return SalvaDisegno(r.file, r.lato, AreaAscensionale(false), [&](Superficie& sup) {
            DisegnaRuotaAscensionale(sup, n.tema, n.pos, o);
        });
    Tema temaTransito = LeggiTransito(a, n.tema);
    Case cuspidi;
    Posizioni posTransito;
    CastaTema(temaTransito, cuspidi, posTransito, n.luna, messaggi);
    return SalvaDisegno(r.file, r.lato, AreaAscensionale(true), [&](Superficie& sup) {
        DisegnaDoppiaAscensionale(sup, n.tema, n.pos, temaTransito, posTransito, o);
    });
}

// The transit's double wheel, or its double zodiac.
std::string RuotaTransito(const Argomenti& a, const RichiestaRuota& r, const NataleRuota& n,
                          Messaggi& messaggi) {
    Tema temaTransito = LeggiTransito(a, n.tema);
    Case cuspidi;
    Posizioni posTransito;
    CastaTema(temaTransito, cuspidi, posTransito, n.luna, messaggi);
    OpzioniDoppia o;
    o.AngoloRuota = r.angolo;
    o.Transito = true;
    // A transit wheel opens without the transit's houses.
    o.CaseEsterne = a.Flag("case-transito");
    o.DisegnaAspettiCmp = a.Flag("aspetti");
    o.Aspetti.ArcoSolare = static_cast<float>(r.arco);
    const Rettangolo area = r.casa ? AreaDoppioZodiaco() : AreaDoppia(o.MappaVisibile);
    return SalvaDisegno(r.file, r.lato, area, [&](Superficie& sup) {
        if (r.casa)
            DisegnaDoppioZodiaco(sup, n.tema, n.pos, temaTransito, posTransito, o, r.casa);
        else
            DisegnaDoppia(sup, n.tema, n.pos, temaTransito, posTransito, o);
    });
}

} // namespace

int ComandoRuota(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"aspetti", "asc", "case-transito", "rilocata", "primo", "json"});
    RichiestaRuota r = LeggiRichiesta(a);
    NataleRuota n;
    n.tema = LeggiTema(a);
    n.luna = LeggiLuna(a);
    MessaggiConsole messaggi(Avvisi());
    Case cuspidi;
    CastaTema(n.tema, cuspidi, n.pos, n.luna, messaggi);
    if (a.Flag("asc")) r.angolo = 360 - n.pos.Asce.Lo;

    const ApplicazioneGrafica app;
    std::string errore;
    if (r.rilocata) {
        errore = RuotaRilocata(a, r, n, messaggi);
    } else if (r.modoAscens) {
        errore = RuotaAscensioni(a, r, n, messaggi);
    } else if (!r.transito) {
        OpzioniRuota o;
        o.AngoloRuota = r.angolo;
        o.NodiScelti = r.nodi;
        o.DisegnaAspetti = a.Flag("aspetti");
        errore = SalvaDisegno(r.file, r.lato, AreaRuota(o.Geometria),
                              [&](Superficie& sup) { DisegnaRuota(sup, n.tema, n.pos, o); });
    } else {
        errore = RuotaTransito(a, r, n, messaggi);
    }
    if (!errore.empty()) throw std::runtime_error(errore);
    // The file written, as stampa tells its own.
    if (a.Flag("json"))
        out << JsonOggetto().Campo("File", JsonLista().Valore(JsonTesto(r.file)).str()).str()
            << '\n';
    else
        out << r.file << '\n';
    return 0;
}

} // namespace vesmo::cli
