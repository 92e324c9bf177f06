#include "archives/Scambio.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unordered_set>

#include "archives/Archivi.h"
#include "archives/FormatoAAF.h"
#include "archives/FormatoCSV.h"
#include "archives/ImportaEsporta.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo {

std::string CompletaVoce(const CompletaLuogo& completa, VoceScambio& v) {
    if (!completa) return "luogo senza coordinate o fuso, e nessun database dei luoghi";
    Tema& t = v.tema;
    try {
        completa(t);
    } catch (const std::exception& e) {
        return std::string("luogo non trovato nel database dei luoghi: ") + e.what();
    }
    v.completare = true;
    v.nota = "completato dal database dei luoghi: " + SenzaSpazi(t.City.str()) + ", " +
             SenzaSpazi(t.Stato.str()) + ", " + TestoCoordinata(t.Lon, 1, 0, false) + " " +
             TestoCoordinata(t.Lat, 0, 1, false) + ", fuso " + TestoNumero(t.Fuso) + ", estiva " +
             TestoNumero(t.Estiva);
    return {};
}

namespace {

// A file bigger than this is not a file of charts.
constexpr std::uintmax_t MassimoFile = 512ull * 1024 * 1024;

struct Sigla {
    const char* sigla;
    const char* nazione;
};

// The international vehicle signs that AAF files use for countries, and the nations' names as
// the places database has them (ISO 3166 short names).
const Sigla Sigle[] = {
    {"A", "Austria"},
    {"AL", "Albania"},
    {"AND", "Andorra"},
    {"AUS", "Australia"},
    {"B", "Belgium"},
    {"BG", "Bulgaria"},
    {"BIH", "Bosnia and Herzegovina"},
    {"BR", "Brazil"},
    {"BY", "Belarus"},
    {"C", "Cuba"},
    {"CDN", "Canada"},
    {"CH", "Switzerland"},
    {"CO", "Colombia"},
    {"CY", "Cyprus"},
    {"CZ", "Czechia"},
    {"D", "Germany"},
    {"DK", "Denmark"},
    {"DZ", "Algeria"},
    {"E", "Spain"},
    {"EST", "Estonia"},
    {"ET", "Egypt"},
    {"F", "France"},
    {"FIN", "Finland"},
    {"FL", "Liechtenstein"},
    {"GB", "United Kingdom"},
    {"GR", "Greece"},
    {"H", "Hungary"},
    {"HR", "Croatia"},
    {"I", "Italy"},
    {"IL", "Israel"},
    {"IND", "India"},
    {"IR", "Iran, Islamic Republic of"},
    {"IRL", "Ireland"},
    {"IS", "Iceland"},
    {"J", "Japan"},
    {"L", "Luxembourg"},
    {"LT", "Lithuania"},
    {"LV", "Latvia"},
    {"M", "Malta"},
    {"MA", "Morocco"},
    {"MC", "Monaco"},
    {"MD", "Moldova, Republic of"},
    {"MEX", "Mexico"},
    {"MK", "North Macedonia"},
    {"MNE", "Montenegro"},
    {"N", "Norway"},
    {"NL", "Netherlands"},
    {"NZ", "New Zealand"},
    {"P", "Portugal"},
    {"PE", "Peru"},
    {"PL", "Poland"},
    {"RA", "Argentina"},
    {"RCH", "Chile"},
    {"RO", "Romania"},
    {"RSM", "San Marino"},
    {"RUS", "Russian Federation"},
    {"S", "Sweden"},
    {"SK", "Slovakia"},
    {"SLO", "Slovenia"},
    {"SRB", "Serbia"},
    {"TN", "Tunisia"},
    {"TR", "Türkiye"},
    {"UA", "Ukraine"},
    {"USA", "United States"},
    {"V", "Holy See (Vatican City State)"},
    {"VE", "Venezuela, Bolivarian Republic of"},
    {"ZA", "South Africa"},
};

std::string LeggiFile(const std::string& fileTesto) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(fileTesto, ec))
        throw std::runtime_error("File non leggibile: " + fileTesto);
    if (std::filesystem::file_size(fileTesto, ec) > MassimoFile)
        throw std::runtime_error("File troppo grande: " + fileTesto);
    std::ifstream in(fileTesto, std::ios::binary);
    if (!in) throw std::runtime_error("File non leggibile: " + fileTesto);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace

std::optional<FormatoScambio> FormatoDaNome(std::string_view nome) {
    if (UgualeSenzaCaso(nome, "sf")) return FormatoScambio::SF;
    if (UgualeSenzaCaso(nome, "aaf")) return FormatoScambio::AAF;
    if (UgualeSenzaCaso(nome, "csv")) return FormatoScambio::CSV;
    return std::nullopt;
}

const char* NomeFormato(FormatoScambio f) {
    switch (f) {
    case FormatoScambio::SF:
        return "sf";
    case FormatoScambio::AAF:
        return "aaf";
    case FormatoScambio::CSV:
        return "csv";
    }
    return "";
}

std::optional<std::string> NazioneDaSiglaAAF(std::string_view sigla) {
    const std::string s = SenzaSpazi(sigla);
    for (const Sigla& x : Sigle)
        if (UgualeSenzaCaso(s, x.sigla)) return std::string(x.nazione);
    return std::nullopt;
}

std::optional<std::string> SiglaAAFDaNazione(std::string_view nazione) {
    const std::string s = SenzaSpazi(nazione);
    for (const Sigla& x : Sigle)
        if (UgualeSenzaCaso(s, x.nazione)) return std::string(x.sigla);
    return std::nullopt;
}

std::string TestoFileScambio(std::string_view byte) {
    // UTF-8 when the field reader keeps every byte as it stands.
    const bool utf8 = TestoCampoSF(byte).size() == byte.size();
    std::string r;
    r.reserve(byte.size());
    for (std::size_t i = 0; i < byte.size(); ++i) {
        const auto c = static_cast<unsigned char>(byte[i]);
        if (c == '\n' || c == '\r' || c == '\t')
            r.push_back(static_cast<char>(c));
        else if (c < 0x20 || c == 0x7F)
            r.push_back(' ');
        else if (c < 0x80 || utf8)
            r.push_back(static_cast<char>(c));
        else
            r += TestoCampoSF(byte.substr(i, 1));
    }
    if (r.size() >= 3 && r.compare(0, 3, "\xEF\xBB\xBF") == 0) r.erase(0, 3);
    return r;
}

std::string ChiaveDoppio(const Tema& t) {
    char numeri[64];
    std::snprintf(numeri, sizeof numeri, "|%.1f|%lld|", t.Day,
                  static_cast<long long>(std::llround(t.OraL * 3600)));
    return Maiuscole(SenzaSpazi(t.Nome.str())) + numeri + Maiuscole(SenzaSpazi(t.City.str()));
}

std::string RigaLogScambio(std::int64_t riga, const Tema& tema, const std::string& testo) {
    const std::string nome = SenzaSpazi(tema.Nome.str());
    return "Riga " + std::to_string(riga) + ", " + (nome.empty() ? "(senza nome)" : nome) + ": " +
           testo;
}

bool ScriviLogScambio(const std::string& fileLog, const std::vector<std::string>& righe) {
    if (righe.empty()) return false;
    std::ofstream log(fileLog, std::ios::binary | std::ios::app);
    for (const std::string& r : righe)
        log << r << '\n';
    log.flush();
    if (!log) throw std::runtime_error("File di log non scrivibile: " + fileLog);
    return true;
}

EsitoImportScambio ImportaScambio(const std::string& fileDB, const std::string& archivio,
                                  const std::string& fileTesto, FormatoScambio formato,
                                  const OpzioniImportScambio& opzioni) {
    if (formato == FormatoScambio::SF)
        throw std::invalid_argument("il formato Solar Fire ha la sua importazione");
    const std::string testo = TestoFileScambio(LeggiFile(fileTesto));
    std::vector<VoceScambio> voci = formato == FormatoScambio::AAF
                                        ? LeggiAAF(testo, opzioni.completa)
                                        : LeggiCSV(testo, opzioni.completa);

    EsitoImportScambio esito;
    esito.Archivio = archivio;
    Database db(fileDB);
    for (const std::string& t : ElencoArchivi(db))
        if (UgualeSenzaCaso(t, archivio)) esito.Archivio = t;
    db.IniziaTransazione();
    try {
        if (!db.EsisteTabella(esito.Archivio)) {
            db.CreaTabella(esito.Archivio, CampiArchivio(),
                           {DefIndice{IndiceArchivio, {"Nome"}, false, false}});
            esito.Creato = true;
        }
        Cursore rs(db, esito.Archivio);
        std::unordered_set<std::string> presenti;
        if (!opzioni.doppi) {
            for (; !rs.Eof(); rs.MoveNext()) {
                Tema t;
                LeggiRecordTema(rs, t);
                presenti.insert(ChiaveDoppio(t));
            }
        }
        for (VoceScambio& v : voci) {
            if (!v.errore.empty()) {
                esito.Log.push_back(RigaLogScambio(v.riga, v.tema, v.errore));
                ++esito.Scartati;
                continue;
            }
            if (!opzioni.doppi && !presenti.insert(ChiaveDoppio(v.tema)).second) {
                esito.Log.push_back(
                    RigaLogScambio(v.riga, v.tema, "già nell'archivio, non importato"));
                ++esito.Doppi;
                continue;
            }
            std::int16_t aggiungi = -1, modifica = 0;
            ScriviTema(rs, v.tema, aggiungi, modifica);
            ++esito.Importati;
            if (v.completare) ++esito.Completati;
            if (!v.nota.empty()) esito.Log.push_back(RigaLogScambio(v.riga, v.tema, v.nota));
        }
        rs.Chiudi();
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    return esito;
}

std::int64_t EsportaScambio(const std::string& fileDB, const std::string& archivio,
                            const std::string& fileTesto, FormatoScambio formato) {
    if (formato == FormatoScambio::SF)
        throw std::invalid_argument("il formato Solar Fire ha la sua esportazione");
    Database db(fileDB);
    Cursore rs(db, archivio);
    rs.Index(IndiceArchivio);
    std::ofstream out(fileTesto, std::ios::binary | std::ios::trunc);
    if (!out) throw std::runtime_error("File non scrivibile: " + fileTesto);
    if (formato == FormatoScambio::CSV) out << TestataCSV();
    std::int64_t n = 0;
    for (; !rs.Eof(); rs.MoveNext(), ++n) {
        Tema tema;
        LeggiRecordTema(rs, tema);
        out << (formato == FormatoScambio::AAF ? RecordAAF(tema) : RigaCSV(tema));
    }
    out.flush();
    if (!out) throw std::runtime_error("Scrittura non riuscita: " + fileTesto);
    return n;
}

} // namespace vesmo
