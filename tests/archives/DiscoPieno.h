// A disk that fills up, for the tests: an SQLite file system that passes everything to the real
// one but refuses, as a full disk does, every write that would take a database file past a size
// set by the test. Installed as the default while it lives, so that any Database opened in the
// meantime meets it.
#pragma once

#include <sqlite3.h>

#include <string>

namespace vesmo::test {

class DiscoPieno {
public:
    // Writes that end past `limite` bytes in a file whose name ends with `file` fail with
    // SQLITE_FULL; the file's journal is written freely.
    DiscoPieno(const std::string& file, sqlite3_int64 limite) : file_(file), limite_(limite) {
        attivo_ = this;
        vero_ = sqlite3_vfs_find(nullptr);
        vfs_ = *vero_;
        vfs_.zName = "vesmo-disco-pieno";
        vfs_.xOpen = Apri;
        sqlite3_vfs_register(&vfs_, 1);
    }
    ~DiscoPieno() {
        sqlite3_vfs_unregister(&vfs_);
        sqlite3_vfs_register(vero_, 1);
        attivo_ = nullptr;
    }
    DiscoPieno(const DiscoPieno&) = delete;
    DiscoPieno& operator=(const DiscoPieno&) = delete;
    // How many writes were refused.
    int Rifiutate() const { return rifiutate_; }

private:
    std::string file_;
    sqlite3_int64 limite_;
    sqlite3_vfs* vero_;
    sqlite3_vfs vfs_;
    // The real file's methods with the write of our own: the real file is opened in place, so
    // every other method works on it unchanged.
    sqlite3_io_methods metodi_{};
    int (*scriviVero_)(sqlite3_file*, const void*, int, sqlite3_int64) = nullptr;
    int rifiutate_ = 0;
    static inline DiscoPieno* attivo_ = nullptr;

    static int Apri(sqlite3_vfs*, sqlite3_filename nome, sqlite3_file* f, int flag, int* uscita) {
        DiscoPieno* d = attivo_;
        const int rc = d->vero_->xOpen(d->vero_, nome, f, flag, uscita);
        const std::string n = nome ? nome : "";
        if (rc != SQLITE_OK || !(flag & SQLITE_OPEN_MAIN_DB) || !f->pMethods ||
            !n.ends_with(d->file_))
            return rc;
        d->metodi_ = *f->pMethods;
        d->scriviVero_ = d->metodi_.xWrite;
        d->metodi_.xWrite = Scrivi;
        f->pMethods = &d->metodi_;
        return rc;
    }
    static int Scrivi(sqlite3_file* f, const void* b, int n, sqlite3_int64 o) {
        DiscoPieno* d = attivo_;
        if (o + n > d->limite_) {
            ++d->rifiutate_;
            return SQLITE_FULL;
        }
        return d->scriviVero_(f, b, n, o);
    }
};

} // namespace vesmo::test
