#include "frame/points_table.h"

#include "frame/size_columns.h"

namespace quillon {

void ShowPoints(CListCtrl& table, const PointsTable& points) {
    table.DeleteAllItems();
    table.DeleteAllColumns();
    for (const CListCtrl::Column& column : points.columns) table.InsertColumn(column.header, column.align);
    RenewPoints(table, points);
}

void RenewPoints(CListCtrl& table, const PointsTable& points) {
    table.SetRows(points.rows);
    SizeColumns(table, false);
}

}  // namespace quillon
