#include "archives/Query.h"

#include <algorithm>
#include <cmath>
#include <thread>

#include "archives/Archivi.h"
#include "archives/CorsaQuery.h"
#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "chart/Case.h"
#include "core/Testo.h"
#include "core/store/Cursore.h"

namespace vesmo {

const std::array<const char*, 26> RigheFrom = {
    "Sole",        "Luna",         "Mercurio",   "Venere",    "Marte",         "Giove",
    "Saturno",     "Urano",        "Nettuno",    "Plutone",   "NodoNord Luna", "Lilith Media",
    "Lilith Vera", "------------", "Ascendente", "II Casa",   "III Casa",      "IV Casa",
    "V Casa",      "VI Casa",      "VII Casa",   "VIII Casa", "IX Casa",       "MC",
    "XI Casa",     "XII Casa"};

const std::array<const char*, 39> RigheTo = {
    "Ariete",        "Toro",         "Gemelli",    "Cancro",     "Leone",     "Vergine",
    "Bilancia",      "Scorpione",    "Sagittario", "Capricorno", "Acquario",  "Pesci",
    "------------",  "I    Casa",    "II   Casa",  "III  Casa",  "IV   Casa", "V    Casa",
    "VI   Casa",     "VII  Casa",    "VIII Casa",  "IX   Casa",  "X    Casa", "XI   Casa",
    "XII  Casa",     "------------", "Sole",       "Luna",       "Mercurio",  "Venere",
    "Marte",         "Giove",        "Saturno",    "Urano",      "Nettuno",   "Plutone",
    "NodoNord Luna", "Lilith Media", "Lilith Vera"};

const std::array<const char*, 2> RigheVerso = {"Diretto", "Retrogrado"};

std::string RigaAspetto(int k) {
    std::string nome;
    for (char c : std::string(NomiAspetti[static_cast<std::size_t>(k)]))
        if (c != ' ') nome.push_back(c);
    return nome + "  " + TestoNumero(AngoliAspetti[static_cast<std::size_t>(k)]) + "°";
}

bool SelezioneValida(const CondizioneQuery& q) {
    if (q.lf < 0 || q.lf > 25 || q.lf == 13) return false;
    if (q.opzione != OpzioneQuery::Verso && (q.lt < 0 || q.lt > 38 || q.lt == 12 || q.lt == 25))
        return false;
    if (q.opzione == OpzioneQuery::Luogo) {
        if (q.lt >= 26) return false;                             // a body isn't a place
        if (q.lf >= 13 && q.lt >= 13 && q.lt <= 24) return false; // a cusp against a house
    }
    if (q.opzione == OpzioneQuery::Verso) {
        if (q.lf == 0 || q.lf == 1 || q.lf > 9) return false;
        if (q.verso < 0 || q.verso > 1) return false;
    }
    if (q.opzione == OpzioneQuery::Angolo && (q.aspetto < 0 || q.aspetto >= NumeroAspetti))
        return false;
    return true;
}

BisognoQuery BisognoDi(const std::vector<CondizioneQuery>& condizioni) {
    BisognoQuery b;
    auto punto = [&b](int riga) {
        if (riga <= 12)
            b.punti |= 1u << riga;
        else
            b.conCase = true;
    };
    for (const CondizioneQuery& q : condizioni) {
        punto(q.lf);
        switch (q.opzione) {
        case OpzioneQuery::Luogo:
            if (q.lt >= 13) b.conCase = true; // the house of the point
            break;
        case OpzioneQuery::Angolo:
            if (q.lt >= 26)
                punto(q.lt - 26);
            else if (q.lt >= 13)
                b.conCase = true;
            break;
        case OpzioneQuery::Verso:
            b.conMoto = true;
            break;
        }
    }
    return b;
}

void CastaPerQuery(const Tema& tema, const BisognoQuery& bisogno, Case& cuspidi, Posizioni& pos,
                   std::int16_t lunaGeo, Messaggi& messaggi) {
    if (bisogno.conCase) CalcoloCase(tema, cuspidi, pos, 1, messaggi);
    if (bisogno.punti)
        CalcolaPunti(tema, bisogno.conCase ? &cuspidi : nullptr, pos, lunaGeo, bisogno.punti,
                     bisogno.conMoto, messaggi);
}

const Posizione& PuntoFrom(int lf, const Case& cuspidi, const Posizioni& pos) {
    static constexpr Posizione Posizioni::*Corpi[13] = {
        &Posizioni::Sole,      &Posizioni::Luna,    &Posizioni::Mercurio, &Posizioni::Venere,
        &Posizioni::Marte,     &Posizioni::Giove,   &Posizioni::Saturno,  &Posizioni::Urano,
        &Posizioni::Nettuno,   &Posizioni::Plutone, &Posizioni::NodoLuna, &Posizioni::LilithMedia,
        &Posizioni::LilithVera};
    if (lf <= 12) return pos.*Corpi[lf];
    return cuspidi[lf - 13];
}

bool ProvaCondizione(const CondizioneQuery& q, const Case& cuspidi, const Posizioni& pos) {
    const Posizione& da = PuntoFrom(q.lf, cuspidi, pos);
    const double l = da.Lo;
    const double segno = q.lt < 12 ? q.lt * 30.0 : -1;
    const int casa = q.lt > 12 ? q.lt - 12 : -1;
    switch (q.opzione) {
    case OpzioneQuery::Luogo:
        if (segno >= 0) return segno <= l && l < segno + 30;
        return da.Ca == casa;
    case OpzioneQuery::Angolo: {
        double d;
        if (segno >= 0)
            d = std::fabs(l - segno);
        else if (q.lt <= 24)
            d = std::fabs(l - cuspidi[q.lt - 12].Lo);
        else
            d = std::fabs(l - PuntoFrom(q.lt - 26, cuspidi, pos).Lo);
        if (d > 180) d = 360 - d;
        const double aspetto = AngoliAspetti[static_cast<std::size_t>(q.aspetto)];
        const double orbita = q.orbita;
        return aspetto - orbita <= d && d <= aspetto + orbita;
    }
    case OpzioneQuery::Verso:
        return da.Mv == (q.verso == 0 ? 0 : -1);
    }
    return false;
}

std::string NomeRisultato(const std::string& testo) {
    std::string nome = SenzaSpazi(testo);
    if (nome.rfind(PrefissoQuery, 0) != 0) nome = PrefissoQuery + nome;
    return nome;
}

bool TemaColpito(const Tema& tema, const BisognoQuery& bisogno,
                 const std::vector<CondizioneQuery>& condizioni, std::int16_t lunaGeo,
                 Messaggi& messaggi) {
    Case cuspidi;
    Posizioni pos;
    CastaPerQuery(tema, bisogno, cuspidi, pos, lunaGeo, messaggi);
    for (const CondizioneQuery& q : condizioni)
        if (!ProvaCondizione(q, cuspidi, pos)) return false;
    return true;
}

namespace {

// The database keeps one table of a name whatever its case: a result name typed in other
// letters adds to the table that stands.
bool EsisteTabella(const Database& db, const std::string& nome) {
    for (const std::string& t : db.Tabelle())
        if (UgualeSenzaCaso(SenzaSpazi(t), nome)) return true;
    return false;
}

} // namespace

EsitoQuery EseguiQuery(const std::string& fileDB, const std::string& sorgente,
                       const std::string& risultato, const std::vector<CondizioneQuery>& condizioni,
                       std::int16_t lunaGeo, Messaggi& messaggi,
                       const AvanzamentoQuery& avanzamento, unsigned fili) {
    EsitoQuery esito;
    esito.Tabella = risultato;
    Database db(fileDB);
    if (!EsisteTabella(db, risultato)) {
        CreaArchivio(fileDB, risultato);
        esito.NuovaTabella = true;
    }
    // The source as it stands now, in index order.
    Cursore rs(db, sorgente);
    rs.Index(IndiceArchivio);
    const auto n = static_cast<std::size_t>(std::max<std::int64_t>(0, rs.RecordCount()));
    CorsaQuery corsa(n, condizioni, lunaGeo, avanzamento, esito);
    corsa.Corri(rs, fili == 0 ? std::max(1u, std::thread::hardware_concurrency()) : fili);
    corsa.ScriviColpi(db, risultato, messaggi);
    return esito;
}

std::optional<EsitoQuery> AvvioQuery(const std::string& fileDB, const std::string& sorgente,
                                     const std::string& testoRisultato,
                                     const std::vector<CondizioneQuery>& condizioni,
                                     std::int16_t lunaGeo, Messaggi& messaggi,
                                     const AvanzamentoQuery& avanzamento,
                                     const std::function<void(const std::string&)>& nuovaTabella) {
    const std::string da = SenzaSpazi(sorgente);
    if (SenzaSpazi(testoRisultato).empty()) {
        messaggi.Mostra("Vesmo - Query", "Manca (new) Archivio Query To !!!");
        return std::nullopt;
    }
    const std::string a = NomeRisultato(testoRisultato);
    if (std::optional<std::string> errore = ErroreNomeArchivio(a)) {
        messaggi.Mostra("Vesmo - Query", "Nome Non Valido: " + *errore, Pulsanti::Ok,
                        Icona::Esclamativo);
        return std::nullopt;
    }
    for (const CondizioneQuery& q : condizioni)
        if (!SelezioneValida(q)) {
            messaggi.Mostra("Vesmo - Query", "Selezione  NON  valida!");
            return std::nullopt;
        }
    {
        Database db(fileDB);
        bool vuoto = true;
        bool trovato = false;
        for (const std::string& t : db.Tabelle())
            if (t == da) trovato = true;
        if (trovato) vuoto = Cursore(db, da).RecordCount() == 0;
        if (!trovato) throw ErroreDB(ErroreDB::TabellaNonTrovata, "Archivio non trovato: " + da);
        if (vuoto) {
            messaggi.Mostra("Vesmo - Query", "Archivio " + da + " vuoto");
            return std::nullopt;
        }
        if (!EsisteTabella(db, a)) {
            CreaArchivio(fileDB, a);
            if (nuovaTabella) nuovaTabella(a);
        }
    }
    Clessidra clessidra(messaggi);
    return EseguiQuery(fileDB, da, a, condizioni, lunaGeo, messaggi, avanzamento);
}

const char* const TitoloAiutoQuery = "Help - Query Astrologiche";

std::string TestoAiutoQuery() {
    return "Esempio: dal proprio archivio si vogliono i temi con il Sole congiunto a Mercurio\n"
           "e Venere in Toro.\n"
           "\n"
           "Primo passo: \"Sole\" nella Lista From, opzione \"Angolo\", \"Mercurio\" nella\n"
           "Lista TO, l'archivio di partenza come Archivio Query From, \"SolCngMer\" come\n"
           "(new) Archivio Query TO, Avvio Query.\n"
           "\n"
           "Secondo passo: \"Venere\" nella Lista From, opzione \"Luogo\", \"Toro\" nella\n"
           "Lista TO, \"Q_SolCngMer\" come Archivio Query From, \"SolCngMerVenToro\" come\n"
           "(new) Archivio Query TO, Avvio Query.\n"
           "\n"
           "Con Luogo un segno o una casa vogliono dire dentro il segno o la casa;\n"
           "con Angolo vogliono dire l'inizio del segno o la cuspide della casa.\n"
           "Il prefisso \"Q_\" viene aggiunto automaticamente al nome della tabella.\n"
           "L'orbita predefinita è 2,5 gradi.\n"
           "Le vecchie tabelle si eliminano con la Gestione Archivi.\n";
}

} // namespace vesmo
