#include "calculators/Calcolatrici.h"

#include <cmath>

#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/Sole.h"

namespace vesmo {

const std::array<const char*, 12> SegniCalcolatrice = {
    "Ariete",   "Toro",      "Gemelli",    "Cancro",     "Leone",    "Vergine",
    "Bilancia", "Scorpione", "Sagittario", "Capricorno", "Acquario", "Pesci"};

ErroreTipo::ErroreTipo(const std::string& testo)
    : std::runtime_error("Tipo non corrispondente: \"" + testo + "\"") {}

namespace {

std::string_view Rifilato(std::string_view t) {
    while (!t.empty() && (t.front() == ' ' || t.front() == '\t'))
        t.remove_prefix(1);
    while (!t.empty() && (t.back() == ' ' || t.back() == '\t'))
        t.remove_suffix(1);
    return t;
}

// The rounding of the seconds of a sexagesimal triple: a fraction above 0.99 rounds the seconds
// up, or moves on the minutes when the seconds are above 59 (a negative value is never rounded).
// Minutes that reach 60 move on the first member, which `giro` brings back (24 hours), if any.
void ArrotondaSecondi(double& primo, double& minuti, double& secondi, double giro = 0) {
    if (secondi - Int(secondi) <= 0.99) return;
    if (secondi > 59) {
        minuti += 1;
        secondi = 0;
    } else {
        secondi = Int(secondi) + 1;
    }
    if (minuti >= 60) {
        minuti -= 60;
        primo += primo < 0 ? -1 : 1;
        if (giro > 0 && primo >= giro) primo -= giro;
    }
}

// Seconds above 30 (in size) round the minutes up; minutes that reach 60 move on the degrees.
// With whole degrees the minutes and seconds are sizes and the sign is the degrees'; below one
// degree the minutes and seconds carry it.
void ArrotondaPrimi(double& gradi, double& primi, double secondi) {
    if (std::fabs(secondi) <= 30) return;
    if (gradi != 0) {
        primi += 1;
        if (primi >= 60) {
            primi = 0;
            gradi += gradi < 0 ? -1 : 1;
        }
        return;
    }
    const bool negativo = primi < 0 || secondi < 0;
    primi += negativo ? -1 : 1;
    if (std::fabs(primi) >= 60) {
        primi = 0;
        gradi = negativo ? -1 : 1;
    }
}

} // namespace

std::optional<double> NumeroDiCasella(std::string_view testo) {
    std::string_view t = Rifilato(testo);
    if (t.empty()) return 0.0;
    double v = 0;
    if (LeggiNumero(t, v) != t.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

double NumeroOErrore(std::string_view testo) {
    std::optional<double> v = NumeroDiCasella(testo);
    if (!v) throw ErroreTipo(std::string(testo));
    return *v;
}

double ValoreIniziale(std::string_view testo) {
    double v = 0;
    if (LeggiNumero(Rifilato(testo), v) == 0 || !std::isfinite(v)) return 0;
    return v;
}

// ---- Julian days ----

double FusoDellaCornice(const CorniceJD& c, double lon) {
    double fuso = NumeroOErrore(c.Fuso);
    if (fuso == 99) fuso = lon;
    if (c.Est) fuso = -std::fabs(fuso);
    return fuso;
}

double JDDellaCornice(const CorniceJD& c, double lon) {
    const double fuso = FusoDellaCornice(c, lon);
    const double day =
        GiornoGiuliano(NumeroOErrore(c.Anno), NumeroOErrore(c.Mese), NumeroOErrore(c.Giorno));
    const double oraL =
        GradiDecimali(NumeroOErrore(c.Ore), NumeroOErrore(c.Minuti), NumeroOErrore(c.Secondi));
    return day + (oraL - c.Estiva + fuso) / 24;
}

namespace {

// Day (0h of the civil date) and clock time of the instant jd for a summer time and a zone.
void GiornoEOra(double jd, double estiva, double fuso, double& day, double& oraL) {
    float anno, mese, giorno;
    DataDaGiuliano(jd, anno, mese, giorno);
    day = GiornoGiuliano(anno, mese, Fix(giorno));
    oraL = estiva + (jd - day) * 24 - fuso;
    if (oraL < 0) {
        oraL += 24;
        day -= 1;
    } else if (oraL >= 24) {
        oraL -= 24;
        day += 1;
    }
}

void ScriviData(CorniceJD& c, double day) {
    float anno, mese, giorno;
    DataDaGiuliano(day, anno, mese, giorno);
    c.Giorno = TestoNumero(Fix(giorno));
    c.Mese = TestoNumero(mese);
    c.Anno = TestoNumero(anno);
}

void ScriviOra(CorniceJD& c, double oraL) {
    double h, m, s;
    GradiPrimiSecondi(oraL, h, m, s);
    c.Ore = TestoNumero(h);
    c.Minuti = TestoNumero(m);
    c.Secondi = FormatoNumero(s, "#0.0");
}

} // namespace

void CorniceDaJD(CorniceJD& c, double lon) {
    const double jd = NumeroOErrore(c.JD);
    double day, oraL;
    GiornoEOra(jd, c.Estiva, FusoDellaCornice(c, lon), day, oraL);
    // The seconds are shown to the tenth: the time is taken to the nearest tenth first, so
    // that 59.99 seconds show as the next minute and not as "60,0".
    oraL = std::round(oraL * 36000) / 36000;
    if (oraL >= 24) {
        oraL -= 24;
        day += 1;
    }
    ScriviData(c, day);
    ScriviOra(c, oraL);
}

CorniceJD CorniceDelTema(const Tema& t) {
    CorniceJD c;
    ScriviData(c, t.Day);
    ScriviOra(c, t.OraL);
    c.Estiva = static_cast<int>(t.Estiva);
    // A zone with a fraction is a local mean time: 99 stands for the place's longitude.
    c.Fuso = t.Fuso != Fix(t.Fuso) ? "99" : TestoNumero(std::fabs(t.Fuso));
    c.Est = t.Fuso < 0;
    c.JD = TestoNumero(t.JD());
    return c;
}

Tema NuovoDallaCornice(const CorniceJD& c, const Tema& temaX) {
    Tema n;
    n.Nome = "Nuovo JD";
    n.City = "City di Nuovo";
    n.Lon = temaX.Lon;
    n.Lat = temaX.Lat;
    n.Day = GiornoGiuliano(NumeroOErrore(c.Anno), NumeroOErrore(c.Mese), NumeroOErrore(c.Giorno));
    n.OraL = GradiDecimali(NumeroOErrore(c.Ore), NumeroOErrore(c.Minuti), NumeroOErrore(c.Secondi));
    n.Estiva = c.Estiva;
    n.Fuso = FusoDellaCornice(c, temaX.Lon);
    return n;
}

Tema TemaAlJD(const Tema& base, double jd) {
    Tema t = base;
    GiornoEOra(jd, t.Estiva, t.Fuso, t.Day, t.OraL);
    return t;
}

std::optional<double> SommaJD(std::string_view jd, std::string_view segno,
                              std::string_view operando) {
    const std::string_view s = Rifilato(segno);
    if (s != "+" && s != "-") return std::nullopt;
    const double a = NumeroOErrore(jd);
    const double b = NumeroOErrore(operando);
    return s == "+" ? a + b : a - b;
}

// ---- Delta T ----

std::string TestoDeltaT(double minuti) {
    return "DeltaT = " + FormatoNumero(minuti * 60, "###0.#0") + "s" + "  = " +
           FormatoNumero(minuti, "###0.###0") + "m" + "  = " +
           FormatoNumero(minuti / 60, "###0.###0") + "h";
}

std::string AiutoDeltaT() {
    std::string t =
        "TE, tempo delle effemeridi, è un tempo uniforme basato sui moti planetari.\n"
        "In TU è invece presente L'irregolarità della rotazione terrestre.\n"
        "DeltaT = TE - TU si può dedurre precisamente solo da osservazioni.\n"
        "La tabella seguente dà il valore di DeltaT, in minuti di tempo, per alcuni anni.\n"
        "La lettera E indica che il dato non è verificato ma solamente estrapolato.\n"
        "Il TDT, Tempo Dinamico Terrestre sostituisce dal 1984 il TE.\n"
        "Può essere considerato, per molti aspetti, la continuazione del TE.\n"
        "Il pulsante OK >> calcola DeltaT interpolando la tabella per le date comprese nella "
        "stessa.\n"
        "La tabella interna al computer è più estesa. Per le altre date usa una formula "
        "approssimata.\n\n";
    // The table as published with the calculator: three columns of years and minutes.
    struct Voce {
        const char* anno;
        const char* valore;
    };
    static const Voce prima[] = {{"1710", "-0,2"}, {"1730", "-0,1"}, {"1750", " 0,0"},
                                 {"1770", "+0,1"}, {"1800", "+0,1"}, {"1840", " 0,0"},
                                 {"1870", " 0,0"}, {"1880", "-0,1"}};
    static const Voce seconda[] = {{"1895", "-0,1"}, {"1903", " 0,0"}, {"1912", "+0,2"},
                                   {"1927", "+0,4"}, {"1940", "+0,4"}, {"1950", "+0,5"},
                                   {"1965", "+0,6"}, {"1971", "+0,7"}};
    static const Voce terza[] = {{"1977", "  +0,8"},   {"1987", "  +1,0"},   {"1992", "  +0,9718"},
                                 {"1993", "  +0,985"}, {"1994", "  +0,996"}, {"1995", "  +1,013"},
                                 {"1996", "E +1,033"}, {"1997", "E +1,05"},  {"1998", "E +1,066"}};
    t += std::string(62, '-') + "\n";
    t += " Anno   DeltaT   |  Anno   DeltaT       |   Anno   DeltaT\n";
    auto colonna = [](const Voce& v, std::size_t larghezza) {
        std::string c = std::string(" ") + v.anno + "   " + v.valore;
        if (c.size() < larghezza) c += std::string(larghezza - c.size(), ' ');
        return c;
    };
    for (std::size_t i = 0; i < 9; ++i) {
        std::string riga = i < 8 ? colonna(prima[i], 17) : std::string(17, ' ');
        riga += "|";
        riga += i < 8 ? " " + colonna(seconda[i], 21) : std::string(22, ' ');
        riga += "|  " + colonna(terza[i], 0);
        t += riga + "\n";
    }
    return t;
}

// ---- Equation of time ----

double EquazioneDelTempo(double jd) {
    const double T = SecoliGiuliani(jd);
    const double L = Radianti(Norma360(LongMediaSole(T), 1));
    const double e = EccTerra(T);
    const double M = Radianti(AnomaliaSole(T));
    const double y = std::pow(std::tan(Radianti(Obliquita(jd)) / 2), 2);
    return y * std::sin(2 * L) - 2 * e * std::sin(M) + 4 * e * y * std::sin(M) * std::cos(2 * L) -
           0.5 * y * y * std::sin(4 * L) - 1.25 * e * e * std::sin(2 * M);
}

std::string TestoEqT(double eqt) {
    return "EqT = " + FormatoNumero(eqt, "#0.######0") + " radianti";
}

// ---- Ecliptic and equatorial ----

double JDDelCalcolo(double giorno, double mese, double anno, double ore, double minuti) {
    return GiornoGiuliano(anno, mese, giorno) + GradiDecimali(ore, minuti, 0) / 24;
}

Equatoriali EclitticheAEquatoriali(double jd, const Eclittiche& ecl) {
    const double e = Radianti(Obliquita(jd));
    const double lon = 30 * ecl.Segno + GradiDecimali(ecl.Lon_Gradi, ecl.Lon_Primi, ecl.Lon_Sec);
    const double lat = GradiDecimali(ecl.Lat_Gradi, ecl.Lat_Primi, 0);
    double ar, de;
    EclitticaEquatore(Radianti(lon), Radianti(lat), e, ar, de);
    Equatoriali q;
    GradiPrimiSecondi(ar / 15, q.AR_h, q.AR_m, q.AR_s);
    ArrotondaSecondi(q.AR_h, q.AR_m, q.AR_s, 24);
    double s;
    GradiPrimiSecondi(Gradi(de), q.Dec_Gradi, q.Dec_Primi, s);
    ArrotondaPrimi(q.Dec_Gradi, q.Dec_Primi, s);
    return q;
}

Eclittiche EquatorialiAEclittiche(double jd, const Equatoriali& equ) {
    const double e = Radianti(Obliquita(jd));
    const double a = GPSaRadianti(equ.AR_h, equ.AR_m, equ.AR_s) * 15;
    const double d = GPSaRadianti(equ.Dec_Gradi, equ.Dec_Primi, 0);
    double lon, lat;
    EquatoreEclittica(a, d, lon, lat, e);
    Eclittiche c;
    std::string segno;
    double decimali;
    SegnoGradi(lon, segno, c.Lon_Gradi, c.Lon_Primi, c.Lon_Sec, decimali, 0);
    c.Segno = static_cast<int>(Fix(lon / 30)) % 12;
    // Seconds that round up to 60 carry into the minutes, the degrees and the next sign.
    double assoluti = c.Segno * 30 + c.Lon_Gradi;
    ArrotondaSecondi(assoluti, c.Lon_Primi, c.Lon_Sec, 360);
    c.Segno = static_cast<int>(Fix(assoluti / 30)) % 12;
    c.Lon_Gradi = std::fmod(assoluti, 30);
    double s;
    RadGradiPrimiSecondi(lat, c.Lat_Gradi, c.Lat_Primi, s);
    ArrotondaPrimi(c.Lat_Gradi, c.Lat_Primi, s);
    return c;
}

// ---- Number formats ----

void FormatiNumerici::Cambia(int i) {
    if (Riscrivi || i < 0 || i > 8) return;
    Cambiato.fill(0);
    Cambiato[static_cast<std::size_t>(i)] = -1;
}

void FormatiNumerici::Scrivi(int i, std::string testo) {
    if (i < 0 || i > 8) return;
    Testo[static_cast<std::size_t>(i)] = std::move(testo);
    Cambia(i);
}

void FormatiNumerici::CommandOK() {
    Riscrivi = true;
    auto cambiato = [&](int i) { return Cambiato[static_cast<std::size_t>(i)] != 0; };
    int gruppo = -1; // first box of the group typed in
    if (cambiato(0) || cambiato(1) || cambiato(2))
        gruppo = 0;
    else if (cambiato(3) || cambiato(4) || cambiato(5))
        gruppo = 3;
    else if (cambiato(6))
        gruppo = 6;
    else if (cambiato(7))
        gruppo = 7;
    else if (cambiato(8))
        gruppo = 8;

    if (gruppo >= 0) {
        const int quanti = gruppo < 6 ? 3 : 1;
        auto testo = [&](int i) -> std::string& { return Testo[static_cast<std::size_t>(i)]; };
        // A box that does not hold a number: the boxes of the group worth 0 are written "0"
        // and the value is worked out again on what stands in them.
        bool buoni = true;
        for (int i = gruppo; i < gruppo + quanti; ++i)
            if (Rifilato(testo(i)).empty() || !NumeroDiCasella(testo(i))) buoni = false;
        if (!buoni)
            for (int i = gruppo; i < gruppo + quanti; ++i)
                if (ValoreIniziale(testo(i)) == 0) testo(i) = "0";
        auto valore = [&](int i) {
            std::optional<double> v = NumeroDiCasella(testo(i));
            return v ? *v : ValoreIniziale(testo(i));
        };
        const double v = quanti == 3
                             ? GradiDecimali(valore(gruppo), valore(gruppo + 1), valore(gruppo + 2))
                             : valore(gruppo);
        double d, h;
        if (gruppo == 3 || gruppo == 7) {
            h = v;
            d = 15 * h;
        } else {
            d = gruppo == 8 ? Gradi(v) : v;
            h = d / 15;
        }
        auto tripla = [&](int primo, double x) {
            double a, b, c;
            GradiPrimiSecondi(x, a, b, c);
            ArrotondaSecondi(a, b, c);
            testo(primo) = TestoNumero(a);
            testo(primo + 1) = TestoNumero(b);
            testo(primo + 2) = FormatoNumero(c, "#0.0");
        };
        if (gruppo != 0) tripla(0, d);
        if (gruppo != 3) tripla(3, h);
        if (gruppo != 6) testo(6) = FormatoNumero(d, "##0.0####");
        if (gruppo != 7) testo(7) = FormatoNumero(h, "##0.0####");
        if (gruppo != 8) testo(8) = FormatoNumero(Radianti(d), "0.0####");
    }
    Cambiato.fill(0);
    Riscrivi = false;
}

} // namespace vesmo
