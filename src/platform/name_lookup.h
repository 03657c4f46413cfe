#pragma once

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillon {

enum class NAME_MATCH {
    ANY_CAPITALS,  ///< names are the same if they differ in capitals only, as on the drives of other systems
    SAME_TEXT      ///< names are the same if they read as the same text, also in bytes that are no UTF-8
};

/// Finds a file that isn't there under the name asked for, but under one that stands for the same: "LEG 7.CSV" for
/// "Leg 7.csv", or a name whose bytes are Windows-1252. A job carried over from another system holds both.
///
/// A folder is listed once and looked at again when it has changed, so that asking for many files that aren't there
/// stays cheap. May be called from any thread.
class NameLookup {
public:
    /// `base` / `relative` with each part of `relative` that isn't there replaced by its match. A part without a match
    /// stands as it is, with all that follows it. Of several matches the first by its bytes is taken.
    std::filesystem::path Find(const std::filesystem::path& base, const std::filesystem::path& relative,
                               NAME_MATCH match);

private:
    struct Folder {
        std::int64_t modifiedNs = 0;
        std::int64_t listedNs = 0;
        std::unordered_multimap<std::string, std::string> names;  ///< by their texts in capitals
    };

    const Folder* List(const std::filesystem::path& path);
    std::string Match(const std::filesystem::path& folder, const std::string& name, NAME_MATCH match);

    std::mutex mutex;  ///< guards folders
    std::unordered_map<std::string, Folder> folders;
};

}  // namespace quillon
