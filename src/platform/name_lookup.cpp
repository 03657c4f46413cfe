#include "platform/name_lookup.h"

#include <sys/stat.h>

#include <chrono>
#include <system_error>

#include "platform/text.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostFolders = 64;
/// A folder that changes within this time after it was listed may keep its time stamp: the coarsest file systems count
/// in steps of 2 s.
constexpr std::int64_t kSettledNs = 2'000'000'000;

bool Stands(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::int64_t NowNs() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

/// Of the folder's last change; false if it is none.
bool ModifiedNs(const fs::path& folder, std::int64_t& modifiedNs) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
    modifiedNs = static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    return true;
}

}  // namespace

fs::path NameLookup::Find(const fs::path& base, const fs::path& relative, NAME_MATCH match) {
    fs::path whole = base / relative;
    if (Stands(whole)) return whole;
    fs::path found = base;
    bool lost = false;
    for (const fs::path& part : relative) {
        fs::path next = found / part;
        if (!lost && !part.empty() && !Stands(next)) {
            const std::string name = Match(found, part.native(), match);
            lost = name.empty();
            if (!lost) next = found / name;
        }
        found = std::move(next);
    }
    return found;
}

std::string NameLookup::Match(const fs::path& folder, const std::string& name, NAME_MATCH match) {
    const std::string text = TextFromUtf8(name);
    const std::lock_guard lock(mutex);
    const Folder* const listed = List(folder.empty() ? fs::path(".") : folder);
    if (!listed) return {};
    std::string best;
    const auto [first, last] = listed->names.equal_range(ToUpper(text));
    for (auto it = first; it != last; ++it) {
        if (match == NAME_MATCH::SAME_TEXT && TextFromUtf8(it->second) != text) continue;
        if (best.empty() || it->second < best) best = it->second;
    }
    return best;
}

const NameLookup::Folder* NameLookup::List(const fs::path& path) {
    std::int64_t modifiedNs = 0;
    if (!ModifiedNs(path, modifiedNs)) return nullptr;
    if (folders.size() >= kMostFolders && !folders.contains(path.native())) folders.clear();
    Folder& folder = folders[path.native()];
    if (folder.modifiedNs == modifiedNs && modifiedNs + kSettledNs < folder.listedNs) return &folder;
    folder = {.modifiedNs = modifiedNs, .listedNs = NowNs(), .names = {}};
    std::error_code failed;
    for (fs::directory_iterator entry(path, failed), end; !failed && entry != end; entry.increment(failed)) {
        std::string name = entry->path().filename().native();
        folder.names.emplace(ToUpper(TextFromUtf8(name)), std::move(name));
    }
    return &folder;
}

}  // namespace quillon
