#include "feature_sheets.h"

#include <algorithm>
#include <array>
#include <span>

#include "features/boundary_columns.h"
#include "features/grid_waypoint_columns.h"
#include "features/pipeline_columns.h"
#include "features/route_columns.h"
#include "features/rpl_columns.h"
#include "features/sail_line_columns.h"
#include "foundation/paths.h"
#include "platform/display_options.h"
#include "platform/text.h"

namespace quillon {
namespace {

std::string_view FillName(long long fill) {
    const auto choice =
        std::find_if(kFillChoices.begin(), kFillChoices.end(), [fill](const FillChoice& c) { return c.style == fill; });
    return choice == kFillChoices.end() ? std::string_view() : choice->name;
}

void Put(Sheet& sheet, std::string_view key, const tagPen& pen) {
    sheet.BeginGroup(key);
    sheet.Int("style", pen.style);
    sheet.Int("thickness", pen.thickness);
    sheet.Colour("colour", pen.colour);
    sheet.Choice("fill", pen.fill, FillName(pen.fill));
    sheet.EndGroup();
}

void PutDrawing(Sheet& sheet, const CDrawingOptions& options) {
    sheet.Int("symbol", options.symbol);
    sheet.Choice("symbol_size", options.symbolSize, m_SymbolSizeTxt);
    Put(sheet, "pen", options.pen);
    sheet.Choice("label_mode", options.labelMode, m_LabelModeTxt);
    sheet.Choice("label_position", options.labelPosition, m_LabelPositionTxt);
    sheet.Bool("show_leg_label", options.showLegLabel);
}

void PutCommon(Sheet& sheet, const CFeatureCommon& feature) {
    sheet.Text("path", feature.GetPath());
    sheet.Text("name", feature.GetName());
    sheet.Bool("status", feature.Status);
    sheet.Bool("highlight", feature.Highlight);
}

void PutPath(Sheet& sheet, const std::string& path) {
    sheet.Text("path", path);
    sheet.Text("name", SplitPath(path).name);
}

void PutCorridor(Sheet& sheet, const CCorridor& corridor) {
    sheet.Bool("display_corridor", corridor.displayCorridor);
    sheet.Metres("port_width", corridor.portWidth);
    sheet.Metres("starboard_width", corridor.starboardWidth);
    sheet.Choice("corridor_fill", corridor.fill, FillName(corridor.fill));
    sheet.Colour("corridor_colour", corridor.corridorColour);
}

}  // namespace

void FillSheet(Sheet& sheet, const CBoundary& boundary) {
    PutCommon(sheet, boundary);
    PutDrawing(sheet, boundary);
    sheet.Bool("has_polygon", !boundary.GetPolygon().IsEmpty());
    PutTable(sheet, "points", boundary, kBoundaryColumns);
    PutReportGroup(sheet, boundary.GetReport());
    sheet.Finish();
}

void FillSheet(Sheet& sheet, const CGridWaypoint& waypoints) {
    PutPath(sheet, waypoints.GetPath());
    sheet.Choice("data_order", waypoints.dataOrder, waypoints.Order().text);
    sheet.Bool("display", waypoints.display);
    sheet.Metres("clearance", waypoints.clearance);
    sheet.Metres("tolerance", waypoints.tolerance);
    sheet.Int("symbol", waypoints.symbol);
    sheet.Colour("colour", waypoints.colour);
    sheet.Choice("symbol_size", waypoints.symbolSize, m_SymbolSizeTxt);
    sheet.Choice("label_mode", waypoints.labelMode, m_LabelModeTxt);
    sheet.Choice("label_position", waypoints.labelPosition, m_LabelPositionTxt);
    sheet.Bool("draw_rings", waypoints.drawRings);
    sheet.Int("ring_count", waypoints.ringCount);
    sheet.Metres("ring_size_metres", waypoints.ringSizeMetres);
    sheet.Real("ring_size_nm", waypoints.ringSizeNm, 3, "NM");
    sheet.Colour("ring_colour", waypoints.ringColour);
    sheet.Bool("catenary_mode", waypoints.catenaryMode);
    PutTable(sheet, "points", waypoints, kWaypointColumns);
    PutReportGroup(sheet, waypoints.GetReport());
    sheet.Finish();
}

void FillSheet(Sheet& sheet, const CPipeline& pipeline) {
    PutPath(sheet, pipeline.GetPath());
    sheet.Choice("data_order", pipeline.dataOrder, kPipelineOrderTxt);
    sheet.Bool("use", pipeline.use);
    sheet.Int("diameter", pipeline.diameter);
    sheet.Bool("display_corridor", pipeline.displayCorridor);
    sheet.Metres("port_corridor", pipeline.portCorridor);
    sheet.Metres("starboard_corridor", pipeline.starboardCorridor);
    Put(sheet, "corridor_pen", pipeline.corridorPen);
    sheet.Metres("clearance", pipeline.clearance);
    sheet.Metres("tolerance", pipeline.tolerance);
    Put(sheet, "line_pen", pipeline.linePen);
    sheet.Kilometres("start_kp", pipeline.startKp);
    sheet.Bool("increasing_kps", pipeline.increasingKps);
    sheet.Bool("label_kps", pipeline.labelKps);
    sheet.Kilometres("kp_interval", pipeline.kpInterval);
    PutTable(sheet, "points", pipeline, kPipelineColumns);
    PutTable(sheet, "kp_listing", pipeline.GetKpListing(), kKpListingColumns);
    PutReportGroup(sheet, pipeline.GetReport());
    sheet.Finish();
}

void FillSheet(Sheet& sheet, const CRoute& route) {
    PutCommon(sheet, route);
    sheet.Choice("data_order", route.dataOrder, kRouteOrderTxt);
    PutDrawing(sheet, route);
    PutCorridor(sheet, route);
    PutTable(sheet, "points", route, kRouteColumns);
    PutReportGroup(sheet, route.GetReport());
    sheet.Finish();
}

void FillSheet(Sheet& sheet, const CSailLine& lines) {
    PutCommon(sheet, lines);
    sheet.Choice("data_order", lines.dataOrder, kSailLineOrderTxt);
    PutDrawing(sheet, lines);
    PutTable(sheet, "lines", lines, kSailLineColumns);
    PutReportGroup(sheet, lines.GetReport());
    sheet.Finish();
}

void FillSheet(Sheet& sheet, const CRPL& rpl) {
    PutPath(sheet, rpl.GetPath());
    sheet.Text("form", FormText(rpl.GetForm()));
    sheet.Kilometres("total_length", rpl.GetLengthKm());
    sheet.Bool("use", rpl.use);
    sheet.Int("diameter", rpl.diameter);
    sheet.Bool("display_corridor", rpl.displayCorridor);
    sheet.Metres("port_corridor", rpl.portCorridor);
    sheet.Metres("starboard_corridor", rpl.starboardCorridor);
    Put(sheet, "corridor_pen", rpl.corridorPen);
    sheet.Metres("clearance", rpl.clearance);
    sheet.Metres("tolerance", rpl.tolerance);
    Put(sheet, "line_pen", rpl.linePen);
    const std::span<const Column<RPLDef>> columns(kRplColumns);
    PutTable(sheet, "records", rpl, rpl.HasCorridor() ? columns : columns.first(columns.size() - kRplCorridorColumns));
    PutReportGroup(sheet, rpl.GetReport());
    sheet.Finish();
}

}  // namespace quillon
