#include "bindings/picker_popup.h"

#include <QAbstractItemDelegate>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "toolkit/colours.h"

namespace quillon {
namespace {

constexpr int kMostVisible = 14;
constexpr int kInset = 5;

class ItemPainter : public QAbstractItemDelegate {
public:
    ItemPainter(QObject* parent, const std::vector<PickerItem>& shown, const PickerLook& itemLook,
                SymbolPainter symbolPainter)
        : QAbstractItemDelegate(parent), items(shown), look(itemLook), symbols(std::move(symbolPainter)) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {10, look.rowHeight}; }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const PickerItem& item = items.at(static_cast<std::size_t>(index.row()));
        const bool current = option.state & QStyle::State_Selected;
        const SelectionColours selection = SelectionOn(look.ground, true);
        const QColor ground = current ? selection.ground : look.ground;
        const QColor text = current ? selection.text : look.text;
        painter->fillRect(option.rect, ground);
        QRect room = option.rect.adjusted(kInset, 0, -kInset, 0);
        const QSize picture = PictureSize(item.picture.kind);
        if (!picture.isEmpty()) {
            DrawRowPicture(*painter, QRect(room.topLeft(), QSize(picture.width(), room.height())), item.picture, ground,
                           text, symbols);
            room.setLeft(room.left() + picture.width() + kInset + 2);
        }
        painter->setPen(text);
        painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                          option.fontMetrics.elidedText(item.text, Qt::ElideRight, room.width()));
    }

private:
    const std::vector<PickerItem>& items;
    PickerLook look;
    SymbolPainter symbols;
};

QPalette PopupPalette(const PickerLook& look) {
    QPalette palette;
    palette.setColor(QPalette::Base, look.ground);
    palette.setColor(QPalette::Text, look.text);
    palette.setColor(QPalette::Window, Mix(look.ground, look.text, 0.45));
    return palette;
}

}  // namespace

PickerPopup::PickerPopup(QWidget* parent, std::vector<PickerItem> offered, int current, const PickerLook& pickerLook,
                         const SymbolPainter& symbols, std::function<void(int)> onChosen)
    : QFrame(parent, Qt::Popup),
      items(std::move(offered)),
      look(pickerLook),
      chosen(std::move(onChosen)),
      list(new QListWidget(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setPalette(PopupPalette(look));
    setAutoFillBackground(true);
    list->setPalette(PopupPalette(look));
    list->setFrameShape(QFrame::NoFrame);
    list->setUniformItemSizes(true);
    list->setMouseTracking(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setItemDelegate(new ItemPainter(list, items, look, symbols));
    for (const PickerItem& item : items) list->addItem(item.text);
    list->setCurrentRow(current);
    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(1, 1, 1, 1);
    frame->addWidget(list);
    setFocusProxy(list);
    list->installEventFilter(this);
    list->viewport()->installEventFilter(this);
}

int PickerPopup::WidestItem() const {
    int widest = 0;
    for (const PickerItem& item : items) widest = std::max(widest, fontMetrics().horizontalAdvance(item.text));
    const QSize picture = items.empty() ? QSize() : PictureSize(items.front().picture.kind);
    return widest + 3 * kInset + (picture.isEmpty() ? 0 : picture.width() + kInset) + 4;
}

void PickerPopup::OpenAt(const QRect& cell) {
    const int shown = std::clamp(list->count(), 1, kMostVisible);
    const int bar = list->count() > shown ? list->verticalScrollBar()->sizeHint().width() : 0;
    QRect place(cell.left(), cell.bottom() + 1, std::max(cell.width(), WidestItem() + bar), shown * look.rowHeight + 2);
    if (const QScreen* const screen = QGuiApplication::screenAt(cell.center())) {
        const QRect room = screen->availableGeometry();
        if (place.bottom() > room.bottom() && cell.top() - place.height() >= room.top()) {
            place.moveBottom(cell.top() - 1);
        }
        if (place.right() > room.right()) place.moveRight(room.right());
        if (place.left() < room.left()) place.moveLeft(room.left());
    }
    setGeometry(place);
    show();
    list->setFocus();
    list->scrollToItem(list->currentItem(), QAbstractItemView::PositionAtCenter);
}

void PickerPopup::Choose(int index) {
    // The choice may do away with the list that opened this; the popup is closed before it is told.
    const std::function<void(int)> tell = std::move(chosen);
    chosen = nullptr;
    close();
    if (tell && index >= 0) tell(index);
}

bool PickerPopup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool closing = key.key() == Qt::Key_Escape || key.key() == Qt::Key_F4 ||
                             (key.modifiers() & Qt::AltModifier && key.key() == Qt::Key_Up);
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Tab) {
            Choose(list->currentRow());
            return true;
        }
        if (closing) {
            close();
            return true;
        }
    }
    if (watched == list->viewport() && event->type() == QEvent::MouseMove) {
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        const QModelIndex under = list->indexAt(mouse.position().toPoint());
        if (under.isValid() && under.row() != list->currentRow()) list->setCurrentRow(under.row());
        return true;
    }
    if (watched == list->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        const QModelIndex under = list->indexAt(mouse.position().toPoint());
        if (under.isValid()) Choose(under.row());
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace quillon
