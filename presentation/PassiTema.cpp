#include "presentation/PassiTema.h"

#include <algorithm>
#include <cmath>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/NumeroDigitato.h"

namespace vesmo {

namespace {

const char* const Trattini = "------------------------------";

} // namespace

std::optional<double> PassoDigitato(const std::string& testo, Messaggi& messaggi) {
    std::optional<double> quanti = NumeroDigitato(testo);
    if (!quanti)
        messaggi.Mostra("Lyx - Passo del Transito",
                        "Il passo deve essere un numero: " + testo +
                            "\nIl separatore decimale è la VIRGOLA.\n" + Trattini +
                            "\nThe step must be a number.\n",
                        Pulsanti::Ok, Icona::Esclamativo);
    return quanti;
}

int PassoConFrecce(const std::string& testo, int verso) {
    const std::optional<double> ora = NumeroDigitato(testo);
    const long valore = ora && std::fabs(*ora) < 1e6 ? std::lround(*ora) : 0;
    return static_cast<int>(std::clamp<long>(valore + verso, -30, 30));
}

std::optional<double> ChiediAngolo(Messaggi& messaggi, const std::string& titolo,
                                   const std::string& domanda, float attuale) {
    std::string predefinito = TestoSingolo(attuale);
    if (predefinito.empty()) predefinito = "0";
    std::string testo = messaggi.Chiedi(titolo, domanda, predefinito).value_or("");
    if (testo.empty()) testo = "0";
    std::optional<double> angolo = NumeroDigitato(testo);
    if (!angolo)
        messaggi.Mostra(titolo,
                        "L'angolo deve essere un numero: " + testo +
                            "\nIl separatore decimale è la VIRGOLA.\n" + Trattini +
                            "\nThe angle must be a number.\n",
                        Pulsanti::Ok, Icona::Esclamativo);
    return angolo;
}

void PassoTempo(Tema& tema, UnitaTempo unita, double quanti) {
    double ore, minuti, secondi;
    GradiPrimiSecondi(tema.OraL, ore, minuti, secondi);
    float a, m, g;
    DataDaGiuliano(tema.Day, a, m, g);
    double anno = a, mese = m, giorno = g;
    switch (unita) {
    case UnitaTempo::Secondi:
        secondi += quanti;
        break;
    case UnitaTempo::Minuti:
        minuti += quanti;
        break;
    case UnitaTempo::Ore:
        ore += quanti;
        break;
    case UnitaTempo::Giorni:
        giorno += quanti;
        break;
    case UnitaTempo::Mesi:
        mese += quanti;
        break;
    case UnitaTempo::Anni:
        anno += quanti;
        break;
    }

    // Carries: the whole part passes on, the remainder keeps its sign.
    minuti += Fix(secondi / 60);
    secondi = std::fmod(secondi, 60.0);
    ore += Fix(minuti / 60);
    minuti = std::fmod(minuti, 60.0);
    giorno += Fix(ore / 24);
    ore = std::fmod(ore, 24.0);

    // Borrows.
    if (secondi < 0) {
        secondi += 60;
        minuti -= 1;
    } else if (secondi >= 59.99) {
        minuti += 1;
        secondi = 0;
    }
    if (minuti < 0) {
        minuti += 60;
        ore -= 1;
    } else if (minuti >= 59.99) {
        ore += 1;
        minuti = 0;
    }
    if (ore < 0) {
        ore += 24;
        giorno -= 1;
    } else if (ore >= 24) {
        ore -= 24;
        giorno += 1;
    }

    tema.OraL = GradiDecimali(ore, minuti, secondi);
    tema.Day = GiornoGiuliano(anno, mese, giorno);
}

const Posizioni& RifaiTransito(Sessione& s, const Tema& spostato, Messaggi& messaggi) {
    s.TemaTra = spostato;
    s.PosTra = s.PosVuoto;
    Case cuspidi;
    CastaTema(s.TemaTra, cuspidi, s.PosTra, s.LunaGeo, messaggi);
    return s.PosTra;
}

std::optional<Quando> QuandoDelTema(const Tema& tema) {
    float a, m, g;
    DataDaGiuliano(tema.Day, a, m, g);
    double ore, minuti, secondi;
    GradiPrimiSecondi(tema.OraL, ore, minuti, secondi);
    // Whole seconds; a clock time that is a whole second but for the last bits of the decimal
    // hours counts as that second.
    double interi = Int(secondi + 1e-6);
    if (interi > 59 && secondi < 60) interi = 59;
    Quando q{static_cast<int>(a),   static_cast<int>(m),      static_cast<int>(g),
             static_cast<int>(ore), static_cast<int>(minuti), static_cast<int>(interi)};
    if (a != q.anno || m != q.mese || g != q.giorno) return std::nullopt;
    if (q.anno < 100 || q.anno > 9999 || q.mese < 1 || q.mese > 12 || q.giorno < 1)
        return std::nullopt;
    static constexpr int giorni[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bisestile = (q.anno % 4 == 0 && q.anno % 100 != 0) || q.anno % 400 == 0;
    if (q.giorno > giorni[q.mese - 1] || (q.mese == 2 && q.giorno == 29 && !bisestile))
        return std::nullopt;
    if (tema.OraL < 0 || q.ore > 23 || q.minuti > 59 || q.secondi > 59) return std::nullopt;
    return q;
}

} // namespace vesmo
