#pragma once

#include <QPointer>
#include <map>

#include "bindings/table_binding.h"
#include "display/grid_list_ctrl.h"

namespace quillon {

/// A grid list: a table with cell colours of its own, a header as high as its longest title, and the editors of its
/// cells as widgets over them. F2 edits the current cell, as a click does.
class GridListBinding : public TableBinding {
public:
    GridListBinding(CMyListCtrl& list, QWidget* parent);

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ApplyHeader();
    void ApplyScroll();
    void ApplyEditors();

    CMyListCtrl* list;
    std::map<CInPlaceEditor*, QPointer<QWidget>> editors;
    bool scrolling = false;
};

}  // namespace quillon
