#include "ephemeris/Sole.h"

#include <cmath>

#include "core/Aritmetica.h"

namespace vesmo {

double LongMediaSole(double T) {
    return 279.69668 + 36000.76892 * T + 0.0003025 * T * T;
}

double AnomaliaSole(double T) {
    return Norma360(358.475833 + 35999.04975 * T - 0.00015 * T * T - 0.0000033 * T * T * T, 1);
}

double EccTerra(double T) {
    return 0.01675104 - 0.0000418 * T - 0.000000126 * T * T;
}

double LongMediaLuna(double jd) {
    double T = SecoliGiuliani(jd);
    return Norma360(270.434164 + 481267.8831 * T - 0.001133 * T * T + 0.0000019 * T * T * T, 1);
}

double AnomaliaLuna(double jd) {
    double T = SecoliGiuliani(jd);
    return Norma360(296.104608 + 477198.8491 * T + 0.009192 * T * T + 0.0000144 * T * T * T, 1);
}

double NodoMedio(double jd) {
    double T = SecoliGiuliani(jd);
    return 259.183275 - 1934.142 * T + 0.002078 * T * T + 0.0000022 * T * T * T;
}

double Obliquita(double jd) {
    double T = SecoliGiuliani(jd);
    return 23.452294 - 0.0130125 * T - 0.00000164 * T * T + 0.000000503 * T * T * T;
}

void Nutazione(double jd, double& dPsi, double& dEps) {
    double T = SecoliGiuliani(jd);
    double L = Radianti(LongMediaSole(T));
    double L1 = Radianti(LongMediaLuna(jd));
    double M = Radianti(AnomaliaSole(T));
    double M1 = Radianti(AnomaliaLuna(jd));
    double O = Radianti(NodoMedio(jd));
    dPsi = -(17.2327 + 0.01737 * T) * std::sin(O);
    dPsi -= (1.2729 + 0.00013 * T) * std::sin(2 * L);
    dPsi += 0.2088 * std::sin(2 * O);
    dPsi -= 0.2037 * std::sin(2 * L1);
    dPsi += (0.1261 - 0.00031 * T) * std::sin(M);
    dPsi += 0.0675 * std::sin(M1);
    dPsi -= (0.0497 - 0.00012 * T) * std::sin(2 * L + M);
    dPsi -= 0.0342 * std::sin(2 * L1 - O);
    dPsi -= 0.0261 * std::sin(2 * L1 + M1);
    dPsi += 0.0214 * std::sin(2 * L - M);
    dPsi -= 0.0149 * std::sin(2 * L - 2 * L1 + M1);
    dPsi += 0.0124 * std::sin(2 * L - O);
    dPsi += 0.0114 * std::sin(2 * L1 - M1);

    dEps = (9.21 + 0.00091 * T) * std::cos(O);
    dEps += (0.5522 - 0.00029 * T) * std::cos(2 * L);
    dEps -= 0.0904 * std::cos(2 * O);
    dEps += 0.0884 * std::cos(2 * L1);
    dEps += 0.0216 * std::cos(2 * L + M);
    dEps += 0.0183 * std::cos(2 * L1 - O);
    dEps += 0.0113 * std::cos(2 * L1 + M1);
    dEps -= 0.0093 * std::cos(2 * L - M);
    dEps -= 0.0066 * std::cos(2 * L - O);
}

double TempoSiderale(double day, double tu, int flag) {
    // The polynomial is taken at 0h of the day; the hours are added at the sidereal rate.
    double T = SecoliGiuliani(day);
    double s0 = 6.6460656 + 2400.051262 * T + 0.00002581 * T * T;
    s0 = s0 / 24;
    s0 = (s0 - Fix(s0)) * 24;
    double s = s0 + tu * 1.002737908;
    if (flag == 0) return s;
    // Apparent time: the equation of the equinoxes, in seconds of time, joins the seconds of
    // the split time. The obliquity is the mean one of the day, without nutation.
    double dPsi, dEps;
    Nutazione(day + tu / 24, dPsi, dEps);
    double e = Radianti(Obliquita(day));
    double h, m, sec;
    GradiPrimiSecondi(s, h, m, sec);
    sec += dPsi * std::cos(e) / 15;
    return GradiDecimali(h, m, sec);
}

double TempoSideraleLocale(double a, double b, double day, int flag, double lon) {
    double s = TempoSiderale(day, a + b, flag) - lon;
    if (s >= 24)
        s -= 24;
    else if (s < 0)
        s += 24;
    return s;
}

double Keplero(double e, double m) {
    double E = m;
    for (;;) {
        double passo = (m + e * std::sin(E) - E) / (1 - e * std::cos(E));
        E += passo;
        if (std::fabs(passo) <= 1e-11) return E;
    }
}

double AnomaliaVera(double e, double E) {
    double meta = Radianti(Norma360(E, 0)) / 2;
    return Norma360(2 * std::atan(std::sqrt((1 + e) / (1 - e)) * std::tan(meta)), 0);
}

void PosizioneSole(double jd, int flag, double& lon, double& r, double& ar, double& de) {
    double T = SecoliGiuliani(jd);
    double L = Norma360(LongMediaSole(T), 1);
    double M = AnomaliaSole(T);
    double e = EccTerra(T);
    double E = Keplero(e, Radianti(M));
    double v = AnomaliaVera(e, E);
    double vera = v + L - M;
    r = (1 - e * std::cos(E)) * 1.00000023;

    // Perturbations by Venus (A, B), Jupiter (K), the Moon (D) and a long-period term (E2).
    double A = Radianti(Norma360(153.23 + 22518.7541 * T, 1));
    double B = Radianti(Norma360(216.57 + 45037.5082 * T, 1));
    double K = Radianti(Norma360(312.69 + 32964.3577 * T, 1));
    double D = Radianti(Norma360(350.74 + 445267.1142 * T - 0.00144 * T * T, 1));
    double E2 = Radianti(Norma360(231.19 + 20.2 * T, 1));
    double H = Radianti(Norma360(353.4 + 65928.7155 * T, 1));
    double dl = 0.00134 * std::cos(A) + 0.00154 * std::cos(B) + 0.002 * std::cos(K) +
                0.00179 * std::sin(D) + 0.00178 * std::sin(E2);
    double dr = 0.00000543 * std::sin(A) + 0.00001575 * std::sin(B) + 0.00001627 * std::sin(K) +
                0.00003076 * std::cos(D) + 0.00000927 * std::sin(H);
    lon = Norma360(vera + dl, 1);
    r += dr;

    double eps;
    if (flag == 0) {
        eps = Obliquita(jd);
    } else {
        // Aberration and the main term of nutation in longitude; the true obliquity.
        double O = Radianti(Norma360(NodoMedio(jd), 1));
        lon = Norma360(lon - 0.00569 - 0.00479 * std::sin(O), 1);
        double dPsi, dEps;
        Nutazione(jd, dPsi, dEps);
        eps = Obliquita(jd) + dEps / 3600;
    }
    EclitticaEquatore(Radianti(lon), 0, Radianti(eps), ar, de);
}

} // namespace vesmo
