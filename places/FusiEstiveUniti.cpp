#include "places/FusiEstiveUniti.h"

#include <string_view>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Chiave.h"

namespace vesmo {

namespace {

constexpr double UnOra = 1.0 / 24.0;

std::int32_t Intero(const Cursore& c, std::string_view campo) {
    return static_cast<std::int32_t>(c.Campo(campo).Intero());
}

} // namespace

EsitoUniti PercorriUniti(Database& db, std::int16_t codice, double momento) {
    PercorsoUniti percorso(db, momento);
    return percorso.Percorri(codice);
}

PercorsoUniti::PercorsoUniti(Database& db, double momento)
    : uniti_(db, "FusiEstiveUniti"), zone_(db, "ZoneOrarie"), momento_(momento) {
    uniti_.Index("indFusiEstUniti");
    zone_.Index("PrimaryKey");
}

bool PercorsoUniti::Finito(std::int32_t lista) const {
    return uniti_.Eof() || Intero(uniti_, "TTN") != lista;
}

void PercorsoUniti::LeggiZona(std::int32_t zzo) {
    zone_.Seek("=", zzo);
    esito_.segno = zone_.Campo("plusmin").Testo().find('+') != std::string::npos ? " - " : " + ";
    if (zzo != 138 && zzo != 139 && zzo != 140) {
        const double z = zone_.Campo("ZUnterschied").Numero();
        diff_ = z - Fix(z);
        return;
    }
    const Segnalibro qui = zone_.Bookmark();
    zone_.Seek("=", precZona_);
    if (zone_.NoMatch()) {
        diff_ = zzo == 139 ? UnOra : 0.0;
    } else {
        const std::string testo = zone_.Campo("ZZonenText").Testo();
        const double precDiff = esito_.ultimaDiff;
        if (CercaSenzaCaso(testo, "Standard") != std::string::npos) {
            diff_ = zzo == 139 ? precDiff : precDiff - UnOra;
        } else if (testo.find("Daylight") != std::string::npos ||
                   testo.find("War") != std::string::npos) {
            diff_ = zzo == 139 ? precDiff + UnOra : precDiff;
        }
    }
    zone_.VaiA(qui);
}

void PercorsoUniti::ValutaRiga() {
    const std::int32_t zzo = Intero(uniti_, "ZZo");
    LeggiZona(zzo);
    const double wdata = uniti_.Campo("wdata").Numero();
    if (!esito_.ultimaData && momento_ < wdata) {
        ++esito_.colpi;
        esito_.primaDellaLista = true;
        return;
    }
    if (esito_.ultimaData && *esito_.ultimaData <= momento_ && momento_ < wdata) {
        // The previous row holds.
        esito_.fuso = esito_.ultimaDiff * 24 * (esito_.segno == " - " ? -1 : 1);
        ++esito_.colpi;
    }
    esito_.ultimaData = wdata;
    precZona_ = zzo;
    esito_.ultimaDiff = diff_;
}

void PercorsoUniti::RamoPrima() {
    uniti_.Seek(">=", ttvTenuto_);
    while (!uniti_.NoMatch() && !Finito(ttvTenuto_)) {
        if (uniti_.Campo("wdata").Numero() <= wdataTenuta_) {
            ValutaRiga();
            if (esito_.primaDellaLista) return;
            uniti_.MoveNext();
            if (Finito(ttvTenuto_)) {
                uniti_.VaiA(segnalibro_);
                return;
            }
        } else {
            uniti_.VaiA(segnalibro_);
            ValutaRiga();
            if (esito_.primaDellaLista) return;
            unaVolta_ = true;
            return;
        }
    }
    uniti_.VaiA(segnalibro_);
}

bool PercorsoUniti::RamoDopo() {
    const std::int32_t lista = ttvTenuto_;
    uniti_.Seek(">=", lista);
    while (!uniti_.NoMatch() && !Finito(lista) && uniti_.Campo("wdata").Numero() <= wdataTenuta_)
        uniti_.MoveNext();
    if (uniti_.NoMatch() || Finito(lista)) {
        uniti_.VaiA(segnalibro_);
        unaVolta_ = false;
        return false;
    }
    while (true) {
        ValutaRiga();
        if (esito_.primaDellaLista) return false;
        if (Intero(uniti_, "TTV") != 0) {
            ttvTenuto_ = Intero(uniti_, "TTV");
            wdataTenuta_ = uniti_.Campo("wdata").Numero();
            return true;
        }
        uniti_.MoveNext();
        if (Finito(lista)) {
            uniti_.VaiA(segnalibro_);
            unaVolta_ = false;
            return false;
        }
    }
}

void PercorsoUniti::SeguiRiferimento(std::int32_t codice) {
    segnalibro_ = uniti_.Bookmark();
    ttvTenuto_ = Intero(uniti_, "TTV");
    wdataTenuta_ = uniti_.Campo("wdata").Numero();
    if (!unaVolta_) {
        uniti_.MoveNext();
        if (Finito(codice)) unaVolta_ = true;
        uniti_.VaiA(segnalibro_);
    }
    if (unaVolta_) {
        ValutaRiga();
        if (esito_.primaDellaLista) return;
        while (RamoDopo()) {
        }
    } else {
        RamoPrima();
    }
    if (esito_.primaDellaLista) return;
    uniti_.VaiA(segnalibro_);
}

EsitoUniti PercorsoUniti::Percorri(std::int16_t codice) {
    uniti_.Seek(">=", codice);
    while (!uniti_.NoMatch() && !Finito(codice)) {
        if (Intero(uniti_, "TTV") == 0)
            ValutaRiga();
        else
            SeguiRiferimento(codice);
        if (esito_.primaDellaLista) break;
        uniti_.MoveNext();
    }
    uniti_.Chiudi();
    zone_.Chiudi();
    return esito_;
}

} // namespace vesmo
