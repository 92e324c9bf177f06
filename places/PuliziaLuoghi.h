// The cleaning of the places database and the small lists beside the entry form:
//   - the scan of Fusi or Estive for the codes (below 10000) that no place refers to, through a
//     work index on AllCity, the delete of their rows and the drop of the work index;
//   - the compaction of the file through "Neo_Vesmodat.mdb" beside it;
//   - the dated list of one code with its new rows (frmFusiEstive);
//   - the places of one nation (frmZoomN).
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/store/Database.h"
#include "places/EditorLuoghi.h"

namespace vesmo {

enum class ListaPulizia { Fusi, Estive };

// "IndFusi" on cFusi or "IndEstive" on cEst.
const char* IndiceLavoro(ListaPulizia lista);

struct EsitoScansione {
    std::int64_t esaminate = 0;       // rows of the table walked
    std::vector<std::int32_t> codici; // codes to delete, in the order met
};

// Creates the work index on AllCity (an index of that name left by an earlier scan is used as
// it stands) and lists the codes of the table's rows that no place has.
EsitoScansione ScansionePulizia(const std::filesystem::path& fileDB, ListaPulizia lista);
// The same list read without a write to the file (no work index): the codes that places use are
// read once, then the table is walked. For a listing, which must work on a read-only file.
EsitoScansione ScansioneSolaLettura(const std::filesystem::path& fileDB, ListaPulizia lista);
// The text of Text1 after the scan: "1234  Righe esaminate - (3 Codici da Eliminare)".
std::string TestoScansione(const EsitoScansione& esito);

// Deletes every row of the table whose code is among `codici`; returns the rows deleted.
// `avanzamento` is called every 1000 rows of Estive with the rows walked.
std::int64_t EliminaRighe(const std::filesystem::path& fileDB, ListaPulizia lista,
                          const std::vector<std::int32_t>& codici,
                          const std::function<void(std::int64_t)>& avanzamento = {});
// "5  Righe Eliminate da Fusi".
std::string TestoEliminate(std::int64_t righe, ListaPulizia lista);
// Drops the work index when it is there.
void EliminaIndiceLavoro(const std::filesystem::path& fileDB, ListaPulizia lista);

// "Neo_Vesmodat.mdb" in the folder of the database file.
std::filesystem::path FileCompattazione(const std::filesystem::path& fileDB);
// The text of Text2 for the compaction.
std::string TestoCompattazione(const std::string& fileDB);
// Compacts the database file through FileCompattazione (a file of that name left behind is
// replaced), then puts the copy in its place. Every cursor on the file must be closed. On
// failure the file is as it was, nothing of the copy is left, and a box tells why: false.
bool CompattaDatabase(const std::filesystem::path& fileDB, Messaggi& messaggi);

// frmFusiEstive: the list of one code and its new rows.
struct ModelloFusiEstive {
    std::filesystem::path fileDB;
    Messaggi& messaggi;
    // When set, the lists are read and the rows written through this connection instead of one
    // of the form's own: the entry form's, which is in the middle of a lookup when it asks.
    Database* condiviso = nullptr;
    std::int16_t ZoomFuso = 0; // -1 zone list, 0 summer time list
    double ZoomCFusi = 0, ZoomCEst = 0, ZoomAnno = 0;
    int contatore = 1; // rows added in summer time mode, plus one

    ListaTesti List1, cmbZoneOrarie;
    std::string Text2; // the heading
    bool Text2Visibile = true, LegendaVisibile = false;
    // A combined list (a code of 10000 and above in summer-time mode) is only shown: its rows
    // belong to FusiEstiveUniti, and a row of Estive under its code would be read by nobody.
    bool Unita() const { return ZoomFuso != -1 && ZoomCEst >= 10000; }
    std::string Text17, Text8, Text5, Text6, Text7, Text22, Text23;
    int Combo5 = 0; // 0 "EST", 1 "OVEST"
    std::string Label6;
    bool Label6Visibile = true;
    bool OraVisibile = true; // Text6, Text7, Label4, Label6

    ModelloFusiEstive(std::filesystem::path file, Messaggi& m)
        : fileDB(std::move(file)), messaggi(m) {}
    // The load: the boxes of the mode, then the list.
    void Form_Load();
    void Elenca();
    // Adds the row of the boxes; false when a date box is empty (said) or the list is combined.
    bool Command1_Click();
};

// frmZoomN: the places of the nation cNaz, "Padova                          11E53 45N24 , 1  1".
std::vector<std::string> RigheZoomNazione(Database& db, std::int32_t cNaz);

} // namespace vesmo
