// Reading the worked examples of tests/data/ephemeris, and the angle difference of the tests.
#pragma once

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vesmo::test {

// name -> value of esempi_meeus.txt.
inline const std::map<std::string, double>& EsempiMeeus() {
    static const std::map<std::string, double> valori = [] {
        std::map<std::string, double> v;
        std::ifstream in(std::string(VESMO_DATI_TEST) + "/ephemeris/esempi_meeus.txt");
        if (!in) throw std::runtime_error("esempi_meeus.txt not found");
        std::string nome;
        double x;
        for (std::string linea; std::getline(in, linea);)
            if (!linea.empty() && linea[0] != '#' && std::istringstream(linea) >> nome >> x)
                v[nome] = x;
        return v;
    }();
    return valori;
}

inline double Esempio(const std::string& nome) {
    return EsempiMeeus().at(nome);
}

// The shorter way round the circle, in degrees, with its sign (a - b).
inline double Scarto(double a, double b) {
    return std::remainder(a - b, 360.0);
}

} // namespace vesmo::test
