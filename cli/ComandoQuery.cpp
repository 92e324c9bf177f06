// vesmo-cli query: one step of the chart query, or several conditions in one pass, from an
// archive into a result table "Q_...".
#include <cctype>
#include <iostream>
#include <stdexcept>

#include "archives/Archivi.h"
#include "archives/Query.h"
#include "chart/Aspetti.h"
#include "cli/Comandi.h"
#include "cli/FileArchivi.h"
#include "cli/Json.h"
#include "core/Testo.h"

namespace vesmo::cli {

namespace {

const char* const UsoQuery =
    "uso: vesmo-cli query --da ARCHIVIO --a NOME --punto PUNTO (--luogo SEGNO|CASA | --angolo "
    "PUNTO|SEGNO|CASA --aspetto NOME|GRADI [--orbita X] | --verso diretto|retrogrado) "
    "[--condizione \"...\"]... [--luna geo|topo] [--db FILE] [--json]";

// A list's row as typed: case and extra blanks ignored.
std::string Normale(const std::string& testo) {
    std::string r;
    for (char c : testo) {
        if (c == ' ' || c == '\t') {
            if (!r.empty() && r.back() != ' ') r.push_back(' ');
        } else {
            r.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
        }
    }
    if (!r.empty() && r.back() == ' ') r.pop_back();
    return r;
}

template <std::size_t N>
int Riga(const std::array<const char*, N>& righe, const std::string& testo, int da, int a,
         const char* cosa) {
    const std::string cercato = Normale(testo);
    for (int i = da; i <= a; ++i)
        if (i < static_cast<int>(N) && Normale(righe[static_cast<std::size_t>(i)]) == cercato &&
            cercato.find("---") == std::string::npos)
            return i;
    throw ErroreArgomenti(std::string(cosa) + " sconosciuto: " + testo);
}

int Aspetto(const std::string& testo) {
    for (int k = 0; k < NumeroAspetti; ++k) {
        std::string nome;
        for (char c : std::string(NomiAspetti[static_cast<std::size_t>(k)]))
            if (c != ' ') nome.push_back(c);
        if (UgualeSenzaCaso(nome, SenzaSpazi(testo))) return k;
    }
    std::string numero = SenzaSpazi(testo);
    for (char& c : numero)
        if (c == ',') c = '.';
    if (!numero.empty() && numero.back() == '\xB0') numero.pop_back();
    if (numero.size() >= 2 && numero.compare(numero.size() - 2, 2, "\xC2\xB0") == 0)
        numero.erase(numero.size() - 2);
    double gradi = 0;
    try {
        gradi = LeggiNumero(numero, "aspetto");
    } catch (const ErroreArgomenti&) {
        throw ErroreArgomenti("aspetto sconosciuto: " + testo);
    }
    for (int k = 0; k < NumeroAspetti; ++k)
        if (std::abs(AngoliAspetti[static_cast<std::size_t>(k)] - gradi) < 1e-9) return k;
    throw ErroreArgomenti("aspetto sconosciuto: " + testo);
}

// One condition from its options.
CondizioneQuery LeggiCondizione(const Argomenti& a) {
    CondizioneQuery q;
    q.lf = Riga(RigheFrom, a.Richiesta("punto"), 0, 25, "punto");
    const int scelte =
        (a.Opzione("luogo") ? 1 : 0) + (a.Opzione("angolo") ? 1 : 0) + (a.Opzione("verso") ? 1 : 0);
    if (scelte != 1) throw ErroreArgomenti("una e una sola tra --luogo, --angolo e --verso");
    if (auto t = a.Opzione("luogo")) {
        q.opzione = OpzioneQuery::Luogo;
        q.lt = Riga(RigheTo, *t, 0, 38, "segno o casa");
    } else if (auto t = a.Opzione("angolo")) {
        q.opzione = OpzioneQuery::Angolo;
        q.lt = Riga(RigheTo, *t, 0, 38, "punto, segno o casa");
        q.aspetto = Aspetto(a.Richiesta("aspetto"));
        std::string orbita = a.Opzione("orbita").value_or("2.5");
        for (char& c : orbita)
            if (c == ',') c = '.';
        q.orbita = static_cast<float>(LeggiNumero(orbita, "orbita"));
        if (!(q.orbita >= 0 && q.orbita <= 180))
            throw ErroreArgomenti("orbita fuori da 0..180: " + orbita);
    } else {
        q.opzione = OpzioneQuery::Verso;
        q.verso = Riga(RigheVerso, *a.Opzione("verso"), 0, 1, "verso");
    }
    if (q.opzione != OpzioneQuery::Angolo && (a.Opzione("aspetto") || a.Opzione("orbita")))
        throw ErroreArgomenti("--aspetto e --orbita valgono solo con --angolo");
    if (!SelezioneValida(q)) throw ErroreArgomenti("Selezione  NON  valida!");
    return q;
}

// The text of --condizione as words: a value runs up to the next option, blanks included.
Parole ParoleCondizione(const std::string& testo) {
    Parole r;
    std::string parola;
    auto chiudi = [&] {
        if (!parola.empty()) r.push_back(parola);
        parola.clear();
    };
    std::size_t i = 0;
    while (i < testo.size()) {
        std::size_t fine = testo.find(' ', i);
        if (fine == std::string::npos) fine = testo.size();
        std::string w = testo.substr(i, fine - i);
        i = fine + 1;
        if (w.empty()) continue;
        if (w.rfind("--", 0) == 0) {
            chiudi();
            r.push_back(w);
        } else {
            parola += (parola.empty() ? "" : " ") + w;
        }
    }
    chiudi();
    return r;
}

const std::vector<std::string> OpzioniCondizione = {"punto",   "luogo",  "angolo",
                                                    "aspetto", "orbita", "verso"};

} // namespace

int ComandoQuery(const Parole& parole, std::ostream& out) {
    // --condizione may come many times: its values are taken out first.
    Parole resto;
    std::vector<std::string> condizioni;
    for (std::size_t i = 0; i < parole.size(); ++i) {
        if (parole[i] == "--condizione") {
            if (i + 1 >= parole.size()) throw ErroreArgomenti("manca il valore di --condizione");
            condizioni.push_back(parole[++i]);
        } else if (parole[i].rfind("--condizione=", 0) == 0) {
            condizioni.push_back(parole[i].substr(13));
        } else {
            resto.push_back(parole[i]);
        }
    }
    Argomenti a(resto, {"json"});
    std::vector<std::string> consentite = {"da", "a", "luna", "db", "json"};
    consentite.insert(consentite.end(), OpzioniCondizione.begin(), OpzioniCondizione.end());
    a.Consenti(consentite);
    if (!a.Posizionali().empty()) throw ErroreArgomenti(UsoQuery);

    std::vector<CondizioneQuery> prove;
    bool principale = false;
    for (const std::string& o : OpzioniCondizione)
        if (a.Opzione(o)) principale = true;
    if (principale) prove.push_back(LeggiCondizione(a));
    for (const std::string& c : condizioni) {
        Argomenti ac(ParoleCondizione(c), {});
        ac.Consenti(OpzioniCondizione);
        if (!ac.Posizionali().empty())
            throw ErroreArgomenti("--condizione: parole fuori posto: " + ac.Posizionali()[0]);
        prove.push_back(LeggiCondizione(ac));
    }
    if (prove.empty()) throw ErroreArgomenti(UsoQuery);

    const std::string da = a.Richiesta("da");
    const std::string nomeA = a.Richiesta("a");
    if (SenzaSpazi(nomeA).empty()) throw ErroreArgomenti("Manca (new) Archivio Query To !!!");
    if (auto errore = ErroreNomeArchivio(NomeRisultato(nomeA)))
        throw ErroreArgomenti("--a: " + *errore);
    std::int16_t lunaGeo = 1;
    if (auto l = a.Opzione("luna")) {
        if (Normale(*l) == "topo")
            lunaGeo = 0;
        else if (Normale(*l) != "geo")
            throw ErroreArgomenti("--luna geo o topo, non " + *l);
    }
    const std::string fileDB = DatabaseArchivi(a);
    bool trovato = false;
    for (const std::string& t : ElencoArchivi(fileDB))
        if (t == SenzaSpazi(da)) trovato = true;
    if (!trovato) throw std::runtime_error("archivio non trovato: " + da);
    MessaggiConsole messaggi(Avvisi());
    std::optional<EsitoQuery> e = AvvioQuery(fileDB, da, nomeA, prove, lunaGeo, messaggi);
    if (!e) return 1; // the source is empty: the message is on stderr
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Tabella", e->Tabella)
            .Numero("Esaminati", static_cast<double>(e->Esaminati))
            .Numero("Trovati", static_cast<double>(e->Trovati));
        out << j.str() << '\n';
    } else {
        out << "Tabella    " << e->Tabella << '\n'
            << "Esaminati  " << e->Esaminati << '\n'
            << "Trovati    " << e->Trovati << '\n';
    }
    return e->Trovati > 0 ? 0 : 1;
}

} // namespace vesmo::cli
