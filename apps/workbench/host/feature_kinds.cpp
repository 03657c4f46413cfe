#include "host/feature_kinds.h"

#include <algorithm>
#include <array>
#include <type_traits>

#include "panes/boundary_pane.h"
#include "panes/pipeline_pane.h"
#include "panes/route_pane.h"
#include "panes/sail_line_pane.h"
#include "panes/waypoint_pane.h"

namespace quillon {
namespace {

tagXY PositionOf(const tagXY& point) {
    return point;
}
tagXY PositionOf(const GridWaypointDef& point) {
    return {point.easting, point.northing};
}
tagXY PositionOf(const PipelineDef& point) {
    return point.Position();
}
tagXY PositionOf(const RouteDef& point) {
    return point.position;
}
tagXY PositionOf(const SailLineDef& line) {
    return line.Middle();
}

template <auto List>
CFileListBase& ListOf(JobFeatures& job) {
    return job.*List;
}

template <auto List>
CFeatureCommon* CommonOf(JobFeatures& job, int index) {
    auto& member = (job.*List)[index];
    if constexpr (std::is_base_of_v<CFeatureCommon, std::remove_reference_t<decltype(member)>>) {
        return &member;
    } else {
        return nullptr;
    }
}

template <auto List>
tagXY PointOf(const JobFeatures& job, int index, int point) {
    return PositionOf((job.*List)[index][point]);
}

template <auto List>
constexpr FeatureKind KindOf(FEATURE_TYPES type, std::string_view name, std::span<const UINT> panes) {
    return {type, name, ListOf<List>, CommonOf<List>, PointOf<List>, panes};
}

constexpr std::array kBoundaryPanes = {CBoundaryPane::kTitleId};
constexpr std::array kWaypointPanes = {CGridWaypointPane::kPlainId, CGridWaypointPane::kCatenaryId};
constexpr std::array kRoutePanes = {CRoutePane::kTitleId};
constexpr std::array kSailLinePanes = {CSailLinePane::kTitleId};
constexpr std::array kPipelinePanes = {CPipelinePane::kTitleId};

constexpr std::array kKinds = {
    KindOf<&JobFeatures::boundaries>(FEATURE_TYPES::BOUNDARY, "Boundary", kBoundaryPanes),
    KindOf<&JobFeatures::waypoints>(FEATURE_TYPES::WAYPOINT, "Waypoint", kWaypointPanes),
    KindOf<&JobFeatures::routes>(FEATURE_TYPES::ROUTE, "Route", kRoutePanes),
    KindOf<&JobFeatures::sailLines>(FEATURE_TYPES::SAIL_LINE, "Sail Line", kSailLinePanes),
    KindOf<&JobFeatures::pipelines>(FEATURE_TYPES::PIPELINE, "Pipeline", kPipelinePanes),
};

template <class Test>
const FeatureKind* FindKind(Test test) {
    const auto found = std::find_if(kKinds.begin(), kKinds.end(), test);
    return found == kKinds.end() ? nullptr : &*found;
}

}  // namespace

std::span<const FeatureKind> FeatureKinds() {
    return kKinds;
}

const FeatureKind* FindFeatureKind(FEATURE_TYPES type) {
    return FindKind([type](const FeatureKind& kind) { return kind.type == type; });
}

const FeatureKind* FindFeatureKindOfPane(UINT paneId) {
    return FindKind([paneId](const FeatureKind& kind) {
        return std::find(kind.panes.begin(), kind.panes.end(), paneId) != kind.panes.end();
    });
}

}  // namespace quillon
