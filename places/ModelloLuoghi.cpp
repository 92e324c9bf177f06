#include "places/ModelloLuoghi.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "core/store/Chiave.h"
#include "places/FusiEstiveUniti.h"

namespace vesmo {

namespace {

// A change counts as in force when its moment, less this part of a day, is not later than the
// wanted moment.
constexpr double Tolleranza = 0.00001;
// Date serial of Julian day 0h: serial = JD - 2415018.5.
constexpr double OrigineSeriale = 2415018.5;

// The wanted moment of the fields as a Julian day.
double MomentoVoluto(const Tema& tema) {
    return tema.Day + tema.OraL / 24.0;
}

bool NonAncoraInVigore(double momentoRiga, double voluto) {
    return momentoRiga - Tolleranza > voluto;
}

std::int32_t Intero(const Cursore& c, std::string_view campo) {
    return static_cast<std::int32_t>(c.Campo(campo).Intero());
}

} // namespace

std::string TestoDataOra(double seriale) {
    const double giorni = Fix(seriale);
    const double frazione = std::fabs(seriale - giorni);
    long secondi = std::lround(frazione * 86400.0);
    double giorno = giorni;
    if (secondi >= 86400) {
        secondi -= 86400;
        giorno += seriale < 0 ? -1 : 1;
    }
    char ora[32];
    std::snprintf(ora, sizeof ora, "%02ld:%02ld:%02ld", secondi / 3600, (secondi / 60) % 60,
                  secondi % 60);
    if (giorno == 0) return ora;
    float a, m, g;
    DataDaGiuliano(giorno + OrigineSeriale, a, m, g);
    char data[48];
    std::snprintf(data, sizeof data, "%02d/%02d/%04d", static_cast<int>(g), static_cast<int>(m),
                  static_cast<int>(a));
    if (secondi == 0) return data;
    return std::string(data) + " " + ora;
}

ModelloLuoghi::ModelloLuoghi(Database& d, Messaggi& m, char ord, FormIngresso f)
    : db(d), messaggi(m), ordinamento(ord), form(f), Data1(d, "AllCity"), Data2(d, "Nazioni"),
      Data3(d, "Fusi"), Data4(d, "Estive"), Data5(d, "Nazioni") {
    const bool perCity = ordinamento != 'N';
    Data1.Index(perCity ? "indCity" : "IcCityCity");
    Data2.Index(perCity ? "IndCoNazi" : "IndNazioni");
    Data3.Index("iFusi");
    Data4.Index("IndEstiTbEstive");
    Data5.Index("IndCoNazi");
}

std::string ModelloLuoghi::DigitaCity(const std::string& testo) {
    std::optional<std::int32_t> cNaz;
    if (ordinamento == 'N') {
        cNaz = static_cast<std::int32_t>(Data2.Campo("cNaz").Intero());
        Data1.Seek(">=", *cNaz, Valore(testo));
        if (Data1.NoMatch()) Data1.MoveLast();
    } else {
        Data1.Seek(">=", Valore(testo));
        Data2.Seek("=", Data1.Campo("cCity"));
    }
    const std::string t = SenzaSpazi(testo);
    if (t.empty()) return "";
    // The seek stands on the place when the text is its name, or its name without the
    // province letters that follow it.
    if (!Data1.NoMatch() && !Data1.BOF() && !Data1.Eof() &&
        (!cNaz || Data1.Campo("cCity").Intero() == *cNaz)) {
        const std::string city = store_detail::PiegaTesto(Data1.Campo("City").Testo());
        const std::string nome = store_detail::PiegaTesto(t);
        if (city == nome || city.rfind(nome + " (", 0) == 0) return "";
    }
    if (!ricerca_) ricerca_ = std::make_unique<RicercaLuoghi>(db);
    // The name as records write it ("Abbiategrasso (MI)", "BUDDUSO'", "Girgenti"): one seek of
    // the index of folded names.
    const EsitoRisoluzione esito = ricerca_->RisolviNome(cNaz, t);
    if (esito.stato == StatoRisoluzione::Ambiguo) return TestoAmbiguo(esito);
    std::optional<LuogoTrovato> l;
    if (esito.stato == StatoRisoluzione::Trovato) {
        const Candidato& c = esito.candidati.front();
        l = LuogoTrovato{c.cCity, c.City, {}};
    } else {
        l = ricerca_->NomeAlternativo(cNaz, t);
        if (!l) return "";
    }
    if (cNaz) {
        Data1.Seek("=", l->cCity, Valore(l->City));
    } else {
        Data1.Seek("=", Valore(l->City));
        while (!Data1.NoMatch() && !Data1.Eof() && Data1.Campo("cCity").Intero() != l->cCity &&
               store_detail::PiegaTesto(Data1.Campo("City").Testo()) ==
                   store_detail::PiegaTesto(l->City))
            Data1.MoveNext();
        Data2.Seek("=", l->cCity);
    }
    if (esito.stato == StatoRisoluzione::Trovato) return esito.Corrispondenza();
    return l->NomeAlt + " → " + l->City;
}

std::string TestoAmbiguo(const EsitoRisoluzione& esito) {
    std::string testo = esito.nome + (esito.provincia.empty() ? "" : " (" + esito.provincia + ")") +
                        ": nome ambiguo, " + std::to_string(esito.candidati.size()) + " luoghi: ";
    for (std::size_t k = 0; k < esito.candidati.size() && k < 5; ++k) {
        const Candidato& c = esito.candidati[k];
        const bool proprio = c.tipo == TipoNome::Ufficiale || c.tipo == TipoNome::Frazione;
        std::string nome = proprio ? c.City : c.Nome + " → " + c.City;
        if (!c.Sigla.empty() && c.City.find("(" + c.Sigla + ")") == std::string::npos)
            nome += " (" + c.Sigla + ")";
        testo += (k ? ", " : "") + nome;
    }
    if (esito.candidati.size() > 5) testo += ", ...";
    return testo;
}

void ModelloLuoghi::SeekFuso(std::int32_t cFusi, std::int32_t anno, std::int32_t mese) {
    Data3.Seek("<=", cFusi, anno, mese);
    fusiNoMatch_ = Data3.NoMatch();
    if (!fusiNoMatch_) segnalibroFusi = Data3.Bookmark();
}

void ModelloLuoghi::CercaEstive(std::int32_t cEst, std::int32_t anno, std::int32_t mese) {
    Data4.Seek("=", cEst, anno, mese);
    estiveNoMatch_ = Data4.NoMatch();
    if (!estiveNoMatch_) {
        segnalibroEstive = Data4.Bookmark();
        return; // the first row of that month
    }
    Data4.Seek("<=", cEst, anno, mese);
    estiveNoMatch_ = Data4.NoMatch();
    if (estiveNoMatch_) {
        if (Data4.RecordCount() > 0) Data4.MoveFirst();
        return;
    }
    const Segnalibro trovata = Data4.Bookmark();
    Data4.MoveNext();
    if (Data4.Eof()) {
        Data4.MovePrevious();
    } else if (Intero(Data4, "Anno") != anno) {
        // No later change in the wanted year: the last change before it holds.
        Data4.VaiA(trovata);
    }
    // Otherwise the first change later in the wanted year: CaricaTemaDaDB steps back over it.
    segnalibroEstive = Data4.Bookmark();
}

void ModelloLuoghi::RiempiDati(Tema& tema) {
    const double giorno = ValoreTesto(campi.Text3);
    const double mese = ValoreTesto(campi.Text4);
    const double anno = ValoreTesto(campi.Text5);
    const double ora = ValoreTesto(campi.Text6);
    const double minuti = ValoreTesto(campi.Text7);
    tema.Nome = campi.Text1;
    tema.City = Data1.Campo("City").Testo();
    tema.cNaz = Intero(Data2, "cNaz");
    tema.Stato = Data2.Campo("Nazione").Testo(); // null reads as ""
    tema.Day = GiornoGiuliano(anno, mese, giorno);
    tema.OraL = GradiDecimali(ora, minuti, 0);
    tema.Lon = Data1.Campo("Lon").Numero();
    tema.Lat = Data1.Campo("Lat").Numero();
}

void ModelloLuoghi::ImportaCity(Tema& tema) {
    // The zone, summer-time and place lookups read the file once.
    LetturaUnica lettura(db);
    const auto anno = static_cast<std::int32_t>(ValoreTesto(campi.Text5));
    const auto mese = static_cast<std::int32_t>(ValoreTesto(campi.Text4));
    SeekFuso(Intero(Data1, "cFusi"), anno, mese);
    CercaEstive(Intero(Data1, "cEst"), anno, mese);
    CaricaTemaDaDB(tema);
}

void ModelloLuoghi::CaricaTemaDaDB(Tema& tema) {
    LetturaUnica lettura(db);
    const std::int32_t cFusi = Intero(Data1, "cFusi");
    const std::int32_t cEst = Intero(Data1, "cEst");
    if (cFusi > 10000 || cEst > 10000) {
        if (cFusi == cEst) {
            CaricaTemaDaUniti(tema);
            return;
        }
        // Codes that differ: the ordinary tables, the status bar as it stands.
    } else {
        campi.Pannello2.clear();
    }
    campi.Label1Visibile = false;
    campi.Text22Visibile = campi.Text23Visibile = true;

    RiempiDati(tema);
    const auto anno = static_cast<std::int32_t>(ValoreTesto(campi.Text5));
    const auto mese = static_cast<std::int32_t>(ValoreTesto(campi.Text4));
    const double voluto = MomentoVoluto(tema);
    EstivaDaDB(tema, cEst, anno, voluto);
    tema.Lon = Data1.Campo("Lon").Numero();
    tema.Lat = Data1.Campo("Lat").Numero();
    FusoDaDB(tema, cFusi, anno, mese, voluto);
    ControllaNazione(tema);
    tema.cFusi = cFusi;
    tema.cEst = cEst;
}

void ModelloLuoghi::EstivaDaDB(Tema& tema, std::int32_t cEst, std::int32_t anno, double voluto) {
    if (estiveNoMatch_ && Data4.RecordCount() > 0) Data4.MoveFirst();
    const bool suRiga = Data4.RecordCount() > 0 && !Data4.BOF() && !Data4.Eof();
    if (!suRiga || Intero(Data4, "cEst") != cEst) {
        // No list for this place, or one that begins later.
        tema.Estiva = 0;
        campi.Pannello2 = "Estive di  " + Maiuscole(SenzaSpazi(tema.Stato.Valore())) +
                          " non disponibili" + " o con inizio posteriore al " + campi.Text3 + "/" +
                          campi.Text4 + "/" + campi.Text5 + " ";
        return;
    }
    if (Intero(Data4, "Anno") != anno) {
        campi.Pannello2 = " Anno " + campi.Text5 + " Estive Vuoto ";
    } else {
        const double momento =
            GiornoGiuliano(Intero(Data4, "Anno"), Intero(Data4, "Mese"), Intero(Data4, "Day")) +
            GradiDecimali(Intero(Data4, "h"), Intero(Data4, "min"), 0) / 24;
        if (NonAncoraInVigore(momento, voluto)) Data4.MovePrevious();
    }
    // Before the first row of the table there is nothing: no summer time.
    tema.Estiva =
        Data4.BOF() ? 0.0 : GradiDecimali(Intero(Data4, "HE_h"), Intero(Data4, "HE_m"), 0);
}

void ModelloLuoghi::FusoDaDB(Tema& tema, std::int32_t cFusi, std::int32_t anno, std::int32_t mese,
                             double voluto) {
    if (fusiNoMatch_ && Data3.RecordCount() > 0) Data3.MoveFirst();
    const bool suFuso = Data3.RecordCount() > 0 && !Data3.BOF() && !Data3.Eof();
    if (!suFuso || Intero(Data3, "cFusi") != cFusi) {
        const std::string nazione = SenzaSpazi(tema.Stato.Valore());
        const Risposta r = messaggi.Mostra(
            "Vesmo - Aggiornamenti",
            "Non ci sono Fusi disponibili per la\nCity " + SenzaSpazi(tema.City.Valore()) + " di " +
                nazione + "\n\nLMT impostata\n\nControllo / Aggiunta alla Tabella Fusi?\n",
            Pulsanti::SiNo, Icona::Domanda);
        if (r == Risposta::Si && ApriFusiEstive)
            ApriFusiEstive(cFusi, "Vesmo - Fuso di   " + nazione);
        tema.Fuso = tema.Lon;
        campi.TagChkSolare = "Ok";
        return;
    }
    bool lmt = false;
    const std::int32_t annoRiga = Intero(Data3, "Anno");
    if (annoRiga > anno) {
        lmt = true;
    } else if (annoRiga == anno && Intero(Data3, "Mese") == mese) {
        const double momento =
            GiornoGiuliano(annoRiga, Intero(Data3, "Mese"), Intero(Data3, "Day"));
        if (NonAncoraInVigore(momento, voluto)) {
            Data3.MovePrevious();
            if (Data3.BOF() || Intero(Data3, "cFusi") != cFusi) lmt = true;
        }
    }
    if (lmt) {
        tema.Fuso = tema.Lon;
        campi.TagChkSolare = "Ok";
        return;
    }
    const std::string ore = Data3.Campo("fH_h").Testo();
    const std::string minuti = Data3.Campo("fH_m").Testo();
    tema.Fuso = GradiDecimali(ValoreTesto(ore), ValoreTesto(minuti), 0);
    if (SenzaSpazi(ore) == "-" && ValoreTesto(minuti) > 0) tema.Fuso = -tema.Fuso;
}

void ModelloLuoghi::ControllaNazione(Tema& tema) {
    if (Intero(Data1, "cCity") == tema.cNaz) return;
    if (segnalibroNazione) {
        Data2.VaiA(*segnalibroNazione);
        tema.cNaz = Intero(Data2, "cNaz");
    }
    if (Intero(Data1, "cCity") != tema.cNaz) ErroreNazione(tema);
}

void ModelloLuoghi::ErroreNazione(const Tema& tema) {
    const bool lyx = form == FormIngresso::InDatiLyx;
    if (ordinamento != 'N') {
        messaggi.Mostra(lyx ? "Vesmo - Errori [frmInDatiLyx.CaricaTemaDaDB]" : "Vesmo - Errori",
                        "Errore Importa City \n\nCNaz <> cCity \nvesmo@example.org\n", Pulsanti::Ok,
                        Icona::Critico);
        return;
    }
    std::string testo;
    if (lyx) {
        testo = "Tema.City = \n" + tema.City.str() + "\nTema.Stato = \n" + tema.Stato.str() +
                "\nDb City = \n" + Data1.Campo("City").Testo() + "\nDB Stato = \n" +
                Data2.Campo("Nazione").Testo() + "\nTemaX.cNaz = " + std::to_string(tema.cNaz) +
                " <> " + "Data1.Recordset!cCity = " + std::to_string(Intero(Data1, "cCity")) + "\n";
    }
    testo += "Errore Importa Città\n\nCNaz <> cCity\n\nOrdinamento per Nazioni\nImpostare PRIMA "
             "la Nazione\n--------------------------\nError: Import City\n\nCNaz <> cCity\n\nSet "
             "Order by nation\nSet Nation, please\n";
    messaggi.Mostra(lyx ? "Vesmo - Errori  [frmInDatiLyx.CaricaTemaDaDB]" : "Vesmo - Errori", testo,
                    Pulsanti::Ok, Icona::Critico);
}

void ModelloLuoghi::CaricaTemaDaUniti(Tema& tema) {
    Clessidra clessidra(messaggi);
    RiempiDati(tema);
    tema.Fuso = 0;
    tema.Estiva = 0;

    const auto codice = static_cast<std::int16_t>(Intero(Data1, "cFusi"));
    const double D = GiornoGiuliano(ValoreTesto(campi.Text5), ValoreTesto(campi.Text4),
                                    ValoreTesto(campi.Text3)) -
                     OrigineSeriale +
                     (ValoreTesto(campi.Text6) * 60 + ValoreTesto(campi.Text7)) / 1440.0;
    const EsitoUniti esito = PercorriUniti(db, codice, D);
    const std::string city = SenzaSpazi(tema.City.Valore());
    if (esito.primaDellaLista) {
        campi.Pannello2 = "Fusi/Estive di  " + city + "   " + "Posteriori al " + TestoDataOra(D) +
                          "     " + "LMT Impostata";
        campi.TagChkSolare = "Ok";
    }
    tema.Fuso = esito.fuso;
    if (esito.colpi != 1) {
        campi.Pannello2 =
            city + "  -  " + SenzaSpazi(tema.Stato.Valore()) +
            ".  Ultimo dato in DB: " + (esito.ultimaData ? TestoDataOra(*esito.ultimaData) : "") +
            ". [ Zona Oraria " + esito.segno + TestoDataOra(esito.ultimaDiff) + "]  ";
        tema.Fuso = esito.ultimaDiff * 24 * (esito.segno == " - " ? -1 : 1);
    }
    clessidra.Spegni();
    campi.Text22Visibile = campi.Text23Visibile = false;
    campi.Label1Visibile = true;
}

void ModelloLuoghi::VaiALuogo(std::int32_t cCity, const std::string& City,
                              const std::string& dove) {
    Data5.Seek("=", cCity);
    if (Data5.NoMatch()) throw std::runtime_error("il luogo " + City + " non ha nazione");
    for (Data2.Seek("=", Data5.Campo("Nazione"));
         !Data2.NoMatch() && !Data2.Eof() && Data2.Campo("cNaz").Intero() != cCity;)
        Data2.MoveNext();
    Data1.Seek("=", cCity, City);
    if (Data1.NoMatch()) throw std::runtime_error("luogo sconosciuto: " + City + dove);
    segnalibroNazione = Data2.Bookmark();
}

} // namespace vesmo
