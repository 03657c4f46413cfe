#include "bindings/table_model.h"

#include "bindings/list_image.h"
#include "toolkit/text_edge.h"

namespace quillon {

namespace {

Qt::Alignment AlignmentOf(ALIGN align) {
    switch (align) {
        case ALIGN::LEFT:
            return Qt::AlignVCenter | Qt::AlignLeft;
        case ALIGN::RIGHT:
            return Qt::AlignVCenter | Qt::AlignRight;
        case ALIGN::CENTRE:
            break;
    }
    return Qt::AlignCenter;
}

}  // namespace

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !table ? 0 : table->GetItemCount();
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !table ? 0 : table->GetColumnCount();
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!table || index.row() >= table->GetItemCount() || index.column() >= table->GetColumnCount()) return {};
    if (role == Qt::DisplayRole) return ToQString(table->GetItemText(index.row(), index.column()));
    if (role == Qt::CheckStateRole && index.column() == 0 && table->HasChecks()) {
        return table->IsChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    }
    if (role == Qt::DecorationRole && index.column() == 0) return ImageOf(index.row());
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(table->GetColumn(index.column()).align));
    return {};
}

QVariant TableModel::ImageOf(int row) const {
    const CImageList* const images = table->GetImageList();
    const int image = table->GetImage(row);
    if (!images || image < 0 || image >= images->GetImageCount()) return {};
    return ToQImage(*images, image);
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!table || orientation != Qt::Horizontal || section >= table->GetColumnCount()) return {};
    if (role == Qt::DisplayRole) return ToQString(table->GetColumn(section).header);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(table->GetColumn(section).align));
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
