// Helpers of the places tests: a temporary folder, a TZif file, small places databases.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <unistd.h>
#include <vector>

#include "core/Aritmetica.h"
#include "core/Config.h"
#include "core/Messaggi.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "places/ModelloLuoghi.h"
#include "places/Schema.h"
#include "places/Tzif.h"

namespace vesmo::test {

class CartellaLuoghi {
public:
    CartellaLuoghi() {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        percorso_ = std::filesystem::temp_directory_path() /
                    (std::string("vesmo_luoghi_") + info->test_suite_name() + "_" + info->name() +
                     "_" + std::to_string(::getpid()));
        std::filesystem::remove_all(percorso_);
        std::filesystem::create_directories(percorso_);
    }
    ~CartellaLuoghi() {
        std::error_code ec;
        std::filesystem::remove_all(percorso_, ec);
    }
    std::filesystem::path operator/(const std::string& file) const { return percorso_ / file; }

private:
    std::filesystem::path percorso_;
};

// Seconds from 1970 of a UTC date and time.
inline std::int64_t Utc(int anno, int mese, int giorno, int ora = 0, int minuto = 0) {
    return GiorniDaCivile(anno, mese, giorno) * 86400 + ora * 3600 + minuto * 60;
}

// A TZif file of version 2: an empty 32-bit block, the 64-bit data, the footer rule.
inline std::string ScriviTzif(const std::vector<TipoOra>& tipi,
                              const std::vector<std::pair<std::int64_t, int>>& cambi,
                              const std::string& regola, char versione = '2') {
    auto u32 = [](std::string& s, std::uint32_t v) {
        for (int k = 3; k >= 0; --k)
            s += static_cast<char>((v >> (8 * k)) & 0xFF);
    };
    auto intestazione = [&](std::string& s, std::uint32_t timecnt, std::uint32_t typecnt,
                            std::uint32_t charcnt) {
        s += "TZif";
        s += versione;
        s += std::string(15, '\0');
        u32(s, 0); // isutcnt
        u32(s, 0); // isstdcnt
        u32(s, 0); // leapcnt
        u32(s, timecnt);
        u32(s, typecnt);
        u32(s, charcnt);
    };
    std::string abbr;
    std::vector<std::uint32_t> indici;
    for (const TipoOra& t : tipi) {
        indici.push_back(static_cast<std::uint32_t>(abbr.size()));
        abbr += t.abbr + '\0';
    }
    std::string s;
    intestazione(s, 0, 1, 1);
    s += std::string(6, '\0') + '\0'; // one type, one character
    if (versione == '1') return s;
    intestazione(s, static_cast<std::uint32_t>(cambi.size()),
                 static_cast<std::uint32_t>(tipi.size()), static_cast<std::uint32_t>(abbr.size()));
    for (const auto& c : cambi) {
        const auto v = static_cast<std::uint64_t>(c.first);
        u32(s, static_cast<std::uint32_t>(v >> 32));
        u32(s, static_cast<std::uint32_t>(v & 0xFFFFFFFF));
    }
    for (const auto& c : cambi)
        s += static_cast<char>(c.second);
    for (std::size_t i = 0; i < tipi.size(); ++i) {
        u32(s, static_cast<std::uint32_t>(tipi[i].utoff));
        s += static_cast<char>(tipi[i].isdst ? 1 : 0);
        s += static_cast<char>(indici[i]);
    }
    s += abbr;
    s += "\n" + regola + "\n";
    return s;
}

// One nation more, with no places.
inline void AggiungiNazione(Database& db, int codice, const char* nome) {
    Cursore n(db, "Nazioni");
    n.AddNew();
    n.Imposta("cNaz", codice);
    n.Imposta("Nazione", nome);
    n.Imposta("Spec", " ");
    n.Update();
}

// A new database with the place tables and two nations (380 Italy, 124 Canada).
inline Database DatabaseLuoghi(const std::filesystem::path& file) {
    Database db;
    db.Crea(file);
    CreaSchemaLuoghi(db);
    AggiungiNazione(db, 380, "Italy");
    AggiungiNazione(db, 124, "Canada");
    return db;
}

inline void AggiungiCity(Database& db, int cNaz, const std::string& city, double lon, double lat,
                         int cFusi, int cEst) {
    Cursore c(db, "AllCity");
    c.AddNew();
    c.Imposta("cCity", cNaz);
    c.Imposta("City", city);
    c.Imposta("Lon", lon);
    c.Imposta("Lat", lat);
    c.Imposta("cFusi", cFusi);
    c.Imposta("cEst", cEst);
    c.Update();
}

inline void AggiungiFuso(Database& db, int codice, int g, int m, int a, const std::string& h,
                         const std::string& min) {
    Cursore c(db, "Fusi");
    c.AddNew();
    c.Imposta("cFusi", codice);
    c.Imposta("Day", g);
    c.Imposta("Mese", m);
    c.Imposta("Anno", a);
    c.Imposta("fH_h", h);
    c.Imposta("fH_m", min);
    c.Update();
}

inline void AggiungiEstiva(Database& db, int codice, int g, int m, int a, int h, int min, int heH,
                           int heM) {
    Cursore c(db, "Estive");
    c.AddNew();
    c.Imposta("cEst", codice);
    c.Imposta("Day", g);
    c.Imposta("Mese", m);
    c.Imposta("Anno", a);
    c.Imposta("h", h);
    c.Imposta("min", min);
    c.Imposta("HE_h", heH);
    c.Imposta("HE_m", heM);
    c.Update();
}

// Rows of the three place tables, to fill a database from a table in one call.
struct RigaCity {
    int cNaz;
    std::string city;
    double lon, lat;
    int cFusi, cEst;
};
struct RigaFuso {
    int codice, g, m, a;
    std::string h, min;
};
struct RigaEstiva {
    int codice, g, m, a, h, min, heH, heM;
};
inline void Aggiungi(Database& db, std::initializer_list<RigaCity> citta,
                     std::initializer_list<RigaFuso> fusi = {},
                     std::initializer_list<RigaEstiva> estive = {}) {
    for (const RigaCity& r : citta)
        AggiungiCity(db, r.cNaz, r.city, r.lon, r.lat, r.cFusi, r.cEst);
    for (const RigaFuso& r : fusi)
        AggiungiFuso(db, r.codice, r.g, r.m, r.a, r.h, r.min);
    for (const RigaEstiva& r : estive)
        AggiungiEstiva(db, r.codice, r.g, r.m, r.a, r.h, r.min, r.heH, r.heM);
}

// The boxes shown, as {title, text}, to compare with a table in one check.
using Riquadri = std::vector<std::pair<std::string, std::string>>;
inline Riquadri Mostrati(const MessaggiRegistrati& messaggi) {
    Riquadri r;
    for (const auto& v : messaggi.registro)
        r.emplace_back(v.titolo, v.testo);
    return r;
}

// Padova (11°53' E, 45°24' N) with zone -1 from 1900 and summer time 1 from 29 March to
// 27 September 1987: the place of the charts of 10 April 1987.
inline Database DatabasePadova(const std::filesystem::path& file) {
    Database db = DatabaseLuoghi(file);
    AggiungiCity(db, 380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1);
    AggiungiFuso(db, 1, 1, 1, 1900, "-1", "00");
    AggiungiEstiva(db, 1, 1, 1, 1900, 0, 0, 0, 0);
    AggiungiEstiva(db, 1, 29, 3, 1987, 2, 0, 1, 0);
    AggiungiEstiva(db, 1, 27, 9, 1987, 3, 0, 0, 0);
    return db;
}

// Padova and Roma in one zone an hour east, with no summer time: the launcher's default place
// and one other.
inline void DatabasePadovaERoma(const std::filesystem::path& file) {
    Database db = DatabaseLuoghi(file);
    db.IniziaTransazione();
    AggiungiCity(db, 380, "Padova", -GradiDecimali(11, 53, 0) / 15, 45.4, 1, 1);
    AggiungiCity(db, 380, "Roma", -0.8322, 41.9, 1, 1);
    AggiungiFuso(db, 1, 1, 1, 1900, "-1", "00");
    AggiungiEstiva(db, 1, 1, 1, 1900, 0, 0, 0, 0);
    db.ConfermaTransazione();
}

// Puts the model's cursors (sorted by city) on `city` and its nation, as the grids would.
inline void SuLuogo(ModelloLuoghi& m, const std::string& city) {
    m.Data1.Seek("=", city);
    EXPECT_FALSE(m.Data1.NoMatch()) << city;
    m.Data2.Seek("=", m.Data1.Campo("cCity"));
    m.segnalibroNazione = m.Data2.Bookmark();
}

// Types a date and time into the form and imports the place under the cursors (Command4).
inline Tema Importa(ModelloLuoghi& m, const std::string& g, const std::string& mese,
                    const std::string& a, const std::string& h = "12",
                    const std::string& min = "00") {
    m.campi.Text3 = g;
    m.campi.Text4 = mese;
    m.campi.Text5 = a;
    m.campi.Text6 = h;
    m.campi.Text7 = min;
    m.campi.TagChkSolare.clear();
    Tema t;
    m.ImportaCity(t);
    return t;
}

// The settings of a launcher on `fileDB`: the default place `city` in Italy, the grid sorted by
// nation, written to Vesmodat.ini beside it; the chart half's chart of 10 April 1987 at 19:30.
inline void AvvioSu(const std::filesystem::path& fileDB, const std::string& city,
                    PercorsiVesmo& percorsi, ConfigIni& cfg, Sessione& sessione) {
    percorsi.FileDB = fileDB.string();
    percorsi.FileIni = (fileDB.parent_path() / "Vesmodat.ini").string();
    cfg.NazioneDefault = "Italy";
    cfg.CityDefault = city;
    cfg.Ordinamento = "N";
    ScriviConfig(percorsi.FileIni, cfg);
    PresetTemaCorrente(sessione, cfg, 1987, 4, 10, 19, 30, 0);
}

} // namespace vesmo::test
