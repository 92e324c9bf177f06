#include "core/store/Cursore.h"

#include "core/store/Chiave.h"
#include "core/store/Connessione.h"

#include <algorithm>
#include <optional>

namespace vesmo {

namespace store_detail {

namespace {

// Rows read ahead by a move beyond what is already read: few after a seek, more and more as
// the walk goes on in one direction.
constexpr int FinestraIniziale = 8;
constexpr int FinestraMassima = 128;

struct Riga {
    std::int64_t id = 0;
    std::string chiave;
    std::vector<Valore> valori;
};

enum class Posto {
    Riga,      // on a row
    Eliminata, // where a row deleted by this cursor stood
    Fuori,     // before the first or after the last row: see bof / eof
    Nessuno,   // after a failed "=" seek
};

[[noreturn]] void NessunRecord() {
    throw ErroreDB(ErroreDB::NessunRecordCorrente, "Nessun record corrente");
}

[[noreturn]] void RecordEliminato() {
    throw ErroreDB(ErroreDB::RecordEliminato, "Il record è stato eliminato");
}

} // namespace

struct StatoCursore {
    std::shared_ptr<Connessione> conn;
    bool sql = false;
    std::string tabella;
    std::vector<DefCampo> campi;
    std::string indice;
    std::vector<int> campiIndice;

    // Statements of the table and index in use; see Prepara.
    Istruzione primi, ultimi, dopo, prima, almeno, minore, riga, conta, inserisci, aggiorna,
        elimina;
    int ampiezza = FinestraIniziale;

    // What has been read: a window of rows in index order, and the current row.
    std::vector<Riga> finestra;
    std::size_t pos = 0;
    std::vector<Riga> tutte; // an SQL cursor's whole result; id is the row's place in it
    std::string testoSql;
    std::vector<Valore> parametri; // bound to ?1, ?2... of testoSql
    std::uint64_t versioneFinestra = 0;
    Riga corrente;
    std::uint64_t versioneCorrente = 0;
    Posto posto = Posto::Fuori;
    bool bof = true, eof = true, noMatch = false;

    ModoModifica modo = ModoModifica::Nessuno;
    std::vector<Valore> nuovi;
    std::optional<std::int64_t> ultimo;
    std::int64_t conteggio = -1;
    std::uint64_t versioneConteggio = 0;

    std::uint64_t Versione() const { return sql ? 1 : conn->versione; }

    int Campo(std::string_view nome) const {
        for (std::size_t i = 0; i < campi.size(); ++i)
            if (UgualiSenzaCaso(campi[i].nome, nome)) return static_cast<int>(i);
        throw ErroreDB(ErroreDB::ElementoNonTrovato,
                       "Elemento non trovato in questo insieme: campo \"" + std::string(nome) +
                           "\"");
    }

    void Prepara() {
        std::string k = "x''";
        if (!campiIndice.empty()) {
            k = std::string(NomeFunzioneChiave) + "(";
            for (std::size_t i = 0; i < campiIndice.size(); ++i)
                k += (i ? ", " : "") + Q(campi[static_cast<std::size_t>(campiIndice[i])].nome);
            k += ")";
        }
        std::string sel = "SELECT rowid, " + k + ", * FROM " + Q(tabella);
        std::string su = " ORDER BY " + k + ", rowid", giu = " ORDER BY " + k + " DESC, rowid DESC";
        Connessione& c = *conn;
        primi = Istruzione(c, sel + su + " LIMIT ?1");
        ultimi = Istruzione(c, sel + giu + " LIMIT ?1");
        // The rows after a place (key, row): the rest of its tie, then the greater keys; one
        // statement, so one read of the file.
        auto vicine = [&](const char* cmp, const std::string& verso, const std::string& ordine) {
            if (campiIndice.empty())
                return sel + " WHERE rowid " + cmp + " ?2 AND ?1 = ?1 ORDER BY rowid" + verso +
                       " LIMIT ?3";
            return "SELECT * FROM (" + sel + " WHERE " + k + " = ?1 AND rowid " + cmp +
                   " ?2 ORDER BY rowid" + verso + " LIMIT ?3) UNION ALL SELECT * FROM (" + sel +
                   " WHERE " + k + " " + cmp + " ?1" + ordine + " LIMIT ?3) LIMIT ?3";
        };
        dopo = Istruzione(c, vicine(">", "", su));
        prima = Istruzione(c, vicine("<", " DESC", giu));
        almeno = Istruzione(c, sel + " WHERE " + k + " >= ?1" + su + " LIMIT 1");
        minore = Istruzione(c, sel + " WHERE " + k + " < ?1" + giu + " LIMIT 1");
        riga = Istruzione(c, sel + " WHERE rowid = ?1");
        conta = Istruzione(c, "SELECT count(*) FROM " + Q(tabella));
    }

    // Reads the rows of a statement whose parameters are bound.
    std::vector<Riga> Leggi(Istruzione& st) {
        std::vector<Riga> righe;
        while (st.Passo()) {
            Riga r;
            r.id = st.Intero(0);
            r.chiave = st.Blob(1);
            r.valori.reserve(campi.size());
            for (std::size_t i = 0; i < campi.size(); ++i)
                r.valori.push_back(st.Colonna(static_cast<int>(i) + 2));
            righe.push_back(std::move(r));
        }
        st.Reimposta();
        return righe;
    }

    std::vector<Riga> Estremi(bool primo, int n) {
        Istruzione& st = primo ? primi : ultimi;
        st.LegaIntero(1, n);
        return Leggi(st);
    }

    // Up to n rows after (avanti) or before the place (chiave, id), nearest first.
    std::vector<Riga> Vicine(const std::string& chiave, std::int64_t id, bool avanti, int n) {
        Istruzione& st = avanti ? dopo : prima;
        st.LegaBlob(1, chiave);
        st.LegaIntero(2, id);
        st.LegaIntero(3, n);
        std::vector<Riga> righe = Leggi(st);
        return righe;
    }

    std::optional<Riga> RigaDa(std::int64_t id) {
        riga.LegaIntero(1, id);
        std::vector<Riga> r = Leggi(riga);
        if (r.empty()) return std::nullopt;
        return std::move(r.front());
    }

    void SuRiga(std::vector<Riga> righe, std::size_t p) {
        finestra = std::move(righe);
        pos = p;
        versioneFinestra = Versione();
        corrente = finestra[pos];
        versioneCorrente = versioneFinestra;
        posto = Posto::Riga;
        bof = eof = false;
    }

    void Fuori(bool prima_, bool dopo_) {
        posto = Posto::Fuori;
        bof = prima_;
        eof = dopo_;
        finestra.clear();
    }

    bool FinestraValida() const {
        return posto == Posto::Riga && !finestra.empty() && versioneFinestra == Versione() &&
               finestra[pos].id == corrente.id;
    }

    // To the first (or last) row; both ends when there is none.
    bool Estremo(bool primo) {
        modo = ModoModifica::Nessuno;
        if (sql) {
            if (tutte.empty()) {
                Fuori(true, true);
                return false;
            }
            VaiRigaSql(primo ? 0 : tutte.size() - 1);
            return true;
        }
        ampiezza = FinestraIniziale;
        std::vector<Riga> righe = Estremi(primo, ampiezza);
        if (righe.empty()) {
            Fuori(true, true);
            return false;
        }
        if (!primo) std::reverse(righe.begin(), righe.end());
        std::size_t p = primo ? 0 : righe.size() - 1;
        SuRiga(std::move(righe), p);
        return true;
    }

    // One row forward or back from the current place.
    void Passo(bool avanti) {
        modo = ModoModifica::Nessuno;
        if (posto == Posto::Nessuno) NessunRecord();
        if (posto == Posto::Fuori) {
            if (avanti ? eof : bof) NessunRecord();
            if (!Estremo(avanti)) NessunRecord();
            return;
        }
        if (sql) {
            std::size_t p = static_cast<std::size_t>(corrente.id);
            if (avanti ? p + 1 < tutte.size() : p > 0)
                VaiRigaSql(avanti ? p + 1 : p - 1);
            else
                Fuori(!avanti, avanti);
            return;
        }
        if (posto == Posto::Riga && FinestraValida() &&
            (avanti ? pos + 1 < finestra.size() : pos > 0)) {
            pos = avanti ? pos + 1 : pos - 1;
            corrente = finestra[pos];
            versioneCorrente = versioneFinestra;
            return;
        }
        std::vector<Riga> righe = Vicine(corrente.chiave, corrente.id, avanti, ampiezza);
        ampiezza = std::min(2 * ampiezza, FinestraMassima);
        if (righe.empty()) {
            Fuori(!avanti, avanti);
            return;
        }
        // The window keeps index order and holds the row we come from, when there is one.
        std::size_t p = 0;
        if (avanti) {
            if (posto == Posto::Riga) {
                righe.insert(righe.begin(), corrente);
                p = 1;
            }
        } else {
            std::reverse(righe.begin(), righe.end());
            p = righe.size() - 1;
            if (posto == Posto::Riga) righe.push_back(corrente);
        }
        SuRiga(std::move(righe), p);
    }

    void VaiRigaSql(std::size_t p) {
        corrente = tutte[p];
        versioneCorrente = Versione();
        posto = Posto::Riga;
        bof = eof = false;
    }

    // The current row, read again when the file may have changed since.
    const Riga& Corrente() {
        if (posto == Posto::Eliminata) RecordEliminato();
        if (posto != Posto::Riga) NessunRecord();
        if (versioneCorrente != Versione()) {
            std::optional<Riga> r = RigaDa(corrente.id);
            if (!r) {
                posto = Posto::Eliminata;
                finestra.clear();
                RecordEliminato();
            }
            corrente = std::move(*r);
            versioneCorrente = Versione();
        }
        return corrente;
    }

    void SoloLettura() const {
        if (sql)
            throw ErroreDB(ErroreDB::SolaLettura,
                           "Impossibile aggiornare. Il cursore è di sola lettura");
    }
};

} // namespace store_detail

using store_detail::Posto;
using store_detail::Riga;
using store_detail::StatoCursore;

Cursore::Cursore() : s_(std::make_unique<StatoCursore>()) {}

Cursore::Cursore(Cursore&&) noexcept = default;
Cursore& Cursore::operator=(Cursore&&) noexcept = default;
Cursore::~Cursore() = default;

void Cursore::Chiudi() {
    s_.reset();
}

StatoCursore& Cursore::S() const {
    if (!s_) throw ErroreDB(ErroreDB::ErroreMotore, "Cursore chiuso");
    return *s_;
}

Cursore::Cursore(Database& db, std::string_view tabella) : Cursore() {
    s_->conn = db.conn_;
    store_detail::Connessione& c = db.Conn();
    auto reale = store_detail::NomeReale(c, tabella);
    if (!reale)
        throw ErroreDB(ErroreDB::TabellaNonTrovata,
                       "Impossibile trovare la tabella \"" + std::string(tabella) + "\"");
    s_->tabella = *reale;
    s_->campi = store_detail::CampiDi(c, *reale);
    s_->Prepara();
    s_->Estremo(true);
}

namespace {

void Esegui(StatoCursore& s) {
    store_detail::Istruzione st(*s.conn, s.testoSql);
    for (std::size_t i = 0; i < s.parametri.size(); ++i)
        st.Lega(static_cast<int>(i) + 1, s.parametri[i]);
    s.campi.clear();
    for (int i = 0; i < st.Colonne(); ++i) {
        DefCampo d;
        d.nome = st.NomeColonna(i);
        s.campi.push_back(d);
    }
    s.tutte.clear();
    while (st.Passo()) {
        Riga r;
        r.id = static_cast<std::int64_t>(s.tutte.size());
        for (int i = 0; i < st.Colonne(); ++i)
            r.valori.push_back(st.Colonna(i));
        s.tutte.push_back(std::move(r));
    }
    st.Reimposta();
    s.Estremo(true);
}

} // namespace

Cursore Cursore::Sql(Database& db, std::string_view sql) {
    return Sql(db, sql, {});
}

Cursore Cursore::Sql(Database& db, std::string_view sql, const std::vector<Valore>& parametri) {
    Cursore cur;
    StatoCursore& s = *cur.s_;
    s.conn = db.conn_;
    db.Conn();
    s.sql = true;
    s.testoSql = std::string(sql);
    s.parametri = parametri;
    Esegui(s);
    return cur;
}

std::vector<Segnalibro> Cursore::Segnalibri() const {
    StatoCursore& s = S();
    std::vector<Segnalibro> r;
    if (s.sql) {
        r.reserve(s.tutte.size());
        for (const Riga& riga : s.tutte)
            r.push_back(Segnalibro{riga.id});
        return r;
    }
    std::string k = "rowid";
    if (!s.campiIndice.empty()) {
        k = std::string(store_detail::NomeFunzioneChiave) + "(";
        for (std::size_t i = 0; i < s.campiIndice.size(); ++i)
            k += (i ? ", " : "") +
                 store_detail::Q(s.campi[static_cast<std::size_t>(s.campiIndice[i])].nome);
        k += "), rowid";
    }
    store_detail::Istruzione st(*s.conn, "SELECT rowid FROM " + store_detail::Q(s.tabella) +
                                             " ORDER BY " + k);
    while (st.Passo())
        r.push_back(Segnalibro{st.Intero(0)});
    st.Reimposta();
    return r;
}

std::vector<Segnalibro> Cursore::Segnalibri(std::string_view dove, std::string_view ordine,
                                            const std::vector<Valore>& parametri) const {
    StatoCursore& s = S();
    if (s.sql) throw ErroreDB(ErroreDB::ErroreMotore, "Segnalibri filtrati di una query SQL");
    std::string k(ordine);
    if (k.empty() && !s.campiIndice.empty()) {
        k = std::string(store_detail::NomeFunzioneChiave) + "(";
        for (std::size_t i = 0; i < s.campiIndice.size(); ++i)
            k += (i ? ", " : "") +
                 store_detail::Q(s.campi[static_cast<std::size_t>(s.campiIndice[i])].nome);
        k += ")";
    }
    store_detail::Istruzione st(*s.conn, "SELECT rowid FROM " + store_detail::Q(s.tabella) +
                                             (dove.empty() ? "" : " WHERE " + std::string(dove)) +
                                             " ORDER BY " + (k.empty() ? "" : k + ", ") + "rowid");
    for (std::size_t i = 0; i < parametri.size(); ++i)
        st.Lega(static_cast<int>(i + 1), parametri[i]);
    std::vector<Segnalibro> r;
    while (st.Passo())
        r.push_back(Segnalibro{st.Intero(0)});
    st.Reimposta();
    return r;
}

const std::string& Cursore::Tabella() const {
    return S().tabella;
}

void Cursore::Index(std::string_view nome) {
    StatoCursore& s = S();
    if (s.sql)
        throw ErroreDB(ErroreDB::OperazioneNonSupportata,
                       "Operazione non supportata per questo tipo di oggetto");
    std::string trovato;
    std::vector<int> campi;
    if (!nome.empty()) {
        bool c = false;
        for (const auto& i : store_detail::IndiciDi(*s.conn, s.tabella)) {
            if (!store_detail::UgualiSenzaCaso(i.def.nome, nome)) continue;
            c = true;
            trovato = i.def.nome;
            for (const std::string& f : i.def.campi)
                campi.push_back(s.Campo(f));
        }
        if (!c)
            throw ErroreDB(ErroreDB::IndiceNonValido,
                           "\"" + std::string(nome) + "\" non è un indice di questa tabella");
    }
    s.indice = trovato;
    s.campiIndice = campi;
    s.Prepara();
    s.noMatch = false;
    s.Estremo(true);
}

const std::string& Cursore::Index() const {
    return S().indice;
}

void Cursore::Seek(std::string_view confronto, const Valore& k1) {
    Seek(confronto, std::vector<Valore>{k1});
}

void Cursore::Seek(std::string_view confronto, const Valore& k1, const Valore& k2) {
    Seek(confronto, std::vector<Valore>{k1, k2});
}

void Cursore::Seek(std::string_view confronto, const Valore& k1, const Valore& k2,
                   const Valore& k3) {
    Seek(confronto, std::vector<Valore>{k1, k2, k3});
}

void Cursore::Seek(std::string_view confronto, const std::vector<Valore>& chiavi) {
    StatoCursore& s = S();
    if (s.sql)
        throw ErroreDB(ErroreDB::OperazioneNonSupportata,
                       "Operazione non supportata per questo tipo di oggetto");
    if (s.campiIndice.empty())
        throw ErroreDB(ErroreDB::NessunIndiceCorrente,
                       "Operazione non valida senza un indice corrente");
    if (chiavi.empty() || chiavi.size() > s.campiIndice.size())
        throw ErroreDB(ErroreDB::ArgomentoNonValido, "Numero di chiavi non valido");
    std::string p;
    for (std::size_t i = 0; i < chiavi.size(); ++i)
        store_detail::CodificaValore(
            p, store_detail::Converti(s.campi[static_cast<std::size_t>(s.campiIndice[i])],
                                      chiavi[i], false));
    bool avanti;
    std::string limite;
    if (confronto == "=" || confronto == ">=") {
        avanti = true;
        limite = p;
    } else if (confronto == ">") {
        avanti = true;
        limite = store_detail::SuccessorePrefisso(p);
    } else if (confronto == "<=") {
        avanti = false;
        limite = store_detail::SuccessorePrefisso(p);
    } else if (confronto == "<") {
        avanti = false;
        limite = p;
    } else {
        throw ErroreDB(ErroreDB::ArgomentoNonValido,
                       "Confronto non valido: \"" + std::string(confronto) + "\"");
    }
    s.modo = ModoModifica::Nessuno;
    store_detail::Istruzione& st = avanti ? s.almeno : s.minore;
    st.LegaBlob(1, limite);
    s.ampiezza = store_detail::FinestraIniziale;
    std::vector<Riga> righe = s.Leggi(st);
    bool trovato = !righe.empty();
    if (trovato && confronto == "=") trovato = righe.front().chiave.starts_with(p);
    s.noMatch = !trovato;
    if (trovato) {
        s.SuRiga(std::move(righe), 0);
    } else if (confronto == "=") {
        s.posto = Posto::Nessuno;
        s.bof = s.eof = false;
        s.finestra.clear();
    } else {
        s.Fuori(!avanti, avanti);
    }
}

bool Cursore::NoMatch() const {
    return S().noMatch;
}

void Cursore::MoveFirst() {
    if (!S().Estremo(true)) store_detail::NessunRecord();
}

void Cursore::MoveLast() {
    if (!S().Estremo(false)) store_detail::NessunRecord();
}

void Cursore::MoveNext() {
    S().Passo(true);
}

void Cursore::MovePrevious() {
    S().Passo(false);
}

bool Cursore::BOF() const {
    return S().posto == Posto::Fuori && S().bof;
}

bool Cursore::Eof() const {
    return S().posto == Posto::Fuori && S().eof;
}

Segnalibro Cursore::Bookmark() const {
    StatoCursore& s = S();
    if (s.posto == Posto::Eliminata) store_detail::RecordEliminato();
    if (s.posto != Posto::Riga) store_detail::NessunRecord();
    return Segnalibro{s.corrente.id};
}

void Cursore::VaiA(const Segnalibro& b) {
    StatoCursore& s = S();
    s.modo = ModoModifica::Nessuno;
    if (s.sql) {
        if (b.riga < 0 || static_cast<std::size_t>(b.riga) >= s.tutte.size())
            throw ErroreDB(ErroreDB::ArgomentoNonValido, "Segnalibro non valido");
        s.VaiRigaSql(static_cast<std::size_t>(b.riga));
        return;
    }
    std::optional<Riga> r = s.RigaDa(b.riga);
    if (!r) store_detail::RecordEliminato();
    std::vector<Riga> righe;
    righe.push_back(std::move(*r));
    s.SuRiga(std::move(righe), 0);
    s.ampiezza = store_detail::FinestraIniziale;
}

Segnalibro Cursore::UltimoModificato() const {
    StatoCursore& s = S();
    if (!s.ultimo) store_detail::NessunRecord();
    return Segnalibro{*s.ultimo};
}

std::int64_t Cursore::RecordCount() const {
    StatoCursore& s = S();
    if (s.sql) return static_cast<std::int64_t>(s.tutte.size());
    if (s.conteggio < 0 || s.versioneConteggio != s.Versione()) {
        s.conta.Passo();
        s.conteggio = s.conta.Intero(0);
        s.conta.Reimposta();
        s.versioneConteggio = s.Versione();
    }
    return s.conteggio;
}

std::vector<std::string> Cursore::Campi() const {
    std::vector<std::string> r;
    for (const DefCampo& c : S().campi)
        r.push_back(c.nome);
    return r;
}

Valore Cursore::Campo(std::string_view nome) const {
    StatoCursore& s = S();
    auto i = static_cast<std::size_t>(s.Campo(nome));
    if (s.modo != ModoModifica::Nessuno) return s.nuovi[i];
    return s.Corrente().valori[i];
}

void Cursore::AddNew() {
    StatoCursore& s = S();
    s.SoloLettura();
    s.nuovi.assign(s.campi.size(), Valore());
    s.modo = ModoModifica::Aggiunta;
}

void Cursore::Edit() {
    StatoCursore& s = S();
    s.SoloLettura();
    s.modo = ModoModifica::Nessuno;
    s.nuovi = s.Corrente().valori;
    s.modo = ModoModifica::Modifica;
}

void Cursore::Imposta(std::string_view campo, const Valore& valore) {
    StatoCursore& s = S();
    s.SoloLettura();
    auto i = static_cast<std::size_t>(s.Campo(campo));
    if (s.modo == ModoModifica::Nessuno)
        throw ErroreDB(ErroreDB::UpdateSenzaAddNew,
                       "Aggiornamento o annullamento senza AddNew o Edit");
    s.nuovi[i] = store_detail::Converti(s.campi[i], valore, false);
}

void Cursore::Update() {
    StatoCursore& s = S();
    s.SoloLettura();
    if (s.modo == ModoModifica::Nessuno)
        throw ErroreDB(ErroreDB::UpdateSenzaAddNew,
                       "Aggiornamento o annullamento senza AddNew o Edit");
    for (std::size_t i = 0; i < s.campi.size(); ++i)
        s.nuovi[i] = store_detail::Converti(s.campi[i], s.nuovi[i], true);
    store_detail::Connessione& c = *s.conn;
    int n = static_cast<int>(s.campi.size());
    if (s.modo == ModoModifica::Aggiunta) {
        if (!s.inserisci.Valida()) {
            std::string nomi, segni;
            for (int i = 0; i < n; ++i) {
                nomi +=
                    (i ? ", " : "") + store_detail::Q(s.campi[static_cast<std::size_t>(i)].nome);
                segni += (i ? ", ?" : "?") + std::to_string(i + 1);
            }
            s.inserisci = store_detail::Istruzione(c, "INSERT INTO " + store_detail::Q(s.tabella) +
                                                          " (" + nomi + ") VALUES (" + segni + ")");
        }
        for (int i = 0; i < n; ++i)
            s.inserisci.Lega(i + 1, s.nuovi[static_cast<std::size_t>(i)]);
        s.inserisci.Completa();
        ++c.versione;
        s.ultimo = sqlite3_last_insert_rowid(c.Db());
        s.modo = ModoModifica::Nessuno;
        return;
    }
    if (!s.aggiorna.Valida()) {
        std::string assegna;
        for (int i = 0; i < n; ++i)
            assegna += (i ? ", " : "") +
                       store_detail::Q(s.campi[static_cast<std::size_t>(i)].nome) + " = ?" +
                       std::to_string(i + 1);
        s.aggiorna =
            store_detail::Istruzione(c, "UPDATE " + store_detail::Q(s.tabella) + " SET " + assegna +
                                            " WHERE rowid = ?" + std::to_string(n + 1));
    }
    for (int i = 0; i < n; ++i)
        s.aggiorna.Lega(i + 1, s.nuovi[static_cast<std::size_t>(i)]);
    s.aggiorna.LegaIntero(n + 1, s.corrente.id);
    std::int64_t cambiate = s.aggiorna.Completa();
    ++c.versione;
    s.modo = ModoModifica::Nessuno;
    if (cambiate == 0) {
        s.posto = Posto::Eliminata;
        store_detail::RecordEliminato();
    }
    s.ultimo = s.corrente.id;
    // The row may have moved in the index order: stand on it at its new place.
    std::optional<Riga> r = s.RigaDa(s.corrente.id);
    if (!r) store_detail::RecordEliminato();
    std::vector<Riga> righe;
    righe.push_back(std::move(*r));
    s.SuRiga(std::move(righe), 0);
}

void Cursore::CancelUpdate() {
    S().modo = ModoModifica::Nessuno;
}

ModoModifica Cursore::Modo() const {
    return S().modo;
}

void Cursore::Delete() {
    StatoCursore& s = S();
    s.SoloLettura();
    s.modo = ModoModifica::Nessuno;
    std::int64_t id = s.Corrente().id;
    if (!s.elimina.Valida())
        s.elimina = store_detail::Istruzione(*s.conn, "DELETE FROM " + store_detail::Q(s.tabella) +
                                                          " WHERE rowid = ?1");
    s.elimina.LegaIntero(1, id);
    std::int64_t n = s.elimina.Completa();
    ++s.conn->versione;
    s.posto = Posto::Eliminata;
    s.finestra.clear();
    if (n == 0) store_detail::RecordEliminato();
}

void Cursore::Refresh() {
    StatoCursore& s = S();
    s.modo = ModoModifica::Nessuno;
    if (s.sql) {
        Esegui(s);
        return;
    }
    s.versioneFinestra = 0;
    s.versioneCorrente = 0;
    s.conteggio = -1;
}

} // namespace vesmo
