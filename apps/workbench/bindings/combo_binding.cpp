#include "bindings/combo_binding.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

#include "bindings/list_image.h"
#include "platform/platform.h"
#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kVisibleItems = 20;

QIcon IconOf(const CImageList& images, int image) {
    return QIcon(QPixmap::fromImage(ToQImage(images, image)));
}

}  // namespace

ComboBinding::ComboBinding(CComboBox& bound, QWidget* parent)
    : QComboBox(parent), ControlBinding(bound), combo(&bound) {
    setMaxVisibleItems(kVisibleItems);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(1);
    view()->setTextElideMode(Qt::ElideMiddle);
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (combo) user::Select(*combo, index);
    });
    FillItems();
}

void ComboBinding::ApplyLayout() {
    ControlBinding::ApplyLayout();
    if (!combo) return;
    const int closed = combo->GetOwner().GetPlatform().GetMetric(SYSTEM_METRIC::COMBO_HEIGHT);
    const tagRECT& place = combo->GetRect();
    if (place.Height() > 2 * closed) resize(place.Width(), closed);
}

void ComboBinding::FillItems() {
    const QSignalBlocker quiet(this);
    // Adding one by one is the model's way of filling; only what differs is touched.
    const int wanted = combo->GetCount();
    while (count() > wanted) removeItem(count() - 1);
    for (int i = 0; i < wanted; ++i) {
        const QString text = ToQString(combo->GetLBText(i));
        if (i >= count()) {
            addItem(text);
        } else if (itemText(i) != text) {
            setItemText(i, text);
        }
    }
    FillPictures();
    setCurrentIndex(combo->GetCurSel());
    setToolTip(currentText());
}

void ComboBinding::FillPictures() {
    const auto* const pictured = dynamic_cast<const CComboBoxEx*>(combo);
    const CImageList* const images = pictured ? pictured->GetImageList() : nullptr;
    if (!images) return;
    for (int i = 0; i < count() && i < images->GetImageCount(); ++i) {
        if (itemIcon(i).isNull()) setItemIcon(i, IconOf(*images, i));
    }
}

void ComboBinding::Refresh(CONTROL_CHANGE change) {
    if (!combo) return;
    if (change == CONTROL_CHANGE::CONTENT) {
        FillItems();
    } else if (change == CONTROL_CHANGE::SELECTION) {
        const QSignalBlocker quiet(this);
        setCurrentIndex(combo->GetCurSel());
        setToolTip(currentText());
        update();
    }
}

void ComboBinding::Forget() {
    combo = nullptr;
    const QSignalBlocker quiet(this);
    clear();
}

void ComboBinding::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace quillon
