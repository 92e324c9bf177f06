#include "places/EditorLuoghi.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "places/ModelloLuoghi.h"
#include "places/ModuloDati.h"

namespace vesmo {

const char* const VociCombo1DbEdit[2] = {"EST      Greenwich", "OVEST  Greenwich"};
const char* const VociCombo2DbEdit[4] = {"GRADI Sessagesimali", "ORE    Sessagesimali",
                                         "GRADI Decimali     ", "ORE    Decimali     "};
const char* const VociCombo3DbEdit[2] = {"NORD   Equatore", "SUD    Equatore"};
const char* const VociCombo4DbEdit[2] = {"GRADI Sessagesimali", "GRADI Decimali     "};

namespace {

constexpr double OrigineSeriale = 2415018.5;
constexpr double UnOra = 1.0 / 24.0;

std::int32_t Intero(const Cursore& c, std::string_view campo) {
    return static_cast<std::int32_t>(c.Campo(campo).Intero());
}

// The value of a box read by value, as a code; a number beyond the codes' range stops at it.
std::int32_t Codice(const std::string& testo) {
    const double v = std::trunc(ValoreTesto(testo));
    if (std::isnan(v)) return 0;
    return static_cast<std::int32_t>(std::clamp(v, -2147483648.0, 2147483647.0));
}

std::string Cifre(double x, const char* figura) {
    return FormatoNumero(x, figura);
}

// A zone text as "00" formats it: a number gets two digits and keeps its sign, anything else
// ("-" alone) stays as it is.
std::string DueCifre(const std::string& testo) {
    double v = 0;
    const std::string t = SenzaSpazi(testo);
    if (t.empty() || !NumeroDaCasella(t, v)) return t;
    return Cifre(v, "00");
}

// A strict number of a box: a type mismatch when it is empty or has letters.
bool NumeroStretto(const std::string& testo, double& v) {
    return NumeroDaCasella(testo, v);
}

} // namespace

std::string Allunga(std::string s, std::size_t n) {
    const std::size_t l = LunghezzaCaratteri(s);
    if (l < n) s.append(n - l, ' ');
    return s;
}

std::string DataRiga(const Cursore& c) {
    return Cifre(c.Campo("Day").Numero(), "00") + "/" + Cifre(c.Campo("Mese").Numero(), "00") +
           "/" + Cifre(c.Campo("Anno").Numero(), "0000");
}

std::string TestoGradiPrimi(double gradi, char positivo, char negativo) {
    double g = 0, p = 0, s = 0;
    GradiPrimiSecondi(std::fabs(gradi), g, p, s);
    // Seconds compared at a millionth, so that 30 seconds stored as 29.9999999 or 30.0000001
    // count as 30.
    if (std::round(s * 1e6) / 1e6 > 30) p += 1;
    if (p >= 60) {
        p -= 60;
        g += 1;
    }
    return std::to_string(static_cast<long>(g)) + (gradi < 0 ? negativo : positivo) +
           (p < 10 ? "0" : "") + std::to_string(static_cast<long>(p)) + " ";
}

std::string Righe(const std::vector<std::string>& righe) {
    std::string t;
    for (const auto& r : righe)
        t += r + "\n";
    return t;
}

bool SerialeDaData(int giorno, int mese, int anno, int ora, int minuto, double& seriale) {
    if (mese < 1 || mese > 12 || giorno < 1 || ora < 0 || ora > 23 || minuto < 0 || minuto > 59)
        return false;
    const double jd = GiornoGiuliano(anno, mese, giorno);
    float a = 0, m = 0, g = 0;
    DataDaGiuliano(jd, a, m, g);
    if (static_cast<int>(g) != giorno || static_cast<int>(m) != mese) return false;
    seriale = jd - OrigineSeriale + (ora * 60 + minuto) / 1440.0;
    return true;
}

std::vector<std::string> RigheListaUnita(Database& db, std::int32_t codice) {
    std::vector<std::string> righe;
    Cursore uniti(db, "FusiEstiveUniti");
    uniti.Index("indFusiEstUniti");
    Cursore zone(db, "ZoneOrarie");
    zone.Index("PrimaryKey");
    std::int32_t precZona = 0;
    double precDiff = 0;
    uniti.Seek(">=", codice);
    while (!uniti.NoMatch() && !uniti.Eof() && Intero(uniti, "TTN") == codice) {
        const std::int32_t zzo = Intero(uniti, "ZZo");
        double diff = 0;
        std::string segno = " + ";
        zone.Seek("=", zzo);
        if (!zone.NoMatch()) {
            segno = zone.Campo("plusmin").Testo().find('+') != std::string::npos ? " - " : " + ";
            if (zzo != 138 && zzo != 139 && zzo != 140) {
                const double z = zone.Campo("ZUnterschied").Numero();
                diff = z - Fix(z);
            } else {
                zone.Seek("=", precZona);
                if (zone.NoMatch()) {
                    diff = zzo == 139 ? UnOra : 0.0;
                } else {
                    const std::string testo = zone.Campo("ZZonenText").Testo();
                    if (CercaSenzaCaso(testo, "Standard") != std::string::npos)
                        diff = zzo == 139 ? precDiff : precDiff - UnOra;
                    else if (testo.find("Daylight") != std::string::npos ||
                             testo.find("War") != std::string::npos)
                        diff = zzo == 139 ? precDiff + UnOra : precDiff;
                }
            }
        }
        righe.push_back(Cifre(codice, "0000") + " $ " + Cifre(Intero(uniti, "TTV"), "000") + " , " +
                        std::to_string(zzo) + " * " + TestoDataOra(uniti.Campo("wdata").Numero()) +
                        " [" + segno + TestoDataOra(diff) + "] ");
        precZona = zzo;
        precDiff = diff;
        uniti.MoveNext();
    }
    return righe;
}

std::vector<std::string> LegendaZone(Database& db, const std::vector<std::string>& righe) {
    std::vector<std::string> voci;
    Cursore zone(db, "ZoneOrarie");
    zone.Index("PrimaryKey");
    for (const std::string& riga : righe) {
        const auto virgola = riga.find(',');
        if (virgola == std::string::npos) continue;
        const auto numero = static_cast<std::int32_t>(ValoreTesto(riga.substr(virgola + 1)));
        const std::string inizio = std::to_string(numero);
        const bool presente = std::any_of(voci.begin(), voci.end(), [&](const std::string& v) {
            return v.compare(0, inizio.size(), inizio) == 0 &&
                   (v.size() == inizio.size() || v[inizio.size()] == ' ');
        });
        if (presente) continue;
        zone.Seek("=", numero);
        while (!zone.NoMatch() && !zone.Eof() && Intero(zone, "ZZonenNummer") == numero) {
            const std::string segno =
                zone.Campo("plusmin").Testo().find('-') != std::string::npos ? "+" : "-";
            voci.push_back(inizio + " $ " + zone.Campo("ZZonenCode").Testo() + " , " +
                           zone.Campo("ZZonenText").Testo() + " ( " + segno +
                           TestoDataOra(zone.Campo("ZUnterschied").Numero()) + " ) ");
            zone.MoveNext();
        }
    }
    return voci;
}

ModelloDbEdit::ModelloDbEdit(Database& d, Messaggi& m, std::string file)
    : db(d), messaggi(m), fileDB(std::move(file)), Data1(d, "AllCity"), Data2(d, "Nazioni"),
      Data3(d, "Fusi"), Data4(d, "Estive"), Data5(d, "Nazioni"), Data6(d, "ZoneOrarie"),
      Data7(d, "FusiEstiveUniti") {
    Data1.Index("IcCityCity");
    Data2.Index("IndNazioni");
    Data3.Index("iFusi");
    Data4.Index("IndEstiTbEstive");
    Data5.Index("IndCoNazi");
    Data6.Index("PrimaryKey");
    Data7.Index("indFusiEstUniti");
    if (Data2.RecordCount() > 0) Data2.MoveFirst();
    SeekListeDelLuogo();
}

std::int32_t ModelloDbEdit::CNazCorrente() const {
    return Intero(Data2, "cNaz");
}

std::string ModelloDbEdit::NazioneCorrente() const {
    return SenzaSpazi(Data2.Campo("Nazione").Testo());
}

void ModelloDbEdit::SeekListeDelLuogo() {
    if (Data1.BOF() || Data1.Eof()) return;
    try {
        const Valore cFusi = Data1.Campo("cFusi"), cEst = Data1.Campo("cEst");
        Data3.Seek(">=", cFusi);
        Data4.Seek(">=", cEst);
    } catch (const ErroreDB&) {
    }
}

void ModelloDbEdit::CercaNazione(const std::string& testo) {
    try {
        Data2.Seek(">=", testo);
        if (Data2.NoMatch() && Data2.RecordCount() > 0) Data2.MoveFirst();
    } catch (const ErroreDB&) {
        if (Data2.RecordCount() > 0) Data2.MoveFirst();
    }
}

void ModelloDbEdit::Text19_Change() {
    CercaNazione(campi.Text19);
    if (Data2.BOF() || Data2.Eof()) return;
    DBGrid2_RowColChange();
    campi.Text1 = campi.Text21 = std::to_string(CNazCorrente());
    campi.Text25 = Data2.Campo("Spec").Testo();
    campi.Text2.clear();
    campi.Text18.clear();
    campi.Text20.clear();
}

// The nation grid follows the cursor, and the places follow the nation grid.
void ModelloDbEdit::Text29_Change() {
    CercaNazione(campi.Text29);
    DBGrid2_RowColChange();
}

void ModelloDbEdit::Text31_Change() {
    CercaNazione(campi.Text31);
    DBGrid2_RowColChange();
}

void ModelloDbEdit::Text2_Change() {
    if (campi.ChkNewNaz || Data2.BOF() || Data2.Eof()) return;
    try {
        Data1.Seek(">=", CNazCorrente(), campi.Text2);
        if (Data1.NoMatch() && Data1.RecordCount() > 0) Data1.MoveFirst();
    } catch (const ErroreDB&) {
        if (Data1.RecordCount() > 0) Data1.MoveFirst();
    }
    DBGrid1_RowColChange();
}

void ModelloDbEdit::Text30_Change() {
    if (Data2.BOF() || Data2.Eof()) return;
    try {
        Data1.Seek(">=", CNazCorrente(), campi.Text30);
        if (Data1.NoMatch() && Data1.RecordCount() > 0) Data1.MoveFirst();
    } catch (const ErroreDB&) {
        if (Data1.RecordCount() > 0) Data1.MoveFirst();
    }
    DBGrid1_RowColChange();
}

void ModelloDbEdit::DBGrid2_RowColChange() {
    if (Data2.BOF() || Data2.Eof()) return;
    const std::int32_t cNaz = CNazCorrente();
    Valore city("");
    if (!Data1.BOF() && !Data1.Eof()) city = Data1.Campo("City");
    Data1.Seek(">=", cNaz, city);
    if (Data1.NoMatch() || Intero(Data1, "cCity") != cNaz) Data1.Seek(">=", cNaz, ".");
    if (Data1.NoMatch() && Data1.RecordCount() > 0) Data1.MoveLast();
}

void ModelloDbEdit::DBGrid1_RowColChange() {
    if (Data1.BOF() || Data1.Eof()) return;
    const Valore cCity = Data1.Campo("cCity");
    Data5.Seek("=", cCity);
    if (!Data5.NoMatch() && (Data2.BOF() || Data2.Eof() || Intero(Data2, "cNaz") != cCity.Intero()))
        Data2.Seek("=", Data5.Campo("Nazione"));
    SeekListeDelLuogo();
}

void ModelloDbEdit::CercaCodice(Cursore& c, const std::string& campo, const std::string& testo,
                                std::string& cornice, const std::string& nome) {
    const std::int32_t codice = Codice(testo);
    bool trovato = false;
    try {
        c.Seek(">=", codice);
        trovato = !c.NoMatch() && Intero(c, campo) == codice;
    } catch (const ErroreDB&) {
    }
    if (trovato) {
        cornice = nome;
    } else {
        cornice = std::to_string(codice) + " " + nome + " - Assente ";
        if (c.RecordCount() > 0) c.MoveFirst();
    }
}

void ModelloDbEdit::Text3_Change() {
    CercaCodice(Data3, "cFusi", campi.Text3, campi.Frame3, "cFusi (from)");
}
void ModelloDbEdit::Text4_Change() {
    CercaCodice(Data4, "cEst", campi.Text4, campi.Frame4, "cEst (from)");
}
void ModelloDbEdit::Text32_Change() {
    CercaCodice(Data3, "cFusi", campi.Text32, campi.Frame32, "cFusi");
}
void ModelloDbEdit::Text35_Change() {
    CercaCodice(Data4, "cEst", campi.Text35, campi.Frame35, "cEst");
}
void ModelloDbEdit::Text47_Change() {
    CercaCodice(Data7, "TTN", campi.Text47, campi.Frame47, "cod TTN");
}

void ModelloDbEdit::ChkNewNaz_Click() {
    if (campi.ChkNewNaz) {
        campi.Text25.clear();
        campi.Text21.clear();
        campi.Text18.clear();
        campi.Text20.clear();
    }
    campi.ZoomVisibili = !campi.ChkNewNaz;
}

void ModelloDbEdit::Option1_Click() {
    campi.Option1 = true;
    campi.OraVisibile = false;
    campi.Label2 = "Fusi";
    campi.ListeVisibili = campi.OpzioniVisibili = false;
    campi.Text33.clear();
    campi.Text34.clear();
}

void ModelloDbEdit::Option2_Click() {
    campi.Option1 = false;
    campi.OraVisibile = true;
    campi.Label2 = "Estive";
    campi.ListeVisibili = campi.OpzioniVisibili = false;
    campi.Text33.clear();
    campi.Text34.clear();
}

void ModelloDbEdit::Option3_Click() {
    campi.Option3 = true;
}
void ModelloDbEdit::Option4_Click() {
    campi.Option3 = false;
}

bool ModelloDbEdit::LeggiCoordinate(double& lon, double& lat) const {
    const CampiDbEdit& c = campi;
    double a = 0, b = 0, s = 0;
    if (c.Combo2 <= 1) {
        if (!NumeroStretto(c.Text9, a) || !NumeroStretto(c.Text10, b) ||
            !NumeroStretto(c.Text11, s))
            return false;
        lon = GradiDecimali(a, b, s);
    } else {
        if (!NumeroStretto(c.Text12, lon)) return false;
    }
    if (c.Combo2 == 0 || c.Combo2 == 2) lon /= 15;
    if (c.Combo1 == 0) lon = -lon;
    if (c.Combo4 == 0) {
        if (!NumeroStretto(c.Text13, a) || !NumeroStretto(c.Text14, b) ||
            !NumeroStretto(c.Text15, s))
            return false;
        lat = GradiDecimali(a, b, s);
    } else {
        if (!NumeroStretto(c.Text16, lat)) return false;
    }
    if (c.Combo3 == 1) lat = -lat;
    return true;
}

void ModelloDbEdit::CmdAddNewCity_Click() {
    double lon = 0, lat = 0;
    double cNaz = 0, cFusi = 0, cEst = 0;
    auto vuota = [](const std::string& s) { return SenzaSpazi(s).empty(); };
    const bool codiciVuoti = vuota(campi.Text21) || vuota(campi.Text18) || vuota(campi.Text20);
    if (!LeggiCoordinate(lon, lat) || (!codiciVuoti && (!NumeroStretto(campi.Text21, cNaz) ||
                                                        !NumeroStretto(campi.Text18, cFusi) ||
                                                        !NumeroStretto(campi.Text20, cEst)))) {
        messaggi.Mostra("DbEdit - Errore ",
                        Righe({"Tipo non corrispondente ", "Caselle Coordinate Geografiche ",
                               "vuote o con valori NON numerici", "Operazione Annullata"}),
                        Pulsanti::Ok, Icona::Critico);
        return;
    }
    if (codiciVuoti) {
        messaggi.Mostra("Vesmo - AddNew City",
                        Righe({"E' Necessario inserire", "tutti i Codici", "Esecuzione Annullata",
                               Trattini, "Set Every code", "Access denied"}),
                        Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    const auto codice = static_cast<std::int32_t>(cNaz);
    if (campi.ChkNewNaz) {
        Data5.Seek("=", codice);
        if (Data5.NoMatch()) {
            const std::string testo =
                Righe({"Nuovo codice " + std::to_string(codice), "Nuova City " + campi.Text2,
                       "e nuova Nazione " + campi.Text19, "Procedo?", Trattini, "New code ",
                       "New city ", "And new country ", "Continue?"});
            if (messaggi.Mostra("Vesmo - AddNew City - Nazione NUOVA ", testo, Pulsanti::SiNo,
                                Icona::Domanda) != Risposta::Si)
                return;
            if (campi.Text25.empty()) campi.Text25 = " ";
            Data5.AddNew();
            Data5.Imposta("cNaz", codice);
            Data5.Imposta("Nazione", campi.Text19);
            Data5.Imposta("Spec", campi.Text25);
            Data5.Update();
        } else {
            const std::string memorizzato = SenzaSpazi(Data5.Campo("Nazione").Testo());
            if (memorizzato != SenzaSpazi(campi.Text19)) {
                messaggi.Mostra(
                    "Vesmo - New City",
                    Righe({"Il codice " + std::to_string(codice) + " ",
                           "Corrisponde alla Nazione " + memorizzato, "Esecuzione annullata",
                           Trattini, "The code " + std::to_string(codice),
                           "Stands for " + memorizzato, "Access denied"}),
                    Pulsanti::Ok, Icona::Esclamativo);
                return;
            }
        }
    }
    Data1.AddNew();
    Data1.Imposta("cCity", codice);
    Data1.Imposta("City", campi.Text2);
    Data1.Imposta("Lon", lon);
    Data1.Imposta("Lat", lat);
    Data1.Imposta("cFusi", static_cast<std::int32_t>(cFusi));
    Data1.Imposta("cEst", static_cast<std::int32_t>(cEst));
    Data1.Update();
    Data1.VaiA(Data1.UltimoModificato());
    if (!Data1.BOF()) Data1.MovePrevious();
    if (Data1.BOF() && Data1.RecordCount() > 0) Data1.MoveFirst();
    Data2.Refresh();
}

bool ModelloDbEdit::AltraCityDellaNazione() {
    const Segnalibro tenuto = Data1.Bookmark();
    const std::int32_t cCity = Intero(Data1, "cCity");
    auto stessaNazione = [&] {
        return !Data1.BOF() && !Data1.Eof() && Intero(Data1, "cCity") == cCity;
    };
    Data1.MoveNext();
    bool altra = stessaNazione();
    Data1.VaiA(tenuto);
    Data1.MovePrevious();
    altra = altra || stessaNazione();
    Data1.VaiA(tenuto);
    return altra;
}

void ModelloDbEdit::EliminaUnicaCity(const std::string& city, const std::string& nazione) {
    const std::int32_t cCity = Intero(Data1, "cCity");
    const std::string testo =
        Righe({city + "  è l'unica City di  " + nazione, "La sua Eliminazione comporterà anche ",
               "l'Eliminazione di  " + nazione, "Procedo?", std::string(29, '-'),
               "Deleting this City means...", "Deleting the Nation", "Continue?"});
    if (messaggi.Mostra("Vesmo - Unica City", testo, Pulsanti::SiNo, Icona::Domanda) !=
        Risposta::Si)
        return;
    Data1.Delete();
    Data5.Seek("=", cCity);
    if (!Data5.NoMatch()) Data5.Delete();
    if (Data1.RecordCount() > 0) Data1.MoveFirst();
    if (Data2.RecordCount() > 0) Data2.MoveFirst();
    DBGrid2_RowColChange();
    messaggi.Mostra("Vesmo - Elimina City",
                    Righe({"Operazione eseguita", "Facoltative:", "Pulizia Fusi e Pulizia Estive",
                           Trattini, "Done"}),
                    Pulsanti::Ok, Icona::Informazione);
}

bool ModelloDbEdit::ListeCondivise() {
    const Segnalibro tenuto = Data1.Bookmark();
    const std::int32_t cCity = Intero(Data1, "cCity");
    const std::string city = Data1.Campo("City").Testo();
    const std::int32_t cFusi = Intero(Data1, "cFusi");
    const std::int32_t cEst = Intero(Data1, "cEst");
    bool compagna = false;
    std::int64_t righe = 0;
    Data1.Seek(">=", cCity, " ");
    while (!Data1.NoMatch() && !Data1.Eof() && Intero(Data1, "cCity") == cCity) {
        if (++righe % 100 == 0) {
            campi.Text24 = std::to_string(righe);
            if (Avanzamento) Avanzamento();
        }
        if (Data1.Campo("City").Testo() != city && Intero(Data1, "cFusi") == cFusi &&
            Intero(Data1, "cEst") == cEst) {
            compagna = true;
            break;
        }
        Data1.MoveNext();
    }
    campi.Text24 = std::to_string(righe);
    Data1.VaiA(tenuto);
    return compagna;
}

void ModelloDbEdit::CmdElimCity_Click() {
    if (Data1.BOF() || Data1.Eof() || Data2.BOF() || Data2.Eof() ||
        Intero(Data1, "cCity") != CNazCorrente()) {
        messaggi.Mostra(
            "Vesmo - Accesso Errato",
            Righe({"Errore Elimina City", "CNaz <> cCity", "Ordinamento per Nazioni",
                   "Impostare PRIMA la Nazione", std::string(26, '-'), "Error: Delete City",
                   "CNaz <> cCity", "Set Order by nation", "Set Nation, please"}),
            Pulsanti::Ok, Icona::Critico);
        return;
    }
    const std::int32_t cCity = Intero(Data1, "cCity");
    const std::string city = Data1.Campo("City").Testo();
    const std::int32_t cFusi = Intero(Data1, "cFusi");
    const std::int32_t cEst = Intero(Data1, "cEst");
    const std::string nazione = NazioneCorrente();
    if (!AltraCityDellaNazione()) {
        EliminaUnicaCity(city, nazione);
        return;
    }
    if (!ListeCondivise()) {
        const std::string testo = Righe({"cFusi = " + std::to_string(cFusi) + "   e/o ",
                                         "   cEst = " + std::to_string(cEst),
                                         "in copia unica per la Nazione " + nazione, "Procedo?"});
        if (messaggi.Mostra("Vesmo - Unici Fusi ed Estive", testo, Pulsanti::SiNo,
                            Icona::Domanda) != Risposta::Si)
            return;
    }
    const std::string testo =
        Righe({"Elimino dal DataBase " + fileDB, "", "City " + city + " ?", Trattini,
               "Delete from database " + fileDB, "", "City " + city + " ?"});
    if (messaggi.Mostra("Vesmo - Delete City", testo, Pulsanti::SiNo, Icona::Domanda) !=
        Risposta::Si)
        return;
    Data1.Delete();
    for (Cursore* c : {&Data1, &Data2, &Data3, &Data4})
        c->Refresh();
    Data1.Seek(">=", cCity, city);
    if (Data1.NoMatch() && Data1.RecordCount() > 0) Data1.MoveLast();
    SeekListeDelLuogo();
}

void ModelloDbEdit::CodiciNazione(std::int32_t cNaz, std::vector<std::int32_t>& fusi,
                                  std::vector<std::int32_t>& estive) {
    fusi.clear();
    estive.clear();
    Cursore c(db, "AllCity");
    c.Index("IcCityCity");
    c.Seek(">=", cNaz, " ");
    while (!c.NoMatch() && !c.Eof() && Intero(c, "cCity") == cNaz) {
        const std::int32_t f = Intero(c, "cFusi"), e = Intero(c, "cEst");
        if (std::find(fusi.begin(), fusi.end(), f) == fusi.end()) fusi.push_back(f);
        if (std::find(estive.begin(), estive.end(), e) == estive.end()) estive.push_back(e);
        c.MoveNext();
    }
}

void ModelloDbEdit::cmdHelpCod_Click() {
    if (campi.ChkNewNaz) {
        auto libero = [](Cursore& c, const char* campo, std::int32_t n) {
            c.Seek(">=", n);
            return c.NoMatch() || Intero(c, campo) > n;
        };
        std::int32_t n = Codice(campi.Text21);
        while (true) {
            Data5.Seek("=", n);
            if (Data5.NoMatch() && libero(Data3, "cFusi", n) && libero(Data4, "cEst", n)) break;
            ++n;
        }
        campi.Text21 = campi.Text18 = campi.Text20 = std::to_string(n);
        return;
    }
    if (Data2.BOF() || Data2.Eof()) return;
    std::vector<std::int32_t> fusi, estive;
    CodiciNazione(CNazCorrente(), fusi, estive);
    campi.Text1 = std::to_string(CNazCorrente());
    campi.Combo6.Svuota();
    campi.Combo7.Svuota();
    for (auto f : fusi)
        campi.Combo6.voci.push_back(std::to_string(f));
    for (auto e : estive)
        campi.Combo7.voci.push_back(std::to_string(e));
    if (!fusi.empty()) campi.Combo6.indice = 0;
    if (!estive.empty()) campi.Combo7.indice = 0;
}

void ModelloDbEdit::cmdHpCodFE_Click() {
    if (Data2.BOF() || Data2.Eof()) return;
    std::vector<std::int32_t> fusi, estive;
    CodiciNazione(CNazCorrente(), fusi, estive);
    campi.Combo8.Svuota();
    campi.Combo9.Svuota();
    for (auto f : fusi)
        campi.Combo8.voci.push_back(std::to_string(f));
    for (auto e : estive)
        campi.Combo9.voci.push_back(std::to_string(e));
    if (!fusi.empty()) campi.Combo8.indice = 0;
    if (!estive.empty()) campi.Combo9.indice = 0;
    if (campi.Option1)
        cmdZfFE_Click();
    else
        cmdZeFE_Click();
    campi.ListeVisibili = true;
    campi.Text33 = fusi.size() == 1 ? campi.Combo8.voci[0] : "";
    campi.Text34 = estive.size() == 1 ? campi.Combo9.voci[0] : "";
    campi.OpzioniVisibili = (campi.Option1 ? fusi.size() : estive.size()) > 1;
    if (!campi.OpzioniVisibili) campi.Option5 = true;
}

void ModelloDbEdit::Zoom(bool perFusi) {
    campi.lstZoom.Svuota();
    campi.cmbMaxMin.Svuota();
    campi.TestaZoom = "City                          cFusi  cEst";
    const ListaTesti& scelta = perFusi ? campi.Combo6 : campi.Combo7;
    if (scelta.Scelta().empty() || Data2.BOF() || Data2.Eof()) return;
    const std::int32_t codice = Codice(scelta.Scelta());
    const std::int32_t cNaz = CNazCorrente();
    struct Estremo {
        double v;
        std::string city;
    };
    std::optional<Estremo> ovest, est, nord, sud;
    Cursore c(db, "AllCity");
    c.Index("IcCityCity");
    c.Seek(">=", cNaz, " ");
    while (!c.NoMatch() && !c.Eof() && Intero(c, "cCity") == cNaz) {
        if (Intero(c, perFusi ? "cFusi" : "cEst") == codice) {
            const std::string city = Allunga(SenzaSpazi(c.Campo("City").Testo()), 30);
            const double lon = c.Campo("Lon").Numero(), lat = c.Campo("Lat").Numero();
            campi.lstZoom.voci.push_back(
                city + TestoGradiPrimi(lon * 15, 'W', 'E') + TestoGradiPrimi(lat, 'N', 'S') +
                std::to_string(Intero(c, "cFusi")) + "  " + std::to_string(Intero(c, "cEst")));
            if (!ovest || lon > ovest->v) ovest = Estremo{lon, city};
            if (!est || lon < est->v) est = Estremo{lon, city};
            if (!nord || lat > nord->v) nord = Estremo{lat, city};
            if (!sud || lat < sud->v) sud = Estremo{lat, city};
        }
        c.MoveNext();
    }
    if (!ovest) return;
    campi.cmbMaxMin.voci = {"Max Ovest = " + TestoGradiPrimi(ovest->v * 15, 'W', 'E') + ovest->city,
                            "Max Est   = " + TestoGradiPrimi(est->v * 15, 'W', 'E') + est->city,
                            " ============================",
                            "Max Nord = " + TestoGradiPrimi(nord->v, 'N', 'S') + nord->city,
                            "Max Sud  = " + TestoGradiPrimi(sud->v, 'N', 'S') + sud->city};
    campi.cmbMaxMin.indice = 0;
    campi.lstZoom.indice = 0;
}

void ModelloDbEdit::cmdZoomF_Click() {
    Zoom(true);
}
void ModelloDbEdit::cmdZoomE_Click() {
    Zoom(false);
}

void ModelloDbEdit::ListaFusi(std::int32_t codice) {
    campi.lstZmFE.Svuota();
    campi.Text36 = "Cod         Dal                          Fusi";
    Cursore c(db, "Fusi");
    c.Index("iFusi");
    c.Seek(">=", codice);
    while (!c.NoMatch() && !c.Eof() && Intero(c, "cFusi") == codice) {
        campi.lstZmFE.voci.push_back(Cifre(codice, "000") + std::string(5, ' ') + DataRiga(c) +
                                     std::string(15, ' ') + DueCifre(c.Campo("fH_h").Testo()) +
                                     ":" + DueCifre(c.Campo("fH_m").Testo()));
        c.MoveNext();
    }
}

void ModelloDbEdit::ListaEstive(std::int32_t codice) {
    campi.lstZmFE.Svuota();
    campi.cmbZoneOrarie.Svuota();
    if (codice > 10000) {
        campi.Text36 = "Cod $ ExtraCod , ZZonenNummer * Data [ZonaOraria]";
        campi.lstZmFE.voci = RigheListaUnita(db, codice);
        campi.cmbZoneOrarie.voci = LegendaZone(db, campi.lstZmFE.voci);
        if (!campi.cmbZoneOrarie.voci.empty()) campi.cmbZoneOrarie.indice = 0;
        return;
    }
    campi.Text36 = "Cod         Dal                h:m     Estive";
    Cursore c(db, "Estive");
    c.Index("IndEstiTbEstive");
    c.Seek(">=", codice);
    while (!c.NoMatch() && !c.Eof() && Intero(c, "cEst") == codice) {
        campi.lstZmFE.voci.push_back(Cifre(codice, "000") + std::string(5, ' ') + DataRiga(c) +
                                     std::string(8, ' ') + Cifre(c.Campo("h").Numero(), "00") +
                                     ":" + Cifre(c.Campo("min").Numero(), "00") +
                                     std::string(5, ' ') + std::to_string(Intero(c, "HE_h")) + ":" +
                                     Cifre(c.Campo("HE_m").Numero(), "00"));
        c.MoveNext();
    }
}

void ModelloDbEdit::cmdZfFE_Click() {
    if (campi.Combo8.Scelta().empty()) return;
    ListaFusi(Codice(campi.Combo8.Scelta()));
}

void ModelloDbEdit::cmdZeFE_Click() {
    if (campi.Combo9.Scelta().empty()) return;
    ListaEstive(Codice(campi.Combo9.Scelta()));
}

void ModelloDbEdit::Command6_Click() {
    const std::int32_t codice = Codice(campi.Text37);
    if (codice < 10000) {
        messaggi.Mostra(
            "Info Codici",
            Righe({"codice  < 10000", "Nessuna Azione", "click su tab    Fuso / Estive < 10000"}),
            Pulsanti::Ok, Icona::Informazione);
        return;
    }
    campi.Text38 = "Cod $ ExtraCod , ZZonenNummer * Data [ ZUnterschied ]";
    campi.List1.voci = RigheListaUnita(db, codice);
    campi.List1.indice = campi.List1.voci.empty() ? -1 : 0;
}

void ModelloDbEdit::NuoviFusi(double giorno, double mese, double anno) {
    std::vector<std::string> codici;
    if (campi.Option5) {
        if (Codice(campi.Text33) == 0) {
            messaggi.Mostra("Vesmo - New Fusi",
                            Righe({"cFusi non valido !", Trattini, "cFusi not legal !"}),
                            Pulsanti::Ok, Icona::Esclamativo);
            return;
        }
        codici.push_back(campi.Text33);
    } else {
        codici = campi.Combo8.voci;
    }
    if (SenzaSpazi(campi.Text22).empty()) campi.Text22 = "00";
    if (SenzaSpazi(campi.Text23).empty()) campi.Text23 = "00";
    const std::string ore = (campi.Combo5 == 0 ? "-" : "") + SenzaSpazi(campi.Text22);
    for (const std::string& codice : codici) {
        Data3.AddNew();
        Data3.Imposta("cFusi", Codice(codice));
        Data3.Imposta("Day", giorno);
        Data3.Imposta("Mese", mese);
        Data3.Imposta("Anno", anno);
        Data3.Imposta("fH_h", ore.substr(0, 4));
        Data3.Imposta("fH_m", SenzaSpazi(campi.Text23).substr(0, 2));
        Data3.Update();
    }
    messaggi.Mostra("Vesmo - Fusi", Righe({"New Fusi. Eseguito", Trattini, "New time zone. Done"}),
                    Pulsanti::Ok, Icona::Informazione);
}

void ModelloDbEdit::NuoveEstive(double giorno, double mese, double anno) {
    if (Codice(campi.Text34) == 0) {
        messaggi.Mostra("Vesmo - New Estive",
                        Righe({"cEst non valido !", Trattini, "cEst not legal !"}), Pulsanti::Ok,
                        Icona::Esclamativo);
        return;
    }
    std::vector<std::string> codici;
    if (campi.Option5)
        codici.push_back(campi.Text34);
    else
        codici = campi.Combo9.voci;
    for (const std::string& codice : codici) {
        Data4.AddNew();
        Data4.Imposta("cEst", Codice(codice));
        Data4.Imposta("Day", giorno);
        Data4.Imposta("Mese", mese);
        Data4.Imposta("Anno", anno);
        Data4.Imposta("h", ValoreTesto(campi.Text6));
        Data4.Imposta("min", ValoreTesto(campi.Text7));
        Data4.Imposta("HE_h", ValoreTesto(campi.Text22));
        Data4.Imposta("HE_m", ValoreTesto(campi.Text23));
        Data4.Update();
    }
    messaggi.Mostra("Vesmo - Estive",
                    Righe({"New Estive. Eseguito", Trattini, "New summer time. Done"}),
                    Pulsanti::Ok, Icona::Informazione);
}

void ModelloDbEdit::Command7_Click() {
    if (ValoreTesto(campi.Text33) > 10000 || ValoreTesto(campi.Text34) > 10000) {
        messaggi.Mostra(
            "Info Codici",
            Righe({"cFusi  o  cEst > 10000", "Nessuna Azione", "click su tab    ZoneOrarie"}),
            Pulsanti::Ok, Icona::Informazione);
        return;
    }
    const double giorno = ValoreTesto(campi.Text17), mese = ValoreTesto(campi.Text8),
                 anno = ValoreTesto(campi.Text5);
    if (giorno == 0 || mese == 0 || anno == 0) {
        messaggi.Mostra(
            "Vesmo - Errore Estive",
            Righe({"Caselle Nuova Riga vuote", Trattini, "Day  or  Mese  or  Anno  not legal"}),
            Pulsanti::Ok, Icona::Esclamativo);
        return;
    }
    if (campi.Option1)
        NuoviFusi(giorno, mese, anno);
    else
        NuoveEstive(giorno, mese, anno);
}

void ModelloDbEdit::Command2_Click() {
    if (Data3.BOF() || Data3.Eof()) return;
    const std::string testo =
        Righe({"Elimino la riga   " + std::to_string(Intero(Data3, "cFusi")),
               "Da " + DataRiga(Data3) + "     Fuso " + Data3.Campo("fH_h").Testo() + ":" +
                   Data3.Campo("fH_m").Testo() + " ?"});
    if (messaggi.Mostra("Vesmo - Elimino Fusi", testo, Pulsanti::SiNo, Icona::Domanda) !=
        Risposta::Si)
        return;
    Data3.Delete();
    Text32_Change();
}

void ModelloDbEdit::Command4_Click() {
    if (Data4.BOF() || Data4.Eof()) return;
    const std::string codice = std::to_string(Intero(Data4, "cEst"));
    const std::string data = DataRiga(Data4);
    const std::string ora =
        Cifre(Data4.Campo("h").Numero(), "00") + ":" + Cifre(Data4.Campo("min").Numero(), "00");
    const std::string estiva =
        std::to_string(Intero(Data4, "HE_h")) + ":" + Cifre(Data4.Campo("HE_m").Numero(), "00");
    const std::string testo = Righe(
        {"Elimino la riga  " + codice, "Da " + data + " Alle " + ora + "  Estive " + estiva + " ?",
         "ATTENZIONE! Eliminare successivamente anche",
         "l'eventuale seconda riga dell' anno " + std::to_string(Intero(Data4, "Anno")), "Procedo?",
         Trattini, "Delete row " + codice,
         "From " + data + " Hour " + ora + "  Summer time " + estiva + " ?", "Continue?"});
    if (messaggi.Mostra("Vesmo - Elimina Una riga Estive", testo, Pulsanti::SiNo, Icona::Domanda) !=
        Risposta::Si)
        return;
    Data4.Delete();
    Text35_Change();
}

void ModelloDbEdit::Command8_Click() {
    if (Data7.BOF() || Data7.Eof()) return;
    const std::string riga = std::to_string(Intero(Data7, "TTN")) + " ; " +
                             std::to_string(Intero(Data7, "TTV")) + " ; " +
                             std::to_string(Intero(Data7, "ZZo")) + " ; " +
                             TestoDataOra(Data7.Campo("wdata").Numero());
    const std::string testo =
        Righe({"Elimino la riga.  " + riga, Trattini, "Delete row. " + riga, "Continue?"});
    if (messaggi.Mostra("Vesmo - Elimina Codice TTN (Zone Orarie) ", testo, Pulsanti::SiNo,
                        Icona::Domanda) != Risposta::Si)
        return;
    Data7.Delete();
    Text47_Change();
}

void ModelloDbEdit::Command3_Click() {
    const bool fusi = campi.Option3;
    const std::string titolo = fusi ? "Vesmo - Copia Fusi" : "Vesmo - Copia Estive";
    auto rifiuto = [&](bool da) {
        std::string it, en;
        if (fusi) {
            it = da ? "cFusi (from) non valido !" : "cFusi (nuova Copia) non valido !";
            en = da ? "cFusi (from) not legal !" : "cFusi (nuova Copia) not legal !";
        } else {
            it = da ? "cEst(from) non valido !" : "cEst (nuova Copia) non valido !";
            en = da ? "cEst (from) not legal !" : "cEst (nuova Copia) not legal !";
        }
        messaggi.Mostra(titolo, Righe({it, Trattini, en}), Pulsanti::Ok, Icona::Esclamativo);
    };
    const std::int32_t da = Codice(fusi ? campi.Text3 : campi.Text4);
    const std::int32_t nuovo = Codice(campi.Text26);
    if (da == 0 || da > 10000) return rifiuto(true);
    if (nuovo == 0 || nuovo > 10000) return rifiuto(false);
    Cursore& c = fusi ? Data3 : Data4;
    const char* campo = fusi ? "cFusi" : "cEst";
    c.Seek(">=", da);
    if (c.NoMatch() || Intero(c, campo) != da) return rifiuto(true);
    // The rows are read first, so that a copy onto its own code adds each row once.
    const std::vector<std::string> campiRiga =
        fusi ? std::vector<std::string>{"Day", "Mese", "Anno", "fH_h", "fH_m"}
             : std::vector<std::string>{"Day", "Mese", "Anno", "h", "min", "HE_h", "HE_m"};
    std::vector<std::vector<Valore>> righe;
    while (!c.Eof() && Intero(c, campo) == da) {
        std::vector<Valore> r;
        for (const auto& f : campiRiga)
            r.push_back(c.Campo(f));
        righe.push_back(std::move(r));
        c.MoveNext();
    }
    for (const auto& r : righe) {
        c.AddNew();
        c.Imposta(campo, nuovo);
        for (std::size_t k = 0; k < campiRiga.size(); ++k)
            c.Imposta(campiRiga[k], r[k]);
        c.Update();
    }
    messaggi.Mostra(titolo, Righe({"Eseguito", Trattini, "Done"}), Pulsanti::Ok,
                    Icona::Informazione);
}

void ModelloDbEdit::Command5_Click() {
    const std::int32_t codice = Codice(campi.Text44);
    if (codice < 10000) {
        messaggi.Mostra("Info Codici",
                        Righe({"Codice  " + std::to_string(codice) + " < 10000", "Nessuna Azione",
                               "click su tab    Fuso / Estive "}),
                        Pulsanti::Ok, Icona::Informazione);
        return;
    }
    if (Codice(campi.Text45) != 0 &&
        messaggi.Mostra("Info Codici", Righe({"Attenzione!", "ExtraCod <> 0", "Continuo ?"}),
                        Pulsanti::SiNo, Icona::Domanda) != Risposta::Si)
        return;
    double wdata = 0;
    if (!SerialeDaData(Codice(campi.Text39), Codice(campi.Text40), Codice(campi.Text41),
                       Codice(campi.Text42), Codice(campi.Text43), wdata)) {
        messaggi.Mostra("Vesmo - Errore [frmDbEdit.Command5]",
                        Righe({"Tipo non corrispondente: " + campi.Text39 + "/" + campi.Text40 +
                               "/" + campi.Text41 + " " + campi.Text42 + ":" + campi.Text43}),
                        Pulsanti::Ok, Icona::Critico);
        return;
    }
    Data7.AddNew();
    Data7.Imposta("TTN", codice);
    Data7.Imposta("TTV", Codice(campi.Text45));
    Data7.Imposta("ZZo", Codice(campi.Text46));
    Data7.Imposta("wdata", wdata);
    Data7.Update();
    campi.Text37 = std::to_string(codice);
    Command6_Click();
}

} // namespace vesmo
