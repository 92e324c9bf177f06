// Inside the store: one SQLite connection with the store's text ordering and key function
// registered, prepared statements, and the mapping of engine failures to ErroreDB.
#pragma once

#include "core/store/Valore.h"

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vesmo::store_detail {

// Name of the text ordering of text fields, and of the SQL function that makes index keys.
inline constexpr const char* NomeCollazione = "VESMO";
inline constexpr const char* NomeFunzioneChiave = "vesmo_chiave";
// The SQL function that gives a text as compared (PiegaTesto): a search for part of a text that
// ignores case and accents is instr(vesmo_piega(campo), vesmo_piega(?)) > 0.
inline constexpr const char* NomeFunzionePiega = "vesmo_piega";

// A name as an SQL identifier in double quotes.
std::string Q(std::string_view nome);

// The store's error for a failed call of the engine (its result code `rc`): the causes that the
// user can act on (a locked, read-only, full, damaged or unreadable file) are named first.
[[noreturn]] void ErroreDelMotore(int rc, const std::string& testo);

class Connessione {
public:
    // Opens (crea: creates) the file; registers the ordering and the key function. A statement
    // waits `attesaBloccoMs` milliseconds for another program's lock on the file before it
    // reports the database locked.
    Connessione(const std::filesystem::path& file, bool crea, bool solaLettura, int attesaBloccoMs);
    ~Connessione();
    Connessione(const Connessione&) = delete;
    Connessione& operator=(const Connessione&) = delete;

    sqlite3* Db() const { return db_; }
    void ImpostaAttesaBlocco(int ms);
    // Runs statements that return no rows.
    void Esegui(const std::string& sql);
    // Raises the error of a failed call, with the engine's text.
    [[noreturn]] void Errore(int rc, std::string_view contesto) const;

    // Grows at every change made through this connection: cursors compare it to know whether
    // what they have read may be out of date.
    std::uint64_t versione = 1;

private:
    sqlite3* db_ = nullptr;
    int attesaBloccoMs_;
};

// A prepared statement, reset after each use so that no read lock outlives a call.
class Istruzione {
public:
    Istruzione() = default;
    Istruzione(Connessione& c, const std::string& sql);
    Istruzione(Istruzione&& o) noexcept : c_(o.c_), st_(o.st_) { o.st_ = nullptr; }
    Istruzione& operator=(Istruzione&& o) noexcept;
    Istruzione(const Istruzione&) = delete;
    Istruzione& operator=(const Istruzione&) = delete;
    ~Istruzione();

    bool Valida() const { return st_ != nullptr; }
    void Lega(int i, const Valore& v);
    void LegaBlob(int i, std::string_view byte);
    void LegaIntero(int i, std::int64_t n);
    // Steps once: true with a row to read, false when done.
    bool Passo();
    // Steps to the end; returns the rows changed.
    std::int64_t Completa();
    void Reimposta();
    int Colonne() const { return sqlite3_column_count(st_); }
    Valore Colonna(int i) const;
    std::int64_t Intero(int i) const { return sqlite3_column_int64(st_, i); }
    std::string NomeColonna(int i) const { return sqlite3_column_name(st_, i); }
    std::string Blob(int i) const;
    std::string Testo(int i) const;

private:
    Connessione* c_ = nullptr;
    sqlite3_stmt* st_ = nullptr;
};

// The name of a table as stored, found ignoring case, in schema `schema`.
std::optional<std::string> NomeReale(Connessione& c, std::string_view tabella,
                                     const std::string& schema = "main");
// The fields of a table (its stored name) in their order.
std::vector<DefCampo> CampiDi(Connessione& c, const std::string& tabella,
                              const std::string& schema = "main");
// The SQLite name of an index: the table's and the index's names, with a mark for a primary.
std::string NomeIndiceSql(const std::string& tabella, std::string_view nome, bool primario);
struct IndiceSql {
    DefIndice def;
    std::string nomeSql;
};
// The indexes made by the store on a table (its stored name), in name order ignoring case.
std::vector<IndiceSql> IndiciDi(Connessione& c, const std::string& tabella);
bool UgualiSenzaCaso(std::string_view a, std::string_view b);
bool PrimaSenzaCaso(const std::string& a, const std::string& b);

// Field types as declared in the file, and back.
std::string TipoDichiarato(const DefCampo& c);
DefCampo DaTipoDichiarato(std::string nome, std::string_view dichiarato);
bool TipoTesto(TipoCampo t);

// A value made fit for a field: numbers for numeric fields (3421 for a text that is not a
// number, 3349 out of range), texts for text fields. `controlli` adds the size and
// zero-length rules (3163, 3315) of a value to be written.
Valore Converti(const DefCampo& campo, const Valore& v, bool controlli);

} // namespace vesmo::store_detail
