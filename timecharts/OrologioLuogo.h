// The clock of a place through the years: the zone and summer time in force at each instant,
// from the places database, as the entry form would find them for that local date and time.
#pragma once

#include <memory>
#include <string>

#include "core/Messaggi.h"
#include "core/Tema.h"
#include "core/store/Database.h"

namespace vesmo {

class ModelloLuoghi;

// A local date and time.
struct MomentoLocale {
    int giorno = 1, mese = 1, anno = 2000;
    int ore = 0, minuti = 0, secondi = 0;
    double fuso = 0, estiva = 0; // in force at that moment, hours
    std::string Data() const;    // "GG/MM/AAAA"
    std::string Ora() const;     // "HH:MM:SS"
};

// The local date and time of the instant jd (TU) with a fixed zone and summer time, to the
// nearest second.
MomentoLocale MomentoConFuso(double jd, double fuso, double estiva);

class OrologioLuogo {
public:
    // The place of `tema` (its nation code and City) in the database `file`. When the file or the
    // place cannot be read, the chart's own Fuso and Estiva hold at every date.
    OrologioLuogo(const std::string& file, const Tema& tema);
    ~OrologioLuogo();
    OrologioLuogo(const OrologioLuogo&) = delete;
    OrologioLuogo& operator=(const OrologioLuogo&) = delete;

    // True when the zone and summer time come from the database.
    bool DalDatabase() const { return modello_ != nullptr; }

    MomentoLocale Locale(double jd);

private:
    Tema tema_;
    Database db_;
    MessaggiRegistrati messaggi_;
    std::unique_ptr<ModelloLuoghi> modello_;
};

} // namespace vesmo
