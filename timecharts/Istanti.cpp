#include "timecharts/Istanti.h"

#include <cmath>
#include <cstdlib>

#include "core/Aritmetica.h"

namespace vesmo {

void ScriviMarca(TestoFisso<30>& nome, int posizione, std::string_view marca) {
    if (posizione < 1) return;
    std::string s = nome.str();
    auto inizio = static_cast<std::size_t>(posizione - 1);
    if (inizio >= s.size()) return;
    s.replace(inizio, std::min(marca.size(), s.size() - inizio),
              marca.substr(0, s.size() - inizio));
    nome = s;
}

double GiornoZero(double jd) {
    float anno, mese, giorno;
    DataDaGiuliano(jd, anno, mese, giorno);
    return GiornoGiuliano(anno, mese, Fix(giorno));
}

void ImpostaIstante(Tema& tema, double jd) {
    tema.Day = GiornoZero(jd);
    double tu = (jd - tema.Day) * 24;
    tema.OraL = tema.Estiva + tu - tema.Fuso;
}

std::optional<double> NumeroConVirgola(std::string_view testo) {
    std::string t(testo);
    auto primo = t.find_first_not_of(' ');
    if (primo == std::string::npos) return std::nullopt;
    t = t.substr(primo, t.find_last_not_of(' ') - primo + 1);
    for (char& c : t)
        if (c == ',') c = '.';
    if (t.find_first_not_of("+-.0123456789eE") != std::string::npos) return std::nullopt;
    char* fine = nullptr;
    double v = std::strtod(t.c_str(), &fine);
    if (fine != t.c_str() + t.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

double Scostamento(double a, double b) {
    double d = std::remainder(a - b, 360.0);
    return d == -180.0 ? 180.0 : d;
}

std::optional<double> Secante(const std::function<double(double)>& f, double x, double fx,
                              double x0, double f0, const RegolaSecante& regola, Messaggi& messaggi,
                              const Avanzamento& avanzamento, const char* controllo) {
    for (int n = 0;; ++n) {
        if (fx == f0) {
            // Two points with the same value: the root when that value is 0, else nowhere.
            if (fx == 0) return x;
            messaggi.Mostra(regola.titoloDivisione, "Divisione per zero.\r\n", Pulsanti::Ok,
                            Icona::Critico);
            return std::nullopt;
        }
        double x2 = x - (x - x0) * fx / (fx - f0);
        if (avanzamento && controllo) avanzamento(controllo, x2);
        if (x2 == x) return x;
        if (n >= regola.giriVicinanza && std::fabs(x2 - x) <= regola.vicinanza) return x;
        if (regola.giriMassimi > 0 && n + 1 >= regola.giriMassimi) {
            messaggi.Mostra(regola.titoloLoop, regola.testoLoop, Pulsanti::Ok, Icona::Critico);
            return std::nullopt;
        }
        x0 = x;
        f0 = fx;
        x = x2;
        fx = f(x);
    }
}

} // namespace vesmo
