// A temporary folder of one test, removed at its end.
#pragma once

#include <gtest/gtest.h>

#include "core/store/Valore.h"

#include <fcntl.h>
#include <filesystem>
#include <linux/fs.h>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace vesmo::test {

// The number of the database error `f` raises, 0 if none.
inline int NumeroErrore(auto&& f) {
    try {
        f();
    } catch (const ErroreDB& e) {
        return e.Numero();
    }
    return 0;
}

class Cartella {
public:
    Cartella() {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string nome = std::string("vesmo_store_") + info->test_suite_name() + "_" +
                           info->name() + "_" + std::to_string(::getpid());
        percorso_ = std::filesystem::temp_directory_path() / nome;
        std::filesystem::remove_all(percorso_);
        std::filesystem::create_directories(percorso_);
    }
    ~Cartella() {
        std::error_code ec;
        std::filesystem::remove_all(percorso_, ec);
    }
    std::filesystem::path operator/(const std::string& file) const { return percorso_ / file; }
    const std::filesystem::path& Percorso() const { return percorso_; }

private:
    std::filesystem::path percorso_;
};

// Makes a file read-only for the length of a test: its permissions, and for a user who passes
// them (root) the immutable attribute where the file system has it. Riuscito() tells whether
// the file really refuses writing.
class FileSolaLettura {
public:
    explicit FileSolaLettura(const std::filesystem::path& file) : file_(file) {
        std::filesystem::permissions(file_, std::filesystem::perms::owner_read |
                                                std::filesystem::perms::group_read |
                                                std::filesystem::perms::others_read);
        if (::geteuid() == 0) immutabile_ = Attributo(true);
        int fd = ::open(file_.c_str(), O_WRONLY);
        riuscito_ = fd < 0;
        if (fd >= 0) ::close(fd);
    }
    ~FileSolaLettura() {
        if (immutabile_) Attributo(false);
        std::error_code ec;
        std::filesystem::permissions(file_, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add, ec);
    }
    FileSolaLettura(const FileSolaLettura&) = delete;
    FileSolaLettura& operator=(const FileSolaLettura&) = delete;
    bool Riuscito() const { return riuscito_; }

private:
    bool Attributo(bool acceso) {
        int fd = ::open(file_.c_str(), O_RDONLY);
        if (fd < 0) return false;
        int flag = 0;
        bool ok = ::ioctl(fd, FS_IOC_GETFLAGS, &flag) == 0;
        if (ok) {
            flag = acceso ? (flag | FS_IMMUTABLE_FL) : (flag & ~FS_IMMUTABLE_FL);
            ok = ::ioctl(fd, FS_IOC_SETFLAGS, &flag) == 0;
        }
        ::close(fd);
        return ok;
    }
    std::filesystem::path file_;
    bool immutabile_ = false;
    bool riuscito_ = false;
};

// Damages a database file as a failing disk would: the last page of the file (which must not be
// the first) gets a header no b-tree page can have. The schema on the first page stays readable.
inline void DanneggiaUltimaPagina(const std::filesystem::path& file) {
    const auto dimensione = std::filesystem::file_size(file);
    constexpr std::uintmax_t pagina = 4096;
    ASSERT_GE(dimensione, 3 * pagina) << file;
    const int fd = ::open(file.c_str(), O_WRONLY);
    ASSERT_GE(fd, 0) << file;
    const std::string guasto(64, '\xFF');
    const auto scritti = ::pwrite(fd, guasto.data(), guasto.size(),
                                  static_cast<off_t>((dimensione / pagina - 1) * pagina));
    ::close(fd);
    ASSERT_EQ(scritti, static_cast<ssize_t>(guasto.size()));
}

} // namespace vesmo::test
