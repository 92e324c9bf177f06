// The transit calendar against its own chart and an independent scan-and-bisect search on the
// Swiss Ephemeris (Moshier, at the same Julian day as dynamical time). The series' accuracy
// (0.05 degrees for Giove and Saturno, 0.1 for Urano and Nettuno) divided by the speed bounds the
// times; a target within that arc of a station may be reached by one search only.
#include <gtest/gtest.h>

#include <swephexp.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "chart/Aspetti.h"
#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/Messaggi.h"
#include "presentation/SuperficieRegistrata.h"
#include "timecharts/CalendarioTransiti.h"
#include "timecharts/Istanti.h"
#include "timecharts/ListaTransiti.h"
#include "timecharts/PaginaTransiti.h"

using namespace vesmo;

namespace {

constexpr double TolleranzaGradi = 1e-6; // a hit, or an orb's edge, in the program's own chart

Tema Natale() {
    Tema t;
    t.Nome = "Prova";
    t.Day = GiornoGiuliano(1987, 4, 10);
    t.OraL = 19.5;
    t.Fuso = -1;
    t.Estiva = 1;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    return t;
}

Posizioni PosizioniNatali() {
    Case c;
    Posizioni p;
    MessaggiRegistrati m;
    CastaTema(Natale(), c, p, 1, m);
    return p;
}

// The longitude of a transiting body in the program's own chart cast at jd.
double LongitudineDelTema(int corpo, double jd, std::int16_t lunaGeo = 1) {
    Tema t = Natale();
    ImpostaIstante(t, jd);
    Posizioni p;
    MessaggiRegistrati m;
    CalcolaPunti(t, nullptr, p, lunaGeo, 1u << corpo, false, m);
    const Posizione* campi[] = {&p.Sole,    &p.Luna,  &p.Mercurio, &p.Venere,  &p.Marte,   &p.Giove,
                                &p.Saturno, &p.Urano, &p.Nettuno,  &p.Plutone, &p.NodoLuna};
    return campi[corpo]->Lo;
}

double Scarto(double a, double b) {
    return std::remainder(a - b, 360.0);
}

const int CorpoSwe[] = {SE_SUN,    SE_MOON,   SE_MERCURY, SE_VENUS, SE_MARS,     SE_JUPITER,
                        SE_SATURN, SE_URANUS, SE_NEPTUNE, SE_PLUTO, SE_MEAN_NODE};

// The reference's longitude and speed.
std::pair<double, double> Swe(int corpo, double jd) {
    double x[6];
    char errore[256];
    const int rc = swe_calc(jd, CorpoSwe[corpo], SEFLG_MOSEPH | SEFLG_SPEED, x, errore);
    EXPECT_GE(rc, 0) << errore;
    return {x[0], x[3]};
}

// The longitudes that make aspect `k` with `lo`: one for the conjunction and the opposition.
std::vector<double> Bersagli(double lo, int k) {
    const double angolo = AngoliAspetti[static_cast<std::size_t>(k)];
    std::vector<double> v{Norma360(lo + angolo, 1)};
    if (k != 0 && k != 4) v.push_back(Norma360(lo - angolo, 1));
    return v;
}

struct Passaggio {
    double jd;
    double bersaglio;
    bool retrogrado;
};

// Every crossing of `bersaglio` by the reference body in [da, a]: the scan `lon` from `inizio` at
// `passo` days, then bisection to 1e-7 days.
std::vector<Passaggio> PassaggiSwe(int corpo, double bersaglio, double da, double a, double inizio,
                                   const std::vector<double>& lon, double passo) {
    std::vector<Passaggio> v;
    for (std::size_t i = 0; i + 1 < lon.size(); ++i) {
        const double f0 = Scarto(lon[i], bersaglio), f1 = Scarto(lon[i + 1], bersaglio);
        if (std::fabs(f0 - f1) > 90 || (f0 < 0) == (f1 < 0)) continue;
        double t0 = inizio + passo * static_cast<double>(i), t1 = t0 + passo;
        double g0 = f0;
        while (t1 - t0 > 1e-7) {
            const double m = (t0 + t1) / 2;
            const double l = Swe(corpo, m).first;
            const double g = Scarto(l, bersaglio);
            if ((g < 0) == (g0 < 0)) {
                t0 = m;
                g0 = g;
            } else {
                t1 = m;
            }
        }
        const double t = (t0 + t1) / 2;
        if (t < da || t > a) continue;
        v.push_back({t, bersaglio, f1 < f0});
    }
    return v;
}

} // namespace

TEST(CalendarioTransiti, OgniColpoEsattoEComeLaSwissEphemeris) {
    const Posizioni natale = PosizioniNatali();
    const RichiestaTransiti r{.jdDa = GiornoGiuliano(2020, 1, 1),
                              .jdA = GiornoGiuliano(2025, 12, 31),
                              .corpi = {5, 6, 7, 8},
                              .punti = PuntiNataliPredefiniti(natale, 1),
                              .aspetti = {0, 1, 2, 3, 4}};
    const auto transiti = CercaTransiti(r);
    ASSERT_GT(transiti.size(), 100u);
    EXPECT_TRUE(std::is_sorted(transiti.begin(), transiti.end(),
                               [](const Transito& x, const Transito& y) { return x.jd < y.jd; }));

    // Each hit, and each moment of entering and leaving the orb, in the program's own chart.
    double peggiore = 0, peggioreOrbita = 0;
    for (const Transito& t : transiti) {
        const double angolo = AngoliAspetti[static_cast<std::size_t>(t.aspetto)];
        const double natal = r.punti[static_cast<std::size_t>(t.punto)].Lo;
        const double lo = LongitudineDelTema(t.corpo, t.jd);
        peggiore = std::max(peggiore, std::fabs(DistanzaAspetto(lo, natal) - angolo));
        EXPECT_GE(t.jd, r.jdDa);
        EXPECT_LE(t.jd, r.jdA);
        ASSERT_TRUE(std::isfinite(t.jdIngresso) && std::isfinite(t.jdUscita));
        EXPECT_LT(t.jdIngresso, t.jd);
        EXPECT_GT(t.jdUscita, t.jd);
        for (double bordo : {t.jdIngresso, t.jdUscita}) {
            const double d = std::fabs(Scarto(LongitudineDelTema(t.corpo, bordo), t.bersaglio));
            peggioreOrbita = std::max(peggioreOrbita, std::fabs(d - r.orbita));
        }
    }
    EXPECT_LE(peggiore, TolleranzaGradi);
    EXPECT_LE(peggioreOrbita, TolleranzaGradi);

    // The independent search: every target of every body, scanned at half a day.
    const double errore[] = {0, 0, 0, 0, 0, 0.05, 0.05, 0.1, 0.1};
    const double passo = 0.5;
    int abbinati = 0, scusati = 0;
    for (int corpo : r.corpi) {
        std::vector<double> lon, vel;
        const double da = r.jdDa - 1;
        for (double t = da; t <= r.jdA + 1; t += passo) {
            const auto [l, v] = Swe(corpo, t);
            lon.push_back(l);
            vel.push_back(v);
        }
        // The reference's stations: longitude and time.
        std::vector<std::pair<double, double>> stazioni;
        for (std::size_t i = 1; i < vel.size(); ++i)
            if ((vel[i - 1] < 0) != (vel[i] < 0))
                stazioni.push_back({da + passo * static_cast<double>(i), lon[i]});
        auto vicinoAStazione = [&](double jd, double bersaglio) {
            for (const auto& [ts, ls] : stazioni)
                if (std::fabs(ts - jd) < 60 && std::fabs(Scarto(ls, bersaglio)) < 2 * errore[corpo])
                    return true;
            return false;
        };
        for (std::size_t p = 0; p < r.punti.size(); ++p) {
            for (int k : r.aspetti) {
                for (double b : Bersagli(r.punti[p].Lo, k)) {
                    auto swe = PassaggiSwe(corpo, b, r.jdDa, r.jdA, da, lon, passo);
                    std::vector<Transito> nostri;
                    for (const Transito& t : transiti)
                        if (t.corpo == corpo && t.aspetto == k && t.punto == static_cast<int>(p) &&
                            std::fabs(Scarto(t.bersaglio, b)) < 1e-9)
                            nostri.push_back(t);
                    std::vector<bool> preso(swe.size(), false);
                    for (const Transito& t : nostri) {
                        std::size_t migliore = swe.size();
                        for (std::size_t i = 0; i < swe.size(); ++i)
                            if (!preso[i] && swe[i].retrogrado == t.retrogrado &&
                                (migliore == swe.size() ||
                                 std::fabs(swe[i].jd - t.jd) < std::fabs(swe[migliore].jd - t.jd)))
                                migliore = i;
                        if (migliore < swe.size()) {
                            const double v = Swe(corpo, swe[migliore].jd).second;
                            const double tolleranza = 1.5 * errore[corpo] / std::fabs(v) + 1e-3;
                            if (std::fabs(swe[migliore].jd - t.jd) <= tolleranza) {
                                preso[migliore] = true;
                                ++abbinati;
                                continue;
                            }
                        }
                        EXPECT_TRUE(vicinoAStazione(t.jd, b))
                            << NomiCorpiTransito[corpo] << " to " << b << " at JD " << t.jd
                            << " has no pass in the reference";
                        ++scusati;
                    }
                    for (std::size_t i = 0; i < swe.size(); ++i) {
                        if (preso[i]) continue;
                        EXPECT_TRUE(vicinoAStazione(swe[i].jd, b))
                            << NomiCorpiTransito[corpo] << " to " << b << " at JD " << swe[i].jd
                            << " found by the reference only";
                        ++scusati;
                    }
                }
            }
        }
    }
    EXPECT_GT(abbinati, 100);
    EXPECT_LE(scusati, 4);
}

// Saturn's retrograde loop of 2025: a point in the middle of the loop is passed three times,
// direct, retrograde and direct again, at the times the reference finds; a point just short of
// the station's longitude too, twice within days of the station.
TEST(CalendarioTransiti, TrePassaggiDiUnaStazione) {
    const double da = GiornoGiuliano(2025, 1, 1), a = GiornoGiuliano(2026, 6, 30);
    // The reference's two stations.
    std::vector<std::pair<double, double>> stazioni;
    double vPrima = Swe(6, da).second;
    for (double t = da + 1; t <= a; t += 1) {
        const auto [l, v] = Swe(6, t);
        if ((v < 0) != (vPrima < 0)) stazioni.push_back({t, l});
        vPrima = v;
    }
    ASSERT_EQ(stazioni.size(), 2u);
    const double mezzo =
        Norma360(stazioni[1].second + Scarto(stazioni[0].second, stazioni[1].second) / 2, 1);

    RichiestaTransiti r{.jdDa = da,
                        .jdA = a,
                        .corpi = {6},
                        .punti = {{"Sole", mezzo}},
                        .aspetti = {0},
                        .orbita = 1};
    auto transiti = CercaTransiti(r);
    ASSERT_EQ(transiti.size(), 3u);
    std::vector<double> lon;
    for (double t = da; t <= a; t += 0.5)
        lon.push_back(Swe(6, t).first);
    const auto swe = PassaggiSwe(6, mezzo, da, a, da, lon, 0.5);
    ASSERT_EQ(swe.size(), 3u);
    const bool retrogradi[] = {false, true, false};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(transiti[i].retrogrado, retrogradi[i]);
        const double v = Swe(6, swe[i].jd).second;
        EXPECT_NEAR(transiti[i].jd, swe[i].jd, 1.5 * 0.05 / std::fabs(v)) << i;
        // The loop is wider than the orb: each pass enters and leaves on its own.
        EXPECT_LT(transiti[i].jdIngresso, transiti[i].jd);
        EXPECT_GT(transiti[i].jdUscita, transiti[i].jd);
        if (i > 0) {
            EXPECT_GT(transiti[i].jdIngresso, transiti[i - 1].jdUscita);
        }
    }

    // The program's own station, by a plain scan an hour apart around the reference's.
    double tStazione = 0, lStazione = 0, dMassima = -1e9;
    const double riferimento = LongitudineTransito(6, stazioni[0].first - 20);
    for (double t = stazioni[0].first - 20; t <= stazioni[0].first + 20; t += 1.0 / 24) {
        const double d = Scarto(LongitudineTransito(6, t), riferimento);
        if (d > dMassima) {
            dMassima = d;
            tStazione = t;
            lStazione = LongitudineTransito(6, t);
        }
    }
    r.punti = {{"Sole", Norma360(lStazione - 0.002, 1)}};
    r.orbita = 0.01;
    transiti = CercaTransiti(r);
    ASSERT_EQ(transiti.size(), 3u);
    EXPECT_FALSE(transiti[0].retrogrado);
    EXPECT_TRUE(transiti[1].retrogrado);
    EXPECT_LT(transiti[0].jd, tStazione);
    EXPECT_GT(transiti[1].jd, tStazione);
    EXPECT_LT(transiti[1].jd - transiti[0].jd, 20);
    for (const Transito& t : transiti)
        EXPECT_LE(std::fabs(Scarto(LongitudineTransito(6, t.jd), t.bersaglio)), TolleranzaGradi);
    // Near the station the body stays within 0.002 degrees of the target between the two
    // passes: one orb holds them both.
    EXPECT_DOUBLE_EQ(transiti[0].jdIngresso, transiti[1].jdIngresso);
    EXPECT_DOUBLE_EQ(transiti[0].jdUscita, transiti[1].jdUscita);
}

// One day with every body: exactly the hits of a minute-by-minute scan of the own longitudes.
TEST(CalendarioTransiti, UnGiornoComeUnaScansioneAlMinuto) {
    const Posizioni natale = PosizioniNatali();
    RichiestaTransiti r;
    r.jdDa = GiornoGiuliano(2026, 3, 1) - 1.0 / 24;
    r.jdA = r.jdDa + 1;
    r.punti = PuntiNataliPredefiniti(natale, 1);
    for (int c = 0; c < NumeroCorpiTransito; ++c)
        r.corpi.push_back(c);
    for (int k = 0; k < NumeroAspetti; ++k)
        r.aspetti.push_back(k);
    const auto transiti = CercaTransiti(r);

    std::vector<std::pair<double, int>> scansione; // time, body
    const double passo = 1.0 / 1440;
    for (int corpo : r.corpi) {
        std::vector<double> lon;
        for (int i = 0; i <= 1440; ++i)
            lon.push_back(LongitudineTransito(corpo, r.jdDa + passo * i));
        for (const PuntoNatale& p : r.punti)
            for (int k : r.aspetti)
                for (double b : Bersagli(p.Lo, k))
                    for (int i = 0; i < 1440; ++i) {
                        const double f0 = Scarto(lon[static_cast<std::size_t>(i)], b);
                        const double f1 = Scarto(lon[static_cast<std::size_t>(i) + 1], b);
                        if (std::fabs(f0 - f1) < 90 && (f0 < 0) != (f1 < 0))
                            scansione.push_back({r.jdDa + passo * (i + 0.5), corpo});
                    }
    }
    std::sort(scansione.begin(), scansione.end());
    ASSERT_GT(scansione.size(), 10u);
    ASSERT_EQ(transiti.size(), scansione.size());
    std::vector<std::pair<double, int>> nostri;
    for (const Transito& t : transiti)
        nostri.push_back({t.jd, t.corpo});
    std::sort(nostri.begin(), nostri.end());
    for (std::size_t i = 0; i < nostri.size(); ++i) {
        EXPECT_NEAR(nostri[i].first, scansione[i].first, passo) << i;
        EXPECT_EQ(nostri[i].second, scansione[i].second) << i;
    }
}

TEST(CalendarioTransiti, RichiesteSenzaRisultati) {
    const Posizioni natale = PosizioniNatali();
    const RichiestaTransiti r{.jdDa = GiornoGiuliano(2026, 1, 1),
                              .jdA = GiornoGiuliano(2027, 1, 1),
                              .corpi = CorpiTransitoPredefiniti(),
                              .punti = PuntiNataliPredefiniti(natale, 1),
                              .aspetti = {0, 1, 2, 3, 4}};
    struct Caso {
        const char* cosa;
        double da, a, orbita;
    } casi[] = {
        {"negative orb", r.jdDa, r.jdA, -1},
        {"end before start", r.jdA, r.jdDa, 2.5},
        {"no period", std::nan(""), r.jdA, 2.5},
    };
    for (const Caso& c : casi) {
        RichiestaTransiti q = r;
        q.jdDa = c.da;
        q.jdA = c.a;
        q.orbita = c.orbita;
        EXPECT_TRUE(CercaTransiti(q).empty()) << c.cosa;
    }
    // A search stopped at once gives what it found, nothing.
    EXPECT_TRUE(CercaTransiti(r, [](double) { return false; }).empty());
}

// The rows as the user reads them, in the text table, the CSV and on the pages: a hit of
// 1 January 2026 at 18:00 TU is 19:00 at one hour east.
TEST(CalendarioTransiti, RigheTestoCsvEPagine) {
    Tema tema = Natale();
    tema.Estiva = 0;
    OrologioLuogo orologio("", tema);
    RichiestaTransiti r;
    r.punti = {{"Sole", 20}, {"Asce", 100}};
    const double jd = GiornoGiuliano(2026, 1, 1) + 0.75;
    const double nan = std::nan("");
    std::vector<Transito> transiti;
    for (int i = 0; i < 50; ++i)
        transiti.push_back(
            {jd + i, 5, i == 0, 2, i % 2, 0, jd + i - 10.5, i == 0 ? nan : jd + i + 1});
    const auto righe = RigheTransiti(transiti, r, orologio);
    ASSERT_EQ(righe.size(), 50u);
    EXPECT_EQ(CelleTransito(righe[0]),
              (std::vector<std::string>{"01/01/2026", "19:00:00", "Giove R", "QUADRATURA", "Sole",
                                        "22/12/2025 07:00", "-"}));
    EXPECT_EQ(CelleTransito(righe[1])[2], "Giove");
    EXPECT_EQ(CelleTransito(righe[1])[4], "Asce");

    const std::string testo = TestoTransiti(righe);
    EXPECT_EQ(testo.substr(0, testo.find('\n')),
              "Data        Ora       Pianeta  Aspetto     Punto natale  Ingresso          Uscita");
    EXPECT_EQ(testo.substr(testo.find('\n') + 1, 77),
              "01/01/2026  19:00:00  Giove R  QUADRATURA  Sole          22/12/2025 07:00  -\n");
    const std::string csv = CsvTransiti(righe);
    EXPECT_EQ(csv.substr(0, csv.find("\r\n")),
              "Data;Ora;Pianeta;Aspetto;Punto natale;Ingresso;Uscita;JD;JDIngresso;JDUscita");
    const auto seconda = csv.find("\r\n") + 2;
    EXPECT_EQ(csv.substr(seconda, csv.find("\r\n", seconda) - seconda),
              "01/01/2026;19:00:00;Giove R;QUADRATURA;Sole;22/12/2025 07:00;-;2461042.250000;"
              "2461031.750000;");

    DatiPaginaTransiti dati;
    dati.tema = Natale();
    dati.dataStampa = "25/11/2026";
    dati.descrizione = {"Periodo  01/01/2026 - 31/12/2026"};
    const int perPagina = RighePerPaginaTransiti();
    ASSERT_LT(perPagina, 50);
    ASSERT_EQ(PagineTransiti(righe.size()), 2);
    EXPECT_EQ(PagineTransiti(0), 1);
    SuperficieRegistrata sup(Bianco);
    DisegnaPaginaTransiti(sup, dati, righe, 1);
    std::vector<std::string> testi;
    for (const Figura& f : sup.figure)
        if (f.tipo == Figura::Testo) testi.push_back(f.testo);
    auto cè = [&](const std::string& t) {
        return std::find(testi.begin(), testi.end(), t) != testi.end();
    };
    // The second page begins where the first ended, and holds the rest.
    for (const std::string& t :
         {std::string("CALENDARIO TRANSITI   -   pagina 2 di 2"), std::string("Prova"),
          std::string("TEMA NATALE   -  stampa  25/11/2026"), std::string("Punto natale"),
          std::string("Periodo  01/01/2026 - 31/12/2026"), CelleTransito(righe[49])[0],
          CelleTransito(righe[static_cast<std::size_t>(perPagina)])[0]})
        EXPECT_TRUE(cè(t)) << t;
    EXPECT_FALSE(cè(CelleTransito(righe[static_cast<std::size_t>(perPagina) - 1])[0]));
}

// The topocentric Moon of the natal place: each hit exact in the chart cast with that Moon.
TEST(CalendarioTransiti, LunaTopocentrica) {
    const Posizioni natale = PosizioniNatali();
    const RichiestaTransiti r{.jdDa = GiornoGiuliano(2026, 3, 1),
                              .jdA = GiornoGiuliano(2026, 3, 4),
                              .corpi = {1},
                              .punti = PuntiNataliPredefiniti(natale, 1),
                              .aspetti = {0, 1, 2, 3, 4},
                              .lunaGeo = 0,
                              .lonLuogo = Natale().Lon,
                              .latLuogo = Natale().Lat};
    const auto transiti = CercaTransiti(r);
    ASSERT_GT(transiti.size(), 10u);
    double peggiore = 0, daGeocentrica = 0;
    for (const Transito& t : transiti) {
        peggiore =
            std::max(peggiore, std::fabs(Scarto(LongitudineDelTema(1, t.jd, 0), t.bersaglio)));
        daGeocentrica =
            std::max(daGeocentrica, std::fabs(Scarto(LongitudineDelTema(1, t.jd, 1), t.bersaglio)));
    }
    EXPECT_LE(peggiore, TolleranzaGradi);
    // The parallax moves the Moon by up to a degree: the geocentric one is elsewhere.
    EXPECT_GT(daGeocentrica, 0.1);
}
