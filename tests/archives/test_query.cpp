// The chart query; the help's two-step example is checked against the Swiss Ephemeris (Moshier).
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <swephexp.h>

#include "archives/Archivi.h"
#include "archives/Query.h"
#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/store/Cursore.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/places/AiutoLuoghi.h"

namespace vesmo::test {
namespace {

CondizioneQuery Luogo(int lf, int lt) {
    return {OpzioneQuery::Luogo, lf, lt, 0, 2.5f, 0};
}
CondizioneQuery Angolo(int lf, int lt, int aspetto = 0, float orbita = 2.5f) {
    return {OpzioneQuery::Angolo, lf, lt, aspetto, orbita, 0};
}
CondizioneQuery Verso(int lf, int verso) {
    return {OpzioneQuery::Verso, lf, 0, 0, 2.5f, verso};
}

TEST(QueryListe, RigheDelleListe) {
    EXPECT_EQ(
        (std::vector<std::string>{RigheFrom[10], RigheFrom[13], RigheFrom[14], RigheFrom[23]}),
        (std::vector<std::string>{"NodoNord Luna", "------------", "Ascendente", "MC"}));
    EXPECT_EQ((std::vector<std::string>{RigheTo[13], RigheTo[20], RigheTo[26], RigheTo[38]}),
              (std::vector<std::string>{"I    Casa", "VIII Casa", "Sole", "Lilith Vera"}));
    EXPECT_EQ(
        (std::vector<std::string>{RigaAspetto(0), RigaAspetto(8), RigaAspetto(13)}),
        (std::vector<std::string>{"CONGIUNZIONE  0°", "Settile  51,4°", "SesquiQuadratura  135°"}));
}

TEST(QueryValidita, SelezioniValideERifiutate) {
    struct Caso {
        CondizioneQuery q;
        bool valida;
        const char* perche;
    } casi[] = {
        {Luogo(13, 0), false, "the From separator"},
        {Luogo(0, 12), false, "the first TO separator"},
        {Angolo(0, 25), false, "the second TO separator"},
        {Luogo(0, 26), false, "a body is not a place"},
        {Luogo(3, 13), true, "Venus in the first house"},
        {Luogo(23, 0), true, "the MC in Aries"},
        {Luogo(14, 24), false, "a cusp against a house"},
        {Angolo(23, 13), true, "an angle from a cusp to a cusp"},
        {Angolo(12, 38), true, "true Black Moon with itself"},
        {Verso(1, 1), false, "the Moon has no direction"},
        {Verso(10, 1), false, "the node is not offered"},
        {Verso(14, 0), false, "a cusp has no direction"},
        {Verso(2, 1), true, "Mercury retrograde"},
        {Verso(9, 0), true, "Pluto direct"},
    };
    for (const Caso& c : casi)
        EXPECT_EQ(SelezioneValida(c.q), c.valida) << c.perche;
    // The result's prefix.
    EXPECT_EQ(NomeRisultato("  SolCngMer "), "Q_SolCngMer");
    EXPECT_EQ(NomeRisultato("Q_SolCngMer"), "Q_SolCngMer");
    EXPECT_EQ(NomeRisultato("q_x"), "Q_q_x");
}

TEST(QueryProva, SegniCaseAngoliEMoto) {
    Case c;
    for (int i = 1; i <= 12; ++i)
        c[i].Lo = Norma360(100 + 30.0 * (i - 1), 1);
    Posizioni p;
    p.Sole.Lo = 359;
    p.Sole.Ca = 9;
    p.Luna.Lo = 1;
    p.Mercurio.Lo = 10;
    p.Mercurio.Mv = -1;
    p.Venere.Lo = 10;
    p.Marte.Lo = 10.0001;
    p.Giove.Lo = 30;
    struct Caso {
        CondizioneQuery q;
        bool colpito;
        const char* perche;
    } casi[] = {
        {Luogo(0, 11), true, "359 lies in Pisces"},
        {Luogo(6, 0), true, "Saturn at 0 is in Aries"},
        {Luogo(5, 1), true, "30 is the first degree of Taurus"},
        {Luogo(5, 0), false, "30 is not in Aries"},
        {Luogo(0, 21), true, "the Sun's house is the ninth"},
        {Luogo(0, 20), false, "not the eighth"},
        {Luogo(23, 0), true, "the MC at 10 degrees is in Aries"},
        {Luogo(23, 8), false, "not in Sagittarius"},
        {Angolo(0, 27), true, "359 and 1 fold to 2 degrees, inside 2.5"},
        {Angolo(0, 27, 0, 1.9f), false, "2 degrees outside an orb of 1.9"},
        {Angolo(2, 29, 0, 0), true, "orb 0: equal longitudes"},
        {Angolo(2, 30, 0, 0), false, "orb 0: 0.0001 apart"},
        {Angolo(5, 0, 0, 0), false, "30 from the first degree of Aries"},
        {Angolo(5, 0, 5, 0), true, "30 from Aries is a semi-sextile"},
        {Angolo(2, 13, 2, 0), true, "10 and cusp 1 at 100: a square"},
        {Angolo(2, 13, 3, 0), false, "not a trine"},
        {Verso(2, 1), true, "Mercury retrograde"},
        {Verso(2, 0), false, "Mercury is not direct"},
        {Verso(3, 0), true, "Venus direct"},
    };
    p.Saturno.Lo = 0;
    c[10].Lo = 10;
    for (const Caso& k : casi)
        EXPECT_EQ(ProvaCondizione(k.q, c, p), k.colpito) << k.perche;
}

Tema TemaCasuale(std::mt19937& g, int i) {
    std::uniform_real_distribution<double> u(0, 1);
    Tema t;
    t.Nome = "T" + std::to_string(100000 + i);
    t.Day = GiornoGiuliano(1850 + static_cast<int>(u(g) * 250), 1 + static_cast<int>(u(g) * 12),
                           1 + static_cast<int>(u(g) * 28));
    t.OraL = u(g) * 24;
    t.Lon = (u(g) - 0.5) * 24;
    t.Lat = (u(g) - 0.5) * 120;
    t.Fuso = std::round(t.Lon);
    t.Estiva = u(g) < 0.3 ? 1 : 0;
    t.City = "C";
    t.Stato = "S";
    return t;
}

// Every kind of test, with points drawn at random.
std::vector<CondizioneQuery> CondizioniCasuali(std::mt19937& g, OpzioneQuery opzione, int n) {
    std::vector<CondizioneQuery> r;
    while (static_cast<int>(r.size()) < n) {
        CondizioneQuery q{opzione,
                          static_cast<int>(g() % 26),
                          static_cast<int>(g() % 39),
                          static_cast<int>(g() % NumeroAspetti),
                          static_cast<float>(g() % 80) / 4,
                          static_cast<int>(g() % 2)};
        if (SelezioneValida(q)) r.push_back(q);
    }
    return r;
}

class QueryArchivio : public ConArchivi {
protected:
    // The names in the order the rows were written, not the index's: the run writes in index
    // order.
    std::vector<std::string> Nomi(const std::string& archivio) {
        Database db(fileDB);
        Cursore rs(db, archivio);
        std::vector<std::string> r;
        for (; !rs.Eof(); rs.MoveNext())
            r.push_back(SenzaSpazi(rs.Campo("Nome").Testo()));
        return r;
    }
};

// The run's partial casting finds what a whole casting passes, for every test and both Moons.
TEST_F(QueryArchivio, EsecuzioneUgualeAlTemaInteroPerOgniTipoDiProva) {
    std::mt19937 g(77);
    std::vector<Tema> temi;
    for (int i = 0; i < 2000; ++i)
        temi.push_back(TemaCasuale(g, i));
    RiempiTemi("Sorgente", temi);
    std::vector<std::pair<Case, Posizioni>> interi[2];
    for (const Tema& t : temi)
        for (std::int16_t lunaGeo : {0, 1}) {
            auto& [c, p] = interi[lunaGeo].emplace_back();
            CastaTema(t, c, p, lunaGeo, messaggi);
        }
    int k = 0;
    for (OpzioneQuery o : {OpzioneQuery::Luogo, OpzioneQuery::Angolo, OpzioneQuery::Verso}) {
        for (const CondizioneQuery& q : CondizioniCasuali(g, o, 4)) {
            const std::int16_t lunaGeo = k % 2;
            std::vector<std::string> attesi;
            for (std::size_t i = 0; i < temi.size(); ++i)
                if (ProvaCondizione(q, interi[lunaGeo][i].first, interi[lunaGeo][i].second))
                    attesi.push_back(temi[i].Nome.Valore());
            const std::string a = "Q_" + std::to_string(k++);
            EsitoQuery e = EseguiQuery(fileDB, "Sorgente", a, {q}, lunaGeo, messaggi, {}, 2);
            EXPECT_EQ(e.Esaminati, 2000);
            EXPECT_EQ(e.Trovati, static_cast<std::int64_t>(attesi.size()));
            EXPECT_EQ(Nomi(a), attesi) << RigheFrom[static_cast<std::size_t>(q.lf)];
        }
    }
}

// Charts within 0.05° of a limit are left out: two ephemerides may differ by that much.
TEST_F(QueryArchivio, EsempioDellAiutoInDuePassi) {
    std::mt19937 g(5);
    std::vector<Tema> temi;
    std::vector<std::string> attesiPrimo, attesiSecondo;
    char errore[256];
    for (int i = 0; static_cast<int>(temi.size()) < 1500; ++i) {
        Tema t = TemaCasuale(g, i);
        double sole[6], mercurio[6], venere[6];
        swe_calc_ut(t.JD(), SE_SUN, SEFLG_MOSEPH, sole, errore);
        swe_calc_ut(t.JD(), SE_MERCURY, SEFLG_MOSEPH, mercurio, errore);
        swe_calc_ut(t.JD(), SE_VENUS, SEFLG_MOSEPH, venere, errore);
        double d = std::fabs(sole[0] - mercurio[0]);
        if (d > 180) d = 360 - d;
        if (std::fabs(d - 2.5) < 0.05 || std::fabs(venere[0] - 30) < 0.05 ||
            std::fabs(venere[0] - 60) < 0.05)
            continue;
        temi.push_back(t);
        if (d <= 2.5) {
            attesiPrimo.push_back(t.Nome.Valore());
            if (venere[0] >= 30 && venere[0] < 60) attesiSecondo.push_back(t.Nome.Valore());
        }
    }
    RiempiTemi("Miei", temi);
    std::vector<std::string> nuove;
    auto primo = AvvioQuery(fileDB, "Miei", "SolCngMer", {Angolo(0, 28)}, 1, messaggi, {},
                            [&](const std::string& n) { nuove.push_back(n); });
    ASSERT_TRUE(primo);
    EXPECT_EQ(primo->Tabella, "Q_SolCngMer");
    EXPECT_EQ(Nomi("Q_SolCngMer"), attesiPrimo);
    auto secondo = AvvioQuery(fileDB, "Q_SolCngMer", "SolCngMerVenToro", {Luogo(3, 1)}, 1, messaggi,
                              {}, [&](const std::string& n) { nuove.push_back(n); });
    ASSERT_TRUE(secondo);
    EXPECT_EQ(Nomi("Q_SolCngMerVenToro"), attesiSecondo);
    EXPECT_EQ(nuove, (std::vector<std::string>{"Q_SolCngMer", "Q_SolCngMerVenToro"}));
    EXPECT_GT(attesiPrimo.size(), 50u);
    EXPECT_GE(attesiSecondo.size(), 3u);
    // Both conditions in one pass give the same charts.
    auto insieme = AvvioQuery(fileDB, "Miei", "Insieme", {Angolo(0, 28), Luogo(3, 1)}, 1, messaggi);
    ASSERT_TRUE(insieme);
    EXPECT_EQ(Nomi("Q_Insieme"), attesiSecondo);
    EXPECT_TRUE(messaggi.registro.empty());
}

TEST_F(QueryArchivio, MessaggiDelPulsante) {
    RiempiTemi("Vuoto", {});
    std::mt19937 g(1);
    RiempiTemi("Pieno", {TemaCasuale(g, 1)});
    struct Caso {
        const char* sorgente;
        const char* risultato;
        CondizioneQuery q;
        const char* testo;
    } casi[] = {
        {"Pieno", "   ", Luogo(0, 0), "Manca (new) Archivio Query To !!!"},
        {"Pieno", "X", Verso(0, 0), "Selezione  NON  valida!"},
        {"Vuoto", "X", Luogo(0, 0), "Archivio Vuoto vuoto"},
    };
    for (const Caso& c : casi) {
        messaggi.registro.clear();
        EXPECT_FALSE(AvvioQuery(fileDB, c.sorgente, c.risultato, {c.q}, 1, messaggi));
        EXPECT_EQ(Mostrati(messaggi), (Riquadri{{"Vesmo - Query", c.testo}}));
    }
    // Nothing was created by the refused runs.
    Database db(fileDB);
    EXPECT_FALSE(db.EsisteTabella("Q_X"));
}

// A standing result, however named, takes new hits after its rows; itself as source tests once.
TEST_F(QueryArchivio, SecondaEsecuzioneAggiungeDoppioniEStessaTabella) {
    std::mt19937 g(3);
    std::vector<Tema> temi;
    for (int i = 0; i < 40; ++i)
        temi.push_back(TemaCasuale(g, i));
    RiempiTemi("Q_Tutti", temi);
    const CondizioneQuery ovunque = Angolo(0, 0, 4, 180); // an orb of 180 takes every chart
    const std::pair<const char*, std::size_t> passi[] = {
        {"Q_Copia", 40}, {"Copia", 80}, {"Q_COPIA", 120}};
    for (const auto& [risultato, righe] : passi) {
        auto e = AvvioQuery(fileDB, "Q_Tutti", risultato, {ovunque}, 1, messaggi);
        ASSERT_TRUE(e);
        EXPECT_EQ(std::tuple(e->Trovati, Nomi("Q_Copia").size()), std::tuple(40, righe));
    }
    EXPECT_TRUE(messaggi.registro.empty());
    auto e = AvvioQuery(fileDB, "Q_Tutti", "Q_Tutti", {ovunque}, 1, messaggi);
    ASSERT_TRUE(e);
    EXPECT_EQ(std::tuple(e->Esaminati, Nomi("Q_Tutti").size()), std::tuple(40, 80u));
}

TEST_F(QueryArchivio, FermataTieneIColpiTrovati) {
    std::mt19937 g(9);
    std::vector<Tema> temi;
    for (int i = 0; i < 3000; ++i)
        temi.push_back(TemaCasuale(g, i));
    RiempiTemi("Grande", temi);
    // The true Black Moon is the slowest point. The stop is asked at the first progress that
    // still has a hundred charts to go, whenever the loaded machine lets that call come.
    std::int64_t fattiAlloStop = -1;
    EsitoQuery e = EseguiQuery(
        fileDB, "Grande", "Q_Fermo", {Angolo(12, 0, 0, 180)}, 1, messaggi,
        [&](std::int64_t fatti, std::int64_t totale) {
            if (fattiAlloStop < 0 && fatti < totale - 100) fattiAlloStop = fatti;
            return fattiAlloStop < 0;
        },
        2);
    ASSERT_GE(fattiAlloStop, 0) << "no progress came while the run was going";
    EXPECT_TRUE(e.Fermata);
    EXPECT_LT(e.Esaminati, 3000);
    EXPECT_EQ(e.Trovati, e.Esaminati); // every chart passes an orb of 180
    auto nomi = Nomi("Q_Fermo");
    ASSERT_EQ(static_cast<std::int64_t>(nomi.size()), e.Trovati);
    for (std::size_t i = 0; i < nomi.size(); ++i)
        EXPECT_EQ(nomi[i], temi[i].Nome.Valore()) << i;
}

} // namespace
} // namespace vesmo::test
