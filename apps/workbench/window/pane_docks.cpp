#include "window/pane_docks.h"

#include <QAction>
#include <QApplication>
#include <QByteArray>
#include <QScreen>
#include <QStyle>

#include "bindings/window_binding.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr const char* kSection = "Workbench";
constexpr const char* kGeometryKey = "Geometry";
constexpr const char* kStateKey = "Docks";
/// Of the arrangement of docks: another number makes an older one be passed over.
constexpr int kStateVersion = 1;

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
    Reset();
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
    for (QDockWidget* const dock : docks) {
        dock->setFloating(false);
        window.addDockWidget(Qt::RightDockWidgetArea, dock);
        if (dock != docks.front()) window.tabifyDockWidget(docks.front(), dock);
        dock->setVisible(dock == docks.front());
    }
    if (!docks.empty()) window.resizeDocks({docks.front()}, {FirstPaneWidth(job.GetPlatform())}, Qt::Horizontal);
}

QDockWidget* PaneDocks::DockOf(KIND kind) const {
    const CMyDockablePane* const pane = job.PaneOf(kind);
    for (std::size_t i = 0; i < docks.size(); ++i) {
        if (job.Panes()[i].get() == pane) return docks[i];
    }
    return nullptr;
}

void PaneDocks::BringToFront(QDockWidget& dock) {
    dock.show();
    dock.raise();
    if (dock.isFloating()) dock.activateWindow();
    dock.widget()->setFocus(Qt::ShortcutFocusReason);
}

void PaneDocks::Raise(KIND kind) {
    QDockWidget* const dock = DockOf(kind);
    if (!dock) return;
    dock->show();
    dock->raise();
}

}  // namespace quillon
