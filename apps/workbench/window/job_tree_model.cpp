#include "window/job_tree_model.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include "toolkit/text_edge.h"
#include "window/status_line.h"

namespace quillon {
namespace {

/// The id of an index is that of its parent's kind, from 1; 0 for a kind itself.
quintptr IdBelow(KIND kind) {
    return static_cast<quintptr>(kind) + 1;
}

QBrush Faint() {
    return QApplication::palette().brush(QPalette::PlaceholderText);
}

}  // namespace

JobTreeModel::JobTreeModel(JobTree& shownTree, Job& shownJob) : tree(shownTree), job(shownJob) {
    tree.SetObserver(this);
}

JobTreeModel::~JobTreeModel() {
    tree.SetObserver(nullptr);
}

// ---- Indexes ----

KIND JobTreeModel::KindOf(const QModelIndex& index) const {
    if (!index.isValid()) return KIND::NONE;
    return index.internalId() == 0 ? static_cast<KIND>(index.row()) : static_cast<KIND>(index.internalId() - 1);
}

std::optional<JobFile> JobTreeModel::FileOf(const QModelIndex& index) const {
    const TreeFile* const row = RowAt(index);
    return row ? std::optional(JobFile{KindOf(index), row->path}) : std::nullopt;
}

const TreeFile* JobTreeModel::RowAt(const QModelIndex& index) const {
    if (!index.isValid() || index.internalId() == 0) return nullptr;
    const auto& files = tree.FilesOf(KindOf(index));
    const auto row = static_cast<std::size_t>(index.row());
    return row < files.size() ? &files[row] : nullptr;
}

QModelIndex JobTreeModel::IndexOf(KIND kind) const {
    return kind == KIND::NONE ? QModelIndex() : createIndex(static_cast<int>(kind), NAME_COLUMN, quintptr{0});
}

QModelIndex JobTreeModel::IndexOf(const JobFile& file) const {
    const int row = tree.RowOf(file);
    return row < 0 ? QModelIndex() : createIndex(row, NAME_COLUMN, IdBelow(file.kind));
}

QModelIndex JobTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column < 0 || column >= COLUMN_COUNT) return {};
    return createIndex(row, column, parent.isValid() ? IdBelow(KindOf(parent)) : quintptr{0});
}

QModelIndex JobTreeModel::parent(const QModelIndex& child) const {
    return child.isValid() && child.internalId() != 0 ? IndexOf(KindOf(child)) : QModelIndex();
}

int JobTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return static_cast<int>(kKindCount);
    if (parent.internalId() != 0 || parent.column() != NAME_COLUMN) return 0;
    return static_cast<int>(tree.FilesOf(KindOf(parent)).size());
}

// ---- What they show ----

QVariant JobTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const KIND kind = KindOf(index);
    if (role == Qt::TextAlignmentRole && index.column() == POINTS_COLUMN) {
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    if (index.internalId() == 0) return KindData(kind, index.column(), role);
    return RowAt(index) ? FileData(kind, index.row(), index.column(), role) : QVariant();
}

QVariant JobTreeModel::KindData(KIND kind, int column, int role) const {
    const std::size_t count = tree.FilesOf(kind).size();
    if (role == Qt::DisplayRole && column == NAME_COLUMN) {
        const QString name = ToQString(quillon::KindOf(kind).name);
        return count == 0 ? name : name + QString("  (%1)").arg(count);
    }
    if (role == Qt::ForegroundRole && count == 0) return Faint();
    if (role == Qt::FontRole && count > 0) {
        QFont bold = QApplication::font();
        bold.setBold(true);
        return bold;
    }
    return {};
}

QVariant JobTreeModel::FileData(KIND kind, int row, int column, int role) const {
    const TreeFile& file = tree.FilesOf(kind)[static_cast<std::size_t>(row)];
    const bool isUseless = file.mark == TREE_MARK::MISSING || file.mark == TREE_MARK::STUB;
    switch (role) {
        case Qt::DisplayRole:
            if (column == NAME_COLUMN) return ToQString(file.name);
            return column == POINTS_COLUMN && file.points > 0 ? CountText(file.points) : QString();
        case Qt::ToolTipRole:
            return ToQString(tree.TipOf(kind, row));
        case Qt::CheckStateRole:
            if (column == NAME_COLUMN) return file.displayed ? Qt::Checked : Qt::Unchecked;
            return {};
        case Qt::ForegroundRole:
            if (isUseless || !file.displayed || column == POINTS_COLUMN) return Faint();
            return {};
        default:
            return {};
    }
}

bool JobTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const std::optional<JobFile> file = FileOf(index);
    if (role != Qt::CheckStateRole || !file || index.column() != NAME_COLUMN) return false;
    if (onDisplayed) onDisplayed(*file, value.toInt() == Qt::Checked);
    return true;
}

QVariant JobTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == NAME_COLUMN ? QString("Name") : section == POINTS_COLUMN ? QString("Points") : QString();
}

Qt::ItemFlags JobTreeModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.internalId() == 0) return flags;
    flags |= Qt::ItemNeverHasChildren;
    if (index.column() == NAME_COLUMN && CanSetDisplayed(job, KindOf(index))) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

void JobTreeModel::OnFilesChanged(KIND kind, int first, int last) {
    const QModelIndex parent = IndexOf(kind);
    emit dataChanged(index(first, NAME_COLUMN, parent), index(last, MARK_COLUMN, parent));
}

}  // namespace quillon
