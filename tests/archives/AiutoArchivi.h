// What the archive tests share: a database file with the place tables in the test's own folder,
// and the charts of an archive read back in index order.
#pragma once

#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "places/Schema.h"
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

class ConArchivi : public ::testing::Test {
protected:
    void SetUp() override {
        fileDB = (cartella / "Vesmodat.Mdb").string();
        Database db;
        db.Crea(fileDB);
        CreaSchemaLuoghi(db);
    }
    std::vector<Tema> Temi(const std::string& archivio) { return TemiArchivio(fileDB, archivio); }
    Cartella cartella;
    std::string fileDB;
    MessaggiRegistrati messaggi;
};

} // namespace vesmo::test
