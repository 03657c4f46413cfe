#include "bindings/height_split.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "platform/property_grid.h"

namespace quillon {
namespace {

/// Seen on the dark grey of headings and of captions, by day and by night.
constexpr QColor kLine(0x90, 0x90, 0x90);

}  // namespace

int SharedHeight::ListHeight() const {
    const int room = std::max(0, bottom - top);
    const int most = room - std::min(leastBelow, room / 2);
    return std::clamp(wanted, std::min(leastList, most), most);
}

HeightSplit::HeightSplit(QWidget* parent, int rowHeight) : QWidget(parent), step(rowHeight) {
    setCursor(Qt::SplitVCursor);
    setFocusPolicy(Qt::TabFocus);
    setToolTip("Drag to share the height; double-click for the usual share");
    setAccessibleName("Height of the properties");
}

void HeightSplit::PlaceAt(int edge, int width) {
    setGeometry(0, edge - kThickness / 2, width, kThickness);
    raise();
}

void HeightSplit::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor line = hasFocus() ? palette().color(QPalette::Highlight) : kLine;
    const int middle = height() / 2;
    painter.fillRect(0, middle, width(), 1, line);
    // A short thicker piece to take hold of.
    painter.fillRect(width() / 2 - 16, middle - 1, 32, 3, line);
}

void HeightSplit::mousePressEvent(QMouseEvent* event) {
    grip = event->position().toPoint().y();
}

void HeightSplit::mouseMoveEvent(QMouseEvent* event) {
    const int moved = event->position().toPoint().y() - grip;
    if (event->buttons() & Qt::LeftButton && moved != 0 && onMoved) onMoved(moved);
}

void HeightSplit::mouseDoubleClickEvent(QMouseEvent*) {
    if (onReset) onReset();
}

void HeightSplit::keyPressEvent(QKeyEvent* event) {
    const bool up = event->key() == Qt::Key_Up;
    if (!up && event->key() != Qt::Key_Down) return QWidget::keyPressEvent(event);
    if (onMoved) onMoved(up ? -step : step);
}

StackedPair FindStackedPair(const std::vector<CControl*>& controls) {
    StackedPair pair;
    for (CControl* const control : controls) {
        if (!pair.list && dynamic_cast<CMFCPropertyGridCtrl*>(control)) pair.list = control;
    }
    for (CControl* const control : controls) {
        const bool follows = pair.list && control != pair.list && pair.list->GetRect().Height() > 0 &&
                             control->GetRect().top == pair.list->GetRect().bottom;
        if (follows) pair.below = control;
    }
    return pair;
}

}  // namespace quillon
