// vesmo-cli vicine --lon LON --lat LAT: the towns of the places database nearest to a point, as
// the relocated revolution lists them beside its map.
#include <filesystem>
#include <stdexcept>

#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/DatabaseCli.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "places/CittaVicine.h"

namespace vesmo::cli {

int ComandoVicine(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"json"});
    a.Consenti({"lon", "lat", "db", "json"});
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("uso: vesmo-cli vicine --lon LON --lat LAT [--db FILE] [--json]");
    const double lon = LeggiLongitudine(a.Richiesta("lon"));
    const double lat = LeggiLatitudine(a.Richiesta("lat"));
    const auto file = FileDatabase(a);
    if (!std::filesystem::exists(file))
        throw std::runtime_error("database dei luoghi non trovato: " + file.string() +
                                 " (scripts/prepara-dati lo costruisce, --db ne indica un altro)");
    // A database without the index of longitudes and latitudes gets it here, once.
    const std::vector<CittaVicina> vicine = CercaCittaVicine(file, lon, lat);
    if (vicine.empty())
        throw std::runtime_error("nessuna città vicina a " + a.Richiesta("lon") + " " +
                                 a.Richiesta("lat"));
    if (a.Flag("json")) {
        JsonLista lista;
        for (const CittaVicina& v : vicine) {
            JsonOggetto j;
            j.Testo("City", v.City)
                .Testo("Nazione", v.Nazione)
                .Numero("Lon", v.Lon)
                .Numero("Lat", v.Lat);
            lista.Valore(j.str());
        }
        out << lista.str() << '\n';
        return 0;
    }
    for (const CittaVicina& v : vicine)
        out << v.Testo() << '\n';
    return 0;
}

} // namespace vesmo::cli
