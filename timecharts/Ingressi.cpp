#include "timecharts/Ingressi.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "chart/Case.h"
#include "core/Aritmetica.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "ephemeris/Pianeti.h"
#include "ephemeris/Plutone.h"
#include "ephemeris/Sole.h"

namespace vesmo {

const std::array<const char*, 9> VociPianetiIngresso{
    " Mercurio", " Venere",  " Marte",   " Giove",          " Saturno",
    " Urano",    " Nettuno", " Plutone", " Nodo Luna Nord",
};

int PianetaDellaLista(int riga) {
    if (riga < 0 || riga >= static_cast<int>(VociPianetiIngresso.size())) return -1;
    return riga + 1 + (riga >= 2 ? 1 : 0);
}

double PeriodoMedio(int n) {
    static const double periodi[] = {88,        224.7,      0,       687,       4331.865,
                                     10760.265, 30684.6525, 60193.2, 90472.425, 6574.5};
    return n >= 1 && n <= 10 ? periodi[n - 1] : 0;
}

std::filesystem::path CartellaTemporanea() {
    std::error_code ec;
    auto p = std::filesystem::temp_directory_path(ec);
    return ec ? std::filesystem::path("/tmp") : p;
}

std::string TestoAiutoInSegni() {
    return "  Permette di calcolare quando un Pianeta sarà ad un certo grado della  Eclittica.  "
           "\r\n\r\n"
           "  Oltre agli ingressi nei segni si possono trovare le rivoluzioni planetarie: basta "
           "dare come Bersaglio la longitudine natale del Pianeta.\r\n\r\n"
           "  Il JD Partenza deve essere vicino al giorno  esatto. Più è vicino, più facile sarà "
           "il calcolo.\r\n\r\n"
           "  Esempio: Mercurio il 26/10/1998, JD 2451113, è a 232,1265 gradi. Con Bersaglio 240 "
           "si ottiene il 1/11/1998 alle 16:58 (TU).\r\n\r\n"
           "  I pulsanti TN, T, R, D scrivono in JD Partenza il giorno giuliano del Tema Natale, "
           "del Transito, della Rivoluzione o della Direzione già calcolati.\r\n\r\n"
           "  Gli altri dati (luogo, fuso, ora estiva) sono quelli del Tema Natale.";
}

double LongitudineIngresso(double jd, int n) {
    if (n == NumNodoLuna) return Norma360(NodoMedio(jd), 1);
    PosEliocentrica elio;
    if (n == NumPlutone) {
        Plutone(jd, elio);
    } else {
        Elementi el;
        double anomalia;
        ElementiPianeta(jd, n, 1, el, anomalia);
        PianetaEliocentrico(jd, n, 1, el, anomalia, elio);
    }
    PosGeocentrica geo;
    double elongazione;
    PianetaGeocentrico(jd, n, 1, elio, geo, elongazione);
    return geo.lon;
}

namespace {

const char* const CodaErrore = "\r\n Trascrivere i dati di Input \r\n Uscire dal programma "
                               "\r\n Esaminare il sorgente. \r\n Auguri... ";
const char* const TestoDivisione =
    "DIVISIONE PER 0 nella iterazione Secante. \r\nCambiare i valori di Input. \r\n"
    "Scegliere un JD più vicino o/e  aggiungere/togliere  una\r\nquantità piccolissima al "
    "Bersaglio";
const char* const TestoLoop = " ENTRATO IN UN LOOP SENZA FINE \r\n\r\n Ripetere Ingressi nei "
                              "Segni con altri valori di partenza  ";

// The search stops: its box has been shown.
struct Interrotta {};

struct Riga {
    double Ges = 0, Les = 0;
    int Mv = 0, Cvg = 0;
};

// TabellaPinS in its temporary file, made new by each run: a file of its own, created
// exclusively, so that runs at the same time and files left by others do not meet.
class TabellaPinS {
public:
    TabellaPinS(const std::filesystem::path& cartella, bool conserva) : conserva_(conserva) {
        std::error_code ec;
        std::filesystem::create_directories(cartella, ec);
        std::string modello =
            (cartella / (std::string(FileTemporaneoPinS) + "_XXXXXX.mdb")).string();
        const int fd = ::mkstemps(modello.data(), 4);
        if (fd < 0)
            throw std::runtime_error("Impossibile creare il file temporaneo della ricerca in " +
                                     cartella.string() + ": " + std::strerror(errno));
        ::close(fd);
        file_ = modello;
        try {
            // An empty file opens as an empty database.
            db_.Apri(file_);
            db_.CreaTabella("TabellaPinS",
                            {{"Ges", TipoCampo::Doppio},
                             {"Les", TipoCampo::Doppio},
                             {"Mv", TipoCampo::Intero16},
                             {"Cvg", TipoCampo::Intero16}},
                            {{"Tempi", {"Ges"}}});
            cur_.emplace(db_, "TabellaPinS");
            cur_->Index("Tempi");
            // One transaction for the run: the file is scratch, and a commit a sample would
            // spend the search's time waiting on the disk.
            db_.IniziaTransazione();
        } catch (...) {
            cur_.reset();
            db_.Chiudi();
            Rimuovi();
            throw;
        }
    }
    ~TabellaPinS() {
        try {
            db_.ConfermaTransazione();
        } catch (const std::exception&) {
            // The table is left as the last statement wrote it; nothing reads it later.
        }
        cur_.reset();
        db_.Chiudi();
        if (!conserva_) Rimuovi();
    }
    TabellaPinS(const TabellaPinS&) = delete;
    TabellaPinS& operator=(const TabellaPinS&) = delete;

    const std::filesystem::path& File() const { return file_; }

    void Scrivi(double ges, double les) {
        cur_->AddNew();
        cur_->Imposta("Ges", ges);
        cur_->Imposta("Les", les);
        cur_->Imposta("Mv", 0);
        cur_->Imposta("Cvg", 0);
        cur_->Update();
    }
    bool Trova(double ges) {
        cur_->Seek("=", ges);
        return !cur_->NoMatch();
    }
    // Rewrites a row found by its time.
    void Riscrivi(const Riga& r) {
        if (!Trova(r.Ges)) return;
        cur_->Edit();
        cur_->Imposta("Les", r.Les);
        cur_->Imposta("Mv", r.Mv);
        cur_->Imposta("Cvg", r.Cvg);
        cur_->Update();
    }
    // All rows in time order.
    std::vector<Riga> Righe() {
        std::vector<Riga> v;
        if (cur_->RecordCount() == 0) return v;
        for (cur_->MoveFirst(); !cur_->Eof(); cur_->MoveNext())
            v.push_back({cur_->Campo("Ges").Numero(), cur_->Campo("Les").Numero(),
                         static_cast<int>(cur_->Campo("Mv").Intero()),
                         static_cast<int>(cur_->Campo("Cvg").Intero())});
        return v;
    }

private:
    void Rimuovi() {
        std::error_code ec;
        std::filesystem::remove(file_, ec);
        std::filesystem::remove(file_.string() + "-journal", ec);
    }

    bool conserva_;
    std::filesystem::path file_;
    Database db_;
    std::optional<Cursore> cur_;
};

class Ricerca {
public:
    Ricerca(const DatiIngresso& d, Messaggi& m, const Avanzamento& a)
        : n_(d.pianeta), bersaglio_(d.bersaglio), m_(m), av_(a),
          tabella_(d.cartella.empty() ? CartellaTemporanea() : d.cartella, d.conservaFile) {}

    const std::filesystem::path& FileTemporaneo() const { return tabella_.File(); }

    EsitoIngresso Esegui(double partenza);

private:
    int n_;
    double bersaglio_;
    Messaggi& m_;
    const Avanzamento& av_;
    TabellaPinS tabella_;
    bool giro_ = false; // longitudes below 60 count above 360
    int ripetizioni_ = 0;
    std::optional<StazioneTrovata> stazione_;

    void Mostra(const char* controllo, double v) {
        if (av_) av_(controllo, v);
    }
    [[noreturn]] void Ferma(const std::string& titolo, const std::string& testo) {
        m_.Mostra(titolo, testo, Pulsanti::Ok, Icona::Critico);
        throw Interrotta{};
    }
    double Lon(double jd) const {
        double l = LongitudineIngresso(jd, n_);
        return giro_ && l < 60 ? l + 360 : l;
    }
    // A sample: appended when its time is new; the same time met three times is a loop.
    double Campione(double jd) {
        double l = Lon(jd);
        if (tabella_.Trova(jd)) {
            if (++ripetizioni_ >= 3) Ferma("Lyx - Loop Infinito", TestoLoop);
        } else {
            tabella_.Scrivi(jd, l);
        }
        return l;
    }
    void Sorvola(double jd0, double jd2);
    void Srotola();
    double Dicotomica(const std::vector<Riga>& righe, std::size_t cn, bool massimo);

    // The three points of the secant: two known samples and the estimate.
    double jd0_ = 0, l0_ = 0, jd1_ = 0, l1_ = 0, jd2_ = 0;
    // What the search does after a survey: the secant again, another survey, or stop.
    enum class Seguito { Secante, Sorvolo, Fine };

    // The first two samples: the start and the point the mean motion gives for the target,
    // halved towards the start while farther from the target (down to two days). False when
    // the start is on the target already. Unwraps a start and target across 0 degrees.
    bool Avvia(double partenza);
    // Secant steps from the two points while each new sample comes nearer the target; true
    // when the estimate stops moving (the answer is jd2_), false when a sample moves away.
    bool Secante();
    // A pair of adjacent rows of the table that brackets the target becomes the two points.
    bool Parentesi(const std::vector<Riga>& righe);
    // Writes each row's motion and approach to the target; stops the search on a row that
    // neither moves nor changes its distance.
    void Moti(std::vector<Riga>& righe);
    // From the first row that moves away from the target: more samples near the start or the
    // end of the table, or, in between, a station found by bisection into `risultato`.
    Seguito DopoMoti(const std::vector<Riga>& righe, double& risultato);
    // Samples around the estimate, unwraps the table, then Parentesi, else Moti and DopoMoti.
    Seguito Sorvolo(double& risultato);
};

// Samples around jd2, on both sides, the longer way towards jd0.
void Ricerca::Sorvola(double jd0, double jd2) {
    double h = jd0 < jd2 ? 1.3 : std::max(std::fabs(jd2 - jd0) / 6.1, 1.0);
    for (int k = 1; k <= 6; ++k)
        Campione(jd2 + k * h);
    h = jd0 < jd2 ? std::max(std::fabs(jd2 - jd0) / 6.1, 1.0) : 1.3;
    for (int k = 1;; ++k) {
        double t = jd2 - k * h;
        Campione(t);
        if (k >= 6 && t < jd0) break;
    }
}

// A passage from above 330 to below 60 carries the rest of the table past 360.
void Ricerca::Srotola() {
    auto righe = tabella_.Righe();
    for (std::size_t i = 0; i + 1 < righe.size(); ++i) {
        if (righe[i].Les > 330 && righe[i + 1].Les < 60) {
            righe[i + 1].Les += 360;
            tabella_.Riscrivi(righe[i + 1]);
            giro_ = true;
            if (bersaglio_ < 60) bersaglio_ += 360;
        }
    }
}

double Ricerca::Dicotomica(const std::vector<Riga>& righe, std::size_t cn, bool massimo) {
    double a = righe[cn - 4].Ges, la = righe[cn - 4].Les;
    double b = righe[cn + 5].Ges, lb = righe[cn + 5].Les;
    double c = righe[cn].Ges, lc = righe[cn].Les;
    auto meglio = [massimo](double x, double y) { return massimo ? x > y : x < y; };
    int nA = 0, nB = 0;
    bool mosso = false;
    double lma = 0, lmb = 0;
    for (int giro = 0; giro < 2000; ++giro) {
        double ma = (a + c) / 2, mb = (b + c) / 2;
        Mostra("Text3", ma);
        Mostra("Text6", mb);
        Mostra("Text7", nA);
        Mostra("Text8", nB);
        if (mosso || nA <= 2) lma = Lon(ma);
        if (mosso || nB <= 1) lmb = Lon(mb);
        if (lma == lmb)
            Ferma(massimo ? "Lyx - Errore DIC2" : "Lyx - Errore DIC1",
                  std::string(" ERRORE sub IngressiPinS  blocco iterazione Dicotomica ") +
                      CodaErrore);
        double prima = c;
        if (meglio(lmb, lma) && meglio(lmb, lc)) {
            c = mb;
            lc = lmb;
        } else if (meglio(lma, lmb) && meglio(lma, lc)) {
            c = ma;
            lc = lma;
        }
        mosso = c != prima;
        Mostra("Text5", c);
        Mostra("Text4", lc);
        if (!mosso) {
            if (meglio(lma, la)) {
                a = ma;
                la = lma;
                nA = 0;
            } else {
                ++nA;
            }
            if (meglio(lmb, lb)) {
                b = mb;
                lb = lmb;
                nB = 0;
            } else {
                ++nB;
            }
        }
        bool uguali = std::fabs(lc - la) <= 1e-11 && std::fabs(lc - lb) <= 1e-11 &&
                      std::fabs(la - lb) <= 1e-11;
        if (uguali || (nA > 2 && nB > 2)) return c;
    }
    Ferma("Lyx - Loop Infinito", TestoLoop);
}

bool Ricerca::Avvia(double partenza) {
    jd0_ = partenza;
    l0_ = Lon(jd0_);
    // A start and a target on the two sides of 0 degrees are unwrapped at once, as the survey
    // unwraps its samples, so that the search goes the short way round.
    if ((l0_ > 330 && bersaglio_ < 60) || (l0_ < 60 && bersaglio_ > 330)) {
        giro_ = true;
        if (bersaglio_ < 60) bersaglio_ += 360;
        l0_ = Lon(jd0_);
    }
    tabella_.Scrivi(jd0_, l0_);
    const double d = std::fabs(bersaglio_ - l0_);
    if (std::fabs(l0_ - bersaglio_) <= 1e-11) return false;
    jd1_ = jd0_ + (bersaglio_ - l0_) * PeriodoMedio(n_) / 360;
    l1_ = Lon(jd1_);
    tabella_.Scrivi(jd1_, l1_);
    Mostra("Text3", jd1_);
    // A second point farther than the first is halved towards it, down to two days.
    while (std::fabs(bersaglio_ - l1_) > d) {
        jd1_ = (jd0_ + jd1_) / 2;
        if (std::fabs(jd1_ - jd0_) <= 2) break;
        l1_ = Lon(jd1_);
        tabella_.Scrivi(jd1_, l1_);
        Mostra("Text3", jd1_);
    }
    jd2_ = jd1_;
    return true;
}

bool Ricerca::Secante() {
    double d = std::fabs(bersaglio_ - l1_);
    for (;;) {
        if (l1_ == l0_) Ferma("Lyx - Divisione per zero", TestoDivisione);
        jd2_ = jd1_ - (l1_ - bersaglio_) * (jd1_ - jd0_) / (l1_ - l0_);
        Mostra("Text5", jd2_);
        if (jd2_ == jd1_) return true;
        const double l2 = Campione(jd2_);
        Mostra("Text4", l2);
        if (std::fabs(bersaglio_ - l2) > d) return false;
        d = std::fabs(bersaglio_ - l2);
        jd0_ = jd1_;
        l0_ = l1_;
        jd1_ = jd2_;
        l1_ = l2;
    }
}

bool Ricerca::Parentesi(const std::vector<Riga>& righe) {
    for (std::size_t i = 0; i + 1 < righe.size(); ++i) {
        const double lo = std::min(righe[i].Les, righe[i + 1].Les);
        const double hi = std::max(righe[i].Les, righe[i + 1].Les);
        if (lo < bersaglio_ && bersaglio_ < hi) {
            jd0_ = righe[i].Ges;
            l0_ = Lon(jd0_);
            jd1_ = righe[i + 1].Ges;
            l1_ = Lon(jd1_);
            return true;
        }
    }
    return false;
}

void Ricerca::Moti(std::vector<Riga>& righe) {
    for (std::size_t i = 1; i < righe.size(); ++i) {
        Riga& r = righe[i];
        const Riga& p = righe[i - 1];
        if (r.Les == p.Les)
            Ferma("Lyx - Pianeta NON diretto e NON retrogrado",
                  std::string(" ERRORE sub IngressiPinS  blocco OO ") + CodaErrore);
        r.Mv = r.Les > p.Les ? 1 : 2;
        const double dr = std::fabs(bersaglio_ - r.Les), dp = std::fabs(bersaglio_ - p.Les);
        if (dr == dp)
            Ferma("Lyx - La funziome NON converge e NON divege",
                  std::string(" ERRORE sub IngressiPinS  blocco OO ") + CodaErrore);
        r.Cvg = dr < dp ? 1 : 2;
        tabella_.Riscrivi(r);
    }
}

Ricerca::Seguito Ricerca::DopoMoti(const std::vector<Riga>& righe, double& risultato) {
    std::size_t r = 0;
    while (r < righe.size() && righe[r].Cvg != 2)
        ++r;
    if (r == righe.size()) return Seguito::Secante; // with the samples the table holds
    if (r < 5) {
        jd2_ = (righe[r - 1].Ges + righe[r].Ges) / 2;
        Campione(jd2_);
        return Seguito::Sorvolo;
    }
    if (righe.size() - 1 - r < 6) {
        jd2_ = righe.back().Ges;
        return Seguito::Sorvolo;
    }
    // The longitude turns back before the target: a station.
    const std::size_t cn = r - 1;
    StazioneTrovata st;
    st.direzione = righe[cn].Mv == 1 ? "RETROGRADO" : "DIRETTO";
    st.estremo = righe[cn].Mv == 1 ? "MASSIMO" : "MINIMO";
    stazione_ = st;
    risultato = Dicotomica(righe, cn, righe[r].Mv == 2);
    return Seguito::Fine;
}

Ricerca::Seguito Ricerca::Sorvolo(double& risultato) {
    Sorvola(jd0_, jd2_);
    Srotola();
    auto righe = tabella_.Righe();
    if (Parentesi(righe)) return Seguito::Secante;
    Moti(righe);
    return DopoMoti(righe, risultato);
}

EsitoIngresso Ricerca::Esegui(double partenza) {
    EsitoIngresso e;
    if (!Avvia(partenza)) {
        e.giaSulBersaglio = true;
        return e;
    }
    double risultato = jd1_;
    const bool trovato = std::fabs(l1_ - bersaglio_) <= 1e-11;
    Seguito seguito = Seguito::Secante;
    for (int giro = 0; !trovato; ++giro) {
        if (giro > 200) Ferma("Lyx - Loop Infinito", TestoLoop);
        if (seguito == Seguito::Secante && Secante()) {
            risultato = jd2_;
            break;
        }
        // The secant moved away: survey around the estimate, unwrap, look for a bracket.
        seguito = Sorvolo(risultato);
        if (seguito == Seguito::Fine) break;
    }
    e.trovato = true;
    e.jd = risultato;
    e.longitudine = LongitudineIngresso(risultato, n_);
    e.stazione = stazione_;
    return e;
}

} // namespace

EsitoIngresso IngressiPinS(Sessione& s, const DatiIngresso& dati, Messaggi& messaggi,
                           const Avanzamento& avanzamento) {
    if (dati.pianeta < 1 || dati.pianeta > 10 || dati.pianeta == NumTerra) {
        messaggi.Mostra("Lyx - Manca il Pianeta", "Attenzione!\r\n\r\nSelezionare un Pianeta",
                        Pulsanti::Ok, Icona::Esclamativo);
        return {};
    }
    EsitoIngresso e;
    try {
        Ricerca ricerca(dati, messaggi, avanzamento);
        e = ricerca.Esegui(dati.partenza);
        if (dati.conservaFile) e.fileTemporaneo = ricerca.FileTemporaneo();
    } catch (const Interrotta&) {
        return {};
    } catch (const std::exception& ex) {
        messaggi.Mostra("Lyx - Errore  [frmInSegni.IngressiPinS]", ex.what(), Pulsanti::Ok,
                        Icona::Critico);
        EsitoIngresso fallito;
        fallito.errore = ex.what();
        return fallito;
    }
    if (!e.trovato) return e;
    s.TemaX = s.TransitoCalcolato ? s.TemaTra : s.TemaNat;
    ImpostaIstante(s.TemaX, e.jd);
    ScriviMarca(s.TemaX.Nome, 25, " Tra");
    return e;
}

} // namespace vesmo
