// A cursor on a table (table type) or on the result of an SQL text (snapshot).
//
// A table cursor walks the rows in the order of the index set on it, or in the order the rows
// were added when no index is set. The order is total: rows with equal keys follow the order
// in which they were added. Positions:
//   - on a row: Campo() reads it;
//   - BOF, before the first row; EOF, after the last (both true on an empty table);
//   - after Delete(): the place of the deleted row; a read raises 3167, MoveNext and
//     MovePrevious go to its neighbours;
//   - after a failed Seek: no current row; a read raises 3021 (see Seek for BOF/EOF).
// A read, Edit, Delete or Bookmark without a current row raises ErroreDB 3021.
//
// Typical use:
//   Cursore fusi(db, "Fusi");
//   fusi.Index("iFusi");
//   fusi.Seek("<=", cFusi, anno, mese);
//   if (!fusi.NoMatch() && fusi.Campo("cFusi").Intero() == cFusi) ...
#pragma once

#include "core/store/Database.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vesmo {

// A row's bookmark, valid on the cursor that gave it while that cursor stays open.
struct Segnalibro {
    std::int64_t riga = 0;
    bool operator==(const Segnalibro&) const = default;
};

// How a row is being changed: EditMode.
enum class ModoModifica { Nessuno, Modifica, Aggiunta };

namespace store_detail {
struct StatoCursore;
}

class Cursore {
public:
    // Opens table `tabella` of `db` as a table-type cursor, with no index, on its first row
    // (BOF and EOF when empty). ErroreDB 3078 when the table does not exist.
    Cursore(Database& db, std::string_view tabella);
    // Runs an SQL query and keeps its rows (snapshot): moves, bookmarks, fields, RecordCount;
    // Index, Seek and changes raise 3251 / 3027.
    static Cursore Sql(Database& db, std::string_view sql);
    // The same with values bound to the statement's parameters ?1, ?2...: a text goes in as it
    // stands, apostrophes included.
    static Cursore Sql(Database& db, std::string_view sql, const std::vector<Valore>& parametri);

    Cursore(Cursore&&) noexcept;
    Cursore& operator=(Cursore&&) noexcept;
    Cursore(const Cursore&) = delete;
    Cursore& operator=(const Cursore&) = delete;
    ~Cursore();
    void Chiudi();

    // The table's name ("" for an SQL cursor).
    const std::string& Tabella() const;

    // Sets the index by name (case ignored) and moves to the first row of its order.
    // ErroreDB 3015 when the table has no index of that name.
    void Index(std::string_view nome);
    const std::string& Index() const; // "" when none is set

    // Seeks the index with "=", "<=", ">=", "<" or ">" on its first keys (one to as many as the
    // index has fields). Only the given keys are compared: "=" and ">=" stand on the first row
    // whose leading fields are equal to / not below the keys, "<=" on the last row whose
    // leading fields are not above them, so ("<=", code, year, month) finds the last row of that
    // month or before it. The row found may belong to another code: compare the fields.
    // Texts compare ignoring case and accents. Keys are converted to the fields' types.
    // With no such row NoMatch() is true and there is no current row; then BOF() is true after a
    // "<=" or "<" seek (nothing before the keys), EOF() after ">=" or ">", neither after "=".
    // ErroreDB 3019 with no index set, 3001 for another operator or too many keys.
    void Seek(std::string_view confronto, const Valore& k1);
    void Seek(std::string_view confronto, const Valore& k1, const Valore& k2);
    void Seek(std::string_view confronto, const Valore& k1, const Valore& k2, const Valore& k3);
    void Seek(std::string_view confronto, const std::vector<Valore>& chiavi);
    bool NoMatch() const;

    // Moves. MoveFirst/MoveLast on an empty cursor, MoveNext at EOF and MovePrevious at BOF
    // raise ErroreDB 3021. MoveNext from the last row reaches EOF, MovePrevious from the first
    // BOF; MoveNext at BOF goes to the first row, MovePrevious at EOF to the last.
    // A move abandons a pending AddNew/Edit.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    bool BOF() const;
    bool Eof() const; // EOF (the name EOF is taken by <cstdio>)

    // The current row's bookmark (3021 without a current row, 3167 when it was deleted), and
    // the move back to it (3167 when that row has been deleted since).
    Segnalibro Bookmark() const;
    void VaiA(const Segnalibro& s);
    // The row last added or changed through this cursor (LastModified); 3021 when none.
    Segnalibro UltimoModificato() const;

    // The bookmarks of all rows in the cursor's order, read in one pass without the fields;
    // the cursor does not move.
    std::vector<Segnalibro> Segnalibri() const;
    // The bookmarks of the table's rows that meet the SQL condition `dove` (all when empty), in
    // the order of the SQL terms `ordine` (the index's when empty), rowid last; `parametri` are
    // bound to ?1, ?2... Not for an SQL cursor.
    std::vector<Segnalibro> Segnalibri(std::string_view dove, std::string_view ordine,
                                       const std::vector<Valore>& parametri) const;

    // Rows in the table, or in the query's result.
    std::int64_t RecordCount() const;

    // The field names in table order.
    std::vector<std::string> Campi() const;
    // A field of the current row by name (case ignored); 3265 for an unknown name. During
    // AddNew/Edit it reads the value being written.
    Valore Campo(std::string_view nome) const;

    // Changes. AddNew starts a new row with all fields null; Edit starts changing the current
    // row; Imposta sets a field of the row being written (3020 without AddNew/Edit); Update
    // writes it (3020 without AddNew/Edit, 3022 on a duplicate unique key, 3315 for "" where
    // zero length is not allowed, 3163 for a text longer than the field's size).
    // After Update of AddNew the cursor stays where it was before AddNew; UltimoModificato()
    // gives the new row. After Update of Edit it stays on the changed row, at its new place in
    // the index order. CancelUpdate drops the pending change.
    void AddNew();
    void Edit();
    void Imposta(std::string_view campo, const Valore& valore);
    void Update();
    void CancelUpdate();
    ModoModifica Modo() const;
    // Deletes the current row; see the positions above.
    void Delete();

    // Forgets what the cursor has read, so that rows written by other connections show; the
    // position is kept (a current row deleted meanwhile then reads as deleted, 3167). An SQL
    // cursor runs its query again and stands on the first row.
    void Refresh();

private:
    Cursore();
    std::unique_ptr<store_detail::StatoCursore> s_;
    store_detail::StatoCursore& S() const; // ErroreDB 3000 when closed
};

} // namespace vesmo
