// The model of the two birth data entry forms (frmMainVesmo and frmInDatiLyx) as far as the
// places go: the five cursors, the field texts that the zone and summer-time resolution reads
// and writes, and the resolution itself (SeekFuso, CercaEstive, CaricaTemaDaDB,
// CaricaTemaDaUniti). A form shows these fields in its controls; the tests and the command line
// use them without windows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/Messaggi.h"
#include "core/Tema.h"
#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "places/RicercaLuoghi.h"

namespace vesmo {

// The form whose model this is: the error boxes carry its name.
enum class FormIngresso { MainVesmo, InDatiLyx };

// The texts and states of the form's controls that the resolution touches.
struct CampiIngresso {
    std::string Text1;        // Nome
    std::string Text3;        // day
    std::string Text4;        // month
    std::string Text5;        // year
    std::string Text6;        // hour
    std::string Text7;        // minute
    std::string Pannello2;    // second panel of the status bar
    std::string TagChkSolare; // "Ok" when local mean time was set
    bool Label1Visibile = false;
    bool Text22Visibile = true;
    bool Text23Visibile = true;
};

class ModelloLuoghi {
public:
    // Opens the five cursors on the place tables of `db` with the indexes of the sort order:
    // 'C' by city, 'N' by nation.
    ModelloLuoghi(Database& db, Messaggi& messaggi, char ordinamento,
                  FormIngresso form = FormIngresso::MainVesmo);

    Database& db;
    Messaggi& messaggi;
    char ordinamento;
    FormIngresso form;
    CampiIngresso campi;

    Cursore Data1; // AllCity
    Cursore Data2; // Nazioni, the grid of nations
    Cursore Data3; // Fusi
    Cursore Data4; // Estive
    Cursore Data5; // Nazioni by code

    // The bookmarks the form keeps: the nation row, the Fusi row, the Estive row.
    std::optional<Segnalibro> segnalibroNazione, segnalibroFusi, segnalibroEstive;

    // Opens the table editor (frmFusiEstive) modally for a code, in zone mode, with a caption.
    // Without a window it is left empty and nothing opens.
    std::function<void(std::int32_t cFusi, const std::string& didascalia)> ApriFusiEstive;

    // Seeks Fusi "<=" with the place's code, year and month, and keeps the row's bookmark.
    void SeekFuso(std::int32_t cFusi, std::int32_t anno, std::int32_t mese);
    // Places the Estive cursor for a code, year and month.
    void CercaEstive(std::int32_t cEst, std::int32_t anno, std::int32_t mese);
    // Reads the fields and the four cursors into the record: zone, summer time, coordinates.
    void CaricaTemaDaDB(Tema& tema);
    // The resolution on a combined list (FusiEstiveUniti with ZoneOrarie).
    void CaricaTemaDaUniti(Tema& tema);

    // A change of the city typed (Text2): seeks the places ">=" the text, by city or within the
    // current nation as the sort order says (a seek error propagates). When the text is no
    // place's name there (province letters aside) but names a place as records write it
    // (RicercaLuoghi::RisolviNome: "Abbiategrasso (MI)", "Girgenti", another name), the
    // cursors go to that place and the text for the status bar says which name matched
    // ("Girgenti → Agrigento", "Parigi → Paris"; "" for the official name); when several places
    // fit, the cursors stay and the text says the name is ambiguous (TestoAmbiguo).
    std::string DigitaCity(const std::string& testo);

    // Puts the nation and place cursors on the place `cCity`/`City` and keeps the nation's
    // bookmark, as the grids do when the user picks it; throws std::runtime_error ("luogo
    // sconosciuto: City" followed by `dove`) when the place or its nation is not there.
    void VaiALuogo(std::int32_t cCity, const std::string& City, const std::string& dove = {});

    // The steps of Command4 before the display: SeekFuso and CercaEstive with the place's
    // codes and the year and month of the fields, then CaricaTemaDaDB.
    void ImportaCity(Tema& tema);

private:
    std::unique_ptr<RicercaLuoghi> ricerca_;
    bool fusiNoMatch_ = true;
    bool estiveNoMatch_ = true;

    // The fields common to both resolutions: name, place, nation, date, clock time and
    // coordinates from the fields and the place and nation cursors.
    void RiempiDati(Tema& tema);
    // The steps of CaricaTemaDaDB after RiempiDati, on the cursors as SeekFuso and CercaEstive
    // left them; `voluto` is the wanted moment as a Julian day.
    // The summer time of list `cEst` in force at `voluto` (the Estive cursor steps back over a
    // change not yet in force); 0 with a status bar text when the place has no such list.
    void EstivaDaDB(Tema& tema, std::int32_t cEst, std::int32_t anno, double voluto);
    // The zone of list `cFusi` in force at `voluto` (the Fusi cursor steps back likewise); local
    // mean time (TagChkSolare "Ok") before the list, or when there is none, after asking
    // whether to open the table editor (ApriFusiEstive).
    void FusoDaDB(Tema& tema, std::int32_t cFusi, std::int32_t anno, std::int32_t mese,
                  double voluto);
    // A nation cursor that ran away from the place goes back to its bookmark; the error box
    // when the nation still differs from the place's.
    void ControllaNazione(Tema& tema);
    void ErroreNazione(const Tema& tema);
};

// The status bar text for a name that fits several places: "Altavilla: nome ambiguo, 5 luoghi:
// Altavilla → Altavilla Vicentina (VI), ..." (up to five, then "...").
std::string TestoAmbiguo(const EsitoRisoluzione& esito);

// A date serial (days from 30 December 1899, the time of day as the fraction) as the system's
// texts write it: "15/03/1950", "15/03/1950 10:30:00", or "01:00:00" for a bare time.
std::string TestoDataOra(double seriale);

} // namespace vesmo
