// vesmo-cli deltat, eqt, eclequ and formati: the calculators of the chart menu.
#include <array>
#include <cmath>
#include <sstream>

#include "calculators/Calcolatrici.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/DeltaT.h"

namespace vesmo::cli {

namespace {

// These commands take options only: a stray word is refused.
void SenzaParoleInPiu(const Argomenti& a) {
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali()[0]);
}

} // namespace

namespace {

// "G P S", "G P": numbers separated by blanks, as many as asked (missing ones are 0).
std::array<double, 3> LeggiTripla(const std::string& testo, std::size_t quanti,
                                  const std::string& cosa) {
    std::istringstream in(testo);
    std::array<double, 3> v{0, 0, 0};
    std::string parola;
    std::size_t n = 0;
    while (in >> parola) {
        if (n == quanti)
            throw ErroreArgomenti(cosa + ": al più " + std::to_string(quanti) +
                                  " numeri: " + testo);
        std::optional<double> x = NumeroDiCasella(parola);
        if (!x || std::fabs(*x) > 1e9)
            throw ErroreArgomenti(cosa + ": numero non valido: " + parola);
        v[n++] = *x;
    }
    if (n == 0) throw ErroreArgomenti(cosa + ": manca il valore");
    return v;
}

double JDDi(const Argomenti& a, bool conOra) {
    const Data d = LeggiData(a.Richiesta("data"));
    Ora o{0, 0, 0};
    if (conOra) o = LeggiOra(a.Richiesta("ora"));
    return JDDelCalcolo(d.giorno, d.mese, d.anno, o.ore, o.minuti);
}

} // namespace

int ComandoDeltaT(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"data", "json"});
    SenzaParoleInPiu(a);
    const Data d = LeggiData(a.Richiesta("data"));
    const double m = DeltaT(d.anno, d.anno, d.mese, d.giorno);
    if (a.Flag("json")) {
        out << JsonOggetto().Numero("DeltaT", m).Numero("Secondi", m * 60).str() << '\n';
    } else {
        out << TestoDeltaT(m) << '\n';
    }
    return 0;
}

int ComandoEqT(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"data", "ora", "json"});
    SenzaParoleInPiu(a);
    const double eqt = EquazioneDelTempo(JDDi(a, true));
    if (a.Flag("json")) {
        out << JsonOggetto().Numero("EqT", eqt).str() << '\n';
    } else {
        out << TestoEqT(eqt) << '\n';
    }
    return 0;
}

namespace {

// The sign of --segno: its name (as the calculator lists it, or in full) or its number from 0.
int LeggiSegno(const std::string& segno) {
    int trovato = -1;
    for (int i = 0; i < 12; ++i)
        if (UgualeSenzaCaso(segno, SegniCalcolatrice[static_cast<std::size_t>(i)]) ||
            UgualeSenzaCaso(segno, NomiSegni[i]))
            trovato = i;
    if (trovato >= 0) return trovato;
    std::optional<double> n = NumeroDiCasella(segno);
    if (!n || *n != std::floor(*n) || *n < 0 || *n > 11)
        throw ErroreArgomenti("--segno: da 0 (Ariete) a 11 (Pesci), o il nome: " + segno);
    return static_cast<int>(*n);
}

// From ecliptic to equatorial coordinates, the answer as a table or JSON.
void DaEclittiche(const Argomenti& a, double jd, bool json, std::ostream& out) {
    if (a.Opzione("ar") || a.Opzione("dec"))
        throw ErroreArgomenti("--ar e --dec non vanno con --lon");
    Eclittiche e;
    e.Segno = LeggiSegno(a.Opzione("segno").value_or("0"));
    const auto lon = LeggiTripla(a.Richiesta("lon"), 3, "--lon");
    const auto lat = LeggiTripla(a.Opzione("lat").value_or("0"), 2, "--lat");
    e.Lon_Gradi = lon[0];
    e.Lon_Primi = lon[1];
    e.Lon_Sec = lon[2];
    e.Lat_Gradi = lat[0];
    e.Lat_Primi = lat[1];
    const Equatoriali q = EclitticheAEquatoriali(jd, e);
    if (json) {
        out << JsonOggetto()
                   .Numero("txAR_h", q.AR_h)
                   .Numero("txAR_m", q.AR_m)
                   .Numero("txAR_s", q.AR_s)
                   .Numero("txDec_Gradi", q.Dec_Gradi)
                   .Numero("txDec_Primi", q.Dec_Primi)
                   .str()
            << '\n';
    } else {
        out << "AR   " << TestoNumero(q.AR_h) << "h " << TestoNumero(q.AR_m) << "m "
            << FormatoNumero(q.AR_s, "#0.0#") << "s\n"
            << "Dec  " << TestoNumero(q.Dec_Gradi) << "° " << TestoNumero(q.Dec_Primi) << "'\n";
    }
}

// From equatorial to ecliptic coordinates, the answer as a table or JSON.
void DaEquatoriali(const Argomenti& a, double jd, bool json, std::ostream& out) {
    if (a.Opzione("segno") || a.Opzione("lat"))
        throw ErroreArgomenti("--segno e --lat non vanno con --ar");
    Equatoriali q;
    const auto ar = LeggiTripla(a.Richiesta("ar"), 3, "--ar");
    const auto dec = LeggiTripla(a.Opzione("dec").value_or("0"), 2, "--dec");
    q.AR_h = ar[0];
    q.AR_m = ar[1];
    q.AR_s = ar[2];
    q.Dec_Gradi = dec[0];
    q.Dec_Primi = dec[1];
    const Eclittiche e = EquatorialiAEclittiche(jd, q);
    if (json) {
        out << JsonOggetto()
                   .Numero("cbSegni", e.Segno)
                   .Testo("Segno", SegniCalcolatrice[static_cast<std::size_t>(e.Segno)])
                   .Numero("txLon_Gradi", e.Lon_Gradi)
                   .Numero("txLon_Primi", e.Lon_Primi)
                   .Numero("txLon_Sec", e.Lon_Sec)
                   .Numero("txLat_Gradi", e.Lat_Gradi)
                   .Numero("txLat_Primi", e.Lat_Primi)
                   .str()
            << '\n';
    } else {
        out << "Lon  " << SegniCalcolatrice[static_cast<std::size_t>(e.Segno)] << ' '
            << TestoNumero(e.Lon_Gradi) << "° " << TestoNumero(e.Lon_Primi) << "' "
            << FormatoNumero(e.Lon_Sec, "#0.0#") << "\"\n"
            << "Lat  " << TestoNumero(e.Lat_Gradi) << "° " << TestoNumero(e.Lat_Primi) << "'\n";
    }
}

} // namespace

int ComandoEclEqu(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"data", "ora", "segno", "lon", "lat", "ar", "dec", "json"});
    SenzaParoleInPiu(a);
    const bool eclittiche = a.Opzione("lon").has_value();
    const bool equatoriali = a.Opzione("ar").has_value();
    if (eclittiche == equatoriali)
        throw ErroreArgomenti("serve --segno N --lon \"G P S\" [--lat \"G P\"] oppure "
                              "--ar \"H M S\" [--dec \"G P\"]");
    const double jd = JDDi(a, true);
    if (eclittiche)
        DaEclittiche(a, jd, a.Flag("json"), out);
    else
        DaEquatoriali(a, jd, a.Flag("json"), out);
    return 0;
}

int ComandoFormati(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"gradi", "ore", "gradi-decimali", "ore-decimali", "radianti", "json"});
    SenzaParoleInPiu(a);
    struct Sorgente {
        const char* opzione;
        int primo, quanti;
    };
    static const Sorgente sorgenti[] = {{"gradi", 0, 3},
                                        {"ore", 3, 3},
                                        {"gradi-decimali", 6, 1},
                                        {"ore-decimali", 7, 1},
                                        {"radianti", 8, 1}};
    const Sorgente* scelta = nullptr;
    for (const Sorgente& s : sorgenti) {
        if (!a.Opzione(s.opzione)) continue;
        if (scelta)
            throw ErroreArgomenti("una sola tra --gradi, --ore, --gradi-decimali, "
                                  "--ore-decimali, --radianti");
        scelta = &s;
    }
    if (!scelta)
        throw ErroreArgomenti("serve --gradi \"G P S\", --ore \"H M S\", --gradi-decimali X, "
                              "--ore-decimali X o --radianti X");
    const std::string testo = *a.Opzione(scelta->opzione);
    FormatiNumerici f;
    // The boxes of the group take the words typed, as the user would type them.
    std::istringstream in(testo);
    std::string parola;
    int n = 0;
    while (in >> parola) {
        if (n == scelta->quanti || !NumeroDiCasella(parola))
            throw ErroreArgomenti(std::string("--") + scelta->opzione +
                                  ": valore non valido: " + testo);
        f.Scrivi(scelta->primo + n++, parola);
    }
    if (n == 0) throw ErroreArgomenti(std::string("--") + scelta->opzione + ": manca il valore");
    for (int i = scelta->primo; i < scelta->primo + n; ++i)
        if (std::fabs(*NumeroDiCasella(f.Testo[static_cast<std::size_t>(i)])) > 1e9)
            throw ErroreArgomenti(std::string("--") + scelta->opzione + ": valore troppo grande");
    f.CommandOK();
    if (a.Flag("json")) {
        JsonOggetto j;
        for (int i = 0; i < 9; ++i)
            j.Testo("Text" + std::to_string(i + 1), f.Testo[static_cast<std::size_t>(i)]);
        out << j.str() << '\n';
    } else {
        const auto& t = f.Testo;
        out << "Gradi Sessagesimali  " << t[0] << "° " << t[1] << "' " << t[2] << "\"\n"
            << "Ore Sessagesimali    " << t[3] << "h " << t[4] << "m " << t[5] << "s\n"
            << "Gradi Decimali       " << t[6] << "\n"
            << "Ore Decimali         " << t[7] << "\n"
            << "Radianti             " << t[8] << "\n";
    }
    return 0;
}

} // namespace vesmo::cli
