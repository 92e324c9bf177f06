#include "archives/ImportaEsporta.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "archives/Archivi.h"
#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Cursore.h"
#include "ephemeris/Sole.h"

namespace vesmo {

const std::array<const char*, 12> MesiSF = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

namespace {

constexpr int Fine = std::char_traits<char>::eof();

bool FineRiga(int c) {
    return c == '\r' || c == '\n';
}

// Takes one line end from the stream: CR LF, LF or CR.
void SaltaFineRiga(std::streambuf& b) {
    int c = b.sbumpc();
    if (c == '\r' && b.sgetc() == '\n') b.sbumpc();
}

void Aggiungi(std::string& campo, int c) {
    if (campo.size() < LettoreCampiSF::LunghezzaMassima) campo.push_back(static_cast<char>(c));
}

// A number as a field holds it: blanks around, an optional sign, digits with an optional
// decimal point; at least one digit and nothing else.
std::optional<double> NumeroSF(std::string_view t) {
    std::size_t a = t.find_first_not_of(" \t");
    if (a == std::string_view::npos) return std::nullopt;
    std::size_t b = t.find_last_not_of(" \t");
    t = t.substr(a, b - a + 1);
    std::size_t i = 0;
    bool negativo = false;
    if (t[0] == '+' || t[0] == '-') {
        negativo = t[0] == '-';
        i = 1;
    }
    if (t.size() - i > 32) return std::nullopt;
    std::string cifre;
    bool punto = false, cifra = false;
    for (; i < t.size(); ++i) {
        char c = t[i];
        if (c >= '0' && c <= '9') {
            cifra = true;
            cifre.push_back(c);
        } else if (c == '.' && !punto) {
            punto = true;
            cifre.push_back(c);
        } else {
            return std::nullopt;
        }
    }
    if (!cifra) return std::nullopt;
    double v = std::strtod(cifre.c_str(), nullptr);
    return negativo ? -v : v;
}

std::string RigaErrore(const char* cosa, const std::string& campo) {
    return std::string("  [Errore  ") + cosa + " SF: " + campo + " ]";
}

// Hours, minutes and seconds of a time or an offset: the hours before the first ":", the minutes
// the two characters behind it, the seconds behind a further ":" standing two places on or
// more. Nothing when there is no ":"; `numeri` false when a part is not a number.
struct Orario {
    double ore = 0, minuti = 0, secondi = 0;
    bool numeri = true;
};
std::optional<Orario> LeggiOrario(const std::string& campo) {
    std::size_t p = campo.find(':');
    if (p == std::string::npos) return std::nullopt;
    Orario o;
    auto ore = NumeroSF(std::string_view(campo).substr(0, p));
    auto minuti = NumeroSF(std::string_view(campo).substr(p + 1, 2));
    std::optional<double> secondi = 0.0;
    std::size_t q = campo.find(':', p + 1);
    if (q != std::string::npos && q >= p + 3)
        secondi = NumeroSF(std::string_view(campo).substr(q + 1));
    if (!ore || !minuti || !secondi) {
        o.numeri = false;
        return o;
    }
    o.ore = *ore;
    o.minuti = *minuti;
    o.secondi = *secondi;
    o.numeri = std::fabs(o.ore) <= 24 && o.minuti >= 0 && o.minuti < 60 && o.secondi >= 0 &&
               o.secondi < 60;
    return o;
}

// A coordinate text must name its side and hold a degree figure.
bool CoordinataLeggibile(const std::string& t, char a, char b) {
    bool cifra = false;
    for (char c : t) {
        char m = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (m == a || m == b) return cifra;
        if (c >= '0' && c <= '9') cifra = true;
    }
    return false;
}

// Windows-1252 characters 0x80 to 0x9F, as Unicode.
const char16_t Cp1252[32] = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                             0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void ScriviUtf8(std::string& r, char32_t u) {
    if (u < 0x80) {
        r.push_back(static_cast<char>(u));
    } else if (u < 0x800) {
        r.push_back(static_cast<char>(0xC0 | (u >> 6)));
        r.push_back(static_cast<char>(0x80 | (u & 0x3F)));
    } else {
        r.push_back(static_cast<char>(0xE0 | (u >> 12)));
        r.push_back(static_cast<char>(0x80 | ((u >> 6) & 0x3F)));
        r.push_back(static_cast<char>(0x80 | (u & 0x3F)));
    }
}

bool Utf8Valido(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        auto c = static_cast<unsigned char>(s[i]);
        std::size_t n;
        char32_t u;
        if (c < 0x80) {
            ++i;
            continue;
        } else if (c >= 0xC2 && c <= 0xDF) {
            n = 1, u = c & 0x1F;
        } else if (c >= 0xE0 && c <= 0xEF) {
            n = 2, u = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            n = 3, u = c & 0x07;
        } else {
            return false;
        }
        if (i + n >= s.size()) return false;
        for (std::size_t k = 1; k <= n; ++k) {
            auto d = static_cast<unsigned char>(s[i + k]);
            if ((d & 0xC0) != 0x80) return false;
            u = (u << 6) | (d & 0x3F);
        }
        if ((n == 2 && u < 0x800) || (n == 3 && (u < 0x10000 || u > 0x10FFFF)) ||
            (u >= 0xD800 && u <= 0xDFFF))
            return false;
        i += n + 1;
    }
    return true;
}

} // namespace

bool LettoreCampiSF::InizioRecord() {
    std::streambuf& b = *in_.rdbuf();
    for (;;) {
        int c = b.sgetc();
        if (c == ' ' || c == '\t' || FineRiga(c)) {
            b.sbumpc();
        } else if (c == 0xEF) {
            // The mark of a UTF-8 file at its start.
            b.sbumpc();
            if (b.sgetc() == 0xBB) b.sbumpc();
            if (b.sgetc() == 0xBF) b.sbumpc();
        } else {
            return c != Fine;
        }
    }
}

bool LettoreCampiSF::Campo(std::string& campo) {
    std::streambuf& b = *in_.rdbuf();
    campo.clear();
    int c = b.sgetc();
    while (c == ' ' || c == '\t')
        c = b.snextc();
    if (c == Fine) return false;
    if (c == '"') {
        b.sbumpc();
        while ((c = b.sbumpc()) != Fine && c != '"')
            Aggiungi(campo, c);
        while ((c = b.sgetc()) != Fine && c != ',' && !FineRiga(c))
            b.sbumpc();
    } else {
        while ((c = b.sgetc()) != Fine && c != ',' && !FineRiga(c)) {
            Aggiungi(campo, c);
            b.sbumpc();
        }
        std::size_t ultimo = campo.find_last_not_of(" \t");
        campo.erase(ultimo == std::string::npos ? 0 : ultimo + 1);
    }
    if (c == ',') {
        b.sbumpc();
        if (FineRiga(b.sgetc())) SaltaFineRiga(b);
    } else if (FineRiga(c)) {
        SaltaFineRiga(b);
    }
    return true;
}

std::string TestoCampoSF(std::string_view campo) {
    std::string r;
    r.reserve(campo.size());
    if (Utf8Valido(campo)) {
        for (char c : campo)
            r.push_back(static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? ' ' : c);
        return r;
    }
    for (char c : campo) {
        auto u = static_cast<unsigned char>(c);
        if (u < 0x20 || u == 0x7F)
            r.push_back(' ');
        else if (u >= 0x80 && u < 0xA0)
            ScriviUtf8(r, Cp1252[u - 0x80]);
        else
            ScriviUtf8(r, u);
    }
    return r;
}

std::optional<std::string> TemaDaRecordSF(RecordSF record, Tema& tema) {
    for (std::string& campo : record) {
        for (char& c : campo)
            if (c == ',') c = ' ';
        campo = TestoCampoSF(campo);
    }
    tema = Tema{};
    tema.Nome = record[0];

    // The date: the first month of the table found in the field.
    const std::string& data = record[1];
    std::size_t p = std::string::npos;
    int mese = 0;
    for (int m = 0; m < 12 && p == std::string::npos; ++m) {
        p = data.find(MesiSF[static_cast<std::size_t>(m)]);
        mese = m + 1;
    }
    if (p == std::string::npos) return RigaErrore("Mese", data);
    auto giorno = NumeroSF(std::string_view(data).substr(0, p));
    auto anno = NumeroSF(p + 4 <= data.size() ? std::string_view(data).substr(p + 4) : "");
    if (!giorno || !anno || *giorno < 1 || *giorno >= 32 || std::fabs(*anno) > 99999)
        return RigaErrore("Campo", data);
    tema.Day = GiornoGiuliano(static_cast<float>(*anno), static_cast<float>(mese),
                              static_cast<float>(*giorno));

    auto ora = LeggiOrario(record[2]);
    if (!ora) return RigaErrore("Ora", record[2]);
    if (!ora->numeri || ora->ore < 0) return RigaErrore("Campo", record[2]);
    tema.OraL = GradiDecimali(ora->ore, ora->minuti, ora->secondi);
    if (SenzaSpazi(record[3]) == "PM" && tema.OraL < 12) tema.OraL += 12;

    tema.ZonaSF = record[4];

    auto fuso = LeggiOrario(record[5]);
    if (!fuso) return RigaErrore("TimeZone", record[5]);
    if (!fuso->numeri) return RigaErrore("Campo", record[5]);
    tema.Fuso = GradiDecimali(fuso->ore, fuso->minuti, fuso->secondi);
    tema.Estiva = 0;

    tema.City = record[6];
    tema.Stato = record[7];
    if (!CoordinataLeggibile(record[8], 'N', 'S')) return RigaErrore("Campo", record[8]);
    if (!CoordinataLeggibile(record[9], 'E', 'W')) return RigaErrore("Campo", record[9]);
    tema.Lat = LatDaTesto(record[8], 0);
    tema.Lon = LonDaTesto(record[9], 0);
    if (!(std::fabs(tema.Lat) <= 90)) return RigaErrore("Campo", record[8]);
    if (!(std::fabs(tema.Lon) <= 12)) return RigaErrore("Campo", record[9]);
    return std::nullopt;
}

std::string NomeArchivioDaTitolo(const std::string& titolo) {
    std::string nome = titolo;
    std::size_t p = nome.find('.');
    if (p != std::string::npos) nome.erase(p, 1);
    return nome;
}

std::optional<std::string> NomeArchivioImport(const std::string& nome,
                                              const std::vector<std::string>& elenco,
                                              const std::string& percorsoFile, Messaggi& messaggi) {
    std::string r = nome;
    for (const std::string& archivio : elenco) {
        if (!UgualeSenzaCaso(archivio, r)) continue;
        std::optional<std::string> altro = messaggi.Chiedi(
            "Import File - Nome Doppio",
            "L'Archivio  " + r + "  Esiste già\n" +
                "Digitare un nome diverso o annullare \nL'import del file  " + percorsoFile);
        if (!altro || SenzaSpazi(*altro).empty()) return std::nullopt;
        r = SenzaSpazi(*altro);
    }
    return r;
}

EsitoImport ImportaSF(const std::string& fileDB, const std::string& archivio,
                      const std::string& fileTesto, const std::string& fileLog,
                      const std::function<void(std::uint64_t)>& avanzamento) {
    std::ifstream in(fileTesto, std::ios::binary);
    if (!in) throw std::runtime_error("File non leggibile: " + fileTesto);
    // The log is only ever appended to: an existing file of that name is not removed, and
    // anything but a file (a folder, a device) is refused before the import begins.
    std::error_code ec;
    if (std::filesystem::exists(fileLog, ec) && !std::filesystem::is_regular_file(fileLog, ec))
        throw std::runtime_error("Il log non è un file: " + fileLog);

    EsitoImport esito;
    esito.Archivio = archivio;
    auto registra = [&](const std::string& riga) {
        // One line at a time, the file opened and closed for each.
        std::ofstream log(fileLog, std::ios::app | std::ios::binary);
        log << riga << "\n";
        if (!log) throw std::runtime_error("File di log non scrivibile: " + fileLog);
        esito.Log = fileLog;
        ++esito.Scartati;
    };

    Database db(fileDB);
    db.VerificaPrimaDiScrivere();
    db.IniziaTransazione();
    try {
        db.CreaTabella(archivio, CampiArchivio(),
                       {DefIndice{IndiceArchivio, {"Nome"}, false, false}});
        Cursore rs(db, archivio);
        LettoreCampiSF lettore(in);
        while (lettore.InizioRecord()) {
            RecordSF record;
            int n = 0;
            while (n < CampiRecordSF && lettore.Campo(record[static_cast<std::size_t>(n)]))
                ++n;
            if (n < CampiRecordSF) {
                // The file ends inside a record.
                std::string letto;
                for (int i = 0; i < n; ++i)
                    letto += (i ? "," : "") + TestoCampoSF(record[static_cast<std::size_t>(i)]);
                registra(RigaErrore("Campo", letto));
                break;
            }
            Tema tema;
            if (auto errore = TemaDaRecordSF(std::move(record), tema)) {
                registra(*errore);
            } else {
                std::int16_t aggiungi = -1, modifica = 0;
                ScriviTema(rs, tema, aggiungi, modifica);
                ++esito.Importati;
            }
            if (avanzamento) avanzamento(static_cast<std::uint64_t>(in.tellg()));
        }
        rs.Chiudi();
        db.ConfermaTransazione();
    } catch (...) {
        db.AnnullaTransazione();
        throw;
    }
    return esito;
}

std::optional<EsitoImport> ImportaArchivioSF(const std::string& fileDB,
                                             const std::string& fileTesto,
                                             const std::vector<std::string>& elenco,
                                             const std::string& cartella, Messaggi& messaggi) {
    const std::string titolo = std::filesystem::path(fileTesto).filename().string();
    std::optional<std::string> nome =
        NomeArchivioImport(NomeArchivioDaTitolo(titolo), elenco, fileTesto, messaggi);
    if (!nome) return std::nullopt;
    if (std::optional<std::string> errore = ErroreNomeArchivio(*nome)) {
        messaggi.Mostra("Vesmo - frmGesArchivi.mnFileImpSFtxt: Nome Non Valido",
                        "Il nome  " + *nome + "  non vale per un Archivio:\n" + *errore +
                            "\nFile non importato:\n" + fileTesto,
                        Pulsanti::Ok, Icona::Esclamativo);
        return std::nullopt;
    }
    const std::string fileLog = FileDiArchivio(cartella, *nome, ".log");
    EsitoImport esito;
    Clessidra clessidra(messaggi);
    try {
        esito = ImportaSF(fileDB, *nome, fileTesto, fileLog);
    } catch (const std::exception& e) {
        clessidra.Spegni();
        AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileImpSFtxt", e);
        return std::nullopt;
    }
    clessidra.Spegni();
    if (!esito.Log.empty())
        messaggi.Mostra("Vesmo - frmGesArchivi.mnFileImpSFtxt",
                        "Errori! Esamina il file di testo\n\n" + esito.Log, Pulsanti::Ok,
                        Icona::Critico);
    return esito;
}

std::string RigaEsportazione(const Tema& tema, std::optional<double>& avviso) {
    avviso.reset();
    float anno, mese, giorno;
    DataDaGiuliano(tema.Day, anno, mese, giorno);
    double ore, minuti, secondi;
    GradiPrimiSecondi(tema.OraL, ore, minuti, secondi);
    if (secondi >= 30) minuti += 1;

    const bool lmt = std::fabs(tema.Lon - tema.Fuso) <= static_cast<double>(0.0001f);
    const double d = tema.Fuso - tema.Estiva;
    double zOre, zMinuti, zSecondi;
    GradiPrimiSecondi(d, zOre, zMinuti, zSecondi);
    if (std::fabs(zSecondi) >= 1 && !lmt) avviso = std::round(std::fabs(zSecondi) * 100) / 100;

    // The Ascendant at the clock time's obliquity and the local sidereal time.
    double e = Radianti(Obliquita(tema.Day + tema.OraL / 24));
    double phi = Radianti(tema.Lat);
    double tsl = TempoSiderale(tema.Day, tema.OraL + d, 1) - tema.Lon;
    if (tsl >= 24) tsl -= 24;
    if (tsl < 0) tsl += 24;
    double asc, angolo;
    LonAsce(e, phi, Radianti(tsl * 15), asc, angolo);
    std::string segno;
    double g, p, s, dec;
    SegnoGradi(asc, segno, g, p, s, dec, 1);

    auto due = [](double x) { return FormatoNumero(std::fabs(x), "00"); };
    return "* " + SenzaSpazi(tema.Nome.str()) + ", " + due(giorno) + "/" + due(mese) + "/" +
           TestoNumero(anno) + ", " + due(ore) + ":" + due(minuti) + ", " + (lmt ? "LMT" : " ") +
           ", " + (d < 0 ? "-" : "+") + due(zOre) + ":" + due(zMinuti) + ", " +
           SenzaSpazi(tema.City.str()) + ", " + SenzaSpazi(tema.Stato.str()) + ", " +
           TestoCoordSF(tema.Lon, tema.Lat) + ", " + due(g) + segno.substr(0, 3) + due(p);
}

std::int64_t EsportaTesto(const std::string& fileDB, const std::string& archivio,
                          const std::string& fileTesto, Messaggi& messaggi) {
    Database db(fileDB);
    Cursore rs(db, archivio);
    rs.Index(IndiceArchivio);
    std::ofstream out(fileTesto, std::ios::binary | std::ios::trunc);
    if (!out) throw std::runtime_error("File non scrivibile: " + fileTesto);
    for (; !rs.Eof(); rs.MoveNext()) {
        Tema tema;
        LeggiRecordTema(rs, tema);
        std::optional<double> secondi;
        std::string riga = RigaEsportazione(tema, secondi);
        if (secondi)
            messaggi.Mostra("AVVISO frmGesArchivi.mnFileTT",
                            "Errore TimeZone con secondi!!! " + tema.Nome.str() + ", " +
                                TestoNumero(*secondi),
                            Pulsanti::Ok, Icona::Critico);
        out << riga << "\n";
    }
    out.flush();
    if (!out) throw std::runtime_error("Scrittura non riuscita: " + fileTesto);
    return rs.RecordCount();
}

std::optional<std::string> EsportaArchivio(const std::string& fileDB, const std::string& archivio,
                                           const std::string& cartella, Messaggi& messaggi) {
    Clessidra clessidra(messaggi);
    const std::string percorso = FileDiArchivio(cartella, archivio, ".txt");
    if (messaggi.Mostra("Vesmo - Export Archivi", "Scrittura del file " + percorso,
                        Pulsanti::OkAnnulla, Icona::Domanda) != Risposta::Ok)
        return std::nullopt;
    std::int64_t n = 0;
    try {
        n = EsportaTesto(fileDB, archivio, percorso, messaggi);
    } catch (const std::exception& e) {
        clessidra.Spegni();
        AvvisoErroreDB(messaggi, "frmGesArchivi.mnFileTT", e);
        return std::nullopt;
    }
    clessidra.Spegni();
    messaggi.Mostra("Vesmo - Info File GesArchivi",
                    "Tabella  " + archivio + "\n\nScritta nel File  \n" + percorso +
                        "\nNumero di Records: " + std::to_string(n),
                    Pulsanti::Ok, Icona::Informazione);
    return percorso;
}

} // namespace vesmo
