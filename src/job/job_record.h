#pragma once

#include <cstddef>
#include <string>

#include "features/boundary.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/route.h"
#include "features/sail_line.h"
#include "features/structure.h"

namespace quillon {

/// Whether a file may hold settings of a data file: by their names, in whatever folder.
bool MayHoldSettingsOf(const std::string& path, const std::string& dataPath);

/// Everything that a job holds: what a host owns and lends to the panes. It outlives them. What there is of each kind
/// is asked through the table of kinds, kinds.h.
///
/// Features whose data files have one name share their settings files, and the pipe route shares those of the pipeline
/// that it is. When one of them stores something the others follow at once.
struct JobRecord : private FileWatcher {
    /// The lists get their settings names; nothing is read.
    explicit JobRecord(FileSystem& files);
    ~JobRecord() override;
    JobRecord(const JobRecord&) = delete;
    JobRecord& operator=(const JobRecord&) = delete;

    /// Reads the list files and all that they name, as a host does at its start.
    void Load();
    /// Removes what killed writers left in the folders of the job's settings, its data and its files; the count
    /// removed. For the program that holds the drives folder, after Load.
    std::size_t ClearLeftovers();

    /// Writes what the panes leave unwritten: flags beside data files, structures that were added or renamed.
    void KeepUnsaved();
    /// Off, the features don't follow what is written: for who puts files back and reads them anew when all are there.
    void SetFollowing(bool on) { following = on; }

    CBoundaryList boundaries;
    CGridWaypointList waypoints;
    CPipelineList pipelines;
    CPipeline pipeRoute;  ///< the active one; empty if none is selected
    CRouteList routes;
    CSailLineList sailLines;
    CStructureList structures;  ///< with the drawings that serve as shapes

private:
    void OnFileWritten(const std::string& path) override;

    bool following = true;
};

}  // namespace quillon
