#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/property_grid.h"

namespace quillon {

/// One line of a property list on the screen.
struct ShownRow {
    CMFCPropertyGridProperty* row;
    /// Names a row across a rebuild of its list: the names from the top down, and which of its namesakes it is.
    std::string path;
    int depth = 0;
    bool foldable = false;
    bool folded = false;
};

/// The lines of a property list from top to bottom, less what is hidden or folded away. Which groups are folded is
/// kept by path, so that a list that its pane builds anew looks as it did.
///
/// It borrows the rows: after a change of the list's content it must be built again before a row is used.
class ShownRows {
public:
    void Build(const CMFCPropertyGridCtrl& list);
    void Clear() { rows.clear(); }

    int Count() const { return static_cast<int>(rows.size()); }
    const ShownRow& At(int index) const { return rows.at(static_cast<std::size_t>(index)); }
    /// -1 if no such row is shown.
    int Find(const std::string& path) const;
    int Find(const CMFCPropertyGridProperty* row) const;

    /// Takes effect at the next build.
    void SetFolded(const std::string& path, bool fold);

private:
    void Append(CMFCPropertyGridProperty& row, const std::string& path, int depth);

    std::vector<ShownRow> rows;
    std::set<std::string> foldedPaths;
};

}  // namespace quillon
