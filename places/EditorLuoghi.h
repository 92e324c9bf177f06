// The places database editor (frmDbEdit) without its window: the seven cursors, the texts of
// the boxes and lists that its tabs show, and what each button does to the tables: a place (and
// a new nation) added or deleted with its questions, free codes, the code lists and zooms, rows
// of Fusi, Estive and FusiEstiveUniti added or deleted one at a time, and the copy of a list.
//
// Nothing in the file enforces the relations between the place tables: these routines keep them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/Messaggi.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"

namespace vesmo {

// The line of dashes between the Italian and the English lines of a box.
inline const std::string Trattini(30, '-');
// Lines, each closed by a line end.
std::string Righe(const std::vector<std::string>& righe);

// A list box or combo box: its items and the selected one (-1 none).
struct ListaTesti {
    std::vector<std::string> voci;
    int indice = -1;
    void Svuota() {
        voci.clear();
        indice = -1;
    }
    std::string Scelta() const {
        return indice >= 0 && indice < static_cast<int>(voci.size()) ? voci[indice] : "";
    }
};

// The controls of the editor's tabs as texts, list items and states.
struct CampiDbEdit {
    // "City / Nazione"
    std::string Text19, Text2, Text1, Text21, Text18, Text20, Text25;
    bool ChkNewNaz = false;
    bool ZoomVisibili = true; // Text1, Combo6, Combo7, cmdZoomF, cmdZoomE, lstZoom, cmbMaxMin...
    int Combo1 = 0;           // 0 "EST      Greenwich", 1 west
    int Combo2 = 0;           // unit of longitude (VociCombo2)
    int Combo3 = 0;           // 0 north, 1 "SUD    Equatore"
    int Combo4 = 0;           // 0 degrees split, 1 decimal
    std::string Text9, Text10, Text11, Text12;  // longitude split or decimal
    std::string Text13, Text14, Text15, Text16; // latitude split or decimal
    ListaTesti Combo6, Combo7, lstZoom, cmbMaxMin;
    std::string TestaZoom;

    // "Delete City"
    std::string Text29, Text30, Text24;

    // "Fuso / Estive"
    std::string Text31;
    bool Option1 = true; // "New Fuso"; false: Option2 "New Estive"
    std::string Text33, Text34;
    ListaTesti Combo8, Combo9;
    bool ListeVisibili = false;   // Combo8, Combo9 and the boxes of the codes
    bool OpzioniVisibili = false; // Option5, Option6
    bool Option5 = true;          // " 1 Codice"; false: Option6 every code
    std::string Text17, Text8, Text5, Text6, Text7, Text22, Text23;
    int Combo5 = 0; // 0 "EST", 1 "OVEST"
    std::string Label2 = "Fusi";
    bool OraVisibile = false; // Label4, Label6, Text6, Text7 (Estive only)
    ListaTesti lstZmFE, cmbZoneOrarie;
    std::string Text36; // the heading of lstZmFE

    // "Delete Fuso / Estive"
    std::string Text32, Text35, Text47;
    std::string Frame32 = "cFusi", Frame35 = "cEst", Frame47 = "cod TTN";

    // "Copia Fusi / Estive"
    bool Option3 = true; // "Copia Fusi"; false: Option4 "Copia Estive"
    std::string Text3, Text4, Text26;
    std::string Frame3 = "cFusi (from)", Frame4 = "cEst (from)";

    // "Zone Orarie"
    std::string Text44, Text45, Text46, Text39, Text40, Text41, Text42, Text43;
    std::string Text37, Text38; // the code shown, the heading of List1
    ListaTesti List1;
};

// The texts of the unit lists of the first tab.
extern const char* const VociCombo1DbEdit[2];
extern const char* const VociCombo2DbEdit[4];
extern const char* const VociCombo3DbEdit[2];
extern const char* const VociCombo4DbEdit[2];

class ModelloDbEdit {
public:
    // Opens the seven cursors on `db`, the nation cursor on its first row, and seeks the zone and
    // summer-time cursors at the codes of the first place. `fileDB` is the name the boxes show.
    ModelloDbEdit(Database& db, Messaggi& messaggi, std::string fileDB);

    Database& db;
    Messaggi& messaggi;
    std::string fileDB;
    CampiDbEdit campi;

    Cursore Data1; // AllCity on IcCityCity
    Cursore Data2; // Nazioni on IndNazioni
    Cursore Data3; // Fusi on iFusi
    Cursore Data4; // Estive on IndEstiTbEstive
    Cursore Data5; // Nazioni on IndCoNazi
    Cursore Data6; // ZoneOrarie on PrimaryKey
    Cursore Data7; // FusiEstiveUniti on indFusiEstUniti

    // Called every 100 places of the walk of CmdElimCity with the count (Text24 is set): the
    // window shows it and lets events through.
    std::function<void()> Avanzamento;

    // Finding as you type.
    void Text19_Change();
    void Text29_Change();
    void Text31_Change();
    void Text2_Change();
    void Text30_Change();
    // After the nation cursor moved (a row of DBGrid2 chosen), after the place cursor moved.
    void DBGrid2_RowColChange();
    void DBGrid1_RowColChange();
    // The code boxes of the delete and copy tabs: seek and mark the frame.
    void Text3_Change();
    void Text4_Change();
    void Text32_Change();
    void Text35_Change();
    void Text47_Change();

    void ChkNewNaz_Click();
    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Option4_Click();

    // The coordinates of the first tab: Lon in hours west positive, Lat in degrees north
    // positive. False when a box is empty or not a number.
    bool LeggiCoordinate(double& lon, double& lat) const;

    void CmdAddNewCity_Click();
    void CmdElimCity_Click();
    void cmdHelpCod_Click();
    void cmdHpCodFE_Click();
    void cmdZoomF_Click();
    void cmdZoomE_Click();
    void cmdZfFE_Click();
    void cmdZeFE_Click();
    void Command6_Click();
    void Command7_Click();
    void Command2_Click();
    void Command4_Click();
    void Command8_Click();
    void Command3_Click();
    void Command5_Click();

    // The distinct cFusi and cEst of the places of the nation cNaz, in order of first appearance.
    void CodiciNazione(std::int32_t cNaz, std::vector<std::int32_t>& fusi,
                       std::vector<std::int32_t>& estive);

private:
    std::int32_t CNazCorrente() const;
    std::string NazioneCorrente() const;
    void CercaNazione(const std::string& testo);
    void SeekListeDelLuogo();
    void Zoom(bool perFusi);
    void ListaFusi(std::int32_t codice);
    void ListaEstive(std::int32_t codice);
    void CercaCodice(Cursore& c, const std::string& campo, const std::string& testo,
                     std::string& cornice, const std::string& nome);

    // The steps of CmdElimCity_Click, each with the place cursor on the place to delete.
    // Whether the place row before or after it belongs to the same nation; the cursor comes
    // back to the place.
    bool AltraCityDellaNazione();
    // The nation's only place: asks, then deletes the place and the nation and puts the grids
    // on their first rows; nothing when the answer is no.
    void EliminaUnicaCity(const std::string& city, const std::string& nazione);
    // Whether another place of the nation, of another name, has the same zone and summer-time
    // lists; counts the rows seen in Text24 (telling the progress every 100) and brings the
    // cursor back to the place.
    bool ListeCondivise();

    // The steps of Command7_Click with the new row's date checked: the new row of the zone
    // table (Fusi) or of the summer-time table (Estive), for the code typed (Option5) or for
    // every code of the list, then the box that says it is done; a code that is not one is
    // told and nothing is written.
    void NuoviFusi(double giorno, double mese, double anno);
    void NuoveEstive(double giorno, double mese, double anno);
};

// The lines of a combined list (FusiEstiveUniti with ZoneOrarie) for one code:
// "0137 $ 000 , 12 * 01/04/1980 02:00:00 [ + 02:00:00] ", the difference in force at each row.
std::vector<std::string> RigheListaUnita(Database& db, std::int32_t codice);
// The legend of a list of such lines: for each zone number behind the first comma, once,
// "12 $ CEST , Central European Summer Time ( + 02:00:00 ) ".
std::vector<std::string> LegendaZone(Database& db, const std::vector<std::string>& righe);

// An angle in degrees as the place lists write it: whole degrees, the letter of its side,
// minutes on two digits and a blank ("7E30 ", "45N30 "); seconds above 30 round the minutes up.
std::string TestoGradiPrimi(double gradi, char positivo, char negativo);
// "01/04/1980" from the fields Day, Mese, Anno of a dated row.
std::string DataRiga(const Cursore& c);
// A text padded with blanks to n characters (left whole when longer).
std::string Allunga(std::string s, std::size_t n);

// A date serial from day, month, year, hour and minute; false for a date that does not exist.
bool SerialeDaData(int giorno, int mese, int anno, int ora, int minuto, double& seriale);

} // namespace vesmo
