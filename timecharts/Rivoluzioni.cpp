#include "timecharts/Rivoluzioni.h"

#include <cmath>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "ephemeris/Luna.h"
#include "ephemeris/Sole.h"

namespace vesmo {

const std::array<const char*, 24> RigheRitorno{
    " Sole",
    " Luna",
    " Mercurio",
    " Venere",
    " Marte",
    " Giove",
    " Saturno",
    " Urano",
    " Nettuno",
    " Plutone",
    " Nodo Luna Nord",
    "    Ascendente",
    "    Cuspide Casa   2",
    "    Cuspide Casa   3",
    "    Fondo Cielo",
    "    Cuspide Casa   5 ",
    "    Cuspide Casa   6",
    "    Discendente",
    "    Cuspide Casa   8",
    "    Cuspide Casa   9",
    "    Medio Cielo",
    "    Cuspide Casa  11",
    "    Cuspide Casa  12",
    "Grado qualsiasi dell'Eclittica!",
};

double GradoRitorno(int riga, const Posizioni& p, const std::string& testoGrado) {
    auto opposto = [](double lo) { return Norma360(lo + 180, 1); };
    switch (riga) {
    case 0:
        return p.Sole.Lo;
    case 1:
        return p.Luna.Lo;
    case 2:
        return p.Mercurio.Lo;
    case 3:
        return p.Venere.Lo;
    case 4:
        return p.Marte.Lo;
    case 5:
        return p.Giove.Lo;
    case 6:
        return p.Saturno.Lo;
    case 7:
        return p.Urano.Lo;
    case 8:
        return p.Nettuno.Lo;
    case 9:
        return p.Plutone.Lo;
    case 10:
        return p.NodoLuna.Lo;
    case 11:
        return p.Asce.Lo;
    case 12:
        return p.CasaII.Lo;
    case 13:
        return p.CasaIII.Lo;
    case 14:
        return opposto(p.MC.Lo);
    case 15:
        return opposto(p.CasaXI.Lo);
    case 16:
        return opposto(p.CasaXII.Lo);
    case 17:
        return opposto(p.Asce.Lo);
    case 18:
        return opposto(p.CasaII.Lo);
    case 19:
        return opposto(p.CasaIII.Lo);
    case 20:
        return p.MC.Lo;
    case 21:
        return p.CasaXI.Lo;
    case 22:
        return p.CasaXII.Lo;
    default:
        return Norma360(NumeroConVirgola(testoGrado).value_or(0.0), 1);
    }
}

double AngoloSinodico(bool natale, const Posizioni& posNat, const std::string& testoAngolo) {
    if (natale) return Norma360(posNat.Sole.Lo - posNat.Luna.Lo, 1);
    return Norma360(NumeroConVirgola(testoAngolo).value_or(0.0), 1);
}

double LongitudineSole(double jd) {
    double lon, r, ar, de;
    PosizioneSole(jd, 1, lon, r, ar, de);
    return lon;
}

double LongitudineLuna(double jd, Tema& tema, std::int16_t lunaGeo) {
    double lon, lat, parallasse;
    PosizioneLuna(jd, lon, lat, parallasse);
    if (lunaGeo != 0) return lon;
    // The topocentric Moon is seen from the chart's place on the date of jd.
    tema.Day = GiornoZero(jd);
    double tu = (jd - tema.Day) * 24;
    double lonT, latT;
    LunaTopocentrica(tema.Day, tu, tema.Lon, tema.Lat, lon, lat, 0, parallasse, lonT, latT);
    return lonT;
}

double AngoloLunaSole(double jd, Tema& tema, std::int16_t lunaGeo) {
    return Norma360(LongitudineSole(jd) - LongitudineLuna(jd, tema, lunaGeo), 1);
}

namespace {

const char* const AiutoSolare =
    "Rivoluzione Solare: il momento in cui il Sole ritorna sulla sua longitudine natale, o su un "
    "altro punto dell'Eclittica scelto nella lista.\r\n\r\n"
    "Calcolare o caricare un Tema Natale, scegliere nella lista il punto di ritorno e premere "
    "\"Input Dati >>\". Indicare l'anno della Rivoluzione.\r\n\r\n"
    "Per una Rivoluzione rilocata cambiare la città nella maschera di input. La Rivoluzione viene "
    "calcolata anche senza fuso orario e ora estiva, ma l'ora ottenuta non è allora quella "
    "locale.\r\n\r\n"
    "Nella casella dell'anno si può usare la virgola: 1998,5 fa partire la ricerca da luglio "
    "1998. Può servire quando il compleanno è difficile da trovare per l'iterazione.";

const char* const AiutoTropica =
    "Rivoluzione Lunare Tropica: il ritorno della Luna su un punto dell'Eclittica.\r\n"
    "Ciclo di 27 giorni 7 ore 43 minuti 4,7 secondi\r\n\r\n"
    "Scegliere il punto nella lista o scrivere il grado, premere \"Input Dati >>\" e indicare "
    "mese e anno. Per luogo, fuso orario e ora estiva vale quanto detto per le Rivoluzioni "
    "Solari.\r\n\r\n"
    "La Luna è GeoCentrica o TopoCentrica come impostato nel menu.\r\n\r\n"
    "Nella casella del mese si può usare la virgola: 6,5 fa partire la ricerca dal 15 giugno. "
    "Se nel mese cadono due ritorni, si sceglie tra le due date.";

const char* const AiutoSinodica =
    "Rivoluzione Lunare Sinodica (Fasi Lunari).\r\n"
    "Ciclo di 29 giorni 12 ore 44 minuti 2,9 secondi\r\n\r\n"
    "Calcola quando nel mese si forma un dato angolo (fase) tra Luna e Sole: 180 Luna piena, "
    "270 primo quarto, 90 ultimo quarto, 0 Luna nuova. La fase predefinita è quella della "
    "nascita.\r\n\r\n"
    "Con la Luna GeoCentrica un cambio di luogo cambia l'ora locale e le case; con la Luna "
    "TopoCentrica la fase si riferisce al luogo, così che una Luna nuova che sia un'eclisse di "
    "Sole dà il momento del massimo oscuramento in quel luogo.";

const char* const Label4Tropica =
    "Il ritorno della LUNA può essere calcolato in qualsiasi punto della Eclittica. Selezionare "
    "un elemento della lista (es. Luna) o scrivere il grado desiderato (es. 237,4176)";

RegolaSecante Regola(const char* routine, bool limiteStretto) {
    RegolaSecante r;
    r.titoloLoop = std::string("Vesmo - Errori  [frmCheRivoluzione.") + routine + "]";
    r.titoloDivisione = r.titoloLoop;
    r.testoLoop = TestoLoopInfinito;
    if (limiteStretto) {
        // The geocentric synodic loop: bit-equal iterates for ten rounds, then a millisecond.
        r.giriVicinanza = 10;
        r.giriMassimi = 20;
    } else {
        // The other loops end on bit-equal iterates; the secant gets there in a handful of
        // rounds, and the bound only guards against two iterates taking turns for ever.
        r.giriVicinanza = 20;
        r.giriMassimi = 60;
    }
    return r;
}

std::string DataBreve(double jd) {
    float anno, mese, giorno;
    DataDaGiuliano(jd, anno, mese, giorno);
    return std::to_string(static_cast<long>(Fix(giorno))) + "/" +
           std::to_string(static_cast<long>(mese)) + "/" + std::to_string(static_cast<long>(anno));
}

// The secant from x towards the Moon's return on g, with the first neighbour x0 already chosen.
std::optional<double> AffinaLuna(double g, double x, double l, double x0, Tema& tema,
                                 std::int16_t lunaGeo, Messaggi& messaggi,
                                 const Avanzamento& avanzamento) {
    auto f = [&](double t) { return Scostamento(LongitudineLuna(t, tema, lunaGeo), g); };
    return Secante(f, x, Scostamento(l, g), x0, f(x0), Regola("RivLunTro", false), messaggi,
                   avanzamento, "Text2");
}

} // namespace

TestiRivoluzione TestiDellaRivoluzione(TipoRivoluzione tipo) {
    TestiRivoluzione t;
    switch (tipo) {
    case TipoRivoluzione::Solare:
        t.didascalia = "Lyx - Rivoluzioni Solari";
        t.tagInput = "daRivSol";
        t.frame2Input = "Anno della Rivoluzione";
        t.disabilitatiInput = {"Text3", "Text4", "Text6", "Text7", "Text22", "Text23"};
        t.titoloAiuto = "Lyx - Aiuto Rivoluzioni Solari";
        t.testoAiuto = AiutoSolare;
        t.rigaIniziale = 0;
        break;
    case TipoRivoluzione::LunareTropica:
        t.didascalia = "Lyx - Rivoluzione Lunare Tropica";
        t.tagCommand2 = "LunTropica";
        t.label6 = "Lunare  TROPICA";
        t.label4 = Label4Tropica;
        t.titoloAiuto = "Lyx - Aiuto Rivoluzioni Lunari Tropiche";
        t.testoAiuto = AiutoTropica;
        break;
    case TipoRivoluzione::LunareSinodica:
        t.didascalia = "Lyx - Rivoluzione Lunare Sinodica (Fasi Lunari)";
        t.tagCommand2 = "LunSinodica";
        t.label6 = "Lunare  SINODICA";
        t.titoloAiuto = "Lyx - Aiuto Rivoluzioni Lunari Sinodiche";
        t.testoAiuto = AiutoSinodica;
        break;
    }
    if (tipo != TipoRivoluzione::Solare) {
        t.tagInput = "daRivLun";
        t.frame2Input = "Mese e Anno della Rivoluzione";
        t.disabilitatiInput = {"Text3", "Text6", "Text7", "Text22", "Text23"};
        t.rigaIniziale = 1;
    }
    return t;
}

std::string DidascaliaInputRivoluzione(TipoRivoluzione tipo, int riga, double grado,
                                       std::int16_t lunaGeo, bool angoloNatale, double angolo) {
    if (tipo == TipoRivoluzione::LunareSinodica) {
        std::string t = "Lyx - Rivoluzione Lunare Sinodica";
        t += lunaGeo == 1 ? " Geocentrica. Angolo Luna - Sole: "
                          : " Topocentrica. Angolo Luna - Sole: ";
        t += angoloNatale ? std::string(" Natale") : FormatoNumero(angolo, "##0.0###");
        return t;
    }
    std::string t = tipo == TipoRivoluzione::Solare
                        ? "Lyx - Rivoluzione Solare. Ritorno del SOLE su"
                        : "Lyx - Rivoluzione Lunare Tropica. Ritorno di LUNA su";
    if (riga == RigaGradoQualsiasi) return t + "l Grado   " + TestoNumero(grado);
    if (riga < 0 || riga >= static_cast<int>(RigheRitorno.size())) return t + " ";
    return t + " " + RigheRitorno[static_cast<std::size_t>(riga)];
}

Tema PreparaTemaRivoluzione(const Tema& temaNat, TipoRivoluzione tipo, std::int16_t lunaGeo) {
    Tema t = temaNat;
    if (tipo == TipoRivoluzione::Solare) {
        ScriviMarca(t.Nome, 27, " RS");
        return t;
    }
    float anno, mese, giorno;
    DataDaGiuliano(t.Day, anno, mese, giorno);
    t.Day = GiornoGiuliano(anno, mese, 1);
    if (tipo == TipoRivoluzione::LunareTropica)
        ScriviMarca(t.Nome, 22, " RL Tro");
    else
        ScriviMarca(t.Nome, 21, lunaGeo == 1 ? " RL Sin G" : " RL Sin T");
    return t;
}

std::optional<double> IstanteSolare(double g, double annoRiv, Messaggi& messaggi) {
    double x = GiornoGiuliano(annoRiv, 1, 1);
    double l = LongitudineSole(x);
    // One day per degree for the first guess.
    x += l > g ? g + 360 - l : g - l;
    l = LongitudineSole(x);
    double fx = Scostamento(l, g);
    if (std::fabs(fx) <= 1e-11) return x;
    double x0 = fx <= 0 ? x + 5 : x - 5;
    auto f = [g](double t) { return Scostamento(LongitudineSole(t), g); };
    return Secante(f, x, fx, x0, f(x0), Regola("RivSol", false), messaggi);
}

std::optional<double> IstanteLunareTropico(double g, double x, Tema& tema, std::int16_t lunaGeo,
                                           Messaggi& messaggi, const Avanzamento& avanzamento) {
    if (avanzamento) avanzamento("Text2", x);
    x += Norma360(g - LongitudineLuna(x, tema, 1), 1) / MotoMedioLuna;
    if (avanzamento) avanzamento("Text2", x);
    double l = LongitudineLuna(x, tema, lunaGeo);
    double d = Scostamento(l, g);
    if (std::fabs(d) <= 1e-11) return x;
    double x0 = std::fabs(d) < 16 ? x + d / MotoMedioLuna : x + 1.5;
    return AffinaLuna(g, x, l, x0, tema, lunaGeo, messaggi, avanzamento);
}

std::optional<double> IstanteSinodico(double a, double x, Tema& tema, std::int16_t lunaGeo,
                                      Messaggi& messaggi, const Avanzamento& avanzamento) {
    if (avanzamento) avanzamento("Text2", x);
    double arco = AngoloLunaSole(x, tema, 1);
    if (arco < a) arco += 360;
    x += (arco - a) / MotoMedioSinodico;
    // A step that went past the wrap from 0 to 360 is taken one day back.
    arco = AngoloLunaSole(x, tema, 1);
    if (AngoloLunaSole(x - 1, tema, 1) < arco) x -= 1;
    auto f = [&](double t) { return Scostamento(AngoloLunaSole(t, tema, lunaGeo), a); };
    double fx = f(x);
    std::optional<double> esito = x;
    if (std::fabs(fx) > 1e-11) {
        double x0 = x - 0.5;
        esito = Secante(f, x, fx, x0, f(x0), Regola("RivLunSin", lunaGeo == 1), messaggi);
    }
    if (esito && avanzamento) avanzamento("Text2", *esito);
    return esito;
}

EsitoRivoluzione CercaRivoluzione(Sessione& s, const DatiRivoluzione& dati, Messaggi& messaggi,
                                  const Avanzamento& avanzamento) {
    s.DatiOk = 0;
    EsitoRivoluzione e;
    e.AnnoRiv = dati.AnnoRiv;
    Tema& x = s.TemaX;
    const double g = dati.bersaglio;

    if (dati.tipo == TipoRivoluzione::Solare) {
        auto jd = IstanteSolare(g, dati.AnnoRiv, messaggi);
        if (!jd) return e;
        float anno, mese, giorno;
        DataDaGiuliano(*jd, anno, mese, giorno);
        e.AnnoRiv = anno;
        e.jd = *jd;
        ImpostaIstante(x, *jd);
    } else {
        double partenza = GiornoGiuliano(dati.AnnoRiv, dati.MeseRiv, dati.GiornoRiv);
        if (dati.tipo == TipoRivoluzione::LunareSinodica) {
            auto jd = IstanteSinodico(g, partenza, x, s.LunaGeo, messaggi, avanzamento);
            if (!jd) return e;
            e.jd = *jd;
            ImpostaIstante(x, *jd);
        } else {
            auto primo = IstanteLunareTropico(g, partenza, x, s.LunaGeo, messaggi, avanzamento);
            if (!primo) return e;
            float anno1, mese1, giorno1;
            DataDaGiuliano(*primo, anno1, mese1, giorno1);
            e.jd = *primo;
            if (Fix(giorno1) <= 4) {
                // Early in the month a second return may fall in it too.
                double y = *primo + MeseSiderale;
                double l = LongitudineLuna(y, x, s.LunaGeo);
                std::optional<double> secondo = y;
                if (std::fabs(Scostamento(l, g)) > 1e-11)
                    secondo = AffinaLuna(g, y, l, y + Scostamento(l, g) / MotoMedioLuna, x,
                                         s.LunaGeo, messaggi, avanzamento);
                if (!secondo) return e;
                float anno2, mese2, giorno2;
                DataDaGiuliano(*secondo, anno2, mese2, giorno2);
                if (mese2 == mese1) {
                    e.dueRitorni = true;
                    e.jdPrimo = *primo;
                    e.jd = *secondo;
                    e.command4 = DataBreve(*primo);
                    e.command5 = DataBreve(*secondo);
                }
            }
            if (e.dueRitorni) {
                ImpostaIstante(x, e.jdPrimo);
                s.TemaBase = x;
                s.JDPrimoRitorno = e.jdPrimo;
            }
            ImpostaIstante(x, e.jd);
        }
    }
    s.JDRivoluzione = e.jd;
    e.trovato = true;
    e.label5 = e.dueRitorni ? Label5DueRitorni : Label5Trovato;
    e.tagLabel5 = e.dueRitorni ? TagDueRitorni : "";
    if (!e.dueRitorni) e.command4 = "&Calcola >>";
    return e;
}

void AccettaRivoluzione(Sessione& s, const EsitoRivoluzione& esito, bool primo) {
    if (primo && esito.tagLabel5 == TagDueRitorni) {
        s.TemaX = s.TemaBase;
        s.JDRivoluzione = s.JDPrimoRitorno;
    }
    s.DatiOk = -1;
}

} // namespace vesmo
