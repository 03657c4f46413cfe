#include "bindings/cell_painter.h"

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "toolkit/colours.h"

namespace quillon {
namespace {

constexpr int kCellInset = 4;

/// The box before the first cell of a row that has one; the width that it takes.
int DrawTick(QPainter& painter, const QRect& room, const QModelIndex& index, const QColor& ink) {
    const QVariant tick = index.data(Qt::CheckStateRole);
    if (!tick.isValid()) return 0;
    const int side = std::min(room.height() - 4, 13);
    const QRect box(room.left(), room.center().y() - side / 2, side, side);
    painter.setPen(ink);
    painter.drawRect(box);
    if (tick.toInt() == Qt::Checked) {
        painter.setPen(QPen(ink, 2));
        const QPointF corner(box.left() + side * 0.42, box.bottom() - side * 0.2);
        painter.drawLine(QPointF(box.left() + side * 0.2, box.top() + side * 0.55), corner);
        painter.drawLine(corner, QPointF(box.right() - side * 0.12, box.top() + side * 0.22));
    }
    return side + kCellInset * 2;
}

int DrawImage(QPainter& painter, const QRect& room, const QModelIndex& index) {
    const QImage image = index.data(Qt::DecorationRole).value<QImage>();
    if (image.isNull()) return 0;
    painter.drawImage(room.left(), room.center().y() - image.height() / 2, image);
    return image.width() + kCellInset;
}

}  // namespace

QSize CellPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {kCellInset * 2, option.fontMetrics.height() + 4};
}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool selected = option.state & QStyle::State_Selected;
    const bool active = option.state & QStyle::State_HasFocus || option.widget->hasFocus();
    const QPalette& colours = option.palette;
    const SelectionColours selection = SelectionOn(colours.color(QPalette::Base), active);
    const QColor ground = selected ? selection.ground : colours.color(QPalette::Base);
    const QColor text = selected ? selection.text : colours.color(QPalette::Text);
    painter->fillRect(option.rect, ground);
    painter->setPen(Mix(colours.color(QPalette::Base), colours.color(QPalette::Text), 0.22));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->setPen(text);
    QRect room = option.rect.adjusted(kCellInset, 0, -kCellInset - 1, -1);
    room.setLeft(room.left() + DrawTick(*painter, room, index, text) + DrawImage(*painter, room, index));
    const QString whole = index.data(Qt::DisplayRole).toString();
    const QString fitting = option.fontMetrics.elidedText(whole, Qt::ElideRight, room.width());
    painter->drawText(room, index.data(Qt::TextAlignmentRole).toInt(), fitting);
}

}  // namespace quillon
