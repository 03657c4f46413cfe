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
class PaneDocks {
public:
    PaneDocks(QMainWindow& window, Job& job, const BindingFactory& factory);

    /// As the profile has them, or for a first start: the first pane at the right, the others put away behind it.
    /// Before the window is shown.
    void Restore();
    /// The places of window and docks go to the profile.
    void Save() const;
    /// As at a first start.
    void Reset();

    const std::vector<QDockWidget*>& Docks() const { return docks; }
    QDockWidget* DockOf(KIND kind) const;
    /// Shown, in front of its neighbours, with the keyboard in it.
    void BringToFront(QDockWidget& dock);
    /// Shown, in front of its neighbours; the keyboard stays where it is.
    void Raise(KIND kind);

    /// Whether the dock wasn't put away; one behind another counts as shown.
    static bool IsShown(const QDockWidget& dock) { return !dock.isHidden(); }

private:
    void AddDock(CMyDockablePane& pane, const BindingFactory& factory);
    void KeepVisibility(const QDockWidget& dock, CMyDockablePane& pane);
    Profile& GetProfile() const { return job.GetPlatform().GetProfile(); }

    QMainWindow& window;
    Job& job;
    std::vector<QDockWidget*> docks;  // children of the window, in the order of the panes
    QObject context;                  // ends the connections with this object, before the docks go
};

}  // namespace quillon
