#include "core/Testo.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace vesmo {

namespace {

// The length of the valid UTF-8 sequence at the start of `s`, or 0.
std::size_t SequenzaUtf8(std::string_view s) {
    const auto c = static_cast<unsigned char>(s[0]);
    std::size_t n;
    char32_t u;
    if (c < 0x80) return 1;
    if (c >= 0xC2 && c <= 0xDF)
        n = 1, u = c & 0x1F;
    else if (c >= 0xE0 && c <= 0xEF)
        n = 2, u = c & 0x0F;
    else if (c >= 0xF0 && c <= 0xF4)
        n = 3, u = c & 0x07;
    else
        return 0;
    if (n >= s.size()) return 0;
    for (std::size_t k = 1; k <= n; ++k) {
        const auto d = static_cast<unsigned char>(s[k]);
        if ((d & 0xC0) != 0x80) return 0;
        u = (u << 6) | (d & 0x3F);
    }
    if ((n == 2 && u < 0x800) || (n == 3 && (u < 0x10000 || u > 0x10FFFF)) ||
        (u >= 0xD800 && u <= 0xDFFF))
        return 0;
    return n + 1;
}

} // namespace

bool TestoUtf8Valido(std::string_view s) {
    for (std::size_t i = 0; i < s.size();) {
        const std::size_t n = SequenzaUtf8(s.substr(i));
        if (n == 0) return false;
        i += n;
    }
    return true;
}

std::string RiparaUtf8(std::string_view s) {
    std::string r;
    r.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) {
        const std::size_t n = SequenzaUtf8(s.substr(i));
        if (n == 0) {
            r += "\xEF\xBF\xBD";
            ++i;
        } else {
            r.append(s.substr(i, n));
            i += n;
        }
    }
    return r;
}

namespace {

bool InizioCarattere(unsigned char c) {
    return (c & 0xC0) != 0x80;
}

char Minuscola(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::size_t LunghezzaCaratteri(std::string_view utf8) {
    std::size_t n = 0;
    for (unsigned char c : utf8)
        if (InizioCarattere(c)) ++n;
    return n;
}

std::string PrimiCaratteri(std::string_view utf8, std::size_t n) {
    std::size_t contati = 0;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (InizioCarattere(static_cast<unsigned char>(utf8[i]))) {
            if (contati == n) return std::string(utf8.substr(0, i));
            ++contati;
        }
    }
    return std::string(utf8);
}

std::string TagliaOAllunga(std::string_view utf8, std::size_t n) {
    std::string r = PrimiCaratteri(utf8, n);
    std::size_t len = LunghezzaCaratteri(r);
    if (len < n) r.append(n - len, ' ');
    return r;
}

std::string SenzaSpazi(std::string_view s) {
    std::size_t a = s.find_first_not_of(' ');
    if (a == std::string_view::npos) return {};
    std::size_t b = s.find_last_not_of(' ');
    return std::string(s.substr(a, b - a + 1));
}

std::string SenzaSpaziDestra(std::string_view s) {
    std::size_t b = s.find_last_not_of(' ');
    if (b == std::string_view::npos) return {};
    return std::string(s.substr(0, b + 1));
}

std::string DaLatin1(std::string_view latin1) {
    std::string r;
    r.reserve(latin1.size());
    for (unsigned char c : latin1) {
        if (c < 0x80) {
            r.push_back(static_cast<char>(c));
        } else {
            r.push_back(static_cast<char>(0xC0 | (c >> 6)));
            r.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        }
    }
    return r;
}

std::string ALatin1(std::string_view utf8) {
    std::string r;
    r.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        unsigned char c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x80) {
            r.push_back(static_cast<char>(c));
            ++i;
            continue;
        }
        int lunghezza = (c >= 0xF0) ? 4 : (c >= 0xE0) ? 3 : (c >= 0xC0) ? 2 : 1;
        unsigned codice = 0;
        if (lunghezza == 2 && i + 1 < utf8.size())
            codice = ((c & 0x1Fu) << 6) | (static_cast<unsigned char>(utf8[i + 1]) & 0x3Fu);
        else
            codice = 0x100; // not representable
        r.push_back(codice <= 0xFF ? static_cast<char>(codice) : '?');
        i += static_cast<std::size_t>(lunghezza);
    }
    return r;
}

std::size_t CercaSenzaCaso(std::string_view pagliaio, std::string_view ago) {
    if (ago.empty()) return 0;
    if (ago.size() > pagliaio.size()) return std::string_view::npos;
    for (std::size_t i = 0; i + ago.size() <= pagliaio.size(); ++i) {
        std::size_t j = 0;
        while (j < ago.size() && Minuscola(pagliaio[i + j]) == Minuscola(ago[j]))
            ++j;
        if (j == ago.size()) return i;
    }
    return std::string_view::npos;
}

bool UgualeSenzaCaso(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CercaSenzaCaso(a, b) == 0;
}

std::string TestoSingolo(float x) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.7g", static_cast<double>(x));
    std::string t = buf;
    for (char& c : t)
        if (c == '.') c = SeparatoreDecimale;
    return t;
}

std::string TestoNumero(double x, char separatore) {
    if (x == 0) return "0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15g", x);
    std::string s = buf;
    // %g may choose an exponent; the plain conversion writes small and large values in full
    // only within 15 digits, as here, so the exponent form is kept for the rest.
    for (char& c : s)
        if (c == '.') c = separatore;
    return s;
}

std::string FormatoNumero(double x, std::string_view figura, char decimale, char migliaia) {
    // Split the picture into its number part (the first run of placeholders) and the literal
    // text before and after it.
    std::size_t inizio = figura.find_first_of("#0.,");
    if (inizio == std::string_view::npos) return std::string(figura);
    std::size_t fine = inizio;
    while (fine < figura.size() &&
           std::string_view("#0.,").find(figura[fine]) != std::string_view::npos)
        ++fine;
    std::string_view prima = figura.substr(0, inizio);
    std::string_view numero = figura.substr(inizio, fine - inizio);
    std::string_view dopo = figura.substr(fine);

    std::size_t punto = numero.find('.');
    std::string_view intera = numero.substr(0, punto);
    std::string_view frazione =
        punto == std::string_view::npos ? std::string_view{} : numero.substr(punto + 1);
    bool raggruppa = intera.find(',') != std::string_view::npos;
    int zeriInteri = 0;
    for (char c : intera)
        if (c == '0') ++zeriInteri;
    int cifreFrazione = 0, zeriFrazione = 0;
    for (char c : frazione) {
        if (c == '0' || c == '#') ++cifreFrazione;
        if (c == '0') zeriFrazione = cifreFrazione;
    }

    bool negativo = std::signbit(x) && x != 0;
    // Halves round away from zero, as the platform's formatter does.
    double a = std::fabs(x);
    double scala = std::pow(10.0, cifreFrazione);
    if (a * scala < 1e15) a = std::round(a * scala) / scala;
    char buf[512];
    std::snprintf(buf, sizeof buf, "%.*f", cifreFrazione, a);
    std::string s = buf;
    std::size_t p = s.find('.');
    std::string parteIntera = p == std::string::npos ? s : s.substr(0, p);
    std::string parteFraz = p == std::string::npos ? std::string{} : s.substr(p + 1);
    // Optional decimals are dropped from the right while they are zeros.
    while (static_cast<int>(parteFraz.size()) > zeriFrazione && !parteFraz.empty() &&
           parteFraz.back() == '0')
        parteFraz.pop_back();
    if (parteIntera == "0" && zeriInteri == 0) parteIntera.clear();
    while (static_cast<int>(parteIntera.size()) < zeriInteri)
        parteIntera.insert(0, "0");
    if (raggruppa && parteIntera.size() > 3) {
        std::string g;
        int conta = 0;
        for (std::size_t i = parteIntera.size(); i-- > 0;) {
            g.insert(g.begin(), parteIntera[i]);
            if (++conta % 3 == 0 && i > 0) g.insert(g.begin(), migliaia);
        }
        parteIntera = g;
    }
    std::string r(prima);
    bool tuttoZero = parteIntera.find_first_not_of('0') == std::string::npos &&
                     parteFraz.find_first_not_of('0') == std::string::npos;
    if (negativo && !tuttoZero) r.push_back('-');
    r += parteIntera;
    if (!parteFraz.empty()) {
        r.push_back(decimale);
        r += parteFraz;
    } else if (parteIntera.empty()) {
        r.push_back('0');
    }
    r += dopo;
    return r;
}

std::size_t LeggiNumero(std::string_view s, double& valore) {
    std::size_t i = 0;
    std::string numero;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) numero += s[i++];
    bool cifre = false, separatore = false;
    std::size_t fine = 0;
    for (; i < s.size(); ++i) {
        const char c = s[i];
        if (c >= '0' && c <= '9') {
            numero += c;
            cifre = true;
            fine = i + 1;
        } else if ((c == ',' || c == '.') && !separatore) {
            numero += '.';
            separatore = true;
            if (cifre) fine = i + 1;
        } else {
            break;
        }
    }
    if (!cifre) return 0;
    valore = std::strtod(numero.c_str(), nullptr);
    return fine;
}

double ValoreTesto(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t'))
        ++i;
    double v = 0;
    return LeggiNumero(s.substr(i), v) > 0 ? v : 0;
}

namespace {

// The capital of one code point of Latin-1 and Latin Extended-A, or the code point itself.
char32_t Maiuscola(char32_t c) {
    if (c >= U'a' && c <= U'z') return c - 0x20;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 0x20;
    if (c == 0xFF) return 0x178;
    if (c == 0x131) return U'I'; // dotless i
    if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return c & ~char32_t{1};
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c % 2 == 0 ? c - 1 : c;
    return c;
}

void ScriviUtf8(std::string& s, char32_t c) {
    if (c < 0x80) {
        s += static_cast<char>(c);
    } else if (c < 0x800) {
        s += static_cast<char>(0xC0 | (c >> 6));
        s += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        s += static_cast<char>(0xE0 | (c >> 12));
        s += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (c & 0x3F));
    }
}

} // namespace

std::string Maiuscole(std::string_view s) {
    std::string r;
    r.reserve(s.size());
    for (std::size_t i = 0; i < s.size(); ++i) {
        const auto b = static_cast<unsigned char>(s[i]);
        // Two-byte sequences hold every letter changed here; the rest is copied byte by byte.
        if ((b & 0xE0) == 0xC0 && i + 1 < s.size() &&
            (static_cast<unsigned char>(s[i + 1]) & 0xC0) == 0x80) {
            const char32_t c =
                (char32_t{b & 0x1Fu} << 6) | (static_cast<unsigned char>(s[i + 1]) & 0x3Fu);
            ScriviUtf8(r, Maiuscola(c));
            ++i;
        } else {
            r += b < 0x80 ? static_cast<char>(Maiuscola(b)) : s[i];
        }
    }
    return r;
}

} // namespace vesmo
