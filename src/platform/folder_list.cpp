#include "platform/folder_list.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "platform/text.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

struct Entry {
    std::string key;  ///< to sort by
    std::string name;
    bool isFolder;
};

std::vector<Entry> EntriesOf(const fs::path& folder) {
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code gone;
        const std::string name = TextFromUtf8(at->path().filename().string());
        entries.push_back({ToUpper(name), name, at->is_directory(gone)});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.key != b.key ? a.key < b.key : a.name < b.name; });
    return entries;
}

class Search {
public:
    Search(const FileSystem& fileSystem, const std::function<bool(std::string_view)>& isWanted)
        : files(fileSystem), wanted(isWanted) {}

    void Enter(const std::string& folder) {
        std::error_code error;
        const fs::path native = files.Native(folder);
        if (!visited.insert(fs::canonical(native, error)).second || error) return;
        const char separator = folder.back();
        for (const Entry& entry : EntriesOf(native)) {
            if (entry.isFolder) {
                Enter(folder + entry.name + separator);
            } else if (wanted(entry.name)) {
                found.push_back(folder + entry.name);
            }
        }
    }

    std::vector<std::string> found;

private:
    const FileSystem& files;
    const std::function<bool(std::string_view)>& wanted;
    std::set<fs::path> visited;
};

}  // namespace

std::vector<std::string> FindFiles(const FileSystem& files, const std::string& folder,
                                   const std::function<bool(std::string_view name)>& wanted) {
    if (folder.empty()) return {};
    Search search(files, wanted);
    search.Enter(folder);
    return std::move(search.found);
}

}  // namespace quillon
