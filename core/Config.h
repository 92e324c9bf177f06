// Vesmodat.ini: one fixed record of 325 bytes, Latin-1, in the program's own folder.
#pragma once

#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"
#include "core/Tema.h"

namespace vesmo {

inline constexpr int LunghezzaRecordIni = 325;

struct ConfigIni {
    TestoFisso<128> PathDB;        // full path of the database: must hold "Vesmodat.Mdb"
    TestoFisso<128> PathExe;       // full path of Astrolog
    TestoFisso<38> NazioneDefault; // default nation
    TestoFisso<30> CityDefault;    // default city
    TestoFisso<1> Ordinamento;     // "C" by city, "N" by nation
};

// Reads record 1. A missing file is created empty; a file of no bytes leaves every field blank;
// a short file fills the fields it reaches. False (and `errore` says why) when the file can be
// neither read nor created.
bool LeggiConfig(const std::string& fileIni, ConfigIni& cfg, std::string* errore = nullptr);

// Writes record 1 (the whole 325 bytes, Latin-1). False with a reason when it cannot.
bool ScriviConfig(const std::string& fileIni, const ConfigIni& cfg, std::string* errore = nullptr);

// Reads record 1, changes only Ordinamento, writes record 1 back.
bool ScriviOrdinamento(const std::string& fileIni, char ordinamento, std::string* errore = nullptr);

// The record as 325 Latin-1 bytes, and back.
std::string RecordIni(const ConfigIni& cfg);
ConfigIni ConfigDaRecord(const std::string& byte);

// The name tests, without regard to case: the database path must hold "Vesmodat.Mdb"; the
// Astrolog path must name a program called "astrolog" (with or without ".exe").
bool NomeDBPresente(const std::string& pathDB);
bool NomeAstrologPresente(const std::string& pathExe);
// The first-time dialog opens when the database name is missing (a missing Astrolog path does
// not reopen it: the program is optional here).
bool ServePrimaConfigurazione(const ConfigIni& cfg);

// Values derived from the record and kept until the program ends.
struct PercorsiVesmo {
    std::string FileIni;
    std::string FileDB;      // PathDB without surrounding blanks
    std::string CmdAstrolog; // PathExe without surrounding blanks, then exactly one blank
    std::string DirAstrolog; // CmdAstrolog before its last "/"
};
PercorsiVesmo DerivaPercorsi(const std::string& fileIni, const ConfigIni& cfg);
std::string DirDiComando(const std::string& cmdAstrolog);

// The first-time dialog's presets.
ConfigIni ConfigPredefinita(const std::string& cartellaProgramma);

// The chart of the entry form preset to a moment (the present one, at start-up), with the
// session defaults that go with it.
void PresetTemaCorrente(Sessione& s, const ConfigIni& cfg, int anno, int mese, int giorno, int ora,
                        int minuti, int secondi);

// The "Assente il file" box of the first start.
void AvvisoIniAssente(Messaggi& m);

} // namespace vesmo
