#include "bindings/table_model.h"

#include "toolkit/text_edge.h"

namespace quillon {

bool LooksNumeric(std::string_view cell) {
    constexpr std::string_view kAllowed = "0123456789+-., \xB0'\"";
    constexpr std::string_view kCompass = "NSEW";
    cell = Trim(cell);
    if (!cell.empty() && kCompass.find(cell.back()) != std::string_view::npos) cell.remove_suffix(1);
    if (!cell.empty() && kCompass.find(cell.front()) != std::string_view::npos) cell.remove_prefix(1);
    return cell.find_first_of("0123456789") != std::string_view::npos &&
           cell.find_first_not_of(kAllowed) == std::string_view::npos;
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !table ? 0 : table->GetItemCount();
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !table ? 0 : table->GetColumnCount();
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!table || index.row() >= table->GetItemCount() || index.column() >= table->GetColumnCount()) return {};
    if (role == Qt::DisplayRole) return ToQString(table->GetItemText(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole) {
        const bool right = LooksNumeric(table->GetItemText(index.row(), index.column()));
        return QVariant::fromValue(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!table || orientation != Qt::Horizontal || section >= table->GetColumnCount()) return {};
    if (role == Qt::DisplayRole) return ToQString(table->GetColumn(section).header);
    if (role == Qt::TextAlignmentRole) {
        // A header stands over its numbers; the first row speaks for the column.
        const bool right = table->GetItemCount() > 0 && LooksNumeric(table->GetItemText(0, section));
        return QVariant::fromValue(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

void TableModel::Reset() {
    beginResetModel();
    endResetModel();
}

void TableModel::Forget() {
    beginResetModel();
    table = nullptr;
    endResetModel();
}

}  // namespace quillon
