#include "display/list_table.h"

#include <algorithm>
#include <string_view>

#include "platform/controls.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::size_t kLongestColumnName = 79;
constexpr std::size_t kLongestCell = 80;
constexpr int kLetters = 26;

}  // namespace

ListTable TableOf(const CListCtrl& list) {
    ListTable table;
    for (int i = 0; i < list.GetColumnCount(); ++i) {
        table.columns.push_back({list.GetColumn(i).header, list.GetColumn(i).align});
    }
    table.rows = list.GetItemCount();
    table.cell = [&list](int row, int column) { return list.GetItemText(row, column); };
    return table;
}

bool PassesNumberTest(std::string_view text) {
    text = Trim(text);
    return !text.empty() && text.find_first_not_of("0123456789.+-") == std::string_view::npos;
}

bool IsNumberColumn(const ListTable& table, int column) {
    if (column >= table.rows) return false;
    for (int row = 0; row < table.rows; ++row) {
        if (!PassesNumberTest(table.cell(row, column))) return false;
    }
    return true;
}

std::string ExportColumnName(const ListTable& table, int column) {
    const std::string& header = table.columns[static_cast<std::size_t>(column)].header;
    if (header.empty()) return Format("%c%d", 'A' + column % kLetters, column / kLetters + 1);
    return header.substr(0, kLongestColumnName);
}

std::string ExportCell(const ListTable& table, int row, int column) {
    std::string text = table.cell(row, column).substr(0, kLongestCell);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace quillon
