#include "bindings/grid_list_binding.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "bindings/cell_painter.h"
#include "bindings/in_place_widgets.h"
#include "toolkit/colours.h"

namespace quillon {
namespace {

/// Draws a cell in its own colours.
class GridCellPainter : public CellPainter {
public:
    GridCellPainter(const CMyListCtrl& shown, QObject* parent) : CellPainter(parent), list(shown) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const CellColours colours = list.ColoursOf(index.row(), index.column());
        QStyleOptionViewItem own = option;
        own.palette.setColor(QPalette::Base, QColorOf(colours.background));
        own.palette.setColor(QPalette::Text, QColorOf(colours.text));
        CellPainter::paint(painter, own, index);
    }

private:
    const CMyListCtrl& list;
};

}  // namespace

GridListBinding::GridListBinding(CMyListCtrl& bound, QWidget* parent) : TableBinding(bound, parent), list(&bound) {
    setItemDelegate(new GridCellPainter(bound, this));
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    ApplyHeader();
}

void GridListBinding::ApplyHeader() {
    horizontalHeader()->setFixedHeight(list->GetHeaderHeight());
}

void GridListBinding::ApplyScroll() {
    const QScopedValueRollback<bool> quiet(scrolling, true);
    horizontalScrollBar()->setValue(list->GetScroll());
    verticalScrollBar()->setValue(list->GetTopRow());
}

/// A widget for each editor that has its window, and none for the others.
void GridListBinding::ApplyEditors() {
    const std::vector<CInPlaceEditor*> open = list->OpenEditors();
    std::erase_if(editors, [&open](auto& entry) {
        if (std::find(open.begin(), open.end(), entry.first) != open.end()) return false;
        if (entry.second) {
            entry.second->hide();
            entry.second->deleteLater();
        }
        return true;
    });
    for (CInPlaceEditor* const editor : open) {
        QPointer<QWidget>& widget = editors[editor];
        if (!widget) {
            widget = MakeInPlaceWidget(*editor, this);
        } else {
            UpdateInPlaceWidget(*widget);
        }
    }
}

void GridListBinding::Refresh(CONTROL_CHANGE change) {
    if (!list) return;
    TableBinding::Refresh(change);
    if (change == CONTROL_CHANGE::CONTENT) ApplyHeader();
    if (change == CONTROL_CHANGE::LAYOUT) ApplyScroll();
    if (change == CONTROL_CHANGE::VALUE) ApplyEditors();
    if (change == CONTROL_CHANGE::FOCUS && !editors.empty()) setFocus();
}

void GridListBinding::Forget() {
    for (auto& [editor, widget] : editors) {
        if (widget) widget->deleteLater();
    }
    editors.clear();
    setItemDelegate(new CellPainter(this));
    list = nullptr;
    TableBinding::Forget();
}

void GridListBinding::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !list) return;
    const QPoint at = event->position().toPoint();
    setFocus(Qt::MouseFocusReason);
    if (const QModelIndex hit = indexAt(at); hit.isValid()) setCurrentIndex(hit);
    list->OnLButtonDown({at.x(), at.y() + list->GetHeaderHeight()}, event->modifiers() & Qt::ShiftModifier,
                        event->modifiers() & Qt::ControlModifier);
}

void GridListBinding::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F2 || !list || !currentIndex().isValid()) return TableBinding::keyPressEvent(event);
    const QPoint at = visualRect(currentIndex()).center();
    list->OnLButtonDown({at.x(), at.y() + list->GetHeaderHeight()});
}

void GridListBinding::scrollContentsBy(int dx, int dy) {
    TableBinding::scrollContentsBy(dx, dy);
    if (list && !scrolling) list->OnScroll(verticalScrollBar()->value(), horizontalScrollBar()->value());
}

void GridListBinding::paintEvent(QPaintEvent* event) {
    if (list) {
        QPainter painter(viewport());
        for (const CMyListCtrl::Band& band : list->BackgroundBands()) {
            painter.fillRect(ToQRect(band.place).translated(0, -list->GetHeaderHeight()), QColorOf(band.colour));
        }
    }
    TableBinding::paintEvent(event);
}

}  // namespace quillon
