#include "archives/Selezione.h"

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "core/Testo.h"
#include "core/store/Connessione.h"

namespace vesmo {

std::string TestoEliminaTemi(std::size_t quanti, const std::string& archivio) {
    return "Eliminare i " + std::to_string(quanti) + " temi selezionati dall'Archivio " + archivio +
           "?";
}

std::string TestoTrasferireTemi(std::size_t quanti, const std::string& sorgente,
                                const std::string& destinazione) {
    return "Trasferire i " + std::to_string(quanti) + " temi selezionati\ndall' Archivio   " +
           sorgente + "\nall' Archivio     " + destinazione + " ?";
}

namespace {

// Deletes the rows `righe` of `archivio`, in their order, each copied first into `destinazione`
// when one is given; one transaction, rolled back on an error, which goes on to the caller.
// Returns the rows deleted.
std::int64_t TogliTemi(Database& db, const std::string& archivio, const std::string* destinazione,
                       const std::vector<Segnalibro>& righe) {
    db.IniziaTransazione();
    std::int64_t n = 0;
    try {
        Cursore rs(db, archivio);
        for (const Segnalibro& s : righe) {
            rs.VaiA(s);
            if (destinazione) {
                CopiaTemaIn(db, rs, *destinazione);
                rs.VaiA(s);
            }
            rs.Delete();
            ++n;
        }
        rs.Chiudi();
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    return n;
}

} // namespace

std::int64_t EliminaTemi(Database& db, const std::string& archivio,
                         const std::vector<Segnalibro>& righe) {
    return TogliTemi(db, archivio, nullptr, righe);
}

std::int64_t TrasferisciTemi(Database& db, const std::string& sorgente,
                             const std::string& destinazione,
                             const std::vector<Segnalibro>& righe) {
    return TogliTemi(db, sorgente, &destinazione, righe);
}

std::optional<std::string> RinominaArchivio(const std::string& fileDB, const std::string& vecchio,
                                            const std::string& testo, Messaggi& messaggi) {
    std::vector<std::string> altri;
    for (const std::string& a : ElencoArchivi(fileDB))
        if (a != vecchio) altri.push_back(a);
    std::optional<std::string> nome = NomeNuovoArchivio(testo, altri, messaggi);
    if (!nome) return std::nullopt;
    if (auto errore = ErroreNomeArchivio(*nome)) {
        messaggi.Mostra("Vesmo - Rinomina Archivio", *errore, Pulsanti::Ok, Icona::Esclamativo);
        return std::nullopt;
    }
    if (*nome == vecchio) return nome;
    try {
        // The store names its indexes after their table: they are made again under the new
        // name, all in one transaction.
        Database db(fileDB);
        const std::vector<DefIndice> indici = db.Indici(vecchio);
        db.IniziaTransazione();
        try {
            for (const DefIndice& i : indici)
                db.EliminaIndice(vecchio, i.nome);
            db.Esegui("ALTER TABLE " + store_detail::Q(vecchio) + " RENAME TO " +
                      store_detail::Q(*nome));
            for (const DefIndice& i : indici)
                db.CreaIndice(*nome, i);
            db.ConfermaTransazione();
        } catch (...) {
            db.AnnullaTransazione();
            throw;
        }
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi, "frmGesArchivi.cmdRinomina", e);
        return std::nullopt;
    }
    return nome;
}

} // namespace vesmo
