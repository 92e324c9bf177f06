#include "ephemeris/Luna.h"

#include <cmath>
#include <cstddef>

#include "core/Aritmetica.h"
#include "ephemeris/Sole.h"

namespace vesmo {

namespace {

// One term: multipliers of D, M, M', F, the coefficient in degrees, and the power of e by which
// the term is multiplied (the terms in M shrink with the Earth's eccentricity).
struct TermineLuna {
    int d, m, m1, f;
    double coeff;
    int potenzaE;
};

constexpr TermineLuna LunaLongitudine[] = {
    {0, 0, 1, 0, 6.288750, 0},   {2, 0, -1, 0, 1.274018, 0},  {2, 0, 0, 0, 0.658309, 0},
    {0, 0, 2, 0, 0.213616, 0},   {0, 1, 0, 0, -0.185596, 1},  {0, 0, 0, 2, -0.114336, 0},
    {2, 0, -2, 0, 0.058793, 0},  {2, -1, -1, 0, 0.057212, 1}, {2, 0, 1, 0, 0.053320, 0},
    {2, -1, 0, 0, 0.045874, 1},  {0, -1, 1, 0, 0.041024, 1},  {1, 0, 0, 0, -0.034718, 0},
    {0, 1, 1, 0, -0.030465, 1},  {2, 0, 0, -2, 0.015326, 0},  {0, 0, 1, 2, -0.012528, 0},
    {0, 0, -1, 2, -0.010980, 0}, {4, 0, -1, 0, 0.010674, 0},  {0, 0, 3, 0, 0.010034, 0},
    {4, 0, -2, 0, 0.008548, 0},  {2, 1, -1, 0, -0.007910, 1}, {2, 1, 0, 0, -0.006783, 1},
    {-1, 0, 1, 0, 0.005162, 0},  {1, 1, 0, 0, 0.005000, 1},   {2, -1, 1, 0, 0.004049, 1},
    {2, 0, 2, 0, 0.003996, 0},   {4, 0, 0, 0, 0.003862, 0},   {2, 0, -3, 0, 0.003665, 0},
    {0, -1, 2, 0, 0.002695, 1},  {-2, 0, 1, -2, 0.002602, 0}, {2, -1, -2, 0, 0.002396, 1},
    {1, 0, 1, 0, -0.002349, 0},  {2, -2, 0, 0, 0.002249, 2},  {0, 1, 2, 0, -0.002125, 1},
    {0, 2, 0, 0, -0.002079, 2},  {2, -2, -1, 0, 0.002059, 2}, {2, 0, 1, -2, -0.001773, 0},
    {2, 0, 0, 2, -0.001595, 0},  {4, -1, -1, 0, 0.001220, 1}, {0, 0, 2, 2, -0.001110, 0},
    {-3, 0, 1, 0, 0.000892, 0},  {2, 1, 1, 0, -0.000811, 1},  {4, -1, -2, 0, 0.000761, 1},
    {0, -2, 1, 0, 0.000717, 2},  {-2, -2, 1, 0, 0.000704, 2}, {2, 1, -2, 0, 0.000693, 1},
    {2, -1, 0, -2, 0.000598, 1}, {4, 0, 1, 0, 0.000550, 0},   {0, 0, 4, 0, 0.000538, 0},
    {4, -1, 0, 0, 0.000521, 1},  {-1, 0, 2, 0, 0.000486, 0},
};
constexpr TermineLuna LunaLatitudine[] = {
    {0, 0, 0, 1, 5.128189, 0},   {0, 0, 1, 1, 0.280606, 0},    {0, 0, 1, -1, 0.277693, 0},
    {2, 0, 0, -1, 0.173238, 0},  {2, 0, -1, 1, 0.055413, 0},   {2, 0, -1, -1, 0.046272, 0},
    {2, 0, 0, 1, 0.032573, 0},   {0, 0, 2, 1, 0.017198, 0},    {2, 0, 1, -1, 0.009267, 0},
    {0, 0, 2, -1, 0.008823, 0},  {2, -1, 0, -1, 0.008247, 1},  {2, 0, -2, -1, 0.004323, 0},
    {2, 0, 1, 1, 0.004200, 0},   {-2, -1, 0, 1, 0.003372, 1},  {2, -1, -1, 1, 0.002472, 1},
    {2, -1, 0, 1, 0.002222, 1},  {2, -1, -1, -1, 0.002072, 1}, {0, -1, 1, 1, 0.001877, 1},
    {4, 0, -1, -1, 0.001828, 0}, {0, 1, 0, 1, -0.001803, 1},   {0, 0, 0, 3, -0.001750, 0},
    {0, -1, 1, -1, 0.001570, 1}, {1, 0, 0, 1, -0.001487, 0},   {0, 1, 1, 1, -0.001481, 1},
    {0, -1, -1, 1, 0.001417, 1}, {0, -1, 0, 1, 0.001350, 1},   {-1, 0, 0, 1, 0.001330, 0},
    {0, 0, 3, 1, 0.001106, 0},   {4, 0, 0, -1, 0.001020, 0},   {4, 0, -1, 1, 0.000833, 0},
    {0, 0, 1, -3, 0.000781, 0},  {4, 0, -2, 1, 0.000670, 0},   {2, 0, 0, -3, 0.000606, 0},
    {2, 0, 2, -1, 0.000597, 0},  {2, -1, 1, -1, 0.000492, 1},  {-2, 0, 2, -1, 0.000450, 0},
    {0, 0, 3, -1, 0.000439, 0},  {2, 0, 2, 1, 0.000423, 0},    {2, 0, -3, -1, 0.000422, 0},
    {2, 1, -1, 1, -0.000367, 1}, {2, 1, 0, 1, -0.000353, 1},   {4, 0, 0, 1, 0.000331, 0},
    {2, -1, 1, 1, 0.000317, 1},  {2, -2, 0, -1, 0.000306, 2},  {0, 0, 1, 3, -0.000283, 0},
};
constexpr TermineLuna LunaParallasse[] = {
    {0, 0, 1, 0, 0.051818, 0},   {2, 0, -1, 0, 0.009531, 0},  {2, 0, 0, 0, 0.007843, 0},
    {0, 0, 2, 0, 0.002824, 0},   {2, 0, 1, 0, 0.000857, 0},   {2, -1, 0, 0, 0.000533, 1},
    {2, -1, -1, 0, 0.000401, 1}, {0, -1, 1, 0, 0.000320, 1},  {1, 0, 0, 0, -0.000271, 0},
    {0, 1, 1, 0, -0.000264, 1},  {0, 0, -1, 2, -0.000198, 0}, {0, 0, 3, 0, 0.000173, 0},
    {4, 0, -1, 0, 0.000167, 0},  {0, 1, 0, 0, -0.000111, 1},  {4, 0, -2, 0, 0.000103, 0},
    {-2, 0, 2, 0, -0.000084, 0}, {2, 1, 0, 0, -0.000083, 1},  {2, 0, 2, 0, 0.000079, 0},
    {4, 0, 0, 0, 0.000072, 0},   {2, -1, 1, 0, 0.000064, 1},  {2, 1, -1, 0, -0.000063, 1},
    {1, 1, 0, 0, 0.000041, 1},   {0, -1, 2, 0, 0.000035, 1},  {-2, 0, 3, 0, -0.000033, 0},
    {1, 0, 1, 0, -0.000030, 0},  {-2, 0, 0, 2, -0.000029, 0}, {0, 1, 2, 0, -0.000029, 1},
    {2, -2, 0, 0, 0.000026, 2},  {-2, 0, 1, 2, -0.000023, 0}, {4, -1, -1, 0, 0.000019, 1},
};

// The fundamental arguments of the series, in radians, and the eccentricity factor.
struct Argomenti {
    double T, L1, M, M1, D, F, O, e;
};

Argomenti ArgomentiLuna(double jd) {
    Argomenti a;
    double T = SecoliGiuliani(jd);
    a.T = T;
    double L1 = LongMediaLuna(jd);
    double M = AnomaliaSole(T);
    double M1 = AnomaliaLuna(jd);
    double O = Norma360(NodoMedio(jd), 1);
    double D = Norma360(350.737486 + 445267.1142 * T - 0.001436 * T * T + 0.0000019 * T * T * T, 1);
    double F = Norma360(11.250889 + 483202.0251 * T - 0.003211 * T * T - 0.0000003 * T * T * T, 1);
    // Additive terms; a has the argument 1034.24 T.
    double sa = std::sin(Radianti(1034.24 * T));
    double sb = std::sin(Radianti(346.56 + 132.87 * T - 0.0091731 * T * T));
    double sc = std::sin(Radianti(O));
    double sd = std::sin(Radianti(O + 275.05 - 2.3 * T));
    L1 += 0.000233 * sa + 0.003964 * sb + 0.001964 * sc;
    M += 0.001778 * sa;
    M1 += 0.000817 * sa + 0.003964 * sb + 0.002541 * sc;
    D += 0.002011 * sa + 0.003964 * sb + 0.001964 * sc;
    F += 0.003964 * sb - 0.024691 * sc - 0.004328 * sd;
    a.L1 = L1; // degrees
    a.M = Radianti(M);
    a.M1 = Radianti(M1);
    a.D = Radianti(D);
    a.F = Radianti(F);
    a.O = O; // degrees
    a.e = 1 - 0.002495 * T - 0.00000752 * T * T;
    return a;
}

template <std::size_t N>
double Somma(const TermineLuna (&termini)[N], const Argomenti& a, bool seno) {
    double s = 0;
    for (const TermineLuna& t : termini) {
        double arg = t.d * a.D + t.m * a.M + t.m1 * a.M1 + t.f * a.F;
        double v = t.coeff * (seno ? std::sin(arg) : std::cos(arg));
        if (t.potenzaE == 1)
            v *= a.e;
        else if (t.potenzaE == 2)
            v *= a.e * a.e;
        s += v;
    }
    return s;
}

double Parallasse(const Argomenti& a) {
    return 0.950724 + Somma(LunaParallasse, a, false);
}

} // namespace

void PosizioneLuna(double jd, double& lon, double& lat, double& parallasse) {
    Argomenti a = ArgomentiLuna(jd);
    lon = Norma360(a.L1 + Somma(LunaLongitudine, a, true), 1);
    double B = Somma(LunaLatitudine, a, true);
    double w1 = 0.0004664 * std::cos(Radianti(a.O));
    double w2 = 0.0000754 * std::cos(Radianti(a.O + 275.05 - 2.3 * a.T));
    lat = Radianti(B * (1 - w1 - w2));
    parallasse = Parallasse(a);
}

double ParallasseLuna(double jd) {
    return Parallasse(ArgomentiLuna(jd));
}

void LunaTopocentrica(double day, double tu, double lon, double lat, double lonCorpo,
                      double latCorpo, double distanza, double parallasse, double& lonTopo,
                      double& latTopo) {
    // Local sidereal angle, not reduced.
    double theta = Radianti((TempoSiderale(day, tu, 1) - lon) * 15);
    double e = Radianti(Obliquita(day + tu / 24));
    double p;
    if (parallasse != 0 && parallasse != 8.794) {
        p = Radianti(parallasse);
    } else if (parallasse == 8.794) {
        p = GPSaRadianti(0, 0, 8.794); // the Sun: 8.794 seconds of arc
    } else {
        double x = Gradi(ArcoSeno(std::sin(Radianti(8.794)) / distanza));
        p = GPSaRadianti(0, 0, x);
    }
    // Geocentric latitude of the place; the Earth's radius there is taken as 1.
    double f = Radianti(lat - 0.193 * std::sin(Radianti(2 * lat)));
    double l = Radianti(lonCorpo);
    double b = latCorpo;
    double N = std::cos(l) * std::cos(b) - std::cos(f) * std::sin(p) * std::cos(theta);
    double n =
        std::sin(l) * std::cos(b) -
        std::sin(p) * (std::cos(e) * std::cos(f) * std::sin(theta) + std::sin(e) * std::sin(f));
    double l2 = QuadranteAtn(Segno(n), Segno(N), std::atan(n / N));
    double b2 =
        std::atan(std::cos(l2) *
                  (std::sin(b) - std::sin(p) * (std::cos(e) * std::sin(f) -
                                                std::sin(e) * std::cos(f) * std::sin(theta))) /
                  N);
    lonTopo = Norma360(l2, 0);
    latTopo = b2;
}

} // namespace vesmo
