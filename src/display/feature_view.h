#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "display/my_list_view.h"
#include "features/boundary.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/route.h"
#include "features/sail_line.h"
#include "features/structure.h"
#include "frame/messages.h"

namespace quillon {

/// The text of a type in titles: "Sail Line".
std::string_view FeatureTypeText(FEATURE_TYPES type);

/// The points of one feature file as a table: of the file that is current in its list. A click on a row moves the edit
/// cursor of the list; a right click offers the exports. Records are asked for as rows are shown, so a file of a
/// million points opens at once.
///
/// The lists are the host's and outlive the view. They are set before the type that needs them.
class CFeatureView : public CMyListView {
public:
    CFeatureView(CWnd& frame, UINT id);

    void SetWaypointFiles(CGridWaypointList* list) { waypoints = list; }
    void SetSailLineFiles(CSailLineList* list) { sailLines = list; }
    void SetRouteFiles(CRouteList* list) { routes = list; }
    void SetDesignRouteFiles(CDesignRouteList* list) { designRoutes = list; }
    void SetBoundaryFiles(CBoundaryList* list) { boundaries = list; }
    void SetStructureFiles(CStructureList* list) { structures = list; }
    void SetPipelineFiles(CPipelineList* list) { pipelines = list; }

    /// Makes the columns of the type, if its list is set, and shows the current file.
    void SetFeatureType(FEATURE_TYPES newType);
    FEATURE_TYPES GetFeatureType() const { return type; }
    /// Shows the current file of the list anew.
    void Update();

    /// The list of the type; null where it isn't set.
    CFileListBase* List() const;
    std::int16_t GetSelectedFile() const { return selectedFile; }
    std::int32_t GetSelectedPoint() const { return selectedPoint; }

    // The left and the right click.
    void OnNMClick(int row);
    void OnNMRClick();
    void OnItemClick(int row) override { OnNMClick(row); }
    void OnRightClick(int) override { OnNMRClick(); }

    /// A click has put the list's cursor on a point. For a host that follows.
    std::function<void()> onCursorMoved;

private:
    /// The current file, or -1 if there is none.
    int Current() const;
    int PointOfRow(int row) const;
    void PointWaypointCursor(CFileListBase& list) const;
    void WriteCoordinateList();

    FEATURE_TYPES type = FEATURE_TYPES::NONE;
    std::int16_t selectedFile = -1;
    std::int32_t selectedPoint = -1;
    CGridWaypointList* waypoints = nullptr;
    CSailLineList* sailLines = nullptr;
    CRouteList* routes = nullptr;
    CDesignRouteList* designRoutes = nullptr;
    CBoundaryList* boundaries = nullptr;
    CPipelineList* pipelines = nullptr;
    CStructureList* structures = nullptr;
};

}  // namespace quillon
