#include "foundation/folders.h"

#include <algorithm>
#include <array>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::array kDrives = {'C', 'D', 'E'};
constexpr std::string_view kSeparators = "\\/";
constexpr std::size_t kShortestFolder = 4;  // a drive and one letter
constexpr std::string_view kDrivesFolder = "C:\\MyDrives\\";
constexpr std::string_view kDataRoot = "MyData";
constexpr std::string_view kSettingsRoot = "MySettings";

bool CreateOne(FileSystem& files, std::string_view path) {
    return files.CreateFolder(path) != FOLDER_RESULT::FAILED;
}

/// "X:\name\".
std::string RootFolder(char drive, std::string_view name) {
    return std::string(1, drive) + ":\\" + std::string(name) + '\\';
}

/// C: always is; the others only count as fixed disks.
bool IsDriveUsable(const FileSystem& files, char drive) {
    return drive == kDrives.front() || files.DriveIsFixed(drive);
}

void AddFolder(std::string& path, std::string_view folder) {
    path += folder;
    path += SeparatorOf(path);
}

/// Creates the folders of a path from behind its drive or root on; the count that stand, and whether the last does.
struct Created {
    int standing = 0;
    bool last = false;
};
Created CreateEach(FileSystem& files, std::string_view path, std::size_t root) {
    Created created;
    for (std::size_t end = path.find_first_of(kSeparators, root + 1); end != std::string_view::npos;
         end = path.find_first_of(kSeparators, end + 1)) {
        created.last = CreateOne(files, path.substr(0, end + 1));
        if (created.last) ++created.standing;
    }
    return created;
}

}  // namespace

bool MakeDirectories(FileSystem& files, std::string_view path) {
    if (path.size() < kShortestFolder) return false;
    std::string whole(path);
    EndInSeparator(whole);
    if (whole.front() == '/') return CreateEach(files, whole, 0).last;
    const std::size_t colon = whole.find(':');
    if (colon == std::string::npos) return false;
    // The drive's own root is never created and doesn't count.
    return CreateEach(files, whole, whole.find_first_of(kSeparators, colon)).standing > 0;
}

bool FindOrCreateRootFolder(FileSystem& files, std::string_view name, std::string& path) {
    path = RootFolder(kDrives.front(), name);
    if (files.Exists(path)) return true;
    for (const char drive : {'D', 'E'}) {
        if (!files.DriveIsFixed(drive)) continue;
        std::string other = RootFolder(drive, name);
        if (!files.Exists(other) && !CreateOne(files, other)) continue;
        path = std::move(other);
        return true;
    }
    return CreateOne(files, path);
}

bool GetMyDataFolder(FileSystem& files, std::string_view subfolder, std::string& path) {
    for (const char drive : kDrives) {
        path = RootFolder(drive, kDataRoot);
        if (!IsDriveUsable(files, drive) || !files.Exists(path)) continue;
        if (subfolder.empty()) return true;
        AddFolder(path, subfolder);
        if (files.Exists(path) || CreateOne(files, path)) return true;
    }
    if (FindOrCreateRootFolder(files, kDataRoot, path)) return true;
    path.clear();
    return false;
}

bool GetMyDrivesFolder(FileSystem& files, std::string_view subfolder, std::string& path) {
    path.clear();
    CreateOne(files, kDrivesFolder);
    CStdioFile file(files);
    std::string_view line;
    if (!file.OpenForReading(MakePath(kDrivesFolder, kDataRoot, "INI")) || !file.ReadString(line)) return false;
    std::string base(line);
    std::erase_if(base, [](char c) { return c == '\r' || c == '\n'; });
    base = Trim(base);
    if (base.empty()) return false;
    EndInSeparator(base);
    if (!subfolder.empty()) AddFolder(base, subfolder);
    if (!MakeDirectories(files, base)) return false;
    path = std::move(base);
    return true;
}

std::string GetDataFolder(FileSystem& files, std::string_view subfolder) {
    std::string path;
    if (!GetMyDrivesFolder(files, subfolder, path)) GetMyDataFolder(files, subfolder, path);
    return path;
}

bool GetSettingsFolder(FileSystem& files, std::string& path) {
    if (!FindOrCreateRootFolder(files, kSettingsRoot, path)) return false;
    AddFolder(path, SplitPath(files.CommandLine()).name);
    return MakeDirectories(files, path);
}

std::string GetSettingsPath(FileSystem& files, std::string_view name, std::string_view extension) {
    std::string folder;
    GetSettingsFolder(files, folder);
    std::string file(name);
    std::replace(file.begin(), file.end(), ' ', '_');
    return MakePath(folder, file, extension);
}

}  // namespace quillon
