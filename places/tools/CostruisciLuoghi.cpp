// vesmo-costruisci-luoghi: builds the place tables of Vesmodat.Mdb from GeoNames' places, the
// Italian comuni, the ISO 3166-1 nation names and the system's time-zone database.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "places/CostruzioneLuoghi.h"

namespace {

const char* const Uso =
    "uso: vesmo-costruisci-luoghi --cities cities500.txt --nazioni iso_3166-1.json\n"
    "                             --out Vesmodat.Mdb [--comuni CARTELLA|FILE]\n"
    "                             [--catastali CARTELLA] [--zoneinfo DIR] [--anno-fine AAAA]\n"
    "  --comuni     i comuni italiani in JSON (nome, codice ISTAT, sigla della provincia)\n"
    "  --catastali  la cartella di lista-comuni.js e lista-province.js (codice-fiscale-js):\n"
    "               i nomi dei comuni dal 1861 con il codice catastale, e le province\n"
    "  --zoneinfo   cartella delle zone (predefinita /usr/share/zoneinfo)\n"
    "  --anno-fine  ultimo anno delle regole dell'ora estiva (predefinito 2100)\n";

} // namespace

int main(int argc, char** argv) {
    vesmo::FontiCostruzione fonti;
    std::string uscita;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--help" || a == "-h") {
            std::fputs(Uso, stdout);
            return 0;
        }
        if (i + 1 >= argc) {
            std::fprintf(stderr, "vesmo-costruisci-luoghi: manca il valore di %s\n%s", a.c_str(),
                         Uso);
            return 2;
        }
        const std::string v = argv[++i];
        if (a == "--cities")
            fonti.cities = v;
        else if (a == "--nazioni")
            fonti.nazioni = v;
        else if (a == "--comuni")
            fonti.comuni = v;
        else if (a == "--catastali")
            fonti.catastali = v;
        else if (a == "--zoneinfo")
            fonti.zoneinfo = v;
        else if (a == "--out")
            uscita = v;
        else if (a == "--anno-fine")
            fonti.annoFine = std::atoi(v.c_str());
        else {
            std::fprintf(stderr, "vesmo-costruisci-luoghi: opzione sconosciuta: %s\n%s", a.c_str(),
                         Uso);
            return 2;
        }
    }
    if (fonti.cities.empty() || fonti.nazioni.empty() || uscita.empty() || fonti.annoFine < 1970 ||
        fonti.annoFine > 9999) {
        std::fputs(Uso, stderr);
        return 2;
    }
    try {
        const auto inizio = std::chrono::steady_clock::now();
        const vesmo::RiepilogoCostruzione r = vesmo::CostruisciDatabaseLuoghi(fonti, uscita);
        const double secondi =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
        std::printf("%s: %zu nazioni, %zu luoghi (%zu scartati), %zu comuni, %zu nomi "
                    "alternativi, %zu zone, %zu righe Fusi, %zu righe Estive, %zu chiavi di "
                    "nomi, %zu nomi precedenti (%zu senza luogo), %zu province, %.1f s\n",
                    uscita.c_str(), r.nazioni, r.luoghi, r.scartati, r.comuni, r.nomiAlternativi,
                    r.zone, r.righeFusi, r.righeEstive, r.chiavi, r.nomiPrecedenti,
                    r.precedentiSenzaLuogo, r.province, secondi);
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "vesmo-costruisci-luoghi: %s\n", e.what());
        return 1;
    }
}
