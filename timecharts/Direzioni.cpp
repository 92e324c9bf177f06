#include "timecharts/Direzioni.h"

#include <cmath>
#include <string>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "timecharts/Istanti.h"

namespace vesmo {

void TogliEstiva(Tema& t) {
    if (t.Estiva > 0) {
        t.OraL -= t.Estiva;
        t.Estiva = 0;
        if (t.OraL < 0) {
            t.OraL += 24;
            t.Day -= 1;
        }
    }
}

namespace {

void MarcaProgressione(Tema& t, float api) {
    std::string marca = " P. " + FormatoNumero(api, "##0.00");
    ScriviMarca(t.Nome, 30 - static_cast<int>(marca.size()), marca);
}

} // namespace

Tema DirezionePerAnni(const Tema& temaNat, float api) {
    Tema t = temaNat;
    t.Day = t.Day + api;
    TogliEstiva(t);
    t.Cmto.clear();
    MarcaProgressione(t, api);
    return t;
}

Tema DirezionePerData(const Tema& temaNat, const Tema& input, bool frazione, float& api) {
    Tema x = input;
    TogliEstiva(x);
    api = static_cast<float>(((x.Day + x.OraL / 24) - (temaNat.Day + temaNat.OraL / 24)) /
                             (36525.0 / 100));
    api = static_cast<float>(Fix(api * 100.0f) / 100);
    if (!frazione) api = static_cast<float>(Fix(api));
    Tema t = temaNat;
    t.Day = api + temaNat.Day;
    MarcaProgressione(t, api);
    return t;
}

std::string TestoFrazioneAnno() {
    const char* righe[] = {
        "Calcolo sperimentale inteso a fornire un aiuto nella ",
        "datazione delle RS,                ",
        "se ne è stata caricata una come Tema Natale. ",
        "",
        "L'intervallo di tempo tra la data del Tema Natale  e quella di input viene ",
        "ridotto a frazione di anno, come ",
        "nelle direzioni secondarie. ",
        "Il movimento delle case è libero: in un anno ",
        "ruotano dell'intero cerchio ",
        "zodiacale riportandosi  'quasi'  nella posizione iniziale. ",
        "In frazioni di anno l'Ascendente ruota approssimativamente ",
        "di una casa ogni mese. ",
        "",
        "Esempio. Data del tema caricato come Tema Natale 11/8/1997",
        "Data di input 8/3/1998. Si ottiene la progressione 0,57.",
        "",
        "I Pianeti si muovono ma l'unico moto apprezzabile è quello lunare di circa ",
        "13 gradi al giorno.",
        "",
        "E' possibile ma inutile calcolare queste Direzioni per tempi che distano ",
        "più di un anno, tra due compleanni, dal momento iniziale. ",
    };
    std::string t;
    for (const char* r : righe) {
        if (!t.empty()) t += "\r\n";
        t += r;
    }
    return t;
}

std::string TestoAiutoFrazione() {
    return "Calcolando i temi dei giorni successivi alla nascita alla stessa ora si ottengono le "
           "progressioni degli anni a venire: un giorno per un anno.\r\n\r\n"
           "Calcolando invece il tema del giorno scelto come base, spesso una Rivoluzione "
           "Solare, a un'altra ora e nello stesso luogo, si ottiene la progressione di una "
           "frazione di anno del tema di base. Si muovono in modo apprezzabile solo le case e "
           "la Luna, e queste direzioni possono aiutare a datare una Rivoluzione Solare.\r\n\r\n"
           "Esempio. Caricare come Tema Natale la Rivoluzione Solare del 20/10/1997 ore 8:15 e "
           "inserire come data di input  4/3/1998  ore 12:00. Si ottiene la progressione "
           "0,37.";
}

bool ChiediFrazioneAnno(Messaggi& messaggi) {
    return messaggi.Mostra(TitoloFrazioneAnno, TestoFrazioneAnno(), Pulsanti::SiNo,
                           Icona::Informazione) == Risposta::Si;
}

double DirezioneFrazioneAnno(Sessione& s, bool datiOk, Messaggi& messaggi) {
    const Tema& nat = s.TemaNat;
    const Tema& input = s.TemaX;
    float yN, mN, dN, yI, mI, dI;
    DataDaGiuliano(nat.Day, yN, mN, dN);
    DataDaGiuliano(input.Day, yI, mI, dI);
    float a = yI - yN;
    int b = 0;
    if (mI < mN || (mI == mN && dI < dN)) {
        // The birthday of this year has not come yet.
        a -= 1;
        b = 1;
    }
    Tema dir = nat;
    dir.Day = nat.Day + a;
    double j0 = GiornoGiuliano(yI - b, mN, dN + nat.OraL / 24);
    double j1 = GiornoGiuliano(yI - b + 1, mN, dN + nat.OraL / 24);
    double n = std::nearbyint(j1 - j0);
    double e = GiornoGiuliano(yI, mI, dI + input.OraL / 24) - j0;
    dir.OraL = e / n * 24 + nat.OraL;
    if (dir.OraL >= 24) {
        dir.Day += 1;
        dir.OraL -= 24;
    }
    double api = e / n + a;
    if (api > 1)
        messaggi.Mostra(TitoloAvvisoApi,
                        "Attenzione! \r\nE' stata impostata una data che conduce \r\nla variabile "
                        " api (anni progressi)  \r\nad un valore maggiore di 1. \r\n\r\napi = " +
                            FormatoNumero(api, "#0.00"),
                        Pulsanti::Ok, Icona::Informazione);
    ScriviMarca(dir.Nome, 22, "P. " + FormatoNumero(api, "#0.00"));
    s.TemaDir = dir;
    if (datiOk) {
        s.DirezioneCalcolata = -1;
        s.TemaX = s.TemaDir;
    }
    return api;
}

} // namespace vesmo
