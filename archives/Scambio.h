// Charts exchanged with other programs: the AAF exchange format and spreadsheet files (CSV),
// read into an archive and written from one. What the two formats share stands here: a record
// as read, with its line and what it lacks, the completion of a record without coordinates or
// zone from the places database (given by the caller, which owns that database), the skip of
// charts already in the archive, and the log of what was refused or completed.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Tema.h"

namespace vesmo {

enum class FormatoScambio { SF, AAF, CSV };
// "sf", "aaf", "csv" (case ignored), else nothing.
std::optional<FormatoScambio> FormatoDaNome(std::string_view nome);
// "sf", "aaf", "csv".
const char* NomeFormato(FormatoScambio f);

// One record of a file as read. `errore` not empty: the record is refused for that reason.
// `completare`: the place's coordinates, zone and summer time are to be taken from the places
// database by City and Stato at the clock date and time (Day and OraL stand).
struct VoceScambio {
    std::int64_t riga = 0; // the line where the record begins, from 1
    Tema tema;
    bool completare = false;
    std::string nota; // what the reader changed, for the log ("ora dal giorno giuliano")
    std::string errore;
};

// The places database's work for a record to complete: fills Lon, Lat, Fuso, Estiva (and may
// write City and Stato as the database spells them) from City, Stato, Day and OraL; throws
// std::runtime_error with the reason when the place is not found.
using CompletaLuogo = std::function<void(Tema& tema)>;

// A record whose place lacks coordinates or zone, given to `completa`: the record is marked to
// complete and its note says what the places database gave; or the reason it is refused (no
// places database, or the place not found).
std::string CompletaVoce(const CompletaLuogo& completa, VoceScambio& v);

struct OpzioniImportScambio {
    bool doppi = false;     // charts already in the archive are imported again
    CompletaLuogo completa; // may be empty: records to complete are then refused
};

struct EsitoImportScambio {
    std::string Archivio;
    bool Creato = false; // the archive did not exist and was made
    std::int64_t Importati = 0;
    std::int64_t Completati = 0;  // of the imported, completed from the places database
    std::int64_t Doppi = 0;       // skipped as already in the archive (or earlier in the file)
    std::int64_t Scartati = 0;    // refused
    std::vector<std::string> Log; // one line per refused, completed or skipped record
};

// Reads `fileTesto` in format AAF or CSV and appends its charts to the archive `archivio` of
// `fileDB` (made when missing), in one transaction: a failure leaves the database as it was. A
// chart with the same name, date, time (to the second) and place as one in the archive, or one
// read before it, is skipped and logged unless `opzioni.doppi`. Throws std::runtime_error when
// the file cannot be read.
EsitoImportScambio ImportaScambio(const std::string& fileDB, const std::string& archivio,
                                  const std::string& fileTesto, FormatoScambio formato,
                                  const OpzioniImportScambio& opzioni);

// Writes the archive, in index order, to `fileTesto` in format AAF or CSV (UTF-8), replacing it.
// Returns the charts written.
std::int64_t EsportaScambio(const std::string& fileDB, const std::string& archivio,
                            const std::string& fileTesto, FormatoScambio formato);

// The log line of a record: "Riga 12, Rossi Mario: " and the text.
std::string RigaLogScambio(std::int64_t riga, const Tema& tema, const std::string& testo);

// Appends the log lines to `fileLog` (a log is only ever appended to), nothing when there are
// none. True when written.
bool ScriviLogScambio(const std::string& fileLog, const std::vector<std::string>& righe);

// The key by which two charts are the same chart: name, date, time to the second, place.
std::string ChiaveDoppio(const Tema& t);

// The nation of an AAF country abbreviation ("I" "Italy", "D" "Germany", "USA" "United
// States"), and back; nothing when it is not one.
std::optional<std::string> NazioneDaSiglaAAF(std::string_view sigla);
std::optional<std::string> SiglaAAFDaNazione(std::string_view nazione);

// The text of a file's bytes: UTF-8 as it stands when valid, else Latin-1 (Windows Western);
// line ends and tabs kept, other control characters become blanks.
std::string TestoFileScambio(std::string_view byte);

} // namespace vesmo
