#include "chart/Aspetti.h"

#include <cmath>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

const std::array<const char*, NumeroAspetti> NomiAspetti{
    "CONGIUNZIONE      ", "SESTILE          ", "QUADRATURA       ", "TRIGONO         ",
    "OPPOSIZIONE     ",   "SemiSestile      ", "Novile           ", "SemiQuadratura   ",
    "Settile        ",    "Quintile         ", "BiNovile         ", "BiSettile     ",
    "TriDecile       ",   "SesquiQuadratura",  "BiQuintile      ",  "Quinconce       ",
    "TetraNovile     "};

const std::array<double, NumeroAspetti> AngoliAspetti{0,  60, 90,    120, 180, 30,  40,  45, 51.4,
                                                      72, 80, 102.9, 108, 135, 144, 150, 160};

double DistanzaAspetto(double a, double b, double arcoSolare) {
    double d = std::fabs(a - b + arcoSolare);
    if (d > 180) d = 360 - d;
    return d;
}

std::vector<int> ProvaAspetto(double d, double orbita) {
    std::vector<int> colpi;
    for (int k = 0; k < NumeroAspetti; ++k) {
        double angolo = AngoliAspetti[static_cast<std::size_t>(k)];
        if (angolo - orbita <= d && angolo + orbita >= d) colpi.push_back(k);
    }
    return colpi;
}

std::string MarcaParallelo(double d1, double d2, double& differenza) {
    if (Segno(d1) == Segno(d2)) {
        differenza = std::fabs(d1 - d2);
        return differenza <= 1.2 ? "P" : " ";
    }
    differenza = std::fabs(std::fabs(d1) - std::fabs(d2));
    std::string marca = differenza <= 1 ? "C" : " ";
    // On opposite sides of the equator but both close to it: parallel as well.
    if (std::fabs(d1) + std::fabs(d2) <= 1) marca += "P";
    return marca;
}

std::vector<const Posizione*> PuntiGriglia(const Posizioni& p) {
    return {&p.Sole,     &p.Luna,        &p.Mercurio,   &p.Venere,  &p.Marte,
            &p.Giove,    &p.Saturno,     &p.Urano,      &p.Nettuno, &p.Plutone,
            &p.NodoLuna, &p.LilithMedia, &p.LilithVera, &p.Asce,    &p.MC};
}

const std::array<const char*, 14> NomiPuntiRuota{
    "Sole",  "Luna",    "Mercurio", "Venere",   "Marte",    "Giove", "Saturno",
    "Urano", "Nettuno", "Plutone",  "NodoLuna", "LunaNera", "Asce",  "MC"};

std::vector<const Posizione*> PuntiRuota(const Posizioni& p, std::int32_t lunaNeraVera) {
    return {&p.Sole,    &p.Luna,    &p.Mercurio, &p.Venere,
            &p.Marte,   &p.Giove,   &p.Saturno,  &p.Urano,
            &p.Nettuno, &p.Plutone, &p.NodoLuna, lunaNeraVera == 0 ? &p.LilithMedia : &p.LilithVera,
            &p.Asce,    &p.MC};
}

const char* const TestataColonne =
    "|Sole          |Luna          |Mercurio      |Venere        |Marte         |Giove         "
    "|Saturno       |Urano         |Nettuno       |Plutone       |Nodo L.       |Lilith Media  "
    "|Lilith Vera   |Ascen         |MC            ";
const char* const TestataRighe = ";|Sole||Luna||Mercurio||Venere||Marte||Giove||Saturno||Urano||"
                                 "Nettuno||Plutone||Nodo L.||Lil. Media||Lil. Vera||Ascen||MC|";

namespace {

// Splits a head text at "|": the first piece goes to cell 0.
std::vector<std::string> Pezzi(const std::string& testo) {
    std::vector<std::string> r;
    std::string pezzo;
    for (char ch : testo) {
        if (ch == '|') {
            r.push_back(pezzo);
            pezzo.clear();
        } else {
            pezzo.push_back(ch);
        }
    }
    r.push_back(pezzo);
    return r;
}

} // namespace

GrigliaAspetti CostruisciGriglia(const Posizioni& righe, const Posizioni& colonne, bool comparati,
                                 float orbita, float arcoSolare) {
    GrigliaAspetti g; // every cell starts empty
    auto testa = Pezzi(TestataColonne);
    for (std::size_t j = 0; j < testa.size() && j < 16; ++j)
        g.celle[0][j] = testa[j];
    // The row heads: the text before ";" is the corner, then one piece a row.
    std::string r = TestataRighe;
    auto pezziRighe = Pezzi(r.substr(r.find(';') + 1));
    for (std::size_t i = 1; i < pezziRighe.size() && i < 31; ++i)
        g.celle[i][0] = pezziRighe[i];

    for (const CellaAspetto& c : CelleAspetti(righe, colonne, comparati, orbita, arcoSolare)) {
        g.celle[static_cast<std::size_t>(2 * c.i - 1)][static_cast<std::size_t>(c.j)] =
            NomiAspetti[static_cast<std::size_t>(c.k)];
        g.celle[static_cast<std::size_t>(2 * c.i)][static_cast<std::size_t>(c.j)] =
            FormatoNumero(c.mancano, "#0.0°  ") + FormatoNumero(c.differenza, "#0.0°") + c.marca;
    }
    return g;
}

std::vector<CellaAspetto> CelleAspetti(const Posizioni& righe, const Posizioni& colonne,
                                       bool comparati, float orbita, float arcoSolare) {
    std::vector<CellaAspetto> celle;
    auto pr = PuntiGriglia(righe);
    auto pc = PuntiGriglia(colonne);
    for (int i = 1; i <= 15; ++i) {
        for (int j = 1; j <= 15; ++j) {
            if (!comparati && i == j) continue;
            const Posizione& a = *pr[static_cast<std::size_t>(i - 1)];
            const Posizione& b = *pc[static_cast<std::size_t>(j - 1)];
            double d = DistanzaAspetto(a.Lo, b.Lo, arcoSolare);
            // A later hit replaces an earlier one in the same cell.
            auto colpi = ProvaAspetto(d, orbita);
            if (colpi.empty()) continue;
            int k = colpi.back();
            double differenza;
            std::string marca = MarcaParallelo(Gradi(a.De), Gradi(b.De), differenza);
            celle.push_back({i, j, k, std::fabs(AngoliAspetti[static_cast<std::size_t>(k)] - d),
                             differenza, marca});
        }
    }
    return celle;
}

const char* const TitoloAiutoAspetti = "Lyx - Aiuto Aspetti";

std::string TestoAiutoAspetti() {
    // Paragraphs, each a list of lines; an empty line stands between paragraphs.
    static const std::vector<std::vector<const char*>> paragrafi{
        {"Ogni Aspetto occupa due caselle della griglia. "},
        {"Nella prima casella c'è il nome dell' Aspetto, ad esempio TRIGONO."},
        {"Nella seconda casella ci sono due numeri. Il primo indica",
         "la differenza di longitudine che manca all'Aspetto esatto.",
         "Può essere, al massimo, ampia",
         "quanto l'Orbita digitata nella casella Orbite degli Aspetti."},
        {"Il secondo numero dà la differenza di Declinazione.",
         "Se i pianeti sono entrambi a nord o a sud dell'Equatore e",
         "la differenza di declinazione è minore di 1,2 gradi si considerano in",
         "'P'arallelo. Se sono da parti opposte dell'Equatore, ma la differenza",
         "dei loro valori assoluti è minore di 1 grado, si considerano in ", "'C'ontroparallelo."},
        {"Ad esempio l'8/11/2000 il Sole e Urano sono in aspetto di",
         "QUADRATURA. La differenza tra le loro longitudini è 90,378, ossia ",
         "arrotondando mancano 0,4 gradi alla quadratura perfetta.",
         "La differenza tra le loro declinazioni, entrambe negative,",
         "è (-16g 46p) - (-16g 25p) = 0,4g arrotondando."},
    };
    std::string t = "           SELEZIONE ASPETTI e ORBITE  \r\n\r\n";
    for (std::size_t p = 0; p < paragrafi.size(); ++p) {
        if (p > 0) t += "\r\n";
        for (const char* riga : paragrafi[p])
            t += std::string(riga) + "\r\n";
    }
    return t;
}

std::vector<AspettoTrovato> AspettiDelTema(const Posizioni& p, std::int32_t lunaNeraVera,
                                           float orbita) {
    std::vector<AspettoTrovato> r;
    auto punti = PuntiRuota(p, lunaNeraVera);
    for (int a = 0; a < 14; ++a) {
        for (int b = a + 1; b < 14; ++b) {
            double d = DistanzaAspetto(punti[static_cast<std::size_t>(a)]->Lo,
                                       punti[static_cast<std::size_t>(b)]->Lo);
            for (int k : ProvaAspetto(d, orbita))
                r.push_back(
                    {a, b, k, d, std::fabs(AngoliAspetti[static_cast<std::size_t>(k)] - d)});
        }
    }
    return r;
}

} // namespace vesmo
