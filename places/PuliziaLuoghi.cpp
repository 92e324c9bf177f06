#include "places/PuliziaLuoghi.h"

#include <algorithm>
#include <cmath>
#include <system_error>
#include <unordered_set>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Cursore.h"
#include "places/ModelloLuoghi.h"

namespace vesmo {

namespace fs = std::filesystem;

namespace {

std::int32_t Intero(const Cursore& c, std::string_view campo) {
    return static_cast<std::int32_t>(c.Campo(campo).Intero());
}

const char* Tabella(ListaPulizia l) {
    return l == ListaPulizia::Fusi ? "Fusi" : "Estive";
}
const char* CampoCodice(ListaPulizia l) {
    return l == ListaPulizia::Fusi ? "cFusi" : "cEst";
}

} // namespace

const char* IndiceLavoro(ListaPulizia lista) {
    return lista == ListaPulizia::Fusi ? "IndFusi" : "IndEstive";
}

EsitoScansione ScansionePulizia(const fs::path& fileDB, ListaPulizia lista) {
    Database db(fileDB);
    if (!db.EsisteIndice("AllCity", IndiceLavoro(lista)))
        db.CreaIndice("AllCity", IndiceLavoro(lista), {CampoCodice(lista)});
    EsitoScansione esito;
    LetturaUnica lettura(db);
    Cursore tabella(db, Tabella(lista));
    Cursore city(db, "AllCity");
    city.Index(IndiceLavoro(lista));
    std::int32_t precedente = 0;
    std::unordered_set<std::int32_t> elencati;
    for (; !tabella.Eof(); tabella.MoveNext()) {
        ++esito.esaminate;
        const std::int32_t codice = Intero(tabella, CampoCodice(lista));
        if (codice == precedente) continue;
        precedente = codice;
        city.Seek("=", codice);
        if (!city.NoMatch() || codice >= 10000) continue;
        if (elencati.insert(codice).second) esito.codici.push_back(codice);
    }
    return esito;
}

EsitoScansione ScansioneSolaLettura(const fs::path& fileDB, ListaPulizia lista) {
    Database db(fileDB);
    EsitoScansione esito;
    LetturaUnica lettura(db);
    std::unordered_set<std::int32_t> usati;
    {
        Cursore codici = Cursore::Sql(db, std::string("SELECT DISTINCT ") + CampoCodice(lista) +
                                              " FROM AllCity");
        for (; !codici.Eof(); codici.MoveNext())
            usati.insert(Intero(codici, CampoCodice(lista)));
    }
    Cursore tabella(db, Tabella(lista));
    std::int32_t precedente = 0;
    std::unordered_set<std::int32_t> elencati;
    for (; !tabella.Eof(); tabella.MoveNext()) {
        ++esito.esaminate;
        const std::int32_t codice = Intero(tabella, CampoCodice(lista));
        if (codice == precedente) continue;
        precedente = codice;
        if (usati.count(codice) || codice >= 10000) continue;
        if (elencati.insert(codice).second) esito.codici.push_back(codice);
    }
    return esito;
}

std::string TestoScansione(const EsitoScansione& esito) {
    return std::to_string(esito.esaminate) + "  Righe esaminate - (" +
           std::to_string(esito.codici.size()) + " Codici da Eliminare)";
}

std::int64_t EliminaRighe(const fs::path& fileDB, ListaPulizia lista,
                          const std::vector<std::int32_t>& codici,
                          const std::function<void(std::int64_t)>& avanzamento) {
    Database db(fileDB);
    const std::unordered_set<std::int32_t> daEliminare(codici.begin(), codici.end());
    std::int64_t eliminate = 0, righe = 0;
    db.IniziaTransazione();
    try {
        Cursore tabella(db, Tabella(lista));
        while (!tabella.Eof()) {
            if (daEliminare.count(Intero(tabella, CampoCodice(lista)))) {
                tabella.Delete();
                ++eliminate;
            }
            tabella.MoveNext();
            ++righe;
            if (lista == ListaPulizia::Estive && righe % 1000 == 0 && avanzamento)
                avanzamento(righe);
        }
        tabella.Chiudi();
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    return eliminate;
}

std::string TestoEliminate(std::int64_t righe, ListaPulizia lista) {
    return std::to_string(righe) + "  Righe Eliminate da " + Tabella(lista);
}

void EliminaIndiceLavoro(const fs::path& fileDB, ListaPulizia lista) {
    Database db(fileDB);
    if (db.EsisteIndice("AllCity", IndiceLavoro(lista)))
        db.EliminaIndice("AllCity", IndiceLavoro(lista));
}

fs::path FileCompattazione(const fs::path& fileDB) {
    return fileDB.parent_path() / "Neo_Vesmodat.mdb";
}

std::string TestoCompattazione(const std::string& fileDB) {
    return "\n" + std::string(10, ' ') + "Deframmentazione del Database\n\n" + std::string(5, ' ') +
           fileDB + "\n";
}

bool CompattaDatabase(const fs::path& fileDB, Messaggi& messaggi) {
    const fs::path destinazione = FileCompattazione(fileDB);
    std::string perche;
    try {
        std::error_code ec;
        if (fs::is_directory(destinazione, ec))
            throw std::runtime_error("Al posto della copia c'è una cartella: " +
                                     destinazione.string());
        // A copy left by an earlier compaction that did not end is replaced.
        if (fs::exists(destinazione, ec) || fs::is_symlink(destinazione, ec))
            fs::remove(destinazione);
        Database::Compatta(fileDB, destinazione);
        fs::rename(destinazione, fileDB, ec);
        if (ec) {
            std::error_code ignora;
            fs::remove(destinazione, ignora);
            throw std::runtime_error("Impossibile sostituire " + fileDB.string() + ": " +
                                     ec.message());
        }
        return true;
    } catch (const std::exception& e) {
        perche = e.what();
    }
    messaggi.Mostra(
        "Vesmo - Db Compact",
        Righe({"Compattazione non riuscita:", perche, "Il database resta quello di prima.",
               Trattini, "Compaction failed.", "The database is unchanged."}),
        Pulsanti::Ok, Icona::Critico);
    return false;
}

void ModelloFusiEstive::Form_Load() {
    if (ZoomFuso == -1) {
        OraVisibile = false;
        Combo5 = 0;
    }
    Elenca();
}

void ModelloFusiEstive::Elenca() {
    List1.Svuota();
    cmbZoneOrarie.Svuota();
    Text17.clear();
    Text8.clear();
    Text5.clear();
    Text6.clear();
    Text7.clear();
    Text22.clear();
    Text23.clear();
    LegendaVisibile = false;
    Text2Visibile = true;
    Database proprio;
    if (!condiviso) proprio.Apri(fileDB);
    Database& db = condiviso ? *condiviso : proprio;
    if (ZoomFuso == -1) {
        const auto codice = static_cast<std::int32_t>(ZoomCFusi);
        Cursore c(db, "Fusi");
        c.Index("iFusi");
        c.Seek(">=", codice);
        if (c.NoMatch() || Intero(c, "cFusi") != codice) {
            Text2Visibile = false;
            List1.voci.push_back(std::string(15, ' ') + "NON DISPONIBILE");
            return;
        }
        Text2 = " Cod          Dal           Fuso";
        for (; !c.Eof() && Intero(c, "cFusi") == codice; c.MoveNext())
            List1.voci.push_back(FormatoNumero(codice, "000") + std::string(20, ' ') + DataRiga(c) +
                                 std::string(25, ' ') + c.Campo("fH_h").Testo() + ":" +
                                 c.Campo("fH_m").Testo());
        return;
    }
    const auto codice = static_cast<std::int32_t>(ZoomCEst);
    if (ZoomCEst >= 10000) {
        Text2 = "Cod $ ExtraCod , ZZonenNummer * Data [ZonaOraria]";
        List1.voci = RigheListaUnita(db, codice);
        cmbZoneOrarie.voci = LegendaZone(db, List1.voci);
        if (!cmbZoneOrarie.voci.empty()) cmbZoneOrarie.indice = 0;
        LegendaVisibile = true;
        return;
    }
    if (contatore <= 2) {
        Label6 = "(" + std::to_string(contatore) + ")";
        Label6Visibile = true;
        Text5 = TestoNumero(ZoomAnno);
    } else {
        Label6Visibile = false;
    }
    Text2 = " Cod         Dal           h:m         Estive";
    Cursore c(db, "Estive");
    c.Index("IndEstiTbEstive");
    c.Seek(">=", codice);
    for (; !c.NoMatch() && !c.Eof() && Intero(c, "cEst") == codice; c.MoveNext())
        List1.voci.push_back(FormatoNumero(codice, "000") + std::string(15, ' ') + DataRiga(c) +
                             std::string(25, ' ') + FormatoNumero(c.Campo("h").Numero(), "00") +
                             ":" + FormatoNumero(c.Campo("min").Numero(), "00") +
                             std::string(25, ' ') + std::to_string(Intero(c, "HE_h")) + ":" +
                             std::to_string(Intero(c, "HE_m")));
}

bool ModelloFusiEstive::Command1_Click() {
    if (Unita()) return false;
    const double giorno = ValoreTesto(Text17), mese = ValoreTesto(Text8), anno = ValoreTesto(Text5);
    if (giorno == 0 || mese == 0 || anno == 0) {
        messaggi.Mostra("Vesmo - Errore Estive", Righe({"Caselle Nuova Riga vuote"}), Pulsanti::Ok,
                        Icona::Esclamativo);
        return false;
    }
    {
        Database proprio;
        if (!condiviso) proprio.Apri(fileDB);
        Database& db = condiviso ? *condiviso : proprio;
        if (ZoomFuso == -1) {
            if (SenzaSpazi(Text22).empty()) Text22 = "00";
            if (SenzaSpazi(Text23).empty()) Text23 = "00";
            Cursore c(db, "Fusi");
            c.AddNew();
            c.Imposta("cFusi", static_cast<std::int32_t>(ZoomCFusi));
            c.Imposta("Day", giorno);
            c.Imposta("Mese", mese);
            c.Imposta("Anno", anno);
            c.Imposta("fH_h", ((Combo5 == 0 ? "-" : "") + SenzaSpazi(Text22)).substr(0, 4));
            c.Imposta("fH_m", SenzaSpazi(Text23).substr(0, 2));
            c.Update();
        } else {
            Cursore c(db, "Estive");
            c.AddNew();
            c.Imposta("cEst", static_cast<std::int32_t>(ZoomCEst));
            c.Imposta("Day", giorno);
            c.Imposta("Mese", mese);
            c.Imposta("Anno", anno);
            c.Imposta("h", ValoreTesto(Text6));
            c.Imposta("min", ValoreTesto(Text7));
            c.Imposta("HE_h", ValoreTesto(Text22));
            c.Imposta("HE_m", ValoreTesto(Text23));
            c.Update();
            ++contatore;
        }
    }
    Elenca();
    return true;
}

std::vector<std::string> RigheZoomNazione(Database& db, std::int32_t cNaz) {
    std::vector<std::string> righe;
    Cursore c(db, "AllCity");
    c.Index("IcCityCity");
    c.Seek(">=", cNaz, "");
    for (; !c.NoMatch() && !c.Eof() && Intero(c, "cCity") == cNaz; c.MoveNext()) {
        righe.push_back(Allunga(SenzaSpazi(c.Campo("City").Testo()), 30) + "  " +
                        TestoGradiPrimi(c.Campo("Lon").Numero() * 15, 'W', 'E') +
                        TestoGradiPrimi(c.Campo("Lat").Numero(), 'N', 'S') + " , " +
                        std::to_string(Intero(c, "cFusi")) + "  " +
                        std::to_string(Intero(c, "cEst")));
    }
    return righe;
}

} // namespace vesmo
