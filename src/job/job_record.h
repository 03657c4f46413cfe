#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "background/dig.h"
#include "background/dtm.h"
#include "background/dxf.h"
#include "background/shape_file_list.h"
#include "features/boundary.h"
#include "features/gpx.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/route.h"
#include "features/rpl.h"
#include "features/sail_line.h"
#include "features/structure.h"
#include "features/wind_farm.h"
#include "geodesy/job_geodesy.h"
#include "job/outline_list.h"
#include "platform/mutex.h"
#include "target/target_plot.h"

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

    /// Reads the list files and the features that they name, as a host does at its start. Of what lies under the
    /// chart, depth models and shape files, it takes over the names: their loads take long, and are the host's.
    void Load();
    /// Removes what killed writers left in the folders of the job's settings, its data and its files; the count
    /// removed. For the program that holds the drives folder, after Load.
    std::size_t ClearLeftovers();

    /// Reads vessels, templates and the target plot anew whose files' bytes were put back. True if that was any.
    bool ReadTargetsRestored(std::span<const std::string> paths);
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
    CRPLList rpls;
    CStructureList structures;  ///< with the drawings that serve as shapes
    CDtm dtm;
    CShapeFileList shapes;
    CMutex digMutex;  ///< guards the digitised files against other threads of the host
    CDigList digs;
    CMutex dxfMutex;  ///< the same for the drawings
    CDxfList drawings;
    CGPX gpx;                 ///< tracks and waypoints under the job
    CWindFarmList windFarms;  ///< as the database has them
    CJobGeodesy geodesy;      ///< the grid that the job's positions are on, if one is chosen
    CVesselList vessels;
    CTemplateList templates;
    CTargetPlot targetPlot;
    bool plotFollowsVessel = false;  ///< the target plot's centre is where the current vessel stands

private:
    void OnFileWritten(const std::string& path) override;

    bool following = true;
};

}  // namespace quillon
