#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <functional>
#include <vector>

#include "bindings/binding_factory.h"
#include "host/job.h"
#include "platform/platform.h"

namespace quillon {

/// The docks of a job's panes in a main window: made, placed, and kept in the profile. Whether a pane is shown stands
/// in the profile where the pane itself looks for it; where the docks are, in the window's own entries.
///
/// There are more panes than room: a pane that is shown takes the place of the one that stood there, unless the
/// operator keeps that one by the pin in its title. Floating panes and those in another place stay too.
class PaneDocks {
public:
    PaneDocks(QMainWindow& window, Job& job, const BindingFactory& factory);

    /// One more dock of the window that is placed and kept with these, but is no pane: a list at its own side. Before
    /// `Restore`.
    struct SideDock {
        QDockWidget* dock;
        Qt::DockWidgetArea area;
        bool isShownFirst;
        int extent;  ///< at a first start, pixels: the width at the sides, the height above and below the chart
    };
    void AddSide(const SideDock& side) { sides.push_back(side); }
    const std::vector<SideDock>& Sides() const { return sides; }

    /// As the profile has them, or for a first start: the first pane at the right, the others put away behind it.
    /// Before the window is shown.
    void Restore();
    /// The places of window and docks go to the profile.
    void Save() const;
    /// As at a first start.
    void Reset();

    const std::vector<QDockWidget*>& Docks() const { return docks; }
    /// Where a kind is shown: of several panes the one in sight, else the first. Null if there is none.
    QDockWidget* DockOf(KIND kind) const;
    /// Null for an id that is no pane's.
    QDockWidget* DockOfPane(UINT id) const;
    /// What the pane edits that was in front last and is still shown; NONE if there is none.
    KIND FrontKind() const;
    /// Shown, in front of its neighbours, with the keyboard in it.
    void BringToFront(QDockWidget& dock);
    /// What was chosen is shown: its pane in front of its neighbours. The keyboard stays where it is.
    void Raise(KIND kind);
    /// In sight: not behind another one.
    static bool IsInFront(const QDockWidget& dock);

    bool IsPinned(const QDockWidget& dock) const;
    void SetPinned(QDockWidget& dock, bool pinned);
    /// The pane with the keyboard, else the one in front last; null if none is shown.
    QDockWidget* Current() const;

    /// Whether the dock wasn't put away; one behind another counts as shown.
    static bool IsShown(const QDockWidget& dock) { return !dock.isHidden(); }

private:
    void AddDock(CMyDockablePane& pane, const BindingFactory& factory);
    void KeepVisibility(const QDockWidget& dock, CMyDockablePane& pane);
    /// All where they are at a first start.
    void PlaceAll();
    void Show(QDockWidget& dock);
    std::size_t PlaceOf(const QDockWidget& dock) const;
    UINT IdOf(const QDockWidget& dock) const;
    std::string SectionOf(const QDockWidget& dock) const;
    Profile& GetProfile() const { return job.GetPlatform().GetProfile(); }

    QMainWindow& window;
    Job& job;
    std::vector<QDockWidget*> docks;  // children of the window, in the order of the panes
    std::vector<SideDock> sides;      // children of the window
    QDockWidget* front = nullptr;     // the last one that was brought there
    QObject context;                  // ends the connections with this object, before the docks go
};

}  // namespace quillon
