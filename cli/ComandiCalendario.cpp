// vesmo-cli jd and vesmo-cli data: Julian days and calendar dates.
#include <cmath>
#include <cstdio>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "core/Aritmetica.h"

namespace vesmo::cli {

namespace {

std::string TestoData(int g, int m, long a) {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04ld", g, m, a);
    return buf;
}

std::string TestoOra(long secondiDelGiorno) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02ld:%02ld:%02ld", secondiDelGiorno / 3600,
                  (secondiDelGiorno / 60) % 60, secondiDelGiorno % 60);
    return buf;
}

std::string TestoJd(double jd) {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.6f", jd);
    return buf;
}

} // namespace

int ComandoJd(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"json"});
    const auto& p = a.Posizionali();
    if (p.empty() || p.size() > 2)
        throw ErroreArgomenti("uso: vesmo-cli jd GG/MM/AAAA [HH:MM[:SS]] [--json]");
    Data d = LeggiData(p[0]);
    Ora o{0, 0, 0};
    if (p.size() == 2) o = LeggiOra(p[1]);
    // The time joins the day as a fraction of the day.
    double frazione = GradiDecimali(o.ore, o.minuti, o.secondi) / 24;
    double jd = GiornoGiuliano(d.anno, d.mese, d.giorno + frazione);
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Testo("Data", TestoData(d.giorno, d.mese, d.anno));
        char ora[32];
        std::snprintf(ora, sizeof ora, "%02d:%02d:%02.0f", o.ore, o.minuti, std::floor(o.secondi));
        j.Testo("Ora", ora).Numero("JD", jd);
        out << j.str() << '\n';
    } else {
        out << TestoJd(jd) << '\n';
    }
    return 0;
}

int ComandoData(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"json"});
    const auto& p = a.Posizionali();
    if (p.size() != 1) throw ErroreArgomenti("uso: vesmo-cli data JD [--json]");
    double jd = LeggiGiornoGiuliano(p[0], "giorno giuliano");
    // The instant is taken to the nearest second before the date is split, so that the single
    // precision of the day does not show as 11:59:59 for noon.
    double secondi = std::floor((jd + 0.5) * 86400.0 + 0.5);
    double jdSecondo = secondi / 86400.0 - 0.5;
    // The last instant of 31 December 9999 does not round into the year 10000.
    if (jdSecondo >= JdMassimo)
        throw ErroreArgomenti("giorno giuliano fuori dall'intervallo 0-5373484.5: " + p[0]);
    float anno, mese, giorno;
    DataDaGiuliano(jdSecondo, anno, mese, giorno);
    double g = std::floor(static_cast<double>(giorno));
    double giornoSecondi = std::fmod(secondi, 86400.0);
    if (giornoSecondi < 0) giornoSecondi += 86400.0;
    std::string data =
        TestoData(static_cast<int>(g), static_cast<int>(mese), static_cast<long>(anno));
    std::string ora = TestoOra(static_cast<long>(giornoSecondi));
    if (a.Flag("json")) {
        JsonOggetto j;
        j.Numero("JD", jd)
            .Testo("Data", data)
            .Testo("Ora", ora)
            .Numero("Anno", anno)
            .Numero("Mese", mese)
            .Numero("Giorno", giorno);
        out << j.str() << '\n';
    } else {
        out << data << ' ' << ora << '\n';
    }
    return 0;
}

} // namespace vesmo::cli
