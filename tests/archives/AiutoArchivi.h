// What the archive tests share: a database in the test's folder, charts, filled archives.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "places/Schema.h"
#include "tests/core/Padova.h"
#include "tests/core/store/Cartella.h"

namespace vesmo::test {

// The charts of an archive in index order.
inline std::vector<Tema> TemiArchivio(const std::string& fileDB, const std::string& archivio) {
    Database db(fileDB);
    Cursore rs(db, archivio);
    rs.Index(IndiceArchivio);
    std::vector<Tema> r;
    for (; !rs.Eof(); rs.MoveNext())
        LeggiRecordTema(rs, r.emplace_back());
    return r;
}

// Born in Padova on 10 April 1987 at 19:30 (zone -1, summer time 1), comment "nota <name>".
inline Tema TemaDiProva(const std::string& nome, double ora = 19.5) {
    Tema t = NatoAPadova(nome, 1987, 4, 10, ora, 1);
    t.Stato = "Italy";
    t.Cmto = "nota " + nome;
    return t;
}

// The rows of a reference file under tests/data: fields split at '|', '#' notes left out.
inline std::vector<std::vector<std::string>> RigheDati(const std::string& file) {
    std::ifstream in(std::string(VESMO_DATI_TEST) + "/" + file);
    std::vector<std::vector<std::string>> r;
    for (std::string riga; std::getline(in, riga);) {
        if (riga.empty() || riga[0] == '#') continue;
        auto& campi = r.emplace_back();
        std::istringstream s(riga);
        for (std::string c; std::getline(s, c, '|');)
            campi.push_back(c);
    }
    return r;
}

// A side database holding the table "Compleanni", with its index, and a chart of each name.
inline void CreaCompleanni(const std::filesystem::path& file,
                           const std::vector<std::string>& nomi) {
    {
        Database d;
        d.Crea(file);
        d.CreaTabella("Compleanni", CampiArchivio(),
                      {DefIndice{IndiceArchivio, {"Nome"}, false, false}});
    }
    MessaggiRegistrati m;
    for (const std::string& n : nomi)
        SalvaTema(file.string(), "Compleanni", TemaDiProva(n), m, "prova");
}

class ConArchivi : public ::testing::Test {
protected:
    void SetUp() override {
        fileDB = (cartella / "Vesmodat.Mdb").string();
        Database db;
        db.Crea(fileDB);
        CreaSchemaLuoghi(db);
    }
    std::vector<Tema> Temi(const std::string& archivio) { return TemiArchivio(fileDB, archivio); }
    // Creates the archive and saves a chart of each name into it.
    void Riempi(const std::string& archivio, const std::vector<std::string>& nomi) {
        CreaArchivio(fileDB, archivio);
        for (const std::string& n : nomi)
            ASSERT_EQ(SalvaTema(fileDB, archivio, TemaDiProva(n), messaggi, "prova"),
                      EsitoSalvataggio::Aggiunto);
    }
    // Creates the archive and writes the charts into it in one transaction.
    void RiempiTemi(const std::string& archivio, const std::vector<Tema>& temi) {
        CreaArchivio(fileDB, archivio);
        Database db(fileDB);
        db.IniziaTransazione();
        Cursore rs(db, archivio);
        for (const Tema& t : temi) {
            std::int16_t aggiungi = -1, modifica = 0;
            ScriviTema(rs, t, aggiungi, modifica);
        }
        rs.Chiudi();
        db.ConfermaTransazione();
    }
    // A file of the test's folder with the given bytes, and the bytes of a file.
    std::string File(const std::string& nome, const std::string& testo) {
        const std::string p = (cartella / nome).string();
        std::ofstream(p, std::ios::binary) << testo;
        return p;
    }
    static std::string Leggi(const std::string& p) {
        std::ifstream in(p, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    // The names of an archive in index order, without their padding.
    std::vector<std::string> Nomi(const std::string& archivio) {
        std::vector<std::string> r;
        for (const Tema& t : Temi(archivio))
            r.push_back(SenzaSpaziDestra(t.Nome.str()));
        return r;
    }
    Cartella cartella;
    std::string fileDB;
    MessaggiRegistrati messaggi;
};

} // namespace vesmo::test
