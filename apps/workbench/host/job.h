#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/job_targets.h"
#include "job/kinds.h"
#include "panes/feature_pane.h"
#include "panes/pane_registry.h"
#include "platform/window.h"

namespace quillon {

/// A point of a job: the file of a kind, and the point in it.
struct JobPoint {
    KIND kind = KIND::NONE;
    int file = -1;
    int point = -1;
    friend bool operator==(const JobPoint&, const JobPoint&) = default;
};

/// What shows a job. Every call comes from the job's message handler, after the job has brought itself up to date.
class JobObserver {
public:
    virtual ~JobObserver() = default;
    /// Something that the chart draws is another than it was, or the point to be shown has gone.
    virtual void OnDrawingChanged() = 0;
    /// The operator picked a point that is to be shown; again also if it is the one shown already.
    virtual void OnPointShown(tagXY point) = 0;
    /// What the cable clearance was computed from has changed.
    virtual void OnClearanceStale() = 0;
    /// Features of this kind came or went: listings of it are out of date.
    virtual void OnFeatureUpdate(KIND kind) = 0;
    /// The pane of this kind asks to be brought to the front.
    virtual void OnFocusFeature(KIND kind) = 0;
    /// The job's positions are on another grid than before, or on none that is known.
    virtual void OnGeodesyChanged() = 0;
};

/// The host of a job: it owns the features and the panes over them, and is the window that the panes' messages reach.
///
/// Whether a feature is displayed, and whether it is on the cross profile, is kept beside its data file. Not every pane
/// writes that file; the job does after a message, for whichever feature's flags have changed.
class Job : public CWnd {
public:
    explicit Job(Platform& platform);
    ~Job() override;

    /// Reads the list files and what they name, then creates the panes. Each pane shows the file that its list's edit
    /// cursor names. Once, before anything else.
    void Open();

    JobRecord& Record() { return record; }
    /// In the order of the registry; a pane that couldn't be created is missing.
    const std::vector<std::unique_ptr<CMyDockablePane>>& Panes() const { return panes; }
    /// The pane in which a kind is shown; null if there is none.
    CMyDockablePane* PaneOf(KIND kind) const;
    /// Of two panes over one list, each shows what the other has changed once it is brought up to date: when it comes
    /// into sight.
    void BringUpToDate(CMyDockablePane& pane);

    /// Vessels, templates and the target plot.
    JobTargets& Targets() { return targets; }

    void SetObserver(JobObserver* newObserver) { observer = newObserver; }
    void SetNightMode(bool night);

    /// The operator chose a point on the chart: the list's edit cursor goes to it, the pane shows its file, and its row
    /// becomes the selected one. False, and nothing done, if there is no such point.
    bool SelectPoint(const JobPoint& chosen);
    /// The operator chose a file on the chart: its pane shows it. False, and nothing done, if there is no such file.
    bool SelectFile(KIND kind, int file);
    /// Marks a place that is no point of a file.
    void ShowPlace(tagXY place);

    /// The point that the chart marks.
    const std::optional<tagXY>& ShownPoint() const { return shownPoint; }
    void ClearShownPoint();

    /// Works on another grid from now on and keeps it; with a fault, on the one before. No position changes.
    GEODESY_FAULT ChooseGeodesy(const GeodesyChoice& choice);
    /// No grid chosen.
    void ClearGeodesy();

    /// Whether the cable clearance must be computed again before it is used.
    bool IsClearanceStale() const { return clearanceStale; }

    LRESULT OnMessage(const MSG& message) override;

private:
    struct Flags {
        bool status;
        bool highlight;
        friend bool operator==(const Flags&, const Flags&) = default;
    };
    using FlagsByPath = std::map<std::pair<KIND, std::string>, Flags>;

    void OpenPanes();
    void ShowInPane(CMyDockablePane& pane, const JobPoint& chosen);
    /// Null for NONE and for a kind that is in no list.
    CFileListBase* ListOf(KIND kind);
    void OnFeatureUpdate(KIND kind);
    void OnRedraw(WPARAM point);
    void FollowGeodesy();
    void RefreshRows();
    void DropPointOfRemovedFile();
    /// Writes the flags of the features in which they differ from the last time.
    void KeepFlags();
    int CountFiles();

    JobRecord record;
    JobTargets targets;  // lends the panes
    std::vector<std::unique_ptr<CMyDockablePane>> panes;
    JobObserver* observer = nullptr;
    std::optional<tagXY> shownPoint;
    bool clearanceStale = false;
    int countedFiles = 0;
    FlagsByPath flags;
};

}  // namespace quillon
