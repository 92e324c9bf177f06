// vesmo-cli rivoluzione, direzione, ingresso: the time-based searches from the natal chart
// given as for vesmo-cli tema. Each prints the instant found (JD and Greenwich time) and the
// chart cast at it; --json gives the chart's object with "JDRisultato" in front.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "chart/CalcolaTema.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "cli/Rivoluzione.h"
#include "cli/UscitaTema.h"
#include "core/Aritmetica.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "presentation/Rilocazione.h"
#include "timecharts/Direzioni.h"
#include "timecharts/Ingressi.h"
#include "timecharts/Rivoluzioni.h"

namespace vesmo::cli {

namespace {

Argomenti Leggi(const Parole& parole, std::vector<std::string> proprie,
                const std::vector<std::string>& flags) {
    Argomenti a(parole, flags);
    auto ammesse = OpzioniDelTema();
    ammesse.insert(ammesse.end(), proprie.begin(), proprie.end());
    ammesse.insert(ammesse.end(), flags.begin(), flags.end());
    a.Consenti(ammesse);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali()[0]);
    return a;
}

// The session with the natal chart cast in its slot.
Sessione ConNatale(const Argomenti& a, Messaggi& messaggi) {
    Sessione s;
    s.TemaNat = LeggiTema(a);
    s.LunaGeo = LeggiLuna(a);
    Case c;
    CastaTema(s.TemaNat, c, s.PosNat, s.LunaGeo, messaggi);
    return s;
}

// "GG/MM/AAAA HH:MM:SS TU" of an instant, to the nearest second.
std::string TestoIstante(double jd) {
    double secondi = std::floor((jd + 0.5) * 86400.0 + 0.5);
    float anno, mese, giorno;
    DataDaGiuliano(secondi / 86400.0 - 0.5, anno, mese, giorno);
    double s = std::fmod(secondi, 86400.0);
    if (s < 0) s += 86400.0;
    long t = static_cast<long>(s);
    char buf[64];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04ld %02ld:%02ld:%02ld TU",
                  static_cast<int>(Fix(giorno)), static_cast<int>(mese), static_cast<long>(anno),
                  t / 3600, t / 60 % 60, t % 60);
    return buf;
}

std::string RigaIstante(const char* nome, double jd) {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.6f", jd);
    return std::string(nome) + ": " + buf + "  " + TestoIstante(jd) + "\n";
}

// The chart of TemaX with the fields in front of it, as text or JSON.
int Stampa(const Tema& t, std::int16_t lunaGeo, const Argomenti& a, std::ostream& out,
           const std::vector<std::pair<std::string, std::string>>& campiJson,
           const std::string& righe) {
    MessaggiConsole messaggi(Avvisi());
    Case c;
    Posizioni p;
    CastaTema(t, c, p, lunaGeo, messaggi);
    if (a.Flag("json")) {
        std::string davanti;
        for (const auto& [nome, valore] : campiJson)
            davanti += JsonTesto(nome) + ": " + valore + ", ";
        std::string corpo = TemaInJson(t, c, p);
        out << "{" << davanti << corpo.substr(1) << '\n';
    } else {
        out << righe << '\n' << TemaInTabella(t, c, p);
    }
    return 0;
}

// A search that finds nothing: its reason on one line of the command's stderr, status 1.
int NonTrovato(const std::string& perche) {
    throw std::runtime_error(perche);
}

int Riga(const Argomenti& a, const std::string& nome, int predefinita) {
    auto v = a.Opzione(nome);
    if (!v) return predefinita;
    double n = LeggiNumero(*v, nome);
    if (n != std::floor(n) || n < 0 || n > 22)
        throw ErroreArgomenti("--" + nome + " vuole una riga da 0 a 22 della lista: " + *v);
    return static_cast<int>(n);
}

} // namespace

std::vector<std::string> OpzioniRivoluzione(bool conAngolo) {
    std::vector<std::string> r{"tipo",  "anno",         "mese",         "giorno", "ritorno",
                               "grado", "lon-rilocata", "lat-rilocata", "primo",  "rilocata"};
    if (conAngolo) r.push_back("angolo");
    return r;
}

RivoluzioneCercata CercaRivoluzioneDaArgomenti(const Argomenti& a, bool conAngolo,
                                               Messaggi& messaggi) {
    std::string tipoTesto = a.Richiesta("tipo");
    TipoRivoluzione tipo;
    if (tipoTesto == "solare")
        tipo = TipoRivoluzione::Solare;
    else if (tipoTesto == "tropica")
        tipo = TipoRivoluzione::LunareTropica;
    else if (tipoTesto == "sinodica")
        tipo = TipoRivoluzione::LunareSinodica;
    else
        throw ErroreArgomenti("tipo non valido: '" + tipoTesto + "' (solare, tropica, sinodica)");

    DatiRivoluzione d;
    d.tipo = tipo;
    d.AnnoRiv =
        static_cast<float>(LeggiNumero(a.Richiesta("anno"), "anno", AnnoMinimo, AnnoMassimo));
    d.MeseRiv = static_cast<float>(LeggiNumero(a.Opzione("mese").value_or("1"), "mese", 1, 12));
    d.GiornoRiv =
        static_cast<float>(LeggiNumero(a.Opzione("giorno").value_or("1"), "giorno", 1, 31));
    if (tipo == TipoRivoluzione::Solare && (a.Opzione("mese") || a.Opzione("giorno")))
        throw ErroreArgomenti("la rivoluzione solare parte dall'anno: --mese e --giorno non "
                              "servono");

    RivoluzioneCercata r;
    Sessione& s = r.s;
    s = ConNatale(a, messaggi);
    if (tipo == TipoRivoluzione::LunareSinodica) {
        if (a.Opzione("ritorno") || a.Opzione("grado"))
            throw ErroreArgomenti("la rivoluzione sinodica vuole --angolo A o --angolo natale");
        std::string angolo = conAngolo ? a.Opzione("angolo").value_or("natale") : "natale";
        d.bersaglio = angolo == "natale" ? AngoloSinodico(true, s.PosNat)
                                         : Norma360(LeggiNumero(angolo, "angolo", -360, 360), 1);
    } else {
        if (conAngolo && a.Opzione("angolo"))
            throw ErroreArgomenti("--angolo vale solo per la sinodica");
        if (a.Opzione("ritorno") && a.Opzione("grado"))
            throw ErroreArgomenti("--ritorno e --grado non vanno insieme");
        if (auto g = a.Opzione("grado"))
            d.bersaglio = Norma360(LeggiNumero(*g, "grado", -360, 360), 1);
        else
            d.bersaglio =
                GradoRitorno(Riga(a, "ritorno", tipo == TipoRivoluzione::Solare ? 0 : 1), s.PosNat);
    }

    s.TemaX = PreparaTemaRivoluzione(s.TemaNat, tipo, s.LunaGeo);
    r.e = CercaRivoluzione(s, d, messaggi);
    if (r.e.trovato && a.Flag("primo")) AccettaRivoluzione(s, r.e, true);
    r.d = d;
    return r;
}

bool RilocaRivoluzione(RivoluzioneCercata& r, const Argomenti& a, Messaggi& messaggi) {
    if (!a.Flag("rilocata")) {
        if (a.Opzione("lon-rilocata") || a.Opzione("lat-rilocata"))
            throw ErroreArgomenti("--lon-rilocata e --lat-rilocata vanno con --rilocata");
        return false;
    }
    Sessione& s = r.s;
    s.TemaZ = s.TemaX;
    s.TemaZ.Lon = LeggiLongitudine(a.Richiesta("lon-rilocata"));
    s.TemaZ.Lat = LeggiLatitudine(a.Richiesta("lat-rilocata"));
    // A step of nothing from the new place: the same instant on its local mean time.
    if (Rilocazione(s, AsseRilocazione::EstOvest, 0, messaggi) != EsitoRilocazione::Rilocata)
        throw ErroreArgomenti("luogo della rilocazione non valido");
    s.TemaX = s.TemaRiv;
    return true;
}

int ComandoRivoluzione(const Parole& parole, std::ostream& out) {
    std::vector<std::string> proprie = OpzioniRivoluzione(true);
    Argomenti a = Leggi(parole, proprie, {"json", "primo", "rilocata"});
    MessaggiConsole messaggi(Avvisi());
    RivoluzioneCercata r = CercaRivoluzioneDaArgomenti(a, true, messaggi);
    if (!r.e.trovato) return NonTrovato("rivoluzione non trovata");
    RilocaRivoluzione(r, a, messaggi);
    const Sessione& s = r.s;
    const EsitoRivoluzione& e = r.e;
    const DatiRivoluzione& d = r.d;

    std::vector<std::pair<std::string, std::string>> campi{
        {"JDRisultato", JsonNumero(s.JDRivoluzione)}, {"Bersaglio", JsonNumero(d.bersaglio)}};
    std::string righe;
    if (e.dueRitorni) {
        campi.emplace_back("JDPrimoRitorno", JsonNumero(e.jdPrimo));
        campi.emplace_back("JDSecondoRitorno", JsonNumero(e.jd));
        righe += "Due ritorni in questo mese:\n" + RigaIstante("JDPrimoRitorno", e.jdPrimo) +
                 RigaIstante("JDSecondoRitorno", e.jd);
    }
    righe += RigaIstante("JDRisultato", s.JDRivoluzione);
    return Stampa(s.TemaX, s.LunaGeo, a, out, campi, righe);
}

int ComandoDirezione(const Parole& parole, std::ostream& out) {
    Argomenti a = Leggi(parole, {"anni", "data-direzione"}, {"json", "frazione"});
    // --data is the natal date; the date of the direction is --data-direzione.
    bool perAnni = a.Opzione("anni").has_value();
    if (perAnni == a.Opzione("data-direzione").has_value())
        throw ErroreArgomenti("serve --anni X oppure --data-direzione GG/MM/AAAA");
    if (perAnni && a.Flag("frazione"))
        throw ErroreArgomenti("--frazione vale solo con --data-direzione");
    MessaggiConsole messaggi(Avvisi());
    Sessione s = ConNatale(a, messaggi);
    float api = 0;
    if (perAnni) {
        double anni = LeggiNumero(*a.Opzione("anni"), "anni");
        // A day for a year: the directed day must stay in the calendar.
        double giorno = s.TemaNat.Day + anni;
        if (giorno < JdMinimo || giorno > JdMassimo)
            throw ErroreArgomenti("anni fuori dal calendario: la data diretta cade oltre "
                                  "-4712..9999: " +
                                  *a.Opzione("anni"));
        api = static_cast<float>(anni);
        s.TemaDir = DirezionePerAnni(s.TemaNat, api);
    } else {
        Data dd = LeggiData(*a.Opzione("data-direzione"));
        Tema input = s.TemaNat;
        input.Day = GiornoGiuliano(dd.anno, dd.mese, dd.giorno);
        s.TemaDir = DirezionePerData(s.TemaNat, input, a.Flag("frazione"), api);
    }
    double jd = s.TemaDir.JD();
    return Stampa(s.TemaDir, s.LunaGeo, a, out,
                  {{"JDRisultato", JsonNumero(jd)}, {"api", JsonNumero(api)}},
                  RigaIstante("JDRisultato", jd) + "api: " + FormatoNumero(api, "##0.00") + "\n");
}

int ComandoIngresso(const Parole& parole, std::ostream& out) {
    Argomenti a = Leggi(parole, {"pianeta", "bersaglio", "partenza"}, {"json"});
    std::string nome = a.Richiesta("pianeta");
    int pianeta = -1;
    for (std::size_t i = 0; i < VociPianetiIngresso.size(); ++i) {
        std::string voce = SenzaSpazi(VociPianetiIngresso[i]);
        if (UgualeSenzaCaso(voce, nome) || (i == 8 && UgualeSenzaCaso(nome, "nodo")))
            pianeta = PianetaDellaLista(static_cast<int>(i));
    }
    if (pianeta < 0)
        throw ErroreArgomenti("pianeta non valido: '" + nome +
                              "' (Mercurio, Venere, Marte, Giove, Saturno, Urano, Nettuno, "
                              "Plutone, Nodo)");
    DatiIngresso d;
    d.pianeta = pianeta;
    d.bersaglio = LeggiNumero(a.Richiesta("bersaglio"), "bersaglio", 0, 360);
    d.partenza = LeggiGiornoGiuliano(a.Richiesta("partenza"), "partenza");
    MessaggiConsole messaggi(Avvisi());
    Sessione s = ConNatale(a, messaggi);
    // The search's boxes go to stderr as they stand, unless it could not run: then its cause
    // alone, as the failure's one line.
    MessaggiRegistrati boxRicerca;
    EsitoIngresso e = IngressiPinS(s, d, boxRicerca);
    if (!e.errore.empty()) throw std::runtime_error(e.errore);
    for (const auto& v : boxRicerca.registro)
        if (v.tipo == MessaggiRegistrati::Voce::Box)
            messaggi.Mostra(v.titolo, v.testo, v.pulsanti, v.icona);
    if (e.giaSulBersaglio) return NonTrovato("il pianeta è già sul bersaglio al JD di partenza");
    if (!e.trovato) return NonTrovato("ingresso non trovato");

    std::vector<std::pair<std::string, std::string>> campi{
        {"JDRisultato", JsonNumero(e.jd)}, {"Longitudine", JsonNumero(e.longitudine)}};
    std::string righe = RigaIstante("JDRisultato", e.jd) +
                        "Longitudine: " + FormatoNumero(e.longitudine, "##0.000000") + "\n";
    if (e.stazione) {
        JsonOggetto st;
        st.Testo("Direzione", e.stazione->direzione)
            .Testo("Estremo", e.stazione->estremo)
            .Testo("Label7", e.stazione->label7())
            .Testo("Label8", e.stazione->label8());
        campi.emplace_back("Stazione", st.str());
        righe += e.stazione->label7() + "\n" + e.stazione->label8() + "\n";
    }
    return Stampa(s.TemaX, s.LunaGeo, a, out, campi, righe);
}

} // namespace vesmo::cli
