#include "places/CittaVicine.h"

#include <cmath>
#include <memory>
#include <optional>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "places/Schema.h"

namespace vesmo {

namespace {

struct Tabelle {
    Database db;
    std::optional<Cursore> nazioni, citta;

    explicit Tabelle(const std::filesystem::path& file) : db(file) {
        nazioni.emplace(db, "Nazioni");
        nazioni->Index("IndCoNazi");
        citta.emplace(db, "AllCity");
    }
    void Chiudi() {
        citta->Chiudi();
        nazioni->Chiudi();
        db.Chiudi();
    }
};

// The current row of AllCity, with the name of its nation.
CittaVicina Riga(Cursore& citta, Cursore& nazioni) {
    nazioni.Seek("=", citta.Campo("cCity"));
    CittaVicina c;
    c.Nazione = nazioni.NoMatch() ? "" : nazioni.Campo("Nazione").Testo();
    c.City = citta.Campo("City").Testo();
    c.Lon = citta.Campo("Lon").Numero();
    c.Lat = citta.Campo("Lat").Numero();
    return c;
}

} // namespace

std::string CittaVicina::Testo() const {
    return SenzaSpazi(City) + " - " + SenzaSpazi(Nazione) + " - " +
           TestoCoordinata(Lon, 1, 0, false) + "   " + TestoCoordinata(Lat, 0, 1, false);
}

std::vector<CittaVicina> CercaCittaVicine(const std::filesystem::path& fileDB, double lon,
                                          double lat,
                                          const std::function<void(bool)>& costruzione) {
    auto t = std::make_unique<Tabelle>(fileDB);
    try {
        t->citta->Index("iLonLat");
    } catch (const ErroreDB& e) {
        if (e.Numero() != ErroreDB::IndiceNonValido) throw;
        if (costruzione) costruzione(true);
        t->Chiudi();
        t.reset();
        CreaIndiceLonLat(fileDB);
        t = std::make_unique<Tabelle>(fileDB);
        t->citta->Index("iLonLat");
        if (costruzione) costruzione(false);
    }
    Cursore& citta = *t->citta;
    Cursore& nazioni = *t->nazioni;

    std::vector<CittaVicina> righe;
    if (citta.RecordCount() == 0) {
        t->Chiudi();
        return righe;
    }
    long passi = 0;    // steps of every walk of this search
    int notaPasso = 0; // the value of n at the last check of the steps
    for (int n = 0; n <= 10; ++n) {
        double migliore = 80;
        int pari = 0;
        citta.MoveFirst();
        citta.Seek(">=", lon - n / 900.0, lat);
        if (citta.NoMatch()) continue;
        if (std::fabs(citta.Campo("Lon").Numero() - lon) <= 0.1 &&
            std::fabs(citta.Campo("Lat").Numero() - lat) <= 0.1) {
            righe.push_back(Riga(citta, nazioni));
            continue;
        }
        Segnalibro qui = citta.Bookmark(), rigaMigliore = qui;
        for (;;) {
            citta.VaiA(qui);
            citta.MoveNext();
            if (citta.Eof()) break;
            const Segnalibro su = citta.Bookmark();
            const double dSu = std::fabs(lat - citta.Campo("Lat").Numero());
            citta.VaiA(qui);
            citta.MovePrevious();
            if (citta.BOF()) break;
            const Segnalibro giu = citta.Bookmark();
            const double dGiu = std::fabs(lat - citta.Campo("Lat").Numero());
            const bool sale = dSu < dGiu;
            const double d = sale ? dSu : dGiu;
            if (d < migliore) {
                migliore = d;
                rigaMigliore = sale ? su : giu;
            } else if (d == migliore) {
                ++pari;
            }
            qui = sale ? su : giu;
            if (pari >= 5) {
                citta.VaiA(rigaMigliore);
                righe.push_back(Riga(citta, nazioni));
                break;
            }
            if (++passi % 32 == 0) {
                if (notaPasso == n) break;
                notaPasso = n;
            }
        }
    }
    t->Chiudi();
    return righe;
}

} // namespace vesmo
