// The resolution of a place whose zone and summer time are one combined list
// (FusiEstiveUniti, each row naming its zone in ZoneOrarie). A row either gives a zone from its
// date on (TTV = 0) or refers to another list (TTV = that list's code) which is followed in its
// place. The walk reads the two tables and changes nothing in the database.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo {

// What the walk of a combined list found for a wanted moment.
struct EsitoUniti {
    // The wanted moment lies before the list's first row: local mean time holds.
    bool primaDellaLista = false;
    // How many rows were found holding at the wanted moment (one when the list is sound).
    int colpi = 0;
    // The zone in hours of the last row found holding (negative for a zone that ZoneOrarie
    // marks '+'), 0 when none was.
    double fuso = 0;
    // The date serial of the last row evaluated (none when no row was).
    std::optional<double> ultimaData;
    // That row's zone offset as a part of a day, and its sign as the panel writes it (" - " for
    // a zone that ZoneOrarie marks '+', " + " otherwise, "" when no row was evaluated).
    double ultimaDiff = 0;
    std::string segno;
};

// Walks the combined list `codice` for the wanted moment `momento` (a date serial). Opens and
// closes its own cursors on FusiEstiveUniti and ZoneOrarie; a seek error propagates.
EsitoUniti PercorriUniti(Database& db, std::int16_t codice, double momento);

// The steps of the walk. Each step reads the list's current row and moves the list's cursor
// as its comment says; none writes to the database.
class PercorsoUniti {
public:
    PercorsoUniti(Database& db, double momento);

    // The whole walk of list `codice`, rows in index order, following referred lists; closes
    // the cursors at the end.
    EsitoUniti Percorri(std::int16_t codice);

private:
    Cursore uniti_;
    Cursore zone_;
    double momento_;
    EsitoUniti esito_;
    std::int32_t precZona_ = 0;
    double diff_ = 0;
    bool unaVolta_ = false;
    std::int32_t ttvTenuto_ = 0;
    double wdataTenuta_ = 0;
    Segnalibro segnalibro_;

    // True when the list's cursor has left list `lista` (or the table).
    bool Finito(std::int32_t lista) const;
    // The zone offset of the current row's zone as a part of a day; the three rows that only
    // switch summer time (zones 138, 139, 140) take it from the previous row's zone. Leaves
    // the offset unchanged for a previous zone that is neither standard nor daylight time.
    // Sets the sign; leaves the zone cursor where it was.
    void LeggiZona(std::int32_t zzo);
    // Evaluates the current row: counts it when the wanted moment falls between the previous
    // row and this one, marks the walk ended when the moment lies before the list. Does not
    // move the list's cursor.
    void ValutaRiga();
    // At a row of list `codice` that refers to another list. When it is the list's last row (or
    // one was met before): evaluates it and follows the referred lists after its date.
    // Otherwise walks the referred list's rows up to its date. Ends with the cursor back on the
    // referring row unless the walk ended.
    void SeguiRiferimento(std::int32_t codice);
    // Walks the referred list's rows dated up to the referring row's date; ends on the
    // referring row.
    void RamoPrima();
    // Walks the referred list's rows dated after the referring row's date; true when it met a
    // row referring to a further list (held as the next to follow), false at the list's end
    // (cursor back on the referring row) or when the walk ended.
    bool RamoDopo();
};

} // namespace vesmo
