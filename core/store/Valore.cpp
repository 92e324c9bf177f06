#include "core/store/Valore.h"

#include "core/Testo.h"

#include <cmath>
#include <cstdlib>

namespace vesmo {

ErroreDB::ErroreDB(int numero, const std::string& testo)
    : std::runtime_error(std::to_string(numero) + ": " + testo), numero_(numero) {}

std::string Valore::Testo() const {
    switch (v_.index()) {
    case 1:
        return std::to_string(std::get<1>(v_));
    case 2:
        return TestoNumero(std::get<2>(v_));
    case 3:
        return std::get<3>(v_);
    default:
        return {};
    }
}

double Valore::Numero() const {
    switch (v_.index()) {
    case 1:
        return static_cast<double>(std::get<1>(v_));
    case 2:
        return std::get<2>(v_);
    case 3: {
        std::string t = std::get<3>(v_);
        for (char& c : t)
            if (c == ',') c = '.';
        const char* p = t.c_str();
        while (*p == ' ' || *p == '\t')
            ++p;
        if (*p == 'i' || *p == 'I' || *p == 'n' || *p == 'N') return 0; // no inf/nan words
        char* fine = nullptr;
        double x = std::strtod(p, &fine);
        return fine == p ? 0 : x;
    }
    default:
        return 0;
    }
}

std::int64_t Valore::Intero() const {
    if (v_.index() == 1) return std::get<1>(v_);
    return static_cast<std::int64_t>(std::nearbyint(Numero()));
}

} // namespace vesmo
