#include "core/store/Database.h"

#include "core/store/Chiave.h"
#include "core/store/Connessione.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <system_error>

namespace vesmo {

using store_detail::CampiDi;
using store_detail::Connessione;
using store_detail::IndiceSql;
using store_detail::IndiciDi;
using store_detail::Istruzione;
using store_detail::NomeIndiceSql;
using store_detail::NomeReale;
using store_detail::PrimaSenzaCaso;
using store_detail::Q;
using store_detail::UgualiSenzaCaso;

namespace {

namespace fs = std::filesystem;

// "SELECT * INTO dest FROM [;DATABASE=file].source", the one statement that reads another file:
// keywords in any case, blanks between the words, names plain or in brackets, a final ";".
struct SelectInto {
    std::string destinazione, file, sorgente;
};

class Scansione {
public:
    explicit Scansione(std::string_view t) : t_(t) {}
    bool Spazi() {
        std::size_t inizio = i_;
        while (i_ < t_.size() && std::isspace(static_cast<unsigned char>(t_[i_])))
            ++i_;
        return i_ > inizio;
    }
    bool Parola(std::string_view parola) {
        if (t_.size() - i_ < parola.size() ||
            !UgualiSenzaCaso(t_.substr(i_, parola.size()), parola))
            return false;
        i_ += parola.size();
        return true;
    }
    // A name in brackets (without them), or up to a blank or one of `fine`.
    std::optional<std::string> Nome(std::string_view fine) {
        if (i_ < t_.size() && t_[i_] == '[') {
            std::size_t chiusa = t_.find(']', i_ + 1);
            if (chiusa == std::string_view::npos || chiusa == i_ + 1) return std::nullopt;
            std::string nome(t_.substr(i_ + 1, chiusa - i_ - 1));
            i_ = chiusa + 1;
            return nome;
        }
        std::size_t inizio = i_;
        while (i_ < t_.size() && !std::isspace(static_cast<unsigned char>(t_[i_])) &&
               fine.find(t_[i_]) == std::string_view::npos)
            ++i_;
        if (i_ == inizio) return std::nullopt;
        return std::string(t_.substr(inizio, i_ - inizio));
    }
    // Everything up to `fine` (not included), blanks too; at least one character.
    std::optional<std::string> Fino(char fine) {
        std::size_t chiusa = t_.find(fine, i_);
        if (chiusa == std::string_view::npos || chiusa == i_) return std::nullopt;
        std::string r(t_.substr(i_, chiusa - i_));
        i_ = chiusa;
        return r;
    }
    bool Fine() const { return i_ == t_.size(); }

private:
    std::string_view t_;
    std::size_t i_ = 0;
};

std::optional<SelectInto> LeggiSelectInto(std::string_view testo) {
    Scansione s(testo);
    SelectInto r;
    s.Spazi();
    if (!s.Parola("select") || !s.Spazi() || !s.Parola("*") || !s.Spazi() || !s.Parola("into") ||
        !s.Spazi())
        return std::nullopt;
    auto destinazione = s.Nome("[");
    if (!destinazione || !s.Spazi() || !s.Parola("from") || !s.Spazi() || !s.Parola("[;database="))
        return std::nullopt;
    auto file = s.Fino(']');
    if (!file || !s.Parola("].")) return std::nullopt;
    auto sorgente = s.Nome(";");
    if (!sorgente) return std::nullopt;
    s.Spazi();
    s.Parola(";");
    s.Spazi();
    if (!s.Fine()) return std::nullopt;
    return SelectInto{*destinazione, *file, *sorgente};
}

std::string NomeRealeOErrore(Connessione& c, std::string_view tabella) {
    auto r = NomeReale(c, tabella);
    if (!r)
        throw ErroreDB(ErroreDB::TabellaNonTrovata,
                       "Impossibile trovare la tabella \"" + std::string(tabella) + "\"");
    return *r;
}

std::string DefinizioneCampo(const DefCampo& c) {
    std::string s = Q(c.nome) + " " + store_detail::TipoDichiarato(c);
    if (store_detail::TipoTesto(c.tipo))
        s += " COLLATE " + std::string(store_detail::NomeCollazione);
    return s;
}

// A savepoint undone unless confirmed, so that a schema change happens whole or not at all.
class Punto {
public:
    explicit Punto(Connessione& c) : c_(c) { c_.Esegui("SAVEPOINT vesmo_schema"); }
    void Conferma() {
        c_.Esegui("RELEASE vesmo_schema");
        fatto_ = true;
    }
    ~Punto() {
        if (!fatto_) {
            sqlite3_exec(c_.Db(), "ROLLBACK TO vesmo_schema; RELEASE vesmo_schema", nullptr,
                         nullptr, nullptr);
        }
    }

private:
    Connessione& c_;
    bool fatto_ = false;
};

} // namespace

Database::Database(const fs::path& file) {
    Apri(file);
}

Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

void Database::Apri(const fs::path& file) {
    Chiudi();
    std::error_code ec;
    if (!fs::is_regular_file(file, ec))
        throw ErroreDB(ErroreDB::FileNonTrovato, "Impossibile trovare il file " + file.string());
    conn_ = std::make_shared<Connessione>(file, false, false, attesaBloccoMs_);
    percorso_ = file;
}

void Database::Crea(const fs::path& file) {
    Chiudi();
    std::error_code ec;
    if (fs::exists(file, ec))
        throw ErroreDB(ErroreDB::DatabaseEsistente, "Il database esiste già: " + file.string());
    conn_ = std::make_shared<Connessione>(file, true, false, attesaBloccoMs_);
    conn_->Esegui("PRAGMA user_version = 1"); // writes the file's header now
    percorso_ = file;
}

void Database::ImpostaAttesaBlocco(int ms) {
    attesaBloccoMs_ = ms;
    if (conn_) conn_->ImpostaAttesaBlocco(ms);
}

void Database::Chiudi() {
    conn_.reset();
    percorso_.clear();
}

Connessione& Database::Conn() const {
    if (!conn_) throw ErroreDB(ErroreDB::ErroreMotore, "Database non aperto");
    return *conn_;
}

std::vector<std::string> Database::Tabelle() const {
    std::vector<std::string> r;
    Istruzione st(Conn(), "SELECT name FROM sqlite_master WHERE type = 'table' AND "
                          "name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
    while (st.Passo())
        r.push_back(st.Testo(0));
    st.Reimposta();
    std::sort(r.begin(), r.end(), PrimaSenzaCaso);
    return r;
}

bool Database::EsisteTabella(std::string_view nome) const {
    return NomeReale(Conn(), nome).has_value();
}

std::vector<DefCampo> Database::Campi(std::string_view tabella) const {
    return CampiDi(Conn(), NomeRealeOErrore(Conn(), tabella));
}

std::vector<DefIndice> Database::Indici(std::string_view tabella) const {
    std::vector<DefIndice> r;
    for (auto& i : IndiciDi(Conn(), NomeRealeOErrore(Conn(), tabella)))
        r.push_back(std::move(i.def));
    return r;
}

bool Database::EsisteIndice(std::string_view tabella, std::string_view indice) const {
    auto reale = NomeReale(Conn(), tabella);
    if (!reale) return false;
    for (const auto& i : IndiciDi(Conn(), *reale))
        if (UgualiSenzaCaso(i.def.nome, indice)) return true;
    return false;
}

void Database::CreaTabella(std::string_view nome, const std::vector<DefCampo>& campi,
                           const std::vector<DefIndice>& indici) {
    Connessione& c = Conn();
    if (NomeReale(c, nome))
        throw ErroreDB(ErroreDB::TabellaEsistente,
                       "La tabella \"" + std::string(nome) + "\" esiste già");
    if (campi.empty())
        throw ErroreDB(ErroreDB::ArgomentoNonValido,
                       "La tabella \"" + std::string(nome) + "\" non ha campi");
    std::string sql = "CREATE TABLE " + Q(nome) + " (";
    for (std::size_t i = 0; i < campi.size(); ++i) {
        if (i) sql += ", ";
        sql += DefinizioneCampo(campi[i]);
    }
    sql += ")";
    Punto p(c);
    c.Esegui(sql);
    ++c.versione;
    for (const DefIndice& i : indici)
        CreaIndice(nome, i);
    p.Conferma();
}

void Database::EliminaTabella(std::string_view nome) {
    Connessione& c = Conn();
    c.Esegui("DROP TABLE " + Q(NomeRealeOErrore(c, nome)));
    ++c.versione;
}

void Database::CreaIndice(std::string_view tabella, std::string_view nome,
                          const std::vector<std::string>& campi, bool unico, bool primario) {
    Connessione& c = Conn();
    std::string reale = NomeRealeOErrore(c, tabella);
    for (const auto& i : IndiciDi(c, reale)) {
        if (UgualiSenzaCaso(i.def.nome, nome))
            throw ErroreDB(ErroreDB::IndiceEsistente,
                           "L'indice \"" + std::string(nome) + "\" esiste già");
        if (primario && i.def.primario)
            throw ErroreDB(ErroreDB::IndiceEsistente,
                           "La tabella \"" + reale + "\" ha già un indice primario");
    }
    if (campi.empty() || nome.empty() || nome.find(':') != std::string_view::npos)
        throw ErroreDB(ErroreDB::ArgomentoNonValido,
                       "Indice non valido: \"" + std::string(nome) + "\"");
    std::vector<DefCampo> def = CampiDi(c, reale);
    std::string chiave;
    for (const std::string& campo : campi) {
        auto it = std::find_if(def.begin(), def.end(),
                               [&](const DefCampo& d) { return UgualiSenzaCaso(d.nome, campo); });
        if (it == def.end())
            throw ErroreDB(ErroreDB::ElementoNonTrovato,
                           "Campo \"" + campo + "\" non trovato in " + reale);
        if (!chiave.empty()) chiave += ", ";
        chiave += Q(it->nome);
    }
    std::string sql = std::string("CREATE ") + (unico || primario ? "UNIQUE " : "") + "INDEX " +
                      Q(NomeIndiceSql(reale, nome, primario)) + " ON " + Q(reale) + "(" +
                      store_detail::NomeFunzioneChiave + "(" + chiave + "))";
    c.Esegui(sql);
    ++c.versione;
}

void Database::CreaIndice(std::string_view tabella, const DefIndice& indice) {
    CreaIndice(tabella, indice.nome, indice.campi, indice.unico, indice.primario);
}

void Database::EliminaIndice(std::string_view tabella, std::string_view nome) {
    Connessione& c = Conn();
    for (const auto& i : IndiciDi(c, NomeRealeOErrore(c, tabella))) {
        if (UgualiSenzaCaso(i.def.nome, nome)) {
            c.Esegui("DROP INDEX " + Q(i.nomeSql));
            ++c.versione;
            return;
        }
    }
    throw ErroreDB(ErroreDB::ElementoNonTrovato,
                   "Indice \"" + std::string(nome) + "\" non trovato in " + std::string(tabella));
}

std::int64_t Database::Esegui(std::string_view sql) {
    Connessione& c = Conn();
    std::string testo(sql);
    if (auto m = LeggiSelectInto(testo))
        return SelectIntoDaAltroFile(m->destinazione, fs::path(m->file), m->sorgente);
    std::int64_t cambiate = 0;
    const char* p = testo.c_str();
    while (*p) {
        sqlite3_stmt* st = nullptr;
        const char* coda = nullptr;
        int rc = sqlite3_prepare_v2(c.Db(), p, -1, &st, &coda);
        if (rc != SQLITE_OK) c.Errore(rc, p);
        if (!st) break; // only blanks or comments left
        while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        }
        if (rc != SQLITE_DONE) {
            sqlite3_finalize(st);
            ++c.versione;
            c.Errore(rc, p);
        }
        cambiate = sqlite3_changes64(c.Db());
        sqlite3_finalize(st);
        p = coda;
    }
    ++c.versione;
    return cambiate;
}

std::int64_t Database::SelectIntoDaAltroFile(std::string_view destinazione, const fs::path& file,
                                             std::string_view sorgente) {
    Connessione& c = Conn();
    std::error_code ec;
    if (!fs::is_regular_file(file, ec))
        throw ErroreDB(ErroreDB::FileNonTrovato, "Impossibile trovare il file " + file.string());
    if (NomeReale(c, destinazione))
        throw ErroreDB(ErroreDB::TabellaEsistente,
                       "La tabella \"" + std::string(destinazione) + "\" esiste già");
    {
        Istruzione att(c, "ATTACH DATABASE ?1 AS vesmo_esterno");
        att.Lega(1, Valore(file.string()));
        att.Completa();
    }
    struct Stacca {
        Connessione& c;
        ~Stacca() {
            sqlite3_exec(c.Db(), "DETACH DATABASE vesmo_esterno", nullptr, nullptr, nullptr);
        }
    } stacca{c};
    auto reale = NomeReale(c, sorgente, "vesmo_esterno");
    if (!reale)
        throw ErroreDB(ErroreDB::TabellaNonTrovata, "Impossibile trovare la tabella \"" +
                                                        std::string(sorgente) + "\" in " +
                                                        file.string());
    std::vector<DefCampo> campi = CampiDi(c, *reale, "vesmo_esterno");
    std::string elenco;
    for (const DefCampo& d : campi)
        elenco += (elenco.empty() ? "" : ", ") + Q(d.nome);
    std::int64_t n = 0;
    {
        Punto p(c);
        std::string sql = "CREATE TABLE main." + Q(destinazione) + " (";
        for (std::size_t i = 0; i < campi.size(); ++i)
            sql += (i ? ", " : "") + DefinizioneCampo(campi[i]);
        c.Esegui(sql + ")");
        Istruzione ins(c, "INSERT INTO main." + Q(destinazione) + " (" + elenco + ") SELECT " +
                              elenco + " FROM vesmo_esterno." + Q(*reale) + " ORDER BY rowid");
        n = ins.Completa();
        p.Conferma();
    }
    ++c.versione;
    return n;
}

void Database::IniziaTransazione() {
    Conn().Esegui("BEGIN");
}

void Database::ConfermaTransazione() {
    Conn().Esegui("COMMIT");
    ++Conn().versione;
}

void Database::AnnullaTransazione() {
    // A full disk, an I/O error or a lost lock may have rolled the transaction back already: the
    // error that did it is the one to tell, not a rollback of nothing.
    if (!sqlite3_get_autocommit(Conn().Db())) Conn().Esegui("ROLLBACK");
    ++Conn().versione;
}

void Database::VerificaPrimaDiScrivere() const {
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(Conn().Db(), "PRAGMA quick_check(1)", -1, &st, nullptr);
    std::string esito;
    if (rc == SQLITE_OK) {
        rc = sqlite3_step(st);
        if (rc == SQLITE_ROW) {
            const unsigned char* t = sqlite3_column_text(st, 0);
            esito = t ? reinterpret_cast<const char*>(t) : "";
            rc = SQLITE_OK;
        }
    }
    sqlite3_finalize(st);
    if (rc == SQLITE_OK && esito == "ok") return;
    throw ErroreDB(ErroreDB::FormatoNonRiconosciuto,
                   "Il file " + percorso_.string() + " è danneggiato: nessuna scrittura (" +
                       (esito.empty() ? std::string(sqlite3_errstr(rc)) : esito) + ")");
}

bool Database::SolaLettura() const {
    return sqlite3_db_readonly(Conn().Db(), "main") == 1;
}

LetturaUnica::LetturaUnica(Database& db) {
    if (!db.Aperto() || !sqlite3_get_autocommit(db.Conn().Db())) return;
    db.Conn().Esegui("BEGIN");
    conn_ = db.conn_;
}

LetturaUnica::~LetturaUnica() {
    if (!conn_) return;
    // A read ends without error; should the commit fail (a write made meanwhile that the file
    // refuses), roll back rather than leave the connection inside a transaction.
    if (sqlite3_exec(conn_->Db(), "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) {
        sqlite3_exec(conn_->Db(), "ROLLBACK", nullptr, nullptr, nullptr);
        ++conn_->versione;
    }
}

namespace {

// A copy of a database file goes from a file that exists to a name that nothing holds yet, so
// it never replaces a file it did not make.
void ControllaCopia(const fs::path& sorgente, const fs::path& destinazione) {
    std::error_code ec;
    if (!fs::is_regular_file(sorgente, ec))
        throw ErroreDB(ErroreDB::FileNonTrovato,
                       "Impossibile trovare il file " + sorgente.string());
    if (fs::exists(destinazione, ec) || fs::is_symlink(destinazione, ec))
        throw ErroreDB(ErroreDB::DatabaseEsistente,
                       "Il database esiste già: " + destinazione.string());
}

} // namespace

void Database::Compatta(const fs::path& sorgente, const fs::path& destinazione) {
    std::error_code ec;
    ControllaCopia(sorgente, destinazione);
    try {
        Connessione c(sorgente, false, true, AttesaBloccoPredefinitaMs);
        Istruzione st(c, "VACUUM INTO ?1");
        st.Lega(1, Valore(destinazione.string()));
        st.Completa();
    } catch (...) {
        fs::remove(destinazione, ec); // it did not exist before: whatever is there is ours
        throw;
    }
}

void Database::CopiaDiSicurezza(const fs::path& sorgente, const fs::path& destinazione) {
    std::error_code ec;
    ControllaCopia(sorgente, destinazione);
    try {
        Connessione da(sorgente, false, true, AttesaBloccoPredefinitaMs);
        Connessione a(destinazione, true, false, AttesaBloccoPredefinitaMs);
        sqlite3_backup* b = sqlite3_backup_init(a.Db(), "main", da.Db(), "main");
        if (!b) a.Errore(sqlite3_errcode(a.Db()), "copia di sicurezza");
        // All pages in one step, under one read lock of the source: one state of the file. A
        // writer holding the file makes the step wait and try again.
        int rc;
        int attese = 0;
        while ((rc = sqlite3_backup_step(b, -1)) == SQLITE_BUSY || rc == SQLITE_LOCKED) {
            if (++attese * 20 > AttesaBloccoPredefinitaMs) break;
            sqlite3_sleep(20);
        }
        const int fine = sqlite3_backup_finish(b);
        if (rc != SQLITE_DONE) a.Errore(rc, "copia di sicurezza");
        if (fine != SQLITE_OK) a.Errore(fine, "copia di sicurezza");
    } catch (...) {
        fs::remove(destinazione, ec); // it did not exist before: whatever is there is ours
        throw;
    }
}

void Database::CompattaSulPosto(const fs::path& file, const fs::path& temporaneo) {
    Compatta(file, temporaneo);
    std::error_code ec;
    fs::rename(temporaneo, file, ec);
    if (ec) {
        std::error_code ignora;
        fs::remove(temporaneo, ignora);
        throw ErroreDB(ErroreDB::ErroreMotore,
                       "Impossibile sostituire " + file.string() + ": " + ec.message());
    }
}

} // namespace vesmo
