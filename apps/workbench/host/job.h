#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/background_loads.h"
#include "host/job_targets.h"
#include "job/acts.h"
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
    virtual void OnGeodesyChanged() {}
    /// There is another act to be undone or to be done again. Told at the end of an act, not by a message.
    virtual void OnActsChanged() {}
};

/// The host of a job: it owns the features and the panes over them, and is the window that the panes' messages reach.
///
/// Whether a feature is displayed, and whether it is on the cross profile, is kept beside its data file. Not every pane
/// writes that file; the job does, at the end of an act and after a message, where the flags aren't what is stored.
class Job : public CWnd {
public:
    explicit Job(Platform& platform);
    ~Job() override;

    /// Reads the list files and what they name, then creates the panes. Each pane shows the file that its list's edit
    /// cursor names. What lies under the chart is loaded in the background. Once, before anything else.
    void Open();
    /// The loads under way: the observer is told of each that ends.
    BackgroundLoads& Loads() { return loads; }

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

    /// What the operator did since the job was opened; null before.
    const ActHistory* Acts() const { return acts ? &*acts : nullptr; }
    /// Undoes the last act: its files are put back, the features are read anew, panes and chart follow. False, and the
    /// operator told why, if it can't be done; false too where there is nothing to undo.
    bool Undo();
    bool Redo();
    /// Undoes or does again until so many acts are done, or until one can't be.
    void GoToAct(std::size_t done);

    /// The operator chose a point on the chart: the list's edit cursor goes to it, the pane shows its file, and its row
    /// becomes the selected one. False, and nothing done, if there is no such point.
    bool SelectPoint(const JobPoint& chosen);
    /// The operator chose a file on the chart: its pane shows it. False, and nothing done, if there is no such file.
    bool SelectFile(KIND kind, int file);
    /// Puts a structure of a file elsewhere and turns it, as its pane stores it; the edit cursor goes to it. Metres and
    /// degrees. False, and nothing done, if there is no such structure.
    bool PlaceStructure(const JobPoint& which, tagXY position, double headingDegrees);
    /// While structures are moved on the chart their pane says so.
    void SetStructureEdit(bool on);

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

    /// Reads the wind farms anew; what the database refuses is told to the operator.
    void ReadWindFarmDatabase();

    LRESULT OnMessage(const MSG& message) override;

private:
    void OpenPanes();
    /// The job and its grid, for printed pages.
    std::string PrintHeading() const;
    bool HasPoint(const JobPoint& point) const;
    void MoveCursorTo(const JobPoint& point);
    void ShowStructureEdit();
    void ShowInPane(CMyDockablePane& pane, const JobPoint& chosen);
    bool Answer(const MSG& message);
    std::vector<std::string> ShownPaths();
    bool Follow(const ActOutcome& outcome, const std::vector<std::string>& shownBefore);
    void ShowRenewed(const ActOutcome& outcome, CFeaturePane& pane, const std::string& shownBefore);
    /// Null for NONE and for a kind that is in no list.
    CFileListBase* ListOf(KIND kind);
    void OnFeatureUpdate(KIND kind);
    void OnRedraw(WPARAM point);
    void FollowGeodesy();
    void RefreshRows();
    void DropPointOfRemovedFile();
    int CountFiles();

    void OnLoaded(KIND kind);

    JobRecord record;
    JobTargets targets;  // lends the panes
    BackgroundLoads loads;
    std::vector<std::unique_ptr<CMyDockablePane>> panes;
    JobObserver* observer = nullptr;
    std::optional<tagXY> shownPoint;
    bool clearanceStale = false;
    bool structureEdit = false;
    int countedFiles = 0;
    std::optional<ActHistory> acts;  // gone before what it observes
};

}  // namespace quillon
