// Chart archives: an archive is a table of the database file, named as the user typed it, one
// chart a row. Which tables are archives, the table's schema, the write and the read of one chart,
// the save with its "Tema Doppio" question, and the checks of a new archive's name.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/Tema.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "core/store/TabelleLuoghi.h"

namespace vesmo {

// The place tables that share the file and are never archives: TabelleDeiLuoghi
// (core/store/TabelleLuoghi.h), where a new places table is added.
inline constexpr const auto& TabelleNonArchivi = TabelleDeiLuoghi;

// The fields of an archive in their order, and its one index, on Nome, neither primary nor unique.
std::vector<DefCampo> CampiArchivio();
inline constexpr const char* IndiceArchivio = "indNome";

// A table counts as an archive unless its name, without surrounding blanks, is a place table
// (case ignored, as the database ignores it), or unless it holds "MSys" anywhere (case counts),
// or unless the engine keeps it for itself ("sqlite_...").
bool EArchivio(std::string_view nomeTabella);

// The one rule for a chart archive's name, however it is named (the create button, the save, the
// import and the rename of the windows; salva, importa and query of the command line): the name
// as typed without surrounding blanks, at most LunghezzaMassimaArchivio characters of valid
// UTF-8, none of them a control character nor one of CaratteriVietatiArchivio (what a file name
// or a table name cannot hold), and not a name kept for the places tables or the engine (see
// EArchivio). Nothing when the name may be used, else why not, in one Italian line.
inline constexpr std::size_t LunghezzaMassimaArchivio = 64;
inline constexpr std::string_view CaratteriVietatiArchivio = "/\\:*?\"<>|.!`[]";
std::optional<std::string> ErroreNomeArchivio(std::string_view nome);
inline bool NomeArchivioValido(std::string_view nome) {
    return !ErroreNomeArchivio(nome).has_value();
}

// The path of a file named after an archive (its log, its export) inside `cartella`: the name's
// characters that a file name cannot hold become "_", so that the file stays in that folder
// whatever an older archive is called.
std::string FileDiArchivio(const std::string& cartella, std::string_view archivio,
                           std::string_view estensione);
// The archives of an open database, in its order of tables.
std::vector<std::string> ElencoArchivi(const Database& db);
// The same with the file opened before and closed after.
std::vector<std::string> ElencoArchivi(const std::string& fileDB);

// Creates the archive `nome` in the file: the ten fields and the index. The name is not checked
// here (NomeNuovoArchivio does); the database raises ErroreDB for a name it refuses, and a
// damaged file is refused (ErroreDB 3343) before anything is written.
void CreaArchivio(const std::string& fileDB, const std::string& nome);

// Writes a chart into the archive open on `rs`: a new row when `aggiungi` is true (-1), else the
// current row when `modifica` is true; Nome, City and Nazione with their padding.
void ScriviTema(Cursore& rs, const Tema& tema, std::int16_t& aggiungi, std::int16_t& modifica);

// Reads the current row into `tema`, each text cut or padded to its width. A row deleted in the
// meantime moves the cursor to the first row and the read goes on from there.
void LeggiRecordTema(Cursore& rs, Tema& tema);

// The read of a picked row: TemaX and PosX cleared, the row read into TemaX, the chart cast.
void CaricaTemaX(Cursore& rs, Sessione& s, Messaggi& messaggi);

// The text of the "Tema Doppio" question for a chart's name.
std::string TestoTemaDoppio(const Tema& tema);

enum class EsitoSalvataggio {
    Aggiunto,       // no chart of that name: a new row
    Sovrascritto,   // Yes: the first row of that name rewritten
    AggiuntoDoppio, // No: a second row of that name
    Annullato,      // Cancel: nothing written
    NonSalvato,     // the archive is gone or the database failed: a message told it
};
inline bool Salvato(EsitoSalvataggio e) {
    return e == EsitoSalvataggio::Aggiunto || e == EsitoSalvataggio::Sovrascritto ||
           e == EsitoSalvataggio::AggiuntoDoppio;
}

// The save of `tema` into the archive `archivio` (the exact table name): Seek "=" on the padded
// Nome and, when a chart of that name stands, the question with Yes, No and Cancel. `routine`
// names the caller in the messages of a failure ("frmSalvoLyx.cmdSalva").
EsitoSalvataggio SalvaTema(const std::string& fileDB, const std::string& archivio, const Tema& tema,
                           Messaggi& messaggi, const std::string& routine);

// The name of a new archive from the text typed: without surrounding blanks; compared with each
// listed archive in turn, case ignored, and on a match the user is asked for another name, which
// is then compared with the archives that follow. Nothing when the text is empty or the user gives
// up.
std::optional<std::string> NomeNuovoArchivio(const std::string& testo,
                                             const std::vector<std::string>& elenco,
                                             Messaggi& messaggi);

// What stops the database, for the user: "Il DataBase è di sola lettura", "... bloccato da un
// altro programma"...; and the same in English for the block under the dashes.
std::string CausaErroreDB(int numero);
std::string CausaErroreDBInglese(int numero);

// The create button: the name as above, then CreaArchivio. A name the database refuses is told
// to the user and nothing is created. The name created, or nothing.
std::optional<std::string> CreaArchivioUtente(const std::string& fileDB, const std::string& testo,
                                              const std::vector<std::string>& elenco,
                                              Messaggi& messaggi);

// A database failure told the user, with the routine that met it.
void AvvisoErroreDB(Messaggi& messaggi, const std::string& routine, const std::exception& e);

} // namespace vesmo
