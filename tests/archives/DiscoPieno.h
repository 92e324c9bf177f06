// A disk that fills up, for the tests: an SQLite file system that passes everything to the real
// one but refuses, as a full disk does, every write that would take a database file past a size
// set by the test. Installed as the default while it lives, so that any Database opened in the
// meantime meets it.
#pragma once

#include <sqlite3.h>

#include <cstring>
#include <string>

namespace vesmo::test {

class DiscoPieno {
public:
    // Writes that end past `limite` bytes in a file whose name ends with `file` fail with
    // SQLITE_FULL; the file's journal is written freely.
    DiscoPieno(const std::string& file, sqlite3_int64 limite) {
        stato_ = {file, limite};
        vero_ = sqlite3_vfs_find(nullptr);
        vfs_ = *vero_;
        vfs_.zName = "vesmo-disco-pieno";
        vfs_.szOsFile = static_cast<int>(sizeof(File)) + vero_->szOsFile;
        vfs_.pAppData = this;
        vfs_.xOpen = Apri;
        sqlite3_vfs_register(&vfs_, 1);
    }
    ~DiscoPieno() {
        sqlite3_vfs_unregister(&vfs_);
        sqlite3_vfs_register(vero_, 1);
    }
    DiscoPieno(const DiscoPieno&) = delete;
    DiscoPieno& operator=(const DiscoPieno&) = delete;
    // How many writes were refused.
    int Rifiutate() const { return rifiutate_; }

private:
    struct File {
        sqlite3_file base;
        DiscoPieno* disco;
        bool limitato;
        sqlite3_file* vero() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    };
    struct Stato {
        std::string file;
        sqlite3_int64 limite;
    } stato_;
    sqlite3_vfs* vero_;
    sqlite3_vfs vfs_;
    sqlite3_io_methods metodi_{};
    int rifiutate_ = 0;

    static File* F(sqlite3_file* f) { return reinterpret_cast<File*>(f); }

    static int Apri(sqlite3_vfs* vfs, sqlite3_filename nome, sqlite3_file* f, int flag,
                    int* uscita) {
        auto* disco = static_cast<DiscoPieno*>(vfs->pAppData);
        File* p = F(f);
        std::memset(p, 0, sizeof(File));
        int rc = disco->vero_->xOpen(disco->vero_, nome, p->vero(), flag, uscita);
        if (rc != SQLITE_OK) return rc;
        p->disco = disco;
        const std::string n = nome ? nome : "";
        const std::string& atteso = disco->stato_.file;
        p->limitato = (flag & SQLITE_OPEN_MAIN_DB) && n.size() >= atteso.size() &&
                      n.compare(n.size() - atteso.size(), atteso.size(), atteso) == 0;
        // The methods of the real file, with the write and the close of our own.
        disco->metodi_ = *p->vero()->pMethods;
        disco->metodi_.iVersion = 1;
        disco->metodi_.xClose = Chiudi;
        disco->metodi_.xRead = [](sqlite3_file* f, void* b, int n, sqlite3_int64 o) {
            return F(f)->vero()->pMethods->xRead(F(f)->vero(), b, n, o);
        };
        disco->metodi_.xWrite = Scrivi;
        disco->metodi_.xTruncate = [](sqlite3_file* f, sqlite3_int64 n) {
            return F(f)->vero()->pMethods->xTruncate(F(f)->vero(), n);
        };
        disco->metodi_.xSync = [](sqlite3_file* f, int flag) {
            return F(f)->vero()->pMethods->xSync(F(f)->vero(), flag);
        };
        disco->metodi_.xFileSize = [](sqlite3_file* f, sqlite3_int64* n) {
            return F(f)->vero()->pMethods->xFileSize(F(f)->vero(), n);
        };
        disco->metodi_.xLock = [](sqlite3_file* f, int l) {
            return F(f)->vero()->pMethods->xLock(F(f)->vero(), l);
        };
        disco->metodi_.xUnlock = [](sqlite3_file* f, int l) {
            return F(f)->vero()->pMethods->xUnlock(F(f)->vero(), l);
        };
        disco->metodi_.xCheckReservedLock = [](sqlite3_file* f, int* r) {
            return F(f)->vero()->pMethods->xCheckReservedLock(F(f)->vero(), r);
        };
        disco->metodi_.xFileControl = [](sqlite3_file* f, int op, void* a) {
            return F(f)->vero()->pMethods->xFileControl(F(f)->vero(), op, a);
        };
        disco->metodi_.xSectorSize = [](sqlite3_file* f) {
            return F(f)->vero()->pMethods->xSectorSize(F(f)->vero());
        };
        disco->metodi_.xDeviceCharacteristics = [](sqlite3_file* f) {
            return F(f)->vero()->pMethods->xDeviceCharacteristics(F(f)->vero());
        };
        p->base.pMethods = &disco->metodi_;
        return SQLITE_OK;
    }
    static int Chiudi(sqlite3_file* f) {
        sqlite3_file* v = F(f)->vero();
        return v->pMethods ? v->pMethods->xClose(v) : SQLITE_OK;
    }
    static int Scrivi(sqlite3_file* f, const void* b, int n, sqlite3_int64 o) {
        File* p = F(f);
        if (p->limitato && o + n > p->disco->stato_.limite) {
            ++p->disco->rifiutate_;
            return SQLITE_FULL;
        }
        return p->vero()->pMethods->xWrite(p->vero(), b, n, o);
    }
};

} // namespace vesmo::test
