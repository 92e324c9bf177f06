#include "core/Aritmetica.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Testo.h"

namespace vesmo {

thread_local std::int16_t PlacidoNonDefinito = 0;

const char* const NomiSegni[12] = {"Ariete", "Toro",  "Gemell", "Cancro", "Leone", "Vergin",
                                   "Bilan",  "Scorp", "Sagit",  "Capri",  "Acqua", "Pesci"};

double Fix(double x) {
    return std::trunc(x);
}
double Int(double x) {
    return std::floor(x);
}
int Segno(double x) {
    return x > 0 ? 1 : (x < 0 ? -1 : 0);
}

double GiornoGiuliano(double anno, double mese, double giorno) {
    double y, m;
    if (mese > 2) {
        y = anno;
        m = mese;
    } else {
        y = anno - 1;
        m = mese + 12;
    }
    // The Gregorian correction is read from the date as given, not from y and m.
    double b = 0;
    bool giuliano =
        anno < 1582 || (anno == 1582 && mese < 10) || (anno == 1582 && mese == 10 && giorno < 15);
    if (!giuliano) {
        double a = Int(y / 100);
        b = Int(a / 4) + 2 - a;
    }
    // The month factor is 30.6 here, 30.6001 in the inverse.
    return Int((y + 4716) * 365.25) + Int((m + 1) * 30.6) + giorno + b - 1524.5;
}

void DataDaGiuliano(double jd, float& anno, float& mese, float& giorno) {
    double j = jd + 0.5;
    double z = Fix(j);
    double f = j - z;
    double a;
    if (z >= 2299160.5) {
        double alfa = Fix((z - 1867216.25) / 36524.25);
        a = z + 1 + alfa - Fix(alfa / 4);
    } else {
        a = z;
    }
    double b = a + 1524;
    double k = Fix((b - 122.1) / 365.25);
    double d = Fix(k * 365.25);
    double e = Fix((b - d) / 30.6001);
    giorno = static_cast<float>(b - d - Fix(e * 30.6001) + f);
    double m = e < 13.5 ? e - 1 : e - 13;
    mese = static_cast<float>(m);
    anno = static_cast<float>(m > 2.5 ? k - 4716 : k - 4715);
}

double SecoliGiuliani(double jd) {
    return (jd - 2415020.0) / 36525.0;
}

double Radianti(double gradi) {
    return gradi * PI / 180;
}
double Gradi(double radianti) {
    return radianti * 180 / PI;
}

double Norma360(double angolo, int flag) {
    if (angolo == 0 || angolo == 360.0) return 0;
    double x = flag == 0 ? Gradi(angolo) : angolo;
    double i = Fix(x);
    if (!(i >= -2147483648.0 && i <= 2147483647.0)) throw ErroreAritmetico("Overflow");
    double f = x - i;
    std::int32_t k = static_cast<std::int32_t>(i) % 360;
    if (k > 0) return f + k;
    if (k < 0) return f + k + 360;
    if (f > 0) return f;
    if (f < 0) return f + 360;
    return 0;
}

double GradiDecimali(double gradi, double primi, double secondi) {
    double v = std::fabs(gradi) + ((std::fabs(primi) * 60 + std::fabs(secondi)) * 25 / 9) / 10000;
    int s = gradi != 0 ? Segno(gradi) : primi != 0 ? Segno(primi) : Segno(secondi);
    return v * s;
}

void GradiPrimiSecondi(double x, double& gradi, double& primi, double& secondi) {
    int s = Segno(x);
    x = std::fabs(x);
    double d = Fix(x);
    double f = x - d;
    double m = Fix(f * 60);
    double sec = (f * 60 - m) * 60;
    if (sec >= 59.99999999999 && sec <= 60) {
        m += 1;
        sec = 0;
        if (m == 60) {
            d += 1;
            m = 0;
        }
    }
    if (d != 0) {
        gradi = d * s;
        primi = m;
        secondi = sec;
    } else {
        gradi = 0;
        primi = m * s;
        secondi = sec * s;
    }
}

void RadGradiPrimiSecondi(double x, double& gradi, double& primi, double& secondi) {
    const double basso = static_cast<double>(59.9999f);
    const double alto = static_cast<double>(60.0001f);
    int s = Segno(x);
    x = std::fabs(x);
    double d = Fix(Gradi(x));
    double m = Fix(Gradi(x - GPSaRadianti(d, 0, 0)) * 60);
    double sec = Gradi(x - GPSaRadianti(d, m, 0)) * 3600;
    if (sec >= basso && sec <= alto) {
        sec = 0;
        m += 1;
        if (m >= basso && m <= alto) {
            m = 0;
            d += 1;
        }
    }
    if (d != 0) {
        gradi = d * s;
        primi = m;
        secondi = sec;
    } else {
        gradi = 0;
        primi = m * s;
        secondi = sec * s;
    }
}

double GPSaRadianti(double gradi, double primi, double secondi) {
    double r = (std::fabs(gradi) * 3600 + primi * 60 + secondi) * PI / 648000;
    return gradi < 0 ? -r : r;
}

void ArrotondaGPS(double& gradi, double& primi, double& secondi) {
    // The sign of the triple stays with its first non-zero member; the rounding works on sizes.
    double sS = secondi < 0 ? -1 : 1;
    double a = std::fabs(secondi);
    double frazione = a - Fix(a);
    if (frazione < 0.01)
        a = Fix(a);
    else if (frazione > 0.99)
        a = Fix(a) + 1;
    secondi = a * sS;
    if (a >= 60) {
        secondi = 0;
        primi += primi < 0 ? -1 : 1;
    }
    if (std::fabs(primi) >= 60) {
        primi = 0;
        gradi += gradi < 0 ? -1 : 1;
    }
}

void SegnoGradi(double lon, std::string& segno, double& gradi, double& primi, double& secondi,
                double& decimali, int arrotonda) {
    segno.clear();
    gradi = primi = secondi = decimali = 0;
    double indice = Fix(lon / 30);
    if (indice >= 0 && indice <= 11) segno = NomiSegni[static_cast<int>(indice)];
    double d, m, s;
    GradiPrimiSecondi(lon, d, m, s);
    if (arrotonda == 1) {
        if (s > 30) m += 1;
        if (m == 60) {
            m = 0;
            d += 1;
            // A carry into a whole sign moves the name on: 29°59'45" shows as 0°00' of the next.
            if (std::fmod(d, 30) == 0 && indice >= 0 && indice <= 11)
                segno = NomiSegni[(static_cast<int>(indice) + 1) % 12];
        }
        s = 0;
    }
    gradi = std::fmod(d, 30);
    primi = m;
    secondi = s;
    decimali = (lon - Fix(lon)) + std::fmod(Fix(lon), 30);
}

double ArcoSeno(double x) {
    if (x < -1 || x > 1) return 0;
    if (x == 0) return 0;
    if (x == -1) return -PI / 2;
    if (x == 1) return PI / 2;
    return std::atan(x / std::sqrt(1 - x * x));
}

double ArcoCoseno(double x) {
    if (x < -1 || x > 1) {
        PlacidoNonDefinito = -1;
        return 0;
    }
    if (x == std::cos(0.0)) return 0;
    const double c90 = std::cos(PI / 2);
    if (x >= c90 - 1e-11 && x <= c90 + 1e-11) return PI / 2;
    if (x == std::cos(PI)) return PI;
    double r = std::atan(std::sqrt(1 - x * x) / x);
    return x < 0 ? r + PI : r;
}

double QuadranteAtn(int segnoNumeratore, int segnoDenominatore, double arcotangente) {
    if (segnoNumeratore == 0 || segnoDenominatore == 0) return 0;
    return segnoDenominatore < 0 ? arcotangente + PI : arcotangente;
}

void EclitticaEquatore(double l, double b, double e, double& ar, double& de) {
    double numeratore;
    if (b == 0) {
        numeratore = std::sin(l) * std::cos(e);
        de = ArcoSeno(std::sin(e) * std::sin(l));
    } else {
        numeratore = std::sin(l) * std::cos(e) - std::tan(b) * std::sin(e);
        de = ArcoSeno(std::sin(b) * std::cos(e) + std::cos(b) * std::sin(e) * std::sin(l));
    }
    double cl = std::cos(l);
    ar = Norma360(QuadranteAtn(Segno(numeratore), Segno(cl), std::atan(numeratore / cl)), 0);
}

double DistanzaAngolare(double l1, double b1, double l2, double b2) {
    double c = std::sin(b1) * std::sin(b2) + std::cos(b1) * std::cos(b2) * std::cos(l1 - l2);
    if (c < 0.999995) return ArcoCoseno(c);
    double dl = (l1 - l2) * std::cos(b1);
    double db = b1 - b2;
    return std::sqrt(dl * dl + db * db);
}

namespace {

std::string DueCifre(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02.0f", v);
    return buf;
}

std::string Intero(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.0f", v);
    return buf;
}

} // namespace

std::string TestoCoordinata(double valore, int tipoOre, int asse, bool conSecondi) {
    double v = tipoOre == 1 ? valore * 15 : valore;
    double d, m, s;
    GradiPrimiSecondi(std::fabs(v), d, m, s);
    double frazione = s - Fix(s);
    if (frazione < 0.001)
        s = Fix(s);
    else if (frazione > 0.999)
        s = Fix(s) + 1;
    if (s >= 60) {
        s = 0;
        m += 1;
    }
    if (m >= 60) {
        m = 0;
        d += 1;
    }
    const char* lettera = asse == 0 ? (v < 0 ? "E" : "W") : (v < 0 ? "S" : "N");
    std::string r = Intero(d) + lettera + DueCifre(m);
    if (conSecondi) r += " " + FormatoNumero(s, "#0.0");
    return r;
}

std::string TestoCoordSF(double lonOre, double latGradi) {
    auto parte = [](double v, const char* figuraGradi, const char* neg, const char* pos) {
        double d, m, s;
        GradiPrimiSecondi(std::fabs(v), d, m, s);
        if (s > 30) m += 1;
        return FormatoNumero(d, figuraGradi) + (v < 0 ? neg : pos) + FormatoNumero(m, "00");
    };
    return parte(lonOre * 15, "000", "E", "W") + " " + parte(latGradi, "00", "S", "N");
}

namespace {

// The numeric value of the leading digits of a text, as the platform's Val reads it: blanks are
// skipped, reading stops at the first character that is not part of a number.
double ValNumero(std::string_view t) {
    std::string cifre;
    bool punto = false;
    for (char c : t) {
        if (c == ' ') continue;
        if (c >= '0' && c <= '9') {
            cifre.push_back(c);
        } else if ((c == '.' || c == ',') && !punto) {
            punto = true;
            cifre.push_back('.');
        } else {
            break;
        }
    }
    if (cifre.empty() || cifre == ".") return 0;
    return std::strtod(cifre.c_str(), nullptr);
}

double CoordDaTesto(std::string_view testo, int correzione, char lNeg, char lPos) {
    std::size_t pos = std::string_view::npos;
    int segno = 1;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        char c = static_cast<char>(std::toupper(static_cast<unsigned char>(testo[i])));
        if (c == lNeg || c == lPos) {
            pos = i;
            segno = c == lNeg ? -1 : 1;
            break;
        }
    }
    if (pos == std::string_view::npos) return 0;
    double gradi = ValNumero(testo.substr(0, pos));
    std::string_view resto = testo.substr(pos + 1);
    double primi = ValNumero(resto.substr(0, std::min<std::size_t>(2, resto.size())));
    // The seconds follow the two digits of the minutes, after any mark (' or a blank).
    std::string_view dopo = resto.size() > 2 ? resto.substr(2) : std::string_view{};
    while (!dopo.empty() && !(dopo.front() >= '0' && dopo.front() <= '9'))
        dopo.remove_prefix(1);
    double secondi = ValNumero(dopo);
    if (correzione == -1)
        primi -= 1;
    else if (correzione == 1)
        primi += 1;
    return segno * GradiDecimali(gradi, primi, secondi);
}

} // namespace

double LonDaTesto(std::string_view testo, int correzione) {
    return CoordDaTesto(testo, correzione, 'E', 'W') / 15;
}

double LatDaTesto(std::string_view testo, int correzione) {
    return CoordDaTesto(testo, correzione, 'S', 'N');
}

double PolareX(double cx, double r, double a) {
    return cx + r * std::cos(a + PI);
}
double PolareY(double cy, double r, double a) {
    return cy - r * std::sin(a + PI);
}

double MedioArco(double a, double b, int k) {
    if (k <= 2) return b >= a ? (a + b) / 2 : (a + b + 360) / 2;
    return b >= a ? a + k : a + 360 + k;
}

} // namespace vesmo
