#pragma once

#include <QAbstractTableModel>

#include "platform/controls.h"

namespace quillon {

/// The rows of a table control for a view. A cell is asked for when it is drawn and kept nowhere.
class TableModel : public QAbstractTableModel {
public:
    explicit TableModel(CListCtrl& bound) : table(&bound) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Rows or columns have changed; the view starts anew.
    void Reset();
    /// The table is about to go.
    void Forget();

private:
    QVariant ImageOf(int row) const;

    CListCtrl* table;
};

}  // namespace quillon
