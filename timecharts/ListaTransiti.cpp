#include "timecharts/ListaTransiti.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "chart/Aspetti.h"
#include "core/Testo.h"

namespace vesmo {

const std::vector<std::string> TesteColonneTransiti{
    "Data", "Ora", "Pianeta", "Aspetto", "Punto natale", "Ingresso", "Uscita"};

namespace {

std::string Taglia(const std::string& s) {
    const auto a = s.find_first_not_of(' ');
    if (a == std::string::npos) return "";
    return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

std::string DataOra(OrologioLuogo& orologio, double jd) {
    if (!std::isfinite(jd)) return "";
    const MomentoLocale m = orologio.Locale(jd);
    return m.Data() + " " + m.Ora().substr(0, 5);
}

std::string NumeroCsv(double jd) {
    if (!std::isfinite(jd)) return "";
    char s[32];
    std::snprintf(s, sizeof s, "%.6f", jd);
    return s;
}

} // namespace

std::vector<RigaTransito> RigheTransiti(const std::vector<Transito>& transiti,
                                        const RichiestaTransiti& richiesta,
                                        OrologioLuogo& orologio) {
    std::vector<RigaTransito> righe;
    righe.reserve(transiti.size());
    for (const Transito& t : transiti) {
        RigaTransito r;
        r.jd = t.jd;
        r.quando = orologio.Locale(t.jd);
        r.pianeta = NomiCorpiTransito[static_cast<std::size_t>(t.corpo)];
        r.retrogrado = t.retrogrado;
        r.aspetto = Taglia(NomiAspetti[static_cast<std::size_t>(t.aspetto)]);
        r.punto = richiesta.punti[static_cast<std::size_t>(t.punto)].nome;
        r.jdIngresso = t.jdIngresso;
        r.jdUscita = t.jdUscita;
        r.ingresso = DataOra(orologio, t.jdIngresso);
        r.uscita = DataOra(orologio, t.jdUscita);
        righe.push_back(std::move(r));
    }
    return righe;
}

std::vector<std::string> CelleTransito(const RigaTransito& r) {
    return {r.quando.Data(),
            r.quando.Ora(),
            r.pianeta + (r.retrogrado ? " R" : ""),
            r.aspetto,
            r.punto,
            r.ingresso.empty() ? "-" : r.ingresso,
            r.uscita.empty() ? "-" : r.uscita};
}

std::string TestoTransiti(const std::vector<RigaTransito>& righe) {
    std::vector<std::vector<std::string>> tabella{TesteColonneTransiti};
    for (const auto& r : righe)
        tabella.push_back(CelleTransito(r));
    std::vector<std::size_t> larghezze(TesteColonneTransiti.size(), 0);
    for (const auto& riga : tabella)
        for (std::size_t i = 0; i < riga.size(); ++i)
            larghezze[i] = std::max(larghezze[i], riga[i].size());
    std::string testo;
    for (const auto& riga : tabella) {
        std::string linea;
        for (std::size_t i = 0; i < riga.size(); ++i)
            linea += riga[i] + std::string(larghezze[i] - riga[i].size() + 2, ' ');
        testo += SenzaSpaziDestra(linea) + "\n";
    }
    return testo;
}

std::string CsvTransiti(const std::vector<RigaTransito>& righe) {
    auto campo = [](const std::string& s) {
        if (s.find_first_of(";\"\r\n") == std::string::npos) return s;
        std::string q = "\"";
        for (char c : s)
            q += c == '"' ? std::string("\"\"") : std::string(1, c);
        return q + "\"";
    };
    std::string testo;
    std::vector<std::string> teste = TesteColonneTransiti;
    teste.insert(teste.end(), {"JD", "JDIngresso", "JDUscita"});
    for (std::size_t i = 0; i < teste.size(); ++i)
        testo += (i ? ";" : "") + teste[i];
    testo += "\r\n";
    for (const auto& r : righe) {
        auto celle = CelleTransito(r);
        celle.push_back(NumeroCsv(r.jd));
        celle.push_back(NumeroCsv(r.jdIngresso));
        celle.push_back(NumeroCsv(r.jdUscita));
        for (std::size_t i = 0; i < celle.size(); ++i)
            testo += (i ? ";" : "") + campo(celle[i]);
        testo += "\r\n";
    }
    return testo;
}

} // namespace vesmo
