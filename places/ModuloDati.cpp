#include "places/ModuloDati.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "places/ModelloLuoghi.h"
#include "places/Province.h"

namespace vesmo {

const char* const VociList2[2] = {"EST    di Greenwich", "OVEST di Greenwich"};
const char* const VociList3[4] = {"GRADI Sessagesimali", "ORE    Sessagesimali",
                                  "GRADI Decimali     ", "ORE    Decimali     "};
const char* const VociList4[2] = {"NORD dell'Equatore", "SUD   dell'Equatore"};
const char* const VociList5[2] = {"GRADI Sessagesimali", "GRADI Decimali     "};

bool NumeroDaCasella(const std::string& testo, double& valore) {
    std::string t = SenzaSpazi(testo);
    if (t.empty()) return false;
    for (char& ch : t)
        if (ch == ',') ch = '.';
    char* fine = nullptr;
    valore = std::strtod(t.c_str(), &fine);
    return fine && *fine == '\0' && std::isfinite(valore);
}

std::string CasellaDaNumero(double valore) {
    return TestoNumero(valore);
}

namespace {

std::string Intero(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.0f", v);
    return std::string(buf) == "-0" ? "0" : buf;
}

// Degrees (or hours), minutes, seconds of an absolute value, seconds below 0.1 shown as 0 and
// above 59.99 as 60.
void Dividi(double v, std::string& g, std::string& m, std::string& s) {
    double d, mi, se;
    GradiPrimiSecondi(std::fabs(v), d, mi, se);
    if (se < 0.1) se = 0;
    if (se > 59.99) se = 60;
    g = Intero(d);
    m = Intero(mi);
    s = TestoNumero(std::round(se * 100) / 100);
}

} // namespace

void MostraLongitudine(const Tema& tema, CampiModulo& c, int indice) {
    switch (indice) {
    case 0:
        Dividi(tema.Lon * 15, c.Text9, c.Text10, c.Text11);
        break;
    case 1:
        Dividi(tema.Lon, c.Text9, c.Text10, c.Text11);
        break;
    case 2:
        c.Text12 = CasellaDaNumero(std::fabs(tema.Lon * 15));
        break;
    case 3:
        c.Text12 = CasellaDaNumero(std::fabs(tema.Lon));
        break;
    default:
        return;
    }
    c.List3 = indice;
}

void MostraLatitudine(const Tema& tema, CampiModulo& c) {
    if (c.List5 == 0)
        Dividi(tema.Lat, c.Text13, c.Text14, c.Text15);
    else
        c.Text16 = CasellaDaNumero(std::fabs(tema.Lat));
}

void ClickSolare(const Tema& tema, CampiModulo& c) {
    if (c.chkSolare) {
        c.Text8 = "99";
        c.Text18 = "";
        c.Text22 = "0";
        c.Text23 = "0";
        return;
    }
    double h, m, s;
    GradiPrimiSecondi(tema.Fuso, h, m, s);
    if (s > 30) m += 1;
    if (s < -30) m -= 1;
    c.Text8 = Intero(h);
    c.Text18 = Intero(m);
    GradiPrimiSecondi(tema.Estiva, h, m, s);
    if (s > 30) m += 1;
    c.Text22 = Intero(h);
    c.Text23 = Intero(m);
}

void MostraTema(const Tema& tema, CampiModulo& c) {
    float anno, mese, giorno;
    DataDaGiuliano(tema.Day, anno, mese, giorno);
    double oh, om, os;
    GradiPrimiSecondi(tema.OraL, oh, om, os);

    c.Text1 = tema.Nome.Valore();
    c.Text2 = tema.City.Valore();
    c.Text19 = tema.Stato.Valore();
    c.Text3 = c.Tag3 = Intero(std::floor(giorno));
    c.Text4 = c.Tag4 = Intero(mese);
    c.Text5 = c.Tag5 = Intero(anno);
    c.Text6 = c.Tag6 = Intero(oh);
    c.Text7 = c.Tag7 = Intero(std::fabs(om));

    double eh, em, es;
    GradiPrimiSecondi(tema.Estiva, eh, em, es);
    if (es > 30) em += 1;
    c.Text22 = Intero(eh);
    c.Text23 = Intero(em);

    if (tema.Lon < 0) c.List2 = 0;
    if (tema.Lon > 0) c.List2 = 1;
    c.chkSolare = c.TagChkSolare == "Ok";
    c.TagChkSolare.clear();
    ClickSolare(tema, c);

    // Coordinates: the split values, rounded for display.
    double g, m, s;
    GradiPrimiSecondi(std::fabs(tema.Lon * 15), g, m, s);
    ArrotondaGPS(g, m, s);
    c.List3 = 0;
    c.Text9 = Intero(std::fabs(g));
    c.Text10 = Intero(std::fabs(m));
    c.Text11 = TestoNumero(std::fabs(std::round(s * 100) / 100));
    GradiPrimiSecondi(std::fabs(tema.Lat), g, m, s);
    ArrotondaGPS(g, m, s);
    if (tema.Lat < 0) c.List4 = 1;
    if (tema.Lat > 0) c.List4 = 0;
    c.List5 = 0;
    c.Text13 = Intero(std::fabs(g));
    c.Text14 = Intero(std::fabs(m));
    c.Text15 = TestoNumero(std::fabs(std::round(s * 100) / 100));

    c.Pannello2 = TestoProvincia(tema.Stato.Valore(), tema.City.Valore());
}

namespace {

// The boxes' numbers: a box that holds no number is told in a message and stops the reading.
class LettoreCaselle {
public:
    explicit LettoreCaselle(Messaggi& messaggi) : messaggi_(messaggi) {}
    bool Numero(const std::string& testo, const char* nome, double& v) const {
        if (NumeroDaCasella(testo, v)) return true;
        messaggi_.Mostra("Vesmo - Dati non validi",
                         "Il campo " + std::string(nome) + " contiene \"" + testo +
                             "\", che non è un numero.",
                         Pulsanti::Ok, Icona::Informazione);
        return false;
    }
    // The coordinate and zone boxes read an empty text as 0, as they show it on leaving them.
    bool NumeroOZero(const std::string& testo, const char* nome, double& v) const {
        if (SenzaSpazi(testo).empty()) {
            v = 0;
            return true;
        }
        return Numero(testo, nome, v);
    }

private:
    Messaggi& messaggi_;
};

// The longitude in hours west positive, from degrees, minutes and seconds or one number, in
// degrees or hours as List3 says, east or west as List2 says.
bool LeggiLongitudine(const CampiModulo& c, const LettoreCaselle& n, double& l) {
    if (c.List3 == 0 || c.List3 == 1) {
        double g, m, s;
        if (!n.NumeroOZero(c.Text9, "Longitudine (gradi)", g) ||
            !n.NumeroOZero(c.Text10, "Longitudine (primi)", m) ||
            !n.NumeroOZero(c.Text11, "Longitudine (secondi)", s))
            return false;
        l = GradiDecimali(g, m, s);
    } else if (!n.NumeroOZero(c.Text12, "Longitudine", l)) {
        return false;
    }
    if (c.List3 == 0 || c.List3 == 2) l /= 15;
    if (c.List2 == 0) l = -l;
    return true;
}

// The latitude in degrees north positive, from degrees, minutes and seconds or one number as
// List5 says, north or south as List4 says.
bool LeggiLatitudine(const CampiModulo& c, const LettoreCaselle& n, double& b) {
    if (c.List5 == 0) {
        double g, m, s;
        if (!n.NumeroOZero(c.Text13, "Latitudine (gradi)", g) ||
            !n.NumeroOZero(c.Text14, "Latitudine (primi)", m) ||
            !n.NumeroOZero(c.Text15, "Latitudine (secondi)", s))
            return false;
        b = GradiDecimali(g, m, s);
    } else if (!n.NumeroOZero(c.Text16, "Latitudine", b)) {
        return false;
    }
    if (c.List4 == 1) b = -b;
    return true;
}

} // namespace

bool LeggiTema(const CampiModulo& c, Tema& tema, Messaggi& messaggi) {
    // Every number first: a box that holds no number stops the reading with the record intact.
    const LettoreCaselle n(messaggi);
    double giorno, mese, anno, ora, minuti;
    if (!n.Numero(c.Text3, "Giorno", giorno) || !n.Numero(c.Text4, "Mese", mese) ||
        !n.Numero(c.Text5, "Anno", anno) || !n.Numero(c.Text6, "Ora", ora) ||
        !n.Numero(c.Text7, "Minuti", minuti))
        return false;
    // Day, month and year as the single precision numbers of the boxes.
    giorno = static_cast<float>(giorno);
    mese = static_cast<float>(mese);
    anno = static_cast<float>(anno);
    double l, b;
    if (!LeggiLongitudine(c, n, l) || !LeggiLatitudine(c, n, b)) return false;
    double fh = 0, fm = 0, eh = 0, em = 0;
    if (!n.NumeroOZero(c.Text8, "Fuso (ore)", fh)) return false;
    if (!n.NumeroOZero(c.Text18, "Fuso (minuti)", fm) ||
        !n.NumeroOZero(c.Text22, "Estiva (ore)", eh) ||
        !n.NumeroOZero(c.Text23, "Estiva (minuti)", em))
        return false;
    double f = GradiDecimali(fh, fm, 0);
    // A zone of 99 (or -99) is local mean time: the zone is the longitude itself.
    if (f == 99 || f == -99) f = l;

    if (c.Text2.empty()) {
        messaggi.Mostra("Lyx - Manca Città", "Attenzione! \rNon è stata scelta nessuna Città",
                        Pulsanti::Ok, Icona::Informazione);
        return false;
    }
    tema.Nome = c.Text1;
    tema.City = c.Text2;
    tema.Stato = c.Text19;
    tema.Day = GiornoGiuliano(anno, mese, giorno);
    tema.OraL = GradiDecimali(ora, minuti, 0);
    tema.Estiva = GradiDecimali(eh, em, 0);
    tema.Lon = l;
    tema.Lat = b;
    tema.Fuso = f;
    tema.Cmto.clear();
    return true;
}

bool ControllaGiornoMese(const std::string& testo, bool giorno, Messaggi& messaggi) {
    if (ValoreTesto(testo) > 0) return true;
    messaggi.Mostra("Vesmo - data di Nascita ",
                    std::string("ATTENZIONE, avete inserito un  ") + (giorno ? "DAY" : "MESE") +
                        "  Nullo o Negativo\n" + std::string(30, '-') + "\nJust positive numbers\n",
                    Pulsanti::Ok, Icona::Informazione);
    return false;
}

} // namespace vesmo
