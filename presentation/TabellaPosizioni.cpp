#include "presentation/TabellaPosizioni.h"

#include <cmath>
#include <vector>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

const char* const TestataColonnePosizioni =
    "|Segno |Longitudine |R|Casa|<Declinazione   | A.R. (h m s)|A.Obl.(h m s) |Longitudine "
    "(Dec)|Latitudine (Dec)| A.R. (Dec.)";
const char* const TestataRighePosizioni =
    ";|Asce.|II|III|FC|V|VI|Disce.|VIII|IX|MC|XI|XII|Sole|Luna|Mercurio|Venere|Marte|Giove|"
    "Saturno|Urano|Nettuno|Plutone|Nodo L.|Lil.Media|Lil.Vera";

std::string Str(double x) {
    std::string t = TestoNumero(x, '.');
    return x < 0 ? t : " " + t;
}

namespace {

std::vector<std::string> Pezzi(const std::string& testo) {
    std::vector<std::string> r(1);
    for (char ch : testo) {
        if (ch == '|')
            r.emplace_back();
        else
            r.back().push_back(ch);
    }
    return r;
}

std::string Longitudine(double lo, bool conSecondi) {
    std::string segno;
    double g, m, s, dec;
    SegnoGradi(lo, segno, g, m, s, dec, conSecondi ? 0 : 1);
    std::string t = Str(g) + "°" + " " + Str(m) + "'";
    if (conSecondi) t += " " + FormatoNumero(s, "##") + "''";
    return t;
}

std::string Declinazione(double deRad) {
    double g, m, s;
    RadGradiPrimiSecondi(deRad, g, m, s);
    // Within a degree of the equator the minutes and the seconds carry the sign.
    return Str(g) + "° " + Str(m) + "' " + FormatoNumero(s, "##") + "''";
}

std::string Ore(const Variante& v, const char* figuraSecondi) {
    if (v.ETesto()) return v.Testo();
    double h, m, s;
    GradiPrimiSecondi(v.Numero(), h, m, s);
    return Str(h) + " " + Str(m) + " " + FormatoNumero(std::fabs(s), figuraSecondi);
}

std::string NomeSegno(double lo) {
    std::string segno;
    double g, m, s, dec;
    SegnoGradi(lo, segno, g, m, s, dec, 1);
    return segno;
}

} // namespace

TabellaPosizioni RiempiTabella(const Case& c, const Posizioni& p) {
    TabellaPosizioni t;
    auto colonne = Pezzi(TestataColonnePosizioni);
    for (std::size_t j = 0; j < colonne.size() && j < 11; ++j)
        t.celle[0][j] = colonne[j];
    std::string righe = TestataRighePosizioni;
    auto teste = Pezzi(righe.substr(righe.find(';') + 1));
    for (std::size_t i = 1; i < teste.size() && i < 26; ++i)
        t.celle[i][0] = teste[i];

    for (int i = 1; i <= 12; ++i) {
        auto& r = t.celle[static_cast<std::size_t>(i)];
        const Posizione& q = c[i];
        r[1] = NomeSegno(q.Lo);
        r[2] = Longitudine(q.Lo, false);
        r[3] = "***";
        r[4] = "******";
        r[5] = Declinazione(q.De);
        r[6] = Ore(q.AR, "##");
        r[7] = Ore(q.AOb, "##");
        r[8] = FormatoNumero(q.Lo, "###.#####0");
        r[9] = FormatoNumero(q.LaEc, "##0.#####0");
        r[10] = "";
    }

    const Posizione* corpi[] = {&p.Sole,     &p.Luna,        &p.Mercurio,  &p.Venere,  &p.Marte,
                                &p.Giove,    &p.Saturno,     &p.Urano,     &p.Nettuno, &p.Plutone,
                                &p.NodoLuna, &p.LilithMedia, &p.LilithVera};
    for (int k = 0; k < 13; ++k) {
        auto& r = t.celle[static_cast<std::size_t>(13 + k)];
        const Posizione& q = *corpi[k];
        bool sole = k == 0, media = k == 11, lilith = k >= 11;
        r[1] = NomeSegno(q.Lo);
        r[2] = Longitudine(q.Lo, sole);
        r[3] = sole ? "***" : lilith ? "**" : (q.Mv != 0 ? "R" : "");
        r[4] = Str(q.Ca);
        r[5] = media ? "******" : Declinazione(q.De);
        r[6] = media ? "******" : Ore(q.AR, " ##");
        r[7] = media ? "******" : Ore(q.AOb, "##");
        r[8] = FormatoNumero(q.Lo, "###.#####0");
        r[9] = sole ? "******" : media ? "******" : FormatoNumero(q.LaEc, " #0.###0");
        if (q.AR.ETesto())
            r[10] = q.AR.Testo();
        else
            r[10] = FormatoNumero(q.AR.Numero(), sole ? "###.#####0" : "##.#####0");
    }
    return t;
}

} // namespace vesmo
