// The resolution against the tz database: Fuso - Estiva is minus the UTC offset, to 30 s.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "places/CostruzioneLuoghi.h"
#include "places/ModelloLuoghi.h"
#include "places/Tzif.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo {
namespace {

constexpr double TolleranzaOre = 1e-9; // hours

// The C library's offset (seconds east) at an instant, for the zone set in TZ.
long OffsetLibreriaC(std::int64_t t, std::tm* locale = nullptr) {
    std::time_t tt = static_cast<std::time_t>(t);
    std::tm tm{};
    localtime_r(&tt, &tm);
    if (locale) *locale = tm;
    return tm.tm_gmtoff;
}

void ImpostaZona(const std::string& zona) {
    setenv("TZ", zona.c_str(), 1);
    tzset();
}

// A database of the places named after the zones, each zone's lists built from its system file.
Database DatabaseDiZone(const std::filesystem::path& file, const std::vector<std::string>& zone,
                        int fino) {
    Database db = test::DatabaseLuoghi(file);
    db.IniziaTransazione();
    for (std::size_t i = 0; i < zone.size(); ++i) {
        const auto codice = static_cast<std::int32_t>(i + 1);
        const std::string tzif = "/usr/share/zoneinfo/" + zone[i];
        if (!std::filesystem::exists(tzif)) continue;
        ScriviStoria(db, StoriaDaPeriodi(LeggiFileTzif(tzif, fino).periodi, codice));
        test::AggiungiCity(db, 380, zone[i], 0, 0, codice, codice);
    }
    db.ConfermaTransazione();
    return db;
}

struct Conteggio {
    int casi = 0, uguali = 0;
    std::vector<std::string> diversi;
};

// One moment of one place: resolves the local time that the C library gives and compares.
void Confronta(ModelloLuoghi& m, const std::string& zona, std::int64_t t, Conteggio& c) {
    std::tm tm{};
    const long offset = OffsetLibreriaC(t, &tm);
    // Away from clock changes: the same offset two days before and after.
    if (OffsetLibreriaC(t - 2 * 86400) != offset || OffsetLibreriaC(t + 2 * 86400) != offset)
        return;
    if (tm.tm_year + 1900 < 1900) return;
    const Tema tema = test::Importa(m, std::to_string(tm.tm_mday), std::to_string(tm.tm_mon + 1),
                                    std::to_string(tm.tm_year + 1900), std::to_string(tm.tm_hour),
                                    std::to_string(tm.tm_min));
    ++c.casi;
    const double nostro = (tema.Fuso - tema.Estiva) * 3600;
    // Where the database says "LMT" the place keeps its own local mean time.
    const bool lmt = std::string(tm.tm_zone ? tm.tm_zone : "") == "LMT";
    if (lmt ? m.campi.TagChkSolare == "Ok"
            : m.campi.TagChkSolare.empty() && std::fabs(nostro + offset) <= 30) {
        ++c.uguali;
    } else if (c.diversi.size() < 10) {
        c.diversi.push_back(zona + " " + m.campi.Text3 + "/" + m.campi.Text4 + "/" + m.campi.Text5 +
                            " " + m.campi.Text6 + ":" + m.campi.Text7 + ": Fuso " +
                            std::to_string(tema.Fuso) + " offset " + std::to_string(offset));
    }
}

std::int64_t CasualeTra1900e2030(std::mt19937_64& rng) {
    const std::int64_t da = test::Utc(1900, 1, 2), a = test::Utc(2030, 12, 31);
    return da + static_cast<std::int64_t>(rng() % static_cast<std::uint64_t>(a - da));
}

void Riporta(const char* cosa, const Conteggio& c) {
    const double quota = c.casi ? 100.0 * c.uguali / c.casi : 0;
    std::cout << cosa << ": " << c.uguali << " su " << c.casi << " uguali (" << quota << " %)\n";
    for (const auto& d : c.diversi)
        std::cout << "  diverso: " << d << "\n";
}

TEST(ConfrontoIana, ZonesBuiltHereAgreeWithTheCLibrary) {
    // Negative summer time, half and quarter hours, changing standard time, south, Nuuk's rule.
    const std::vector<std::string> zone{
        "Europe/Rome",         "Europe/Dublin",     "America/New_York", "Australia/Sydney",
        "Asia/Kolkata",        "Europe/Lisbon",     "America/St_Johns", "Africa/Casablanca",
        "Australia/Lord_Howe", "America/Sao_Paulo", "Asia/Kathmandu",   "Pacific/Chatham",
        "Europe/Moscow",       "Africa/Windhoek",   "America/Nuuk",     "Europe/London"};
    test::CartellaLuoghi cartella;
    Database db = DatabaseDiZone(cartella / "Vesmodat.Mdb", zone, 2100);
    MessaggiRegistrati msg;
    ModelloLuoghi m(db, msg, 'C');
    std::mt19937_64 rng(19000101);
    Conteggio c;
    for (const std::string& z : zone) {
        test::SuLuogo(m, z);
        ImpostaZona(z);
        for (int k = 0; k < 300; ++k)
            Confronta(m, z, CasualeTra1900e2030(rng), c);
    }
    unsetenv("TZ");
    tzset();
    Riporta("zone costruite nel test", c);
    EXPECT_GT(c.casi, 4000);
    EXPECT_GE(c.uguali, c.casi * 0.995);
}

TEST(ConfrontoIana, TheBuiltDatabaseAgreesWithTheCLibrary) {
    const std::filesystem::path file = VESMO_DB_LUOGHI;
    const std::filesystem::path cities = VESMO_CITIES;
    const std::filesystem::path comuni = VESMO_COMUNI;
    if (!std::filesystem::exists(file) || !std::filesystem::exists(cities) ||
        !std::filesystem::exists(comuni))
        GTEST_SKIP() << "manca " << file << ", " << cities << " o " << comuni
                     << ": scripts/prepara-dati li prepara";
    // The dump's places with their names and zone codes, as the builder makes them.
    std::vector<LuogoGeo> luoghi = LeggiFileLuoghiGeo(cities.string());
    ApplicaComuni(luoghi, LeggiFileComuni(comuni));
    const std::vector<std::string> nomi = NomiLuoghi(luoghi);
    const auto codici = CodiciZone(luoghi);
    const auto nazioni = LeggiFileNazioniIso("/usr/share/iso-codes/json/iso_3166-1.json");
    std::map<std::string, int> cNaz;
    for (const auto& n : nazioni)
        cNaz[n.alpha2] = n.cNaz;
    for (const auto& n : NazioniFuoriIso())
        cNaz[n.alpha2] = n.cNaz;

    Database db(file);
    MessaggiRegistrati msg;
    ModelloLuoghi m(db, msg, 'N');
    std::mt19937_64 rng(20300101);
    Conteggio c;
    int luoghiProvati = 0;
    for (int k = 0; k < 3000; ++k) {
        const std::size_t i = rng() % luoghi.size();
        const LuogoGeo& l = luoghi[i];
        m.Data2.Index("IndCoNazi");
        m.Data2.Seek("=", cNaz.at(l.paese));
        m.Data2.Index("IndNazioni");
        m.Data1.Seek("=", cNaz.at(l.paese), nomi[i]);
        ASSERT_FALSE(m.Data1.NoMatch()) << nomi[i];
        ASSERT_EQ(m.Data1.Campo("cFusi").Intero(), codici.at(l.zona)) << nomi[i];
        ASSERT_NEAR(m.Data1.Campo("Lon").Numero(), -l.lon / 15, 1e-12);
        m.segnalibroNazione = m.Data2.Bookmark();
        ImpostaZona(l.zona);
        ++luoghiProvati;
        for (int n = 0; n < 5; ++n)
            Confronta(m, l.zona, CasualeTra1900e2030(rng), c);
    }
    unsetenv("TZ");
    tzset();
    Riporta("Vesmodat.Mdb", c);
    EXPECT_EQ(luoghiProvati, 3000);
    EXPECT_GE(c.uguali, c.casi * 0.995);
}

TEST(ConfrontoIana, NamedMeanTimesOfEveryZoneAgreeWithPythonsZoneinfo) {
    // tests/data/places/tempi-medi.py: named mean times (RMT, PMT, DMT...) with zoneinfo's offset.
    std::ifstream f(std::string(VESMO_DATI_TEST) + "/places/tempi-medi.tsv");
    ASSERT_TRUE(f);
    struct Caso {
        std::string zona, data, ora, abbr;
        long offset = 0;
    };
    std::vector<Caso> casi;
    std::vector<std::string> zone;
    for (std::string riga; std::getline(f, riga);) {
        std::istringstream r(riga);
        Caso c;
        r >> c.zona >> c.data >> c.ora >> c.offset >> c.abbr;
        if (std::find(zone.begin(), zone.end(), c.zona) == zone.end()) zone.push_back(c.zona);
        casi.push_back(c);
    }
    ASSERT_GT(casi.size(), 500u);
    test::CartellaLuoghi cartella;
    Database db = DatabaseDiZone(cartella / "Vesmodat.Mdb", zone, 2030);
    MessaggiRegistrati msg;
    ModelloLuoghi m(db, msg, 'C');
    int uguali = 0, provati = 0;
    std::set<std::string> nomi, diversi;
    for (const Caso& c : casi) {
        m.Data1.Seek("=", c.zona);
        if (m.Data1.NoMatch()) continue; // a zone this system's database lacks
        m.Data2.Seek("=", m.Data1.Campo("cCity"));
        const Tema tema = test::Importa(m, c.data.substr(0, 2), c.data.substr(3, 2),
                                        c.data.substr(6), c.ora.substr(0, 2), c.ora.substr(3, 2));
        ++provati;
        nomi.insert(c.abbr);
        // The tables hold minutes: to the half minute.
        if (m.campi.TagChkSolare.empty() &&
            std::fabs((tema.Fuso - tema.Estiva) * 3600 + static_cast<double>(c.offset)) <= 30.5)
            ++uguali;
        else if (diversi.size() < 10)
            diversi.insert(c.zona + " " + c.data + " " + c.ora + " " + c.abbr);
    }
    std::cout << "tempi medi: " << uguali << " su " << provati << " uguali, " << nomi.size()
              << " nomi\n";
    for (const auto& d : diversi)
        std::cout << "  diverso: " << d << "\n";
    EXPECT_GT(provati, 500);
    EXPECT_EQ(uguali, provati);
    EXPECT_TRUE(nomi.count("RMT") && nomi.count("PMT") && nomi.count("DMT"));
}

TEST(ConfrontoIana, RomesMeanTimeHoldsAtBothEndsOfItaly) {
    // All Italy kept Rome's clock (+0:49:56) from 12/12/1866 to 31/10/1893, not its own mean time.
    test::CartellaLuoghi cartella;
    Database db = DatabaseDiZone(cartella / "Vesmodat.Mdb", {"Europe/Rome"}, 2030);
    test::Aggiungi(db, {{380, "Aosta", -7.3202 / 15, 45.7370, 1, 1},
                        {380, "Leuca", -18.3578 / 15, 39.7961, 1, 1}});
    MessaggiRegistrati msg;
    msg.risposte.assign(8, Risposta::No);
    ModelloLuoghi m(db, msg, 'C');
    struct Caso {
        const char *city, *giorno, *mese, *anno;
        double fuso; // hours, west positive
        bool lmt;
    };
    for (const Caso& c : {Caso{"Aosta", "11", "12", "1866", -7.3202 / 15, true},
                          Caso{"Aosta", "12", "12", "1866", -50.0 / 60, false},
                          Caso{"Aosta", "15", "06", "1887", -50.0 / 60, false},
                          Caso{"Leuca", "31", "10", "1893", -50.0 / 60, false},
                          Caso{"Leuca", "01", "11", "1893", -1, false},
                          Caso{"Leuca", "01", "01", "1860", -18.3578 / 15, true}}) {
        test::SuLuogo(m, c.city);
        const Tema tema = test::Importa(m, c.giorno, c.mese, c.anno);
        EXPECT_NEAR(tema.Fuso, c.fuso, TolleranzaOre) << c.city << " " << c.anno;
        EXPECT_EQ(m.campi.TagChkSolare == "Ok", c.lmt) << c.city << " " << c.anno;
    }
}

} // namespace
} // namespace vesmo
