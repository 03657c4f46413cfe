#include "bindings/shown_rows.h"

#include <map>

namespace quillon {
namespace {

/// Parts the names in a path; no name holds it.
constexpr char kParting = '\x1F';

/// Makes the paths of siblings, counting those of one name.
class SiblingPaths {
public:
    explicit SiblingPaths(std::string parentPath) : parent(std::move(parentPath)) {}
    std::string Next(const std::string& name) {
        return parent + kParting + name + kParting + std::to_string(seen[name]++);
    }

private:
    std::string parent;
    std::map<std::string, int> seen;
};

}  // namespace

void ShownRows::Build(const CMFCPropertyGridCtrl& list) {
    rows.clear();
    SiblingPaths paths("");
    for (int i = 0; i < list.GetPropertyCount(); ++i) {
        CMFCPropertyGridProperty& row = list.GetProperty(i);
        Append(row, paths.Next(row.GetName()), 0);
    }
}

void ShownRows::Append(CMFCPropertyGridProperty& row, const std::string& path, int depth) {
    if (!row.IsVisible()) return;
    const bool folded = foldedPaths.contains(path);
    rows.push_back({&row, path, depth, row.GetSubItemsCount() > 0, folded});
    if (folded) return;
    SiblingPaths paths(path);
    for (int i = 0; i < row.GetSubItemsCount(); ++i) {
        CMFCPropertyGridProperty& below = row.GetSubItem(i);
        Append(below, paths.Next(below.GetName()), depth + 1);
    }
}

int ShownRows::Find(const std::string& path) const {
    for (int i = 0; i < Count(); ++i) {
        if (At(i).path == path) return i;
    }
    return -1;
}

int ShownRows::Find(const CMFCPropertyGridProperty* row) const {
    for (int i = 0; i < Count(); ++i) {
        if (At(i).row == row) return i;
    }
    return -1;
}

void ShownRows::SetFolded(const std::string& path, bool fold) {
    if (fold) {
        foldedPaths.insert(path);
    } else {
        foldedPaths.erase(path);
    }
}

}  // namespace quillon
