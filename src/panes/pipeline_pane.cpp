#include "panes/pipeline_pane.h"

#include <array>
#include <limits>

#include "features/pipeline_columns.h"
#include "panes/corridor_rows.h"
#include "panes/line_rows.h"
#include "panes/row_values.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveSettings = 1;

// clang-format off
constexpr std::array<RowEffect, 13> kEffects = {{
    // row                     equal   save           changed  messages
    {PIPELINE_DISPLAY,         COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_ORDER,           COUNTS, 0,             false,   {REDRAW, RECOMPUTE}},
    {PIPELINE_DIAMETER,        COUNTS, kSaveSettings, false,   {RECOMPUTE}},
    {PIPELINE_COLOUR,          COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_THICKNESS,       COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_CORRIDOR,        COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_PORT_WIDTH,      COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_STARBOARD_WIDTH, COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_CORRIDOR_FILL,   COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_CORRIDOR_COLOUR, COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPELINE_CLEARANCE,       COUNTS, kSaveSettings, false,   {RECOMPUTE}},
    {PIPELINE_TOLERANCE,       COUNTS, kSaveSettings, false,   {RECOMPUTE}},
    {PIPELINE_PASSWORD,        COUNTS, 0,             false,   {}},
}};
// clang-format on

constexpr LineRowIds kLineRows = {.colour = PIPELINE_COLOUR, .thickness = PIPELINE_THICKNESS};

constexpr CorridorRowIds kCorridorRows = {.display = PIPELINE_CORRIDOR,
                                          .portWidth = PIPELINE_PORT_WIDTH,
                                          .starboardWidth = PIPELINE_STARBOARD_WIDTH,
                                          .fill = PIPELINE_CORRIDOR_FILL,
                                          .colour = PIPELINE_CORRIDOR_COLOUR};

CorridorValues CorridorOf(CPipeline& pipeline) {
    return {pipeline.displayCorridor, pipeline.portCorridor, pipeline.starboardCorridor, pipeline.corridorPen.fill,
            pipeline.corridorPen.colour};
}

constexpr FeaturePaneTraits kTraits = {.strip = {.combo = 12091, .add = 12092, .remove = 12093},
                                       .tableId = 12016,
                                       .fileKind = "Pipeline",
                                       .listRows = 20,
                                       .type = FEATURE_TYPES::PIPELINE,
                                       .added = {REDRAW, RECOMPUTE},
                                       .removed = {REDRAW, RECOMPUTE},
                                       .cursor = COMBO_CURSOR::STAYS,
                                       .removeMovesCursor = false,
                                       .effects = kEffects};

}  // namespace

CPipelinePane::CPipelinePane(Platform& owner)
    : CFeaturePane(owner, kTraits),
      alarm(GetPropertyList(), {PIPELINE_CLEARANCE, PIPELINE_TOLERANCE, PIPELINE_PASSWORD}, kOpenTime) {}

bool CPipelinePane::Create(CWnd* parent, UINT id, CPipelineList& features, bool showAlarmRows) {
    alarmRows = showAlarmRows;
    return CFeaturePane::Create(parent, id, kTitle, features);
}

// ---- Rows ----

void CPipelinePane::BuildRows(int index) {
    CPipeline& pipeline = Member(index);
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", pipeline.use, "Determine whether to display Pipeline File",
                                             PIPELINE_DISPLAY);
    AddOrderRow(properties, kPipelineOrderTxt, pipeline.dataOrder, "Order of data within Pipeline File",
                PIPELINE_ORDER);
    properties
        .Add<CMFCPropertyGridProperty>("Diameter (Inches)", std::int32_t{pipeline.diameter},
                                       "Enter the pipeline diameter in Inches", PIPELINE_DIAMETER)
        .EnableSpinControl(true, 0, std::numeric_limits<std::int16_t>::max());

    BuildLineRows(GetPropertyList(), kLineRows, pipeline.linePen);
    BuildCorridorRows(GetPropertyList(), kCorridorRows, CorridorOf(pipeline),
                      "Width of Corridor either side of Pipeline ");
    if (alarmRows) {
        alarm.BuildPassword(alarm.Build(pipeline.clearance, pipeline.tolerance,
                                        "ERROR if cable gets close than clearance + Tolerance distance"));
    }
}

bool CPipelinePane::StoreMemberRow(int index, CMFCPropertyGridProperty& row) {
    CPipeline& pipeline = Member(index);
    bool differed = false;
    switch (static_cast<PIPELINE_ROW>(row.GetData())) {
        case PIPELINE_DISPLAY:
            return Take(pipeline.use, row);
        case PIPELINE_ORDER:
            ReadAnew(pipeline, ChosenOption(row));
            return true;
        case PIPELINE_DIAMETER:
            return Take(pipeline.diameter, row);
        case PIPELINE_COLOUR:
        case PIPELINE_THICKNESS:
            return StoreLineRow(GetPropertyList(), kLineRows, pipeline.linePen, row);
        case PIPELINE_PORT_WIDTH:
        case PIPELINE_STARBOARD_WIDTH:
            differed = StoreCorridorRow(GetPropertyList(), kCorridorRows, CorridorOf(pipeline), row);
            pipeline.ComputeCorridor();
            return differed;
        case PIPELINE_CORRIDOR:
        case PIPELINE_CORRIDOR_FILL:
        case PIPELINE_CORRIDOR_COLOUR:
            return StoreCorridorRow(GetPropertyList(), kCorridorRows, CorridorOf(pipeline), row);
        case PIPELINE_CLEARANCE:
            return Take(pipeline.clearance, row);
        case PIPELINE_TOLERANCE:
            return Take(pipeline.tolerance, row);
        case PIPELINE_PASSWORD:
            alarm.OnPassword(row);
            return false;
    }
    return false;
}

void CPipelinePane::ReadAnew(CPipeline& pipeline, int order) {
    if (order < 0) return;
    pipeline.dataOrder = order;
    pipeline.WriteSettings();
    pipeline.LoadData(std::string(pipeline.GetPath()));
    CreateTable();
}

void CPipelinePane::SaveMember(int index, std::uint8_t) {
    Member(index).WriteSettings();
}

// ---- Points ----

PointsTable CPipelinePane::MakeTable(int index) {
    if (index < 0) return {};
    // Files without KPs have none in their table.
    const std::span shown = std::span(kPipelineTableColumns).subspan(Member(index).dataOrder == 0 ? 1 : 0);
    return MakePointsTable(shown, RecordsOf<PipelineDef>(static_cast<CPipelineList&>(List()), index));
}

bool CPipelinePane::PointOfRow(int index, int row, tagXY& point) const {
    if (!Member(index).IsValidIndex(row)) return false;
    point = Member(index)[row].Position();
    return true;
}

}  // namespace quillon
