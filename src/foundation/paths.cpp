#include "foundation/paths.h"

#include <algorithm>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::string_view kDefaultExtension = "INI";

/// Characters of the path that are folder, the last separator among them.
std::size_t FolderLength(std::string_view path) {
    const std::size_t last = path.find_last_of(kSeparators);
    if (last == std::string_view::npos || (last == 0 && path[0] == '\\')) return 0;
    return last + 1;
}

std::string_view BeforeLastDot(std::string_view path) {
    return path.substr(0, path.rfind('.'));
}

}  // namespace

tagPathParts SplitPath(std::string_view path) {
    std::string bare(path);
    std::erase(bare, '"');
    const std::string_view whole = bare;
    const std::string_view file = whole.substr(FolderLength(whole));
    const std::size_t dot = file.rfind('.');
    tagPathParts parts;
    parts.folder = whole.substr(0, whole.size() - file.size());
    parts.name = file.substr(0, dot);
    if (dot != std::string_view::npos) parts.extension = file.substr(dot + 1);
    return parts;
}

std::string FolderOfPath(std::string_view path) {
    return std::string(path.substr(0, FolderLength(path)));
}

std::string NameOfPath(std::string_view path) {
    const std::string_view name = BeforeLastDot(path.substr(FolderLength(path)));
    const std::string_view trimmed = Trim(name);
    return std::string(trimmed.empty() ? name : trimmed);
}

std::string ReplaceExtension(std::string_view path, std::string_view extension) {
    std::string replaced(BeforeLastDot(path));
    replaced += '.';
    replaced += extension;
    return replaced;
}

std::string MakePath(std::string_view folder, std::string_view name, std::string_view extension) {
    std::string path(folder);
    path += name;
    path += '.';
    path += extension.empty() ? kDefaultExtension : extension;
    return path;
}

char SeparatorOf(std::string_view path) {
    return path.substr(0, 1) == "/" ? '/' : '\\';
}

void EndInSeparator(std::string& path) {
    if (path.empty() || kSeparators.find(path.back()) == std::string_view::npos) path += SeparatorOf(path);
}

}  // namespace quillon
