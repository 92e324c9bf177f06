#include "archives/Query.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <thread>

#include "archives/Archivi.h"
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

namespace {

const char* const CampiCopia[10] = {"Nome", "City", "Nazione", "Day",    "OraL",
                                    "Lon",  "Lat",  "Fuso",    "Estiva", "Cmto"};

// One source row: its ten fields as they stand, and the chart read from them.
struct RigaSorgente {
    std::array<Valore, 10> campi;
    Tema tema;
};

// What the casting of one chart left: the hit, and the messages it showed.
struct EsitoTema {
    bool colpito = false;
    bool interrotto = false; // the houses never converged: the run ends here
    std::vector<MessaggiRegistrati::Voce> messaggi;
};

// The database keeps one table of a name whatever its case: a result name typed in other
// letters adds to the table that stands.
bool EsisteTabella(const Database& db, const std::string& nome) {
    for (const std::string& t : db.Tabelle())
        if (UgualeSenzaCaso(SenzaSpazi(t), nome)) return true;
    return false;
}

void RipetiMessaggi(const std::vector<MessaggiRegistrati::Voce>& voci, Messaggi& messaggi) {
    for (const auto& v : voci) {
        if (v.tipo == MessaggiRegistrati::Voce::Beep)
            messaggi.Beep();
        else if (v.tipo == MessaggiRegistrati::Voce::Box)
            messaggi.Mostra(v.titolo, v.testo, v.pulsanti, v.icona);
    }
}

} // namespace

EsitoQuery EseguiQuery(const std::string& fileDB, const std::string& sorgente,
                       const std::string& risultato, const std::vector<CondizioneQuery>& condizioni,
                       std::int16_t lunaGeo, Messaggi& messaggi,
                       const AvanzamentoQuery& avanzamento, unsigned fili) {
    using Orologio = std::chrono::steady_clock;
    const auto passo = std::chrono::milliseconds(50);
    EsitoQuery esito;
    esito.Tabella = risultato;
    Database db(fileDB);
    if (!EsisteTabella(db, risultato)) {
        CreaArchivio(fileDB, risultato);
        esito.NuovaTabella = true;
    }

    // The source as it stands now, in index order. This thread reads it and tells the progress;
    // the workers cast each chart as soon as it has been read.
    Cursore rs(db, sorgente);
    rs.Index(IndiceArchivio);
    const auto contati0 = rs.RecordCount();
    const std::size_t n = static_cast<std::size_t>(std::max<std::int64_t>(0, contati0));
    std::vector<RigaSorgente> righe(n);
    std::vector<EsitoTema> esiti(n);
    std::vector<char> fatto(n, 0);
    std::atomic<std::size_t> letti{0};
    std::atomic<bool> letturaFinita{false};
    std::atomic<std::size_t> prossimo{0};
    std::atomic<std::int64_t> contati{0};
    std::atomic<bool> ferma{false};
    const BisognoQuery bisogno = BisognoDi(condizioni);

    auto lavora = [&] {
        MessaggiRegistrati m;
        for (;;) {
            if (ferma.load(std::memory_order_relaxed)) return;
            std::size_t i = prossimo.fetch_add(1);
            if (i >= n) return;
            // Ahead of the reading: wait for the row.
            while (i >= letti.load(std::memory_order_acquire)) {
                if (ferma.load(std::memory_order_relaxed)) return;
                if (letturaFinita.load(std::memory_order_acquire) &&
                    i >= letti.load(std::memory_order_acquire))
                    return;
                std::this_thread::sleep_for(std::chrono::microseconds(100));
            }
            Case cuspidi;
            Posizioni pos;
            m.registro.clear();
            EsitoTema& e = esiti[i];
            try {
                CastaPerQuery(righe[i].tema, bisogno, cuspidi, pos, lunaGeo, m);
                e.colpito = true;
                for (const CondizioneQuery& q : condizioni)
                    if (!ProvaCondizione(q, cuspidi, pos)) {
                        e.colpito = false;
                        break;
                    }
            } catch (const ErroreLoopCase&) {
                e.interrotto = true;
                ferma = true;
            }
            if (!m.registro.empty()) e.messaggi = std::move(m.registro);
            fatto[i] = 1;
            contati.fetch_add(1, std::memory_order_relaxed);
        }
    };
    if (fili == 0) fili = std::max(1u, std::thread::hardware_concurrency());
    fili = static_cast<unsigned>(std::min<std::size_t>(fili, std::max<std::size_t>(1, n)));
    std::int64_t totale = static_cast<std::int64_t>(n);
    auto chiedi = [&] {
        if (avanzamento && !avanzamento(contati.load(), totale)) {
            ferma = true;
            esito.Fermata = true;
        }
    };
    {
        std::vector<std::jthread> lavoratori;
        for (unsigned k = 0; k < fili; ++k)
            lavoratori.emplace_back(lavora);
        try {
            auto prossimoAvviso = Orologio::now() + passo;
            std::size_t k = 0;
            for (; k < n && !rs.Eof() && !ferma.load(); rs.MoveNext(), ++k) {
                RigaSorgente& r = righe[k];
                for (std::size_t c = 0; c < 10; ++c)
                    r.campi[c] = rs.Campo(CampiCopia[c]);
                r.tema.Nome = r.campi[0].Testo();
                r.tema.City = r.campi[1].Testo();
                r.tema.Stato = r.campi[2].Testo();
                r.tema.Day = r.campi[3].Numero();
                r.tema.OraL = r.campi[4].Numero();
                r.tema.Lon = r.campi[5].Numero();
                r.tema.Lat = r.campi[6].Numero();
                r.tema.Fuso = r.campi[7].Numero();
                r.tema.Estiva = r.campi[8].Numero();
                letti.store(k + 1, std::memory_order_release);
                if (Orologio::now() >= prossimoAvviso) {
                    chiedi();
                    prossimoAvviso = Orologio::now() + passo;
                }
            }
            totale = static_cast<std::int64_t>(k);
        } catch (...) {
            ferma = true;
            letturaFinita = true;
            throw;
        }
        letturaFinita = true;
        rs.Chiudi();
        while (contati.load() < totale && !ferma.load()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            chiedi();
        }
    }

    // The hits in the order of the source, up to the first chart not cast; the messages of
    // the casting with them.
    Cursore out(db, risultato);
    db.IniziaTransazione();
    try {
        auto prossimoAvviso = Orologio::now() + passo;
        for (std::size_t i = 0; i < n && fatto[i]; ++i) {
            // The window stays alive while the hits are written; a stop asked now changes
            // nothing, the charts are cast already.
            if (avanzamento && Orologio::now() >= prossimoAvviso) {
                avanzamento(contati.load(), totale);
                prossimoAvviso = Orologio::now() + passo;
            }
            RipetiMessaggi(esiti[i].messaggi, messaggi);
            ++esito.Esaminati;
            if (esiti[i].interrotto) break;
            if (!esiti[i].colpito) continue;
            out.AddNew();
            for (std::size_t k = 0; k < 10; ++k)
                out.Imposta(CampiCopia[k], righe[i].campi[k]);
            out.Update();
            ++esito.Trovati;
        }
        out.Chiudi();
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    if (avanzamento) avanzamento(esito.Esaminati, totale);
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
