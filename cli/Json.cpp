#include "cli/Json.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Testo.h"

namespace vesmo::cli {

std::string JsonTesto(std::string_view testo) {
    // JSON is UTF-8: a byte that is not part of a valid sequence becomes U+FFFD.
    const std::string s = RiparaUtf8(testo);
    std::string r = "\"";
    for (char c : s) {
        switch (c) {
        case '"':
            r += "\\\"";
            break;
        case '\\':
            r += "\\\\";
            break;
        case '\n':
            r += "\\n";
            break;
        case '\r':
            r += "\\r";
            break;
        case '\t':
            r += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\u%04x", c);
                r += buf;
            } else {
                r.push_back(c);
            }
        }
    }
    return r + "\"";
}

std::string JsonNumero(double v) {
    if (!std::isfinite(v)) return "null";
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    // Whole numbers are written whole; others with the shortest text that reads back the same
    // value, without an exponent where the plain form is short.
    if (v == std::floor(v) && std::fabs(v) < 1e15) {
        std::snprintf(buf, sizeof buf, "%.0f", v);
        return buf;
    }
    for (int p = 1; p <= 17; ++p) {
        char prova[40];
        std::snprintf(prova, sizeof prova, "%.*g", p, v);
        if (std::strtod(prova, nullptr) == v) return prova;
    }
    return buf;
}

JsonOggetto& JsonOggetto::Campo(std::string_view nome, const std::string& valoreJson) {
    if (!corpo_.empty()) corpo_ += ", ";
    corpo_ += JsonTesto(nome) + ": " + valoreJson;
    return *this;
}

JsonLista& JsonLista::Valore(const std::string& valoreJson) {
    if (!corpo_.empty()) corpo_ += ", ";
    corpo_ += valoreJson;
    return *this;
}

} // namespace vesmo::cli
