// Charts in and out of an archive as plain text: the import of the Solar Fire "Simple Text"
// chart file into a new archive, with its log of the records refused, and the export of an
// archive as one line a chart.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/Tema.h"

namespace vesmo {

// The fields of a chart file: the comma separates them, a double quote opens a text that may
// hold commas and the next quote closes it (what follows it up to the separator is dropped), a
// line end ends a field as the comma does (a line end right behind a comma ends nothing more).
// Blanks around an unquoted field are dropped. Empty lines between records are skipped. A field
// keeps at most LunghezzaMassima bytes; the rest of it is read and dropped.
class LettoreCampiSF {
public:
    static constexpr std::size_t LunghezzaMassima = 4096;
    explicit LettoreCampiSF(std::istream& in) : in_(in) {}
    // The next field; false at the end of the file with nothing read.
    bool Campo(std::string& campo);
    // Skips line ends and blanks ahead of a record; false at the end of the file.
    bool InizioRecord();

private:
    std::istream& in_;
};

inline constexpr int CampiRecordSF = 10;
using RecordSF = std::array<std::string, CampiRecordSF>;

// The month names searched in the date field, index 0 to 11.
extern const std::array<const char*, 12> MesiSF;

// One record into a chart: the commas left inside the fields become blanks, then the date, the
// time, the "PM" mark, the zone and the coordinates are read. Nothing, or the log line of the
// first fault: "  [Errore  Mese SF: ...]", "  [Errore  Ora SF: ...]",
// "  [Errore  TimeZone SF: ...]", or "  [Errore  Campo SF: ...]" for a field holding the marks
// but not a number where one is wanted, or a number out of its range.
std::optional<std::string> TemaDaRecordSF(RecordSF record, Tema& tema);

// A field's bytes as the archive keeps them: UTF-8 as it stands when it is valid, else read as
// the Windows Western code page; control characters become blanks.
std::string TestoCampoSF(std::string_view campo);

// The archive's name from the file's title (no folders): its first "." taken out.
std::string NomeArchivioDaTitolo(const std::string& titolo);

// The name checked against the archives listed, case ignored: on a match the user is asked for
// another one ("Import File - Nome Doppio"); the following archives are then compared. Nothing
// when the user gives up.
std::optional<std::string> NomeArchivioImport(const std::string& nome,
                                              const std::vector<std::string>& elenco,
                                              const std::string& percorsoFile, Messaggi& messaggi);

struct EsitoImport {
    std::string Archivio;
    std::int64_t Importati = 0;
    std::int64_t Scartati = 0;
    std::string Log; // the log's path when a record was refused, else empty
};

// Imports the chart file `fileTesto` into the new archive `archivio` of `fileDB`: the archive and
// all its rows are written in one transaction, so a failure leaves no archive behind (the error
// goes on to the caller). Each refused record is one line appended to `fileLog`, which is made
// at the first of them; an existing file is never removed, and a path that is not a file is
// refused before anything is written. `avanzamento` (may be empty) is called after each record with
// the bytes read.
EsitoImport ImportaSF(const std::string& fileDB, const std::string& archivio,
                      const std::string& fileTesto, const std::string& fileLog,
                      const std::function<void(std::uint64_t)>& avanzamento = {});

// The menu entry's work once the file is chosen: the name, the import, the list and the log's
// message. `cartella` is the program's folder, where the log goes. The archive's name, or
// nothing when the user gave up or the import failed (a message told it).
std::optional<EsitoImport> ImportaArchivioSF(const std::string& fileDB,
                                             const std::string& fileTesto,
                                             const std::vector<std::string>& elenco,
                                             const std::string& cartella, Messaggi& messaggi);

// The line of one chart in the text export, without its line end. `avviso` receives the offset's
// seconds when the zone is not "LMT" and they are 1 or more.
std::string RigaEsportazione(const Tema& tema, std::optional<double>& avviso);

// Writes the archive to `fileTesto` in index order, replacing an older file; a zone with seconds
// is told for each chart ("AVVISO frmGesArchivi.mnFileTT"). Returns the number of records.
std::int64_t EsportaTesto(const std::string& fileDB, const std::string& archivio,
                          const std::string& fileTesto, Messaggi& messaggi);

// The export menu entry: the question "Scrittura del file", the export into the program's folder
// and the closing message. The path written, or nothing when cancelled or failed.
std::optional<std::string> EsportaArchivio(const std::string& fileDB, const std::string& archivio,
                                           const std::string& cartella, Messaggi& messaggi);

} // namespace vesmo
