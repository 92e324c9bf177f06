#include "places/Tzif.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <fstream>
#include <iterator>

namespace vesmo {

std::int64_t GiorniDaCivile(std::int64_t anno, int mese, int giorno) {
    anno -= mese <= 2;
    const std::int64_t era = (anno >= 0 ? anno : anno - 399) / 400;
    const std::int64_t annoEra = anno - era * 400;
    const std::int64_t giornoAnno = (153 * (mese + (mese > 2 ? -3 : 9)) + 2) / 5 + giorno - 1;
    const std::int64_t giornoEra = annoEra * 365 + annoEra / 4 - annoEra / 100 + giornoAnno;
    return era * 146097 + giornoEra - 719468;
}

void CivileDaGiorni(std::int64_t giorni, std::int64_t& anno, int& mese, int& giorno) {
    giorni += 719468;
    const std::int64_t era = (giorni >= 0 ? giorni : giorni - 146096) / 146097;
    const std::int64_t giornoEra = giorni - era * 146097;
    const std::int64_t annoEra =
        (giornoEra - giornoEra / 1460 + giornoEra / 36524 - giornoEra / 146096) / 365;
    const std::int64_t giornoAnno = giornoEra - (365 * annoEra + annoEra / 4 - annoEra / 100);
    const std::int64_t mp = (5 * giornoAnno + 2) / 153;
    giorno = static_cast<int>(giornoAnno - (153 * mp + 2) / 5 + 1);
    mese = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    anno = annoEra + era * 400 + (mese <= 2);
}

namespace {

bool Bisestile(std::int64_t a) {
    return (a % 4 == 0 && a % 100 != 0) || a % 400 == 0;
}

// A cursor over the text of a rule.
struct Lettore {
    std::string_view s;
    std::size_t i = 0;

    bool Fine() const { return i >= s.size(); }
    char Guarda() const { return Fine() ? '\0' : s[i]; }
    [[noreturn]] void Errore(const char* cosa) const {
        throw ErroreTzif("regola TZ non valida (" + std::string(cosa) + "): " + std::string(s));
    }

    std::string Nome() {
        std::string nome;
        if (Guarda() == '<') {
            ++i;
            while (!Fine() && s[i] != '>')
                nome += s[i++];
            if (Fine()) Errore("nome senza '>'");
            ++i;
        } else {
            while (!Fine() && std::isalpha(static_cast<unsigned char>(s[i])))
                nome += s[i++];
        }
        if (nome.size() < 3) Errore("nome");
        return nome;
    }

    int Numero() {
        if (!std::isdigit(static_cast<unsigned char>(Guarda()))) Errore("numero");
        int n = 0;
        while (std::isdigit(static_cast<unsigned char>(Guarda())))
            n = n * 10 + (s[i++] - '0');
        return n;
    }

    // [+|-]hh[:mm[:ss]] in seconds.
    std::int32_t Ora() {
        int segno = 1;
        if (Guarda() == '+' || Guarda() == '-') segno = s[i++] == '-' ? -1 : 1;
        std::int32_t v = Numero() * 3600;
        if (Guarda() == ':') {
            ++i;
            v += Numero() * 60;
            if (Guarda() == ':') {
                ++i;
                v += Numero();
            }
        }
        return segno * v;
    }

    RegolaPosix::Data Data() {
        RegolaPosix::Data d;
        if (Guarda() == 'J') {
            ++i;
            d.tipo = 'J';
            d.n = Numero();
        } else if (Guarda() == 'M') {
            ++i;
            d.tipo = 'M';
            d.mese = Numero();
            if (Guarda() != '.') Errore("data M");
            ++i;
            d.settimana = Numero();
            if (Guarda() != '.') Errore("data M");
            ++i;
            d.giornoSett = Numero();
            if (d.mese < 1 || d.mese > 12 || d.settimana < 1 || d.settimana > 5 || d.giornoSett > 6)
                Errore("data M");
        } else {
            d.tipo = 'N';
            d.n = Numero();
        }
        if (Guarda() == '/') {
            ++i;
            d.ora = Ora();
        }
        return d;
    }
};

// The day (days from 1970) on which a date of a rule falls in a year.
std::int64_t GiornoDellaRegola(const RegolaPosix::Data& d, int anno) {
    const std::int64_t primo = GiorniDaCivile(anno, 1, 1);
    if (d.tipo == 'J') {
        // 1 to 365, 29 February never counted.
        std::int64_t g = primo + d.n - 1;
        if (Bisestile(anno) && d.n >= 60) ++g;
        return g;
    }
    if (d.tipo == 'N') return primo + d.n;
    // Day giornoSett (0 Sunday) of week `settimana` (5 the last) of the month.
    const std::int64_t inizioMese = GiorniDaCivile(anno, d.mese, 1);
    const int giornoSettPrimo = static_cast<int>(((inizioMese + 4) % 7 + 7) % 7); // 1970-01-01 Thu
    std::int64_t g = inizioMese + (d.giornoSett - giornoSettPrimo + 7) % 7 + 7 * (d.settimana - 1);
    const int mese2 = d.mese == 12 ? 1 : d.mese + 1;
    const std::int64_t fineMese = GiorniDaCivile(d.mese == 12 ? anno + 1 : anno, mese2, 1);
    while (g >= fineMese)
        g -= 7;
    return g;
}

std::uint32_t Leggi32(const unsigned char* p) {
    return (std::uint32_t(p[0]) << 24) | (std::uint32_t(p[1]) << 16) | (std::uint32_t(p[2]) << 8) |
           std::uint32_t(p[3]);
}
std::int64_t Leggi64(const unsigned char* p) {
    return static_cast<std::int64_t>((std::uint64_t(Leggi32(p)) << 32) | Leggi32(p + 4));
}

struct Intestazione {
    std::uint32_t isutcnt, isstdcnt, leapcnt, timecnt, typecnt, charcnt;
    char versione;
};

Intestazione LeggiIntestazione(std::string_view b, std::size_t pos) {
    if (b.size() < pos + 44 || b.substr(pos, 4) != "TZif") throw ErroreTzif("non è un file TZif");
    auto p = reinterpret_cast<const unsigned char*>(b.data() + pos);
    return {Leggi32(p + 20), Leggi32(p + 24), Leggi32(p + 28), Leggi32(p + 32),
            Leggi32(p + 36), Leggi32(p + 40), b[pos + 4]};
}

} // namespace

RegolaPosix LeggiRegolaPosix(std::string_view testo) {
    Lettore l{testo};
    RegolaPosix r;
    r.normale.abbr = l.Nome();
    r.normale.utoff = -l.Ora();
    if (l.Fine()) return r;
    r.conEstiva = true;
    r.estiva.isdst = true;
    r.estiva.abbr = l.Nome();
    r.estiva.utoff = r.normale.utoff + 3600;
    if (l.Guarda() != ',' && !l.Fine()) r.estiva.utoff = -l.Ora();
    if (l.Fine()) {
        // No dates: the default rule of the United States.
        l = Lettore{",M3.2.0,M11.1.0"};
    }
    if (l.Guarda() != ',') l.Errore("date");
    ++l.i;
    r.inizio = l.Data();
    if (l.Guarda() != ',') l.Errore("date");
    ++l.i;
    r.fine = l.Data();
    if (!l.Fine()) l.Errore("testo in più");
    return r;
}

std::vector<Periodo> CambiDellAnno(const RegolaPosix& r, int anno) {
    std::vector<Periodo> cambi;
    if (!r.conEstiva) return cambi;
    // The start is told in standard time, the end in summer time.
    const std::int64_t inizio =
        GiornoDellaRegola(r.inizio, anno) * 86400 + r.inizio.ora - r.normale.utoff;
    const std::int64_t fine = GiornoDellaRegola(r.fine, anno) * 86400 + r.fine.ora - r.estiva.utoff;
    cambi.push_back({inizio, r.estiva});
    cambi.push_back({fine, r.normale});
    std::sort(cambi.begin(), cambi.end(),
              [](const Periodo& a, const Periodo& b) { return a.inizio < b.inizio; });
    return cambi;
}

namespace {

// The local time types of the 64-bit block: `tipi` points at their six bytes each, `abbr` at the
// abbreviations; an abbreviation index outside the file throws ErroreTzif.
std::vector<TipoOra> TipiOra(const unsigned char* tipi, const char* abbr, std::uint32_t typecnt,
                             std::uint32_t charcnt) {
    std::vector<TipoOra> tipiOra;
    for (std::uint32_t i = 0; i < typecnt; ++i) {
        const unsigned char* t = tipi + std::size_t(i) * 6;
        TipoOra tipo;
        tipo.utoff = static_cast<std::int32_t>(Leggi32(t));
        tipo.isdst = t[4] != 0;
        const unsigned idx = t[5];
        if (idx >= charcnt) throw ErroreTzif("abbreviazione fuori dal file");
        const char* a = abbr + idx;
        tipo.abbr.assign(a, strnlen(a, charcnt - idx));
        tipiOra.push_back(tipo);
    }
    return tipiOra;
}

// A period from `inizio` on, unless it repeats the type of the period before it.
void AggiungiPeriodo(ZonaTzif& z, std::int64_t inizio, const TipoOra& tipo) {
    if (!z.periodi.empty()) {
        const TipoOra& prima = z.periodi.back().tipo;
        // A named mean time (Rome's "RMT") that follows local mean time at the same offset
        // is a period of its own: from then on the whole zone keeps the capital's clock.
        if (prima.utoff == tipo.utoff && prima.isdst == tipo.isdst &&
            (prima.abbr == "LMT") == (tipo.abbr == "LMT"))
            return;
    }
    z.periodi.push_back({inizio, tipo});
}

// The footer's rule carried on after the last change `ultimo` (Periodo::Sempre when the file
// has none) up to the end of `annoFine`; a rule without summer time is the whole zone when the
// file lists no change, and adds nothing otherwise.
void EstendiConRegola(ZonaTzif& z, std::int64_t ultimo, bool senzaCambi, int annoFine) {
    const RegolaPosix r = LeggiRegolaPosix(z.regola);
    if (!r.conEstiva) {
        if (senzaCambi) z.periodi = {{Periodo::Sempre, r.normale}};
        return;
    }
    std::int64_t annoUltimo = 1970;
    if (ultimo != Periodo::Sempre) {
        int m, g;
        CivileDaGiorni(ultimo / 86400 - (ultimo % 86400 < 0), annoUltimo, m, g);
    }
    for (std::int64_t a = annoUltimo - 1; a <= annoFine; ++a)
        for (const Periodo& c : CambiDellAnno(r, static_cast<int>(a)))
            if (c.inizio > ultimo) AggiungiPeriodo(z, c.inizio, c.tipo);
}

} // namespace

ZonaTzif LeggiTzif(std::string_view b, int annoFine) {
    const Intestazione h1 = LeggiIntestazione(b, 0);
    if (h1.versione < '2') throw ErroreTzif("file TZif di versione 1: mancano i dati a 64 bit");
    // Skip the 32-bit block.
    std::size_t pos = 44 + std::size_t(h1.timecnt) * 5 + std::size_t(h1.typecnt) * 6 + h1.charcnt +
                      std::size_t(h1.leapcnt) * 8 + h1.isstdcnt + h1.isutcnt;
    const Intestazione h = LeggiIntestazione(b, pos);
    pos += 44;
    const std::size_t lunghezza = std::size_t(h.timecnt) * 9 + std::size_t(h.typecnt) * 6 +
                                  h.charcnt + std::size_t(h.leapcnt) * 12 + h.isstdcnt + h.isutcnt;
    if (h.typecnt == 0 || b.size() < pos + lunghezza) throw ErroreTzif("file TZif troncato");
    auto p = reinterpret_cast<const unsigned char*>(b.data() + pos);
    const unsigned char* tempi = p;
    const unsigned char* indici = tempi + std::size_t(h.timecnt) * 8;
    const unsigned char* tipi = indici + h.timecnt;
    const char* abbr = reinterpret_cast<const char*>(tipi + std::size_t(h.typecnt) * 6);
    const std::vector<TipoOra> tipiOra = TipiOra(tipi, abbr, h.typecnt, h.charcnt);

    ZonaTzif z;
    // Before the first change the zone keeps its first type.
    AggiungiPeriodo(z, Periodo::Sempre, tipiOra[0]);
    std::int64_t ultimo = Periodo::Sempre;
    for (std::uint32_t i = 0; i < h.timecnt; ++i) {
        const std::int64_t t = Leggi64(tempi + std::size_t(i) * 8);
        if (indici[i] >= h.typecnt) throw ErroreTzif("tipo fuori dal file");
        if (t <= ultimo) throw ErroreTzif("cambi fuori ordine");
        ultimo = t;
        AggiungiPeriodo(z, t, tipiOra[indici[i]]);
    }

    // The footer: "\n" rule "\n".
    std::size_t piede = pos + lunghezza;
    if (piede < b.size() && b[piede] == '\n') {
        const std::size_t fine = b.find('\n', piede + 1);
        if (fine != std::string_view::npos)
            z.regola = std::string(b.substr(piede + 1, fine - piede - 1));
    }
    if (!z.regola.empty()) EstendiConRegola(z, ultimo, h.timecnt == 0, annoFine);
    return z;
}

ZonaTzif LeggiFileTzif(const std::string& percorso, int annoFine) {
    std::ifstream f(percorso, std::ios::binary);
    if (!f) throw ErroreTzif("file di zona non trovato: " + percorso);
    std::string byte((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    try {
        return LeggiTzif(byte, annoFine);
    } catch (const ErroreTzif& e) {
        throw ErroreTzif(percorso + ": " + e.what());
    }
}

} // namespace vesmo
