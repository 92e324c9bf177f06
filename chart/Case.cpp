#include "chart/Case.h"

#include <cmath>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/Sole.h"

namespace vesmo {

double CuspidePlacido(double ramc, double phi, double e, int casa, Messaggi& messaggi) {
    double f, aggiunto, s;
    switch (casa) {
    case 1:
        f = 1, aggiunto = 0, s = 1;
        break;
    case 2:
        f = 1.5, aggiunto = 180, s = -1;
        break;
    case 3:
        f = 3, aggiunto = 180, s = -1;
        break;
    case 11:
        f = 3, aggiunto = 0, s = 1;
        break;
    case 12:
        f = 1.5, aggiunto = 0, s = 1;
        break;
    default:
        return 0;
    }
    double k = -std::tan(phi) * std::tan(e);
    double r = ramc;
    for (int passi = 0; passi < 10000; ++passi) {
        double x = s * k * std::sin(Radianti(r));
        double a = ArcoCoseno(x);
        if (PlacidoNonDefinito) return 0;
        double r2 = s * Gradi(a / f) + aggiunto + ramc;
        if (std::fabs(r2 - r) <= 1e-11) return r2;
        r = r2;
    }
    messaggi.Mostra("Lyx - Condizione Critica", "Loop in Calcolo Case.", Pulsanti::Ok,
                    Icona::Critico);
    throw ErroreLoopCase();
}

void LonAsce(double e, double phi, double ramc, double& lon, double& angolo) {
    double c = std::cos(ramc);
    double d = -(std::sin(e) * std::tan(phi) + std::cos(e) * std::sin(ramc));
    double l = Gradi(std::atan(c / d));
    if (l >= 0 && c >= 0)
        lon = l;
    else if (l < 0 && c < 0)
        lon = Norma360(l, 1);
    else
        lon = l + 180;
    angolo = ArcoCoseno(std::cos(e) * std::sin(phi) - std::cos(phi) * std::sin(e) * std::sin(ramc));
}

void EquatoreEclittica(double a, double d, double& lon, double& lat, double e) {
    if (d == DeclinazioneEclittica) {
        double atn = std::atan(std::tan(a) / std::cos(e));
        lon = Norma360(QuadranteAtn(Segno(std::sin(a)), Segno(std::cos(a)), atn), 0);
        lat = 0;
        return;
    }
    double n = std::sin(a) * std::cos(e) + std::tan(d) * std::sin(e);
    double atn = std::atan(n / std::cos(a));
    lon = Norma360(QuadranteAtn(Segno(n), Segno(std::cos(a)), atn), 0);
    lat = ArcoSeno(std::sin(d) * std::cos(e) - std::cos(d) * std::sin(e) * std::sin(a));
}

void AscensioneObliqua(Variante& aob, const Variante& ar, double de, double phi) {
    double p = std::tan(de) * std::tan(phi);
    if (p >= -1 && p <= 1 && !ar.ETesto())
        aob = ar.Numero() - Gradi(ArcoSeno(p)) / 15;
    else
        aob = Indefinita;
}

void CaseOpposte(Case& c, double e, double phi) {
    for (int i = 4; i <= 9; ++i) {
        int opposta = i < 7 ? i + 6 : i - 6;
        c[i].Lo = Norma360(180 + c[opposta].Lo, 1);
        double ar, de;
        EclitticaEquatore(Radianti(c[i].Lo), 0, e, ar, de);
        double ore = ar / 15;
        if (ore >= 24) ore -= 24;
        c[i].AR = ore;
        c[i].De = de;
        AscensioneObliqua(c[i].AOb, c[i].AR, c[i].De, phi);
    }
}

std::int16_t CasaDi(double lon, const Case& c) {
    const int primo = 1, ultimo = 12;
    double top = c[primo].Lo;
    for (int i = primo; i <= ultimo; ++i)
        if (c[i].Lo > top) top = c[i].Lo;
    for (int i = primo; i <= ultimo; ++i) {
        double a = c[i].Lo;
        double b = i < ultimo ? c[i + 1].Lo : c[primo].Lo;
        if (a < top) {
            if (a <= lon && lon < b) return static_cast<std::int16_t>(i);
        } else if (a == top) {
            // The cusp before which the zodiac wraps.
            if (!(b <= lon && lon < a)) return static_cast<std::int16_t>(i);
        }
    }
    return ultimo + 1;
}

void CalcoloCase(const Tema& tema, Case& c, Posizioni& pos, int flag, Messaggi& messaggi) {
    // The flag belongs to this routine while it runs.
    PlacidoNonDefinito = 0;
    double tu = tema.OraL - tema.Estiva + tema.Fuso;
    double tsl = TempoSiderale(tema.Day, tu, flag) - tema.Lon;
    if (tsl >= 24) tsl -= 24;
    if (tsl < 0) tsl += 24;
    double jd = tema.Day + tu / 24;
    double e = Radianti(Obliquita(jd));
    double phi = Radianti(tema.Lat);
    double ramc = tsl * 15;

    for (int i = 1; i <= 12; ++i) {
        Posizione& p = c[i];
        p = Posizione{};
        double lat;
        if (i == 1 || i == 2 || i == 3 || i == 11 || i == 12) {
            double r = CuspidePlacido(ramc, phi, e, i, messaggi);
            if (!PlacidoNonDefinito) {
                double ore = r / 15;
                if (ore >= 24) ore -= 24;
                p.AR = ore;
                EquatoreEclittica(Radianti(r), DeclinazioneEclittica, p.Lo, lat, e);
            } else if (i == 1) {
                double angolo;
                LonAsce(e, phi, Radianti(ramc), p.Lo, angolo);
                p.AR = NonDefinita;
            } else {
                // Without a semi-arc the cusp takes the place of the Midheaven.
                p.AR = tsl;
                EquatoreEclittica(Radianti(ramc), DeclinazioneEclittica, p.Lo, lat, e);
            }
        } else if (i == 10) {
            p.AR = tsl;
            EquatoreEclittica(Radianti(ramc), DeclinazioneEclittica, p.Lo, lat, e);
        } else {
            p.Lo = 0;
        }
        p.De = ArcoSeno(std::sin(e) * std::sin(Radianti(p.Lo)));
        AscensioneObliqua(p.AOb, p.AR, p.De, phi);
    }

    pos.CaseNonDefinite = PlacidoNonDefinito;
    if (PlacidoNonDefinito)
        messaggi.Mostra("Lyx - Info Case", "Latitudine estrema. Case di Placido non definite",
                        Pulsanti::Ok, Icona::Informazione);

    pos.Asce = c[1];
    pos.CasaII = c[2];
    pos.CasaIII = c[3];
    pos.MC = c[10];
    pos.CasaXI = c[11];
    pos.CasaXII = c[12];

    // The iterative Ascendant is checked against the direct formula.
    double diretto, angolo;
    LonAsce(e, phi, Radianti(ramc), diretto, angolo);
    double iterativo = pos.Asce.Lo;
    if (std::fabs(diretto - iterativo) > 1e-6) {
        messaggi.Beep();
        messaggi.Mostra("Lyx - CalcoloCase",
                        "Calcolo Ascendente diretto (LonAsce())  <>  calcolo Ascendente iterativo"
                        "\r\n\rdiretto    =" +
                            TestoNumero(diretto) + "\r\niterativo  =" + TestoNumero(iterativo) +
                            "\r\ndifferenza =" + TestoNumero(diretto - iterativo) +
                            "\r\nmantengo calcolo iterativo =  " + TestoNumero(iterativo),
                        Pulsanti::Ok, Icona::Esclamativo);
    }

    CaseOpposte(c, e, phi);
    PlacidoNonDefinito = 0;
}

} // namespace vesmo
