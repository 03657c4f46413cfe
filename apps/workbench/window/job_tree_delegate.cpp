#include "window/job_tree_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QSortFilterProxyModel>
#include <algorithm>

#include "toolkit/colours.h"

namespace quillon {
namespace {

/// Files of a job look the same a hundred times over; more kinds of looks than this are in sight nowhere.
constexpr std::size_t kMostSamples = 256;
constexpr int kRowPadding = 4;

ChartSample SampleFor(const KindLook& look) {
    ChartSample sample;
    sample.line = {look.line.colour, look.line.thickness, look.line.style};
    sample.isArea = look.filled;
    if (look.filled) sample.fill = {look.line.fill, look.line.colour};
    if (look.hasSymbol) {
        sample.symbol = look.symbol;
        sample.symbolColour = look.symbolColour;
    }
    return sample;
}

/// A triangle for what was found, a cross for what can't be used, an arrow round for what is new on the disk.
void DrawMark(QPainter& painter, const QRect& place, TREE_MARK mark, bool night) {
    const QColor amber = night ? QColor(176, 132, 30) : QColor(190, 120, 0);
    const QColor red = night ? QColor(184, 70, 60) : QColor(176, 32, 20);
    const QPointF centre = QRectF(place).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(centre);
    if (mark == TREE_MARK::LINES_PASSED_OVER) {
        painter.setPen(QPen(amber, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(QPolygonF({{0, -6}, {6.5, 5.5}, {-6.5, 5.5}}));
        painter.drawLine(QPointF(0, -2), QPointF(0, 1.6));
        painter.drawPoint(QPointF(0, 3.6));
    } else if (mark == TREE_MARK::CHANGED) {
        painter.setPen(QPen(amber, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawArc(QRectF(-5.5, -5.5, 11, 11), 50 * 16, 280 * 16);
        painter.drawPolyline(QPolygonF({{5.2, -6.4}, {4.2, -3.2}, {1, -4.4}}));
    } else {
        painter.setPen(QPen(red, 2.0, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(-4, -4), QPointF(4, 4));
        painter.drawLine(QPointF(-4, 4), QPointF(4, -4));
    }
    painter.restore();
}

}  // namespace

JobTreeDelegate::JobTreeDelegate(const JobTreeModel& treeModel, const QSortFilterProxyModel& filtered, QObject* parent)
    : QStyledItemDelegate(parent), model(treeModel), proxy(filtered) {}

const TreeFile* JobTreeDelegate::RowAt(const QModelIndex& index) const {
    return model.RowAt(proxy.mapToSource(index));
}

void JobTreeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != JobTreeModel::NAME_COLUMN || !RowAt(index)) return;
    // Room is left for the sample; it is drawn afterwards, in its own colours also where the row is selected.
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = kSample;
}

QSize JobTreeDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(kSample.height(), option.fontMetrics.height()) + kRowPadding);
    if (index.column() == JobTreeModel::MARK_COLUMN) size.setWidth(kMarkWidth);
    return size;
}

void JobTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const TreeFile* const file = RowAt(index);
    if (!file) return;
    const bool night = IsDark(option.palette.color(QPalette::Base));
    if (index.column() == JobTreeModel::MARK_COLUMN && file->mark != TREE_MARK::NONE) {
        DrawMark(*painter, option.rect, file->mark, night);
    }
    if (index.column() != JobTreeModel::NAME_COLUMN) return;
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    const QStyle* const style = item.widget ? item.widget->style() : QApplication::style();
    QRect place(QPoint(), kSample);
    place.moveCenter(style->subElementRect(QStyle::SE_ItemViewItemDecoration, &item, item.widget).center());
    if (file->mark == TREE_MARK::MISSING || file->mark == TREE_MARK::STUB) {
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->drawRect(place.adjusted(0, 0, -1, -1));
        return;
    }
    if (!file->displayed) painter->setOpacity(0.4);
    painter->drawImage(place, SampleOf(file->look, night, painter->device()->devicePixelRatioF()));
    painter->setOpacity(1.0);
}

const QImage& JobTreeDelegate::SampleOf(const KindLook& look, bool night, double scale) const {
    const ChartSample sample = SampleFor(look);
    const auto known = std::find_if(samples.begin(), samples.end(), [&](const Drawn& drawn) {
        return drawn.sample == sample && drawn.night == night && drawn.scale == scale;
    });
    if (known != samples.end()) return known->image;
    if (samples.size() >= kMostSamples) samples.erase(samples.begin());
    samples.push_back({sample, night, scale, MakeChartSample(kSample, scale, sample, night)});
    return samples.back().image;
}

}  // namespace quillon
