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
#include "places/ModelloLuoghi.h"
#include "places/Province.h"

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

} // namespace

LuogoRisolto RisolviLuogo(const Argomenti& a, const std::string& city,
                          const std::optional<std::string>& nazione, const Data& d, const Ora& o) {
    Database db = ApriDatabase(a);
    MessaggiRegistrati messaggi;
    messaggi.risposte.push_back(Risposta::No); // nobody is there to open the table editor
    ModelloLuoghi m(db, messaggi, nazione ? 'N' : 'C');
    // The exact name first, else the first place at or after the text in the index order.
    if (nazione) {
        TrovaNazione(m, *nazione);
        const auto cNaz = m.Data2.Campo("cNaz").Intero();
        m.Data1.Seek("=", cNaz, city);
        if (m.Data1.NoMatch()) m.Data1.Seek(">=", cNaz, city);
        if (m.Data1.NoMatch() || m.Data1.Campo("cCity").Intero() != cNaz)
            throw std::runtime_error("luogo sconosciuto: " + city + " (" + *nazione + ")");
    } else {
        m.Data1.Seek("=", city);
        if (m.Data1.NoMatch()) m.Data1.Seek(">=", city);
        if (m.Data1.NoMatch()) throw std::runtime_error("luogo sconosciuto: " + city);
        m.Data2.Seek("=", m.Data1.Campo("cCity"));
        if (m.Data2.NoMatch())
            throw std::runtime_error("il luogo " + m.Data1.Campo("City").Testo() +
                                     " non ha nazione");
    }
    m.segnalibroNazione = m.Data2.Bookmark();
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
        out << j.str() << '\n';
        return 0;
    }
    out << "City       " << t.City.Valore() << '\n'
        << "Stato      " << t.Stato.Valore() << " (" << t.cNaz << ")\n"
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
    ModelloLuoghi m(db, messaggi, nazione ? 'N' : 'C');
    std::int64_t cNaz = 0;
    if (nazione) {
        TrovaNazione(m, *nazione);
        cNaz = m.Data2.Campo("cNaz").Intero();
        m.Data1.Seek(">=", cNaz, testo);
    } else {
        m.Data1.Seek(">=", testo);
    }
    JsonLista lista;
    int n = 0;
    for (; n < 20 && !m.Data1.NoMatch() && !m.Data1.Eof(); ++n, m.Data1.MoveNext()) {
        if (nazione && m.Data1.Campo("cCity").Intero() != cNaz) break;
        m.Data5.Seek("=", m.Data1.Campo("cCity"));
        const std::string stato = m.Data5.NoMatch() ? "" : m.Data5.Campo("Nazione").Testo();
        const std::string city = m.Data1.Campo("City").Testo();
        const double lon = m.Data1.Campo("Lon").Numero(), lat = m.Data1.Campo("Lat").Numero();
        if (a.Flag("json")) {
            JsonOggetto j;
            j.Testo("City", city)
                .Testo("Stato", stato)
                .Numero("cNaz", static_cast<double>(m.Data1.Campo("cCity").Intero()))
                .Numero("Lon", lon)
                .Numero("Lat", lat)
                .Numero("cFusi", static_cast<double>(m.Data1.Campo("cFusi").Intero()))
                .Numero("cEst", static_cast<double>(m.Data1.Campo("cEst").Intero()));
            lista.Valore(j.str());
        } else {
            out << TagliaOAllunga(city, 30) << "  " << TagliaOAllunga(stato, 38) << "  "
                << TestoCoordinata(lon, 1, 0, false) << ' ' << TestoCoordinata(lat, 0, 1, false)
                << '\n';
        }
    }
    if (n == 0)
        throw std::runtime_error("nessun luogo a partire da " + testo +
                                 (nazione ? " in " + *nazione : std::string()));
    if (a.Flag("json")) out << lista.str() << '\n';
    return 0;
}

} // namespace vesmo::cli
