#include "core/Config.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "core/Aritmetica.h"
#include "core/Testo.h"

namespace vesmo {

namespace {

template <std::size_t N> void Aggiungi(std::string& r, const TestoFisso<N>& t) {
    std::string b = ALatin1(t.str());
    b.resize(N, ' ');
    r += b;
}

std::string Campo(const std::string& byte, std::size_t da, std::size_t largo) {
    if (da >= byte.size()) return {};
    return DaLatin1(byte.substr(da, largo));
}

std::string Motivo(const std::string& file) {
    return file + ": " + std::strerror(errno);
}

} // namespace

std::string RecordIni(const ConfigIni& cfg) {
    std::string r;
    r.reserve(LunghezzaRecordIni);
    Aggiungi(r, cfg.PathDB);
    Aggiungi(r, cfg.PathExe);
    Aggiungi(r, cfg.NazioneDefault);
    Aggiungi(r, cfg.CityDefault);
    Aggiungi(r, cfg.Ordinamento);
    return r;
}

ConfigIni ConfigDaRecord(const std::string& byte) {
    ConfigIni c;
    c.PathDB = Campo(byte, 0, 128);
    c.PathExe = Campo(byte, 128, 128);
    c.NazioneDefault = Campo(byte, 256, 38);
    c.CityDefault = Campo(byte, 294, 30);
    c.Ordinamento = Campo(byte, 324, 1);
    return c;
}

bool LeggiConfig(const std::string& fileIni, ConfigIni& cfg, std::string* errore) {
    errno = 0;
    if (!std::filesystem::exists(fileIni)) {
        // Opening the record file creates it.
        std::ofstream crea(fileIni, std::ios::binary);
        if (!crea) {
            if (errore) *errore = Motivo(fileIni);
            return false;
        }
    }
    std::ifstream in(fileIni, std::ios::binary);
    if (!in) {
        if (errore) *errore = Motivo(fileIni);
        return false;
    }
    std::string byte(LunghezzaRecordIni, '\0');
    in.read(byte.data(), LunghezzaRecordIni);
    byte.resize(static_cast<std::size_t>(in.gcount()));
    cfg = ConfigDaRecord(byte);
    return true;
}

bool ScriviConfig(const std::string& fileIni, const ConfigIni& cfg, std::string* errore) {
    errno = 0;
    // Record 1 is rewritten in place: anything beyond it stays as it was.
    std::fstream out(fileIni, std::ios::binary | std::ios::in | std::ios::out);
    if (!out) {
        out.clear();
        out.open(fileIni, std::ios::binary | std::ios::out);
    }
    if (!out) {
        if (errore) *errore = Motivo(fileIni);
        return false;
    }
    std::string r = RecordIni(cfg);
    out.seekp(0);
    out.write(r.data(), static_cast<std::streamsize>(r.size()));
    out.flush();
    if (!out) {
        if (errore) *errore = Motivo(fileIni);
        return false;
    }
    return true;
}

bool ScriviOrdinamento(const std::string& fileIni, char ordinamento, std::string* errore) {
    ConfigIni c;
    if (!LeggiConfig(fileIni, c, errore)) return false;
    c.Ordinamento = std::string(1, ordinamento);
    return ScriviConfig(fileIni, c, errore);
}

bool NomeDBPresente(const std::string& pathDB) {
    return CercaSenzaCaso(pathDB, "Vesmodat.Mdb") != std::string::npos;
}

bool NomeAstrologPresente(const std::string& pathExe) {
    std::string p = SenzaSpazi(pathExe);
    std::size_t barra = p.find_last_of('/');
    std::string nome = barra == std::string::npos ? p : p.substr(barra + 1);
    return UgualeSenzaCaso(nome, "astrolog") || UgualeSenzaCaso(nome, "astrolog.exe");
}

bool ServePrimaConfigurazione(const ConfigIni& cfg) {
    return !NomeDBPresente(cfg.PathDB.str());
}

std::string DirDiComando(const std::string& cmdAstrolog) {
    std::size_t barra = cmdAstrolog.find_last_of('/');
    return barra == std::string::npos ? std::string{} : cmdAstrolog.substr(0, barra);
}

PercorsiVesmo DerivaPercorsi(const std::string& fileIni, const ConfigIni& cfg) {
    PercorsiVesmo p;
    p.FileIni = fileIni;
    p.FileDB = SenzaSpazi(cfg.PathDB.str());
    std::string exe = SenzaSpazi(cfg.PathExe.str());
    p.CmdAstrolog = exe + " ";
    p.DirAstrolog = DirDiComando(p.CmdAstrolog);
    return p;
}

ConfigIni ConfigPredefinita(const std::string& cartellaProgramma) {
    ConfigIni c;
    std::string cartella = cartellaProgramma;
    if (!cartella.empty() && cartella.back() != '/') cartella += '/';
    c.PathDB = cartella + "Vesmodat.Mdb";
    c.PathExe = "";
    c.NazioneDefault = "Italy";
    c.CityDefault = "Padova";
    c.Ordinamento = "N";
    return c;
}

void PresetTemaCorrente(Sessione& s, const ConfigIni& cfg, int anno, int mese, int giorno, int ora,
                        int minuti, int secondi) {
    Tema t;
    t.Nome = "Default Now ";
    t.City = cfg.CityDefault.str();
    t.Stato = cfg.NazioneDefault.str();
    t.Day = GiornoGiuliano(anno, mese, giorno);
    t.OraL = GradiDecimali(ora, minuti, secondi);
    // Longitude 0.1 hours, not 0, until a place is chosen.
    t.Lon = 0.1;
    t.Lat = 0;
    t.Fuso = 0;
    t.Estiva = 0;
    s.TemaCorrente = t;
    s.LunaGeo = 1;
    s.LunaNeraVera = 1;
    s.JDRivoluzione = -1.0;
    s.JDPrimoRitorno = -1.0;
}

void AvvisoIniAssente(Messaggi& m) {
    m.Mostra("Vesmo - Avvio", "Assente il file Vesmodat.ini\n\nCreazione file  Vesmodat.ini\n",
             Pulsanti::Ok, Icona::Informazione);
}

} // namespace vesmo
