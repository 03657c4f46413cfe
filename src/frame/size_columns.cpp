#include "frame/size_columns.h"

#include <algorithm>

#include "platform/platform.h"

namespace quillon {
namespace {

/// Beside the text of a cell, both sides together, and beside that of a header.
constexpr int kCellPadding = 12;
constexpr int kHeaderPadding = 16;

int ContentWidth(const CListCtrl& table, const Platform& platform, int column) {
    int widest = 0;
    for (const std::string& text : table.GetWidestTexts(column)) widest = std::max(widest, platform.TextWidth(text));
    return widest + kCellPadding;
}

}  // namespace

int HeaderWidth(std::string_view header, int headerWidth) {
    std::size_t longest = 0;
    std::size_t total = 0;
    std::size_t lines = 0;
    for (std::string_view rest = header;; ++lines) {
        const std::size_t feed = rest.find('\n');
        const std::size_t length = std::min(feed, rest.size());
        longest = std::max(longest, length);
        total += length;
        if (feed == std::string_view::npos) break;
        rest.remove_prefix(feed + 1);
    }
    if (lines == 0 || total == 0) return headerWidth;
    return (static_cast<int>(longest) * headerWidth + 2) / static_cast<int>(total);
}

void SizeColumns(CListCtrl& table, bool stretchLast) {
    const Platform& platform = table.GetOwner().GetPlatform();
    const int count = table.GetColumnCount();
    int before = 0;
    int last = 0;
    for (int column = 0; column < count; ++column) {
        const std::string& header = table.GetColumn(column).header;
        const int headerWidth = HeaderWidth(header, platform.TextWidth(header) + kHeaderPadding);
        last = std::max(ContentWidth(table, platform, column), headerWidth);
        table.SetColumnWidth(column, last);
        if (column + 1 < count) before += last;
    }
    const int spare = table.GetRect().Width() - before - last;
    if (stretchLast && count > 0 && spare > 0) table.SetColumnWidth(count - 1, last + spare);
}

}  // namespace quillon
