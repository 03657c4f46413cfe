#pragma once

#include <QAction>
#include <QMainWindow>
#include <memory>
#include <optional>

#include "chart/chart_widget.h"
#include "host/job.h"
#include "host/scene_builder.h"
#include "toolkit/qt_platform.h"
#include "toolkit/theme.h"
#include "window/chart_acts.h"
#include "window/edit_menu.h"
#include "window/empty_hint.h"
#include "window/file_taker.h"
#include "window/geodesy_display.h"
#include "window/job_desk.h"
#include "window/pane_docks.h"
#include "window/reference_menu.h"
#include "window/status_line.h"
#include "window/view_binding.h"

namespace quillon {

/// The workbench: the chart of a job in the middle, its panes docked round it.
///
/// The job, the platform and the theme are lent and outlive the window. Where the window and its docks are, and whether
/// it is night, are kept in the profile.
class MainWindow : public QMainWindow, private JobObserver {
public:
    MainWindow(Job& job, QtPlatform& platform, Theme& theme);
    ~MainWindow() override;

    void SetNight(bool night);
    bool IsNight() const { return theme.IsNight(); }
    /// Whether the window was last left in night colours.
    static bool WasNight(const Profile& profile);
    /// Stands in the status line until the program ends.
    void SetNote(const QString& text) { status.SetNote(text); }

    ChartWidget& Chart() { return *chart; }
    PaneDocks& Docks() { return docks; }
    /// Adds files of whatever kinds; library paths.
    void TakeFiles(const std::vector<std::string>& paths) { files.Take(paths); }
    FileTaker& Files() { return files; }
    ChartActs& Acts() { return acts; }
    JobDesk& Desk() { return desk; }

    /// Names the folder of the job in the title; the program can't write there if `whyReadOnly` says something.
    void SetFolder(const QString& folder, const QString& whyReadOnly);

    /// What is to be done before a picture of the window is taken: everything posted is delivered, the chart is drawn
    /// from the job as it stands.
    void Settle();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// No menu of all docks on their titles: the View menu lists them.
    QMenu* createPopupMenu() override { return nullptr; }

private:
    void OnDrawingChanged() override;
    void OnPointShown(tagXY point) override;
    void OnClearanceStale() override;
    void OnFeatureUpdate(KIND kind) override;
    void OnFocusFeature(KIND kind) override;
    void OnGeodesyChanged() override;
    void OnActsChanged() override;

    void ConnectChart();
    void MakeActions();
    void MakeFileMenu();
    void MakeViewMenu();
    void MakeChartMenu();
    void MakeHelpMenu();
    void MakeToolBar();
    void MakePaneActions(QMenu& menu);
    /// Shows a pane or brings it to the front; puts it away if it is there.
    void TogglePane(QDockWidget& dock);
    /// An action that turns something of the scene on and off; the choice is kept in the profile.
    void AddSceneChoice(QMenu& menu, const QString& text, const QString& tip, const char* key, bool& choice);
    /// An action of the window; its tip tells its key.
    QAction* MakeAction(const QString& text, const QKeySequence& key, const QString& tip);

    void RebuildScene();
    void ZoomToAll();
    void ZoomToFile(const JobFile& file);
    /// The part of the chart that was in view when the program ended; false if it was the whole job.
    bool RestoreView();
    void KeepView() const;
    void ShowHint();
    /// The chart shows another part of the grid, or has another size.
    void FollowView();
    void OpenSample();
    void ExportPicture();
    void SetFullScreen(bool full);
    void NextArea();
    void ShowAbout();

    Job& job;
    QtPlatform& platform;
    Theme& theme;
    ItemMaker itemMaker;
    SceneBuilder scenes;
    WindowBindings factory;
    ChartWidget* chart;  // the central widget
    PaneDocks docks;
    StatusLine status;
    ChartActs acts;
    FileTaker files;
    JobDesk desk;
    GeodesyDisplay geodesy;
    EmptyHint* hint = nullptr;  // a child of the chart
    QMenu* addMenu = nullptr;
    std::unique_ptr<ReferenceMenu> references;
    std::optional<EditMenu> edit;  // behind the menu of files
    QAction* exportAction = nullptr;
    QAction* addFirstAction = nullptr;
    QAction* nightAction = nullptr;
    QAction* zoomAllAction = nullptr;
    QAction* zoomInAction = nullptr;
    QAction* zoomOutAction = nullptr;
    QAction* fullScreenAction = nullptr;
    bool sceneStale = true;
    bool saysLoading = false;
    bool sceneEmpty = true;
    ChartView fitted;  // the view as it was last fitted to the whole job
    bool shownBefore = false;
};

}  // namespace quillon
