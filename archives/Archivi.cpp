#include "archives/Archivi.h"

#include <filesystem>

#include "chart/CalcolaTema.h"
#include "core/Testo.h"
#include "core/store/Valore.h"

namespace vesmo {

namespace {

const std::string Trattini(30, '-');

// One field read under the trap of a deleted row: the cursor goes to the first row and the read
// goes on with the next field.
template <class Leggi> void ConTrappola(Cursore& rs, Leggi leggi) {
    try {
        leggi();
    } catch (const ErroreDB& e) {
        if (e.Numero() != ErroreDB::RecordEliminato) throw;
        rs.MoveFirst();
    }
}

} // namespace

std::vector<DefCampo> CampiArchivio() {
    return {
        {"Nome", TipoCampo::Testo, 30, false},    {"City", TipoCampo::Testo, 30, false},
        {"Nazione", TipoCampo::Testo, 38, false}, {"Day", TipoCampo::Doppio, 0, false},
        {"OraL", TipoCampo::Doppio, 0, false},    {"Lon", TipoCampo::Doppio, 0, false},
        {"Lat", TipoCampo::Doppio, 0, false},     {"Fuso", TipoCampo::Doppio, 0, false},
        {"Estiva", TipoCampo::Doppio, 0, false},  {"Cmto", TipoCampo::Memo, 0, true},
    };
}

bool EArchivio(std::string_view nomeTabella) {
    const std::string nome = SenzaSpazi(nomeTabella);
    for (std::string_view t : TabelleNonArchivi)
        if (UgualeSenzaCaso(nome, t)) return false;
    if (nome.size() >= 7 && UgualeSenzaCaso(std::string_view(nome).substr(0, 7), "sqlite_"))
        return false;
    return nomeTabella.find("MSys") == std::string_view::npos;
}

std::optional<std::string> ErroreNomeArchivio(std::string_view nome) {
    if (SenzaSpazi(nome).empty()) return "nome dell'archivio vuoto";
    if (SenzaSpazi(nome).size() != nome.size())
        return "nome dell'archivio con spazi all'inizio o alla fine";
    if (!TestoUtf8Valido(nome)) return "nome dell'archivio non è testo UTF-8 valido";
    if (LunghezzaCaratteri(nome) > LunghezzaMassimaArchivio)
        return "nome dell'archivio troppo lungo: al massimo " +
               std::to_string(LunghezzaMassimaArchivio) + " caratteri";
    for (char c : nome) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            return "il nome dell'archivio non può contenere caratteri di controllo";
        if (CaratteriVietatiArchivio.find(c) != std::string_view::npos)
            return std::string("il nome dell'archivio non può contenere il carattere ") + c +
                   " (vietati: " + std::string(CaratteriVietatiArchivio) + ")";
    }
    if (!EArchivio(nome)) return "nome riservato a una tabella del database: " + std::string(nome);
    return std::nullopt;
}

std::string FileDiArchivio(const std::string& cartella, std::string_view archivio,
                           std::string_view estensione) {
    std::string nome = RiparaUtf8(archivio);
    for (char& c : nome)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F ||
            CaratteriVietatiArchivio.find(c) != std::string_view::npos)
            c = '_';
    nome = PrimiCaratteri(nome, LunghezzaMassimaArchivio);
    if (nome.empty()) nome = "_";
    return (std::filesystem::path(cartella) / (nome + std::string(estensione))).string();
}

std::vector<std::string> ElencoArchivi(const Database& db) {
    std::vector<std::string> r;
    for (std::string& t : db.Tabelle())
        if (EArchivio(t)) r.push_back(std::move(t));
    return r;
}

std::vector<std::string> ElencoArchivi(const std::string& fileDB) {
    Database db(fileDB);
    return ElencoArchivi(db);
}

void CreaArchivio(const std::string& fileDB, const std::string& nome) {
    Database db(fileDB);
    db.VerificaPrimaDiScrivere();
    db.CreaTabella(nome, CampiArchivio(), {DefIndice{IndiceArchivio, {"Nome"}, false, false}});
}

void ScriviTema(Cursore& rs, const Tema& tema, std::int16_t& aggiungi, std::int16_t& modifica) {
    if (aggiungi)
        rs.AddNew();
    else if (modifica)
        rs.Edit();
    rs.Imposta("Nome", tema.Nome.str());
    rs.Imposta("City", tema.City.str());
    rs.Imposta("Nazione", tema.Stato.str());
    rs.Imposta("Day", tema.Day);
    rs.Imposta("OraL", tema.OraL);
    rs.Imposta("Lon", tema.Lon);
    rs.Imposta("Lat", tema.Lat);
    rs.Imposta("Fuso", tema.Fuso);
    rs.Imposta("Estiva", tema.Estiva);
    rs.Imposta("Cmto", tema.Cmto);
    rs.Update();
}

void LeggiRecordTema(Cursore& rs, Tema& tema) {
    ConTrappola(rs, [&] { tema.Nome = rs.Campo("Nome").Testo(); });
    ConTrappola(rs, [&] { tema.City = rs.Campo("City").Testo(); });
    ConTrappola(rs, [&] { tema.Stato = rs.Campo("Nazione").Testo(); });
    ConTrappola(rs, [&] { tema.Day = rs.Campo("Day").Numero(); });
    ConTrappola(rs, [&] { tema.OraL = rs.Campo("OraL").Numero(); });
    ConTrappola(rs, [&] { tema.Lon = rs.Campo("Lon").Numero(); });
    ConTrappola(rs, [&] { tema.Lat = rs.Campo("Lat").Numero(); });
    ConTrappola(rs, [&] { tema.Fuso = rs.Campo("Fuso").Numero(); });
    ConTrappola(rs, [&] { tema.Estiva = rs.Campo("Estiva").Numero(); });
    ConTrappola(rs, [&] { tema.Cmto = rs.Campo("Cmto").Testo(); });
}

void CaricaTemaX(Cursore& rs, Sessione& s, Messaggi& messaggi) {
    s.TemaX = s.TemaVuoto;
    s.PosX = s.PosVuoto;
    LeggiRecordTema(rs, s.TemaX);
    Case cuspidi;
    CastaTema(s.TemaX, cuspidi, s.PosX, s.LunaGeo, messaggi);
}

std::string TestoTemaDoppio(const Tema& tema) {
    return tema.Nome.str() + "\n\nè GIA' PRESENTE nel DataBase\n\n"
                             "Sì =          Sovrascrivo\n"
                             "No =         Aggiungo senza sovrascrivere\n"
                             "Annulla =  Nessun salvataggio\n\n";
}

EsitoSalvataggio SalvaTema(const std::string& fileDB, const std::string& archivio, const Tema& tema,
                           Messaggi& messaggi, const std::string& routine) {
    try {
        Database db(fileDB);
        bool trovato = false;
        for (const std::string& t : db.Tabelle())
            if (t == archivio) trovato = true;
        if (!trovato) {
            messaggi.Mostra("Vesmo - " + routine,
                            "L'Archivio  " + archivio + "  non è più nel DataBase\n" + Trattini +
                                "\nThe archive is no longer in the database.\n",
                            Pulsanti::Ok, Icona::Esclamativo);
            return EsitoSalvataggio::NonSalvato;
        }
        db.VerificaPrimaDiScrivere();
        Cursore rs(db, archivio);
        rs.Index(IndiceArchivio);
        rs.Seek("=", tema.Nome.str());

        std::int16_t aggiungi = 0, modifica = 0;
        EsitoSalvataggio esito = EsitoSalvataggio::Aggiunto;
        if (rs.NoMatch()) {
            aggiungi = -1;
        } else {
            switch (messaggi.Mostra("Tema Doppio", TestoTemaDoppio(tema), Pulsanti::SiNoAnnulla,
                                    Icona::Domanda)) {
            case Risposta::Si:
                modifica = -1;
                esito = EsitoSalvataggio::Sovrascritto;
                break;
            case Risposta::No:
                aggiungi = -1;
                esito = EsitoSalvataggio::AggiuntoDoppio;
                break;
            default:
                return EsitoSalvataggio::Annullato;
            }
        }
        ScriviTema(rs, tema, aggiungi, modifica);
        return esito;
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi, routine, e);
        return EsitoSalvataggio::NonSalvato;
    }
}

std::optional<std::string> NomeNuovoArchivio(const std::string& testo,
                                             const std::vector<std::string>& elenco,
                                             Messaggi& messaggi) {
    std::string nome = SenzaSpazi(testo);
    if (nome.empty()) return std::nullopt;
    for (const std::string& archivio : elenco) {
        if (!UgualeSenzaCaso(archivio, nome)) continue;
        std::optional<std::string> altro = messaggi.Chiedi(
            "frmGesArchivi.cmdCrea: Nome Doppio",
            "L'Archivio  " + nome + "  Esiste già\n" + "Digitare un nome diverso o annullare ");
        if (!altro || SenzaSpazi(*altro).empty()) return std::nullopt;
        nome = SenzaSpazi(*altro);
    }
    return nome;
}

namespace {

// What stops the database, in Italian and in English.
struct Causa {
    int numero;
    const char* italiano;
    const char* inglese;
};
constexpr Causa Cause[] = {
    {ErroreDB::Bloccato, "Il DataBase è bloccato da un altro programma",
     "The database is locked by another program."},
    {ErroreDB::SolaLettura, "Il DataBase è di sola lettura", "The database is read-only."},
    {ErroreDB::DiscoPieno, "Il disco del DataBase è pieno", "The disk of the database is full."},
    {ErroreDB::ErroreDisco, "Errore del disco nel leggere o scrivere il DataBase",
     "The disk failed to read or write the database."},
    {ErroreDB::FileNonApribile, "Il DataBase non si può aprire (permessi del file)",
     "The database cannot be opened (file permissions)."},
    {ErroreDB::FormatoNonRiconosciuto, "Il file non è un DataBase valido o è danneggiato",
     "The file is not a database, or it is damaged."},
};

const Causa* CercaCausa(int numero) {
    for (const Causa& c : Cause)
        if (c.numero == numero) return &c;
    return nullptr;
}

} // namespace

std::string CausaErroreDB(int numero) {
    const Causa* c = CercaCausa(numero);
    return c ? c->italiano : "Errore " + std::to_string(numero) + " del DataBase";
}

std::string CausaErroreDBInglese(int numero) {
    const Causa* c = CercaCausa(numero);
    return c ? c->inglese : "Database error " + std::to_string(numero) + ".";
}

std::optional<std::string> CreaArchivioUtente(const std::string& fileDB, const std::string& testo,
                                              const std::vector<std::string>& elenco,
                                              Messaggi& messaggi) {
    std::optional<std::string> nome = NomeNuovoArchivio(testo, elenco, messaggi);
    if (!nome) return std::nullopt;
    if (std::optional<std::string> errore = ErroreNomeArchivio(*nome)) {
        messaggi.Mostra("frmGesArchivi.cmdCrea: Nome Non Valido",
                        "Il nome  " + *nome + "  non vale per un Archivio:\n" + *errore +
                            "\nArchivio non creato.\n" + Trattini +
                            "\nThis name cannot name an archive.\n",
                        Pulsanti::Ok, Icona::Esclamativo);
        return std::nullopt;
    }
    try {
        CreaArchivio(fileDB, *nome);
        return nome;
    } catch (const ErroreDB& e) {
        std::string titolo = "frmGesArchivi.cmdCrea: Nome Non Valido";
        std::string testoIt, testoEn;
        if (e.Numero() == ErroreDB::TabellaEsistente) {
            testoIt = "Nel DataBase esiste già una tabella di nome  " + *nome;
            testoEn = "A table of this name already exists.";
        } else if (e.Numero() == ErroreDB::FileNonTrovato) {
            testoIt = "DataBase non trovato:\n" + fileDB;
            testoEn = "Database not found.";
        } else if (e.Numero() == ErroreDB::ErroreMotore) {
            testoIt = "Il DataBase non accetta il nome  " + *nome;
            testoEn = "The database refuses this name (error " + std::to_string(e.Numero()) + ").";
        } else {
            // The file, not the name, is at fault: say what stops it.
            titolo = "frmGesArchivi.cmdCrea: DataBase";
            testoIt = CausaErroreDB(e.Numero()) + ":\n" + fileDB;
            testoEn = CausaErroreDBInglese(e.Numero());
        }
        messaggi.Mostra(titolo,
                        testoIt + "\nArchivio non creato.\n" + Trattini + "\n" + testoEn + "\n",
                        Pulsanti::Ok, Icona::Esclamativo);
        return std::nullopt;
    }
}

void AvvisoErroreDB(Messaggi& messaggi, const std::string& routine, const std::exception& e) {
    std::string numero;
    if (const auto* db = dynamic_cast<const ErroreDB*>(&e))
        numero = "Errore " + std::to_string(db->Numero()) + "\n";
    messaggi.Mostra("Vesmo - " + routine, numero + e.what(), Pulsanti::Ok, Icona::Critico);
}

} // namespace vesmo
