#include "panes/pipeline_pane.h"

#include <array>
#include <limits>

#include "features/pipeline_columns.h"
#include "panes/row_values.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr std::uint8_t kSaveSettings = 1;
constexpr UINT kRelockTimer = 1;
constexpr std::string_view kWidthDescription = "Width of Corridor either side of Pipeline ";

// clang-format off
constexpr std::array<RowEffect, 13> kEffects = {{
    // row                       equal value          save           changed  messages
    {PIPELINE_DISPLAY,         EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_ORDER,           EQUAL_VALUE::COUNTS, 0,             false, ROW_MESSAGES::REDRAW_RECOMPUTE},
    {PIPELINE_DIAMETER,        EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::RECOMPUTE},
    {PIPELINE_COLOUR,          EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_THICKNESS,       EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_CORRIDOR,        EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_PORT_WIDTH,      EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_STARBOARD_WIDTH, EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_CORRIDOR_FILL,   EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_CORRIDOR_COLOUR, EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::REDRAW},
    {PIPELINE_CLEARANCE,       EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::RECOMPUTE},
    {PIPELINE_TOLERANCE,       EQUAL_VALUE::COUNTS, kSaveSettings, false, ROW_MESSAGES::RECOMPUTE},
    {PIPELINE_PASSWORD,        EQUAL_VALUE::COUNTS, 0,             false, ROW_MESSAGES::NONE},
}};
// clang-format on

constexpr FeaturePaneTraits kTraits = {.comboId = 12091,
                                       .addId = 12092,
                                       .removeId = 12093,
                                       .tableId = 12016,
                                       .fileKind = "Pipeline",
                                       .listRows = 20,
                                       .type = FEATURE_TYPES::PIPELINE,
                                       .addMessages = LIST_MESSAGES::REDRAW_RECOMPUTE,
                                       .removeMessages = LIST_MESSAGES::REDRAW_RECOMPUTE,
                                       .cursor = COMBO_CURSOR::STAYS,
                                       .removeMovesCursor = false,
                                       .effects = kEffects};

}  // namespace

CPipelinePane::CPipelinePane(Platform& owner) : CFeaturePane(owner, kTraits) {}

bool CPipelinePane::Create(CWnd* parent, UINT id, CPipelineList& features, bool showAlarmRows) {
    alarmRows = showAlarmRows;
    return CFeaturePane::Create(parent, id, kTitle, features);
}

// ---- Rows ----

void CPipelinePane::BuildRows(int index) {
    const CPipeline& pipeline = Member(index);
    const COLORREF colour = pipeline.linePen.colour;
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", pipeline.use, "Determine whether to display Pipeline File",
                                             PIPELINE_DISPLAY);
    AddOrderRow(properties, kPipelineOrderTxt, pipeline.dataOrder, "Order of data within Pipeline File",
                PIPELINE_ORDER);
    properties
        .Add<CMFCPropertyGridProperty>("Diameter (Inches)", std::int32_t{pipeline.diameter},
                                       "Enter the pipeline diameter in Inches", PIPELINE_DIAMETER)
        .EnableSpinControl(true, 0, std::numeric_limits<std::int16_t>::max());

    auto& line = GetPropertyList().AddGroup("Line");
    line.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", colour, kPaletteCount,
                                                    "Specifies the pen colour of the Line", PIPELINE_COLOUR);
    line.Add<CMFCPropertyGridLineThicknessProperty>(pipeline.linePen.thickness, colour, PIPELINE_THICKNESS);

    BuildCorridorRows(pipeline);
    if (alarmRows) BuildAlarmRows(pipeline);
}

void CPipelinePane::BuildCorridorRows(const CPipeline& pipeline) {
    auto& corridor = GetPropertyList().AddGroup("Corridor");
    corridor.Add<CMFCPropertyGridProperty>("Display", pipeline.displayCorridor,
                                           "Determine whether to display Corridor either side of route",
                                           PIPELINE_CORRIDOR);
    corridor.Add<CMFCPropertyGridDouble>("Port Width", pipeline.portCorridor, "%7.1lfm", kWidthDescription,
                                         PIPELINE_PORT_WIDTH);
    corridor.Add<CMFCPropertyGridDouble>("Starboard Width", pipeline.starboardCorridor, "%7.1lfm", kWidthDescription,
                                         PIPELINE_STARBOARD_WIDTH);
    corridor.Add<CMFCPropertyGridFillStyleProperty>(pipeline.corridorPen.fill, pipeline.corridorPen.colour,
                                                    PIPELINE_CORRIDOR_FILL);
    corridor.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", pipeline.corridorPen.colour, kPaletteCount,
                                                        "Specifies the pen colour of the Corridor",
                                                        PIPELINE_CORRIDOR_COLOUR);
}

void CPipelinePane::BuildAlarmRows(const CPipeline& pipeline) {
    const bool locked = CMFCPropertyGridPasswordProperty::IsPasswordPresent(GetPlatform());
    auto& alarm = GetPropertyList().AddGroup("Anchor Cable Alarm");
    alarm
        .Add<CMFCPropertyGridDouble>("Clearance", pipeline.clearance, "%7.1lfm",
                                     "WARNING if cable gets close than this distance", PIPELINE_CLEARANCE)
        .SetLock(locked);
    alarm
        .Add<CMFCPropertyGridDouble>("Tolerance", pipeline.tolerance, "%7.1lfm",
                                     "ERROR if cable gets close than clearance + Tolerance distance",
                                     PIPELINE_TOLERANCE)
        .SetLock(locked);
    if (locked) alarm.Add<CMFCPropertyGridPasswordProperty>(GetPlatform(), PIPELINE_PASSWORD);
}

bool CPipelinePane::StoreRow(int index, CMFCPropertyGridProperty& row) {
    CPipeline& pipeline = Member(index);
    switch (static_cast<PIPELINE_ROW>(row.GetData())) {
        case PIPELINE_DISPLAY:
            return Take(pipeline.use, row);
        case PIPELINE_ORDER:
            ReadAnew(pipeline, ChosenOption(row));
            return true;
        case PIPELINE_DIAMETER:
            return Take(pipeline.diameter, row);
        case PIPELINE_COLOUR: {
            const bool differed = Take(pipeline.linePen.colour, row);
            ColourRow(GetPropertyList(), PIPELINE_THICKNESS, pipeline.linePen.colour);
            return differed;
        }
        case PIPELINE_THICKNESS:
            return Take(pipeline.linePen.thickness, row);
        case PIPELINE_CORRIDOR:
        case PIPELINE_PORT_WIDTH:
        case PIPELINE_STARBOARD_WIDTH:
        case PIPELINE_CORRIDOR_FILL:
        case PIPELINE_CORRIDOR_COLOUR:
            return StoreCorridorRow(pipeline, row);
        case PIPELINE_CLEARANCE:
            return Take(pipeline.clearance, row);
        case PIPELINE_TOLERANCE:
            return Take(pipeline.tolerance, row);
        case PIPELINE_PASSWORD:
            OpenAlarmRows(row);
            return false;
    }
    return false;
}

bool CPipelinePane::StoreCorridorRow(CPipeline& pipeline, CMFCPropertyGridProperty& row) {
    bool differed = false;
    switch (row.GetData()) {
        case PIPELINE_CORRIDOR:
            return Take(pipeline.displayCorridor, row);
        case PIPELINE_PORT_WIDTH:
            differed = Take(pipeline.portCorridor, row);
            break;
        case PIPELINE_STARBOARD_WIDTH:
            differed = Take(pipeline.starboardCorridor, row);
            break;
        case PIPELINE_CORRIDOR_FILL:
            return Take(pipeline.corridorPen.fill, row);
        default:
            differed = Take(pipeline.corridorPen.colour, row);
            ColourRow(GetPropertyList(), PIPELINE_CORRIDOR_FILL, pipeline.corridorPen.colour);
            return differed;
    }
    pipeline.ComputeCorridor();
    return differed;
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

// ---- The lock ----

void CPipelinePane::OpenAlarmRows(CMFCPropertyGridProperty& password) {
    if (!static_cast<CMFCPropertyGridPasswordProperty&>(password).IsPasswordOk()) return;
    LockAlarmRows(false);
    SetTimer(kRelockTimer, kOpenTime);
}

void CPipelinePane::LockAlarmRows(bool lock) {
    for (const UINT id : {PIPELINE_CLEARANCE, PIPELINE_TOLERANCE}) {
        if (CMFCPropertyGridProperty* const row = GetPropertyList().FindItemByData(id)) row->SetLock(lock);
    }
}

void CPipelinePane::OnTimer(UINT timer) {
    if (timer != kRelockTimer) return;
    LockAlarmRows(true);
    KillTimer(kRelockTimer);
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
