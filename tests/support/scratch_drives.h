#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

/// A file system over drives of its own, removed at the end: C: at the start, others as they are added. Paths are
/// library paths.
class ScratchDrives {
public:
    explicit ScratchDrives(const std::string& commandLine = "C:\\Programs\\Host.exe")
        : root(MakeRoot()), files(root, commandLine) {}
    ~ScratchDrives() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    ScratchDrives(const ScratchDrives&) = delete;
    ScratchDrives& operator=(const ScratchDrives&) = delete;

    operator FileSystem&() { return files; }
    FileSystem& Files() { return files; }
    const std::filesystem::path& Root() const { return root; }

    void AddDrive(char lowerLetter) { std::filesystem::create_directory(root / std::string(1, lowerLetter)); }

    /// Makes the folders on the way.
    void Write(std::string_view path, std::string_view bytes) {
        const auto native = files.Native(path);
        std::filesystem::create_directories(native.parent_path());
        std::ofstream(native, std::ios::binary) << bytes;
    }
    void MakeFolder(std::string_view path) { std::filesystem::create_directories(files.Native(path)); }

    /// The bytes as they lie on the disk; "(none)" without a file.
    std::string Read(std::string_view path) {
        std::ifstream in(files.Native(path), std::ios::binary);
        return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "(none)";
    }
    bool Exists(std::string_view path) { return files.Exists(path); }

private:
    static std::filesystem::path MakeRoot() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-test-XXXXXX").string();
        return ::mkdtemp(name.data());
    }

    std::filesystem::path root;
    FileSystem files;
};

}  // namespace quillon
