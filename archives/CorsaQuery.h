// The threads of the chart query: this thread reads the source archive row by row and tells the
// progress while worker threads cast each chart as soon as it has been read and judge it by
// the query's rules (TemaColpito); then the hits are written in the order of the source. What a
// chart must show to pass is decided in Query.h alone.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "archives/Query.h"
#include "core/Messaggi.h"
#include "core/Tema.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo {

// The ten fields a hit copies from the source into the result, in this order.
extern const char* const CampiCopia[10];

// One run over `n` source rows. The object is shared by the threads of the run.
class CorsaQuery {
public:
    CorsaQuery(std::size_t n, const std::vector<CondizioneQuery>& condizioni, std::int16_t lunaGeo,
               const AvanzamentoQuery& avanzamento, EsitoQuery& esito);

    // Starts `fili` workers (at least one, at most one a row), reads the rows of `rs` from where
    // it stands, then waits until every row read is cast or the run is stopped; closes `rs`.
    // A stop asked through the progress sets the outcome's Fermata. A reading error stops the
    // workers and goes on to the caller.
    void Corri(Cursore& rs, unsigned fili);

    // Writes the hits into table `risultato` of `db`, one transaction, in the order of the
    // source up to the first chart not cast (or whose houses could not be found), repeating
    // each chart's messages through `messaggi` as it goes; counts the charts examined and the
    // hits in the outcome. Tells the progress every 50 ms and once at the end. A database error
    // rolls the transaction back and goes on to the caller.
    void ScriviColpi(Database& db, const std::string& risultato, Messaggi& messaggi);

private:
    // One source row: its ten fields as they stand, and the chart read from them.
    struct Riga {
        std::array<Valore, 10> campi;
        Tema tema;
    };
    // What the casting of one chart left: the hit, and the messages it showed.
    struct Giudizio {
        bool colpito = false;
        bool interrotto = false; // the houses never converged: the run ends here
        std::vector<MessaggiRegistrati::Voce> messaggi;
    };

    std::size_t n_;
    const std::vector<CondizioneQuery>& condizioni_;
    std::int16_t lunaGeo_;
    const AvanzamentoQuery& avanzamento_;
    EsitoQuery& esito_;
    BisognoQuery bisogno_;
    std::vector<Riga> righe_;
    std::vector<Giudizio> giudizi_;
    std::vector<char> fatto_;
    std::atomic<std::size_t> letti_{0};
    std::atomic<bool> letturaFinita_{false};
    std::atomic<std::size_t> prossimo_{0};
    std::atomic<std::int64_t> contati_{0};
    std::atomic<bool> ferma_{false};
    std::int64_t totale_;

    // A worker's loop: takes the next row not taken, waits until it has been read, casts and
    // judges it; returns when the rows are done, the reading ended short of the row, or the
    // run is stopped. A chart whose houses cannot be found stops the run.
    void Lavora();
    // Reads the rows of `rs` into the shared list, releasing each to the workers, until the
    // source ends, `n` rows are read or the run is stopped; sets the total to the rows read.
    void Leggi(Cursore& rs);
    // Asks the progress whether to go on; a no stops the run.
    void Chiedi();
};

} // namespace vesmo
