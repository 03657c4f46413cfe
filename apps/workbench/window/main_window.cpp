#include "window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <utility>

#include "bindings/dialog_binding.h"
#include "bindings/row_edit.h"
#include "chart/chart_picture.h"
#include "chart/chart_symbols.h"
#include "chart/chart_widget.h"
#include "platform/text.h"
#include "toolkit/text_edge.h"
#include "window/icons.h"
#include "window/keyboard_help.h"
#include "window/password_dialog.h"
#include "window/picture.h"
#include "window/print_preview.h"
#include "window/target_menu.h"

namespace quillon {
namespace {

constexpr const char* kSection = "Workbench";
constexpr const char* kNightKey = "Night";
/// The view of the chart: easting and northing of its centre, metres to a pixel, and the job that it is of.
constexpr const char* kViewKey = "View";
constexpr const char* kDepthsKey = "Depths";
constexpr const char* kReliefKey = "Relief";
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
      acts(job, scenes, *chart, docks, status),
      files(job, platform, docks, *chart),
      desk(*this, shownJob, docks, status),
      geodesy(shownJob, *chart, *statusBar()) {
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
    desk.Notices().ShowOrHide();
    acts.onChosen = [this](const JobPoint& chosen) { desk.Select(chosen); };
    desk.onZoom = [this](const JobFile& file) { ZoomToFile(file); };
    hint = new EmptyHint(*chart, {.add = [this] { addMenu->popup(QCursor::pos()); },
                                  .sample = [this] { OpenSample(); },
                                  .keyboard = [this] { ShowKeyboardHelp(this, actions()); }});
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
        status.SetDepth(position ? job.Record().dtm.DepthAt(*position) : MISSING_VALUE);
        acts.OnCursor(position);
        geodesy.OnCursor(position);
    };
    chart->onViewChanged = [this] { FollowView(); };
    chart->onClick = [this](PixelPoint at) { acts.OnClick(at); };
}

void MainWindow::RebuildScene() {
    sceneStale = false;
    ChartScene scene = scenes.Build();
    scene.shown = job.ShownPoint();
    scene.graticule = geodesy.Lines();
    const bool isFirst = std::exchange(sceneEmpty, scenes.IsEmpty()) && !sceneEmpty;
    chart->SetScene(std::move(scene));
    acts.OnSceneChanged();
    if (job.Loads().IsBusy()) {
        saysLoading = true;
        status.ShowMessage("Loading " + ToQString(job.Loads().CurrentName()) + " ...");
    } else if (std::exchange(saysLoading, false)) {
        status.ShowMessage({});
    }
    if (isFirst) ZoomToAll();
    desk.Refresh();
    ShowHint();
}

void MainWindow::ShowHint() {
    const auto kinds = JobKinds();
    const bool hasFiles = std::any_of(kinds.begin(), kinds.end(),
                                      [this](const JobKind& kind) { return kind.fileCount(job.Record()) > 0; });
    hint->SetState(!sceneEmpty ? EmptyHint::STATE::NONE
                   : hasFiles  ? EmptyHint::STATE::HIDDEN
                               : EmptyHint::STATE::NO_FILES);
}

void MainWindow::ZoomToAll() {
    chart->ZoomToAll();
    fitted = chart->View();
}

/// As it is drawn; a file that is hidden by its points.
void MainWindow::ZoomToFile(const JobFile& file) {
    const int index = FindFile(job.Record(), file);
    if (index < 0) return;
    ChartBox box = scenes.BoxOf(chart->Scene(), file.kind, index);
    const JobKind& kind = KindOf(file.kind);
    if (box.IsEmpty() && kind.point && !(kind.isStub && kind.isStub(job.Record(), index))) {
        for (int i = 0; i < kind.pointCount(job.Record(), index); ++i) {
            const tagXY point = kind.point(job.Record(), index, i);
            if (IsPlace(point)) box.Add(point.x, point.y);
        }
    }
    if (box.IsEmpty()) return status.ShowMessage("There is nothing in this file to zoom to");
    chart->ZoomTo(box);
}

bool MainWindow::RestoreView() {
    const Profile& profile = platform.GetProfile();
    const std::string kept = profile.GetText(kSection, kViewKey, "");
    double x = 0.0, y = 0.0, scale = 0.0;
    const int end = static_cast<int>(kept.find('|'));
    if (end < 0 || kept.substr(static_cast<std::size_t>(end) + 1) != platform.Files().Drives().string()) return false;
    const QStringList numbers = QString::fromStdString(kept.substr(0, static_cast<std::size_t>(end))).split(' ');
    if (numbers.size() != 3) return false;
    x = numbers[0].toDouble();
    y = numbers[1].toDouble();
    scale = numbers[2].toDouble();
    if (!IsPlace({x, y}) || !(scale > 0.0)) return false;
    chart->SetView({x, y}, scale);
    return true;
}

void MainWindow::KeepView() const {
    const ChartView& view = chart->View();
    const bool isWhole = view.Centre() == fitted.Centre() && view.MetresPerPixel() == fitted.MetresPerPixel();
    std::string text;
    if (!isWhole && !sceneEmpty) {
        text = Format("%.3lf %.3lf %.9lg|", view.Centre().x, view.Centre().y, view.MetresPerPixel()) +
               platform.Files().Drives().string();
    }
    platform.GetProfile().SetText(kSection, kViewKey, text);
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
    geodesy.FollowView();
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

void MainWindow::OnActsChanged() {
    edit->Update();
    desk.FollowActs();
}

void MainWindow::OnFocusFeature(KIND kind) {
    // Whoever moves through the tree goes on doing so.
    if (desk.Tree().HasKeyboard()) return docks.Raise(kind);
    if (QDockWidget* const dock = docks.DockOf(kind)) docks.BringToFront(*dock);
}

void MainWindow::OnGeodesyChanged() {
    geodesy.Refresh();
    // What lies on other grids, such as shapes in degrees, moves to its place on this one.
    OnDrawingChanged();
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
    menuBar()->addMenu(new TargetMenu(
        job,
        [this](UINT paneId) {
            if (QDockWidget* const dock = docks.DockOfPane(paneId)) docks.BringToFront(*dock);
        },
        this));
    references = std::make_unique<ReferenceMenu>(*menuBar()->addMenu("&Reference"), job, *chart,
                                                 [this](const QString& text, const QKeySequence& key,
                                                        const QString& tip) { return MakeAction(text, key, tip); });
    references->onChanged = [this] { OnDrawingChanged(); };
    MakeHelpMenu();
    MakeToolBar();
}

void MainWindow::MakeFileMenu() {
    QMenu& menu = *menuBar()->addMenu("&File");
    addFirstAction = MakeAction("Add &Files...", QKeySequence("Ctrl+O"), "Add files of the kind in front to the job");
    addFirstAction->setIcon(MakeIcon(ICON::ADD));
    connect(addFirstAction, &QAction::triggered, this, [this] { desk.AddFilesOf(desk.FrontKind()); });
    menu.addAction(addFirstAction);
    addMenu = menu.addMenu(MakeIcon(ICON::ADD), "&Add");
    for (const JobKind& kind : JobKinds()) {
        CMyDockablePane* const pane = job.PaneOf(kind.id);
        if (!pane || !pane->GetFileControls().add) continue;
        const QString name = ToQString(kind.name);
        QAction* const action = MakeAction(name + " Files...", {}, "Add " + name.toLower() + " files to the job");
        connect(action, &QAction::triggered, this, [this, id = kind.id] { desk.AddFilesOf(id); });
        addMenu->addAction(action);
    }
    menu.addSeparator();
    QAction* const again =
        MakeAction("&Read Again", QKeySequence("F5"), "Read the file in the job tree's cursor again");
    connect(again, &QAction::triggered, this, [this] { desk.ReadCurrentAgain(); });
    menu.addAction(again);
    QAction* const changed = MakeAction("Read &Changed Files Again", QKeySequence("Shift+F5"),
                                        "Read every file again that another program has changed");
    connect(changed, &QAction::triggered, this, [this] { desk.ReadChangedAgain(); });
    menu.addAction(changed);
    menu.addSeparator();
    exportAction = MakeAction("&Export Picture...", QKeySequence("Ctrl+E"), "Save the chart as a picture");
    exportAction->setIcon(MakeIcon(ICON::EXPORT));
    connect(exportAction, &QAction::triggered, this, [this] { ExportPicture(); });
    menu.addAction(exportAction);
    addAction(geodesy.ChooseAction());
    menu.addAction(geodesy.ChooseAction());
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
    QAction* const keep = MakeAction("&Keep Pane", QKeySequence("Ctrl+K"),
                                     "Keep the pane in front, or no longer, when another one is chosen");
    connect(keep, &QAction::triggered, this, [this] {
        if (QDockWidget* const dock = docks.Current()) docks.SetPinned(*dock, !docks.IsPinned(*dock));
    });
    menu.addAction(keep);
    QAction* const tree = MakeAction("&Job Tree", QKeySequence("Ctrl+T"), "Go to the job tree, or put it away");
    connect(tree, &QAction::triggered, this, [this] { TogglePane(desk.Tree()); });
    menu.addAction(tree);
    QAction* const report =
        MakeAction("Read Rep&ort", QKeySequence("Ctrl+I"), "What the readers passed over, by lines");
    connect(report, &QAction::triggered, this, [this] {
        if (PaneDocks::IsInFront(desk.Report()) && desk.Report().isAncestorOf(QApplication::focusWidget())) {
            desk.Report().hide();
        } else {
            desk.ShowReport();
        }
    });
    menu.addAction(report);
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
    addAction(geodesy.GraticuleAction());
    menu.addAction(geodesy.GraticuleAction());
    menu.addSeparator();
    nightAction =
        zoom(ICON::NIGHT, "&Night", QKeySequence("Ctrl+N"), "Night colours", [this](bool on) { SetNight(on); });
    nightAction->setCheckable(true);
    nightAction->setChecked(theme.IsNight());
    fullScreenAction = zoom(ICON::FULL_SCREEN, "&Full Screen", QKeySequence("F11"), "Fill the whole screen",
                            [this](bool on) { SetFullScreen(on); });
    fullScreenAction->setCheckable(true);
    menu.addSeparator();
    AddSceneChoice(menu, "&Depths", "Draw the depth model as a picture", kDepthsKey, scenes.options.depthPicture);
    AddSceneChoice(menu, "&Relief", "Shade the depths as if light fell on them", kReliefKey, scenes.options.relief);
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

void MainWindow::AddSceneChoice(QMenu& menu, const QString& text, const QString& tip, const char* key, bool& choice) {
    QAction* const action = MakeAction(text, {}, tip);
    action->setCheckable(true);
    choice = platform.GetProfile().GetInt(kSection, key, choice ? 1 : 0) != 0;
    action->setChecked(choice);
    connect(action, &QAction::triggered, this, [this, key, &choice](bool on) {
        choice = on;
        platform.GetProfile().SetInt(kSection, key, on ? 1 : 0);
        OnDrawingChanged();
    });
    menu.addAction(action);
}

void MainWindow::MakePaneActions(QMenu& menu) {
    int number = 0;
    for (QDockWidget* const dock : docks.Docks()) {
        ++number;
        // The title of a listing tells what is listed; its name in the menu stays.
        const QString name = ToQString(TitleOfPane(*job.Panes()[static_cast<std::size_t>(number - 1)]));
        const QKeySequence key = number <= 9 ? QKeySequence(QString("Ctrl+%1").arg(number)) : QKeySequence();
        QAction* const action = MakeAction(name, key, "Show or put away " + name);
        action->setCheckable(true);
        const auto follow = [action, dock] { action->setChecked(PaneDocks::IsShown(*dock)); };
        connect(dock, &QDockWidget::visibilityChanged, action, follow);
        connect(action, &QAction::triggered, this, [this, dock, follow] {
            TogglePane(*dock);
            follow();
        });
        menu.addAction(action);
    }
}

void MainWindow::TogglePane(QDockWidget& dock) {
    const QWidget* const focus = QApplication::focusWidget();
    const bool isSide = &dock == &desk.Tree();
    // A floating pane may lie behind any window. The keyboard comes to the tree first.
    const bool isInFront = dock.isFloating() ? dock.isActiveWindow() : PaneDocks::IsInFront(dock);
    if (isInFront && (!isSide || (focus && dock.isAncestorOf(focus)))) return dock.hide();
    if (!isSide) {
        docks.BringToFront(dock);
        return desk.FollowFront();
    }
    dock.show();
    dock.raise();
    dock.widget()->setFocus(Qt::ShortcutFocusReason);
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

/// In a program of its own, so that this job stays as it is.
void MainWindow::OpenSample() {
    if (!QProcess::startDetached(QApplication::applicationFilePath(), {"--sample"})) {
        status.ShowMessage("The sample job can't be opened");
    }
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
    const auto add = [&areas](QDockWidget* dock) {
        if (PaneDocks::IsInFront(*dock)) areas.push_back(dock->widget());
    };
    for (QDockWidget* const dock : docks.Docks()) add(dock);
    for (const PaneDocks::SideDock& side : docks.Sides()) add(side.dock);
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
    job.Loads().Settle();
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
    RestoreView();
    chart->setFocus();
}

bool MainWindow::event(QEvent* event) {
    // Another program has had its turn.
    if (event->type() == QEvent::WindowActivate) QTimer::singleShot(0, this, [this] { desk.LookAtDisk(); });
    return QMainWindow::event(event);
}

void MainWindow::SetFolder(const QString& folder, const QString& whyReadOnly) {
    setWindowTitle(folder + (whyReadOnly.isEmpty() ? "" : " (read only)") + " - Quillon");
    if (!whyReadOnly.isEmpty()) desk.SayReadOnly(whyReadOnly);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    TakeOpenEdits(*this);
    // What an edit posts is answered still: part of what it changes is saved by the answer.
    platform.Messages().Pump();
    KeepView();
    docks.Save();
    QMainWindow::closeEvent(event);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && acts.Escape()) return;
    if (event->key() == Qt::Key_Escape && job.ShownPoint()) return job.ClearShownPoint();
    QMainWindow::keyPressEvent(event);
}

}  // namespace quillon
