#pragma once

#include <QTableView>

#include "bindings/control_binding.h"
#include "bindings/table_model.h"

namespace quillon {

/// A report table: whole rows are selected, lines stand between the cells. A click on a row, and the keyboard moving to
/// one, is a click of the operator in the model; the space bar and Return click the current row again. Ctrl+C copies
/// the row, its cells parted by tabs. The right button, and the menu key, are a right click. Where the table takes
/// several rows, Shift and Ctrl select them.
///
/// Only the rows in sight are ever asked for.
class TableBinding : public QTableView, public ControlBinding {
public:
    TableBinding(CListCtrl& table, QWidget* parent);

    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Typing would search the table, and so make a row of every point.
    void keyboardSearch(const QString&) override {}

private:
    void ApplyColumns();
    void ApplySelection();
    void ApplyColours();
    void ClickCurrent();
    void CopyCurrent();
    /// Tells the model which rows the operator has selected.
    void KeepSelection();

    CListCtrl* table;
    TableModel rows;
    bool syncing = false;
};

}  // namespace quillon
