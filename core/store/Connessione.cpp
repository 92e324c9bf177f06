#include "core/store/Connessione.h"

#include "core/Testo.h"
#include "core/store/Chiave.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace vesmo::store_detail {

namespace {

int Collazione(void*, int na, const void* a, int nb, const void* b) {
    return ConfrontaPiegati(std::string_view(static_cast<const char*>(a), na),
                            std::string_view(static_cast<const char*>(b), nb));
}

void FunzionePiega(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    const std::string piegato =
        PiegaTesto(std::string_view(reinterpret_cast<const char*>(sqlite3_value_text(argv[0])),
                                    static_cast<std::size_t>(sqlite3_value_bytes(argv[0]))));
    sqlite3_result_text(ctx, piegato.data(), static_cast<int>(piegato.size()), SQLITE_TRANSIENT);
}

void FunzioneChiave(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    std::string chiave;
    chiave.reserve(32);
    for (int i = 0; i < argc; ++i) {
        sqlite3_value* v = argv[i];
        switch (sqlite3_value_type(v)) {
        case SQLITE_INTEGER:
            CodificaNumero(chiave, static_cast<double>(sqlite3_value_int64(v)));
            break;
        case SQLITE_FLOAT:
            CodificaNumero(chiave, sqlite3_value_double(v));
            break;
        case SQLITE_TEXT:
            CodificaTesto(chiave,
                          std::string_view(reinterpret_cast<const char*>(sqlite3_value_text(v)),
                                           static_cast<std::size_t>(sqlite3_value_bytes(v))));
            break;
        case SQLITE_BLOB: {
            const void* p = sqlite3_value_blob(v);
            CodificaBlob(chiave,
                         std::string_view(static_cast<const char*>(p),
                                          static_cast<std::size_t>(sqlite3_value_bytes(v))));
            break;
        }
        default:
            CodificaNullo(chiave);
        }
    }
    sqlite3_result_blob(ctx, chiave.data(), static_cast<int>(chiave.size()), SQLITE_TRANSIENT);
}

std::string Maiuscolo(std::string_view s) {
    std::string r(s);
    for (char& c : r)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return r;
}

// A text as a number when it is one, blanks around allowed, comma or point as decimal sign.
bool ComeNumero(const std::string& t, double& x) {
    std::string s = SenzaSpazi(t);
    if (s.empty()) return false;
    for (char& c : s)
        if (c == ',') c = '.';
    if (s.find_first_not_of("0123456789+-.eE") != std::string::npos) return false;
    char* fine = nullptr;
    x = std::strtod(s.c_str(), &fine);
    return fine == s.c_str() + s.size();
}

} // namespace

bool UgualiSenzaCaso(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto x = static_cast<unsigned char>(a[i]), y = static_cast<unsigned char>(b[i]);
        if (std::tolower(x) != std::tolower(y)) return false;
    }
    return true;
}

bool PrimaSenzaCaso(const std::string& a, const std::string& b) {
    int c = ConfrontaPiegati(a, b);
    return c != 0 ? c < 0 : a < b;
}

std::optional<std::string> NomeReale(Connessione& c, std::string_view tabella,
                                     const std::string& schema) {
    Istruzione st(c, "SELECT name FROM " + Q(schema) +
                         ".sqlite_master WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
    st.Lega(1, Valore(tabella));
    std::optional<std::string> r;
    if (st.Passo()) r = st.Testo(0);
    st.Reimposta();
    return r;
}

std::vector<DefCampo> CampiDi(Connessione& c, const std::string& tabella,
                              const std::string& schema) {
    std::vector<DefCampo> campi;
    Istruzione st(c, "PRAGMA " + Q(schema) + ".table_info(" + Q(tabella) + ")");
    while (st.Passo())
        campi.push_back(DaTipoDichiarato(st.Testo(1), st.Testo(2)));
    st.Reimposta();
    return campi;
}

// The SQLite name of an index: the table's and the index's names, with a mark for a primary.
std::string NomeIndiceSql(const std::string& tabella, std::string_view nome, bool primario) {
    return std::string(primario ? "P:" : "I:") + tabella + ":" + std::string(nome);
}

namespace {

// The quoted field names inside "vesmo_chiave(...)" of an index's CREATE text.
std::vector<std::string> CampiDaSql(const std::string& sql) {
    std::vector<std::string> campi;
    std::size_t p = sql.find(std::string(NomeFunzioneChiave) + "(");
    if (p == std::string::npos) return campi;
    p += std::string(NomeFunzioneChiave).size() + 1;
    while (p < sql.size() && sql[p] == '"') {
        std::string nome;
        ++p;
        while (p < sql.size()) {
            if (sql[p] == '"') {
                if (p + 1 < sql.size() && sql[p + 1] == '"') {
                    nome += '"';
                    p += 2;
                    continue;
                }
                ++p;
                break;
            }
            nome += sql[p++];
        }
        campi.push_back(nome);
        while (p < sql.size() && (sql[p] == ',' || sql[p] == ' '))
            ++p;
    }
    return campi;
}

} // namespace

std::vector<IndiceSql> IndiciDi(Connessione& c, const std::string& tabella) {
    std::vector<IndiceSql> r;
    Istruzione st(c, "SELECT name, sql FROM sqlite_master WHERE type = 'index' AND tbl_name = ?1 "
                     "AND sql IS NOT NULL");
    st.Lega(1, Valore(tabella));
    std::string prefisso = ":" + tabella + ":";
    while (st.Passo()) {
        std::string nome = st.Testo(0), sql = st.Testo(1);
        if (nome.size() <= prefisso.size() + 1 || nome.compare(1, prefisso.size(), prefisso) != 0)
            continue;
        IndiceSql i;
        i.nomeSql = nome;
        i.def.nome = nome.substr(1 + prefisso.size());
        i.def.primario = nome[0] == 'P';
        i.def.unico = sql.rfind("CREATE UNIQUE", 0) == 0;
        i.def.campi = CampiDaSql(sql);
        r.push_back(std::move(i));
    }
    st.Reimposta();
    std::sort(r.begin(), r.end(), [](const IndiceSql& a, const IndiceSql& b) {
        return PrimaSenzaCaso(a.def.nome, b.def.nome);
    });
    return r;
}

std::string Q(std::string_view nome) {
    std::string r = "\"";
    for (char c : nome) {
        if (c == '"') r += '"';
        r += c;
    }
    r += '"';
    return r;
}

void ErroreDelMotore(int rc, const std::string& testo) {
    switch (rc & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw ErroreDB(ErroreDB::Bloccato, "Database bloccato da un altro programma. " + testo);
    case SQLITE_READONLY:
        throw ErroreDB(ErroreDB::SolaLettura, "Database di sola lettura. " + testo);
    case SQLITE_FULL:
        throw ErroreDB(ErroreDB::DiscoPieno, "Disco pieno. " + testo);
    case SQLITE_IOERR:
        throw ErroreDB(ErroreDB::ErroreDisco, "Errore di lettura o scrittura del disco. " + testo);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw ErroreDB(ErroreDB::FileNonApribile, "Impossibile aprire il file. " + testo);
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        throw ErroreDB(ErroreDB::FormatoNonRiconosciuto,
                       "Formato del database non riconosciuto. " + testo);
    default:
        throw ErroreDB(ErroreDB::ErroreMotore, testo);
    }
}

Connessione::Connessione(const std::filesystem::path& file, bool crea, bool solaLettura,
                         int attesaBloccoMs)
    : attesaBloccoMs_(attesaBloccoMs) {
    int flag = solaLettura ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (crea) flag |= SQLITE_OPEN_CREATE;
    int rc = sqlite3_open_v2(file.c_str(), &db_, flag, nullptr);
    if (rc != SQLITE_OK) {
        std::string testo = db_ ? sqlite3_errmsg(db_) : "memoria esaurita";
        sqlite3_close_v2(db_);
        db_ = nullptr;
        ErroreDelMotore(rc, "Impossibile aprire " + file.string() + ": " + testo);
    }
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_busy_timeout(db_, attesaBloccoMs_);
    sqlite3_create_collation_v2(db_, NomeCollazione, SQLITE_UTF8, nullptr, Collazione, nullptr);
    sqlite3_create_function_v2(db_, NomeFunzioneChiave, -1,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                               FunzioneChiave, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(db_, NomeFunzionePiega, 1,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                               FunzionePiega, nullptr, nullptr, nullptr);
    try {
        // Reads the schema now, so that a file that is not a database fails here.
        Esegui("SELECT count(*) FROM sqlite_master");
    } catch (...) {
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw;
    }
    // A place table with its indexes is a few tens of megabytes: keep it mapped and cached so
    // that a seek reads no file. The cache's size reads the schema: set after the check above, a
    // file held by another program is waited for once, not twice.
    sqlite3_exec(db_, "PRAGMA mmap_size = 268435456; PRAGMA cache_size = -16384", nullptr, nullptr,
                 nullptr);
}

void Connessione::ImpostaAttesaBlocco(int ms) {
    attesaBloccoMs_ = ms;
    sqlite3_busy_timeout(db_, ms);
}

Connessione::~Connessione() {
    sqlite3_close_v2(db_);
}

void Connessione::Esegui(const std::string& sql) {
    char* msg = nullptr;
    int rc = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &msg);
    if (rc != SQLITE_OK) {
        std::string testo = msg ? msg : sqlite3_errstr(rc);
        sqlite3_free(msg);
        if ((rc & 0xFF) == SQLITE_CONSTRAINT)
            throw ErroreDB(ErroreDB::ChiaveDuplicata, "Valore duplicato nell'indice: " + testo);
        ErroreDelMotore(rc, testo);
    }
}

void Connessione::Errore(int rc, std::string_view contesto) const {
    std::string testo = std::string(contesto) + ": " + sqlite3_errmsg(db_);
    if (rc == SQLITE_CONSTRAINT_UNIQUE || rc == SQLITE_CONSTRAINT_PRIMARYKEY)
        throw ErroreDB(ErroreDB::ChiaveDuplicata, "Valore duplicato nell'indice. " + testo);
    ErroreDelMotore(rc, testo);
}

Istruzione::Istruzione(Connessione& c, const std::string& sql) : c_(&c) {
    int rc = sqlite3_prepare_v2(c.Db(), sql.c_str(), static_cast<int>(sql.size()), &st_, nullptr);
    if (rc != SQLITE_OK) c.Errore(rc, sql);
}

Istruzione& Istruzione::operator=(Istruzione&& o) noexcept {
    if (this != &o) {
        sqlite3_finalize(st_);
        c_ = o.c_;
        st_ = o.st_;
        o.st_ = nullptr;
    }
    return *this;
}

Istruzione::~Istruzione() {
    sqlite3_finalize(st_);
}

void Istruzione::Lega(int i, const Valore& v) {
    int rc;
    if (v.Nullo())
        rc = sqlite3_bind_null(st_, i);
    else if (v.EIntero())
        rc = sqlite3_bind_int64(st_, i, v.Intero());
    else if (v.EDoppio())
        rc = sqlite3_bind_double(st_, i, v.Numero());
    else {
        std::string t = v.Testo();
        rc = sqlite3_bind_text(st_, i, t.data(), static_cast<int>(t.size()), SQLITE_TRANSIENT);
    }
    if (rc != SQLITE_OK) c_->Errore(rc, "bind");
}

void Istruzione::LegaBlob(int i, std::string_view b) {
    int rc = sqlite3_bind_blob(st_, i, b.data(), static_cast<int>(b.size()), SQLITE_TRANSIENT);
    if (rc != SQLITE_OK) c_->Errore(rc, "bind");
}

void Istruzione::LegaIntero(int i, std::int64_t n) {
    int rc = sqlite3_bind_int64(st_, i, n);
    if (rc != SQLITE_OK) c_->Errore(rc, "bind");
}

bool Istruzione::Passo() {
    int rc = sqlite3_step(st_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    sqlite3_reset(st_);
    c_->Errore(rc, sqlite3_sql(st_));
}

std::int64_t Istruzione::Completa() {
    while (Passo()) {
    }
    std::int64_t n = sqlite3_changes64(c_->Db());
    Reimposta();
    return n;
}

void Istruzione::Reimposta() {
    sqlite3_reset(st_);
    sqlite3_clear_bindings(st_);
}

Valore Istruzione::Colonna(int i) const {
    switch (sqlite3_column_type(st_, i)) {
    case SQLITE_INTEGER:
        return Valore(static_cast<std::int64_t>(sqlite3_column_int64(st_, i)));
    case SQLITE_FLOAT:
        return Valore(sqlite3_column_double(st_, i));
    case SQLITE_TEXT:
    case SQLITE_BLOB:
        return Valore(Testo(i));
    default:
        return Valore();
    }
}

std::string Istruzione::Blob(int i) const {
    const void* p = sqlite3_column_blob(st_, i);
    int n = sqlite3_column_bytes(st_, i);
    return p ? std::string(static_cast<const char*>(p), static_cast<std::size_t>(n))
             : std::string();
}

std::string Istruzione::Testo(int i) const {
    const unsigned char* p = sqlite3_column_text(st_, i);
    int n = sqlite3_column_bytes(st_, i);
    return p ? std::string(reinterpret_cast<const char*>(p), static_cast<std::size_t>(n))
             : std::string();
}

bool TipoTesto(TipoCampo t) {
    return t == TipoCampo::Testo || t == TipoCampo::Memo;
}

std::string TipoDichiarato(const DefCampo& c) {
    switch (c.tipo) {
    case TipoCampo::Booleano:
        return "BOOLEAN";
    case TipoCampo::Byte:
        return "TINYINT";
    case TipoCampo::Intero16:
        return "SMALLINT";
    case TipoCampo::Intero32:
        return "INTEGER";
    case TipoCampo::Singolo:
        return "FLOAT";
    case TipoCampo::Doppio:
        return "DOUBLE";
    case TipoCampo::DataOra:
        return "DATETIME REAL";
    case TipoCampo::Testo: {
        std::string t = c.consentiLunghezzaZero ? "VARCHAR ZEROLENGTH" : "VARCHAR";
        if (c.dimensione > 0) t += "(" + std::to_string(c.dimensione) + ")";
        return t;
    }
    case TipoCampo::Memo:
        return c.consentiLunghezzaZero ? "LONGTEXT ZEROLENGTH" : "LONGTEXT";
    }
    return "DOUBLE";
}

DefCampo DaTipoDichiarato(std::string nome, std::string_view dichiarato) {
    DefCampo c;
    c.nome = std::move(nome);
    std::string t = Maiuscolo(dichiarato);
    std::size_t par = t.find('(');
    std::string base = SenzaSpazi(t.substr(0, par));
    if (par != std::string::npos) c.dimensione = std::atoi(t.c_str() + par + 1);
    c.consentiLunghezzaZero = base.find("ZEROLENGTH") != std::string::npos;
    if (base == "BOOLEAN")
        c.tipo = TipoCampo::Booleano;
    else if (base == "TINYINT")
        c.tipo = TipoCampo::Byte;
    else if (base == "SMALLINT")
        c.tipo = TipoCampo::Intero16;
    else if (base == "FLOAT")
        c.tipo = TipoCampo::Singolo;
    else if (base == "DOUBLE")
        c.tipo = TipoCampo::Doppio;
    else if (base == "DATETIME REAL")
        c.tipo = TipoCampo::DataOra;
    else if (base.rfind("VARCHAR", 0) == 0)
        c.tipo = TipoCampo::Testo;
    else if (base.rfind("LONGTEXT", 0) == 0)
        c.tipo = TipoCampo::Memo;
    // Types of files not made here, by SQLite's affinity rules.
    else if (base.find("INT") != std::string::npos)
        c.tipo = TipoCampo::Intero32;
    else if (base.find("CHAR") != std::string::npos || base.find("CLOB") != std::string::npos ||
             base.find("TEXT") != std::string::npos) {
        c.tipo = TipoCampo::Memo;
        c.consentiLunghezzaZero = true;
    } else
        c.tipo = TipoCampo::Doppio;
    if (!TipoTesto(c.tipo)) c.dimensione = 0;
    return c;
}

Valore Converti(const DefCampo& campo, const Valore& v, bool controlli) {
    if (v.Nullo()) return v;
    if (TipoTesto(campo.tipo)) {
        std::string t = v.Testo();
        if (controlli && t.empty() && !campo.consentiLunghezzaZero)
            throw ErroreDB(ErroreDB::LunghezzaZero,
                           "Il campo " + campo.nome +
                               " non può essere una stringa di lunghezza zero");
        if (controlli && campo.tipo == TipoCampo::Testo && campo.dimensione > 0 &&
            LunghezzaCaratteri(t) > static_cast<std::size_t>(campo.dimensione))
            throw ErroreDB(ErroreDB::CampoTroppoPiccolo, "Il campo " + campo.nome +
                                                             " è troppo piccolo per il valore \"" +
                                                             t + "\"");
        return Valore(std::move(t));
    }
    double x = 0;
    if (v.ENumero())
        x = v.Numero();
    else if (!ComeNumero(v.Testo(), x))
        throw ErroreDB(ErroreDB::ConversioneNonValida,
                       "Errore di conversione del tipo di dati: \"" + v.Testo() + "\" nel campo " +
                           campo.nome);
    auto intero = [&](double lo, double hi) {
        double r = std::nearbyint(x);
        if (!(r >= lo && r <= hi))
            throw ErroreDB(ErroreDB::OverflowNumerico, "Overflow del campo numerico " + campo.nome);
        return Valore(static_cast<std::int64_t>(r));
    };
    switch (campo.tipo) {
    case TipoCampo::Booleano:
        return Valore(x != 0 ? -1 : 0);
    case TipoCampo::Byte:
        return intero(0, 255);
    case TipoCampo::Intero16:
        return intero(-32768, 32767);
    case TipoCampo::Intero32:
        return intero(-2147483648.0, 2147483647.0);
    case TipoCampo::Singolo:
        return Valore(static_cast<double>(static_cast<float>(x)));
    default:
        if (v.EIntero()) return v;
        return Valore(x);
    }
}

} // namespace vesmo::store_detail
