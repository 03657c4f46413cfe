#pragma once

#include <QAbstractItemModel>
#include <functional>
#include <optional>

#include "host/job_tree.h"

namespace quillon {

/// The job tree as the toolkit's views ask for it: kinds at the top, their files below. The first column holds names
/// with the box for Display, the second the counts of points, the third a mark.
class JobTreeModel : public QAbstractItemModel, private JobTreeObserver {
public:
    enum COLUMN { NAME_COLUMN, POINTS_COLUMN, MARK_COLUMN, COLUMN_COUNT };

    /// The tree outlives the model.
    JobTreeModel(JobTree& shownTree, Job& shownJob);
    ~JobTreeModel() override;

    /// The file of an index; none for a kind.
    std::optional<JobFile> FileOf(const QModelIndex& index) const;
    /// The kind of an index, or of the file that it is.
    KIND KindOf(const QModelIndex& index) const;
    /// What the tree holds of that file; null for a kind. Until the next refresh.
    const TreeFile* RowAt(const QModelIndex& index) const;
    QModelIndex IndexOf(const JobFile& file) const;
    QModelIndex IndexOf(KIND kind) const;

    /// The operator has ticked the box of a file. The model doesn't act in the middle of a view's event; the owner does
    /// when it has its turn.
    std::function<void(const JobFile& file, bool displayed)> onDisplayed;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return COLUMN_COUNT; }
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void OnFilesComing(KIND kind, int first, int last) override { beginInsertRows(IndexOf(kind), first, last); }
    void OnFilesCame() override { endInsertRows(); }
    void OnFilesGoing(KIND kind, int first, int last) override { beginRemoveRows(IndexOf(kind), first, last); }
    void OnFilesGone() override { endRemoveRows(); }
    void OnFilesChanged(KIND kind, int first, int last) override;

    QVariant KindData(KIND kind, int column, int role) const;
    QVariant FileData(KIND kind, int row, int column, int role) const;

    JobTree& tree;
    Job& job;
};

}  // namespace quillon
