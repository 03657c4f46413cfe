#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

/// A folder of its own for one test: drives below it, and a program folder for the files that lie beside a program.
class ScratchTest : public testing::Test {
protected:
    ScratchTest() {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        root = std::filesystem::temp_directory_path() / (std::string("quillon-") + info->test_suite_name() + "-" +
                                                         info->name() + "-" + std::to_string(getpid()));
        std::filesystem::remove_all(root);
        std::filesystem::create_directories(root / "drives");
        std::filesystem::create_directories(root / "program folder");
    }
    ~ScratchTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }

    std::filesystem::path Drives() const { return root / "drives"; }
    std::filesystem::path Beside(std::string_view name) const { return root / "program folder" / name; }
    std::string Program() const { return Beside("Survey.exe").string(); }

    static void Write(const std::filesystem::path& path, std::string_view bytes) {
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    static std::string Read(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path root;
};

}  // namespace quillon
