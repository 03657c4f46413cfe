#include "panes/pipe_route_pane.h"

#include <algorithm>
#include <array>

#include "features/pipeline_columns.h"
#include "foundation/paths.h"
#include "frame/pane_layout.h"
#include "frame/select_feature_files.h"
#include "frame/size_columns.h"
#include "panes/line_rows.h"
#include "panes/row_values.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr UINT kTableId = 12016;
constexpr UINT kSelectId = 12095;
constexpr UINT kClearId = 12096;
constexpr int kListRows = 20;
constexpr std::uint8_t kSaveSettings = 1;

// clang-format off
constexpr std::array<RowEffect, 8> kEffects = {{
    // row                  equal   save           changed  messages
    {PIPE_ROUTE_DISPLAY,    COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPE_ROUTE_ORDER,      COUNTS, 0,             false,   {REDRAW}},
    {PIPE_ROUTE_COLOUR,     COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPE_ROUTE_THICKNESS,  COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPE_ROUTE_START_KP,   COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPE_ROUTE_INCREASING, COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPE_ROUTE_LABEL_KPS,  COUNTS, kSaveSettings, false,   {REDRAW}},
    {PIPE_ROUTE_INTERVAL,   COUNTS, kSaveSettings, false,   {REDRAW}},
}};
// clang-format on

constexpr LineRowIds kLineRows = {.colour = PIPE_ROUTE_COLOUR, .thickness = PIPE_ROUTE_THICKNESS};

}  // namespace

CPipeRoutePane::CPipeRoutePane(Platform& owner)
    : CPropertyPane(owner, kListRows, kEffects),
      selectButton(*this, kSelectId, "Select", false),
      clearButton(*this, kClearId, "Clear", false),
      table(*this, kTableId) {
    for (CControl* const control :
         std::initializer_list<CControl*>{&selectButton, &clearButton, &GetPropertyList(), &table}) {
        AddControl(*control);
    }
}

bool CPipeRoutePane::Create(CWnd* parent, UINT id, CPipeline& pipeRoute) {
    route = &pipeRoute;
    if (!CreatePane(parent, id, kTitle)) return false;
    ShowPoints(table, CurrentTable());
    Refresh();
    return true;
}

void CPipeRoutePane::Refresh() {
    InitPropList();
    UpdateAllPositions();
    AdjustLayout();
}

// ---- Rows ----

void CPipeRoutePane::BuildPropertyRows() {
    auto& file = GetPropertyList().AddGroup("Pipe Route File");
    file.Add<CMFCPropertyGridProperty>("File Name", NameOfPath(route->GetPath()), "Name of Pipe Route File", 0u)
        .AllowEdit(false);

    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", route->use, "Determine whether to display Pipeline File",
                                             PIPE_ROUTE_DISPLAY);
    AddOrderRow(properties, kPipelineOrderTxt, route->dataOrder, "Order of data within Pipeline File",
                PIPE_ROUTE_ORDER);

    BuildLineRows(GetPropertyList(), kLineRows, route->linePen);
    auto& kp = GetPropertyList().AddGroup("K.P.");
    kp.Add<CMFCPropertyGridDouble>("Start KP", route->startKp, "%7.3lf", "KP at the first co-ordinates ",
                                   PIPE_ROUTE_START_KP)
        .SetRange(kKpRange);
    kp.Add<CMFCPropertyGridProperty>("Increasing KP", route->increasingKps, "Increasing or decreasing KPs",
                                     PIPE_ROUTE_INCREASING);
    kp.Add<CMFCPropertyGridProperty>("Label KPs", route->labelKps, "Label KPs along route on graphic display",
                                     PIPE_ROUTE_LABEL_KPS);
    kp.Add<CMFCPropertyGridDouble>("KP Interval", route->kpInterval, "%7.3lf", "Interval to label KPs ",
                                   PIPE_ROUTE_INTERVAL)
        .SetRange(kKpIntervalRange);
    AdjustStartKp();
}

void CPipeRoutePane::AdjustStartKp() {
    for (const UINT id : {PIPE_ROUTE_START_KP, PIPE_ROUTE_INCREASING}) {
        if (CMFCPropertyGridProperty* const row = GetPropertyList().FindItemByData(id))
            row->Show(route->dataOrder == 0);
    }
}

bool CPipeRoutePane::StoreRow(CMFCPropertyGridProperty& row) {
    bool differed = false;
    switch (static_cast<PIPE_ROUTE_ROW>(row.GetData())) {
        case PIPE_ROUTE_DISPLAY:
            return Take(route->use, row);
        case PIPE_ROUTE_ORDER:
            StoreOrder(ChosenOption(row));
            return true;
        case PIPE_ROUTE_COLOUR:
        case PIPE_ROUTE_THICKNESS:
            return StoreLineRow(GetPropertyList(), kLineRows, route->linePen, row);
        case PIPE_ROUTE_START_KP:
            return StoreKpRow(Take(route->startKp, row));
        case PIPE_ROUTE_INCREASING:
            differed = Take(route->increasingKps, row);
            route->ComputeKps();
            return differed;
        case PIPE_ROUTE_LABEL_KPS:
            differed = Take(route->labelKps, row);
            route->ComputeKpListing();
            return differed;
        case PIPE_ROUTE_INTERVAL:
            return StoreKpRow(Take(route->kpInterval, row));
    }
    return false;
}

bool CPipeRoutePane::StoreKpRow(bool differed) {
    route->ComputeKps();
    UpdateAllPositions();
    return differed;
}

void CPipeRoutePane::StoreOrder(int order) {
    if (order >= 0) {
        route->dataOrder = order;
        route->WriteSettings();
        route->LoadData(std::string(route->GetPath()));
        UpdateAllPositions();
    }
    AdjustStartKp();
}

// ---- Points ----

void CPipeRoutePane::UpdateAllPositions() {
    shownKps.clear();
    shownKps.reserve(static_cast<std::size_t>(route->GetSize()));
    for (const PipelineDef& point : *route) shownKps.push_back(point.kp);
    RenewPoints(table, CurrentTable());
}

PointsTable CPipeRoutePane::CurrentTable() {
    const RecordSource<PipelineDef> points = [this]() -> std::span<const PipelineDef> {
        return {route->GetData(), static_cast<std::size_t>(route->GetSize())};
    };
    PointsTable table = MakePointsTable(kPipelineTableColumns, points);
    table.rows.cell = [this, cell = table.rows.cell](int row, int column) {
        // The KPs stand first.
        return column == 0 ? ShownKpText(static_cast<std::size_t>(row)) : cell(row, column);
    };
    return table;
}

std::string CPipeRoutePane::ShownKpText(std::size_t row) const {
    const bool there = row < shownKps.size() && row < static_cast<std::size_t>(route->GetSize());
    return there ? CellText(CELL::KP_KM, shownKps[row]) : std::string();
}

// ---- The file ----

void CPipeRoutePane::OnSelect() {
    const FileQuestion question{.title = "Pipe Route", .filter = std::string(kFeatureFileFilter)};
    std::vector<std::string> paths;
    if (GetPlatform().ChooseFiles(question, paths) && !paths.empty()) {
        const std::string path(Trim(paths.front()));
        if (!path.empty()) route->Load(path);
    }
    ShowRoute();
}

void CPipeRoutePane::OnClear() {
    route->Clear();
    ShowRoute();
}

void CPipeRoutePane::ShowRoute() {
    route->WriteActive();
    Refresh();
    BroadcastAll({REDRAW});
}

int CPipeRoutePane::LayOutTop(int width) {
    return PlaceInRow({&selectButton, &clearButton}, {0, 0, width, kPaneButtonHeight});
}

void CPipeRoutePane::OnSize(tagSIZE) {
    AdjustLayout();
    SizeColumns(table, false);
}

void CPipeRoutePane::OnCommand(UINT control) {
    if (control == kSelectId) OnSelect();
    if (control == kClearId) OnClear();
}

}  // namespace quillon
