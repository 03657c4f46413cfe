#include "bindings/property_list_binding.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kInset = 6;
constexpr int kDescriptionLines = 4;

}  // namespace

PropertyListBinding::PropertyListBinding(CMFCPropertyGridCtrl& bound, SymbolPainter symbols, QWidget* parent)
    : QWidget(parent),
      ControlBinding(bound),
      list(&bound),
      view(new PropertyListView(bound, std::move(symbols), this)) {
    setFocusProxy(view);
    setAttribute(Qt::WA_OpaquePaintEvent);
    view->onColumnsMoved = [this] { update(0, 0, width(), HeaderHeight()); };
    PlaceParts();
}

int PropertyListBinding::HeaderHeight() const {
    return list && list->IsHeaderEnabled() ? view->RowHeight() : 0;
}

int PropertyListBinding::DescriptionHeight() const {
    if (!list || !list->IsDescriptionArea()) return 0;
    // A list too low for it keeps its rows instead.
    const int wanted = kDescriptionLines * fontMetrics().lineSpacing() + 2 * kInset - 2;
    return height() >= 2 * wanted ? wanted : 0;
}

QRect PropertyListBinding::DescriptionRect() const {
    return {0, height() - DescriptionHeight(), width(), DescriptionHeight()};
}

void PropertyListBinding::PlaceParts() {
    const int top = HeaderHeight();
    view->setGeometry(0, top, width(), std::max(0, height() - top - DescriptionHeight()));
    update();
}

void PropertyListBinding::Refresh(CONTROL_CHANGE change) {
    if (!list) return;
    switch (change) {
        case CONTROL_CHANGE::LAYOUT:
        case CONTROL_CHANGE::FOCUS:
            break;
        case CONTROL_CHANGE::CONTENT:
            view->ContentChanged();
            PlaceParts();
            break;
        case CONTROL_CHANGE::VALUE:
            view->viewport()->update();
            break;
        case CONTROL_CHANGE::SELECTION:
            view->SelectionChanged();
            update();
            break;
        case CONTROL_CHANGE::COLOURS:
            view->ColoursChanged();
            update();
            break;
    }
}

void PropertyListBinding::Forget() {
    list = nullptr;
    view->Forget();
    update();
}

void PropertyListBinding::resizeEvent(QResizeEvent*) {
    PlaceParts();
}

void PropertyListBinding::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (!list) return;
    const PropertyColours& colours = list->GetCustomColors();
    if (const int top = HeaderHeight()) {
        painter.fillRect(0, 0, width(), top, QColorOf(colours.groupBackground));
        painter.setPen(QColorOf(colours.groupText));
        const int split = view->NameWidth();
        painter.drawText(QRect(kInset, 0, split - kInset, top), Qt::AlignVCenter, ToQString(list->GetHeader(0)));
        painter.drawText(QRect(split + kInset, 0, width() - split - kInset, top), Qt::AlignVCenter,
                         ToQString(list->GetHeader(1)));
    }
    const QRect area = DescriptionRect();
    if (area.isEmpty()) return;
    const QColor ground = QColorOf(colours.descriptionBackground);
    const QColor text = QColorOf(colours.descriptionText);
    painter.fillRect(area, ground);
    painter.setPen(Mix(ground, text, 0.3));
    painter.drawLine(area.topLeft(), area.topRight());
    const RowDescription description = list->GetDescription();
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(text);
    const int line = fontMetrics().lineSpacing();
    const QRect room = area.adjusted(kInset, kInset, -kInset, -2);
    painter.drawText(QRect(room.left(), room.top(), room.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(bold).elidedText(ToQString(description.name), Qt::ElideRight, room.width()));
    painter.setFont(font());
    if (description.refusal) painter.setPen(WarningOn(ground));
    painter.drawText(room.adjusted(0, line + 1, 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     ToQString(description.text));
}

bool PropertyListBinding::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && list) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const std::string text = list->GetDescription().text;
        if (DescriptionRect().contains(help.pos()) && !text.empty()) {
            QToolTip::showText(help.globalPos(), ToQString(text), this);
            return true;
        }
    }
    return QWidget::event(event);
}

}  // namespace quillon
