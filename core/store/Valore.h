// Values, field and index definitions, and the numbered errors of the database store.
#pragma once

#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vesmo {

// The error of a database operation. The numbers that callers test are named below; the other
// numbers follow the same numbering and carry a readable text.
class ErroreDB : public std::runtime_error {
public:
    ErroreDB(int numero, const std::string& testo);
    int Numero() const { return numero_; }

    static constexpr int ArgomentoNonValido = 3001;   // bad seek operator, too many keys
    static constexpr int TabellaEsistente = 3010;     // create a table that exists
    static constexpr int IndiceNonValido = 3015;      // not an index of this table
    static constexpr int NessunIndiceCorrente = 3019; // seek without an index set
    static constexpr int UpdateSenzaAddNew = 3020;    // Update or a field set without AddNew/Edit
    static constexpr int NessunRecordCorrente = 3021; // no current record
    static constexpr int ChiaveDuplicata = 3022;      // a unique index would hold a key twice
    static constexpr int FileNonTrovato = 3024;       // the database file does not exist
    static constexpr int SolaLettura = 3027;          // write through a read-only cursor or file
    static constexpr int TabellaNonTrovata = 3078;    // no table of that name
    static constexpr int CampoTroppoPiccolo = 3163;   // text longer than the field's size
    static constexpr int RecordEliminato = 3167;      // the record was deleted
    static constexpr int DatabaseEsistente = 3204;    // create or compact onto an existing file
    static constexpr int OperazioneNonSupportata = 3251; // seek or index on an SQL cursor
    static constexpr int ElementoNonTrovato = 3265;      // no field or index of that name
    static constexpr int IndiceEsistente = 3284;         // create an index whose name exists
    static constexpr int LunghezzaZero = 3315;           // "" into a field that does not allow it
    static constexpr int OverflowNumerico = 3349;        // number out of the field's range
    static constexpr int ConversioneNonValida = 3421;    // text that is not a number, into a number
    static constexpr int DiscoPieno = 3026;              // no room left on the disk
    static constexpr int ErroreDisco = 3043;             // the disk failed a read or a write
    static constexpr int FileNonApribile = 3051;         // no permission, or not a file
    static constexpr int Bloccato = 3218;                // locked by another program
    static constexpr int FormatoNonRiconosciuto = 3343;  // not a database, or damaged
    static constexpr int ErroreMotore = 3000;            // any other failure of the engine

private:
    int numero_;
};

// One field's value: null, a whole number, a double or a text (UTF-8).
// Date and time fields hold the date serial: days since 30 December 1899 at 0h with the time of
// day as the fraction, continuous across zero (serial = JD - 2415018.5).
class Valore {
public:
    Valore() = default; // null
    Valore(std::nullptr_t) {}
    template <std::integral T>
    requires(!std::same_as<T, bool>) Valore(T n) : v_(static_cast<std::int64_t>(n)) {}
    Valore(double x) : v_(x) {}
    Valore(const char* s) : v_(std::string(s)) {}
    Valore(std::string s) : v_(std::move(s)) {}
    Valore(std::string_view s) : v_(std::string(s)) {}

    bool Nullo() const { return v_.index() == 0; }
    bool EIntero() const { return v_.index() == 1; }
    bool EDoppio() const { return v_.index() == 2; }
    bool ENumero() const { return EIntero() || EDoppio(); }
    bool ETesto() const { return v_.index() == 3; }

    // As text: null reads as "", a number as the plain conversion writes it with the decimal
    // comma ("0,5", "-1").
    std::string Testo() const;
    // As a double: null reads as 0, a text by the number at its start ("12abc" 12, "1.5" 1.5,
    // "1,5" 1.5, "abc" 0).
    double Numero() const;
    // As a whole number: a double rounds half to even, a text as Numero() then rounded.
    std::int64_t Intero() const;

    bool operator==(const Valore&) const = default;

private:
    std::variant<std::monostate, std::int64_t, double, std::string> v_;
};

// The field types of a table.
enum class TipoCampo {
    Booleano, // stored 0 / -1
    Byte,     // 0..255
    Intero16, // -32768..32767
    Intero32,
    Singolo,
    Doppio,
    DataOra, // the date serial, see Valore
    Testo,   // with a size in characters (0: no limit)
    Memo,    // long text
};

struct DefCampo {
    std::string nome;
    TipoCampo tipo = TipoCampo::Testo;
    int dimensione = 0;                 // characters, for Testo only; 0 means no limit
    bool consentiLunghezzaZero = false; // AllowZeroLength: may hold "" (texts only)
    bool operator==(const DefCampo&) const = default;
};

// An index of a table. Keys are ascending; the index name is unique within its table only.
struct DefIndice {
    std::string nome;
    std::vector<std::string> campi;
    bool unico = false;
    bool primario = false; // a primary index is also unique
    bool operator==(const DefIndice&) const = default;
};

} // namespace vesmo
