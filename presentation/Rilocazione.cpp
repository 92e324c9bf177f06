#include "presentation/Rilocazione.h"

#include <cmath>

#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"

namespace vesmo {

namespace {

const char* const TitoloRivoluzioni = "Lyx - Info Rivoluzioni";
const char* const TitoloRilocate = "Lyx - Info Rilocate";

} // namespace

double PassoRilocazione(double valore, bool primi) {
    return primi ? GradiDecimali(0, valore, 0) : GradiDecimali(valore, 0, 0);
}

EsitoRilocazione Rilocazione(Sessione& s, AsseRilocazione asse, double passo, Messaggi& messaggi) {
    Tema& z = s.TemaZ;
    if (asse == AsseRilocazione::EstOvest) {
        if (std::fabs(z.Lon + passo / 15) > 12) {
            messaggi.Mostra(TitoloRivoluzioni, "Longitudine > 180°", Pulsanti::Ok,
                            Icona::Esclamativo);
            return EsitoRilocazione::FuoriLongitudine;
        }
        z.Lon += passo / 15;
    } else {
        if (std::fabs(z.Lat + passo) > 90) {
            messaggi.Mostra(TitoloRivoluzioni, "Latitudine > 90°", Pulsanti::Ok,
                            Icona::Esclamativo);
            return EsitoRilocazione::FuoriLatitudine;
        }
        z.Lat += passo;
    }
    z.Stato = "Jolly";
    z.City = "Jolly";
    // Local mean time of the new place.
    z.Fuso = z.Lon;
    z.Estiva = 0;
    if (s.JDRivoluzione == -1.0) {
        messaggi.Mostra(TitoloRilocate, "Necessaria Rivoluzione!", Pulsanti::Ok,
                        Icona::Informazione);
        return EsitoRilocazione::SenzaRivoluzione;
    }
    // The instant stays; only its clock reading changes.
    float anno, mese, giorno;
    DataDaGiuliano(s.JDRivoluzione, anno, mese, giorno);
    z.Day = GiornoGiuliano(anno, mese, Int(giorno));
    z.OraL = (s.JDRivoluzione - z.Day) * 24 + z.Estiva - z.Fuso;
    s.TemaRiv = z;
    s.PosRiv = s.PosVuoto;
    Case cuspidi;
    CastaTema(s.TemaRiv, cuspidi, s.PosRiv, s.LunaGeo, messaggi);
    s.PosZ = s.PosRiv;
    return EsitoRilocazione::Rilocata;
}

std::string TestoCoordinateRilocate(const Tema& tema) {
    return TestoCoordinata(tema.Lon, 1, 0, false) + "   " + TestoCoordinata(tema.Lat, 0, 1, false);
}

PuntoMappa PosizioneSullaMappa(double lon, double lat, double W, double H) {
    const double x0 = W / 2 - 120, y0 = H / 2 + 360;
    const double dx = (W / 2) * lon / 12;
    double dy = (H / 2) * lat / 90;
    if (lat > 60)
        dy += (lat - 60) * 360 / 24;
    else if (lat < -30)
        dy -= (std::fabs(lat) - 30) * 216 / 60;
    return {x0 - dx, y0 - dy};
}

SegnoMappa SegnaMappa(double lon, double lat, double W, double H) {
    const PuntoMappa p = PosizioneSullaMappa(lon, lat, W, H);
    const double dx = W / 2 - 120 - p.x, dy = H / 2 + 360 - p.y;
    return {p.x, H / 2 - dy, 11 * H / 14 - dy, p.y, 2 * W / 5 - dx, 3 * (W - 360) / 5 - dx};
}

} // namespace vesmo
