#include "astrolog/Astrolog.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

const std::array<const char*, 6> VociCombo1 = {"TROPICO",     "Fagan Bradley (Sideral)",
                                               "N.C. Lahiri", "Krishnamurti",
                                               "B.V. Raman",  "Siderale Non default"};

const std::array<const char*, 15> VociCombo2 = {
    " PLACIDO ",       " Koch",           " Eguali",  " Campanus",      " Meridiane",
    " Regiomontanus ", " Porfirio",       " Morinus", " Topocentriche", " Alcabitius",
    " Eguali (MC)",    " Neo - Porfirio", " Whole",   " Vediche",       " Nessuna"};

namespace {

const std::string Trattini(30, '-');

const char* const NomiMesi[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// A number in plain form; minutes (and seconds) with a "0" in front below 10.
std::string Piano(double x) {
    return TestoNumero(x);
}
std::string DueCifre(double x) {
    return (x < 10 ? "0" : "") + TestoNumero(x);
}

// Degrees and minutes of a split, the minutes one up when the seconds are above 30 (and they
// may then read 60: there is no carry into the degrees).
void GradiEPrimi(double x, double& gradi, double& primi) {
    double secondi;
    GradiPrimiSecondi(x, gradi, primi, secondi);
    if (secondi > 30) primi += 1;
}

// Every occurrence of `ago`, ignoring the case of ASCII letters, taken out of `testo`.
std::string TogliSenzaCaso(std::string testo, std::string_view ago) {
    std::string r;
    std::size_t da = 0;
    for (;;) {
        std::size_t p = CercaSenzaCaso(std::string_view(testo).substr(da), ago);
        if (p == std::string::npos) break;
        r += testo.substr(da, p);
        da += p + ago.size();
    }
    return r + testo.substr(da);
}

// The text of a fixed field cut to its first letter and a point.
std::string PrimaLetteraEPunto(const std::string& campo) {
    return PrimiCaratteri(SenzaSpazi(campo), 1) + ".";
}

PezziComando PezziDelTema(const Tema& tema) {
    PezziComando p;
    double h, m, s;

    GradiPrimiSecondi(std::fabs(tema.Fuso), h, m, s);
    p.SwZ = "-z " + std::string(tema.Fuso < 0 ? "-" : "") + Piano(h) + ":" + DueCifre(m) + ":" +
            DueCifre(Fix(s)) + " ";

    GradiEPrimi(tema.Estiva, h, m);
    p.SwZ0 = "-z0 " + Piano(h) + ":" + DueCifre(m) + " ";

    double lg, lm, bg, bm;
    GradiEPrimi(std::fabs(tema.Lon) * 15, lg, lm);
    GradiEPrimi(std::fabs(tema.Lat), bg, bm);
    p.SwZl = "-zl " + Piano(lg) + (tema.Lon < 0 ? "E" : "W") + DueCifre(lm) + " " + Piano(bg) +
             (tema.Lat < 0 ? "S" : "N") + DueCifre(bm) + " ";

    GradiPrimiSecondi(tema.OraL, h, m, s);
    p.SwZt = "-zt " + Piano(h) + ":" + DueCifre(std::nearbyint(m)) + " ";

    float anno, mese, giorno;
    DataDaGiuliano(tema.Day, anno, mese, giorno);
    p.SwZd = "-zd " + Piano(giorno) + " ";
    p.SwZm = "-zm " + Piano(mese) + " ";
    p.SwZy = "-zy " + Piano(anno) + " ";

    const std::string q(1, '"');
    p.SwZi = "-zi " + q + SenzaSpazi(tema.Nome.str()) + q + " " + q + SenzaSpazi(tema.City.str()) +
             q + " ";
    return p;
}

std::string Sid(const SceltaAstrolog& scelta) {
    switch (scelta.Combo1) {
    case 1:
        return "-s  ";
    case 2:
        return "-s 0.883333 ";
    case 3:
        return "-s 0.983333 ";
    case 4:
        return "-s 2.333333 ";
    case IndiceSideraleUtente: {
        std::string t = scelta.Text17;
        for (char& c : t)
            if (c == ',') c = '.';
        return "-s " + t + " ";
    }
    default:
        return "";
    }
}

void AvvisoAstrolog(Messaggi& messaggi, const std::string& testo) {
    messaggi.Mostra("Vesmo - Avvia Astrolog", testo, Pulsanti::Ok, Icona::Informazione);
}

void AvvisoSalvaInfo(Messaggi& messaggi, const std::string& testo) {
    messaggi.Mostra("Vesmo - Salva Info", testo, Pulsanti::Ok, Icona::Informazione);
}

// One start, and the shortened second one when the system refused the line for its length.
template <class Componi>
bool AvviaConRiprova(Tema& tema, const PercorsiVesmo& percorsi, const Avviatore& avvia,
                     Componi componi) {
    const std::string programma = SenzaSpazi(percorsi.CmdAstrolog);
    EsitoPartenza e = avvia(programma, ArgomentiRiga(componi()), percorsi.DirAstrolog);
    if (e == EsitoPartenza::RigaTroppoLunga) {
        tema.Nome = PrimaLetteraEPunto(tema.Nome.str());
        tema.City = PrimaLetteraEPunto(tema.City.str());
        e = avvia(programma, ArgomentiRiga(componi()), percorsi.DirAstrolog);
    }
    return e == EsitoPartenza::Avviato;
}

} // namespace

EffettoCombo1 Combo1_Click(int indice) {
    if (indice == IndiceSideraleUtente)
        return {true, "Siderale Utente. Es: 2,5 ruota gli elementi della carta di un angolo pari "
                      "a (Siderale - 2,5)"};
    return {false, " "};
}

std::string DidascaliaChkGEO(bool spuntato) {
    return spuntato ? "ELIO" : "GEO";
}

std::string PezziComando::Opzioni() const {
    return "=X " + SwZ + SwZ0 + SwZl + SwZt + SwZd + SwZm + SwZy + SwZi + Sid + Casa + Elio;
}

PezziComando ComponiPezzi(const Tema& tema, const SceltaAstrolog& scelta) {
    PezziComando p = PezziDelTema(tema);
    p.Sid = Sid(scelta);
    p.Casa = scelta.Combo2 > 0 ? "-c " + std::to_string(scelta.Combo2) + " " : "";
    p.Elio = scelta.ChkGEO ? "-h" : "";
    return p;
}

std::string ComponiComando(const Tema& tema, const SceltaAstrolog& scelta,
                           const std::string& cmdAstrolog, PezziComando* pezzi) {
    PezziComando p = ComponiPezzi(tema, scelta);
    std::string riga = cmdAstrolog + p.Opzioni();
    if (pezzi) *pezzi = std::move(p);
    return riga;
}

std::string ComponiComandoTema(Tema& tema, const std::string& cmdAstrolog, PezziComando* pezzi) {
    if (tema.OraL >= 24) {
        tema.OraL -= 24;
        tema.Day += 1;
    } else if (tema.OraL < 0) {
        tema.OraL += 24;
        tema.Day -= 1;
    }
    PezziComando p = PezziDelTema(tema);
    std::string riga = cmdAstrolog + p.Opzioni();
    if (pezzi) *pezzi = std::move(p);
    return riga;
}

std::vector<std::string> ArgomentiRiga(std::string_view opzioni) {
    std::vector<std::string> r;
    std::string corrente;
    bool inArgomento = false, traVirgolette = false;
    for (char c : opzioni) {
        if (c == '"') {
            traVirgolette = !traVirgolette;
            inArgomento = true;
        } else if (c == ' ' && !traVirgolette) {
            if (inArgomento) r.push_back(std::move(corrente));
            corrente.clear();
            inArgomento = false;
        } else {
            corrente += c;
            inArgomento = true;
        }
    }
    if (inArgomento) r.push_back(std::move(corrente));
    return r;
}

bool ProgrammaAstrologPronto(const PercorsiVesmo& percorsi, Messaggi& messaggi) {
    const std::string programma = SenzaSpazi(percorsi.CmdAstrolog);
    if (programma.empty() || !NomeAstrologPresente(programma)) {
        AvvisoAstrolog(messaggi, "Nessun programma Astrolog impostato.\n"
                                 "Indicarlo in  File -> Default  Vesmo\n" +
                                     Trattini + "\nNo Astrolog program set.\n");
        return false;
    }
    std::error_code ec;
    if (!std::filesystem::is_regular_file(programma, ec)) {
        AvvisoAstrolog(messaggi, "Astrolog non trovato:\n" + programma + "\n" + Trattini +
                                     "\nAstrolog not found.\n");
        return false;
    }
    return true;
}

bool Avvia(Tema& tema, const SceltaAstrolog& scelta, const PercorsiVesmo& percorsi,
           Messaggi& messaggi, const Avviatore& avvia, std::string& pannello2) {
    // Any failure of the start itself is passed over in silence.
    try {
        auto componi = [&] {
            PezziComando p;
            ComponiComando(tema, scelta, percorsi.CmdAstrolog, &p);
            pannello2 = p.Opzioni();
            return pannello2;
        };
        componi();
        if (!ProgrammaAstrologPronto(percorsi, messaggi)) return false;
        return AvviaConRiprova(tema, percorsi, avvia, componi);
    } catch (const std::exception&) {
        return false;
    }
}

bool AvviaAstrolog(Tema& temaSalva, const PercorsiVesmo& percorsi, Messaggi& messaggi,
                   const Avviatore& avvia) {
    try {
        if (!ProgrammaAstrologPronto(percorsi, messaggi)) return false;
        return AvviaConRiprova(temaSalva, percorsi, avvia, [&] {
            PezziComando p;
            ComponiComandoTema(temaSalva, percorsi.CmdAstrolog, &p);
            return p.Opzioni();
        });
    } catch (const std::exception&) {
        return false;
    }
}

std::optional<std::array<std::string, 3>> RigheInfo(const TestiInfo& testi,
                                                    const PezziComando& pezzi, Messaggi& messaggi) {
    const double oreEstive = ValoreTesto(testi.Text22);
    if (oreEstive > 1 || ValoreTesto(testi.Text23) > 0) {
        AvvisoSalvaInfo(messaggi, "Ora Estiva con minuti.\nOppure Ore Estive > 1\n"
                                  "Salvataggio Info Impossibile\n" +
                                      Trattini + "\nSorry: Not possible this Save Info :-(\n");
        return std::nullopt;
    }
    const double mese = std::nearbyint(ValoreTesto(testi.Text4));
    if (mese < 1 || mese > 12) {
        AvvisoSalvaInfo(messaggi, "Mese non valido:  " + SenzaSpazi(testi.Text4) +
                                      "\nSalvataggio Info Impossibile\n" + Trattini +
                                      "\nMonth out of range 1 - 12\n");
        return std::nullopt;
    }

    std::string riga = "/qb " + std::string(NomiMesi[static_cast<int>(mese) - 1]) + " " +
                       SenzaSpazi(testi.Text3) + " " + SenzaSpazi(testi.Text5) + " ";
    double ora = ValoreTesto(testi.Text6);
    std::string segno = "am";
    if (ora >= 12) {
        segno = "pm";
        ora -= 12;
    }
    riga += Piano(ora) + ":";
    const double minuti = ValoreTesto(testi.Text7);
    riga += (minuti < 10 ? "0" : "") + Piano(std::nearbyint(minuti)) + segno + " ";
    if (oreEstive == 0)
        riga += "ST";
    else if (oreEstive == 1)
        riga += "DT";
    riga += " ";
    riga = TogliSenzaCaso(riga + pezzi.SwZ, "-z ") + " ";
    riga = TogliSenzaCaso(riga + pezzi.SwZl, "-zl ");

    std::string nomi = pezzi.SwZi;
    if (nomi.rfind("-zi ", 0) == 0) nomi.erase(0, 4);
    return std::array<std::string, 3>{PrimaRigaInfo, riga, "/zi " + nomi};
}

bool SalvaInfo(const Tema& tema, const TestiInfo& testi, const SceltaAstrolog& scelta,
               Messaggi& messaggi, const std::function<std::optional<std::string>()>& scegliFile,
               std::string& pannello2) {
    PezziComando p = ComponiPezzi(tema, scelta);
    pannello2 = p.Opzioni();
    auto righe = RigheInfo(testi, p, messaggi);
    if (!righe) return false;
    std::optional<std::string> file = scegliFile();
    if (!file || file->empty()) return false;

    std::ofstream out(std::filesystem::path(*file), std::ios::binary | std::ios::trunc);
    if (out) {
        for (const std::string& r : *righe)
            out << ALatin1(r) << "\r\n";
        out.close();
    }
    if (!out) {
        AvvisoSalvaInfo(messaggi, "Impossibile scrivere il file\n" + *file + "\n" + Trattini +
                                      "\nCannot write the file.\n");
        return false;
    }
    return true;
}

} // namespace vesmo
