#include <exception>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <string_view>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "core/Aritmetica.h"

namespace vesmo::cli {

namespace {

const char* const Uso =
    "uso: vesmo-cli COMANDO [OPZIONI]\n"
    "  jd GG/MM/AAAA [HH:MM[:SS]]   giorno giuliano di una data e ora\n"
    "  data JD                      data e ora di un giorno giuliano\n"
    "  tema --data GG/MM/AAAA --ora HH:MM[:SS] --lon LON --lat LAT --fuso H [--estiva H]\n"
    "       [--nome TESTO] [--luna geo|topo]   tema natale (LON 11E53 o 11.88E, LAT 45N24)\n"
    "       --city NOME [--nazione NOME] [--db FILE] al posto di --lon --lat --fuso --estiva\n"
    "  effemeridi --jd JD           posizioni geocentriche all'istante JD (TU)\n"
    "  rivoluzione --tipo solare|tropica|sinodica OPZIONI-TEMA --anno AAAA [--mese MM]\n"
    "       [--giorno GG] [--ritorno N | --grado G] [--angolo A|natale] [--primo]\n"
    "       [--rilocata --lon-rilocata LON --lat-rilocata LAT]  rilocata, sul tempo medio locale\n"
    "                               rivoluzione solare o lunare dal tema natale\n"
    "  direzione OPZIONI-TEMA (--anni X | --data-direzione GG/MM/AAAA [--frazione])\n"
    "                               direzione secondaria del tema natale\n"
    "  ingresso OPZIONI-TEMA --pianeta NOME --bersaglio G --partenza JD\n"
    "                               quando il pianeta sarà sul grado G\n"
    "  luogo --city NOME [--nazione NOME] [--data GG/MM/AAAA --ora HH:MM]\n"
    "                               luogo, fuso e ora estiva (oggi, adesso se mancano)\n"
    "  cerca TESTO [--nazione NOME] i primi 20 luoghi il cui nome comincia con TESTO, poi\n"
    "                               quelli con un altro nome che comincia così\n"
    "  vicine --lon LON --lat LAT [--db FILE]  le città più vicine al punto, come le\n"
    "                               elenca la rivoluzione rilocata\n"
    "  importa FILE [--archivio NOME] [--log FILE]\n"
    "                               file di testo Solar Fire in un nuovo archivio\n"
    "  importa FILE --formato aaf|csv [--archivio NOME] [--doppi] [--log FILE]\n"
    "                               file AAF o CSV nell'archivio (creato se manca); i temi\n"
    "                               già presenti sono saltati salvo --doppi\n"
    "  esporta ARCHIVIO [--formato sf|aaf|csv] [--out FILE]   archivio in un file di testo\n"
    "  query --da ARCHIVIO --a NOME --punto PUNTO (--luogo SEGNO|CASA | --angolo PUNTO|SEGNO|CASA\n"
    "       --aspetto NOME|GRADI [--orbita X] | --verso diretto|retrogrado) [--luna geo|topo]\n"
    "       [--condizione \"--punto P --luogo ...\"]...   i temi dell'archivio che soddisfano\n"
    "       tutte le condizioni, copiati nella tabella Q_NOME; per esempio\n"
    "       query --da Miei --a SolCngMerVenToro --punto Sole --angolo Mercurio\n"
    "             --aspetto congiunzione --condizione \"--punto Venere --luogo Toro\"\n"
    "  importa, esporta e query leggono --db FILE come luogo e cerca.\n"
    "  deltat --data GG/MM/AAAA     DeltaT = TE - TU, in secondi, minuti e ore\n"
    "  eqt --data GG/MM/AAAA --ora HH:MM   equazione del tempo, in radianti\n"
    "  eclequ --data GG/MM/AAAA --ora HH:MM (--segno N --lon \"G P S\" [--lat \"G P\"] |\n"
    "       --ar \"H M S\" [--dec \"G P\"])   eclittiche <---> equatoriali\n"
    "  formati (--gradi \"G P S\" | --ore \"H M S\" | --gradi-decimali X | --ore-decimali X |\n"
    "       --radianti X)            un angolo nelle cinque notazioni\n"
    "  aspetti OPZIONI-TEMA [--con-data GG/MM/AAAA --con-ora HH:MM [--con-estiva H]]\n"
    "       [--orbita G]            griglia degli aspetti del tema con se stesso o con\n"
    "                               il secondo tema nello stesso luogo\n"
    "  transiti OPZIONI-TEMA [--da GG/MM/AAAA] [--a GG/MM/AAAA] [--pianeti LISTA]\n"
    "       [--punti LISTA] [--aspetti LISTA] [--orbita G]   ogni transito esatto del periodo\n"
    "                               (l'anno in corso se manca) ai punti del tema, con\n"
    "                               ingresso e uscita dall'orbita; liste separate da virgole;\n"
    "                               ora locale con il fuso e l'ora estiva di ogni data (dal\n"
    "                               database con --city, se no quelli del tema)\n"
    "  salva OPZIONI-TEMA --archivio NOME [--doppio sovrascrivi|aggiungi]\n"
    "                               scrive il tema nell'archivio (creato se manca)\n"
    "  archivi                      gli archivi dei temi e quanti temi hanno\n"
    "  archivio NOME                i temi di un archivio in ordine di nome\n"
    "       [--cerca \"PAROLE dal:GG/MM/AAAA al:GG/MM/AAAA luogo:TESTO commento:PAROLA\"]\n"
    "                               solo quelli trovati (parole del nome; dal e al anche\n"
    "                               con l'anno solo; maiuscole e accenti indifferenti)\n"
    "  db pulizia fusi|estive [--elimina]  codici senza luoghi (e loro eliminazione)\n"
    "  db compatta                  compattazione del database dei luoghi\n"
    "  db copia fusi|estive --da CODICE --a CODICE   copia di una lista sotto un nuovo codice\n"
    "  db zona CODICE, db estive CODICE   la lista datata di un codice\n"
    "  db sicurezza FILE            copia di sicurezza dell'intero database in FILE (nuovo)\n"
    "  db ripristina FILE [ARCHIVIO]   riporta gli archivi (o quello) da una copia; un nome\n"
    "                               già presente riceve _1, _2...\n"
    "  luogo, cerca, salva, archivi e archivio leggono --db FILE, se no data/Vesmodat.Mdb\n"
    "  dei sorgenti del programma, se no (programma installato) il database dell'utente,\n"
    "  se no ./data/Vesmodat.Mdb.\n"
#ifdef VESMO_CON_QT
    "  ruota OPZIONI-DEL-TEMA --out FILE.png|.svg|.pdf [--size N] [--aspetti] [--asc]\n"
    "       [--angolo GRADI] [--nodi N] [--transito \"GG/MM/AAAA HH:MM\" [--estiva-transito H]\n"
    "       [--case-transito] [--zodiaco CASA]]   ruota del tema, o doppia con il transito\n"
    "       [--ascensionale ar|ao] [--arco ANNI]   ruota ascensionale; arco solare\n"
    "       [--rilocata --tipo T --anno AAAA --lon-rilocata LON --lat-rilocata LAT [--db FILE]]\n"
    "                               rivoluzione rilocata con la mappa dei fusi e le città vicine\n"
    "  stampa OPZIONI-DEL-TEMA --out FILE.pdf|.png [--aspetti] [--orbita G]\n"
    "       [--slot natale|transito|rivoluzione|direzione] [--bmp NOME [--dir CARTELLA]]\n"
    "                               pagina stampata del tema (A4), o i due file .bmp\n"
#endif
    "  --comandi                    i nomi dei comandi, uno per riga\n"
    "Ogni comando accetta --json.\n";

// The lines of the usage that tell one command: those that begin with its name, each with the
// indented lines that go on from it.
std::string UsoDelComando(const std::string& comando) {
    std::string r;
    bool dentro = false;
    std::size_t inizio = 0;
    const std::string_view uso = Uso;
    while (inizio < uso.size()) {
        std::size_t fine = uso.find('\n', inizio);
        if (fine == std::string_view::npos) fine = uso.size();
        const std::string_view riga = uso.substr(inizio, fine - inizio);
        inizio = fine + 1;
        if (riga.rfind("  " + comando + " ", 0) == 0 || riga == "  " + comando) {
            dentro = true;
        } else if (!(dentro && riga.rfind("   ", 0) == 0)) {
            dentro = false;
            continue;
        }
        r += r.empty() ? "uso: vesmo-cli " + std::string(riga.substr(2)) : std::string(riga);
        r += '\n';
    }
    if (r.empty()) r = "uso: vesmo-cli " + comando + " [OPZIONI]\n";
    return r + "  --json                       risposta in JSON\n";
}

// A request for help: -h or --help right after the command's name or last on the line.
bool ChiedeAiuto(const Parole& parole) {
    auto aiuto = [](const std::string& p) { return p == "--help" || p == "-h"; };
    return parole.size() >= 2 && (aiuto(parole[1]) || aiuto(parole.back()));
}

} // namespace

std::ostream& Avvisi() {
    thread_local std::ostringstream avvisi;
    return avvisi;
}

namespace {

// The notices of one run: collected from its start, written out by the end of a run that did
// not fail with an exception.
class AvvisiDellEsecuzione {
public:
    AvvisiDellEsecuzione() { Svuota(); }
    ~AvvisiDellEsecuzione() { Svuota(); }
    void Scrivi(std::ostream& err) {
        err << static_cast<std::ostringstream&>(Avvisi()).str();
        Svuota();
    }

private:
    static void Svuota() {
        auto& a = static_cast<std::ostringstream&>(Avvisi());
        a.str({});
        a.clear();
    }
};

} // namespace

int Esegui(const Parole& parole, std::ostream& out, std::ostream& err) {
    static const std::map<std::string, std::function<int(const Parole&, std::ostream&)>> comandi{
        {"jd", ComandoJd},
        {"data", ComandoData},
        {"tema", ComandoTema},
        {"effemeridi", ComandoEffemeridi},
#ifdef VESMO_CON_QT
        {"ruota", ComandoRuota},
        {"stampa", ComandoStampa},
#endif
        {"rivoluzione", ComandoRivoluzione},
        {"direzione", ComandoDirezione},
        {"ingresso", ComandoIngresso},
        {"luogo", ComandoLuogo},
        {"cerca", ComandoCerca},
        {"aspetti", ComandoAspetti},
        {"transiti", ComandoTransiti},
        {"vicine", ComandoVicine},
        {"importa", ComandoImporta},
        {"esporta", ComandoEsporta},
        {"query", ComandoQuery},
        {"deltat", ComandoDeltaT},
        {"eqt", ComandoEqT},
        {"eclequ", ComandoEclEqu},
        {"formati", ComandoFormati},
        {"salva", ComandoSalva},
        {"archivi", ComandoArchivi},
        {"archivio", ComandoArchivio},
        {"db", ComandoDb},
    };
    if (parole.empty() || parole[0] == "--help" || parole[0] == "-h" || parole[0] == "aiuto") {
        (parole.empty() ? err : out) << Uso;
        return parole.empty() ? 2 : 0;
    }
    if (parole.size() == 1 && parole[0] == "--comandi") {
        for (const auto& voce : comandi)
            out << voce.first << '\n';
        return 0;
    }
    auto it = comandi.find(parole[0]);
    if (it == comandi.end()) {
        err << "vesmo-cli: comando sconosciuto: " << UnaRiga(parole[0]) << '\n';
        return 2;
    }
    if (ChiedeAiuto(parole)) {
        out << UsoDelComando(parole[0]);
        return 0;
    }
    AvvisiDellEsecuzione avvisi;
    try {
        const int stato = it->second(Parole(parole.begin() + 1, parole.end()), out);
        avvisi.Scrivi(err);
        return stato;
    } catch (const ErroreArgomenti& e) {
        err << "vesmo-cli " << parole[0] << ": " << UnaRiga(e.what()) << '\n';
        return 2;
    } catch (const ErroreAritmetico& e) {
        err << "vesmo-cli " << parole[0] << ": errore di calcolo: " << UnaRiga(e.what()) << '\n';
        return 1;
    } catch (const std::exception& e) {
        err << "vesmo-cli " << parole[0] << ": " << UnaRiga(e.what()) << '\n';
        return 1;
    }
}

} // namespace vesmo::cli
