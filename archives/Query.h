// The chart query: every chart of a source archive is cast, one condition (or several, all to
// hold) is tested on one of its points, and the charts that pass are copied into a result
// archive whose name begins with "Q_". Each chart casts only the points its conditions read,
// and the charts are shared out among the processor's cores.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/Tema.h"

namespace vesmo {

// The rows of the form's lists.
extern const std::array<const char*, 26> RigheFrom;
extern const std::array<const char*, 39> RigheTo;
extern const std::array<const char*, 2> RigheVerso;
inline constexpr const char* PrefissoQuery = "Q_";
inline constexpr const char* OrbitaPredefinita = "2,5";

// The row of the aspect list: the name without blanks, two blanks, the angle, "°".
std::string RigaAspetto(int k);

enum class OpzioneQuery { Luogo, Angolo, Verso };

struct CondizioneQuery {
    OpzioneQuery opzione = OpzioneQuery::Luogo;
    int lf = 0;         // row of the list From
    int lt = 0;         // row of the list TO (Luogo, Angolo)
    int aspetto = 0;    // row of the aspect list (Angolo)
    float orbita = 2.5; // degrees (Angolo)
    int verso = 0;      // row of the list Verso (Verso)
};

// The rules of a valid selection.
bool SelezioneValida(const CondizioneQuery& q);

// What the conditions read: the points (bits of CalcolaPunti), the houses, the motion.
struct BisognoQuery {
    std::uint32_t punti = 0;
    bool conCase = false;
    bool conMoto = false;
};
BisognoQuery BisognoDi(const std::vector<CondizioneQuery>& condizioni);

// Casts what `bisogno` asks of a chart into `cuspidi` and `pos`.
void CastaPerQuery(const Tema& tema, const BisognoQuery& bisogno, Case& cuspidi, Posizioni& pos,
                   std::int16_t lunaGeo, Messaggi& messaggi);

// The point of a row of the list From (bodies 0 to 12, cusps 14 to 25).
const Posizione& PuntoFrom(int lf, const Case& cuspidi, const Posizioni& pos);

// Whether a cast chart passes the condition.
bool ProvaCondizione(const CondizioneQuery& q, const Case& cuspidi, const Posizioni& pos);

// The verdict on one chart: casts what `bisogno` asks of it and tests every condition, all to
// hold. The casting's messages go to `messaggi`; ErroreLoopCase (houses not found) goes on.
bool TemaColpito(const Tema& tema, const BisognoQuery& bisogno,
                 const std::vector<CondizioneQuery>& condizioni, std::int16_t lunaGeo,
                 Messaggi& messaggi);

// The result table's name: the text without surrounding blanks, with "Q_" ahead unless it
// begins with it.
std::string NomeRisultato(const std::string& testo);

struct EsitoQuery {
    std::string Tabella;
    std::int64_t Esaminati = 0;
    std::int64_t Trovati = 0;
    bool NuovaTabella = false;
    bool Fermata = false; // stopped by the user: the hits found so far are kept
};

// Called from the running thread at least every 100 ms with the charts done and their number;
// false stops the run.
using AvanzamentoQuery = std::function<bool(std::int64_t fatti, std::int64_t totale)>;

// The run on the archive `sorgente` into `risultato` (created when missing, else new hits go
// after its rows). The charts standing in the source when the run starts are the ones tested,
// in index order, also when source and result are the same table. `fili` 0: one thread a core.
// A message of the casting is shown through `messaggi` in the order of the charts; a chart
// whose houses cannot be found ends the run there. Database errors go on to the caller.
EsitoQuery EseguiQuery(const std::string& fileDB, const std::string& sorgente,
                       const std::string& risultato, const std::vector<CondizioneQuery>& condizioni,
                       std::int16_t lunaGeo, Messaggi& messaggi,
                       const AvanzamentoQuery& avanzamento = {}, unsigned fili = 0);

// The button's steps ahead of the run and the run: the result name, the validity, the empty
// source, each with its message ("Vesmo - Query"); `nuovaTabella` is called when the result
// table has just been made. Nothing when the run did not start.
std::optional<EsitoQuery>
AvvioQuery(const std::string& fileDB, const std::string& sorgente,
           const std::string& testoRisultato, const std::vector<CondizioneQuery>& condizioni,
           std::int16_t lunaGeo, Messaggi& messaggi, const AvanzamentoQuery& avanzamento = {},
           const std::function<void(const std::string&)>& nuovaTabella = {});

// The help's text.
extern const char* const TitoloAiutoQuery;
std::string TestoAiutoQuery();

} // namespace vesmo
