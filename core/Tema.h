// The chart record: a Tema (birth data) and its Posizioni (everything derived from it).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/Testo.h"

namespace vesmo {

// A fixed-width text: always exactly N characters, blank padded at the right, a longer value
// cut at the width.
template <std::size_t N> class TestoFisso {
public:
    TestoFisso() : testo_(N, ' ') {}
    TestoFisso(std::string_view s) : testo_(TagliaOAllunga(s, N)) {}
    TestoFisso& operator=(std::string_view s) {
        testo_ = TagliaOAllunga(s, N);
        return *this;
    }
    TestoFisso& operator=(const char* s) { return *this = std::string_view(s); }
    TestoFisso& operator=(const std::string& s) { return *this = std::string_view(s); }

    // The whole field, padding included.
    const std::string& str() const { return testo_; }
    // The field without the padding on the right.
    std::string Valore() const { return SenzaSpaziDestra(testo_); }
    static constexpr std::size_t Larghezza = N;

    bool operator==(const TestoFisso&) const = default;

private:
    std::string testo_;
};

// A number or a literal text ("NonDefinita", "Indefinita"), as held by AR and AOb.
class Variante {
public:
    Variante() = default;
    Variante(double v) : numero_(v) {}
    Variante(const char* t) : testo_(t), eTesto_(true) {}
    Variante(std::string t) : testo_(std::move(t)), eTesto_(true) {}

    bool ETesto() const { return eTesto_; }
    // The number; a text reads as 0.
    double Numero() const { return eTesto_ ? 0.0 : numero_; }
    const std::string& Testo() const { return testo_; }

    bool operator==(const Variante&) const = default;

private:
    double numero_ = 0.0;
    std::string testo_;
    bool eTesto_ = false;
};

inline constexpr const char* NonDefinita = "NonDefinita";
inline constexpr const char* Indefinita = "Indefinita";

struct Tema {
    std::int32_t cNaz = 0;
    TestoFisso<30> Nome;
    TestoFisso<38> Stato;
    TestoFisso<30> City;
    double Day = 0;  // Julian day of the civil date at 0h (n + 0.5)
    double OraL = 0; // clock time at the place, decimal hours
    double Lon = 0;  // hours, west positive
    double Lat = 0;  // degrees, north positive
    TestoFisso<7> ZonaSF;
    double Fuso = 0;   // hours, west positive: Greenwich minus standard time
    double Estiva = 0; // summer-time shift, hours
    std::int32_t cFusi = 0;
    std::int32_t cEst = 0;
    std::string Cmto;

    // Greenwich time in hours (may lie outside 0..24) and the chart instant.
    double TU() const { return OraL - Estiva + Fuso; }
    double JD() const { return Day + TU() / 24.0; }

    bool operator==(const Tema&) const = default;
};

struct Posizione {
    double Lo = 0;       // ecliptic longitude, degrees
    double LaEc = 0;     // ecliptic latitude, degrees
    Variante AR;         // right ascension, hours, or "NonDefinita"
    double De = 0;       // declination, radians
    Variante AOb;        // oblique ascension, hours, or "Indefinita"
    double LNd = 0;      // longitude of the planet's ascending node, degrees
    std::int16_t Mv = 0; // -1 retrograde, 0 direct
    std::int16_t Ca = 0; // house 1..12

    bool operator==(const Posizione&) const = default;
};

struct Posizioni {
    Posizione Sole, Luna, Mercurio, Venere, Marte, Giove, Saturno, Urano, Nettuno, Plutone,
        NodoLuna;
    std::int16_t CaseNonDefinite = 0;
    Posizione Asce, CasaII, CasaIII, MC, CasaXI, CasaXII, LilithMedia, LilithVera;

    bool operator==(const Posizioni&) const = default;
};

// The twelve cusps, indices 1 to 12 (element 0 unused).
struct Case {
    std::array<Posizione, 13> c{};
    Posizione& operator[](int i) { return c[static_cast<std::size_t>(i)]; }
    const Posizione& operator[](int i) const { return c[static_cast<std::size_t>(i)]; }
    bool operator==(const Case&) const = default;
};

// Numbers of the bodies inside the calculation.
enum NumeroCorpo : int {
    TuttiCorpi = 0,
    NumMercurio = 1,
    NumVenere = 2,
    NumTerra = 3,
    NumMarte = 4,
    NumGiove = 5,
    NumSaturno = 6,
    NumUrano = 7,
    NumNettuno = 8,
    NumPlutone = 9,
    NumNodoLuna = 10
};

// The 13 bodies and points in the order of wheels and tables, with their record names.
struct VoceCorpo {
    const char* nome;
    Posizione Posizioni::*campo;
};
inline constexpr std::array<VoceCorpo, 11> CorpiInOrdine{{
    {"Sole", &Posizioni::Sole},
    {"Luna", &Posizioni::Luna},
    {"Mercurio", &Posizioni::Mercurio},
    {"Venere", &Posizioni::Venere},
    {"Marte", &Posizioni::Marte},
    {"Giove", &Posizioni::Giove},
    {"Saturno", &Posizioni::Saturno},
    {"Urano", &Posizioni::Urano},
    {"Nettuno", &Posizioni::Nettuno},
    {"Plutone", &Posizioni::Plutone},
    {"NodoLuna", &Posizioni::NodoLuna},
}};

} // namespace vesmo
