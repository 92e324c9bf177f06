// vesmo-cli luogo and vesmo-cli cerca: places of the database, with the zone and summer time in
// force there at a local date and time.
#include <chrono>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "places/FontiLuoghi.h"
#include "places/ModelloLuoghi.h"
#include "places/Province.h"
#include "places/RicercaLuoghi.h"

namespace vesmo::cli {

namespace {

// Places the nation cursor of a model sorted by nation on the nation named `nome`.
void TrovaNazione(ModelloLuoghi& m, const std::string& nome) {
    m.Data2.Seek("=", nome);
    if (m.Data2.NoMatch()) throw std::runtime_error("nazione sconosciuta: " + nome);
}

std::string TestoNumeroPunto(double x) {
    return TestoNumero(x, '.');
}

// The names of up to five places whose names begin like `city`, for the message of a failed
// lookup: "; forse: Padova, Padria".
std::string Suggerimenti(RicercaLuoghi& ricerca, std::optional<std::int32_t> cNaz,
                         const std::string& city) {
    std::string testo;
    for (const LuogoTrovato& l : ricerca.Simili(cNaz, city, 5))
        testo += (testo.empty() ? "; forse: " : ", ") + l.City;
    return testo;
}

// A candidate of an ambiguous name as the list shows it: an Italian place with its province
// letters ("Castelnuovo (AT)"), a place abroad with its nation ("Valencia [Spain]"), a former
// name with today's comune ("Altavilla (VI) → Altavilla Vicentina").
std::string TestoCandidato(ModelloLuoghi& m, const Candidato& c) {
    const bool proprio = c.tipo == TipoNome::Ufficiale || c.tipo == TipoNome::Frazione;
    std::string nome = proprio ? c.City : c.Nome;
    if (c.cCity == CNazItalia) {
        if (!c.Sigla.empty() && nome.find("(" + c.Sigla + ")") == std::string::npos)
            nome += " (" + c.Sigla + ")";
    } else {
        m.Data5.Seek("=", c.cCity);
        if (!m.Data5.NoMatch()) nome += " [" + SenzaSpazi(m.Data5.Campo("Nazione").Testo()) + "]";
    }
    if (!proprio) nome += " → " + c.City;
    return nome;
}

} // namespace

LuogoRisolto RisolviLuogo(const Argomenti& a, const std::string& city,
                          const std::optional<std::string>& nazione, const Data& d, const Ora& o) {
    Database db = ApriDatabase(a);
    MessaggiRegistrati messaggi;
    messaggi.risposte.push_back(Risposta::No); // nobody is there to open the table editor
    ModelloLuoghi m(db, messaggi, 'N');
    std::optional<std::int32_t> cNaz;
    if (nazione) {
        TrovaNazione(m, *nazione);
        cNaz = static_cast<std::int32_t>(m.Data2.Campo("cNaz").Intero());
    }
    // The place whose name it is, and no other. With the index of folded names: the name as
    // records write it, "Town (PR)", former names; else the own name, an Italian name without
    // the province letters, or another name of the place.
    RicercaLuoghi ricerca(db);
    const std::string dove = nazione ? " (" + *nazione + ")" : std::string();
    LuogoTrovato luogo;
    const EsitoRisoluzione risolto = ricerca.RisolviNome(cNaz, city);
    if (risolto.stato == StatoRisoluzione::Trovato) {
        const Candidato& c = risolto.candidati.front();
        luogo = {c.cCity, c.City, {}};
        if (c.tipo != TipoNome::Ufficiale && c.tipo != TipoNome::Frazione)
            luogo.NomeAlt = c.tipo == TipoNome::Prefisso ? risolto.nome : c.Nome;
    } else if (risolto.stato == StatoRisoluzione::Ambiguo) {
        std::string quali;
        for (std::size_t k = 0; k < risolto.candidati.size() && k < 20; ++k)
            quali += (k ? ", " : "") + TestoCandidato(m, risolto.candidati[k]);
        if (risolto.candidati.size() > 20) quali += ", ...";
        throw std::runtime_error("luogo ambiguo: " + SenzaSpazi(city) + dove + "; " +
                                 std::to_string(risolto.candidati.size()) + " luoghi: " + quali);
    } else {
        const EsitoNome esito = ricerca.NomeEsatto(cNaz, city);
        if (esito.luoghi.empty())
            throw std::runtime_error("luogo sconosciuto: " + SenzaSpazi(city) + dove +
                                     Suggerimenti(ricerca, cNaz, city));
        if (esito.tipo == Corrispondenza::SenzaProvincia && esito.luoghi.size() > 1) {
            std::string quali;
            for (std::size_t k = 0; k < esito.luoghi.size() && k < 5; ++k)
                quali += (k ? ", " : "") + esito.luoghi[k].City;
            throw std::runtime_error("luogo ambiguo: " + SenzaSpazi(city) + dove +
                                     "; forse: " + quali);
        }
        luogo = esito.luoghi.front();
    }
    m.VaiALuogo(luogo.cCity, luogo.City, dove);
    auto dueCifre = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    m.campi.Text3 = dueCifre(d.giorno);
    m.campi.Text4 = dueCifre(d.mese);
    m.campi.Text5 = std::to_string(d.anno);
    m.campi.Text6 = std::to_string(o.ore);
    m.campi.Text7 = std::to_string(o.minuti);
    LuogoRisolto r;
    m.ImportaCity(r.tema);
    // What the form would show: the question box, else the status text.
    r.messaggio = messaggi.registro.empty() ? m.campi.Pannello2 : messaggi.registro.back().testo;
    r.lmt = m.campi.TagChkSolare == "Ok";
    r.cFusi = m.Data1.Campo("cFusi").Intero();
    r.cEst = m.Data1.Campo("cEst").Intero();
    r.testoData = m.campi.Text3 + '/' + m.campi.Text4 + '/' + m.campi.Text5;
    r.nomeAlt = luogo.NomeAlt;
    return r;
}

int ComandoLuogo(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"city", "nazione", "data", "ora", "json", "db"});
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("uso: vesmo-cli luogo --city NOME [--nazione NOME] "
                              "[--data GG/MM/AAAA --ora HH:MM] [--db FILE] [--json]");
    const std::string city = a.Richiesta("city");
    const auto nazione = a.Opzione("nazione");

    // The local date and time: today and now when not given.
    const std::time_t adesso = std::time(nullptr);
    std::tm oggi{};
    localtime_r(&adesso, &oggi);
    Data d{oggi.tm_mday, oggi.tm_mon + 1, oggi.tm_year + 1900};
    Ora o{oggi.tm_hour, oggi.tm_min, 0};
    if (auto t = a.Opzione("data")) d = LeggiData(*t);
    if (auto t = a.Opzione("ora")) o = LeggiOra(*t);

    const LuogoRisolto r = RisolviLuogo(a, city, nazione, d, o);
    const Tema& t = r.tema;
    const std::string& messaggio = r.messaggio;
    const bool lmt = r.lmt;
    const auto cFusi = r.cFusi;
    const auto cEst = r.cEst;
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("City", t.City.Valore())
            .Testo("Stato", t.Stato.Valore())
            .Numero("cNaz", t.cNaz)
            .Numero("Lon", t.Lon)
            .Numero("Lat", t.Lat)
            .Numero("cFusi", static_cast<double>(cFusi))
            .Numero("cEst", static_cast<double>(cEst))
            .Numero("Fuso", t.Fuso)
            .Numero("Estiva", t.Estiva)
            .Campo("LMT", lmt ? "true" : "false")
            .Testo("Messaggio", messaggio);
        if (!r.nomeAlt.empty()) j.Testo("NomeAlt", r.nomeAlt);
        out << j.str() << '\n';
        return 0;
    }
    out << "City       " << t.City.Valore() << '\n';
    if (!r.nomeAlt.empty()) out << "Trovato    " << r.nomeAlt << " → " << t.City.Valore() << '\n';
    out << "Stato      " << t.Stato.Valore() << " (" << t.cNaz << ")\n"
        << "Lon        " << TestoNumeroPunto(t.Lon) << " h  " << TestoCoordinata(t.Lon, 1, 0, false)
        << '\n'
        << "Lat        " << TestoNumeroPunto(t.Lat) << "°  " << TestoCoordinata(t.Lat, 0, 1, false)
        << '\n'
        << "Data       " << r.testoData << ' ' << (o.ore < 10 ? "0" : "") << o.ore << ':'
        << (o.minuti < 10 ? "0" : "") << o.minuti << '\n'
        << "cFusi      " << cFusi << "   cEst " << cEst << '\n'
        << "Fuso       " << TestoNumeroPunto(t.Fuso) << (lmt ? "   LMT" : "") << '\n'
        << "Estiva     " << TestoNumeroPunto(t.Estiva) << '\n';
    if (!messaggio.empty()) out << "Messaggio  " << messaggio << '\n';
    const std::string provincia = TestoProvincia(t.Stato.Valore(), t.City.Valore());
    if (!provincia.empty()) out << "Provincia  " << provincia << '\n';
    return 0;
}

int ComandoCerca(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"nazione", "json", "db"});
    if (a.Posizionali().size() != 1)
        throw ErroreArgomenti("uso: vesmo-cli cerca TESTO [--nazione NOME] [--db FILE] [--json]");
    const std::string testo = a.Posizionali()[0];
    const auto nazione = a.Opzione("nazione");
    Database db = ApriDatabase(a);
    MessaggiRegistrati messaggi;
    ModelloLuoghi m(db, messaggi, 'N');
    std::optional<std::int32_t> cNaz;
    if (nazione) {
        TrovaNazione(m, *nazione);
        cNaz = static_cast<std::int32_t>(m.Data2.Campo("cNaz").Intero());
    }
    // The places whose own names begin with the text, then those with another name that does,
    // then those with a name whose folded key begins with the text's.
    constexpr std::size_t Massimo = 20;
    RicercaLuoghi ricerca(db);
    std::vector<LuogoTrovato> trovati = ricerca.Comincia(cNaz, testo, Massimo);
    for (LuogoTrovato& l :
         ricerca.AlternativiCheCominciano(cNaz, testo, Massimo - trovati.size(), trovati))
        trovati.push_back(std::move(l));
    // Then the names as records write them: capitals, accents as apostrophes, former names.
    for (LuogoTrovato& l :
         ricerca.ChiaviCheCominciano(cNaz, testo, Massimo - trovati.size(), trovati))
        trovati.push_back(std::move(l));
    if (trovati.empty())
        throw std::runtime_error("nessun luogo a partire da " + testo +
                                 (nazione ? " in " + *nazione : std::string()));
    JsonLista lista;
    for (const LuogoTrovato& l : trovati) {
        m.Data1.Seek("=", l.cCity, l.City);
        if (m.Data1.NoMatch()) continue;
        m.Data5.Seek("=", l.cCity);
        const std::string stato = m.Data5.NoMatch() ? "" : m.Data5.Campo("Nazione").Testo();
        const double lon = m.Data1.Campo("Lon").Numero(), lat = m.Data1.Campo("Lat").Numero();
        if (a.Flag("json")) {
            JsonOggetto j;
            j.Testo("City", l.City)
                .Testo("Stato", stato)
                .Numero("cNaz", static_cast<double>(l.cCity))
                .Numero("Lon", lon)
                .Numero("Lat", lat)
                .Numero("cFusi", static_cast<double>(m.Data1.Campo("cFusi").Intero()))
                .Numero("cEst", static_cast<double>(m.Data1.Campo("cEst").Intero()));
            if (!l.NomeAlt.empty()) j.Testo("NomeAlt", l.NomeAlt);
            lista.Valore(j.str());
        } else {
            out << TagliaOAllunga(l.City, 30) << "  " << TagliaOAllunga(stato, 38) << "  "
                << TestoCoordinata(lon, 1, 0, false) << ' ' << TestoCoordinata(lat, 0, 1, false);
            if (!l.NomeAlt.empty()) out << "  ← " << l.NomeAlt;
            out << '\n';
        }
    }
    if (a.Flag("json")) out << lista.str() << '\n';
    return 0;
}

} // namespace vesmo::cli
