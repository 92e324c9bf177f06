#include "places/CompletaLuogo.h"

#include <cmath>
#include <stdexcept>

#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "core/Testo.h"
#include "core/store/Database.h"
#include "places/ModelloLuoghi.h"
#include "places/RicercaLuoghi.h"

namespace vesmo {

void CompletaTemaDaLuoghi(const std::string& fileDB, Tema& tema) {
    Database db(fileDB);
    MessaggiRegistrati messaggi;
    messaggi.risposte.push_back(Risposta::No); // nobody is there to open the table editor
    ModelloLuoghi m(db, messaggi, 'N');
    const std::string city = SenzaSpazi(tema.City.str());
    const std::string nazione = SenzaSpazi(tema.Stato.str());
    std::optional<std::int32_t> cNaz;
    if (!nazione.empty()) {
        m.Data2.Seek("=", nazione);
        if (m.Data2.NoMatch()) throw std::runtime_error("nazione sconosciuta: " + nazione);
        cNaz = static_cast<std::int32_t>(m.Data2.Campo("cNaz").Intero());
    }
    // The name as records write it ("Town (PR)", former names, registry spellings) through the
    // index of folded names; a database built without that index falls back on the plain names.
    RicercaLuoghi ricerca(db);
    LuogoTrovato luogo;
    const EsitoRisoluzione risolto = ricerca.RisolviNome(cNaz, city);
    if (risolto.stato == StatoRisoluzione::Ambiguo)
        throw std::runtime_error("luogo ambiguo: " + city);
    if (risolto.stato == StatoRisoluzione::Trovato) {
        luogo.cCity = risolto.candidati.front().cCity;
        luogo.City = risolto.candidati.front().City;
    } else {
        const EsitoNome esito = ricerca.NomeEsatto(cNaz, city);
        if (esito.luoghi.empty()) throw std::runtime_error("luogo sconosciuto: " + city);
        if (esito.tipo == Corrispondenza::SenzaProvincia && esito.luoghi.size() > 1)
            throw std::runtime_error("luogo ambiguo: " + city);
        luogo = esito.luoghi.front();
    }
    m.VaiALuogo(luogo.cCity, luogo.City);
    float anno, mese, giorno;
    DataDaGiuliano(tema.Day, anno, mese, giorno);
    const long minuti = std::lround(tema.OraL * 60);
    auto dueCifre = [](long n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    m.campi.Text3 = dueCifre(static_cast<long>(giorno));
    m.campi.Text4 = dueCifre(static_cast<long>(mese));
    m.campi.Text5 = std::to_string(static_cast<long>(anno));
    m.campi.Text6 = std::to_string(minuti / 60 % 24);
    m.campi.Text7 = std::to_string(minuti % 60);
    Tema trovato;
    m.ImportaCity(trovato);
    tema.Lon = trovato.Lon;
    tema.Lat = trovato.Lat;
    tema.Fuso = trovato.Fuso;
    tema.Estiva = trovato.Estiva;
    tema.Stato = trovato.Stato;
}

} // namespace vesmo
