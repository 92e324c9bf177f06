#include "archives/CorsaQuery.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "chart/Case.h"

namespace vesmo {

namespace {

using Orologio = std::chrono::steady_clock;
constexpr auto PassoAvviso = std::chrono::milliseconds(50);

} // namespace

const char* const CampiCopia[10] = {"Nome", "City", "Nazione", "Day",    "OraL",
                                    "Lon",  "Lat",  "Fuso",    "Estiva", "Cmto"};

CorsaQuery::CorsaQuery(std::size_t n, const std::vector<CondizioneQuery>& condizioni,
                       std::int16_t lunaGeo, const AvanzamentoQuery& avanzamento, EsitoQuery& esito)
    : n_(n), condizioni_(condizioni), lunaGeo_(lunaGeo), avanzamento_(avanzamento), esito_(esito),
      bisogno_(BisognoDi(condizioni)), righe_(n), giudizi_(n), fatto_(n, 0),
      totale_(static_cast<std::int64_t>(n)) {}

void CorsaQuery::Lavora() {
    MessaggiRegistrati m;
    for (;;) {
        if (ferma_.load(std::memory_order_relaxed)) return;
        std::size_t i = prossimo_.fetch_add(1);
        if (i >= n_) return;
        // Ahead of the reading: wait for the row.
        while (i >= letti_.load(std::memory_order_acquire)) {
            if (ferma_.load(std::memory_order_relaxed)) return;
            if (letturaFinita_.load(std::memory_order_acquire) &&
                i >= letti_.load(std::memory_order_acquire))
                return;
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        m.registro.clear();
        Giudizio& g = giudizi_[i];
        try {
            g.colpito = TemaColpito(righe_[i].tema, bisogno_, condizioni_, lunaGeo_, m);
        } catch (const ErroreLoopCase&) {
            g.interrotto = true;
            ferma_ = true;
        }
        if (!m.registro.empty()) g.messaggi = std::move(m.registro);
        fatto_[i] = 1;
        contati_.fetch_add(1, std::memory_order_relaxed);
    }
}

void CorsaQuery::Chiedi() {
    if (avanzamento_ && !avanzamento_(contati_.load(), totale_)) {
        ferma_ = true;
        esito_.Fermata = true;
    }
}

void CorsaQuery::Leggi(Cursore& rs) {
    auto prossimoAvviso = Orologio::now() + PassoAvviso;
    std::size_t k = 0;
    for (; k < n_ && !rs.Eof() && !ferma_.load(); rs.MoveNext(), ++k) {
        Riga& r = righe_[k];
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
        letti_.store(k + 1, std::memory_order_release);
        if (Orologio::now() >= prossimoAvviso) {
            Chiedi();
            prossimoAvviso = Orologio::now() + PassoAvviso;
        }
    }
    totale_ = static_cast<std::int64_t>(k);
}

void CorsaQuery::Corri(Cursore& rs, unsigned fili) {
    if (fili == 0) fili = 1;
    fili = static_cast<unsigned>(std::min<std::size_t>(fili, std::max<std::size_t>(1, n_)));
    std::vector<std::jthread> lavoratori;
    for (unsigned k = 0; k < fili; ++k)
        lavoratori.emplace_back([this] { Lavora(); });
    try {
        Leggi(rs);
    } catch (...) {
        ferma_ = true;
        letturaFinita_ = true;
        throw;
    }
    letturaFinita_ = true;
    rs.Chiudi();
    while (contati_.load() < totale_ && !ferma_.load()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Chiedi();
    }
}

void CorsaQuery::ScriviColpi(Database& db, const std::string& risultato, Messaggi& messaggi) {
    Cursore out(db, risultato);
    db.IniziaTransazione();
    try {
        auto prossimoAvviso = Orologio::now() + PassoAvviso;
        for (std::size_t i = 0; i < n_ && fatto_[i]; ++i) {
            // The window stays alive while the hits are written; a stop asked now changes
            // nothing, the charts are cast already.
            if (avanzamento_ && Orologio::now() >= prossimoAvviso) {
                avanzamento_(contati_.load(), totale_);
                prossimoAvviso = Orologio::now() + PassoAvviso;
            }
            for (const auto& v : giudizi_[i].messaggi) {
                if (v.tipo == MessaggiRegistrati::Voce::Beep)
                    messaggi.Beep();
                else if (v.tipo == MessaggiRegistrati::Voce::Box)
                    messaggi.Mostra(v.titolo, v.testo, v.pulsanti, v.icona);
            }
            ++esito_.Esaminati;
            if (giudizi_[i].interrotto) break;
            if (!giudizi_[i].colpito) continue;
            out.AddNew();
            for (std::size_t k = 0; k < 10; ++k)
                out.Imposta(CampiCopia[k], righe_[i].campi[k]);
            out.Update();
            ++esito_.Trovati;
        }
        out.Chiudi();
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    if (avanzamento_) avanzamento_(esito_.Esaminati, totale_);
}

} // namespace vesmo
