#pragma once

#include <QStyledItemDelegate>
#include <vector>

#include "chart/chart_sample.h"
#include "window/job_tree_model.h"

class QSortFilterProxyModel;

namespace quillon {

/// Draws the rows of the job tree: behind the box a sample of how the file is drawn on the chart, and in the last
/// column the mark.
class JobTreeDelegate : public QStyledItemDelegate {
public:
    JobTreeDelegate(const JobTreeModel& treeModel, const QSortFilterProxyModel& filtered, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    static constexpr QSize kSample{26, 16};
    static constexpr int kMarkWidth = 22;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const TreeFile* RowAt(const QModelIndex& index) const;
    const QImage& SampleOf(const KindLook& look, bool night, double scale) const;

    struct Drawn {
        ChartSample sample;
        bool night;
        double scale;
        QImage image;
    };
    const JobTreeModel& model;
    const QSortFilterProxyModel& proxy;
    mutable std::vector<Drawn> samples;  ///< drawn before; the oldest goes first
};

}  // namespace quillon
