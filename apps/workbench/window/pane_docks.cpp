#include "window/pane_docks.h"

#include <QAction>
#include <QApplication>
#include <QByteArray>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "bindings/window_binding.h"
#include "panes/listing_pane.h"
#include "panes/target_plot_window.h"
#include "toolkit/text_edge.h"
#include "window/pin_button.h"

namespace quillon {
namespace {

constexpr const char* kSection = "Workbench";
constexpr const char* kGeometryKey = "Geometry";
constexpr const char* kStateKey = "Docks";
constexpr const char* kPinnedKey = "Pinned";
/// Of the arrangement of docks: another number makes an older one be passed over.
constexpr int kStateVersion = 2;

/// By which the pin of a dock is found.
constexpr const char* kPinName = "pin";

constexpr QSize kFirstSize = {1480, 940};
/// What the window's frame takes on a screen.
constexpr QSize kWindowFrame = {16, 48};

/// The width in which the table of a route fits without a scroll bar for its columns.
int FirstPaneWidth(const Platform& platform) {
    constexpr int kCellPadding = 12;
    int width = QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4;
    for (const char* const cell : {"WPT 123", "512300.250", "6213447.375", "12345.67m", "359.9\xB0"}) {
        width += platform.TextWidth(cell) + kCellPadding;
    }
    return width;
}

std::string ToProfile(const QByteArray& bytes) {
    return bytes.toBase64().toStdString();
}

QByteArray FromProfile(const std::string& text) {
    return QByteArray::fromBase64(QByteArray::fromStdString(text));
}

}  // namespace

PaneDocks::PaneDocks(QMainWindow& mainWindow, Job& shownJob, const BindingFactory& factory)
    : window(mainWindow), job(shownJob) {
    window.setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowNestedDocks | QMainWindow::AllowTabbedDocks);
    window.setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    for (const auto& pane : job.Panes()) AddDock(*pane, factory);
}

void PaneDocks::AddDock(CMyDockablePane& pane, const BindingFactory& factory) {
    auto* const dock = new QDockWidget(ToQString(pane.GetWindowText()), &window);
    dock->setObjectName(QString("pane-%1").arg(pane.GetDlgCtrlID()));
    auto* const binding = new WindowBinding(pane, factory, dock);
    dock->setWidget(binding);
    dock->setFocusProxy(binding);
    binding->onChanged = [dock, &pane] {
        dock->setWindowTitle(ToQString(pane.GetWindowText()));
        if (IsShown(*dock) != pane.IsVisible()) dock->setVisible(pane.IsVisible());
    };
    auto* const pin = new PinButton(*dock);
    pin->setObjectName(kPinName);
    pin->setChecked(GetProfile().GetInt(CMyDockablePane::ProfileSection(pane.GetDlgCtrlID()), kPinnedKey, 0) != 0);
    QObject::connect(pin, &QAbstractButton::toggled, &context,
                     [this, dock](bool on) { GetProfile().SetInt(SectionOf(*dock), kPinnedKey, on ? 1 : 0); });
    // It comes also when the whole window hides, which says nothing about the pane.
    QObject::connect(dock, &QDockWidget::visibilityChanged, &context,
                     [this, dock, &pane] { KeepVisibility(*dock, pane); });
    docks.push_back(dock);
}

void PaneDocks::KeepVisibility(const QDockWidget& dock, CMyDockablePane& pane) {
    GetProfile().SetInt(CMyDockablePane::ProfileSection(pane.GetDlgCtrlID()), "IsVisible", IsShown(dock) ? 1 : 0);
    pane.ShowPane(IsShown(dock));
}

void PaneDocks::Restore() {
    PlaceAll();
    window.resize(kFirstSize.boundedTo(window.screen()->availableSize() - kWindowFrame));
    window.restoreGeometry(FromProfile(GetProfile().GetText(kSection, kGeometryKey, "")));
    window.restoreState(FromProfile(GetProfile().GetText(kSection, kStateKey, "")), kStateVersion);
    for (std::size_t i = 0; i < docks.size(); ++i) KeepVisibility(*docks[i], *job.Panes()[i]);
}

void PaneDocks::Save() const {
    GetProfile().SetText(kSection, kGeometryKey, ToProfile(window.saveGeometry()));
    GetProfile().SetText(kSection, kStateKey, ToProfile(window.saveState(kStateVersion)));
}

void PaneDocks::Reset() {
    for (QDockWidget* const dock : docks) SetPinned(*dock, false);
    PlaceAll();
}

void PaneDocks::PlaceAll() {
    for (QDockWidget* const dock : docks) {
        dock->setFloating(false);
        dock->setVisible(dock == docks.front());
        if (IdOf(*dock) == CTargetPlotWindow::kTitleId) continue;
        if (IdOf(*dock) == CListingPane::kTitleId) {
            // A wide table lies best below the chart.
            window.addDockWidget(Qt::BottomDockWidgetArea, dock);
            continue;
        }
        window.addDockWidget(Qt::RightDockWidgetArea, dock);
        if (dock != docks.front()) window.tabifyDockWidget(docks.front(), dock);
    }
    if (!docks.empty()) window.resizeDocks({docks.front()}, {FirstPaneWidth(job.GetPlatform())}, Qt::Horizontal);
    for (const SideDock& side : sides) {
        side.dock->setFloating(false);
        window.addDockWidget(side.area, side.dock);
        side.dock->setVisible(side.isShownFirst);
        const bool isBeside = side.area == Qt::LeftDockWidgetArea || side.area == Qt::RightDockWidgetArea;
        window.resizeDocks({side.dock}, {side.extent}, isBeside ? Qt::Horizontal : Qt::Vertical);
    }
    // The plot is looked at while the pane at the right is worked in: it lies below the tree.
    if (QDockWidget* const plot = DockOfPane(CTargetPlotWindow::kTitleId)) {
        window.addDockWidget(Qt::LeftDockWidgetArea, plot);
    }
}

// ---- Which of them is shown ----

std::size_t PaneDocks::PlaceOf(const QDockWidget& dock) const {
    return static_cast<std::size_t>(std::find(docks.begin(), docks.end(), &dock) - docks.begin());
}

UINT PaneDocks::IdOf(const QDockWidget& dock) const {
    return job.Panes()[PlaceOf(dock)]->GetDlgCtrlID();
}

std::string PaneDocks::SectionOf(const QDockWidget& dock) const {
    return CMyDockablePane::ProfileSection(IdOf(dock));
}

QDockWidget* PaneDocks::DockOfPane(UINT id) const {
    const auto found = std::find_if(docks.begin(), docks.end(), [this, id](auto* dock) { return IdOf(*dock) == id; });
    return found == docks.end() ? nullptr : *found;
}

QDockWidget* PaneDocks::DockOf(KIND kind) const {
    QDockWidget* first = nullptr;
    for (std::size_t i = 0; i < docks.size() && kind != KIND::NONE; ++i) {
        if (KindOfPane(job.Panes()[i]->GetDlgCtrlID()) != kind) continue;
        if (IsInFront(*docks[i])) return docks[i];
        if (!first) first = docks[i];
    }
    return first;
}

bool PaneDocks::IsInFront(const QDockWidget& dock) {
    return dock.isVisible() && !dock.visibleRegion().isEmpty();
}

QDockWidget* PaneDocks::Current() const {
    const QWidget* const focus = QApplication::focusWidget();
    for (QDockWidget* const dock : docks) {
        if (focus && dock->isAncestorOf(focus)) return dock;
    }
    if (front && IsShown(*front)) return front;
    const auto shown = std::find_if(docks.begin(), docks.end(), [](QDockWidget* dock) { return IsShown(*dock); });
    return shown == docks.end() ? nullptr : *shown;
}

KIND PaneDocks::FrontKind() const {
    const QDockWidget* const dock = Current();
    return dock ? KindOfPane(job.Panes()[PlaceOf(*dock)]->GetDlgCtrlID()) : KIND::NONE;
}

bool PaneDocks::IsPinned(const QDockWidget& dock) const {
    return GetProfile().GetInt(SectionOf(dock), kPinnedKey, 0) != 0;
}

void PaneDocks::SetPinned(QDockWidget& dock, bool pinned) {
    // The button keeps it in the profile.
    if (auto* const pin = dock.findChild<QAbstractButton*>(kPinName)) pin->setChecked(pinned);
}

void PaneDocks::Show(QDockWidget& dock) {
    if (!IsShown(dock)) {
        std::vector<QDockWidget*> giveWay;
        for (QDockWidget* const other : docks) {
            const bool stays = !IsShown(*other) || other->isFloating() || IsPinned(*other);
            if (!stays && window.dockWidgetArea(other) == window.dockWidgetArea(&dock)) giveWay.push_back(other);
        }
        const int width = giveWay.empty() ? 0 : giveWay.front()->width();
        dock.show();
        for (QDockWidget* const other : giveWay) other->hide();
        if (width > 0 && !dock.isFloating()) window.resizeDocks({&dock}, {width}, Qt::Horizontal);
    }
    dock.raise();
    front = &dock;
}

void PaneDocks::BringToFront(QDockWidget& dock) {
    Show(dock);
    if (dock.isFloating()) dock.activateWindow();
    dock.widget()->setFocus(Qt::ShortcutFocusReason);
}

void PaneDocks::Raise(KIND kind) {
    if (QDockWidget* const dock = DockOf(kind)) Show(*dock);
}

}  // namespace quillon
