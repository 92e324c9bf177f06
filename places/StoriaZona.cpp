#include "places/StoriaZona.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vesmo {

namespace {

std::int64_t Floor(std::int64_t a, std::int64_t b) {
    std::int64_t q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
    return q;
}

int Minuti(std::int32_t secondi) {
    return static_cast<int>(std::lround(secondi / 60.0));
}

struct Momento {
    int anno, mese, giorno, ora, minuto;
};

// A local time in seconds from 1970 as a date and a time to the minute.
Momento MomentoLocale(std::int64_t locale) {
    const std::int64_t minuti = Floor(locale + 30, 60);
    const std::int64_t giorni = Floor(minuti, 1440);
    const int delGiorno = static_cast<int>(minuti - giorni * 1440);
    std::int64_t a;
    int m, g;
    CivileDaGiorni(giorni, a, m, g);
    return {static_cast<int>(a), m, g, delGiorno / 60, delGiorno % 60};
}

// The midnight nearest to a local time, as a date.
Momento MezzanottePiuVicina(std::int64_t locale) {
    std::int64_t giorni = Floor(locale, 86400);
    if (locale - giorni * 86400 >= 43200) ++giorni;
    std::int64_t a;
    int m, g;
    CivileDaGiorni(giorni, a, m, g);
    return {static_cast<int>(a), m, g, 0, 0};
}

// Appends a row to a list, or, when it falls at the same time as the last row, lets it take that
// row's place; a row that repeats the value before it is dropped.
template <class Riga>
void Metti(std::vector<Riga>& righe, std::vector<int>& valori, const Riga& r, int valore,
           bool stessoMomento) {
    if (!stessoMomento) {
        righe.push_back(r);
        valori.push_back(valore);
        return;
    }
    righe.back() = r;
    valori.back() = valore;
    if (righe.size() > 1 && valori[valori.size() - 2] == valore) {
        righe.pop_back();
        valori.pop_back();
    }
}

} // namespace

std::vector<PeriodoDiviso> DividiPeriodi(const std::vector<Periodo>& periodi) {
    const std::size_t n = periodi.size();
    std::vector<PeriodoDiviso> d(n);
    std::vector<bool> rovescio(n, false);
    for (std::size_t i = 0; i < n; ++i) {
        const TipoOra& t = periodi[i].tipo;
        d[i].inizio = periodi[i].inizio;
        d[i].lmt = i == 0 && t.abbr == "LMT";
        d[i].standard = t.utoff;
        if (!t.isdst) continue;
        // The standard time before, else the one after.
        std::int32_t standard = t.utoff;
        bool trovato = false, vicino = false;
        for (std::size_t j = i; j-- > 0 && !trovato;)
            if (!periodi[j].tipo.isdst) {
                vicino = true;
                if (t.utoff > periodi[j].tipo.utoff) {
                    standard = periodi[j].tipo.utoff;
                    trovato = true;
                }
                break;
            }
        for (std::size_t j = i + 1; j < n && !trovato; ++j)
            if (!periodi[j].tipo.isdst) {
                vicino = true;
                if (t.utoff > periodi[j].tipo.utoff) {
                    standard = periodi[j].tipo.utoff;
                    trovato = true;
                }
                break;
            }
        if (!trovato && !vicino) {
            standard = t.utoff - 3600; // summer time for ever: one hour, as a rule
            trovato = true;
        }
        if (trovato) {
            d[i].standard = standard;
            d[i].estiva = t.utoff - standard;
        } else {
            rovescio[i] = true; // behind its standard time: it is the standard time
        }
    }
    // The neighbours of a reversed period are the summer time above it.
    for (std::size_t i = 0; i < n; ++i) {
        if (periodi[i].tipo.isdst) continue;
        const std::int32_t u = periodi[i].tipo.utoff;
        if (i > 0 && rovescio[i - 1] && periodi[i - 1].tipo.utoff < u) {
            d[i].standard = periodi[i - 1].tipo.utoff;
        } else if (i + 1 < n && rovescio[i + 1] && periodi[i + 1].tipo.utoff < u) {
            d[i].standard = periodi[i + 1].tipo.utoff;
        }
        d[i].estiva = u - d[i].standard;
    }
    return d;
}

void TestiFuso(int minutiOvest, std::string& fH_h, std::string& fH_m) {
    const int ore = minutiOvest / 60; // towards zero
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d", std::abs(minutiOvest) % 60);
    fH_m = buf;
    fH_h = (minutiOvest < 0 && ore == 0) ? "-" : std::to_string(ore);
}

StoriaZona StoriaDaPeriodi(const std::vector<Periodo>& periodi, std::int32_t codice) {
    StoriaZona s;
    const std::vector<PeriodoDiviso> p = DividiPeriodi(periodi);
    if (p.empty()) return s;

    // Where the lists begin, and the period in force there.
    std::size_t primo = 0;
    Momento inizio{};
    const std::int64_t utoff0 = p[0].standard + p[0].estiva;
    if (p[0].lmt && p.size() == 1) {
        inizio = {1900, 1, 1, 0, 0}; // local mean time for ever: the zone's own from 1900
    } else if (p[0].lmt) {
        primo = 1;
        inizio = MezzanottePiuVicina(p[1].inizio + p[1].standard + p[1].estiva);
    } else {
        // A zone without local mean time: from 1800 on.
        const std::int64_t t1800 = GiorniDaCivile(1800, 1, 1) * 86400 - utoff0;
        while (primo + 1 < p.size() && p[primo + 1].inizio <= t1800)
            ++primo;
        inizio = {1800, 1, 1, 0, 0};
    }

    auto rigaFusi = [codice](const Momento& m, std::int32_t standard) {
        RigaFusi r;
        r.cFusi = codice;
        r.Anno = m.anno;
        r.Mese = m.mese;
        r.Day = m.giorno;
        TestiFuso(-Minuti(standard), r.fH_h, r.fH_m);
        return r;
    };
    auto rigaEstive = [codice](const Momento& m, std::int32_t estiva) {
        RigaEstive r;
        r.cEst = codice;
        r.Anno = m.anno;
        r.Mese = m.mese;
        r.Day = m.giorno;
        r.h = m.ora;
        r.min = m.minuto;
        const int minuti = Minuti(estiva);
        r.HE_h = minuti / 60;
        r.HE_m = minuti % 60;
        return r;
    };
    auto stessoGiorno = [](const auto& a, const auto& b) {
        return a.Anno == b.Anno && a.Mese == b.Mese && a.Day == b.Day;
    };

    s.fusi.push_back(rigaFusi(inizio, p[primo].standard));
    s.estive.push_back(rigaEstive(inizio, p[primo].estiva));
    std::vector<int> valoriFusi{Minuti(p[primo].standard)};
    std::vector<int> valoriEstive{Minuti(p[primo].estiva)};

    for (std::size_t i = primo + 1; i < p.size(); ++i) {
        const std::int32_t prima = p[i - 1].standard + p[i - 1].estiva;
        const std::int32_t dopo = p[i].standard + p[i].estiva;
        if (Minuti(p[i].standard) != valoriFusi.back()) {
            RigaFusi r = rigaFusi(MezzanottePiuVicina(p[i].inizio + dopo), p[i].standard);
            Metti(s.fusi, valoriFusi, r, Minuti(p[i].standard), stessoGiorno(r, s.fusi.back()));
        }
        if (Minuti(p[i].estiva) != valoriEstive.back()) {
            RigaEstive r = rigaEstive(MomentoLocale(p[i].inizio + prima), p[i].estiva);
            const RigaEstive& u = s.estive.back();
            Metti(s.estive, valoriEstive, r, Minuti(p[i].estiva),
                  stessoGiorno(r, u) && r.h == u.h && r.min == u.min);
        }
    }
    return s;
}

} // namespace vesmo
