#include "window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <utility>

#include "bindings/dialog_binding.h"
#include "chart/chart_picture.h"
#include "chart/chart_symbols.h"
#include "chart/chart_widget.h"
#include "platform/user_actions.h"
#include "toolkit/text_edge.h"
#include "window/icons.h"
#include "window/keyboard_help.h"
#include "window/password_dialog.h"
#include "window/picture.h"
#include "window/print_preview.h"

namespace quillon {
namespace {

constexpr const char* kSection = "Workbench";
constexpr const char* kNightKey = "Night";
constexpr QSize kToolIcons = {22, 22};
constexpr double kZoomStep = 1.5;
constexpr double kMetresPerInch = 0.0254;
/// Pixels of an exported picture to one of the chart: lines and letters come out sharp in a report.
constexpr double kExportScale = 2.0;

std::string_view TitleOfPane(const CMyDockablePane& pane) {
    for (const PaneEntry& entry : PaneRegistry()) {
        if (entry.id == pane.GetDlgCtrlID()) return entry.title;
    }
    return pane.GetWindowText();
}

}  // namespace

MainWindow::MainWindow(Job& shownJob, QtPlatform& qtPlatform, Theme& appTheme)
    : job(shownJob),
      platform(qtPlatform),
      theme(appTheme),
      itemMaker([this] {
          QMetaObject::invokeMethod(
              this, [this] { OnDrawingChanged(); }, Qt::QueuedConnection);
      }),
      scenes(shownJob.Record(), &itemMaker),
      chart(new ChartWidget(this)),
      docks(*this, shownJob, factory),
      status(*statusBar()),
      acts(job, scenes, *chart, docks, status) {
    setWindowTitle("Quillon");
    setWindowIcon(MakeIcon(ICON::APPLICATION));
    setCentralWidget(chart);
    platform.SetWindow(this);
    ShowDialogsBy(platform, factory);
    ShowPrintingBy(platform);
    job.SetObserver(this);
    MakeActions();
    ConnectChart();
    docks.Restore();
    RebuildScene();
}

MainWindow::~MainWindow() {
    job.SetObserver(nullptr);
    platform.SetDialogMaker({});
    platform.SetPrintView({});
    platform.SetWindow(nullptr);
}

// ---- Day and night ----

bool MainWindow::WasNight(const Profile& profile) {
    return profile.GetInt(kSection, kNightKey, 0) != 0;
}

void MainWindow::SetNight(bool night) {
    theme.SetNight(night);
    platform.SetNight(night);
    job.SetNightMode(night);
    chart->SetNight(night);
    nightAction->setChecked(night);
    platform.GetProfile().SetInt(kSection, kNightKey, night ? 1 : 0);
}

// ---- The chart ----

void MainWindow::ConnectChart() {
    chart->onCursor = [this](const std::optional<tagXY>& position) {
        status.SetPosition(position);
        acts.OnCursor(position);
    };
    chart->onViewChanged = [this] { FollowView(); };
    chart->onClick = [this](PixelPoint at) { acts.OnClick(at); };
}

void MainWindow::RebuildScene() {
    sceneStale = false;
    ChartScene scene = scenes.Build();
    scene.shown = job.ShownPoint();
    const bool isFirst = std::exchange(sceneEmpty, scenes.IsEmpty()) && !sceneEmpty;
    chart->SetScene(std::move(scene));
    acts.OnSceneChanged();
    if (isFirst) ZoomToAll();
}

void MainWindow::ZoomToAll() {
    chart->ZoomToAll();
    fitted = chart->View();
}

void MainWindow::FollowView() {
    const ChartView& view = chart->View();
    const bool resized = view.Width() != fitted.Width() || view.Height() != fitted.Height();
    const bool untouched = view.Centre() == fitted.Centre() && view.MetresPerPixel() == fitted.MetresPerPixel();
    if (resized && untouched && !sceneEmpty) {
        // Whoever sees the whole job goes on seeing it while docks and window find their places.
        fitted = view;
        ZoomToAll();
    }
    status.SetScale(chart->View().MetresPerPixel() * chart->logicalDpiX() / kMetresPerInch);
}

void MainWindow::OnDrawingChanged() {
    // The pair of messages and whatever else is posted with it make one new scene.
    if (std::exchange(sceneStale, true)) return;
    QTimer::singleShot(0, this, [this] {
        if (sceneStale) RebuildScene();
    });
}

void MainWindow::OnPointShown(tagXY point) {
    chart->SetShown(point);
    chart->BringIntoView(point);
    status.ShowMessage(PositionText(point));
}

void MainWindow::OnClearanceStale() {
    status.ShowMessage("Cable clearance data are out of date");
}

void MainWindow::OnFeatureUpdate(KIND) {
    OnDrawingChanged();
}

void MainWindow::OnFocusFeature(KIND kind) {
    if (QDockWidget* const dock = docks.DockOf(kind)) docks.BringToFront(*dock);
}

// ---- Actions ----

QAction* MainWindow::MakeAction(const QString& text, const QKeySequence& key, const QString& tip) {
    auto* const action = new QAction(text, this);
    action->setShortcut(key);
    const QString keyText = key.toString(QKeySequence::NativeText);
    action->setToolTip(keyText.isEmpty() ? tip : tip + " (" + keyText + ")");
    action->setStatusTip(tip);
    addAction(action);
    return action;
}

void MainWindow::MakeActions() {
    MakeFileMenu();
    edit.emplace(*this, job);
    MakeViewMenu();
    MakeChartMenu();
    MakeHelpMenu();
    MakeToolBar();
}

void MainWindow::MakeFileMenu() {
    QMenu& menu = *menuBar()->addMenu("&File");
    QMenu& add = *menu.addMenu(MakeIcon(ICON::ADD), "&Add");
    for (const JobKind& kind : JobKinds()) {
        CMyDockablePane* const pane = job.PaneOf(kind.id);
        if (!pane || !pane->GetFileButton()) continue;
        const QString name = ToQString(kind.name);
        const QKeySequence key = addFirstAction ? QKeySequence() : QKeySequence("Ctrl+O");
        QAction* const action = MakeAction(name + " Files...", key, "Add " + name.toLower() + " files to the job");
        connect(action, &QAction::triggered, this, [this, id = kind.id] { AddFiles(id); });
        add.addAction(action);
        if (!addFirstAction) addFirstAction = action;
    }
    addFirstAction->setIcon(MakeIcon(ICON::ADD));
    exportAction = MakeAction("&Export Picture...", QKeySequence("Ctrl+E"), "Save the chart as a picture");
    exportAction->setIcon(MakeIcon(ICON::EXPORT));
    connect(exportAction, &QAction::triggered, this, [this] { ExportPicture(); });
    menu.addAction(exportAction);
    QAction* const password = MakeAction("&Password...", {}, "Set or clear the password of the anchor cable alarm");
    connect(password, &QAction::triggered, this, [this] {
        if (!ChangePassword(this, platform.Passwords())) return;
        // The alarm rows are locked or open by what holds now.
        for (const auto& pane : job.Panes()) pane->RefreshRows();
    });
    menu.addAction(password);
    menu.addSeparator();
    QAction* const quit = MakeAction("&Quit", QKeySequence("Ctrl+Q"), "End the program; every change is saved already");
    connect(quit, &QAction::triggered, this, [this] { close(); });
    menu.addAction(quit);
}

void MainWindow::MakeViewMenu() {
    QMenu& menu = *menuBar()->addMenu("&View");
    MakePaneActions(*menu.addMenu(MakeIcon(ICON::PANES), "&Panes"));
    QAction* const reset = MakeAction("&Reset Layout", QKeySequence("Ctrl+Shift+R"),
                                      "Put window and panes back where they were at the first start");
    connect(reset, &QAction::triggered, this, [this] { docks.Reset(); });
    menu.addAction(reset);
    menu.addSeparator();
    const auto zoom = [&](ICON icon, const QString& text, const QKeySequence& key, const QString& tip, auto act) {
        QAction* const action = MakeAction(text, key, tip);
        action->setIcon(MakeIcon(icon));
        connect(action, &QAction::triggered, this, act);
        menu.addAction(action);
        return action;
    };
    zoomAllAction =
        zoom(ICON::ZOOM_ALL, "Zoom to &All", QKeySequence("Ctrl+0"), "Show the whole job", [this] { ZoomToAll(); });
    zoomInAction = zoom(ICON::ZOOM_IN, "Zoom &In", QKeySequence("Ctrl++"), "Show more detail",
                        [this] { chart->ZoomBy(kZoomStep); });
    zoomInAction->setShortcuts({QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")});
    zoomOutAction = zoom(ICON::ZOOM_OUT, "Zoom &Out", QKeySequence("Ctrl+-"), "Show more of the job",
                         [this] { chart->ZoomBy(1.0 / kZoomStep); });
    menu.addSeparator();
    nightAction =
        zoom(ICON::NIGHT, "&Night", QKeySequence("Ctrl+N"), "Night colours", [this](bool on) { SetNight(on); });
    nightAction->setCheckable(true);
    nightAction->setChecked(theme.IsNight());
    fullScreenAction = zoom(ICON::FULL_SCREEN, "&Full Screen", QKeySequence("F11"), "Fill the whole screen",
                            [this](bool on) { SetFullScreen(on); });
    fullScreenAction->setCheckable(true);
    menu.addSeparator();
    QAction* const next =
        MakeAction("Next Area", QKeySequence("F6"), "Take the keyboard from the chart to the panes and on");
    connect(next, &QAction::triggered, this, [this] { NextArea(); });
    menu.addAction(next);
}

void MainWindow::MakeChartMenu() {
    QMenu& menu = *menuBar()->addMenu("&Chart");
    for (const ChartActs::Act& act : acts.Acts()) {
        QAction* const action = MakeAction(act.text, act.key, act.tip);
        acts.Connect(*action, act);
        menu.addAction(action);
    }
}

void MainWindow::MakePaneActions(QMenu& menu) {
    int number = 0;
    for (QDockWidget* const dock : docks.Docks()) {
        QAction* const action = dock->toggleViewAction();
        ++number;
        if (number <= 9) action->setShortcut(QKeySequence(QString("Ctrl+%1").arg(number)));
        // The title of a listing tells what is listed; its name in the menu stays.
        const QString name = ToQString(TitleOfPane(*job.Panes()[static_cast<std::size_t>(number - 1)]));
        action->setText(name);
        connect(dock, &QWidget::windowTitleChanged, action, [action, name] { action->setText(name); });
        action->setToolTip("Show or put away " + name);
        // Not `toggled`, which comes also when the pane is put away by itself or with the window.
        connect(action, &QAction::triggered, this, [this, dock](bool shown) {
            if (shown) docks.BringToFront(*dock);
        });
        addAction(action);
        menu.addAction(action);
    }
}

void MainWindow::MakeHelpMenu() {
    QMenu& menu = *menuBar()->addMenu("&Help");
    QAction* const keyboard = MakeAction("&Keyboard", QKeySequence("F1"), "What every key does");
    connect(keyboard, &QAction::triggered, this, [this] { ShowKeyboardHelp(this, actions()); });
    menu.addAction(keyboard);
    QAction* const about = MakeAction("&About Quillon", {}, "What this program is");
    connect(about, &QAction::triggered, this, [this] { ShowAbout(); });
    menu.addAction(about);
}

void MainWindow::MakeToolBar() {
    auto* const bar = new QToolBar("Tool Bar", this);
    bar->setObjectName("tools");
    bar->setIconSize(kToolIcons);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->addAction(addFirstAction);
    bar->addAction(exportAction);
    bar->addSeparator();
    bar->addAction(&edit->UndoAction());
    bar->addAction(&edit->RedoAction());
    bar->addSeparator();
    for (QAction* const action : {zoomAllAction, zoomInAction, zoomOutAction}) bar->addAction(action);
    bar->addSeparator();
    for (QAction* const action : {nightAction, fullScreenAction}) bar->addAction(action);
    addToolBar(bar);
}

void MainWindow::AddFiles(KIND kind) {
    docks.BringToFront(*docks.DockOf(kind));
    user::Press(*job.PaneOf(kind)->GetFileButton());
}

void MainWindow::ExportPicture() {
    QFileDialog dialog(this, "Export Picture", {}, "PNG Pictures (*.png)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("png");
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const QString file = dialog.selectedFiles().front();
    QString fault;
    if (SavePicture(RenderChart(chart->Scene(), chart->View(), theme.IsNight(), kExportScale), file, fault)) {
        status.ShowMessage("Picture saved in " + file);
    } else {
        platform.WarningMessage(FromQString(file + "\n" + fault));
    }
}

void MainWindow::SetFullScreen(bool full) {
    setWindowState(windowState().setFlag(Qt::WindowFullScreen, full));
    fullScreenAction->setChecked(full);
}

void MainWindow::NextArea() {
    std::vector<QWidget*> areas = {chart};
    for (QDockWidget* const dock : docks.Docks()) {
        if (dock->isVisible() && !dock->visibleRegion().isEmpty()) areas.push_back(dock->widget());
    }
    const QWidget* const focus = QApplication::focusWidget();
    const auto now = std::find_if(areas.begin(), areas.end(),
                                  [&](QWidget* area) { return focus && (area == focus || area->isAncestorOf(focus)); });
    QWidget* const next = now == areas.end() || std::next(now) == areas.end() ? areas.front() : *std::next(now);
    next->activateWindow();
    next->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::ShowAbout() {
    QMessageBox box(this);
    box.setWindowTitle("About Quillon");
    box.setIconPixmap(windowIcon().pixmap(64, 64));
    box.setText("<b>Quillon</b> " + QApplication::applicationVersion());
    box.setInformativeText(
        "The reference data of an offshore job: boundaries, routes and what else its features are, "
        "on a chart and in panes.\n\nEvery change is saved when it is made.");
    box.exec();
}

// ---- The window ----

void MainWindow::Settle() {
    platform.Messages().Pump();
    if (sceneStale) RebuildScene();
    itemMaker.Wait();
    RebuildScene();
    QApplication::processEvents();
    chart->Settle();
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (std::exchange(shownBefore, true)) return;
    ZoomToAll();
    chart->setFocus();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    docks.Save();
    QMainWindow::closeEvent(event);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && acts.Escape()) return;
    if (event->key() == Qt::Key_Escape && job.ShownPoint()) return job.ClearShownPoint();
    QMainWindow::keyPressEvent(event);
}

}  // namespace quillon
