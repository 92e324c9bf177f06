#include "places/Province.h"

#include "core/Testo.h"

namespace vesmo {

namespace {

struct Marca {
    const char* segno;
    const char* testo;
};

constexpr Marca MarcheCanada[] = {
    {"BC", "(BC) = British Columbia "},
    {"PQ", "(PQ) = Quebec "},
    {"NS", "(NS) = Nova Scotia "},
    {"ON", "(ON) = Ontario "},
    {"NT", "(NT) = Northwest Territory "},
    {"PE", "(PE) = Prince Edward Island "},
    {"AB", "(AB) = Alberta "},
    {"SK", "(SK) = Saskatchewan "},
    {"MB", "(MB) = Manitoba "},
    {"NB", "(NB) = New Brunswick "},
    {"NF", "(NF) = TerraNova - Newfoundland "},
    {"YK", "(YK) = Yukon "},
    {"(L)", "(L) = Labrador "},
};

constexpr Marca MarcheAustralia[] = {
    {"(CT)", "(CT) = Capital Territory "},
    {"(CI)", "(CI) = Christmas Island "},
    {"(NS)", "(NS) = New South Wales "},
    {"(NT)", "(NT) = Northern Territory "},
    {"(Q)", "(Q) = Queensland "},
    {"(S)", "(S) = South "},
    {"(T)", "(T) = Tasmania "},
    {"(V)", "(V) = Victoria "},
    {"(W)", "(W) = Western "},
};

} // namespace

std::string TestoProvincia(std::string_view nazione, std::string_view city) {
    std::string testo;
    if (CercaSenzaCaso(nazione, "Canada") != std::string_view::npos) {
        for (const Marca& m : MarcheCanada)
            if (city.find(m.segno) != std::string_view::npos) {
                testo = m.testo;
                break;
            }
    }
    if (CercaSenzaCaso(nazione, "Australia") != std::string_view::npos) {
        for (const Marca& m : MarcheAustralia) {
            const bool senzaCaso = std::string_view(m.segno) == "(NT)";
            const bool trovata = senzaCaso ? CercaSenzaCaso(city, m.segno) != std::string_view::npos
                                           : city.find(m.segno) != std::string_view::npos;
            if (trovata) {
                testo = m.testo;
                break;
            }
        }
    }
    return testo;
}

} // namespace vesmo
