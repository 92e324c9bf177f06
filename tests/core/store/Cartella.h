// A temporary folder of one test, removed at its end.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace vesmo::test {

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

} // namespace vesmo::test
