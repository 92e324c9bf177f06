// The database file: tables, fields and indexes by name, statements, compaction.
//
// The file is SQLite behind our own vocabulary. Every connection must register the store's
// text ordering and key function before it touches a table, so all access goes through this
// class; a file opened by a bare SQLite tool can be read but not written where indexes exist.
//
// Text comparison. Indexes and SQL comparisons of text fields ignore case and accents the way a
// type-ahead expects: "citta" finds "Città", "MUNCHEN" finds "München", "ss" matches "ß".
// Blanks count: "Roma" and "Roma " are different keys.
//
// Connections. Each Database is one connection; the cursors opened on it share it. A cursor
// sees at once what any cursor of the same Database writes, and what another Database on the
// same file writes after Cursore::Refresh(). Writes are committed one statement at a time unless
// a transaction is open: wrap bulk loads in IniziaTransazione()/ConfermaTransazione().
#pragma once

#include "core/store/Valore.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vesmo {

namespace store_detail {
class Connessione;
}

// How long, in milliseconds, a statement waits for another program's lock on the file before it
// reports the database locked, unless the database is told otherwise.
inline constexpr int AttesaBloccoPredefinitaMs = 5000;

class Database {
public:
    Database() = default; // closed
    // Opens an existing file (ErroreDB 3024 when it does not exist).
    explicit Database(const std::filesystem::path& file);
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    // Opens an existing file (ErroreDB 3024 when it does not exist). Closes any file open before.
    void Apri(const std::filesystem::path& file);
    // Creates a new empty file and opens it (ErroreDB 3204 when the file exists).
    void Crea(const std::filesystem::path& file);
    // Closes the file. Cursors still open on it keep working until they close.
    void Chiudi();
    bool Aperto() const { return conn_ != nullptr; }
    const std::filesystem::path& Percorso() const { return percorso_; }
    // The wait for another program's lock on the file, in milliseconds, after which a statement
    // reports the database locked (ErroreDB 3218); it holds for the file open now and for the
    // ones opened later by this object.
    void ImpostaAttesaBlocco(int ms);
    int AttesaBlocco() const { return attesaBloccoMs_; }

    // Tables, in name order ignoring case.
    std::vector<std::string> Tabelle() const;
    // Table names are compared ignoring case.
    bool EsisteTabella(std::string_view nome) const;
    // The fields of a table in their order (ErroreDB 3078 when the table does not exist).
    std::vector<DefCampo> Campi(std::string_view tabella) const;
    // The indexes of a table, in name order ignoring case.
    std::vector<DefIndice> Indici(std::string_view tabella) const;
    bool EsisteIndice(std::string_view tabella, std::string_view indice) const;

    // Creates a table with its fields, and its indexes when given (ErroreDB 3010 when it exists).
    void CreaTabella(std::string_view nome, const std::vector<DefCampo>& campi,
                     const std::vector<DefIndice>& indici = {});
    void EliminaTabella(std::string_view nome); // ErroreDB 3078 when missing
    // Creates an index on existing fields (3284 when the table has an index of that name,
    // 3265 for an unknown field, 3022 when a unique index meets a key twice).
    void CreaIndice(std::string_view tabella, std::string_view nome,
                    const std::vector<std::string>& campi, bool unico = false,
                    bool primario = false);
    void CreaIndice(std::string_view tabella, const DefIndice& indice);
    void EliminaIndice(std::string_view tabella, std::string_view nome); // 3265 when missing

    // Runs one SQL statement and returns the rows it affected (RecordsAffected).
    // Besides SQLite's own SQL, the form
    //   select * into Dest from [;database=/path/Other.mdb].Source
    // copies a table from another database file, as SelectIntoDaAltroFile does.
    std::int64_t Esegui(std::string_view sql);
    // Creates table `destinazione` here with the fields of table `sorgente` of another database
    // file and copies all its rows; returns the number of rows copied. Indexes are not copied
    // (Indici() of the other file lists them). ErroreDB 3024 when the file does not exist, 3078
    // when it has no such table, 3010 when `destinazione` exists here.
    std::int64_t SelectIntoDaAltroFile(std::string_view destinazione,
                                       const std::filesystem::path& file,
                                       std::string_view sorgente);

    // One transaction at a time; a cursor's Update inside it is undone by Annulla. Annulla after
    // a failure that the engine rolled back itself (a full disk) does nothing and raises nothing.
    void IniziaTransazione();
    void ConfermaTransazione();
    void AnnullaTransazione();

    // Before a write: SQLite's quick check of every page. A damaged file raises ErroreDB 3343
    // naming the file, so that nothing is written into it.
    void VerificaPrimaDiScrivere() const;
    // Whether the file could be opened only for reading (permissions, a read-only medium).
    bool SolaLettura() const;

    // Writes a compact copy of `sorgente` into the new file `destinazione` (ErroreDB 3204 when
    // it exists, 3024 when the source does not). The source is only read: when the copy fails,
    // the source stays whole and no part of the target is left behind.
    static void Compatta(const std::filesystem::path& sorgente,
                         const std::filesystem::path& destinazione);
    // Compacts `file` through the work file `temporaneo` (which must not exist), then puts the
    // copy in the place of `file` in one step. On failure `file` is untouched and the work file
    // removed.
    static void CompattaSulPosto(const std::filesystem::path& file,
                                 const std::filesystem::path& temporaneo);
    // Writes a copy of the whole file `sorgente` into the new file `destinazione` through the
    // engine's online backup: the copy is one consistent state of the file, taken while other
    // programs may be writing to it (ErroreDB 3204 when the target exists, 3024 when the source
    // does not). On failure no part of the target is left behind.
    static void CopiaDiSicurezza(const std::filesystem::path& sorgente,
                                 const std::filesystem::path& destinazione);

private:
    friend class Cursore;
    friend class LetturaUnica;
    std::shared_ptr<store_detail::Connessione> conn_;
    std::filesystem::path percorso_;
    int attesaBloccoMs_ = AttesaBloccoPredefinitaMs;
    store_detail::Connessione& Conn() const; // ErroreDB 3000 when closed
};

// Several reads that belong together, such as the lookups of one time-zone resolution: while it
// lives the file is locked once for all of them instead of once per statement, and they all see
// the same state of the file. Inside an open transaction it does nothing. Writes should not be
// made through it; a write made anyway is committed when it ends.
class LetturaUnica {
public:
    explicit LetturaUnica(Database& db);
    ~LetturaUnica();
    LetturaUnica(const LetturaUnica&) = delete;
    LetturaUnica& operator=(const LetturaUnica&) = delete;

private:
    std::shared_ptr<store_detail::Connessione> conn_; // set only when this began the read
};

} // namespace vesmo
