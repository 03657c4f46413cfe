#include "bindings/window_binding.h"

#include <QEvent>
#include <QFocusEvent>
#include <algorithm>

#include "frame/my_dockable_pane.h"
#include "platform/platform.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// What stands below a property list shows its header and five rows; the list shows three.
constexpr int kLeastRowsBelow = 6;
constexpr int kLeastListRows = 3;
constexpr const char* kHeightKey = "ListHeight";

int RowHeight(const CControlWindow& window) {
    return window.GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT);
}

/// Of a pane. A dialog has the size that it wants.
StackedPair PairOf(const CControlWindow& window) {
    return dynamic_cast<const CDockablePane*>(&window) ? FindStackedPair(window.GetControls()) : StackedPair();
}

}  // namespace

WindowBinding::WindowBinding(CControlWindow& bound, const BindingFactory& bindingFactory, QWidget* parent)
    : QWidget(parent), model(&bound), factory(bindingFactory) {
    // Not a stop of the Tab key: the window would catch the keyboard on its way back to a neighbour.
    setFocusPolicy(Qt::ClickFocus);
    setAutoFillBackground(true);
    model->SetObserver(this);
    setWindowTitle(ToQString(model->GetWindowText()));
    BindControls();
}

WindowBinding::~WindowBinding() {
    if (model) model->SetObserver(nullptr);
}

void WindowBinding::BindControls() {
    QWidget* before = nullptr;
    for (CControl* const control : model->GetControls()) {
        QWidget* widget = WidgetOf(*control);
        if (!widget) {
            ControlBinding* const binding = factory.Make(*control, this);
            if (!binding) continue;
            bindings.push_back(binding);
            binding->SetPlacer([this](const CControl& placed) { return PlaceOf(placed); });
            binding->ApplyLayout();
            widget = &binding->Widget();
        }
        if (before) setTabOrder(before, widget);
        before = widget;
    }
}

QWidget* WindowBinding::WidgetOf(const CControl& control) const {
    for (ControlBinding* const binding : bindings) {
        if (binding->Control() == &control) return &binding->Widget();
    }
    return nullptr;
}

void WindowBinding::Release() {
    if (model) model->SetObserver(nullptr);
    model = nullptr;
    for (ControlBinding* const binding : bindings) binding->Release();
}

void WindowBinding::OnWindowChanged(CControlWindow&) {
    setWindowTitle(ToQString(model->GetWindowText()));
    BindControls();
    if (onChanged) onChanged();
}

void WindowBinding::OnWindowFocus(CControlWindow&, CControl& control) {
    if (QWidget* const widget = WidgetOf(control)) widget->setFocus();
}

void WindowBinding::OnWindowGone(CControlWindow&) {
    model = nullptr;
    for (ControlBinding* const binding : bindings) binding->Widget().hide();
    setEnabled(false);
}

void WindowBinding::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!model) return;
    const int rows = kLeastRowsBelow * RowHeight(*model);
    // As low as it may be and still have both: what the layout hides for want of room is shown all the same.
    const auto told = [&] {
        const StackedPair pair = PairOf(*model);
        return tagSIZE{width(), pair.below ? std::max(height(), pair.list->GetRect().bottom + rows) : height()};
    };
    const tagSIZE first = told();
    model->Resize(first);
    if (const tagSIZE again = told(); again != first) model->Resize(again);
    ShareHeight();
    PlaceAll();
}

// ---- The height that list and table share ----

void WindowBinding::ShareHeight() {
    const StackedPair pair = PairOf(*model);
    if (!pair.below) return;
    if (!split) {
        const auto& pane = static_cast<const CDockablePane&>(*model);
        wantedHeight =
            pane.GetPlatform().GetProfile().GetInt(CMyDockablePane::ProfileSection(pane.GetDlgCtrlID()), kHeightKey, 0);
        split = new HeightSplit(this, RowHeight(*model));
        split->onMoved = [this](int pixels) {
            const StackedPair moved = PairOf(*model);
            if (moved.below) SetWantedHeight(ListHeight(*moved.list) + pixels);
        };
        split->onReset = [this] { SetWantedHeight(0); };
        split->show();
        if (QWidget* const list = WidgetOf(*pair.list)) setTabOrder(list, split);
    }
}

void WindowBinding::SetWantedHeight(int height) {
    if (!model) return;
    const StackedPair pair = PairOf(*model);
    wantedHeight = height;
    // What can't be had is not remembered.
    if (height != 0 && pair.below) wantedHeight = ListHeight(*pair.list);
    const auto& pane = static_cast<const CDockablePane&>(*model);
    pane.GetPlatform().GetProfile().SetInt(CMyDockablePane::ProfileSection(pane.GetDlgCtrlID()), kHeightKey,
                                           wantedHeight);
    PlaceAll();
}

int WindowBinding::ListHeight(const CControl& list) const {
    const int row = RowHeight(*model);
    const SharedHeight shared{.top = list.GetRect().top,
                              .wanted = wantedHeight > 0 ? wantedHeight : list.GetRect().Height(),
                              .bottom = height(),
                              .leastBelow = kLeastRowsBelow * row,
                              .leastList = kLeastListRows * row};
    return shared.ListHeight();
}

QRect WindowBinding::PlaceOf(const CControl& control) const {
    QRect place = ToQRect(control.GetRect());
    const StackedPair pair = PairOf(*model);
    if (!pair.below || (&control != pair.list && &control != pair.below)) return place;
    const int edge = pair.list->GetRect().top + ListHeight(*pair.list);
    if (&control == pair.list) {
        place.setBottom(edge - 1);
    } else {
        place.setTop(edge);
        place.setBottom(height() - 1);
    }
    return place;
}

void WindowBinding::PlaceAll() {
    for (ControlBinding* const binding : bindings) binding->ApplyLayout();
    const StackedPair pair = PairOf(*model);
    if (split && pair.below) split->PlaceAt(pair.list->GetRect().top + ListHeight(*pair.list), width());
}

void WindowBinding::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (model) model->OnSetFocus();
}

void WindowBinding::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (model && event->type() == QEvent::FontChange) model->OnSettingChange();
}

}  // namespace quillon
