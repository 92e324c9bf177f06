#include "archives/Gestione.h"

#include <algorithm>
#include <cctype>

#include "archives/Archivi.h"
#include "core/Testo.h"

namespace vesmo {

namespace {

const char* const CampiTema[10] = {"Nome", "City", "Nazione", "Day",    "OraL",
                                   "Lon",  "Lat",  "Fuso",    "Estiva", "Cmto"};

std::string Maiuscole(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return s;
}

// A table name as an SQL identifier.
std::string Identificatore(const std::string& nome) {
    std::string r = "\"";
    for (char c : nome)
        r += c == '"' ? std::string("\"\"") : std::string(1, c);
    return r + "\"";
}

} // namespace

std::string TestoEliminaArchivio(const std::string& nome) {
    return "L' Archivio  " + nome +
           "\n\nSarà eliminato senza possibilità di recupero.\n\nContinuo?\n";
}

bool EliminaArchivio(const std::string& fileDB, const std::string& nome) {
    // A places table is never an archive, whatever list offered it.
    if (!EArchivio(nome)) return false;
    Database db(fileDB);
    for (const std::string& t : db.Tabelle())
        if (t == nome) {
            db.EliminaTabella(t);
            return true;
        }
    return false;
}

std::int64_t TrasportaArchivio(const std::string& fileDB, const std::string& sorgente,
                               const std::string& destinazione) {
    Database db(fileDB);
    std::vector<std::vector<Valore>> righe;
    {
        Cursore da(db, sorgente);
        da.Index(IndiceArchivio);
        if (da.RecordCount() > 0)
            for (da.MoveFirst(); !da.Eof(); da.MoveNext()) {
                std::vector<Valore>& r = righe.emplace_back();
                for (const char* campo : CampiTema)
                    r.push_back(da.Campo(campo));
            }
    }
    Cursore a(db, destinazione);
    a.Index(IndiceArchivio);
    db.IniziaTransazione();
    try {
        for (const std::vector<Valore>& r : righe) {
            a.AddNew();
            for (std::size_t i = 0; i < r.size(); ++i)
                a.Imposta(CampiTema[i], r[i]);
            a.Update();
        }
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    return static_cast<std::int64_t>(righe.size());
}

std::int32_t DupeTableName(Database& gdbCurrentDB, const std::string& rName, Messaggi& messaggi) {
    try {
        for (const std::string& t : gdbCurrentDB.Tabelle()) {
            if (Maiuscole(t) != Maiuscole(rName)) continue;
            if (messaggi.Mostra("", "La tabella esiste già. Eliminarla?", Pulsanti::SiNo,
                                Icona::Domanda) == Risposta::Si) {
                gdbCurrentDB.EliminaTabella(t);
                return 0;
            }
            return -1;
        }
        return 0;
    } catch (const std::exception&) {
        return 0;
    }
}

EsitoCompleanni ImportaCompleanni(const std::string& fileDB,
                                  const std::filesystem::path& fileSorgente, Messaggi& messaggi) {
    Database db(fileDB);
    Database laterale(fileSorgente);
    std::string nome = TabellaCompleanni;
    for (int n = 1; DupeTableName(db, nome, messaggi) != 0; ++n)
        nome = std::string(TabellaCompleanni) + std::to_string(n);
    const std::int64_t importati =
        db.Esegui("select * into " + nome + " from [;database=" +
                  std::filesystem::absolute(fileSorgente).string() + "]." + TabellaCompleanni);
    for (const DefIndice& i : laterale.Indici(TabellaCompleanni))
        db.CreaIndice(nome, i.nome, i.campi, i.unico, i.primario);
    return {nome, importati};
}

std::string DidascaliaImportati(std::int64_t n) {
    return std::to_string(n) + "  Importati";
}

std::vector<std::string> RicercaEstesa(Database& db, const std::string& archivio,
                                       const std::string& testo) {
    // The text inside the pattern: its own % and _ are escaped, so that only the two outer
    // wildcards match anything.
    std::string modello = "%";
    for (char c : testo) {
        if (c == '%' || c == '_' || c == '\\') modello += '\\';
        modello += c;
    }
    modello += '%';
    Cursore rs = Cursore::Sql(db,
                              "Select Nome From " + Identificatore(archivio) +
                                  " Where Nome Like ?1 Escape '\\' Order By Nome, rowid",
                              {Valore(modello)});
    std::vector<std::string> nomi;
    if (rs.RecordCount() == 0) return nomi;
    rs.MoveLast();
    rs.MoveFirst();
    for (; !rs.Eof(); rs.MoveNext())
        nomi.push_back(rs.Campo("Nome").Testo());
    return nomi;
}

std::string TestoEliminaTema(const std::string& nome) {
    return nome + "\n\nSarà Eliminato senza possibilità di recupero\n\n";
}

void EliminaTemaCorrente(Cursore& rs) {
    rs.Delete();
    rs.MovePrevious();
    if (rs.BOF() && rs.RecordCount() > 0) rs.MoveFirst();
}

std::string TestoArchiviUguali(const std::string& sorgente, const std::string& destinazione) {
    return "Archivio sorgente  " + sorgente + "\nUGUALE \nArchivio destinazione  " + destinazione +
           "\n\nSelezionare un altro Archivio sulla lista a scomparsa";
}

std::string TestoTrasferire(const std::string& nome, const std::string& city,
                            const std::string& sorgente, const std::string& destinazione) {
    return nome + "\n" + city + "\n\nTrasferire da  " + sorgente + "  a  " + destinazione + " ?\n";
}

std::string TestoTrasferito(const std::string& nome, const std::string& sorgente,
                            const std::string& destinazione) {
    return SenzaSpazi(nome) + "   Trasferito\n\ndall' Archivio   " + sorgente +
           "\nall' Archivio     " + destinazione;
}

void CopiaTemaIn(Database& db, Cursore& sorgente, const std::string& destinazione) {
    std::vector<Valore> valori;
    for (const char* campo : CampiTema)
        valori.push_back(sorgente.Campo(campo));
    Cursore a(db, destinazione);
    a.AddNew();
    for (std::size_t i = 0; i < valori.size(); ++i)
        a.Imposta(CampiTema[i], valori[i]);
    a.Update();
}

void ImportaInSlot(Sessione& s, int slot) {
    switch (slot) {
    case 0:
        s.TemaNat = s.TemaX;
        s.PosNat = s.PosX;
        break;
    case 1:
        s.TemaTra = s.TemaX;
        s.PosTra = s.PosX;
        s.TransitoCalcolato = -1;
        break;
    case 2:
        s.TemaRiv = s.TemaX;
        s.PosRiv = s.PosX;
        s.RivoluzioneCalcolata = -1;
        s.JDRivoluzione = s.TemaRiv.Day + (s.TemaRiv.OraL - s.TemaRiv.Estiva + s.TemaRiv.Fuso) / 24;
        break;
    case 3:
        s.TemaDir = s.TemaX;
        s.PosDir = s.PosX;
        s.DirezioneCalcolata = -1;
        break;
    default:
        break;
    }
}

} // namespace vesmo
