#pragma once

#include <QAbstractItemDelegate>

namespace quillon {

/// Draws a cell of a table in the colours of its option: ground, text and the lines to its right and below.
class CellPainter : public QAbstractItemDelegate {
public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace quillon
