#include "timecharts/CalendarioTransiti.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>

#include "chart/Aspetti.h"
#include "core/Aritmetica.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Sole.h"
#include "timecharts/Ingressi.h"
#include "timecharts/Istanti.h"

namespace vesmo {

const std::array<const char*, NumeroCorpiTransito> NomiCorpiTransito{
    "Sole",    "Luna",  "Mercurio", "Venere",  "Marte",   "Giove",
    "Saturno", "Urano", "Nettuno",  "Plutone", "NodoLuna"};

double LongitudineTransito(int corpo, double jd) {
    switch (corpo) {
    case 0: {
        double lon, r, ar, de;
        PosizioneSole(jd, 1, lon, r, ar, de);
        return lon;
    }
    case 1: {
        double lon, lat, parallasse;
        PosizioneLuna(jd, lon, lat, parallasse);
        return lon;
    }
    case 10:
        return LongitudineIngresso(jd, NumNodoLuna);
    default:
        // Mercurio and Venere are planets 1 and 2, then the Earth is skipped.
        return LongitudineIngresso(jd, corpo <= 3 ? corpo - 1 : corpo);
    }
}

double LongitudineLunaTopocentrica(double jd, double lon, double lat) {
    double l, b, parallasse;
    PosizioneLuna(jd, l, b, parallasse);
    const double giorno = std::floor(jd - 0.5) + 0.5;
    double lt, bt;
    LunaTopocentrica(giorno, (jd - giorno) * 24, lon, lat, l, b, 0, parallasse, lt, bt);
    return lt;
}

std::vector<int> CorpiTransitoPredefiniti() {
    return {5, 6, 7, 8, 9};
}

double PassoCampioni(int corpo) {
    // Shortest retrograde arcs: Mercurio about 20 days, Venere 40, Marte 58, the giants over
    // 115; the Sun and the Moon never turn, the mean node never turns forward. A step keeps the
    // motion between two samples well below 180 degrees.
    static const double passi[NumeroCorpiTransito] = {15, 0.5, 3, 6, 8, 15, 15, 20, 20, 20, 30};
    return corpo >= 0 && corpo < NumeroCorpiTransito ? passi[corpo] : 1;
}

namespace {

// Mean speed in degrees a day, for the first reach of the orb walk.
double VelocitaMedia(int corpo) {
    static const double v[NumeroCorpiTransito] = {0.9856, 13.18,  0.5,   0.5,   0.3,  0.083,
                                                  0.0335, 0.0117, 0.006, 0.004, 0.053};
    return v[corpo];
}

const Posizione* CampoDelTema(const Posizioni& p, const std::string& nome) {
    for (const VoceCorpo& v : CorpiInOrdine)
        if (nome == v.nome) return &(p.*(v.campo));
    static const std::map<std::string, Posizione Posizioni::*> altri{
        {"LilithMedia", &Posizioni::LilithMedia},
        {"LilithVera", &Posizioni::LilithVera},
        {"Asce", &Posizioni::Asce},
        {"MC", &Posizioni::MC},
    };
    auto it = altri.find(nome);
    return it == altri.end() ? nullptr : &(p.*(it->second));
}

// A root of g between a and b (a < b), where g(a) and g(b) have opposite signs: the regula falsi
// with the Illinois halving, to `tolY` in value or `tolT` in time.
template <class G>
double Radice(const G& g, double a, double ga, double b, double gb, double tolY, double tolT) {
    if (ga == 0) return a;
    if (gb == 0) return b;
    int lato = 0;
    double c = a;
    for (int giro = 0; giro < 200; ++giro) {
        c = a - ga * (b - a) / (gb - ga);
        if (!(c > a && c < b)) c = a + (b - a) / 2;
        const double gc = g(c);
        if (std::fabs(gc) <= tolY || b - a <= tolT) return c;
        if ((gc > 0) == (gb > 0)) {
            b = c;
            gb = gc;
            if (lato == -1) ga /= 2;
            lato = -1;
        } else {
            a = c;
            ga = gc;
            if (lato == 1) gb /= 2;
            lato = 1;
        }
        // A bracket that stopped shrinking: a halving step.
        if (giro % 8 == 7) {
            const double m = a + (b - a) / 2;
            const double gm = g(m);
            if (gm == 0) return m;
            if ((gm > 0) == (gb > 0)) {
                b = m;
                gb = gm;
            } else {
                a = m;
                ga = gm;
            }
            lato = 0;
        }
    }
    return c;
}

constexpr double TolleranzaGradi = 1e-8;
constexpr double TolleranzaGiorni = 1e-9;
const double Manca = std::numeric_limits<double>::quiet_NaN();

// The longitude of one body unwrapped over a span, with breakpoints at the samples and at the
// stations: between two breakpoints it is monotone.
class Serie {
public:
    struct Nodo {
        double t, U;
    };

    // `lon`: the body's longitude at an instant.
    Serie(int corpo, std::function<double(double)> lon, double da, double a)
        : lon_(std::move(lon)) {
        const double passo = PassoCampioni(corpo);
        const auto n = static_cast<std::size_t>(std::max(2.0, std::ceil((a - da) / passo)));
        std::vector<Nodo> campioni(n + 1);
        for (std::size_t i = 0; i <= n; ++i) {
            const double t = i == n ? a : da + (a - da) * static_cast<double>(i) / n;
            const double l = lon_(t);
            campioni[i] = {t, i == 0 ? l : campioni[i - 1].U + Scostamento(l, campioni[i - 1].U)};
        }
        nodi_.reserve(campioni.size() + 8);
        nodi_.push_back(campioni[0]);
        for (std::size_t i = 1; i <= n; ++i) {
            // A turn of the samples at i - 1: a station lies between i - 2 and i.
            if (i >= 2) {
                const double d1 = campioni[i - 1].U - campioni[i - 2].U;
                const double d2 = campioni[i].U - campioni[i - 1].U;
                if ((d1 > 0) != (d2 > 0)) {
                    Nodo s = Stazione(campioni[i - 2], campioni[i]);
                    // Before the sample i - 1: in place of the node just written.
                    if (s.t < campioni[i - 1].t && nodi_.back().t == campioni[i - 1].t) {
                        nodi_.pop_back();
                        if (s.t > nodi_.back().t) nodi_.push_back(s);
                        nodi_.push_back(campioni[i - 1]);
                    } else if (s.t > campioni[i - 1].t && s.t < campioni[i].t) {
                        nodi_.push_back(s);
                    }
                }
            }
            nodi_.push_back(campioni[i]);
        }
    }

    const std::vector<Nodo>& Nodi() const { return nodi_; }
    double Da() const { return nodi_.front().t; }
    double A() const { return nodi_.back().t; }

    // The unwrapped longitude at t, near the breakpoint `vicino`.
    double U(double t, const Nodo& vicino) const {
        return vicino.U + Scostamento(lon_(t), vicino.U);
    }

    // The crossing of the unwrapped level y between a and b (monotone there).
    double Incrocio(const Nodo& a, const Nodo& b, double y) const {
        auto g = [&](double t) { return U(t, a) - y; };
        return Radice(g, a.t, a.U - y, b.t, b.U - y, TolleranzaGradi, TolleranzaGiorni);
    }

    // The piece that holds t: nodi_[j].t <= t < nodi_[j + 1].t (the last piece holds its end).
    std::size_t Pezzo(double t) const {
        auto it = std::upper_bound(nodi_.begin(), nodi_.end(), t,
                                   [](double x, const Nodo& n) { return x < n.t; });
        auto j = static_cast<std::size_t>(it - nodi_.begin());
        if (j == 0) return 0;
        return std::min(j - 1, nodi_.size() - 2);
    }

private:
    std::function<double(double)> lon_;
    std::vector<Nodo> nodi_;

    double Velocita(double t) const {
        constexpr double d = 1e-3;
        return Scostamento(lon_(t + d), lon_(t - d)) / (2 * d);
    }

    // The station between two samples, where the speed changes sign.
    Nodo Stazione(const Nodo& a, const Nodo& b) const {
        const double va = Velocita(a.t), vb = Velocita(b.t);
        double t;
        if ((va > 0) == (vb > 0)) {
            // Never expected with the steps chosen; the middle keeps the pieces apart.
            t = a.t + (b.t - a.t) / 2;
        } else {
            t = Radice([this](double x) { return Velocita(x); }, a.t, va, b.t, vb, 0, 1e-7);
        }
        return {t, U(t, a)};
    }
};

// The moments the body enters and leaves the orb around a pass at t of the unwrapped level y.
// False when the walk left the series.
bool Orbe(const Serie& s, double t, double bersaglio, double orbita, double& ingresso,
          double& uscita) {
    const auto& nodi = s.Nodi();
    const std::size_t j = s.Pezzo(t);
    const double y = nodi[j].U + Scostamento(bersaglio, nodi[j].U);
    if (orbita == 0) {
        ingresso = uscita = t;
        return true;
    }
    const Serie::Nodo qui{t, y};
    bool trovato = false;
    // Backward: from the pass to the start of its piece, then piece by piece.
    Serie::Nodo fine = qui;
    for (std::size_t k = j + 1; k-- > 0;) {
        const Serie::Nodo& inizio = nodi[k];
        const double livello = inizio.U < fine.U ? y - orbita : y + orbita;
        if ((inizio.U < fine.U && inizio.U <= livello) ||
            (inizio.U >= fine.U && inizio.U >= livello)) {
            ingresso = s.Incrocio(inizio, fine, livello);
            trovato = true;
            break;
        }
        fine = inizio;
    }
    if (!trovato) return false;
    Serie::Nodo inizio = qui;
    for (std::size_t k = j + 1; k < nodi.size(); ++k) {
        const Serie::Nodo& dopo = nodi[k];
        const double livello = dopo.U > inizio.U ? y + orbita : y - orbita;
        if ((dopo.U > inizio.U && dopo.U >= livello) || (dopo.U <= inizio.U && dopo.U <= livello)) {
            uscita = s.Incrocio(inizio, dopo, livello);
            return true;
        }
        inizio = dopo;
    }
    return false;
}

struct Bersaglio {
    double lon;
    int aspetto, punto;
};

} // namespace

bool PuntoDelTema(const Posizioni& p, const std::string& nome, PuntoNatale& punto) {
    const Posizione* campo = CampoDelTema(p, nome);
    if (!campo) return false;
    punto = {nome, campo->Lo};
    return true;
}

std::vector<PuntoNatale> PuntiNataliPredefiniti(const Posizioni& p, std::int32_t lunaNeraVera) {
    std::vector<PuntoNatale> v;
    for (const char* nome :
         {"Sole", "Luna", "Mercurio", "Venere", "Marte", "Giove", "Saturno", "Urano", "Nettuno",
          "Plutone", "NodoLuna", lunaNeraVera == 0 ? "LilithMedia" : "LilithVera", "Asce", "MC"}) {
        PuntoNatale punto;
        PuntoDelTema(p, nome, punto);
        v.push_back(punto);
    }
    return v;
}

namespace {

// The targets: the natal point plus and minus each aspect's angle (one target when the two
// coincide); aspects outside the table are passed over.
std::vector<Bersaglio> Bersagli(const RichiestaTransiti& r) {
    std::vector<Bersaglio> bersagli;
    for (std::size_t p = 0; p < r.punti.size(); ++p) {
        for (int k : r.aspetti) {
            if (k < 0 || k >= NumeroAspetti) continue;
            const double angolo = AngoliAspetti[static_cast<std::size_t>(k)];
            const double piu = Norma360(r.punti[p].Lo + angolo, 1);
            const double meno = Norma360(r.punti[p].Lo - angolo, 1);
            bersagli.push_back({piu, k, static_cast<int>(p)});
            if (std::fabs(Scostamento(piu, meno)) > 1e-12)
                bersagli.push_back({meno, k, static_cast<int>(p)});
        }
    }
    return bersagli;
}

// The longitude of a transiting body at a time; the Moon topocentric from the request's place
// when it asks so.
std::function<double(double)> LongitudineDelCorpo(int corpo, const RichiestaTransiti& r) {
    if (corpo == 1 && r.lunaGeo == 0) {
        const double lonLuogo = r.lonLuogo, latLuogo = r.latLuogo;
        return [lonLuogo, latLuogo](double t) {
            return LongitudineLunaTopocentrica(t, lonLuogo, latLuogo);
        };
    }
    return [corpo](double t) { return LongitudineTransito(corpo, t); };
}

// One body's series over the period with its margin, and the target passes found on it.
struct PassaggiCorpo {
    const RichiestaTransiti& r;
    int corpo;
    std::function<double(double)> lon;
    double margine; // days the series reaches beyond the period
    Serie serie;

    PassaggiCorpo(const RichiestaTransiti& richiesta, int c)
        : r(richiesta), corpo(c), lon(LongitudineDelCorpo(c, richiesta)),
          margine(2 * PassoCampioni(c) + 1.5 * richiesta.orbita / VelocitaMedia(c)),
          serie(c, lon, richiesta.jdDa - margine, richiesta.jdA + margine) {}

    // Entering and leaving the orb around the pass at `t`; beyond the series, once more on a
    // longer one, up to a century each way. False when not found.
    bool OrbeDelPassaggio(double t, double bersaglio, double& ingresso, double& uscita) const {
        bool ok = Orbe(serie, t, bersaglio, r.orbita, ingresso, uscita);
        for (double piu = margine * 4; !ok && piu < 40000; piu *= 4) {
            Serie lunga(corpo, lon, t - piu, t + piu);
            ok = Orbe(lunga, t, bersaglio, r.orbita, ingresso, uscita);
        }
        return ok;
    }

    // The passes of the body over target `b` within the period, in time order, appended to
    // `esito`; the passes of a station within one orb share its entry and exit.
    void SuBersaglio(const Bersaglio& b, std::vector<Transito>& esito) const {
        const auto& nodi = serie.Nodi();
        // The pieces that touch the period.
        const std::size_t primo = serie.Pezzo(r.jdDa), ultimo = serie.Pezzo(r.jdA);
        double uscitaPrima = -std::numeric_limits<double>::infinity();
        double ingressoPrima = 0;
        for (std::size_t j = primo; j <= ultimo; ++j) {
            const Serie::Nodo &na = nodi[j], &nb = nodi[j + 1];
            double livello;
            if (nb.U > na.U) {
                livello = b.lon + 360 * std::ceil((na.U - b.lon) / 360);
                if (!(livello < nb.U)) continue;
            } else if (nb.U < na.U) {
                livello = b.lon + 360 * std::floor((na.U - b.lon) / 360);
                if (!(livello > nb.U)) continue;
            } else {
                continue;
            }
            const double t = serie.Incrocio(na, nb, livello);
            if (t < r.jdDa || t > r.jdA) continue;
            Transito h;
            h.jd = t;
            h.corpo = corpo;
            h.retrogrado = nb.U < na.U;
            h.aspetto = b.aspetto;
            h.punto = b.punto;
            h.bersaglio = b.lon;
            if (t <= uscitaPrima) {
                // Still in the orb of the pass before.
                h.jdIngresso = ingressoPrima;
                h.jdUscita = uscitaPrima;
            } else {
                double ingresso = Manca, uscita = Manca;
                const bool ok = OrbeDelPassaggio(t, b.lon, ingresso, uscita);
                h.jdIngresso = ok ? ingresso : Manca;
                h.jdUscita = ok ? uscita : Manca;
                if (ok) {
                    ingressoPrima = ingresso;
                    uscitaPrima = uscita;
                }
            }
            esito.push_back(h);
        }
    }
};

bool PrimaNelCalendario(const Transito& x, const Transito& y) {
    if (x.jd != y.jd) return x.jd < y.jd;
    if (x.corpo != y.corpo) return x.corpo < y.corpo;
    if (x.aspetto != y.aspetto) return x.aspetto < y.aspetto;
    return x.punto < y.punto;
}

} // namespace

std::vector<Transito> CercaTransiti(const RichiestaTransiti& r,
                                    const AvanzamentoTransiti& avanzamento) {
    std::vector<Transito> esito;
    if (!(r.jdA >= r.jdDa) || !(r.orbita >= 0) || !std::isfinite(r.jdDa) || !std::isfinite(r.jdA))
        return esito;
    const std::vector<Bersaglio> bersagli = Bersagli(r);
    const double totale = static_cast<double>(r.corpi.size());
    bool fermata = false;
    for (std::size_t c = 0; c < r.corpi.size() && !fermata; ++c) {
        const int corpo = r.corpi[c];
        if (corpo < 0 || corpo >= NumeroCorpiTransito) continue;
        if (avanzamento && !avanzamento(static_cast<double>(c) / totale)) break;
        const PassaggiCorpo passaggi(r, corpo);
        for (std::size_t ib = 0; ib < bersagli.size() && !fermata; ++ib) {
            // The share done, every few targets; the target in hand is still searched.
            if (avanzamento && ib % 16 == 15 &&
                !avanzamento((static_cast<double>(c) +
                              static_cast<double>(ib) / static_cast<double>(bersagli.size())) /
                             totale))
                fermata = true;
            passaggi.SuBersaglio(bersagli[ib], esito);
        }
    }
    if (avanzamento) avanzamento(1.0);
    std::sort(esito.begin(), esito.end(), PrimaNelCalendario);
    return esito;
}

} // namespace vesmo
