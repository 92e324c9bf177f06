#include "archives/ScorriArchivio.h"

#include "archives/Archivi.h"
#include "chart/CalcolaTema.h"
#include "core/store/Database.h"

namespace vesmo {

bool ScorriArchivio(Sessione& s, const std::string& fileDB, std::optional<Segnalibro>& segna,
                    bool avanti, Messaggi& messaggi) {
    const std::string routine =
        avanti ? "frmOutDati.mnFilCSuccessivo" : "frmOutDati.mnFilCPrecedente";
    if (s.ArchivioCorrente.empty()) {
        messaggi.Mostra(avanti ? "Lyx - Info TN Successivo" : "Lyx - Info TN Precedente",
                        "Nessun Archivio impostato", Pulsanti::Ok, Icona::Informazione);
        return false;
    }
    Tema letto = s.TemaVuoto;
    Segnalibro riga;
    try {
        Database db(fileDB);
        Cursore rs(db, s.ArchivioCorrente);
        rs.Index(IndiceArchivio);
        const bool vuoto = rs.BOF() && rs.Eof();
        if (!vuoto) {
            if (segna) {
                rs.VaiA(*segna);
                avanti ? rs.MoveNext() : rs.MovePrevious();
            } else {
                rs.Seek("=", Valore(s.TemaX.Nome.str()));
                if (!rs.NoMatch())
                    avanti ? rs.MoveNext() : rs.MovePrevious();
                else
                    avanti ? rs.MoveFirst() : rs.MoveLast();
            }
        }
        if (vuoto || (avanti ? rs.Eof() : rs.BOF())) {
            messaggi.Mostra(avanti ? "Lyx - Ultimo record" : "Lyx - Primo record",
                            (avanti ? "Ultimo record di " : "Primo record di ") +
                                s.ArchivioCorrente,
                            Pulsanti::Ok, Icona::Informazione);
            return false;
        }
        riga = rs.Bookmark();
        LeggiRecordTema(rs, letto);
    } catch (const std::exception& e) {
        AvvisoErroreDB(messaggi, routine, e);
        return false;
    }
    segna = riga;
    s.TemaX = letto;
    s.PosX = s.PosVuoto;
    Case cuspidi;
    CastaTema(s.TemaX, cuspidi, s.PosX, s.LunaGeo, messaggi);
    return true;
}

} // namespace vesmo
